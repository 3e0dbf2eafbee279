// Settings calls that show nothing, through the entry points that the spooler and applications use.
#include <random>
#include <tuple>

#include <gtest/gtest.h>

#include "psui/entry/exports.h"
#include "psui/settings/copy.h"
#include "psui/settings/paper_groups.h"
#include "tests/entry/fail_each.h"
#include "tests/entry/printer.h"
#include "tests/settings/guarded.h"
#include "tests/settings/merge_checks.h"
#include "tests/settings/support.h"

namespace {

using namespace psui;
using namespace test;

constexpr LONG kRecordSize = 1852;
constexpr BYTE kUntouched = 0xA5;

class DocumentSettings : public testing::Test
{
protected:
    World world_;
    Printer printer_{u"P1", kFullModel};

    LONG Run(DEVMODEW* output, DEVMODEW* input, DWORD mode)
    {
        return DrvDocumentProperties(nullptr, printer_.handle(), printer_.name(), output, input, mode);
    }

    DriverDevMode Merged(DEVMODEW* input)
    {
        alignas(8) DriverDevMode output = {};
        EXPECT_EQ(Run(&output.dmPublic, input, DM_COPY), 1);
        return output;
    }

    /// The printer's defaults, merged until they no longer change.
    DriverDevMode Settled()
    {
        alignas(8) DriverDevMode record = Merged(nullptr);
        record = Merged(&record.dmPublic);
        return Merged(&record.dmPublic);
    }
};

TEST_F(DocumentSettings, CopyOutOnlyWhenTheModeSaysSo)
{
    const std::tuple<DWORD, LONG, bool> cases[] = {
        {0, kRecordSize, false},        {DM_UPDATE, 1, true},   {DM_COPY, 1, true},
        {DM_COPY | DM_UPDATE, 1, true}, {DM_MODIFY, 1, false},  {0x20, 1, false},
        {0x40 | DM_COPY, 1, true},      {0xFFFFFFF8, 1, false}, {0xFFFFFFFB, 1, true},
    };
    for (const auto& [mode, result, written] : cases) {
        SCOPED_TRACE(mode);
        alignas(8) BYTE output[kRecordSize + 1];
        std::fill(std::begin(output), std::end(output), kUntouched);
        EXPECT_EQ(Run(reinterpret_cast<DEVMODEW*>(output), nullptr, mode), result);
        const auto untouched = std::count(std::begin(output), std::end(output), kUntouched);
        EXPECT_EQ(untouched == std::ssize(output), !written);
        EXPECT_EQ(output[kRecordSize], kUntouched);
        EXPECT_EQ(Run(nullptr, nullptr, mode), kRecordSize) << "without an output";
    }
    EXPECT_EQ(DrvAdvancedDocumentProperties(nullptr, printer_.handle(), printer_.name(), nullptr, nullptr),
              kRecordSize);
}

TEST_F(DocumentSettings, FailForAHandleThatIsNoPrinter)
{
    alignas(8) DriverDevMode output = {};
    const DriverDevMode untouched = output;
    for (const HANDLE printer : {HANDLE{}, INVALID_HANDLE_VALUE, reinterpret_cast<HANDLE>(0x1234)}) {
        EXPECT_EQ(DrvDocumentProperties(nullptr, printer, nullptr, &output.dmPublic, nullptr, DM_COPY), -1);
        DocumentPropertyHeader header = {};
        header.cbSize = sizeof(header);
        header.hPrinter = printer;
        header.pdmOut = &output.dmPublic;
        header.fMode = DM_COPY;
        EXPECT_EQ(DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(&header)), -1);
    }
    EXPECT_EQ(Differences(output, untouched), "");
}

TEST_F(DocumentSettings, CannotBePromptedForWithoutTheCommonSheets)
{
    alignas(8) DriverDevMode output = {};
    for (const uint64_t missing : {0, 1}) { // the module, then its function
        const host::Ledger before = host::OpenObjects();
        host::FailCalls(missing, false);
        EXPECT_EQ(Run(&output.dmPublic, nullptr, DM_PROMPT | DM_COPY), -1) << missing;
        host::StopFailing();
        EXPECT_EQ(host::OpenObjects(), before);
    }
}

