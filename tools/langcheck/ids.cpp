#include "tools/langcheck/ids.h"

#include <regex>
#include <sstream>

namespace langcheck {

void ReadIds(const std::string& header, Ids& ids)
{
    static const std::regex definition(R"(#define\s+(ID[SDC]_\w+)\s+(\d+)(?:\s*/\*\s*(.*?)\s*\*/)?\s*)");
    static const std::string places = "places: ";
    std::istringstream lines(header);
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (!std::regex_match(line, match, definition))
            continue;
        const std::string name = match[1], note = match[3];
        const auto id = static_cast<unsigned>(std::stoul(match[2]));
        if (name.starts_with("IDS_"))
            ids.strings.push_back(
                {name, id, note == "optional", note.starts_with(places) ? note.substr(places.size()) : ""});
        else
            (name.starts_with("IDD_") ? ids.templates : ids.controls)[name] = id;
    }
}

} // namespace langcheck
