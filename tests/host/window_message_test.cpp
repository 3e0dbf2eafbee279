#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/wine.h"

namespace {

constexpr UINT kAnswered = WM_APP + 1;
constexpr UINT kPostsToItself = WM_APP + 2;

std::vector<UINT> seen; // messages that the recording procedure got and the test asks for
std::vector<UINT> wanted;

LRESULT CALLBACK Recorder(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const UINT each : wanted) {
        if (each == message)
            seen.push_back(message);
    }
    switch (message) {
    case kAnswered:
        return static_cast<LRESULT>(wParam) * 2 + (InSendMessage() ? 1000 : 0);
    case kPostsToItself:
        PostMessageW(window, kAnswered, 0, 0);
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

constexpr LPCWSTR kClass = TEXT("WindowTestRecorder");

class WindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        WNDCLASSW description = {};
        description.style = CS_DBLCLKS;
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
        const HWND window = CreateWindowExW(exStyle, kClass, TEXT("text"), style, place.left, place.top,
                                            place.right - place.left, place.bottom - place.top, parent,
                                            nullptr, GetModuleHandleW(nullptr), nullptr);
        windows_.push_back(window);
        return window;
    }

    /// What the procedure got of `messages` while `action` ran.
    template <class Action>
    std::vector<UINT> Recorded(std::vector<UINT> messages, Action action)
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
    const std::vector<UINT> kAll = {WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE,   WM_SIZE,
                                    WM_MOVE,     WM_DESTROY,    WM_NCDESTROY};
    HWND window = nullptr;
    EXPECT_EQ(Recorded(kAll, [&] { window = Make(WS_POPUP); }),
              (std::vector<UINT>{WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE}));
    EXPECT_EQ(Recorded(kAll, [&] { DestroyWindow(window); }), (std::vector<UINT>{WM_DESTROY, WM_NCDESTROY}));
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(WindowTest, ParentsHearOfChildrenAndDieBeforeThem)
{
    const HWND parent = Make(WS_POPUP);
    HWND child = nullptr;
    EXPECT_EQ(Recorded({WM_PARENTNOTIFY}, [&] { child = Make(WS_CHILD, parent); }),
              std::vector<UINT>{WM_PARENTNOTIFY});
    EXPECT_TRUE(Recorded({WM_PARENTNOTIFY}, [&] {
                    DestroyWindow(Make(WS_CHILD, parent, {}, WS_EX_NOPARENTNOTIFY));
                }).empty());
    EXPECT_EQ(Recorded({WM_DESTROY, WM_NCDESTROY}, [&] { DestroyWindow(parent); }),
              (std::vector<UINT>{WM_DESTROY, WM_DESTROY, WM_NCDESTROY, WM_NCDESTROY}));
    EXPECT_FALSE(IsWindow(child));
}

TEST_F(WindowTest, RefusedCreationLeavesNoWindow)
{
    EXPECT_EQ(CreateWindowExW(0, TEXT("NoSuchClass"), nullptr, WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                              nullptr, nullptr),
              nullptr);
    const DWORD error = GetLastError();
    if (!OnWine()) {
        EXPECT_EQ(error, static_cast<DWORD>(ERROR_CANNOT_FIND_WND_CLASS));
    }
    EXPECT_EQ(CreateWindowExW(0, kClass, nullptr, WS_CHILD, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr),
              nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_TLW_WITH_WSCHILD));
}

TEST_F(WindowTest, ClassesAreKnownOnceAndKeptWhileUsed)
{
    WNDCLASSW description = {};
    ASSERT_TRUE(GetClassInfoW(GetModuleHandleW(nullptr), TEXT("WINDOWTESTRECORDER"), &description));
    description.lpszClassName = kClass;
    EXPECT_EQ(RegisterClassW(&description), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_ALREADY_EXISTS));
    const HWND window = Make(WS_POPUP);
    EXPECT_FALSE(UnregisterClassW(kClass, GetModuleHandleW(nullptr)));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CLASS_HAS_WINDOWS));
    DestroyWindow(window);
    EXPECT_FALSE(GetClassInfoW(nullptr, TEXT("NoSuchClass"), &description));
}

