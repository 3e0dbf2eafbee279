#pragma once
// The Apply button: enabled while the settings differ from those last applied.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Whether the two differ in a setting that Apply is for. Others, such as the colour of the date, do not
/// count. The language module decides which copies of the date's and time's format do.
bool SettingsDiffer(const PrinterUiContext& context, const PrinterUiContext& other);

/// Takes the settings as they are for applied ones. One dialog is open at a time, so there is one snapshot.
void TakeApplySnapshot(const PrinterUiContext& context);

/// Enables or disables Apply, which only the dialog of a user's default settings has.
void UpdateApplyButton(HWND dialog, const PrinterUiContext* context);

} // namespace psui
