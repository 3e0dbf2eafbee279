#include "host/gdi/region.h"

#include <algorithm>

namespace host {
namespace {

/// Whether a pixel that the operands hold or not is in the result.
bool InResult(bool first, bool second, int mode)
{
    switch (mode) {
    case RGN_AND:
        return first && second;
    case RGN_OR:
        return first || second;
    case RGN_XOR:
        return first != second;
    default:
        return first && !second;
    }
}

} // namespace

bool IsEmpty(const RECT& rect)
{
    return rect.left >= rect.right || rect.top >= rect.bottom;
}

RECT Intersection(const RECT& first, const RECT& second)
{
    const RECT result = {std::max(first.left, second.left), std::max(first.top, second.top),
                         std::min(first.right, second.right), std::min(first.bottom, second.bottom)};
    return IsEmpty(result) ? RECT{} : result;
}

RECT Ordered(const RECT& rect)
{
    return {std::min(rect.left, rect.right), std::min(rect.top, rect.bottom), std::max(rect.left, rect.right),
            std::max(rect.top, rect.bottom)};
}

RECT Moved(const RECT& rect, POINT by)
{
    return {rect.left + by.x, rect.top + by.y, rect.right + by.x, rect.bottom + by.y};
}

Region::Region(const RECT& rect)
{
    if (!IsEmpty(rect))
        rects_.push_back(rect);
}

RECT Region::Box() const
{
    if (rects_.empty())
        return {};
    RECT box = rects_.front();
    box.bottom = rects_.back().bottom;
    for (const RECT& rect : rects_) {
        box.left = std::min(box.left, rect.left);
        box.right = std::max(box.right, rect.right);
    }
    return box;
}

bool Region::Contains(POINT point) const
{
    return Overlaps({point.x, point.y, point.x + 1, point.y + 1});
}

bool Region::Overlaps(const RECT& rect) const
{
    return std::any_of(rects_.begin(), rects_.end(),
                       [&](const RECT& each) { return !IsEmpty(Intersection(each, rect)); });
}

void Region::Move(POINT by)
{
    for (RECT& rect : rects_)
        rect = Moved(rect, by);
}

int Region::Complexity() const
{
    if (rects_.empty())
        return NULLREGION;
    return rects_.size() == 1 ? SIMPLEREGION : COMPLEXREGION;
}

Region Region::Combined(const Region& first, const Region& second, int mode)
{
    if (mode == RGN_AND && first.rects_.size() == 1 && second.rects_.size() == 1)
        return Region(Intersection(first.rects_[0], second.rects_[0]));
    if (second.Empty())
        return mode == RGN_AND ? Region() : first;
    if (first.Empty())
        return mode == RGN_AND || mode == RGN_DIFF ? Region() : second;

    std::vector<LONG> edges;
    for (const Region* region : {&first, &second}) {
        for (const RECT& rect : region->rects_)
            edges.insert(edges.end(), {rect.top, rect.bottom});
    }
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());

    Region result;
    for (size_t i = 0; i + 1 < edges.size(); ++i) {
        const LONG top = edges[i];
        result.AddBand(top, edges[i + 1],
                       CombinedRow(RowOf(first.rects_, top), RowOf(second.rects_, top), mode));
    }
    return result;
}

std::vector<Region::Interval> Region::RowOf(const std::vector<RECT>& rects, LONG y)
{
    std::vector<Interval> row;
    for (const RECT& rect : rects) {
        if (rect.top <= y && y < rect.bottom)
            row.push_back({rect.left, rect.right});
    }
    return row;
}

std::vector<Region::Interval> Region::CombinedRow(const std::vector<Interval>& first,
                                                  const std::vector<Interval>& second, int mode)
{
    std::vector<LONG> edges;
    for (const auto* row : {&first, &second}) {
        for (const Interval& interval : *row)
            edges.insert(edges.end(), {interval.left, interval.right});
    }
    std::sort(edges.begin(), edges.end());
    const auto holds = [](const std::vector<Interval>& row, LONG x) {
        return std::any_of(row.begin(), row.end(),
                           [x](const Interval& each) { return each.left <= x && x < each.right; });
    };
    std::vector<Interval> result;
    for (size_t i = 0; i + 1 < edges.size(); ++i) {
        const LONG left = edges[i];
        if (left == edges[i + 1] || !InResult(holds(first, left), holds(second, left), mode))
            continue;
        if (!result.empty() && result.back().right == left)
            result.back().right = edges[i + 1];
        else
            result.push_back({left, edges[i + 1]});
    }
    return result;
}

void Region::AddBand(LONG top, LONG bottom, const std::vector<Interval>& row)
{
    const auto sameAsLast = [&] {
        if (rects_.size() - lastBand_ != row.size() || rects_.back().bottom != top)
            return false;
        return std::equal(row.begin(), row.end(), rects_.begin() + static_cast<ptrdiff_t>(lastBand_),
                          [](const Interval& interval, const RECT& rect) {
                              return interval.left == rect.left && interval.right == rect.right;
                          });
    };
    if (row.empty())
        return;
    if (!rects_.empty() && sameAsLast()) {
        for (size_t i = lastBand_; i < rects_.size(); ++i)
            rects_[i].bottom = bottom;
        return;
    }
    lastBand_ = rects_.size();
    for (const Interval& interval : row)
        rects_.push_back({interval.left, top, interval.right, bottom});
}

} // namespace host
