// What only hosts see of windows: input, pictures, the idle hook, and the ledger.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "host/host.h"
#include "host/window/dialog_template.h"
#include "tests/host/memory_world.h"

namespace {

using Windows = MemoryWorld;

/// A dialog with a default OK button, an edit control and a push button (100) that opens a message box.
std::vector<WORD> DialogWords()
{
    std::vector<WORD> words;
    const auto add = [&](std::initializer_list<WORD> more) { words.insert(words.end(), more); };
    const auto text = [&](std::u16string_view value) {
        words.insert(words.end(), value.begin(), value.end());
        words.push_back(0);
    };
    const DWORD frame = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_SETFONT | DS_MODALFRAME;
    add({LOWORD(frame), HIWORD(frame), 0, 0, 3, 10, 10, 120, 80, 0, 0});
    text(u"Title");
    add({8});
    text(u"MS Shell Dlg");
    const struct
    {
        const char16_t* className;
        const char16_t* label;
        DWORD style;
        WORD y;
        WORD id;
    } controls[] = {{u"Edit", u"", WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, 5, 101},
                    {u"Button", u"&Box", WS_TABSTOP, 30, 100},
                    {u"Button", u"OK", WS_TABSTOP | BS_DEFPUSHBUTTON, 50, IDOK}};
    for (const auto& each : controls) {
        if (words.size() % 2 != 0)
            add({0});
        const DWORD style = each.style | WS_CHILD | WS_VISIBLE;
        add({LOWORD(style), HIWORD(style), 0, 0, 5, each.y, 60, 14, each.id});
        text(each.className);
        text(each.label);
        add({0});
    }
    return words;
}

int boxAnswer;

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM)
{
    if (message == WM_COMMAND && LOWORD(wParam) == 100)
        boxAnswer = MessageBoxW(dialog, TEXT("Text of the box"), TEXT("Box"), MB_YESNO | MB_DEFBUTTON2);
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL))
        EndDialog(dialog, LOWORD(wParam));
    return message == WM_INITDIALOG;
}

INT_PTR RunDialog()
{
    const std::vector<WORD> words = DialogWords();
    return DialogBoxIndirectParamW(nullptr, reinterpret_cast<LPCDLGTEMPLATEW>(words.data()), nullptr,
                                   Procedure, 0);
}

void ClickOn(HWND window)
{
    RECT rect;
    GetWindowRect(window, &rect);
    host::MoveMouse((rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    host::PressMouse(host::MouseButton::Left);
    host::ReleaseMouse(host::MouseButton::Left);
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

void AltKey(unsigned key)
{
    host::PressKeyDown(VK_MENU);
    host::PressKey(key);
    host::ReleaseKey(VK_MENU);
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
          [] { ClickOn(GetDlgItem(GetActiveWindow(), IDOK)); }});
    EXPECT_EQ(RunDialog(), IDOK);
    EXPECT_EQ(std::u16string(typed), u"Ab1! \u3042");
}

TEST_F(Windows, FiltersLeaveOtherWindowsInput)
{
    const auto make = [](int left) {
        return CreateWindowExW(0, TEXT("EDIT"), nullptr, WS_POPUP | WS_VISIBLE, left, 0, 100, 100, nullptr,
                               nullptr, nullptr, nullptr);
    };
    const HWND other = make(0);
    const HWND typedInto = make(200);
    SetFocus(typedInto);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    host::PressKeyDown('A');
    host::MoveMouse(50, 50);
    EXPECT_FALSE(PeekMessageW(&message, other, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE));
    EXPECT_FALSE(PeekMessageW(&message, typedInto, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE));
    EXPECT_TRUE(PeekMessageW(&message, other, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_MOUSEMOVE});
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_KEYDOWN});
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
    } cases[] = {{"mnemonic", [] { host::PressKey('Y'); }, IDYES},
                 {"default", [] { host::PressKey(VK_RETURN); }, IDNO},
                 {"Esc does not answer",
                  [] {
                      host::PressKey(VK_ESCAPE);
                      host::PressKey('N');
                  },
                  IDNO},
                 {"mouse", [] { ClickOn(GetDlgItem(GetActiveWindow(), IDYES)); }, IDYES}};
    for (const auto& each : cases) {
        boxAnswer = 0;
        bool ownerEnabled = true;
        Play({[] { AltKey('B'); },
              [&] { ownerEnabled = IsWindowEnabled(GetWindow(GetActiveWindow(), GW_OWNER)); }, each.answer,
              [] { host::PressKey(VK_TAB); }, [] { ClickOn(GetDlgItem(GetActiveWindow(), IDOK)); }});
        EXPECT_EQ(RunDialog(), IDOK) << each.name;
        EXPECT_EQ(boxAnswer, each.expected) << each.name;
        EXPECT_FALSE(ownerEnabled) << each.name;
    }
}

TEST_F(Windows, CloseButtonCancelsWhenReleasedOnIt)
{
    Play({[] {
        RECT rect;
        GetWindowRect(GetActiveWindow(), &rect);
        host::MoveMouse(rect.right - 20, rect.top + 12);
        host::PressMouse(host::MouseButton::Left);
        host::ReleaseMouse(host::MouseButton::Left);
    }});
    EXPECT_EQ(RunDialog(), IDCANCEL);
}

TEST_F(Windows, LoopsThatFollowTheMouseHandQuitOn)
{
    constexpr int kExitCode = 7;
    const HWND window =
        CreateWindowExW(0, TEXT("STATIC"), nullptr, WS_POPUP | WS_CAPTION | WS_VSCROLL | WS_VISIBLE, 0, 0,
                        200, 200, nullptr, nullptr, nullptr, nullptr);
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

int helpFor;

INT_PTR CALLBACK HelpedProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_HELP)
        helpFor = reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId;
    if (message == WM_INITDIALOG)
        SetWindowLongW(dialog, GWL_EXSTYLE, GetWindowLongW(dialog, GWL_EXSTYLE) | WS_EX_CONTEXTHELP);
    return message == WM_HELP || Procedure(dialog, message, wParam, lParam);
}

