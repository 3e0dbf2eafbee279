// Lines and outlined areas, pixel by pixel as the platform draws them: without smoothing, and a line without
// its last point.
#include <algorithm>
#include <cmath>

#include "host/gdi/paint.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr int kMaxCoordinate = 1 << 20; // what lines and polygons are cut to, on the surface
constexpr int kMaxPenWidth = 1000;

/// Lengths in pixels of what is drawn and left out in turn.
struct DashPattern
{
    UINT style;
    int lengths[6];
    int count;
};

constexpr DashPattern kDashPatterns[] = {
    {PS_DASH, {18, 6}, 2},
    {PS_DOT, {3, 3}, 2},
    {PS_DASHDOT, {9, 6, 3, 6}, 4},
    {PS_DASHDOTDOT, {9, 3, 3, 3, 3, 3}, 6},
};

POINT Cut(POINT point)
{
    const auto cut = [](LONG value) { return std::clamp<LONG>(value, -kMaxCoordinate, kMaxCoordinate); };
    return {cut(point.x), cut(point.y)};
}

/// Draws with the selected pen.
class Pencil
{
public:
    explicit Pencil(DeviceContext& dc)
        : painter_(dc, InkOfPen(dc), TableOfRop2(dc.state.rop2)),
          gaps_(dc, SolidInk(dc.PixelOf(dc.state.backColor)), TableOfRop2(dc.state.rop2)),
          width_(std::clamp<int>(dc.state.pen->description.lopnWidth.x, 1, kMaxPenWidth)),
          fillsGaps_(dc.state.backMode == OPAQUE), pattern_(PatternOf(dc.state.pen->description))
    {
    }

    int Width() const { return width_; }

    /// From `from` up to but without `to`, on the surface.
    void Line(POINT from, POINT to)
    {
        if (pattern_ == nullptr && width_ == 1 && (from.x == to.x || from.y == to.y))
            return Straight(from, to);
        const int stepX = from.x < to.x ? 1 : -1;
        const int stepY = from.y < to.y ? 1 : -1;
        const int64_t dx = std::abs(int64_t{to.x} - from.x);
        const int64_t dy = std::abs(int64_t{to.y} - from.y);
        const bool steep = dy > dx;
        const int64_t longSide = std::max(dx, dy);
        const int64_t shortSide = std::min(dx, dy);
        int64_t error = longSide / 2 - (longSide % 2 == 0 && (steep ? stepY : stepX) > 0 ? 1 : 0);
        POINT point = from;
        for (int64_t i = 0; i < longSide; ++i) {
            Dot(point);
            error += shortSide;
            const bool aside = error >= longSide;
            if (aside)
                error -= longSide;
            if (!steep || aside)
                point.x += stepX;
            if (steep || aside)
                point.y += stepY;
        }
    }

    void Dot(POINT point)
    {
        if (width_ > 1)
            return Disc(point);
        if (pattern_ == nullptr || InDash())
            painter_.Dot(point.x, point.y);
        else if (fillsGaps_)
            gaps_.Dot(point.x, point.y);
    }

private:
    static Ink InkOfPen(const DeviceContext& dc)
    {
        Ink ink = SolidInk(dc.PixelOf(dc.state.pen->description.lopnColor));
        ink.visible = dc.state.pen->description.lopnStyle != PS_NULL;
        return ink;
    }

    /// Null for solid pens. Wide pens are always solid.
    static const DashPattern* PatternOf(const LOGPEN& pen)
    {
        for (const DashPattern& pattern : kDashPatterns) {
            if (pattern.style == pen.lopnStyle && pen.lopnWidth.x <= 1)
                return &pattern;
        }
        return nullptr;
    }

    void Straight(POINT from, POINT to)
    {
        if (from.y == to.y && from.x < to.x)
            painter_.Span(from.y, from.x, to.x);
        else if (from.y == to.y)
            painter_.Span(from.y, to.x + 1, from.x + 1);
        else if (from.y < to.y)
            painter_.Rect({from.x, from.y, from.x + 1, to.y});
        else
            painter_.Rect({from.x, to.y + 1, from.x + 1, from.y + 1});
    }

    /// Whether the next pixel of a broken line is drawn.
    bool InDash()
    {
        const bool drawn = part_ % 2 == 0;
        if (++done_ == pattern_->lengths[part_]) {
            done_ = 0;
            part_ = (part_ + 1) % pattern_->count;
        }
        return drawn;
    }

    void Disc(POINT centre)
    {
        const int before = width_ / 2;
        for (int row = 0; row < width_; ++row) {
            const double down = row + 0.5 - width_ / 2.0;
            const double half = std::sqrt(std::max(0.0, width_ * width_ / 4.0 - down * down));
            const int left = static_cast<int>(std::lround(width_ / 2.0 - half));
            const LONG x = centre.x - before;
            painter_.Span(centre.y - before + row, x + left, x + width_ - left);
        }
    }

    Painter painter_;
    Painter gaps_;
    int width_;
    bool fillsGaps_;
    const DashPattern* pattern_;
    int part_ = 0;
    int done_ = 0; // pixels of the part
};

