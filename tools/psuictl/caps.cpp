#include <algorithm>
#include <numeric>

#include "tools/psuictl/command.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/record_file.h"
#include "tools/psuictl/spooler.h"

namespace psuictl {
namespace {

constexpr Parameter kParameters[] = {
    {"NAME", nullptr, "the printer to ask", ParameterKind::Text, true},
    {"--record", "FILE", "ask for this settings record instead of the printer's own (- is standard input)"},
    {"--index", "N", "ask for this capability only; may be repeated", ParameterKind::Number, false, true},
};

/// What the output buffer of a capability holds.
enum class ListKind
{
    None, ///< the result is the whole answer
    Words,
    DoubleWords,
    Sizes,
    Texts,
};

struct Capability
{
    WORD index;
    const char* name;
    ListKind kind = ListKind::None;
    size_t units = 0; ///< UTF-16 units an entry of Texts
};

constexpr WORD kLastListed = 40;

constexpr Capability kCapabilities[] = {
    {DC_FIELDS, "DC_FIELDS"},
    {DC_PAPERS, "DC_PAPERS", ListKind::Words},
    {DC_PAPERSIZE, "DC_PAPERSIZE", ListKind::Sizes},
    {DC_MINEXTENT, "DC_MINEXTENT"},
    {DC_MAXEXTENT, "DC_MAXEXTENT"},
    {DC_BINS, "DC_BINS", ListKind::Words},
    {DC_DUPLEX, "DC_DUPLEX"},
    {DC_SIZE, "DC_SIZE"},
    {DC_EXTRA, "DC_EXTRA"},
    {DC_VERSION, "DC_VERSION"},
    {DC_DRIVER, "DC_DRIVER"},
    {DC_BINNAMES, "DC_BINNAMES", ListKind::Texts, 24},
    {DC_ENUMRESOLUTIONS, "DC_ENUMRESOLUTIONS", ListKind::Sizes},
    {DC_FILEDEPENDENCIES, "DC_FILEDEPENDENCIES", ListKind::Texts, 64},
    {DC_TRUETYPE, "DC_TRUETYPE"},
    {DC_PAPERNAMES, "DC_PAPERNAMES", ListKind::Texts, 64},
    {DC_ORIENTATION, "DC_ORIENTATION"},
    {DC_COPIES, "DC_COPIES"},
    {DC_BINADJUST, "DC_BINADJUST"},
    {DC_EMF_COMPLIANT, "DC_EMF_COMPLIANT"},
    {DC_DATATYPE_PRODUCED, "DC_DATATYPE_PRODUCED"},
    {DC_COLLATE, "DC_COLLATE"},
    {DC_MANUFACTURER, "DC_MANUFACTURER"},
    {DC_MODEL, "DC_MODEL"},
    {DC_PERSONALITY, "DC_PERSONALITY", ListKind::Texts, 32},
    {DC_PRINTRATE, "DC_PRINTRATE"},
    {DC_PRINTRATEUNIT, "DC_PRINTRATEUNIT"},
    {DC_PRINTERMEM, "DC_PRINTERMEM"},
    {DC_MEDIAREADY, "DC_MEDIAREADY", ListKind::Texts, 64},
    {DC_STAPLE, "DC_STAPLE"},
    {DC_PRINTRATEPPM, "DC_PRINTRATEPPM"},
    {DC_COLORDEVICE, "DC_COLORDEVICE"},
    {DC_NUP, "DC_NUP", ListKind::DoubleWords},
    {DC_MEDIATYPENAMES, "DC_MEDIATYPENAMES", ListKind::Texts, 64},
    {DC_MEDIATYPES, "DC_MEDIATYPES", ListKind::DoubleWords},
};

/// A count above this is no list any more, and is taken for a fault.
constexpr int32_t kMaxEntries = 65535;

/// Bytes after the promised buffer that the library must leave alone.
constexpr size_t kGuardBytes = 256;
constexpr uint8_t kGuardByte = 0xA5;

struct Answer
{
    Capability capability;
    int32_t result;
    Json values = Json::array();
};

Capability CapabilityOf(WORD index)
{
    for (const Capability& capability : kCapabilities) {
        if (capability.index == index)
            return capability;
    }
    return {index, nullptr};
}

size_t EntryBytes(const Capability& capability)
{
    switch (capability.kind) {
    case ListKind::Words:
        return sizeof(WORD);
    case ListKind::DoubleWords:
        return sizeof(DWORD);
    case ListKind::Sizes:
        return sizeof(POINT);
    case ListKind::Texts:
        return capability.units * sizeof(WCHAR);
    default:
        return 0;
    }
}

Json EntryValue(const Capability& capability, const uint8_t* entry)
{
    switch (capability.kind) {
    case ListKind::Words:
        return *reinterpret_cast<const WORD*>(entry);
    case ListKind::DoubleWords:
        return *reinterpret_cast<const DWORD*>(entry);
    case ListKind::Sizes:
        return {reinterpret_cast<const POINT*>(entry)->x, reinterpret_cast<const POINT*>(entry)->y};
    default:
        return FieldText({reinterpret_cast<const WCHAR*>(entry), capability.units});
    }
}

/// Asks one printer, each capability in two calls as applications do: for the count, then for the list.
class Asker
{
public:
    Asker(const Session& session, const Arguments& arguments)
        : name_(Wide(arguments.Text("NAME"))), printer_(OpenPrinter(name_)),
          record_(arguments.Has("record") ? LoadRecordForCall(arguments.Text("record")) : Bytes()),
          library_(session.language),
          capabilities_(library_.Entry<psui::DrvDeviceCapabilitiesFn>("DrvDeviceCapabilities"))
    {
    }

