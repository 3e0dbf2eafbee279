#pragma once
// A bitmap resource of this library, read as a device-independent image.
#include <cstddef>
#include <cstdint>

#include <windows.h>

namespace psui {

constexpr uint32_t kMaxDibColors = 256;

/// Where the pieces of an image lie. The memory is the module's and is never freed.
struct DibView
{
    const BITMAPINFO* info = nullptr; ///< null when there is no sound image
    const RGBQUAD* colors = nullptr;
    uint32_t colorCount = 0; ///< 0 when the pixels hold their colours themselves
    const void* pixels = nullptr;

    int Width() const { return info->bmiHeader.biWidth; }
    int Height() const { return info->bmiHeader.biHeight; }
};

/// The image in `size` bytes that are laid out as a bitmap resource: uncompressed, bottom up, of 1, 4, 8, 24
/// or 32 bits a pixel, with all of its colours and pixels inside. Anything else has a null `info`. A header
/// that does not count its colours has as many as the bits of a pixel can number.
DibView ReadDib(const void* bytes, size_t size);

/// The same from bitmap resource `id` of this library.
DibView FindDib(UINT id);

/// A logical palette of the image's colours; null when it has none or memory fails. The caller deletes it.
HPALETTE PaletteOf(const RGBQUAD* colors, uint32_t count);

} // namespace psui
