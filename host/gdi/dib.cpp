#include "host/gdi/dib.h"

#include <algorithm>
#include <cstring>

#include "host/gdi/dc.h"

namespace host {
namespace {

constexpr size_t kMaskBytes = 12; // three colour masks behind the header

uint32_t PixelOfEntry(const PALETTEENTRY& entry)
{
    return ExchangeRedBlue(RGB(entry.peRed, entry.peGreen, entry.peBlue));
}

bool KnownDepth(int depth)
{
    constexpr int kDepths[] = {1, 4, 8, 16, 24, 32};
    return std::find(std::begin(kDepths), std::end(kDepths), depth) != std::end(kDepths);
}

} // namespace

std::optional<DibFormat> ReadDibHeader(const BITMAPINFOHEADER& header)
{
    const bool masks = header.biCompression == BI_BITFIELDS && header.biBitCount == 32;
    const bool plain = header.biCompression == BI_RGB || masks;
    if (header.biSize < sizeof header || !KnownDepth(header.biBitCount) || !plain)
        return {};
    const int64_t height = header.biHeight;
    if (header.biWidth <= 0 || header.biWidth > kMaxImageSide || height == 0 ||
        std::abs(height) > kMaxImageSide)
        return {};
    DibFormat format;
    format.width = header.biWidth;
    format.height = static_cast<int>(std::abs(height));
    format.bottomUp = height > 0;
    format.depth = header.biBitCount;
    format.rowBytes = static_cast<size_t>(RowBytes(format.width, format.depth, 4));
    format.tableOffset = header.biSize + (masks && header.biSize == sizeof header ? kMaskBytes : 0);
    if (format.depth <= 8) {
        const uint32_t full = 1u << format.depth;
        format.colorCount = header.biClrUsed == 0 ? full : std::min(header.biClrUsed, full);
    }
    return format;
}

std::vector<uint32_t> ReadColorTable(const void* info, const DibFormat& format, UINT usage,
                                     const Palette& palette)
{
    if (format.depth > 8)
        return {};
    std::vector<uint32_t> table(size_t{1} << format.depth, kBlackPixel);
    const std::byte* const entries = static_cast<const std::byte*>(info) + format.tableOffset;
    for (size_t i = 0; i < format.colorCount; ++i) {
        if (usage != DIB_PAL_COLORS) {
            std::memcpy(&table[i], entries + i * sizeof(RGBQUAD), sizeof(RGBQUAD));
            table[i] &= kColorBits;
            continue;
        }
        WORD place;
        std::memcpy(&place, entries + i * sizeof place, sizeof place);
        if (place < palette.entries.size())
            table[i] = PixelOfEntry(palette.entries[place]);
    }
    return table;
}

Image ViewOf(const DibFormat& format, const void* bits, std::vector<uint32_t> table)
{
    Image image;
    image.width = format.width;
    image.height = format.height;
    image.depth = format.depth;
    image.table = std::move(table);
    const auto stride = static_cast<ptrdiff_t>(format.rowBytes);
    image.stride = format.bottomUp ? -stride : stride;
    image.top = static_cast<std::byte*>(const_cast<void*>(bits));
    if (format.bottomUp)
        image.top += stride * (format.height - 1);
    return image;
}

std::optional<Image> ViewOfPackedDib(std::span<const std::byte> data, size_t bitsOffset)
{
    BITMAPINFOHEADER header;
    if (data.size() < sizeof header)
        return {};
    std::memcpy(&header, data.data(), sizeof header);
    const std::optional<DibFormat> format = ReadDibHeader(header);
    if (!format || format->tableOffset > data.size())
        return {};
    const size_t tableEnd = format->tableOffset + format->colorCount * sizeof(RGBQUAD);
    const size_t bits = bitsOffset != 0 ? bitsOffset : tableEnd;
    if (bits < tableEnd || bits > data.size() || data.size() - bits < format->ImageBytes())
        return {};
    return ViewOf(*format, data.data() + bits,
                  ReadColorTable(data.data(), *format, DIB_RGB_COLORS, *Stock<Palette>(DEFAULT_PALETTE)));
}

void CopyRow(const Image& from, int fromY, const Image& to, int toY, int count)
{
    const RowAccess source(from, fromY, 0, count, RowUse::Read);
    const RowAccess copy(to, toY, 0, count, RowUse::Write);
    std::copy_n(source.Pixels(), count, copy.Pixels());
}

std::vector<uint32_t> DefaultTable(int depth)
{
    if (depth > 8)
        return {};
    if (depth == 1)
        return {kBlackPixel, kWhitePixel};
    std::vector<uint32_t> table;
    for (const PALETTEENTRY& entry : Stock<Palette>(DEFAULT_PALETTE)->entries)
        table.push_back(PixelOfEntry(entry));
    if (depth == 4) // the eight dark and the eight light colours, without the four between them
        table.erase(table.begin() + 8, table.begin() + 12);
    table.resize(size_t{1} << depth, kBlackPixel);
    return table;
}

} // namespace host
