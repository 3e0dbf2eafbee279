// The edit control, as a program sees it.
#include "tests/host/control_test.h"
#include "tests/host/wine.h"

namespace {

constexpr DWORD kSingle = ES_AUTOHSCROLL;
constexpr DWORD kMulti = ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL;

using Span = std::pair<DWORD, DWORD>; // start and end of what is selected

class EditTest : public ControlTest
{
protected:
    EditTest()
    {
        codes_ = {{EN_SETFOCUS, "focus"},
                  {EN_KILLFOCUS, "blur"},
                  {EN_UPDATE, "update"},
                  {EN_CHANGE, "change"},
                  {EN_MAXTEXT, "full"}};
    }

    static HWND MakeEdit(const char* text, DWORD style, int width = 300)
    {
        return Make(TEXT("Edit"), style, width, style & ES_MULTILINE ? 140 : 24, text);
    }

    static void Select(HWND edit, int start, int end)
    {
        Send(edit, EM_SETSEL, static_cast<WPARAM>(start), end);
    }
    static Span SelectionOf(HWND edit)
    {
        Span span;
        Send(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&span.first), &span.second);
        return span;
    }
    static std::string LineOf(HWND edit, int line)
    {
        WCHAR buffer[64] = {63};
        buffer[Send(edit, EM_GETLINE, static_cast<WPARAM>(line), buffer)] = 0;
        return Narrowed(buffer);
    }
    static POINT PlaceOf(HWND edit, int position)
    {
        const int place = Send(edit, EM_POSFROMCHAR, static_cast<WPARAM>(position));
        return {static_cast<SHORT>(LOWORD(place)), static_cast<SHORT>(HIWORD(place))};
    }

    /// Wine tells of a change even when the limit has let nothing in.
    static std::string Full() { return OnWine() ? "full update change" : "full"; }
};

TEST_F(EditTest, SelectionByNumbersIsOrderedAndCutToTheText)
{
    constexpr struct
    {
        int start, end;
        Span expected;
    } kCases[] = {{2, 5, {2, 5}},   {5, 2, {2, 5}},    {0, -1, {0, 10}},  {4, -1, {4, 10}},
                  {3, 99, {3, 10}}, {-1, 0, {10, 10}}, {50, 60, {10, 10}}};
    const HWND edit = MakeEdit("0123456789", kSingle);
    for (const auto& each : kCases) {
        Select(edit, 0, -1);
        Select(edit, each.start, each.end);
        EXPECT_EQ(SelectionOf(edit), each.expected) << each.start << ' ' << each.end;
        EXPECT_EQ(Send(edit, EM_GETSEL), MAKELONG(each.expected.first, each.expected.second));
    }
}

TEST_F(EditTest, ChangesAreToldBeforeAndAfterTheyShow)
{
    const HWND edit = MakeEdit("one", kSingle);
    const HWND multi = MakeEdit("one", kMulti);
    Told();
    ExpectTold({
        {[=] { SetFocus(edit); }, "focus"},
        {[=] { Type(edit, "x"); }, "update change"},
        {[=] { SetText(edit, "two"); }, "update change"},
        {[=] { Select(edit, 0, -1); }, ""},
        {[=] { Send(edit, EM_REPLACESEL, TRUE, "three"); }, "update change"},
        {[=] { Send(edit, EM_UNDO); }, OnWine() ? "update change change" : "update change"},
        {[=] { Key(edit, VK_LEFT); }, ""},
        {[=] { SetFocus(parent_); }, "blur"},
        {[=] { SetText(multi, "two"); }, ""}, // the program's text of several lines is not told
        {[=] { Type(multi, "x"); }, "update change"},
    });
}