TEST_F(Windows, HelpIsAskedForByKeyAndByTheCaptionsButton)
{
    const std::vector<WORD> words = DialogWords();
    int byKey = 0;
    int byButton = 0;
    Play({[] { host::PressKey(VK_F1); },
          [&] {
              byKey = std::exchange(helpFor, 0);
              RECT rect;
              GetWindowRect(GetActiveWindow(), &rect);
              host::MoveMouse(rect.right - 56, rect.top + 12);
              host::PressMouse(host::MouseButton::Left);
              host::ReleaseMouse(host::MouseButton::Left);
          },
          [] {
              EnableWindow(GetDlgItem(GetActiveWindow(), 100), FALSE);
              ClickOn(GetDlgItem(GetActiveWindow(), 100));
          },
          [&] {
              byButton = helpFor;
              host::PressKey(VK_RETURN);
          }});
    EXPECT_EQ(DialogBoxIndirectParamW(nullptr, reinterpret_cast<LPCDLGTEMPLATEW>(words.data()), nullptr,
                                      HelpedProcedure, 0),
              IDOK);
    EXPECT_EQ(byKey, 101);
    EXPECT_EQ(byButton, 100) << "a disabled control, too";
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
    const HWND owner = CreateWindowExW(0, TEXT("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 200, 200,
                                       nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(owner);
    const HMENU menu = CreatePopupMenu();
    const HMENU inner = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 11, TEXT("&First"));
    AppendMenuW(menu, MF_STRING | MF_GRAYED, 12, TEXT("&Grayed"));
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), TEXT("&More"));
    AppendMenuW(inner, MF_STRING, 21, TEXT("&Inner"));
    const auto click = [](int x, int y) {
        host::MoveMouse(x, y);
        host::PressMouse(host::MouseButton::Left);
        host::ReleaseMouse(host::MouseButton::Left);
    };
    const struct
    {
        const char* name;
        std::function<void()> act;
        int chosen;
    } cases[] = {{"mouse", [&] { click(60, 65); }, 11},
                 {"outside", [&] { click(500, 500); }, 0},
                 {"keys",
                  [] {
                      host::PressKey(VK_DOWN);
                      host::PressKey(VK_RETURN);
                  },
                  11},
                 {"mnemonic", [] { host::PressKey('F'); }, 11},
                 {"grayed",
                  [] {
                      host::PressKey('G');
                      host::PressKey(VK_ESCAPE);
                  },
                  0},
                 {"inner",
                  [] {
                      host::PressKey('M');
                      host::PressKey('I');
                  },
                  21},
                 {"Esc", [] { host::PressKey(VK_ESCAPE); }, 0}};
    const int64_t windows = host::OpenObjects().windows;
    for (const auto& each : cases) {
        Play({each.act});
        EXPECT_EQ(TrackPopupMenuEx(menu, TPM_RETURNCMD, 50, 50, owner, nullptr), each.chosen) << each.name;
        EXPECT_EQ(host::OpenObjects().windows, windows) << each.name;
    }
    DestroyMenu(menu);
    DestroyWindow(owner);
    EXPECT_EQ(host::OpenObjects().menus, 0);
}

TEST_F(Windows, TimersRunWithTheHostsClock)
{
    const HWND window = CreateWindowExW(0, TEXT("Static"), nullptr, WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        nullptr, nullptr);
    SetTimer(window, 5, 3600 * 1000, nullptr);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    host::AdvanceTime(3600 * 1000);
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    DestroyWindow(window);
}

LRESULT CALLBACK PaintsRed(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_PAINT)
        return DefWindowProcW(window, message, wParam, lParam);
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    const RECT everywhere = {-100, -100, 1000, 1000};
    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    FillRect(dc, &everywhere, red);
    DeleteObject(red);
    EndPaint(window, &paint);
    return 0;
}

TEST_F(Windows, ChildrenCannotPaintOutsideOfThemselves)
{
    WNDCLASSW description = {};
    description.lpfnWndProc = PaintsRed;
    description.lpszClassName = TEXT("Red");
    RegisterClassW(&description);
    const HWND top = CreateWindowExW(0, TEXT("Static"), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 100, 100,
                                     nullptr, nullptr, nullptr, nullptr);
    CreateWindowExW(0, TEXT("Static"), nullptr, WS_CHILD | WS_VISIBLE | SS_WHITERECT, 0, 0, 30, 30, top,
                    nullptr, nullptr, nullptr);
    const HWND red = CreateWindowExW(0, TEXT("Red"), nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, 20, 20,
                                     40, 40, top, nullptr, nullptr, nullptr);
    const std::filesystem::path file = std::filesystem::path(host::RootFolder()) / "picture.png";
    EXPECT_TRUE(host::ShootWindow(top, file));
    EXPECT_GT(std::filesystem::file_size(file), 50u);
    const HDC dc = GetDC(top);
    constexpr struct
    {
        int x;
        int y;
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
    const std::vector<WORD> words = DialogWords();
    const auto bytes = std::as_bytes(std::span(words));
    host::DialogTemplate whole;
    ASSERT_TRUE(host::ReadDialogTemplate(bytes, whole));
    EXPECT_EQ(whole.items.size(), 3u);
    for (size_t length = 0; length < bytes.size(); ++length) {
        host::DialogTemplate cut;
        EXPECT_FALSE(host::ReadDialogTemplate(bytes.first(length), cut)) << length;
    }
}

} // namespace
