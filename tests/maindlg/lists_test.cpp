// The option tables, and the lists of the tabs on the real dialogs of the language modules.
#include "psui/maindlg/option_lists.h"

#include <tuple>

#include "lang/ids/advanced_tab.h"
#include "lang/ids/basic_tab.h"
#include "lang/ids/dialogs.h"
#include "lang/ids/strings.h"
#include "lang/ids/user_paper.h"
#include "psui/maindlg/combo_list.h"
#include "psui/maindlg/option_tables.h"
#include "tests/entry/fail_each.h"
#include "tests/maindlg/dialog_context.h"
#include "tests/maindlg/test_dialog.h"

namespace {

using namespace psui;
using namespace test;

/// Text ids and values of a table.
std::string Rows(const PrinterUiContext* context, int index)
{
    std::string rows;
    for (const OptionRow& row : OptionTable(context, static_cast<OptionTableIndex>(index)))
        rows += std::to_string(row.wStringId) + ":" + std::to_string(row.dwValue) + " ";
    return rows;
}

constexpr const char* kBuiltin[] = {
    "1240:1 1241:261 1243:263 1244:264 ",
    "9130:9 9131:1 9132:5 9133:7 9134:13 9135:11 9136:70 9137:265 9138:266 9139:272 9140:273 9141:43 9142:82 "
    "9143:28 9144:20 9145:27 9146:37 9147:91 1215:256 ",
    "0:2 0:1 0:4 ",
    "0:1 0:0 0:2 ",
    "0:64 0:0 ",
    "0:2 0:1 ",
    "0:0 0:1 0:2 0:3 ",
    "1280:0 1281:1 1282:2 1283:3 1284:4 ",
};

TEST(OptionTables, HoldTheNumbersOfTheModelsOptions)
{
    const World world;
    const DialogContext context;
    const std::pair<OptionTableIndex, const char*> cases[] = {
        {kPaperTable, "0:9 0:1 0:256 0:274 0:0 "},
        {kSourceTable, "0:7 0:1 0:0 0:4 "},
        {kColorTable, "0:1 0:2 "},
        {kThicknessTable, "0:4 "},
        {kIcmTable, ""},
    };
    for (const auto& [index, rows] : cases) {
        EXPECT_EQ(Rows(context, index), "") << "before it is built";
        BuildOptionTable(context, index);
        EXPECT_EQ(Rows(context, index), rows);
        EXPECT_FALSE(IsBuiltinTable(context, index));
    }
    EXPECT_EQ(OptionValueAt(context, kColorTable, 1, 77), 2u);
    EXPECT_EQ(OptionValueAt(context, kColorTable, 2, 77), 77u);
}

TEST(OptionTables, AreBuiltInWithoutMemory)
{
    const World world;
    for (int index = 0; index < kOptionTables; ++index) {
        const DialogContext context;
        const auto build = [&] { BuildOptionTable(context, static_cast<OptionTableIndex>(index)); };
        build();
        const std::string whole = Rows(context, index);
        FailEach(kAllocations, build, build, [&](bool failed) {
            EXPECT_EQ(Rows(context, index), failed ? kBuiltin[index] : whole);
            build();
        });
    }
}

/// Texts and item data of a list, an entry a line; the selected one is marked.
std::u16string Entries(const TestDialog& dialog, int control)
{
    std::u16string entries;
    const int count = static_cast<int>(dialog.Send(control, CB_GETCOUNT));
    for (int entry = 0; entry < count; ++entry) {
        WCHAR text[kEntryUnits] = {};
        dialog.Send(control, CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text));
        const std::string data = std::to_string(dialog.Send(control, CB_GETITEMDATA, entry));
        entries += text + (u" = " + std::u16string(data.begin(), data.end()));
        entries += entry == dialog.Send(control, CB_GETCURSEL) ? u" *\n" : u"\n";
    }
    return entries;
}

struct Expected
{
    UINT text; ///< string id; 0 for no text
    int64_t value;
};

std::u16string EntriesOf(const std::vector<Expected>& expected, int selected)
{
    std::u16string entries;
    for (int i = 0; i < static_cast<int>(expected.size()); ++i) {
        const std::string data = std::to_string(expected[i].value);
        entries += (expected[i].text ? LanguageText(expected[i].text) : u"") + u" = " +
                   std::u16string(data.begin(), data.end()) + (i == selected ? u" *\n" : u"\n");
    }
    return entries;
}

class Lists : public testing::TestWithParam<const char*>
{
protected:
    World world_{GetParam()};

    bool Japanese() const { return std::string_view(GetParam()) == "jpn"; }
};

INSTANTIATE_TEST_SUITE_P(Languages, Lists, testing::Values("eng", "jpn"),
                         [](const auto& language) { return std::string(language.param); });

constexpr std::string_view kListModel = R"(*Paper A4: "9"
*Paper A4_BL: "274"
*Paper User: "256"
*Paper Strange: "500"
*Paper Ledger: "3"
*MediaType Plain_Paper: "1"
*MediaType GlossyHagakiATN: "272"
*MediaType Velvet: "999"
*MediaType Glossy_Paper: "262"
*Tray Feeder: "7"
*Tray Tray1: "1"
*Tray Manual: "4"
*Thickness Regular: "0"
*Thickness Envelope: "4"
)";

