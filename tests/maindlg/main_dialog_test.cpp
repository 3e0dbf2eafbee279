// The main dialog itself: where its parts are, what it takes over from its sheet, and how it answers the
// pointer.
#include "psui/maindlg/main_dialog.h"

#include <commctrl.h>

#include "lang/ids/basic_tab.h"
#include "lang/ids/dialogs.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"
#include "psui/dialogs/help_topics.h"
#include "psui/entry/main_dialog.h"
#include "psui/maindlg/main_layout.h"
#include "psui/maindlg/option_tables.h"
#include "psui/maindlg/side_panel.h"
#include "psui/res/pictures.h"
#include "tests/entry/printer.h"
#include "tests/maindlg/dialog_context.h"
#include "tests/maindlg/test_dialog.h"

namespace {

using namespace psui;
using namespace test;

void WorkOffMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

/// The main dialog over a sheet of the test's own, open but not run.
class MainDialog : public testing::Test
{
protected:
    MainDialog() { hOwnModule = LoadLibraryW(ProductFile("eng/psui.dll").c_str()); }
    ~MainDialog() override
    {
        Close();
        hOwnModule = nullptr;
    }

    void Close()
    {
        DestroyWindow(dialog_);
        DestroyWindow(sheet_);
    }

    void Open(RECT sheet = {100, 100, 500, 400})
    {
        Close();
        sheet_ = CreateWindowExW(0, TEXT("STATIC"), TEXT("Office Properties"), WS_POPUP, sheet.left,
                                 sheet.top, sheet.right - sheet.left, sheet.bottom - sheet.top, nullptr,
                                 nullptr, nullptr, nullptr);
        page_ = CreateWindowExW(0, TEXT("STATIC"), TEXT(""), WS_CHILD, 0, 0, 10, 10, sheet_, nullptr, nullptr,
                                nullptr);
        context_->hSummaryPage = page_;
        dialog_ = CreateDialogParamW(hLangModule, MAKEINTRESOURCEW(IDD_MAIN), sheet_, MainSettingDlgProc,
                                     reinterpret_cast<LPARAM>(static_cast<PrinterUiContext*>(context_)));
        ASSERT_NE(dialog_, nullptr);
    }

    /// What the dialog procedure answers.
    INT_PTR Ask(UINT message, WPARAM wParam, LPARAM lParam) const
    {
        return MainSettingDlgProc(dialog_, message, wParam, lParam);
    }

    World world_;
    DialogContext context_;
    HWND sheet_ = nullptr, page_ = nullptr, dialog_ = nullptr;
};

TEST_F(MainDialog, SetsItsButtonsUnderTheTabsFromTheRight)
{
    for (const bool userDefault : {false, true}) {
        context_->bUserDefault = userDefault;
        Open();
        const RECT tabs = PlaceOf(dialog_, IDC_TABS);
        const LONG width = (tabs.right - tabs.left - 21) / 4;
        const auto expectAt = [&](int control, LONG fromRight) {
            const RECT place = PlaceOf(dialog_, control);
            EXPECT_EQ(place.left, tabs.right - width - fromRight * (width + 7)) << control;
            EXPECT_EQ(SizeOf(place).cx, width) << control;
        };
        const auto expectRow = [&](bool withApply) {
            EXPECT_EQ(IsShown(dialog_, IDC_APPLY), withApply);
            expectAt(IDHELP, 0);
            if (withApply)
                expectAt(IDC_APPLY, 1);
            expectAt(IDCANCEL, withApply ? 2 : 1);
            expectAt(IDOK, withApply ? 3 : 2);
        };
        expectRow(userDefault);
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog_, IDC_APPLY)));
        ToggleApplyButton(dialog_);
        expectRow(!userDefault);
        ToggleApplyButton(dialog_);
        expectRow(userDefault);
    }
}

TEST_F(MainDialog, SizesItsPicturesByTheirBitmaps)
{
    Open();
    const TestDialog asDesigned(IDD_MAIN);
    RECT client;
    GetClientRect(dialog_, &client);
    const RECT link = PlaceOf(dialog_, IDC_WEB_LINK), banner = PlaceOf(dialog_, IDC_BANNER);
    EXPECT_EQ(link.right, client.right);
    EXPECT_EQ(link.top, PlaceOf(asDesigned, IDC_WEB_LINK).top);
    EXPECT_EQ(banner.right - banner.left, link.left);
    EXPECT_EQ(SizeOf(banner).cy, SizeOf(link).cy);

    const RECT frame = PlaceOf(dialog_, IDC_PREVIEW_FRAME), preview = PlaceOf(dialog_, IDC_PREVIEW);
    EXPECT_EQ(preview.left, frame.left + (SizeOf(frame).cx - SizeOf(preview).cx) / 2);
    EXPECT_EQ(preview.top, PlaceOf(asDesigned, IDC_PREVIEW).top + 8);
    // The page image's rectangles are counted in a picture of this size.
    EXPECT_EQ(SizeOf(preview).cx, 120);
    EXPECT_EQ(SizeOf(preview).cy, 120);
}

