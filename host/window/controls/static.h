#pragma once
// Static controls: text, images, rectangles, frames and lines.
#include <windows.h>

namespace host {

LRESULT CALLBACK StaticProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
