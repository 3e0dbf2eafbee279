#pragma once
// What the document sheet asks of the folders above: they define these.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Writes the summary of the working record into the summary control of `page`. Returns 1, or 0 with the
/// control unchanged when there is no memory for the text.
int FillSettingsSummary(HWND page, PrinterUiContext* context);

/// What the main settings dialog ends with.
constexpr INT_PTR kMainDialogConfirmed = 1;
constexpr INT_PTR kMainDialogCancelled = 2;

/// Runs the main settings dialog over `owner`; it edits the working record in place. Returns
/// kMainDialogConfirmed or kMainDialogCancelled; another value when the dialog cannot be shown.
INT_PTR RunMainDialog(HWND owner, PrinterUiContext* context);

} // namespace psui
