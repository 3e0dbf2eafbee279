#pragma once
// Building small texts in buffers of fixed size.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <type_traits>

#include <windows.h>

namespace psui {

/// Pieces of a text; none of them may lie in the buffer that they are put into.
template <typename Char>
using TextPieces = std::initializer_list<std::basic_string_view<std::type_identity_t<Char>>>;

/// Puts `pieces` behind the text in `buffer`. Returns false, with the buffer as it was, when they and the
/// terminator do not fit.
template <typename Char, size_t N>
bool AppendText(Char (&buffer)[N], TextPieces<Char> pieces)
{
    const size_t start = std::basic_string_view<Char>(buffer).size();
    size_t end = start;
    for (const auto& piece : pieces) {
        if (piece.size() >= N - end) {
            buffer[start] = 0;
            return false;
        }
        std::copy(piece.begin(), piece.end(), buffer + end);
        end += piece.size();
    }
    buffer[end] = 0;
    return true;
}

/// Makes `buffer` the text of `pieces`. Returns false, with an empty text in the buffer, when they and the
/// terminator do not fit: a shortened path or command would mean something else.
template <typename Char, size_t N>
bool JoinText(Char (&buffer)[N], TextPieces<Char> pieces)
{
    buffer[0] = 0;
    return AppendText(buffer, pieces);
}

/// A number as text; long enough for any 32-bit number in either notation.
struct NumberText
{
    WCHAR text[12];
};

/// Signed decimal.
NumberText DecimalText(int32_t number);

/// "0x" and lower-case digits without leading zeros.
NumberText HexText(uint32_t number);

/// "0x", 16 upper-case digits and the terminator.
struct PointerText
{
    char text[19];
};

/// The address as the platform's own formatting writes it after "0x" on 64-bit Windows, whatever the C
/// library at hand would make of it.
PointerText TextOfPointer(const void* pointer);

} // namespace psui
