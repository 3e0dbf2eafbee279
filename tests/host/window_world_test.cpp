// What only hosts see of windows: input, pictures, the idle hook, and the ledger.
#include <filesystem>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "host/host.h"
#include "host/window/dialog_template.h"
#include "tests/host/dialog_words.h"
#include "tests/host/memory_world.h"

namespace {

using Windows = MemoryWorld;

constexpr int kBox = 100;
constexpr int kField = 101;

/// A dialog with an edit control, a push button that opens a message box, and a default OK button.
DialogWords Sample()
{
    DialogWords words(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME, 120, 80);
    words.Add(TEXT("Edit"), TEXT(""), WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, kField, 5)
        .Add(TEXT("Button"), TEXT("&Box"), WS_TABSTOP, kBox, 30)
        .Add(TEXT("Button"), TEXT("OK"), WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, 50);
    return words;
}

int boxAnswer;
int helpFor;

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_HELP)
        helpFor = reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId;
    if (message == WM_INITDIALOG)
        SetWindowLongW(dialog, GWL_EXSTYLE, GetWindowLongW(dialog, GWL_EXSTYLE) | WS_EX_CONTEXTHELP);
    if (message == WM_COMMAND && LOWORD(wParam) == kBox)
        boxAnswer = MessageBoxW(dialog, TEXT("Text of the box"), TEXT("Box"), MB_YESNO | MB_DEFBUTTON2);
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL))
        EndDialog(dialog, LOWORD(wParam));
    return message == WM_INITDIALOG || message == WM_HELP;
}

INT_PTR RunDialog()
{
    return DialogBoxIndirectParamW(nullptr, Sample().Get(), nullptr, Procedure, 0);
}

HWND Make(LPCWSTR className, DWORD style, RECT place, HWND parent = nullptr)
{
    return CreateWindowExW(0, className, nullptr, style, place.left, place.top, place.right - place.left,
                           place.bottom - place.top, parent, nullptr, nullptr, nullptr);
}

void ClickAt(int x, int y)
{
    host::MoveMouse(x, y);
    host::PressMouse(host::MouseButton::Left);
    host::ReleaseMouse(host::MouseButton::Left);
}

RECT RectOf(HWND window)
{
    RECT rect;
    GetWindowRect(window, &rect);
    return rect;
}

