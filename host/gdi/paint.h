#pragma once
// Putting colour on a device context's pixels, inside its reach. Coordinates are the surface's.
#include <cstdint>
#include <vector>

#include "host/gdi/dc.h"

namespace host {

/// A ternary raster operation: the bit at (pattern << 2 | source << 1 | destination) is the result.
using RasterTable = uint8_t;

constexpr RasterTable kCopyPattern = 0xF0;
constexpr RasterTable kCopySource = 0xCC;
constexpr RasterTable kInvert = 0x55;
constexpr RasterTable kPatternXor = 0x5A;

/// The table in a raster operation code of BitBlt.
constexpr RasterTable TableOf(DWORD operation)
{
    return static_cast<RasterTable>(operation >> 16);
}
constexpr bool UsesSource(RasterTable table)
{
    return (table >> 2 & 0x33) != (table & 0x33);
}
constexpr bool UsesPattern(RasterTable table)
{
    return table >> 4 != (table & 0x0F);
}

/// The table of a binary operation of SetROP2 with the pen or brush as the pattern.
RasterTable TableOfRop2(int rop2);

/// What a pen or brush puts down: one colour, or a tile that repeats.
struct Ink
{
    static constexpr uint32_t kGap = 0xFF000000; // a tile's pixel that is left as it is

    bool visible = true; // false for null pens and brushes
    uint32_t color = 0;
    int tileWidth = 0; // 0 for one colour
    int tileHeight = 0;
    std::vector<uint32_t> tile;
    POINT origin{}; // where a tile's corner lies

    /// `count` pixels of the tile from (x, y) on.
    void Fill(uint32_t* pixels, int x, int y, int count) const;
};

Ink InkOf(const DeviceContext& dc, const Brush& brush);
Ink SolidInk(uint32_t pixel);

/// Combines pattern and destination where the device context can be reached.
class Painter
{
public:
    Painter(DeviceContext& dc, Ink ink, RasterTable table);

    void Rect(const RECT& rect);
    /// One row from `left` up to but without `right`.
    void Span(int y, int left, int right) { Rect({left, y, right, y + 1}); }
    void Dot(int x, int y) { Span(y, x, x + 1); }

private:
    void Row(int y, int left, int right);

    DeviceContext& dc_;
    Ink ink_;
    RasterTable table_;
    std::vector<uint32_t> pattern_; // one row, while a tile is drawn
};

/// Combines rows of `count` pixels; `pattern` and `source` may be null when the table does not use them.
void CombineRow(RasterTable table, uint32_t* destination, const uint32_t* source, const uint32_t* pattern,
                int count);

} // namespace host
