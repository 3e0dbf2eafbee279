#include "psui/base/format.h"

#include <charconv>
#include <iterator>

namespace psui {

namespace {

/// `prefix`, then the number in that base.
template <typename Number>
NumberText TextOfNumber(std::string_view prefix, Number number, int base)
{
    char digits[std::size(NumberText{}.text)];
    const std::to_chars_result end = std::to_chars(digits, std::end(digits), number, base);
    NumberText result = {};
    WCHAR* place = std::copy(prefix.begin(), prefix.end(), result.text);
    std::copy(digits, end.ptr, place);
    return result;
}

} // namespace

NumberText DecimalText(int32_t number)
{
    return TextOfNumber("", number, 10);
}

NumberText HexText(uint32_t number)
{
    return TextOfNumber("0x", number, 16);
}

PointerText TextOfPointer(const void* pointer)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    PointerText result = {"0x0000000000000000"};
    uint64_t address = reinterpret_cast<uintptr_t>(pointer);
    for (char* digit = std::end(result.text) - 2; address != 0; address >>= 4)
        *digit-- = kDigits[address & 0xF];
    return result;
}

} // namespace psui