Painter BrushPainter(DeviceContext& dc)
{
    return Painter(dc, InkOf(dc, *dc.state.brush.Get()), TableOfRop2(dc.state.rop2));
}

std::vector<POINT> SurfacePoints(const DeviceContext& dc, const POINT* points, int count)
{
    std::vector<POINT> result;
    for (int i = 0; i < count; ++i)
        result.push_back(Cut(dc.ToSurface(points[i])));
    return result;
}

/// Where a row's middle crosses an edge of a polygon.
struct Crossing
{
    double x;
    int direction; // 1 down, -1 up
};

std::vector<Crossing> CrossingsAt(const std::vector<POINT>& points, int y)
{
    std::vector<Crossing> crossings;
    for (size_t i = 0; i < points.size(); ++i) {
        const POINT from = points[i];
        const POINT to = points[(i + 1) % points.size()];
        // An edge takes the rows from its upper end up to but without its lower end.
        if (from.y == to.y || y < std::min(from.y, to.y) || y >= std::max(from.y, to.y))
            continue;
        const double part = static_cast<double>(y - from.y) / (to.y - from.y);
        crossings.push_back({from.x + part * (to.x - from.x), from.y < to.y ? 1 : -1});
    }
    std::sort(crossings.begin(), crossings.end(),
              [](const Crossing& first, const Crossing& second) { return first.x < second.x; });
    return crossings;
}

void FillPolygon(DeviceContext& dc, const std::vector<POINT>& points)
{
    Painter painter = BrushPainter(dc);
    const auto [top, bottom] =
        std::minmax_element(points.begin(), points.end(),
                            [](const POINT& first, const POINT& second) { return first.y < second.y; });
    const RECT reach = dc.Reach().Box();
    const LONG end = std::min(bottom->y, reach.bottom);
    for (LONG y = std::max(top->y, reach.top); y < end; ++y) {
        int winding = 0;
        const std::vector<Crossing> crossings = CrossingsAt(points, y);
        for (size_t i = 0; i + 1 < crossings.size(); ++i) {
            winding += dc.state.polyFillMode == WINDING ? crossings[i].direction : (winding == 0 ? 1 : -1);
            if (winding != 0)
                painter.Span(y, static_cast<int>(std::ceil(crossings[i].x)),
                             static_cast<int>(std::ceil(crossings[i + 1].x)));
        }
    }
}

void DrawLines(Pencil& pencil, const std::vector<POINT>& points, bool closed)
{
    for (size_t i = 0; i + 1 < points.size(); ++i)
        pencil.Line(points[i], points[i + 1]);
    if (closed)
        pencil.Line(points.back(), points.front());
}

/// A rounded rectangle on the surface, as how far each row is indented from either side. Corners are quarters
/// of an ellipse of the given size.
std::vector<int> Indents(int width, int height, int cornerWidth, int cornerHeight)
{
    std::vector<int> indents(static_cast<size_t>(height));
    const double a = std::min(cornerWidth, width) / 2.0;
    const double b = std::min(cornerHeight, height) / 2.0;
    for (int row = 0; row < height; ++row) {
        const double fromEdge = std::min(row, height - 1 - row) + 0.5;
        const double up = fromEdge < b ? (b - fromEdge) / b : 0;
        indents[static_cast<size_t>(row)] = static_cast<int>(std::lround(a * (1 - std::sqrt(1 - up * up))));
    }
    return indents;
}

/// The outline one pixel wide: in each row, what the rows above and below leave open.
void OutlineRows(Pencil& pencil, const RECT& rect, const std::vector<int>& indents)
{
    const int height = static_cast<int>(indents.size());
    for (int row = 0; row < height; ++row) {
        const int indent = indents[static_cast<size_t>(row)];
        const bool edge = row == 0 || row == height - 1;
        const int above = edge ? 0 : indents[static_cast<size_t>(row) - 1];
        const int below = edge ? 0 : indents[static_cast<size_t>(row) + 1];
        const int middle = (rect.right - rect.left + 1) / 2;
        const int until = edge ? middle : std::clamp(std::max(above, below), indent + 1, middle);
        for (int x = indent; x < until; ++x) {
            pencil.Dot({rect.left + x, rect.top + row});
            if (rect.right - 1 - x != rect.left + x)
                pencil.Dot({rect.right - 1 - x, rect.top + row});
        }
    }
}

/// Shrinks a figure so that a wide pen's line stays inside of it.
RECT InsidePen(const RECT& rect, int penWidth)
{
    const int before = penWidth / 2;
    const int behind = penWidth - 1 - before;
    return {rect.left + before, rect.top + before, rect.right - behind, rect.bottom - behind};
}

