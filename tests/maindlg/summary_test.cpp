#include "psui/maindlg/settings_summary.h"

#include <charconv>
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include "psui/dialogs/watermark_store.h"
#include "tests/maindlg/dialog_context.h"

namespace {

using test::FieldValue;
using test::LanguageText;
using test::SetAll;
using test::World;

/// UTF-8, so that a difference can be read.
std::string Readable(const std::u16string& text)
{
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                     static_cast<int>(bytes.size()), nullptr, nullptr));
    return bytes;
}

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

const std::vector<FieldValue> kBaseFields = {
    {"dmMediaType", 1},     {"bQualityLevel", 2},   {"dmPaperSize", 9}, {"wDocumentPaper", 9},
    {"dmColor", 2},         {"dwTrayChoice", 1},    {"dmFields", 0},    {"bDocType", 2},
    {"dmDefaultSource", 7}, {"bColorHalftone", 2},  {"bBorderless", 0}, {"wModelType", 256},
    {"wThickness", 0},      {"dwPagesPerSheet", 1},
};

/// A part of the base text and what stands in its place.
struct Change
{
    const char* from;
    const char* to;
};

struct Case
{
    const char* name;
    std::vector<FieldValue> fields;
    std::vector<Change> changes;
};

/// Plain paper's texts that other media lack, and the lines that a two-sided printer lacks and has.
constexpr Change kNoSlowDrying = {"{8178}\t{8155}\n", ""};
constexpr Change kNoBorderlessLine = {"{8141}\t{8155}\n", ""};
constexpr Change kNoBidi = {"{8179}\t{8156}~", ""};
constexpr Change kBidiOff = {"{8179}\t{8156}", "{8179}\t{8155}"};
constexpr Change kNoLayout = {"{8132}\t{8093}\n", ""};
constexpr Change kNoPrintOrder = {"{6031}\t{8156}~{8039}\t{8201}\n", "{6031}\t{8156}\n"};
constexpr Change kNoMirror = {"{8152}\t{8155}\n{8153}\t{8155}\n", ""};
constexpr Change kNoDate = {"{8172}\t{8155}~", ""};
const FieldValue kDuplexPrinter = {"dmFields", DM_DUPLEX};

