// The list box, as a program sees it.
#include "tests/host/control_test.h"

namespace {

class ListBoxTest : public ControlTest
{
protected:
    ListBoxTest()
    {
        codes_ = {{LBN_SELCHANGE, "change"},
                  {LBN_DBLCLK, "double"},
                  {LBN_SETFOCUS, "focus"},
                  {LBN_KILLFOCUS, "blur"}};
    }

    /// Entries are 12 pixels high and four are visible.
    HWND MakeList(std::initializer_list<const char*> texts = {})
    {
        const HWND list = Make(TEXT("ListBox"), LBS_NOTIFY | WS_BORDER | WS_VSCROLL, kWidth, 52);
        Send(list, LB_SETITEMHEIGHT, 0, kEntryHeight);
        Resize(list, kWidth, 2 + 4 * kEntryHeight);
        for (const char* text : texts)
            Send(list, LB_ADDSTRING, 0, text);
        return list;
    }
    HWND MakeNumbers()
    {
        return MakeList({"one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten"});
    }

    static constexpr int kWidth = 120;
    static constexpr int kEntryHeight = 12;
};

TEST_F(ListBoxTest, EntriesKeepTextDataAndSelection)
{
    const HWND list = MakeList({"one", "two"});
    EXPECT_EQ(Send(list, LB_ADDSTRING, 0, "three"), 2);
    EXPECT_NE(Send(list, LB_SETITEMDATA, 1, 42), LB_ERR);
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 1), 42);
    WCHAR text[8];
    EXPECT_EQ(Send(list, LB_GETTEXTLEN, 1), 3);
    EXPECT_EQ(Send(list, LB_GETTEXT, 1, text), 3);
    EXPECT_EQ(Narrowed(text), "two");
    EXPECT_EQ(Send(list, LB_GETCURSEL), LB_ERR);
    for (const auto& [index, answer] : {std::pair{2, 2}, {3, LB_ERR}, {0, 0}, {-1, LB_ERR}})
        EXPECT_EQ(Send(list, LB_SETCURSEL, static_cast<WPARAM>(index)), answer);
    EXPECT_EQ(Send(list, LB_GETCURSEL), LB_ERR);
    for (const int index : {-1, 3, 0x7FFFFFFF}) {
        for (const UINT message : {LB_GETTEXTLEN, LB_GETITEMDATA, LB_SETITEMDATA, LB_DELETESTRING})
            EXPECT_EQ(Send(list, message, static_cast<WPARAM>(index)), LB_ERR) << message << " of " << index;
    }
    EXPECT_EQ(Told(), "") << "what the program does it is not told";
}

TEST_F(ListBoxTest, KeysMoveTheSelectionAndTellIt)
{
    const HWND list = MakeNumbers();
    SetFocus(list);
    EXPECT_EQ(Told(), "focus");
    const struct
    {
        UINT message;
        WPARAM key;
        int selection;
        int top;
        const char* told;
    } kSteps[] = {
        {WM_KEYDOWN, VK_DOWN, 0, 0, "change"},  {WM_KEYDOWN, VK_DOWN, 1, 0, "change"},
        {WM_KEYDOWN, VK_NEXT, 4, 1, "change"},  {WM_KEYDOWN, VK_NEXT, 7, 4, "change"},
        {WM_KEYDOWN, VK_PRIOR, 4, 4, "change"}, {WM_KEYDOWN, VK_END, 9, 6, "change"},
        {WM_KEYDOWN, VK_UP, 8, 6, "change"},    {WM_KEYDOWN, VK_HOME, 0, 0, "change"},
        {WM_KEYDOWN, VK_RIGHT, 1, 0, "change"}, {WM_KEYDOWN, VK_LEFT, 0, 0, "change"},
        {WM_KEYDOWN, VK_SPACE, 0, 0, ""},       {WM_KEYDOWN, 'T', 0, 0, ""},
        {WM_CHAR, 't', 1, 0, "change"},         {WM_CHAR, 't', 2, 0, "change"},
        {WM_CHAR, 'F', 3, 0, "change"},         {WM_CHAR, 'q', 3, 0, ""},
    };
    for (const auto& step : kSteps) {
        Send(list, step.message, step.key, 1);
        EXPECT_EQ(Send(list, LB_GETCURSEL), step.selection) << step.key;
        EXPECT_EQ(Send(list, LB_GETTOPINDEX), step.top) << step.key;
        EXPECT_EQ(Told(), step.told) << step.key;
    }
    SetFocus(parent_);
    EXPECT_EQ(Told(), "blur");
}

TEST_F(ListBoxTest, MouseSelectsAndTellsWhenItIsReleased)
{
    const HWND list = MakeNumbers();
    Press(list, 5, kEntryHeight + 1);
    EXPECT_EQ(GetFocus(), list);
    EXPECT_EQ(GetCapture(), list);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 1);
    EXPECT_EQ(Told(), "focus");
    Drag(list, 5, 2 * kEntryHeight + 1);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 2);
    Release(list, 5, 2 * kEntryHeight + 1);
    EXPECT_EQ(Told(), "change");
    EXPECT_EQ(GetCapture(), nullptr);
    PressAgain(list, 5, 2 * kEntryHeight + 1);
    Release(list, 5, 2 * kEntryHeight + 1);
    EXPECT_EQ(Told(), "double");
}

