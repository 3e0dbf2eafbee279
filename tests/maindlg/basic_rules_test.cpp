// The rules of the Basic tab, as functions of the record.
#include <tuple>

#include <gtest/gtest.h>

#include "psui/maindlg/basic_rules.h"
#include "psui/maindlg/placement.h"
#include "psui/maindlg/preview_clicks.h"
#include "psui/settings/merge.h"
#include "psui/settings/record_values.h"
#include "tests/maindlg/dialog_context.h"

namespace psui {
namespace {

/// Plain A4 in colour and normal quality, from tray 1, but for the changes.
DriverDevMode PlainA4(const test::FieldValues& changes = {})
{
    DriverDevMode record = {};
    test::SetAll(record, "dmPaperSize=9 dmMediaType=1 dmOrientation=1 dmColor=2 dmCopies=1 dmDefaultSource=1 "
                         "bQualityLevel=2 dwPagesPerSheet=1 dwSavedNup=1 wPoster=1 dwTrayChoice=1");
    test::SetAll(record, changes);
    return record;
}

/// What a choice of the user makes of a record.
struct Choice
{
    const char* before; ///< changes to plain A4
    void (*choose)(DriverDevMode& record);
    const char* after;
};

void CheckChoices(std::initializer_list<Choice> choices)
{
    for (const Choice& each : choices) {
        SCOPED_TRACE(testing::Message() << each.before << " -> " << each.after);
        DriverDevMode record = PlainA4(each.before);
        each.choose(record);
        test::ExpectFields(record, each.after);
    }
}

TEST(BasicMedia, IsRefusedWhereItExcludesWhatIsSet)
{
    const std::tuple<const char*, DWORD, BasicMessage> cases[] = {
        {"", kMediaTransparency, BasicMessage::None},
        {"dmPaperSize=274", kMediaTransparency, BasicMessage::BorderlessExcluded},
        {"dmPaperSize=274", kMediaTransparencyMirror, BasicMessage::BorderlessExcluded},
        {"dmPaperSize=274", kMediaGlossy, BasicMessage::None},
        {"wDuplexFlags=0x100", kMediaInkjet, BasicMessage::DuplexExcludes},
        {"wDuplexFlags=0x100", kMediaHagakiAddress, BasicMessage::None},
    };
    for (const auto& [record, media, refusal] : cases)
        EXPECT_EQ(MediaRefusal(PlainA4(record), media), refusal) << record << media;
}

TEST(BasicMedia, SettlesQualityDryingDirectionAndDeviceOptions)
{
    const std::tuple<DWORD, int, int, int, int> kCases[] = {
        {1, 0, 2, 1, 3},    {261, 1, 4, 0, 3},  {262, 2, 4, 0, 3},  {263, 3, 4, 0, 3}, {264, 4, 2, 0, 0},
        {265, 5, 1, 0, 0},  {266, 0, 1, 1, 3},  {268, 8, 2, 1, 3},  {269, 9, 4, 0, 3}, {270, 10, 4, 0, 3},
        {271, 11, 4, 0, 3}, {272, 12, 3, 1, 3}, {273, 13, 4, 0, 3},
    };
    for (const auto& [media, mediaClass, level, otherDirection, options] : kCases)
        for (const int slowDrying : {0, 1}) {
            SCOPED_TRACE(media);
            DriverDevMode record =
                PlainA4("bQualityLevel=1 dwDirModeOther=1 dwDirChoiceOther=1 dwDeviceOptions=3");
            test::Set(record, "dwSdPaper", slowDrying);
            TakeMedia(record, media);
            test::ExpectFields(record, {{"wMediaClass", mediaClass},
                                        {"bQualityLevel", level},
                                        {"dwSdPaper", media == kMediaHagakiAddress},
                                        {"dwDirChoiceOther", otherDirection},
                                        {"dwDirModeOther", otherDirection},
                                        {"dwDeviceOptions", options}});
        }
}

template <int position>
void Quality(DriverDevMode& record)
{
    EXPECT_TRUE(TakeQuality(record, position));
}

TEST(BasicQuality, DecidesTheDirectionOnGlossyPaper)
{
    CheckChoices(
        {{"dmMediaType=262", Quality<2>, "bQualityLevel=3 shQuality=-2 dmPrintQuality=-2 dwDirChoiceOther=1"},
         {"dmMediaType=262 dwDirChoiceOther=1", Quality<1>, "bQualityLevel=4 dwDirChoiceOther=0"},
         {"dwDirChoiceOther=1", Quality<1>, "bQualityLevel=2 dwDirChoiceOther=1"}});
    DriverDevMode glossy = PlainA4("dmMediaType=262");
    EXPECT_FALSE(TakeQuality(glossy, 3)) << "glossy paper has three qualities";
}

TEST(BasicPaper, IsRefusedByQualityMediaBookletAndDuplex)
{
    const std::tuple<const char*, short, BasicMessage> cases[] = {
        {"", 274, BasicMessage::None},
        {"bQualityLevel=0", 274, BasicMessage::BorderlessExcluded},
        {"bQualityLevel=5 dmMediaType=262", 274, BasicMessage::None},
        {"bQualityLevel=5 dmMediaType=262 wModelType=0x10", 274, BasicMessage::BorderlessExcluded},
        {"bQualityLevel=4 dmMediaType=264", 283, BasicMessage::BorderlessExcluded},
        {"bBookletFlags=1 wDuplexFlags=0x100", 274, BasicMessage::BookletNeedsBorders},
        {"wDuplexFlags=0x100", DMPAPER_A3, BasicMessage::DuplexExcludes},
        {"wDuplexFlags=0x100", DMPAPER_USER, BasicMessage::DuplexExcludes},
        {"wDuplexFlags=0x100", DMPAPER_LETTER, BasicMessage::None},
        // A draft's sizes are not looked at.
        {"wDuplexFlags=0x100 bQualityLevel=0", DMPAPER_A3, BasicMessage::None},
    };
    for (const auto& [record, paper, refusal] : cases)
        EXPECT_EQ(PaperRefusal(PlainA4(record), paper), refusal) << record << paper;
}

template <short paper>
void Paper(DriverDevMode& record)
{
    TakePaper(record, paper);
}

template <short paper>
void OtherPaper(DriverDevMode& record)
{
    TakeOtherPaper(record, paper);
}

template <bool on>
void Borderless(DriverDevMode& record)
{
    TakeBorderless(record, on);
}

TEST(BasicPaper, BringsAllThatHangsOnIt)
{
    CheckChoices({
        {"", Paper<275>, "dmPaperSize=275 wDocumentPaper=275 bBorderless=1 unnamed262=3"},
        {"", Paper<9>, "dmPaperSize=9 wDocumentPaper=9 unnamed262=0"},
        {"bBorderless=1", Paper<11>, "bBorderless=0"},
        {"bBorderless=1 bQualityLevel=0", Paper<9>, "bBorderless=0"},
        {"dmPaperSize=1", Borderless<true>, "dmPaperSize=275 wDocumentPaper=275 bBorderless=1"},
        {"dmPaperSize=275 bBorderless=1", Borderless<false>, "dmPaperSize=1 wDocumentPaper=1 bBorderless=0"},
        {"dmPaperSize=275 bBorderless=1 dwDirChoicePlain=1", OtherPaper<9>,
         "dmPaperSize=9 bBorderless=0 dwDirModePlain=1"},
        {"dwDirChoicePlain=1 dwDirModePlain=1", OtherPaper<DMPAPER_ENV_10>, "wThickness=2 dwDirModePlain=0"},
    });
}

TEST(BasicPaper, IsFollowedByTheNoticeThatFits)
{
    const std::tuple<bool, short, short, bool, bool, BasicMessage> cases[] = {
        {true, 9, 278, false, true, BasicMessage::None},
        {true, 272, 278, false, false, BasicMessage::BorderlessOn}, // from photo size to photo size
        {true, 9, 274, false, false, BasicMessage::BorderlessOn},
        {true, 274, 275, false, false, BasicMessage::None},
        {true, 9, 274, true, false, BasicMessage::None},
        {false, 9, 278, false, false, BasicMessage::BorderlessOn},
    };
    for (const auto& [wanted, former, paper, tray2Failed, photoDialog, message] : cases) {
        const DriverDevMode record = PlainA4({{"dwPhotoNotice", wanted}, {"wModelType", kModelNotice}});
        const PaperNotice given = NoticeAfterPaper(record, former, paper, tray2Failed);
        EXPECT_EQ(given.photoDialog, photoDialog) << former << " to " << paper;
        EXPECT_EQ(given.message, message) << former << " to " << paper;
    }
}

template <int position, bool byUser = false>
void Layout(DriverDevMode& record)
{
    TakeLayout(record, position, byUser);
}

TEST(BasicLayout, StoresPagesPosterAndScale)
{
    CheckChoices({{"dmScale=50", Layout<0>, "dwPagesPerSheet=1 wPoster=1 dmScale=50"},
                  {"dmScale=50", Layout<0, true>, "dwPagesPerSheet=1 wPoster=1 dmScale=100 wScale=100"},
                  {"dmScale=50", Layout<1>, "dwPagesPerSheet=2 dwSavedNup=2 wPoster=1 dmScale=100"},
                  {"dmScale=50", Layout<4>, "dwPagesPerSheet=16 wPoster=1 dmScale=100"},
                  {"dmScale=50", Layout<5>, "dwPagesPerSheet=-4 wPoster=2 dmScale=100"},
                  {"dmScale=50", Layout<6>, "dwPagesPerSheet=-9 wPoster=3 dmScale=100"},
                  {"dwPagesPerSheet=4", Layout<-1>, "dwPagesPerSheet=1 wPoster=1"},
                  {"dwPagesPerSheet=4", Layout<7>, "dwPagesPerSheet=1 wPoster=1"}});
}

TEST(BasicPageOrder, KeepsTheOtherOrientationsHalfOfTheField)
{
    const std::tuple<int, int, int, int, int> kCases[] = {
        {1, 4, 0, 3, 3}, {1, 2, 0, 2, 2}, {1, 2, 3, 2, 3}, {1, 2, 3, 0, 0}, {1, 2, 5, 0, 5},
        {1, 2, 5, 2, 2}, {2, 2, 1, 4, 4}, {2, 2, 5, 0, 0}, {2, 2, 2, 0, 2},
    };
    for (const auto& [orientation, pages, current, chosen, stored] : kCases) {
        DriverDevMode record =
            PlainA4({{"dmOrientation", orientation}, {"dwPagesPerSheet", pages}, {"bPageOrder", current}});
        TakePageOrder(record, chosen);
        EXPECT_EQ(record.dmPrivate.bPageOrder, stored) << current << " -> " << chosen;
    }
}

TEST(BasicDuplex, DerivesThePublicField)
{
    constexpr short kUpright[] = {2, 2, 3, 3, 2, 2, 1};
    constexpr short kLying[] = {2, 2, 3, 3, 3, 3, 1};
    for (int type = 0; type <= 6; ++type)
        for (const int orientation : {DMORIENT_PORTRAIT, DMORIENT_LANDSCAPE})
            for (const int pages : {1, 2}) {
                const DriverDevMode record = PlainA4({{"dmOrientation", orientation},
                                                      {"dwPagesPerSheet", pages},
                                                      {"wDuplexFlags", kDuplexOn | type}});
                const bool upright = (orientation == DMORIENT_PORTRAIT) == (pages == 1);
                EXPECT_EQ(DuplexOf(record), (upright ? kUpright : kLying)[type]) << type;
            }
}

TEST(BasicDuplex, FollowsTheOrientationWhereThePrinterHasIt)
{
    DriverDevMode record = PlainA4("wDuplexFlags=0x104 dmOrientation=2 dmDuplex=1");
    UpdateDuplex(record);
    EXPECT_EQ(record.dmPublic.dmDuplex, DMDUP_SIMPLEX);
    record.dmPublic.dmFields = DM_DUPLEX;
    UpdateDuplex(record);
    EXPECT_EQ(record.dmPublic.dmDuplex, DMDUP_HORIZONTAL);
}

// A record that never had them in its fields lost both with its next merge.
TEST(BasicCopies, StayChosenThroughAMerge)
{
    const test::World world;
    const test::DialogContext context;
    DriverDevMode record = context.record();
    record.dmPublic.dmFields &= ~DWORD{DM_COPIES | DM_COLLATE};
    TakeCopies(record, 7);
    TakeCollate(record, true);
    ASSERT_EQ(MergeDevMode(&context.record(), &record.dmPublic, context->pModel), 1);
    test::ExpectFields(context.record(), "dmCopies=7 dmCollate=1 dwCollate=1");
}

TEST(PreviewClicks, HitThePageThatIsShown)
{
    const std::tuple<int, int, POINT, bool> kCases[] = {
        {1, 1, {60, 5}, true},    {1, 1, {10, 60}, false},  {1, 2, {10, 60}, true},
        {1, 2, {60, 5}, false},   {2, 1, {119, 105}, true}, {2, 2, {119, 60}, false},
        {2, 2, {106, 119}, true}, {1, 1, {107, 60}, false},
    };
    for (const auto& [orientation, pages, point, hit] : kCases)
        EXPECT_EQ(
            IsOnPreviewPage(PlainA4({{"dmOrientation", orientation}, {"dwPagesPerSheet", pages}}), point),
            hit)
            << point.x << ',' << point.y;
}

void ExpectAt(POINT place, LONG x, LONG y)
{
    EXPECT_EQ(place.x, x);
    EXPECT_EQ(place.y, y);
}

TEST(Placement, KeepsDialogsOnTheScreen)
{
    constexpr SIZE kScreen = {1280, 1024};
    constexpr RECT kWorkArea = {0, 0, 1280, 984};
    ExpectAt(CentredPlace({100, 100, 500, 400}, {200, 100}, kScreen), 200, 180);
    ExpectAt(CentredPlace({1200, 1000, 1280, 1024}, {200, 100}, kScreen), 1080, 924);
    ExpectAt(CentredPlace({0, 0, 50, 50}, {2000, 100}, kScreen), 0, 0);
    ExpectAt(SubDialogPlace({300, 200, 600, 500}, {400, 300}, kWorkArea), 300, 200);
    ExpectAt(SubDialogPlace({1000, 900, 1200, 960}, {400, 300}, kWorkArea), 880, 684);
    ExpectAt(SubDialogPlace({-50, -20, 600, 500}, {400, 300}, kWorkArea), 0, 0);
    ExpectAt(SubDialogPlace({-50, -20, 600, 500}, {1320, 1000}, kWorkArea), 0, 0);
}

} // namespace
} // namespace psui
