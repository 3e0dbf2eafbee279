// The scroll bars that are parts of windows. Those that are windows themselves answer SBM_ messages.
#include "host/window/controls/scroll_parts.h"
#include "host/window/controls/theme.h"
#include "host/window/room.h"

namespace host {
namespace {

constexpr UINT kFirstRepeat = 400; // ms
constexpr UINT kRepeat = 50;       // ms
constexpr UINT_PTR kRepeatTimer = 0xFFF0;

ScrollBar* BarOf(Window& window, int bar)
{
    return bar == SB_HORZ || bar == SB_VERT ? &window.scrollBars[static_cast<size_t>(bar)] : nullptr;
}

ScrollRange RangeOf(const ScrollBar& bar)
{
    return {bar.minimum, bar.maximum, bar.page, bar.tracking ? bar.trackPosition : bar.position};
}

struct Geometry
{
    RECT rect;    // window coordinates
    POINT origin; // of the window, on the desktop
    ScrollLayout layout;
    bool vertical;

    int PlaceOf(POINT point) const
    {
        return vertical ? point.y - origin.y - rect.top : point.x - origin.x - rect.left;
    }
    bool Holds(POINT point) const
    {
        const POINT inside = {point.x - origin.x, point.y - origin.y};
        return PtInRect(&rect, inside);
    }
};

Geometry GeometryOf(const Window& window, int bar)
{
    Geometry result = {};
    result.vertical = bar == SB_VERT;
    result.rect = ScrollBarRect(window, bar);
    result.origin = WindowOrigin(window);
    const SIZE size = SizeOf(result.rect);
    result.layout = LayOutScrollBar(RangeOf(window.scrollBars[static_cast<size_t>(bar)]),
                                    result.vertical ? size.cy : size.cx, theme::kArrowLength);
    return result;
}

RECT Piece(const Geometry& g, int start, int length)
{
    if (g.vertical)
        return {g.rect.left, g.rect.top + start, g.rect.right, g.rect.top + start + length};
    return {g.rect.left + start, g.rect.top, g.rect.left + start + length, g.rect.bottom};
}

void Notify(HWND window, int bar, WORD code, int position)
{
    SendMessageW(window, bar == SB_VERT ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(code, position), 0);
}

void Repaint(HWND handle, int bar)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr || !IsShown(*window) || IsEmpty(ScrollBarRect(*window, bar)))
        return;
    const HDC dc = GetWindowDC(handle);
    PaintScrollBar(dc, *window, bar);
    ReleaseDC(handle, dc);
}

/// Shows or hides bars whose style is to change, and lets the frame be laid out again.
bool ShowBars(Window& window, DWORD bars, bool show)
{
    const DWORD style = show ? window.style | bars : window.style & ~bars;
    if (style == window.style)
        return false;
    window.style = style;
    SetWindowPos(window.handle, nullptr, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    return true;
}

void DragThumb(HWND handle, int bar, POINT from)
{
    const WindowPtr window = LookUp(handle);
    ScrollBar& of = window->scrollBars[static_cast<size_t>(bar)];
    const Geometry start = GeometryOf(*window, bar);
    const ScrollRange range = RangeOf(of);
    of.tracking = true;
    of.trackPosition = of.position;
    MSG message;
    while (GetCapture() == handle && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_LBUTTONUP)
            break;
        if (message.message != WM_MOUSEMOVE) {
            DispatchMessageW(&message);
            continue;
        }
        const int moved = start.PlaceOf(message.pt) - start.PlaceOf(from);
        of.trackPosition = ScrollPositionOfThumb(range, start.layout, start.layout.thumb + moved);
        Notify(handle, bar, SB_THUMBTRACK, of.trackPosition);
        Repaint(handle, bar);
    }
    const int position = of.trackPosition;
    of.tracking = false;
    Notify(handle, bar, SB_THUMBPOSITION, position);
}