TEST_F(EditTest, LimitStopsTheUserAndIsTold)
{
    const HWND edit = MakeEdit("", kSingle);
    Send(edit, EM_LIMITTEXT, 3);
    Type(edit, "123");
    Told();
    Type(edit, "4");
    EXPECT_EQ(Told(), Full());
    Select(edit, 1, 2);
    Send(edit, EM_REPLACESEL, TRUE, "abc");
    EXPECT_EQ(Told(), "full update change");
    EXPECT_EQ(TextOf(edit), "1a3");
    SetText(edit, "program");
    EXPECT_EQ(TextOf(edit), "program");
}

TEST_F(EditTest, TextThatMayNotScrollStopsAtTheEdge)
{
    const HWND edit = MakeEdit("", 0, 50);
    Type(edit, "mmmmmmmmmm");
    EXPECT_LT(TextOf(edit).size(), 10u);
    EXPECT_GT(TextOf(edit).size(), 1u);
    Told();
    Type(edit, "m");
    EXPECT_EQ(Told(), Full());
}

TEST_F(EditTest, StylesDecideWhichCharactersComeIn)
{
    const struct
    {
        DWORD style;
        const char* typed;
        const char* expected;
    } kCases[] = {
        {kSingle, "aB 1\t\r", "aB 1"},      {kSingle | ES_NUMBER, "-1a2.3", "123"},
        {kSingle | ES_READONLY, "abc", ""}, {kMulti, "a\rb\tc", "a\r\nb\tc"},
        {kMulti, "ab\b\bc", "c"},
    };
    for (const auto& each : kCases) {
        const HWND edit = MakeEdit("", each.style);
        SetFocus(edit);
        Type(edit, each.typed);
        EXPECT_EQ(TextOf(edit), each.expected) << each.style;
    }
}

TEST_F(EditTest, KeysMoveTheCaretAndDelete)
{
    constexpr struct
    {
        int start, end;
        WPARAM key;
        DWORD caret;
        const char* text = "0123456789";
    } kCases[] = {
        {3, 3, VK_LEFT, 2},
        {0, 0, VK_LEFT, 0},
        {3, 3, VK_RIGHT, 4},
        {10, 10, VK_RIGHT, 10},
        {3, 3, VK_HOME, 0},
        {3, 3, VK_END, 10},
        {5, 5, VK_UP, 4},
        {5, 5, VK_DOWN, 6},
        {4, 4, VK_DELETE, 4, "012356789"},
        {1, 3, VK_DELETE, 1, "03456789"},
        {1, 3, VK_BACK, 1, "03456789"},
        {3, 3, VK_BACK, 2, "013456789"},
    };
    const HWND edit = MakeEdit("", kSingle);
    SetFocus(edit);
    for (const auto& each : kCases) {
        SetText(edit, "0123456789");
        Select(edit, each.start, each.end);
        if (each.key == VK_BACK)
            Type(edit, "\b");
        else
            Key(edit, each.key);
        EXPECT_EQ(SelectionOf(edit), Span(each.caret, each.caret)) << each.start << ' ' << each.key;
        EXPECT_EQ(TextOf(edit), each.text) << each.start << ' ' << each.key;
    }
}

TEST_F(EditTest, UndoOfASingleLineGoesBackAndForth)
{
    const HWND edit = MakeEdit("12", kSingle);
    EXPECT_FALSE(Send(edit, EM_CANUNDO));
    Select(edit, 2, 2);
    Type(edit, "34");
    EXPECT_TRUE(Send(edit, EM_CANUNDO));
    for (const char* text : {"12", "1234"}) {
        EXPECT_TRUE(Send(edit, EM_UNDO));
        EXPECT_EQ(TextOf(edit), text);
    }
    Send(edit, EM_EMPTYUNDOBUFFER);
    EXPECT_FALSE(Send(edit, EM_CANUNDO));
    Type(edit, "x");
    SetText(edit, "new");
    EXPECT_FALSE(Send(edit, EM_CANUNDO));
    EXPECT_EQ(SelectionOf(edit), Span(0, 0));
}

