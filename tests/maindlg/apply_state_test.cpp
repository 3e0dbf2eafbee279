// Which changes of the settings wake the Apply button.
#include "psui/maindlg/apply_state.h"

#include "tests/maindlg/dialog_context.h"

namespace {

using namespace psui;
using namespace test;

constexpr uint32_t kAllBits = 0xFFFFFFFF;

struct CountedBits
{
    const char* field;
    uint32_t bits; ///< those that count
};

// The flags, place and formats of the printed date share a field; a language with formats of its own keeps
// the formats in the tail's copy.
constexpr uint32_t kDateFlags = 0x8F;
constexpr uint32_t kDateFormats = 0xFF00;

constexpr CountedBits kCounted[] = {
    {"dwSdPaper", kAllBits},        {"dmMediaType", kAllBits},    {"bQualityLevel", kAllBits},
    {"bBorderless", kAllBits},      {"dmPaperSize", kAllBits},    {"bDocType", kAllBits},
    {"dmOrientation", kAllBits},    {"dmCopies", kAllBits},       {"dmCollate", kAllBits},
    {"bTailCollate", kAllBits},     {"bTailReverse", kAllBits},   {"dwPagesPerSheet", kAllBits},
    {"bPageOrder", kAllBits},       {"bBorderLine", kAllBits},    {"wDuplexFlags", kAllBits},
    {"bBindingFlags", 3},           {"wBindingOffset", kAllBits}, {"dmDefaultSource", kAllBits},
    {"dmColor", kAllBits},          {"dwColorAdjust", kAllBits},  {"dwDirChoicePlain", kAllBits},
    {"dwDirChoiceOther", kAllBits}, {"wTonerSave", kAllBits},     {"bFitToPaper", kAllBits},
    {"wOutputPaper", kAllBits},     {"dmScale", kAllBits},        {"dwDeviceOptions", 3},
    {"dwWatermarkFlags", kAllBits}, {"dwWatermarkRop", kAllBits}, {"bWatermarkOutline", kAllBits},
    {"wWatermarkScale", kAllBits},  {"dwDatePrint", kDateFlags},  {"crDateBack", kAllBits},
    {"bStatusMonitor", kAllBits},   {"dwPhotoNotice", kAllBits},  {"bJpegPrint", kAllBits},
    {"bColorHalftone", kAllBits},   {"dwColorModeOn", kAllBits},  {"bPrintOrderOpt", kAllBits},
    {"lfDateFont", kAllBits},
};

using RecordBits = std::vector<BYTE>;

RecordBits Counted(const std::string& language)
{
    RecordBits counted(sizeof(DriverDevMode));
    const auto count = [&](const char* name, uint32_t bits) {
        const DevModeField& field = FieldNamed(name);
        for (size_t i = 0; i < field.width; ++i)
            counted[field.offset + i] |= static_cast<BYTE>(bits >> i % sizeof(bits) * 8);
    };
    for (const CountedBits& each : kCounted)
        count(each.field, each.bits);
    count(language == "jpn" ? "dwTailDatePrint" : "dwDatePrint", kDateFormats);
    // Seven adjustments of two bytes, with one between the fourth and the fifth that is none.
    for (const size_t adjustment : {226, 228, 230, 232, 236, 238, 240})
        counted[sizeof(DEVMODEW) + adjustment] = counted[sizeof(DEVMODEW) + adjustment + 1] = 0xFF;
    return counted;
}

TEST(ApplyButton, WakesForTheSettingsThatTheDialogsChange)
{
    for (const std::string language : {"eng", "jpn"}) {
        const World world(language);
        const DialogContext applied, changed;
        for (const DialogContext* each : {&applied, &changed}) {
            std::fill_n((*each)->dmWork.dmPrivate.lfDateFont.lfFaceName, LF_FACESIZE, u'x');
            SetAll((*each)->dmWork, {{"dwTrayChoice", 1}, {"dmDefaultSource", 0}});
        }
        EXPECT_FALSE(SettingsDiffer(*changed, *applied));
        const RecordBits counted = Counted(language);
        BYTE* const bytes = reinterpret_cast<BYTE*>(&changed.record());
        for (size_t bit = 0; bit < counted.size() * 8; ++bit) {
            const BYTE mask = static_cast<BYTE>(1 << bit % 8);
            bytes[bit / 8] ^= mask;
            EXPECT_EQ(SettingsDiffer(*changed, *applied), (counted[bit / 8] & mask) != 0)
                << language << ", byte " << bit / 8 << ", bit " << bit % 8;
            bytes[bit / 8] ^= mask;
        }
        changed->wCurrentWatermark = 3;
        EXPECT_TRUE(SettingsDiffer(*changed, *applied));
    }
}

TEST(ApplyButton, DoesNotLookAtASourceThatCannotBeChosen)
{
    const World world;
    const DialogContext applied, changed;
    for (const DialogContext* each : {&applied, &changed})
        Set((*each)->dmWork, "dwTrayChoice", 0);
    Set(changed.record(), "dmDefaultSource", 4);
    EXPECT_FALSE(SettingsDiffer(*changed, *applied));
}

} // namespace
