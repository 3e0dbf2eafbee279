// The list box, as a program sees it.
#include "tests/host/list_parent.h"

namespace {

constexpr LPCWSTR kNumbers[] = {TEXT("one"), TEXT("two"),   TEXT("three"), TEXT("four"), TEXT("five"),
                                TEXT("six"), TEXT("seven"), TEXT("eight"), TEXT("nine"), TEXT("ten")};

class ListBoxes : public OwnerDrawParent
{
protected:
    ListBoxes()
    {
        codes_ = {{LBN_SELCHANGE, "change"},
                  {LBN_DBLCLK, "double"},
                  {LBN_SETFOCUS, "focus"},
                  {LBN_KILLFOCUS, "blur"}};
    }

    /// Entries are 12 pixels high and four are visible.
    HWND MakeList(DWORD style)
    {
        const HWND list = Make(TEXT("ListBox"), LBS_NOTIFY | WS_BORDER | WS_VSCROLL | style, 120, 52);
        Send(list, LB_SETITEMHEIGHT, 0, kEntryHeight);
        SetWindowPos(list, nullptr, 0, 0, 120, 2 + 4 * kEntryHeight, SWP_NOMOVE | SWP_NOZORDER);
        return list;
    }
    HWND MakeNumbers(DWORD style)
    {
        const HWND list = MakeList(style);
        for (const LPCWSTR number : kNumbers)
            Send(list, LB_ADDSTRING, 0, number);
        return list;
    }

    static Wide TextAt(HWND list, int index)
    {
        WCHAR text[50] = {};
        return Send(list, LB_GETTEXT, static_cast<WPARAM>(index), text) == LB_ERR ? TEXT("(none)") : text;
    }

    /// Indices of the selected entries.
    static std::string Selected(HWND list)
    {
        std::string indices;
        for (int index = 0; index < Send(list, LB_GETCOUNT); ++index)
            indices +=
                Send(list, LB_GETSEL, static_cast<WPARAM>(index)) > 0 ? std::to_string(index) + " " : "";
        return indices;
    }

    static constexpr int kEntryHeight = 12;
};

TEST_F(ListBoxes, EntriesKeepTheirTextDataAndOrder)
{
    const HWND list = MakeList(0);
    EXPECT_EQ(Send(list, LB_ADDSTRING, 0, TEXT("pear")), 0);
    EXPECT_EQ(Send(list, LB_ADDSTRING, 0, TEXT("apple")), 1);
    EXPECT_EQ(Send(list, LB_INSERTSTRING, 1, TEXT("plum")), 1);
    EXPECT_EQ(Send(list, LB_INSERTSTRING, static_cast<WPARAM>(-1), TEXT("fig")), 3);
    EXPECT_EQ(Send(list, LB_INSERTSTRING, 9, TEXT("nut")), LB_ERR);
    EXPECT_NE(Send(list, LB_SETITEMDATA, 2, 42), LB_ERR);
    EXPECT_EQ(Send(list, LB_GETTEXTLEN, 2), 5);
    EXPECT_EQ(TextAt(list, 2), TEXT("apple"));
    EXPECT_EQ(Send(list, LB_DELETESTRING, 0), 3);
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 1), 42);
    EXPECT_EQ(TextAt(list, 2), TEXT("fig"));
    EXPECT_EQ(Send(list, LB_RESETCONTENT), LB_OKAY);
    EXPECT_EQ(Send(list, LB_GETCOUNT), 0);
}

TEST_F(ListBoxes, MessagesAboutNoEntryAreRefused)
{
    const HWND list = MakeNumbers(0);
    for (const int index : {-1, 10, 0x7FFFFFFF}) {
        for (const UINT message :
             {LB_GETTEXTLEN, LB_GETITEMDATA, LB_SETITEMDATA, LB_DELETESTRING, LB_SETCARETINDEX})
            EXPECT_EQ(Send(list, message, static_cast<WPARAM>(index)), LB_ERR) << message << " of " << index;
    }
    RECT rect;
    EXPECT_EQ(Send(list, LB_GETITEMRECT, 10, &rect), LB_ERR);
    EXPECT_EQ(Send(list, LB_GETSELCOUNT), LB_ERR);
    EXPECT_EQ(Send(list, LB_SETITEMHEIGHT, 0, 256), LB_ERR);
    EXPECT_EQ(Send(list, LB_GETCOUNT), 10);
}

