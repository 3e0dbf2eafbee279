#include "host/window/controls/scroll_bar.h"

#include "host/window/controls/control.h"

namespace host {
namespace {

constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kFirstRepeatMs = 400;
constexpr UINT kRepeatMs = 50;

struct ScrollBar : ControlState
{
    ScrollRange range = {0, 0, 0, 0};
    ScrollPress press;
    UINT blockedArrows = ESB_ENABLE_BOTH;
    int pointer = 0; // along the bar, while pressed
};

bool IsVertical(HWND window)
{
    return (StyleOf(window) & SBS_VERT) != 0;
}

int Along(HWND window, POINT point)
{
    return IsVertical(window) ? point.y : point.x;
}

ScrollLayout LayoutOf(const ScrollBar& bar)
{
    const RECT client = ClientRectOf(bar.window);
    return LayOutScrollBar(ShownRange(bar.range, bar.press),
                           IsVertical(bar.window) ? client.bottom : client.right, theme::kArrowLength);
}

/// Tells the parent; `code` below 0 is nothing to tell. The bar may be gone afterwards.
void Tell(HWND window, int code, int position = 0)
{
    if (code < 0)
        return;
    const bool carriesPosition = code == SB_THUMBPOSITION || code == SB_THUMBTRACK;
    SendMessageW(GetParent(window), IsVertical(window) ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(code, carriesPosition ? position : 0), reinterpret_cast<LPARAM>(window));
}

LRESULT OnMouseDown(ScrollBar& bar, WPARAM, LPARAM lParam)
{
    if (StyleOf(bar.window) & WS_TABSTOP)
        SetFocus(bar.window);
    const ScrollLayout layout = LayoutOf(bar);
    bar.pointer = Along(bar.window, PointOf(lParam));
    if (IsBlockedPart(ScrollPartAt(layout, bar.pointer), bar.blockedArrows))
        return 0;
    SetCapture(bar.window);
    const int code = PressScrollBar(bar.press, bar.range, layout, bar.pointer);
    if (bar.press.part != ScrollPart::thumb && bar.press.part != ScrollPart::none)
        SetTimer(bar.window, kRepeatTimer, kFirstRepeatMs, nullptr);
    Repaint(bar.window);
    Tell(bar.window, code, bar.press.trackPosition);
    return 0;
}

LRESULT OnMouseMove(ScrollBar& bar, WPARAM, LPARAM lParam)
{
    if (bar.press.part == ScrollPart::none)
        return 0;
    const POINT point = PointOf(lParam);
    const RECT client = ClientRectOf(bar.window);
    const int across = IsVertical(bar.window) ? point.x : point.y;
    const int thickness = IsVertical(bar.window) ? client.right : client.bottom;
    bar.pointer = Along(bar.window, point);
    const int code =
        MoveOnScrollBar(bar.press, bar.range, LayoutOf(bar), bar.pointer, PixelsBeside(across, thickness));
    Repaint(bar.window);
    Tell(bar.window, code, bar.press.trackPosition);
    return 0;
}

LRESULT OnTimer(ScrollBar& bar, WPARAM wParam, LPARAM)
{
    if (wParam != kRepeatTimer)
        return 0;
    SetTimer(bar.window, kRepeatTimer, kRepeatMs, nullptr);
    Tell(bar.window, RepeatOnScrollBar(bar.press, LayoutOf(bar), bar.pointer));
    return 0;
}

/// Ends the press: a thumb stays where it was let go, as far as the program then moves the bar there.
void EndPress(ScrollBar& bar)
{
    const ScrollPress press = bar.press;
    if (press.part == ScrollPart::none)
        return;
    KillTimer(bar.window, kRepeatTimer);
    bar.press = {};
    if (GetCapture() == bar.window)
        ReleaseCapture();
    Repaint(bar.window);
    if (press.part == ScrollPart::thumb)
        Tell(bar.window, SB_THUMBPOSITION, press.trackPosition);
    Tell(bar.window, SB_ENDSCROLL);
}

LRESULT OnMouseUp(ScrollBar& bar, WPARAM, LPARAM)
{
    EndPress(bar);
    return 0;
}

LRESULT OnKeyDown(ScrollBar& bar, WPARAM wParam, LPARAM)
{
    constexpr struct
    {
        WPARAM key;
        WORD code;
    } kCodes[] = {
        {VK_UP, SB_LINEUP},    {VK_LEFT, SB_LINEUP},   {VK_DOWN, SB_LINEDOWN}, {VK_RIGHT, SB_LINEDOWN},
        {VK_PRIOR, SB_PAGEUP}, {VK_NEXT, SB_PAGEDOWN}, {VK_HOME, SB_TOP},      {VK_END, SB_BOTTOM},
    };
    for (const auto& each : kCodes) {
        if (each.key == wParam)
            Tell(bar.window, each.code);
    }
    return 0;
}

LRESULT OnGetDlgCode(ScrollBar&, WPARAM, LPARAM)
{
    return DLGC_WANTARROWS;
}

LRESULT OnRepaint(ScrollBar& bar, WPARAM, LPARAM)
{
    Repaint(bar.window);
    return 0;
}

LRESULT OnEnable(ScrollBar& bar, WPARAM wParam, LPARAM)
{
    bar.blockedArrows = wParam ? ESB_ENABLE_BOTH : ESB_DISABLE_BOTH;
    Repaint(bar.window);
    return 0;
}

LRESULT OnPaint(ScrollBar& bar, WPARAM wParam, LPARAM)
{
    const ControlPaint paint(bar.window, wParam, nullptr);
    AskParentForColours(bar.window, paint.Dc(), WM_CTLCOLORSCROLLBAR);
    PaintScrollBar(paint.Dc(), ClientRectOf(bar.window), IsVertical(bar.window), LayoutOf(bar),
                   bar.press.inside ? bar.press.part : ScrollPart::none, bar.blockedArrows,
                   LookOf(bar.window));
    return 0;
}

LRESULT OnEraseBackground(ScrollBar&, WPARAM, LPARAM)
{
    return TRUE;
}

LRESULT OnSetInfo(ScrollBar& bar, WPARAM wParam, LPARAM lParam)
{
    const SCROLLINFO& info = *reinterpret_cast<const SCROLLINFO*>(lParam);
    const bool changed = ChangeScrollRange(bar.range, info);
    if (info.fMask & (SIF_RANGE | SIF_PAGE))
        bar.blockedArrows =
            bar.range.CanScroll() || !(info.fMask & SIF_DISABLENOSCROLL) ? ESB_ENABLE_BOTH : ESB_DISABLE_BOTH;
    if (changed && wParam)
        Repaint(bar.window);
    return bar.range.position;
}

LRESULT OnGetInfo(ScrollBar& bar, WPARAM, LPARAM lParam)
{
    return ReadScrollRange(bar.range, bar.press, *reinterpret_cast<SCROLLINFO*>(lParam));
}

LRESULT OnSetPos(ScrollBar& bar, WPARAM wParam, LPARAM lParam)
{
    const int before = bar.range.position;
    const SCROLLINFO info = {sizeof(info), SIF_POS, 0, 0, 0, static_cast<int>(wParam), 0};
    OnSetInfo(bar, static_cast<WPARAM>(lParam), reinterpret_cast<LPARAM>(&info));
    return before;
}

LRESULT OnGetPos(ScrollBar& bar, WPARAM, LPARAM)
{
    return bar.range.position;
}

LRESULT SetRange(ScrollBar& bar, WPARAM wParam, LPARAM lParam, bool redraw)
{
    const int before = bar.range.position;
    const SCROLLINFO info = {
        sizeof(info), SIF_RANGE, static_cast<int>(wParam), static_cast<int>(lParam), 0, 0, 0};
    OnSetInfo(bar, redraw, reinterpret_cast<LPARAM>(&info));
    return bar.range.position != before ? before : 0;
}

LRESULT OnSetRange(ScrollBar& bar, WPARAM wParam, LPARAM lParam)
{
    return SetRange(bar, wParam, lParam, false);
}

LRESULT OnSetRangeRedraw(ScrollBar& bar, WPARAM wParam, LPARAM lParam)
{
    return SetRange(bar, wParam, lParam, true);
}

LRESULT OnGetRange(ScrollBar& bar, WPARAM wParam, LPARAM lParam)
{
    if (wParam != 0)
        *reinterpret_cast<int*>(wParam) = bar.range.minimum;
    if (lParam != 0)
        *reinterpret_cast<int*>(lParam) = bar.range.maximum;
    return 0;
}

LRESULT OnEnableArrows(ScrollBar& bar, WPARAM wParam, LPARAM)
{
    const UINT blocked = static_cast<UINT>(wParam) & ESB_DISABLE_BOTH;
    const bool changed = blocked != bar.blockedArrows;
    bar.blockedArrows = blocked;
    Repaint(bar.window);
    return changed;
}

/// The alignment styles put a bar of the usual thickness along one side of the rectangle it was made with.
LRESULT OnCreate(ScrollBar& bar, WPARAM, LPARAM lParam)
{
    const CREATESTRUCTW& create = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
    const bool first = (create.style & SBS_TOPALIGN) != 0;
    const bool last = (create.style & SBS_BOTTOMALIGN) != 0;
    if (create.style & SBS_VERT) {
        const int width = GetSystemMetrics(SM_CXVSCROLL);
        if (first || last)
            MoveWindow(bar.window, first ? create.x : create.x + create.cx - width, create.y, width,
                       create.cy, FALSE);
    } else if (first || last) {
        const int height = GetSystemMetrics(SM_CYHSCROLL);
        MoveWindow(bar.window, create.x, first ? create.y : create.y + create.cy - height, create.cx, height,
                   FALSE);
    }
    return 0;
}

constexpr MessageRow<ScrollBar> kMessages[] = {
    {WM_CREATE, OnCreate},
    {WM_SETFOCUS, OnRepaint},
    {WM_KILLFOCUS, OnRepaint},
    {WM_ENABLE, OnEnable},
    {WM_PAINT, OnPaint},
    {WM_ERASEBKGND, OnEraseBackground},
    {WM_GETDLGCODE, OnGetDlgCode},
    {SBM_SETPOS, OnSetPos},
    {SBM_GETPOS, OnGetPos},
    {SBM_SETRANGE, OnSetRange},
    {SBM_GETRANGE, OnGetRange},
    {SBM_ENABLE_ARROWS, OnEnableArrows},
    {SBM_SETRANGEREDRAW, OnSetRangeRedraw},
    {SBM_SETSCROLLINFO, OnSetInfo},
    {SBM_GETSCROLLINFO, OnGetInfo},
    {WM_KEYDOWN, OnKeyDown},
    {WM_TIMER, OnTimer},
    {WM_MOUSEMOVE, OnMouseMove},
    {WM_LBUTTONDOWN, OnMouseDown},
    {WM_LBUTTONUP, OnMouseUp},
    {WM_LBUTTONDBLCLK, OnMouseDown},
    {WM_CAPTURECHANGED, OnMouseUp},
    {WM_PRINTCLIENT, OnPaint},
};
static_assert(InOrder<ScrollBar>(kMessages));

/// The part of `bar` from `start` on along it.
RECT Piece(const RECT& bar, bool vertical, int start, int length)
{
    if (vertical)
        return {bar.left, bar.top + start, bar.right, bar.top + start + length};
    return {bar.left + start, bar.top, bar.left + start + length, bar.bottom};
}

void PaintArrowButton(HDC dc, const RECT& rect, theme::Arrow direction, bool pressed, bool enabled)
{
    theme::Fill(dc, rect, pressed ? theme::kThumbPressed : theme::kTrack);
    const COLORREF glyph = !enabled ? theme::kThumb : pressed ? theme::kField : theme::kGlyph;
    theme::DrawArrow(dc, rect, direction, glyph);
}

} // namespace

void PaintScrollBar(HDC dc, const RECT& rect, bool vertical, const ScrollLayout& layout, ScrollPart pressed,
                    UINT blockedArrows, const theme::Look& look)
{
    theme::Fill(dc, rect, theme::kTrack);
    PaintArrowButton(dc, Piece(rect, vertical, 0, layout.arrow),
                     vertical ? theme::Arrow::up : theme::Arrow::left, pressed == ScrollPart::lineUp,
                     look.enabled && !(blockedArrows & ESB_DISABLE_LTUP));
    PaintArrowButton(dc, Piece(rect, vertical, layout.length - layout.arrow, layout.arrow),
                     vertical ? theme::Arrow::down : theme::Arrow::right, pressed == ScrollPart::lineDown,
                     look.enabled && !(blockedArrows & ESB_DISABLE_RTDN));
    if (layout.thumbLength == 0 || !look.enabled || blockedArrows == ESB_DISABLE_BOTH)
        return;
    RECT thumb = Piece(rect, vertical, layout.thumb, layout.thumbLength);
    InflateRect(&thumb, vertical ? -2 : 0, vertical ? 0 : -2);
    theme::Fill(dc, thumb,
                pressed == ScrollPart::thumb ? theme::kThumbPressed
                : look.focused               ? theme::kAccent
                                             : theme::kThumb);
}

LRESULT CALLBACK ScrollBarProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunRows<ScrollBar>(kMessages, window, message, wParam, lParam);
}

} // namespace host
