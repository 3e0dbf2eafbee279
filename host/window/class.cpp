// Window classes: the built-in ones, made with the first look-up of a world, and those of programs.
#include <algorithm>
#include <cstring>
#include <set>

#include "host/window/classes.h"
#include "host/window/dialog.h"
#include "host/window/room.h"

namespace host {
namespace {

constexpr ATOM kDialogAtom = 0x8002;
constexpr ATOM kMenuAtom = 0x8000;
constexpr ATOM kFirstBuiltInAtom = 0xC000;
constexpr ATOM kFirstAtom = 0xC100;
constexpr int kExtraLimit = 4096; // bytes of class or window longs
constexpr UINT kClassStyles = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS | CS_OWNDC | CS_CLASSDC | CS_PARENTDC |
                              CS_NOCLOSE | CS_SAVEBITS | 0x1000 | CS_GLOBALCLASS | 0x00010000 | CS_DROPSHADOW;

LRESULT CALLBACK DesktopProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return DefWindowProcW(window, message, wParam, lParam);
}

const BuiltInClass kOwnClasses[] = {
    {u"#32769", DesktopProcedure, CS_DBLCLKS, 0, IDC_ARROW, 0},
};

std::vector<std::shared_ptr<WindowClass>> classes;
std::set<WNDPROC> builtInProcedures;
ATOM nextAtom = kFirstAtom;

void AddBuiltIn(const BuiltInClass& row, ATOM atom)
{
    auto added = std::make_shared<WindowClass>();
    added->name = row.name;
    added->atom = atom;
    added->procedure = row.procedure;
    added->style = row.style | CS_GLOBALCLASS;
    added->windowExtra = row.extra;
    added->cursor = row.cursor != nullptr ? LoadCursorW(nullptr, row.cursor) : nullptr;
    added->background = reinterpret_cast<HBRUSH>(static_cast<intptr_t>(row.background));
    added->builtIn = true;
    builtInProcedures.insert(row.procedure);
    classes.push_back(std::move(added));
}

/// Hold the lock.
void MakeBuiltInClasses()
{
    if (!classes.empty())
        return;
    ATOM atom = kFirstBuiltInAtom;
    for (const BuiltInClass& row : kOwnClasses)
        AddBuiltIn(row, atom++);
    AddBuiltIn({u"#32770", DefDlgProcW, CS_DBLCLKS | CS_SAVEBITS, DLGWINDOWEXTRA, IDC_ARROW, 0}, kDialogAtom);
    AddBuiltIn({u"#32768", MenuWindowProcedure, CS_SAVEBITS | CS_DROPSHADOW, sizeof(void*), IDC_ARROW, 0},
               kMenuAtom);
    for (const BuiltInClass& row : ControlClasses())
        AddBuiltIn(row, atom++);
    builtInProcedures.insert(DefWindowProcW);
    builtInProcedures.insert(MessageBoxProcedure);
}

bool HasName(const WindowClass& each, LPCWSTR name)
{
    if (IS_INTRESOURCE(name))
        return each.atom == static_cast<ATOM>(reinterpret_cast<uintptr_t>(name));
    return EqualNoCase(each.name, name);
}

/// What a program with this instance means: its own class first, then a global one. A null instance is the
/// running program's, and it finds the classes of every module.
std::shared_ptr<WindowClass> Find(LPCWSTR name, HINSTANCE instance, bool ownOnly)
{
    std::shared_ptr<WindowClass> global;
    for (const std::shared_ptr<WindowClass>& each : classes) {
        if (!HasName(*each, name))
            continue;
        if (!each->builtIn && each->instance == instance)
            return each;
        if (!ownOnly && (each->builtIn || (each->style & CS_GLOBALCLASS) != 0 || instance == nullptr))
            global = each;
    }
    return global;
}

bool Sound(const WNDCLASSEXW& description)
{
    return description.lpszClassName != nullptr && description.lpfnWndProc != nullptr &&
           (description.style & ~kClassStyles) == 0 && description.cbClsExtra >= 0 &&
           description.cbWndExtra >= 0 && description.cbClsExtra <= kExtraLimit &&
           description.cbWndExtra <= kExtraLimit && !IS_INTRESOURCE(description.lpszClassName);
}

ATOM Register(const WNDCLASSEXW& description)
{
    if (!Sound(description)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    std::lock_guard lock(WindowLock());
    MakeBuiltInClasses();
    if (Find(description.lpszClassName, description.hInstance, true) != nullptr) {
        SetLastError(ERROR_CLASS_ALREADY_EXISTS);
        return 0;
    }
    auto added = std::make_shared<WindowClass>();
    added->name = description.lpszClassName;
    added->atom = nextAtom++;
    added->instance = description.hInstance;
    added->procedure = description.lpfnWndProc;
    added->style = description.style;
    added->windowExtra = description.cbWndExtra;
    added->extra.resize(static_cast<size_t>(description.cbClsExtra));
    added->icon = description.hIcon;
    added->smallIcon = description.hIconSm;
    added->cursor = description.hCursor;
    added->background = description.hbrBackground;
    classes.push_back(added);
    CountOpen(&Ledger::classes, 1);
    return added->atom;
}

WNDCLASSEXW Described(const WindowClass& from, LPCWSTR name)
{
    WNDCLASSEXW result = {};
    result.cbSize = sizeof result;
    result.style = from.style;
    result.lpfnWndProc = from.procedure;
    result.cbClsExtra = static_cast<int>(from.extra.size());
    result.cbWndExtra = from.windowExtra;
    result.hInstance = from.instance;
    result.hIcon = from.icon;
    result.hCursor = from.cursor;
    result.hbrBackground = from.background;
    result.lpszClassName = name;
    result.hIconSm = from.smallIcon;
    return result;
}

/// The field of a class behind an index below zero; false when there is none.
bool ExchangeField(WindowClass& of, int index, const LONG_PTR* value, ULONG_PTR& previous)
{
    const auto exchange = [&](auto& field) {
        using Field = std::remove_reference_t<decltype(field)>;
        previous = (ULONG_PTR)field;
        if (value != nullptr)
            field = (Field)*value;
        return true;
    };
    switch (index) {
    case GCL_STYLE:
        return exchange(of.style);
    case GCL_CBWNDEXTRA:
        return exchange(of.windowExtra);
    case GCLP_HBRBACKGROUND:
        return exchange(of.background);
    case GCLP_HCURSOR:
        return exchange(of.cursor);
    case GCLP_HICON:
        return exchange(of.icon);
    case GCLP_HICONSM:
        return exchange(of.smallIcon);
    case GCLP_WNDPROC:
        return exchange(of.procedure);
    case GCLP_HMODULE:
        return exchange(of.instance);
    case GCW_ATOM:
        previous = of.atom;
        return value == nullptr;
    case GCL_CBCLSEXTRA:
        previous = of.extra.size();
        return value == nullptr;
    }
    return false;
}

ULONG_PTR ClassLong(HWND handle, int index, const LONG_PTR* value, size_t size)
{
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return 0;
    ULONG_PTR previous = 0;
    WindowClass& of = *window->windowClass;
    if (index < 0) {
        if (!ExchangeField(of, index, value, previous))
            FailWith(ERROR_INVALID_INDEX);
        return previous;
    }
    if (static_cast<size_t>(index) + size > of.extra.size())
        return static_cast<ULONG_PTR>(FailWith(ERROR_INVALID_INDEX));
    std::memcpy(&previous, of.extra.data() + index, size);
    if (value != nullptr)
        std::memcpy(of.extra.data() + index, value, size);
    return previous;
}

} // namespace

std::shared_ptr<WindowClass> FindClass(LPCWSTR name, HINSTANCE instance)
{
    std::lock_guard lock(WindowLock());
    MakeBuiltInClasses();
    return name != nullptr ? Find(name, instance, false) : nullptr;
}

const char16_t* ClassOfDialogOrdinal(WORD ordinal)
{
    for (const BuiltInClass& row : ControlClasses()) {
        if (row.dialogOrdinal == ordinal && ordinal != 0)
            return row.name;
    }
    return nullptr;
}

bool IsBuiltInProcedure(WNDPROC procedure)
{
    std::lock_guard lock(WindowLock());
    return builtInProcedures.contains(procedure);
}

void CloseClasses()
{
    std::lock_guard lock(WindowLock());
    const auto own = std::count_if(classes.begin(), classes.end(), [](const auto& c) { return !c->builtIn; });
    CountOpen(&Ledger::classes, -own);
    classes.clear();
    builtInProcedures.clear();
    nextAtom = kFirstAtom;
}

} // namespace host