TEST_F(WindowTest, LongsAreReadWhereTheyWereWrittenAndNowhereElse)
{
    const HWND window = Make(WS_POPUP);
    EXPECT_EQ(SetWindowLongPtrW(window, 0, 0x1122334455667788), 0);
    EXPECT_EQ(GetWindowLongPtrW(window, 0), 0x1122334455667788);
    EXPECT_EQ(GetWindowLongW(window, 4), 0x11223344);
    SetLastError(0);
    EXPECT_EQ(GetWindowLongPtrW(window, 1), 0) << "beyond the class's extra bytes";
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_INDEX));
    SetWindowLongPtrW(window, GWLP_USERDATA, 42);
    EXPECT_EQ(SetWindowLongPtrW(window, GWLP_USERDATA, 43), 42);
}

LRESULT CALLBACK Triple(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return message == kAnswered ? 3 * CallWindowProcW(Recorder, window, message, wParam, lParam)
                                : CallWindowProcW(Recorder, window, message, wParam, lParam);
}

TEST_F(WindowTest, SubclassSeesMessagesFirst)
{
    const HWND window = Make(WS_POPUP);
    EXPECT_EQ(SendMessageW(window, kAnswered, 5, 0), 10);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Triple));
    EXPECT_EQ(SendMessageW(window, kAnswered, 5, 0), 30);
}

TEST_F(WindowTest, SentMessagesOvertakePostedOnesAndPaintingComesLast)
{
    const HWND window = Make(WS_POPUP | WS_VISIBLE);
    UpdateWindow(window);
    DrainQueue();
    const std::vector<UINT> order = Recorded({kAnswered, WM_PAINT, WM_USER}, [&] {
        InvalidateRect(window, nullptr, TRUE);
        PostMessageW(window, WM_USER, 0, 0);
        SendMessageW(window, kAnswered, 0, 0);
        DrainQueue();
    });
    EXPECT_EQ(order, (std::vector<UINT>{kAnswered, WM_USER, WM_PAINT}));
}

TEST_F(WindowTest, QuitComesAfterWhatWasPostedAndOnlyOnce)
{
    const HWND window = Make(WS_POPUP);
    DrainQueue();
    PostQuitMessage(7);
    PostMessageW(window, WM_USER, 0, 0);
    MSG message;
    ASSERT_TRUE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_USER));
    EXPECT_FALSE(GetMessageW(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 7u);
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
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
    ASSERT_TRUE(PeekMessageW(&message, window, WM_USER, WM_USER + 1, PM_REMOVE));
    EXPECT_EQ(message.wParam, 1u);
    ASSERT_TRUE(PeekMessageW(&message, window, WM_USER, WM_USER + 1, PM_REMOVE));
    EXPECT_EQ(message.wParam, 2u);
    PostMessageW(window, WM_USER, 3, 0);
    PostThreadMessageW(GetCurrentThreadId(), WM_USER, 4, 0);
    const HWND noWindow = reinterpret_cast<HWND>(-1);
    EXPECT_EQ(GetMessageW(&message, noWindow, 0, 0), TRUE);
    EXPECT_EQ(message.wParam, 4u) << "what was posted to the thread";
    EXPECT_EQ(GetMessageW(&message, window, 0, 0), TRUE);
    EXPECT_EQ(message.wParam, 3u);
}

TEST_F(WindowTest, TimerMessagesComeUntilTheTimerIsKilled)
{
    const HWND window = Make(WS_POPUP);
    DrainQueue();
    ASSERT_NE(SetTimer(window, 77, 10, nullptr), 0u);
    MSG message;
    ASSERT_TRUE(GetMessageW(&message, window, WM_TIMER, WM_TIMER));
    EXPECT_EQ(message.wParam, 77u);
    ASSERT_TRUE(GetMessageW(&message, window, WM_TIMER, WM_TIMER)) << "it is periodic";
    EXPECT_TRUE(KillTimer(window, 77));
    EXPECT_FALSE(KillTimer(window, 77));
}