/// Repeats a step as long as the mouse stays on its part.
void RepeatStep(HWND handle, int bar, ScrollPart part)
{
    Notify(handle, bar, CodeOfScrollPart(part), 0);
    SetTimer(handle, kRepeatTimer, kFirstRepeat, nullptr);
    MSG message;
    while (GetCapture() == handle && GetMessageW(&message, nullptr, 0, 0) > 0) {
        const WindowPtr window = LookUp(handle);
        if (message.message == WM_LBUTTONUP || window == nullptr)
            break;
        if (message.message == WM_TIMER && message.hwnd == handle && message.wParam == kRepeatTimer) {
            SetTimer(handle, kRepeatTimer, kRepeat, nullptr);
            POINT point;
            GetCursorPos(&point);
            const Geometry now = GeometryOf(*window, bar);
            if (now.Holds(point) && ScrollPartAt(now.layout, now.PlaceOf(point)) == part)
                Notify(handle, bar, CodeOfScrollPart(part), 0);
        } else if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST) {
            DispatchMessageW(&message);
        }
    }
    KillTimer(handle, kRepeatTimer);
}

int Apply(HWND handle, int bar, const SCROLLINFO& info, bool redraw)
{
    if (bar == SB_CTL)
        return static_cast<int>(
            SendMessageW(handle, SBM_SETSCROLLINFO, redraw, reinterpret_cast<LPARAM>(&info)));
    const WindowPtr window = WindowOf(handle);
    ScrollBar* const of = window != nullptr ? BarOf(*window, bar) : nullptr;
    if (of == nullptr)
        return 0;
    ScrollRange range = {of->minimum, of->maximum, of->page, of->position};
    const bool changed = ChangeScrollRange(range, info);
    of->minimum = range.minimum;
    of->maximum = range.maximum;
    of->page = range.page;
    of->position = range.position;
    if ((info.fMask & (SIF_RANGE | SIF_PAGE)) != 0) {
        const DWORD style = bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
        const bool keeps = (info.fMask & SIF_DISABLENOSCROLL) != 0;
        of->disabled = range.CanScroll() ? ESB_ENABLE_BOTH : ESB_DISABLE_BOTH;
        if (ShowBars(*window, style, range.CanScroll() || keeps))
            return range.position;
    }
    if (redraw && changed)
        Repaint(handle, bar);
    return range.position;
}

} // namespace

void PaintScrollBar(HDC dc, const Window& window, int bar)
{
    const Geometry g = GeometryOf(window, bar);
    if (dc == nullptr || IsEmpty(g.rect))
        return;
    const ScrollBar& of = window.scrollBars[static_cast<size_t>(bar)];
    const bool enabled = of.disabled != ESB_DISABLE_BOTH && (window.style & WS_DISABLED) == 0;
    const COLORREF glyph = enabled ? theme::kGlyph : theme::kDisabledText;
    theme::Fill(dc, g.rect, theme::kTrack);
    theme::DrawArrow(dc, Piece(g, 0, g.layout.arrow), g.vertical ? theme::Arrow::up : theme::Arrow::left,
                     glyph);
    theme::DrawArrow(dc, Piece(g, g.layout.length - g.layout.arrow, g.layout.arrow),
                     g.vertical ? theme::Arrow::down : theme::Arrow::right, glyph);
    if (g.layout.thumbLength > 0 && enabled) {
        RECT thumb = Piece(g, g.layout.thumb, g.layout.thumbLength);
        InflateRect(&thumb, g.vertical ? -3 : 0, g.vertical ? 0 : -3);
        theme::Fill(dc, thumb, of.tracking ? theme::kThumbPressed : theme::kThumb);
    }
}

void TrackScrollBar(HWND handle, int bar, POINT point)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr || (window->style & WS_DISABLED) != 0)
        return;
    const Geometry g = GeometryOf(*window, bar);
    const ScrollPart part = ScrollPartAt(g.layout, g.PlaceOf(point));
    if (part == ScrollPart::none)
        return;
    SetCapture(handle);
    if (part == ScrollPart::thumb)
        DragThumb(handle, bar, point);
    else
        RepeatStep(handle, bar, part);
    if (GetCapture() == handle)
        ReleaseCapture();
    if (LookUp(handle) == nullptr)
        return;
    Notify(handle, bar, SB_ENDSCROLL, 0);
    Repaint(handle, bar);
}

} // namespace host

using namespace host;

int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw)
{
    HOST_CALL_VOID(SetScrollInfo);
    return info != nullptr ? Apply(window, bar, *info, redraw) : 0;
}

