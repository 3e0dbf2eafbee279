#include "psui/model/crc.h"

#include <array>
#include <cstddef>

namespace psui::compiler {

namespace {

// A byte at a time, the check would cost more than all the rest of a compilation. Sixteen bytes at a time,
// only the first two wait for the block before (M. E. Kounavis, F. L. Berry: A Systematic Approach to
// Building High Performance Software-Based CRC Generators, 2005).
constexpr size_t kSlices = 16;

using Slice = std::array<uint16_t, 256>;

constexpr uint16_t ShiftIn(unsigned crc)
{
    constexpr unsigned kPolynomial = 0x1021;
    for (int bit = 0; bit < 8; ++bit)
        crc = (crc & 0x8000) ? (crc << 1) ^ kPolynomial : crc << 1;
    return static_cast<uint16_t>(crc);
}

/// Slice n holds the check of each byte when n zero bytes follow it.
constexpr std::array<Slice, kSlices> MakeSlices()
{
    std::array<Slice, kSlices> slices{};
    for (unsigned byte = 0; byte < slices[0].size(); ++byte) {
        slices[0][byte] = ShiftIn(byte << 8);
        for (size_t n = 1; n < kSlices; ++n)
            slices[n][byte] = ShiftIn(slices[n - 1][byte]);
    }
    return slices;
}

constexpr std::array<Slice, kSlices> kSliceTables = MakeSlices();

} // namespace

uint16_t CrcOf(std::string_view bytes)
{
    const auto* at = reinterpret_cast<const uint8_t*>(bytes.data());
    const auto* const end = at + bytes.size();
    unsigned crc = 0;
    for (; static_cast<size_t>(end - at) >= kSlices; at += kSlices) {
        unsigned next =
            kSliceTables[kSlices - 1][at[0] ^ (crc >> 8)] ^ kSliceTables[kSlices - 2][at[1] ^ (crc & 0xFF)];
        for (size_t i = 2; i < kSlices; ++i)
            next ^= kSliceTables[kSlices - 1 - i][at[i]];
        crc = next;
    }
    for (; at != end; ++at)
        crc = kSliceTables[0][(crc >> 8) ^ *at] ^ (crc << 8 & 0xFFFF);
    return static_cast<uint16_t>(crc);
}

} // namespace psui::compiler