TEST_F(MainDialog, MakesRoomForDuplexPrintingWhereThePrinterHasIt)
{
    constexpr int kMoved[] = {IDC_LINE_COLOR,  IDC_COLOR_PICTURE, IDC_LINE_SCALING,
                              IDC_LINE_MIRROR, IDC_LINE_REVERSE,  IDC_LINE_WATERMARK};
    const TestDialog asDesigned(IDD_MAIN), tabAsDesigned(IDD_BASIC);
    const LONG pitch = PlaceOf(asDesigned, IDC_LINE_QUALITY).top - PlaceOf(asDesigned, IDC_LINE_MEDIA).top;
    for (const DWORD fields : {DM_COPIES, DM_COPIES | DM_DUPLEX}) {
        const bool duplex = (fields & DM_DUPLEX) != 0;
        context_.record().dmPublic.dmFields = fields;
        Open();
        EXPECT_EQ(IsShown(dialog_, IDC_LINE_DUPLEX), duplex);
        for (const int control : kMoved) {
            const RECT designed = PlaceOf(asDesigned, control), place = PlaceOf(dialog_, control);
            EXPECT_EQ(place.left, designed.left) << control;
            EXPECT_EQ(place.top, designed.top + (duplex ? pitch : 0)) << control;
        }

        const HWND tab = context_->hBasicTab;
        const auto topOf = [tab](int control) { return PlaceOf(tab, control).top; };
        const LONG gap = topOf(IDC_PAGE_ORDER_LABEL) - PlaceOf(tab, IDC_LAYOUT_LABEL).bottom;
        EXPECT_EQ(topOf(IDC_SOURCE_LABEL), duplex ? PlaceOf(tabAsDesigned, IDC_SOURCE_LABEL).top
                                                  : PlaceOf(tab, IDC_BORDER_LINE_LABEL).bottom + gap);
        EXPECT_EQ(topOf(IDC_SOURCE) - topOf(IDC_SOURCE_LABEL), topOf(IDC_LAYOUT) - topOf(IDC_LAYOUT_LABEL));
        EXPECT_EQ(IsShown(tab, IDC_DUPLEX), duplex);
        EXPECT_EQ(IsShown(tab, IDC_DUPLEX_SETTINGS), duplex);
    }
}

TEST_F(MainDialog, StandsForItsSheet)
{
    context_->bUserDefault = 1;
    Open({0, 0, 0, 0});
    WCHAR title[64] = {};
    GetWindowTextW(dialog_, title, 64);
    EXPECT_EQ(std::u16string(title), u"Office Properties");
    RECT place;
    GetWindowRect(dialog_, &place);
    EXPECT_EQ(place.left, (GetSystemMetrics(SM_CXSCREEN) - SizeOf(place).cx) / 2);
    EXPECT_EQ(place.top, (GetSystemMetrics(SM_CYSCREEN) - SizeOf(place).cy) / 2);
}

TEST_F(MainDialog, ColorsSettingsBlueAndPlainFactsBlack)
{
    constexpr COLORREF kBlue = RGB(0, 0, 255), kBlack = RGB(0, 0, 0), kNotOurs = RGB(1, 2, 3);
    Open();
    const std::pair<int, COLORREF> rows[] = {
        {IDC_LINE_MEDIA, kBlue},      {IDC_LINE_WATERMARK, kBlue},  {IDC_LINE_PAPER, kBlue},
        {IDC_LINE_PAPER_SIZE, kBlue}, {IDC_LINE_DUPLEX, kBlue},     {IDC_LINE_SCALING, kBlue},
        {IDC_LINE_FIGURE, kBlue},     {IDC_LINE_FIT_PAPER, kBlack}, {IDC_LINE_SCALED_TO, kBlack},
        {IDC_HOVER_TIP, kNotOurs},    {IDC_SUPPORT, kNotOurs},
    };
    const HDC dc = GetDC(dialog_);
    for (const auto& [control, color] : rows) {
        SetTextColor(dc, kNotOurs);
        const INT_PTR brush = Ask(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                  reinterpret_cast<LPARAM>(GetDlgItem(dialog_, control)));
        EXPECT_EQ(brush, color == kNotOurs ? 0 : reinterpret_cast<INT_PTR>(GetStockObject(WHITE_BRUSH)))
            << control;
        EXPECT_EQ(GetTextColor(dc), color) << control;
    }
    ReleaseDC(dialog_, dc);
}

