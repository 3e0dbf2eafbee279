#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/wine.h"

namespace {

using Text = std::basic_string<WCHAR>;

constexpr UINT kStep = WM_APP + 1; // posted to a dialog: it is time to do something
constexpr int kFontSize = 8;

constexpr int kEdit = 100;
constexpr int kCheck = 101;
constexpr int kFirstRadio = 102;
constexpr int kSecondRadio = 103;
constexpr int kThirdRadio = 104;
constexpr int kPush = 105;
constexpr int kLabelled = 106;

/// Builds both formats of templates in memory.
class Template
{
public:
    Template(bool extended, DWORD style, short cx, short cy) : extended_(extended)
    {
        if (extended)
            Words({1, 0xFFFF, 0, 0, 0, 0});
        Long(style | DS_SETFONT);
        if (!extended)
            Long(0);
        countAt_ = words_.size();
        Words({0, 10, 10, static_cast<WORD>(cx), static_cast<WORD>(cy), 0, 0});
        String(TEXT("Dialog"));
        Words({kFontSize});
        if (extended)
            Words({FW_NORMAL, DEFAULT_CHARSET << 8});
        String(TEXT("MS Shell Dlg"));
    }

    Template& Add(LPCWSTR className, LPCWSTR text, DWORD style, int id, short y = 0)
    {
        if (words_.size() % 2 != 0)
            Words({0});
        ++words_[countAt_];
        if (extended_)
            Words({0, 0, 0, 0});
        Long(style | WS_CHILD | WS_VISIBLE);
        if (!extended_)
            Long(0);
        Words({5, static_cast<WORD>(y), 40, 12, static_cast<WORD>(id)});
        if (extended_)
            Words({0});
        String(className);
        String(text);
        Words({0});
        return *this;
    }

    LPCDLGTEMPLATEW Get() const { return reinterpret_cast<LPCDLGTEMPLATEW>(words_.data()); }

private:
    void Words(std::initializer_list<WORD> words) { words_.insert(words_.end(), words); }
    void Long(DWORD value) { Words({LOWORD(value), HIWORD(value)}); }
    void String(LPCWSTR text)
    {
        do {
            Words({static_cast<WORD>(*text)});
        } while (*text++ != 0);
    }

