#include "psui/base/label.h"

#include <algorithm>
#include <cstring>

#include "psui/base/format.h"
#include "psui/base/module.h"

namespace psui {

namespace {

bool IsMnemonicInParentheses(const WCHAR* text)
{
    return text[0] == '(' && text[1] == '&' && text[2] && text[2] != '&' && text[3] == ')';
}

constexpr int kMnemonicUnits = 4; // "(&X)"

} // namespace

void Append(TextCursor& cursor, std::basic_string_view<WCHAR> piece)
{
    if (cursor.left <= 0)
        return;
    const int units = static_cast<int>(std::min<size_t>(piece.size(), cursor.left - 1));
    std::memcpy(cursor.at, piece.data(), units * sizeof(WCHAR));
    cursor.at += units;
    cursor.left -= units;
    *cursor.at = 0;
}

void AppendLabel(TextCursor& cursor, HMODULE module, UINT id, int limit)
{
    if (cursor.left <= 0)
        return;
    LoadModuleString(module, id, cursor.at, std::min(cursor.left, limit));
    CleanLabel(cursor.at);
    const int units = lstrlenW(cursor.at);
    cursor.at += units;
    cursor.left -= units;
}

void AppendFormatted(TextCursor& cursor, const WCHAR* format, int number)
{
    for (; *format; ++format) {
        if (format[0] != '%' || (format[1] != 'd' && format[1] != 'u' && format[1] != '%')) {
            Append(cursor, {format, 1});
            continue;
        }
        ++format;
        if (*format == '%')
            Append(cursor, {format, 1});
        else
            Append(cursor, DecimalText(number).text);
    }
}

void CleanLabel(WCHAR* text)
{
    WCHAR* to = text;
    for (const WCHAR* from = text; *from; ++from) {
        if (IsMnemonicInParentheses(from)) {
            from += kMnemonicUnits - 1;
            continue;
        }
        if (*from == '&') {
            if (from[1] != '&')
                continue;
            ++from;
        }
        if (*from == '\r' && from[1] == '\n')
            continue;
        *to++ = *from == '\n' ? WCHAR{' '} : *from;
    }
    *to = 0;
}

} // namespace psui
