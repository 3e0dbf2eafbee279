#include "tools/psuictl/output.h"

#include <algorithm>

#include "tools/psuictl/text.h"

namespace psuictl {
namespace {

constexpr size_t kColumnGap = 2;

using Row = std::vector<std::string>;

void Widen(std::vector<size_t>& widths, const Row& row)
{
    widths.resize(std::max(widths.size(), row.size()));
    for (size_t i = 0; i < row.size(); ++i)
        widths[i] = std::max(widths[i], DisplayWidth(row[i]));
}

void PrintRow(std::ostream& out, const Row& row, const std::vector<size_t>& widths, size_t indent)
{
    std::string line(indent, ' ');
    size_t pending = 0;
    for (size_t i = 0; i < row.size(); ++i) {
        if (!row[i].empty()) {
            line.append(pending, ' ');
            line += row[i];
            pending = 0;
        }
        pending += widths[i] - DisplayWidth(row[i]) + kColumnGap;
    }
    out << line << '\n';
}

} // namespace

void PrintJson(std::ostream& out, const Json& value)
{
    out << value.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

void Table::Print(std::ostream& out, size_t indent) const
{
    std::vector<size_t> widths;
    Widen(widths, headings_);
    for (const Row& row : rows_)
        Widen(widths, row);
    if (!headings_.empty())
        PrintRow(out, headings_, widths, indent);
    for (const Row& row : rows_)
        PrintRow(out, row, widths, indent);
}

std::string Counted(size_t count, const char* noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

} // namespace psuictl