TEST_P(Lists, OfMediaShowTheModelsNames)
{
    const DialogContext context(kListModel);
    const TestDialog tab(IDD_BASIC);
    std::vector<Expected> expected = {{1240, 1}, {0, 999}, {1242, 262}};
    if (Japanese())
        expected.insert(expected.begin() + 1, {1251, 272});
    const int last = static_cast<int>(expected.size()) - 1;
    const std::pair<DWORD, int> cases[] = {{262, last}, {1, 0}, {999, last - 1}, {12345, 0}};
    for (const auto& [media, selected] : cases) {
        BuildMediaList(tab, context, media);
        EXPECT_EQ(Entries(tab, IDC_MEDIA), EntriesOf(expected, selected)) << media;
    }
}

TEST_P(Lists, OfPapersNameTheUsersOwnSize)
{
    const DialogContext context(kListModel);
    const TestDialog tab(IDD_BASIC);
    const std::vector<Expected> expected = {{9130, 9}, {9151, 274}, {9162, 256}, {0, 500}, {9171, 3}};
    BuildPaperList(tab, context);
    EXPECT_EQ(Entries(tab, IDC_PAPER), EntriesOf(expected, 0));
    EXPECT_EQ(context->dwUserPaperPosition, 2u);

    const std::u16string own = u"Poster A 17 units (" + LanguageText(IDS_CUSTOM_SIZE) + u")";
    std::copy_n(u"Poster A 17 units", 17, context.record().dmPrivate.wszCustomName);
    BuildPaperList(tab, context);
    std::u16string entries = EntriesOf(expected, 0);
    const std::u16string unnamed = LanguageText(9162);
    entries.replace(entries.find(unnamed), unnamed.size(), own + u"...");
    EXPECT_EQ(Entries(tab, IDC_PAPER), entries);

    BuildFitPaperList(tab, context, IDC_PAPER);
    EXPECT_EQ(Entries(tab, IDC_PAPER),
              LanguageText(9130) + u" = 9 *\n" + own + u" = 256\n" + LanguageText(9171) + u" = 3\n");
}

TEST_P(Lists, OfPapersToFitToNeedNoOtherList)
{
    const DialogContext context(kListModel);
    const TestDialog tab(IDD_ADVANCED);
    BuildFitPaperList(tab, context, IDC_FIT_PAPER);
    EXPECT_EQ(Entries(tab, IDC_FIT_PAPER), EntriesOf({{9130, 9}, {1215, 256}, {9171, 3}}, 0));
}

TEST_P(Lists, AreEmptyForAModelWithoutOptions)
{
    const DialogContext context(kEmptyModel);
    const TestDialog tab(IDD_BASIC);
    BuildPaperList(tab, context);
    BuildMediaList(tab, context, 1);
    BuildSourceList(tab, context, 7);
    for (const int control : {IDC_PAPER, IDC_MEDIA, IDC_SOURCE})
        EXPECT_EQ(Entries(tab, control), u"") << control;
    EXPECT_EQ(context->dwUserPaperPosition, kNoUserPaper);
}

TEST_P(Lists, AreBuiltInWithoutMemory)
{
    const DialogContext context(kListModel);
    const TestDialog tab(IDD_BASIC), paperDialog(IDD_USER_PAPER);
    const auto build = [&](auto builder) {
        host::FailAllocations(0, false);
        builder();
        host::StopFailing();
    };
    build([&] { BuildPaperList(tab, context); });
    std::vector<Expected> papers;
    for (const OptionRow& row : OptionTable(context, kPaperTable))
        papers.push_back({row.wStringId, row.dwValue});
    EXPECT_EQ(Entries(tab, IDC_PAPER), EntriesOf(papers, 0));
    EXPECT_EQ(context->dwUserPaperPosition, 18u);
    build([&] { BuildMediaList(tab, context, 263); });
    EXPECT_EQ(Entries(tab, IDC_MEDIA), EntriesOf({{1240, 1}, {1241, 261}, {1243, 263}, {1244, 264}}, 2));
    build([&] { BuildSourceList(tab, context, 4); });
    EXPECT_EQ(Entries(tab, IDC_SOURCE), EntriesOf({{1271, 2}, {1272, 1}, {1273, 4}}, 2));
    build([&] { BuildThicknessList(paperDialog, context, 3); });
    EXPECT_EQ(Entries(paperDialog, IDC_THICKNESS),
              EntriesOf({{1280, 0}, {1281, 1}, {1282, 2}, {1283, 3}, {1284, 4}}, 3));
}

TEST_P(Lists, OfSourcesGoByPlace)
{
    const DialogContext context(kListModel);
    const TestDialog tab(IDD_BASIC);
    BuildSourceList(tab, context, 4);
    EXPECT_EQ(Entries(tab, IDC_SOURCE), EntriesOf({{1271, 7}, {1272, 1}, {1273, 4}}, 2));
    EXPECT_TRUE(IsWindowEnabled(tab.Item(IDC_SOURCE)));
}

