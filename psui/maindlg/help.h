#pragma once
// Help, as the dialogs call for it. The folder of the secondary dialogs defines these.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Opens a topic of the help file. Returns the help window; null when there is no help.
HWND ShowHelpTopic(const PrinterUiContext* context, DWORD topic);

/// The help of a control, in a small window at the pointer. `control` is its id, or 0 after a right click:
/// then the control under the pointer is meant and a shortcut menu asks first. Null when nothing was opened.
HWND ShowContextHelp(HWND dialog, const PrinterUiContext* context, int control);

/// Closes every help window when one of the context's is open, and forgets them.
void CloseHelp(PrinterUiContext* context);

} // namespace psui
