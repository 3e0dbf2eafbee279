#include "psui/queries/error_text.h"

#include <charconv>
#include <cstdarg>
#include <cstdint>
#include <string_view>

namespace psui {

namespace {

constexpr int kMostStringUnits = 256; // of a resource string, with its terminator
constexpr int kMostDigits = 11;       // of a 32-bit number, with a sign

/// A buffer that takes what fits and counts everything.
class CutText
{
public:
    CutText(WCHAR* buffer, DWORD size) : buffer_(buffer), room_(buffer && size > 0 ? size - 1 : 0) {}

    void Put(WCHAR unit)
    {
        PutUncounted(unit);
        ++length_;
    }

    void PutUncounted(WCHAR unit)
    {
        if (written_ < room_)
            buffer_[written_++] = unit;
    }

    template <typename Char>
    void Put(std::basic_string_view<Char> text)
    {
        for (Char unit : text)
            Put(static_cast<WCHAR>(unit));
    }

    DWORD Length() const { return length_; }
    DWORD Written() const { return written_; }

private:
    WCHAR* buffer_;
    DWORD room_;
    DWORD written_ = 0;
    DWORD length_ = 0;
};

/// The arguments of one call; a va_list is handed on by reference only inside a record.
struct Arguments
{
    HMODULE module;
    va_list list;
};

void PutString(CutText& out, Arguments& arguments)
{
    WCHAR text[kMostStringUnits];
    const int units = LoadStringW(arguments.module, va_arg(arguments.list, UINT), text, kMostStringUnits);
    out.Put(std::basic_string_view<WCHAR>(text, units > 0 ? units : 0));
}

void PutText(CutText& out, Arguments& arguments)
{
    if (const WCHAR* text = va_arg(arguments.list, const WCHAR*))
        out.Put(std::basic_string_view<WCHAR>(text));
    else
        out.PutUncounted(' ');
}

void PutCharacter(CutText& out, Arguments& arguments)
{
    out.Put(static_cast<WCHAR>(va_arg(arguments.list, int)));
}

template <typename Number>
std::string_view Digits(char (&digits)[kMostDigits], Number number, int base)
{
    const std::to_chars_result end = std::to_chars(digits, digits + kMostDigits, number, base);
    return {digits, static_cast<size_t>(end.ptr - digits)};
}

void PutSigned(CutText& out, Arguments& arguments)
{
    char digits[kMostDigits];
    out.Put(Digits(digits, va_arg(arguments.list, int32_t), 10));
}

void PutUnsigned(CutText& out, Arguments& arguments)
{
    char digits[kMostDigits];
    out.Put(Digits(digits, va_arg(arguments.list, uint32_t), 10));
}

void PutHex(CutText& out, Arguments& arguments)
{
    char digits[kMostDigits];
    out.Put(Digits(digits, va_arg(arguments.list, uint32_t), 16));
}

void PutUpperHex(CutText& out, Arguments& arguments)
{
    char digits[kMostDigits];
    for (char digit : Digits(digits, va_arg(arguments.list, uint32_t), 16))
        out.Put(static_cast<WCHAR>(digit >= 'a' ? digit - 'a' + 'A' : digit));
}

struct Place
{
    WCHAR letter;
    void (*put)(CutText& out, Arguments& arguments);
};

constexpr Place kPlaces[] = {
    {'!', PutString},   {'s', PutText}, {'c', PutCharacter}, {'d', PutSigned},
    {'u', PutUnsigned}, {'x', PutHex},  {'X', PutUpperHex},
};

void PutPlace(CutText& out, WCHAR letter, Arguments& arguments)
{
    for (const Place& place : kPlaces)
        if (place.letter == letter)
            return place.put(out, arguments);
    out.Put(letter);
}

/// A % at the very end stands for nothing.
void PutFormat(CutText& out, const WCHAR* format, Arguments& arguments)
{
    for (; *format; ++format) {
        if (*format != '%')
            out.Put(*format);
        else if (*++format)
            PutPlace(out, *format, arguments);
        else
            return;
    }
}

} // namespace

DWORD FormatErrorText(HMODULE module, WCHAR* buffer, DWORD size, DWORD* needed, const WCHAR* format, ...)
{
    CutText out(buffer, size);
    Arguments arguments = {module, {}};
    va_start(arguments.list, format);
    PutFormat(out, format, arguments);
    va_end(arguments.list);
    if (buffer && size > 0)
        buffer[out.Written()] = 0;
    if (needed)
        *needed = out.Length() + 1;
    return out.Written();
}

} // namespace psui
