#pragma once
#include <windows.h>

namespace psui {

/// The path of the driver's help file, in a block of `heap` that lives as long as the heap; the platform's
/// own help file when the driver names none. Null when neither can be had.
WCHAR* GetHelpFilePath(HANDLE printer, HANDLE heap);

} // namespace psui
