#include "psui/model/crc.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace psui::compiler {

namespace {

// The check is the remainder of a division by x^16 + x^12 + x^5 + 1, in which every bit of the text is a
// coefficient, 0 or 1. Such a polynomial keeps its terms when it is squared, only their exponents double. So
// units of 8 and of 64 bits divide just as bits do: a unit may be taken away where it stands if it is added
// 4, 11 and 16 units further on. Of a long text only its last units are left then, and they cost next to
// nothing.
constexpr size_t kUnits = 16;

// Divides on with the text from `at` to `end`, a multiple of the units' size; `rest` is what the text before
// it has left.
template <typename Unit>
void Divide(const uint8_t* at, const uint8_t* end, Unit (&rest)[kUnits])
{
    for (; at != end; at += sizeof(rest)) {
        for (size_t i = 0; i < kUnits; ++i) {
            const Unit first = rest[i];
            rest[(i + 4) % kUnits] ^= first;
            rest[(i + 11) % kUnits] ^= first;
            Unit next;
            std::memcpy(&next, at + i * sizeof(Unit), sizeof(next));
            rest[i] = first ^ next;
        }
    }
}

unsigned ShiftIn(unsigned crc, uint8_t byte)
{
    constexpr unsigned kPolynomial = 0x1021;
    crc ^= static_cast<unsigned>(byte) << 8;
    for (int bit = 0; bit < 8; ++bit)
        crc = (crc & 0x8000) ? (crc << 1) ^ kPolynomial : crc << 1;
    return crc;
}

} // namespace

uint16_t CrcOf(std::string_view bytes)
{
    // Zeros in front of a text do not count.
    uint64_t wide[kUnits]{};
    const size_t head = bytes.size() % sizeof(wide);
    const auto* begin = reinterpret_cast<const uint8_t*>(bytes.data());
    std::copy_n(begin, head, reinterpret_cast<uint8_t*>(wide + kUnits) - head);
    Divide(begin + head, begin + bytes.size(), wide);
    uint8_t narrow[kUnits]{};
    const auto* rest = reinterpret_cast<const uint8_t*>(wide);
    Divide(rest, rest + sizeof(wide), narrow);
    unsigned crc = 0;
    for (uint8_t byte : narrow)
        crc = ShiftIn(crc, byte);
    return static_cast<uint16_t>(crc);
}

} // namespace psui::compiler
