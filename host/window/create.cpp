// Windows come and go.
#include <algorithm>

#include "host/window/handles.h"

namespace host {
namespace {

struct Wish
{
    CREATESTRUCTW create;
    std::shared_ptr<WindowClass> windowClass;
    WindowPtr parent; // the window it lies in
    HWND owner = nullptr;
};

/// Sorts out what the parent argument means: what it lies in, or what owns it.
bool FindParent(Wish& wish)
{
    const HWND asked = wish.create.hwndParent;
    const bool child = (wish.create.style & (WS_CHILD | WS_POPUP)) == WS_CHILD;
    wish.parent = LookUp(Desktop().handle);
    if (asked == nullptr || asked == HWND_MESSAGE || asked == wish.parent->handle) {
        if (child && asked == nullptr)
            return FailWith(ERROR_TLW_WITH_WSCHILD) != FALSE;
        return true;
    }
    const WindowPtr window = WindowOf(asked);
    if (window == nullptr)
        return false;
    if (child) {
        wish.parent = window;
    } else {
        wish.owner = TopLevelOf(*window).handle;
    }
    return true;
}

void ApplyDefaults(CREATESTRUCTW& create)
{
    // Without a given place windows are all put at the same one: hosts want pictures that repeat.
    constexpr int kDefaultPlace = 40;
    constexpr int kDefaultWidth = 640;
    constexpr int kDefaultHeight = 480;
    if ((create.style & (WS_CHILD | WS_POPUP)) == 0) {
        create.style |= WS_CAPTION | WS_CLIPSIBLINGS;
        if (create.x == CW_USEDEFAULT)
            create.x = create.y = kDefaultPlace;
        if (create.cx == CW_USEDEFAULT) {
            create.cx = kDefaultWidth;
            create.cy = kDefaultHeight;
        }
    } else {
        for (int* each : {&create.x, &create.y, &create.cx, &create.cy})
            *each = *each == CW_USEDEFAULT ? 0 : *each;
    }
    if ((create.style & WS_CHILD) == 0)
        create.style |= WS_CLIPSIBLINGS;
    create.cx = std::max(create.cx, 0);
    create.cy = std::max(create.cy, 0);
}

DWORD EffectiveExStyle(DWORD style, DWORD exStyle)
{
    const bool edged = (exStyle & WS_EX_DLGMODALFRAME) != 0 ||
                       ((exStyle & WS_EX_STATICEDGE) == 0 && (style & (WS_DLGFRAME | WS_THICKFRAME)) != 0);
    return edged ? exStyle | WS_EX_WINDOWEDGE : exStyle & ~WS_EX_WINDOWEDGE;
}

WindowPtr MakeWindow(const Wish& wish)
{
    const CREATESTRUCTW& create = wish.create;
    const auto window = std::make_shared<Window>();
    window->windowClass = wish.windowClass;
    window->queue = CurrentQueue();
    window->owner = wish.owner;
    window->style = static_cast<DWORD>(create.style) & ~static_cast<DWORD>(WS_VISIBLE);
    window->exStyle = EffectiveExStyle(window->style, create.dwExStyle);
    window->id = IsChildStyle(*window) ? reinterpret_cast<UINT_PTR>(create.hMenu) : 0;
    window->instance = create.hInstance;
    window->procedure = wish.windowClass->procedure;
    window->extra.resize(static_cast<size_t>(std::max(wish.windowClass->windowExtra, 0)));
    window->rect = {create.x, create.y, create.x + create.cx, create.y + create.cy};
    window->client = {0, 0, create.cx, create.cy};
    if (!AddHandle(window)) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    ++wish.windowClass->windows;
    CountOpen(&Ledger::windows, 1);
    Link(*window, *wish.parent, IsChildStyle(*window) ? HWND_BOTTOM : HWND_TOP);
    return window;
}

/// Without messages: the window never became one.
void Forget(Window& window)
{
    CloseDcsOf(window.handle);
    ForgetWindowInQueue(*window.queue, window.handle);
    Unlink(window);
    --window.windowClass->windows;
    DropHandle(window.handle);
    CountOpen(&Ledger::windows, -1);
}

void SendMinMax(const Window& window, CREATESTRUCTW& create)
{
    MINMAXINFO limits = {};
    limits.ptMaxSize = limits.ptMaxTrackSize = {kScreenWidth, kScreenHeight};
    limits.ptMinTrackSize = {GetSystemMetrics(SM_CXMIN), GetSystemMetrics(SM_CYMIN)};
    SendMessageW(window.handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    create.cx = std::clamp<int>(create.cx, limits.ptMinTrackSize.x,
                                std::max(limits.ptMinTrackSize.x, limits.ptMaxTrackSize.x));
    create.cy = std::clamp<int>(create.cy, limits.ptMinTrackSize.y,
                                std::max(limits.ptMinTrackSize.y, limits.ptMaxTrackSize.y));
}

/// The messages of creation; false when the program refused or destroyed the window meanwhile.
bool Introduce(Window& window, CREATESTRUCTW& create)
{
    const HWND handle = window.handle;
    if ((window.style & WS_THICKFRAME) != 0 || (window.style & (WS_POPUP | WS_CHILD)) == 0) {
        SendMinMax(window, create);
        window.rect.right = window.rect.left + create.cx;
        window.rect.bottom = window.rect.top + create.cy;
    }
    if (!SendMessageW(handle, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&create))) {
        if (LookUp(handle) != nullptr) {
            SendMessageW(handle, WM_NCDESTROY, 0, 0);
            Forget(window);
        }
        return false;
    }
    RECT rect = window.rect;
    SendMessageW(handle, WM_NCCALCSIZE, FALSE, reinterpret_cast<LPARAM>(&rect));
    window.client = {rect.left - window.rect.left, rect.top - window.rect.top, rect.right - window.rect.left,
                     rect.bottom - window.rect.top};
    const LRESULT created = SendMessageW(handle, WM_CREATE, 0, reinterpret_cast<LPARAM>(&create));
    if (created == -1) {
        DestroyWindow(handle);
        return false;
    }
    return LookUp(handle) != nullptr;
}

void SendFirstSize(const Window& window)
{
    const SIZE size = SizeOf(window.client);
    SendMessageW(window.handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx, size.cy));
    SendMessageW(window.handle, WM_MOVE, 0,
                 MAKELPARAM(window.rect.left + window.client.left, window.rect.top + window.client.top));
}

void TellParent(const Window& window, WORD event)
{
    if (!IsChildStyle(window) || (window.exStyle & WS_EX_NOPARENTNOTIFY) != 0)
        return;
    const HWND handle = window.handle;
    for (HWND parent = GetParent(handle); parent != nullptr; parent = GetParent(parent)) {
        SendMessageW(parent, WM_PARENTNOTIFY, MAKEWPARAM(event, window.id), reinterpret_cast<LPARAM>(handle));
        const WindowPtr next = LookUp(parent);
        if (next == nullptr || !IsChildStyle(*next) || (next->exStyle & WS_EX_NOPARENTNOTIFY) != 0)
            break;
    }
}

HWND Create(Wish& wish)
{
    CREATESTRUCTW& create = wish.create;
    ApplyDefaults(create);
    const bool visible = (create.style & WS_VISIBLE) != 0;
    const WindowPtr window = MakeWindow(wish);
    if (window == nullptr || !Introduce(*window, create))
        return nullptr;
    if ((window->style & (WS_CHILD | WS_POPUP)) != 0)
        SendFirstSize(*window);
    TellParent(*window, WM_CREATE);
    if (visible && LookUp(window->handle) != nullptr)
        ShowWindow(window->handle, SW_SHOW);
    return LookUp(window->handle) != nullptr ? window->handle : nullptr;
}

std::vector<HWND> OwnedBy(HWND owner)
{
    std::vector<HWND> owned;
    for (const HWND each : ChildrenOf(Desktop())) {
        const WindowPtr window = LookUp(each);
        if (window != nullptr && window->owner == owner && window->queue == CurrentQueue())
            owned.push_back(each);
    }
    return owned;
}

/// From the outside in: every window sees its children alive.
void SendDestroy(HWND handle)
{
    SendMessageW(handle, WM_DESTROY, 0, 0);
    const WindowPtr window = LookUp(handle);
    if (window == nullptr)
        return;
    for (const HWND child : ChildrenOf(*window)) {
        if (LookUp(child) != nullptr)
            SendDestroy(child);
    }
}

/// From the inside out.
void Dismantle(HWND handle)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr)
        return;
    for (const HWND child : ChildrenOf(*window))
        Dismantle(child);
    SendMessageW(handle, WM_NCDESTROY, 0, 0);
    if (LookUp(handle) == nullptr)
        return;
    if (window->dialog != nullptr && window->dialog->font != nullptr)
        DeleteObject(window->dialog->font);
    if (window->systemMenu != nullptr)
        DestroyMenu(window->systemMenu);
    Forget(*window);
}

} // namespace
} // namespace host

