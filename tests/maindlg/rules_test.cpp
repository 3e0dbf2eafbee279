#include "psui/maindlg/rules.h"

#include <functional>
#include <set>

#include <gtest/gtest.h>

#include "psui/maindlg/qualities.h"
#include "tests/settings/support.h"

namespace {

using psui::DriverDevMode;
using test::FieldValue;
using test::SetAll;
using test::World;

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
    EXPECT_EQ(PapersThat(psui::IsBorderlessSize), borderless);
    EXPECT_EQ(PapersThat(psui::AllowsBorderless), allowing);
    EXPECT_EQ(PapersThat(psui::ExcludesDuplex),
              (std::set<int>{256, 3, 8, 12, 283, 284, 285, 287, 288, 289, 290, 291, 292}));
}

TEST(Papers, HaveTwinsWithAndWithoutBorders)
{
    const struct
    {
        short bordered, borderless;
    } pairs[] = {{1, 275},   {3, 285},   {8, 283},   {12, 284},  {43, 277},  {70, 276},  {265, 280},
                 {266, 281}, {272, 278}, {273, 279}, {287, 290}, {288, 291}, {289, 292}, {9, 274}};
    for (const auto& pair : pairs) {
        EXPECT_EQ(psui::BorderlessForm(pair.bordered), pair.borderless);
        EXPECT_EQ(psui::BorderedForm(pair.borderless), pair.bordered);
    }
    for (const short paper : {short{11}, short{256}, short{282}, short{293}, short{-1}}) {
        EXPECT_EQ(psui::BorderlessForm(paper), 274) << paper;
        EXPECT_EQ(psui::BorderedForm(paper), 9) << paper;
    }
    for (const short paper : {short{286}, short{294}})
        EXPECT_EQ(psui::BorderedForm(paper), 9) << paper;
}

/// A record for which the rule holds, or not, and the fields that turn it round, one at a time.
struct RuleCase
{
    const char* name;
    std::vector<FieldValue> fields;
    bool holds;
};

void CheckRule(bool (*rule)(const DriverDevMode&), const std::vector<FieldValue>& base,
               const std::vector<RuleCase>& cases)
{
    for (const RuleCase& c : cases) {
        DriverDevMode record = {};
        SetAll(record, base);
        SetAll(record, c.fields);
        EXPECT_EQ(rule(record), c.holds) << c.name;
    }
}

TEST(SecondTray, TakesPlainMediaInCommonSizes)
{
    for (const int media : {0, 1, 261, 262, 264, 266, 268, 272, 273})
        for (const bool fits : {false, true}) {
            const bool plain = media == 1 || media == 268 || media == 272;
            DriverDevMode record = {};
            SetAll(record, {{"dmMediaType", media}, {"bFitToPaper", fits}, {"dmPaperSize", 11}});
            const auto takes = PapersThat([&](int paper) {
                test::Set(record, fits ? "wOutputPaper" : "dmPaperSize", paper);
                return !psui::FailsTray2(record);
            });
            EXPECT_EQ(takes,
                      plain ? (std::set<int>{1, 3, 5, 7, 8, 9, 12, 13, 287, 288, 289}) : std::set<int>{})
                << media;
        }
}

TEST(PrintOrder, NeedsOnePlainPageAtNormalQuality)
{
    CheckRule(psui::FailsPrintOrderCombination,
              {{"dmPaperSize", 9},
               {"dmMediaType", 1},
               {"bQualityLevel", 2},
               {"dwPagesPerSheet", 1},
               {"dwTrayChoice", 1},
               {"dmDefaultSource", 7}},
              {{"base", {}, false},
               {"Letter", {{"dmPaperSize", 1}}, false},
               {"other paper", {{"dmPaperSize", 11}}, true},
               {"borderless", {{"bBorderless", 1}}, true},
               {"address side", {{"dmMediaType", 272}}, false},
               {"inkjet postcard", {{"dmMediaType", 268}}, true},
               {"fine", {{"bQualityLevel", 3}}, true},
               {"two pages", {{"dwPagesPerSheet", 2}}, true},
               {"poster", {{"dwPagesPerSheet", -4}}, true},
               {"scaled", {{"bFitToPaper", 2}}, true},
               {"tray 1", {{"dmDefaultSource", 1}}, false},
               {"tray 2", {{"dmDefaultSource", 2}}, true},
               {"tray 2 without a choice", {{"dmDefaultSource", 2}, {"dwTrayChoice", 0}}, false}});
}

