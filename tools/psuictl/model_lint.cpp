#include "tools/psuictl/model_commands.h"

#include <algorithm>

#include "tools/psuictl/model_file.h"

namespace psuictl {
namespace {

struct Summary
{
    size_t files = 0;
    size_t rejected = 0;
    size_t notes = 0;
    size_t failed = 0; ///< files that could not be read or do not compile
};

Json JsonOf(const std::string& file, const Finding& finding)
{
    return {{"file", file},
            {"line", finding.line},
            {"kind", KindWord(finding.kind)},
            {"rejected", finding.rejected},
            {"keyword", finding.keyword},
            {"detail", finding.detail},
            {"message", MessageOf(finding)}};
}

void Count(const CompiledText& compiled, Summary& summary)
{
    for (const Finding& finding : compiled.findings)
        ++(finding.rejected ? summary.rejected : summary.notes);
    summary.failed += !compiled.image;
}

void PrintFindings(std::ostream& out, const std::string& file, const CompiledText& compiled)
{
    for (const Finding& finding : compiled.findings)
        out << PlaceOf(file, finding) << (finding.rejected ? "rejected: " : "note: ") << MessageOf(finding)
            << '\n';
    if (!compiled.image)
        out << file << ": does not compile\n";
}

void PrintSummary(std::ostream& out, const Summary& summary)
{
    out << Counted(summary.files, "file") << ", " << Counted(summary.rejected, "statement") << " rejected, "
        << Counted(summary.notes, "note");
    if (summary.failed)
        out << ", " << Counted(summary.failed, "file") << " without a model";
    out << '\n';
}

} // namespace

ExitCode RunModelLint(const Session& session, const Arguments& arguments)
{
    Summary summary;
    Json list = Json::array();
    for (const std::string& file : arguments.All("FILE")) {
        ++summary.files;
        try {
            const CompiledText compiled =
                CompileText(LoadFile(file), file == "-" ? Wide(file) : HostPath(file));
            Count(compiled, summary);
            for (const Finding& finding : compiled.findings)
                list.push_back(JsonOf(file, finding));
            if (!session.json)
                PrintFindings(session.out, file, compiled);
        } catch (const Failure& failure) {
            session.complaints << "psuictl: " << failure.what() << "\n";
            ++summary.failed;
        }
    }
    if (session.json)
        PrintJson(session.out, list);
    else
        PrintSummary(session.out, summary);
    return summary.rejected || summary.failed ? kFailed : kDone;
}

} // namespace psuictl
