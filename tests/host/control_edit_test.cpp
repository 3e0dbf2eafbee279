#include <algorithm>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/control_parent.h"
#include "tests/host/wine.h"

namespace {

using namespace control_test;
using Text = std::basic_string<WCHAR>;

constexpr RECT kLine = {10, 10, 310, 34};
constexpr RECT kField = {10, 10, 310, 150};
constexpr DWORD kMulti = ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL;

void Type(HWND edit, LPCWSTR text)
{
    for (; *text != 0; ++text)
        SendMessageW(edit, WM_CHAR, *text, 0);
}

void Key(HWND edit, WPARAM key)
{
    SendMessageW(edit, WM_KEYDOWN, key, 0);
    SendMessageW(edit, WM_KEYUP, key, 0);
}

struct Span
{
    DWORD start;
    DWORD end;

    bool operator==(const Span&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Span& span)
{
    return out << span.start << ".." << span.end;
}

Span SelectionOf(HWND edit)
{
    Span span = {};
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&span.start), reinterpret_cast<LPARAM>(&span.end));
    return span;
}

Text LineOf(HWND edit, int line)
{
    WCHAR buffer[64] = {};
    buffer[0] = 63;
    const auto count =
        SendMessageW(edit, EM_GETLINE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(buffer));
    return {buffer, static_cast<size_t>(count)};
}

LRESULT Replace(HWND edit, LPCWSTR text, bool undoable = true)
{
    return SendMessageW(edit, EM_REPLACESEL, undoable, reinterpret_cast<LPARAM>(text));
}

/// Wine tells of a change even when the limit has let nothing in.
Tolds WithoutIdleChange(Tolds told)
{
    if (OnWine())
        told.resize(told.size() - 2);
    return told;
}

TEST(Edit, DialogCodeTellsThatItWantsCharacters)
{
    Parent parent;
    const HWND single = parent.Add(TEXT("Edit"), TEXT(""), ES_AUTOHSCROLL, kLine);
    EXPECT_EQ(SendMessageW(single, WM_GETDLGCODE, 0, 0), DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS);
    const HWND multi = parent.Add(TEXT("EDIT"), TEXT(""), kMulti, kField);
    EXPECT_EQ(SendMessageW(multi, WM_GETDLGCODE, 0, 0),
              DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_WANTALLKEYS);
}

TEST(Edit, SelectionByNumbersIsOrderedAndCutToTheText)
{
    constexpr struct
    {
        int start, end;
        Span expected;
    } kCases[] = {{2, 5, {2, 5}},   {5, 2, {2, 5}},    {0, -1, {0, 10}},  {4, -1, {4, 10}},
                  {3, 99, {3, 10}}, {-1, 0, {10, 10}}, {50, 60, {10, 10}}};
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("0123456789"), ES_AUTOHSCROLL, kLine);
    for (const auto& each : kCases) {
        SendMessageW(edit, EM_SETSEL, 0, 0);
        SendMessageW(edit, EM_SETSEL, 0, -1);
        SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(each.start), each.end);
        EXPECT_EQ(SelectionOf(edit), each.expected) << each.start << ' ' << each.end;
        EXPECT_EQ(SendMessageW(edit, EM_GETSEL, 0, 0), MAKELONG(each.expected.start, each.expected.end));
    }
}

