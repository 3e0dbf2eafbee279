#pragma once
// The column of lines beside the main dialog's tabs: what is set, in words, greyed where it is off.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Rewrites one line, named by its control (lang/ids/main_dialog.h), and refreshes the panel. A control that
/// is no such line is left alone.
void RefreshSidePanelLine(HWND dialog, PrinterUiContext* context, int line);

/// Rewrites all lines and refreshes the panel.
void RefreshSidePanelTexts(HWND dialog, PrinterUiContext* context);

/// Sets which lines and buttons of the main dialog are enabled, and whether the web link is shown.
void RefreshSidePanel(HWND dialog, PrinterUiContext* context);

/// The text of a line, as far as it fits into `size` units with the terminator; empty for no such line.
void SidePanelText(const PrinterUiContext* context, int line, WCHAR* text, int size);

/// Whether a line or button of the main dialog is enabled; true for a control that follows no rule.
bool IsSidePanelEnabled(const PrinterUiContext* context, int control);

/// Shows the paper of row `position` of the paper table, and what it is scaled to. A row that the table does
/// not have changes nothing.
void ShowPaperOnMainDialog(HWND dialog, const PrinterUiContext* context, size_t position);

} // namespace psui
