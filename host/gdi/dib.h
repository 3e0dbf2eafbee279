#pragma once
// Device-independent bitmaps in programs' memory and in resources.
#include <cstddef>
#include <optional>
#include <span>

#include "host/gdi/image.h"
#include "host/gdi/object.h"

namespace host {

/// What a header says, checked: 1, 4, 8, 16, 24 or 32 bits, not compressed.
struct DibFormat
{
    int width = 0;
    int height = 0;
    bool bottomUp = true;
    int depth = 0;
    size_t rowBytes = 0;    // a multiple of 4
    size_t colorCount = 0;  // entries of the colour table in memory
    size_t tableOffset = 0; // from the header's begin, in bytes

    size_t ImageBytes() const { return rowBytes * static_cast<size_t>(height); }
};

/// Nothing when the header describes no image that is known here. Only the header itself is read.
std::optional<DibFormat> ReadDibHeader(const BITMAPINFOHEADER& header);

/// The pixels of the colour table of a BITMAPINFO, which may lie anywhere. With DIB_PAL_COLORS it holds
/// 16-bit places in `palette`.
std::vector<uint32_t> ReadColorTable(const void* info, const DibFormat& format, UINT usage,
                                     const Palette& palette);

/// An image in the program's memory; it must stay there and hold format.ImageBytes().
Image ViewOf(const DibFormat& format, const void* bits, std::vector<uint32_t> table);

/// An image in a resource or a file's memory: header, colour table, then the bits, or the bits at
/// `bitsOffset` when that is not 0. Nothing when any of it lies outside of `data`, which must stay there.
std::optional<Image> ViewOfPackedDib(std::span<const std::byte> data, size_t bitsOffset = 0);

/// Copies the pixels of one row into another of the same length in another image.
void CopyRow(const Image& from, int fromY, const Image& to, int toY, int count);

/// The colours of an image that has `depth` bits and no table of its own.
std::vector<uint32_t> DefaultTable(int depth);

} // namespace host
