#include "psui/controls/micro_scroll.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "psui/base/gdi.h"
#include "psui/controls/classes.h"
#include "psui/controls/control_record.h"

namespace psui {

namespace {

constexpr UINT_PTR kFirstTimer = 500;
constexpr UINT_PTR kRepeatTimer = 501;
constexpr UINT kFirstDelay = 400; // milliseconds
constexpr UINT kRepeatDelay = 50;
constexpr int kTextUnits = 64;
constexpr WORD kRangeChanged = 3; // notification code
constexpr LRESULT kRefused = -1;

bool IsVertical(const MicroScrollRecord& record)
{
    return !(record.style & MUS_HORIZONTAL);
}

bool IsPressed(const MicroScrollRecord& record)
{
    return (record.state & (kMicroFirst | kMicroSecond)) != 0;
}

RECT HalfOf(HWND window, const MicroScrollRecord& record, bool first)
{
    RECT half;
    GetClientRect(window, &half);
    LONG& start = IsVertical(record) ? half.top : half.left;
    LONG& end = IsVertical(record) ? half.bottom : half.right;
    const LONG middle = end / 2;
    if (first)
        end = middle + 1;
    else
        start = middle;
    return half;
}

void RepaintHalf(HWND window, const MicroScrollRecord& record, bool first)
{
    const RECT half = HalfOf(window, record, first);
    InvalidateRect(window, &half, FALSE);
    UpdateWindow(window);
}

// Notifications

void NotifyScroll(const MicroScrollRecord& record, WPARAM what, LPARAM detail)
{
    SendMessageW(record.associate, IsVertical(record) ? WM_VSCROLL : WM_HSCROLL, what, detail);
}

void NotifyPosition(const MicroScrollRecord& record)
{
    NotifyScroll(record, SB_THUMBTRACK, record.position);
}

void TakeStep(HWND window, MicroScrollRecord& record)
{
    const bool first = (record.state & kMicroFirst) != 0;
    if (StepMicroScroll(record, first))
        NotifyScroll(record, MAKEWPARAM(first ? SB_LINEUP : SB_LINEDOWN, record.position),
                     reinterpret_cast<LPARAM>(window));
}

// Creation

void OnCreate(HWND window, MicroScrollRecord& record, const CREATESTRUCTW& create)
{
    record.associate = create.hwndParent;
    record.style = static_cast<uint32_t>(create.style);
    if (record.style & MUS_VERTICAL)
        record.style &= ~MUS_HORIZONTAL;
    record.colors.Reset();
    record.minimum = 0;
    record.maximum = 9;
    record.position = 5;
    WCHAR text[kTextUnits];
    uint16_t fields[3];
    if (!(record.style & MUS_TEXTRANGE) || GetWindowTextW(window, text, kTextUnits) == 0 ||
        !ReadThreeFields(text, fields) || fields[0] > fields[1])
        return;
    record.minimum = fields[0];
    record.maximum = fields[1];
    record.position = fields[2];
    if (record.position < record.minimum || record.position > record.maximum)
        record.position = static_cast<uint16_t>((record.minimum + record.maximum) / 2);
}

// Input

void Press(HWND window, MicroScrollRecord& record, POINT place)
{
    RECT client;
    GetClientRect(window, &client);
    const bool second = IsVertical(record) ? place.y > client.bottom / 2 : place.x > client.right / 2;
    record.state |= second ? kMicroSecond : kMicroFirst;
    RepaintHalf(window, record, !second);
    TakeStep(window, record);
    SetCapture(window);
    SetTimer(window, kFirstTimer, kFirstDelay, nullptr);
}

void FollowPointer(HWND window, MicroScrollRecord& record, POINT place)
{
    if (!IsPressed(record))
        return;
    const bool first = (record.state & kMicroFirst) != 0;
    const RECT half = HalfOf(window, record, first);
    const bool outside = !PtInRect(&half, place);
    if (outside == ((record.state & kMicroOutside) != 0))
        return;
    record.state ^= kMicroOutside;
    RepaintHalf(window, record, first);
}

void StopPressing(HWND window, MicroScrollRecord& record)
{
    KillTimer(window, kFirstTimer);
    KillTimer(window, kRepeatTimer);
    const bool pressed = IsPressed(record);
    const bool first = (record.state & kMicroFirst) != 0;
    record.state &= static_cast<uint16_t>(~(kMicroOutside | kMicroFirst | kMicroSecond));
    if (GetCapture() == window)
        ReleaseCapture();
    if (pressed)
        RepaintHalf(window, record, first);
}

void OnTimer(HWND window, MicroScrollRecord& record, UINT_PTR timer)
{
    if (timer != kFirstTimer && timer != kRepeatTimer)
        return;
    if (timer == kFirstTimer) {
        KillTimer(window, kFirstTimer);
        SetTimer(window, kRepeatTimer, kRepeatDelay, nullptr);
    }
    if (IsPressed(record) && !(record.state & kMicroOutside))
        TakeStep(window, record);
}

// Painting

void Bar(HDC dc, LONG left, LONG top, LONG right, LONG bottom, HBRUSH brush)
{
    const RECT bar = {left, top, right, bottom};
    FillRect(dc, &bar, brush);
}

void DrawHalf(HDC dc, const RECT& half, bool pressed, HBRUSH highlight, HBRUSH shadow)
{
    Bar(dc, half.left, half.top, half.right, half.top + 1, pressed ? shadow : highlight);
    Bar(dc, half.left, half.top, half.left + 1, half.bottom, pressed ? shadow : highlight);
    if (pressed)
        return;
    Bar(dc, half.left, half.bottom - 2, half.right, half.bottom, shadow);
    Bar(dc, half.right - 2, half.top, half.right, half.bottom, shadow);
}

// An arrow 7 pixels wide and 3 high around a place, towards -1 (up, left) or 1.
void ArrowPoints(POINT at, bool vertical, int towards, POINT (&points)[3])
{
    constexpr int kHalfWidth = 3;
    const int tip = towards < 0 ? -1 : 1;
    const POINT shape[3] = {{-kHalfWidth, -tip}, {kHalfWidth, -tip}, {0, tip}};
    for (int i = 0; i < 3; ++i)
        points[i] = vertical ? POINT{at.x + shape[i].x, at.y + shape[i].y}
                             : POINT{at.x + shape[i].y, at.y + shape[i].x};
}

void DrawArrow(HDC dc, const POINT (&points)[3], bool enabled, HPEN arrow, HPEN highlight)
{
    const Selection pen(dc, arrow);
    if (enabled) {
        Polygon(dc, points, 3);
        return;
    }
    MoveToEx(dc, points[0].x, points[0].y, nullptr);
    LineTo(dc, points[2].x, points[2].y);
    const Selection lit(dc, highlight);
    LineTo(dc, points[1].x, points[1].y);
    LineTo(dc, points[0].x, points[0].y);
}

void Paint(HWND window, const MicroScrollRecord& record)
{
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    if (!dc)
        return;
    {
        const SavedState saved(dc);
        const GdiObject<HBRUSH> face(CreateSolidBrush(record.colors[kFaceColor]));
        const GdiObject<HBRUSH> arrowFill(CreateSolidBrush(record.colors[kArrowColor]));
        const GdiObject<HBRUSH> shadow(CreateSolidBrush(record.colors[kShadowColor]));
        const GdiObject<HBRUSH> highlight(CreateSolidBrush(record.colors[kHighlightColor]));
        const GdiObject<HBRUSH> frame(CreateSolidBrush(record.colors[kFrameColor]));
        const GdiObject<HPEN> arrowPen(CreatePen(PS_SOLID, 1, record.colors[kArrowColor]));
        const GdiObject<HPEN> lightPen(CreatePen(PS_SOLID, 1, record.colors[kHighlightColor]));
        RECT client;
        GetClientRect(window, &client);
        FillRect(dc, &client, face.get());
        FrameRect(dc, &client, frame.get());
        const bool vertical = IsVertical(record);
        const LONG middle = (vertical ? client.bottom : client.right) / 2;
        if (vertical)
            Bar(dc, client.left, middle, client.right, middle + 1, frame.get());
        else
            Bar(dc, middle, client.top, middle + 1, client.bottom, frame.get());
        const Selection fill(dc, arrowFill.get());
        for (const bool first : {true, false}) {
            const uint16_t bit = first ? kMicroFirst : kMicroSecond;
            const bool pressed = (record.state & bit) && !(record.state & kMicroOutside);
            RECT half = HalfOf(window, record, first);
            InflateRect(&half, -1, -1);
            DrawHalf(dc, half, pressed, highlight.get(), shadow.get());
            const LONG along = (vertical ? client.bottom : client.right) * (first ? 1 : 3) / 4;
            POINT at = vertical ? POINT{client.right / 2, along} : POINT{along, client.bottom / 2};
            if (pressed)
                at = {at.x + 1, at.y + 1};
            POINT points[3];
            ArrowPoints(at, vertical, first ? -1 : 1, points);
            DrawArrow(dc, points, !(record.state & kMicroDisabled), arrowPen.get(), lightPen.get());
        }
    }
    EndPaint(window, &paint);
}

// Messages of our own

LRESULT SetRange(HWND window, MicroScrollRecord& record, LPARAM range)
{
    const uint16_t minimum = LOWORD(range), maximum = HIWORD(range);
    if (minimum >= maximum)
        return kRefused;
    const LRESULT former = MAKELONG(record.minimum, record.maximum);
    SendMessageW(record.associate, WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID(window)),
                 MAKELPARAM(LOWORD(reinterpret_cast<ULONG_PTR>(window)), kRangeChanged));
    if (SetMicroScrollRange(record, minimum, maximum))
        NotifyPosition(record);
    return former;
}

LRESULT SetPosition(MicroScrollRecord& record, WPARAM position)
{
    if (position < record.minimum || position > record.maximum)
        return kRefused;
    const uint16_t former = std::exchange(record.position, static_cast<uint16_t>(position));
    NotifyPosition(record);
    return former;
}

LRESULT SwitchStyle(MicroScrollRecord& record, DWORD bit, bool on)
{
    const bool former = (record.style & bit) != 0;
    record.style = on ? record.style | bit : record.style & ~bit;
    return former;
}

LRESULT SetColor(HWND window, MicroScrollRecord& record, WPARAM slot, COLORREF color)
{
    if (slot >= kColorSlots)
        return 0;
    const COLORREF former = std::exchange(record.colors.slots[slot], color);
    InvalidateRect(window, nullptr, FALSE);
    UpdateWindow(window);
    return former;
}

LRESULT OnOwnMessage(HWND window, MicroScrollRecord& record, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case MUS_SETASSOCIATE:
        return IsWindow(reinterpret_cast<HWND>(wParam)) ? reinterpret_cast<LRESULT>(record.associate)
                                                        : kRefused;
    case MUS_GETASSOCIATE:
        return reinterpret_cast<LRESULT>(record.associate);
    case MUS_SETRANGE:
        return SetRange(window, record, lParam);
    case MUS_GETRANGE:
        return MAKELONG(record.minimum, record.maximum);
    case MUS_SETPOS:
        return SetPosition(record, wParam);
    case MUS_GETPOS:
        return record.position;
    case MUS_SETNOPEG:
        return SwitchStyle(record, MUS_NOPEG, wParam != 0);
    case MUS_GETNOPEG:
        return record.style & MUS_NOPEG;
    case MUS_SETINVERT:
        return SwitchStyle(record, MUS_INVERT, wParam != 0);
    case MUS_GETINVERT:
        return record.style & MUS_INVERT;
    case MUS_SETCOLOR:
        return SetColor(window, record, wParam, static_cast<COLORREF>(lParam));
    case MUS_GETCOLOR:
        return wParam < kColorSlots ? record.colors.slots[wParam] : 0;
    default:
        return 0;
    }
}

