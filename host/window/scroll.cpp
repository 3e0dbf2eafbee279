// The scroll bars that are parts of windows. Those that are windows themselves answer SBM_ messages.
#include "host/window/controls/scroll_bar.h"
#include "host/window/controls/theme.h"
#include "host/window/room.h"

namespace host {
namespace {

constexpr UINT kFirstRepeat = 400; // ms
constexpr UINT kRepeat = 50;       // ms
constexpr UINT_PTR kRepeatTimer = 0xFFF0;

FrameScrollBar* BarOf(Window& window, int bar)
{
    return bar == SB_HORZ || bar == SB_VERT ? &window.scrollBars[static_cast<size_t>(bar)] : nullptr;
}

/// A place on the desktop as the bar sees it.
struct Place
{
    int along;
    int beside; // pixels off its sides
};

struct Geometry
{
    RECT rect;    // window coordinates
    POINT origin; // of the window, on the desktop
    ScrollLayout layout;
    bool vertical;

    Place PlaceOf(POINT point) const
    {
        const POINT inside = {point.x - origin.x - rect.left, point.y - origin.y - rect.top};
        const SIZE size = SizeOf(rect);
        return vertical ? Place{inside.y, PixelsBeside(inside.x, size.cx)}
                        : Place{inside.x, PixelsBeside(inside.y, size.cy)};
    }
};

Geometry GeometryOf(const Window& window, int bar)
{
    const FrameScrollBar& of = window.scrollBars[static_cast<size_t>(bar)];
    Geometry result = {};
    result.vertical = bar == SB_VERT;
    result.rect = ScrollBarRect(window, bar);
    result.origin = WindowOrigin(window);
    const SIZE size = SizeOf(result.rect);
    result.layout = LayOutScrollBar(ShownRange(of.range, of.press), result.vertical ? size.cy : size.cx,
                                    theme::kArrowLength);
    return result;
}

/// `code` is kNoScrollCode for nothing to tell.
void Notify(HWND window, int bar, int code, int position = 0)
{
    if (code == kNoScrollCode)
        return;
    const bool carriesPosition = code == SB_THUMBPOSITION || code == SB_THUMBTRACK;
    SendMessageW(window, bar == SB_VERT ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(code, carriesPosition ? position : 0), 0);
}

void Repaint(HWND handle, int bar)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr || !IsShown(*window) || IsEmpty(ScrollBarRect(*window, bar)))
        return;
    const HDC dc = GetWindowDC(handle);
    PaintFrameScrollBar(dc, *window, bar);
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

/// Follows the pointer from the press on a bar until the button is up or the capture is lost.
void FollowPress(Window& window, int bar, Place place)
{
    const HWND handle = window.handle;
    FrameScrollBar& of = window.scrollBars[static_cast<size_t>(bar)];
    MSG message;
    while (NextWhileCaptured(handle, message)) {
        if (message.message == WM_LBUTTONUP)
            break;
        if (message.message == WM_MOUSEMOVE) {
            const Geometry now = GeometryOf(window, bar);
            POINT point = {static_cast<short>(LOWORD(message.lParam)),
                           static_cast<short>(HIWORD(message.lParam))};
            ClientToScreen(message.hwnd, &point);
            place = now.PlaceOf(point);
            const int code = MoveOnScrollBar(of.press, of.range, now.layout, place.along, place.beside);
            Notify(handle, bar, code, of.press.trackPosition);
            Repaint(handle, bar);
        } else if (message.message == WM_TIMER && message.hwnd == handle && message.wParam == kRepeatTimer) {
            SetTimer(handle, kRepeatTimer, kRepeat, nullptr);
            Notify(handle, bar, RepeatOnScrollBar(of.press, GeometryOf(window, bar).layout, place.along));
        } else if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST) {
            DispatchMessageW(&message);
        }
    }
}

int Apply(HWND handle, int bar, const SCROLLINFO& info, bool redraw)
{
    if (bar == SB_CTL)
        return static_cast<int>(
            SendMessageW(handle, SBM_SETSCROLLINFO, redraw, reinterpret_cast<LPARAM>(&info)));
    const WindowPtr window = WindowOf(handle);
    FrameScrollBar* const of = window != nullptr ? BarOf(*window, bar) : nullptr;
    if (of == nullptr)
        return 0;
    const bool changed = ChangeScrollRange(of->range, info);
    if ((info.fMask & (SIF_RANGE | SIF_PAGE)) != 0) {
        const DWORD style = bar == SB_VERT ? WS_VSCROLL : WS_HSCROLL;
        const bool keeps = (info.fMask & SIF_DISABLENOSCROLL) != 0;
        of->blockedArrows = of->range.CanScroll() ? ESB_ENABLE_BOTH : ESB_DISABLE_BOTH;
        if (ShowBars(*window, style, of->range.CanScroll() || keeps))
            return of->range.position;
    }
    if (redraw && changed)
        Repaint(handle, bar);
    return of->range.position;
}

} // namespace

void PaintFrameScrollBar(HDC dc, const Window& window, int bar)
{
    const Geometry geometry = GeometryOf(window, bar);
    if (dc == nullptr || IsEmpty(geometry.rect))
        return;
    const FrameScrollBar& of = window.scrollBars[static_cast<size_t>(bar)];
    const bool enabled = of.blockedArrows != ESB_DISABLE_BOTH && (window.style & WS_DISABLED) == 0;
    PaintScrollBar(dc, geometry.rect, geometry.vertical, geometry.layout,
                   of.press.inside ? of.press.part : ScrollPart::none, of.blockedArrows, {enabled});
}

void TrackScrollBar(HWND handle, int bar, POINT point)
{
    const WindowPtr window = LookUp(handle);
    if (window == nullptr || (window->style & WS_DISABLED) != 0)
        return;
    FrameScrollBar& of = window->scrollBars[static_cast<size_t>(bar)];
    const Geometry start = GeometryOf(*window, bar);
    const Place place = start.PlaceOf(point);
    const ScrollPart part = ScrollPartAt(start.layout, place.along);
    if (part == ScrollPart::none || IsBlockedPart(part, of.blockedArrows))
        return;
    SetCapture(handle);
    const int code = PressScrollBar(of.press, of.range, start.layout, place.along);
    Repaint(handle, bar);
    if (part != ScrollPart::thumb)
        SetTimer(handle, kRepeatTimer, kFirstRepeat, nullptr);
    Notify(handle, bar, code, of.press.trackPosition);
    FollowPress(*window, bar, place);
    KillTimer(handle, kRepeatTimer);
    const int position = of.press.trackPosition;
    of.press = {};
    if (GetCapture() == handle)
        ReleaseCapture();
    Repaint(handle, bar);
    if (part == ScrollPart::thumb)
        Notify(handle, bar, SB_THUMBPOSITION, position);
    Notify(handle, bar, SB_ENDSCROLL);
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
    const FrameScrollBar* const of = window != nullptr ? BarOf(*window, bar) : nullptr;
    if (of == nullptr)
        return FailWith(ERROR_NO_SCROLLBARS);
    return ReadScrollRange(of->range, of->press, *info);
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
            window->scrollBars[static_cast<size_t>(each)].blockedArrows = arrows;
            Repaint(handle, each);
        }
    }
    return TRUE;
}
