#pragma once
// The tabs of the main dialog: child dialogs of which one is shown.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// The refresh message of tabs: everything is shown anew from the record.
constexpr UINT kRefreshTab = WM_USER + 10;

/// Whether this language and these settings have the favourites tab.
bool HasFavouritesTab(const PrinterUiContext* context);

/// Inserts the titles, creates the tabs over the tab control's display area and shows the first one, or the
/// favourites where the model starts with them.
void CreateSettingTabs(HWND dialog, PrinterUiContext* context);

/// The window of the selected tab; null for one that could not be created.
HWND SelectedTab(HWND dialog, const PrinterUiContext* context);

/// Shows the tab that the user has selected and moves the focus to its first control, unless the tab control
/// has it.
void OnTabSelected(HWND dialog, const PrinterUiContext* context);

/// Help topic of the selected tab.
DWORD HelpTopicOfTab(HWND dialog);

} // namespace psui
