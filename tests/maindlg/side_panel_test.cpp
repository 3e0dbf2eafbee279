// The side panel on the real main dialog.
#include "psui/maindlg/side_panel.h"
#include <tuple>

#include "lang/ids/dialogs.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"
#include "psui/maindlg/option_tables.h"
#include "tests/maindlg/dialog_context.h"
#include "tests/maindlg/test_dialog.h"

namespace {

using namespace psui;
using namespace test;

bool IsShown(HWND window)
{
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

LONG WidthOf(HWND window)
{
    RECT box = {};
    GetWindowRect(window, &box);
    return box.right - box.left;
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
        const LONG banner = WidthOf(dialog.Item(IDC_BANNER));
        Set(context.record(), "bNoWebLink", noWebLink);
        context->bWebFlags = static_cast<BYTE>(flags);
        RefreshSidePanel(dialog, context);
        EXPECT_EQ(IsShown(dialog.Item(IDC_WEB_LINK)), shown);
        EXPECT_EQ(IsWindowEnabled(dialog.Item(IDC_WEB_LINK)) != FALSE, shown);
        RECT client = {};
        GetClientRect(dialog, &client);
        EXPECT_EQ(WidthOf(dialog.Item(IDC_BANNER)), shown ? banner : client.right);
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
    const std::u16string custom = LanguageText(1215), scaledTo = LanguageText(IDS_SCALED_TO);
    const struct
    {
        size_t position;
        int fit, output, scale;
        const WCHAR* name;
        std::u16string paper, size, from, to, figure;
    } cases[] = {
        {0, 0, 13, 80, u"", LanguageText(9130), LanguageText(9202), u"", u"", u""},
        {0, 1, 13, 80, u"", LanguageText(9130), LanguageText(9202), LanguageText(9022), scaledTo,
         LanguageText(9026)},
        {0, 1, 256, 80, u"Mine", LanguageText(9130), LanguageText(9202), LanguageText(9022), scaledTo,
         u"Mine"},
        {1, 0, 13, 80, u"", custom, u" \n", u"", u"", u""},
        {1, 2, 13, 80, u"Mine", u"Mine", u" \n", u"Mine", scaledTo, LanguageText(8133) + u" 80 %"},
        {2, 1, 256, 80, u"", u"", u"", u"", scaledTo, custom},
        {3, 1, 13, 80, u"", u"", u"", u"", scaledTo, custom},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.position << ' ' << c.fit);
        auto& priv = context.record().dmPrivate;
        lstrcpynW(priv.wszCustomName, c.name, 17);
        SetAll(context.record(), {{"bFitToPaper", c.fit}, {"wOutputPaper", c.output}, {"dmScale", c.scale}});
        ShowPaperOnMainDialog(dialog, context, c.position);
        EXPECT_EQ(dialog.Text(IDC_LINE_PAPER), c.paper);
        EXPECT_EQ(dialog.Text(IDC_LINE_PAPER_SIZE), c.size);
        EXPECT_EQ(dialog.Text(IDC_LINE_FIT_PAPER), c.from);
        EXPECT_EQ(dialog.Text(IDC_LINE_SCALED_TO), c.to);
        EXPECT_EQ(dialog.Text(IDC_LINE_FIGURE), c.figure);
    }
}

} // namespace
