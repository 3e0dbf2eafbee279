#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/control_parent.h"

namespace {

using namespace control_test;

/// Without the bits that are nobody's business.
LRESULT StateOf(HWND button)
{
    return SendMessageW(button, BM_GETSTATE, 0, 0) &
           (BST_CHECKED | BST_INDETERMINATE | BST_PUSHED | BST_FOCUS);
}

TEST(Button, DialogCodeAndHitTestTellTheKind)
{
    constexpr struct
    {
        DWORD style;
        LRESULT code;
        LRESULT hit;
    } kCases[] = {
        {BS_PUSHBUTTON, DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON, HTCLIENT},
        {BS_DEFPUSHBUTTON, DLGC_BUTTON | DLGC_DEFPUSHBUTTON, HTCLIENT},
        {BS_AUTOCHECKBOX, DLGC_BUTTON, HTCLIENT},
        {BS_3STATE, DLGC_BUTTON, HTCLIENT},
        {BS_RADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, HTCLIENT},
        {BS_AUTORADIOBUTTON, DLGC_BUTTON | DLGC_RADIOBUTTON, HTCLIENT},
        {BS_GROUPBOX, DLGC_STATIC, HTTRANSPARENT},
        {BS_OWNERDRAW, DLGC_BUTTON, HTCLIENT},
    };
    Parent parent;
    for (const auto& each : kCases) {
        const HWND button = parent.Add(TEXT("Button"), TEXT("text"), each.style);
        EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), each.code) << each.style;
        POINT middle = {20, 10};
        ClientToScreen(button, &middle);
        EXPECT_EQ(SendMessageW(button, WM_NCHITTEST, 0, At(middle.x, middle.y)), each.hit) << each.style;
        DestroyWindow(button);
    }
}

TEST(Button, PressHoldsTheCaptureAndReleaseInsideClicks)
{
    Parent parent;
    const HWND button = parent.Add(TEXT("BUTTON"), TEXT("OK"), BS_PUSHBUTTON | BS_NOTIFY);
    Press(button);
    EXPECT_EQ(GetCapture(), button);
    EXPECT_EQ(GetFocus(), button);
    EXPECT_EQ(StateOf(button), BST_PUSHED | BST_FOCUS);
    SendMessageW(button, WM_MOUSEMOVE, MK_LBUTTON, At(-3, 5));
    EXPECT_EQ(StateOf(button), BST_FOCUS) << "the pointer left it";
    SendMessageW(button, WM_MOUSEMOVE, MK_LBUTTON, At(3, 5));
    EXPECT_EQ(StateOf(button), BST_PUSHED | BST_FOCUS);
    EXPECT_EQ(parent.Take(), (Tolds{Command(BN_SETFOCUS)}));
    Release(button);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(parent.Take(), (Tolds{Command(BN_CLICKED)}));

    Press(button);
    Release(button, 5, 50);
    EXPECT_EQ(parent.Take(), Tolds{}) << "let go outside";
    Press(button);
    ReleaseCapture();
    EXPECT_EQ(StateOf(button) & BST_PUSHED, 0);
    Release(button);
    EXPECT_EQ(parent.Take(), Tolds{}) << "the capture was lost in between";
    SetFocus(parent);
    EXPECT_EQ(parent.Take(), (Tolds{Command(BN_KILLFOCUS)}));
}

TEST(Button, SpaceClicksWhenItIsLetGo)
{
    Parent parent;
    const HWND button = parent.Add(TEXT("Button"), TEXT("OK"), BS_PUSHBUTTON);
    SetFocus(button);
    SendMessageW(button, WM_KEYDOWN, VK_SPACE, 0);
    EXPECT_EQ(StateOf(button), BST_PUSHED | BST_FOCUS);
    EXPECT_EQ(parent.Take(), Tolds{});
    SendMessageW(button, WM_KEYUP, VK_SPACE, 0);
    EXPECT_EQ(StateOf(button), BST_FOCUS);
    EXPECT_EQ(parent.Take(), (Tolds{Command(BN_CLICKED)}));
    SendMessageW(button, WM_KEYDOWN, VK_RETURN, 0);
    SendMessageW(button, WM_KEYUP, VK_RETURN, 0);
    EXPECT_EQ(parent.Take(), Tolds{}) << "Enter is the dialog's";
}