    Answer Ask(WORD index)
    {
        Answer answer{.capability = CapabilityOf(index), .result = Call(index, nullptr)};
        if (answer.capability.kind != ListKind::None && answer.result >= 0)
            ReadList(answer);
        return answer;
    }

private:
    int32_t Call(WORD index, void* buffer)
    {
        PDEVMODEW record = record_.empty() ? nullptr : reinterpret_cast<PDEVMODEW>(record_.data());
        return static_cast<int32_t>(capabilities_(printer_.get(), name_.data(), index, buffer, record));
    }

    void ReadList(Answer& answer)
    {
        const Capability& capability = answer.capability;
        const size_t entryBytes = EntryBytes(capability);
        if (answer.result > kMaxEntries)
            Blame(capability, "promises more entries than any printer has");
        // An empty list is asked for, too: its buffer has room for the one entry that ends it.
        const size_t size = static_cast<size_t>(std::max(answer.result, 1)) * entryBytes;
        Bytes buffer(size + kGuardBytes, kGuardByte);
        if (Call(capability.index, buffer.data()) != answer.result)
            Blame(capability, "gives another count with a buffer than without");
        if (std::any_of(buffer.begin() + static_cast<ptrdiff_t>(size), buffer.end(),
                        [](uint8_t byte) { return byte != kGuardByte; }))
            Blame(capability, "writes more entries than it promises");
        for (int32_t i = 0; i < answer.result; ++i)
            answer.values.push_back(EntryValue(capability, &buffer[static_cast<size_t>(i) * entryBytes]));
    }

    [[noreturn]] static void Blame(const Capability& capability, const char* what)
    {
        throw Failure(std::string(capability.name) + " " + what + "; this is a fault of the library");
    }

