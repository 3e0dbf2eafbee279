// The library's own window classes.
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include <commctrl.h>

#include "psui/base/procedure.h"
#include "psui/controls/classes.h"
#include "psui/controls/control_record.h"
#include "psui/controls/frame.h"
#include "psui/controls/micro_scroll.h"
#include "tests/host/gdi_canvas.h"
#include "tests/settings/support.h"

namespace psui {
namespace {

TEST(MicroScroll, StepsInsideOfItsRange)
{
    const std::tuple<DWORD, uint16_t, bool, uint16_t, bool> cases[] = {
        {0, 5, true, 4, true},
        {0, 5, false, 6, true},
        {0, 0, true, 0, true},
        {0, 9, false, 9, true},
        {MUS_NOPEG, 0, true, 0, false},
        {MUS_NOPEG, 1, true, 0, true},
        {MUS_INVERT, 5, true, 6, true},
        {MUS_INVERT, 5, false, 4, true},
        {MUS_INVERT | MUS_NOPEG, 9, true, 9, false},
    };
    for (const auto& [style, position, first, after, told] : cases) {
        MicroScrollRecord record = {};
        record.style = style;
        record.maximum = 9;
        record.position = position;
        EXPECT_EQ(StepMicroScroll(record, first), told);
        EXPECT_EQ(record.position, after);
    }
}

TEST(MicroScroll, ReadsItsFieldsFromText)
{
    uint16_t fields[3];
    for (const auto& [text, second, third] : {std::tuple{TEXT("0,20,50"), 20, 50}, {TEXT("3,x,7y"), 0, 7}}) {
        EXPECT_TRUE(ReadThreeFields(text, fields));
        EXPECT_EQ(fields[1], second);
        EXPECT_EQ(fields[2], third);
    }
    for (const WCHAR* text : {TEXT("3"), TEXT("3,4"), TEXT("")})
        EXPECT_FALSE(ReadThreeFields(text, fields));
}

using Notification = std::tuple<UINT, WORD, int>; // message, code, position or control
std::vector<Notification> notifications;

LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_VSCROLL || message == WM_HSCROLL)
        notifications.push_back(
            {message, LOWORD(wParam),
             LOWORD(wParam) == SB_THUMBTRACK ? static_cast<int>(lParam) : static_cast<int>(HIWORD(wParam))});
    if (message == WM_COMMAND)
        notifications.push_back({message, HIWORD(lParam), LOWORD(wParam)});
    return DefWindowProcW(window, message, wParam, lParam);
}

class OwnClasses : public testing::Test
{
protected:
    OwnClasses()
    {
        RegisterControlClasses();
        WNDCLASSW description = {};
        description.lpfnWndProc = ParentProc;
        description.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
        description.lpszClassName = TEXT("MicroScrollParent");
        RegisterClassW(&description);
        parent_ = CreateWindowExW(0, TEXT("MicroScrollParent"), TEXT(""), WS_OVERLAPPED, 0, 0, 200, 200,
                                  nullptr, nullptr, nullptr, nullptr);
        notifications.clear();
    }
    ~OwnClasses() override
    {
        DestroyWindow(parent_);
        UnregisterClassW(TEXT("MicroScrollParent"), nullptr);
        UnregisterControlClasses();
    }
    HWND Create(const WCHAR* name, const WCHAR* text, DWORD style)
    {
        return CreateWindowExW(0, name, text, WS_CHILD | style, 10, 10, 20, 40, parent_,
                               reinterpret_cast<HMENU>(7), nullptr, nullptr);
    }

    test::World world_;
    HWND parent_;
};

TEST_F(OwnClasses, MicroScrollTakesRangeAndPosition)
{
    const HWND control = Create(kMicroScrollClass, TEXT("0,20,50"), MUS_VERTICAL | MUS_TEXTRANGE);
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(SendMessageW(control, MUS_GETRANGE, 0, 0), MAKELONG(0, 20));
    EXPECT_EQ(SendMessageW(control, MUS_GETPOS, 0, 0), 10);
    EXPECT_EQ(SendMessageW(control, MUS_SETPOS, 21, 0), -1);
    EXPECT_EQ(SendMessageW(control, MUS_SETPOS, 15, 0), 10);
    EXPECT_EQ(SendMessageW(control, MUS_SETRANGE, 0, MAKELONG(5, 5)), -1);
    EXPECT_EQ(SendMessageW(control, MUS_SETRANGE, 0, MAKELONG(0, 10)), MAKELONG(0, 20));
    EXPECT_EQ(SendMessageW(control, MUS_GETPOS, 0, 0), 5);
    // The position, the range with the control's id, and the position that is left of it.
    EXPECT_EQ(notifications,
              (std::vector<Notification>{{WM_VSCROLL, 5, 15}, {WM_COMMAND, 3, 7}, {WM_VSCROLL, 5, 5}}));
    EXPECT_EQ(SendMessageW(control, MUS_SETCOLOR, 5, 1), 0);
    EXPECT_EQ(static_cast<COLORREF>(SendMessageW(control, MUS_SETCOLOR, 2, 0x123456)), kSystemDefault);
    EXPECT_EQ(SendMessageW(control, MUS_GETCOLOR, 2, 0), 0x123456);
    EXPECT_EQ(SendMessageW(control, WM_USER, 0, 0), 0);
    EXPECT_EQ(SendMessageW(control, MUS_SETASSOCIATE, 0, 0), -1);

    const HWND reversed = Create(kMicroScrollClass, TEXT("20,0,5"), MUS_VERTICAL | MUS_TEXTRANGE);
    EXPECT_EQ(SendMessageW(reversed, MUS_GETRANGE, 0, 0), MAKELONG(0, 9))
        << "a range that ends first is none";
}

