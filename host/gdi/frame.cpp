// Edges and the parts of standard controls.
#include <algorithm>

#include "host/gdi/area.h"
#include "host/kernel/call.h"

namespace host {
namespace {

constexpr int kNoColor = -1; // of an edge that is not drawn

/// Colour numbers of one line of an edge.
struct EdgeLine
{
    int topLeft = kNoColor;
    int bottomRight = kNoColor;
};

EdgeLine OuterLine(UINT edge, bool soft)
{
    if ((edge & BDR_RAISEDOUTER) != 0)
        return {soft ? COLOR_BTNHIGHLIGHT : COLOR_3DLIGHT, COLOR_3DDKSHADOW};
    if ((edge & BDR_SUNKENOUTER) != 0)
        return {soft ? COLOR_3DDKSHADOW : COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT};
    return {};
}

EdgeLine InnerLine(UINT edge, bool soft)
{
    if ((edge & BDR_RAISEDINNER) != 0)
        return {soft ? COLOR_3DLIGHT : COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW};
    if ((edge & BDR_SUNKENINNER) != 0)
        return {soft ? COLOR_BTNSHADOW : COLOR_3DDKSHADOW, COLOR_3DLIGHT};
    return {};
}

/// Flat and one-coloured edges have one plain line outside and, when they are double, one of the ground
/// inside.
EdgeLine PlainLine(UINT flags, bool outer)
{
    const bool mono = (flags & BF_MONO) != 0;
    const int line = mono ? COLOR_WINDOWFRAME : COLOR_BTNSHADOW;
    const int ground = mono ? COLOR_WINDOW : COLOR_BTNFACE;
    return outer ? EdgeLine{line, line} : EdgeLine{ground, ground};
}

/// Draws one line on the sides that are asked for and takes them off the rectangle. The right and lower sides
/// have the corners.
void DrawEdgeLine(DeviceContext& dc, RECT& rect, const EdgeLine& line, UINT flags)
{
    if (line.topLeft == kNoColor)
        return;
    const COLORREF light = GetSysColor(line.topLeft);
    const COLORREF dark = GetSysColor(line.bottomRight);
    const RECT r = rect;
    if ((flags & BF_LEFT) != 0)
        FillColor(dc, {rect.left++, r.top, r.left + 1, r.bottom}, light);
    if ((flags & BF_TOP) != 0)
        FillColor(dc, {r.left, rect.top++, r.right, r.top + 1}, light);
    if ((flags & BF_RIGHT) != 0)
        FillColor(dc, {--rect.right, r.top, r.right, r.bottom}, dark);
    if ((flags & BF_BOTTOM) != 0)
        FillColor(dc, {r.left, --rect.bottom, r.right, r.bottom}, dark);
}

RECT DrawEdgeOn(DeviceContext& dc, RECT rect, UINT edge, UINT flags)
{
    const bool plain = (flags & (BF_FLAT | BF_MONO)) != 0;
    const bool soft = (flags & BF_SOFT) != 0;
    const bool outer = (edge & (BDR_RAISEDOUTER | BDR_SUNKENOUTER)) != 0;
    const bool inner = (edge & (BDR_RAISEDINNER | BDR_SUNKENINNER)) != 0;
    if (outer)
        DrawEdgeLine(dc, rect, plain ? PlainLine(flags, true) : OuterLine(edge, soft), flags);
    if (inner)
        DrawEdgeLine(dc, rect, plain ? PlainLine(flags, !outer) : InnerLine(edge, soft), flags);
    if ((flags & BF_MIDDLE) != 0)
        FillColor(dc, rect, GetSysColor((flags & BF_MONO) != 0 ? COLOR_WINDOW : COLOR_BTNFACE));
    return rect;
}

/// The largest square in the middle of a rectangle.
RECT SquareIn(const RECT& rect)
{
    const LONG side = std::min(rect.right - rect.left, rect.bottom - rect.top);
    const LONG left = rect.left + (rect.right - rect.left - side) / 2;
    const LONG top = rect.top + (rect.bottom - rect.top - side) / 2;
    return {left, top, left + side, top + side};
}

/// A mark that is drawn as rows of pixels; the high bit of each row is its leftmost pixel.
template <size_t kRows>
void DrawMark(DeviceContext& dc, POINT corner, const uint8_t (&rows)[kRows], COLORREF color)
{
    for (size_t y = 0; y < kRows; ++y) {
        for (int x = 0; x < 8; ++x) {
            const LONG left = corner.x + x;
            const LONG top = corner.y + static_cast<LONG>(y);
            if ((rows[y] >> (7 - x) & 1) != 0)
                FillColor(dc, {left, top, left + 1, top + 1}, color);
        }
    }
}

COLORREF MarkColor(UINT state)
{
    return GetSysColor((state & DFCS_INACTIVE) != 0 ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
}

/// The field that a check mark or a dot stands on.
COLORREF FieldColor(UINT state)
{
    const bool dull = (state & (DFCS_INACTIVE | DFCS_PUSHED)) != 0;
    return GetSysColor(dull ? COLOR_BTNFACE : COLOR_WINDOW);
}

void DrawCheckBox(DeviceContext& dc, const RECT& rect, UINT state)
{
    constexpr uint8_t kCheckMark[] = {0x02, 0x06, 0x8E, 0xDC, 0xF8, 0x70, 0x20};
    constexpr LONG kMarkSide = 7;
    const RECT field = DrawEdgeOn(dc, SquareIn(rect), EDGE_SUNKEN, BF_RECT);
    FillColor(dc, field, FieldColor(state));
    if ((state & DFCS_CHECKED) == 0)
        return;
    const POINT corner = {(field.left + field.right - kMarkSide) / 2,
                          (field.top + field.bottom - kMarkSide) / 2};
    const bool third = (state & DFCS_BUTTON3STATE) != 0;
    DrawMark(dc, corner, kCheckMark, third ? GetSysColor(COLOR_BTNSHADOW) : MarkColor(state));
}

/// Fills the part of a disc where `wanted(x + y)` holds, for pixels counted from its middle in halves.
template <class Wanted>
void FillDisc(DeviceContext& dc, const RECT& square, LONG inset, COLORREF color, Wanted wanted)
{
    const LONG side = square.right - square.left;
    const LONG radius = side - 2 * inset; // in halves of a pixel, as the distances below
    for (LONG y = 0; y < side; ++y) {
        for (LONG x = 0; x < side; ++x) {
            const LONG fromLeft = 2 * x + 1 - side;
            const LONG fromTop = 2 * y + 1 - side;
            const bool inside = fromLeft * fromLeft + fromTop * fromTop <= radius * radius;
            if (inside && wanted(fromLeft + fromTop))
                FillColor(dc, {square.left + x, square.top + y, square.left + x + 1, square.top + y + 1},
                          color);
        }
    }
}

void DrawRadioButton(DeviceContext& dc, const RECT& rect, UINT state)
{
    const RECT square = SquareIn(rect);
    const auto upperLeft = [](LONG sum) { return sum <= 0; };
    const auto lowerRight = [](LONG sum) { return sum > 0; };
    const auto everywhere = [](LONG) { return true; };
    FillDisc(dc, square, 0, GetSysColor(COLOR_BTNSHADOW), upperLeft);
    FillDisc(dc, square, 0, GetSysColor(COLOR_BTNHIGHLIGHT), lowerRight);
    FillDisc(dc, square, 1, GetSysColor(COLOR_3DDKSHADOW), upperLeft);
    FillDisc(dc, square, 1, GetSysColor(COLOR_3DLIGHT), lowerRight);
    FillDisc(dc, square, 2, FieldColor(state), everywhere);
    if ((state & DFCS_CHECKED) != 0)
        FillDisc(dc, square, (square.right - square.left) / 3, MarkColor(state), everywhere);
}

RECT DrawPushButton(DeviceContext& dc, const RECT& rect, UINT state)
{
    const UINT edge = (state & DFCS_PUSHED) != 0 ? EDGE_SUNKEN : EDGE_RAISED;
    const UINT flat = (state & DFCS_FLAT) != 0 ? BF_FLAT : 0;
    return DrawEdgeOn(dc, rect, edge, BF_RECT | BF_MIDDLE | BF_SOFT | flat);
}

/// A triangle of rows that get two pixels wider each; `direction` is where it points to.
void DrawArrow(DeviceContext& dc, const RECT& rect, UINT direction, COLORREF color)
{
    const bool sideways = direction == DFCS_SCROLLLEFT || direction == DFCS_SCROLLRIGHT;
    const bool forwards = direction != DFCS_SCROLLUP && direction != DFCS_SCROLLLEFT;
    const LONG room = std::min(rect.right - rect.left, rect.bottom - rect.top);
    const LONG depth = std::clamp<LONG>(room / 4, 2, 6);
    const LONG middleX = (rect.left + rect.right - 1) / 2;
    const LONG middleY = (rect.top + rect.bottom - 1) / 2;
    for (LONG i = 0; i < depth; ++i) {
        const LONG half = forwards ? depth - 1 - i : i;
        const LONG offset = i - (depth - 1) / 2;
        if (sideways)
            FillColor(dc, {middleX + offset, middleY - half, middleX + offset + 1, middleY + half + 1},
                      color);
        else
            FillColor(dc, {middleX - half, middleY + offset, middleX + half + 1, middleY + offset + 1},
                      color);
    }
}

RECT DrawScrollButton(DeviceContext& dc, const RECT& rect, UINT state)
{
    const bool pushed = (state & DFCS_PUSHED) != 0;
    const RECT inner = DrawEdgeOn(dc, rect, EDGE_RAISED, BF_RECT | BF_MIDDLE | (pushed ? BF_FLAT : 0));
    UINT direction = state & 7;
    if (direction == DFCS_SCROLLCOMBOBOX)
        direction = DFCS_SCROLLDOWN;
    const POINT shift = {pushed, pushed};
    if ((state & DFCS_INACTIVE) != 0)
        DrawArrow(dc, Moved(rect, {1, 1}), direction, GetSysColor(COLOR_BTNHIGHLIGHT));
    DrawArrow(dc, Moved(rect, shift), direction,
              GetSysColor((state & DFCS_INACTIVE) != 0 ? COLOR_BTNSHADOW : COLOR_BTNTEXT));
    return inner;
}

RECT DrawCloseButton(DeviceContext& dc, const RECT& rect, UINT state)
{
    constexpr uint8_t kCross[] = {0xC3, 0x66, 0x3C, 0x18, 0x3C, 0x66, 0xC3};
    constexpr LONG kCrossWidth = 8;
    constexpr LONG kCrossHeight = 7;
    const RECT inner = DrawPushButton(dc, rect, state);
    const LONG shift = (state & DFCS_PUSHED) != 0 ? 1 : 0;
    const POINT corner = {(inner.left + inner.right - kCrossWidth) / 2 + shift,
                          (inner.top + inner.bottom - kCrossHeight) / 2 + shift};
    DrawMark(dc, corner, kCross, MarkColor(state));
    return inner;
}

/// What is left inside; an empty rectangle for what is not known.
RECT DrawButton(DeviceContext& dc, const RECT& rect, UINT state)
{
    if ((state & DFCS_BUTTONPUSH) != 0)
        return DrawPushButton(dc, rect, state);
    if ((state & DFCS_BUTTONRADIO) != 0)
        DrawRadioButton(dc, rect, state);
    else
        DrawCheckBox(dc, rect, state);
    return rect;
}

} // namespace
} // namespace host

using namespace host;

BOOL WINAPI DrawEdge(HDC handle, LPRECT rect, UINT edge, UINT flags)
{
    HOST_CALL_VOID(DrawEdge);
    const LockedDc dc(handle);
    if (!dc || rect == nullptr)
        return FALSE;
    const RECT inner = DrawEdgeOn(*dc, *rect, edge, flags);
    if ((flags & BF_ADJUST) != 0)
        *rect = inner;
    return TRUE;
}

BOOL WINAPI DrawFrameControl(HDC handle, LPRECT rect, UINT type, UINT state)
{
    HOST_CALL_VOID(DrawFrameControl);
    constexpr struct
    {
        UINT type;
        RECT (*draw)(DeviceContext& dc, const RECT& rect, UINT state);
    } kParts[] = {
        {DFC_BUTTON, DrawButton},
        {DFC_SCROLL, DrawScrollButton},
        {DFC_CAPTION, DrawCloseButton},
    };
    const LockedDc dc(handle);
    if (!dc || rect == nullptr)
        return FALSE;
    for (const auto& part : kParts) {
        if (part.type != type)
            continue;
        const RECT inner = part.draw(*dc, *rect, state);
        if ((state & DFCS_ADJUSTRECT) != 0)
            *rect = inner;
        return TRUE;
    }
    return FALSE;
}
