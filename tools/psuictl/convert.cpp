#include <algorithm>
#include <cstring>

#include "tools/psuictl/command.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/record_file.h"
#include "tools/psuictl/spooler.h"

namespace psuictl {
namespace {

const char* const kModes[] = {"1", "2", "4"};

constexpr Parameter kParameters[] = {
    {"NAME", nullptr, "the printer whose driver converts", ParameterKind::Text, true},
    {"IN", nullptr, "the settings record to convert (- is standard input)"},
    {"--mode", "MODE", "1 convert to --shape, 2 convert to the old 300-byte format, 4 the driver's default",
     ParameterKind::Text, true, false, kModes},
    {"--size", "BYTES", "size to state for the output (default: what the library asks for)",
     ParameterKind::Number},
    {"--shape", "PUBLIC+PRIVATE", "sizes of the output's parts in mode 1 (default: 220+1632)"},
    {"-o,--output", "OUT", "where the new record goes, when there is one (- is standard output)"},
};

/// Above any size a record can state, and still nothing to allocate.
constexpr int64_t kMaxStatedSize = 1 << 20;

struct Shape
{
    uint16_t publicSize = psui::kPublicSize;
    uint16_t privateSize = psui::kPrivateSize;

    size_t total() const { return size_t{publicSize} + privateSize; }
};

struct Conversion
{
    bool result;
    LONG size; ///< as the library left it
    DWORD error;
    Bytes output; ///< at least `size` bytes
};

Shape ParseShape(const std::string& text)
{
    if (text.empty())
        return {};
    const size_t plus = text.find('+');
    const std::optional<int64_t> sizes[] = {
        ParseNumber(std::string_view(text).substr(0, plus)),
        plus == std::string::npos ? std::nullopt : ParseNumber(std::string_view(text).substr(plus + 1))};
    for (const std::optional<int64_t>& size : sizes) {
        if (!size || *size < 0 || *size > UINT16_MAX)
            throw Failure("'" + text + "' is no shape; write the sizes as in 188+112", kWrongUsage);
    }
    return {static_cast<uint16_t>(*sizes[0]), static_cast<uint16_t>(*sizes[1])};
}

/// The output record's sizes tell the library what to convert to; versions are those of our own record.
Bytes PrepareOutput(const Shape& shape, LONG size)
{
    Bytes output(std::max({shape.total(), static_cast<size_t>(size), sizeof(DEVMODEW)}));
    DEVMODEW head = {};
    head.dmSpecVersion = psui::kSpecVersion;
    head.dmDriverVersion = psui::kDriverVersion;
    head.dmSize = shape.publicSize;
    head.dmDriverExtra = shape.privateSize;
    std::memcpy(output.data(), &head, sizeof head);
    return output;
}

class Converter
{
public:
    Converter(const DriverLibrary& library, WideString printer, DWORD mode, Bytes input)
        : convert_(library.Entry<psui::DrvConvertDevModeFn>("DrvConvertDevMode")),
          printer_(std::move(printer)), mode_(mode), input_(std::move(input))
    {
    }

    Conversion Call(LONG size, Bytes output)
    {
        SetLastError(ERROR_SUCCESS);
        const BOOL result = convert_(printer_.data(), Record(input_), Record(output), &size, mode_);
        return {result != FALSE, size, GetLastError(), std::move(output)};
    }

private:
    static PDEVMODEW Record(Bytes& bytes)
    {
        return bytes.empty() ? nullptr : reinterpret_cast<PDEVMODEW>(bytes.data());
    }

    psui::DrvConvertDevModeFn convert_;
    WideString printer_;
    DWORD mode_;
    Bytes input_;
};

Conversion Convert(const Session& session, const Arguments& arguments)
{
    const DWORD mode = static_cast<DWORD>(ParseNumber(arguments.Text("mode")).value_or(0));
    const Shape shape = ParseShape(arguments.Text("shape"));
    const std::optional<int64_t> stated = arguments.Number("size");
    if (stated && *stated > kMaxStatedSize)
        throw Failure("--size is beyond every record; state at most 1048576 bytes", kWrongUsage);
    if (mode != psui::kDriverDefault && !arguments.Has("IN"))
        throw Failure("mode " + std::to_string(mode) + " converts a record; name it after the printer",
                      kWrongUsage);
    Bytes input = arguments.Has("IN") ? LoadRecordForCall(arguments.Text("IN")) : Bytes();
    const DriverLibrary library(session.language);
    Converter converter(library, Wide(arguments.Text("NAME")), mode, std::move(input));
    if (stated)
        return converter.Call(static_cast<LONG>(*stated), PrepareOutput(shape, static_cast<LONG>(*stated)));
    if (mode == psui::kConvertRecord)
        return converter.Call(static_cast<LONG>(shape.total()), PrepareOutput(shape, 0));
    const Conversion asked = converter.Call(0, {});
    if (asked.error != ERROR_INSUFFICIENT_BUFFER || asked.size <= 0 || asked.size > kMaxStatedSize)
        return asked;
    return converter.Call(asked.size, PrepareOutput(shape, asked.size));
}

void Print(const Session& session, std::ostream& out, const Conversion& conversion)
{
    if (session.json)
        return PrintJson(
            out, {{"result", conversion.result}, {"size", conversion.size}, {"error", conversion.error}});
    out << (conversion.result ? "TRUE" : "FALSE") << ", size " << conversion.size;
    if (!conversion.result)
        out << ": " << (conversion.error ? ErrorWords(conversion.error) : "no error code");
    out << '\n';
}

ExitCode RunConvert(const Session& session, const Arguments& arguments)
{
    OpenPrinter(Wide(arguments.Text("NAME"))); // the library itself says nothing about a wrong name
    const Conversion conversion = Convert(session, arguments);
    const std::string target = arguments.Text("output");
    Print(session, target == "-" ? session.complaints : session.out, conversion);
    if (!conversion.result)
        return kFailed;
    if (conversion.size < 0 || static_cast<size_t>(conversion.size) > conversion.output.size())
        throw Failure("the library states a size it was not given; this is a fault of the library");
    if (!target.empty())
        SaveFile(target, conversion.output.data(), static_cast<size_t>(conversion.size));
    return kDone;
}

constexpr Command kCommands[] = {
    {"", "convert a settings record as the spooler asks for it", kParameters,
     "  psuictl convert Office --mode 4 -o office.dm\n"
     "  psuictl convert Office --mode 2 office.dm -o old.dm\n"
     "  psuictl convert Office --mode 1 --shape 188+112 office.dm -o small.dm\n"
     "  psuictl convert Office --mode 2 --size 200 office.dm\n",
     RunConvert},
};

} // namespace

extern const CommandFamily kConvertFamily = {"convert", kCommands[0].summary, kCommands};

} // namespace psuictl
