// The frames of windows: edges, caption and close button.
#include <algorithm>

#include "host/window/controls/theme.h"
#include "host/window/room.h"

namespace host {
namespace {

constexpr COLORREF kOutline = RGB(0x9A, 0x9E, 0xA5);
constexpr COLORREF kCaption = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF kCaptionText = RGB(0x1C, 0x1E, 0x21);
constexpr COLORREF kInactiveText = RGB(0x8A, 0x8E, 0x95);
constexpr COLORREF kFieldEdge = RGB(0xC4, 0xC7, 0xCC);
constexpr int kCloseWidth = 36;
constexpr int kCloseGlyph = 10;
constexpr int kTextMargin = 8;
constexpr int kIconMargin = 6;

bool HasCaption(DWORD style)
{
    return (style & WS_CAPTION) == WS_CAPTION;
}

int EdgeWidth(DWORD style, DWORD exStyle)
{
    int width = 0;
    if ((exStyle & (WS_EX_STATICEDGE | WS_EX_DLGMODALFRAME)) == WS_EX_STATICEDGE)
        width = 1;
    else if ((exStyle & WS_EX_DLGMODALFRAME) != 0 || (style & (WS_THICKFRAME | WS_DLGFRAME)) != 0)
        width = GetSystemMetrics(SM_CXEDGE);
    if ((style & WS_THICKFRAME) != 0)
        width += GetSystemMetrics(SM_CXFRAME) - GetSystemMetrics(SM_CXFIXEDFRAME);
    if ((style & (WS_BORDER | WS_DLGFRAME)) != 0 || (exStyle & WS_EX_DLGMODALFRAME) != 0)
        width += GetSystemMetrics(SM_CXBORDER);
    return width;
}

int ClientEdge(DWORD exStyle)
{
    return (exStyle & WS_EX_CLIENTEDGE) != 0 ? GetSystemMetrics(SM_CXEDGE) : 0;
}

bool HasCloseButton(const Window& window)
{
    return HasCaption(window.style) && (window.style & WS_SYSMENU) != 0;
}

/// The question mark that asks for help, left of the close button; empty without one.
RECT HelpButtonRect(const Window& window)
{
    if (!HasCloseButton(window) || (window.exStyle & WS_EX_CONTEXTHELP) == 0)
        return {};
    RECT rect = CloseButtonRect(window);
    OffsetRect(&rect, -kCloseWidth, 0);
    return rect;
}

void DrawCloseGlyph(HDC dc, const RECT& button, COLORREF color)
{
    const int x = (button.left + button.right - kCloseGlyph) / 2;
    const int y = (button.top + button.bottom - kCloseGlyph) / 2;
    const HPEN pen = CreatePen(PS_SOLID, 1, color);
    const HGDIOBJ previous = SelectObject(dc, pen);
    MoveToEx(dc, x, y, nullptr);
    LineTo(dc, x + kCloseGlyph, y + kCloseGlyph);
    MoveToEx(dc, x, y + kCloseGlyph - 1, nullptr);
    LineTo(dc, x + kCloseGlyph, y - 1);
    SelectObject(dc, previous);
    DeleteObject(pen);
}

HFONT CaptionFont()
{
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfCaptionFont);
}

void DrawCaption(HDC dc, const Window& window)
{
    RECT caption = CaptionRect(window);
    theme::Fill(dc, caption, kCaption);
    const COLORREF color = window.activeFrame ? kCaptionText : kInactiveText;
    if (HasCloseButton(window)) {
        const RECT button = CloseButtonRect(window);
        DrawCloseGlyph(dc, button, color);
        caption.right = button.left;
    }
    RECT help = HelpButtonRect(window);
    const HFONT font = CaptionFont();
    const HGDIOBJ previous = SelectObject(dc, font);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, color);
    if (!IsEmpty(help)) {
        DrawTextW(dc, TEXT("?"), 1, &help, DT_SINGLELINE | DT_VCENTER | DT_CENTER);
        caption.right = help.left;
    }
    if (const HICON icon = window.icons[ICON_SMALL]) {
        const int width = GetSystemMetrics(SM_CXSMICON), height = GetSystemMetrics(SM_CYSMICON);
        DrawIconEx(dc, caption.left + kIconMargin, (caption.top + caption.bottom - height) / 2, icon, width,
                   height, 0, nullptr, DI_NORMAL);
        caption.left += kIconMargin + width;
    }
    caption.left += kTextMargin;
    DrawTextW(dc, window.text.c_str(), static_cast<int>(window.text.size()), &caption,
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(dc, previous);
    DeleteObject(font);
}

void DrawEdges(HDC dc, const Window& window)
{
    const SIZE size = SizeOf(window.rect);
    RECT rect = {0, 0, size.cx, size.cy};
    const int width = EdgeWidth(window.style, window.exStyle);
    const COLORREF face = HasCaption(window.style) ? kCaption : GetSysColor(COLOR_BTNFACE);
    for (int i = 0; i < width; ++i) {
        theme::Frame(dc, rect, i > 0 ? face : IsChildStyle(window) ? kFieldEdge : kOutline);
        InflateRect(&rect, -1, -1);
    }
    if (HasCaption(window.style))
        rect.top += GetSystemMetrics(SM_CYCAPTION);
    if ((window.exStyle & WS_EX_CLIENTEDGE) != 0) {
        theme::Frame(dc, rect, kFieldEdge);
        InflateRect(&rect, -1, -1);
        theme::Frame(dc, rect, GetSysColor((window.style & WS_DISABLED) != 0 ? COLOR_BTNFACE : COLOR_WINDOW));
    }
}

RECT WindowRectOf(const Window& window)
{
    const SIZE size = SizeOf(window.rect);
    return {0, 0, size.cx, size.cy};
}

} // namespace