TEST_F(ListBoxes, SortingIgnoresCaseAndInsertingDoesNotSort)
{
    const HWND list = MakeList(LBS_SORT);
    for (const LPCWSTR text : {TEXT("pear"), TEXT("Apple"), TEXT("ZEBRA"), TEXT("fig")})
        Send(list, LB_ADDSTRING, 0, text);
    Send(list, LB_INSERTSTRING, 0, TEXT("last"));
    Wide all;
    for (int index = 0; index < 5; ++index)
        all += TextAt(list, index) + TEXT(" ");
    EXPECT_EQ(all, TEXT("last Apple fig pear ZEBRA "));
}

TEST_F(ListBoxes, TextsAreFoundByBeginningAndWhole)
{
    const HWND list = MakeNumbers(0);
    const struct
    {
        UINT message;
        int after;
        LPCWSTR text;
        int found;
    } kCases[] = {
        {LB_FINDSTRING, -1, TEXT("t"), 1},        {LB_FINDSTRING, 1, TEXT("T"), 2},
        {LB_FINDSTRING, 9, TEXT("t"), 1},         {LB_FINDSTRING, 99, TEXT("f"), 3},
        {LB_FINDSTRING, -1, TEXT("onex"), -1},    {LB_FINDSTRINGEXACT, -1, TEXT("s"), -1},
        {LB_FINDSTRINGEXACT, -1, TEXT("SIX"), 5}, {LB_FINDSTRINGEXACT, 5, TEXT("six"), 5},
        {LB_SELECTSTRING, 3, TEXT("FI"), 4},      {LB_SELECTSTRING, -1, TEXT("q"), -1},
    };
    for (const auto& each : kCases)
        EXPECT_EQ(Send(list, each.message, static_cast<WPARAM>(each.after), each.text), each.found)
            << each.message << " after " << each.after;
    EXPECT_EQ(Send(list, LB_GETCURSEL), 4);
    EXPECT_EQ(Told(), "") << "what the program selects it is not told";
}

TEST_F(ListBoxes, SelectionFollowsItsEntry)
{
    const HWND list = MakeNumbers(0);
    EXPECT_EQ(Send(list, LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(Send(list, LB_SETCURSEL, 5), 5);
    Send(list, LB_INSERTSTRING, 0, TEXT("zero"));
    EXPECT_EQ(Send(list, LB_GETCURSEL), 6);
    Send(list, LB_DELETESTRING, 2);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 5);
    Send(list, LB_DELETESTRING, 5);
    EXPECT_EQ(Send(list, LB_GETCURSEL), LB_ERR);
    Send(list, LB_SETCURSEL, 1);
    EXPECT_EQ(Send(list, LB_SETCURSEL, 99), LB_ERR);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 1);
    EXPECT_EQ(Send(list, LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR);
    EXPECT_EQ(Send(list, LB_GETCURSEL), LB_ERR);
}

TEST_F(ListBoxes, KeysMoveTheSelectionAndTellIt)
{
    const HWND list = MakeNumbers(0);
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
    EXPECT_EQ(Send(list, WM_GETDLGCODE), DLGC_WANTARROWS | DLGC_WANTCHARS);
    SetFocus(parent_);
    EXPECT_EQ(Told(), "blur");
}

TEST_F(ListBoxes, MouseSelectsAndTellsWhenItIsReleased)
{
    const HWND list = MakeNumbers(0);
    Press(list, 5, kEntryHeight + 1);
    EXPECT_EQ(GetFocus(), list);
    EXPECT_EQ(GetCapture(), list);
    EXPECT_EQ(Send(list, LB_GETCURSEL), 1);
    EXPECT_EQ(Told(), "focus");
    Send(list, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 2 * kEntryHeight + 1));
    EXPECT_EQ(Send(list, LB_GETCURSEL), 2);
    Release(list, 5, 2 * kEntryHeight + 1);
    EXPECT_EQ(Told(), "change");
    EXPECT_EQ(GetCapture(), nullptr);
    Send(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 2 * kEntryHeight + 1));
    Release(list, 5, 2 * kEntryHeight + 1);
    EXPECT_EQ(Told(), "double");
}

