// The track bar, as a program sees it.
#include "tests/host/control_test.h"
#include "tests/host/wine.h"

namespace {

class TrackBarTest : public ControlTest
{
protected:
    HWND MakeBar(DWORD style)
    {
        vertical_ = (style & TBS_VERT) != 0;
        const HWND bar = Make(TRACKBAR_CLASSW, style, vertical_ ? 30 : 200, vertical_ ? 200 : 30);
        Send(bar, TBM_SETRANGE, TRUE, MAKELPARAM(-20, 20));
        Send(bar, TBM_SETPAGESIZE, 0, 10);
        return bar;
    }

    LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override
    {
        // Wine ends once more when it has let the mouse go.
        const bool twice = LOWORD(wParam) == TB_ENDTRACK && GetCapture() != nullptr;
        return message == WM_HSCROLL && twice ? 0 : ControlTest::OnMessage(window, message, wParam, lParam);
    }

    static int PositionOf(HWND bar) { return Send(bar, TBM_GETPOS); }
};

TEST_F(TrackBarTest, PositionStaysInTheRange)
{
    const HWND bar = MakeBar(0);
    for (const auto& [set, got] : {std::pair{5, 5}, {-30, -20}, {30, 20}, {0, 0}, {15, 15}}) {
        Send(bar, TBM_SETPOS, TRUE, set);
        EXPECT_EQ(PositionOf(bar), got);
    }
    Send(bar, TBM_SETRANGE, TRUE, MAKELPARAM(-20, 3));
    EXPECT_EQ(PositionOf(bar), 3);
    EXPECT_EQ(Told(), "") << "a program that moves the thumb is not told";
}

TEST_F(TrackBarTest, TicksAreTheEndsAndTheSteps)
{
    for (const auto& [style, ticks] : {std::pair{TBS_AUTOTICKS, 41}, {0, 2}, {TBS_NOTICKS, 0}})
        EXPECT_EQ(Send(MakeBar(static_cast<DWORD>(style)), TBM_GETNUMTICS), ticks);
}

TEST_F(TrackBarTest, KeysStepAndTell)
{
    for (const DWORD style : {DWORD{TBS_HORZ}, DWORD{TBS_VERT}}) {
        const HWND bar = MakeBar(style);
        SetFocus(bar);
        const struct
        {
            WPARAM key;
            int position;
            const char* told;
        } kSteps[] = {
            {VK_RIGHT, 1, "linedown end"}, {VK_LEFT, 0, "lineup end"},
            {VK_UP, -1, "lineup end"},     {VK_DOWN, 0, "linedown end"},
            {VK_NEXT, 10, "pagedown end"}, {VK_PRIOR, 0, "pageup end"},
            {VK_END, 20, "bottom end"},    {VK_RIGHT, 20, "end"},
            {VK_HOME, -20, "top end"},     {'A', -20, ""},
        };
        for (const auto& step : kSteps) {
            Key(bar, step.key);
            EXPECT_EQ(PositionOf(bar), step.position) << step.key;
            EXPECT_EQ(Told(), step.told) << step.key;
        }
        DestroyWindow(bar);
    }
}

TEST_F(TrackBarTest, PressBesideTheThumbPages)
{
    const HWND bar = MakeBar(0);
    Press(bar, 190, 10);
    EXPECT_EQ(GetCapture(), bar);
    EXPECT_EQ(Told(), "pagedown");
    EXPECT_EQ(PositionOf(bar), 10);
    Release(bar, 190, 10);
    EXPECT_EQ(Told(), "end");
    EXPECT_EQ(GetCapture(), nullptr);
    Click(bar, 10, 10);
    EXPECT_EQ(Told(), "pageup end");
}

TEST_F(TrackBarTest, ThumbFollowsTheMouse)
{
    const HWND bar = MakeBar(0);
    RECT thumb = {};
    RECT channel = {};
    Send(bar, TBM_GETTHUMBRECT, 0, &thumb);
    Send(bar, TBM_GETCHANNELRECT, 0, &channel);
    const int x = (thumb.left + thumb.right) / 2;
    const int y = (thumb.top + thumb.bottom) / 2;
    Press(bar, x, y);
    EXPECT_EQ(Told(), "");
    Drag(bar, channel.right - 1, y);
    EXPECT_EQ(Told(), "track20");
    if (!OnWine()) { // there the thumb springs to the other end on its way back
        Drag(bar, x, y);
        EXPECT_EQ(Told(), "track0");
    }
    Drag(bar, channel.left + 1, y);
    EXPECT_EQ(PositionOf(bar), -20);
    Release(bar, channel.left + 1, y);
    EXPECT_EQ(Told(), "track-20 position-20 end");
    EXPECT_EQ(GetCapture(), nullptr);
}

} // namespace
