// The hooks of push buttons and of the web link.
#include <vector>

#include "psui/controls/hooks.h"
#include "tests/settings/support.h"

namespace psui {
namespace {

constexpr int kButton = 16;
constexpr int kOther = 17;

class Hooks : public testing::Test
{
protected:
    Hooks()
        : parent_(CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP | WS_VISIBLE, 0, 0, 200, 200, nullptr,
                                  nullptr, nullptr, nullptr)),
          button_(Add(kButton, BS_DEFPUSHBUTTON)), other_(Add(kOther, BS_PUSHBUTTON))
    {
    }
    ~Hooks() override { DestroyWindow(parent_); }

    HWND Add(int id, DWORD style)
    {
        return CreateWindowExW(0, TEXT("Button"), TEXT("x"), WS_CHILD | WS_VISIBLE | style, 0,
                               30 * (id - kButton), 60, 20, parent_,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    /// The messages from `first` to `last` that wait for the parent.
    std::vector<MSG> Posted(UINT first, UINT last) const
    {
        std::vector<MSG> posted;
        for (MSG message; PeekMessageW(&message, parent_, first, last, PM_REMOVE);)
            posted.push_back(message);
        return posted;
    }

    test::World world_;
    HWND parent_;
    HWND button_;
    HWND other_;
};

TEST_F(Hooks, KeyButtonTakesTabAndEnterWhileItHasTheFocus)
{
    InstallKeyButton(parent_, kButton);
    InstallKeyButton(parent_, kButton);
    EXPECT_EQ(SendMessageW(button_, WM_GETDLGCODE, 0, 0), 0x2024);
    SetFocus(other_);
    SendMessageW(button_, WM_KEYDOWN, VK_TAB, 0);
    SendMessageW(button_, WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_TRUE(Posted(WM_NEXTDLGCTL, WM_NEXTDLGCTL).empty());
    EXPECT_TRUE(Posted(WM_COMMAND, WM_COMMAND).empty());

    SetFocus(button_);
    for (const bool shift : {false, true}) {
        if (shift)
            host::PressKeyDown(VK_SHIFT);
        for (MSG key; PeekMessageW(&key, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE);) {
        }
        SendMessageW(button_, WM_KEYDOWN, VK_TAB, 0);
        const std::vector<MSG> moves = Posted(WM_NEXTDLGCTL, WM_NEXTDLGCTL);
        ASSERT_EQ(moves.size(), 1u);
        EXPECT_EQ(moves[0].wParam, shift ? 1u : 0u);
        EXPECT_EQ(moves[0].lParam, 0);
    }
    SendMessageW(button_, WM_KEYDOWN, VK_RETURN, 0);
    const std::vector<MSG> presses = Posted(WM_COMMAND, WM_COMMAND);
    ASSERT_EQ(presses.size(), 1u);
    EXPECT_EQ(presses[0].wParam, static_cast<WPARAM>(kButton));
}

TEST_F(Hooks, KeyButtonLosesTheLookOfTheDefaultWithTheFocus)
{
    InstallKeyButton(parent_, kButton);
    SetFocus(button_);
    SetFocus(other_);
    EXPECT_EQ(GetWindowLongPtrW(button_, GWL_STYLE) & 0xF, BS_PUSHBUTTON);
}

TEST_F(Hooks, LinkStartsItsTimerAnewAtEveryMoveOverIt)
{
    InstallHoverLink(parent_, kButton, kOther);
    SendMessageW(other_, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    host::AdvanceTime(600);
    EXPECT_TRUE(Posted(WM_TIMER, WM_TIMER).empty()) << "the pointer is not over the link";
    SendMessageW(button_, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    host::AdvanceTime(400);
    SendMessageW(button_, WM_MOUSEMOVE, 0, MAKELPARAM(6, 5));
    host::AdvanceTime(400);
    EXPECT_TRUE(Posted(WM_TIMER, WM_TIMER).empty());
    host::AdvanceTime(100);
    const std::vector<MSG> timers = Posted(WM_TIMER, WM_TIMER);
    ASSERT_EQ(timers.size(), 1u);
    EXPECT_EQ(timers[0].wParam, kHoverTimer);
    KillTimer(parent_, kHoverTimer);
}

TEST_F(Hooks, BackgroundThatIsErasedAsksForARepaintOnce)
{
    InstallHoverLink(parent_, kButton, kOther);
    EXPECT_FALSE(TakeRepaintRequest());
    const HDC dc = GetDC(parent_);
    SendMessageW(button_, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
    EXPECT_FALSE(TakeRepaintRequest());
    SendMessageW(other_, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
    ReleaseDC(parent_, dc);
    EXPECT_TRUE(TakeRepaintRequest());
    EXPECT_FALSE(TakeRepaintRequest());
}

} // namespace
} // namespace psui
