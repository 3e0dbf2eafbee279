#include "tools/psuictl/output.h"
#include "tools/psuictl/text.h"

#include <sstream>
#include <tuple>

#include <gtest/gtest.h>

namespace {

using namespace psuictl;

TEST(Number, IsReadWholeOrNotAtAll)
{
    const std::pair<const char*, int64_t> numbers[] = {{"0", 0},
                                                       {"42", 42},
                                                       {"-3", -3},
                                                       {"0x1F", 31},
                                                       {"0Xff", 255},
                                                       {"-0x10", -16},
                                                       {"9223372036854775807", INT64_MAX}};
    for (const auto& [text, value] : numbers)
        EXPECT_EQ(ParseNumber(text), value) << text;
    for (const char* text : {"", "-", "0x", "--1", "+1", " 1", "1 ", "1.5", "12a", "-0x-1",
                             "9223372036854775808", "99999999999999999999"})
        EXPECT_EQ(ParseNumber(text), std::nullopt) << text;
}

TEST(HexBytes, NeedPairsOfDigits)
{
    EXPECT_EQ(ParseHexBytes("00fF 10"), std::string("\0\xFF\x10", 3));
    EXPECT_EQ(ParseHexBytes(""), "");
    for (const char* text : {"0", "0g", "0 0", "0x00", "00,01"})
        EXPECT_EQ(ParseHexBytes(text), std::nullopt) << text;
}

TEST(ReadableText, ShowsBytesThatAreNoTextInHex)
{
    const std::tuple<std::string, const char*, const char*> rows[] = {
        {"plain", "plain", "plain"},
        {"\x83\x41z", "<83>Az", "<83>Az"},
        {"a\xFF\xFE"
         "b",
         "a<FFFE>b", "a<FFFE>b"},
        {"\xE3\x83\x8F", "ハ", "ハ"},
        {"\xE3\x83", "<E383>", "<E383>"},
        {"\xC0\x80", "<C080>", "<C080>"},
        {"\xED\xA0\x80", "<EDA080>", "<EDA080>"},
        {"\x1B%\r\n", "\x1B%\r\n", "<1B>%<0D0A>"},
    };
    for (const auto& [bytes, readable, line] : rows) {
        EXPECT_EQ(ReadableBytes(bytes), readable);
        EXPECT_EQ(ReadableLine(bytes), line);
    }
}

TEST(Shortening, CutsBetweenCharacters)
{
    const std::string kept(39, 'a');
    EXPECT_EQ(Shortened(kept + "b"), kept + "b");
    EXPECT_EQ(Shortened(kept + "bc"), kept + "b...");
    EXPECT_EQ(Shortened(kept + "ハ"), kept + "...");
}

TEST(TableOutput, AlignsColumnsOfJapaneseText)
{
    Table table({"ID", "NAME", ""});
    table.Add({"1", "はがき", "x"});
    table.Add({"43", "A4", "y"});
    table.Add({"", "", ""});
    std::ostringstream out;
    table.Print(out, 1);
    EXPECT_EQ(out.str(), " ID  NAME\n"
                         " 1   はがき  x\n"
                         " 43  A4      y\n"
                         " \n");
}

} // namespace
