// Lists and common controls under the mouse and the keyboard of a user, whom only the host can play.
#include "host/host.h"
#include "tests/host/list_parent.h"

namespace {

class UserAtACombo : public ListParent
{
protected:
    UserAtACombo()
    {
        codes_ = {{CBN_SELCHANGE, "change"},   {CBN_SETFOCUS, "focus"}, {CBN_KILLFOCUS, "blur"},
                  {CBN_DROPDOWN, "drop"},      {CBN_CLOSEUP, "close"},  {CBN_SELENDOK, "ok"},
                  {CBN_SELENDCANCEL, "cancel"}};
    }

    void SetUp() override
    {
        ListParent::SetUp();
        combo_ = Make(TEXT("ComboBox"), CBS_DROPDOWNLIST | WS_VSCROLL, 150, 120);
        WCHAR text[] = TEXT("a");
        for (; text[0] <= TEXT('t'); ++text[0])
            Send(combo_, CB_ADDSTRING, 0, text);
        Send(combo_, CB_SETCURSEL, 1);
        COMBOBOXINFO info = {};
        info.cbSize = sizeof info;
        Send(combo_, CB_GETCOMBOBOXINFO, 0, &info);
        list_ = info.hwndList;
        height_ = Send(combo_, CB_GETITEMHEIGHT);
    }

    static void ClickAt(int x, int y)
    {
        host::MoveMouse(x, y);
        host::PressMouse(host::MouseButton::Left);
        host::ReleaseMouse(host::MouseButton::Left);
        Pump();
    }
    void ClickField()
    {
        const RECT rect = WindowRect(combo_);
        ClickAt(rect.right - 8, rect.top + 8);
    }
    void PointAtRow(int row)
    {
        const RECT rect = WindowRect(list_);
        host::MoveMouse(rect.left + 10, rect.top + 1 + row * height_ + height_ / 2);
    }
    bool IsDropped() const { return Send(combo_, CB_GETDROPPEDSTATE) != 0; }

    HWND combo_ = nullptr;
    HWND list_ = nullptr;
    int height_ = 0;
};

TEST_F(UserAtACombo, ScrollsTheOpenListWithoutClosingIt)
{
    ClickField();
    EXPECT_EQ(Told(), "focus drop");
    const RECT list = WindowRect(list_);
    const int x = list.right - 8;
    const int top = Send(combo_, CB_GETTOPINDEX);
    ClickAt(x, list.bottom - 8);
    EXPECT_EQ(Send(combo_, CB_GETTOPINDEX), top + 1);
    host::MoveMouse(x, list.top + 25);
    host::PressMouse(host::MouseButton::Left);
    host::MoveMouse(x, list.bottom);
    host::ReleaseMouse(host::MouseButton::Left);
    Pump();
    EXPECT_GT(Send(combo_, CB_GETTOPINDEX), top + 5);
    EXPECT_TRUE(IsDropped());
    const int first = Send(combo_, CB_GETTOPINDEX);
    PointAtRow(2);
    Pump();
    EXPECT_EQ(Told(), "");
    host::PressMouse(host::MouseButton::Left);
    host::ReleaseMouse(host::MouseButton::Left);
    Pump();
    EXPECT_EQ(Told(), "ok close change");
    EXPECT_EQ(Send(combo_, CB_GETCURSEL), first + 2);
}

TEST_F(UserAtACombo, PressesOnTheArrowAndLetsGoOverAnEntry)
{
    const RECT field = WindowRect(combo_);
    host::MoveMouse(field.right - 8, field.top + 8);
    host::PressMouse(host::MouseButton::Left);
    Pump();
    PointAtRow(3);
    host::ReleaseMouse(host::MouseButton::Left);
    Pump();
    EXPECT_EQ(Told(), "focus drop ok close change");
    EXPECT_EQ(Send(combo_, CB_GETCURSEL), 4) << "the selected entry was on top";
}

TEST_F(UserAtACombo, ScrollsOnlyAfterThePointerWasOverTheEntries)
{
    constexpr unsigned kLongPress = 1000;
    const RECT field = WindowRect(combo_);
    host::MoveMouse(field.right - 8, field.top + 8);
    host::PressMouse(host::MouseButton::Left);
    Pump();
    host::AdvanceTime(kLongPress);
    Pump();
    EXPECT_EQ(Send(list_, LB_GETCURSEL), 1);
    PointAtRow(0);
    Pump();
    host::MoveMouse(field.right - 8, field.top + 8);
    host::AdvanceTime(kLongPress);
    Pump();
    EXPECT_EQ(Send(list_, LB_GETCURSEL), 0);
    host::ReleaseMouse(host::MouseButton::Left);
    Pump();
}

TEST_F(UserAtACombo, ClosesTheListByPressingElsewhere)
{
    for (const bool byKey : {false, true}) {
        Send(combo_, CB_SETCURSEL, 1);
        SetFocus(combo_);
        if (byKey)
            host::PressKey(VK_F4);
        else
            ClickField();
        Pump();
        PointAtRow(4);
        Pump();
        EXPECT_TRUE(IsDropped());
        Told();
        const RECT parent = WindowRect(parent_);
        ClickAt(parent.right - 20, parent.bottom - 20);
        EXPECT_EQ(Told(), "cancel close");
        EXPECT_EQ(Send(combo_, CB_GETCURSEL), 1) << "passing over an entry does not choose it";
    }
}

TEST_F(UserAtACombo, OpenListGoesWithItsControl)
{
    ClickField();
    DestroyWindow(combo_);
    EXPECT_FALSE(IsWindow(list_));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(ListParent, ControlsLeaveNothingBehind)
{
    const auto makeAll = [this] {
        for (const LPCWSTR name : {TEXT("ListBox"), TEXT("ComboBox"), WC_TABCONTROLW, TRACKBAR_CLASSW}) {
            const HWND control = Make(name, WS_VSCROLL, 100, 100);
            UpdateWindow(control);
            DestroyWindow(control);
        }
        const HWND combo = Make(TEXT("ComboBox"), CBS_DROPDOWN, 100, 100);
        Send(combo, CB_ADDSTRING, 0, TEXT("one"));
        Send(combo, CB_SHOWDROPDOWN, TRUE);
        DestroyWindow(combo);
    };
    makeAll();
    const host::Ledger before = host::OpenObjects();
    for (int round = 0; round < 50; ++round)
        makeAll();
    EXPECT_EQ(host::OpenObjects(), before);
}

} // namespace
