// A whole settings call without a sheet: a hostile record comes in and one of no more than its shape goes
// out.
//
// Input: flags (below), source record.
#include "fuzz/settings_input.h"
#include "psui/entry/exports.h"
#include "tests/entry/printer.h"
#include "tests/settings/merge_checks.h"
#include "tests/settings/support.h"

namespace {

enum Flags : uint8_t
{
    kModeBits = 0x3B, ///< mode of the call; DM_PROMPT, which would open a sheet, is none of them
    kInPlace = 0x40,
    kThroughHeader = 0x80, ///< through the sheet function's one-shot path
};

test::Printer* printer;

LONG Call(uint8_t flags, DEVMODEW* input, DEVMODEW* output)
{
    const DWORD mode = flags & kModeBits;
    if ((flags & kThroughHeader) == 0)
        return DrvDocumentProperties(nullptr, printer->handle(), printer->name(), output, input, mode);
    psui::DocumentPropertyHeader header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = printer->handle();
    header.pszPrinterName = printer->name();
    header.pdmIn = input;
    header.pdmOut = output;
    header.fMode = mode;
    const LONG result = DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&header));
    fuzz::Require(header.cbOut == psui::kRecordSize, "size of the record");
    return result;
}

/// Bytes that the output must have for an input of that shape.
size_t OutputBytes(const psui::RecordShape& shape)
{
    return size_t{std::min(shape.publicSize, psui::kPublicSize)} +
           std::min(shape.privateSize, psui::kPrivateSize);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::OpenWorld();
    // With a stored record something is merged even when the input is refused.
    alignas(8) psui::DriverDevMode stored;
    psui::BuildDefaultDevMode(&stored, nullptr, test::Model(test::kFullModel), true);
    printer = new test::Printer(u"P1", test::kFullModel, &stored.dmPublic);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t length)
{
    fuzz::Input bytes(data, length);
    const uint8_t flags = bytes.Take<uint8_t>();
    fuzz::Block input = fuzz::TakeRecord(bytes);
    const psui::RecordShape shape = psui::ShapeOf(input.Record());
    fuzz::Block separate(OutputBytes(shape));
    const bool inPlace = (flags & kInPlace) != 0;
    fuzz::Block& output = inPlace ? input : separate;

    const LONG result = Call(flags, input.Record(), output.Record());
    fuzz::Require(result == ((flags & kModeBits) != 0 ? 1 : psui::kRecordSize), "result of the call");
    const bool whole = output.size == psui::kRecordSize && !inPlace && (flags & (DM_UPDATE | DM_COPY)) != 0;
    if (whole) {
        alignas(8) psui::DriverDevMode record;
        std::memcpy(&record, output.bytes.get(), sizeof(record));
        const std::string wrong = test::FieldOutOfRange(record);
        fuzz::Require(wrong.empty(), wrong);
    }
    return 0;
}
