// The kinds of buttons, as a program sees them.
#include "tests/host/control_test.h"

namespace {

class ButtonTest : public ControlTest
{
protected:
    ButtonTest() { codes_ = {{BN_CLICKED, "click"}, {BN_SETFOCUS, "focus"}, {BN_KILLFOCUS, "blur"}}; }

    static HWND MakeButton(DWORD style) { return Make(TEXT("Button"), style, 100, 24, "text"); }
    static bool IsPushed(HWND button) { return (Send(button, BM_GETSTATE) & BST_PUSHED) != 0; }
};

TEST_F(ButtonTest, PressHoldsTheCaptureAndReleaseInsideClicks)
{
    const HWND button = MakeButton(BS_PUSHBUTTON | BS_NOTIFY);
    const struct
    {
        std::function<void()> act;
        bool pushed;
        bool captured;
        const char* told;
    } kSteps[] = {
        {[=] { Press(button); }, true, true, "focus"},
        {[=] { Drag(button, -3, 5); }, false, true, ""},
        {[=] { Drag(button, 3, 5); }, true, true, ""},
        {[=] { Release(button); }, false, false, "click"},
        {[=] { Press(button), Release(button, 5, 50); }, false, false, ""}, // let go outside
        {[=] { Press(button), ReleaseCapture(); }, false, false, ""},
        {[=] { Release(button); }, false, false, ""}, // the capture was lost in between
        {[=] { SetFocus(parent_); }, false, false, "blur"},
    };
    for (const auto& step : kSteps) {
        SCOPED_TRACE(&step - kSteps);
        step.act();
        EXPECT_EQ(IsPushed(button), step.pushed);
        EXPECT_EQ(GetCapture() == button, step.captured);
        EXPECT_EQ(Told(), step.told);
    }
}

TEST_F(ButtonTest, SpaceClicksWhenItIsLetGo)
{
    const HWND button = MakeButton(BS_PUSHBUTTON);
    SetFocus(button);
    Send(button, WM_KEYDOWN, VK_SPACE);
    EXPECT_TRUE(IsPushed(button));
    EXPECT_EQ(Told(), "");
    Send(button, WM_KEYUP, VK_SPACE);
    EXPECT_FALSE(IsPushed(button));
    EXPECT_EQ(Told(), "click");
    Key(button, VK_RETURN);
    EXPECT_EQ(Told(), "") << "Enter is the dialog's";
}

TEST_F(ButtonTest, ClicksGoThroughTheCheckStatesOfTheKind)
{
    constexpr struct
    {
        DWORD style;
        int states[4]; // at first and after each click
        int highest;   // what BM_SETCHECK with 2 leads to
    } kCases[] = {
        {BS_PUSHBUTTON, {0, 0, 0, 0}, 0},      {BS_CHECKBOX, {0, 0, 0, 0}, 1},
        {BS_AUTOCHECKBOX, {0, 1, 0, 1}, 1},    {BS_3STATE, {0, 0, 0, 0}, 2},
        {BS_AUTO3STATE, {0, 1, 2, 0}, 2},      {BS_RADIOBUTTON, {0, 0, 0, 0}, 1},
        {BS_AUTORADIOBUTTON, {0, 1, 1, 1}, 1},
    };
    for (const auto& each : kCases) {
        const HWND button = MakeButton(each.style);
        for (const int state : each.states) {
            EXPECT_EQ(Send(button, BM_GETCHECK), state) << each.style;
            Send(button, BM_CLICK);
            EXPECT_EQ(Told(), "click") << each.style;
        }
        Send(button, BM_SETCHECK, 2);
        EXPECT_EQ(Send(button, BM_GETCHECK), each.highest) << each.style;
        EXPECT_EQ(Told(), "") << "the program's own change is not told";
        DestroyWindow(button);
    }
}

TEST_F(ButtonTest, ChosenRadioButtonClearsItsGroupAndTakesTheTabStop)
{
    HWND radios[5] = {};
    for (int i = 0; i < 5; ++i)
        radios[i] = MakeButton(BS_AUTORADIOBUTTON | WS_TABSTOP | (i == 0 || i == 3 ? WS_GROUP : 0));
    Send(radios[0], BM_SETCHECK, BST_CHECKED);
    Send(radios[3], BM_SETCHECK, BST_CHECKED);
    Send(radios[2], BM_CLICK);
    constexpr bool kExpected[] = {false, false, true, true, false};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(Send(radios[i], BM_GETCHECK), kExpected[i]) << i;
        const bool stops = (GetWindowLongPtrW(radios[i], GWL_STYLE) & WS_TABSTOP) != 0;
        EXPECT_EQ(stops, i == 4 || kExpected[i]) << i;
    }
}

TEST_F(ButtonTest, OwnerDrawnButtonAsksForEveryChangeOfItsState)
{
    const HWND button = MakeButton(BS_OWNERDRAW);
    Repaint(button);
    Told();
    ExpectTold({
        {[=] { Repaint(button, true); }, "draw"},
        {[=] { SetFocus(button); }, "focusF"},
        {[=] { Press(button); }, "selectSF"},
        {[=] { Release(button); }, "selectF click"},
        {[=] { SetFocus(parent_); }, "focus"},
    });
    EnableWindow(button, FALSE);
    Repaint(button);
    EXPECT_TRUE(Told().starts_with("drawD"));
}

TEST_F(ButtonTest, OwnerDrawnButtonErasesWhatWasDrawnBefore)
{
    const HWND button = MakeButton(BS_OWNERDRAW);
    Repaint(button);
    const HDC dc = GetDC(button);
    for (const BOOL erase : {FALSE, TRUE}) {
        SetPixel(dc, 5, 5, RGB(255, 0, 0));
        InvalidateRect(button, nullptr, erase);
        UpdateWindow(button);
        EXPECT_EQ(GetPixel(dc, 5, 5), erase ? GetSysColor(COLOR_BTNFACE) : RGB(255, 0, 0));
    }
    ReleaseDC(button, dc);
}

TEST_F(ButtonTest, StyleMessageChangesTheKindAlone)
{
    const HWND button = MakeButton(BS_PUSHBUTTON | BS_MULTILINE | WS_TABSTOP);
    for (const DWORD kind : {BS_DEFPUSHBUTTON, BS_PUSHBUTTON}) {
        Send(button, BM_SETSTYLE, kind, TRUE);
        EXPECT_EQ((Send(button, WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON) != 0, kind == BS_DEFPUSHBUTTON);
        EXPECT_NE(GetWindowLongPtrW(button, GWL_STYLE) & WS_TABSTOP, 0);
    }
}

} // namespace
