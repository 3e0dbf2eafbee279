#include "host/window/room.h"

namespace host {

LRESULT CALLBACK MenuWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProcW(window, message, wParam, lParam);
}

void CloseMenus() {}

void EndMenuOf(HWND) {}

} // namespace host
