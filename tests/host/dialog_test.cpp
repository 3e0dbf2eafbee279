// Dialogs and menus, as a program sees them.
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/dialog_words.h"
#include "tests/host/last_error.h"
#include "tests/host/wine.h"

namespace {

constexpr UINT kStep = WM_APP + 1; // posted to a dialog: it is time to do something
constexpr INT_PTR kDone = 42;
constexpr DWORD kFrame = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
constexpr LPCWSTR kButton = TEXT("Button");
constexpr LPCWSTR kEditClass = TEXT("Edit");

constexpr int kEdit = 100, kCheck = 101, kFirstRadio = 102, kSecondRadio = 103, kThirdRadio = 104;
constexpr int kPush = 105, kLabelled = 106, kLines = 107, kWanting = 108;

DialogWords Sample(bool extended)
{
    DialogWords result(kFrame, 200, 150, extended);
    result.Add(kEditClass, TEXT("text"), WS_TABSTOP, kEdit)
        .Add(kButton, TEXT("&Check"), BS_AUTOCHECKBOX | WS_TABSTOP, kCheck, 20)
        .Add(kButton, TEXT("First"), BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP, kFirstRadio, 40)
        .Add(kButton, TEXT("Second"), BS_AUTORADIOBUTTON, kSecondRadio, 52)
        .Add(kButton, TEXT("Third"), BS_AUTORADIOBUTTON, kThirdRadio, 64)
        .Add(kButton, TEXT("&Push"), BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP, kPush, 80)
        .Add(kButton, TEXT("OK"), BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, 95)
        .Add(kButton, TEXT("Cancel"), BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL, 110)
        .Add(TEXT("Static"), TEXT("&Label"), SS_LEFT | WS_GROUP, 0xFFFF, 125)
        .Add(kEditClass, TEXT(""), WS_TABSTOP, kLabelled, 135);
    return result;
}

std::function<void(HWND dialog)> run;
std::vector<int> commands; // ids with the code of a click

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        EXPECT_EQ(reinterpret_cast<HWND>(wParam), GetDlgItem(dialog, static_cast<int>(lParam)));
        PostMessageW(dialog, kStep, 0, 0);
        return TRUE;
    case kStep:
        run(dialog);
        EndDialog(dialog, kDone);
        return TRUE;
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED && lParam != 0)
            commands.push_back(LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

/// Opens the sample, or another template of which the first control is given, and lets `action` act on it.
/// Returns the buttons that were clicked.
std::vector<int> Play(std::function<void(HWND)> action, HWND owner = nullptr,
                      const DialogWords& words = Sample(false), int firstId = kEdit)
{
    run = std::move(action);
    commands.clear();
    EXPECT_EQ(DialogBoxIndirectParamW(GetModuleHandleW(nullptr), words.Get(), owner, Procedure, firstId),
              kDone);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    return commands;
}

/// What the keyboard does in a dialog, without a keyboard.
void Key(HWND dialog, WPARAM key)
{
    MSG message = {GetFocus(), WM_KEYDOWN, key, 1, 0, {}};
    IsDialogMessageW(dialog, &message);
    while (PeekMessageW(&message, dialog, 0, 0, PM_REMOVE)) {
        if (!IsDialogMessageW(dialog, &message))
            DispatchMessageW(&message);
    }
}

void Mnemonic(HWND dialog, WCHAR character)
{
    MSG message = {GetFocus(), WM_SYSCHAR, character, 1 | (KF_ALTDOWN << 16), 0, {}};
    IsDialogMessageW(dialog, &message);
}

int FocusedId()
{
    return GetDlgCtrlID(GetFocus());
}

void Focus(HWND dialog, int id)
{
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, id)), TRUE);
}

