// The tree of windows: who lies in whom, in which order, and ways to look through it.
#include <algorithm>

#include "host/window/handles.h"

namespace host {
namespace {

/// Where `window` comes among its new siblings: behind `after`, or at an end of its group. Windows that stay
/// on top come before all others.
std::vector<Window*>::iterator PlaceAmong(std::vector<Window*>& siblings, const Window& window, HWND after)
{
    const bool topmost = (window.exStyle & WS_EX_TOPMOST) != 0;
    const auto firstOrdinary = std::find_if(siblings.begin(), siblings.end(), [](const Window* each) {
        return (each->exStyle & WS_EX_TOPMOST) == 0;
    });
    if (after == HWND_BOTTOM)
        return topmost ? firstOrdinary : siblings.end();
    auto place = topmost ? siblings.begin() : firstOrdinary;
    const auto found = std::find_if(siblings.begin(), siblings.end(),
                                    [=](const Window* each) { return each->handle == after; });
    if (found != siblings.end())
        place = topmost ? std::min(found + 1, firstOrdinary) : std::max(found + 1, firstOrdinary);
    return place;
}

HWND HandleOf(const Window* window)
{
    return window != nullptr ? window->handle : nullptr;
}

Window* Sibling(const Window& window, UINT which)
{
    if (window.parent == nullptr)
        return nullptr;
    const std::vector<Window*>& all = window.parent->children;
    const auto at = std::find(all.begin(), all.end(), &window);
    switch (which) {
    case GW_HWNDFIRST:
        return all.front();
    case GW_HWNDLAST:
        return all.back();
    case GW_HWNDNEXT:
        return at + 1 != all.end() ? *(at + 1) : nullptr;
    case GW_HWNDPREV:
        return at != all.begin() ? *(at - 1) : nullptr;
    }
    return nullptr;
}

bool EnumerateBelow(HWND parent, WNDENUMPROC callback, LPARAM parameter)
{
    const WindowPtr window = LookUp(parent);
    if (window == nullptr)
        return true;
    for (const HWND child : ChildrenOf(*window)) {
        if (LookUp(child) == nullptr)
            continue;
        {
            CallbackScope outside;
            if (!callback(child, parameter))
                return false;
        }
        if (!EnumerateBelow(child, callback, parameter))
            return false;
    }
    return true;
}

bool Matches(const Window& window, LPCWSTR className, LPCWSTR title)
{
    if (className != nullptr && IS_INTRESOURCE(className)) {
        if (window.windowClass->atom != static_cast<ATOM>(reinterpret_cast<uintptr_t>(className)))
            return false;
    } else if (className != nullptr && !EqualNoCase(window.windowClass->name, className)) {
        return false;
    }
    return title == nullptr || EqualNoCase(window.text, title);
}

HWND FindAmong(const Window& parent, HWND after, LPCWSTR className, LPCWSTR title)
{
    std::lock_guard lock(WindowLock());
    bool past = after == nullptr;
    for (const Window* child : parent.children) {
        if (past && Matches(*child, className, title))
            return child->handle;
        past = past || child->handle == after;
    }
    return nullptr;
}

} // namespace

void Link(Window& window, Window& parent, HWND after)
{
    std::lock_guard lock(WindowLock());
    window.parent = &parent;
    parent.children.insert(PlaceAmong(parent.children, window, after), &window);
}

void Unlink(Window& window)
{
    std::lock_guard lock(WindowLock());
    if (window.parent != nullptr)
        std::erase(window.parent->children, &window);
}

bool IsShown(const Window& window)
{
    std::lock_guard lock(WindowLock());
    for (const Window* each = &window; each != nullptr; each = each->parent) {
        if (!IsVisibleStyle(*each))
            return false;
    }
    return true;
}

Window& TopLevelOf(Window& window)
{
    std::lock_guard lock(WindowLock());
    Window* each = &window;
    while (each->parent != nullptr && each->parent->parent != nullptr)
        each = each->parent;
    return *each;
}

std::vector<HWND> ChildrenOf(const Window& window)
{
    std::lock_guard lock(WindowLock());
    std::vector<HWND> children;
    children.reserve(window.children.size());
    for (const Window* child : window.children)
        children.push_back(child->handle);
    return children;
}

} // namespace host

using namespace host;

HWND WINAPI GetDesktopWindow(void)
{
    HOST_CALL_VOID(GetDesktopWindow);
    return Desktop().handle;
}

HWND WINAPI GetParent(HWND handle)
{
    HOST_CALL_VOID(GetParent);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return nullptr;
    std::lock_guard lock(WindowLock());
    if ((window->style & WS_POPUP) != 0)
        return window->owner;
    return (window->style & WS_CHILD) != 0 ? HandleOf(window->parent) : nullptr;
}

