// Windows behind handles, their longs, texts and properties.
#include <algorithm>
#include <cstring>

#include "host/window/handles.h"

namespace host {
namespace {

constexpr unsigned kIndexBits = 16;
constexpr uintptr_t kIndexMask = (1u << kIndexBits) - 1;
constexpr uintptr_t kFirstIndex = 16; // small numbers are HWND_BOTTOM and its like

struct Slot
{
    WindowPtr window;
    uint16_t use = 1; // how often the slot was handed out, so that stale handles are recognised
};

std::vector<Slot> slots;
std::vector<size_t> freeSlots;
WindowPtr desktop;

void MakeDesktop()
{
    desktop = std::make_shared<Window>();
    desktop->windowClass = FindClass(TEXT("#32769"), nullptr);
    desktop->procedure = desktop->windowClass->procedure;
    desktop->style = WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    desktop->rect = desktop->client = {0, 0, kScreenWidth, kScreenHeight};
    AddHandle(desktop);
}

/// The field of a window behind an index below zero.
LONG_PTR* FieldOf(Window& window, int index)
{
    switch (index) {
    case GWLP_WNDPROC:
        return reinterpret_cast<LONG_PTR*>(&window.procedure);
    case GWLP_HINSTANCE:
        return reinterpret_cast<LONG_PTR*>(&window.instance);
    case GWLP_USERDATA:
        return &window.userData;
    case GWLP_ID:
        return reinterpret_cast<LONG_PTR*>(&window.id);
    }
    return nullptr;
}

LONG_PTR ChangeStyle(Window& window, int index, DWORD style)
{
    DWORD& field = index == GWL_STYLE ? window.style : window.exStyle;
    STYLESTRUCT change = {field, style};
    SendMessageW(window.handle, WM_STYLECHANGING, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&change));
    const DWORD kept = index == GWL_EXSTYLE ? WS_EX_TOPMOST : 0;
    field = (change.styleNew & ~kept) | (field & kept);
    change.styleNew = field;
    SendMessageW(window.handle, WM_STYLECHANGED, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&change));
    return static_cast<LONG>(change.styleOld);
}

LONG_PTR SetOwner(Window& window, HWND owner)
{
    if (!IsTopLevel(window))
        return reinterpret_cast<LONG_PTR>(SetParent(window.handle, owner));
    const HWND previous = window.owner;
    window.owner = owner;
    return reinterpret_cast<LONG_PTR>(previous);
}

LONG_PTR ReadExtra(const Window& window, int index, size_t size)
{
    LONG_PTR value = 0;
    std::memcpy(&value, window.extra.data() + index, size);
    return size == sizeof(LONG) ? static_cast<LONG>(value) : value;
}

bool InExtra(const Window& window, int index, size_t size)
{
    return index >= 0 && static_cast<size_t>(index) + size <= window.extra.size();
}

LONG_PTR GetLong(HWND handle, int index, size_t size)
{
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return 0;
    if (InExtra(*window, index, size))
        return ReadExtra(*window, index, size);
    switch (index) {
    case GWL_STYLE:
        return static_cast<LONG>(window->style);
    case GWL_EXSTYLE:
        return static_cast<LONG>(window->exStyle);
    case GWLP_HWNDPARENT:
        return reinterpret_cast<LONG_PTR>(GetParent(handle));
    }
    if (const LONG_PTR* field = FieldOf(*window, index))
        return *field;
    return FailWith(ERROR_INVALID_INDEX);
}

LONG_PTR SetLong(HWND handle, int index, LONG_PTR value, size_t size)
{
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return 0;
    if (InExtra(*window, index, size)) {
        const LONG_PTR previous = ReadExtra(*window, index, size);
        std::memcpy(window->extra.data() + index, &value, size);
        return previous;
    }
    switch (index) {
    case GWL_STYLE:
    case GWL_EXSTYLE:
        return ChangeStyle(*window, index, static_cast<DWORD>(value));
    case GWLP_HWNDPARENT:
        return SetOwner(*window, reinterpret_cast<HWND>(value));
    }
    LONG_PTR* const field = FieldOf(*window, index);
    return field != nullptr ? std::exchange(*field, value) : FailWith(ERROR_INVALID_INDEX);
}

