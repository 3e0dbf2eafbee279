#pragma once
// Sets of pixels as rectangles in bands: from top to bottom, inside a band from left to right, no two
// touching in a band, and no two neighbouring bands alike. Equal sets have equal rectangles.
#include <cstddef>
#include <vector>

#include <windows.h>

namespace host {

bool IsEmpty(const RECT& rect);
/// Empty rectangles come out with no width and no height, anywhere.
RECT Intersection(const RECT& first, const RECT& second);
/// The same area with its corners in order.
RECT Ordered(const RECT& rect);
RECT Moved(const RECT& rect, POINT by);

class Region
{
public:
    Region() = default;
    explicit Region(const RECT& rect);

    const std::vector<RECT>& Rects() const { return rects_; }
    bool Empty() const { return rects_.empty(); }
    /// All zero for an empty region.
    RECT Box() const;
    bool Contains(POINT point) const;
    bool Overlaps(const RECT& rect) const;
    void Move(POINT by);
    /// NULLREGION, SIMPLEREGION or COMPLEXREGION.
    int Complexity() const;

    /// RGN_AND, RGN_OR, RGN_XOR or RGN_DIFF of two regions.
    static Region Combined(const Region& first, const Region& second, int mode);

private:
    struct Interval
    {
        LONG left;
        LONG right;
        bool operator==(const Interval&) const = default;
    };
    static std::vector<Interval> RowOf(const std::vector<RECT>& rects, LONG y);
    static std::vector<Interval> CombinedRow(const std::vector<Interval>& first,
                                             const std::vector<Interval>& second, int mode);
    void AddBand(LONG top, LONG bottom, const std::vector<Interval>& row);

    std::vector<RECT> rects_;
    size_t lastBand_ = 0; // where the last band begins, while the region grows
};

} // namespace host
