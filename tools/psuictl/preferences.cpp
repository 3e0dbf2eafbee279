// The driver's property sheets: shown to a user, or played by a scenario.
#include <memory>

#include "psui/entry/context.h"
#include "tools/psuictl/command.h"
#include "tools/psuictl/desktop.h"
#include "tools/psuictl/dialog_window.h"
#include "tools/psuictl/language_texts.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/platform.h"
#include "tools/psuictl/record_file.h"
#include "tools/psuictl/scenario_player.h"
#include "tools/psuictl/sheet_run.h"
#include "tools/psuictl/spooler.h"

#include "lang/ids/summary.h"

namespace psuictl {
namespace {

constexpr size_t kRecordSize = sizeof(psui::DriverDevMode);
constexpr int64_t kMaxPages = 20;
constexpr DWORD kNoPermission = 0x20; // of a document header's mode
constexpr DWORD kUserDefault = 0x40;
constexpr WORD kDeviceNoPermission = 1;
constexpr LONG kSucceeded = 1;

constexpr Parameter kPrinterParameter = {"NAME", nullptr, "the printer", ParameterKind::Text, true};
constexpr Parameter kRecordParameter = {"--record", "IN",
                                        "settings record to start from (- is standard input)"};
constexpr Parameter kPermissionParameter = {"--no-permission", nullptr,
                                            "the user may look but change nothing", ParameterKind::Flag};
constexpr Parameter kUserDefaultParameter = {
    "--user-default", nullptr, "edit the user's own defaults, as the printers' window does; Apply is shown",
    ParameterKind::Flag};
constexpr Parameter kPagesParameter = {"--pages", "N", "pages of the sheet, the driver's first (default: 1)",
                                       ParameterKind::Number};
constexpr Parameter kScenarioParameter = {"--scenario", "FILE", "play these steps (docs/scenarios.md)"};
constexpr Parameter kShotsParameter = {"--shots", "DIR", "folder for the pictures that the steps take"};
constexpr Parameter kDisplayParameter = {"--display", nullptr, "show the dialogs on the desktop",
                                         ParameterKind::Flag};

constexpr Parameter kRepeatParameter = {
    "--repeat", "N",
    "open the sheet so often, and tell what more is open afterwards than after the first time",
    ParameterKind::Number};

constexpr Parameter kPreferencesParameters[] = {
    kPrinterParameter,
    kRecordParameter,
    {"-o,--output", "OUT", "where the confirmed record goes (- is standard output)"},
    kPagesParameter,
    kPermissionParameter,
    kUserDefaultParameter,
    kScenarioParameter,
    kShotsParameter,
    kRepeatParameter,
    kDisplayParameter,
};

constexpr Parameter kPropertiesParameters[] = {
    kPrinterParameter, kPagesParameter,  kPermissionParameter, kScenarioParameter,
    kShotsParameter,   kRepeatParameter, kDisplayParameter,
};

constexpr Parameter kSummaryParameters[] = {kPrinterParameter, kRecordParameter};

std::vector<Step> LoadScenario(const std::string& file)
{
    const Bytes bytes = LoadFile(file);
    std::vector<Step> steps;
    ScenarioError error;
    if (!ParseScenario({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, steps, error))
        throw Failure(file + ":" + std::to_string(error.line) + ": " + error.reason +
                          "; see docs/scenarios.md",
                      kWrongUsage);
    return steps;
}

/// The header of a document's sheet with the records that it points to.
class DocumentRequest
{
public:
    DocumentRequest(const Session& session, const Arguments& arguments)
        : library_(session.language), name_(Wide(arguments.Text("NAME"))), printer_(OpenPrinter(name_)),
          output_(kRecordSize)
    {
        if (arguments.Has("record"))
            input_ = LoadRecordForCall(arguments.Text("record"));
        header_.cbSize = sizeof(header_);
        header_.hPrinter = printer_.get();
        header_.pszPrinterName = name_.data();
        header_.pdmIn = input_.empty() ? nullptr : reinterpret_cast<PDEVMODEW>(input_.data());
        header_.pdmOut = reinterpret_cast<PDEVMODEW>(output_.data());
        header_.fMode = DM_PROMPT | DM_COPY | (arguments.Has("no-permission") ? kNoPermission : 0) |
                        (arguments.Has("user-default") ? kUserDefault : 0);
    }

    psui::PropSheetUiFn Function() const
    {
        return library_.Entry<psui::PropSheetUiFn>("DrvDocumentPropertySheets");
    }
    LPARAM header() { return reinterpret_cast<LPARAM>(&header_); }
    const Bytes& output() const { return output_; }

private:
    DriverLibrary library_;
    WideString name_;
    PrinterHandle printer_;
    Bytes input_;
    Bytes output_;
    psui::DocumentPropertyHeader header_ = {};
};

/// The same for a printer's sheet.
class DeviceRequest
{
public:
    DeviceRequest(const Session& session, const Arguments& arguments)
        : library_(session.language), name_(Wide(arguments.Text("NAME"))), printer_(OpenPrinter(name_))
    {
        header_.cbSize = sizeof(header_);
        header_.Flags = arguments.Has("no-permission") ? kDeviceNoPermission : WORD{0};
        header_.hPrinter = printer_.get();
        header_.pszPrinterName = name_.data();
    }

    psui::PropSheetUiFn Function() const
    {
        return library_.Entry<psui::PropSheetUiFn>("DrvDevicePropertySheets");
    }
    LPARAM header() { return reinterpret_cast<LPARAM>(&header_); }

private:
    DriverLibrary library_;
    WideString name_;
    PrinterHandle printer_;
    psui::DevicePropertyHeader header_ = {};
};

/// Whoever answers the dialogs: a scenario, or the user in front of the display.
class Audience
{
public:
    Audience(const Session& session, const Arguments& arguments, std::function<const uint8_t*()> record)
        : texts_(session.language)
    {
        if (arguments.Has("display"))
            platform::OpenDisplay();
        else if (!arguments.Has("scenario"))
            throw Failure("nobody would answer the dialogs; give --scenario FILE or --display", kWrongUsage);
        if (!arguments.Has("scenario"))
            return;
        player_.emplace(LoadScenario(arguments.Text("scenario")),
                        Stage{std::move(record), [this](int id) { return texts_.Text(id); },
                              arguments.Text("shots"), &session.complaints});
        calls_ = std::make_unique<platform::IdleCalls>([this] { return player_->Play(); });
    }

    /// Ends the scenario, if there is one. Throws Failure when a step failed.
    void Finish(const std::string& scenario, int64_t result)
    {
        calls_.reset();
        if (!player_)
            return;
        player_->Finish(result);
        if (const std::optional<ScenarioFailure>& failure = player_->failure())
            throw Failure(scenario + ":" + std::to_string(failure->line) + ": " + failure->source +
                          (failure->source.empty() ? "" : ": ") + failure->reason);
    }

    size_t steps() const { return player_ ? player_->played() : 0; }

private:
    LanguageTexts texts_;
    std::optional<ScenarioPlayer> player_;
    std::unique_ptr<platform::IdleCalls> calls_;
};

/// The record that the sheet's pages edit.
const uint8_t* WorkingRecord(const CommonSheet& sheet)
{
    const auto* const context = reinterpret_cast<const psui::PrinterUiContext*>(sheet.userData());
    return context && context->pSelf == context ? reinterpret_cast<const uint8_t*>(&context->dmWork)
                                                : nullptr;
}

void CheckRun(const SheetRun& run)
{
    if (run.answer < kSucceeded)
        throw Failure(run.initialised
                          ? "the common property-sheet UI cannot show the sheet (code " +
                                std::to_string(run.answer) + "); the library's language module may be missing"
                          : "the library refuses the sheet; check the printer's model description");
}

/// What is open after the last time beyond what was open after the first: by kind.
using Growth = std::vector<std::pair<std::string, int64_t>>;

Growth GrowthSince(const Growth& before)
{
    Growth growth;
    const Growth now = platform::OpenObjects();
    for (size_t i = 0; i < now.size(); ++i) {
        if (now[i].second != before[i].second)
            growth.emplace_back(now[i].first, now[i].second - before[i].second);
    }
    return growth;
}

/// How the last sheet ended.
struct Played
{
    SheetRun run;
    size_t steps = 0;
    Bytes output; ///< the caller's record
    Growth growth;
};

void PrintResult(const Session& session, std::ostream& out, const Played& played)
{
    const bool confirmed = played.run.result != 0;
    if (session.json) {
        Json growth = Json::object();
        for (const auto& [kind, count] : played.growth)
            growth[kind] = count;
        return PrintJson(out, {{"result", played.run.result},
                               {"confirmed", confirmed},
                               {"steps", played.steps},
                               {"growth", growth}});
    }
    out << (confirmed ? "Confirmed" : "Cancelled");
    if (played.steps > 0)
        out << " after " << Counted(played.steps, "step");
    out << ".\n";
    for (const auto& [kind, count] : played.growth)
        out << "More " << kind << " open than after the first time: " << count << ".\n";
}

/// Lets `play` show a sheet as often as the command line asks.
Played Repeat(const Arguments& arguments, const std::function<Played()>& play)
{
    Played played = play();
    const Growth before = platform::OpenObjects();
    for (int64_t left = arguments.Number("repeat").value_or(1); left > 1; --left)
        played = play();
    played.growth = GrowthSince(before);
    return played;
}

size_t PageCount(const Arguments& arguments)
{
    const int64_t pages = arguments.Number("pages").value_or(1);
    if (pages < 1 || pages > kMaxPages)
        throw Failure("a sheet has 1 to " + std::to_string(kMaxPages) + " pages; mend --pages", kWrongUsage);
    return static_cast<size_t>(pages);
}

Played PlayPreferences(const Session& session, const Arguments& arguments)
{
    DocumentRequest request(session, arguments);
    CommonSheet sheet(request.Function(), request.header(), PageCount(arguments));
    bool closed = false;
    Audience audience(session, arguments,
                      [&] { return closed ? request.output().data() : WorkingRecord(sheet); });
    const SheetRun run = sheet.Run();
    closed = true;
    CheckRun(run);
    audience.Finish(arguments.Text("scenario"), run.result);
    return {run, audience.steps(), request.output(), {}};
}

Played PlayProperties(const Session& session, const Arguments& arguments)
{
    DeviceRequest request(session, arguments);
    CommonSheet sheet(request.Function(), request.header(), PageCount(arguments));
    Audience audience(session, arguments, [&] { return WorkingRecord(sheet); });
    const SheetRun run = sheet.Run();
    CheckRun(run);
    audience.Finish(arguments.Text("scenario"), run.result);
    return {run, audience.steps(), {}, {}};
}

ExitCode RunPreferences(const Session& session, const Arguments& arguments)
{
    const Played played = Repeat(arguments, [&] { return PlayPreferences(session, arguments); });
    const std::string target = arguments.Text("output");
    PrintResult(session, target == "-" ? session.complaints : session.out, played);
    if (played.run.result != 0 && !target.empty())
        SaveFile(target, played.output.data(), played.output.size());
    return kDone;
}

ExitCode RunProperties(const Session& session, const Arguments& arguments)
{
    PrintResult(session, session.out, Repeat(arguments, [&] { return PlayProperties(session, arguments); }));
    return kDone;
}

/// Label and value of a line of the summary.
struct SummaryLine
{
    std::string label;
    std::string value;
};

std::vector<SummaryLine> SplitSummary(std::string_view text)
{
    std::vector<SummaryLine> lines;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        const size_t tab = std::min(line.find('\t'), line.size());
        lines.push_back(
            {std::string(line.substr(0, tab)), std::string(line.substr(std::min(tab + 1, line.size())))});
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return lines;
}

/// Opens the sheet with a second page, so that the driver's own shows the summary, and cancels it once read.
std::string ReadSummary(const Session& session, const Arguments& arguments)
{
    DocumentRequest request(session, arguments);
    CommonSheet sheet(request.Function(), request.header(), 2);
    std::optional<std::string> text;
    const platform::IdleCalls calls([&] {
        const HWND dialog = TopDialog();
        const HWND summary = dialog ? FindControl(dialog, IDC_SUMMARY) : nullptr;
        if (!dialog)
            return false;
        if (summary && !text)
            text = WindowText(summary);
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return true;
    });
    CheckRun(sheet.Run());
    if (!text)
        throw Failure("the driver's page shows no summary; this is a fault of the library");
    return *text;
}

ExitCode RunSummary(const Session& session, const Arguments& arguments)
{
    Json json = Json::array();
    Table table;
    for (const SummaryLine& line : SplitSummary(ReadSummary(session, arguments))) {
        json.push_back({{"label", line.label}, {"value", line.value}});
        table.Add({line.label, line.value});
    }
    if (session.json)
        PrintJson(session.out, json);
    else
        table.Print(session.out);
    return kDone;
}

constexpr Command kPreferencesCommands[] = {
    {"", "open the printing preferences, as applications do", kPreferencesParameters,
     "  psuictl preferences Office --display -o office.dm\n"
     "  psuictl preferences Office --pages 2 --scenario summary.txt --shots pictures\n",
     RunPreferences},
};

constexpr Command kPropertiesCommands[] = {
    {"", "open the printer's properties, as the printers' window does", kPropertiesParameters,
     "  psuictl properties Office --display\n", RunProperties},
};

constexpr Command kSummaryCommands[] = {
    {"", "print the settings in words, as the preferences show them", kSummaryParameters,
     "  psuictl summary Office\n"
     "  psuictl --language jpn summary Office --record office.dm\n",
     RunSummary},
};

} // namespace

extern const CommandFamily kPreferencesFamily = {"preferences", kPreferencesCommands[0].summary,
                                                 kPreferencesCommands};
extern const CommandFamily kPropertiesFamily = {"properties", kPropertiesCommands[0].summary,
                                                kPropertiesCommands};
extern const CommandFamily kSummaryFamily = {"summary", kSummaryCommands[0].summary, kSummaryCommands};

} // namespace psuictl
