// Where windows are, how large, in which order and whether they show.
#include <algorithm>

#include "host/window/handles.h"

namespace host {
namespace {

// The part of WINDOWPOS::flags that tells the default procedure which of WM_SIZE and WM_MOVE to leave out.
constexpr UINT kNoClientSize = 0x0800;
constexpr UINT kNoClientMove = 0x1000;
constexpr UINT kNothingChanged = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER;

/// Drops what would change nothing.
void Simplify(const Window& window, WINDOWPOS& place)
{
    const SIZE size = SizeOf(window.rect);
    if ((place.flags & SWP_NOMOVE) != 0 || (place.x == window.rect.left && place.y == window.rect.top)) {
        place.x = window.rect.left;
        place.y = window.rect.top;
        place.flags |= SWP_NOMOVE;
    }
    place.cx = std::max(place.cx, 0);
    place.cy = std::max(place.cy, 0);
    if ((place.flags & SWP_NOSIZE) != 0 || (place.cx == size.cx && place.cy == size.cy)) {
        place.cx = size.cx;
        place.cy = size.cy;
        place.flags |= SWP_NOSIZE;
    }
    if (IsVisibleStyle(window))
        place.flags &= ~static_cast<UINT>(SWP_SHOWWINDOW);
    else
        place.flags &= ~static_cast<UINT>(SWP_HIDEWINDOW);
    const bool alreadyFirst = place.hwndInsertAfter == HWND_TOP && window.parent != nullptr &&
                              IsChildStyle(window) && window.parent->children.front() == &window;
    if (place.hwndInsertAfter == window.handle || alreadyFirst)
        place.flags |= SWP_NOZORDER;
}

void Restack(Window& window, HWND after)
{
    Window& parent = *window.parent;
    if (after == HWND_TOPMOST || after == HWND_NOTOPMOST) {
        const DWORD topmost = WS_EX_TOPMOST;
        window.exStyle = after == HWND_TOPMOST ? window.exStyle | topmost : window.exStyle & ~topmost;
        after = HWND_TOP;
    }
    Unlink(window);
    Link(window, parent, after);
}

/// Owned windows stay above their owners, and a raised window takes the owners that it lies on along.
void RestackGroup(Window& window, HWND after, UINT flags)
{
    Restack(window, after);
    if (!IsTopLevel(window) || after == HWND_BOTTOM)
        return;
    if (after == HWND_TOP && (flags & SWP_NOOWNERZORDER) == 0) {
        HWND above = window.handle;
        for (WindowPtr owner = LookUp(window.owner); owner != nullptr; owner = LookUp(owner->owner)) {
            Restack(*owner, above);
            above = owner->handle;
        }
    }
    const std::vector<HWND> all = ChildrenOf(*window.parent);
    for (auto each = all.rbegin(); each != all.rend(); ++each) {
        const WindowPtr owned = LookUp(*each);
        if (owned == nullptr || owned->owner != window.handle)
            continue;
        const auto place = std::find(all.begin(), all.end(), window.handle);
        if (place < std::find(all.begin(), all.end(), *each))
            RestackGroup(*owned, HWND_TOP, SWP_NOOWNERZORDER);
    }
}

void Reframe(Window& window, WINDOWPOS& place, const RECT& newRect)
{
    const RECT oldClient = window.client;
    const RECT oldRect = window.rect;
    if ((place.flags & SWP_NOSIZE) == 0 || (place.flags & SWP_FRAMECHANGED) != 0)
        RecalculateClient(window, newRect);
    else
        window.rect = newRect;
    const SIZE before = SizeOf(oldClient);
    const SIZE now = SizeOf(window.client);
    if (before.cx == now.cx && before.cy == now.cy)
        place.flags |= kNoClientSize;
    if (oldRect.left + oldClient.left == window.rect.left + window.client.left &&
        oldRect.top + oldClient.top == window.rect.top + window.client.top)
        place.flags |= kNoClientMove;
}

void RedrawAfter(Window& window, const WINDOWPOS& place, const RECT& oldRect, bool wasVisible)
{
    if ((place.flags & SWP_NOREDRAW) != 0)
        return;
    const bool moved = (place.flags & kNothingChanged) != kNothingChanged;
    if ((moved && wasVisible && !IsTopLevel(window)) || (place.flags & SWP_HIDEWINDOW) != 0)
        InvalidateUnder(window, oldRect);
    const bool all = (place.flags & (SWP_SHOWWINDOW | SWP_FRAMECHANGED)) != 0 ||
                     (place.flags & SWP_NOSIZE) == 0 || (moved && !IsTopLevel(window));
    if (all && IsVisibleStyle(window))
        Invalidate(window, nullptr, RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void Apply(Window& window, WINDOWPOS& place)
{
    const RECT oldRect = window.rect;
    const bool wasVisible = IsVisibleStyle(window);
    if ((place.flags & SWP_NOZORDER) == 0 && window.parent != nullptr)
        RestackGroup(window, place.hwndInsertAfter, place.flags);
    const RECT newRect = {place.x, place.y, place.x + place.cx, place.y + place.cy};
    Reframe(window, place, newRect);
    if ((place.flags & SWP_SHOWWINDOW) != 0)
        window.style |= WS_VISIBLE;
    RedrawAfter(window, place, oldRect, wasVisible);
    if ((place.flags & SWP_HIDEWINDOW) != 0)
        window.style &= ~static_cast<DWORD>(WS_VISIBLE);
}

BOOL Place(HWND handle, WINDOWPOS place)
{
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if (window->parent == nullptr)
        return FailWith(ERROR_INVALID_WINDOW_HANDLE);
    place.hwnd = handle;
    Simplify(*window, place);
    if ((place.flags & SWP_NOSENDCHANGING) == 0) {
        SendMessageW(handle, WM_WINDOWPOSCHANGING, 0, reinterpret_cast<LPARAM>(&place));
        if (LookUp(handle) == nullptr)
            return TRUE;
        Simplify(*window, place);
    }
    Apply(*window, place);
    if (LookUp(handle) == nullptr)
        return TRUE;
    const bool activate = (place.flags & (SWP_NOACTIVATE | SWP_HIDEWINDOW)) == 0 && IsTopLevel(*window) &&
                          !IsChildStyle(*window) && (window->exStyle & WS_EX_NOACTIVATE) == 0;
    if (activate)
        Activate(handle, false);
    constexpr UINT kChanges = SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_FRAMECHANGED;
    if ((place.flags & kNothingChanged) != kNothingChanged || (place.flags & kChanges) != 0)
        SendMessageW(handle, WM_WINDOWPOSCHANGED, 0, reinterpret_cast<LPARAM>(&place));
    if ((place.flags & SWP_HIDEWINDOW) != 0 && LookUp(handle) != nullptr)
        ActivateOther(*window);
    return TRUE;
}

struct Batch
{
    std::vector<WINDOWPOS> places;
};

UINT FlagsToShow(const Window& window, int command)
{
    UINT flags = SWP_NOSIZE | SWP_NOMOVE;
    const bool passive =
        command == SW_SHOWNOACTIVATE || command == SW_SHOWNA || command == SW_SHOWMINNOACTIVE;
    if (IsChildStyle(window) || passive)
        flags |= SWP_NOACTIVATE;
    if (IsChildStyle(window) || command == SW_SHOWNA)
        flags |= SWP_NOZORDER;
    return flags;
}

void SendSizeOnFirstShow(const WindowPtr& window)
{
    if (window->sized || (window->style & (WS_CHILD | WS_POPUP)) != 0)
        return;
    window->sized = true;
    const SIZE size = SizeOf(window->client);
    SendMessageW(window->handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx, size.cy));
    const POINT origin = ClientOrigin(*window);
    SendMessageW(window->handle, WM_MOVE, 0, MAKELPARAM(origin.x, origin.y));
}

/// The control with the focus goes out of sight: its parent gets it.
void TakeFocusFromHidden(const Window& window)
{
    const HWND focus = CurrentQueue()->focus;
    if (focus != nullptr && IsChildStyle(window) && (focus == window.handle || IsChild(window.handle, focus)))
        SetFocus(GetParent(window.handle));
}

void Show(const WindowPtr& window, int command)
{
    const HWND handle = window->handle;
    const bool show = command != SW_HIDE;
    SendMessageW(handle, WM_SHOWWINDOW, show, 0);
    if (LookUp(handle) == nullptr)
        return;
    if (IsChildStyle(*window) && !IsShown(*window->parent)) {
        window->style = show ? window->style | WS_VISIBLE : window->style & ~static_cast<DWORD>(WS_VISIBLE);
        return;
    }
    UINT flags = FlagsToShow(*window, command) | (show ? SWP_SHOWWINDOW : SWP_HIDEWINDOW);
    if (!show)
        flags |= SWP_NOZORDER | SWP_NOACTIVATE;
    SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, flags);
    if (LookUp(handle) == nullptr)
        return;
    if (!show)
        TakeFocusFromHidden(*window);
    else
        SendSizeOnFirstShow(window);
}

} // namespace

SIZE SizeOf(const RECT& rect)
{
    return {rect.right - rect.left, rect.bottom - rect.top};
}

RECT ClientRectOfWindow(const Window& window)
{
    const SIZE size = SizeOf(window.client);
    return {0, 0, size.cx, size.cy};
}

POINT WindowOrigin(const Window& window)
{
    std::lock_guard lock(WindowLock());
    POINT origin = {window.rect.left, window.rect.top};
    for (const Window* each = window.parent; each != nullptr && each->parent != nullptr;
         each = each->parent) {
        origin.x += each->rect.left + each->client.left;
        origin.y += each->rect.top + each->client.top;
    }
    return origin;
}

POINT ClientOrigin(const Window& window)
{
    const POINT origin = WindowOrigin(window);
    return {origin.x + window.client.left, origin.y + window.client.top};
}

void RecalculateClient(Window& window, const RECT& newRect)
{
    WINDOWPOS place = {window.handle,
                       nullptr,
                       newRect.left,
                       newRect.top,
                       newRect.right - newRect.left,
                       newRect.bottom - newRect.top,
                       SWP_NOZORDER};
    RECT oldClient = window.client;
    OffsetRect(&oldClient, window.rect.left, window.rect.top);
    NCCALCSIZE_PARAMS parameters = {{newRect, window.rect, oldClient}, &place};
    window.rect = newRect;
    SendMessageW(window.handle, WM_NCCALCSIZE, TRUE, reinterpret_cast<LPARAM>(&parameters));
    window.client = parameters.rgrc[0];
    OffsetRect(&window.client, -newRect.left, -newRect.top);
}

} // namespace host

