#include "psui/controls/edges.h"

#include "psui/base/gdi.h"

namespace psui {

namespace {

constexpr int kFocusInset = 4; // pixels from the item's edge to the dotted rectangle

void Row(HDC dc, const RECT& rect, LONG y, int color)
{
    const RECT row = {rect.left, y, rect.right, y + 1};
    FillRect(dc, &row, GetSysColorBrush(color));
}

// A frame of one pixel: one colour on its top and left edges, another on the right and bottom ones.
void Frame(HDC dc, const RECT& rect, int topLeft, int bottomRight)
{
    const RECT top = {rect.left, rect.top, rect.right, rect.top + 1};
    const RECT left = {rect.left, rect.top, rect.left + 1, rect.bottom};
    const RECT bottom = {rect.left, rect.bottom - 1, rect.right, rect.bottom};
    const RECT right = {rect.right - 1, rect.top, rect.right, rect.bottom};
    FillRect(dc, &top, GetSysColorBrush(topLeft));
    FillRect(dc, &left, GetSysColorBrush(topLeft));
    FillRect(dc, &bottom, GetSysColorBrush(bottomRight));
    FillRect(dc, &right, GetSysColorBrush(bottomRight));
}

RECT Shrunk(RECT rect, int by)
{
    InflateRect(&rect, -by, -by);
    return rect;
}

void RaisedFrame(HDC dc, const RECT& rect)
{
    Frame(dc, rect, COLOR_3DHIGHLIGHT, COLOR_3DDKSHADOW);
    Frame(dc, Shrunk(rect, 1), COLOR_3DLIGHT, COLOR_3DSHADOW);
}

void PressedFrame(HDC dc, const RECT& rect)
{
    Frame(dc, rect, COLOR_3DDKSHADOW, COLOR_3DHIGHLIGHT);
    Frame(dc, Shrunk(rect, 1), COLOR_3DSHADOW, COLOR_3DLIGHT);
}

void DottedFrame(HDC dc, const RECT& rect)
{
    const COLORREF color = GetSysColor(COLOR_3DDKSHADOW);
    for (LONG x = rect.left; x < rect.right; x += 2) {
        SetPixelV(dc, x, rect.top, color);
        SetPixelV(dc, x, rect.bottom - 1, color);
    }
    for (LONG y = rect.top; y < rect.bottom; y += 2) {
        SetPixelV(dc, rect.left, y, color);
        SetPixelV(dc, rect.right - 1, y, color);
    }
}

} // namespace

void DrawItemEdge(const DRAWITEMSTRUCT& request, EdgeStyle style)
{
    const HDC dc = request.hDC;
    const RECT& item = request.rcItem;
    switch (style) {
    case EdgeStyle::ShadowLine:
        Row(dc, item, item.top, COLOR_3DSHADOW);
        break;
    case EdgeStyle::Etched:
        Row(dc, item, item.top, COLOR_3DSHADOW);
        Row(dc, item, item.top + 1, COLOR_3DHIGHLIGHT);
        break;
    case EdgeStyle::Ridge:
        Row(dc, item, item.top, COLOR_3DSHADOW);
        Row(dc, item, item.top + 1, COLOR_3DDKSHADOW);
        Row(dc, item, item.top + 2, COLOR_3DHIGHLIGHT);
        break;
    case EdgeStyle::Sunken:
        Frame(dc, item, COLOR_3DSHADOW, COLOR_3DHIGHLIGHT);
        break;
    case EdgeStyle::Raised:
        RaisedFrame(dc, item);
        break;
    case EdgeStyle::Focused:
        Frame(dc, item, COLOR_3DDKSHADOW, COLOR_3DDKSHADOW);
        RaisedFrame(dc, Shrunk(item, 1));
        DottedFrame(dc, Shrunk(item, kFocusInset));
        break;
    case EdgeStyle::Pressed:
        Frame(dc, item, COLOR_3DDKSHADOW, COLOR_3DDKSHADOW);
        PressedFrame(dc, Shrunk(item, 1));
        DottedFrame(dc, Shrunk(item, kFocusInset));
        break;
    case EdgeStyle::SunkenDark:
        Frame(dc, item, COLOR_3DDKSHADOW, COLOR_3DHIGHLIGHT);
        break;
    }
}

} // namespace psui
