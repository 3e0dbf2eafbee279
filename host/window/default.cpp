// What windows do with messages that their procedures leave to the system.
#include <algorithm>

#include "host/window/handles.h"

namespace host {
namespace {

using Handler = LRESULT (*)(Window& window, WPARAM wParam, LPARAM lParam);

LRESULT OnNcCreate(Window& window, WPARAM, LPARAM lParam)
{
    const auto* const create = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    if (create != nullptr && create->lpszName != nullptr && !IS_INTRESOURCE(create->lpszName)) {
        std::lock_guard lock(WindowLock());
        window.text = create->lpszName;
    }
    return TRUE;
}

LRESULT OnNcCalcSize(Window& window, WPARAM, LPARAM lParam)
{
    // NCCALCSIZE_PARAMS begins with the rectangle that the other form of the message consists of.
    return CalculateClient(window, *reinterpret_cast<RECT*>(lParam));
}

LRESULT OnNcHitTest(Window& window, WPARAM, LPARAM lParam)
{
    return HitTest(window, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
}

LRESULT OnNcPaint(Window& window, WPARAM, LPARAM)
{
    PaintFrame(window);
    return 0;
}

LRESULT OnNcActivate(Window& window, WPARAM wParam, LPARAM)
{
    window.activeFrame = wParam != 0;
    PaintFrame(window);
    return TRUE;
}

LRESULT OnSetText(Window& window, WPARAM, LPARAM lParam)
{
    const auto* const text = reinterpret_cast<LPCWSTR>(lParam);
    {
        std::lock_guard lock(WindowLock());
        window.text = text != nullptr ? text : TEXT("");
    }
    if (IsShown(window) && (window.style & WS_CAPTION) == WS_CAPTION)
        PaintFrame(window);
    return TRUE;
}

LRESULT OnGetText(Window& window, WPARAM wParam, LPARAM lParam)
{
    return CopyWindowText(window, wParam, lParam);
}

LRESULT OnGetTextLength(Window& window, WPARAM, LPARAM)
{
    return static_cast<LRESULT>(window.text.size());
}

LRESULT OnClose(Window& window, WPARAM, LPARAM)
{
    DestroyWindow(window.handle);
    return 0;
}

LRESULT OnPaint(Window& window, WPARAM, LPARAM)
{
    PAINTSTRUCT paint;
    BeginPaint(window.handle, &paint);
    EndPaint(window.handle, &paint);
    return 0;
}

LRESULT OnEraseBackground(Window& window, WPARAM wParam, LPARAM)
{
    HBRUSH brush = window.windowClass->background;
    if (brush == nullptr)
        return 0;
    constexpr intptr_t kColors = 64; // a small number is a system colour plus one
    const auto number = reinterpret_cast<intptr_t>(brush);
    if (number <= kColors)
        brush = GetSysColorBrush(static_cast<int>(number) - 1);
    RECT area;
    const auto dc = reinterpret_cast<HDC>(wParam);
    GetClipBox(dc, &area);
    FillRect(dc, &area, brush);
    return 1;
}

LRESULT ColorsOfField(Window&, WPARAM wParam, LPARAM)
{
    const auto dc = reinterpret_cast<HDC>(wParam);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(COLOR_WINDOW));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
}

LRESULT ColorsOfFace(Window&, WPARAM wParam, LPARAM)
{
    const auto dc = reinterpret_cast<HDC>(wParam);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

LRESULT ColorsOfScrollBar(Window&, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_SCROLLBAR));
}

LRESULT OnWindowPosChanging(Window& window, WPARAM, LPARAM lParam)
{
    auto& place = *reinterpret_cast<WINDOWPOS*>(lParam);
    const bool limited = (window.style & WS_THICKFRAME) != 0 || (window.style & (WS_POPUP | WS_CHILD)) == 0;
    if ((place.flags & SWP_NOSIZE) != 0 || !limited)
        return 0;
    MINMAXINFO limits = {};
    limits.ptMaxSize = limits.ptMaxTrackSize = {kScreenWidth, kScreenHeight};
    limits.ptMinTrackSize = {GetSystemMetrics(SM_CXMIN), GetSystemMetrics(SM_CYMIN)};
    SendMessageW(window.handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    place.cx = std::min<int>(place.cx, limits.ptMaxTrackSize.x);
    place.cy = std::min<int>(place.cy, limits.ptMaxTrackSize.y);
    if ((window.style & WS_THICKFRAME) != 0) {
        place.cx = std::max<int>(place.cx, limits.ptMinTrackSize.x);
        place.cy = std::max<int>(place.cy, limits.ptMinTrackSize.y);
    }
    return 0;
}

LRESULT OnWindowPosChanged(Window& window, WPARAM, LPARAM lParam)
{
    constexpr UINT kNoClientSize = 0x0800;
    constexpr UINT kNoClientMove = 0x1000;
    const auto& place = *reinterpret_cast<const WINDOWPOS*>(lParam);
    const HWND handle = window.handle;
    const SIZE size = SizeOf(window.client);
    if ((place.flags & kNoClientMove) == 0)
        SendMessageW(handle, WM_MOVE, 0,
                     MAKELPARAM(window.rect.left + window.client.left, window.rect.top + window.client.top));
    if ((place.flags & kNoClientSize) == 0 && LookUp(handle) != nullptr)
        SendMessageW(handle, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx, size.cy));
    return 0;
}

LRESULT OnSetRedraw(Window& window, WPARAM wParam, LPARAM)
{
    // As on the platform this is the visible style: nothing is marked for painting meanwhile, and what was
    // marked before is forgotten.
    if (wParam != 0) {
        window.style |= WS_VISIBLE;
        return 0;
    }
    window.style &= ~static_cast<DWORD>(WS_VISIBLE);
    window.update = {};
    return 0;
}

LRESULT OnMouseActivate(Window& window, WPARAM wParam, LPARAM lParam)
{
    if (IsChildStyle(window) && window.parent != nullptr) {
        const LRESULT answer = SendMessageW(window.parent->handle, WM_MOUSEACTIVATE, wParam, lParam);
        if (answer != 0)
            return answer;
    }
    return HIWORD(lParam) == WM_LBUTTONDOWN && LOWORD(lParam) == HTCAPTION ? MA_NOACTIVATE : MA_ACTIVATE;
}

LRESULT OnActivate(Window& window, WPARAM wParam, LPARAM)
{
    if (LOWORD(wParam) != WA_INACTIVE)
        SetFocus(window.handle);
    return 0;
}

LRESULT OnSetCursor(Window& window, WPARAM wParam, LPARAM lParam)
{
    if (IsChildStyle(window) && window.parent != nullptr && window.parent->queue == window.queue &&
        SendMessageW(window.parent->handle, WM_SETCURSOR, wParam, lParam))
        return TRUE;
    if (static_cast<short>(LOWORD(lParam)) == HTCLIENT) {
        const WindowPtr under = LookUp(reinterpret_cast<HWND>(wParam));
        if (under == nullptr || under.get() != &window || window.windowClass->cursor == nullptr)
            return FALSE;
        SetCursor(window.windowClass->cursor);
        return TRUE;
    }
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
    return TRUE;
}

/// Moves a window with the mouse until the button is up.
void DragWindow(HWND handle, POINT from)
{
    RECT start;
    GetWindowRect(handle, &start);
    SetCapture(handle);
    MSG message;
    while (NextWhileCaptured(handle, message)) {
        if (message.message == WM_MOUSEMOVE) {
            SetWindowPos(handle, nullptr, start.left + message.pt.x - from.x,
                         start.top + message.pt.y - from.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        } else if (message.message == WM_LBUTTONUP) {
            break;
        } else {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    if (GetCapture() == handle)
        ReleaseCapture();
}

/// Runs a caption button's command when the mouse is let go on it.
void PressCaptionButton(Window& window, LRESULT part, WPARAM command)
{
    const HWND handle = window.handle;
    SetCapture(handle);
    MSG message;
    bool pressed = false;
    while (NextWhileCaptured(handle, message)) {
        if (message.message == WM_LBUTTONUP) {
            pressed = HitTest(window, message.pt) == part;
            break;
        }
        if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST)
            DispatchMessageW(&message);
    }
    if (GetCapture() == handle)
        ReleaseCapture();
    if (pressed)
        SendMessageW(handle, WM_SYSCOMMAND, command, MAKELPARAM(message.pt.x, message.pt.y));
}

LRESULT OnNcLeftButtonDown(Window& window, WPARAM wParam, LPARAM lParam)
{
    const POINT point = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (wParam) {
    case HTCLOSE:
        PressCaptionButton(window, HTCLOSE, SC_CLOSE);
        break;
    case HTHELP:
        PressCaptionButton(window, HTHELP, SC_CONTEXTHELP);
        break;
    case HTVSCROLL:
        TrackScrollBar(window.handle, SB_VERT, point);
        break;
    case HTHSCROLL:
        TrackScrollBar(window.handle, SB_HORZ, point);
        break;
    case HTCAPTION:
        Activate(TopLevelOf(window).handle, true);
        SendMessageW(window.handle, WM_SYSCOMMAND, SC_MOVE | HTCAPTION, lParam);
        break;
    }
    return 0;
}

LRESULT OnSysCommand(Window& window, WPARAM wParam, LPARAM lParam)
{
    constexpr WPARAM kCommand = 0xFFF0; // the low four bits are the system's own
    switch (wParam & kCommand) {
    case SC_CLOSE:
        SendMessageW(window.handle, WM_CLOSE, 0, 0);
        break;
    case SC_CONTEXTHELP:
        RunHelpMode(window.handle);
        break;
    case SC_MOVE:
        DragWindow(window.handle, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
        break;
    }
    return 0;
}

LRESULT OnRightButtonUp(Window& window, WPARAM, LPARAM lParam)
{
    POINT point = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    ClientToScreen(window.handle, &point);
    SendMessageW(window.handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.handle),
                 MAKELPARAM(point.x, point.y));
    return 0;
}

LRESULT PassToParent(Window& window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (!IsChildStyle(window) || window.parent == nullptr || window.parent->parent == nullptr)
        return 0;
    return SendMessageW(window.parent->handle, message, wParam, lParam);
}

LRESULT OnContextMenu(Window& window, WPARAM wParam, LPARAM lParam)
{
    return PassToParent(window, WM_CONTEXTMENU, wParam, lParam);
}

LRESULT OnHelp(Window& window, WPARAM wParam, LPARAM lParam)
{
    PassToParent(window, WM_HELP, wParam, lParam);
    return TRUE;
}

LRESULT OnMouseWheel(Window& window, WPARAM wParam, LPARAM lParam)
{
    return PassToParent(window, WM_MOUSEWHEEL, wParam, lParam);
}

LRESULT OnHelpKey(Window& window, WPARAM, LPARAM)
{
    SendHelp(window.handle);
    return 0;
}

LRESULT OnSysKeyDown(Window& window, WPARAM wParam, LPARAM lParam)
{
    if (wParam == VK_F4 && (HIWORD(lParam) & KF_ALTDOWN) != 0) {
        const Window& top = TopLevelOf(window);
        if ((top.style & WS_SYSMENU) != 0)
            PostMessageW(top.handle, WM_SYSCOMMAND, SC_CLOSE, 0);
    }
    return 0;
}

LRESULT OnShowWindow(Window& window, WPARAM wParam, LPARAM lParam)
{
    if (lParam == 0 || (window.style & WS_POPUP) == 0 || window.owner == nullptr)
        return 0;
    ShowWindow(window.handle, wParam != 0 ? SW_SHOWNOACTIVATE : SW_HIDE);
    return 0;
}

LRESULT OnCancelMode(Window& window, WPARAM, LPARAM)
{
    EndMenuOf(window.handle);
    if (GetCapture() == window.handle)
        ReleaseCapture();
    return 0;
}

LRESULT OnSetIcon(Window& window, WPARAM wParam, LPARAM lParam)
{
    if (wParam >= window.icons.size())
        return 0;
    return reinterpret_cast<LRESULT>(std::exchange(window.icons[wParam], reinterpret_cast<HICON>(lParam)));
}

LRESULT OnGetIcon(Window& window, WPARAM wParam, LPARAM)
{
    const size_t index = wParam == ICON_SMALL2 ? ICON_SMALL : wParam;
    return index < window.icons.size() ? reinterpret_cast<LRESULT>(window.icons[index]) : 0;
}

LRESULT OnStyleChanged(Window& window, WPARAM, LPARAM)
{
    window.frameInvalid = true;
    return 0;
}

/// The whole window into another device context: PRF_CLIENT and PRF_ERASEBKGND, children too.
LRESULT OnPrint(Window& window, WPARAM wParam, LPARAM lParam)
{
    const auto dc = reinterpret_cast<HDC>(wParam);
    if ((lParam & PRF_CHECKVISIBLE) != 0 && !IsShown(window))
        return 0;
    if ((lParam & PRF_ERASEBKGND) != 0)
        SendMessageW(window.handle, WM_ERASEBKGND, wParam, 0);
    if ((lParam & PRF_CLIENT) != 0)
        SendMessageW(window.handle, WM_PRINTCLIENT, wParam, lParam);
    if ((lParam & PRF_CHILDREN) == 0)
        return 0;
    for (const HWND handle : ChildrenOf(window)) {
        const WindowPtr child = LookUp(handle);
        if (child == nullptr || !IsVisibleStyle(*child))
            continue;
        const POINT offset = {child->rect.left + child->client.left, child->rect.top + child->client.top};
        SaveDC(dc);
        OffsetViewportOrgEx(dc, offset.x, offset.y, nullptr);
        const SIZE size = SizeOf(child->client);
        IntersectClipRect(dc, 0, 0, size.cx, size.cy);
        SendMessageW(handle, WM_PRINT, wParam, lParam);
        RestoreDC(dc, -1);
    }
    return 0;
}

struct Row
{
    UINT message;
    Handler handle;
};

constexpr Row kHandlers[] = {
    {WM_ACTIVATE, OnActivate},
    {WM_SETREDRAW, OnSetRedraw},
    {WM_SETTEXT, OnSetText},
    {WM_GETTEXT, OnGetText},
    {WM_GETTEXTLENGTH, OnGetTextLength},
    {WM_PAINT, OnPaint},
    {WM_CLOSE, OnClose},
    {WM_ERASEBKGND, OnEraseBackground},
    {WM_SHOWWINDOW, OnShowWindow},
    {WM_CANCELMODE, OnCancelMode},
    {WM_SETCURSOR, OnSetCursor},
    {WM_MOUSEACTIVATE, OnMouseActivate},
    {WM_WINDOWPOSCHANGING, OnWindowPosChanging},
    {WM_WINDOWPOSCHANGED, OnWindowPosChanged},
    {kHelpKeyMessage, OnHelpKey},
    {WM_HELP, OnHelp},
    {WM_CONTEXTMENU, OnContextMenu},
    {WM_STYLECHANGED, OnStyleChanged},
    {WM_GETICON, OnGetIcon},
    {WM_SETICON, OnSetIcon},
    {WM_NCCREATE, OnNcCreate},
    {WM_NCCALCSIZE, OnNcCalcSize},
    {WM_NCHITTEST, OnNcHitTest},
    {WM_NCPAINT, OnNcPaint},
    {WM_NCACTIVATE, OnNcActivate},
    {WM_NCLBUTTONDOWN, OnNcLeftButtonDown},
    {WM_NCLBUTTONDBLCLK, OnNcLeftButtonDown},
    {WM_SYSKEYDOWN, OnSysKeyDown},
    {WM_SYSCOMMAND, OnSysCommand},
    {WM_CTLCOLORMSGBOX, ColorsOfFace},
    {WM_CTLCOLOREDIT, ColorsOfField},
    {WM_CTLCOLORLISTBOX, ColorsOfField},
    {WM_CTLCOLORBTN, ColorsOfFace},
    {WM_CTLCOLORDLG, ColorsOfFace},
    {WM_CTLCOLORSCROLLBAR, ColorsOfScrollBar},
    {WM_CTLCOLORSTATIC, ColorsOfFace},
    {WM_RBUTTONUP, OnRightButtonUp},
    {WM_MOUSEWHEEL, OnMouseWheel},
    {WM_PRINT, OnPrint},
};
static_assert(std::is_sorted(std::begin(kHandlers), std::end(kHandlers),
                             [](const Row& a, const Row& b) { return a.message < b.message; }));

} // namespace
} // namespace host

using namespace host;

LRESULT WINAPI DefWindowProcW(HWND handle, UINT message, WPARAM wParam, LPARAM lParam)
{
    HOST_CALL_VOID(DefWindowProcW);
    const WindowPtr window = WindowOf(handle);
    if (window == nullptr)
        return 0;
    const Row* const row =
        std::lower_bound(std::begin(kHandlers), std::end(kHandlers), message,
                         [](const Row& each, UINT number) { return each.message < number; });
    return row != std::end(kHandlers) && row->message == message ? row->handle(*window, wParam, lParam) : 0;
}
