#pragma once
// Drawing and helping in the dialogs, out of their context.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Answers WM_DRAWITEM of any dialog.
void DrawContextItem(HWND dialog, const DRAWITEMSTRUCT* request, const PrinterUiContext* context);

/// Repaints one control of a dialog.
void RepaintControl(HWND dialog, int control);

/// Repaints the page preview and the picture of the fitted paper on the main dialog.
void RepaintPreview(const PrinterUiContext* context);
void RepaintFitPicture(const PrinterUiContext* context);

} // namespace psui
