// The combo box, as a program sees it.
#include "tests/host/control_test.h"
#include "tests/host/wine.h"

namespace {

class ComboBoxTest : public ControlTest
{
protected:
    ComboBoxTest()
    {
        codes_ = {
            {CBN_SELCHANGE, "change"},      {CBN_SETFOCUS, "focus"},        {CBN_KILLFOCUS, "blur"},
            {CBN_EDITCHANGE, "editchange"}, {CBN_EDITUPDATE, "editupdate"}, {CBN_DROPDOWN, "drop"},
            {CBN_CLOSEUP, "close"},         {CBN_SELENDOK, "ok"},           {CBN_SELENDCANCEL, "cancel"}};
    }

    static HWND MakeCombo(DWORD style, std::initializer_list<const char*> texts = {})
    {
        const HWND combo = Make(TEXT("ComboBox"), WS_VSCROLL | style, 120, 200);
        Send(combo, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)));
        for (const char* text : texts)
            Send(combo, CB_ADDSTRING, 0, text);
        return combo;
    }
    static HWND MakeNumbers(DWORD style)
    {
        return MakeCombo(style, {"one", "two", "three", "four", "five", "six"});
    }

    static COMBOBOXINFO InfoOf(HWND combo)
    {
        COMBOBOXINFO info = {};
        info.cbSize = sizeof info;
        EXPECT_TRUE(Send(combo, CB_GETCOMBOBOXINFO, 0, &info));
        return info;
    }
    static bool IsDropped(HWND combo) { return Send(combo, CB_GETDROPPEDSTATE) != 0; }
};

TEST_F(ComboBoxTest, ClosedHeightIsTheFieldsAndTheRestIsTheLists)
{
    const HWND combo = MakeCombo(CBS_DROPDOWNLIST | CBS_NOINTEGRALHEIGHT);
    EXPECT_NE(Send(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), 24), CB_ERR);
    EXPECT_EQ(HeightOf(combo), 30);
    for (int i = 0; i < 50; ++i)
        Send(combo, CB_ADDSTRING, 0, "entry");
    Resize(combo, 140, 130);
    EXPECT_EQ(HeightOf(combo), 30);

    Send(combo, CB_SHOWDROPDOWN, TRUE);
    const HWND list = InfoOf(combo).hwndList;
    const RECT expected = {10, 40, 150, 140};
    RECT dropped = RectOf(list);
    EXPECT_TRUE(EqualRect(&dropped, &expected));
    Send(combo, CB_SHOWDROPDOWN, FALSE);
    EXPECT_FALSE(IsWindowVisible(list));

    Send(combo, CB_RESETCONTENT);
    Send(combo, CB_ADDSTRING, 0, "entry");
    Send(combo, CB_SHOWDROPDOWN, TRUE);
    EXPECT_EQ(HeightOf(list), 2 + Send(combo, CB_GETITEMHEIGHT)) << "no higher than its entries";
    if (OnWine())
        return; // it counts the field twice
    // A height without room for a list leaves the list as it was: programs move combo boxes at their closed
    // size.
    for (const int height : {130, 30}) {
        Resize(combo, 140, height);
        EXPECT_TRUE(Send(combo, CB_GETDROPPEDCONTROLRECT, 0, &dropped));
        EXPECT_EQ(dropped.bottom - dropped.top, 130);
    }
}

TEST_F(ComboBoxTest, FieldShowsTheSelectedEntryOfASortedList)
{
    const HWND combo = MakeCombo(CBS_DROPDOWNLIST | CBS_SORT);
    for (const char* text : {"pear", "fig", "Apple"})
        EXPECT_EQ(Send(combo, CB_ADDSTRING, 0, text), 0);
    EXPECT_NE(Send(combo, CB_SETITEMDATA, 1, 42), CB_ERR);
    EXPECT_EQ(Send(combo, CB_GETITEMDATA, 1), 42);
    EXPECT_EQ(Send(combo, CB_GETITEMDATA, 7), CB_ERR);
    EXPECT_EQ(Send(combo, CB_GETLBTEXTLEN, 0), 5);
    WCHAR text[20] = {};
    EXPECT_EQ(Send(combo, CB_GETLBTEXT, 0, text), 5);
    EXPECT_EQ(Narrowed(text), "Apple");
    EXPECT_EQ(Send(combo, CB_SETCURSEL, 2), 2);
    EXPECT_EQ(TextOf(combo), "pear");
    Send(combo, CB_RESETCONTENT);
    EXPECT_EQ(Send(combo, CB_GETCOUNT), 0);
    EXPECT_EQ(TextOf(combo), "");
    EXPECT_EQ(Told(), "delete1=42") << "an entry with data says that it goes";
}

