#pragma once
// What commands print: aligned tables and JSON, both UTF-8.
#include <ostream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace psuictl {

using Json = nlohmann::ordered_json;

void PrintJson(std::ostream& out, const Json& value);

/// Rows of cells, printed in columns that fit the widest cell as a console shows it. An empty heading list
/// prints no heading line.
class Table
{
public:
    explicit Table(std::vector<std::string> headings = {}) : headings_(std::move(headings)) {}

    void Add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }
    bool empty() const { return rows_.empty(); }
    /// Prints every line after `indent` blanks.
    void Print(std::ostream& out, size_t indent = 0) const;

private:
    std::vector<std::string> headings_;
    std::vector<std::vector<std::string>> rows_;
};

/// "1 feature", "2 features".
std::string Counted(size_t count, const char* noun);

} // namespace psuictl
