// UTF-8, UTF-16 and the comparison of names without regard to case.
#include <clocale>
#include <cwctype>
#include <locale.h>
#include <memory>

#include "host/kernel/world.h"

namespace host {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr size_t kUnits = 0x10000;

bool IsHighSurrogate(char16_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char16_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

void AppendUtf8(std::string& text, char32_t code)
{
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0 | (code >> 6));
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0 | (code >> 12));
        text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        text += static_cast<char>(0xF0 | (code >> 18));
        text += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (code & 0x3F));
    }
}

void AppendUtf16(std::u16string& text, char32_t code)
{
    if (code < 0x10000) {
        text += static_cast<char16_t>(code);
        return;
    }
    text += static_cast<char16_t>(0xD7C0 + (code >> 10));
    text += static_cast<char16_t>(0xDC00 + (code & 0x3FF));
}

struct Decoded
{
    char32_t code;
    size_t size; // bytes consumed, at least 1
};

Decoded DecodeUtf8(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80)
        return {lead, 1};
    const size_t size = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < size)
        return {kReplacement, 1};
    char32_t code = lead & (0x7F >> size);
    for (size_t i = 1; i < size; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return {kReplacement, 1};
        code = code << 6 | (next & 0x3F);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (code < kSmallest[size] || code > 0x10FFFF)
        return {kReplacement, 1};
    return {code, size};
}

/// The machine's upper-case mapping, with the differences of the platform's own table: nothing becomes ASCII,
/// and the micro sign stays itself.
std::unique_ptr<char16_t[]> MakeUpperCaseTable()
{
    auto table = std::make_unique<char16_t[]>(kUnits);
    const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    for (size_t unit = 0; unit < kUnits; ++unit) {
        const wint_t upper =
            locale != nullptr ? towupper_l(static_cast<wint_t>(unit), locale) : static_cast<wint_t>(unit);
        const bool usable = upper >= 0x80 && upper < kUnits && unit != 0xB5;
        table[unit] = static_cast<char16_t>(usable ? upper : unit);
    }
    if (locale != nullptr)
        freelocale(locale);
    return table;
}

} // namespace

std::string Utf8(std::u16string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00);
        AppendUtf8(result, code);
    }
    return result;
}

std::u16string Utf16(std::string_view text)
{
    std::u16string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Decoded decoded = DecodeUtf8(text);
        AppendUtf16(result, decoded.code);
        text.remove_prefix(decoded.size);
    }
    return result;
}

char16_t UpperCase(char16_t unit)
{
    if (unit < 0x80)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - u'a' + u'A') : unit;
    static const std::unique_ptr<char16_t[]> table = MakeUpperCaseTable();
    return table[unit];
}

bool EqualNoCase(std::u16string_view first, std::u16string_view second)
{
    if (first.size() != second.size())
        return false;
    for (size_t i = 0; i < first.size(); ++i) {
        if (first[i] != second[i] && UpperCase(first[i]) != UpperCase(second[i]))
            return false;
    }
    return true;
}

} // namespace host