using namespace host;

ATOM WINAPI RegisterClassW(const WNDCLASSW* description)
{
    HOST_CALL(RegisterClassW, 0, ERROR_NOT_ENOUGH_MEMORY);
    if (description == nullptr)
        return static_cast<ATOM>(FailWith(ERROR_INVALID_PARAMETER));
    return Register({sizeof(WNDCLASSEXW), description->style, description->lpfnWndProc,
                     description->cbClsExtra, description->cbWndExtra, description->hInstance,
                     description->hIcon, description->hCursor, description->hbrBackground,
                     description->lpszMenuName, description->lpszClassName, nullptr});
}

ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* description)
{
    HOST_CALL(RegisterClassExW, 0, ERROR_NOT_ENOUGH_MEMORY);
    if (description == nullptr || description->cbSize != sizeof *description)
        return static_cast<ATOM>(FailWith(ERROR_INVALID_PARAMETER));
    return Register(*description);
}

BOOL WINAPI UnregisterClassW(LPCWSTR className, HINSTANCE instance)
{
    HOST_CALL_VOID(UnregisterClassW);
    std::lock_guard lock(WindowLock());
    MakeBuiltInClasses();
    const std::shared_ptr<WindowClass> found =
        className != nullptr ? Find(className, instance, instance != nullptr) : nullptr;
    if (found == nullptr || found->builtIn)
        return FailWith(ERROR_CLASS_DOES_NOT_EXIST);
    if (found->windows != 0)
        return FailWith(ERROR_CLASS_HAS_WINDOWS);
    std::erase(classes, found);
    CountOpen(&Ledger::classes, -1);
    return TRUE;
}