/// A property's name without regard to case; atoms are written like the platform writes them, "#1234".
std::u16string PropertyName(LPCWSTR name)
{
    if (!IS_INTRESOURCE(name)) {
        std::u16string folded(name);
        std::transform(folded.begin(), folded.end(), folded.begin(), UpperCase);
        return folded;
    }
    return u"#" + Utf16(std::to_string(reinterpret_cast<uintptr_t>(name)));
}

} // namespace

std::recursive_mutex& WindowLock()
{
    static std::recursive_mutex lock;
    return lock;
}

bool AddHandle(const WindowPtr& window)
{
    std::lock_guard lock(WindowLock());
    if (slots.empty())
        slots.resize(kFirstIndex);
    if (freeSlots.empty() && slots.size() <= kIndexMask) {
        freeSlots.push_back(slots.size());
        slots.emplace_back();
    }
    if (freeSlots.empty())
        return false;
    const size_t index = freeSlots.back();
    freeSlots.pop_back();
    slots[index].window = window;
    window->handle = reinterpret_cast<HWND>((static_cast<uintptr_t>(slots[index].use) << kIndexBits) | index);
    return true;
}

void DropHandle(HWND handle)
{
    std::lock_guard lock(WindowLock());
    const size_t index = reinterpret_cast<uintptr_t>(handle) & kIndexMask;
    Slot& slot = slots[index];
    slot.window.reset();
    slot.use = static_cast<uint16_t>(slot.use % INT16_MAX + 1); // a handle has 31 bits
    freeSlots.push_back(index);
}

WindowPtr LookUp(HWND handle)
{
    const auto value = reinterpret_cast<uintptr_t>(handle);
    const size_t index = value & kIndexMask;
    std::lock_guard lock(WindowLock());
    if (index >= slots.size() || slots[index].window == nullptr || slots[index].window->handle != handle)
        return nullptr;
    return slots[index].window;
}

WindowPtr WindowOf(HWND handle)
{
    WindowPtr window = LookUp(handle);
    if (window == nullptr)
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

WindowPtr OwnWindowOf(HWND handle)
{
    WindowPtr window = WindowOf(handle);
    if (window != nullptr && window->queue != CurrentQueue()) {
        SetLastError(ERROR_WINDOW_OF_OTHER_THREAD);
        return nullptr;
    }
    return window;
}

Window& Desktop()
{
    std::lock_guard lock(WindowLock());
    if (desktop == nullptr)
        MakeDesktop();
    return *desktop;
}

void CloseHandles()
{
    std::lock_guard lock(WindowLock());
    int64_t open = 0;
    for (Slot& slot : slots) {
        if (slot.window != nullptr && slot.window->queue != nullptr)
            ++open;
    }
    CountOpen(&Ledger::windows, -open);
    slots.clear();
    freeSlots.clear();
    desktop.reset();
}

LRESULT CopyWindowText(const Window& window, WPARAM size, LPARAM buffer)
{
    if (size == 0 || buffer == 0)
        return 0;
    std::lock_guard lock(WindowLock());
    const size_t count = std::min<size_t>(window.text.size(), size - 1);
    auto* const text = reinterpret_cast<LPWSTR>(buffer);
    std::copy_n(window.text.begin(), count, text);
    text[count] = 0;
    return static_cast<LRESULT>(count);
}

} // namespace host

using namespace host;

BOOL WINAPI IsWindow(HWND window)
{
    HOST_CALL_VOID(IsWindow);
    return LookUp(window) != nullptr;
}

BOOL WINAPI IsWindowUnicode(HWND window)
{
    HOST_CALL_VOID(IsWindowUnicode);
    return WindowOf(window) != nullptr;
}

LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index)
{
    HOST_CALL_VOID(GetWindowLongPtrW);
    return GetLong(window, index, sizeof(LONG_PTR));
}

LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value)
{
    HOST_CALL_VOID(SetWindowLongPtrW);
    return SetLong(window, index, value, sizeof(LONG_PTR));
}

LONG WINAPI GetWindowLongW(HWND window, int index)
{
    HOST_CALL_VOID(GetWindowLongW);
    return static_cast<LONG>(GetLong(window, index, sizeof(LONG)));
}

LONG WINAPI SetWindowLongW(HWND window, int index, LONG value)
{
    HOST_CALL_VOID(SetWindowLongW);
    return static_cast<LONG>(SetLong(window, index, value, sizeof(LONG)));
}

BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text)
{
    HOST_CALL(SetWindowTextW, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    if (WindowOf(window) == nullptr)
        return FALSE;
    SendMessageW(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    return TRUE;
}

int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size)
{
    HOST_CALL(GetWindowTextW, 0, ERROR_INVALID_WINDOW_HANDLE);
    if (text == nullptr || size <= 0)
        return 0;
    *text = 0;
    const WindowPtr found = WindowOf(window);
    if (found == nullptr)
        return 0;
    if (found->queue == nullptr)
        return static_cast<int>(
            CopyWindowText(*found, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(text)));
    return static_cast<int>(
        SendMessageW(window, WM_GETTEXT, static_cast<WPARAM>(size), reinterpret_cast<LPARAM>(text)));
}

int WINAPI GetWindowTextLengthW(HWND window)
{
    HOST_CALL(GetWindowTextLengthW, 0, ERROR_INVALID_WINDOW_HANDLE);
    return WindowOf(window) != nullptr ? static_cast<int>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) : 0;
}

BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE value)
{
    HOST_CALL(SetPropW, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    const WindowPtr found = WindowOf(window);
    if (found == nullptr || name == nullptr)
        return FALSE;
    std::lock_guard lock(WindowLock());
    found->properties[PropertyName(name)] = value;
    return TRUE;
}

HANDLE WINAPI GetPropW(HWND window, LPCWSTR name)
{
    HOST_CALL_VOID(GetPropW);
    const WindowPtr found = WindowOf(window);
    if (found == nullptr || name == nullptr)
        return nullptr;
    std::lock_guard lock(WindowLock());
    const auto property = found->properties.find(PropertyName(name));
    return property != found->properties.end() ? property->second : nullptr;
}

HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name)
{
    HOST_CALL_VOID(RemovePropW);
    const WindowPtr found = WindowOf(window);
    if (found == nullptr || name == nullptr)
        return nullptr;
    std::lock_guard lock(WindowLock());
    const auto property = found->properties.extract(PropertyName(name));
    return property.empty() ? nullptr : property.mapped();
}

int WINAPI EnumPropsW(HWND window, PROPENUMPROCW callback)
{
    HOST_CALL_VOID(EnumPropsW);
    const WindowPtr found = WindowOf(window);
    if (found == nullptr || found->properties.empty())
        return -1;
    int result = 1;
    const std::map<std::u16string, HANDLE> properties = found->properties;
    for (const auto& [name, value] : properties) {
        CallbackScope outside;
        result = callback(window, name.c_str(), value);
        if (result == 0)
            break;
    }
    return result;
}

DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process)
{
    HOST_CALL(GetWindowThreadProcessId, 0, ERROR_INVALID_WINDOW_HANDLE);
    const WindowPtr found = WindowOf(window);
    if (found == nullptr)
        return 0;
    // Windows of other programs, and the desktop, are the first process's.
    constexpr DWORD kForeign = 1;
    if (process != nullptr)
        *process = found->queue != nullptr ? GetCurrentProcessId() : kForeign;
    return found->queue != nullptr ? found->queue->thread : kForeign;
}
