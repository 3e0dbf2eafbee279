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