TEST(Edit, ChangesAreToldBeforeAndAfterTheyShow)
{
    const Tolds kChange = {Command(EN_UPDATE), Command(EN_CHANGE)};
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("one"), ES_AUTOHSCROLL, kLine);
    SetFocus(edit);
    EXPECT_EQ(parent.Take(), (Tolds{Command(EN_SETFOCUS)}));
    Type(edit, TEXT("x"));
    EXPECT_EQ(parent.Take(), kChange);
    SetWindowTextW(edit, TEXT("two"));
    EXPECT_EQ(parent.Take(), kChange);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    EXPECT_EQ(parent.Take(), Tolds{});
    Replace(edit, TEXT("three"));
    EXPECT_EQ(parent.Take(), kChange);
    SendMessageW(edit, EM_UNDO, 0, 0);
    Tolds undone = parent.Take();
    if (OnWine())
        undone.pop_back(); // it tells the change twice
    EXPECT_EQ(undone, kChange);
    Key(edit, VK_LEFT);
    EXPECT_EQ(parent.Take(), Tolds{});
    SetFocus(parent);
    EXPECT_EQ(parent.Take(), (Tolds{Command(EN_KILLFOCUS)}));

    const HWND multi = parent.Add(TEXT("Edit"), TEXT("one"), kMulti, kField);
    parent.Take();
    SetWindowTextW(multi, TEXT("two"));
    EXPECT_EQ(parent.Take(), Tolds{}) << "the program's text of several lines is not told";
    Type(multi, TEXT("x"));
    EXPECT_EQ(parent.Take(), kChange);
}

TEST(Edit, LimitStopsTheUserAndIsTold)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT(""), ES_AUTOHSCROLL, kLine);
    SendMessageW(edit, EM_LIMITTEXT, 3, 0);
    EXPECT_EQ(SendMessageW(edit, EM_GETLIMITTEXT, 0, 0), 3);
    Type(edit, TEXT("123"));
    parent.Take();
    Type(edit, TEXT("4"));
    EXPECT_EQ(WithoutIdleChange(parent.Take()), (Tolds{Command(EN_MAXTEXT)}));
    EXPECT_EQ(TextOf(edit), TEXT("123"));
    SendMessageW(edit, EM_SETSEL, 1, 2);
    Replace(edit, TEXT("abc"));
    EXPECT_EQ(parent.Take(), (Tolds{Command(EN_MAXTEXT), Command(EN_UPDATE), Command(EN_CHANGE)}));
    EXPECT_EQ(TextOf(edit), TEXT("1a3"));
    SetWindowTextW(edit, TEXT("program"));
    EXPECT_EQ(TextOf(edit), TEXT("program"));
}

TEST(Edit, TextThatMayNotScrollStopsAtTheEdge)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT(""), 0, {10, 10, 60, 34});
    for (int i = 0; i < 50; ++i)
        Type(edit, TEXT("m"));
    EXPECT_LT(GetWindowTextLengthW(edit), 50);
    EXPECT_GT(GetWindowTextLengthW(edit), 1);
    EXPECT_EQ(WithoutIdleChange(parent.Take()).back(), Command(EN_MAXTEXT));
    const HWND lines = parent.Add(TEXT("Edit"), TEXT(""), ES_MULTILINE | ES_AUTOHSCROLL, {10, 50, 60, 90});
    for (int i = 0; i < 50; ++i)
        SendMessageW(lines, WM_CHAR, VK_RETURN, 0);
    EXPECT_LT(SendMessageW(lines, EM_GETLINECOUNT, 0, 0), 6);
    EXPECT_EQ(WithoutIdleChange(parent.Take()).back(), Command(EN_MAXTEXT));
}

TEST(Edit, StylesDecideWhichCharactersComeIn)
{
    struct
    {
        DWORD style;
        LPCWSTR typed;
        LPCWSTR expected;
    } const kCases[] = {
        {ES_AUTOHSCROLL, TEXT("aB 1\t\r"), TEXT("aB 1")},
        {ES_AUTOHSCROLL | ES_NUMBER, TEXT("-1a2.3"), TEXT("123")},
        {ES_AUTOHSCROLL | ES_UPPERCASE, TEXT("aB\u00E9"), TEXT("AB\u00C9")},
        {ES_AUTOHSCROLL | ES_LOWERCASE, TEXT("aB\u00C9"), TEXT("ab\u00E9")},
        {ES_AUTOHSCROLL | ES_READONLY, TEXT("abc"), TEXT("")},
        {ES_AUTOHSCROLL | ES_PASSWORD, TEXT("abc"), TEXT("abc")},
        {kMulti, TEXT("a\rb\tc"), TEXT("a\r\nb\tc")},
        {kMulti, TEXT("ab\b\bc"), TEXT("c")},
    };
    for (const auto& each : kCases) {
        Parent parent;
        const HWND edit = parent.Add(TEXT("Edit"), TEXT(""), each.style, kLine);
        SetFocus(edit);
        Type(edit, each.typed);
        EXPECT_EQ(TextOf(edit), each.expected) << each.style;
    }
}

