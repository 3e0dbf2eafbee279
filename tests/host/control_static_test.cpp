#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/control_parent.h"
#include "tests/host/wine.h"

namespace {

using namespace control_test;

TEST(Static, IsTransparentToTheMouseUnlessItNotifies)
{
    Parent parent;
    for (const DWORD notify : {0ul, static_cast<unsigned long>(SS_NOTIFY)}) {
        const HWND text = parent.Add(TEXT("Static"), TEXT("text"), SS_LEFT | notify);
        POINT middle = {20, 10};
        ClientToScreen(text, &middle);
        EXPECT_EQ(SendMessageW(text, WM_NCHITTEST, 0, At(middle.x, middle.y)),
                  notify ? HTCLIENT : HTTRANSPARENT);
        EXPECT_EQ(SendMessageW(text, WM_GETDLGCODE, 0, 0), DLGC_STATIC);
        Press(text);
        Release(text);
        SendMessageW(text, WM_LBUTTONDBLCLK, MK_LBUTTON, At(5, 5));
        EnableWindow(text, FALSE);
        EnableWindow(text, TRUE);
        const Tolds expected = {Command(STN_CLICKED), Command(STN_DBLCLK), Command(STN_DISABLE),
                                Command(STN_ENABLE)};
        EXPECT_EQ(parent.Take(), notify ? expected : Tolds{});
        DestroyWindow(text);
    }
}

TEST(Static, TakesTheSizeOfItsImageUnlessAStyleKeepsIt)
{
    constexpr struct
    {
        DWORD style;
        SIZE expected;
    } kCases[] = {{SS_BITMAP, {40, 20}},
                  {SS_BITMAP | SS_CENTERIMAGE, {100, 24}},
                  {SS_BITMAP | SS_REALSIZECONTROL, {100, 24}}};
    Parent parent;
    const HBITMAP image = CreateBitmap(40, 20, 1, 1, nullptr);
    for (const auto& each : kCases) {
        const HWND control = parent.Add(TEXT("Static"), TEXT(""), each.style);
        EXPECT_EQ(SendMessageW(control, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(image)), 0);
        EXPECT_EQ(SendMessageW(control, STM_GETIMAGE, IMAGE_BITMAP, 0), reinterpret_cast<LRESULT>(image));
        RECT rect = {};
        GetWindowRect(control, &rect);
        EXPECT_EQ(rect.right - rect.left, each.expected.cx) << each.style;
        EXPECT_EQ(rect.bottom - rect.top, each.expected.cy) << each.style;
        EXPECT_EQ(SendMessageW(control, STM_SETIMAGE, IMAGE_BITMAP, 0), reinterpret_cast<LRESULT>(image));
        DestroyWindow(control);
    }
    EXPECT_TRUE(DeleteObject(image)) << "it stayed the program's";
}

TEST(Static, RefusesAnImageOfAnotherKind)
{
    Parent parent;
    const HBITMAP image = CreateBitmap(40, 20, 1, 1, nullptr);
    for (const DWORD style : {SS_LEFT, SS_ICON}) {
        const HWND control = parent.Add(TEXT("Static"), TEXT(""), style);
        SendMessageW(control, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(image));
        EXPECT_EQ(SendMessageW(control, STM_GETIMAGE, IMAGE_BITMAP, 0), 0) << style;
        DestroyWindow(control);
    }
    DeleteObject(image);
}

TEST(Static, ShowsTheIconThatTheProgramSets)
{
    Parent parent;
    const HWND control = parent.Add(TEXT("Static"), TEXT(""), SS_ICON | SS_REALSIZECONTROL);
    const HICON icon = LoadIconW(nullptr, IDI_INFORMATION);
    EXPECT_EQ(SendMessageW(control, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0), 0);
    EXPECT_EQ(SendMessageW(control, STM_GETICON, 0, 0), reinterpret_cast<LRESULT>(icon));
    EXPECT_EQ(SendMessageW(control, STM_GETIMAGE, IMAGE_ICON, 0), reinterpret_cast<LRESULT>(icon));
    EXPECT_EQ(SendMessageW(control, STM_SETIMAGE, IMAGE_ICON, 0), reinterpret_cast<LRESULT>(icon));
}

TEST(Static, OwnerDrawnOneAsksForItsWholeContent)
{
    Parent parent(true);
    const HWND control = parent.Add(TEXT("Static"), TEXT("text"), SS_OWNERDRAW);
    UpdateWindow(control);
    EnableWindow(control, FALSE);
    UpdateWindow(control);
    parent.Take();
    InvalidateRect(control, nullptr, FALSE);
    UpdateWindow(control);
    EXPECT_EQ(parent.Take(), (Tolds{{WM_CTLCOLORSTATIC}, {WM_DRAWITEM, ODA_DRAWENTIRE, ODS_DISABLED}}));
}

/// Paints the control into a picture of black and returns the colour at a place.
COLORREF PrintedColour(HWND control, int x, int y)
{
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 100, 24);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    PatBlt(memory, 0, 0, 100, 24, BLACKNESS);
    SendMessageW(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT);
    const COLORREF colour = GetPixel(memory, x, y);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return colour;
}

TEST(Static, RectanglesAreFilledWithTheirColourAndFramesAreNot)
{
    constexpr struct
    {
        DWORD style;
        int colour;
        bool filled;
    } kCases[] = {
        {SS_BLACKRECT, COLOR_WINDOWFRAME, true}, {SS_GRAYRECT, COLOR_BTNSHADOW, true},
        {SS_WHITERECT, COLOR_WINDOW, true},      {SS_BLACKFRAME, COLOR_WINDOWFRAME, false},
        {SS_GRAYFRAME, COLOR_BTNSHADOW, false},  {SS_WHITEFRAME, COLOR_WINDOW, false},
    };
    Parent parent;
    for (const auto& each : kCases) {
        if (OnWine() && each.colour == COLOR_WINDOWFRAME)
            continue; // it takes a shadow's colour
        const HWND control = parent.Add(TEXT("Static"), TEXT(""), each.style);
        EXPECT_EQ(PrintedColour(control, 0, 12), GetSysColor(each.colour)) << each.style;
        EXPECT_EQ(PrintedColour(control, 99, 23), GetSysColor(each.colour)) << each.style;
        EXPECT_EQ(PrintedColour(control, 50, 12), each.filled ? GetSysColor(each.colour) : 0) << each.style;
        DestroyWindow(control);
    }
}

} // namespace