BOOL WINAPI GetClassInfoW(HINSTANCE instance, LPCWSTR className, LPWNDCLASSW description)
{
    HOST_CALL(GetClassInfoW, FALSE, ERROR_CLASS_DOES_NOT_EXIST);
    const std::shared_ptr<WindowClass> found = FindClass(className, instance);
    if (found == nullptr || description == nullptr)
        return FailWith(ERROR_CLASS_DOES_NOT_EXIST);
    const WNDCLASSEXW full = Described(*found, className);
    *description = {full.style, full.lpfnWndProc, full.cbClsExtra,    full.cbWndExtra,   full.hInstance,
                    full.hIcon, full.hCursor,     full.hbrBackground, full.lpszMenuName, full.lpszClassName};
    return TRUE;
}

BOOL WINAPI GetClassInfoExW(HINSTANCE instance, LPCWSTR className, LPWNDCLASSEXW description)
{
    HOST_CALL(GetClassInfoExW, FALSE, ERROR_CLASS_DOES_NOT_EXIST);
    const std::shared_ptr<WindowClass> found = FindClass(className, instance);
    if (found == nullptr || description == nullptr)
        return FailWith(ERROR_CLASS_DOES_NOT_EXIST);
    *description = Described(*found, className);
    return TRUE;
}

int WINAPI GetClassNameW(HWND handle, LPWSTR name, int size)
{
    HOST_CALL(GetClassNameW, 0, ERROR_INVALID_WINDOW_HANDLE);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return 0;
    if (name == nullptr || size <= 0)
        return FailWith(ERROR_INSUFFICIENT_BUFFER);
    const std::u16string& className = window->windowClass->name;
    const size_t count = std::min(className.size(), static_cast<size_t>(size) - 1);
    std::copy_n(className.begin(), count, name);
    name[count] = 0;
    return static_cast<int>(count);
}

ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int index)
{
    HOST_CALL_VOID(GetClassLongPtrW);
    return ClassLong(window, index, nullptr, sizeof(ULONG_PTR));
}

ULONG_PTR WINAPI SetClassLongPtrW(HWND window, int index, LONG_PTR value)
{
    HOST_CALL(SetClassLongPtrW, 0, ERROR_INVALID_WINDOW_HANDLE);
    return ClassLong(window, index, &value, sizeof(ULONG_PTR));
}

DWORD WINAPI GetClassLongW(HWND window, int index)
{
    HOST_CALL_VOID(GetClassLongW);
    return static_cast<DWORD>(ClassLong(window, index, nullptr, sizeof(DWORD)));
}

DWORD WINAPI SetClassLongW(HWND window, int index, LONG value)
{
    HOST_CALL(SetClassLongW, 0, ERROR_INVALID_WINDOW_HANDLE);
    const LONG_PTR wide = value;
    return static_cast<DWORD>(ClassLong(window, index, &wide, sizeof(DWORD)));
}
