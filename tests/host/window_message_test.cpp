// Windows and their messages, as a program sees them.
#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/last_error.h"
#include "tests/host/wine.h"

namespace {

using Messages = std::vector<UINT>;

constexpr UINT kAnswered = WM_APP + 1;
constexpr LPCWSTR kClass = TEXT("WindowTestRecorder");

Messages seen; // messages that the recording procedure got and the test asks for
Messages wanted;

LRESULT CALLBACK Recorder(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const UINT each : wanted) {
        if (each == message)
            seen.push_back(message);
    }
    if (message == kAnswered)
        return static_cast<LRESULT>(wParam) * 2 + (InSendMessage() ? 1000 : 0);
    return DefWindowProcW(window, message, wParam, lParam);
}

class WindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        WNDCLASSW description = {};
        description.lpfnWndProc = Recorder;
        description.cbWndExtra = 8;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
        description.lpszClassName = kClass;
        ASSERT_NE(RegisterClassW(&description), 0);
    }
    void TearDown() override
    {
        for (const HWND window : windows_) {
            if (IsWindow(window))
                DestroyWindow(window);
        }
        EXPECT_TRUE(UnregisterClassW(kClass, GetModuleHandleW(nullptr)));
    }

    HWND Make(DWORD style, HWND parent = nullptr, RECT place = {20, 30, 220, 180}, DWORD exStyle = 0)
    {
        windows_.push_back(CreateWindowExW(exStyle, kClass, TEXT("text"), style, place.left, place.top,
                                           place.right - place.left, place.bottom - place.top, parent,
                                           nullptr, GetModuleHandleW(nullptr), nullptr));
        return windows_.back();
    }
    HWND MakeShown()
    {
        const HWND window = Make(WS_POPUP | WS_VISIBLE);
        UpdateWindow(window);
        DrainQueue();
        return window;
    }
    HWND MakeChild(HWND parent, RECT place = {0, 0, 50, 50})
    {
        return Make(WS_CHILD | WS_VISIBLE, parent, place);
    }

    /// What the procedure got of `messages` while `action` ran.
    template <class Action>
    static Messages Recorded(Messages messages, Action action)
    {
        wanted = std::move(messages);
        seen.clear();
        action();
        wanted.clear();
        return seen;
    }

    static void DrainQueue()
    {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }

private:
    std::vector<HWND> windows_;
};

TEST_F(WindowTest, CreationAndDestructionTellTheWindowInOrder)
{
    const Messages kAll = {WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE, WM_DESTROY, WM_NCDESTROY};
    HWND window = nullptr;
    EXPECT_EQ(Recorded(kAll, [&] { window = Make(WS_POPUP); }),
              (Messages{WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE}));
    const HWND child = MakeChild(window);
    EXPECT_EQ(Recorded(kAll, [&] { DestroyWindow(window); }),
              (Messages{WM_DESTROY, WM_DESTROY, WM_NCDESTROY, WM_NCDESTROY}));
    EXPECT_FALSE(IsWindow(window) || IsWindow(child));
}

TEST_F(WindowTest, ClassesAreKnownOnceAndKeptWhileUsed)
{
    const HMODULE self = GetModuleHandleW(nullptr);
    WNDCLASSW description = {};
    ASSERT_TRUE(GetClassInfoW(self, TEXT("WINDOWTESTRECORDER"), &description));
    description.lpszClassName = kClass;
    EXPECT_TRUE(Fails(ERROR_CLASS_ALREADY_EXISTS, RegisterClassW(&description)));
    const HWND window = Make(WS_POPUP);
    EXPECT_TRUE(Fails(ERROR_CLASS_HAS_WINDOWS, UnregisterClassW(kClass, self)));
    DestroyWindow(window);
    EXPECT_FALSE(GetClassInfoW(nullptr, TEXT("NoSuchClass"), &description));
    const auto create = [&](LPCWSTR name, DWORD style) {
        return CreateWindowExW(0, name, nullptr, style, 0, 0, 1, 1, nullptr, nullptr, self, nullptr);
    };
    EXPECT_TRUE(Fails(ERROR_TLW_WITH_WSCHILD, create(kClass, WS_CHILD)));
    EXPECT_TRUE(OnWine() || Fails(ERROR_CANNOT_FIND_WND_CLASS, create(TEXT("NoSuchClass"), WS_POPUP)));
}

