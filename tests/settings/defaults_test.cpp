#include "psui/settings/environment.h"
#include "psui/settings/record.h"
#include "tests/settings/support.h"

namespace {

using namespace std::literals;
using namespace test;
using psui::DriverDevMode;

/// Every number of a default record that is not zero. Texts, fonts and marks are looked at one by one.
constexpr char kFullModelDefaults[] =
    "dmSpecVersion=0x0401 dmDriverVersion=1301 dmSize=220 dmDriverExtra=1632 dmFields=0x02011A03 "
    "dmOrientation=1 dmPaperSize=9 dmPaperLength=2970 dmPaperWidth=2100 dmScale=100 dmCopies=1 "
    "dmDefaultSource=7 dmPrintQuality=-3 dmColor=2 dmDuplex=1 dmTTOption=3 dmICMMethod=1 "
    "dmICMIntent=3 dmMediaType=266 dmDitherType=1 wTailOffset=820 dwOptionFlags=0x2000 shQuality=-3 "
    "wMediaValue=266 wHrcValue=11 wPageProtectValue=12 wCaptValue=13 wThickness=4 bDocType=14 "
    "bColorHalftone=15 bColorMatching=16 wPoster=1 unnamed262=3 wCustomWidth=2100 wCustomLength=2970 "
    "unnamed270=2 bCmpMode=17 unnamed272=1 dwDirModePlain=19 unnamed284=0x201 unnamed286=500 "
    "unnamed288=1 unnamed292=1 unnamed296=2 bQualityLevel=2 dwDirChoicePlain=1 dwTrayChoice=1 "
    "dwColorModeOn=1 dwMatchingChoice=1 bJpegPrint=2 unnamed332=0x3F000000 unnamed348=33 "
    "unnamed354=500 unnamed360=1 wGMode=18 dwPhotoNotice=1 wMemorySize=32 bTtMode=20 unnamed410=500 "
    "wModelType=0x031F wMinCustomLength=1270 wMinCustomWidth=889 bKcDraft=21 bBorderless=23 "
    "bSfQuality=22 dwDatePrint=6 crDateBack=0xFFFFFF wScale=100 wDocumentPaper=9 wOutputPaper=9 "
    "wCustomThickness=4 dwNoFavourites=1 unnamed576=3 wSleepMode=10 dwSavedNup=1 unnamed664=8 "
    "wTailSize=1032 dwPagesPerSheet=1 unnamed679=1 unnamed680=1 unnamed682=-1 unnamed688=90 "
    "dwWatermarkRop=0x008800C6 wWatermarkScale=100 crTailDateBack=0xFFFFFF shTailDocPaper=-1 "
    "shTailOutPaper=-1 unnamed1188=100 unnamed1600=1 bTailValid=1";

bool IsNumber(const psui::DevModeField& field)
{
    return psui::FixedWidthOf(field.kind) != 0 && field.kind != psui::FieldKind::LogFont;
}

DriverDevMode BuildDefault(const psui::ModelDescription* model, bool metric = true)
{
    DriverDevMode record;
    std::memset(&record, 0xCC, sizeof(record));
    EXPECT_EQ(psui::BuildDefaultDevMode(&record, TEXT("Palette"), model, metric), 1);
    return record;
}

TEST(Defaults, FillEveryNumberFromModelAndTable)
{
    World world;
    const Model model(kFullModel);
    const DriverDevMode record = BuildDefault(model);
    DriverDevMode expected = {};
    SetAll(expected, kFullModelDefaults);
    for (const psui::DevModeField& field : psui::kDevModeFields) {
        if (!IsNumber(field) || std::string_view(field.name) == "wModelCrc" ||
            std::string_view(field.name) == "wFeatureCount")
            continue;
        EXPECT_EQ(Get(record, field), Get(expected, field)) << field.name;
    }
    EXPECT_EQ(record.dmPrivate.wModelCrc, model->sourceCrc);
    EXPECT_EQ(record.dmPrivate.wFeatureCount, model->documentFeatureCount);
}

TEST(Defaults, FillTextsFontsAndMarksAndZeroTheRest)
{
    World world;
    const DriverDevMode record = BuildDefault(Model(kFullModel));
    EXPECT_EQ(Text(record.dmPublic.dmDeviceName, 32), TEXT("Palette"));
    EXPECT_EQ(Text(record.dmPublic.dmFormName, 32), TEXT("A4"));
    EXPECT_EQ(Text(record.dmPrivate.wszClientProcess, 32), TEXT("vmsplf.exe"));
    EXPECT_STREQ(record.dmPrivate.szLangModule, "VMLANG.DLL");
    EXPECT_EQ(std::memcmp(record.dmPrivate.dwSignature, "PRIV", 4), 0);
    EXPECT_EQ(std::memcmp(record.dmPrivate.endMark, "EOSC", 4), 0);
    EXPECT_EQ(record.dmPrivate.lfDateFont.lfHeight, -11);
    EXPECT_EQ(record.dmPrivate.lfDateFont.lfCharSet, 1);
    EXPECT_EQ(Text(record.dmPrivate.lfDateFont.lfFaceName, 32), TEXT("Arial"));
    for (const psui::DevModeField& field : psui::kDevModeFields) {
        if (!std::string_view(field.name).starts_with("reserved"))
            continue;
        const BYTE* bytes = reinterpret_cast<const BYTE*>(&record) + field.offset;
        EXPECT_EQ(std::count(bytes, bytes + field.width, 0), field.width) << field.name;
    }
}

TEST(Defaults, SelectEachFeaturesDefaultAndNoResolution)
{
    World world;
    const Model model(kFullModel);
    const DriverDevMode record = BuildDefault(model);
    const auto selection = [&](psui::FeatureIndex index) {
        return record.dmPrivate.abFeatureSel[model->featureByIndex[index]->ordinal];
    };
    EXPECT_EQ(selection(psui::kFeatureResolution), 255);
    EXPECT_EQ(selection(psui::kFeatureColor), 1);
    EXPECT_EQ(selection(psui::kFeatureTray), 0);
}

TEST(Defaults, FallBackWhenTheModelSaysNothing)
{
    World world;
    const DriverDevMode record = BuildDefault(Model(kEmptyModel));
    ExpectFields(record,
                 "dmFields=0x02010A03 dmDefaultSource=7 dmColor=2 dmMediaType=0 wPageProtectValue=1 "
                 "wCaptValue=1 bDocType=2 bColorHalftone=3 bColorMatching=1 bCmpMode=9 dwDirModePlain=1 "
                 "dwTrayChoice=0 wMemorySize=1 wSleepMode=1 dwPagesPerSheet=1 wFeatureCount=0 bBorderless=0");
    ExpectFields(BuildDefault(Model("*Tray Tray1: \"1\"\n")), "dwTrayChoice=0 dmDefaultSource=1");
}

TEST(Defaults, UseLetterAndInchesOutsideMetricCountries)
{
    World world;
    const DriverDevMode record = BuildDefault(Model(kFullModel), false);
    ExpectFields(record, "dmPaperSize=1 dmPaperWidth=2159 dmPaperLength=2794 wCustomUnit=1 wCustomWidth=2159 "
                         "wCustomLength=2794 wDocumentPaper=1 wOutputPaper=1 bBindingFlags=1");
    EXPECT_EQ(Text(record.dmPublic.dmFormName, 32), TEXT("Letter"));
}

TEST(Defaults, FollowTheLanguageModule)
{
    for (const std::string language : {"eng", "jpn", ""}) {
        World world(language);
        SCOPED_TRACE(language);
        ExpectFields(BuildDefault(Model(kEmptyModel)),
                     language == "jpn" ? "wRegion=1 dwNoFavourites=0" : "wRegion=0 dwNoFavourites=1");
    }
}

TEST(Defaults, CutALongDriverNameAndTerminateIt)
{
    World world;
    DriverDevMode record;
    psui::BuildDefaultDevMode(&record, std::u16string(40, u'N').c_str(), Model(kEmptyModel), true);
    EXPECT_EQ(Text(record.dmPublic.dmDeviceName, 32), std::u16string(31, u'N'));
    psui::BuildDefaultDevMode(&record, nullptr, Model(kEmptyModel), true);
    EXPECT_EQ(Text(record.dmPublic.dmDeviceName, 32), u"");
}

TEST(Defaults, LetTheDriversPrintProcessorsCollate)
{
    World world;
    for (const char16_t* processor : {TEXT("VMHUB PRINT"), TEXT("winprint"), TEXT("other")}) {
        SetPrintProcessor(TEXT("Palette"), processor);
        const bool known = std::u16string(processor) != TEXT("other");
        ExpectFields(BuildDefault(Model(kEmptyModel)),
                     {{"dmFields", known ? 0x02018B03 : 0x02010A03}, {"dmNup", known ? 2 : 0}});
    }
}

TEST(IsMetricCountry, KnowsTheLetterCountriesAndSaysSoWhenNoneCanBeRead)
{
    World world;
    EXPECT_FALSE(psui::IsMetricCountry()) << "there is no country";
    for (const char16_t* letter : {u"1", u"2", u"50", u"52", u"59", u"500", u"503", u"599", u" 2x"}) {
        SetCountry(letter);
        EXPECT_FALSE(psui::IsMetricCountry()) << testing::PrintToString(letter);
    }
    for (const char16_t* metric :
         {u"49", u"55", u"60", u"81", u"499", u"600", u"0", u"-1", u"", u"x", u"3", u"4294967297"}) {
        SetCountry(metric);
        EXPECT_TRUE(psui::IsMetricCountry()) << testing::PrintToString(metric);
    }
    SetRegistryText(HKEY_CURRENT_USER, u"Control Panel\\International", u"iCountry", u"1", REG_DWORD);
    EXPECT_FALSE(psui::IsMetricCountry()) << "the country is not a text";
}

TEST(PrintProcessor, MatchesOnlyWholeTextsOfKnownPrinters)
{
    World world;
    const auto processor = [](const char16_t* text, DWORD type = REG_SZ) {
        SetPrintProcessor(u"P", text, type);
        return std::string(psui::IsHubPrintProcessor(u"P") ? "hub" : "") +
               (psui::IsWinPrintProcessor(u"P") ? "win" : "");
    };
    EXPECT_EQ(processor(u"VMHUB PRINT"), "hub");
    EXPECT_EQ(processor(u"vmhub print"), "hub");
    EXPECT_EQ(processor(u"WinPrint", REG_EXPAND_SZ), "win");
    EXPECT_EQ(processor(u"WinPrint", REG_BINARY), "");
    for (const char16_t* other : {u"WinPrint2", u"WinPrin", u"", u"a name that is longer than forty bytes"})
        EXPECT_EQ(processor(other), "") << testing::PrintToString(other);
    EXPECT_EQ(processor(u"WINPRINT"), "win");
    for (const std::u16string& printer : {u""s, u"Q"s, std::u16string(5000, u'P')})
        EXPECT_FALSE(psui::IsWinPrintProcessor(printer.c_str()));
    EXPECT_FALSE(psui::IsWinPrintProcessor(nullptr));
}

} // namespace