POINT PlaceOf(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

void SetState(HWND window, MicroScrollRecord& record, uint16_t bit, bool on)
{
    record.state = static_cast<uint16_t>(on ? record.state | bit : record.state & ~bit);
    InvalidateRect(window, nullptr, FALSE);
}

} // namespace

bool StepMicroScroll(MicroScrollRecord& record, bool firstHalf)
{
    const bool down = firstHalf != ((record.style & MUS_INVERT) != 0);
    const bool atLimit = record.position == (down ? record.minimum : record.maximum);
    if (!atLimit)
        record.position = static_cast<uint16_t>(down ? record.position - 1 : record.position + 1);
    return !atLimit || !(record.style & MUS_NOPEG);
}

bool SetMicroScrollRange(MicroScrollRecord& record, uint16_t minimum, uint16_t maximum)
{
    record.minimum = minimum;
    record.maximum = maximum;
    if (record.position > minimum && record.position < maximum)
        return false;
    record.position = static_cast<uint16_t>((minimum + maximum) / 2);
    return true;
}

LRESULT CALLBACK MicroScrollWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE)
        return CreateRecord<MicroScrollRecord>(window, wParam, lParam);
    MicroScrollRecord* const record = RecordOf<MicroScrollRecord>(window);
    if (!record)
        return DefWindowProcW(window, message, wParam, lParam);
    if (message >= WM_USER)
        return OnOwnMessage(window, *record, message, wParam, lParam);
    switch (message) {
    case WM_CREATE:
        OnCreate(window, *record, *reinterpret_cast<const CREATESTRUCTW*>(lParam));
        return 0;
    case WM_NCDESTROY:
        FreeRecord<MicroScrollRecord>(window);
        break;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        Press(window, *record, PlaceOf(lParam));
        return 0;
    case WM_MOUSEMOVE:
        FollowPointer(window, *record, PlaceOf(lParam));
        return 0;
    case WM_LBUTTONUP:
    case WM_CANCELMODE:
        StopPressing(window, *record);
        return 0;
    case WM_TIMER:
        OnTimer(window, *record, wParam);
        return 0;
    case WM_ENABLE:
        SetState(window, *record, kMicroDisabled, !wParam);
        return 0;
    case WM_SHOWWINDOW:
        SetState(window, *record, kMicroHidden, !wParam);
        return 0;
    case WM_ERASEBKGND:
        return 0;
    case WM_PAINT:
        Paint(window, *record);
        return 0;
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace psui