/// The buttons that look like the default one.
std::vector<int> Defaults(HWND dialog)
{
    std::vector<int> ids;
    for (const int id : {kPush, IDOK, IDCANCEL}) {
        if ((SendDlgItemMessageW(dialog, id, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0)
            ids.push_back(id);
    }
    return ids;
}

TEST(Dialog, BothTemplateFormatsMakeTheSameControls)
{
    for (const bool extended : {false, true}) {
        const auto look = [](HWND dialog) {
            WCHAR text[16];
            EXPECT_EQ(GetDlgItemTextW(dialog, kEdit, text, 16), 4u);
            EXPECT_EQ(GetWindowTextW(dialog, text, 16), 6);
            RECT unit = {4, 8, 40, 80};
            RECT rect;
            MapDialogRect(dialog, &unit);
            EXPECT_EQ(unit.right, 10 * unit.left);
            GetWindowRect(GetDlgItem(dialog, kCheck), &rect);
            EXPECT_EQ(rect.right - rect.left, 10 * unit.left) << "40 dialog units";
            const LRESULT font = SendMessageW(dialog, WM_GETFONT, 0, 0);
            EXPECT_NE(font, 0);
            EXPECT_EQ(SendDlgItemMessageW(dialog, kCheck, WM_GETFONT, 0, 0), font);
            EXPECT_EQ(FocusedId(), kEdit);
            EXPECT_EQ(SendDlgItemMessageW(dialog, kEdit, EM_GETSEL, 0, 0), MAKELONG(0, 4));
        };
        Play(look, nullptr, Sample(extended));
    }
}

TEST(Dialog, OwnerIsDisabledMeanwhileAndActiveAfterwards)
{
    const HWND owner = CreateWindowExW(0, TEXT("Static"), TEXT("owner"), WS_POPUP | WS_VISIBLE, 0, 0, 100,
                                       100, nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(owner);
    const auto look = [owner](HWND dialog) {
        EXPECT_EQ(GetActiveWindow(), dialog);
        EXPECT_FALSE(IsWindowEnabled(owner));
    };
    Play(look, owner);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetActiveWindow(), owner);
    EnableWindow(owner, FALSE);
    Play(look, owner);
    EXPECT_TRUE(OnWine() || !IsWindowEnabled(owner)) << "another dialog had stopped it before";
    DestroyWindow(owner);
}

TEST(Dialog, TabVisitsEveryTabStopInTurn)
{
    Play([](HWND dialog) {
        for (const int id : {kCheck, kFirstRadio, kPush, IDOK, IDCANCEL, kLabelled, kEdit}) {
            Key(dialog, VK_TAB);
            EXPECT_EQ(FocusedId(), id);
        }
        const auto next = [dialog](int id, BOOL back) {
            return GetDlgCtrlID(GetNextDlgTabItem(dialog, GetDlgItem(dialog, id), back));
        };
        EXPECT_EQ(next(kEdit, TRUE), kLabelled);
        EnableWindow(GetDlgItem(dialog, kCheck), FALSE);
        EXPECT_EQ(next(kEdit, FALSE), kFirstRadio);
    });
}

TEST(Dialog, ArrowsStayInTheGroupAndCheckItsButtons)
{
    Play([](HWND dialog) {
        CheckRadioButton(dialog, kFirstRadio, kThirdRadio, kFirstRadio);
        SetFocus(GetDlgItem(dialog, kFirstRadio));
        constexpr std::pair<WPARAM, int> kSteps[] = {
            {VK_DOWN, kSecondRadio}, {VK_DOWN, kThirdRadio}, {VK_DOWN, kFirstRadio}, {VK_LEFT, kThirdRadio}};
        for (const auto& [key, id] : kSteps) {
            Key(dialog, key);
            EXPECT_EQ(FocusedId(), id);
            for (int each = kFirstRadio; each <= kThirdRadio; ++each)
                EXPECT_EQ(IsDlgButtonChecked(dialog, each), UINT{each == id});
        }
    });
}

TEST(Dialog, DefaultButtonFollowsTheFocusAndReturns)
{
    Play([](HWND dialog) {
        EXPECT_EQ(SendMessageW(dialog, DM_GETDEFID, 0, 0), MAKELONG(IDOK, DC_HASDEFID));
        Focus(dialog, kPush);
        EXPECT_EQ(Defaults(dialog), std::vector<int>{kPush});
        Focus(dialog, kEdit);
        EXPECT_EQ(Defaults(dialog), std::vector<int>{IDOK});
        SendMessageW(dialog, DM_SETDEFID, kPush, 0);
        EXPECT_EQ(Defaults(dialog), std::vector<int>{kPush});
    });
}

TEST(Dialog, EnterEscapeAndCloseClickTheirButtons)
{
    const std::vector<int> clicked = Play([](HWND dialog) {
        Key(dialog, VK_RETURN);
        Key(dialog, VK_ESCAPE);
        Focus(dialog, kPush);
        Key(dialog, VK_RETURN);
        Focus(dialog, kEdit);
        SendMessageW(dialog, WM_CLOSE, 0, 0);
        Key(dialog, 0); // lets the posted command come
        EnableWindow(GetDlgItem(dialog, IDCANCEL), FALSE);
        if (!OnWine()) // which does not look whether the button can be pressed
            Key(dialog, VK_ESCAPE);
    });
    EXPECT_EQ(clicked, (std::vector<int>{IDOK, IDCANCEL, kPush, IDCANCEL}));
}

TEST(Dialog, EditControlsOfSeveralLinesGiveItsKeysBack)
{
    DialogWords words(kFrame, 100, 100);
    words.Add(kEditClass, TEXT(""), ES_MULTILINE | ES_AUTOVSCROLL | WS_TABSTOP, kLines)
        .Add(kEditClass, TEXT(""), ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_TABSTOP, kWanting, 20)
        .Add(kButton, TEXT("OK"), BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, 40);
    const auto type = [](HWND dialog) {
        Key(dialog, VK_RETURN);
        SetFocus(GetDlgItem(dialog, kLines));
        Key(dialog, VK_TAB);
        EXPECT_EQ(GetWindowTextLengthW(GetDlgItem(dialog, kLines)), 0);
        EXPECT_EQ(FocusedId(), kWanting);
        Key(dialog, VK_RETURN);
        EXPECT_EQ(GetWindowTextLengthW(GetDlgItem(dialog, kWanting)), 2);
    };
    EXPECT_EQ(Play(type, nullptr, words, kLines), std::vector<int>{IDOK});
}

TEST(Dialog, MnemonicsPressButtonsAndLabelsPassThemOn)
{
    const std::vector<int> clicked = Play([](HWND dialog) {
        Mnemonic(dialog, 'l');
        EXPECT_EQ(FocusedId(), kLabelled);
        Mnemonic(dialog, 'C');
        EXPECT_EQ(FocusedId(), kCheck);
        Mnemonic(dialog, 'p');
    });
    EXPECT_EQ(clicked, (std::vector<int>{kCheck, kPush}));
}

TEST(Dialog, NumbersAreReadWithTheirSignAndOnlyWhenTheyFit)
{
    const struct
    {
        LPCWSTR text;
        BOOL isSigned;
        BOOL translated;
        UINT value;
    } cases[] = {
        {TEXT("12"), FALSE, TRUE, 12},
        {TEXT(" 7"), FALSE, TRUE, 7},
        {TEXT("-3"), TRUE, TRUE, 0xFFFFFFFD},
        {TEXT("x"), FALSE, FALSE, 0},
        {TEXT("12x"), FALSE, TRUE, 12},
        {TEXT(""), FALSE, FALSE, 0},
        {TEXT("4294967295"), FALSE, TRUE, 0xFFFFFFFF},
        {TEXT("4294967296"), FALSE, FALSE, 0},
        {TEXT("2147483648"), TRUE, FALSE, 0},
    };
    Play([&](HWND dialog) {
        for (const auto& each : cases) {
            SetDlgItemTextW(dialog, kEdit, each.text);
            BOOL translated = -1;
            EXPECT_EQ(GetDlgItemInt(dialog, kEdit, &translated, each.isSigned), each.value) << each.value;
            EXPECT_EQ(translated, each.translated) << each.value << ' ' << each.isSigned;
        }
        SetDlgItemInt(dialog, kEdit, static_cast<UINT>(-5), TRUE);
        EXPECT_EQ(GetDlgItemInt(dialog, kEdit, nullptr, TRUE), static_cast<UINT>(-5));
        EXPECT_TRUE(OnWine() || Fails(ERROR_CONTROL_ID_NOT_FOUND, GetDlgItem(dialog, 999)));
    });
}

INT_PTR CALLBACK AnsweringProcedure(HWND dialog, UINT message, WPARAM, LPARAM)
{
    if (message == WM_USER)
        SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 77);
    return message == WM_CTLCOLORSTATIC ? 0x1234 : message == WM_INITDIALOG || message == WM_USER;
}

HWND Create(const DialogWords& words, HWND parent = nullptr)
{
    return CreateDialogIndirectParamW(nullptr, words.Get(), parent, AnsweringProcedure, 0);
}

TEST(Dialog, ProceduresAnswerByTheMessageResultOrDirectly)
{
    const HWND dialog = Create(DialogWords(kFrame, 50, 50));
    EXPECT_EQ(SendMessageW(dialog, WM_CTLCOLORSTATIC, 0, 0), 0x1234);
    EXPECT_EQ(SendMessageW(dialog, WM_USER, 0, 0), 77);
    EXPECT_FALSE(IsWindowVisible(dialog)) << "its template does not say WS_VISIBLE";
    DestroyWindow(dialog);
}

TEST(Dialog, UnknownClassesFailTheDialogUnlessItMayGoOn)
{
    for (const DWORD mayGoOn : {DWORD{0}, DWORD{DS_NOFAILCREATE}}) {
        DialogWords words(kFrame | mayGoOn, 50, 50);
        const HWND dialog = Create(words.Add(TEXT("NoSuchClass"), TEXT(""), 0, 1));
        EXPECT_EQ(dialog != nullptr, mayGoOn != 0);
        DestroyWindow(dialog);
    }
}

TEST(Dialog, PagesInsideShareTheTabOrder)
{
    DialogWords outer(kFrame, 200, 150);
    const HWND dialog = Create(outer.Add(kButton, TEXT("OK"), BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK));
    DialogWords inner(WS_CHILD | DS_CONTROL | WS_VISIBLE, 100, 100);
    const HWND page = Create(inner.Add(kEditClass, TEXT(""), WS_TABSTOP, kEdit), dialog);
    ShowWindow(dialog, SW_SHOW);
    const HWND button = GetDlgItem(dialog, IDOK);
    const HWND edit = GetDlgItem(page, kEdit);
    EXPECT_EQ(GetNextDlgTabItem(dialog, button, FALSE), edit);
    EXPECT_EQ(GetNextDlgTabItem(dialog, edit, FALSE), button);
    DestroyWindow(dialog);
}

TEST(Menu, ItemsAreFoundChangedAndGoWithTheirMenu)
{
    const HMENU menu = CreatePopupMenu();
    const HMENU inner = CreatePopupMenu();
    ASSERT_TRUE(AppendMenuW(menu, MF_STRING, 11, TEXT("&First")));
    ASSERT_TRUE(AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), TEXT("More")));
    EXPECT_EQ(GetSubMenu(menu, 1), inner);
    EXPECT_EQ(GetSubMenu(menu, 0), nullptr);
    EXPECT_TRUE(ModifyMenuW(menu, 11, MF_BYCOMMAND | MF_STRING, 13, TEXT("Changed")));
    EXPECT_FALSE(ModifyMenuW(menu, 11, MF_BYCOMMAND | MF_STRING, 13, TEXT("Changed")));
    EXPECT_EQ(GetMenuItemID(menu, 0), 13u);
    EXPECT_TRUE(DestroyMenu(menu));
    EXPECT_FALSE(IsMenu(inner));
    EXPECT_FALSE(DestroyMenu(menu));
}

} // namespace