TEST_P(Lists, OfOneSourceAreNotShown)
{
    const DialogContext context("*Tray Feeder: \"7\"\n");
    const TestDialog tab(IDD_BASIC);
    SetDlgItemTextW(tab, IDC_SOURCE_LABEL, TEXT("&Source"));
    BuildSourceList(tab, context, 7);
    EXPECT_EQ(Entries(tab, IDC_SOURCE), EntriesOf({{1270, 7}}, 0));
    for (const int control : {IDC_SOURCE_LABEL, IDC_SOURCE}) {
        EXPECT_FALSE(IsWindowEnabled(tab.Item(control)));
        EXPECT_EQ(GetWindowLongPtrW(tab.Item(control), GWL_STYLE) & WS_VISIBLE, 0);
    }
    EXPECT_EQ(tab.Text(IDC_SOURCE_LABEL), u"&&&~Source");
}

TEST_P(Lists, OfThicknessStandOnlyInTheirDialog)
{
    const DialogContext context(kListModel);
    const TestDialog tab(IDD_BASIC), paperDialog(IDD_USER_PAPER);
    BuildThicknessList(tab, context, 4);
    EXPECT_EQ(OptionTable(context, kThicknessTable).size(), 2u);
    BuildThicknessList(paperDialog, context, 4);
    EXPECT_EQ(Entries(paperDialog, IDC_THICKNESS), EntriesOf({{1280, 0}, {1284, 4}}, 1));
}

TEST_P(Lists, OfPageOrdersDependOnTheLayout)
{
    const TestDialog tab(IDD_BASIC);
    const std::vector<Expected> many = {{8105, 0}, {8104, 1}, {8107, 2}, {8106, 3}},
                                two = {{8100, 0}, {8101, 2}}, landscape = {{8102, 0}};
    const std::tuple<int, int, int, const std::vector<Expected>&, int> cases[] = {
        {4, 1, 3, many, 3},      {4, 2, 0, many, 0},      {1, 1, 9, many, -1}, {2, 1, 0, two, 0},
        {2, 1, 5, two, 0},       {2, 1, 2, two, 1},       {2, 1, 7, two, 1},   {2, 2, 0, landscape, 0},
        {2, 2, 3, landscape, 0}, {2, 2, 4, landscape, -1}};
    for (const auto& [pages, orientation, order, entries, selected] : cases) {
        const DialogContext context(kListModel);
        SetAll(context.record(),
               {{"dwPagesPerSheet", pages}, {"dmOrientation", orientation}, {"bPageOrder", order}});
        BuildPageOrderList(tab, context);
        EXPECT_EQ(Entries(tab, IDC_PAGE_ORDER), EntriesOf(entries, selected))
            << pages << ' ' << orientation << ' ' << order;
    }
}

TEST_P(Lists, OfBorderLinesMendTheRecord)
{
    const TestDialog tab(IDD_BASIC);
    SetBorderLineItemHeight(tab);
    RECT label = {};
    GetWindowRect(tab.Item(IDC_BORDER_LINE_LABEL), &label);
    const int item = static_cast<int>(label.bottom - label.top) - (Japanese() ? 4 : 5);
    EXPECT_EQ(tab.Send(IDC_BORDER_LINE, CB_GETITEMHEIGHT, 0), item);
    const std::tuple<int, int, int> cases[] = {{0, 2, 0}, {1, 0, 1}, {2, 1, 2},
                                               {3, 0, 3}, {4, 0, 1}, {255, 0, 1}};
    for (const auto& [line, selected, newLine] : cases) {
        const DialogContext context(kListModel);
        Set(context.record(), "bBorderLine", line);
        BuildBorderLineList(tab, context);
        EXPECT_EQ(Entries(tab, IDC_BORDER_LINE), EntriesOf({{8008, 1}, {8009, 2}, {8007, 0}}, selected));
        ExpectFields(context.record(), {{"bBorderLine", newLine}});
    }
    RECT dropped = {};
    tab.Send(IDC_BORDER_LINE, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    EXPECT_EQ(dropped.bottom - dropped.top, DroppedHeight(tab.Item(IDC_BORDER_LINE), 4, 5));
}

TEST(ListEntries, AreFoundByTheirDataFromEitherEnd)
{
    const World world;
    const TestDialog tab(IDD_BASIC);
    {
        ComboFiller filler(tab, IDC_SOURCE);
        for (const int value : {7, 1, 4, 1})
            filler.Add(TEXT("x"), value);
    }
    EXPECT_TRUE(SelectByItemData(tab, IDC_SOURCE, 1));
    EXPECT_EQ(tab.Send(IDC_SOURCE, CB_GETCURSEL), 1);
    EXPECT_TRUE(SelectByItemData(tab, IDC_SOURCE, 1, true));
    EXPECT_EQ(tab.Send(IDC_SOURCE, CB_GETCURSEL), 3);
    EXPECT_FALSE(SelectByItemData(tab, IDC_SOURCE, 9, true));
    EXPECT_EQ(tab.Send(IDC_SOURCE, CB_GETCURSEL), 0);
}

} // namespace