    WideString name_;
    PrinterHandle printer_;
    Bytes record_;
    DriverLibrary library_;
    psui::DrvDeviceCapabilitiesFn capabilities_;
};

std::vector<WORD> IndicesAsked(const Arguments& arguments)
{
    std::vector<WORD> indices;
    for (const std::string& text : arguments.All("index")) {
        const std::optional<int64_t> number = ParseNumber(text);
        if (!number || *number > UINT16_MAX)
            throw Failure("'" + text + "' is no capability; give a number from 0 to 65535", kWrongUsage);
        indices.push_back(static_cast<WORD>(*number));
    }
    if (indices.empty()) {
        indices.resize(kLastListed + 1);
        std::iota(indices.begin(), indices.end(), WORD{0});
    }
    return indices;
}

void PrintAsJson(std::ostream& out, const std::vector<Answer>& answers)
{
    Json object = Json::object();
    for (const Answer& answer : answers) {
        const char* name = answer.capability.name;
        object[std::to_string(answer.capability.index)] = {{"name", name ? Json(name) : Json(nullptr)},
                                                           {"result", answer.result},
                                                           {"values", answer.values}};
    }
    PrintJson(out, object);
}

std::string Tenths(int64_t tenthsOfMillimetre)
{
    return std::to_string(tenthsOfMillimetre / 10) + "." + std::to_string(tenthsOfMillimetre % 10);
}

std::string SizeText(int64_t width, int64_t length)
{
    return Tenths(width) + " x " + Tenths(length) + " mm";
}

/// What the number means, where that is not plain.
std::string Remark(const Answer& answer)
{
    if (answer.result < 0)
        return "not supported";
    const DWORD value = static_cast<DWORD>(answer.result);
    switch (answer.capability.index) {
    case DC_FIELDS:
        return Hex(value, 8);
    case DC_VERSION:
        return Hex(value, 4);
    case DC_MINEXTENT:
    case DC_MAXEXTENT:
        return SizeText(LOWORD(value), HIWORD(value));
    default:
        return "";
    }
}

std::string ValueText(const Json& value)
{
    if (value.is_array())
        return SizeText(value[0].get<int64_t>(), value[1].get<int64_t>());
    return value.is_string() ? value.get<std::string>() : value.dump();
}

const Json* ValuesOf(const std::vector<Answer>& answers, WORD index)
{
    for (const Answer& answer : answers) {
        if (answer.capability.index == index && !answer.values.empty())
            return &answer.values;
    }
    return nullptr;
}

/// Lists that belong together, shown side by side.
struct Section
{
    const char* title;
    WORD columns[3];
};

constexpr Section kSections[] = {
    {"Papers", {DC_PAPERS, DC_PAPERNAMES, DC_PAPERSIZE}},
    {"Sources", {DC_BINS, DC_BINNAMES, 0}},
    {"Media types", {DC_MEDIATYPES, DC_MEDIATYPENAMES, 0}},
    {"Papers ready", {DC_MEDIAREADY, 0, 0}},
};

void PrintSection(std::ostream& out, const Section& section, const std::vector<Answer>& answers)
{
    std::vector<std::vector<std::string>> rows;
    size_t column = 0;
    for (const WORD index : section.columns) {
        const Json* values = index ? ValuesOf(answers, index) : nullptr;
        if (!values)
            continue;
        rows.resize(std::max(rows.size(), values->size()));
        for (size_t i = 0; i < values->size(); ++i) {
            rows[i].resize(column + 1);
            rows[i][column] = ValueText((*values)[i]);
        }
        ++column;
    }
    if (rows.empty())
        return;
    Table table;
    for (std::vector<std::string>& row : rows)
        table.Add(std::move(row));
    out << '\n' << section.title << '\n';
    table.Print(out, 2);
}

void PrintAsText(std::ostream& out, const std::vector<Answer>& answers)
{
    Table table({"INDEX", "CAPABILITY", "RESULT", ""});
    for (const Answer& answer : answers)
        table.Add({std::to_string(answer.capability.index),
                   answer.capability.name ? answer.capability.name : "-", std::to_string(answer.result),
                   Remark(answer)});
    table.Print(out);
    for (const Section& section : kSections)
        PrintSection(out, section, answers);
}

ExitCode RunCaps(const Session& session, const Arguments& arguments)
{
    const std::vector<WORD> indices = IndicesAsked(arguments);
    Asker asker(session, arguments);
    std::vector<Answer> answers;
    for (const WORD index : indices)
        answers.push_back(asker.Ask(index));
    if (session.json)
        PrintAsJson(session.out, answers);
    else
        PrintAsText(session.out, answers);
    return kDone;
}

constexpr Command kCommands[] = {
    {"", "ask what a printer can do", kParameters,
     "  psuictl caps Office\n"
     "  psuictl caps Office --index 2 --index 16 --language jpn\n"
     "  psuictl caps Office --record office.dm --json\n",
     RunCaps},
};

} // namespace

extern const CommandFamily kCapsFamily = {"caps", kCommands[0].summary, kCommands};

} // namespace psuictl