    bool extended_;
    size_t countAt_ = 0;
    std::vector<WORD> words_;
};

constexpr DWORD kFrame = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;

Template Sample(bool extended = false)
{
    Template result(extended, kFrame, 200, 150);
    result.Add(TEXT("Edit"), TEXT("text"), WS_TABSTOP, kEdit)
        .Add(TEXT("Button"), TEXT("&Check"), BS_AUTOCHECKBOX | WS_TABSTOP, kCheck, 20)
        .Add(TEXT("Button"), TEXT("First"), BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP, kFirstRadio, 40)
        .Add(TEXT("Button"), TEXT("Second"), BS_AUTORADIOBUTTON, kSecondRadio, 52)
        .Add(TEXT("Button"), TEXT("Third"), BS_AUTORADIOBUTTON, kThirdRadio, 64)
        .Add(TEXT("Button"), TEXT("&Push"), BS_PUSHBUTTON | WS_TABSTOP | WS_GROUP, kPush, 80)
        .Add(TEXT("Button"), TEXT("OK"), BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, 95)
        .Add(TEXT("Button"), TEXT("Cancel"), BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL, 110)
        .Add(TEXT("Static"), TEXT("&Label"), SS_LEFT | WS_GROUP, 0xFFFF, 125)
        .Add(TEXT("Edit"), TEXT(""), WS_TABSTOP, kLabelled, 135);
    return result;
}

/// What a test does with a dialog, and what the dialog saw.
struct Script
{
    void (*run)(HWND dialog) = nullptr;
    HWND firstControl = nullptr;
    std::vector<int> commands; // ids with the code of a click
    HWND owner = nullptr;
    bool ownerEnabled = true;
};

Script* script;

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        script = reinterpret_cast<Script*>(lParam);
        script->firstControl = reinterpret_cast<HWND>(wParam);
        script->ownerEnabled = IsWindowEnabled(script->owner);
        PostMessageW(dialog, kStep, 0, 0);
        return TRUE;
    case kStep:
        if (script->run != nullptr)
            script->run(dialog);
        EndDialog(dialog, 42);
        return TRUE;
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED && lParam != 0)
            script->commands.push_back(LOWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

INT_PTR Play(Script& of, bool extended = false)
{
    const INT_PTR result = DialogBoxIndirectParamW(GetModuleHandleW(nullptr), Sample(extended).Get(),
                                                   of.owner, Procedure, reinterpret_cast<LPARAM>(&of));
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
    return result;
}

/// What the keyboard does in a dialog, without a keyboard.
void Key(HWND dialog, WPARAM key)
{
    const HWND focus = GetFocus();
    MSG message = {focus, WM_KEYDOWN, key, 1, 0, {}};
    IsDialogMessageW(dialog, &message);
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

bool IsDefault(HWND dialog, int id)
{
    return (SendDlgItemMessageW(dialog, id, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) != 0;
}

TEST(Dialog, BothTemplateFormatsMakeTheSameControls)
{
    for (const bool extended : {false, true}) {
        Script of;
        of.run = [](HWND dialog) {
            WCHAR text[16];
            EXPECT_EQ(GetDlgItemTextW(dialog, kEdit, text, 16), 4u);
            EXPECT_EQ(GetWindowTextW(dialog, text, 16), 6);
            RECT unit = {4, 8, 40, 80};
            RECT rect;
            MapDialogRect(dialog, &unit);
            EXPECT_EQ(unit.right, 10 * unit.left);
            GetWindowRect(GetDlgItem(dialog, kCheck), &rect);
            EXPECT_EQ(rect.right - rect.left, 10 * unit.left) << "40 dialog units";
            EXPECT_NE(SendMessageW(dialog, WM_GETFONT, 0, 0), 0);
            EXPECT_EQ(SendDlgItemMessageW(dialog, kCheck, WM_GETFONT, 0, 0),
                      SendMessageW(dialog, WM_GETFONT, 0, 0));
        };
        EXPECT_EQ(Play(of, extended), 42) << extended;
        EXPECT_NE(of.firstControl, nullptr);
    }
}

TEST(Dialog, FocusGoesToTheFirstControlWithItsTextSelected)
{
    Script of;
    of.run = [](HWND dialog) {
        EXPECT_EQ(FocusedId(), kEdit);
        DWORD start = 0;
        DWORD end = 0;
        SendDlgItemMessageW(dialog, kEdit, EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                            reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(end - start, 4u);
    };
    Play(of);
}

TEST(Dialog, OwnerIsDisabledMeanwhileAndActiveAfterwards)
{
    const HWND owner = CreateWindowExW(0, TEXT("Static"), TEXT("owner"), WS_POPUP | WS_VISIBLE, 0, 0, 100,
                                       100, nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(owner);
    Script of;
    of.owner = owner;
    of.run = [](HWND dialog) {
        EXPECT_EQ(GetActiveWindow(), dialog);
        EXPECT_FALSE(IsWindowEnabled(GetParent(dialog)));
    };
    Play(of);
    EXPECT_FALSE(of.ownerEnabled);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(GetActiveWindow(), owner);
    EnableWindow(owner, FALSE);
    Play(of);
    EXPECT_TRUE(OnWine() || !IsWindowEnabled(owner)) << "another dialog had stopped it before";
    DestroyWindow(owner);
}

TEST(Dialog, TabVisitsEveryTabStopInTurn)
{
    Script of;
    of.run = [](HWND dialog) {
        for (const int id : {kCheck, kFirstRadio, kPush, IDOK, IDCANCEL, kLabelled, kEdit}) {
            Key(dialog, VK_TAB);
            EXPECT_EQ(FocusedId(), id);
        }
        EXPECT_EQ(GetNextDlgTabItem(dialog, GetDlgItem(dialog, kEdit), TRUE), GetDlgItem(dialog, kLabelled));
        EnableWindow(GetDlgItem(dialog, kCheck), FALSE);
        EXPECT_EQ(GetNextDlgTabItem(dialog, GetDlgItem(dialog, kEdit), FALSE),
                  GetDlgItem(dialog, kFirstRadio));
    };
    Play(of);
}

TEST(Dialog, ArrowsStayInTheGroupAndCheckItsButtons)
{
    Script of;
    of.run = [](HWND dialog) {
        CheckRadioButton(dialog, kFirstRadio, kThirdRadio, kFirstRadio);
        SetFocus(GetDlgItem(dialog, kFirstRadio));
        for (const int id : {kSecondRadio, kThirdRadio, kFirstRadio}) {
            Key(dialog, VK_DOWN);
            EXPECT_EQ(FocusedId(), id);
            EXPECT_EQ(IsDlgButtonChecked(dialog, id), static_cast<UINT>(BST_CHECKED));
        }
        Key(dialog, VK_LEFT);
        EXPECT_EQ(FocusedId(), kThirdRadio) << "round its end";
        EXPECT_EQ(IsDlgButtonChecked(dialog, kFirstRadio), static_cast<UINT>(BST_UNCHECKED));
    };
    Play(of);
}

TEST(Dialog, DefaultButtonFollowsTheFocusAndReturns)
{
    Script of;
    of.run = [](HWND dialog) {
        EXPECT_EQ(SendMessageW(dialog, DM_GETDEFID, 0, 0), MAKELONG(IDOK, DC_HASDEFID));
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, kPush)), TRUE);
        EXPECT_TRUE(IsDefault(dialog, kPush));
        EXPECT_FALSE(IsDefault(dialog, IDOK));
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, kEdit)), TRUE);
        EXPECT_FALSE(IsDefault(dialog, kPush));
        EXPECT_TRUE(IsDefault(dialog, IDOK));
        SendMessageW(dialog, DM_SETDEFID, kPush, 0);
        EXPECT_TRUE(IsDefault(dialog, kPush));
        EXPECT_FALSE(IsDefault(dialog, IDOK));
    };
    Play(of);
}