TEST_F(EditTest, LongLinesWrapUnlessTheControlScrollsSideways)
{
    const char* const text = "some words that do not fit into the width of one line of this narrow control";
    const HWND wrapped = MakeEdit(text, ES_MULTILINE | ES_AUTOVSCROLL, 100);
    const int lines = Send(wrapped, EM_GETLINECOUNT);
    EXPECT_GT(lines, 3);
    std::string joined;
    for (int i = 0; i < lines; ++i)
        joined += LineOf(wrapped, i);
    EXPECT_EQ(joined, text);
    EXPECT_EQ(Send(MakeEdit(text, kMulti, 100), EM_GETLINECOUNT), 1);
}

TEST_F(EditTest, ScrollingStopsAtTheEnds)
{
    std::string text = "line";
    for (int i = 0; i < 50; ++i)
        text += "\r\nline";
    const HWND edit = MakeEdit(text.c_str(), kMulti | WS_VSCROLL);
    const auto firstLine = [&] { return Send(edit, EM_GETFIRSTVISIBLELINE); };
    EXPECT_EQ(Send(edit, EM_SCROLL, SB_LINEDOWN), MAKELONG(1, TRUE));
    EXPECT_TRUE(Send(edit, EM_LINESCROLL, 0, 10));
    EXPECT_EQ(firstLine(), 11);
    Send(edit, EM_LINESCROLL, 0, 1000);
    const int last = firstLine();
    EXPECT_LT(last, 51);
    EXPECT_GT(last, 30);
    Send(edit, EM_LINESCROLL, 0, -1000);
    EXPECT_EQ(firstLine(), 0);
    Select(edit, static_cast<int>(text.size()), -1);
    Send(edit, EM_SCROLLCARET);
    EXPECT_EQ(firstLine(), last);
}

TEST_F(EditTest, TabStopsAreAtMultiplesOfDialogUnitsOrWhereTheProgramSays)
{
    const HWND edit = MakeEdit("a\tb\tc", kMulti);
    const auto distance = [&](int position) { return PlaceOf(edit, position).x - PlaceOf(edit, 0).x; };
    const int usual = distance(2);
    EXPECT_EQ(distance(4), 2 * usual);
    const UINT stops[] = {64, 96};
    EXPECT_TRUE(Send(edit, EM_SETTABSTOPS, 1, stops));
    EXPECT_EQ(distance(2), 2 * usual);
    EXPECT_EQ(distance(4), 4 * usual);
    EXPECT_TRUE(Send(edit, EM_SETTABSTOPS, 2, stops));
    EXPECT_EQ(distance(4), 3 * usual);
    EXPECT_FALSE(Send(MakeEdit("", kSingle), EM_SETTABSTOPS, 1, stops));
}

TEST_F(EditTest, ClipboardTakesTheSelectionAndGivesIt)
{
    const HWND edit = MakeEdit("one two", kSingle);
    Select(edit, 0, 3);
    Send(edit, WM_CUT);
    EXPECT_EQ(TextOf(edit), " two");
    Select(edit, 4, 4);
    Send(edit, WM_PASTE);
    EXPECT_EQ(TextOf(edit), " twoone");
    EXPECT_TRUE(OpenClipboard(edit));
    EXPECT_TRUE(EmptyClipboard());
    EXPECT_TRUE(CloseClipboard());
}

TEST_F(EditTest, PressedMouseSelects)
{
    const HWND edit = MakeEdit("some words", kSingle);
    const auto at = [&](int position) { return PlaceOf(edit, position).x + 1; };
    Press(edit, at(2));
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(GetCapture(), edit);
    Drag(edit, at(7), 5);
    Release(edit, at(7));
    EXPECT_EQ(SelectionOf(edit), Span(2, 7));
    EXPECT_EQ(GetCapture(), nullptr);
    PressAgain(edit, at(6));
    EXPECT_EQ(SelectionOf(edit), Span(5, 10));
}

} // namespace
