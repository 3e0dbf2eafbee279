// The kinds of static controls, as a program sees them.
#include "tests/host/control_test.h"

namespace {

using StaticTest = ControlTest;

TEST_F(StaticTest, TakesTheSizeOfItsBitmapUnlessAStyleKeepsItAndNoOtherKind)
{
    constexpr struct
    {
        DWORD style;
        bool taken;
        SIZE size;
    } kCases[] = {{SS_BITMAP, true, {40, 20}},
                  {SS_BITMAP | SS_CENTERIMAGE, true, {100, 24}},
                  {SS_BITMAP | SS_REALSIZECONTROL, true, {100, 24}},
                  {SS_LEFT, false, {100, 24}}};
    const HBITMAP image = CreateBitmap(40, 20, 1, 1, nullptr);
    for (const auto& each : kCases) {
        SCOPED_TRACE(each.style);
        const HWND control = Make(TEXT("Static"), each.style, 100, 24);
        EXPECT_EQ(SendMessageW(control, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(image)), 0);
        EXPECT_EQ(SendMessageW(control, STM_GETIMAGE, IMAGE_BITMAP, 0),
                  each.taken ? reinterpret_cast<LRESULT>(image) : 0);
        RECT rect = {};
        GetWindowRect(control, &rect);
        EXPECT_EQ(rect.right - rect.left, each.size.cx);
        EXPECT_EQ(rect.bottom - rect.top, each.size.cy);
        DestroyWindow(control);
    }
    EXPECT_TRUE(DeleteObject(image)) << "it stayed the program's";
}

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
