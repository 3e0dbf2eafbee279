#include "tools/psuictl/command.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/record_file.h"
#include "tools/psuictl/spooler.h"

namespace psuictl {
namespace {

constexpr Parameter kParameters[] = {
    {"NAME", nullptr, "the printer", ParameterKind::Text, true},
    {"RECORD", nullptr, "the job's settings record (- is standard input)", ParameterKind::Text, true},
};

constexpr WORD kQueryLevel = 1;
constexpr DWORD kUsualMessage = 256; ///< characters
constexpr DWORD kLongestMessage = 32768;

struct Verdict
{
    bool canPrint;
    std::string message;
};

/// Asks again with more room when the message is longer than messages usually are.
Verdict Ask(psui::DevQueryPrintExFn query, const PrinterHandle& printer, Bytes record)
{
    WideString message(kUsualMessage, 0);
    for (;;) {
        psui::DevQueryPrintInfo info = {
            .cbSize = sizeof info,
            .Level = kQueryLevel,
            .hPrinter = printer.get(),
            .pDevMode = reinterpret_cast<PDEVMODEW>(record.data()),
            .pszErrorStr = message.data(),
            .cchErrorStr = static_cast<DWORD>(message.size()),
            .cchNeeded = 0,
        };
        if (query(&info))
            return {true, ""};
        if (info.cchNeeded <= message.size() || info.cchNeeded > kLongestMessage)
            return {false, FieldText(message)};
        message.assign(info.cchNeeded, 0);
    }
}

ExitCode RunCheck(const Session& session, const Arguments& arguments)
{
    const PrinterHandle printer = OpenPrinter(Wide(arguments.Text("NAME")));
    const DriverLibrary library(session.language);
    const Verdict verdict = Ask(library.Entry<psui::DevQueryPrintExFn>("DevQueryPrintEx"), printer,
                                LoadRecordForCall(arguments.Text("RECORD")));
    if (session.json)
        PrintJson(session.out, {{"canPrint", verdict.canPrint}, {"message", verdict.message}});
    else
        session.out << (verdict.canPrint ? "can print" : "cannot print: " + verdict.message) << '\n';
    return verdict.canPrint ? kDone : kRefused;
}

constexpr Command kCommands[] = {
    {"", "ask whether a job with these settings can print: 0 it can, 3 it cannot", kParameters,
     "  psuictl check Office job.dm\n", RunCheck},
};

} // namespace

extern const CommandFamily kCheckFamily = {"check", kCommands[0].summary, kCommands};

} // namespace psuictl
