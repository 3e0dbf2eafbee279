#include "tools/psuictl/png.h"

#include <algorithm>
#include <array>

namespace psuictl {
namespace {

constexpr size_t kMaxStored = 65535; // bytes of one uncompressed block
constexpr uint32_t kAdlerModulus = 65521;

std::string BigEndian(uint32_t value)
{
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(value >> shift);
    return bytes;
}

uint32_t Crc(const std::string& bytes)
{
    uint32_t crc = ~0u;
    for (const char byte : bytes) {
        crc ^= static_cast<uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1 ? 0xEDB88320u : 0);
    }
    return ~crc;
}

uint32_t Adler(const std::string& bytes)
{
    uint32_t low = 1, high = 0;
    for (const char byte : bytes) {
        low = (low + static_cast<uint8_t>(byte)) % kAdlerModulus;
        high = (high + low) % kAdlerModulus;
    }
    return high << 16 | low;
}

std::string Chunk(const char* kind, const std::string& data)
{
    const std::string checked = kind + data;
    return BigEndian(static_cast<uint32_t>(data.size())) + checked + BigEndian(Crc(checked));
}

/// A zlib stream of stored blocks.
std::string Stored(const std::string& data)
{
    std::string stream = "\x78\x01";
    size_t at = 0;
    do {
        const size_t size = std::min(data.size() - at, kMaxStored);
        stream += at + size == data.size() ? '\1' : '\0';
        for (const size_t value : {size, ~size}) {
            stream += static_cast<char>(value);
            stream += static_cast<char>(value >> 8);
        }
        stream.append(data, at, size);
        at += size;
    } while (at < data.size());
    return stream + BigEndian(Adler(data));
}

} // namespace

std::string EncodePng(const uint32_t* pixels, size_t width, size_t height)
{
    std::string rows;
    for (size_t row = 0; row < height; ++row) {
        rows += '\0'; // no filter
        for (size_t column = 0; column < width; ++column) {
            for (int shift = 16; shift >= 0; shift -= 8)
                rows += static_cast<char>(pixels[row * width + column] >> shift);
        }
    }
    const std::string head = BigEndian(static_cast<uint32_t>(width)) +
                             BigEndian(static_cast<uint32_t>(height)) +
                             std::string("\x08\x02\0\0\0", 5); // 8 bits each of red, green and blue
    return "\x89PNG\r\n\x1a\n" + Chunk("IHDR", head) + Chunk("IDAT", Stored(rows)) + Chunk("IEND", "");
}

} // namespace psuictl
