// The kinds of static controls, as a program sees them.
#include "tests/host/control_test.h"

namespace {

using StaticTest = ControlTest;

TEST_F(StaticTest, ShowsTheIconThatTheProgramSets)
{
    const HWND control = Make(TEXT("Static"), SS_ICON, 100, 24);
    const HICON icon = LoadIconW(nullptr, IDI_INFORMATION);
    EXPECT_EQ(SendMessageW(control, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0), 0);
    EXPECT_EQ(SendMessageW(control, STM_GETICON, 0, 0), reinterpret_cast<LRESULT>(icon));
    EXPECT_EQ(HeightOf(control), GetSystemMetrics(SM_CYICON)) << "it takes the icon's size";
}

TEST_F(StaticTest, RectanglesAreFilledWithTheirColourAndFramesAreNot)
{
    constexpr struct
    {
        DWORD style;
        int colour;
        bool filled;
    } kCases[] = {
        {SS_WHITERECT, COLOR_WINDOW, true},
        {SS_GRAYRECT, COLOR_BTNSHADOW, true},
        {SS_GRAYFRAME, COLOR_BTNSHADOW, false},
    };
    for (const auto& each : kCases) {
        const HWND control = Make(TEXT("Static"), each.style, 100, 24);
        Repaint(control);
        const HDC dc = GetDC(control);
        const COLORREF colour = GetSysColor(each.colour);
        EXPECT_EQ(GetPixel(dc, 0, 12), colour) << each.style;
        EXPECT_EQ(GetPixel(dc, 99, 23), colour) << each.style;
        EXPECT_EQ(GetPixel(dc, 50, 12) == colour, each.filled) << each.style;
        ReleaseDC(control, dc);
        DestroyWindow(control);
        Repaint(parent_);
    }
}

} // namespace