TEST_F(WindowTest, OtherThreadsAreAnsweredByTheWindowsThread)
{
    const HWND window = Make(WS_POPUP);
    DrainQueue();
    std::atomic<LRESULT> answer = 0;
    std::thread other([&] {
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

TEST_F(WindowTest, WindowsOfOtherThreadsCannotBeDestroyed)
{
    const HWND window = Make(WS_POPUP);
    std::thread([&] { EXPECT_FALSE(DestroyWindow(window)); }).join();
    EXPECT_TRUE(IsWindow(window));
}

TEST_F(WindowTest, RegisteredMessagesHaveOneNumberAName)
{
    const UINT number = RegisterWindowMessageW(TEXT("WindowTestMessage"));
    EXPECT_GE(number, 0xC000u);
    EXPECT_EQ(RegisterWindowMessageW(TEXT("WINDOWTESTMESSAGE")), number);
    EXPECT_NE(RegisterWindowMessageW(TEXT("WindowTestOther")), number);
}

TEST_F(WindowTest, MovingAndSizingTellsOnlyWhatChanged)
{
    const std::vector<UINT> kAll = {WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE,
                                    WM_SIZE};
    const HWND window = Make(WS_POPUP);
    const struct
    {
        RECT place; // left, top, width, height
        std::vector<UINT> told;
    } cases[] = {
        {{50, 60, 200, 150}, {WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_MOVE}},
        {{50, 60, 210, 150}, {WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_SIZE}},
        {{51, 60, 220, 150}, {WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_MOVE, WM_SIZE}},
        {{51, 60, 220, 150}, {WM_WINDOWPOSCHANGING}},
    };
    for (const auto& each : cases) {
        const RECT& place = each.place;
        EXPECT_EQ(Recorded(kAll,
                           [&] {
                               SetWindowPos(window, nullptr, place.left, place.top, place.right, place.bottom,
                                            SWP_NOZORDER | SWP_NOACTIVATE);
                           }),
                  each.told)
            << place.left << ' ' << place.right;
    }
}

TEST_F(WindowTest, FramesTakeAsMuchAsTheyAreAdjustedFor)
{
    constexpr struct
    {
        DWORD style;
        DWORD exStyle;
    } kCases[] = {
        {WS_POPUP, 0},
        {WS_POPUP | WS_BORDER, 0},
        {WS_POPUP | WS_DLGFRAME, 0},
        {WS_POPUP | WS_CAPTION | WS_SYSMENU, WS_EX_DLGMODALFRAME},
        {WS_POPUP | WS_THICKFRAME | WS_CAPTION, 0},
        {WS_POPUP, WS_EX_CLIENTEDGE},
        {WS_POPUP, WS_EX_STATICEDGE},
    };
    for (const auto& each : kCases) {
        RECT adjusted = {0, 0, 200, 150};
        AdjustWindowRectEx(&adjusted, each.style, FALSE, each.exStyle);
        const HWND window = Make(
            each.style, nullptr,
            {50, 50, 50 + adjusted.right - adjusted.left, 50 + adjusted.bottom - adjusted.top}, each.exStyle);
        RECT client;
        GetClientRect(window, &client);
        EXPECT_EQ(client.right, 200) << std::hex << each.style << ' ' << each.exStyle;
        EXPECT_EQ(client.bottom, 150) << std::hex << each.style << ' ' << each.exStyle;
        POINT corner = {0, 0};
        ClientToScreen(window, &corner);
        EXPECT_EQ(corner.x, 50 - adjusted.left);
        EXPECT_EQ(corner.y, 50 - adjusted.top);
    }
}

TEST_F(WindowTest, ScrollBarsComeAndGoWithTheRange)
{
    const HWND window = Make(WS_POPUP);
    RECT before;
    RECT after;
    GetClientRect(window, &before);
    SCROLLINFO info = {sizeof info, SIF_RANGE | SIF_PAGE | SIF_POS, 0, 99, 10, 200, 0};
    EXPECT_EQ(SetScrollInfo(window, SB_VERT, &info, TRUE), 90) << "the last position with that page";
    GetClientRect(window, &after);
    EXPECT_EQ(before.right - after.right, GetSystemMetrics(SM_CXVSCROLL));
    EXPECT_NE(GetWindowLongW(window, GWL_STYLE) & WS_VSCROLL, 0);
    info.fMask = SIF_PAGE;
    info.nPage = 100;
    SetScrollInfo(window, SB_VERT, &info, TRUE);
    GetClientRect(window, &after);
    EXPECT_EQ(before.right, after.right);
}

TEST_F(WindowTest, TreeIsWalkedInDrawingOrder)
{
    const HWND parent = Make(WS_POPUP);
    const HWND first = Make(WS_CHILD | WS_VISIBLE, parent, {0, 0, 50, 50});
    const HWND second = Make(WS_CHILD | WS_VISIBLE, parent, {25, 25, 75, 75});
    const HWND grandchild = Make(WS_CHILD, first, {0, 0, 10, 10});
    EXPECT_EQ(GetWindow(parent, GW_CHILD), first);
    EXPECT_EQ(GetWindow(first, GW_HWNDNEXT), second);
    EXPECT_EQ(GetWindow(second, GW_HWNDLAST), second);
    EXPECT_EQ(GetAncestor(grandchild, GA_ROOT), parent);
    EXPECT_TRUE(IsChild(parent, grandchild));
    EXPECT_FALSE(IsChild(second, grandchild));
    EXPECT_EQ(ChildWindowFromPoint(parent, {30, 30}), first);
    SetWindowPos(second, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    EXPECT_EQ(ChildWindowFromPoint(parent, {30, 30}), second);
    EXPECT_EQ(GetTopWindow(parent), second);
    EXPECT_EQ(FindWindowExW(parent, second, kClass, nullptr), first);
    std::vector<HWND> all;
    EnumChildWindows(
        parent,
        [](HWND window, LPARAM list) -> BOOL {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&all));
    EXPECT_EQ(all, (std::vector<HWND>{second, first, grandchild}));
    EXPECT_EQ(SetParent(grandchild, second), first);
    EXPECT_EQ(GetParent(grandchild), second);
}

TEST_F(WindowTest, OwnedWindowsStayAboveTheirOwnerAndGoWithIt)
{
    const HWND owner = Make(WS_POPUP | WS_VISIBLE);
    const HWND owned = Make(WS_POPUP | WS_VISIBLE, owner);
    SetWindowPos(owner, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    bool ownedFirst = false;
    for (HWND each = GetTopWindow(nullptr); each != nullptr && each != owner;
         each = GetWindow(each, GW_HWNDNEXT))
        ownedFirst = ownedFirst || each == owned;
    EXPECT_TRUE(ownedFirst);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), owner);
    EXPECT_EQ(GetAncestor(owned, GA_ROOTOWNER), owner);
    DestroyWindow(owner);
    EXPECT_FALSE(IsWindow(owned));
}

TEST_F(WindowTest, FocusFollowsActivationAndLeavesHiddenAndDisabledWindows)
{
    const HWND window = Make(WS_POPUP | WS_VISIBLE);
    SetActiveWindow(window);
    const HWND child = Make(WS_CHILD | WS_VISIBLE, window, {0, 0, 50, 50});
    SetFocus(child);
    EXPECT_EQ(GetFocus(), child);
    EXPECT_EQ(GetActiveWindow(), window);
    EXPECT_EQ(Recorded({WM_KILLFOCUS, WM_SETFOCUS}, [&] { SetFocus(window); }),
              (std::vector<UINT>{WM_KILLFOCUS, WM_SETFOCUS}));
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
    const HWND window = Make(WS_POPUP | WS_VISIBLE);
    const HWND child = Make(WS_CHILD | WS_VISIBLE, window, {0, 0, 50, 50});
    SetCapture(window);
    EXPECT_EQ(Recorded({WM_CAPTURECHANGED}, [&] { EXPECT_EQ(SetCapture(child), window); }),
              std::vector<UINT>{WM_CAPTURECHANGED});
    EXPECT_EQ(Recorded({WM_CANCELMODE, WM_CAPTURECHANGED, WM_ENABLE}, [&] { EnableWindow(child, FALSE); }),
              (std::vector<UINT>{WM_CANCELMODE, WM_CAPTURECHANGED, WM_ENABLE}));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(WindowTest, UpdateRegionGrowsAndIsPaintedAway)
{
    const HWND window = Make(WS_POPUP | WS_VISIBLE);
    UpdateWindow(window);
    RECT update;
    EXPECT_FALSE(GetUpdateRect(window, &update, FALSE));
    const RECT part = {10, 10, 20, 20};
    const RECT other = {30, 15, 40, 30};
    InvalidateRect(window, &part, FALSE);
    InvalidateRect(window, &other, FALSE);
    ASSERT_TRUE(GetUpdateRect(window, &update, FALSE));
    const RECT both = {10, 10, 40, 30};
    EXPECT_TRUE(EqualRect(&update, &both));
    ValidateRect(window, &part);
    GetUpdateRect(window, &update, FALSE);
    EXPECT_TRUE(EqualRect(&update, &other));
    EXPECT_EQ(Recorded({WM_PAINT, WM_ERASEBKGND}, [&] { UpdateWindow(window); }),
              std::vector<UINT>{WM_PAINT});
    InvalidateRect(window, nullptr, TRUE);
    EXPECT_EQ(Recorded({WM_PAINT, WM_ERASEBKGND}, [&] { UpdateWindow(window); }),
              (std::vector<UINT>{WM_PAINT, WM_ERASEBKGND}));
}

TEST_F(WindowTest, PlacingUncoversOnlyWhatCouldBeSeen)
{
    const HWND window = Make(WS_POPUP | WS_VISIBLE);
    const HWND child = Make(WS_CHILD, window, {0, 0, 50, 50});
    const HWND other = Make(WS_CHILD | WS_VISIBLE, window, {0, 0, 50, 50});
    UpdateWindow(window);
    UpdateWindow(other);
    const auto asksFor = [&](HWND who, HWND after, int x, UINT flags) {
        SetWindowPos(who, after, x, 60, 30, 30, flags | SWP_NOACTIVATE);
        UpdateWindow(who);
        return GetUpdateRect(window, nullptr, FALSE) || GetUpdateRect(other, nullptr, FALSE);
    };
    EXPECT_FALSE(asksFor(child, HWND_TOP, 60, SWP_SHOWWINDOW)) << "it was hidden where it was";
    EXPECT_FALSE(asksFor(child, HWND_TOP, 60, SWP_SHOWWINDOW)) << "nothing changes";
    EXPECT_TRUE(asksFor(child, HWND_TOP, 70, 0)) << "it leaves a gap";
}

TEST_F(WindowTest, RedrawIsSwitchedOffAndOn)
{
    const HWND window = Make(WS_POPUP | WS_VISIBLE);
    UpdateWindow(window);
    SendMessageW(window, WM_SETREDRAW, FALSE, 0);
    InvalidateRect(window, nullptr, TRUE);
    EXPECT_TRUE(Recorded({WM_PAINT}, [&] { UpdateWindow(window); }).empty());
    SendMessageW(window, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(window, nullptr, TRUE);
    EXPECT_EQ(Recorded({WM_PAINT}, [&] { UpdateWindow(window); }), std::vector<UINT>{WM_PAINT});
}

TEST_F(WindowTest, TextIsCutToTheBuffer)
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

TEST_F(WindowTest, PointsAreMappedBetweenWindows)
{
    const HWND window = Make(WS_POPUP | WS_BORDER, nullptr, {100, 100, 300, 300});
    const HWND child = Make(WS_CHILD, window, {20, 30, 60, 70});
    POINT point = {1, 2};
    MapWindowPoints(child, window, &point, 1);
    EXPECT_EQ(point.x, 21);
    EXPECT_EQ(point.y, 32);
    RECT rect;
    GetWindowRect(child, &rect);
    EXPECT_EQ(rect.left, 121);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&rect), 2);
    EXPECT_EQ(rect.left, 20);
    EXPECT_EQ(rect.bottom, 70);
}

TEST_F(WindowTest, BatchesPlaceSeveralWindows)
{
    const HWND parent = Make(WS_POPUP);
    const HWND children[] = {Make(WS_CHILD, parent), Make(WS_CHILD, parent)};
    HDWP batch = BeginDeferWindowPos(2);
    for (int i = 0; i < 2; ++i)
        batch = DeferWindowPos(batch, children[i], nullptr, 10 * i, 0, 8, 9, SWP_NOZORDER);
    ASSERT_TRUE(EndDeferWindowPos(batch));
    RECT rect;
    GetClientRect(children[1], &rect);
    EXPECT_EQ(rect.right, 8);
    EXPECT_EQ(ChildWindowFromPoint(parent, {12, 3}), children[1]);
    if (!OnWine()) { // it takes anything, and nobody may end the batch then
        EXPECT_EQ(DeferWindowPos(BeginDeferWindowPos(1), nullptr, nullptr, 0, 0, 8, 9, 0), nullptr);
    }
}

} // namespace
