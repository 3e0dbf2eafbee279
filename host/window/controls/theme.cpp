#include "host/window/controls/theme.h"

#include <algorithm>
#include <cmath>

namespace host::theme {
namespace {

struct Place
{
    double x;
    double y;
};

int Mixed(int below, int above, double share)
{
    return static_cast<int>(std::lround(below + (above - below) * share));
}

/// Covers a share (0 to 1) of a pixel with `colour`.
void BlendPixel(HDC dc, int x, int y, COLORREF colour, double share)
{
    if (share <= 0)
        return;
    const COLORREF below = GetPixel(dc, x, y);
    if (below == CLR_INVALID)
        return; // clipped away
    SetPixel(dc, x, y,
             RGB(Mixed(GetRValue(below), GetRValue(colour), share),
                 Mixed(GetGValue(below), GetGValue(colour), share),
                 Mixed(GetBValue(below), GetBValue(colour), share)));
}

/// Colours every pixel of `rect` by how near its middle is to a shape: `distance` is 0 on the shape's edge
/// and negative inside.
template <class Distance>
void BlendShape(HDC dc, const RECT& rect, COLORREF colour, Distance distance)
{
    for (int y = rect.top; y < rect.bottom; ++y) {
        for (int x = rect.left; x < rect.right; ++x)
            BlendPixel(dc, x, y, colour, std::clamp(0.5 - distance(Place{x + 0.5, y + 0.5}), 0.0, 1.0));
    }
}

void BlendDisc(HDC dc, const RECT& box, double radius, COLORREF colour)
{
    const Place middle = {(box.left + box.right) / 2.0, (box.top + box.bottom) / 2.0};
    BlendShape(dc, box, colour,
               [=](Place at) { return std::hypot(at.x - middle.x, at.y - middle.y) - radius; });
}

double DistanceToLine(Place at, Place from, Place to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double along = ((at.x - from.x) * dx + (at.y - from.y) * dy) / (dx * dx + dy * dy);
    const double nearest = std::clamp(along, 0.0, 1.0);
    return std::hypot(at.x - from.x - nearest * dx, at.y - from.y - nearest * dy);
}

/// A tick in a box of kMarkSize.
void BlendTick(HDC dc, const RECT& box, COLORREF colour)
{
    constexpr double kHalfWidth = 0.9;
    const Place left = {box.left + 3.2, box.top + 6.7};
    const Place low = {box.left + 5.5, box.top + 9.0};
    const Place right = {box.left + 10.0, box.top + 4.0};
    BlendShape(dc, box, colour, [=](Place at) {
        return std::min(DistanceToLine(at, left, low), DistanceToLine(at, low, right)) - kHalfWidth;
    });
}

RECT MarkBox(const RECT& rect)
{
    const int left = rect.left + (rect.right - rect.left - kMarkSize) / 2;
    const int top = rect.top + (rect.bottom - rect.top - kMarkSize) / 2;
    return {left, top, left + kMarkSize, top + kMarkSize};
}

RECT Shrunk(const RECT& rect, int by)
{
    return {rect.left + by, rect.top + by, rect.right - by, rect.bottom - by};
}

COLORREF MarkFill(bool marked, const Look& look)
{
    if (!look.enabled)
        return marked ? kThumb : kDisabledFace;
    if (look.pressed)
        return marked ? kAccentDark : kPressed;
    return marked ? kAccent : kField;
}

COLORREF MarkEdge(bool marked, const Look& look)
{
    if (!look.enabled)
        return marked ? kThumb : kDisabledBorder;
    if (look.pressed)
        return kAccentDark;
    return marked ? kAccent : kMarkBorder;
}

} // namespace

void Fill(HDC dc, const RECT& rect, COLORREF colour)
{
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

void Frame(HDC dc, const RECT& rect, COLORREF colour)
{
    const HBRUSH brush = CreateSolidBrush(colour);
    FrameRect(dc, &rect, brush);
    DeleteObject(brush);
}

void DrawFieldBorder(HDC dc, const RECT& rect, const Look& look)
{
    Frame(dc, rect, !look.enabled ? kDisabledBorder : look.focused ? kAccent : kBorder);
}

void DrawButtonFace(HDC dc, const RECT& rect, const Look& look)
{
    const bool accented = look.enabled && (look.isDefault || look.focused);
    const COLORREF edge = !look.enabled  ? kDisabledBorder
                          : look.pressed ? kAccentDark
                          : accented     ? kAccent
                                         : kBorder;
    Fill(dc, rect, !look.enabled ? kDisabledFace : look.pressed ? kPressed : kFace);
    Frame(dc, rect, edge);
    if (accented && look.isDefault)
        Frame(dc, Shrunk(rect, 1), edge);
}

void DrawFocusRing(HDC dc, const RECT& rect)
{
    const COLORREF text = SetTextColor(dc, RGB(0, 0, 0));
    const COLORREF background = SetBkColor(dc, RGB(255, 255, 255));
    DrawFocusRect(dc, &rect);
    SetBkColor(dc, background);
    SetTextColor(dc, text);
}

void DrawCheckMark(HDC dc, const RECT& rect, Mark mark, const Look& look)
{
    const RECT box = MarkBox(rect);
    Fill(dc, box, MarkFill(mark != Mark::none, look));
    Frame(dc, box, MarkEdge(mark != Mark::none, look));
    if (mark == Mark::check)
        BlendTick(dc, box, kField);
    else if (mark == Mark::mixed)
        Fill(dc, {box.left + 3, box.top + 5, box.right - 3, box.bottom - 5}, kField);
}

void DrawRadioMark(HDC dc, const RECT& rect, bool checked, const Look& look)
{
    const RECT box = MarkBox(rect);
    constexpr double kRadius = kMarkSize / 2.0;
    BlendDisc(dc, box, kRadius, MarkEdge(checked, look));
    if (!checked)
        BlendDisc(dc, box, kRadius - 1, MarkFill(false, look));
    else
        BlendDisc(dc, box, kRadius - 4, kField);
}

void DrawArrow(HDC dc, const RECT& rect, Arrow direction, COLORREF colour)
{
    const bool vertical = direction == Arrow::up || direction == Arrow::down;
    const int across = vertical ? rect.right - rect.left : rect.bottom - rect.top;
    const int along = vertical ? rect.bottom - rect.top : rect.right - rect.left;
    const int rows = std::clamp(std::min(along, (across - 1) / 2), 0, 4);
    const int middle =
        (vertical ? rect.left + rect.right : rect.top + rect.bottom) / 2 - (across % 2 == 0 ? 1 : 0);
    const int first = (vertical ? rect.top : rect.left) + (along - rows) / 2;
    const bool tipFirst = direction == Arrow::up || direction == Arrow::left;
    for (int i = 0; i < rows; ++i) {
        const int half = tipFirst ? i : rows - 1 - i;
        const int row = first + i;
        const RECT line = vertical ? RECT{middle - half, row, middle + half + 1, row + 1}
                                   : RECT{row, middle - half, row + 1, middle + half + 1};
        Fill(dc, line, colour);
    }
}

COLORREF TextColourOf(HDC dc, const Look& look)
{
    return look.enabled ? GetTextColor(dc) : kDisabledText;
}

} // namespace host::theme
