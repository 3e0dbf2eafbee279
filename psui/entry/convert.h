#pragma once
#include <windows.h>

namespace psui {

/// The work of DrvConvertDevMode (exports.h); arguments and result are the same.
BOOL ConvertDevMode(WCHAR* printerName, const DEVMODEW* input, DEVMODEW* output, LONG* size, DWORD mode);

} // namespace psui
