#pragma once
// The page preview answers clicks: they step through the layouts of 1, 2 and 4 pages a sheet.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Whether a point of the preview, from its top-left corner, is on the page that the settings show there.
bool IsOnPreviewPage(const DriverDevMode& record, POINT point);

/// Whether a click on the page may change the layout.
bool PreviewAnswersClicks(const PrinterUiContext* context);

/// The dialog's own mouse messages, at a place in its coordinates.
void OnPreviewClick(HWND dialog, PrinterUiContext* context, POINT place);
void OnPreviewMove(HWND dialog, const PrinterUiContext* context, POINT place);

} // namespace psui
