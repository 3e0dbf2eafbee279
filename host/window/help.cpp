// Requests for help on a window: by F1, or by the question mark in a caption and a click.
#include "host/window/room.h"

namespace host {
namespace {

/// The window under a point that help can be about: disabled controls too.
HWND HelpTarget(POINT point)
{
    HWND target = WindowFromPoint(point);
    const WindowPtr window = LookUp(target);
    if (window == nullptr || window->queue != CurrentQueue())
        return nullptr;
    POINT inside = point;
    ScreenToClient(target, &inside);
    const HWND child = RealChildWindowFromPoint(target, inside);
    return child != nullptr ? child : target;
}

} // namespace

void SendHelp(HWND handle)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr)
        return;
    HELPINFO info = {sizeof info, HELPINFO_WINDOW, static_cast<int>(window->id), handle, 0, {}};
    GetCursorPos(&info.MousePos);
    SendMessageW(handle, WM_HELP, 0, reinterpret_cast<LPARAM>(&info));
}

void RunHelpMode(HWND handle)
{
    SetCapture(handle);
    const HCURSOR previous = SetCursor(LoadCursorW(nullptr, IDC_HELP));
    HWND target = nullptr;
    MSG message;
    // The mode ends with its window, too: a dialog may be closed from within.
    while (IsWindowVisible(handle) && NextWhileCaptured(handle, message)) {
        if (message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE)
            break;
        if (message.message == WM_LBUTTONDOWN || message.message == WM_LBUTTONDBLCLK) {
            target = HelpTarget(message.pt);
            break;
        }
        const bool mouse = message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
        if (!mouse)
            DispatchMessageW(&message);
    }
    if (GetCapture() == handle)
        ReleaseCapture();
    SetCursor(previous);
    SendHelp(target);
}

} // namespace host