TEST(Notice, DependsOnModelAndLanguage)
{
    for (const std::string language : {"eng", "jpn", ""}) {
        const World world(language);
        CheckRule(psui::NoticeEnabled, {},
                  {{"none", {{"wModelType", 0x200}}, false},
                   {"everywhere", {{"wModelType", 0x100}}, true},
                   {"in Japan", {{"wModelType", 0x300}}, language == "jpn"}});
    }
}

TEST(Borderless, IsExcludedByQualityAndMedia)
{
    CheckRule(psui::MediaAndQualityAllowBorderless, {{"bQualityLevel", 2}, {"dmMediaType", 1}},
              {{"base", {}, true},
               {"draft", {{"bQualityLevel", 0}}, false},
               {"best", {{"bQualityLevel", 5}}, true},
               {"best with borders", {{"bQualityLevel", 5}, {"wModelType", 0x10}}, false},
               {"photo", {{"bQualityLevel", 4}, {"wModelType", 0x10}}, true},
               {"transparency", {{"dmMediaType", 264}}, false},
               {"mirrored", {{"dmMediaType", 265}}, false}});
}

TEST(Thickness, FollowsThePaperInForce)
{
    for (const bool fits : {false, true}) {
        DriverDevMode record = {};
        SetAll(record,
               {{"bFitToPaper", fits}, {"wCustomThickness", 3}, {"dmPaperSize", 9}, {"wOutputPaper", 9}});
        std::set<int> thick;
        for (int paper = 0; paper < 400; ++paper) {
            test::Set(record, fits ? "wOutputPaper" : "dmPaperSize", paper);
            if (psui::ThicknessOf(record) == 2)
                thick.insert(paper);
            else
                EXPECT_EQ(psui::ThicknessOf(record), paper == 256 ? 3 : 0) << paper;
        }
        EXPECT_EQ(thick, (std::set<int>{20, 27, 28, 34, 37, 73, 91}));
    }
}

TEST(BiDirectionalMode, FollowsTheChoiceForTheClassOfMedia)
{
    const struct
    {
        const char* name;
        std::vector<FieldValue> fields;
        int plain, other;
    } cases[] = {
        {"plain", {{"dmMediaType", 1}}, 1, 77},
        {"inkjet postcard", {{"dmMediaType", 268}}, 1, 77},
        {"address side", {{"dmMediaType", 272}}, 1, 77},
        {"photo", {{"dmMediaType", 263}}, 77, 1},
        {"plain envelope", {{"dmMediaType", 1}, {"dmPaperSize", 20}}, 0, 77},
        {"postcard", {{"dmMediaType", 272}, {"dmPaperSize", 43}}, 0, 77},
        {"photo postcard", {{"dmMediaType", 273}, {"dmPaperSize", 277}}, 77, 0},
        {"fitted to an envelope", {{"dmMediaType", 1}, {"bFitToPaper", 1}, {"wOutputPaper", 91}}, 0, 77},
        {"envelope fitted to A4",
         {{"dmMediaType", 1}, {"bFitToPaper", 1}, {"dmPaperSize", 20}, {"wOutputPaper", 9}},
         1,
         77},
        {"user size", {{"dmMediaType", 1}, {"dmPaperSize", 256}, {"wThickness", 1}}, 1, 77},
        {"thick user size", {{"dmMediaType", 1}, {"dmPaperSize", 256}, {"wThickness", 2}}, 0, 77},
        {"user envelope", {{"dmMediaType", 1}, {"dmPaperSize", 256}, {"wThickness", 4}}, 0, 77},
        {"thick A4", {{"dmMediaType", 1}, {"wThickness", 4}}, 1, 77},
    };
    for (const auto& c : cases) {
        DriverDevMode record = {};
        SetAll(record, {{"dmPaperSize", 9},
                        {"dwDirChoicePlain", 1},
                        {"dwDirChoiceOther", 2},
                        {"dwDirModePlain", 77},
                        {"dwDirModeOther", 77}});
        SetAll(record, c.fields);
        psui::UpdateBidiMode(record);
        test::ExpectFields(record, {{"dwDirModePlain", c.plain}, {"dwDirModeOther", c.other}});
        if (testing::Test::HasFailure())
            FAIL() << c.name;
    }
}