TEST_F(ListBoxTest, HeightIsAWholeNumberOfEntriesUnlessRefused)
{
    for (const DWORD style : {DWORD{0}, DWORD{LBS_NOINTEGRALHEIGHT}}) {
        const HWND list = Make(TEXT("ListBox"), WS_BORDER | style, kWidth, 100);
        Send(list, LB_SETITEMHEIGHT, 0, 13);
        Resize(list, kWidth, 101);
        EXPECT_EQ(HeightOf(list), style == 0 ? 2 + 7 * 13 : 101);
    }
}

TEST_F(ListBoxTest, ScrollingShowsWhatIsSelectedAndStopsAtTheLastEntry)
{
    const HWND list = MakeNumbers();
    const struct
    {
        UINT message;
        WPARAM wParam;
        int top;
    } kSteps[] = {
        {LB_SETTOPINDEX, 9, 6},   {WM_VSCROLL, SB_LINEUP, 5}, {WM_VSCROLL, SB_TOP, 0},
        {LB_SETCURSEL, 7, 4},     {LB_SETCURSEL, 0, 0},       {WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 3},
        {LB_SETITEMHEIGHT, 0, 3},
    };
    for (const auto& step : kSteps) {
        Send(list, step.message, step.wParam, step.message == LB_SETITEMHEIGHT ? kEntryHeight : 0);
        EXPECT_EQ(Send(list, LB_GETTOPINDEX), step.top) << step.message << ' ' << step.wParam;
    }
    RECT rect = {};
    Send(list, LB_GETITEMRECT, 5, &rect);
    EXPECT_EQ(rect.top, 2 * kEntryHeight);
    EXPECT_EQ(rect.bottom, 3 * kEntryHeight);
    EXPECT_EQ(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, kEntryHeight)), 4);
    SCROLLINFO info = {sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
    EXPECT_TRUE(GetScrollInfo(list, SB_VERT, &info));
    EXPECT_EQ(info.nMax, 9);
    EXPECT_EQ(info.nPage, 4u);
    EXPECT_EQ(info.nPos, 3);
}

TEST_F(ListBoxTest, ScrollBarComesWhenEntriesDoNotFit)
{
    const HWND list = MakeNumbers();
    RECT client = {};
    GetClientRect(list, &client);
    EXPECT_EQ(client.right, kWidth - 2 - GetSystemMetrics(SM_CXVSCROLL));
    Send(list, LB_RESETCONTENT);
    GetClientRect(list, &client);
    EXPECT_EQ(client.right, kWidth - 2);
}

TEST_F(ListBoxTest, OwnerDrawsEveryChange)
{
    const HWND list =
        Make(TEXT("ListBox"), LBS_NOTIFY | WS_BORDER | WS_VSCROLL | LBS_OWNERDRAWFIXED, kWidth, 72);
    EXPECT_EQ(Told(), "measure-1");
    EXPECT_EQ(Send(list, LB_GETITEMHEIGHT), 23);
    for (const LPARAM data : {5, 3, 9})
        Send(list, LB_ADDSTRING, 0, data);
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 1), 3);
    ExpectTold({
        {[=] { Repaint(list); }, "draw0 draw1 draw2"},
        {[=] { SetFocus(list); }, "focus0F focus"},
        {[=] { Key(list, VK_DOWN); }, "focus0 select0S focus0SF change"},
        {[=] { Key(list, VK_DOWN); }, "focus0S select0 select1S focus1SF change"},
        {[=] { SetFocus(parent_); }, "focus1S blur"},
        {[=] { Send(list, WM_SETREDRAW, FALSE), Send(list, LB_SETCURSEL, 2), Repaint(list); }, ""},
        {[=] { Send(list, WM_SETREDRAW, TRUE), Repaint(list, true); }, "draw0 draw1 draw2S"},
        {[=] { EnableWindow(list, FALSE), Repaint(list); }, "draw0D draw1D draw2SD"},
        {[=] { Send(list, LB_DELETESTRING, 1); }, "delete1=3"},
        {[=] { DestroyWindow(list); }, "delete1=9 delete0=5"},
    });
    EXPECT_EQ(drawnRect_.top, 46);
    EXPECT_EQ(drawnRect_.bottom, 69);
}

TEST_F(ListBoxTest, OwnerSaysEveryHeight)
{
    const HWND list = Make(TEXT("ListBox"), LBS_OWNERDRAWVARIABLE, kWidth, 100);
    for (const LPARAM data : {7, 3, 9})
        Send(list, LB_ADDSTRING, 0, data);
    EXPECT_EQ(Told(), "measure0 measure1 measure2");
    EXPECT_EQ(Send(list, LB_SETITEMHEIGHT, 0, 30), LB_OKAY);
    EXPECT_EQ(Send(list, LB_SETITEMHEIGHT, 0, 256), LB_ERR);
    RECT rect = {};
    Send(list, LB_GETITEMRECT, 2, &rect);
    EXPECT_EQ(rect.top, 30 + 21);
    EXPECT_EQ(rect.bottom, 30 + 21 + 22);
    EXPECT_EQ(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 35)), 1);
}

TEST_F(ListBoxTest, ListMayBeDestroyedByWhatItTells)
{
    onCommand_ = [](int code, HWND list) {
        if (code == LBN_SELCHANGE)
            DestroyWindow(list);
    };
    for (const bool byMouse : {false, true}) {
        const HWND list = MakeList({"one"});
        if (byMouse)
            Click(list);
        else
            Key(list, VK_DOWN);
        EXPECT_FALSE(IsWindow(list));
    }
}

} // namespace
