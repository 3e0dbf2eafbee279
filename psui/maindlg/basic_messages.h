#pragma once
// The message boxes of the Basic tab.
#include <windows.h>

#include "psui/maindlg/basic_rules.h"

namespace psui {

/// Shows a message over the tab and returns the button that answered it; None shows nothing and returns IDOK.
int ShowBasicMessage(HWND tab, const PrinterUiContext* context, BasicMessage message);

} // namespace psui