TEST_F(MainDialog, CapturesThePointerOverThePageImage)
{
    Open();
    Set(context_.record(), "bBorderless", 0);
    const RECT preview = PlaceOf(dialog_, IDC_PREVIEW);
    const LPARAM onPage = MAKELPARAM(preview.left + 60, preview.top + 60);
    const LPARAM beside = MAKELPARAM(preview.left + 5, preview.top + 60);
    Ask(WM_MOUSEMOVE, 0, onPage);
    EXPECT_EQ(GetCapture(), dialog_);
    Ask(WM_MOUSEMOVE, 0, beside);
    EXPECT_EQ(GetCapture(), nullptr);

    // Asking for context help takes the mouse as well, and ends with the next click.
    Ask(WM_SYSCOMMAND, SC_CONTEXTHELP, 0);
    EXPECT_EQ(context_->bContextHelpMode, 1u);
    SetCapture(dialog_);
    Ask(WM_MOUSEMOVE, 0, beside);
    EXPECT_EQ(GetCapture(), dialog_);
    Ask(WM_LBUTTONDOWN, 0, beside);
    EXPECT_EQ(context_->bContextHelpMode, 0u);
    ReleaseCapture();

    for (const char* const field : {"bBorderless", "bBookletFlags"}) {
        Set(context_.record(), field, 1);
        Ask(WM_MOUSEMOVE, 0, onPage);
        EXPECT_EQ(GetCapture(), nullptr) << field;
        Set(context_.record(), field, 0);
    }
}

TEST_F(MainDialog, CapturesThePointerOverTheHelpSignsOfItsTab)
{
    Open();
    ShowWindow(sheet_, SW_SHOW);
    ShowWindow(dialog_, SW_SHOW);
    const HWND tab = context_->hBasicTab;
    for (const int sign : {IDC_SLOW_DRYING_HELP, IDC_BORDERLESS_HELP, IDC_COLOR_MODE_HELP}) {
        const RECT place = PlaceOf(tab, sign);
        SendMessageW(tab, WM_MOUSEMOVE, 0, MAKELPARAM(place.left, place.top));
        EXPECT_EQ(GetCapture(), tab) << sign;
        SendMessageW(tab, WM_MOUSEMOVE, 0, MAKELPARAM(place.left - 1, place.top));
        EXPECT_EQ(GetCapture(), nullptr) << sign;
    }
}