const Case kCases[] = {
    {"base", {}, {}},
    {"slow drying", {{"dwSdPaper", 1}}, {{"{8178}\t{8155}", "{8178}\t{8156}"}}},
    {"inkjet paper", {{"dmMediaType", 261}}, {kNoSlowDrying, {"{1240}", "{1241}"}, kBidiOff}},
    {"glossy paper", {{"dmMediaType", 262}}, {kNoSlowDrying, {"{1240}", "{1242}"}, kBidiOff}},
    {"photo, bi-directional",
     {{"dmMediaType", 263}, {"dwDirChoiceOther", 1}},
     {kNoSlowDrying, {"{1240}", "{1247}"}}},
    {"transparency",
     {{"dmMediaType", 264}},
     {kNoSlowDrying, kNoBorderlessLine, {"{1240}", "{1244}"}, kBidiOff, kNoMirror}},
    {"mirrored transparency",
     {{"dmMediaType", 265}},
     {kNoSlowDrying, kNoBorderlessLine, {"{1240}", "{1245}"}, kBidiOff, kNoMirror}},
    {"inkjet postcard", {{"dmMediaType", 268}}, {kNoSlowDrying, {"{1240}", "{1246}"}}},
    {"coated photo paper", {{"dmMediaType", 269}}, {kNoSlowDrying, {"{1240}", "{1248}"}, kBidiOff}},
    {"glossy R", {{"dmMediaType", 270}}, {kNoSlowDrying, {"{1240}", "{1249}"}, kBidiOff}},
    {"glossy RB", {{"dmMediaType", 271}}, {kNoSlowDrying, {"{1240}", "{1250}"}, kBidiOff}},
    {"postcard, address side", {{"dmMediaType", 272}}, {{"{1240}", "{1251}"}}},
    {"postcard, picture side", {{"dmMediaType", 273}}, {kNoSlowDrying, {"{1240}", "{1252}"}, kBidiOff}},
    {"unknown media", {{"dmMediaType", 266}}, {kNoSlowDrying, kBidiOff}},
    {"draft", {{"bQualityLevel", 0}}, {{"{8085}", "{8083}"}, kNoBorderlessLine}},
    {"photo quality", {{"bQualityLevel", 4}}, {{"{8085}", "{8087}"}, kNoBidi}},
    {"best quality", {{"bQualityLevel", 5}}, {{"{8085}", "{8088}"}, kNoBidi}},
    {"best quality with borders",
     {{"bQualityLevel", 5}, {"wModelType", 0x110}},
     {{"{8085}", "{8088}"}, kNoBorderlessLine, kNoBidi}},
    {"unknown quality", {{"bQualityLevel", 6}}, {{"{8085}", "{8083}"}}},
    {"borderless A4",
     {{"dmPaperSize", 274}, {"wDocumentPaper", 274}, {"bBorderless", 1}},
     {{"{8141}\t{8155}", "{8141}\t{8156}"}, kNoLayout, kNoDate}},
    {"borderless, wrongly, on A5",
     {{"dmPaperSize", 11}, {"wDocumentPaper", 11}, {"bBorderless", 1}},
     {kNoBorderlessLine, {"{9022}", "{9027}"}}},
    {"postcard size", {{"dmPaperSize", 43}, {"wDocumentPaper", 43}}, {{"{9022}", "{9033}"}, kNoBidi}},
    {"user-defined size",
     {{"dmPaperSize", 256}, {"wDocumentPaper", 256}},
     {{"{9022}", "{1215}"}, kNoBorderlessLine}},
    {"thick user-defined size",
     {{"dmPaperSize", 256}, {"wDocumentPaper", 256}, {"wThickness", 4}},
     {{"{9022}", "{1215}"}, kNoBorderlessLine, kNoBidi}},
    {"unknown paper",
     {{"dmPaperSize", 30}, {"wDocumentPaper", 30}},
     {{"{9022}", ""}, kNoBorderlessLine, kNoBidi}},
    {"vivid", {{"bDocType", 1}}, {{"{8148}", "{8149}"}}},
    {"another colour mode", {{"bDocType", 3}}, {{"{8148}", ""}}},
    {"no monitor matching",
     {{"dwColorModeOn", 0}},
     {{"{8146}\t{8148}\n", ""}, {"{6031}\t{8156}", "{6031}\t{8155}"}}},
    {"monochrome",
     {{"dmColor", 1}},
     {{"{8146}\t{8148}\n", ""}, {"{8144}", "{8145}"}, {"{8197}^{6031}\t{8156}", "{8197}"}}},
    {"landscape", {{"dmOrientation", 2}}, {{"{8137}", "{8138}"}}},
    {"collated copies",
     {{"dmCopies", 3}, {"dwCollate", 1}, {"dwReverseOrder", 1}},
     {{"{8140:1}\n{8182}\t{8155}", "{8140:3}\n{8181}\t{8156}\n{8182}\t{8156}"}}},
    {"two pages", {{"dwPagesPerSheet", 2}}, {{"{8093}", "{8094}~{8167}\t{8100}~{8168}\t{8007}"}}},
    {"two pages, backwards",
     {{"dwPagesPerSheet", 2}, {"bPageOrder", 2}, {"bBorderLine", 1}},
     {{"{8093}", "{8094}~{8167}\t{8101}~{8168}\t{8008}"}}},
    {"two pages on landscape",
     {{"dwPagesPerSheet", 2}, {"bPageOrder", 2}, {"dmOrientation", 2}},
     {{"{8137}", "{8138}"}, {"{8093}", "{8094}~{8167}\t{8102}~{8168}\t{8007}"}}},
    {"four pages",
     {{"dwPagesPerSheet", 4}, {"bPageOrder", 1}, {"bBorderLine", 2}},
     {{"{8093}", "{8095}~{8167}\t{8104}~{8168}\t{8009}"}}},
    {"nine pages",
     {{"dwPagesPerSheet", 9}, {"bPageOrder", 2}},
     {{"{8093}", "{8098}~{8167}\t{8107}~{8168}\t{8007}"}}},
    {"sixteen pages",
     {{"dwPagesPerSheet", 16}, {"bPageOrder", 3}},
     {{"{8093}", "{8099}~{8167}\t{8106}~{8168}\t{8007}"}}},
    {"values without names",
     {{"dwPagesPerSheet", 16},
      {"bPageOrder", 200},
      {"bBorderLine", 3},
      {"bJpegPrint", 1},
      {"bColorHalftone", 9},
      {"bPrintOrderOpt", 3}},
     {{"{8093}", "{8099}~{8167}\t~{8168}\t"}, {"{8194}", ""}, {"{8197}", ""}, {"{8201}", ""}}},
    {"poster of four", {{"dwPagesPerSheet", -4}}, {{"{8093}", "{8096}"}}},
    {"poster of nine", {{"dwPagesPerSheet", -9}}, {{"{8093}", "{8097}"}}},
    {"fit to paper",
     {{"dwPagesPerSheet", 4}, {"bFitToPaper", 1}, {"wOutputPaper", 13}},
     {{"{8133}\t{8155}\n", "{8133}\t{8156}~{8135}\t{9026}\n"}}},
    {"fit to an envelope",
     {{"bFitToPaper", 1}, {"wOutputPaper", 20}},
     {{"{8133}\t{8155}\n", "{8133}\t{8156}~{8135}\t{9036}\n"}, kNoBidi}},
    {"free scaling",
     {{"bFitToPaper", 2}, {"dmScale", 75}, {"wOutputPaper", 20}},
     {{"{8133}\t{8155}\n", "{8133}\t{8156}~{8170}\t{8134:75}\n"}}},
    {"one-sided on a duplex printer",
     {kDuplexPrinter},
     {{"{8142}\t", "{8169}\t{8155}\n{8142}\t"}, kNoPrintOrder}},
    {"duplex",
     {kDuplexPrinter, {"wDuplexFlags", 0x103}},
     {{"{8142}\t", "{8169}\t{8156}~<{8184}>~{8185}\t{8155}~{8186}\t{8190}~{8193}\t{8155}\n{8142}\t"},
      kNoPrintOrder}},
    {"duplex with an offset",
     {kDuplexPrinter, {"wDuplexFlags", 0x100}, {"bBindingFlags", 2}, {"wBindingOffset", 25}},
     {{"{8142}\t", "{8169}\t{8156}~<{8184}>~{8185}\t{8155}~{8186}\t{8187}~{8193}\t2.5 {9085}\n{8142}\t"},
      kNoPrintOrder}},
    {"booklet with an offset in inches",
     {kDuplexPrinter,
      {"wDuplexFlags", 0x105},
      {"bBookletFlags", 1},
      {"bBindingFlags", 3},
      {"wBindingOffset", 25}},
     {kNoBorderlessLine,
      {"{8132}\t{8093}\n{8142}\t",
       "{8169}\t{8156}~<{8184}>~{8185}\t{8156}~{8186}\t{8192}~{8193}\t0.1 {9086}\n{8142}\t"},
      kNoPrintOrder}},
    {"negative offset in inches, scaled",
     {kDuplexPrinter,
      {"wDuplexFlags", 0x1FF},
      {"bFitToPaper", 2},
      {"bBindingFlags", 3},
      {"wBindingOffset", -38}},
     {{"{8142}\t", "{8169}\t{8156}~<{8184}>~{8186}\t~{8193}\t-0.15 {9086}\n{8142}\t"},
      {"{8133}\t{8155}\n", "{8133}\t{8156}~{8170}\t{8134:100}\n"},
      kNoPrintOrder}},
    {"negative offset",
     {kDuplexPrinter, {"wDuplexFlags", 0x104}, {"bBindingFlags", 2}, {"wBindingOffset", -5}},
     {{"{8142}\t", "{8169}\t{8156}~<{8184}>~{8185}\t{8155}~{8186}\t{8191}~{8193}\t-0.5 {9085}\n{8142}\t"},
      kNoPrintOrder}},
    {"duplex printer, large paper",
     {kDuplexPrinter, {"wDuplexFlags", 0x100}, {"dmPaperSize", 8}, {"wDocumentPaper", 8}},
     {{"{9022}", "{9040}"}, kNoPrintOrder}},
    {"duplex printer in monochrome",
     {kDuplexPrinter, {"dmColor", 1}},
     {{"{8146}\t{8148}\n", ""},
      {"{8144}", "{8145}"},
      {"{8142}\t", "{8169}\t{8155}\n{8142}\t"},
      {"{8197}^{6031}\t{8156}~{8039}\t{8201}\n", "{8197}\n"}}},
    {"first tray", {{"dmDefaultSource", 1}}, {{"{1271}", "{1272}"}}},
    {"second tray", {{"dmDefaultSource", 2}}, {{"{1271}", "{1273}"}}},
    {"one tray", {{"dwTrayChoice", 0}}, {{"{8142}\t{1271}\n", ""}}},
    {"adjusted colours",
     {{"dwColorAdjust", 1},
      {"ashColorAdjust0", 1},
      {"ashColorAdjust1", -2},
      {"ashColorAdjust2", 3},
      {"ashColorAdjust3", 4},
      {"ashColorAdjust4", 5},
      {"ashColorAdjust5", 6},
      {"ashColorAdjust6", -7}},
     {{"{8151}\t{8155}~",
       "{8151}\t{8156}^{8159}\t{8166:1}^{8160}\t{8166:-2}^{8161}\t{8166:3}^{8162}\t{8166:4}^"
       "{8163}\t{8166:5}^{8164}\t{8166:6}^{8165}\t{8166:-7}~"}}},
    {"adjusted greys",
     {{"dwColorAdjust", 1}, {"ashColorAdjust2", 3}, {"ashColorAdjust3", 4}, {"dmColor", 1}},
     {{"{8146}\t{8148}\n", ""},
      {"{8144}", "{8145}"},
      {"{8151}\t{8155}~", "{8151}\t{8156}^{8161}\t{8166:3}^{8162}\t{8166:4}~"},
      {"{8197}^{6031}\t{8156}", "{8197}"}}},
    {"one direction", {{"dwDirChoicePlain", 0}}, {kBidiOff}},
    {"improved pattern", {{"wTonerSave", 1}}, {{"{8180}\t{8155}", "{8180}\t{8156}"}}},
    {"mirrored", {{"dwDeviceOptions", 1}}, {{"{8152}\t{8155}", "{8152}\t{8156}"}}},
    {"reversed", {{"dwDeviceOptions", 2}}, {{"{8153}\t{8155}", "{8153}\t{8156}"}}},
    {"watermark", {{"dwWatermarkFlags", 129}}, {{"{8177}\t{8155}", "{8177}\tDRAFT & 100%"}}},
    {"date, monitor, no notice",
     {{"dwDatePrint", 0x86}, {"bStatusMonitor", 1}, {"dwPhotoNotice", 0}},
     {{"{8172}\t{8155}~{8154}\t{8155}~{8174}\t{8156}", "{8172}\t{8156}~{8154}\t{8156}~{8174}\t{8155}"}}},
    {"model without the notice", {{"wModelType", 0x200}}, {{"{8174}\t{8156}~", ""}}},
    {"other device options",
     {{"bJpegPrint", 0}, {"bColorHalftone", 1}, {"bPrintOrderOpt", 1}},
     {{"{8194}", "{8195}"}, {"{8197}", "{8198}"}, {"{8201}", "{8202}"}}},
    {"fast JPEG, print order 2",
     {{"bJpegPrint", 3}, {"bPrintOrderOpt", 2}},
     {{"{8194}", "{8196}"}, {"{8201}", "{8203}"}}},
};

