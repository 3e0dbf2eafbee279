// The rules of the Basic tab, as functions of the record.
#include <gtest/gtest.h>

#include "lang/ids/basic_tab.h"
#include "psui/maindlg/basic_rules.h"
#include "psui/maindlg/placement.h"
#include "psui/maindlg/preview_clicks.h"
#include "psui/settings/merge.h"
#include "psui/settings/record_values.h"
#include "tests/maindlg/dialog_context.h"

namespace psui {
namespace {

DriverDevMode PlainA4()
{
    DriverDevMode record = {};
    record.dmPublic.dmPaperSize = DMPAPER_A4;
    record.dmPublic.dmMediaType = kMediaPlain;
    record.dmPublic.dmOrientation = DMORIENT_PORTRAIT;
    record.dmPublic.dmColor = DMCOLOR_COLOR;
    record.dmPublic.dmCopies = 1;
    record.dmPublic.dmDefaultSource = kSourceTray1;
    record.dmPrivate.bQualityLevel = kQualityNormal;
    record.dmPrivate.dwPagesPerSheet = 1;
    record.dmPrivate.dwSavedNup = 1;
    record.dmPrivate.wPoster = 1;
    record.dmPrivate.dwTrayChoice = 1;
    return record;
}

constexpr uint16_t kAllDuplex = kDuplexOn;

TEST(BasicMedia, IsRefusedWhereItExcludesWhatIsSet)
{
    struct Case
    {
        short paper;
        bool duplex;
        DWORD media;
        BasicMessage refusal;
    };
    constexpr Case kCases[] = {
        {DMPAPER_A4, false, kMediaTransparency, BasicMessage::None},
        {274, false, kMediaTransparency, BasicMessage::BorderlessExcluded},
        {274, false, kMediaTransparencyMirror, BasicMessage::BorderlessExcluded},
        {274, false, kMediaGlossy, BasicMessage::None},
        {DMPAPER_A4, true, kMediaInkjet, BasicMessage::DuplexExcludes},
        {DMPAPER_A4, true, kMediaHagakiAddress, BasicMessage::None},
    };
    for (const Case& each : kCases) {
        DriverDevMode record = PlainA4();
        record.dmPublic.dmPaperSize = each.paper;
        record.dmPrivate.wDuplexFlags = each.duplex ? kAllDuplex : 0;
        EXPECT_EQ(MediaRefusal(record, each.media), each.refusal) << each.media;
    }
}

TEST(BasicMedia, BringsItsQualityAndClearsWhatItCannotDo)
{
    DriverDevMode record = PlainA4();
    record.dmPrivate.dwSdPaper = 1;
    record.dmPrivate.dwDeviceOptions = kMirrorPrinting | kReversePrinting;
    record.dmPrivate.dwDirModeOther = record.dmPrivate.dwDirChoiceOther = 1;
    TakeMedia(record, kMediaTransparency);
    EXPECT_EQ(record.dmPrivate.bQualityLevel, 2);
    EXPECT_EQ(record.dmPrivate.dwSdPaper, 0u);
    EXPECT_EQ(record.dmPrivate.dwDeviceOptions, 0u);
    EXPECT_EQ(record.dmPrivate.dwDirChoiceOther, 0u);

    EXPECT_EQ(record.dmPrivate.wMediaClass, 4);

    TakeMedia(record, kMediaHagakiAddress);
    EXPECT_EQ(record.dmPrivate.dwSdPaper, 1u);
    EXPECT_EQ(record.dmPrivate.bQualityLevel, 3);
    TakeMedia(record, kMediaPlain);
    EXPECT_EQ(record.dmPrivate.dwSdPaper, 0u);

    TakeMedia(record, kMediaGlossy); // level 4 is not the one that prints both ways
    EXPECT_EQ(record.dmPrivate.dwDirChoiceOther, 0u);
    ASSERT_TRUE(TakeQuality(record, 2));
    EXPECT_EQ(record.dmPrivate.bQualityLevel, 3);
    EXPECT_EQ(record.dmPrivate.shQuality, -2);
    EXPECT_EQ(record.dmPrivate.dwDirChoiceOther, 1u);
    EXPECT_FALSE(TakeQuality(record, 3)) << "glossy paper has three qualities";
}

TEST(BasicMedia, SettlesDryingDirectionAndDeviceOptions)
{
    constexpr struct
    {
        DWORD media;
        uint32_t slowDrying, otherDirection, options;
    } kCases[] = {
        {1, 0, 1, 3},   {261, 0, 0, 3}, {262, 0, 0, 3}, {263, 0, 0, 3}, {264, 0, 0, 0},
        {265, 0, 0, 0}, {266, 0, 1, 3}, {268, 0, 1, 3}, {269, 0, 0, 3}, {270, 0, 0, 3},
        {271, 0, 0, 3}, {272, 1, 1, 3}, {273, 0, 0, 3},
    };
    for (const auto& each : kCases) {
        DriverDevMode record = PlainA4();
        PrivateDevMode& settings = record.dmPrivate;
        settings.dwSdPaper = settings.dwDirModeOther = settings.dwDirChoiceOther = 1;
        settings.dwDeviceOptions = kMirrorPrinting | kReversePrinting;
        TakeMedia(record, each.media);
        EXPECT_EQ(settings.dwSdPaper, each.slowDrying) << each.media;
        EXPECT_EQ(settings.dwDirChoiceOther, each.otherDirection) << each.media;
        EXPECT_EQ(settings.dwDirModeOther, each.otherDirection) << each.media;
        EXPECT_EQ(settings.dwDeviceOptions, each.options) << each.media;
    }
}

TEST(BasicPaper, IsRefusedByQualityMediaBookletAndDuplex)
{
    struct Case
    {
        uint8_t quality;
        uint16_t model;
        DWORD media;
        bool booklet, duplex;
        short paper;
        BasicMessage refusal;
    };
    constexpr Case kCases[] = {
        {2, 0, kMediaPlain, false, false, 274, BasicMessage::None},
        {0, 0, kMediaPlain, false, false, 274, BasicMessage::BorderlessExcluded},
        {5, 0, kMediaGlossy, false, false, 274, BasicMessage::None},
        {5, kModelBordersBestQuality, kMediaGlossy, false, false, 274, BasicMessage::BorderlessExcluded},
        {4, 0, kMediaTransparency, false, false, 283, BasicMessage::BorderlessExcluded},
        {2, 0, kMediaPlain, true, true, 274, BasicMessage::BookletNeedsBorders},
        {2, 0, kMediaPlain, false, true, DMPAPER_A3, BasicMessage::DuplexExcludes},
        {2, 0, kMediaPlain, false, true, DMPAPER_USER, BasicMessage::DuplexExcludes},
        {2, 0, kMediaPlain, false, true, DMPAPER_LETTER, BasicMessage::None},
        {0, 0, kMediaPlain, false, true, DMPAPER_A3, BasicMessage::None}, // a draft's sizes are not looked at
    };
    for (const Case& each : kCases) {
        DriverDevMode record = PlainA4();
        record.dmPrivate.bQualityLevel = each.quality;
        record.dmPrivate.wModelType = each.model;
        record.dmPublic.dmMediaType = each.media;
        record.dmPrivate.bBookletFlags = each.booklet ? kBookletOn : 0;
        record.dmPrivate.wDuplexFlags = each.duplex ? kDuplexOn : 0;
        EXPECT_EQ(PaperRefusal(record, each.paper), each.refusal)
            << each.paper << " at quality " << +each.quality;
    }
}

TEST(BasicPaper, CarriesBorderlessPrintingWithIt)
{
    DriverDevMode record = PlainA4();
    TakePaper(record, 275);
    EXPECT_EQ(record.dmPrivate.bBorderless, 1);
    EXPECT_EQ(record.dmPrivate.wDocumentPaper, 275);
    EXPECT_EQ(record.dmPrivate.unnamed262, 3);
    TakePaper(record, DMPAPER_A5);
    EXPECT_EQ(record.dmPrivate.bBorderless, 0);
    record.dmPrivate.bBorderless = 1;
    record.dmPrivate.bQualityLevel = kQualityDraft;
    TakePaper(record, DMPAPER_A4);
    EXPECT_EQ(record.dmPrivate.bBorderless, 0) << "a draft's size, too";

    constexpr std::pair<short, short> kTwins[] = {
        {DMPAPER_LETTER, 275}, {DMPAPER_A3, 283}, {43, 277}, {292 - 3, 292}};
    for (const auto& [bordered, borderless] : kTwins) {
        record.dmPublic.dmPaperSize = bordered;
        TakeBorderless(record, true);
        EXPECT_EQ(record.dmPublic.dmPaperSize, borderless);
        TakeBorderless(record, false);
        EXPECT_EQ(record.dmPublic.dmPaperSize, bordered);
    }
    record.dmPublic.dmPaperSize = DMPAPER_A5;
    TakeBorderless(record, true);
    EXPECT_EQ(record.dmPublic.dmPaperSize, 274) << "a size without a form becomes A4's";
}

TEST(BasicPaper, BringsAllThatHangsOnItWhereItStandsIn)
{
    DriverDevMode record = PlainA4();
    record.dmPublic.dmPaperSize = 275;
    record.dmPrivate.bBorderless = 1;
    record.dmPrivate.dwDirChoicePlain = 1;
    TakeOtherPaper(record, DMPAPER_A4);
    EXPECT_EQ(record.dmPublic.dmPaperSize, DMPAPER_A4);
    EXPECT_EQ(record.dmPrivate.bBorderless, 0);
    EXPECT_EQ(record.dmPrivate.dwDirModePlain, 1u);
    TakeOtherPaper(record, DMPAPER_ENV_10);
    EXPECT_EQ(record.dmPrivate.wThickness, kThicknessEnvelope);
    EXPECT_EQ(record.dmPrivate.dwDirModePlain, 0u);
}

TEST(BasicPaper, IsFollowedByTheNoticeThatFits)
{
    DriverDevMode record = PlainA4();
    record.dmPrivate.dwPhotoNotice = 1;
    record.dmPrivate.wModelType = kModelNotice;
    EXPECT_TRUE(NoticeAfterPaper(record, 9, 278, false).photoDialog);
    EXPECT_FALSE(NoticeAfterPaper(record, 272, 278, false).photoDialog) << "from photo size to photo size";
    EXPECT_EQ(NoticeAfterPaper(record, 272, 278, false).message, BasicMessage::BorderlessOn);
    EXPECT_EQ(NoticeAfterPaper(record, 9, 274, false).message, BasicMessage::BorderlessOn);
    EXPECT_EQ(NoticeAfterPaper(record, 274, 275, false).message, BasicMessage::None);
    EXPECT_EQ(NoticeAfterPaper(record, 9, 274, true).message, BasicMessage::None);
    record.dmPrivate.dwPhotoNotice = 0;
    EXPECT_FALSE(NoticeAfterPaper(record, 9, 278, false).photoDialog);
    EXPECT_EQ(NoticeAfterPaper(record, 9, 278, false).message, BasicMessage::BorderlessOn);
}

TEST(BasicSource, GivesTray2UpWhereItCannotServe)
{
    DriverDevMode record = PlainA4();
    EXPECT_EQ(SourceRefusal(record), BasicMessage::None);
    record.dmPublic.dmDefaultSource = kSourceTray2;
    EXPECT_EQ(SourceRefusal(record), BasicMessage::None);
    record.dmPublic.dmPaperSize = DMPAPER_A5;
    EXPECT_EQ(SourceRefusal(record), BasicMessage::Tray2Excluded);
    record.dmPrivate.wDuplexFlags = kDuplexOn;
    EXPECT_EQ(SourceRefusal(record), BasicMessage::Tray2PrintsSimply);
    record.dmPrivate.wDuplexFlags = 0;
    record.dmPrivate.bBorderless = 1;
    EXPECT_EQ(SourceRefusal(record), BasicMessage::Tray2PrintsSimply);
}

TEST(BasicLayout, StoresPagesPosterAndScale)
{
    struct Case
    {
        int position, pages, poster;
    };
    constexpr Case kCases[] = {{0, 1, 1},  {1, 2, 1},  {4, 16, 1}, {5, -4, 2},
                               {6, -9, 3}, {-1, 1, 1}, {7, 1, 1}};
    for (const Case& each : kCases) {
        DriverDevMode record = PlainA4();
        record.dmPublic.dmScale = 50;
        TakeLayout(record, each.position, false);
        EXPECT_EQ(record.dmPrivate.dwPagesPerSheet, each.pages);
        EXPECT_EQ(record.dmPrivate.wPoster, each.poster);
        EXPECT_EQ(record.dmPublic.dmScale, each.position > 0 ? 100 : 50);
    }
    DriverDevMode record = PlainA4();
    record.dmPublic.dmScale = 50;
    TakeLayout(record, 0, true);
    EXPECT_EQ(record.dmPublic.dmScale, 100);
}

TEST(BasicPageOrder, KeepsTheOtherOrientationsHalfOfTheField)
{
    struct Case
    {
        short orientation;
        int pages, current, chosen, stored;
    };
    constexpr Case kCases[] = {
        {1, 4, 0, 3, 3}, {1, 2, 0, 2, 2}, {1, 2, 3, 2, 3}, {1, 2, 3, 0, 0}, {1, 2, 5, 0, 5},
        {1, 2, 5, 2, 2}, {2, 2, 1, 4, 4}, {2, 2, 5, 0, 0}, {2, 2, 2, 0, 2},
    };
    for (const Case& each : kCases) {
        DriverDevMode record = PlainA4();
        record.dmPublic.dmOrientation = each.orientation;
        record.dmPrivate.dwPagesPerSheet = each.pages;
        record.dmPrivate.bPageOrder = static_cast<uint8_t>(each.current);
        TakePageOrder(record, each.chosen);
        EXPECT_EQ(record.dmPrivate.bPageOrder, each.stored) << each.current << " -> " << each.chosen;
    }
}

TEST(BasicDuplex, DerivesThePublicFieldAndEndsBooklets)
{
    constexpr short kUpright[] = {2, 2, 3, 3, 2, 2, 1};
    constexpr short kLying[] = {2, 2, 3, 3, 3, 3, 1};
    for (int type = 0; type <= 6; ++type)
        for (const bool landscape : {false, true})
            for (const int pages : {1, 2}) {
                DriverDevMode record = PlainA4();
                record.dmPublic.dmOrientation = landscape ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
                record.dmPrivate.dwPagesPerSheet = pages;
                record.dmPrivate.wDuplexFlags = static_cast<uint16_t>(kDuplexOn | type);
                EXPECT_EQ(DuplexOf(record), (landscape == (pages == 2) ? kUpright : kLying)[type]) << type;
            }
    DriverDevMode record = PlainA4();
    record.dmPrivate.wDuplexFlags = kDuplexOn | 3;
    record.dmPrivate.bBookletFlags = kBookletOn;
    record.dmPrivate.dwPagesPerSheet = 2;
    record.dmPrivate.dwSavedNup = 4;
    TakeDuplex(record, false);
    EXPECT_EQ(record.dmPrivate.wDuplexFlags, 3);
    EXPECT_EQ(record.dmPrivate.bBookletFlags, 0);
    EXPECT_EQ(record.dmPrivate.dwPagesPerSheet, 4);
    EXPECT_EQ(record.dmPublic.dmDuplex, DMDUP_SIMPLEX);
}

TEST(BasicDuplex, FollowsTheOrientationWhereThePrinterHasIt)
{
    DriverDevMode record = PlainA4();
    record.dmPrivate.wDuplexFlags = kDuplexOn | 4;
    record.dmPublic.dmOrientation = DMORIENT_LANDSCAPE;
    record.dmPublic.dmDuplex = DMDUP_SIMPLEX;
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
    test::ExpectFields(context.record(), {{"dmCopies", 7}, {"dmCollate", 1}, {"dwCollate", 1}});
}

TEST(BasicEnables, FollowTheRecord)
{
    struct Case
    {
        const char* what;
        int control;
        bool enabled;
        void (*change)(PrinterUiContext&);
    };
    constexpr Case kCases[] = {
        {"plain A4", IDC_BORDERLESS, true, [](PrinterUiContext&) {}},
        {"A5", IDC_BORDERLESS, false,
         [](PrinterUiContext& c) { c.dmWork.dmPublic.dmPaperSize = DMPAPER_A5; }},
        {"draft", IDC_BORDERLESS, false, [](PrinterUiContext& c) { c.dmWork.dmPrivate.bQualityLevel = 0; }},
        {"transparency", IDC_BORDERLESS, false,
         [](PrinterUiContext& c) { c.dmWork.dmPublic.dmMediaType = kMediaTransparency; }},
        {"best quality", IDC_BORDERLESS, true,
         [](PrinterUiContext& c) { c.dmWork.dmPrivate.bQualityLevel = 5; }},
        {"best quality with borders", IDC_BORDERLESS, false,
         [](PrinterUiContext& c) {
             c.dmWork.dmPrivate.bQualityLevel = 5;
             c.dmWork.dmPrivate.wModelType = kModelBordersBestQuality;
         }},
        {"booklet", IDC_BORDERLESS, false, [](PrinterUiContext& c) { c.dmWork.dmPrivate.bBookletFlags = 1; }},
        {"booklet", IDC_LAYOUT, false, [](PrinterUiContext& c) { c.dmWork.dmPrivate.bBookletFlags = 1; }},
        {"booklet of two", IDC_PAGE_ORDER, false,
         [](PrinterUiContext& c) {
             c.dmWork.dmPrivate.bBookletFlags = 1;
             c.dmWork.dmPrivate.dwPagesPerSheet = 2;
         }},
        {"inkjet paper", IDC_SLOW_DRYING, false,
         [](PrinterUiContext& c) { c.dmWork.dmPublic.dmMediaType = kMediaInkjet; }},
        {"inkjet paper", IDC_DUPLEX, false,
         [](PrinterUiContext& c) { c.dmWork.dmPublic.dmMediaType = kMediaInkjet; }},
        {"address side", IDC_DUPLEX, true,
         [](PrinterUiContext& c) { c.dmWork.dmPublic.dmMediaType = kMediaHagakiAddress; }},
        {"copies by hand", IDC_COLLATE, false,
         [](PrinterUiContext& c) {
             c.dmWork.dmPublic.dmCopies = 3;
             c.dmWork.dmPublic.dmDefaultSource = 4;
         }},
        {"monochrome", IDC_NATURAL, false, [](PrinterUiContext& c) { c.dmWork.dmPublic.dmColor = 1; }},
        {"duplex on A3", IDC_DUPLEX_SETTINGS, false,
         [](PrinterUiContext& c) {
             c.dmWork.dmPrivate.wDuplexFlags = 0x100;
             c.dmWork.dmPublic.dmPaperSize = DMPAPER_A3;
         }},
        {"one copy", IDC_COLLATE, false, [](PrinterUiContext&) {}},
        {"three copies", IDC_COLLATE, true, [](PrinterUiContext& c) { c.dmWork.dmPublic.dmCopies = 3; }},
        {"manual feed", IDC_REVERSE_ORDER, false,
         [](PrinterUiContext& c) { c.dmWork.dmPublic.dmDefaultSource = 4; }},
        {"borderless", IDC_LAYOUT, false, [](PrinterUiContext& c) { c.dmWork.dmPublic.dmPaperSize = 274; }},
        {"poster", IDC_PAGE_ORDER, false,
         [](PrinterUiContext& c) { c.dmWork.dmPrivate.dwPagesPerSheet = -4; }},
        {"nine pages", IDC_BORDER_LINE, true,
         [](PrinterUiContext& c) { c.dmWork.dmPrivate.dwPagesPerSheet = 9; }},
        {"duplex off", IDC_DUPLEX_SETTINGS, false, [](PrinterUiContext&) {}},
        {"duplex on", IDC_DUPLEX_SETTINGS, true,
         [](PrinterUiContext& c) { c.dmWork.dmPrivate.wDuplexFlags = 0x100; }},
        {"A3", IDC_DUPLEX, false, [](PrinterUiContext& c) { c.dmWork.dmPublic.dmPaperSize = DMPAPER_A3; }},
        {"no colour modes", IDC_VIVID, false,
         [](PrinterUiContext& c) { c.dmWork.dmPrivate.dwColorModeOn = 0; }},
        {"no permission", IDC_MEDIA, false, [](PrinterUiContext& c) { c.bPermission = 0; }},
    };
    for (const Case& each : kCases) {
        PrinterUiContext context = {};
        context.bPermission = 1;
        context.dmWork = PlainA4();
        context.dmWork.dmPrivate.dwColorModeOn = 1;
        each.change(context);
        EXPECT_EQ(IsBasicEnabled(&context, each.control), each.enabled) << each.what;
    }
}

TEST(PreviewClicks, HitThePageThatIsShown)
{
    struct Case
    {
        short orientation;
        int pages;
        POINT point;
        bool hit;
    };
    constexpr Case kCases[] = {
        {1, 1, {60, 5}, true},    {1, 1, {10, 60}, false},  {1, 2, {10, 60}, true},
        {1, 2, {60, 5}, false},   {2, 1, {119, 105}, true}, {2, 2, {119, 60}, false},
        {2, 2, {106, 119}, true}, {1, 1, {107, 60}, false},
    };
    for (const Case& each : kCases) {
        DriverDevMode record = PlainA4();
        record.dmPublic.dmOrientation = each.orientation;
        record.dmPrivate.dwPagesPerSheet = each.pages;
        EXPECT_EQ(IsOnPreviewPage(record, each.point), each.hit) << each.point.x << ',' << each.point.y;
    }
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
