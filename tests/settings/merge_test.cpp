#include "psui/settings/merge.h"

#include "psui/settings/copy.h"
#include "psui/settings/record.h"
#include "tests/settings/support.h"

namespace {

using namespace test;
using psui::DriverDevMode;

class Merge : public testing::Test
{
protected:
    World world_;
    Model model_{kFullModel};
    alignas(8) DriverDevMode target_ = Default();

    DriverDevMode Default() const
    {
        DriverDevMode record;
        psui::BuildDefaultDevMode(&record, TEXT("Palette"), model_, true);
        return record;
    }

    DriverDevMode Merged(const DriverDevMode& source)
    {
        alignas(8) DriverDevMode result = target_;
        EXPECT_EQ(psui::MergeDevMode(&result, &source.dmPublic, model_), 1);
        return result;
    }
};

struct MergeCase
{
    const char* what;
    const char* source; ///< changes to a default record
    const char* result;
    const char* target = ""; ///< changes to the default record that is merged into
};

const MergeCase kCases[] = {
    {"what a source may ask for",
     "dmDefaultSource=12345 dmOrientation=2 dmColor=1 dmDuplex=3 dwDeviceOptions=3",
     "dmDefaultSource=12345 dmOrientation=2 dmColor=1 dmDuplex=3 dwDeviceOptions=3"},
    {"what nobody knows becomes the usual", "dmOrientation=3 dmColor=3 dmDuplex=4 shQuality=600",
     "dmOrientation=1 dmColor=1 dmDuplex=1 dmPrintQuality=-3"},
    {"what has no bit is not taken",
     "dmFields=0 dmDefaultSource=4 dmOrientation=2 dmColor=1 dmMediaType=263 wMediaClass=3 dmCopies=7",
     "dmDefaultSource=7 dmOrientation=1 dmColor=2 dmMediaType=266 wMediaClass=0 dmCopies=1"},

    {"a listed paper clears the size bits", "dmFields=0x0201000F dmPaperSize=11",
     "dmPaperSize=11 dmFields=0x02011B03"},
    {"a user size becomes the custom size",
     "dmFields=0x0F dmPaperSize=256 dmPaperLength=3000 dmPaperWidth=2000",
     "dmFields=0x02011B0F dmPaperLength=3000 dmPaperWidth=2000 wCustomLength=3000 wCustomWidth=2000 "
     "dmOrientation=1"},
    {"a user size too wide for portrait is turned",
     "dmFields=0x0F dmPaperSize=256 dmPaperLength=2000 dmPaperWidth=4000",
     "dmPaperLength=4000 dmPaperWidth=2000 wCustomLength=4000 wCustomWidth=2000 dmOrientation=2"},
    {"one that does not fit turned either stays",
     "dmFields=0x0F dmPaperSize=256 dmPaperLength=3000 dmPaperWidth=4000",
     "wCustomLength=3000 wCustomWidth=4000 dmOrientation=1"},
    {"one that fits portrait although it is wide stays",
     "dmFields=0x0F dmPaperSize=256 dmPaperLength=1500 dmPaperWidth=2870",
     "wCustomLength=1500 wCustomWidth=2870 dmOrientation=1"},
    {"lengths below one are not taken", "dmFields=0x0F dmPaperSize=256 dmPaperLength=0 dmPaperWidth=-5",
     "dmFields=0x02011B0F dmPaperLength=2970 dmPaperWidth=2100 wCustomLength=2970"},
    {"a length without its bit is not taken",
     "dmFields=0x0A dmPaperSize=256 dmPaperLength=1500 dmPaperWidth=1400",
     "dmPaperLength=2970 dmPaperWidth=1400 wCustomWidth=1400"},
    {"the user size of the target ends", "", "dmPaperSize=9 dmFields=0x02011B03",
     "dmPaperSize=256 dmFields=0x02011A0F"},

    {"a borderless paper prints no date", "dmPaperSize=274 dwDatePrint=0x86",
     "dmPaperSize=274 dwDatePrint=0x06 bBorderless=1"},
    {"nor does a record that was borderless", "bBorderless=1 dwDatePrint=0x86",
     "dwDatePrint=0x06 bBorderless=0"},
    {"a bordered paper does", "bBorderless=0 dwDatePrint=0x86", "dwDatePrint=0x86"},
    {"media 264 needs borders", "dmMediaType=264 dmPaperSize=274", "dmPaperSize=9"},
    {"media 265 needs borders", "dmMediaType=265 dmPaperSize=294", "dmPaperSize=293"},
    {"even when that is not taken over", "dmFields=0x2 dmMediaType=264 dmPaperSize=274",
     "dmPaperSize=9 dmMediaType=266"},
    {"media 263 does not", "dmMediaType=263 dmPaperSize=274", "dmPaperSize=274"},
    {"media that need borders come to borderless paper", "dmFields=0x02000000 dmMediaType=264",
     "dmPaperSize=9 bBorderless=0", "dmPaperSize=274"},
    {"borderless paper comes to media that need borders", "dmFields=2 dmMediaType=266 dmPaperSize=274",
     "dmPaperSize=9 dmMediaType=264", "dmMediaType=264"},

    {"scale comes from the private part", "dmScale=50 wScale=70", "dmScale=70"},
    {"or from the public one", "bUsePublicScale=1 dmScale=50 wScale=70", "dmScale=50 dmFields=0x02011B13"},
    {"scaling ends the multi-page mode", "wScale=1000 wMultiPageMode=3", "dmScale=1000 wMultiPageMode=0"},
    {"no scaling keeps it", "wMultiPageMode=3", "wMultiPageMode=3"},
    {"scale above 1000", "wScale=1001 wMultiPageMode=3", "dmScale=100 wMultiPageMode=0"},
    {"scale below 1", "bUsePublicScale=1 dmScale=-1", "dmScale=100"},
    {"scale 0", "wScale=0", "dmScale=100"},

    {"copies", "dmFields=0x100 dmCopies=999", "dmCopies=999"},
    {"copies 0 become 1", "dmFields=0x100 dmCopies=0", "dmCopies=1"},
    {"copies 1000 become 1", "dmFields=0x100 dmCopies=1000", "dmCopies=1"},

    {"quality comes from the private part", "dmFields=0x400 dmPrintQuality=-1 shQuality=-4",
     "dmPrintQuality=-4 dmFields=0x02011F03"},

    {"collate", "dmFields=0x8000 dmCollate=1", "dmCollate=1 bTailCollate=1 dwCollate=1 dmFields=0x02019B03"},
    {"an unknown collate is off", "dmFields=0x8000 dmCollate=2",
     "dmCollate=0 dwCollate=0 dmFields=0x02011B03"},
    {"collate from the tail", "bCollateFromTail=1 bTailCollate=1 dmCollate=0", "dmCollate=1 dwCollate=1"},
    {"collate from a tail that says something else",
     "bCollateFromTail=1 bTailCollate=2 dmFields=0x8000 dmCollate=1", "dmCollate=0 bTailCollate=0"},

    {"no device options on media 264", "dmMediaType=264 dwDeviceOptions=3", "dwDeviceOptions=0"},
    {"no device options on media 265", "dmMediaType=265 dwDeviceOptions=3", "dwDeviceOptions=0"},

    {"direction of plain media follows its choice", "dwDirChoicePlain=7 dwDirChoiceOther=0 dwDirModeOther=9",
     "dwDirModePlain=1 dwDirModeOther=9"},
    {"direction of other media follows its own",
     "dmMediaType=263 dwDirChoicePlain=0 dwDirChoiceOther=7 dwDirModePlain=9",
     "dwDirModePlain=9 dwDirModeOther=1"},
    {"postcards print in one direction", "dmPaperSize=43", "dwDirModePlain=0"},
    {"thick user paper too", "dmPaperSize=256 wThickness=4", "dwDirModePlain=0"},
    {"thin user paper not", "dmPaperSize=256 wThickness=3", "dwDirModePlain=1"},

    {"large borderless plain paper is printed well", "dmPaperSize=283 bQualityLevel=1 shQuality=-1",
     "bQualityLevel=3 shQuality=-4 dmPrintQuality=-4"},
    {"on media 272 too", "dmPaperSize=290 dmMediaType=272", "bQualityLevel=3 dmPrintQuality=-4"},
    {"on media 261 as that asks", "dmPaperSize=283 dmMediaType=261 bQualityLevel=3",
     "bQualityLevel=3 shQuality=-3"},

    {"envelopes are thick", "dmPaperSize=20 wCustomThickness=1", "wThickness=2"},
    {"user paper is as thick as it says", "dmPaperSize=256 wCustomThickness=3", "wThickness=3"},
    {"other paper is not", "wThickness=2", "wThickness=0"},
    {"the paper printed on decides", "bFitToPaper=1 wOutputPaper=27", "wThickness=2"},
    {"the tail is refreshed", "bFitToPaper=1 wDocumentPaper=8 wOutputPaper=9 dwDatePrint=0x86",
     "shTailDocPaper=8 shTailOutPaper=9 dwTailDatePrint=0x86"},
    {"unless it is not fitted to", "bFitToPaper=2 wOutputPaper=27", "wThickness=0"},

    {"the second tray takes A4", "dmDefaultSource=2", "dmDefaultSource=2"},
    {"not A5", "dmDefaultSource=2 dmPaperSize=11", "dmDefaultSource=1"},
    {"not A5 as the output paper", "dmDefaultSource=2 bFitToPaper=1 wOutputPaper=11", "dmDefaultSource=1"},
    {"and only plain media", "dmDefaultSource=2 dmMediaType=263", "dmDefaultSource=1"},
    {"of which there are three kinds", "dmDefaultSource=2 dmMediaType=268", "dmDefaultSource=2"},
};

TEST_F(Merge, TakesOverAndRepairsField)
{
    for (const MergeCase& c : kCases) {
        SCOPED_TRACE(c.what);
        alignas(8) DriverDevMode source = Default();
        target_ = source;
        SetAll(source, c.source);
        SetAll(target_, c.target);
        ExpectFields(Merged(source), c.result);
    }
}

TEST_F(Merge, AllowsEachMediaItsQualityLevels)
{
    const struct
    {
        int media, first, last, level, quality;
    } rules[] = {{261, 3, 4, 4, -4}, {263, 3, 5, 4, -3}, {264, 2, 3, 2, -3},
                 {265, 0, 3, 2, -3}, {266, 0, 3, 2, -3}, {269, 3, 5, 4, -3},
                 {271, 3, 5, 4, -3}, {273, 3, 5, 4, -3}, {0, 0, 3, 2, -3}};
    for (const auto& rule : rules)
        for (int level = 0; level < 256; ++level) {
            alignas(8) DriverDevMode source = Default();
            SetAll(source, {{"dmMediaType", rule.media}, {"bQualityLevel", level}, {"shQuality", -1}});
            const bool allowed = rule.first <= level && level <= rule.last;
            SCOPED_TRACE(testing::Message() << "media " << rule.media << ", level " << level);
            ExpectFields(Merged(source), {{"bQualityLevel", allowed ? level : rule.level},
                                          {"shQuality", allowed ? -1 : rule.quality},
                                          {"dmPrintQuality", allowed ? -1 : rule.quality}});
        }
}

TEST_F(Merge, ClassifiesMedia)
{
    for (int media = 255; media < 280; ++media) {
        alignas(8) DriverDevMode source = Default();
        Set(source, "dmMediaType", media);
        const bool special = 261 <= media && media <= 273 && media != 266;
        EXPECT_EQ(Get(Merged(source), "wMediaClass"), special ? media - 260 : 0) << media;
    }
}

TEST_F(Merge, LeavesTheTargetForNoSourceAndForAnUnversionedOneOfUnknownSize)
{
    alignas(8) DriverDevMode source = Default();
    SetAll(source, "dmSize=156 dmSpecVersion=0 dmCopies=9");
    target_.dmPublic.dmCopies = 55;
    const DriverDevMode before = target_;
    EXPECT_EQ(psui::MergeDevMode(&target_, nullptr, model_), 1);
    EXPECT_EQ(psui::MergeDevMode(&target_, &source.dmPublic, model_), 0);
    EXPECT_EQ(Differences(before, target_), "");
    Set(source, "dmSpecVersion", 0x0300);
    EXPECT_EQ(psui::MergeDevMode(&target_, &source.dmPublic, model_), 1);
}

TEST_F(Merge, TakesOnlyPublicFieldsOfForeignRecords)
{
    for (const FieldValue& foreign : FieldValues(
             "dwSignature=1 dmDriverVersion=1300 dmSpecVersion=0x400 dmSize=212 dmDriverExtra=1631")) {
        SCOPED_TRACE(foreign.name);
        alignas(8) DriverDevMode source = Default();
        SetAll(source, {{"dmOrientation", 2}, {"wPoster", 3}, foreign});
        ExpectFields(Merged(source), "dmOrientation=2 wPoster=1");
    }
}

TEST_F(Merge, KeepsFieldsThatAShortRecordNamesButDoesNotHave)
{
    alignas(8) DriverDevMode source = Default();
    SetAll(source, "dmFields=-1 dmMediaType=263 dmOrientation=2 dmSize=188");
    ExpectFields(Merged(source), "dmOrientation=2 dmMediaType=266");
    SetAll(source, "dmSize=72 dmSpecVersion=0x0401");
    EXPECT_EQ(Differences(Merged(source), Merged(Default())), "");
}

TEST_F(Merge, RebuildsSelectionsMadeForAnotherModel)
{
    alignas(8) DriverDevMode source = Default();
    std::memset(source.dmPrivate.abFeatureSel, 77, sizeof(source.dmPrivate.abFeatureSel));
    source.dmPrivate.wFeatureCount = 5;
    EXPECT_EQ(Merged(source).dmPrivate.abFeatureSel[0], 77);

    source.dmPrivate.wModelCrc ^= 1;
    const DriverDevMode merged = Merged(source);
    EXPECT_EQ(merged.dmPrivate.wModelCrc, model_->sourceCrc);
    EXPECT_EQ(merged.dmPrivate.wFeatureCount, model_->documentFeatureCount);
    EXPECT_EQ(std::memcmp(merged.dmPrivate.abFeatureSel, target_.dmPrivate.abFeatureSel,
                          model_->documentFeatureCount),
              0);
}

TEST_F(Merge, PrintsInBlackAndOnOneSideOnAPrinterWithoutColourAndDuplex)
{
    const Model mono(kEmptyModel);
    for (const int64_t fields : {0x1800, 0}) {
        alignas(8) DriverDevMode source = Default(), result = target_;
        SetAll(source, {{"dmFields", fields}, {"dmDuplex", 2}});
        psui::MergeDevMode(&result, &source.dmPublic, mono);
        ExpectFields(result, "dmColor=1 dmDuplex=1");
    }
}

TEST_F(Merge, LeavesPagesPerSheetToTheWinPrintProcessor)
{
    ExpectFields(Merged(Default()), "dmNup=2 dmFields=0x02011B03");
    SetPrintProcessor(TEXT("Palette"), TEXT("WinPrint"));
    ExpectFields(Merged(Default()), "dmNup=1 dmFields=0x02019B43");
}

TEST_F(Merge, TakesTheFormName)
{
    alignas(8) DriverDevMode source = Default();
    std::fill_n(source.dmPublic.dmFormName, 32, u'F');
    EXPECT_EQ(Text(Merged(source).dmPublic.dmFormName, 32), std::u16string(32, u'F'));
    Set(source, "dmFields", 0);
    EXPECT_EQ(Text(Merged(source).dmPublic.dmFormName, 32), u"A4");
}

} // namespace
