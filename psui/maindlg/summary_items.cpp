#include "psui/maindlg/summary_items.h"

#include <iterator>

#include "psui/base/module.h"

namespace psui {

namespace {

constexpr int kLongestHeading = 124; // units
constexpr int kLongestFormat = 256;  // units

constexpr const WCHAR* kEnds[] = {
    TEXT("\t"),
    TEXT("\r\n"),
    TEXT("\r\n     "),
    TEXT("\r\n          "),
};

void AppendFramed(TextCursor& cursor, const WCHAR* before, UINT id, const WCHAR* after)
{
    Append(cursor, before);
    AppendLabel(cursor, hLangModule, id, kLongestHeading);
    Append(cursor, after);
}

void AppendNumber(TextCursor& cursor, UINT id, int number)
{
    WCHAR format[kLongestFormat];
    LoadLanguageString(id, format, std::size(format));
    CleanLabel(format);
    AppendFormatted(cursor, format, number);
}

} // namespace

void AppendSummaryEnd(TextCursor& cursor, SummaryEnd end, const WCHAR* custom)
{
    const auto index = static_cast<size_t>(end);
    if (index < std::size(kEnds))
        Append(cursor, kEnds[index]);
    else if (custom)
        Append(cursor, custom);
}

void AppendSummaryItem(TextCursor& cursor, SummaryKind kind, UINT id, int number, SummaryEnd end,
                       const WCHAR* custom)
{
    switch (kind) {
    case SummaryKind::Plain:
        AppendLabel(cursor, hLangModule, id, cursor.left);
        break;
    case SummaryKind::Number:
        AppendNumber(cursor, id, number);
        break;
    case SummaryKind::Section:
        AppendFramed(cursor, TEXT("---"), id, TEXT("------------------------------"));
        break;
    case SummaryKind::GroupHeading:
        AppendFramed(cursor, TEXT("<"), id, TEXT(">"));
        break;
    }
    AppendSummaryEnd(cursor, end, custom);
}

} // namespace psui