TEST(Edit, KeysMoveTheCaretAndDelete)
{
    constexpr struct
    {
        int caret;
        WPARAM key;
        DWORD expected;
    } kCases[] = {{3, VK_LEFT, 2}, {0, VK_LEFT, 0}, {3, VK_RIGHT, 4}, {10, VK_RIGHT, 10},
                  {3, VK_HOME, 0}, {3, VK_END, 10}, {5, VK_UP, 4},    {5, VK_DOWN, 6}};
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("0123456789"), ES_AUTOHSCROLL, kLine);
    SetFocus(edit);
    for (const auto& each : kCases) {
        SendMessageW(edit, EM_SETSEL, static_cast<WPARAM>(each.caret), each.caret);
        Key(edit, each.key);
        EXPECT_EQ(SelectionOf(edit), (Span{each.expected, each.expected})) << each.caret << ' ' << each.key;
    }
    SendMessageW(edit, EM_SETSEL, 4, 4);
    Key(edit, VK_DELETE);
    EXPECT_EQ(TextOf(edit), TEXT("012356789"));
    SendMessageW(edit, EM_SETSEL, 1, 3);
    Key(edit, VK_DELETE);
    EXPECT_EQ(TextOf(edit), TEXT("0356789"));
    SendMessageW(edit, EM_SETSEL, 1, 3);
    Type(edit, TEXT("\b"));
    EXPECT_EQ(TextOf(edit), TEXT("06789"));
}

TEST(Edit, UndoOfASingleLineGoesBackAndForth)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("12"), ES_AUTOHSCROLL, kLine);
    EXPECT_FALSE(SendMessageW(edit, EM_CANUNDO, 0, 0));
    SendMessageW(edit, EM_SETMODIFY, FALSE, 0);
    SendMessageW(edit, EM_SETSEL, 2, 2);
    Type(edit, TEXT("34"));
    EXPECT_TRUE(SendMessageW(edit, EM_CANUNDO, 0, 0));
    EXPECT_TRUE(SendMessageW(edit, EM_GETMODIFY, 0, 0));
    EXPECT_TRUE(SendMessageW(edit, EM_UNDO, 0, 0));
    EXPECT_EQ(TextOf(edit), TEXT("12"));
    EXPECT_TRUE(SendMessageW(edit, EM_UNDO, 0, 0));
    EXPECT_EQ(TextOf(edit), TEXT("1234"));
    SendMessageW(edit, EM_EMPTYUNDOBUFFER, 0, 0);
    EXPECT_FALSE(SendMessageW(edit, EM_CANUNDO, 0, 0));
    SendMessageW(edit, EM_SETSEL, 0, -1);
    Replace(edit, TEXT("by the program"), false);
    EXPECT_FALSE(SendMessageW(edit, EM_CANUNDO, 0, 0));
    SetWindowTextW(edit, TEXT("new"));
    EXPECT_FALSE(SendMessageW(edit, EM_GETMODIFY, 0, 0));
    EXPECT_EQ(SelectionOf(edit), (Span{0, 0}));
}

