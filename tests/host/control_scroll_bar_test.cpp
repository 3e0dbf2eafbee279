// The scroll bar as a control and in a window's frame, as a program sees it.
#include "tests/host/control_test.h"

namespace {

constexpr int kLength = 200; // of the bars below
constexpr int kMiddle = kLength / 2;

class ScrollBarTest : public ControlTest
{
protected:
    HWND MakeBar(DWORD style, int position = 45)
    {
        vertical_ = (style & SBS_VERT) != 0;
        const HWND bar = Make(TEXT("ScrollBar"), style, vertical_ ? 17 : kLength, vertical_ ? kLength : 17);
        SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 100, 10, position, 0};
        SetScrollInfo(bar, SB_CTL, &info, TRUE);
        return bar;
    }

    /// Told by a press at one place with the release at another. Some systems run it all within the message
    /// that it begins with: what follows is posted before.
    std::string ToldByPress(HWND window, UINT message, WPARAM wParam, POINT from, POINT to)
    {
        PostMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to.x, to.y));
        PostMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(to.x, to.y));
        if (message == WM_NCLBUTTONDOWN)
            ClientToScreen(window, &from);
        Send(window, message, wParam, MAKELPARAM(from.x, from.y));
        MSG queued = {};
        while (PeekMessageW(&queued, window, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE))
            DispatchMessageW(&queued);
        EXPECT_NE(GetCapture(), window);
        return Told();
    }

    /// Whether the last of it is the thumb's being dragged to and dropped at one place between 55 and 75.
    static bool IsDragged(const std::string& told)
    {
        for (int place = 56; place < 75; ++place) {
            const std::string at = std::to_string(place);
            if (told.ends_with("track" + at + " position" + at + " end"))
                return true;
        }
        return false;
    }
};

constexpr std::pair<int, const char*> kPresses[] = {
    {3, "lineup end"}, {kLength - 3, "linedown end"}, {25, "pageup end"}, {kLength - 25, "pagedown end"}};

TEST_F(ScrollBarTest, PressTellsTheCodeOfThePartAndReleaseEndsIt)
{
    for (const DWORD style : {SBS_HORZ, SBS_VERT}) {
        const HWND bar = MakeBar(style);
        for (const auto& [place, told] : kPresses) {
            const POINT at = style == SBS_VERT ? POINT{8, place} : POINT{place, 8};
            EXPECT_EQ(ToldByPress(bar, WM_LBUTTONDOWN, MK_LBUTTON, at, at), told);
        }
        EXPECT_EQ(GetScrollPos(bar, SB_CTL), 45) << "moving it is the program's";
    }
}

TEST_F(ScrollBarTest, DraggedThumbTellsWhereItIsAndWhereItWasLetGo)
{
    const HWND bar = MakeBar(SBS_HORZ);
    const std::string told = ToldByPress(bar, WM_LBUTTONDOWN, MK_LBUTTON, {kMiddle, 8}, {kMiddle + 30, 8});
    EXPECT_TRUE(IsDragged(told)) << told;
}

TEST_F(ScrollBarTest, InAFrameTellsItsWindow)
{
    const HWND window = Make(kClass, WS_VSCROLL, 100, kLength);
    Hear(window);
    vertical_ = true;
    SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 100, 10, 45, 0};
    EXPECT_EQ(SetScrollInfo(window, SB_VERT, &info, TRUE), 45);
    RECT client = {};
    GetClientRect(window, &client);
    const auto told = [&](int from, int to) {
        const LONG x = client.right + 8;
        return ToldByPress(window, WM_NCLBUTTONDOWN, HTVSCROLL, {x, from}, {x, to});
    };
    for (const auto& [place, expected] : kPresses)
        EXPECT_EQ(told(place, place), expected);
    const std::string dragged = told(kMiddle, kMiddle + 30);
    EXPECT_TRUE(IsDragged(dragged)) << dragged;
    EXPECT_EQ(GetScrollPos(window, SB_VERT), 45) << "moving it is the program's";
}

TEST_F(ScrollBarTest, KeysTellTheirCodes)
{
    constexpr std::pair<WPARAM, const char*> kCases[] = {
        {VK_LEFT, "lineup"},  {VK_UP, "lineup"},     {VK_RIGHT, "linedown"}, {VK_DOWN, "linedown"},
        {VK_PRIOR, "pageup"}, {VK_NEXT, "pagedown"}, {VK_HOME, "top"},       {VK_END, "bottom"}};
    const HWND bar = MakeBar(SBS_HORZ);
    for (const auto& [key, told] : kCases) {
        Send(bar, WM_KEYDOWN, key);
        EXPECT_EQ(Told(), told) << key;
    }
}

} // namespace
