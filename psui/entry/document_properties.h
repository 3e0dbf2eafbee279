#pragma once
// The older one-call functions for a document's settings.
#include <windows.h>

namespace psui {

/// The work of DrvDocumentProperties and DrvAdvancedDocumentProperties (exports.h); arguments and results
/// are the same.
LONG DocumentProperties(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* output, DEVMODEW* input,
                        DWORD mode);
LONG AdvancedDocumentProperties(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* output,
                                DEVMODEW* input);

} // namespace psui
