#include <gtest/gtest.h>

#include "host/window/controls/edit_lines.h"
#include "host/window/controls/edit_text.h"

namespace {

using host::BreakLines;
using host::EditLine;
using host::EditText;

void Type(EditText& text, std::u16string_view units)
{
    for (const char16_t& unit : units)
        text.Insert({&unit, 1});
}

TEST(EditText, InsertsWhatTheLimitAllowsInPlaceOfTheSelection)
{
    struct
    {
        const char16_t* before;
        size_t anchor, caret, limit;
        const char16_t* inserted;
        const char16_t* after;
        size_t caretAfter;
        bool changed, cut;
    } const kCases[] = {
        {u"", 0, 0, 3, u"abcd", u"abc", 3, true, true},
        {u"12345", 1, 3, 5, u"xyz", u"1xy45", 3, true, true},
        {u"12345", 3, 1, 99, u"", u"145", 1, true, false},
        {u"12345", 5, 5, 3, u"x", u"12345", 5, false, true},
        {u"12345", 0, 5, 3, u"wxyz", u"wxy", 3, true, true},
        {u"", 0, 0, 2, u"a\xD83D\xDE00", u"a", 1, true, true},
        {u"ab", 1, 1, 99, u"c\r\nd", u"acb", 2, true, false},
        {u"ab", 2, 2, 99, u"", u"ab", 2, false, false},
    };
    for (const auto& each : kCases) {
        EditText text({});
        text.Set(each.before);
        text.SetLimit(each.limit);
        text.Select(each.anchor, each.caret);
        const EditText::Outcome outcome = text.Insert(each.inserted);
        EXPECT_EQ(text.Text(), each.after);
        EXPECT_EQ(text.Caret(), each.caretAfter);
        EXPECT_FALSE(text.HasSelection());
        EXPECT_EQ(outcome.changed, each.changed) << text.Length();
        EXPECT_EQ(outcome.cut, each.cut) << text.Length();
        EXPECT_EQ(text.modified, each.changed);
    }
    EditText lines({true, nullptr});
    lines.SetLimit(2);
    EXPECT_TRUE(lines.Insert(u"a\r\n").cut);
    EXPECT_EQ(lines.Text(), u"a") << "a line break comes in whole or not at all";
}

TEST(EditText, UndoTakesBackOneRunOfDeletingInEitherDirection)
{
    EditText text({});
    text.Set(u"abcdef");
    text.Select(3, 3);
    text.Erase(2);
    text.Erase(1);
    text.Erase(text.Next(1));
    EXPECT_EQ(text.Text(), u"aef");
    text.Undo();
    EXPECT_EQ(text.Text(), u"abcdef");
    EXPECT_EQ(text.Selected(), u"bcd");

    text.Select(0, 6);
    text.Insert(u"by the program", false);
    EXPECT_FALSE(text.CanUndo());
}

TEST(EditText, TypingAfterUndoIsAChangeOfItsOwn)
{
    EditText text({});
    Type(text, u"abc");
    text.Undo();
    Type(text, u"x");
    text.Undo();
    EXPECT_EQ(text.Text(), u"");
}

TEST(EditText, CaretSkipsLineBreaksAndPairsWhole)
{
    EditText text({true, nullptr});
    text.Set(u"a\r\n\xD83D\xDE00.");
    size_t place = 0;
    for (const size_t expected : {1, 3, 5, 6, 6}) {
        place = text.Next(place);
        EXPECT_EQ(place, expected);
    }
    for (const size_t expected : {5, 3, 1, 0, 0}) {
        place = text.Previous(place);
        EXPECT_EQ(place, expected);
    }
    text.Set(u"one  two\tthree");
    EXPECT_EQ(text.NextWord(0), 5u);
    EXPECT_EQ(text.NextWord(9), 14u);
    EXPECT_EQ(text.PreviousWord(9), 5u);
    EXPECT_EQ(text.PreviousWord(7), 5u);
    EXPECT_EQ(text.PreviousWord(2), 0u);
}

TEST(EditLines, TextFallsIntoLinesAtBreaksAndWhereTheWidthEnds)
{
    // Every unit is 10 pixels wide.
    const auto measure = [](std::u16string_view piece) { return static_cast<int>(piece.size()) * 10; };
    struct
    {
        const char16_t* text;
        int width;
        std::vector<const char16_t*> lines;
    } const kCases[] = {
        {u"", 50, {u""}},
        {u"one\r\n\r\ntwo", 0, {u"one", u"", u"two"}},
        {u"one\r\n", 0, {u"one", u""}},
        {u"one\ntwo\rthree", 0, {u"one\ntwo\rthree"}},
        {u"one two three", 80, {u"one two ", u"three"}},
        {u"one two three", 70, {u"one two ", u"three"}},
        {u"abcdefgh", 30, {u"abc", u"def", u"gh"}},
        {u"a bcdefgh", 30, {u"a ", u"bcd", u"efg", u"h"}},
        {u"ab   cd", 30, {u"ab   ", u"cd"}},
        {u"ab\xD83D\xDE00", 30, {u"ab", u"\xD83D\xDE00"}},
        {u"abc", 1, {u"a", u"b", u"c"}},
    };
    for (const auto& each : kCases) {
        const std::u16string_view text = each.text;
        const std::vector<EditLine> lines = BreakLines(text, each.width, measure);
        ASSERT_EQ(lines.size(), each.lines.size()) << each.width << ' ' << text.size();
        size_t next = 0;
        for (size_t i = 0; i < lines.size(); ++i) {
            EXPECT_EQ(lines[i].start, next) << i;
            EXPECT_EQ(text.substr(lines[i].start, lines[i].length), each.lines[i]) << i;
            next = lines[i].start + lines[i].length + lines[i].breakLength;
        }
        EXPECT_EQ(next, text.size());
    }
}

TEST(EditLines, PositionsBelongToTheLineThatStartsAtOrBeforeThem)
{
    const auto measure = [](std::u16string_view piece) { return static_cast<int>(piece.size()); };
    const std::vector<EditLine> lines = BreakLines(u"ab cd\r\nef", 3, measure);
    ASSERT_EQ(lines.size(), 3u);
    constexpr size_t kLineOf[] = {0, 0, 0, 1, 1, 1, 1, 2, 2, 2};
    for (size_t i = 0; i < std::size(kLineOf); ++i)
        EXPECT_EQ(LineOfPosition(lines, i), kLineOf[i]) << i;
}

} // namespace
