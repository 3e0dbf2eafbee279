#include "psui/maindlg/rules.h"

#include <functional>
#include <set>
#include <tuple>

#include <gtest/gtest.h>

#include "psui/maindlg/apply_state.h"
#include "psui/maindlg/qualities.h"
#include "tests/maindlg/dialog_context.h"

namespace {

using namespace psui;
using namespace test;

std::set<int> PapersThat(const std::function<bool(int)>& holds)
{
    std::set<int> papers;
    for (int paper = -2; paper < 400; ++paper)
        if (holds(paper))
            papers.insert(paper);
    return papers;
}

TEST(Papers, FallIntoTheirGroups)
{
    const std::set<int> borderless = {274, 275, 276, 277, 278, 279, 280, 281, 283, 284, 285, 290, 291, 292};
    std::set<int> allowing = {9, 1, 265, 266, 70, 43, 272, 273, 8, 12, 3, 287, 288, 289};
    allowing.insert(borderless.begin(), borderless.end());
    EXPECT_EQ(PapersThat(IsBorderlessSize), borderless);
    EXPECT_EQ(PapersThat(AllowsBorderless), allowing);
    EXPECT_EQ(PapersThat(ExcludesDuplex),
              (std::set<int>{256, 3, 8, 12, 283, 284, 285, 287, 288, 289, 290, 291, 292}));
}

TEST(Papers, HaveTwinsWithAndWithoutBorders)
{
    const std::pair<short, short> pairs[] = {{1, 275},   {3, 285},   {8, 283},   {12, 284},  {43, 277},
                                             {70, 276},  {265, 280}, {266, 281}, {272, 278}, {273, 279},
                                             {287, 290}, {288, 291}, {289, 292}, {9, 274}};
    for (const auto& [bordered, borderless] : pairs) {
        EXPECT_EQ(BorderlessForm(bordered), borderless);
        EXPECT_EQ(BorderedForm(borderless), bordered);
    }
    for (const int paper : {11, 256, 282, 293, -1})
        EXPECT_EQ(BorderlessForm(static_cast<short>(paper)), 274) << paper;
    for (const int paper : {11, 256, 282, 293, -1, 286, 294})
        EXPECT_EQ(BorderedForm(static_cast<short>(paper)), 9) << paper;
}

using Changes = std::vector<const char*>;

/// The rule holds for an empty record with the fields of `base` and each of the changes of `holds`, and for
/// none of `fails`.
void CheckRule(bool (*rule)(const DriverDevMode&), const char* base, const Changes& holds,
               const Changes& fails)
{
    const auto answer = [&](const char* changes) {
        DriverDevMode record = {};
        SetAll(record, base);
        SetAll(record, changes);
        return rule(record);
    };
    for (const char* changes : holds)
        EXPECT_TRUE(answer(changes)) << changes;
    for (const char* changes : fails)
        EXPECT_FALSE(answer(changes)) << changes;
}

TEST(SecondTray, TakesPlainMediaInCommonSizes)
{
    for (const int media : {0, 1, 261, 262, 264, 266, 268, 272, 273})
        for (const bool fits : {false, true}) {
            const bool plain = media == 1 || media == 268 || media == 272;
            DriverDevMode record = {};
            SetAll(record, {{"dmMediaType", media}, {"bFitToPaper", fits}, {"dmPaperSize", 11}});
            const auto takes = PapersThat([&](int paper) {
                Set(record, fits ? "wOutputPaper" : "dmPaperSize", paper);
                return !FailsTray2(record);
            });
            EXPECT_EQ(takes,
                      plain ? (std::set<int>{1, 3, 5, 7, 8, 9, 12, 13, 287, 288, 289}) : std::set<int>{})
                << media;
        }
}

TEST(PrintOrder, NeedsOnePlainPageAtNormalQuality)
{
    CheckRule(
        FailsPrintOrderCombination,
        "dmPaperSize=9 dmMediaType=1 bQualityLevel=2 dwPagesPerSheet=1 dwTrayChoice=1 dmDefaultSource=7",
        {"dmPaperSize=11", "bBorderless=1", "dmMediaType=268", "bQualityLevel=3", "dwPagesPerSheet=2",
         "dwPagesPerSheet=-4", "bFitToPaper=2", "dmDefaultSource=2"},
        {"", "dmPaperSize=1", "dmMediaType=272", "dmDefaultSource=1", "dmDefaultSource=2 dwTrayChoice=0"});
}

TEST(Notice, DependsOnModelAndLanguage)
{
    for (const std::string language : {"eng", "jpn", ""}) {
        const World world(language);
        const Changes inJapan = {"wModelType=0x300"}, never = {"wModelType=0x200"};
        CheckRule(NoticeEnabled, "wModelType=0x100", {""}, never);
        CheckRule(NoticeEnabled, "", language == "jpn" ? inJapan : Changes(),
                  language == "jpn" ? never : inJapan);
    }
}

TEST(Thickness, FollowsThePaperInForce)
{
    for (const bool fits : {false, true}) {
        DriverDevMode record = {};
        SetAll(record,
               {{"bFitToPaper", fits}, {"wCustomThickness", 3}, {"dmPaperSize", 9}, {"wOutputPaper", 9}});
        std::set<int> thick;
        for (int paper = 0; paper < 400; ++paper) {
            Set(record, fits ? "wOutputPaper" : "dmPaperSize", paper);
            if (ThicknessOf(record) == 2)
                thick.insert(paper);
            else
                EXPECT_EQ(ThicknessOf(record), paper == 256 ? 3 : 0) << paper;
        }
        EXPECT_EQ(thick, (std::set<int>{20, 27, 28, 34, 37, 73, 91}));
    }
}

TEST(BiDirectionalMode, FollowsTheChoiceForTheClassOfMedia)
{
    constexpr int kKept = 77;
    const std::tuple<const char*, int, int> cases[] = {
        {"dmMediaType=1", 1, kKept},
        {"dmMediaType=268", 1, kKept},
        {"dmMediaType=272", 1, kKept},
        {"dmMediaType=263", kKept, 1},
        {"dmMediaType=1 dmPaperSize=20", 0, kKept},
        {"dmMediaType=272 dmPaperSize=43", 0, kKept},
        {"dmMediaType=273 dmPaperSize=277", kKept, 0},
        {"dmMediaType=1 bFitToPaper=1 wOutputPaper=91", 0, kKept},
        {"dmMediaType=1 bFitToPaper=1 dmPaperSize=20 wOutputPaper=9", 1, kKept},
        {"dmMediaType=1 dmPaperSize=256 wThickness=1", 1, kKept},
        {"dmMediaType=1 dmPaperSize=256 wThickness=2", 0, kKept},
        {"dmMediaType=1 dmPaperSize=256 wThickness=4", 0, kKept},
        {"dmMediaType=1 wThickness=4", 1, kKept},
    };
    for (const auto& [fields, plain, other] : cases) {
        SCOPED_TRACE(fields);
        DriverDevMode record = {};
        SetAll(record, {{"dmPaperSize", 9},
                        {"dwDirChoicePlain", 1},
                        {"dwDirChoiceOther", 2},
                        {"dwDirModePlain", kKept},
                        {"dwDirModeOther", kKept}});
        SetAll(record, fields);
        UpdateBidiMode(record);
        ExpectFields(record, {{"dwDirModePlain", plain}, {"dwDirModeOther", other}});
    }
}

TEST(BiDirectionalPrinting, IsOfferedExceptOnThickPaperAndInPhotoQuality)
{
    DriverDevMode record = {};
    const auto refused = PapersThat([&](int paper) {
        Set(record, "dmPaperSize", paper);
        return !BidiApplicable(record);
    });
    EXPECT_EQ(refused, (std::set<int>{20, 27, 28, 30, 34, 37, 43, 73, 82, 91, 277}));
    CheckRule(BidiApplicable, "dmPaperSize=9", {"bQualityLevel=3", "dmPaperSize=256 wThickness=1"},
              {"bQualityLevel=4", "bQualityLevel=5", "bFitToPaper=1 wOutputPaper=20",
               "dmPaperSize=256 wThickness=2"});
}

/// Level and code of each entry of the quality list, in its order.
std::string QualityList(const DriverDevMode& record)
{
    std::string list;
    for (int position = 0; const QualityRow* row = QualityAtPosition(record, position); ++position) {
        EXPECT_EQ(row->text, 8083 + row->level);
        list += std::to_string(row->level) + ":" + std::to_string(row->code) + " ";
    }
    return list;
}

TEST(Quality, DependsOnTheMedia)
{
    const std::string plain = "3:-4 2:-3 1:-2 0:-1 ", glossy = "5:-4 4:-3 3:-2 ";
    const std::tuple<DWORD, std::string, int> cases[] = {
        {1, plain, 2},    {268, plain, 2},  {272, plain, 3},        {261, "4:-4 3:-3 ", 4}, {262, glossy, 4},
        {263, glossy, 4}, {273, glossy, 4}, {269, glossy, 4},       {270, glossy, 4},       {271, glossy, 4},
        {265, "", -1},    {0, "", -1},      {264, "3:-4 2:-3 ", 2},
    };
    for (const auto& [media, list, level] : cases)
        for (const int color : {0, 1, 2}) {
            SCOPED_TRACE(testing::Message() << "media " << media << " colour " << color);
            DriverDevMode record = {};
            SetAll(record, {{"dmMediaType", media}, {"dmColor", color}, {"bQualityLevel", 77}});
            EXPECT_EQ(QualityList(record), color ? list : "");
            EXPECT_FALSE(TakeQualityCode(record));
            EXPECT_EQ(record.dmPublic.dmPrintQuality, 0);
            TakeDefaultQualityLevel(record);
            const bool known = color && level >= 0;
            EXPECT_EQ(record.dmPrivate.bQualityLevel, known ? level : 77);
            EXPECT_EQ(TakeQualityCode(record), known);
            EXPECT_EQ(record.dmPublic.dmPrintQuality, record.dmPrivate.shQuality);
        }
}

TEST(Quality, IsFixedOnPlainBorderlessA3)
{
    CheckRule(HasSingleQuality, "dmMediaType=1 dmPaperSize=283", {"", "dmPaperSize=290", "dmMediaType=272"},
              {"dmMediaType=261", "dmPaperSize=284"});
    EXPECT_EQ(SingleQuality().text, 8086);
    EXPECT_EQ(SingleQuality().code, -4);
}

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
