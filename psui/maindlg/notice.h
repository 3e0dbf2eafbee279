#pragma once
// The notice on photo papers, which the user can switch off.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Runs the notice dialog. Closing it without OK restores whether it is shown.
void RunNoticeDialog(HWND owner, PrinterUiContext* context);

} // namespace psui
