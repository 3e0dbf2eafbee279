#pragma once
// What the main dialog moves when it opens: the template gives the rest.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Sizes link and banner by the link's picture, centres the preview in its frame and sizes the small
/// pictures.
void LayOutPictures(HWND dialog);

/// Shows the duplex line on printers that have duplex and makes room for it in the side panel.
void LayOutDuplexLine(HWND dialog, const PrinterUiContext* context);

/// Sets Help, Apply (of default settings only), Cancel and OK under the tabs, from right to left.
void LayOutButtons(HWND dialog, const PrinterUiContext* context);

/// Switches between the rows with and without Apply.
void ToggleApplyButton(HWND dialog);

} // namespace psui