TEST(Edit, LinesAreFoundByNumberAndByPosition)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("zero\r\n\r\ntwo\r\nthree"), kMulti, kField);
    EXPECT_EQ(SendMessageW(edit, EM_GETLINECOUNT, 0, 0), 4);
    constexpr int kStarts[] = {0, 6, 8, 13};
    constexpr int kLengths[] = {4, 0, 3, 5};
    const LPCWSTR kLines[] = {TEXT("zero"), TEXT(""), TEXT("two"), TEXT("three")};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(SendMessageW(edit, EM_LINEINDEX, static_cast<WPARAM>(i), 0), kStarts[i]);
        EXPECT_EQ(SendMessageW(edit, EM_LINEFROMCHAR, static_cast<WPARAM>(kStarts[i]), 0), i);
        EXPECT_EQ(SendMessageW(edit, EM_LINELENGTH, static_cast<WPARAM>(kStarts[i]), 0), kLengths[i]);
        EXPECT_EQ(LineOf(edit, i), kLines[i]);
    }
    EXPECT_EQ(SendMessageW(edit, EM_LINEINDEX, 9, 0), -1);
    EXPECT_EQ(LineOf(edit, 9), Text());
    SendMessageW(edit, EM_SETSEL, 9, 14);
    EXPECT_EQ(SendMessageW(edit, EM_LINELENGTH, static_cast<WPARAM>(-1), 0), 5)
        << "w and o are selected, t, and hree are not";
    EXPECT_EQ(SendMessageW(edit, EM_LINEFROMCHAR, static_cast<WPARAM>(-1), 0), 2);
}

TEST(Edit, UpAndDownKeepTheColumn)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("mmmmm\r\nm\r\nmmmmm"), kMulti, kField);
    SetFocus(edit);
    SendMessageW(edit, EM_SETSEL, 4, 4);
    Key(edit, VK_DOWN);
    EXPECT_EQ(SelectionOf(edit), (Span{8, 8})) << "the line is shorter";
    if (OnWine())
        return; // it stays in the shorter line's column
    Key(edit, VK_DOWN);
    EXPECT_EQ(SelectionOf(edit), (Span{14, 14}));
    Key(edit, VK_UP);
    Key(edit, VK_UP);
    EXPECT_EQ(SelectionOf(edit), (Span{4, 4}));
}

TEST(Edit, LongLinesWrapUnlessTheControlScrollsSideways)
{
    Parent parent;
    const LPCWSTR text = TEXT("some words that do not fit into the width of one line of this narrow control");
    const HWND wrapped = parent.Add(TEXT("Edit"), text, ES_MULTILINE | ES_AUTOVSCROLL, {10, 10, 110, 150});
    const auto lines = static_cast<int>(SendMessageW(wrapped, EM_GETLINECOUNT, 0, 0));
    EXPECT_GT(lines, 3);
    Text joined;
    for (int i = 0; i < lines; ++i)
        joined += LineOf(wrapped, i);
    EXPECT_EQ(joined, text);
    EXPECT_EQ(TextOf(wrapped), text);
    const HWND scrolled = parent.Add(TEXT("Edit"), text, kMulti, {10, 10, 110, 150});
    EXPECT_EQ(SendMessageW(scrolled, EM_GETLINECOUNT, 0, 0), 1);
}

TEST(Edit, ScrollingByMessageStopsAtTheEnds)
{
    Parent parent;
    Text text = TEXT("line");
    for (int i = 0; i < 50; ++i)
        text += TEXT("\r\nline");
    const HWND edit = parent.Add(TEXT("Edit"), text.c_str(), kMulti | WS_VSCROLL, kField);
    const auto firstLine = [&] { return SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0); };
    EXPECT_EQ(firstLine(), 0);
    EXPECT_EQ(SendMessageW(edit, EM_SCROLL, SB_LINEDOWN, 0), MAKELONG(1, TRUE));
    EXPECT_EQ(firstLine(), 1);
    EXPECT_TRUE(SendMessageW(edit, EM_LINESCROLL, 0, 10));
    EXPECT_EQ(firstLine(), 11);
    SendMessageW(edit, EM_LINESCROLL, 0, 1000);
    const LRESULT last = firstLine();
    EXPECT_LT(last, 51);
    EXPECT_GT(last, 30);
    SendMessageW(edit, EM_LINESCROLL, 0, -1000);
    EXPECT_EQ(firstLine(), 0);
    SendMessageW(edit, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
    SendMessageW(edit, EM_SCROLLCARET, 0, 0);
    EXPECT_EQ(firstLine(), last);
}

