#pragma once
// Where dialogs appear.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Centres a window across its widest ancestor (its parent when it has none), two fifths down, and keeps it
/// on the screen.
void CentreOverOwner(HWND window);

/// Puts a sub-dialog of a tab at the tab control's top-left corner and keeps it in the work area.
void PlaceSubDialog(HWND window, const PrinterUiContext* context);

/// The two rules as functions of rectangles in screen coordinates: where the window's top-left corner goes.
POINT CentredPlace(const RECT& ownerClient, SIZE window, SIZE screen);
POINT SubDialogPlace(const RECT& tabs, SIZE window, const RECT& workArea);

} // namespace psui