TEST_F(ComboBoxTest, KeysOfADropDownListTellInOrder)
{
    const HWND combo = MakeNumbers(CBS_DROPDOWNLIST);
    SetFocus(combo);
    EXPECT_EQ(Told(), "focus");
    const struct
    {
        UINT message;
        WPARAM key;
        int selection;
        bool dropped;
        const char* told;
    } kSteps[] = {
        {WM_KEYDOWN, VK_DOWN, 0, false, "ok change"},  {WM_KEYDOWN, VK_RIGHT, 1, false, "ok change"},
        {WM_KEYDOWN, VK_END, 5, false, "ok change"},   {WM_KEYDOWN, VK_HOME, 0, false, "ok change"},
        {WM_CHAR, 't', 1, false, "ok change"},         {WM_CHAR, 'q', 1, false, ""},
        {WM_KEYDOWN, VK_F4, 1, true, "drop"},          {WM_KEYDOWN, VK_DOWN, 2, true, "change"},
        {WM_KEYDOWN, VK_RETURN, 2, false, "ok close"}, {WM_KEYDOWN, VK_F4, 2, true, "drop"},
        {WM_KEYDOWN, VK_UP, 1, true, "change"},        {WM_KEYDOWN, VK_ESCAPE, 1, false, "cancel close"},
        {WM_SYSKEYDOWN, VK_DOWN, 1, true, "drop"},     {WM_SYSKEYDOWN, VK_UP, 1, false, "cancel close"},
        {WM_KEYDOWN, VK_F4, 1, true, "drop"},          {WM_KEYDOWN, VK_F4, 1, false, "cancel close"},
    };
    for (const auto& step : kSteps) {
        Send(combo, step.message, step.key, step.message == WM_SYSKEYDOWN ? 0x20000001 : 1);
        EXPECT_EQ(Send(combo, CB_GETCURSEL), step.selection) << step.key;
        EXPECT_EQ(IsDropped(combo), step.dropped) << step.key;
        EXPECT_EQ(Told(), step.told) << step.key;
    }
    SetFocus(parent_);
    EXPECT_EQ(Told(), "cancel blur");
}

TEST_F(ComboBoxTest, DialogLeavesEnterAndEscapeToAnOpenList)
{
    const HWND combo = MakeNumbers(CBS_DROPDOWNLIST);
    MSG escape = {combo, WM_KEYDOWN, VK_ESCAPE, 1, 0, {}};
    EXPECT_EQ(Send(combo, WM_GETDLGCODE, VK_ESCAPE, &escape), DLGC_WANTARROWS | DLGC_WANTCHARS);
    Send(combo, CB_SHOWDROPDOWN, TRUE);
    EXPECT_EQ(Send(combo, WM_GETDLGCODE, VK_ESCAPE, &escape),
              DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTMESSAGE);
}

TEST_F(ComboBoxTest, MousePicksFromTheOpenList)
{
    const HWND combo = MakeNumbers(CBS_DROPDOWNLIST);
    const HWND list = InfoOf(combo).hwndList;
    const int height = Send(combo, CB_GETITEMHEIGHT);
    Send(combo, CB_SETCURSEL, 0);
    Click(combo, 115, 8);
    EXPECT_EQ(Told(), "focus drop");
    EXPECT_TRUE(IsDropped(combo));
    EXPECT_EQ(GetCapture(), list);
    Send(list, WM_MOUSEMOVE, 0, MAKELPARAM(10, 2 * height + 1));
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 2);
    EXPECT_EQ(Told(), "");
    Click(list, 10, 3 * height + 1);
    EXPECT_EQ(Told(), "ok close change");
    EXPECT_FALSE(IsDropped(combo));
    EXPECT_EQ(TextOf(combo), "four");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ComboBoxTest, LosingTheFocusClosesTheList)
{
    const HWND combo = MakeNumbers(CBS_DROPDOWNLIST);
    SetFocus(combo);
    Send(combo, CB_SHOWDROPDOWN, TRUE);
    Told();
    SetFocus(parent_);
    EXPECT_EQ(Told(), "cancel close blur");
    EXPECT_FALSE(IsDropped(combo));
}

