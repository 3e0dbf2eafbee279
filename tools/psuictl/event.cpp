#include <algorithm>

#include "tools/psuictl/command.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/spooler.h"

namespace psuictl {
namespace {

/// Numbers and names of the platform.
constexpr struct
{
    int number;
    const char* name;
} kEvents[] = {
    {1, "createdcpre"}, {2, "createdcpost"}, {3, "resetdcpre"}, {4, "resetdcpost"},
    {5, "startdoc"},    {6, "startpage"},    {7, "endpage"},    {8, "escape"},
    {9, "enddoc"},      {10, "deletedc"},    {11, "abortdoc"},
};

constexpr Parameter kDocumentParameters[] = {
    {"NAME", nullptr, "the printer that is printed to", ParameterKind::Text, true},
    {"EVENT", nullptr,
     "events of one job, in order: numbers, or createdcpre, createdcpost, resetdcpre, resetdcpost, startdoc, "
     "startpage, endpage, escape, enddoc, deletedc, abortdoc",
     ParameterKind::Text, true, true},
};

/// Stands for the job's device context: the library tells its number and does not use it.
const HDC kDevice = reinterpret_cast<HDC>(ULONG_PTR{0xDC});

constexpr WCHAR kPopupAtom[] = TEXT("VMSTSWIN-POPUPONPRINT ");

int EventNumber(const std::string& text)
{
    const auto* row = std::find_if(std::begin(kEvents), std::end(kEvents),
                                   [&](const auto& event) { return text == event.name; });
    if (row != std::end(kEvents))
        return row->number;
    const std::optional<int64_t> number = ParseNumber(text);
    if (!number || *number < 0 || *number > INT32_MAX)
        throw Failure("'" + text + "' is no event; 'psuictl event document --help' lists them", kWrongUsage);
    return static_cast<int>(*number);
}

std::string EventName(int number)
{
    const auto* row = std::find_if(std::begin(kEvents), std::end(kEvents),
                                   [=](const auto& event) { return number == event.number; });
    return std::to_string(number) + (row == std::end(kEvents) ? "" : std::string(" ") + row->name);
}

/// Name of the variable that marks the printer's device context: the handle as the platform's "0x%p" writes
/// it.
std::string VariableName(const PrinterHandle& printer)
{
    return Hex(reinterpret_cast<ULONG_PTR>(printer.get()), 2 * sizeof(HANDLE));
}

std::optional<std::string> Variable(const std::string& name)
{
    char value[64];
    const DWORD size = GetEnvironmentVariableA(name.c_str(), value, sizeof value);
    return size && size < sizeof value ? std::optional(std::string(value, size)) : std::nullopt;
}

/// What the status monitor can see after an event.
struct Trace
{
    int event;
    int result;
    bool atom;
    std::optional<std::string> variable;
};

std::vector<Trace> Raise(psui::DrvDocumentEventFn raise, const PrinterHandle& printer, const WideString& atom,
                         const std::vector<int>& events)
{
    std::vector<Trace> traces;
    for (const int event : events) {
        const int result = raise(printer.get(), kDevice, event, 0, nullptr, 0, nullptr);
        traces.push_back(
            {event, result, GlobalFindAtomW(atom.c_str()) != 0, Variable(VariableName(printer))});
    }
    return traces;
}

void PrintTraces(const Session& session, const std::string& atom, const std::string& variable,
                 const std::vector<Trace>& traces)
{
    Json json = Json::array();
    Table table({"EVENT", "RESULT", "ATOM", "VARIABLE"});
    for (const Trace& trace : traces) {
        json.push_back({{"event", trace.event},
                        {"result", trace.result},
                        {"atom", trace.atom ? Json(atom) : Json()},
                        {"variable", trace.variable ? Json(variable) : Json()},
                        {"value", trace.variable ? Json(*trace.variable) : Json()}});
        table.Add({EventName(trace.event), std::to_string(trace.result),
                   trace.atom ? "\"" + atom + "\"" : "-",
                   trace.variable ? variable + "=" + *trace.variable : "-"});
    }
    if (session.json)
        PrintJson(session.out, json);
    else
        table.Print(session.out);
}

ExitCode RunDocument(const Session& session, const Arguments& arguments)
{
    const WideString name = Wide(arguments.Text("NAME"));
    std::vector<int> events;
    for (const std::string& text : arguments.All("EVENT"))
        events.push_back(EventNumber(text));
    const PrinterHandle printer = OpenPrinter(name);
    const DriverLibrary library(session.language);
    const auto raise = library.Entry<psui::DrvDocumentEventFn>("DrvDocumentEvent");
    const WideString atom = kPopupAtom + name;
    PrintTraces(session, Utf8(atom), VariableName(printer), Raise(raise, printer, atom, events));
    return kDone;
}

constexpr Command kCommands[] = {
    {"document", "raise the events of a print job, and show what they leave for the status monitor",
     kDocumentParameters,
     "  psuictl event document Office startdoc\n"
     "  psuictl event document Office createdcpost startdoc deletedc --json\n",
     RunDocument},
};

} // namespace

extern const CommandFamily kEventFamily = {"event", "events that the spooler raises", kCommands};

} // namespace psuictl