TEST(Dialog, EnterAndEscapePressTheirButtonsWhileThoseAreEnabled)
{
    Script of;
    of.run = [](HWND dialog) {
        Key(dialog, VK_RETURN);
        Key(dialog, VK_ESCAPE);
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, kPush)), TRUE);
        Key(dialog, VK_RETURN);
        SetFocus(GetDlgItem(dialog, kEdit));
        EnableWindow(GetDlgItem(dialog, IDCANCEL), FALSE);
        if (!OnWine()) // which does not look whether the button can be pressed
            Key(dialog, VK_ESCAPE);
    };
    Play(of);
    EXPECT_EQ(of.commands, (std::vector<int>{IDOK, IDCANCEL, kPush}));
}

TEST(Dialog, MnemonicsPressButtonsAndLabelsPassThemOn)
{
    Script of;
    of.run = [](HWND dialog) {
        Mnemonic(dialog, 'l');
        EXPECT_EQ(FocusedId(), kLabelled);
        Mnemonic(dialog, 'C');
        EXPECT_EQ(FocusedId(), kCheck);
        EXPECT_EQ(IsDlgButtonChecked(dialog, kCheck), static_cast<UINT>(BST_CHECKED));
        Mnemonic(dialog, 'p');
    };
    Play(of);
    EXPECT_EQ(of.commands, (std::vector<int>{kCheck, kPush}));
}

TEST(Dialog, NumbersAreReadWithTheirSignAndOnlyWhenTheyFit)
{
    Script of;
    of.run = [](HWND dialog) {
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
        for (const auto& each : cases) {
            SetDlgItemTextW(dialog, kEdit, each.text);
            BOOL translated = -1;
            EXPECT_EQ(GetDlgItemInt(dialog, kEdit, &translated, each.isSigned), each.value) << each.value;
            EXPECT_EQ(translated, each.translated) << each.value << ' ' << each.isSigned;
        }
        SetDlgItemInt(dialog, kEdit, static_cast<UINT>(-5), TRUE);
        WCHAR text[8];
        GetDlgItemTextW(dialog, kEdit, text, 8);
        EXPECT_EQ(Text(text), TEXT("-5"));
        EXPECT_EQ(GetDlgItem(dialog, 999), nullptr);
        const DWORD error = GetLastError();
        if (!OnWine()) {
            EXPECT_EQ(error, static_cast<DWORD>(ERROR_CONTROL_ID_NOT_FOUND));
        }
    };
    Play(of);
}