using namespace host;

BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags)
{
    HOST_CALL(SetWindowPos, FALSE, ERROR_INVALID_WINDOW_HANDLE);
    return Place(window, {window, after, x, y, width, height, flags});
}

BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint)
{
    HOST_CALL(MoveWindow, FALSE, ERROR_INVALID_WINDOW_HANDLE);
    const UINT redraw = repaint ? 0 : SWP_NOREDRAW;
    return Place(window, {window, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE | redraw});
}

BOOL WINAPI BringWindowToTop(HWND window)
{
    HOST_CALL(BringWindowToTop, FALSE, ERROR_INVALID_WINDOW_HANDLE);
    return SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
}

BOOL WINAPI ShowWindow(HWND handle, int command)
{
    HOST_CALL_VOID(ShowWindow);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    const bool wasVisible = IsVisibleStyle(*window);
    const bool show = command != SW_HIDE;
    const bool raises =
        show && !IsChildStyle(*window) && command != SW_SHOWNA && command != SW_SHOWNOACTIVATE;
    if (wasVisible == show && !raises)
        return wasVisible;
    if (wasVisible && show) {
        SetWindowPos(handle, HWND_TOP, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE);
        return TRUE;
    }
    if (wasVisible != show)
        Show(window, command);
    return wasVisible;
}

