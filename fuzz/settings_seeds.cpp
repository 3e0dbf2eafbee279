// settings_seeds DIR: writes the seeds of settings_convert and settings_merge below DIR. Each row is one rule
// of the merge or one shape of a conversion.
#include <cstdio>
#include <string>

#include "fuzz/seeds.h"
#include "psui/settings/copy.h"
#include "tests/settings/record_fields.h"

namespace {

using fuzz::BytesOf;
using fuzz::WriteSeed;
using psui::DriverDevMode;
using psui::RecordShape;

struct MergeSeed
{
    const char* name;
    uint8_t flags; ///< of settings_merge: model 0 to 3, 4 metric, 8 WinPrint, 16 own record
    const char* fields;
};

const MergeSeed kMergeSeeds[] = {
    {"plain", 21, ""},
    {"winprint", 29, ""},
    {"mono", 16, "dmColor=2 dmDuplex=2"},
    {"media264", 21, "dmMediaType=264 dmPaperSize=274 dwDeviceOptions=3"},
    {"media261", 21, "dmMediaType=261 bQualityLevel=1 dmDefaultSource=2"},
    {"media263", 17, "dmMediaType=263 dwDirChoiceOther=1"},
    {"envelope", 21, "dmPaperSize=20"},
    {"postcard", 21, "dmPaperSize=43 dmDefaultSource=2"},
    {"large-borderless", 21, "dmPaperSize=283 dwDatePrint=0x80"},
    {"user", 21, "dmPaperSize=256 dmPaperLength=2000 dmPaperWidth=4000 wCustomThickness=2"},
    {"user-no-size", 21, "dmPaperSize=256 dmPaperLength=0 dmPaperWidth=-1"},
    {"user-no-paper", 21, "dmPaperSize=256 dmFields=0x0C"},
    {"fit", 21, "bFitToPaper=1 wOutputPaper=27 wDocumentPaper=9"},
    {"scale", 21, "bUsePublicScale=1 dmScale=1001 wMultiPageMode=1"},
    {"scale-private", 21, "wScale=50"},
    {"copies", 21, "dmCopies=999 dmCollate=1"},
    {"collate-tail", 21, "bCollateFromTail=1 bTailCollate=1"},
    {"collate-odd", 21, "dmCollate=2 dmOrientation=3 shQuality=-9"},
    {"no-fields", 21, "dmFields=0"},
    {"date-tail", 21, "dwTailDatePrint=0x80"},
    {"watermark", 22, "dwWatermarkFlags=1 dwPagesPerSheet=4"},
    {"foreign", 5, "dmDriverVersion=1"},
    {"old", 5, "dmSize=188 dmDriverExtra=112 dmSpecVersion=0x0320"},
    {"no-version", 5, "dmSize=156 dmSpecVersion=0"},
    {"header-only", 5, "dmSize=72 dmDriverExtra=0"},
    {"smaller-than-header", 5, "dmSize=10 dmDriverExtra=9"},
    {"large", 5, "dmSize=300 dmDriverExtra=2000"},
    {"other-model", 5, "wModelCrc=1"},
};

struct ConvertSeed
{
    const char* name;
    uint8_t mode;
    uint8_t flags; ///< of settings_convert: 1 no input, 2 no output, 4 no size, 8 in place, 16 known printer
    int32_t size;
    RecordShape output;
    RecordShape input;
};

constexpr RecordShape kOwn = {psui::kSpecVersion, psui::kDriverVersion, psui::kPublicSize,
                              psui::kPrivateSize};
constexpr RecordShape kOld = {0x0320, 848, 188, 112};

constexpr ConvertSeed kConvertSeeds[] = {
    {"same", 1, 0, 1852, kOwn, kOwn},
    {"same-in-place", 1, 8, 1852, kOwn, kOwn},
    {"to-old-shape", 1, 0, 300, kOld, kOwn},
    {"from-old-shape", 1, 0, 1852, kOwn, kOld},
    {"odd-shape", 1, 0, 500, {5, 6, 77, 400}, {7, 8, 90, 3}},
    {"no-room", 1, 0, 1851, kOwn, kOwn},
    {"no-header", 1, 0, 71, kOwn, kOwn},
    {"unversioned", 1, 0, 400, {0, 6, 77, 4}, kOwn},
    {"old", 2, 0, 300, kOwn, kOwn},
    {"old-in-place", 2, 8, 1852, kOwn, kOwn},
    {"old-unversioned", 2, 0, 300, kOwn, {0, 1, 156, 0}},
    {"old-no-input", 2, 1, 300, kOwn, kOwn},
    {"old-no-room", 2, 0, 299, kOwn, kOwn},
    {"no-output", 1, 2, 1852, kOwn, kOwn},
    {"no-size", 1, 4, 1852, kOwn, kOwn},
    {"default", 4, 16, 1852, kOwn, kOwn},
    {"default-no-printer", 4, 0, 1852, kOwn, kOwn},
    {"default-no-room", 4, 16, 1851, kOwn, kOwn},
    {"unknown-mode", 3, 0, 1852, kOwn, kOwn},
};

/// A record with every field bit and ordinary values.
DriverDevMode OrdinaryRecord()
{
    alignas(8) DriverDevMode record = {};
    psui::SetShape(&record, kOwn);
    std::memcpy(record.dmPrivate.dwSignature, psui::kPrivateSignature, sizeof(psui::kPrivateSignature));
    std::memcpy(record.dmPrivate.endMark, psui::kPrivateEndMark, sizeof(psui::kPrivateEndMark));
    test::SetAll(
        record,
        "dmFields=0x0201FFFF dmOrientation=1 dmPaperSize=9 dmPaperLength=2970 dmPaperWidth=2100 dmScale=100 "
        "dmCopies=1 dmDefaultSource=7 dmPrintQuality=-3 dmColor=2 dmDuplex=1 dmMediaType=266 shQuality=-3 "
        "bQualityLevel=2 wScale=100 dwDirChoicePlain=1 dwPagesPerSheet=1");
    return record;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: settings_seeds DIR\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = argv[1];
    for (const MergeSeed& seed : kMergeSeeds) {
        DriverDevMode record = OrdinaryRecord();
        test::SetAll(record, seed.fields);
        const std::string bytes = BytesOf(record);
        WriteSeed(folder / "settings_merge" / seed.name, BytesOf(seed.flags) + bytes + bytes);
    }
    for (const ConvertSeed& seed : kConvertSeeds) {
        DriverDevMode record = OrdinaryRecord();
        psui::SetShape(&record, seed.input);
        WriteSeed(folder / "settings_convert" / seed.name, BytesOf(seed.mode) + BytesOf(seed.flags) +
                                                               BytesOf(seed.size) + BytesOf(seed.output) +
                                                               BytesOf(record));
    }
    return 0;
}