TEST(Dialog, CloseBecomesCancel)
{
    Script of;
    of.run = [](HWND dialog) {
        SendMessageW(dialog, WM_CLOSE, 0, 0);
        MSG message;
        while (PeekMessageW(&message, dialog, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    };
    Play(of);
    EXPECT_EQ(of.commands, std::vector<int>{IDCANCEL});
}

INT_PTR CALLBACK AnsweringProcedure(HWND, UINT message, WPARAM, LPARAM)
{
    return message == WM_CTLCOLORSTATIC ? 0x1234 : message == WM_INITDIALOG;
}

INT_PTR CALLBACK MessageResultProcedure(HWND dialog, UINT message, WPARAM, LPARAM)
{
    if (message != WM_USER + 50)
        return FALSE;
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 77);
    return TRUE;
}

TEST(Dialog, ProceduresAnswerByTheMessageResultOrDirectly)
{
    const HWND direct = CreateDialogIndirectParamW(nullptr, Template(false, kFrame, 50, 50).Get(), nullptr,
                                                   AnsweringProcedure, 0);
    EXPECT_EQ(SendMessageW(direct, WM_CTLCOLORSTATIC, 0, 0), 0x1234);
    DestroyWindow(direct);
    const HWND dialog = CreateDialogIndirectParamW(nullptr, Template(false, kFrame, 50, 50).Get(), nullptr,
                                                   MessageResultProcedure, 0);
    EXPECT_EQ(SendMessageW(dialog, WM_USER + 50, 0, 0), 77);
    EXPECT_FALSE(IsWindowVisible(dialog)) << "its template does not say WS_VISIBLE";
    DestroyWindow(dialog);
}

TEST(Dialog, UnknownClassesFailTheDialogUnlessItMayGoOn)
{
    Template strict(false, kFrame, 50, 50);
    strict.Add(TEXT("NoSuchClass"), TEXT(""), 0, 1);
    EXPECT_EQ(CreateDialogIndirectParamW(nullptr, strict.Get(), nullptr, AnsweringProcedure, 0), nullptr);
    Template patient(false, kFrame | DS_NOFAILCREATE, 50, 50);
    patient.Add(TEXT("NoSuchClass"), TEXT(""), 0, 1);
    const HWND dialog = CreateDialogIndirectParamW(nullptr, patient.Get(), nullptr, AnsweringProcedure, 0);
    EXPECT_NE(dialog, nullptr);
    DestroyWindow(dialog);
}

TEST(Dialog, PagesInsideShareTheTabOrder)
{
    Template outer(false, kFrame, 200, 150);
    outer.Add(TEXT("Button"), TEXT("OK"), BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK);
    const HWND dialog = CreateDialogIndirectParamW(nullptr, outer.Get(), nullptr, AnsweringProcedure, 0);
    Template inner(false, WS_CHILD | DS_CONTROL | WS_VISIBLE, 100, 100);
    inner.Add(TEXT("Edit"), TEXT(""), WS_TABSTOP, kEdit);
    const HWND page = CreateDialogIndirectParamW(nullptr, inner.Get(), dialog, AnsweringProcedure, 0);
    ShowWindow(dialog, SW_SHOW);
    const HWND button = GetDlgItem(dialog, IDOK);
    const HWND edit = GetDlgItem(page, kEdit);
    EXPECT_EQ(GetNextDlgTabItem(dialog, button, FALSE), edit);
    EXPECT_EQ(GetNextDlgTabItem(dialog, edit, FALSE), button);
    DestroyWindow(dialog);
}

TEST(Menu, ItemsKeepTheirTextsAndStates)
{
    const HMENU menu = CreatePopupMenu();
    const HMENU inner = CreatePopupMenu();
    ASSERT_TRUE(AppendMenuW(menu, MF_STRING, 11, TEXT("&First")));
    ASSERT_TRUE(AppendMenuW(menu, MF_SEPARATOR, 0, nullptr));
    ASSERT_TRUE(AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), TEXT("More")));
    ASSERT_TRUE(AppendMenuW(inner, MF_STRING | MF_GRAYED, 12, TEXT("Inner")));
    EXPECT_EQ(GetMenuItemCount(menu), 3);
    EXPECT_EQ(GetMenuItemID(menu, 0), 11u);
    EXPECT_EQ(GetSubMenu(menu, 2), inner);
    EXPECT_EQ(GetSubMenu(menu, 0), nullptr);
    EXPECT_EQ(CheckMenuItem(menu, 11, MF_CHECKED), static_cast<DWORD>(MF_UNCHECKED));
    EXPECT_EQ(CheckMenuItem(menu, 11, MF_UNCHECKED), static_cast<DWORD>(MF_CHECKED));
    EXPECT_EQ(EnableMenuItem(menu, 12, MF_ENABLED), static_cast<BOOL>(MF_GRAYED))
        << "found in the inner menu";
    EXPECT_EQ(EnableMenuItem(menu, 99, MF_GRAYED), -1);
    WCHAR text[16];
    EXPECT_EQ(GetMenuStringW(menu, 11, text, 16, MF_BYCOMMAND), 6);
    EXPECT_TRUE(ModifyMenuW(menu, 11, MF_BYCOMMAND | MF_STRING, 13, TEXT("Changed")));
    EXPECT_EQ(GetMenuItemID(menu, 0), 13u);
    EXPECT_TRUE(DeleteMenu(menu, 2, MF_BYPOSITION));
    EXPECT_FALSE(IsMenu(inner)) << "it went with its item";
    EXPECT_TRUE(DestroyMenu(menu));
    EXPECT_FALSE(DestroyMenu(menu));
}

} // namespace