TEST_F(ComboBoxTest, TypingLeavesTheList)
{
    const HWND combo = MakeNumbers(CBS_DROPDOWN | CBS_AUTOHSCROLL);
    const HWND edit = InfoOf(combo).hwndItem;
    SetFocus(combo);
    EXPECT_EQ(GetFocus(), edit);
    const auto noteSelection = [&] { Note(std::to_string(Send(combo, CB_GETCURSEL)) + TextOf(combo)); };
    ExpectTold({
        {[&] { Send(combo, CB_SETCURSEL, 1), noteSelection(); }, "focus 1two"},
        {[=] { Send(combo, CB_SETEDITSEL, 0, MAKELPARAM(0, -1)), Type(edit, "f"); }, "editupdate editchange"},
        {noteSelection, "-1f"},
        {[=] { Key(edit, VK_F4); }, "drop"},
        {[=] { Key(edit, VK_DOWN), Key(edit, VK_F4); }, "change cancel close"},
        {[&] { Send(combo, CB_SETCURSEL, 0), Key(edit, VK_DOWN), noteSelection(); }, "ok change 1two"},
        {[&] { SetText(combo, "free"), noteSelection(); }, "1free"},
        {[=] { SetFocus(parent_); }, "cancel blur"},
    });
}

TEST_F(ComboBoxTest, OwnerDrawsFieldAndList)
{
    const HWND combo = Make(TEXT("ComboBox"), WS_VSCROLL | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED, 120, 200);
    EXPECT_EQ(Told(), "measure-1 measure0");
    EXPECT_EQ(Send(combo, CB_GETITEMHEIGHT), 20);
    Send(combo, CB_ADDSTRING, 0, 5);
    Send(combo, CB_ADDSTRING, 0, 8);
    const HWND list = InfoOf(combo).hwndList;
    const auto repaint = [=] { Repaint(combo), Repaint(list); };
    ExpectTold({
        {repaint, "draw-1E"},
        {[=] { Send(combo, CB_SETCURSEL, 0), repaint(); }, "draw0E"},
        {[=] { SetFocus(combo), repaint(); }, "focus draw0SFE"},
        {[=] { Send(combo, CB_SHOWDROPDOWN, TRUE), repaint(); }, "drop draw0E draw0S draw1"},
        {[=] { Key(combo, VK_DOWN), repaint(); }, "select0 select1S change draw1E"},
    });
    Send(combo, CB_SHOWDROPDOWN, FALSE);
    repaint();
    const std::string closing = Told();
    EXPECT_TRUE(closing == "cancel close draw1SFE" || closing == "cancel draw1SFE close") << closing;
    ExpectTold({
        {[=] { EnableWindow(combo, FALSE), repaint(); }, "cancel blur draw1DE"},
        {[=] { DestroyWindow(combo); }, "delete1=8 delete0=5"},
    });
}

TEST_F(ComboBoxTest, ListFilledWhileItOpensIsShownWhole)
{
    onCommand_ = [](int code, HWND combo) {
        if (code != CBN_DROPDOWN)
            return;
        Send(combo, CB_RESETCONTENT);
        for (const char* text : {"one", "two", "three"})
            Send(combo, CB_ADDSTRING, 0, text);
    };
    const HWND combo = MakeCombo(CBS_DROPDOWNLIST);
    Send(combo, CB_SHOWDROPDOWN, TRUE);
    EXPECT_EQ(HeightOf(InfoOf(combo).hwndList), 2 + 3 * Send(combo, CB_GETITEMHEIGHT));
}

TEST_F(ComboBoxTest, ControlMayBeDestroyedByWhatItTells)
{
    for (const int fatal : {CBN_SELCHANGE, CBN_SELENDOK, CBN_CLOSEUP, CBN_DROPDOWN}) {
        onCommand_ = [=](int code, HWND combo) {
            if (code == fatal)
                DestroyWindow(combo);
        };
        const HWND combo = MakeCombo(CBS_DROPDOWNLIST, {"one"});
        Send(combo, CB_SHOWDROPDOWN, TRUE);
        Key(combo, VK_DOWN);
        Key(combo, VK_RETURN);
        EXPECT_FALSE(IsWindow(combo)) << fatal;
    }
}

} // namespace