TEST_F(WindowTest, LongsAreReadWhereTheyWereWrittenAndNowhereElse)
{
    const HWND window = Make(WS_POPUP);
    EXPECT_EQ(SetWindowLongPtrW(window, 0, 0x1122334455667788), 0);
    EXPECT_EQ(GetWindowLongPtrW(window, 0), 0x1122334455667788);
    EXPECT_EQ(GetWindowLongW(window, 4), 0x11223344);
    EXPECT_TRUE(Fails(ERROR_INVALID_INDEX, GetWindowLongPtrW(window, 1))) << "beyond the extra bytes";
}

TEST_F(WindowTest, SentMessagesOvertakePostedOnesAndPaintingComesLast)
{
    const HWND window = MakeShown();
    const Messages order = Recorded({kAnswered, WM_PAINT, WM_USER}, [&] {
        InvalidateRect(window, nullptr, TRUE);
        PostMessageW(window, WM_USER, 0, 0);
        SendMessageW(window, kAnswered, 0, 0);
        DrainQueue();
    });
    EXPECT_EQ(order, (Messages{kAnswered, WM_USER, WM_PAINT}));
}

TEST_F(WindowTest, QuitComesAfterWhatWasPosted)
{
    const HWND window = MakeShown();
    PostQuitMessage(7);
    PostMessageW(window, WM_USER, 0, 0);
    MSG message;
    EXPECT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(WindowTest, FiltersLeaveOtherMessagesWhereTheyAre)
{
    const HWND window = Make(WS_POPUP);
    DrainQueue();
    PostMessageW(window, WM_USER, 1, 0);
    PostMessageW(window, WM_USER + 1, 2, 0);
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, window, WM_USER + 1, WM_USER + 1, PM_NOREMOVE));
    EXPECT_EQ(message.wParam, 2u);
    for (const WPARAM expected : {1u, 2u}) {
        ASSERT_TRUE(PeekMessageW(&message, window, WM_USER, WM_USER + 1, PM_REMOVE));
        EXPECT_EQ(message.wParam, expected);
    }
}

TEST_F(WindowTest, TimerMessagesComeUntilTheTimerIsKilled)
{
    const HWND window = Make(WS_POPUP);
    DrainQueue();
    ASSERT_NE(SetTimer(window, 77, 10, nullptr), 0u);
    MSG message;
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(GetMessageW(&message, window, WM_TIMER, WM_TIMER));
        EXPECT_EQ(message.wParam, 77u);
    }
    EXPECT_TRUE(KillTimer(window, 77));
    EXPECT_FALSE(KillTimer(window, 77));
}

TEST_F(WindowTest, OtherThreadsAreAnsweredByTheWindowsThread)
{
    const HWND window = Make(WS_POPUP);
    DrainQueue();
    std::atomic<LRESULT> answer = 0;
    std::thread other([&] {
        EXPECT_FALSE(DestroyWindow(window)) << "only its own thread may";
        answer = SendMessageW(window, kAnswered, 4, 0);
        PostMessageW(window, WM_USER, 0, 0);
    });
    MSG message;
    do {
        ASSERT_GT(GetMessageW(&message, nullptr, 0, 0), 0);
    } while (message.message != WM_USER);
    other.join();
    EXPECT_EQ(answer, 1008);
}

TEST_F(WindowTest, MovingAndSizingTellsOnlyWhatChanged)
{
    const HWND window = Make(WS_POPUP);
    const struct
    {
        int left, width;
        Messages told;
    } cases[] = {
        {50, 200, {WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_MOVE}},
        {50, 210, {WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_SIZE}},
        {51, 220, {WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE, WM_SIZE}},
        {51, 220, {WM_WINDOWPOSCHANGING}},
    };
    for (const auto& each : cases) {
        const auto move = [&] {
            SetWindowPos(window, nullptr, each.left, 60, each.width, 150, SWP_NOZORDER | SWP_NOACTIVATE);
        };
        EXPECT_EQ(
            Recorded({WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE, WM_SIZE}, move),
            each.told)
            << each.left << ' ' << each.width;
    }
}

