// The track bar, as a program sees it.
#include "tests/host/list_parent.h"
#include "tests/host/wine.h"

namespace {

class TrackBars : public ListParent
{
protected:
    TrackBars()
    {
        codes_ = {{TB_LINEUP, "lineup"},     {TB_LINEDOWN, "linedown"},      {TB_PAGEUP, "pageup"},
                  {TB_PAGEDOWN, "pagedown"}, {TB_THUMBPOSITION, "position"}, {TB_THUMBTRACK, "track"},
                  {TB_TOP, "top"},           {TB_BOTTOM, "bottom"},          {TB_ENDTRACK, "end"}};
    }

    HWND MakeBar(DWORD style)
    {
        const bool vertical = (style & TBS_VERT) != 0;
        vertical_ = vertical;
        const HWND bar = Make(TRACKBAR_CLASSW, style, vertical ? 30 : 200, vertical ? 200 : 30);
        Send(bar, TBM_SETRANGE, TRUE, MAKELPARAM(-20, 20));
        Send(bar, TBM_SETPAGESIZE, 0, 10);
        return bar;
    }

    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message != WM_HSCROLL && message != WM_VSCROLL)
            return ListParent::OnMessage(message, wParam, lParam);
        EXPECT_EQ(message == WM_VSCROLL, vertical_);
        const int code = LOWORD(wParam);
        const bool withPosition = code == TB_THUMBPOSITION || code == TB_THUMBTRACK;
        const std::string word =
            NameOf(code) + (withPosition ? std::to_string(static_cast<SHORT>(HIWORD(wParam))) : "");
        // Wine ends once more when it has let the mouse go.
        if (code != TB_ENDTRACK || GetCapture() == nullptr)
            Note(word);
        return 0;
    }

    static int PositionOf(HWND bar) { return Send(bar, TBM_GETPOS); }

private:
    bool vertical_ = false;
};

TEST_F(TrackBars, PositionStaysInTheRange)
{
    const HWND bar = MakeBar(0);
    for (const auto& [set, got] : {std::pair{5, 5}, {-30, -20}, {30, 20}, {0, 0}}) {
        Send(bar, TBM_SETPOS, TRUE, set);
        EXPECT_EQ(PositionOf(bar), got);
    }
    Send(bar, TBM_SETPOS, TRUE, 15);
    Send(bar, TBM_SETRANGEMAX, TRUE, 3);
    EXPECT_EQ(PositionOf(bar), 3);
    EXPECT_EQ(Send(bar, TBM_GETRANGEMIN), -20);
    EXPECT_EQ(Send(bar, TBM_GETRANGEMAX), 3);
    EXPECT_EQ(Told(), "") << "a program that moves the thumb is not told";
}

TEST_F(TrackBars, PageIsAFifthOfTheRangeUntilItIsSet)
{
    const HWND bar = Make(TRACKBAR_CLASSW, 0, 200, 30);
    EXPECT_EQ(Send(bar, TBM_GETPAGESIZE), 20);
    EXPECT_EQ(Send(bar, TBM_GETLINESIZE), 1);
    Send(bar, TBM_SETRANGE, TRUE, MAKELPARAM(-20, 20));
    EXPECT_EQ(Send(bar, TBM_SETPAGESIZE, 0, 10), 8);
    Send(bar, TBM_SETRANGE, TRUE, MAKELPARAM(0, 1000));
    EXPECT_EQ(Send(bar, TBM_GETPAGESIZE), 10);
}

TEST_F(TrackBars, TicksAreTheEndsAndTheSteps)
{
    const HWND bar = MakeBar(TBS_AUTOTICKS);
    EXPECT_EQ(Send(bar, TBM_GETNUMTICS), 41);
    Send(bar, TBM_SETTICFREQ, 10);
    EXPECT_EQ(Send(bar, TBM_GETNUMTICS), 5);
    EXPECT_EQ(Send(MakeBar(0), TBM_GETNUMTICS), 2);
    EXPECT_EQ(Send(MakeBar(TBS_NOTICKS), TBM_GETNUMTICS), 0);
}

TEST_F(TrackBars, KeysStepAndTell)
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
        EXPECT_EQ(Send(bar, WM_GETDLGCODE), DLGC_WANTARROWS);
        DestroyWindow(bar);
    }
}

TEST_F(TrackBars, PressBesideTheThumbPages)
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
    EXPECT_EQ(PositionOf(bar), 0);
}

TEST_F(TrackBars, ThumbFollowsTheMouse)
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
    Send(bar, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(channel.right - 1, y));
    EXPECT_EQ(PositionOf(bar), 20);
    EXPECT_EQ(Told(), "track20");
    if (!OnWine()) { // there the thumb springs to the other end on its way back
        Send(bar, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y));
        EXPECT_EQ(PositionOf(bar), 0);
        EXPECT_EQ(Told(), "track0");
    }
    Send(bar, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(channel.left + 1, y));
    Release(bar, channel.left + 1, y);
    EXPECT_EQ(Told(), "track-20 position-20 end");
    EXPECT_EQ(GetCapture(), nullptr);
}

} // namespace