TEST_F(DocumentSettings, KeepInsideAnOutputOfTheInputsShape)
{
    const std::pair<RecordShape, size_t> cases[] = {
        // The input, and the bytes of the output; none for a shape that cannot be used.
        {{0x0401, 1301, 220, 1632}, 1852},    {{0x0401, 1301, 220, 0}, 220}, {{0x0400, 1301, 212, 112}, 324},
        {{0x0320, 848, 188, 112}, 300},       {{0x0320, 848, 188, 0}, 188},  {{0x0401, 7, 220, 5000}, 1852},
        {{0x0500, 1301, 600, 1632}, 1852},    {{0x0401, 1301, 100, 8}, 108}, {{0x0401, 1301, 72, 0}, 72},
        {{0x0401, 1301, 65535, 65535}, 1852}, {{0, 1301, 156, 1632}, 0},     {{0x0401, 1301, 0, 0}, 0},
        {{0x0401, 1301, 71, 1632}, 0},
    };
    GuardedMemory inputMemory(2 * 65535), outputMemory(kRecordSize);
    for (const auto& [shape, owned] : cases) {
        SCOPED_TRACE(testing::Message() << shape.publicSize << " + " << shape.privateSize);
        auto* input = reinterpret_cast<DEVMODEW*>(inputMemory.Last(std::max(shape.TotalSize(), kHeaderSize)));
        SetShape(input, shape);
        BYTE* output = outputMemory.Last(owned);
        EXPECT_EQ(Run(reinterpret_cast<DEVMODEW*>(output), input, DM_COPY), 1);
        EXPECT_EQ(Run(input, input, DM_COPY), 1) << "in place";
        if (owned) {
            EXPECT_EQ(ShapeOf(output).TotalSize(), owned);
            EXPECT_EQ(ShapeOf(input).TotalSize(), owned);
        }
    }
}

TEST_F(DocumentSettings, AnswerAHeaderWithinTheBytesThatItStates)
{
    GuardedMemory memory(64);
    for (WORD size = 2; size <= 64; ++size) {
        SCOPED_TRACE(size);
        alignas(8) DriverDevMode output = {};
        DocumentPropertyHeader header = {};
        header.cbSize = size;
        header.hPrinter = printer_.handle();
        header.pdmOut = &output.dmPublic;
        header.fMode = DM_COPY;
        // Callers' headers may lie anywhere.
        BYTE* place = memory.Last(size);
        std::memcpy(place, &header, std::min<size_t>(size, sizeof(header)));
        const bool whole = size >= sizeof(header);
        EXPECT_EQ(DrvDocumentPropertySheets(nullptr, reinterpret_cast<LPARAM>(place)),
                  whole ? 1 : kRecordSize);
        EXPECT_EQ(output.dmPublic.dmSize, whole ? 220 : 0);
        std::memcpy(static_cast<void*>(&header), place, std::min<size_t>(size, sizeof(header)));
        EXPECT_EQ(header.cbOut, size >= 44 ? 1852u : 0u);
    }
    EXPECT_EQ(DrvDocumentPropertySheets(nullptr, 0), -1);
}

