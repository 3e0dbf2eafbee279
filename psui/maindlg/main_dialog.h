#pragma once
// The main settings dialog: the window in which the user edits a printer's settings.
#include <windows.h>

namespace psui {

/// Dialog procedure of the main dialog, which is created with the context as its parameter. It ends with
/// kMainDialogConfirmed or kMainDialogCancelled (entry/main_dialog.h).
INT_PTR CALLBACK MainSettingDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace psui