class SummaryTest : public testing::TestWithParam<const char*>
{
protected:
    World world_{GetParam()};
    test::Model model_{test::kFullModel};
    std::unique_ptr<psui::PrinterUiContext> context_ = std::make_unique<psui::PrinterUiContext>();

    bool Japanese() const { return std::string_view(GetParam()) == "jpn"; }

    void SetUp() override
    {
        test::SetCountry(u"49");
        psui::PathText file;
        ASSERT_TRUE(psui::WatermarkWorkingFilePath(file));
        WritePrivateProfileStringW(TEXT(":vmwatermark:"), TEXT("0"), TEXT("DRAFT & 100%"), file);
    }

    std::u16string Build(const std::vector<FieldValue>& fields)
    {
        psui::BuildDefaultDevMode(&context_->dmWork, TEXT("P1"), model_, true);
        SetAll(context_->dmWork, kBaseFields);
        SetAll(context_->dmWork, fields);
        std::vector<WCHAR> text(psui::kSummaryUnits);
        psui::TextCursor cursor = {text.data(), psui::kSummaryUnits};
        psui::BuildSettingsSummary(context_.get(), cursor);
        EXPECT_EQ(cursor.at - text.data() + cursor.left, psui::kSummaryUnits);
        return std::u16string(text.data(), cursor.at);
    }

