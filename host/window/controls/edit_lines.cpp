#include "host/window/controls/edit_lines.h"

#include <algorithm>

namespace host {
namespace {

constexpr std::u16string_view kBreak = u"\r\n";

/// The most units of `line` (at least one) that `width` holds.
size_t FittingUnits(std::u16string_view line, int width, const MeasureText& measure)
{
    size_t fits = 1;
    size_t tooMany = line.size() + 1;
    while (fits + 1 < tooMany) {
        const size_t middle = fits + (tooMany - fits) / 2;
        (measure(line.substr(0, middle)) <= width ? fits : tooMany) = middle;
    }
    const bool splitsPair = fits < line.size() && line[fits] >= 0xDC00 && line[fits] < 0xE000;
    return splitsPair ? (fits > 1 ? fits - 1 : fits + 1) : fits;
}

/// Where a line that is too wide goes on: behind the blanks of the last word that fits. A blank that itself
/// no longer fits stays at the line's end.
size_t WrapPlace(std::u16string_view line, size_t fits)
{
    if (fits < line.size() && line[fits] == u' ')
        return std::min(line.find_first_not_of(u' ', fits), line.size());
    const size_t blank = line.substr(0, fits).find_last_of(u" \t");
    return blank == line.npos ? fits : blank + 1;
}

void AppendWrapped(std::vector<EditLine>& lines, std::u16string_view text, size_t start, size_t end,
                   int width, const MeasureText& measure)
{
    while (width > 0 && end - start > 1 && measure(text.substr(start, end - start)) > width) {
        const std::u16string_view rest = text.substr(start, end - start);
        const size_t taken = WrapPlace(rest, FittingUnits(rest, width, measure));
        if (taken == rest.size())
            break;
        lines.push_back({start, taken, 0});
        start += taken;
    }
    lines.push_back({start, end - start, 0});
}

} // namespace

std::vector<EditLine> BreakLines(std::u16string_view text, int width, const MeasureText& measure)
{
    std::vector<EditLine> lines;
    size_t start = 0;
    for (size_t end = text.find(kBreak); end != text.npos; end = text.find(kBreak, start)) {
        AppendWrapped(lines, text, start, end, width, measure);
        lines.back().breakLength = kBreak.size();
        start = end + kBreak.size();
    }
    AppendWrapped(lines, text, start, text.size(), width, measure);
    return lines;
}

size_t LineOfPosition(const std::vector<EditLine>& lines, size_t position)
{
    const auto after =
        std::upper_bound(lines.begin(), lines.end(), position,
                         [](size_t place, const EditLine& line) { return place < line.start; });
    return after == lines.begin() ? 0 : static_cast<size_t>(after - lines.begin()) - 1;
}

} // namespace host
