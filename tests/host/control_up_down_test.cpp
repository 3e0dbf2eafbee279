// The up-down control and its buddy, as a program sees them.
#include "tests/host/control_test.h"

namespace {

constexpr DWORD kUsual = UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_AUTOBUDDY | UDS_NOTHOUSANDS;

class UpDownTest : public ControlTest
{
protected:
    UpDownTest()
    {
        codes_ = {{EN_UPDATE, "update"}, {EN_CHANGE, "change"}};
        vertical_ = true;
    }

    void MakeSpinner(int low = 1, int high = 999)
    {
        edit_ = Make(TEXT("Edit"), ES_NUMBER | ES_AUTOHSCROLL | WS_BORDER, kWidth, kHeight, "5");
        upDown_ = Make(UPDOWN_CLASSW, kUsual, 16, 20);
        Send(upDown_, UDM_SETRANGE, 0, MAKELPARAM(high, low));
        Told();
    }
    void Step(bool up)
    {
        RECT rect = {};
        GetClientRect(upDown_, &rect);
        Click(upDown_, 5, up ? 3 : rect.bottom - 3);
    }

    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_NOTIFY)
            return ControlTest::OnMessage(window, message, wParam, lParam);
        if (reinterpret_cast<const NMHDR*>(lParam)->code == UDN_DELTAPOS)
            Note("delta");
        return refuses_;
    }

    static constexpr int kWidth = 70;
    static constexpr int kHeight = 22;
    HWND edit_ = nullptr;
    HWND upDown_ = nullptr;
    bool refuses_ = false;
};

TEST_F(UpDownTest, StandsAtTheRightWithinItsBuddysPlace)
{
    MakeSpinner();
    EXPECT_EQ(reinterpret_cast<HWND>(SendMessageW(upDown_, UDM_GETBUDDY, 0, 0)), edit_);
    const RECT edit = RectOf(edit_);
    const RECT upDown = RectOf(upDown_);
    EXPECT_EQ(edit.left, 10);
    EXPECT_LT(edit.right, 10 + kWidth);
    EXPECT_LE(upDown.left, edit.right);
    EXPECT_LE(upDown.right, 10 + kWidth);
    EXPECT_GE(upDown.right, 10 + kWidth - 4);
    EXPECT_EQ(upDown.top, 10);
    EXPECT_EQ(upDown.bottom, 10 + kHeight);
}

TEST_F(UpDownTest, ArrowAsksThenShowsThenTells)
{
    MakeSpinner();
    SetFocus(edit_);
    Told();
    Press(upDown_, 5, 3);
    EXPECT_EQ(Told(), "delta update change position6");
    EXPECT_EQ(TextOf(edit_), "6");
    Release(upDown_, 5, 3);
    EXPECT_EQ(Told(), "end");
    EXPECT_EQ(GetCapture(), nullptr);
    refuses_ = true;
    Step(true);
    EXPECT_EQ(TextOf(edit_), "6");
    EXPECT_EQ(LOWORD(Send(upDown_, UDM_GETPOS)), 6);
}

TEST_F(UpDownTest, StepsStayInTheRange)
{
    constexpr struct
    {
        int low, high;
        const char* before;
        const char* afterUp;
        const char* afterDown;
    } kCases[] = {
        {1, 999, "7", "8", "7"},
        {1, 999, "999", "999", "998"},
        {10, 1, "7", "6", "7"},
        {-20, 20, "0", "1", "0"},
    };
    for (const auto& each : kCases) {
        MakeSpinner(each.low, each.high);
        SetText(edit_, each.before);
        Step(true);
        EXPECT_EQ(TextOf(edit_), each.afterUp) << each.high;
        Step(false);
        EXPECT_EQ(TextOf(edit_), each.afterDown) << each.high;
        DestroyWindow(edit_);
        DestroyWindow(upDown_);
    }
}

TEST_F(UpDownTest, PositionFollowsTheBuddyAndTellsWhenThatIsNoNumber)
{
    MakeSpinner();
    Send(upDown_, UDM_SETPOS, 0, 50);
    EXPECT_EQ(Send(upDown_, UDM_SETPOS, 0, 77), 50);
    EXPECT_EQ(TextOf(edit_), "77");
    SetText(edit_, "123");
    EXPECT_EQ(Send(upDown_, UDM_GETPOS), MAKELONG(123, 0));
    SetText(edit_, "many");
    EXPECT_EQ(Send(upDown_, UDM_GETPOS), MAKELONG(123, 1));
    Send(upDown_, UDM_SETPOS, 0, 5000);
    EXPECT_EQ(TextOf(edit_), "999");
    Send(upDown_, UDM_SETRANGE32, static_cast<WPARAM>(-70000), 70000);
    Send(upDown_, UDM_SETPOS32, 0, -80000);
    EXPECT_EQ(TextOf(edit_), "-70000");
    BOOL failed = TRUE;
    EXPECT_EQ(Send(upDown_, UDM_GETPOS32, 0, &failed), -70000);
    EXPECT_FALSE(failed);
}

TEST_F(UpDownTest, ArrowKeysInTheBuddyStep)
{
    MakeSpinner();
    SetFocus(edit_);
    Key(edit_, VK_UP);
    EXPECT_EQ(TextOf(edit_), "6");
    Key(edit_, VK_DOWN);
    Key(edit_, VK_DOWN);
    EXPECT_EQ(TextOf(edit_), "4");
    DestroyWindow(upDown_);
    Key(edit_, VK_DOWN);
    EXPECT_EQ(TextOf(edit_), "4");
}

} // namespace
