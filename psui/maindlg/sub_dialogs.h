#pragma once
// Dialogs that the tabs open. The folder of the secondary dialogs defines them.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// The user-defined paper size; edits the record in place.
INT_PTR RunUserPaperDialog(HWND tab, PrinterUiContext* context);

/// Duplex and booklet settings; IDCANCEL asks the caller to restore what it saved.
INT_PTR RunDuplexDialog(HWND tab, PrinterUiContext* context);

} // namespace psui
