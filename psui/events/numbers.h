#pragma once
#include <cstdint>
#include <string_view>

#include <windows.h>

namespace psui {

/// The decimal number that begins `text` after blanks, read up to the first other character; 0 without one.
/// At most 18 digits are read.
constexpr uint64_t LeadingNumber(std::basic_string_view<WCHAR> text)
{
    constexpr size_t kMostDigits = 18;
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    uint64_t number = 0;
    for (WCHAR c : text.substr(0, kMostDigits)) {
        if (c < '0' || c > '9')
            break;
        number = number * 10 + static_cast<uint64_t>(c - '0');
    }
    return number;
}

} // namespace psui