TEST(Button, SecondOfTwoClicksIsTold)
{
    constexpr struct
    {
        DWORD style;
        int codes[3];
        size_t count;
    } kCases[] = {
        {BS_PUSHBUTTON, {BN_CLICKED, BN_CLICKED}, 2},
        {BS_PUSHBUTTON | BS_NOTIFY, {BN_SETFOCUS, BN_CLICKED, BN_DOUBLECLICKED}, 3},
        {BS_AUTOCHECKBOX, {BN_CLICKED, BN_CLICKED}, 2},
        {BS_RADIOBUTTON, {BN_CLICKED, BN_DOUBLECLICKED}, 2},
        {BS_OWNERDRAW, {BN_CLICKED, BN_DOUBLECLICKED}, 2},
    };
    for (const auto& each : kCases) {
        Parent parent;
        const HWND button = parent.Add(TEXT("Button"), TEXT("text"), each.style);
        Press(button);
        Release(button);
        SendMessageW(button, WM_LBUTTONDBLCLK, MK_LBUTTON, At(5, 5));
        Release(button);
        Tolds commands;
        for (const Told& told : parent.Take()) {
            if (told.message == WM_COMMAND)
                commands.push_back(told);
        }
        Tolds expected;
        for (size_t i = 0; i < each.count; ++i)
            expected.push_back(Command(each.codes[i]));
        EXPECT_EQ(commands, expected) << each.style;
    }
}

TEST(Button, ClicksGoThroughTheCheckStatesOfTheKind)
{
    constexpr struct
    {
        DWORD style;
        LRESULT states[4]; // at first and after each click
        LRESULT highest;   // what BM_SETCHECK with 2 leads to
    } kCases[] = {
        {BS_PUSHBUTTON, {0, 0, 0, 0}, 0},      {BS_CHECKBOX, {0, 0, 0, 0}, 1},
        {BS_AUTOCHECKBOX, {0, 1, 0, 1}, 1},    {BS_3STATE, {0, 0, 0, 0}, 2},
        {BS_AUTO3STATE, {0, 1, 2, 0}, 2},      {BS_RADIOBUTTON, {0, 0, 0, 0}, 1},
        {BS_AUTORADIOBUTTON, {0, 1, 1, 1}, 1},
    };
    for (const auto& each : kCases) {
        Parent parent;
        const HWND button = parent.Add(TEXT("Button"), TEXT("text"), each.style);
        for (size_t i = 0; i < std::size(each.states); ++i) {
            EXPECT_EQ(SendMessageW(button, BM_GETCHECK, 0, 0), each.states[i]) << each.style << ' ' << i;
            parent.Take();
            SendMessageW(button, BM_CLICK, 0, 0);
            EXPECT_EQ(parent.Take(), (Tolds{Command(BN_CLICKED)})) << each.style;
        }
        EXPECT_EQ(SendMessageW(button, BM_SETCHECK, 2, 0), 0);
        EXPECT_EQ(SendMessageW(button, BM_GETCHECK, 0, 0), each.highest) << each.style;
        EXPECT_EQ(parent.Take(), Tolds{}) << "the program's own change is not told";
    }
}

TEST(Button, ChosenRadioButtonClearsItsGroupAndTakesTheTabStop)
{
    Parent parent;
    HWND radios[5] = {};
    for (int i = 0; i < 5; ++i) {
        const DWORD group = i == 0 || i == 3 ? WS_GROUP : 0;
        radios[i] = parent.Add(TEXT("Button"), TEXT("text"), BS_AUTORADIOBUTTON | WS_TABSTOP | group,
                               {10, 10 + 30 * i, 110, 34 + 30 * i}, 100 + i);
    }
    SendMessageW(radios[0], BM_SETCHECK, BST_CHECKED, 0);
    SendMessageW(radios[3], BM_SETCHECK, BST_CHECKED, 0);
    SendMessageW(radios[2], BM_CLICK, 0, 0);
    const bool expected[] = {false, false, true, true, false};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(SendMessageW(radios[i], BM_GETCHECK, 0, 0), expected[i]) << i;
        const bool stops = (GetWindowLongPtrW(radios[i], GWL_STYLE) & WS_TABSTOP) != 0;
        EXPECT_EQ(stops, i == 4 || expected[i]) << i;
    }
}

