#include "psui/maindlg/settings_summary.h"

#include <charconv>
#include <memory>
#include <random>
#include <sstream>

#include <gtest/gtest.h>

#include "psui/dialogs/watermark_store.h"
#include "tests/maindlg/dialog_context.h"

namespace {

using namespace psui;
using namespace test;

std::u16string Replaced(std::u16string text, std::u16string_view from, std::u16string_view to)
{
    for (size_t at = 0; (at = text.find(from, at)) != text.npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

/// The text that a sketch stands for: "{8139}" is that string, "{8140:3}" that string with its place filled
/// with 3, "~" a new line indented by 5, "^" one by 10.
std::u16string Expand(const std::string& sketch)
{
    std::u16string text;
    for (const char* at = sketch.c_str(); *at; ++at) {
        if (*at == '{') {
            unsigned id = 0;
            at = std::from_chars(at + 1, at + 8, id).ptr;
            std::u16string piece = LanguageText(id);
            EXPECT_FALSE(piece.empty()) << id;
            EXPECT_EQ(piece.find(u'&'), piece.npos) << id;
            if (*at == ':') {
                const std::string number(at + 1, std::strchr(at, '}'));
                piece = Replaced(piece, u"%d", std::u16string(number.begin(), number.end()));
                piece = Replaced(piece, u"%%", u"%");
                at = std::strchr(at, '}');
            }
            text += piece;
        } else if (*at == '~' || *at == '^') {
            text += u"\r\n" + std::u16string(*at == '~' ? 5 : 10, u' ');
        } else {
            text += *at == '\n' ? std::u16string(u"\r\n") : std::u16string(1, *at);
        }
    }
    return text;
}

/// A printer without duplex, in an A4 country: A4 plain paper, normal quality, one page of everything.
const std::string kBase = "---{8157}------------------------------\n"
                          "{8178}\t{8155}\n"
                          "{8129}\t{1240}\n"
                          "{8130}\t{8085}\n"
                          "{8141}\t{8155}\n"
                          "{8131}\t{9022}\n"
                          "{8146}\t{8148}\n"
                          "{8136}\t{8137}\n"
                          "{8139}\t{8140:1}\n"
                          "{8182}\t{8155}\n"
                          "{8132}\t{8093}\n"
                          "{8142}\t{1271}\n"
                          "\n"
                          "---{8158}------------------------------\n"
                          "{8143}\t{8144}~"
                          "<{8183}>~"
                          "{8151}\t{8155}~"
                          "{8179}\t{8156}~"
                          "{8180}\t{8155}\n"
                          "{8133}\t{8155}\n"
                          "{8152}\t{8155}\n"
                          "{8153}\t{8155}\n"
                          "{8177}\t{8155}\n"
                          "\n"
                          "<{8171}>~"
                          "{8172}\t{8155}~"
                          "{8154}\t{8155}~"
                          "{8174}\t{8156}~"
                          "{8175}\t{8194}~"
                          "{8038}^"
                          "{8176}\t{8197}^"
                          "{6031}\t{8156}~"
                          "{8039}\t{8201}\n"
                          "\n";

constexpr const char* kBaseFields =
    "dmMediaType=1 bQualityLevel=2 dmPaperSize=9 wDocumentPaper=9 dmColor=2 dwTrayChoice=1 dmFields=0 "
    "bDocType=2 dmDefaultSource=7 bColorHalftone=2 bBorderless=0 wModelType=0x100 wThickness=0 "
    "dwPagesPerSheet=1";

/// Fields beside those of the base, and how the text changes: "8129={1241}" is another value behind that
/// label,
/// "-8178" leaves the line out.
struct Case
{
    const char* name;
    const char* fields;
    const char* changes;
};

const Case kCases[] = {
    {"base", "", ""},
    {"slow drying", "dwSdPaper=1", "8178={8156}"},
    {"inkjet paper", "dmMediaType=261", "-8178;8129={1241};8179={8155}"},
    {"glossy paper", "dmMediaType=262", "-8178;8129={1242};8179={8155}"},
    {"photo, bi-directional", "dmMediaType=263 dwDirChoiceOther=1", "-8178;8129={1247}"},
    {"transparency", "dmMediaType=264", "-8178;-8141;8129={1244};8179={8155};-8152;-8153"},
    {"mirrored transparency", "dmMediaType=265", "-8178;-8141;8129={1245};8179={8155};-8152;-8153"},
    {"inkjet postcard", "dmMediaType=268", "-8178;8129={1246}"},
    {"coated photo paper", "dmMediaType=269", "-8178;8129={1248};8179={8155}"},
    {"glossy R", "dmMediaType=270", "-8178;8129={1249};8179={8155}"},
    {"glossy RB", "dmMediaType=271", "-8178;8129={1250};8179={8155}"},
    {"postcard, address side", "dmMediaType=272", "8129={1251}"},
    {"postcard, picture side", "dmMediaType=273", "-8178;8129={1252};8179={8155}"},
    {"unknown media", "dmMediaType=266", "-8178;8179={8155}"},
    {"draft", "bQualityLevel=0", "8130={8083};-8141"},
    {"photo quality", "bQualityLevel=4", "8130={8087};-8179"},
    {"best quality", "bQualityLevel=5", "8130={8088};-8179"},
    {"best quality with borders", "bQualityLevel=5 wModelType=0x110", "8130={8088};-8141;-8179"},
    {"unknown quality", "bQualityLevel=6", "8130={8083}"},
    {"borderless A4", "dmPaperSize=274 wDocumentPaper=274 bBorderless=1", "8141={8156};-8132;-8172"},
    {"borderless, wrongly, on A5", "dmPaperSize=11 wDocumentPaper=11 bBorderless=1", "-8141;8131={9027}"},
    {"postcard size", "dmPaperSize=43 wDocumentPaper=43", "8131={9033};-8179"},
    {"user-defined size", "dmPaperSize=256 wDocumentPaper=256", "8131={1215};-8141"},
    {"thick user-defined size", "dmPaperSize=256 wDocumentPaper=256 wThickness=4", "8131={1215};-8141;-8179"},
    {"unknown paper", "dmPaperSize=30 wDocumentPaper=30", "8131=;-8141;-8179"},
    {"vivid", "bDocType=1", "8146={8149}"},
    {"another colour mode", "bDocType=3", "8146="},
    {"no monitor matching", "dwColorModeOn=0", "-8146;6031={8155}"},
    {"monochrome", "dmColor=1", "-8146;8143={8145};-6031"},
    {"landscape", "dmOrientation=2", "8136={8138}"},
    {"collated copies", "dmCopies=3 dwCollate=1 dwReverseOrder=1",
     "8139={8140:3}\n{8181}\t{8156};8182={8156}"},
    {"two pages", "dwPagesPerSheet=2", "8132={8094}~{8167}\t{8100}~{8168}\t{8007}"},
    {"two pages, backwards", "dwPagesPerSheet=2 bPageOrder=2 bBorderLine=1",
     "8132={8094}~{8167}\t{8101}~{8168}\t{8008}"},
    {"two pages on landscape", "dwPagesPerSheet=2 bPageOrder=2 dmOrientation=2",
     "8136={8138};8132={8094}~{8167}\t{8102}~{8168}\t{8007}"},
    {"four pages", "dwPagesPerSheet=4 bPageOrder=1 bBorderLine=2",
     "8132={8095}~{8167}\t{8104}~{8168}\t{8009}"},
    {"nine pages", "dwPagesPerSheet=9 bPageOrder=2", "8132={8098}~{8167}\t{8107}~{8168}\t{8007}"},
    {"sixteen pages", "dwPagesPerSheet=16 bPageOrder=3", "8132={8099}~{8167}\t{8106}~{8168}\t{8007}"},
    {"values without names",
     "dwPagesPerSheet=16 bPageOrder=200 bBorderLine=3 bJpegPrint=1 bColorHalftone=9 bPrintOrderOpt=3",
     "8132={8099}~{8167}\t~{8168}\t;8175=;8176=;8039="},
    {"poster of four", "dwPagesPerSheet=-4", "8132={8096}"},
    {"poster of nine", "dwPagesPerSheet=-9", "8132={8097}"},
    {"fit to paper", "dwPagesPerSheet=4 bFitToPaper=1 wOutputPaper=13", "8133={8156}~{8135}\t{9026}"},
    {"fit to an envelope", "bFitToPaper=1 wOutputPaper=20", "8133={8156}~{8135}\t{9036};-8179"},
    {"free scaling", "bFitToPaper=2 dmScale=75 wOutputPaper=20", "8133={8156}~{8170}\t{8134:75}"},
    {"one-sided on a duplex printer", "dmFields=0x1000", "8132={8093}\n{8169}\t{8155};-8039"},
    {"duplex", "dmFields=0x1000 wDuplexFlags=0x103",
     "8132={8093}\n{8169}\t{8156}~<{8184}>~{8185}\t{8155}~{8186}\t{8190}~{8193}\t{8155};-8039"},
    {"duplex with an offset", "dmFields=0x1000 wDuplexFlags=0x100 bBindingFlags=2 wBindingOffset=25",
     "8132={8093}\n{8169}\t{8156}~<{8184}>~{8185}\t{8155}~{8186}\t{8187}~{8193}\t2.5 {9085};-8039"},
    {"booklet with an offset in inches",
     "dmFields=0x1000 wDuplexFlags=0x105 bBookletFlags=1 bBindingFlags=3 wBindingOffset=25",
     "-8141;-8132;8182={8155}\n{8169}\t{8156}~<{8184}>~{8185}\t{8156}~{8186}\t{8192}~{8193}\t0.1 {9086};"
     "-8039"},
    {"negative offset in inches, scaled",
     "dmFields=0x1000 wDuplexFlags=0x1FF bFitToPaper=2 bBindingFlags=3 wBindingOffset=-38",
     "8132={8093}\n{8169}\t{8156}~<{8184}>~{8186}\t~{8193}\t-0.15 {9086};8133={8156}~{8170}\t{8134:100};"
     "-8039"},
    {"negative offset", "dmFields=0x1000 wDuplexFlags=0x104 bBindingFlags=2 wBindingOffset=-5",
     "8132={8093}\n{8169}\t{8156}~<{8184}>~{8185}\t{8155}~{8186}\t{8191}~{8193}\t-0.5 {9085};-8039"},
    {"duplex printer, large paper", "dmFields=0x1000 wDuplexFlags=0x100 dmPaperSize=8 wDocumentPaper=8",
     "8131={9040};-8039"},
    {"duplex printer in monochrome", "dmFields=0x1000 dmColor=1",
     "-8146;8143={8145};8132={8093}\n{8169}\t{8155};-6031;-8039"},
    {"first tray", "dmDefaultSource=1", "8142={1272}"},
    {"second tray", "dmDefaultSource=2", "8142={1273}"},
    {"one tray", "dwTrayChoice=0", "-8142"},
    {"adjusted colours",
     "dwColorAdjust=1 ashColorAdjust0=1 ashColorAdjust1=-2 ashColorAdjust2=3 ashColorAdjust3=4 "
     "ashColorAdjust4=5 ashColorAdjust5=6 ashColorAdjust6=-7",
     "8151={8156}^{8159}\t{8166:1}^{8160}\t{8166:-2}^{8161}\t{8166:3}^{8162}\t{8166:4}^{8163}\t{8166:5}^"
     "{8164}\t{8166:6}^{8165}\t{8166:-7}"},
    {"adjusted greys", "dwColorAdjust=1 ashColorAdjust2=3 ashColorAdjust3=4 dmColor=1",
     "-8146;8143={8145};8151={8156}^{8161}\t{8166:3}^{8162}\t{8166:4};-6031"},
    {"one direction", "dwDirChoicePlain=0", "8179={8155}"},
    {"improved pattern", "wTonerSave=1", "8180={8156}"},
    {"mirrored", "dwDeviceOptions=1", "8152={8156}"},
    {"reversed", "dwDeviceOptions=2", "8153={8156}"},
    {"watermark", "dwWatermarkFlags=129", "8177=DRAFT & 100%"},
    {"date, monitor, no notice", "dwDatePrint=0x86 bStatusMonitor=1 dwPhotoNotice=0",
     "8172={8156};8154={8156};8174={8155}"},
    {"model without the notice", "wModelType=0x200", "-8174"},
    {"other device options", "bJpegPrint=0 bColorHalftone=1 bPrintOrderOpt=1",
     "8175={8195};8176={8198};8039={8202}"},
    {"fast JPEG, print order 2", "bJpegPrint=3 bPrintOrderOpt=2", "8175={8196};8039={8203}"},
};

std::string Changed(std::string sketch, const char* changes)
{
    std::istringstream words(changes);
    for (std::string change; std::getline(words, change, ';');) {
        const bool dropped = change.starts_with('-');
        const std::string label = "{" + change.substr(dropped, 4) + "}\t";
        const size_t at = sketch.find(label);
        if (at == sketch.npos) {
            ADD_FAILURE() << label << " is not in the text";
            continue;
        }
        const size_t value = at + label.size(), end = sketch.find_first_of("\n~^", value);
        if (dropped)
            sketch.erase(at - 1, end - at + 1); // with the break before it
        else
            sketch.replace(value, end - value, change.substr(std::strlen("8129=")));
    }
    return sketch;
}

class SummaryTest : public testing::TestWithParam<const char*>
{
protected:
    World world_{GetParam()};
    Model model_{kFullModel};
    std::unique_ptr<PrinterUiContext> context_ = std::make_unique<PrinterUiContext>();

    bool Japanese() const { return std::string_view(GetParam()) == "jpn"; }

    void SetUp() override
    {
        SetCountry(u"49");
        PathText file;
        ASSERT_TRUE(WatermarkWorkingFilePath(file));
        WritePrivateProfileStringW(TEXT(":vmwatermark:"), TEXT("0"), TEXT("DRAFT & 100%"), file);
    }

    std::u16string Build(const FieldValues& fields)
    {
        BuildDefaultDevMode(&context_->dmWork, TEXT("P1"), model_, true);
        SetAll(context_->dmWork, kBaseFields);
        SetAll(context_->dmWork, fields);
        std::vector<WCHAR> text(kSummaryUnits);
        TextCursor cursor = {text.data(), kSummaryUnits};
        BuildSettingsSummary(context_.get(), cursor);
        EXPECT_EQ(cursor.at - text.data() + cursor.left, kSummaryUnits);
        return std::u16string(text.data(), cursor.at);
    }

    std::u16string Expected(const char* changes)
    {
        const char* const favourite = Japanese() ? "---{8199}------------------------------\n{8288}\n" : "";
        return Expand(Changed(kBase, changes) + favourite);
    }
};

TEST_P(SummaryTest, ShowsEveryRecordLineByLine)
{
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Build(c.fields), Expected(c.changes));
    }
}

TEST_P(SummaryTest, NamesPapersByTheUsersCountry)
{
    const FieldValues indexCard = "wDocumentPaper=266"; // in inches or in centimetres
    EXPECT_EQ(Build(indexCard), Expected("8131={9030}"));
    SetCountry(u"1");
    EXPECT_EQ(Build(indexCard), Expected("8131={9009}"));
    EXPECT_NE(LanguageText(9009), LanguageText(9030));
}

TEST_P(SummaryTest, EndsWithTheFavouriteInJapaneseOnly)
{
    const std::u16string preset = LanguageText(8289 + 11) + u"\r\n";
    const std::u16string text = Build({{"dwFavouriteIndex", 12}});
    EXPECT_EQ(text.ends_with(preset), Japanese());
    EXPECT_FALSE(Build({{"dwFavouriteIndex", 13}}).ends_with(preset));
}

TEST_P(SummaryTest, StaysWithinItsBufferForAnyRecord)
{
    std::mt19937_64 random(20260102);
    for (int round = 0; round < 300; ++round) {
        Build({});
        auto* bytes = reinterpret_cast<BYTE*>(&context_->dmWork);
        for (size_t i = 0; i < sizeof(context_->dmWork); ++i)
            bytes[i] = static_cast<BYTE>(random());
        constexpr size_t kGuard = 4;
        const int size = round % 2 ? kSummaryUnits : static_cast<int>(random() % 900);
        std::vector<WCHAR> text(size + kGuard, u'#');
        TextCursor cursor = {text.data(), size};
        BuildSettingsSummary(context_.get(), cursor);
        EXPECT_EQ(std::u16string(text.end() - kGuard, text.end()), u"####");
        ASSERT_TRUE(size == 0 || std::find(text.begin(), text.end() - kGuard, u'\0') != text.end() - kGuard);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, SummaryTest, testing::Values("eng", "jpn"),
                         [](const auto& language) { return std::string(language.param); });

TEST(SummaryWithoutStrings, KeepsItsLayout)
{
    const World world("");
    auto context = std::make_unique<PrinterUiContext>();
    std::vector<WCHAR> text(kSummaryUnits);
    TextCursor cursor = {text.data(), kSummaryUnits};
    BuildSettingsSummary(context.get(), cursor);
    const std::u16string lines(text.data());
    EXPECT_TRUE(lines.starts_with(u"---------------------------------\r\n\t\r\n\t\r\n"))
        << testing::PrintToString(lines);
}

} // namespace
