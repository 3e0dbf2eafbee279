#include "tools/psuictl/text.h"

#include <charconv>
#include <cstdio>
#include <limits>

namespace psuictl {
namespace {

/// Length of the UTF-8 sequence that starts `text`, and its code point; length 0 when it is none.
struct CodePoint
{
    char32_t value;
    size_t length;
};

size_t SequenceLength(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

CodePoint FirstCodePoint(std::string_view text)
{
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const unsigned char lead = static_cast<unsigned char>(text[0]);
    const size_t length = SequenceLength(lead);
    if (length == 0 || length > text.size())
        return {0, 0};
    char32_t value = length == 1 ? lead : lead & (0x7F >> length);
    for (size_t i = 1; i < length; ++i) {
        const unsigned char next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return {0, 0};
        value = value << 6 | (next & 0x3F);
    }
    const bool surrogate = value >= 0xD800 && value < 0xE000;
    if (value < kSmallest[length] || value > 0x10FFFF || surrogate)
        return {0, 0};
    return {value, length};
}

std::string Readable(std::string_view bytes, bool hexControls)
{
    std::string shown;
    std::string hex;
    const auto flush = [&] {
        if (!hex.empty())
            shown += "<" + HexBytes(hex) + ">";
        hex.clear();
    };
    while (!bytes.empty()) {
        const CodePoint first = FirstCodePoint(bytes);
        const size_t length = first.length ? first.length : 1;
        const bool control = first.value < 0x20 || first.value == 0x7F;
        if (first.length == 0 || (hexControls && control)) {
            hex += bytes.substr(0, length);
        } else {
            flush();
            shown += bytes.substr(0, length);
        }
        bytes.remove_prefix(length);
    }
    flush();
    return shown;
}

struct WidthRange
{
    char32_t first;
    char32_t last;
    int columns;
};

constexpr WidthRange kWidths[] = {
    {0x0300, 0x036F, 0},   {0x1100, 0x115F, 2}, {0x200B, 0x200F, 0}, {0x2E80, 0x303E, 2},
    {0x3041, 0x4DBF, 2},   {0x4E00, 0xA4CF, 2}, {0xAC00, 0xD7A3, 2}, {0xF900, 0xFAFF, 2},
    {0xFE30, 0xFE6F, 2},   {0xFF00, 0xFF60, 2}, {0xFFE0, 0xFFE6, 2}, {0x1F300, 0x1FAFF, 2},
    {0x20000, 0x3FFFD, 2},
};

int Columns(char32_t character)
{
    for (const WidthRange& range : kWidths) {
        if (character >= range.first && character <= range.last)
            return range.columns;
    }
    return 1;
}

int HexDigit(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

struct ErrorSentence
{
    DWORD code;
    const char* words;
};

constexpr ErrorSentence kErrors[] = {
    {ERROR_FILE_NOT_FOUND, "there is no such file"},
    {ERROR_PATH_NOT_FOUND, "there is no such folder"},
    {ERROR_ACCESS_DENIED, "access is denied"},
    {ERROR_INVALID_HANDLE, "the handle is invalid"},
    {ERROR_NOT_ENOUGH_MEMORY, "there is not enough memory"},
    {ERROR_SHARING_VIOLATION, "another program uses the file"},
    {ERROR_INVALID_PARAMETER, "a parameter is invalid"},
    {ERROR_DISK_FULL, "the disk is full"},
    {ERROR_INSUFFICIENT_BUFFER, "the buffer is too small"},
    {ERROR_INVALID_NAME, "the name is invalid"},
    {ERROR_MOD_NOT_FOUND, "there is no such library"},
    {ERROR_PROC_NOT_FOUND, "the library has no such entry point"},
    {ERROR_BAD_EXE_FORMAT, "the file is no library of this machine"},
    {ERROR_UNKNOWN_PORT, "there is no such port"},
    {ERROR_UNKNOWN_PRINTER_DRIVER, "there is no such driver"},
    {ERROR_UNKNOWN_PRINTPROCESSOR, "there is no such print processor"},
    {ERROR_INVALID_PRINTER_NAME, "there is no such printer, or the name is invalid"},
    {ERROR_PRINTER_ALREADY_EXISTS, "a printer of that name exists"},
    {ERROR_PRINTER_DRIVER_IN_USE, "the driver is in use"},
};

} // namespace

WideString Wide(std::string_view utf8)
{
    const int size = static_cast<int>(utf8.size());
    const int units = size ? MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0) : 0;
    WideString wide(static_cast<size_t>(units), 0);
    if (units)
        MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), units);
    return wide;
}