TEST_F(ListBoxes, SeveralEntriesAreSelectedByClicksAndSpace)
{
    const HWND list = MakeNumbers(LBS_MULTIPLESEL);
    SetFocus(list);
    Key(list, VK_SPACE);
    EXPECT_EQ(Selected(list), "0 ");
    Click(list, 5, kEntryHeight + 1);
    Click(list, 5, 2 * kEntryHeight + 1);
    EXPECT_EQ(Selected(list), "0 1 2 ");
    Click(list, 5, kEntryHeight + 1);
    EXPECT_EQ(Selected(list), "0 2 ");
    EXPECT_EQ(Send(list, LB_SETSEL, TRUE, 5), LB_OKAY);
    EXPECT_EQ(Send(list, LB_SETSEL, FALSE, 0), LB_OKAY);
    EXPECT_EQ(Send(list, LB_GETSELCOUNT), 2);
    INT items[5] = {};
    EXPECT_EQ(Send(list, LB_GETSELITEMS, 5, items), 2);
    EXPECT_EQ(items[1], 5);
    EXPECT_EQ(Send(list, LB_SETCURSEL, 1), LB_ERR);
    Send(list, LB_SETSEL, TRUE, -1);
    EXPECT_EQ(Send(list, LB_GETSELCOUNT), 10);
}

TEST_F(ListBoxes, ExtendedSelectionTakesShiftAndControl)
{
    const HWND list = MakeNumbers(LBS_EXTENDEDSEL);
    Click(list, 5, kEntryHeight + 1);
    EXPECT_EQ(Selected(list), "1 ");
    Click(list, 5, 3 * kEntryHeight + 1, MK_SHIFT);
    EXPECT_EQ(Selected(list), "1 2 3 ");
    Click(list, 5, 2 * kEntryHeight + 1, MK_CONTROL);
    EXPECT_EQ(Selected(list), "1 3 ");
    Click(list, 5, 1);
    EXPECT_EQ(Selected(list), "0 ");
    Key(list, VK_DOWN);
    EXPECT_EQ(Selected(list), "1 ");
}

TEST_F(ListBoxes, HeightIsAWholeNumberOfEntriesUnlessRefused)
{
    for (const DWORD style : {DWORD{0}, DWORD{LBS_NOINTEGRALHEIGHT}}) {
        const HWND list = Make(TEXT("ListBox"), WS_BORDER | style, 120, 100);
        Send(list, LB_SETITEMHEIGHT, 0, 13);
        SetWindowPos(list, nullptr, 0, 0, 120, 101, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_EQ(HeightOf(list), style == 0 ? 2 + 7 * 13 : 101);
        DestroyWindow(list);
    }
}

TEST_F(ListBoxes, ScrollingStopsAtTheLastEntry)
{
    const HWND list = MakeNumbers(0);
    Send(list, LB_SETTOPINDEX, 3);
    RECT rect = {};
    EXPECT_NE(Send(list, LB_GETITEMRECT, 5, &rect), LB_ERR);
    EXPECT_EQ(rect.top, 2 * kEntryHeight);
    EXPECT_EQ(rect.bottom, 3 * kEntryHeight);
    EXPECT_NE(Send(list, LB_GETITEMRECT, 1, &rect), LB_ERR);
    EXPECT_EQ(rect.top, -2 * kEntryHeight);
    EXPECT_EQ(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, kEntryHeight)), 4);
    EXPECT_EQ(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 500)), static_cast<int>(MAKELONG(6, 1)));
    EXPECT_EQ(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, -5)), static_cast<int>(MAKELONG(3, 1)));
    Send(list, LB_SETTOPINDEX, 9);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 6);

    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    EXPECT_TRUE(GetScrollInfo(list, SB_VERT, &info));
    EXPECT_EQ(info.nMax, 9);
    EXPECT_EQ(info.nPage, 4u);
    EXPECT_EQ(info.nPos, 6);
    Send(list, WM_VSCROLL, SB_LINEUP);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 5);
    Send(list, WM_VSCROLL, SB_TOP);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 0);
    Send(list, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 3);
    Send(list, LB_SETCURSEL, 0);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 0);
    Send(list, LB_SETCURSEL, 7);
    EXPECT_EQ(Send(list, LB_GETTOPINDEX), 4);
}

TEST_F(ListBoxes, ScrollBarComesWhenEntriesDoNotFit)
{
    const HWND list = MakeList(0);
    RECT client = {};
    GetClientRect(list, &client);
    EXPECT_EQ(client.right, 118);
    for (const LPCWSTR number : kNumbers)
        Send(list, LB_ADDSTRING, 0, number);
    GetClientRect(list, &client);
    EXPECT_EQ(client.right, 118 - GetSystemMetrics(SM_CXVSCROLL));
    Send(list, LB_RESETCONTENT);
    GetClientRect(list, &client);
    EXPECT_EQ(client.right, 118);
}