TEST(Edit, PointsAndPositionsBelongTogether)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("first line\r\nsecond"), kMulti, kField);
    const auto place = [&](int position) {
        const LRESULT at = SendMessageW(edit, EM_POSFROMCHAR, static_cast<WPARAM>(position), 0);
        return POINT{static_cast<SHORT>(LOWORD(at)), static_cast<SHORT>(HIWORD(at))};
    };
    for (const int position : {0, 4, 9, 12, 15}) {
        const POINT at = place(position);
        const LRESULT found = SendMessageW(edit, EM_CHARFROMPOS, 0, At(at.x + 1, at.y + 2));
        EXPECT_EQ(LOWORD(found), position);
        EXPECT_EQ(HIWORD(found), position < 12 ? 0 : 1);
    }
    EXPECT_GT(place(4).x, place(0).x);
    EXPECT_EQ(place(12).x, place(0).x);
    EXPECT_GT(place(12).y, place(0).y);
}

TEST(Edit, TabStopsAreAtMultiplesOfDialogUnitsOrWhereTheProgramSays)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("a\tb\tc"), kMulti, kField);
    const auto x = [&](int position) {
        return static_cast<SHORT>(
            LOWORD(SendMessageW(edit, EM_POSFROMCHAR, static_cast<WPARAM>(position), 0)));
    };
    const int usual = x(2) - x(0);
    EXPECT_EQ(x(4) - x(0), 2 * usual);
    const UINT every = 64;
    EXPECT_TRUE(SendMessageW(edit, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&every)));
    EXPECT_EQ(x(2) - x(0), 2 * usual);
    EXPECT_EQ(x(4) - x(0), 4 * usual);
    const UINT stops[] = {32, 96};
    EXPECT_TRUE(SendMessageW(edit, EM_SETTABSTOPS, 2, reinterpret_cast<LPARAM>(stops)));
    EXPECT_EQ(x(2) - x(0), usual);
    EXPECT_EQ(x(4) - x(0), 3 * usual);
    const HWND single = parent.Add(TEXT("Edit"), TEXT(""), ES_AUTOHSCROLL, kLine);
    EXPECT_FALSE(SendMessageW(single, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&every)));
}

TEST(Edit, ClipboardTakesTheSelectionAndGivesIt)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("one two"), ES_AUTOHSCROLL, kLine);
    SendMessageW(edit, EM_SETSEL, 0, 3);
    SendMessageW(edit, WM_CUT, 0, 0);
    EXPECT_EQ(TextOf(edit), TEXT(" two"));
    SendMessageW(edit, EM_SETSEL, 4, 4);
    SendMessageW(edit, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(edit), TEXT(" twoone"));
    const HWND secret = parent.Add(TEXT("Edit"), TEXT("secret"), ES_AUTOHSCROLL | ES_PASSWORD, kLine);
    SendMessageW(secret, EM_SETSEL, 0, -1);
    SendMessageW(secret, WM_COPY, 0, 0);
    SendMessageW(edit, WM_PASTE, 0, 0);
    EXPECT_EQ(TextOf(edit), OnWine() ? TEXT(" twoonesecret") : TEXT(" twooneone"))
        << "a password is not copied";
    EXPECT_TRUE(OpenClipboard(edit));
    EXPECT_TRUE(EmptyClipboard());
    EXPECT_TRUE(CloseClipboard());
}

TEST(Edit, AsksForTheColoursOfAFieldOrOfALabelWhenItCannotBeChanged)
{
    Parent parent(true);
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("text"), ES_AUTOHSCROLL, kLine);
    const auto asked = [&] {
        parent.Take();
        InvalidateRect(edit, nullptr, TRUE);
        UpdateWindow(edit);
        return parent.Take().at(0).message;
    };
    EXPECT_EQ(asked(), static_cast<UINT>(WM_CTLCOLOREDIT));
    EXPECT_TRUE(SendMessageW(edit, EM_SETREADONLY, TRUE, 0));
    EXPECT_NE(GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY, 0);
    EXPECT_EQ(asked(), static_cast<UINT>(WM_CTLCOLORSTATIC));
    SendMessageW(edit, EM_SETREADONLY, FALSE, 0);
    EnableWindow(edit, FALSE);
    EXPECT_EQ(asked(), static_cast<UINT>(WM_CTLCOLORSTATIC));
}

