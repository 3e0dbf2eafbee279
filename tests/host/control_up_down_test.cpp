#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include "tests/host/control_parent.h"

namespace {

using namespace control_test;

constexpr DWORD kUsual = UDS_SETBUDDYINT | UDS_ALIGNRIGHT | UDS_ARROWKEYS | UDS_AUTOBUDDY | UDS_NOTHOUSANDS;

constexpr Told kDeltaPos = {WM_NOTIFY, static_cast<int>(UDN_DELTAPOS)};

struct Spinner
{
    explicit Spinner(DWORD style = kUsual, int low = 1, int high = 999)
    {
        InitCommonControls();
        edit = parent.Add(TEXT("Edit"), TEXT("5"), ES_NUMBER | ES_AUTOHSCROLL | WS_BORDER, {10, 10, 80, 32},
                          100);
        upDown = parent.Add(UPDOWN_CLASSW, TEXT(""), style, {0, 0, 16, 20}, 101);
        SendMessageW(upDown, UDM_SETRANGE, 0, MAKELPARAM(high, low));
        parent.Take();
    }

    void ClickUp() { Click(3); }
    void ClickDown() { Click(Height() - 3); }
    int Height() const
    {
        RECT rect = {};
        GetClientRect(upDown, &rect);
        return rect.bottom;
    }
    void Click(int y)
    {
        Press(upDown, 5, y);
        Release(upDown, 5, y);
    }

