#pragma once
// What the main dialog starts outside.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Opens the maker's support page for this printer's model. Does nothing in a language without a code of its
/// own.
void OpenWebSupport(HWND dialog, const PrinterUiContext* context);

/// Starts the control centre for this printer. Does nothing when it is not installed.
void StartControlCentre(HWND dialog, const PrinterUiContext* context);

} // namespace psui