TEST(BiDirectionalPrinting, IsOfferedExceptOnThickPaperAndInPhotoQuality)
{
    DriverDevMode record = {};
    const auto refused = PapersThat([&](int paper) {
        test::Set(record, "dmPaperSize", paper);
        return !psui::BidiApplicable(record);
    });
    EXPECT_EQ(refused, (std::set<int>{20, 27, 28, 30, 34, 37, 43, 73, 82, 91, 277}));
    CheckRule(psui::BidiApplicable, {{"dmPaperSize", 9}},
              {{"photo", {{"bQualityLevel", 4}}, false},
               {"best", {{"bQualityLevel", 5}}, false},
               {"fine", {{"bQualityLevel", 3}}, true},
               {"fitted to an envelope", {{"bFitToPaper", 1}, {"wOutputPaper", 20}}, false},
               {"thick user size", {{"dmPaperSize", 256}, {"wThickness", 2}}, false},
               {"thin user size", {{"dmPaperSize", 256}, {"wThickness", 1}}, true}});
}

/// Level and code of each entry of the quality list, in its order.
std::string QualityList(const DriverDevMode& record)
{
    std::string list;
    for (int position = 0; const psui::QualityRow* row = psui::QualityAtPosition(record, position);
         ++position) {
        EXPECT_EQ(row->text, 8083 + row->level);
        list += std::to_string(row->level) + ":" + std::to_string(row->code) + " ";
    }
    return list;
}

TEST(Quality, DependsOnTheMedia)
{
    const std::string plain = "3:-4 2:-3 1:-2 0:-1 ", glossy = "5:-4 4:-3 3:-2 ";
    const struct
    {
        DWORD media;
        std::string list;
        int level; ///< that the media starts with, -1 for none
    } cases[] = {
        {1, plain, 2},    {268, plain, 2},  {272, plain, 3},        {261, "4:-4 3:-3 ", 4}, {262, glossy, 4},
        {263, glossy, 4}, {273, glossy, 4}, {269, glossy, 4},       {270, glossy, 4},       {271, glossy, 4},
        {265, "", -1},    {0, "", -1},      {264, "3:-4 2:-3 ", 2},
    };
    for (const auto& c : cases)
        for (const int color : {0, 1, 2}) {
            SCOPED_TRACE(testing::Message() << "media " << c.media << " colour " << color);
            DriverDevMode record = {};
            SetAll(record, {{"dmMediaType", c.media}, {"dmColor", color}, {"bQualityLevel", 77}});
            EXPECT_EQ(QualityList(record), color ? c.list : "");
            EXPECT_FALSE(psui::TakeQualityCode(record));
            EXPECT_EQ(record.dmPublic.dmPrintQuality, 0);
            psui::TakeDefaultQualityLevel(record);
            const bool known = color && c.level >= 0;
            EXPECT_EQ(record.dmPrivate.bQualityLevel, known ? c.level : 77);
            EXPECT_EQ(psui::TakeQualityCode(record), known);
            EXPECT_EQ(record.dmPublic.dmPrintQuality, record.dmPrivate.shQuality);
        }
}

TEST(Quality, IsFixedOnPlainBorderlessA3)
{
    CheckRule(psui::HasSingleQuality, {{"dmMediaType", 1}, {"dmPaperSize", 283}},
              {{"A3", {}, true},
               {"short grain", {{"dmPaperSize", 290}}, true},
               {"address side", {{"dmMediaType", 272}}, true},
               {"inkjet", {{"dmMediaType", 261}}, false},
               {"B4", {{"dmPaperSize", 284}}, false}});
    EXPECT_EQ(psui::SingleQuality().text, 8086);
    EXPECT_EQ(psui::SingleQuality().code, -4);
}

} // namespace
