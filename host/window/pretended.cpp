#include "host/window/pretended.h"

#include <string_view>

#include "host/host.h"
#include "host/window/clipboard.h"
#include "host/window/handles.h"
#include "host/window/window.h"

namespace host {
namespace {

HWND active;

HWND AddPretended(std::u16string_view className, std::u16string_view title)
{
    const auto window = std::make_shared<Window>();
    window->windowClass = std::make_shared<WindowClass>();
    window->windowClass->name = className;
    window->text = title;
    if (!AddHandle(window))
        return nullptr;
    Link(*window, Desktop(), HWND_BOTTOM);
    return window->handle;
}

} // namespace

void SetActiveWindowClass(std::u16string_view className)
{
    std::lock_guard lock(WindowLock());
    if (active != nullptr)
        RemoveWindow(active);
    active = className.empty() ? nullptr : AddPretended(className, {});
}

void* AddWindow(std::u16string_view className, std::u16string_view title)
{
    std::lock_guard lock(WindowLock());
    return AddPretended(className, title);
}

void RemoveWindow(void* handle)
{
    std::lock_guard lock(WindowLock());
    const WindowPtr window = LookUp(static_cast<HWND>(handle));
    if (window == nullptr || window->queue != nullptr)
        return;
    Unlink(*window);
    DropHandle(window->handle);
}

HWND PretendedActive()
{
    std::lock_guard lock(WindowLock());
    return active;
}

void ClosePretended()
{
    std::lock_guard lock(WindowLock());
    active = nullptr;
}

void CloseWindowRoom()
{
    CloseDisplay();
    CloseMenus();
    CloseClipboardRoom();
    CloseInput();
    CloseFocus();
    ClosePainting();
    ClosePretended();
    CloseHandles();
    CloseClasses();
    CloseQueues();
}

} // namespace host
