#include "tools/psuictl/command.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/platform.h"

namespace psuictl {
namespace {

ExitCode RunShow(const Session& session, const Arguments&)
{
    Json json = Json::array();
    Table table({"KIND", "TEXT", "DETAIL"});
    for (const platform::RecordedEvent& event : platform::Recorded()) {
        json.push_back({{"kind", event.kind}, {"text", event.text}, {"detail", event.detail}});
        table.Add({event.kind, ReadableLine(event.text), ReadableLine(event.detail)});
    }
    if (session.json)
        PrintJson(session.out, json);
    else if (!table.empty())
        table.Print(session.out);
    return kDone;
}

constexpr Command kCommands[] = {
    {"show",
     "list what programs started and opened in this host: launches, pages, help, beeps",
     {},
     "  psuictl host show\n  psuictl host show --json\n",
     RunShow},
};

} // namespace

extern const CommandFamily kHostFamily = {"host", "the host itself", kCommands};

} // namespace psuictl