TEST_F(MainDialog, KnowsWhetherThePointerIsOverTheLink)
{
    Open();
    const auto setCursorOver = [&](int control) {
        Ask(WM_SETCURSOR, reinterpret_cast<WPARAM>(GetDlgItem(dialog_, control)),
            MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
        return context_->bLinkHover;
    };
    EXPECT_EQ(setCursorOver(IDC_WEB_LINK), 1u);
    EXPECT_EQ(setCursorOver(IDC_BANNER), 0u);
}

TEST_F(MainDialog, ShowsItsTipHalfASecondAfterTheLastMoveOverTheLink)
{
    Open();
    const auto shownAfter = [&](unsigned milliseconds) {
        host::AdvanceTime(milliseconds);
        WorkOffMessages();
        return IsShown(dialog_, IDC_HOVER_TIP);
    };
    for (int move = 0; move < 2; ++move) {
        SendDlgItemMessageW(dialog_, IDC_WEB_LINK, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
        EXPECT_FALSE(shownAfter(400));
    }
    EXPECT_TRUE(shownAfter(100));
}

TEST_F(MainDialog, HelpsSupportByKeysOnTheBanner)
{
    context_->bUserDefault = 1;
    Open();
    const RECT banner = PlaceOf(dialog_, IDC_BANNER);
    const auto doubleClickWith = [&](std::vector<unsigned> keys, POINT place) {
        for (const unsigned key : keys)
            host::PressKeyDown(key);
        WorkOffMessages();
        Ask(WM_LBUTTONDBLCLK, 0, MAKELPARAM(place.x, place.y));
        for (const unsigned key : keys)
            host::ReleaseKey(key);
        WorkOffMessages();
    };
    const POINT on = {banner.left + 5, banner.top + 5}, below = {banner.left + 5, banner.bottom};
    ShowWindow(sheet_, SW_SHOW);
    ShowWindow(dialog_, SW_SHOW);
    SetFocus(dialog_);
    doubleClickWith({VK_SHIFT, VK_CONTROL, 'D'}, below);
    doubleClickWith({VK_SHIFT, 'D'}, on);
    EXPECT_EQ(context_->bBannerDiagnostics, 0u);
    doubleClickWith({VK_SHIFT, VK_CONTROL, 'D'}, on);
    EXPECT_EQ(context_->bBannerDiagnostics, 1u);
    EXPECT_TRUE(IsShown(dialog_, IDC_APPLY));
    doubleClickWith({VK_SHIFT, VK_CONTROL, 'R'}, on);
    EXPECT_FALSE(IsShown(dialog_, IDC_APPLY));
    doubleClickWith({VK_SHIFT, VK_CONTROL, 'D'}, on);
    EXPECT_EQ(context_->bBannerDiagnostics, 0u);
}

TEST_F(MainDialog, RepaintsItsTabAfterTheBackgroundWasErased)
{
    Open();
    ShowWindow(sheet_, SW_SHOW);
    ShowWindow(dialog_, SW_SHOW);
    const HWND tab = context_->hBasicTab;
    const auto repaints = [&] {
        ValidateRect(tab, nullptr);
        Ask(WM_ERASEBKGND, 0, 0);
        return GetUpdateRect(tab, nullptr, FALSE) != FALSE;
    };
    repaints();
    EXPECT_FALSE(repaints());
    const HDC dc = GetDC(dialog_);
    SendDlgItemMessageW(dialog_, IDC_BACKGROUND, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
    ReleaseDC(dialog_, dc);
    EXPECT_TRUE(repaints());
    EXPECT_FALSE(repaints());
}

TEST_F(MainDialog, StartsTheControlCentreOfAKnownModel)
{
    const Printer printer(u"Office", kEmptyModel);
    context_->hPrinter = printer.handle();
    lstrcpynW(context_.record().dmPublic.dmDeviceName, TEXT("Velmora Palette 940 Printer USB"),
              CCHDEVICENAME);
    Open();
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog_, IDC_CONTROL_CENTRE)));
    SetRegistryText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Wow6432Node\\Velmora\\VmHubWnd\\Driver List",
                    u"Velmora Palette 940", u"");
    RefreshSidePanel(dialog_, context_);
    EXPECT_TRUE(IsWindowEnabled(GetDlgItem(dialog_, IDC_CONTROL_CENTRE)));

    Ask(WM_COMMAND, IDC_CONTROL_CENTRE, 0);
    EXPECT_TRUE(host::Recorded().empty()) << "nobody says where it is";
    WriteNative(host::RootFolder() + "/drive_c/VmHubWnd.exe", "");
    SetRegistryText(HKEY_LOCAL_MACHINE,
                    u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\VmHubWnd.exe", u"Path", u"C:");
    Ask(WM_COMMAND, IDC_CONTROL_CENTRE, 0);
    ASSERT_EQ(host::Recorded().size(), 1u);
    EXPECT_EQ(host::Recorded()[0].kind, "open");
    EXPECT_EQ(host::Recorded()[0].text, u"C:\\VmHubWnd.exe");
    EXPECT_EQ(host::Recorded()[0].detail, u"open|Office on FILE: /SHOW|C:\\|1");
}

TEST_F(MainDialog, KeepsKeysForTheButtonsOfItsTabAndTakesTheirLookWithTheFocus)
{
    Open();
    for (const int id : {IDC_DEFAULT, IDC_DUPLEX_SETTINGS}) {
        const HWND button = GetDlgItem(context_->hBasicTab, id);
        EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), 0x2024) << id;
        SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
        SendMessageW(button, WM_KILLFOCUS, 0, 0);
        EXPECT_EQ(GetWindowLongPtrW(button, GWL_STYLE) & BS_TYPEMASK, BS_PUSHBUTTON) << id;
    }
}

// The pointer selects entries of an open list without a word, and Enter closes it on one of them.
TEST_F(MainDialog, TakesTheEntryThatAListIsClosedOn)
{
    Open();
    const HWND list = GetDlgItem(context_->hBasicTab, IDC_LAYOUT);
    COMBOBOXINFO info = {};
    info.cbSize = sizeof(info);
    ASSERT_TRUE(SendMessageW(list, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info)));
    SendMessageW(list, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(info.hwndList, LB_SETCURSEL, 2, 0);
    SendMessageW(list, WM_KEYDOWN, VK_RETURN, 1);
    WorkOffMessages();
    EXPECT_EQ(SendMessageW(list, CB_GETCURSEL, 0, 0), 2);
    ExpectFields(context_.record(), {{"dwPagesPerSheet", 4}, {"dwSavedNup", 4}});
}

