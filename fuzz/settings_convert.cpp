// DrvConvertDevMode on records that lie about themselves.
//
// Input: mode, flags (below), stated size of the output, shape of the output, input record.
#include <cstring>

#include "fuzz/settings_input.h"
#include "psui/entry/exports.h"
#include "tests/entry/printer.h"

namespace {

enum Flags : uint8_t
{
    kNoInput = 1,
    kNoOutput = 2,
    kNoSize = 4,
    kInPlace = 8,
    kKnownPrinter = 16,
};

constexpr LONG kMostOutput = 1 << 18;
test::Printer* printer;

/// What a success must have left behind.
void CheckConverted(DWORD mode, fuzz::Block& output, LONG size)
{
    const psui::RecordShape shape = psui::ShapeOf(output.bytes.get());
    fuzz::Require(shape.specVersion != 0, "a converted record has a version");
    fuzz::Require(static_cast<LONG>(shape.TotalSize()) == size, "the size is the record's own");
    fuzz::Require(static_cast<size_t>(size) <= output.size, "the size fits");
    if (mode != psui::kConvertRecord)
        return;
    const std::string before(reinterpret_cast<char*>(output.bytes.get()), output.size);
    LONG room = static_cast<LONG>(output.size);
    fuzz::Require(DrvConvertDevMode(nullptr, output.Record(), output.Record(), &room, mode),
                  "a converted record converts");
    fuzz::Require(std::memcmp(before.data(), output.bytes.get(), before.size()) == 0, "into itself");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::OpenWorld();
    printer = new test::Printer(u"Fuzz", "*ColorDevice: True\n*Duplex None: \"0\"\n");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t length)
{
    fuzz::Input input(data, length);
    const DWORD mode = input.Take<uint8_t>();
    const uint8_t flags = input.Take<uint8_t>();
    const LONG stated = std::min(input.Take<LONG>(), kMostOutput);
    psui::RecordShape outputShape;
    input.TakeInto(&outputShape, sizeof(outputShape));
    fuzz::Block record = fuzz::TakeRecord(input);

    fuzz::Block separate(static_cast<size_t>(std::max(stated, LONG{0})));
    if (separate.size >= psui::kHeaderSize)
        psui::SetShape(separate.bytes.get(), outputShape);
    const bool inPlace = (flags & kInPlace) != 0;
    fuzz::Block& output = inPlace ? record : separate;

    LONG size = inPlace ? static_cast<LONG>(record.size) : stated;
    const std::string before(reinterpret_cast<char*>(output.bytes.get()), output.size);
    const bool converted = DrvConvertDevMode((flags & kKnownPrinter) != 0 ? printer->name() : nullptr,
                                             (flags & kNoInput) != 0 ? nullptr : record.Record(),
                                             (flags & kNoOutput) != 0 ? nullptr : output.Record(),
                                             (flags & kNoSize) != 0 ? nullptr : &size, mode);
    if (converted)
        CheckConverted(mode, output, size);
    else
        fuzz::Require(std::memcmp(before.data(), output.bytes.get(), before.size()) == 0,
                      "a refused conversion writes nothing");
    return 0;
}
