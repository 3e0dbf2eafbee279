// Which window is active, which has the focus, which has the mouse, and what may be used at all.
#include "host/window/pretended.h"

namespace host {
namespace {

HWND foreground;

bool CanBeActive(const Window& window)
{
    return IsVisibleStyle(window) && (window.style & WS_DISABLED) == 0 && !IsChildStyle(window) &&
           (window.exStyle & WS_EX_NOACTIVATE) == 0 && window.queue == CurrentQueue();
}

void SendActivation(HWND window, WORD how, HWND other)
{
    if (LookUp(window) == nullptr)
        return;
    SendMessageW(window, WM_NCACTIVATE, how != WA_INACTIVE, reinterpret_cast<LPARAM>(other));
    if (LookUp(window) != nullptr)
        SendMessageW(window, WM_ACTIVATE, how, reinterpret_cast<LPARAM>(other));
}

/// The messages of a change of the focus.
void MoveFocus(Queue& queue, HWND to)
{
    const HWND from = queue.focus;
    if (from == to)
        return;
    queue.focus = to;
    if (from != nullptr && LookUp(from) != nullptr)
        SendMessageW(from, WM_KILLFOCUS, reinterpret_cast<WPARAM>(to), 0);
    if (to != nullptr && queue.focus == to && LookUp(to) != nullptr)
        SendMessageW(to, WM_SETFOCUS, reinterpret_cast<WPARAM>(from), 0);
}

void ChangeActive(Queue& queue, HWND to, bool byMouse)
{
    const HWND from = queue.active;
    queue.active = to;
    foreground = to;
    SendActivation(from, WA_INACTIVE, to);
    if (queue.active != to)
        return;
    if (to == nullptr) {
        MoveFocus(queue, nullptr);
        return;
    }
    if (from == nullptr)
        SendMessageW(to, WM_ACTIVATEAPP, TRUE, 0);
    SendActivation(to, byMouse ? WA_CLICKACTIVE : WA_ACTIVE, from);
    if (queue.active == to && (queue.focus == nullptr || GetAncestor(queue.focus, GA_ROOT) != to))
        MoveFocus(queue, to);
}

} // namespace

HWND ForegroundWindow()
{
    return foreground;
}

bool Activate(HWND handle, bool byMouse)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr || !CanBeActive(*window))
        return false;
    const std::shared_ptr<Queue> queue = CurrentQueue();
    if (queue->active == handle)
        return true;
    SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE);
    if (LookUp(handle) != nullptr && queue->active != handle)
        ChangeActive(*queue, handle, byMouse);
    return queue->active == handle;
}

void ActivateOther(Window& window)
{
    const std::shared_ptr<Queue> queue = CurrentQueue();
    if (queue->active != window.handle)
        return;
    const WindowPtr owner = LookUp(window.owner);
    if (owner != nullptr && CanBeActive(*owner)) {
        Activate(owner->handle, false);
        return;
    }
    for (const HWND each : ChildrenOf(Desktop())) {
        const WindowPtr next = LookUp(each);
        if (next != nullptr && next.get() != &window && !next->destroying && CanBeActive(*next)) {
            Activate(each, false);
            return;
        }
    }
    ChangeActive(*queue, nullptr, false);
}

void CloseFocus()
{
    foreground = nullptr;
}

} // namespace host

using namespace host;

HWND WINAPI SetFocus(HWND handle)
{
    HOST_CALL(SetFocus, nullptr, ERROR_INVALID_WINDOW_HANDLE);
    const std::shared_ptr<Queue> queue = CurrentQueue();
    const HWND previous = queue->focus;
    if (handle == nullptr) {
        MoveFocus(*queue, nullptr);
        return previous;
    }
    const WindowPtr window = OwnWindowOf(handle);
    if (window == nullptr)
        return nullptr;
    if (handle == previous)
        return previous;
    for (const Window* each = window.get(); each != nullptr; each = each->parent) {
        if ((each->style & WS_DISABLED) != 0)
            return nullptr;
        if (!IsChildStyle(*each))
            break;
    }
    const Window& top = TopLevelOf(*window);
    if (queue->active != top.handle && !IsChildStyle(top))
        Activate(top.handle, false);
    if (LookUp(handle) != nullptr)
        MoveFocus(*queue, handle);
    return previous;
}

HWND WINAPI GetFocus(void)
{
    HOST_CALL_VOID(GetFocus);
    return CurrentQueue()->focus;
}

HWND WINAPI SetActiveWindow(HWND handle)
{
    HOST_CALL(SetActiveWindow, nullptr, ERROR_INVALID_WINDOW_HANDLE);
    const HWND previous = CurrentQueue()->active;
    if (OwnWindowOf(handle) == nullptr)
        return nullptr;
    Activate(handle, false);
    return previous;
}

HWND WINAPI GetActiveWindow(void)
{
    HOST_CALL_VOID(GetActiveWindow);
    const HWND active = CurrentQueue()->active;
    return active != nullptr ? active : PretendedActive();
}

BOOL WINAPI SetForegroundWindow(HWND handle)
{
    HOST_CALL(SetForegroundWindow, FALSE, ERROR_INVALID_WINDOW_HANDLE);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    return window->queue == CurrentQueue() ? Activate(handle, false) : window->queue == nullptr;
}

HWND WINAPI GetForegroundWindow(void)
{
    HOST_CALL_VOID(GetForegroundWindow);
    return foreground != nullptr ? foreground : PretendedActive();
}

BOOL WINAPI EnableWindow(HWND handle, BOOL enable)
{
    HOST_CALL_VOID(EnableWindow);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    const bool wasDisabled = (window->style & WS_DISABLED) != 0;
    if (enable && wasDisabled) {
        window->style &= ~static_cast<DWORD>(WS_DISABLED);
        SendMessageW(handle, WM_ENABLE, TRUE, 0);
    } else if (!enable && !wasDisabled) {
        SendMessageW(handle, WM_CANCELMODE, 0, 0);
        window->style |= WS_DISABLED;
        const HWND focus = CurrentQueue()->focus;
        if (focus != nullptr && (focus == handle || IsChild(handle, focus)))
            SetFocus(nullptr);
        if (LookUp(handle) != nullptr)
            SendMessageW(handle, WM_ENABLE, FALSE, 0);
    }
    return wasDisabled;
}

HWND WINAPI SetCapture(HWND handle)
{
    HOST_CALL_VOID(SetCapture);
    const std::shared_ptr<Queue> queue = CurrentQueue();
    const HWND previous = queue->capture;
    if (handle != nullptr && OwnWindowOf(handle) == nullptr)
        return nullptr;
    queue->capture = handle;
    if (previous != nullptr && previous != handle)
        SendMessageW(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(handle));
    return previous;
}

HWND WINAPI GetCapture(void)
{
    HOST_CALL_VOID(GetCapture);
    return CurrentQueue()->capture;
}

BOOL WINAPI ReleaseCapture(void)
{
    HOST_CALL_VOID(ReleaseCapture);
    const std::shared_ptr<Queue> queue = CurrentQueue();
    const HWND previous = std::exchange(queue->capture, nullptr);
    if (previous != nullptr)
        SendMessageW(previous, WM_CAPTURECHANGED, 0, 0);
    return TRUE;
}
