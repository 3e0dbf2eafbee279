#pragma once
// The document sheet's page: the settings as text, and a button that opens the main dialog.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Dialog procedure of the page. It is created with a PropSheetPage (ddi.h) whose parameter is the context.
/// Alone in its sheet the page opens the main dialog at once, unseen, and hands its end on to the sheet.
INT_PTR CALLBACK SummaryPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);

/// What the page does when its sheet applies: hands the settings out to the caller of the sheet.
void ApplySummaryPage(PrinterUiContext* context);

} // namespace psui