TEST_F(ListBoxes, OwnerDrawsEveryChange)
{
    const HWND list =
        Make(TEXT("ListBox"), LBS_NOTIFY | WS_BORDER | WS_VSCROLL | LBS_OWNERDRAWFIXED, 120, 72);
    EXPECT_EQ(Told(), "measure-1");
    EXPECT_EQ(Send(list, LB_GETITEMHEIGHT), 23);
    for (const LPARAM data : {5, 3, 9})
        Send(list, LB_ADDSTRING, 0, data);
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 1), 3);
    EXPECT_EQ(Send(list, LB_FINDSTRING, static_cast<WPARAM>(-1), 9), 2);
    UpdateWindow(list);
    EXPECT_EQ(Told(), "draw0 draw1 draw2");
    EXPECT_EQ(drawnRect_.top, 46);
    EXPECT_EQ(drawnRect_.bottom, 69);
    SetFocus(list);
    EXPECT_EQ(Told(), "focus0F focus");
    Key(list, VK_DOWN);
    EXPECT_EQ(Told(), "focus0 select0S focus0SF change");
    Key(list, VK_DOWN);
    EXPECT_EQ(Told(), "focus0S select0 select1S focus1SF change");
    SetFocus(parent_);
    EXPECT_EQ(Told(), "focus1S blur");
    EnableWindow(list, FALSE);
    UpdateWindow(list);
    EXPECT_EQ(Told(), "draw0D draw1SD draw2D");
    Send(list, LB_DELETESTRING, 1);
    EXPECT_EQ(Told(), "delete1=3");
    DestroyWindow(list);
    EXPECT_EQ(Told(), "delete1=9 delete0=5");
}

TEST_F(ListBoxes, OwnerSaysEveryHeightAndOrder)
{
    const HWND list = Make(TEXT("ListBox"), LBS_OWNERDRAWVARIABLE | LBS_SORT, 120, 100);
    EXPECT_EQ(Told(), "");
    for (const LPARAM data : {7, 3, 9})
        Send(list, LB_ADDSTRING, 0, data);
    EXPECT_EQ(Told(), "measure0 measure0 measure2");
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 0), 3);
    EXPECT_EQ(Send(list, LB_GETITEMDATA, 2), 9);
    EXPECT_EQ(Send(list, LB_GETITEMHEIGHT, 2), 22);
    EXPECT_EQ(Send(list, LB_SETITEMHEIGHT, 0, 30), LB_OKAY);
    RECT rect = {};
    Send(list, LB_GETITEMRECT, 2, &rect);
    EXPECT_EQ(rect.top, 50);
    EXPECT_EQ(rect.bottom, 72);
    EXPECT_EQ(Send(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(5, 35)), 1);
}

TEST_F(ListBoxes, NothingIsDrawnWhileRedrawIsOff)
{
    const HWND list = Make(TEXT("ListBox"), LBS_OWNERDRAWFIXED | WS_BORDER, 120, 72);
    Send(list, LB_ADDSTRING, 0, 5);
    UpdateWindow(list);
    Told();
    Send(list, WM_SETREDRAW, FALSE);
    Send(list, LB_SETCURSEL, 0);
    UpdateWindow(list);
    EXPECT_EQ(Told(), "");
    Send(list, WM_SETREDRAW, TRUE);
    InvalidateRect(list, nullptr, TRUE);
    UpdateWindow(list);
    EXPECT_EQ(Told(), "draw0S");
}

/// A program may close its dialog from within a notification.
class ClosingListBoxes : public ListParent
{
protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_COMMAND && lParam != 0 && HIWORD(wParam) == LBN_SELCHANGE)
            DestroyWindow(reinterpret_cast<HWND>(lParam));
        return ListParent::OnMessage(message, wParam, lParam);
    }
};

TEST_F(ClosingListBoxes, ListMayBeDestroyedByWhatItTells)
{
    for (const bool byMouse : {false, true}) {
        const HWND list = Make(TEXT("ListBox"), LBS_NOTIFY, 100, 100);
        Send(list, LB_ADDSTRING, 0, TEXT("one"));
        if (byMouse)
            Click(list, 5, 5);
        else
            Key(list, VK_DOWN);
        EXPECT_FALSE(IsWindow(list));
    }
}

} // namespace
