// The active window: a pretended one of a class that the host names, so that programs can ask who calls them.
#include <algorithm>
#include <mutex>
#include <string>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/window/window.h"

namespace host {
namespace {

std::mutex activeLock;
std::u16string activeClass;
HWND__ activeWindow; // its address is the handle

/// The class of a window; empty with the last error set when there is no such window.
std::u16string ClassOf(HWND window)
{
    std::lock_guard lock(activeLock);
    if (window != &activeWindow || activeClass.empty()) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return {};
    }
    return activeClass;
}

} // namespace

void SetActiveWindowClass(std::u16string_view className)
{
    std::lock_guard lock(activeLock);
    activeClass = className;
}

void CloseWindowRoom()
{
    SetActiveWindowClass({});
}

} // namespace host

using namespace host;

HWND WINAPI GetActiveWindow(void)
{
    HOST_CALL_VOID(GetActiveWindow);
    std::lock_guard lock(activeLock);
    return activeClass.empty() ? nullptr : &activeWindow;
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