TEST_F(WindowTest, FramesTakeAsMuchAsTheyAreAdjustedFor)
{
    constexpr std::pair<DWORD, DWORD> kStyles[] = {
        {WS_POPUP, 0},
        {WS_POPUP | WS_BORDER, 0},
        {WS_POPUP | WS_DLGFRAME, 0},
        {WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME},
        {WS_POPUP | WS_THICKFRAME | WS_CAPTION, 0},
        {WS_POPUP, WS_EX_CLIENTEDGE},
        {WS_POPUP, WS_EX_STATICEDGE},
    };
    for (const auto& [style, exStyle] : kStyles) {
        SCOPED_TRACE(std::to_string(style) + ' ' + std::to_string(exStyle));
        RECT place = {50, 50, 250, 200};
        AdjustWindowRectEx(&place, style, FALSE, exStyle);
        const HWND window = Make(style, nullptr, place, exStyle);
        RECT client;
        GetClientRect(window, &client);
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
        const RECT expected = {50, 50, 250, 200};
        EXPECT_TRUE(EqualRect(&client, &expected));
    }
}

TEST_F(WindowTest, TreeIsWalkedInDrawingOrder)
{
    const HWND parent = Make(WS_POPUP);
    const HWND first = MakeChild(parent);
    const HWND second = MakeChild(parent, {25, 25, 75, 75});
    const HWND grandchild = Make(WS_CHILD, first, {0, 0, 10, 10});
    EXPECT_EQ(GetWindow(parent, GW_CHILD), first);
    EXPECT_EQ(GetWindow(first, GW_HWNDNEXT), second);
    EXPECT_EQ(GetAncestor(grandchild, GA_ROOT), parent);
    EXPECT_TRUE(IsChild(parent, grandchild));
    EXPECT_FALSE(IsChild(second, grandchild));
    EXPECT_EQ(ChildWindowFromPoint(parent, {30, 30}), first);
    SetWindowPos(second, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(ChildWindowFromPoint(parent, {30, 30}), second);
    std::vector<HWND> all;
    const auto keep = [](HWND window, LPARAM list) -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
        return TRUE;
    };
    EnumChildWindows(parent, keep, reinterpret_cast<LPARAM>(&all));
    EXPECT_EQ(all, (std::vector<HWND>{second, first, grandchild}));
}

TEST_F(WindowTest, OwnedWindowsStayAboveTheirOwnerAndGoWithIt)
{
    const HWND owner = Make(WS_POPUP | WS_VISIBLE);
    const HWND owned = Make(WS_POPUP | WS_VISIBLE, owner);
    SetWindowPos(owner, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    HWND above = GetWindow(owner, GW_HWNDPREV);
    while (above != nullptr && above != owned)
        above = GetWindow(above, GW_HWNDPREV);
    EXPECT_EQ(above, owned);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), owner);
    EXPECT_EQ(GetAncestor(owned, GA_ROOTOWNER), owner);
    DestroyWindow(owner);
    EXPECT_FALSE(IsWindow(owned));
}

TEST_F(WindowTest, FocusFollowsActivationAndLeavesHiddenAndDisabledWindows)
{
    const HWND window = MakeShown();
    SetActiveWindow(window);
    const HWND child = MakeChild(window);
    SetFocus(child);
    EXPECT_EQ(GetFocus(), child);
    EXPECT_EQ(GetActiveWindow(), window);
    EXPECT_EQ(Recorded({WM_KILLFOCUS, WM_SETFOCUS}, [&] { SetFocus(window); }),
              (Messages{WM_KILLFOCUS, WM_SETFOCUS}));
    EXPECT_FALSE(EnableWindow(child, FALSE));
    EXPECT_TRUE(EnableWindow(child, FALSE)) << "it was disabled before";
    EXPECT_EQ(SetFocus(child), nullptr);
    EXPECT_EQ(GetFocus(), window);
    EnableWindow(child, TRUE);
    SetFocus(child);
    ShowWindow(child, SW_HIDE);
    EXPECT_NE(GetFocus(), child);
}