    Parent parent;
    HWND edit;
    HWND upDown;
};

TEST(UpDown, StandsAtTheRightWithinItsBuddysPlace)
{
    Spinner spinner;
    EXPECT_EQ(reinterpret_cast<HWND>(SendMessageW(spinner.upDown, UDM_GETBUDDY, 0, 0)), spinner.edit);
    RECT edit = {};
    RECT upDown = {};
    GetWindowRect(spinner.edit, &edit);
    GetWindowRect(spinner.upDown, &upDown);
    MapWindowPoints(nullptr, spinner.parent, reinterpret_cast<POINT*>(&edit), 2);
    MapWindowPoints(nullptr, spinner.parent, reinterpret_cast<POINT*>(&upDown), 2);
    EXPECT_EQ(edit.left, 10);
    EXPECT_LT(edit.right, 80);
    EXPECT_LE(upDown.right, 80);
    EXPECT_GE(upDown.right, 76);
    EXPECT_LE(upDown.left - edit.right, 0);
    EXPECT_EQ(upDown.top, 10);
    EXPECT_EQ(upDown.bottom, 32);
}

TEST(UpDown, ArrowAsksThenShowsThenTells)
{
    Spinner spinner;
    SetFocus(spinner.edit);
    SetWindowTextW(spinner.edit, TEXT("41"));
    spinner.parent.Take();
    Press(spinner.upDown, 5, 3);
    EXPECT_EQ(spinner.parent.Take(),
              (Tolds{kDeltaPos, Command(EN_UPDATE), Command(EN_CHANGE), {WM_VSCROLL, SB_THUMBPOSITION, 42}}));
    EXPECT_EQ(TextOf(spinner.edit), TEXT("42"));
    Release(spinner.upDown, 5, 3);
    EXPECT_EQ(spinner.parent.Take(), (Tolds{{WM_VSCROLL, SB_ENDSCROLL, 42}}));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST(UpDown, RefusedStepChangesNothing)
{
    Spinner spinner;
    spinner.parent.notifyAnswer = TRUE;
    spinner.ClickUp();
    EXPECT_EQ(TextOf(spinner.edit), TEXT("5"));
    EXPECT_EQ(LOWORD(SendMessageW(spinner.upDown, UDM_GETPOS, 0, 0)), 5);
}

TEST(UpDown, StepsStayInTheRangeOrWrapAround)
{
    struct
    {
        DWORD style;
        int low, high;
        LPCWSTR before;
        LPCWSTR afterUp;
        LPCWSTR afterDown;
    } const kCases[] = {
        {kUsual, 1, 999, TEXT("7"), TEXT("8"), TEXT("7")},
        {kUsual, 1, 999, TEXT("999"), TEXT("999"), TEXT("998")},
        {kUsual | UDS_WRAP, 1, 999, TEXT("999"), TEXT("1"), TEXT("999")},
        {kUsual, 10, 1, TEXT("7"), TEXT("6"), TEXT("7")},
        {kUsual, -20, 20, TEXT("0"), TEXT("1"), TEXT("0")},
        {kUsual & ~UDS_NOTHOUSANDS, 0, 30000, TEXT("999"), TEXT("1,000"), TEXT("999")},
    };
    for (const auto& each : kCases) {
        Spinner spinner(each.style, each.low, each.high);
        SetWindowTextW(spinner.edit, each.before);
        spinner.ClickUp();
        EXPECT_EQ(TextOf(spinner.edit), each.afterUp) << each.high;
        spinner.ClickDown();
        EXPECT_EQ(TextOf(spinner.edit), each.afterDown) << each.high;
    }
}

TEST(UpDown, PositionFollowsTheBuddyAndTellsWhenThatIsNoNumber)
{
    Spinner spinner;
    SendMessageW(spinner.upDown, UDM_SETPOS, 0, 50);
    EXPECT_EQ(SendMessageW(spinner.upDown, UDM_SETPOS, 0, 77), 50);
    EXPECT_EQ(TextOf(spinner.edit), TEXT("77"));
    SetWindowTextW(spinner.edit, TEXT("123"));
    EXPECT_EQ(SendMessageW(spinner.upDown, UDM_GETPOS, 0, 0), MAKELONG(123, 0));
    SetWindowTextW(spinner.edit, TEXT("many"));
    EXPECT_EQ(SendMessageW(spinner.upDown, UDM_GETPOS, 0, 0), MAKELONG(123, 1));
    SendMessageW(spinner.upDown, UDM_SETPOS, 0, 5000);
    EXPECT_EQ(TextOf(spinner.edit), TEXT("999"));
    SendMessageW(spinner.upDown, UDM_SETPOS32, 0, -8);
    EXPECT_EQ(TextOf(spinner.edit), TEXT("1"));
    BOOL failed = TRUE;
    EXPECT_EQ(SendMessageW(spinner.upDown, UDM_GETPOS32, 0, reinterpret_cast<LPARAM>(&failed)), 1);
    EXPECT_FALSE(failed);
}

TEST(UpDown, ArrowKeysInTheBuddyStep)
{
    Spinner spinner;
    SetFocus(spinner.edit);
    SendMessageW(spinner.edit, WM_KEYDOWN, VK_UP, 0);
    EXPECT_EQ(TextOf(spinner.edit), TEXT("6"));
    SendMessageW(spinner.edit, WM_KEYDOWN, VK_DOWN, 0);
    SendMessageW(spinner.edit, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(TextOf(spinner.edit), TEXT("4"));
    DestroyWindow(spinner.upDown);
    SendMessageW(spinner.edit, WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(TextOf(spinner.edit), TEXT("4"));
}

TEST(UpDown, RangeBaseAndStepsAreKept)
{
    Spinner spinner;
    EXPECT_EQ(SendMessageW(spinner.upDown, UDM_GETRANGE, 0, 0), MAKELONG(999, 1));
    SendMessageW(spinner.upDown, UDM_SETRANGE32, static_cast<WPARAM>(-70000), 70000);
    int low = 0;
    int high = 0;
    SendMessageW(spinner.upDown, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                 reinterpret_cast<LPARAM>(&high));
    EXPECT_EQ(low, -70000);
    EXPECT_EQ(high, 70000);
    EXPECT_EQ(SendMessageW(spinner.upDown, UDM_SETBASE, 7, 0), 0);
    EXPECT_EQ(SendMessageW(spinner.upDown, UDM_SETBASE, 16, 0), 10);
    SendMessageW(spinner.upDown, UDM_SETPOS, 0, 255);
    EXPECT_EQ(TextOf(spinner.edit), TEXT("0x00FF"));
    UDACCEL steps[2] = {{0, 5}, {3, 50}};
    EXPECT_TRUE(SendMessageW(spinner.upDown, UDM_SETACCEL, 2, reinterpret_cast<LPARAM>(steps)));
    UDACCEL found[2] = {};
    EXPECT_EQ(SendMessageW(spinner.upDown, UDM_GETACCEL, 2, reinterpret_cast<LPARAM>(found)), 2);
    EXPECT_EQ(found[1].nInc, 50u);
    spinner.ClickUp();
    EXPECT_EQ(TextOf(spinner.edit), TEXT("0x0104"));
}

} // namespace
