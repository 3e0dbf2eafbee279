#pragma once
// Scroll bars: the painting that the control shares with the bars in a window's frame, and the control.
#include <windows.h>

#include "host/window/controls/scroll_parts.h"
#include "host/window/controls/theme.h"

namespace host {

/// Draws a bar along the longer way of `rect` as `vertical` says. `pressed` is the part under the pressed
/// pointer, or none; `blockedArrows` are ESB_DISABLE_ bits.
void PaintScrollBar(HDC dc, const RECT& rect, bool vertical, const ScrollLayout& layout, ScrollPart pressed,
                    UINT blockedArrows, const theme::Look& look);

LRESULT CALLBACK ScrollBarProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