using namespace host;

HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x, int y,
                            int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                            LPVOID parameter)
{
    HOST_CALL(CreateWindowExW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    Wish wish = {{parameter, instance, menu, parent, height, width, y, x, static_cast<LONG>(style), title,
                  className, exStyle},
                 FindClass(className, instance),
                 nullptr};
    if (wish.windowClass == nullptr) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
        return nullptr;
    }
    return FindParent(wish) ? Create(wish) : nullptr;
}

BOOL WINAPI DestroyWindow(HWND handle)
{
    HOST_CALL_VOID(DestroyWindow);
    const WindowPtr window = OwnWindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if (window->parent == nullptr)
        return FailWith(ERROR_ACCESS_DENIED);
    if (window->destroying)
        return TRUE;
    window->destroying = true;
    TellParent(*window, WM_DESTROY);
    if (IsVisibleStyle(*window)) {
        if (IsChildStyle(*window))
            ShowWindow(handle, SW_HIDE);
        else
            SetWindowPos(handle, nullptr, 0, 0, 0, 0,
                         SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    }
    if (!IsChildStyle(*window))
        ActivateOther(*window);
    for (const HWND owned : OwnedBy(handle))
        DestroyWindow(owned);
    if (LookUp(handle) == nullptr)
        return TRUE;
    SendDestroy(handle);
    Dismantle(handle);
    return TRUE;
}
