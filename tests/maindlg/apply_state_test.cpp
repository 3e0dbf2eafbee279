// Which changes of the settings wake the Apply button.
#include "psui/maindlg/apply_state.h"

#include "tests/maindlg/dialog_context.h"

namespace {

using namespace psui;
using namespace test;

/// Fields of which every bit counts.
constexpr const char* kCounted =
    "dwSdPaper dmMediaType bQualityLevel bBorderless dmPaperSize bDocType dmOrientation dmCopies dmCollate "
    "bTailCollate bTailReverse dwPagesPerSheet bPageOrder bBorderLine wDuplexFlags wBindingOffset "
    "dmDefaultSource dmColor dwColorAdjust dwDirChoicePlain dwDirChoiceOther wTonerSave bFitToPaper "
    "wOutputPaper dmScale dwWatermarkFlags dwWatermarkRop bWatermarkOutline wWatermarkScale crDateBack "
    "bStatusMonitor dwPhotoNotice bJpegPrint bColorHalftone dwColorModeOn bPrintOrderOpt lfDateFont";

// The flags, place and formats of the printed date share a field; a language with formats of its own keeps
// the formats in the tail's copy.
constexpr uint32_t kDateFlags = 0x8F;
constexpr uint32_t kDateFormats = 0xFF00;

using RecordBits = std::vector<BYTE>;

RecordBits Counted(const std::string& language)
{
    RecordBits counted(sizeof(DriverDevMode));
    const auto count = [&](const std::string& name, uint32_t bits) {
        const DevModeField& field = FieldNamed(name);
        for (size_t i = 0; i < field.width; ++i)
            counted[field.offset + i] |= static_cast<BYTE>(bits >> i % sizeof(bits) * 8);
    };
    std::istringstream names(kCounted);
    for (std::string name; names >> name;)
        count(name, 0xFFFFFFFF);
    count("bBindingFlags", 3);
    count("dwDeviceOptions", 3);
    count("dwDatePrint", kDateFlags);
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