void ClickOn(int id)
{
    const RECT rect = RectOf(GetDlgItem(GetActiveWindow(), id));
    ClickAt((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
}

/// On a button in the caption of the active window.
void ClickOnCaption(int fromRight)
{
    const RECT rect = RectOf(GetActiveWindow());
    ClickAt(rect.right - fromRight, rect.top + 12);
}

std::function<void()> Keys(std::vector<unsigned> keys)
{
    return [keys] {
        for (const unsigned key : keys)
            host::PressKey(key);
    };
}

/// Plays one step whenever the queue is empty.
void Play(std::vector<std::function<void()>> steps)
{
    host::SetIdleHook([steps = std::move(steps), next = size_t{0}]() mutable {
        if (next == steps.size())
            return false;
        steps[next++]();
        return true;
    });
}

TEST_F(Windows, ModalLoopFailsWhenNothingCanFillTheQueue)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(RunDialog(), -1);
    EXPECT_NE(testing::internal::GetCapturedStderr().find("message queue is empty"), std::string::npos);
    EXPECT_EQ(host::OpenObjects().windows, 0);
}

TEST_F(Windows, TypedTextAndClicksReachTheControls)
{
    WCHAR typed[20] = {};
    Play({[] { host::TypeText(u"Ab1! \u3042"); }, [&] { GetWindowTextW(GetFocus(), typed, 20); },
          [] { ClickOn(IDOK); }});
    EXPECT_EQ(RunDialog(), IDOK);
    EXPECT_EQ(std::u16string(typed), u"Ab1! \u3042");
}

TEST_F(Windows, FiltersLeaveOtherWindowsInput)
{
    const HWND other = Make(TEXT("Edit"), WS_POPUP | WS_VISIBLE, {0, 0, 100, 100});
    const HWND typedInto = Make(TEXT("Edit"), WS_POPUP | WS_VISIBLE, {200, 0, 300, 100});
    SetFocus(typedInto);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    host::PressKeyDown('A');
    host::MoveMouse(50, 50);
    EXPECT_FALSE(PeekMessageW(&message, other, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
    EXPECT_FALSE(PeekMessageW(&message, typedInto, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE));
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_MOUSEMOVE});
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
    EXPECT_EQ(message.hwnd, typedInto);
    DestroyWindow(other);
    DestroyWindow(typedInto);
}

TEST_F(Windows, MessageBoxIsAnsweredByKeysAndItsOwnerWaits)
{
    struct
    {
        const char* name;
        std::function<void()> answer;
        int expected;
    } cases[] = {{"mnemonic", Keys({'Y'}), IDYES},
                 {"default", Keys({VK_RETURN}), IDNO},
                 {"Esc does not answer", Keys({VK_ESCAPE, 'N'}), IDNO},
                 {"mouse", [] { ClickOn(IDYES); }, IDYES}};
    for (const auto& each : cases) {
        boxAnswer = 0;
        bool ownerEnabled = true;
        Play({[] { host::PressKeyDown(VK_MENU), host::PressKey('B'), host::ReleaseKey(VK_MENU); },
              [&] { ownerEnabled = IsWindowEnabled(GetWindow(GetActiveWindow(), GW_OWNER)); }, each.answer,
              Keys({VK_TAB}), [] { ClickOn(IDOK); }});
        EXPECT_EQ(RunDialog(), IDOK) << each.name;
        EXPECT_EQ(boxAnswer, each.expected) << each.name;
        EXPECT_FALSE(ownerEnabled) << each.name;
    }
}

TEST_F(Windows, CloseButtonCancelsWhenReleasedOnIt)
{
    Play({[] { ClickOnCaption(20); }});
    EXPECT_EQ(RunDialog(), IDCANCEL);
}

TEST_F(Windows, LoopsThatFollowTheMouseHandQuitOn)
{
    constexpr int kExitCode = 7;
    const HWND window =
        Make(TEXT("Static"), WS_POPUP | WS_CAPTION | WS_VSCROLL | WS_VISIBLE, {0, 0, 200, 200});
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, TEXT("Item"));
    const auto pressFrame = [&](WPARAM part) {
        return [=] { SendMessageW(window, WM_NCLBUTTONDOWN, part, MAKELPARAM(195, 190)); };
    };
    const struct
    {
        const char* name;
        std::function<void()> run;
    } cases[] = {{"moving", pressFrame(HTCAPTION)},
                 {"caption button", pressFrame(HTCLOSE)},
                 {"scroll bar", pressFrame(HTVSCROLL)},
                 {"help", [&] { SendMessageW(window, WM_SYSCOMMAND, SC_CONTEXTHELP, 0); }},
                 {"menu", [&] { TrackPopupMenu(menu, 0, 10, 10, 0, window, nullptr); }}};
    for (const auto& each : cases) {
        bool asked = false;
        Play({[&] {
            asked = GetCapture() == window;
            PostQuitMessage(kExitCode);
        }});
        each.run();
        EXPECT_TRUE(asked) << each.name;
        MSG message = {};
        EXPECT_EQ(GetMessageW(&message, nullptr, 0, 0), FALSE) << each.name;
        EXPECT_EQ(message.wParam, WPARAM{kExitCode}) << each.name;
    }
    DestroyMenu(menu);
    DestroyWindow(window);
}

TEST_F(Windows, HelpIsAskedForByKeyAndByTheCaptionsButton)
{
    int byKey = 0;
    Play({Keys({VK_F1}),
          [&] {
              byKey = std::exchange(helpFor, 0);
              ClickOnCaption(56);
          },
          [] {
              EnableWindow(GetDlgItem(GetActiveWindow(), kBox), FALSE);
              ClickOn(kBox);
          },
          Keys({VK_RETURN})});
    EXPECT_EQ(RunDialog(), IDOK);
    EXPECT_EQ(byKey, kField);
    EXPECT_EQ(helpFor, kBox) << "a disabled control, too";
}

