#pragma once
// The tip that appears below the web-support link while the pointer rests on it.
#include <windows.h>

namespace psui {

/// Shows the tip with the link's text. Called when the hover timer of the dialog fires.
void ShowHoverTip(HWND dialog);

/// Kills the timer and hides the tip.
void HideHoverTip(HWND dialog);

} // namespace psui