TEST_F(OwnClasses, MicroScrollRepeatsWhileItsHalfIsHeld)
{
    const HWND control = Create(kMicroScrollClass, TEXT(""), MUS_VERTICAL);
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(GetCapture(), control);
    SendMessageW(control, WM_TIMER, 500, 0);
    SendMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 35)); // the other half
    SendMessageW(control, WM_TIMER, 501, 0);
    SendMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 6));
    SendMessageW(control, WM_TIMER, 501, 0);
    SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(5, 6));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(notifications,
              (std::vector<Notification>{{WM_VSCROLL, 0, 4}, {WM_VSCROLL, 0, 3}, {WM_VSCROLL, 0, 2}}));
    notifications.clear();
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 35));
    SendMessageW(control, WM_CANCELMODE, 0, 0);
    EXPECT_EQ(notifications, (std::vector<Notification>{{WM_VSCROLL, 1, 3}}));
}

TEST_F(OwnClasses, HooksTellTheDialogWhatIsTouched)
{
    const HWND button = Create(TEXT("Button"), TEXT("x"), BS_DEFPUSHBUTTON);
    const HWND other = Create(TEXT("Static"), TEXT("x"), 0);
    for (const HWND child : {button, other})
        EXPECT_TRUE(SubClassChildWndProc(child, 0));
    SendMessageW(button, WM_SETFOCUS, 0, 0);
    SendMessageW(other, WM_SETFOCUS, 0, 0);
    ASSERT_GE(notifications.size(), 1u);
    EXPECT_EQ(std::get<int>(notifications[0]), kControlTouched);
    SetDefaultButton(button, 8);
    EXPECT_EQ(GetWindowLongPtrW(button, GWL_STYLE) & 0xF, BS_PUSHBUTTON);
    SetDefaultButton(button, 7);
    EXPECT_EQ(GetWindowLongPtrW(button, GWL_STYLE) & 0xF, BS_DEFPUSHBUTTON);
}

constexpr COLORREF kSlotColors[] = {RGB(1, 0, 0), RGB(2, 0, 0), RGB(3, 0, 0), RGB(4, 0, 0), RGB(5, 0, 0)};

/// What a control of the parent paints, as letters: f face, a arrow, s shadow, h highlight, o frame colour.
Picture Painted(HWND control, int width, int height)
{
    ShowWindow(GetParent(control), SW_SHOW);
    ShowWindow(control, SW_SHOW);
    RedrawWindow(GetParent(control), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    Canvas canvas(width, height);
    const HDC dc = GetDC(control);
    BitBlt(canvas.Dc(), 0, 0, width, height, dc, 0, 0, SRCCOPY);
    ReleaseDC(control, dc);
    Picture rows(static_cast<size_t>(height));
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const COLORREF color = canvas.Color(x, y);
            rows[static_cast<size_t>(y)] += color <= kSlotColors[4] ? ".fasho"[color] : '.';
        }
    return rows;
}

TEST_F(OwnClasses, FramePaintsNestedOutlinesOrAGroup)
{
    const std::tuple<const WCHAR*, DWORD, Picture> cases[] = {
        {TEXT("2,0,0"), 0, {"aaaaah", "aaaahh", "aa..hh", "aa..hh", "ahhhhh", "hhhhhh"}},
        {TEXT("1,0,0"), kFrameSwapsEdges, {"hhhhha", "h....a", "h....a", "h....a", "h....a", "aaaaaa"}},
        {TEXT("1,0,0"), kFrameFilled, {"ffffff", "faaahf", "faffhf", "faffhf", "fhhhhf", "ffffff"}},
        {TEXT("1,0,0"), kFrameOutlined, {"aaaaah", "aooooh", "ao..oh", "ao..oh", "aooooh", "hhhhhh"}},
        {TEXT("3"), 0, {"......", "......", "......", "......", "......", "......"}},
        {TEXT(""), 0, {"......", "......", "......", "......", "......", "......"}},
        {TEXT("0,0,0"), kFrameGroup, {"sssssh", "sssshh", "ssffhh", "ssffhh", "shhhhh", "hhhhhh"}},
    };
    for (const auto& [text, style, rows] : cases) {
        const HWND frame = CreateWindowExW(0, kFrameClass, text, WS_CHILD | style, 0, 0, 6, 6, parent_,
                                           nullptr, nullptr, nullptr);
        ASSERT_NE(frame, nullptr);
        std::copy(std::begin(kSlotColors), std::end(kSlotColors), RecordOf<FrameRecord>(frame)->colors.slots);
        EXPECT_EQ(Painted(frame, 6, 6), rows) << style;
        DestroyWindow(frame);
    }
}

