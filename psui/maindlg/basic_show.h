#pragma once
// Shows the record on the Basic tab: every control from its fields.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Shows everything anew; corrects what the lists do not offer. On opening and after the Advanced tab changed
/// the record.
void ShowBasicSettings(HWND tab, PrinterUiContext* context);

/// The quality list of the record's media and paper, with its level selected.
void ShowQualities(HWND tab, PrinterUiContext* context);

/// Selects the record's paper in the list, the first one (and stores it) when it is not offered, and shows it
/// on the main dialog.
void ShowPaper(HWND tab, PrinterUiContext* context);

void ShowColorMode(HWND tab, const PrinterUiContext* context);
void ShowOrientation(HWND tab, const PrinterUiContext* context);
void ShowCopies(HWND tab, const PrinterUiContext* context);

/// Sets which controls are enabled. A borderless size goes back to one page a sheet first.
void UpdateBasicEnables(HWND tab, PrinterUiContext* context);

} // namespace psui