TEST_F(Windows, ThousandDialogsLeaveNothing)
{
    host::SetIdleHook([] {
        host::PressKey(VK_RETURN);
        return true;
    });
    RunDialog(); // what is made once is made now
    const host::Ledger before = host::OpenObjects();
    for (int i = 0; i < 1000; ++i)
        ASSERT_EQ(RunDialog(), IDOK);
    EXPECT_EQ(host::OpenObjects(), before);
}

TEST_F(Windows, ShortcutMenuReturnsWhatWasChosen)
{
    const HWND owner = Make(TEXT("Static"), WS_POPUP | WS_VISIBLE, {0, 0, 200, 200});
    SetActiveWindow(owner);
    const HMENU menu = CreatePopupMenu();
    const HMENU inner = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 11, TEXT("&First"));
    AppendMenuW(menu, MF_STRING | MF_GRAYED, 12, TEXT("&Grayed"));
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), TEXT("&More"));
    AppendMenuW(inner, MF_STRING, 21, TEXT("&Inner"));
    const struct
    {
        const char* name;
        std::function<void()> act;
        int chosen;
    } cases[] = {{"mouse", [] { ClickAt(60, 65); }, 11},
                 {"outside", [] { ClickAt(500, 500); }, 0},
                 {"keys", Keys({VK_DOWN, VK_RETURN}), 11},
                 {"mnemonic", Keys({'F'}), 11},
                 {"grayed", Keys({'G', VK_ESCAPE}), 0},
                 {"inner", Keys({'M', 'I'}), 21},
                 {"Esc", Keys({VK_ESCAPE}), 0}};
    const int64_t windows = host::OpenObjects().windows;
    for (const auto& each : cases) {
        Play({each.act});
        EXPECT_EQ(TrackPopupMenu(menu, TPM_RETURNCMD, 50, 50, 0, owner, nullptr), each.chosen) << each.name;
        EXPECT_EQ(host::OpenObjects().windows, windows) << each.name;
    }
    DestroyMenu(menu);
    DestroyWindow(owner);
    EXPECT_EQ(host::OpenObjects().menus, 0);
}

TEST_F(Windows, ChildrenCannotPaintOutsideOfThemselves)
{
    const HWND top = Make(TEXT("Static"), WS_POPUP | WS_VISIBLE, {0, 0, 100, 100});
    Make(TEXT("Static"), WS_CHILD | WS_VISIBLE | SS_WHITERECT, {0, 0, 30, 30}, top);
    const HWND red = Make(TEXT("Static"), WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, {20, 20, 60, 60}, top);
    const std::filesystem::path file = std::filesystem::path(host::RootFolder()) / "picture.png";
    EXPECT_TRUE(host::ShootWindow(top, file));
    EXPECT_GT(std::filesystem::file_size(file), 50u);
    const HDC inside = GetDC(red);
    const RECT everywhere = {-100, -100, 1000, 1000};
    const HBRUSH brush = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(inside, &everywhere, brush);
    DeleteObject(brush);
    ReleaseDC(red, inside);
    const HDC dc = GetDC(top);
    constexpr struct
    {
        int x, y;
        bool red;
    } kPixels[] = {{25, 25, false}, {19, 40, false}, {35, 35, true}, {59, 59, true}, {60, 40, false}};
    for (const auto& each : kPixels)
        EXPECT_EQ(GetPixel(dc, each.x, each.y) == RGB(255, 0, 0), each.red) << each.x << ' ' << each.y;
    ReleaseDC(top, dc);
    EXPECT_FALSE(host::ShootWindow(red, "/no/such/folder/picture.png"));
    DestroyWindow(top);
    EXPECT_FALSE(host::ShootWindow(top, file));
}

TEST_F(Windows, CutTemplatesAreRefusedAtEveryLength)
{
    const DialogWords words = Sample();
    const auto bytes = std::as_bytes(std::span(words.Words()));
    host::DialogTemplate whole;
    ASSERT_TRUE(host::ReadDialogTemplate(bytes, whole));
    EXPECT_EQ(whole.items.size(), 3u);
    for (size_t length = 0; length < bytes.size(); ++length) {
        host::DialogTemplate cut;
        EXPECT_FALSE(host::ReadDialogTemplate(bytes.first(length), cut)) << length;
    }
}

} // namespace
