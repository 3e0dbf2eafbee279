#pragma once
// The ids that the code and the resource scripts share, read from their headers: one #define a line.
#include <map>
#include <string>
#include <vector>

namespace langcheck {

struct StringId
{
    std::string name;
    unsigned id;
    bool optional;
    std::string places; ///< what the text is filled with, such as "%d %s"
};

struct Ids
{
    std::vector<StringId> strings;             ///< IDS_ names
    std::map<std::string, unsigned> templates; ///< IDD_ names
    std::map<std::string, unsigned> controls;  ///< IDC_ names
};

/// Adds the ids of one header's text.
void ReadIds(const std::string& header, Ids& ids);

} // namespace langcheck
