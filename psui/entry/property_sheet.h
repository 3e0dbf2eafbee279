#pragma once
#include <windows.h>

#include "psui/entry/ddi.h"

namespace psui {

/// Runs a sheet in the common property-sheet UI, which is loaded for the call. `header` is the sheet's
/// initial parameter; `result` receives what the sheet ended with. Returns what the common UI returned,
/// negative for an error; -1 when it cannot be had.
LONG CallCommonPropertySheet(HWND parent, PropSheetUiFn sheet, LPARAM header, DWORD* result);

} // namespace psui