    std::u16string Expected(const std::vector<Change>& changes)
    {
        std::string sketch = kBase;
        for (const Change& change : changes) {
            const size_t at = sketch.find(change.from);
            EXPECT_NE(at, sketch.npos) << change.from;
            if (at != sketch.npos)
                sketch.replace(at, std::strlen(change.from), change.to);
        }
        if (Japanese())
            sketch += "---{8199}------------------------------\n{8288}\n";
        return Expand(sketch);
    }
};

TEST_P(SummaryTest, ShowsEveryRecordLineByLine)
{
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(Readable(Build(c.fields)), Readable(Expected(c.changes)));
    }
}

TEST_P(SummaryTest, NamesPapersByTheUsersCountry)
{
    test::SetCountry(u"1");
    const struct
    {
        int paper, text;
    } cases[] = {{9, 9001},   {1, 9002},   {275, 9002}, {91, 9018},
                 {256, 1215}, {290, 9019}, {12, 9020},  {292, 9021}};
    for (const auto& c : cases) {
        const std::u16string line = LanguageText(8131) + u"\t" + LanguageText(c.text) + u"\r\n";
        EXPECT_NE(Build({{"wDocumentPaper", c.paper}}).find(line), std::u16string::npos) << c.paper;
    }
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
        const int size = round % 2 ? psui::kSummaryUnits : static_cast<int>(random() % 900);
        std::vector<WCHAR> text(size + kGuard, u'#');
        psui::TextCursor cursor = {text.data(), size};
        psui::BuildSettingsSummary(context_.get(), cursor);
        EXPECT_EQ(std::u16string(text.end() - kGuard, text.end()), u"####");
        ASSERT_TRUE(size == 0 || std::find(text.begin(), text.end() - kGuard, u'\0') != text.end() - kGuard);
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, SummaryTest, testing::Values("eng", "jpn"),
                         [](const auto& language) { return std::string(language.param); });

TEST(SummaryWithoutStrings, KeepsItsLayout)
{
    const World world("");
    auto context = std::make_unique<psui::PrinterUiContext>();
    std::vector<WCHAR> text(psui::kSummaryUnits);
    psui::TextCursor cursor = {text.data(), psui::kSummaryUnits};
    psui::BuildSettingsSummary(context.get(), cursor);
    const std::u16string lines(text.data());
    EXPECT_TRUE(lines.starts_with(u"---------------------------------\r\n\t\r\n\t\r\n"))
        << testing::PrintToString(lines);
}

} // namespace