BOOL WINAPI IsIconic(HWND window)
{
    HOST_CALL_VOID(IsIconic);
    return (GetWindowLongW(window, GWL_STYLE) & WS_MINIMIZE) != 0;
}

BOOL WINAPI IsZoomed(HWND window)
{
    HOST_CALL_VOID(IsZoomed);
    return (GetWindowLongW(window, GWL_STYLE) & WS_MAXIMIZE) != 0;
}

HDWP WINAPI BeginDeferWindowPos(int count)
{
    HOST_CALL(BeginDeferWindowPos, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (count < 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return new Batch;
}

HDWP WINAPI DeferWindowPos(HDWP batch, HWND window, HWND after, int x, int y, int width, int height,
                           UINT flags)
{
    HOST_CALL_VOID(DeferWindowPos);
    std::unique_ptr<Batch> owned(static_cast<Batch*>(batch));
    if (owned == nullptr || WindowOf(window) == nullptr)
        return nullptr; // the batch is over: nobody ends it any more
    owned->places.push_back({window, after, x, y, width, height, flags});
    return owned.release();
}

BOOL WINAPI EndDeferWindowPos(HDWP batch)
{
    HOST_CALL_VOID(EndDeferWindowPos);
    if (batch == nullptr)
        return FailWith(ERROR_INVALID_DWP_HANDLE);
    const std::unique_ptr<Batch> owned(static_cast<Batch*>(batch));
    for (const WINDOWPOS& place : owned->places)
        Place(place.hwnd, place);
    return TRUE;
}

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect)
{
    HOST_CALL_VOID(GetWindowRect);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    const POINT origin = WindowOrigin(*window);
    const SIZE size = SizeOf(window->rect);
    *rect = {origin.x, origin.y, origin.x + size.cx, origin.y + size.cy};
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect)
{
    HOST_CALL_VOID(GetClientRect);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    *rect = ClientRectOfWindow(*window);
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND handle, LPPOINT point)
{
    HOST_CALL_VOID(ClientToScreen);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr || point == nullptr)
        return FALSE;
    const POINT origin = ClientOrigin(*window);
    *point = {point->x + origin.x, point->y + origin.y};
    return TRUE;
}