/// What a merged record promises beyond the ranges of its fields; an empty text when it holds.
std::string BrokenRule(const DriverDevMode& record)
{
    const DEVMODEW& pub = record.dmPublic;
    const PrivateDevMode& priv = record.dmPrivate;
    const int printedOn = priv.bFitToPaper == 1 ? priv.wOutputPaper : pub.dmPaperSize;
    const bool plain = priv.wMediaClass == 0 || priv.wMediaClass == 8 || priv.wMediaClass == 12;
    const bool fits = priv.bFitToPaper == 1;
    const std::tuple<const char*, bool> rules[] = {
        {"end mark", std::memcmp(priv.endMark, "EOSC", 4) == 0},
        {"signature", std::memcmp(priv.dwSignature, "PRIV", 4) == 0},
        {"second tray", pub.dmDefaultSource != 2 || (plain && FitsSecondTray(printedOn))},
        {"envelopes are thick", !IsEnvelope(printedOn) || priv.wThickness == 2},
        {"user size bits",
         ((pub.dmFields & (DM_PAPERLENGTH | DM_PAPERWIDTH)) != 0) == (pub.dmPaperSize == 256)},
        {"collate", (priv.bTailCollate == 1) == (pub.dmCollate == 1)},
        {"date print in the tail", priv.dwTailDatePrint == priv.dwDatePrint},
        {"date colours in the tail",
         priv.crTailDateText == priv.crDateText && priv.crTailDateBack == priv.crDateBack},
        {"date font in the tail", std::memcmp(&priv.lfTailDateFont, &priv.lfDateFont, sizeof(LOGFONTW)) == 0},
        {"papers in the tail",
         priv.shTailDocPaper == (fits ? static_cast<int16_t>(priv.wDocumentPaper) : -1) &&
             priv.shTailOutPaper == (fits ? static_cast<int16_t>(priv.wOutputPaper) : -1)},
        {"no mirror on film", priv.wMediaClass < 4 || priv.wMediaClass > 5 || priv.dwDeviceOptions == 0},
    };
    for (const auto& [name, holds] : rules)
        if (!holds)
            return name;
    return FieldOutOfRange(record);
}

/// Boundaries, papers and media, and some that lie anywhere.
std::vector<uint64_t> TriedValues()
{
    std::mt19937_64 random(20260101);
    std::vector<uint64_t> values = {0,   1,   2,   3,   4,     5,     9,     20,         27,        43,  255,
                                    256, 257, 261, 263, 264,   265,   266,   268,        272,       273, 274,
                                    277, 283, 290, 294, 32767, 32768, 65535, UINT32_MAX, 0x80000000};
    std::generate_n(std::back_inserter(values), 4, random);
    return values;
}

/// Of fields longer than a number every byte is set to the low one.
void SetField(DriverDevMode& record, const DevModeField& field, uint64_t value)
{
    BYTE* bytes = BytesOf(record, field);
    if (field.width <= sizeof(value))
        std::memcpy(bytes, &value, field.width);
    else
        std::fill_n(bytes, field.width, static_cast<BYTE>(value));
}

TEST_F(DocumentSettings, ComeBackConsistentWhateverFieldWasChanged)
{
    const std::vector<uint64_t> values = TriedValues();
    const DriverDevMode original = Settled();
    ASSERT_EQ(BrokenRule(original), "");
    for (const DevModeField& field : kDevModeFields) {
        // The shape says how many bytes the record has, which other tests lie about. The end mark is the
        // caller's own: the printing side finds the tail from the front.
        if ((field.offset >= offsetof(DEVMODEW, dmSpecVersion) && field.offset < kHeaderSize) ||
            std::string_view(field.name) == "endMark")
            continue;
        for (const uint64_t value : values) {
            alignas(8) DriverDevMode input = original;
            SetField(input, field, value);
            const DriverDevMode output = Merged(&input.dmPublic);
            ASSERT_EQ(BrokenRule(output), "") << field.name << " = " << value;
            ASSERT_EQ(Text(output.dmPublic.dmDeviceName, 32), u"P1") << field.name;
        }
    }
}

TEST_F(DocumentSettings, LeaveNothingBehindWhateverFails)
{
    alignas(8) DriverDevMode input = Settled(), output;
    const DriverDevMode untouched = {};
    LONG result = 0;
    for (const Requests& requests :
         {kAllocations, kAllocationsOnwards, kCalls, kCallsOnwards, kReads<host::Misread::Huge>}) {
        FailEach(
            requests, [&] { output = untouched; },
            [&] { result = Run(&output.dmPublic, &input.dmPublic, DM_COPY); },
            [&](bool failed) {
                EXPECT_TRUE(result == 1 || (failed && result == -1)) << result;
                EXPECT_EQ(result == 1 ? BrokenRule(output) : Differences(output, untouched), "");
            });
    }
}

TEST_F(DocumentSettings, EventsAlwaysSucceed)
{
    for (const int event : {-1, 0, 1, 2, 5, 10, 11, 12, 0x10005, INT32_MAX})
        EXPECT_EQ(DrvDocumentEvent(nullptr, nullptr, event, 0xFFFFFFFF, nullptr, 0xFFFFFFFF, nullptr), 1);
}

} // namespace
