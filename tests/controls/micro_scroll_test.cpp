// The library's own window classes.
#include <gtest/gtest.h>

#include <vector>

#include "psui/controls/classes.h"
#include "psui/controls/frame.h"
#include "psui/controls/micro_scroll.h"
#include "tests/settings/support.h"

namespace psui {
namespace {

TEST(MicroScroll, StepsInsideOfItsRange)
{
    struct Case
    {
        DWORD style;
        uint16_t position;
        bool first;
        uint16_t after;
        bool told;
    };
    constexpr Case kCases[] = {
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
    for (const Case& each : kCases) {
        MicroScrollRecord record = {};
        record.style = each.style;
        record.maximum = 9;
        record.position = each.position;
        EXPECT_EQ(StepMicroScroll(record, each.first), each.told);
        EXPECT_EQ(record.position, each.after);
    }
}

TEST(MicroScroll, ReadsItsFieldsFromText)
{
    uint16_t fields[3];
    EXPECT_TRUE(ReadThreeFields(TEXT("0,20,50"), fields));
    EXPECT_EQ(fields[1], 20);
    EXPECT_EQ(fields[2], 50);
    EXPECT_TRUE(ReadThreeFields(TEXT("3,x,7y"), fields));
    EXPECT_EQ(fields[1], 0);
    EXPECT_EQ(fields[2], 7);
    EXPECT_FALSE(ReadThreeFields(TEXT("3"), fields));
    EXPECT_FALSE(ReadThreeFields(TEXT("3,4"), fields));
    EXPECT_FALSE(ReadThreeFields(TEXT(""), fields));
}

struct Notification
{
    UINT message;
    WORD code;
    int position;
};
std::vector<Notification> notifications;

LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_VSCROLL || message == WM_HSCROLL)
        notifications.push_back(
            LOWORD(wParam) == 5 ? Notification{message, LOWORD(wParam), static_cast<int>(lParam)}
                                : Notification{message, LOWORD(wParam), static_cast<int>(HIWORD(wParam))});
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
    ASSERT_EQ(notifications.size(), 3u) << "position, range, position";
    EXPECT_EQ(notifications[0].position, 15);
    EXPECT_EQ(notifications[1].code, 3);
    EXPECT_EQ(notifications[1].position, 7) << "the control's id";
    EXPECT_EQ(notifications[2].position, 5);
    EXPECT_EQ(SendMessageW(control, MUS_SETCOLOR, 5, 1), 0);
    EXPECT_EQ(static_cast<COLORREF>(SendMessageW(control, MUS_SETCOLOR, 2, 0x123456)), kSystemDefault);
    EXPECT_EQ(SendMessageW(control, MUS_GETCOLOR, 2, 0), 0x123456);
    EXPECT_EQ(SendMessageW(control, WM_USER, 0, 0), 0);
    EXPECT_EQ(SendMessageW(control, MUS_SETASSOCIATE, 0, 0), -1);
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
    ASSERT_EQ(notifications.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(notifications[static_cast<size_t>(i)].message, static_cast<UINT>(WM_VSCROLL));
        EXPECT_EQ(notifications[static_cast<size_t>(i)].code, 0);
        EXPECT_EQ(notifications[static_cast<size_t>(i)].position, 4 - i);
    }
    notifications.clear();
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 35));
    SendMessageW(control, WM_CANCELMODE, 0, 0);
    ASSERT_EQ(notifications.size(), 1u);
    EXPECT_EQ(notifications[0].code, 1);
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
    EXPECT_EQ(notifications[0].position, kControlTouched);
    SetDefaultButton(button, 8);
    EXPECT_EQ(GetWindowLongPtrW(button, GWL_STYLE) & 0xF, BS_PUSHBUTTON);
    SetDefaultButton(button, 7);
    EXPECT_EQ(GetWindowLongPtrW(button, GWL_STYLE) & 0xF, BS_DEFPUSHBUTTON);
}

} // namespace
} // namespace psui