TEST(SmallHelp, HangsBelowThePointerAndStaysOnTheDesktop)
{
    constexpr SIZE kDesktop = {1280, 1024};
    const std::pair<POINT, POINT> rows[] = {{{640, 300}, {427, 300}},
                                            {{1270, 300}, {849, 300}},
                                            {{10, 300}, {5, 300}},
                                            {{640, 1000}, {427, 678}}};
    for (const auto& [pointer, corner] : rows) {
        const RECT place = SmallHelpPlace(pointer, kDesktop);
        EXPECT_EQ(place.left, corner.x);
        EXPECT_EQ(place.top, corner.y);
        EXPECT_EQ(SizeOf(place).cx, 426);
        EXPECT_EQ(SizeOf(place).cy, 341);
    }
}

TEST(SidePanel, HidesAWebLinkThatIsOff)
{
    const World world;
    const std::tuple<int, int, bool> cases[] = {{0, 0x03, true},  {0, 0x81, true},  {0, 0x82, false},
                                                {0, 0x80, false}, {1, 0x03, false}, {2, 0x03, true}};
    for (const auto& [noWebLink, flags, shown] : cases) {
        SCOPED_TRACE(testing::Message() << noWebLink << ' ' << flags);
        const DialogContext context;
        const TestDialog dialog(IDD_MAIN);
        const LONG banner = SizeOf(PlaceOf(dialog, IDC_BANNER)).cx;
        Set(context.record(), "bNoWebLink", noWebLink);
        context->bWebFlags = static_cast<BYTE>(flags);
        RefreshSidePanel(dialog, context);
        EXPECT_EQ(IsShown(dialog, IDC_WEB_LINK), shown);
        EXPECT_EQ(IsWindowEnabled(dialog.Item(IDC_WEB_LINK)) != FALSE, shown);
        RECT client = {};
        GetClientRect(dialog, &client);
        EXPECT_EQ(SizeOf(PlaceOf(dialog, IDC_BANNER)).cx, shown ? banner : client.right);
    }
}

TEST(PaperLines, ShowThePaperAndItsScaling)
{
    constexpr std::string_view kModel = "*Paper A4: \"9\"\n*Paper User: \"256\"\n*Paper Strange: \"500\"\n";
    const World world;
    SetCountry(u"49");
    const DialogContext context(kModel);
    const TestDialog dialog(IDD_MAIN);
    BuildOptionTable(context, kPaperTable);
    const std::u16string a4 = LanguageText(9130), size = LanguageText(9202), from = LanguageText(9022),
                         custom = LanguageText(1215), to = LanguageText(IDS_SCALED_TO);
    constexpr int kLines[] = {IDC_LINE_PAPER, IDC_LINE_PAPER_SIZE, IDC_LINE_FIT_PAPER, IDC_LINE_SCALED_TO,
                              IDC_LINE_FIGURE};
    // The paper's place in its list, the record, the name of the user's size, and the lines.
    const std::tuple<size_t, const char*, const WCHAR*, std::vector<std::u16string>> cases[] = {
        {0, "bFitToPaper=0", u"", {a4, size, u"", u"", u""}},
        {0, "bFitToPaper=1 wOutputPaper=13", u"", {a4, size, from, to, LanguageText(9026)}},
        {0, "bFitToPaper=1 wOutputPaper=256", u"Mine", {a4, size, from, to, u"Mine"}},
        {1, "bFitToPaper=0", u"", {custom, u" \n", u"", u"", u""}},
        {1,
         "bFitToPaper=2 dmScale=80",
         u"Mine",
         {u"Mine", u" \n", u"Mine", to, LanguageText(8133) + u" 80 %"}},
        {2, "bFitToPaper=1 wOutputPaper=256", u"", {u"", u"", u"", to, custom}},
        {3, "bFitToPaper=1 wOutputPaper=256", u"", {u"", u"", u"", to, custom}},
    };
    for (const auto& [position, fields, name, expected] : cases) {
        lstrcpynW(context.record().dmPrivate.wszCustomName, name, 17);
        SetAll(context.record(), fields);
        ShowPaperOnMainDialog(dialog, context, position);
        std::vector<std::u16string> shown;
        for (const int line : kLines)
            shown.push_back(dialog.Text(line));
        EXPECT_EQ(shown, expected) << position << ' ' << fields;
    }
}

} // namespace