TEST_F(OwnClasses, MicroScrollPaintsItsHalves)
{
    const HWND control = CreateWindowExW(0, kMicroScrollClass, TEXT(""), WS_CHILD | MUS_VERTICAL, 0, 0, 15,
                                         18, parent_, nullptr, nullptr, nullptr);
    for (WPARAM slot = 0; slot < 5; ++slot)
        SendMessageW(control, MUS_SETCOLOR, slot, static_cast<LPARAM>(kSlotColors[slot]));
    const Picture first = {"ooooooooooooooo", "ohhhhhhhhhhhsso", "ohffffffffffsso",
                           "ohfffffaffffsso", "ohfffaaaaaffsso", "ohffaaaaaaafsso",
                           "ohffffffffffsso", "ossssssssssssso", "ossssssssssssso"};
    const Picture second = {"ooooooooooooooo", "ohhhhhhhhhhhsso", "ohffffffffffsso",
                            "ohffaaaaaaafsso", "ohfffaaaaaffsso", "ohfffffaffffsso",
                            "ossssssssssssso", "ossssssssssssso", "ooooooooooooooo"};
    const Picture pressed = {"ooooooooooooooo", "ossssssssssssso", "osffffffffffffo",
                             "osffffffffffffo", "osfffaaaaaaaffo", "osffffaaaaafffo",
                             "osffffffafffffo", "osffffffffffffo", "ooooooooooooooo"};
    const auto halves = [](Picture up, const Picture& down) {
        up.insert(up.end(), down.begin(), down.end());
        return up;
    };
    EXPECT_EQ(Painted(control, 15, 18), halves(first, second));
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 15));
    EXPECT_EQ(Painted(control, 15, 18), halves(first, pressed));
    SendMessageW(control, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 3));
    EXPECT_EQ(Painted(control, 15, 18), halves(first, second)) << "the pointer is outside";
    SendMessageW(control, WM_LBUTTONUP, 0, MAKELPARAM(5, 15));
}

/// The exported procedures hook each class's controls, and pass on what they hear.
TEST(ExportedProcedures, HookControlsOfTheirClasses)
{
    const test::World world;
    const HMODULE library = LoadLibraryW(test::ProductFile("eng/psui.dll").c_str());
    const auto hook = FindProcedure<WNDENUMPROC>(library, "SubClassChildWndProc");
    ASSERT_NE(hook, nullptr);
    constexpr std::pair<const WCHAR*, const char*> kClasses[] = {
        {TEXT("BUTTON"), "NewButton"},
        {TEXT("ComboBox"), "NewComboBox"},
        {TEXT("edit"), "NewEdit"},
        {TEXT("ListBox"), "NewListBox"},
        {TEXT("ScrollBar"), "NewScrollBar"},
        {TEXT("CL_MUS"), "NewMuScroll"},
        {TEXT("msctls_updown32"), "NewUpdown"},
        {TEXT("CL_FRAME"), nullptr},
        {TEXT("Static"), nullptr},
    };
    InitCommonControls();
    const HWND parent = CreateWindowExW(0, TEXT("Static"), TEXT(""), WS_POPUP, 0, 0, 90, 90, nullptr, nullptr,
                                        nullptr, nullptr);
    for (const auto& [name, procedure] : kClasses) {
        const HWND control =
            CreateWindowExW(0, name, TEXT(""), WS_CHILD, 0, 0, 20, 20, parent, nullptr, nullptr, nullptr);
        ASSERT_NE(control, nullptr);
        const auto own = GetWindowLongPtrW(control, GWLP_WNDPROC);
        EXPECT_TRUE(hook(control, 0));
        const auto hooked = GetWindowLongPtrW(control, GWLP_WNDPROC);
        EXPECT_EQ(hooked,
                  procedure ? reinterpret_cast<LONG_PTR>(FindProcedure<WNDPROC>(library, procedure)) : own);
        EXPECT_NE(hooked, 0);
        SetWindowTextW(control, TEXT("heard"));
        EXPECT_EQ(GetWindowTextLengthW(control), lstrcmpiW(name, TEXT("CL_FRAME")) == 0 ? 0 : 5);
    }
    DestroyWindow(parent);
    FreeLibrary(library);
}

} // namespace
} // namespace psui
