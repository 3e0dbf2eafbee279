#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/control_parent.h"

namespace {

using namespace control_test;

constexpr int kLength = 200; // of the bars below
constexpr int kMiddle = kLength / 2;

HWND AddBar(Parent& parent, DWORD style)
{
    const RECT place = style & SBS_VERT ? RECT{10, 10, 27, 10 + kLength} : RECT{10, 10, 10 + kLength, 27};
    return parent.Add(TEXT("ScrollBar"), TEXT(""), style, place);
}

LPARAM Along(DWORD style, int place)
{
    return style & SBS_VERT ? At(8, place) : At(place, 8);
}

TEST(ScrollBar, KeepsRangePageAndPositionWithinTheirBounds)
{
    Parent parent;
    const HWND bar = AddBar(parent, SBS_HORZ);
    SCROLLINFO info = {sizeof(info), SIF_ALL, -20, 20, 5, 100, 0};
    EXPECT_EQ(SetScrollInfo(bar, SB_CTL, &info, FALSE), 16);
    SCROLLINFO found = {sizeof(found), SIF_ALL, 0, 0, 0, 0, 0};
    EXPECT_TRUE(GetScrollInfo(bar, SB_CTL, &found));
    EXPECT_EQ(found.nMin, -20);
    EXPECT_EQ(found.nMax, 20);
    EXPECT_EQ(found.nPage, 5u);
    EXPECT_EQ(found.nPos, 16);
    info.fMask = SIF_POS;
    info.nPos = -7;
    EXPECT_EQ(SetScrollInfo(bar, SB_CTL, &info, TRUE), -7);
    EXPECT_EQ(SendMessageW(bar, SBM_GETPOS, 0, 0), -7);
    EXPECT_EQ(SendMessageW(bar, SBM_SETPOS, 3, TRUE), -7) << "the position before";
    EXPECT_EQ(SendMessageW(bar, SBM_GETPOS, 0, 0), 3);
    SendMessageW(bar, SBM_SETRANGE, 1, 9);
    int low = 0;
    int high = 0;
    SendMessageW(bar, SBM_GETRANGE, reinterpret_cast<WPARAM>(&low), reinterpret_cast<LPARAM>(&high));
    EXPECT_EQ(low, 1);
    EXPECT_EQ(high, 9);
    EXPECT_EQ(parent.Take(), Tolds{});
}

constexpr struct
{
    int place;
    int code;
} kPresses[] = {{3, SB_LINEUP}, {kLength - 3, SB_LINEDOWN}, {25, SB_PAGEUP}, {kLength - 25, SB_PAGEDOWN}};

void DispatchMouse(HWND window)
{
    MSG queued = {};
    while (PeekMessageW(&queued, window, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE))
        DispatchMessageW(&queued);
}

/// A thumb was dragged to between 55 and 75 of 100.
void ExpectDragged(const Tolds& told, UINT message)
{
    ASSERT_GE(told.size(), 3u);
    EXPECT_EQ(told.back(), (Told{message, SB_ENDSCROLL}));
    const Told& dropped = told[told.size() - 2];
    EXPECT_EQ(dropped.code, SB_THUMBPOSITION);
    EXPECT_GT(dropped.detail, 55);
    EXPECT_LT(dropped.detail, 75);
    const Told& dragged = told[told.size() - 3];
    EXPECT_EQ(dragged.code, SB_THUMBTRACK);
    EXPECT_EQ(dragged.detail, dropped.detail);
}

TEST(ScrollBar, PressTellsTheCodeOfThePartAndReleaseEndsIt)
{
    for (const DWORD style : {SBS_HORZ, SBS_VERT}) {
        Parent parent;
        const HWND bar = AddBar(parent, style);
        SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 100, 10, 45, 0};
        SetScrollInfo(bar, SB_CTL, &info, TRUE);
        const UINT message = style & SBS_VERT ? WM_VSCROLL : WM_HSCROLL;
        for (const auto& each : kPresses) {
            // Some systems run the whole press within the message; the release is there already then.
            PostMessageW(bar, WM_LBUTTONUP, 0, Along(style, each.place));
            SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, Along(style, each.place));
            DispatchMouse(bar);
            EXPECT_EQ(parent.Take(), (Tolds{{message, each.code}, {message, SB_ENDSCROLL}})) << each.place;
            EXPECT_NE(GetCapture(), bar);
        }
        EXPECT_EQ(SendMessageW(bar, SBM_GETPOS, 0, 0), 45) << "moving it is the program's";
    }
}

TEST(ScrollBar, DraggedThumbTellsWhereItIsAndWhereItWasLetGo)
{
    Parent parent;
    const HWND bar = AddBar(parent, SBS_HORZ);
    SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 100, 0, 50, 0};
    SetScrollInfo(bar, SB_CTL, &info, TRUE);
    PostMessageW(bar, WM_MOUSEMOVE, MK_LBUTTON, At(kMiddle + 20, 8));
    PostMessageW(bar, WM_LBUTTONUP, 0, At(kMiddle + 20, 8));
    SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, At(kMiddle, 8));
    DispatchMouse(bar);
    ExpectDragged(parent.Take(), WM_HSCROLL);
}

TEST(ScrollBar, InAFrameTellsItsWindow)
{
    Parent parent;
    SCROLLINFO info = {sizeof(info), SIF_ALL, 0, 100, 10, 45, 0};
    SetScrollInfo(parent, SB_VERT, &info, TRUE);
    RECT rect = {};
    GetWindowRect(parent, &rect);
    SetWindowPos(parent, nullptr, 0, 0, rect.right - rect.left, kLength, SWP_NOMOVE | SWP_NOZORDER);
    RECT client = {};
    GetClientRect(parent, &client);
    const auto press = [&](int place, int release) {
        POINT point = {client.right + 8, place};
        PostMessageW(parent, WM_MOUSEMOVE, MK_LBUTTON, At(point.x, release));
        PostMessageW(parent, WM_LBUTTONUP, 0, At(point.x, release));
        ClientToScreen(parent, &point);
        SendMessageW(parent, WM_NCLBUTTONDOWN, HTVSCROLL, At(point.x, point.y));
        EXPECT_NE(GetCapture(), parent);
        return parent.Take();
    };
    for (const auto& each : kPresses)
        EXPECT_EQ(press(each.place, each.place),
                  (Tolds{{WM_VSCROLL, each.code}, {WM_VSCROLL, SB_ENDSCROLL}}));
    ExpectDragged(press(kMiddle, kMiddle + 30), WM_VSCROLL);
    EXPECT_EQ(GetScrollPos(parent, SB_VERT), 45) << "moving it is the program's";
}

TEST(ScrollBar, KeysTellTheirCodes)
{
    constexpr struct
    {
        WPARAM key;
        int code;
    } kCases[] = {{VK_LEFT, SB_LINEUP},   {VK_UP, SB_LINEUP},    {VK_RIGHT, SB_LINEDOWN},
                  {VK_DOWN, SB_LINEDOWN}, {VK_PRIOR, SB_PAGEUP}, {VK_NEXT, SB_PAGEDOWN},
                  {VK_HOME, SB_TOP},      {VK_END, SB_BOTTOM}};
    Parent parent;
    const HWND bar = AddBar(parent, SBS_HORZ);
    EXPECT_EQ(SendMessageW(bar, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
    for (const auto& each : kCases) {
        SendMessageW(bar, WM_KEYDOWN, each.key, 0);
        EXPECT_EQ(parent.Take(), (Tolds{{WM_HSCROLL, each.code}})) << each.key;
    }
}

} // namespace