/// A dialog without a template's controls; the WM_COMMAND ids that it gets are kept.
struct Dialog
{
    Dialog()
    {
        struct
        {
            DLGTEMPLATE head;
            WORD menu, windowClass, title;
        } const blank = {{WS_POPUP | WS_VISIBLE, 0, 0, 0, 0, 200, 100}, 0, 0, 0};
        window = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &blank.head, nullptr, Procedure, 0);
        commands.clear();
    }
    ~Dialog() { DestroyWindow(window); }

    static INT_PTR CALLBACK Procedure(HWND, UINT message, WPARAM wParam, LPARAM)
    {
        if (message == WM_COMMAND)
            commands.push_back(LOWORD(wParam));
        return message == WM_COMMAND;
    }

    HWND Add(LPCWSTR className, DWORD style, int id) const
    {
        return CreateWindowExW(0, className, TEXT(""), style | WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10,
                               10 + 40 * id, 100, 36, window,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }

    void Key(HWND target, WPARAM key) const
    {
        MSG down = {target, WM_KEYDOWN, key, 1, 0, {}};
        IsDialogMessageW(window, &down);
        MSG queued = {};
        while (PeekMessageW(&queued, nullptr, 0, 0, PM_REMOVE)) {
            if (!IsDialogMessageW(window, &queued))
                DispatchMessageW(&queued);
        }
    }
    static auto TimesPressed(int id) { return std::count(commands.begin(), commands.end(), id); }

    HWND window;
    static inline std::vector<int> commands;
};

TEST(Edit, SeveralLinesGiveTheDialogItsKeysBack)
{
    const Dialog dialog;
    const HWND plain = dialog.Add(TEXT("Edit"), kMulti, 3);
    const HWND wanting = dialog.Add(TEXT("Edit"), kMulti | ES_WANTRETURN, 4);
    dialog.Add(TEXT("Button"), BS_DEFPUSHBUTTON, IDOK);
    SetFocus(plain);
    Dialog::commands.clear();
    dialog.Key(plain, VK_RETURN);
    EXPECT_EQ(TextOf(plain), Text());
    EXPECT_EQ(Dialog::TimesPressed(IDOK), 1);
    SetFocus(plain);
    dialog.Key(plain, VK_TAB);
    EXPECT_EQ(TextOf(plain), Text());
    EXPECT_EQ(GetFocus(), wanting);
    Dialog::commands.clear();
    dialog.Key(wanting, VK_RETURN);
    EXPECT_EQ(TextOf(wanting), TEXT("\r\n"));
    EXPECT_EQ(Dialog::TimesPressed(IDOK), 0);
}

TEST(Edit, PressedMouseSelects)
{
    Parent parent;
    const HWND edit = parent.Add(TEXT("Edit"), TEXT("some words"), ES_AUTOHSCROLL, kLine);
    const auto at = [&](int position) {
        return SendMessageW(edit, EM_POSFROMCHAR, static_cast<WPARAM>(position), 0) + MAKELONG(1, 2);
    };
    SendMessageW(edit, WM_LBUTTONDOWN, MK_LBUTTON, at(2));
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(GetCapture(), edit);
    EXPECT_EQ(SelectionOf(edit), (Span{2, 2}));
    SendMessageW(edit, WM_MOUSEMOVE, MK_LBUTTON, at(7));
    SendMessageW(edit, WM_LBUTTONUP, 0, at(7));
    EXPECT_EQ(SelectionOf(edit), (Span{2, 7}));
    EXPECT_EQ(GetCapture(), nullptr);
    SendMessageW(edit, WM_LBUTTONDBLCLK, MK_LBUTTON, at(6));
    EXPECT_EQ(SelectionOf(edit), (Span{5, 10}));
}

} // namespace
