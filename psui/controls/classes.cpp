#include "psui/controls/classes.h"

#include <commctrl.h>
#include <iterator>

#include "psui/base/module.h"
#include "psui/controls/frame.h"
#include "psui/controls/micro_scroll.h"

namespace psui {

namespace {

constexpr UINT kClassStyle = CS_GLOBALCLASS | CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
constexpr int kRecordAddress = sizeof(void*);
constexpr int kNameUnits = 50;
constexpr DWORD kButtonKind = 0xFF; // of a button's style

enum HookedClass
{
    kButton,
    kComboBox,
    kEdit,
    kListBox,
    kScrollBar,
    kMicroScroll,
    kTrackbar,
    kUpDown,
    kHookedClasses,
};

WNDPROC previousProcedures[kHookedClasses];
bool registered;

LRESULT TellDialog(HookedClass hooked, HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_SETFOCUS || message == WM_NCHITTEST)
        SendMessageW(GetParent(control), WM_COMMAND, kControlTouched, reinterpret_cast<LPARAM>(control));
    const WNDPROC previous = previousProcedures[hooked];
    return previous ? CallWindowProcW(previous, control, message, wParam, lParam)
                    : DefWindowProcW(control, message, wParam, lParam);
}

struct HookRow
{
    const WCHAR* name;
    WNDPROC hook;
};

constexpr HookRow kHooks[kHookedClasses] = {
    {TEXT("Button"), NewButton},    {TEXT("ComboBox"), NewComboBox},   {TEXT("Edit"), NewEdit},
    {TEXT("ListBox"), NewListBox},  {TEXT("ScrollBar"), NewScrollBar}, {kMicroScrollClass, NewMuScroll},
    {TRACKBAR_CLASSW, NewTrackbar}, {UPDOWN_CLASSW, NewUpdown},
};

void RegisterOne(const WCHAR* name, WNDPROC procedure)
{
    WNDCLASSW description = {};
    description.style = kClassStyle;
    description.lpfnWndProc = procedure;
    description.cbWndExtra = kRecordAddress;
    description.hInstance = hOwnModule;
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_BTNFACE + 1));
    description.lpszClassName = name;
    RegisterClassW(&description);
}

WNDPROC ProcedureOf(const WCHAR* name)
{
    WNDCLASSW description = {};
    return GetClassInfoW(nullptr, name, &description) ? description.lpfnWndProc : nullptr;
}

} // namespace

void RegisterControlClasses()
{
    if (registered)
        return;
    registered = true;
    RegisterOne(kMicroScrollClass, MicroScrollWndProc);
    RegisterOne(kFrameClass, FrameWndProc);
    for (int i = 0; i < kHookedClasses; ++i)
        previousProcedures[i] = ProcedureOf(kHooks[i].name);
    // A lookup without a module may not know our own classes.
    previousProcedures[kMicroScroll] = MicroScrollWndProc;
}

void UnregisterControlClasses()
{
    if (!registered)
        return;
    registered = false;
    UnregisterClassW(kMicroScrollClass, hOwnModule);
    UnregisterClassW(kFrameClass, hOwnModule);
}

LRESULT CALLBACK NewButton(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return TellDialog(kButton, control, message, wParam, lParam);
}

LRESULT CALLBACK NewComboBox(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return TellDialog(kComboBox, control, message, wParam, lParam);
}

LRESULT CALLBACK NewEdit(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return TellDialog(kEdit, control, message, wParam, lParam);
}

LRESULT CALLBACK NewListBox(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return TellDialog(kListBox, control, message, wParam, lParam);
}

LRESULT CALLBACK NewScrollBar(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return TellDialog(kScrollBar, control, message, wParam, lParam);
}

LRESULT CALLBACK NewMuScroll(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return TellDialog(kMicroScroll, control, message, wParam, lParam);
}

LRESULT CALLBACK NewTrackbar(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return TellDialog(kTrackbar, control, message, wParam, lParam);
}

LRESULT CALLBACK NewUpdown(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    return TellDialog(kUpDown, control, message, wParam, lParam);
}

BOOL CALLBACK SubClassChildWndProc(HWND child, LPARAM)
{
    WCHAR name[kNameUnits];
    if (GetClassNameW(child, name, kNameUnits) == 0)
        return TRUE;
    for (const HookRow& row : kHooks)
        if (lstrcmpiW(row.name, name) == 0) {
            SetWindowLongPtrW(child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(row.hook));
            break;
        }
    return TRUE;
}

BOOL CALLBACK SetDefaultButton(HWND child, LPARAM id)
{
    WCHAR name[kNameUnits];
    if (GetClassNameW(child, name, kNameUnits) == 0 || lstrcmpiW(name, TEXT("Button")) != 0)
        return TRUE;
    const auto kind = static_cast<DWORD>(GetWindowLongPtrW(child, GWL_STYLE)) & kButtonKind;
    if (kind == BS_OWNERDRAW)
        return TRUE;
    if (kind == BS_DEFPUSHBUTTON)
        SendMessageW(child, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    if (GetDlgCtrlID(child) == id)
        SendMessageW(child, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    return TRUE;
}

} // namespace psui
