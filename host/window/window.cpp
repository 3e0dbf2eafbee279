// Pretended windows: the active one, so that programs can ask who calls them, and those of other programs, so
// that they can be looked for. Each is a top-level window of a class that the host names.
#include <algorithm>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"
#include "host/window/window.h"

namespace host {
namespace {

struct Window
{
    std::u16string className;
    std::u16string title;
    HWND__ handle = {}; // its address is the handle
};

std::mutex windowLock;
Window activeWindow;                          // none without a class
std::vector<std::unique_ptr<Window>> windows; // of other programs, oldest first

/// Null when there is no such window. Hold the lock.
const Window* WindowOf(const HWND__* handle)
{
    if (handle == &activeWindow.handle)
        return activeWindow.className.empty() ? nullptr : &activeWindow;
    const auto found = std::find_if(windows.begin(), windows.end(),
                                    [=](const auto& window) { return &window->handle == handle; });
    return found != windows.end() ? found->get() : nullptr;
}

/// The class of a window; empty with the last error set when there is no such window.
std::u16string ClassOf(HWND handle)
{
    std::lock_guard lock(windowLock);
    const Window* const window = WindowOf(handle);
    if (window == nullptr) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return {};
    }
    return window->className;
}

/// A null text matches every window.
bool Matches(const Window& window, LPCWSTR className, LPCWSTR title)
{
    if (window.className.empty())
        return false;
    // A class given by number is one that a program has registered, and other programs' have none here.
    if (className != nullptr && (IS_INTRESOURCE(className) || !EqualNoCase(window.className, className)))
        return false;
    return title == nullptr || EqualNoCase(window.title, title);
}

} // namespace

void SetActiveWindowClass(std::u16string_view className)
{
    std::lock_guard lock(windowLock);
    activeWindow.className = className;
}

void* AddWindow(std::u16string_view className, std::u16string_view title)
{
    std::lock_guard lock(windowLock);
    windows.push_back(std::make_unique<Window>(Window{std::u16string(className), std::u16string(title), {}}));
    return &windows.back()->handle;
}

void RemoveWindow(void* window)
{
    std::lock_guard lock(windowLock);
    std::erase_if(windows, [=](const auto& each) { return &each->handle == window; });
}

void CloseWindowRoom()
{
    std::lock_guard lock(windowLock);
    activeWindow.className.clear();
    windows.clear();
}

} // namespace host

using namespace host;

HWND WINAPI GetActiveWindow(void)
{
    HOST_CALL_VOID(GetActiveWindow);
    std::lock_guard lock(windowLock);
    return activeWindow.className.empty() ? nullptr : &activeWindow.handle;
}

HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title)
{
    HOST_CALL(FindWindowW, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    std::lock_guard lock(windowLock);
    if (Matches(activeWindow, className, title))
        return &activeWindow.handle;
    for (const std::unique_ptr<Window>& window : windows) {
        if (Matches(*window, className, title))
            return &window->handle;
    }
    return nullptr;
}

BOOL WINAPI IsWindow(HWND window)
{
    HOST_CALL_VOID(IsWindow);
    std::lock_guard lock(windowLock);
    return WindowOf(window) != nullptr;
}

HWND WINAPI GetAncestor(HWND window, UINT flags)
{
    HOST_CALL(GetAncestor, nullptr, ERROR_INVALID_WINDOW_HANDLE);
    if (ClassOf(window).empty())
        return nullptr;
    // It is a top-level window without an owner, and there is no desktop window above it.
    return flags == GA_ROOT || flags == GA_ROOTOWNER ? window : nullptr;
}

int WINAPI GetClassNameW(HWND window, LPWSTR name, int size)
{
    HOST_CALL(GetClassNameW, 0, ERROR_INVALID_WINDOW_HANDLE);
    const std::u16string className = ClassOf(window);
    if (className.empty())
        return 0;
    if (name == nullptr || size <= 0)
        return FailWith(ERROR_INSUFFICIENT_BUFFER);
    const size_t count = std::min(className.size(), static_cast<size_t>(size) - 1);
    std::copy_n(className.begin(), count, name);
    name[count] = 0;
    return static_cast<int>(count);
}