BOOL WINAPI GetScrollInfo(HWND handle, int bar, LPSCROLLINFO info)
{
    HOST_CALL(GetScrollInfo, FALSE, ERROR_NO_SCROLLBARS);
    if (info == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    if (bar == SB_CTL)
        return static_cast<BOOL>(SendMessageW(handle, SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(info)));
    const WindowPtr window = WindowOf(handle);
    const ScrollBar* const of = window != nullptr ? BarOf(*window, bar) : nullptr;
    if (of == nullptr)
        return FailWith(ERROR_NO_SCROLLBARS);
    if ((info->fMask & SIF_RANGE) != 0) {
        info->nMin = of->minimum;
        info->nMax = of->maximum;
    }
    if ((info->fMask & SIF_PAGE) != 0)
        info->nPage = of->page;
    if ((info->fMask & SIF_POS) != 0)
        info->nPos = of->position;
    if ((info->fMask & SIF_TRACKPOS) != 0)
        info->nTrackPos = of->tracking ? of->trackPosition : of->position;
    return (info->fMask & SIF_ALL) != 0;
}

int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw)
{
    HOST_CALL_VOID(SetScrollPos);
    const int previous = GetScrollPos(window, bar);
    const SCROLLINFO info = {sizeof info, SIF_POS, 0, 0, 0, position, 0};
    Apply(window, bar, info, redraw);
    return previous;
}

int WINAPI GetScrollPos(HWND window, int bar)
{
    HOST_CALL_VOID(GetScrollPos);
    SCROLLINFO info = {sizeof info, SIF_POS, 0, 0, 0, 0, 0};
    return GetScrollInfo(window, bar, &info) ? info.nPos : 0;
}

BOOL WINAPI SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw)
{
    HOST_CALL(SetScrollRange, FALSE, ERROR_INVALID_SCROLLBAR_RANGE);
    if (WindowOf(window) == nullptr)
        return FALSE;
    if (static_cast<int64_t>(maximum) - minimum > INT32_MAX)
        return FailWith(ERROR_INVALID_SCROLLBAR_RANGE);
    const SCROLLINFO info = {sizeof info, SIF_RANGE, minimum, maximum, 0, 0, 0};
    Apply(window, bar, info, redraw);
    return TRUE;
}

BOOL WINAPI GetScrollRange(HWND window, int bar, int* minimum, int* maximum)
{
    HOST_CALL(GetScrollRange, FALSE, ERROR_NO_SCROLLBARS);
    SCROLLINFO info = {sizeof info, SIF_RANGE, 0, 0, 0, 0, 0};
    if (!GetScrollInfo(window, bar, &info))
        return FALSE;
    if (minimum != nullptr)
        *minimum = info.nMin;
    if (maximum != nullptr)
        *maximum = info.nMax;
    return TRUE;
}

BOOL WINAPI ShowScrollBar(HWND handle, int bar, BOOL show)
{
    HOST_CALL(ShowScrollBar, FALSE, ERROR_NO_SCROLLBARS);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    constexpr DWORD kStyles[] = {WS_HSCROLL, WS_VSCROLL, 0, WS_HSCROLL | WS_VSCROLL};
    if (bar < SB_HORZ || bar > SB_BOTH)
        return FailWith(ERROR_INVALID_PARAMETER);
    if (bar == SB_CTL)
        ShowWindow(handle, show ? SW_SHOW : SW_HIDE);
    else
        ShowBars(*window, kStyles[bar], show != FALSE);
    return TRUE;
}

BOOL WINAPI EnableScrollBar(HWND handle, UINT bar, UINT arrows)
{
    HOST_CALL(EnableScrollBar, FALSE, ERROR_NO_SCROLLBARS);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if (bar == SB_CTL)
        return static_cast<BOOL>(SendMessageW(handle, SBM_ENABLE_ARROWS, arrows, 0));
    for (const int each : {SB_HORZ, SB_VERT}) {
        if (bar == static_cast<UINT>(each) || bar == SB_BOTH) {
            window->scrollBars[static_cast<size_t>(each)].disabled = arrows;
            Repaint(handle, each);
        }
    }
    return TRUE;
}
