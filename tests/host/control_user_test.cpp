// Controls under the mouse and the keyboard of a user, whom only the host can play.
#include "host/host.h"
#include "tests/host/control_test.h"

namespace {

class UserAtACombo : public ControlTest
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
        ControlTest::SetUp();
        combo_ = Make(TEXT("ComboBox"), CBS_DROPDOWNLIST | WS_VSCROLL, 150, 120);
        for (char text[] = "a"; text[0] <= 't'; ++text[0])
            Send(combo_, CB_ADDSTRING, 0, text);
        Send(combo_, CB_SETCURSEL, 1);
        COMBOBOXINFO info = {};
        info.cbSize = sizeof info;
        Send(combo_, CB_GETCOMBOBOXINFO, 0, &info);
        list_ = info.hwndList;
        height_ = Send(combo_, CB_GETITEMHEIGHT);
    }

    /// Nothing is dispatched before the end: what is pressed may follow the mouse in a loop of its own.
    static void Drag(POINT from, POINT to)
    {
        host::MoveMouse(from.x, from.y);
        host::PressMouse(host::MouseButton::Left);
        LetGoAt(to);
    }
    static void ClickAt(POINT point) { Drag(point, point); }
    static void LetGoAt(POINT point)
    {
        host::MoveMouse(point.x, point.y);
        host::ReleaseMouse(host::MouseButton::Left);
        Pump();
    }
    static void PointAt(POINT point)
    {
        host::MoveMouse(point.x, point.y);
        Pump();
    }
    void PressArrow() const
    {
        PointAt(Arrow());
        host::PressMouse(host::MouseButton::Left);
        Pump();
    }

    static RECT OnScreen(HWND window)
    {
        RECT rect = {};
        GetWindowRect(window, &rect);
        return rect;
    }
    POINT Arrow() const { return {OnScreen(combo_).right - 8, OnScreen(combo_).top + 8}; }
    POINT Row(int row) const
    {
        return {OnScreen(list_).left + 10, OnScreen(list_).top + 1 + row * height_ + height_ / 2};
    }
    int Top() const { return Send(combo_, CB_GETTOPINDEX); }

    HWND combo_ = nullptr;
    HWND list_ = nullptr;
    int height_ = 0;
};

TEST_F(UserAtACombo, ScrollsTheOpenListWithoutClosingIt)
{
    ClickAt(Arrow());
    EXPECT_EQ(Told(), "focus drop");
    const RECT list = OnScreen(list_);
    const int top = Top();
    ClickAt({list.right - 8, list.bottom - 8});
    EXPECT_EQ(Top(), top + 1);
    Drag({list.right - 8, list.top + 25}, {list.right - 8, list.bottom});
    const int first = Top();
    EXPECT_GT(first, top + 5);
    EXPECT_EQ(Told(), "");
    ClickAt(Row(2));
    EXPECT_EQ(Told(), "ok close change");
    EXPECT_EQ(Send(combo_, CB_GETCURSEL), first + 2);
}

TEST_F(UserAtACombo, PressesOnTheArrowAndLetsGoOverAnEntry)
{
    PressArrow();
    LetGoAt(Row(3));
    EXPECT_EQ(Told(), "focus drop ok close change");
    EXPECT_EQ(Send(combo_, CB_GETCURSEL), 4) << "the selected entry was on top";
}

TEST_F(UserAtACombo, ScrollsOnlyAfterThePointerWasOverTheEntries)
{
    constexpr unsigned kLongPress = 1000;
    const auto wait = [] {
        host::AdvanceTime(kLongPress);
        Pump();
    };
    PressArrow();
    wait();
    EXPECT_EQ(Send(list_, LB_GETCURSEL), 1);
    PointAt(Row(0));
    host::MoveMouse(Arrow().x, Arrow().y);
    wait();
    EXPECT_EQ(Send(list_, LB_GETCURSEL), 0);
    LetGoAt(Arrow());
}

TEST_F(UserAtACombo, ClosesTheListByPressingElsewhere)
{
    for (const bool byKey : {false, true}) {
        SetFocus(combo_);
        if (byKey)
            host::PressKey(VK_F4);
        else
            ClickAt(Arrow());
        Pump();
        PointAt(Row(4));
        EXPECT_TRUE(Send(combo_, CB_GETDROPPEDSTATE));
        Told();
        ClickAt({OnScreen(parent_).right - 20, OnScreen(parent_).bottom - 20});
        EXPECT_EQ(Told(), "cancel close");
        EXPECT_EQ(Send(combo_, CB_GETCURSEL), 1) << "passing over an entry does not choose it";
    }
}

TEST_F(UserAtACombo, OpenListGoesWithItsControl)
{
    ClickAt(Arrow());
    DestroyWindow(combo_);
    EXPECT_FALSE(IsWindow(list_));
    EXPECT_EQ(GetCapture(), nullptr);
}

} // namespace
