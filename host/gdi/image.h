#pragma once
// Images in memory of every depth that bitmaps have, seen as rows of 32-bit pixels.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <windows.h>

namespace host {

constexpr uint32_t kColorBits = 0x00FFFFFF; // of a pixel 0x00RRGGBB
constexpr uint32_t kBlackPixel = 0;
constexpr uint32_t kWhitePixel = kColorBits;

/// A pixel from a COLORREF 0x00BBGGRR, and back: the same exchange.
constexpr uint32_t ExchangeRedBlue(uint32_t color)
{
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

constexpr int kMaxImageSide = 32767; // pixels

/// A pixel of which `opacity` of 255 parts is `over` and the rest `under`.
uint32_t Blend(uint32_t under, uint32_t over, uint32_t opacity);

struct Image
{
    int width = 0;
    int height = 0;
    int depth = 32;              // bits a pixel: 1, 4, 8, 16 (5-5-5), 24 or 32
    bool monochrome = false;     // 1 bit without a colour table: 0 is black, 1 white
    ptrdiff_t stride = 0;        // bytes from a row to the one below it
    std::byte* top = nullptr;    // the top row
    std::shared_ptr<void> owner; // keeps the memory
    std::vector<uint32_t> table; // pixels; 2, 16 or 256 of them when depth is 8 or less
};

/// Bytes of a row whose end is rounded up to `alignment` bytes.
constexpr int64_t RowBytes(int64_t width, int depth, int alignment)
{
    const int64_t unit = int64_t{8} * alignment;
    return (width * depth + unit - 1) / unit * alignment;
}

/// An image of its own memory, all bits zero. `rowAlignment` in bytes; a bottom-up image's first row in
/// memory is its lowest. False on nonsense sizes, depths or when memory is missing.
bool MakeImage(Image& image, int width, int height, int depth, int rowAlignment, bool bottomUp);

enum class RowUse
{
    Read,
    Write,
    Change
};

/// Some pixels of one row as 0x00RRGGBB: in place where the image stores them so, else a copy that goes back
/// into the image when the object dies. Written pixels take the nearest colour that the image has.
class RowAccess
{
public:
    /// The pixels must lie inside the image.
    RowAccess(const Image& image, int y, int x, int count, RowUse use);
    ~RowAccess();
    RowAccess(const RowAccess&) = delete;
    RowAccess& operator=(const RowAccess&) = delete;

    uint32_t* Pixels() const { return pixels_; }

private:
    const Image& image_;
    std::byte* row_;
    int x_;
    int count_;
    RowUse use_;
    uint32_t* pixels_;
    std::vector<uint32_t> copy_;
};

} // namespace host
