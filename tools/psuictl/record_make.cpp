// Records that the library makes: the driver's default, and what an application gets back for a record.
#include <algorithm>
#include <cstring>

#include "tools/psuictl/library.h"
#include "tools/psuictl/output.h"
#include "tools/psuictl/record_commands.h"
#include "tools/psuictl/record_file.h"
#include "tools/psuictl/spooler.h"

namespace psuictl {
namespace {

/// Above any size a record can state.
constexpr LONG kMaxRecordSize = 2 * UINT16_MAX;

/// What DrvDocumentProperties returns when it has written a record.
constexpr LONG kDocumentPropertiesDone = 1;

PDEVMODEW Record(Bytes& bytes)
{
    return bytes.empty() ? nullptr : reinterpret_cast<PDEVMODEW>(bytes.data());
}

[[noreturn]] void ThrowNoRecord(const std::string& reason)
{
    throw Failure("the library gives no record: " + reason +
                  "; check the printer's model with 'psuictl model lint'");
}

/// A buffer of the size that the library asks for, with room for a header.
Bytes Buffer(LONG size)
{
    if (size <= 0 || size > kMaxRecordSize)
        throw Failure("the library asks for a record of " + std::to_string(size) +
                      " bytes; this is a fault of the library");
    return Bytes(std::max(static_cast<size_t>(size), sizeof(DEVMODEW)));
}

/// The record as long as its own header says.
Bytes Trimmed(Bytes record)
{
    const size_t stated = RecordLayout(record).statedSize();
    if (stated < kRecordHeaderSize || stated > record.size())
        throw Failure("the library gives a record that states " + Counted(stated, "byte") +
                      "; this is a fault of the library");
    record.resize(stated);
    return record;
}

Bytes DefaultRecord(const DriverLibrary& library, WideString printer)
{
    const auto convert = library.Entry<psui::DrvConvertDevModeFn>("DrvConvertDevMode");
    LONG size = 0;
    SetLastError(ERROR_SUCCESS);
    if (convert(printer.data(), nullptr, nullptr, &size, psui::kDriverDefault) ||
        GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        ThrowNoRecord(ErrorWords(GetLastError()));
    Bytes record = Buffer(size);
    if (!convert(printer.data(), nullptr, Record(record), &size, psui::kDriverDefault))
        ThrowNoRecord(ErrorWords(GetLastError()));
    return Trimmed(std::move(record));
}

/// `input` may be empty: the printer's own settings.
Bytes MergedRecord(const DriverLibrary& library, WideString printer, Bytes input)
{
    const auto properties = library.Entry<psui::DrvDocumentPropertiesFn>("DrvDocumentProperties");
    const PrinterHandle handle = OpenPrinter(printer);
    Bytes record = Buffer(properties(nullptr, handle.get(), printer.data(), nullptr, nullptr, 0));
    record.resize(std::max(record.size(), input.size()));
    const DWORD mode = DM_COPY | (input.empty() ? 0 : DM_MODIFY);
    const LONG result =
        properties(nullptr, handle.get(), printer.data(), Record(record), Record(input), mode);
    if (result != kDocumentPropertiesDone)
        ThrowNoRecord("DrvDocumentProperties returns " + std::to_string(result));
    return Trimmed(std::move(record));
}

ExitCode Save(const Session& session, const std::string& target, const Bytes& record)
{
    SaveFile(target, record.data(), record.size());
    std::ostream& out = target == "-" ? session.complaints : session.out;
    if (session.json)
        PrintJson(out, {{"size", record.size()}});
    else
        out << Counted(record.size(), "byte") << '\n';
    return kDone;
}

} // namespace

ExitCode RunRecordDefault(const Session& session, const Arguments& arguments)
{
    const WideString printer = Wide(arguments.Text("NAME"));
    OpenPrinter(printer); // the library itself says nothing about a wrong name
    const DriverLibrary library(session.language);
    return Save(session, arguments.Text("output"), DefaultRecord(library, printer));
}

ExitCode RunRecordMerge(const Session& session, const Arguments& arguments)
{
    Bytes input = arguments.Has("IN") ? LoadRecordForCall(arguments.Text("IN")) : Bytes();
    const DriverLibrary library(session.language);
    return Save(session, arguments.Text("output"),
                MergedRecord(library, Wide(arguments.Text("NAME")), std::move(input)));
}

} // namespace psuictl
