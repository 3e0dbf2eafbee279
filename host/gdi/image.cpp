#include "host/gdi/image.h"

#include <cstdlib>
#include <cstring>

namespace host {
namespace {

constexpr int64_t kMaxBytes = int64_t{1} << 30;

int Distance(uint32_t first, uint32_t second)
{
    int sum = 0;
    for (const int shift : {0, 8, 16}) {
        const int step = static_cast<int>(first >> shift & 0xFF) - static_cast<int>(second >> shift & 0xFF);
        sum += step * step;
    }
    return sum;
}

uint32_t NearestIndex(const std::vector<uint32_t>& table, uint32_t pixel)
{
    size_t best = 0;
    int bestDistance = INT32_MAX;
    for (size_t i = 0; i < table.size() && bestDistance != 0; ++i) {
        const int distance = Distance(table[i], pixel);
        if (distance < bestDistance) {
            best = i;
            bestDistance = distance;
        }
    }
    return static_cast<uint32_t>(best);
}

/// The value at `index` of a row of 1-, 4- or 8-bit values, the first one in the high bits.
uint32_t PackedValue(const std::byte* row, int depth, int index)
{
    const int perByte = 8 / depth;
    const int shift = 8 - depth * (index % perByte + 1);
    return std::to_integer<uint32_t>(row[index / perByte]) >> shift & ((1u << depth) - 1);
}

void SetPackedValue(std::byte* row, int depth, int index, uint32_t value)
{
    const int perByte = 8 / depth;
    const int shift = 8 - depth * (index % perByte + 1);
    const uint32_t mask = ((1u << depth) - 1) << shift;
    std::byte& byte = row[index / perByte];
    byte = static_cast<std::byte>((std::to_integer<uint32_t>(byte) & ~mask) | value << shift);
}

uint32_t From555(uint32_t value)
{
    const auto widen = [](uint32_t five) { return five << 3 | five >> 2; };
    return widen(value >> 10 & 31) << 16 | widen(value >> 5 & 31) << 8 | widen(value & 31);
}

uint16_t To555(uint32_t pixel)
{
    return static_cast<uint16_t>((pixel >> 19 & 31) << 10 | (pixel >> 11 & 31) << 5 | (pixel >> 3 & 31));
}

uint32_t ReadPixel(const Image& image, const std::byte* row, int index)
{
    if (image.depth <= 8)
        return image.table[PackedValue(row, image.depth, index)];
    if (image.depth == 16) {
        uint16_t value;
        std::memcpy(&value, row + ptrdiff_t{2} * index, sizeof value);
        return From555(value);
    }
    const std::byte* const bytes = row + ptrdiff_t{image.depth / 8} * index;
    return std::to_integer<uint32_t>(bytes[0]) | std::to_integer<uint32_t>(bytes[1]) << 8 |
           std::to_integer<uint32_t>(bytes[2]) << 16;
}

void WritePixel(const Image& image, std::byte* row, int index, uint32_t pixel)
{
    if (image.depth <= 8) {
        SetPackedValue(row, image.depth, index, NearestIndex(image.table, pixel));
    } else if (image.depth == 16) {
        const uint16_t value = To555(pixel);
        std::memcpy(row + ptrdiff_t{2} * index, &value, sizeof value);
    } else {
        const int bytes = image.depth / 8;
        for (int i = 0; i < bytes; ++i)
            row[ptrdiff_t{bytes} * index + i] = static_cast<std::byte>(pixel >> (8 * i));
    }
}

} // namespace

uint32_t Blend(uint32_t under, uint32_t over, uint32_t opacity)
{
    uint32_t result = 0;
    for (const int shift : {0, 8, 16}) {
        const uint32_t from = under >> shift & 0xFF;
        const uint32_t to = over >> shift & 0xFF;
        result |= (from * (255 - opacity) + to * opacity + 127) / 255 << shift;
    }
    return result;
}

bool MakeImage(Image& image, int width, int height, int depth, int rowAlignment, bool bottomUp)
{
    if (width <= 0 || height <= 0 || width > kMaxImageSide || height > kMaxImageSide)
        return false;
    const int64_t rowBytes = RowBytes(width, depth, rowAlignment);
    if (rowBytes * height > kMaxBytes)
        return false;
    const std::shared_ptr<std::byte> memory(
        static_cast<std::byte*>(std::calloc(static_cast<size_t>(height), static_cast<size_t>(rowBytes))),
        std::free);
    if (!memory)
        return false;
    image.width = width;
    image.height = height;
    image.depth = depth;
    image.stride = bottomUp ? -rowBytes : rowBytes;
    image.top = bottomUp ? memory.get() + rowBytes * (height - 1) : memory.get();
    image.owner = memory;
    return true;
}

RowAccess::RowAccess(const Image& image, int y, int x, int count, RowUse use)
    : image_(image), row_(image.top + image.stride * y), x_(x), count_(count), use_(use)
{
    const bool aligned = reinterpret_cast<uintptr_t>(row_) % sizeof(uint32_t) == 0;
    if (image.depth == 32 && aligned) {
        pixels_ = reinterpret_cast<uint32_t*>(row_) + x;
        return;
    }
    copy_.resize(static_cast<size_t>(count));
    pixels_ = copy_.data();
    if (use == RowUse::Write)
        return;
    for (int i = 0; i < count; ++i)
        pixels_[i] = ReadPixel(image, row_, x + i);
}

RowAccess::~RowAccess()
{
    if (copy_.empty() || use_ == RowUse::Read)
        return;
    for (int i = 0; i < count_; ++i)
        WritePixel(image_, row_, x_ + i, pixels_[i]);
}

} // namespace host