RECT FrameWidths(DWORD style, DWORD exStyle)
{
    const int edge = EdgeWidth(style, exStyle) + ClientEdge(exStyle);
    const int caption = HasCaption(style) ? GetSystemMetrics(SM_CYCAPTION) : 0;
    return {edge, edge + caption, edge, edge};
}

RECT CaptionRect(const Window& window)
{
    if (!HasCaption(window.style))
        return {};
    const int edge = EdgeWidth(window.style, window.exStyle);
    RECT rect = WindowRectOf(window);
    InflateRect(&rect, -edge, -edge);
    rect.bottom = rect.top + GetSystemMetrics(SM_CYCAPTION);
    return rect;
}

RECT CloseButtonRect(const Window& window)
{
    if (!HasCloseButton(window))
        return {};
    RECT rect = CaptionRect(window);
    rect.left = rect.right - kCloseWidth;
    return rect;
}

RECT ScrollBarRect(const Window& window, int bar)
{
    const bool vertical = (window.style & WS_VSCROLL) != 0;
    const bool horizontal = (window.style & WS_HSCROLL) != 0;
    if (!(bar == SB_VERT ? vertical : horizontal))
        return {};
    const RECT frame = FrameWidths(window.style, window.exStyle);
    const SIZE size = SizeOf(window.rect);
    RECT rect = {frame.left, frame.top, size.cx - frame.right, size.cy - frame.bottom};
    const int width = GetSystemMetrics(SM_CXVSCROLL);
    const int height = GetSystemMetrics(SM_CYHSCROLL);
    if (bar == SB_VERT) {
        rect.left = std::max(rect.left, rect.right - width);
        rect.bottom -= horizontal ? height : 0;
    } else {
        rect.top = std::max(rect.top, rect.bottom - height);
        rect.right -= vertical ? width : 0;
    }
    return rect;
}

LRESULT CalculateClient(Window& window, RECT& rect)
{
    const RECT frame = FrameWidths(window.style, window.exStyle);
    rect = {rect.left + frame.left, rect.top + frame.top, rect.right - frame.right,
            rect.bottom - frame.bottom};
    if ((window.style & WS_VSCROLL) != 0 && SizeOf(rect).cx >= GetSystemMetrics(SM_CXVSCROLL))
        rect.right -= GetSystemMetrics(SM_CXVSCROLL);
    if ((window.style & WS_HSCROLL) != 0 && SizeOf(rect).cy > GetSystemMetrics(SM_CYHSCROLL))
        rect.bottom -= GetSystemMetrics(SM_CYHSCROLL);
    rect.right = std::max(rect.left, rect.right);
    rect.bottom = std::max(rect.top, rect.bottom);
    return 0;
}

LRESULT HitTest(Window& window, POINT point)
{
    const POINT origin = WindowOrigin(window);
    const POINT inside = {point.x - origin.x, point.y - origin.y};
    const RECT whole = WindowRectOf(window);
    if (!PtInRect(&whole, inside))
        return HTNOWHERE;
    if (PtInRect(&window.client, inside))
        return HTCLIENT;
    const struct
    {
        RECT rect;
        LRESULT code;
    } parts[] = {
        {CloseButtonRect(window), HTCLOSE},
        {HelpButtonRect(window), HTHELP},
        {CaptionRect(window), HTCAPTION},
        {ScrollBarRect(window, SB_VERT), HTVSCROLL},
        {ScrollBarRect(window, SB_HORZ), HTHSCROLL},
    };
    for (const auto& part : parts) {
        if (PtInRect(&part.rect, inside))
            return part.code;
    }
    return HTBORDER;
}

void PaintFrame(Window& window)
{
    const SIZE client = SizeOf(window.client);
    const SIZE whole = SizeOf(window.rect);
    if (client.cx == whole.cx && client.cy == whole.cy)
        return;
    const HDC dc = GetWindowDC(window.handle);
    if (dc == nullptr)
        return;
    ExcludeClipRect(dc, window.client.left, window.client.top, window.client.right, window.client.bottom);
    DrawEdges(dc, window);
    if (HasCaption(window.style))
        DrawCaption(dc, window);
    for (const int bar : {SB_HORZ, SB_VERT})
        PaintFrameScrollBar(dc, window, bar);
    if ((window.style & (WS_VSCROLL | WS_HSCROLL)) == (WS_VSCROLL | WS_HSCROLL)) {
        const RECT corner = {ScrollBarRect(window, SB_VERT).left, ScrollBarRect(window, SB_HORZ).top,
                             ScrollBarRect(window, SB_VERT).right, ScrollBarRect(window, SB_HORZ).bottom};
        FillRect(dc, &corner, GetSysColorBrush(COLOR_BTNFACE));
    }
    ReleaseDC(window.handle, dc);
}

} // namespace host
