#include "host/gdi/paint.h"

#include <algorithm>

namespace host {
namespace {

constexpr int kHatchSide = 8;

/// Rows of a hatch; the leftmost pixel is the high bit.
constexpr uint8_t kHatches[][kHatchSide] = {
    {0x00, 0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00}, // horizontal
    {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08}, // vertical
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}, // downwards to the right
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}, // upwards to the right
    {0x08, 0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08}, // both straight ones
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81}, // both diagonals
};

POINT TileOrigin(const DeviceContext& dc)
{
    const POINT base = dc.memory ? POINT{} : dc.origin;
    return {dc.state.brushOrigin.x + base.x, dc.state.brushOrigin.y + base.y};
}

void MakeHatchTile(Ink& ink, const DeviceContext& dc, const LOGBRUSH& description)
{
    const uint32_t line = dc.PixelOf(description.lbColor);
    const uint32_t gap = dc.state.backMode == OPAQUE ? dc.PixelOf(dc.state.backColor) : Ink::kGap;
    ink.tileWidth = kHatchSide;
    ink.tileHeight = kHatchSide;
    for (const uint8_t row : kHatches[description.lbHatch]) {
        for (int bit = kHatchSide - 1; bit >= 0; --bit)
            ink.tile.push_back((row >> bit & 1) != 0 ? line : gap);
    }
}

void MakePatternTile(Ink& ink, const DeviceContext& dc, const Image& pattern)
{
    const uint32_t text = dc.PixelOf(dc.state.textColor);
    const uint32_t back = dc.PixelOf(dc.state.backColor);
    ink.tileWidth = pattern.width;
    ink.tileHeight = pattern.height;
    for (int y = 0; y < pattern.height; ++y) {
        const RowAccess row(pattern, y, 0, pattern.width, RowUse::Read);
        for (int x = 0; x < pattern.width; ++x) {
            const uint32_t pixel = row.Pixels()[x] & kColorBits;
            ink.tile.push_back(!pattern.monochrome ? pixel : pixel == kBlackPixel ? text : back);
        }
    }
}

int Remainder(int value, int divisor)
{
    const int rest = value % divisor;
    return rest < 0 ? rest + divisor : rest;
}

/// `whenSet` where the bits of `selector` are set, `whenClear` elsewhere.
constexpr uint32_t Choose(uint32_t selector, uint32_t whenSet, uint32_t whenClear)
{
    return whenClear ^ (selector & (whenClear ^ whenSet));
}

constexpr uint32_t kNoPattern = 0;

} // namespace

RasterTable TableOfRop2(int rop2)
{
    // The number less one is the table over (pen << 1 | destination); the source's bit changes nothing.
    const unsigned binary = static_cast<unsigned>(rop2 - R2_BLACK);
    const unsigned withoutPen = binary & 3;
    const unsigned withPen = binary >> 2;
    return static_cast<RasterTable>(withoutPen | withoutPen << 2 | withPen << 4 | withPen << 6);
}

void Ink::Fill(uint32_t* pixels, int x, int y, int count) const
{
    const uint32_t* const row = tile.data() + ptrdiff_t{Remainder(y - origin.y, tileHeight)} * tileWidth;
    int column = Remainder(x - origin.x, tileWidth);
    for (int i = 0; i < count; ++i) {
        pixels[i] = row[column];
        if (++column == tileWidth)
            column = 0;
    }
}

Ink SolidInk(uint32_t pixel)
{
    Ink ink;
    ink.color = pixel;
    return ink;
}

Ink InkOf(const DeviceContext& dc, const Brush& brush)
{
    Ink ink = SolidInk(dc.PixelOf(brush.description.lbColor));
    ink.origin = TileOrigin(dc);
    if (brush.description.lbStyle == BS_NULL)
        ink.visible = false;
    else if (brush.description.lbStyle == BS_HATCHED)
        MakeHatchTile(ink, dc, brush.description);
    else if (brush.description.lbStyle == BS_PATTERN)
        MakePatternTile(ink, dc, brush.pattern);
    return ink;
}

void CombineRow(RasterTable table, uint32_t* destination, const uint32_t* source, const uint32_t* pattern,
                int count)
{
    uint32_t bits[8]; // of the table, spread over a pixel
    for (int i = 0; i < 8; ++i)
        bits[i] = (table >> i & 1) != 0 ? kColorBits : 0;
    for (int i = 0; i < count; ++i) {
        const uint32_t d = destination[i];
        const uint32_t s = source != nullptr ? source[i] : 0;
        const uint32_t p = pattern != nullptr ? pattern[i] : kNoPattern;
        const uint32_t without = Choose(s, Choose(d, bits[3], bits[2]), Choose(d, bits[1], bits[0]));
        const uint32_t with = Choose(s, Choose(d, bits[7], bits[6]), Choose(d, bits[5], bits[4]));
        destination[i] = Choose(p, with, without);
    }
}

Painter::Painter(DeviceContext& dc, Ink ink, RasterTable table) : dc_(dc), ink_(std::move(ink)), table_(table)
{
}

void Painter::Rect(const RECT& rect)
{
    if (!ink_.visible)
        return;
    for (const RECT& part : dc_.Reach().Rects()) {
        const RECT area = Intersection(part, rect);
        for (LONG y = area.top; y < area.bottom; ++y)
            Row(y, area.left, area.right);
    }
}

void Painter::Row(int y, int left, int right)
{
    const int count = right - left;
    const bool copies = table_ == kCopyPattern && ink_.tileWidth == 0;
    const RowAccess row(dc_.Target(), y, left, count, copies ? RowUse::Write : RowUse::Change);
    uint32_t* const pixels = row.Pixels();
    if (copies) {
        std::fill_n(pixels, count, ink_.color);
        return;
    }
    pattern_.assign(static_cast<size_t>(count), ink_.color);
    if (ink_.tileWidth == 0) {
        CombineRow(table_, pixels, nullptr, pattern_.data(), count);
        return;
    }
    ink_.Fill(pattern_.data(), left, y, count);
    std::vector<uint32_t> result(pixels, pixels + count);
    CombineRow(table_, result.data(), nullptr, pattern_.data(), count);
    for (int i = 0; i < count; ++i) {
        if (pattern_[static_cast<size_t>(i)] != Ink::kGap)
            pixels[i] = result[static_cast<size_t>(i)];
    }
}

} // namespace host