TEST(Button, OwnerDrawnButtonAsksForEveryChangeOfItsState)
{
    Parent parent;
    const HWND button = parent.Add(TEXT("Button"), TEXT("text"), BS_OWNERDRAW);
    UpdateWindow(button);
    parent.Take();
    InvalidateRect(button, nullptr, TRUE);
    UpdateWindow(button);
    EXPECT_EQ(parent.Take(), (Tolds{{WM_DRAWITEM, ODA_DRAWENTIRE, 0}}));
    SetFocus(button);
    EXPECT_EQ(parent.Take(), (Tolds{{WM_DRAWITEM, ODA_FOCUS, ODS_FOCUS}}));
    Press(button);
    EXPECT_EQ(parent.Take(), (Tolds{{WM_DRAWITEM, ODA_SELECT, ODS_FOCUS | ODS_SELECTED}}));
    Release(button);
    EXPECT_EQ(parent.Take(), (Tolds{{WM_DRAWITEM, ODA_SELECT, ODS_FOCUS}, Command(BN_CLICKED)}));
    SetFocus(parent);
    EXPECT_EQ(parent.Take(), (Tolds{{WM_DRAWITEM, ODA_FOCUS, 0}}));
    EnableWindow(button, FALSE);
    UpdateWindow(button);
    EXPECT_EQ(parent.Take().at(0), (Told{WM_DRAWITEM, ODA_DRAWENTIRE, ODS_DISABLED}));
}

TEST(Button, OwnerDrawnButtonErasesWhatWasDrawnBefore)
{
    Parent parent;
    const HWND button = parent.Add(TEXT("Button"), TEXT("text"), BS_OWNERDRAW);
    UpdateWindow(button);
    const HDC dc = GetDC(button);
    for (const BOOL erase : {FALSE, TRUE}) {
        SetPixel(dc, 5, 5, RGB(255, 0, 0));
        InvalidateRect(button, nullptr, erase);
        UpdateWindow(button);
        EXPECT_EQ(GetPixel(dc, 5, 5), erase ? GetSysColor(COLOR_BTNFACE) : RGB(255, 0, 0));
    }
    ReleaseDC(button, dc);
}

TEST(Button, AsksItsParentForTheColoursOfItsKind)
{
    constexpr struct
    {
        DWORD style;
        UINT message;
    } kCases[] = {
        {BS_PUSHBUTTON, WM_CTLCOLORBTN},         {BS_DEFPUSHBUTTON, WM_CTLCOLORBTN},
        {BS_OWNERDRAW, WM_CTLCOLORBTN},          {BS_AUTOCHECKBOX, WM_CTLCOLORSTATIC},
        {BS_AUTORADIOBUTTON, WM_CTLCOLORSTATIC}, {BS_GROUPBOX, WM_CTLCOLORSTATIC},
    };
    Parent parent(true);
    for (const auto& each : kCases) {
        const HWND button = parent.Add(TEXT("Button"), TEXT("text"), each.style);
        parent.Take();
        InvalidateRect(button, nullptr, FALSE);
        UpdateWindow(button);
        const Tolds told = parent.Take();
        ASSERT_FALSE(told.empty()) << each.style;
        EXPECT_EQ(told.front(), Told{each.message}) << each.style;
        DestroyWindow(button);
    }
}

TEST(Button, StyleMessageChangesTheKindAlone)
{
    Parent parent;
    const HWND button = parent.Add(TEXT("Button"), TEXT("OK"), BS_PUSHBUTTON | BS_MULTILINE | WS_TABSTOP);
    SendMessageW(button, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_NE(GetWindowLongPtrW(button, GWL_STYLE) & WS_TABSTOP, 0);
    SendMessageW(button, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
}

TEST(Button, ImageAndFontAreKeptForTheProgram)
{
    Parent parent;
    const HWND button = parent.Add(TEXT("Button"), TEXT(""), BS_BITMAP);
    const HBITMAP first = CreateBitmap(8, 8, 1, 1, nullptr);
    const HBITMAP second = CreateBitmap(4, 4, 1, 1, nullptr);
    EXPECT_EQ(SendMessageW(button, BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(first)), 0);
    EXPECT_EQ(SendMessageW(button, BM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(second)),
              reinterpret_cast<LRESULT>(first));
    EXPECT_EQ(SendMessageW(button, BM_GETIMAGE, IMAGE_BITMAP, 0), reinterpret_cast<LRESULT>(second));
    const auto font = GetStockObject(DEFAULT_GUI_FONT);
    SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    EXPECT_EQ(SendMessageW(button, WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(font));
    DestroyWindow(button);
    EXPECT_TRUE(DeleteObject(first));
    EXPECT_TRUE(DeleteObject(second)) << "images stay the program's";
}

} // namespace