std::string Utf8(WideView text)
{
    const int units = static_cast<int>(text.size());
    const int size =
        units ? WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr) : 0;
    std::string utf8(static_cast<size_t>(size), 0);
    if (size)
        WideCharToMultiByte(CP_UTF8, 0, text.data(), units, utf8.data(), size, nullptr, nullptr);
    return utf8;
}

std::string FieldText(WideView field)
{
    return Utf8(field.substr(0, field.find(WCHAR{0})));
}

std::string ReadableBytes(std::string_view bytes)
{
    return Readable(bytes, false);
}

std::string ReadableLine(std::string_view bytes)
{
    return Readable(bytes, true);
}

std::string Shortened(const std::string& utf8)
{
    constexpr size_t kLongest = 40;
    if (utf8.size() <= kLongest)
        return utf8;
    size_t end = kLongest;
    while (end > 0 && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80)
        --end;
    return utf8.substr(0, end) + "...";
}

size_t DisplayWidth(std::string_view utf8)
{
    size_t width = 0;
    while (!utf8.empty()) {
        const CodePoint first = FirstCodePoint(utf8);
        width += static_cast<size_t>(first.length ? Columns(first.value) : 1);
        utf8.remove_prefix(first.length ? first.length : 1);
    }
    return width;
}

std::optional<int64_t> ParseNumber(std::string_view text)
{
    const bool negative = text.starts_with('-');
    if (negative)
        text.remove_prefix(1);
    const bool hex = text.starts_with("0x") || text.starts_with("0X");
    if (hex)
        text.remove_prefix(2);
    uint64_t magnitude = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, magnitude, hex ? 16 : 10);
    if (error != std::errc() || stop != end || magnitude > std::numeric_limits<int64_t>::max())
        return std::nullopt;
    const int64_t value = static_cast<int64_t>(magnitude);
    return negative ? -value : value;
}

std::optional<std::string> ParseHexBytes(std::string_view text)
{
    std::string bytes;
    while (!text.empty()) {
        if (text[0] == ' ') {
            text.remove_prefix(1);
            continue;
        }
        if (text.size() < 2 || HexDigit(text[0]) < 0 || HexDigit(text[1]) < 0)
            return std::nullopt;
        bytes += static_cast<char>(HexDigit(text[0]) * 16 + HexDigit(text[1]));
        text.remove_prefix(2);
    }
    return bytes;
}

std::string HexBytes(std::string_view bytes)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string hex;
    for (const unsigned char byte : bytes) {
        hex += kDigits[byte >> 4];
        hex += kDigits[byte & 15];
    }
    return hex;
}

std::string Hex(uint64_t value, int digits)
{
    char text[32];
    std::snprintf(text, sizeof text, "0x%0*llX", digits, static_cast<unsigned long long>(value));
    return text;
}

std::string Fixed2(double value)
{
    char text[64];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 2);
    return error == std::errc() ? std::string(text, end) : std::string("?");
}

std::string ErrorWords(DWORD code)
{
    for (const ErrorSentence& sentence : kErrors) {
        if (sentence.code == code)
            return std::string(sentence.words) + " (error " + std::to_string(code) + ")";
    }
    return "error " + std::to_string(code);
}

} // namespace psuictl