BOOL WINAPI ScreenToClient(HWND handle, LPPOINT point)
{
    HOST_CALL_VOID(ScreenToClient);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr || point == nullptr)
        return FALSE;
    const POINT origin = ClientOrigin(*window);
    *point = {point->x - origin.x, point->y - origin.y};
    return TRUE;
}

int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count)
{
    HOST_CALL_VOID(MapWindowPoints);
    POINT offset = {};
    for (const auto& [handle, sign] : {std::pair{from, 1}, std::pair{to, -1}}) {
        if (handle == nullptr)
            continue;
        const WindowPtr window = WindowOf(handle);
        if (window == nullptr)
            return 0;
        const POINT origin = ClientOrigin(*window);
        offset.x += sign * origin.x;
        offset.y += sign * origin.y;
    }
    for (UINT i = 0; i < count; ++i)
        points[i] = {points[i].x + offset.x, points[i].y + offset.y};
    return MAKELONG(static_cast<WORD>(offset.x), static_cast<WORD>(offset.y));
}

namespace {

HWND ChildAt(const Window& parent, POINT point, UINT flags)
{
    const RECT client = ClientRectOfWindow(parent);
    if (!PtInRect(&client, point))
        return nullptr;
    std::lock_guard lock(WindowLock());
    for (const Window* child : parent.children) {
        const bool skipped =
            ((flags & CWP_SKIPINVISIBLE) != 0 && !IsVisibleStyle(*child)) ||
            ((flags & CWP_SKIPDISABLED) != 0 && (child->style & WS_DISABLED) != 0) ||
            ((flags & CWP_SKIPTRANSPARENT) != 0 && (child->exStyle & WS_EX_TRANSPARENT) != 0);
        if (!skipped && PtInRect(&child->rect, point))
            return child->handle;
    }
    return parent.handle;
}

/// The innermost window under a desktop point that wants to be hit there.
HWND WindowUnder(Window& window, POINT point)
{
    const POINT origin = ClientOrigin(window);
    const POINT inside = {point.x - origin.x, point.y - origin.y};
    const RECT client = ClientRectOfWindow(window);
    if (PtInRect(&client, inside)) {
        for (const HWND handle : ChildrenOf(window)) {
            const WindowPtr child = LookUp(handle);
            if (child == nullptr || !IsVisibleStyle(*child) || (child->style & WS_DISABLED) != 0 ||
                !PtInRect(&child->rect, inside))
                continue;
            const HWND found = WindowUnder(*child, point);
            if (found != nullptr)
                return found;
        }
    }
    if (window.parent == nullptr)
        return window.handle;
    const bool transparent =
        window.queue == CurrentQueue() &&
        SendMessageW(window.handle, WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y)) == HTTRANSPARENT;
    return transparent ? nullptr : window.handle;
}

} // namespace

HWND WINAPI WindowFromPoint(POINT point)
{
    HOST_CALL_VOID(WindowFromPoint);
    return WindowUnder(Desktop(), point);
}

HWND WINAPI ChildWindowFromPointEx(HWND parent, POINT point, UINT flags)
{
    HOST_CALL_VOID(ChildWindowFromPointEx);
    const WindowPtr window = WindowOf(parent);
    return window != nullptr ? ChildAt(*window, point, flags) : nullptr;
}

HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point)
{
    HOST_CALL_VOID(ChildWindowFromPoint);
    return ChildWindowFromPointEx(parent, point, CWP_ALL);
}

HWND WINAPI RealChildWindowFromPoint(HWND parent, POINT point)
{
    HOST_CALL_VOID(RealChildWindowFromPoint);
    return ChildWindowFromPointEx(parent, point, CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT);
}
