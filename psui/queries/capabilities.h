#pragma once
#include <windows.h>

namespace psui {

/// The work of DrvDeviceCapabilities (entry/exports.h); arguments and result are the same.
DWORD AnswerCapability(HANDLE printer, const WCHAR* deviceName, WORD capability, void* output,
                       const DEVMODEW* record);

} // namespace psui