HWND WINAPI GetWindow(HWND handle, UINT which)
{
    HOST_CALL_VOID(GetWindow);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return nullptr;
    std::lock_guard lock(WindowLock());
    if (which == GW_OWNER)
        return window->owner;
    if (which == GW_CHILD)
        return window->children.empty() ? nullptr : window->children.front()->handle;
    return HandleOf(Sibling(*window, which));
}

HWND WINAPI GetAncestor(HWND handle, UINT flags)
{
    HOST_CALL(GetAncestor, nullptr, ERROR_INVALID_WINDOW_HANDLE);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr || window->parent == nullptr)
        return nullptr;
    std::lock_guard lock(WindowLock());
    switch (flags) {
    case GA_PARENT:
        return HandleOf(window->parent);
    case GA_ROOT:
        return TopLevelOf(*window).handle;
    case GA_ROOTOWNER: {
        HWND root = handle;
        for (HWND next = GetParent(root); next != nullptr; next = GetParent(root))
            root = next;
        return root;
    }
    }
    return nullptr;
}

HWND WINAPI GetTopWindow(HWND handle)
{
    HOST_CALL_VOID(GetTopWindow);
    return GetWindow(handle != nullptr ? handle : Desktop().handle, GW_CHILD);
}

HWND WINAPI GetLastActivePopup(HWND handle)
{
    HOST_CALL_VOID(GetLastActivePopup);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return nullptr;
    const HWND active = window->queue != nullptr ? window->queue->active : nullptr;
    return active != nullptr && GetAncestor(active, GA_ROOTOWNER) == handle ? active : handle;
}

BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM parameter)
{
    HOST_CALL_VOID(EnumChildWindows);
    if (parent != nullptr && WindowOf(parent) == nullptr)
        return FALSE;
    EnumerateBelow(parent != nullptr ? parent : Desktop().handle, callback, parameter);
    return TRUE;
}

BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM parameter)
{
    HOST_CALL_VOID(EnumWindows);
    for (const HWND window : ChildrenOf(Desktop())) {
        CallbackScope outside;
        if (LookUp(window) != nullptr && !callback(window, parameter))
            return FALSE;
    }
    return TRUE;
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM parameter)
{
    HOST_CALL_VOID(EnumThreadWindows);
    for (const HWND handle : ChildrenOf(Desktop())) {
        const WindowPtr window = LookUp(handle);
        if (window == nullptr || window->queue == nullptr || window->queue->thread != thread)
            continue;
        CallbackScope outside;
        if (!callback(handle, parameter))
            return FALSE;
    }
    return TRUE;
}

HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR title)
{
    HOST_CALL(FindWindowExW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (parent == nullptr)
        return FindAmong(Desktop(), after, className, title);
    const WindowPtr window = WindowOf(parent);
    return window != nullptr ? FindAmong(*window, after, className, title) : nullptr;
}

HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title)
{
    HOST_CALL(FindWindowW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return FindAmong(Desktop(), nullptr, className, title);
}

BOOL WINAPI IsChild(HWND parent, HWND handle)
{
    HOST_CALL_VOID(IsChild);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    std::lock_guard lock(WindowLock());
    for (const Window* each = window.get(); IsChildStyle(*each) && each->parent != nullptr;) {
        each = each->parent;
        if (each->handle == parent)
            return TRUE;
    }
    return FALSE;
}

BOOL WINAPI IsWindowVisible(HWND handle)
{
    HOST_CALL_VOID(IsWindowVisible);
    const WindowPtr window = WindowOf(handle);
    return window != nullptr && IsShown(*window);
}

BOOL WINAPI IsWindowEnabled(HWND handle)
{
    HOST_CALL_VOID(IsWindowEnabled);
    const WindowPtr window = WindowOf(handle);
    return window != nullptr && (window->style & WS_DISABLED) == 0;
}

HWND WINAPI SetParent(HWND handle, HWND parentHandle)
{
    HOST_CALL(SetParent, nullptr, ERROR_INVALID_WINDOW_HANDLE);
    const WindowPtr window = OwnWindowOf(handle);
    const WindowPtr parent = WindowOf(parentHandle != nullptr ? parentHandle : Desktop().handle);
    if (window == nullptr || parent == nullptr || window->parent == nullptr)
        return nullptr;
    if (parent == window || IsChild(handle, parent->handle)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const HWND previous = window->parent->handle;
    const bool shown = IsVisibleStyle(*window);
    if (shown)
        ShowWindow(handle, SW_HIDE);
    Unlink(*window);
    Link(*window, *parent, HWND_TOP);
    window->surface.reset();
    if (shown)
        ShowWindow(handle, SW_SHOWNA);
    return previous;
}