void DrawRounded(DeviceContext& dc, const RECT& logical, int cornerWidth, int cornerHeight)
{
    const RECT whole = Ordered(dc.ToSurface(logical));
    if (IsEmpty(whole) || whole.bottom - whole.top > kMaxCoordinate ||
        whole.right - whole.left > kMaxCoordinate)
        return;
    Pencil pencil(dc);
    const bool inside = dc.state.pen->description.lopnStyle == PS_INSIDEFRAME;
    const RECT rect = inside ? InsidePen(whole, pencil.Width()) : whole;
    if (IsEmpty(rect))
        return;
    const std::vector<int> indents =
        Indents(rect.right - rect.left, rect.bottom - rect.top, cornerWidth, cornerHeight);
    Painter painter = BrushPainter(dc);
    const int border = dc.state.pen->description.lopnStyle == PS_NULL ? 0 : 1;
    for (int row = border; row < static_cast<int>(indents.size()) - border; ++row) {
        const int indent = indents[static_cast<size_t>(row)] + border;
        painter.Span(rect.top + row, rect.left + indent, rect.right - indent);
    }
    OutlineRows(pencil, rect, indents);
}

/// The outline of a rectangle, clockwise from its top-left corner.
std::vector<POINT> Corners(const RECT& rect)
{
    const LONG right = rect.right - 1;
    const LONG bottom = rect.bottom - 1;
    return {{rect.left, rect.top}, {right, rect.top}, {right, bottom}, {rect.left, bottom}};
}

} // namespace
} // namespace host

using namespace host;

BOOL WINAPI MoveToEx(HDC handle, int x, int y, LPPOINT previous)
{
    HOST_CALL_VOID(MoveToEx);
    const LockedDc dc(handle);
    if (!dc)
        return FALSE;
    if (previous != nullptr)
        *previous = dc->state.position;
    dc->state.position = {x, y};
    return TRUE;
}

BOOL WINAPI GetCurrentPositionEx(HDC handle, LPPOINT point)
{
    HOST_CALL_VOID(GetCurrentPositionEx);
    const LockedDc dc(handle);
    if (!dc || point == nullptr)
        return FALSE;
    *point = dc->state.position;
    return TRUE;
}

BOOL WINAPI LineTo(HDC handle, int x, int y)
{
    HOST_CALL_VOID(LineTo);
    const LockedDc dc(handle);
    if (!dc)
        return FALSE;
    Pencil(*dc).Line(Cut(dc->ToSurface(dc->state.position)), Cut(dc->ToSurface(POINT{x, y})));
    dc->state.position = {x, y};
    return TRUE;
}

BOOL WINAPI Polyline(HDC handle, const POINT* points, int count)
{
    HOST_CALL_VOID(Polyline);
    const LockedDc dc(handle);
    if (!dc || points == nullptr || count < 2)
        return FALSE;
    Pencil pencil(*dc);
    DrawLines(pencil, SurfacePoints(*dc, points, count), false);
    return TRUE;
}

BOOL WINAPI Polygon(HDC handle, const POINT* points, int count)
{
    HOST_CALL_VOID(Polygon);
    const LockedDc dc(handle);
    if (!dc || points == nullptr || count < 2)
        return FALSE;
    const std::vector<POINT> corners = SurfacePoints(*dc, points, count);
    FillPolygon(*dc, corners);
    Pencil pencil(*dc);
    DrawLines(pencil, corners, true);
    return TRUE;
}

BOOL WINAPI Rectangle(HDC handle, int left, int top, int right, int bottom)
{
    HOST_CALL_VOID(Rectangle);
    const LockedDc dc(handle);
    if (!dc)
        return FALSE;
    RECT rect = Ordered(dc->ToSurface(RECT{left, top, right, bottom}));
    if (dc->state.pen->description.lopnStyle == PS_NULL) {
        // An invisible outline still takes its pixels on the right and below.
        BrushPainter(*dc).Rect({rect.left, rect.top, rect.right - 1, rect.bottom - 1});
        return TRUE;
    }
    Pencil pencil(*dc);
    if (dc->state.pen->description.lopnStyle == PS_INSIDEFRAME)
        rect = InsidePen(rect, pencil.Width());
    if (IsEmpty(rect))
        return TRUE;
    BrushPainter(*dc).Rect({rect.left + 1, rect.top + 1, rect.right - 1, rect.bottom - 1});
    if (rect.right - rect.left == 1 || rect.bottom - rect.top == 1) {
        const POINT last = {rect.right - 1, rect.bottom - 1};
        pencil.Line({rect.left, rect.top}, last);
        pencil.Dot(last);
        return TRUE;
    }
    DrawLines(pencil, Corners(rect), true);
    return TRUE;
}

BOOL WINAPI RoundRect(HDC handle, int left, int top, int right, int bottom, int width, int height)
{
    HOST_CALL_VOID(RoundRect);
    const LockedDc dc(handle);
    if (!dc)
        return FALSE;
    DrawRounded(*dc, {left, top, right, bottom}, std::abs(std::max(width, -INT32_MAX)),
                std::abs(std::max(height, -INT32_MAX)));
    return TRUE;
}

BOOL WINAPI Ellipse(HDC handle, int left, int top, int right, int bottom)
{
    HOST_CALL_VOID(Ellipse);
    const LockedDc dc(handle);
    if (!dc)
        return FALSE;
    DrawRounded(*dc, {left, top, right, bottom}, INT32_MAX, INT32_MAX);
    return TRUE;
}
