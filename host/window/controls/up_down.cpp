#include "host/window/controls/up_down.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include <commctrl.h>

#include "host/window/controls/control.h"

namespace host {
namespace {

constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kFirstRepeatMs = 500;
constexpr UINT kRepeatMs = 50;
constexpr UINT kDecimal = 10;
constexpr UINT kHexadecimal = 16;
constexpr int kGroupDigits = 3;
constexpr WCHAR kGroupSeparator = ',';
constexpr WCHAR kControlProperty[] = TEXT("UpDownControl");     // of the buddy: this control's window
constexpr WCHAR kProcedureProperty[] = TEXT("UpDownProcedure"); // of the buddy: its own procedure

enum class Half
{
    none,
    increase,
    decrease
};

struct UpDown : ControlState
{
    HWND buddy = nullptr;
    // A maximum below the minimum turns the arrows around.
    int minimum = 100;
    int maximum = 0;
    int position = 0;
    UINT base = kDecimal;
    std::vector<UDACCEL> steps = {{0, 1}, {2, 5}, {5, 20}};
    Half pressed = Half::none;
    bool inside = false;
    ULONGLONG pressedSince = 0; // GetTickCount64
};

bool IsHorizontal(HWND window)
{
    return (StyleOf(window) & UDS_HORZ) != 0;
}

RECT RectOf(HWND window, Half half)
{
    RECT rect = ClientRectOf(window);
    if (IsHorizontal(window))
        (half == Half::increase ? rect.left : rect.right) = rect.right / 2;
    else
        (half == Half::increase ? rect.bottom : rect.top) = rect.bottom / 2;
    return rect;
}

Half HalfAt(HWND window, POINT point)
{
    for (const Half half : {Half::increase, Half::decrease}) {
        const RECT rect = RectOf(window, half);
        if (PtInRect(&rect, point))
            return half;
    }
    return Half::none;
}

int Clamped(const UpDown& control, int64_t position)
{
    const auto [low, high] = std::minmax(control.minimum, control.maximum);
    return static_cast<int>(std::clamp<int64_t>(position, low, high));
}

// The number in the buddy

Text NumberText(const UpDown& control)
{
    Text text;
    const bool hexadecimal = control.base == kHexadecimal;
    uint64_t rest = hexadecimal ? static_cast<uint32_t>(control.position)
                                : static_cast<uint64_t>(std::abs(static_cast<int64_t>(control.position)));
    const bool grouped = !hexadecimal && !(StyleOf(control.window) & UDS_NOTHOUSANDS);
    int digits = 0;
    do {
        if (grouped && digits > 0 && digits % kGroupDigits == 0)
            text.insert(text.begin(), kGroupSeparator);
        text.insert(text.begin(), static_cast<WCHAR>(TEXT("0123456789ABCDEF")[rest % control.base]));
        rest /= control.base;
        ++digits;
    } while (rest != 0 || (hexadecimal && digits < 4));
    if (hexadecimal)
        text.insert(0, TEXT("0x"));
    else if (control.position < 0)
        text.insert(text.begin(), '-');
    return text;
}

int DigitOf(WCHAR unit)
{
    if (unit >= '0' && unit <= '9')
        return unit - '0';
    if (unit >= 'a' && unit <= 'f')
        return unit - 'a' + 10;
    return unit >= 'A' && unit <= 'F' ? unit - 'A' + 10 : kHexadecimal;
}

/// The number that a text shows; false when it is none.
bool ParseNumber(const Text& text, UINT base, int& number)
{
    size_t i = 0;
    const bool negative = base == kDecimal && !text.empty() && text[0] == '-';
    if (negative)
        i = 1;
    else if (base == kHexadecimal && text.size() > 1 && text[0] == '0' && (text[1] | 0x20) == 'x')
        i = 2;
    bool any = false;
    int64_t value = 0;
    for (; i < text.size(); ++i) {
        if (text[i] == kGroupSeparator && any)
            continue;
        const int digit = DigitOf(text[i]);
        if (digit >= static_cast<int>(base) || value > INT32_MAX)
            return false;
        value = value * base + digit;
        any = true;
    }
    if (!any || value > INT32_MAX)
        return false;
    number = static_cast<int>(negative ? -value : value);
    return true;
}

/// Takes over what the user has typed into the buddy. False when that is no number of the range.
bool ReadBuddy(UpDown& control)
{
    if (!(StyleOf(control.window) & UDS_SETBUDDYINT) || !IsWindow(control.buddy))
        return true;
    int number = 0;
    if (!ParseNumber(TextOf(control.buddy), control.base, number) || Clamped(control, number) != number)
        return false;
    control.position = number;
    return true;
}

void WriteBuddy(const UpDown& control)
{
    if (!(StyleOf(control.window) & UDS_SETBUDDYINT) || !IsWindow(control.buddy))
        return;
    const Text text = NumberText(control);
    if (text != TextOf(control.buddy))
        SetWindowTextW(control.buddy, text.c_str());
}

// The buddy's window

/// Arrow keys in the buddy press the arrows.
LRESULT CALLBACK BuddyProc(HWND buddy, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto procedure = reinterpret_cast<WNDPROC>(GetPropW(buddy, kProcedureProperty));
    const auto control = static_cast<HWND>(GetPropW(buddy, kControlProperty));
    if (message == WM_KEYDOWN && (wParam == VK_UP || wParam == VK_DOWN) && IsWindow(control)) {
        SendMessageW(control, WM_KEYDOWN, wParam, lParam);
        return 0;
    }
    if (message == WM_NCDESTROY) {
        RemovePropW(buddy, kControlProperty);
        RemovePropW(buddy, kProcedureProperty);
    }
    return CallWindowProcW(procedure, buddy, message, wParam, lParam);
}

bool IsHooked(HWND buddy)
{
    return GetWindowLongPtrW(buddy, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(BuddyProc);
}

void HookBuddy(HWND window, HWND buddy)
{
    if (!(StyleOf(window) & UDS_ARROWKEYS))
        return;
    SetPropW(buddy, kControlProperty, window);
    if (IsHooked(buddy))
        return;
    const LONG_PTR before = SetWindowLongPtrW(buddy, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(BuddyProc));
    SetPropW(buddy, kProcedureProperty, reinterpret_cast<HANDLE>(before));
}

/// Only when nobody else has hooked the buddy since: otherwise the hook stays and, without a control, passes
/// all on.
void UnhookBuddy(HWND buddy)
{
    if (!IsWindow(buddy))
        return;
    RemovePropW(buddy, kControlProperty);
    if (IsHooked(buddy))
        SetWindowLongPtrW(buddy, GWLP_WNDPROC,
                          reinterpret_cast<LONG_PTR>(RemovePropW(buddy, kProcedureProperty)));
}

/// Puts the control on one side of its buddy, within the place that the buddy had.
void AlignToBuddy(HWND window, HWND buddy)
{
    const DWORD style = StyleOf(window);
    if (!(style & (UDS_ALIGNLEFT | UDS_ALIGNRIGHT)))
        return;
    RECT own = {};
    RECT rect = {};
    GetWindowRect(window, &own);
    GetWindowRect(buddy, &rect);
    MapWindowPoints(nullptr, GetParent(buddy), reinterpret_cast<POINT*>(&rect), 2);
    const int width =
        std::min(static_cast<int>(GetSystemMetrics(SM_CXVSCROLL)), static_cast<int>(own.right - own.left));
    const int height = rect.bottom - rect.top;
    const bool left = (style & UDS_ALIGNLEFT) != 0;
    MoveWindow(buddy, left ? rect.left + width : rect.left, rect.top, rect.right - rect.left - width, height,
               TRUE);
    SetWindowPos(window, nullptr, left ? rect.left : rect.right - width, rect.top, width, height,
                 SWP_NOACTIVATE | SWP_NOZORDER);
}

HWND SetBuddy(UpDown& control, HWND buddy)
{
    const HWND before = control.buddy;
    UnhookBuddy(before);
    control.buddy = buddy;
    if (IsWindow(buddy)) {
        HookBuddy(control.window, buddy);
        AlignToBuddy(control.window, buddy);
    }
    return before;
}

// Stepping

int64_t StepOf(const UpDown& control)
{
    const ULONGLONG seconds = (GetTickCount64() - control.pressedSince) / 1000;
    UINT step = 1;
    for (const UDACCEL& each : control.steps) {
        if (each.nSec <= seconds)
            step = each.nInc;
    }
    return step;
}

/// Where a step leads: with UDS_WRAP from one end to the other, else no further than an end.
int Stepped(const UpDown& control, int64_t delta)
{
    const int64_t target = control.position + delta;
    const int clamped = Clamped(control, target);
    if (clamped == target || !(StyleOf(control.window) & UDS_WRAP))
        return clamped;
    const auto [low, high] = std::minmax(control.minimum, control.maximum);
    return target > high ? low : high;
}

void TellScroll(const UpDown& control, WORD code)
{
    SendMessageW(GetParent(control.window), IsHorizontal(control.window) ? WM_HSCROLL : WM_VSCROLL,
                 MAKEWPARAM(code, control.position), reinterpret_cast<LPARAM>(control.window));
}

void Step(UpDown& control, Half half, int64_t step)
{
    ReadBuddy(control);
    const bool upwards = (half == Half::increase) == (control.maximum >= control.minimum);
    NMUPDOWN change = {};
    change.hdr.hwndFrom = control.window;
    change.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(control.window));
    change.hdr.code = UDN_DELTAPOS;
    change.iPos = control.position;
    change.iDelta = static_cast<int>(upwards ? step : -step);
    const LRESULT refused = SendMessageW(GetParent(control.window), WM_NOTIFY, change.hdr.idFrom,
                                         reinterpret_cast<LPARAM>(&change));
    if (refused || control.gone)
        return;
    control.position = Stepped(control, change.iDelta);
    WriteBuddy(control);
    if (!control.gone)
        TellScroll(control, SB_THUMBPOSITION);
}

LRESULT OnMouseDown(UpDown& control, WPARAM, LPARAM lParam)
{
    if (IsWindow(control.buddy) && IsWindowEnabled(control.buddy))
        SetFocus(control.buddy);
    control.pressed = HalfAt(control.window, PointOf(lParam));
    if (control.pressed == Half::none)
        return 0;
    control.inside = true;
    control.pressedSince = GetTickCount64();
    SetCapture(control.window);
    SetTimer(control.window, kRepeatTimer, kFirstRepeatMs, nullptr);
    Repaint(control.window);
    Step(control, control.pressed, StepOf(control));
    return 0;
}

LRESULT OnMouseMove(UpDown& control, WPARAM, LPARAM lParam)
{
    const bool inside =
        control.pressed != Half::none && HalfAt(control.window, PointOf(lParam)) == control.pressed;
    if (inside != control.inside) {
        control.inside = inside;
        Repaint(control.window);
    }
    return 0;
}

LRESULT OnTimer(UpDown& control, WPARAM wParam, LPARAM)
{
    if (wParam != kRepeatTimer || control.pressed == Half::none)
        return 0;
    SetTimer(control.window, kRepeatTimer, kRepeatMs, nullptr);
    if (control.inside)
        Step(control, control.pressed, StepOf(control));
    return 0;
}

LRESULT OnRelease(UpDown& control, WPARAM, LPARAM)
{
    if (control.pressed == Half::none)
        return 0;
    control.pressed = Half::none;
    control.inside = false;
    KillTimer(control.window, kRepeatTimer);
    if (GetCapture() == control.window)
        ReleaseCapture();
    Repaint(control.window);
    TellScroll(control, SB_ENDSCROLL);
    return 0;
}

LRESULT OnKeyDown(UpDown& control, WPARAM wParam, LPARAM)
{
    if (!(StyleOf(control.window) & UDS_ARROWKEYS) || !IsWindowEnabled(control.window))
        return 0;
    control.pressedSince = GetTickCount64();
    if (wParam == VK_UP)
        Step(control, Half::increase, 1);
    else if (wParam == VK_DOWN)
        Step(control, Half::decrease, 1);
    return 0;
}

// State

LRESULT OnCreate(UpDown& control, WPARAM, LPARAM)
{
    if (StyleOf(control.window) & UDS_AUTOBUDDY)
        SetBuddy(control, GetWindow(control.window, GW_HWNDPREV));
    return 0;
}

LRESULT OnDestroy(UpDown& control, WPARAM, LPARAM)
{
    UnhookBuddy(control.buddy);
    return 0;
}

LRESULT OnEnable(UpDown& control, WPARAM wParam, LPARAM lParam)
{
    if (!wParam)
        OnRelease(control, 0, lParam);
    Repaint(control.window);
    return 0;
}

LRESULT OnSetBuddy(UpDown& control, WPARAM wParam, LPARAM)
{
    return reinterpret_cast<LRESULT>(SetBuddy(control, reinterpret_cast<HWND>(wParam)));
}

LRESULT OnGetBuddy(UpDown& control, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(control.buddy);
}

LRESULT SetPosition(UpDown& control, int position)
{
    ReadBuddy(control);
    const int before = control.position;
    control.position = Clamped(control, position);
    WriteBuddy(control);
    return before;
}

LRESULT OnSetPos(UpDown& control, WPARAM, LPARAM lParam)
{
    return static_cast<SHORT>(LOWORD(SetPosition(control, static_cast<SHORT>(LOWORD(lParam)))));
}

LRESULT OnSetPos32(UpDown& control, WPARAM, LPARAM lParam)
{
    return SetPosition(control, static_cast<int>(lParam));
}

/// The high word tells that the buddy shows no number of the range.
LRESULT OnGetPos(UpDown& control, WPARAM, LPARAM)
{
    const bool sound = ReadBuddy(control);
    return MAKELONG(control.position, sound ? 0 : 1);
}

LRESULT OnGetPos32(UpDown& control, WPARAM, LPARAM lParam)
{
    const bool sound = ReadBuddy(control);
    if (lParam != 0)
        *reinterpret_cast<BOOL*>(lParam) = !sound;
    return control.position;
}

LRESULT OnSetRange(UpDown& control, WPARAM, LPARAM lParam)
{
    control.maximum = static_cast<SHORT>(LOWORD(lParam));
    control.minimum = static_cast<SHORT>(HIWORD(lParam));
    return 0;
}

LRESULT OnGetRange(UpDown& control, WPARAM, LPARAM)
{
    return MAKELONG(control.maximum, control.minimum);
}

LRESULT OnSetRange32(UpDown& control, WPARAM wParam, LPARAM lParam)
{
    control.minimum = static_cast<int>(wParam);
    control.maximum = static_cast<int>(lParam);
    return 0;
}

LRESULT OnGetRange32(UpDown& control, WPARAM wParam, LPARAM lParam)
{
    if (wParam != 0)
        *reinterpret_cast<int*>(wParam) = control.minimum;
    if (lParam != 0)
        *reinterpret_cast<int*>(lParam) = control.maximum;
    return 0;
}

LRESULT OnSetAccel(UpDown& control, WPARAM wParam, LPARAM lParam)
{
    const auto* const steps = reinterpret_cast<const UDACCEL*>(lParam);
    if (wParam == 0 || steps == nullptr)
        return FALSE;
    control.steps.assign(steps, steps + wParam);
    return TRUE;
}

LRESULT OnGetAccel(UpDown& control, WPARAM wParam, LPARAM lParam)
{
    if (lParam != 0)
        std::copy_n(control.steps.begin(), std::min<size_t>(wParam, control.steps.size()),
                    reinterpret_cast<UDACCEL*>(lParam));
    return static_cast<LRESULT>(control.steps.size());
}

LRESULT OnSetBase(UpDown& control, WPARAM wParam, LPARAM)
{
    if (wParam != kDecimal && wParam != kHexadecimal)
        return 0;
    const UINT before = control.base;
    control.base = static_cast<UINT>(wParam);
    WriteBuddy(control);
    return before;
}

LRESULT OnGetBase(UpDown& control, WPARAM, LPARAM)
{
    return control.base;
}

void PaintHalf(const UpDown& control, HDC dc, Half half)
{
    using theme::Arrow;
    theme::Look look = {IsWindowEnabled(control.window) &&
                            (control.buddy == nullptr || IsWindowEnabled(control.buddy)),
                        control.pressed == half && control.inside, false, false};
    const RECT rect = RectOf(control.window, half);
    theme::DrawButtonFace(dc, rect, look);
    const bool increases = half == Half::increase;
    const Arrow arrow = IsHorizontal(control.window) ? (increases ? Arrow::right : Arrow::left)
                                                     : (increases ? Arrow::up : Arrow::down);
    theme::DrawArrow(dc, rect, arrow, look.enabled ? theme::kGlyph : theme::kThumb);
}

LRESULT OnPaint(UpDown& control, WPARAM wParam, LPARAM)
{
    const ControlPaint paint(control.window, wParam, nullptr);
    PaintHalf(control, paint.Dc(), Half::increase);
    PaintHalf(control, paint.Dc(), Half::decrease);
    return 0;
}

LRESULT OnEraseBackground(UpDown&, WPARAM, LPARAM)
{
    return TRUE;
}

constexpr MessageRow<UpDown> kMessages[] = {
    {WM_CREATE, OnCreate},
    {WM_DESTROY, OnDestroy},
    {WM_ENABLE, OnEnable},
    {WM_PAINT, OnPaint},
    {WM_ERASEBKGND, OnEraseBackground},
    {WM_KEYDOWN, OnKeyDown},
    {WM_TIMER, OnTimer},
    {WM_MOUSEMOVE, OnMouseMove},
    {WM_LBUTTONDOWN, OnMouseDown},
    {WM_LBUTTONUP, OnRelease},
    {WM_LBUTTONDBLCLK, OnMouseDown},
    {WM_CAPTURECHANGED, OnRelease},
    {WM_PRINTCLIENT, OnPaint},
    {UDM_SETRANGE, OnSetRange},
    {UDM_GETRANGE, OnGetRange},
    {UDM_SETPOS, OnSetPos},
    {UDM_GETPOS, OnGetPos},
    {UDM_SETBUDDY, OnSetBuddy},
    {UDM_GETBUDDY, OnGetBuddy},
    {UDM_SETACCEL, OnSetAccel},
    {UDM_GETACCEL, OnGetAccel},
    {UDM_SETBASE, OnSetBase},
    {UDM_GETBASE, OnGetBase},
    {UDM_SETRANGE32, OnSetRange32},
    {UDM_GETRANGE32, OnGetRange32},
    {UDM_SETPOS32, OnSetPos32},
    {UDM_GETPOS32, OnGetPos32},
};
static_assert(InOrder<UpDown>(kMessages));

} // namespace

LRESULT CALLBACK UpDownProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunRows<UpDown>(kMessages, window, message, wParam, lParam);
}

} // namespace host