TEST_F(WindowTest, CaptureTellsItsLoser)
{
    const HWND window = MakeShown();
    const HWND child = MakeChild(window);
    SetCapture(window);
    EXPECT_EQ(Recorded({WM_CAPTURECHANGED}, [&] { EXPECT_EQ(SetCapture(child), window); }),
              Messages{WM_CAPTURECHANGED});
    const Messages kLoss = {WM_CANCELMODE, WM_CAPTURECHANGED, WM_ENABLE};
    EXPECT_EQ(Recorded(kLoss, [&] { EnableWindow(child, FALSE); }), kLoss);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(WindowTest, UpdateRegionGrowsAndIsPaintedAway)
{
    const HWND window = MakeShown();
    const auto painting = [&] { return Recorded({WM_PAINT, WM_ERASEBKGND}, [&] { UpdateWindow(window); }); };
    const RECT part = {10, 10, 20, 20};
    const RECT other = {30, 15, 40, 30};
    const RECT both = {10, 10, 40, 30};
    RECT update;
    EXPECT_FALSE(GetUpdateRect(window, &update, FALSE));
    InvalidateRect(window, &part, FALSE);
    InvalidateRect(window, &other, FALSE);
    ASSERT_TRUE(GetUpdateRect(window, &update, FALSE));
    EXPECT_TRUE(EqualRect(&update, &both));
    EXPECT_EQ(painting(), Messages{WM_PAINT});
    InvalidateRect(window, nullptr, TRUE);
    EXPECT_EQ(painting(), (Messages{WM_PAINT, WM_ERASEBKGND}));
    for (const BOOL redraw : {FALSE, TRUE}) {
        SendMessageW(window, WM_SETREDRAW, static_cast<WPARAM>(redraw), 0);
        InvalidateRect(window, nullptr, FALSE);
        EXPECT_EQ(painting().size(), static_cast<size_t>(redraw));
    }
}

TEST_F(WindowTest, PlacingUncoversOnlyWhatCouldBeSeen)
{
    const HWND window = MakeShown();
    const HWND child = Make(WS_CHILD, window, {0, 0, 50, 50});
    const HWND other = MakeChild(window);
    UpdateWindow(window);
    UpdateWindow(other);
    const auto asksFor = [&](int x, UINT flags) {
        SetWindowPos(child, HWND_TOP, x, 60, 30, 30, flags | SWP_NOACTIVATE);
        UpdateWindow(child);
        return GetUpdateRect(window, nullptr, FALSE) || GetUpdateRect(other, nullptr, FALSE);
    };
    EXPECT_FALSE(asksFor(60, SWP_SHOWWINDOW)) << "it was hidden where it was";
    EXPECT_FALSE(asksFor(60, SWP_SHOWWINDOW)) << "nothing changes";
    EXPECT_TRUE(asksFor(70, 0)) << "it leaves a gap";
}

TEST_F(WindowTest, TextAndPropertiesAreKept)
{
    const HWND window = Make(WS_POPUP);
    SetWindowTextW(window, TEXT("Printer"));
    WCHAR text[5];
    EXPECT_EQ(GetWindowTextLengthW(window), 7);
    EXPECT_EQ(GetWindowTextW(window, text, 5), 4);
    EXPECT_EQ(lstrcmpW(text, TEXT("Prin")), 0);
    EXPECT_TRUE(SetPropW(window, TEXT("Key"), window));
    EXPECT_EQ(GetPropW(window, TEXT("KEY")), window);
    EXPECT_EQ(RemovePropW(window, TEXT("Key")), window);
    EXPECT_EQ(GetPropW(window, TEXT("Key")), nullptr);
}

} // namespace
