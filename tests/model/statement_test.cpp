#include "psui/model/statement.h"

#include <sstream>

#include "model_fixture.h"
#include "psui/model/crc.h"
#include "psui/model/scan.h"
#include "psui/model/values.h"

namespace psui::compiler {

namespace {

using namespace std::literals;

// Every call of the tokenizer, written out: keyword|option|translation|kind value, or the status.
std::string Cut(std::string_view text)
{
    constexpr const char* kKinds[] = {"none", "quoted", "bare", "symbol"};
    std::string result;
    Tokenizer tokenizer(text);
    ModelStatement s;
    for (;;) {
        const TokenStatus status = tokenizer.Next(s);
        if (status == TokenStatus::EndOfText)
            return result + (s.star ? "unfinished" : "end");
        if (status == TokenStatus::FieldTooLong)
            return result + "too long";
        if (status == TokenStatus::Rejected) {
            result += "rejected; ";
            continue;
        }
        result += std::string(s.keyword) + "|" + std::string(s.option) + "|" + std::string(s.translation) +
                  "|" + kKinds[static_cast<int>(s.kind)] + "<" + std::string(s.value) + ">; ";
    }
}

const std::string kForty(40, 'k');

} // namespace

TEST(Tokenizer, CutsEveryShapeOfStatement)
{
    const std::pair<std::string, std::string> cases[] = {
        {"", "end"},
        {"*End\n", "End|||none<>; end"},
        {"*End \t\r\n", "End|||none<>; end"},
        {"*NickName: \"a b\"\r\n", "NickName|||quoted<a b>; end"},
        {"*NickName:\"a\" tail *X: 1\n", "NickName|||quoted<a>; end"},
        {"*Q: \"one\r\n*two: 3\r\nthree\"\n", "Q|||quoted<one\r\n*two: 3\r\nthree>; end"},
        {"*Q: \"a/b\"\n", "Q|||quoted<a/b>; end"},
        {"*Default: Letter/US Letter\n", "Default|||bare<Letter>; end"},
        {"*Default:  Letter \n", "Default|||bare<Letter >; end"},
        {"*Default:\n", "Default|||bare<>; end"},
        {"*Default: /x\n", "Default|||bare<>; end"},
        {"*Default: a\"b\"\n", "Default|||bare<a\"b\">; end"},
        {"*Sym: ^name/x\n", "Sym|||symbol<^name>; end"},
        {"*Page A4:\"x\"\n", "Page|A4||quoted<x>; end"},
        {"*Page\tA4 /A4 210 x 297 mm/: \"x\"\n", "Page|A4|A4 210 x 297 mm/|quoted<x>; end"},
        {"*A/B x: 1\n", "A/B|x||bare<1>; end"},
        {"*?Query: \"x\n y\"\n*A: 1\n", "?Query|||quoted<x\n y>; A|||bare<1>; end"},
        {"**A: 1\n", "*A|||bare<1>; end"},
        {"text\n *A: 1\n\t*A: 1\n%*A: 1\n*%A: 1\n*A: 1\r", "A|||bare<1>; end"},
        {"*%\"\n*A: 1\n", "A|||bare<1>; end"},
        {std::string("*Q: \"a\0b\"\n", 10), "Q|||quoted<a>; end"},
        {"*" + kForty + " " + kForty + "/" + kForty + ": x\n",
         kForty + "|" + kForty + "|" + kForty + "|bare<x>; end"},
        {"*%" + kForty + kForty + "\n", "end"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(Cut(text), expected) << testing::PrintToString(text);
}

TEST(Tokenizer, RejectsWhatIsNoStatementAndGoesOnBehindTheBadCharacter)
{
    for (const std::string& bad : {"* A: 1\n"s, "*:"s, "*\n"s, "*A x\n"s, "*A x y: 1\n"s, "*A /t: 1\n"s,
                                   "*A x/:"s, "*A x/t\n"s, "*A x/t\x80: 1\n"s, "*A\x80"s, "*A\0"s})
        EXPECT_EQ(Cut(bad + "*B: 1\n"), "rejected; B|||bare<1>; end") << testing::PrintToString(bad);
    for (const std::string& start : {"*"s, "*A "s, "*A x/"s})
        for (const char* rest : {"k: 1\n*B: 1\n", "k"})
            EXPECT_EQ(Cut("*A: 1\n" + start + kForty + rest), "A|||bare<1>; too long") << start << rest;
}

// Runs are read eight characters at a time, so every character must end, or not end, a run at every place.
TEST(Tokenizer, EndsRunsAtTheSameCharactersWhereverTheyStand)
{
    for (unsigned c = 0; c < 256; ++c) {
        const char character = static_cast<char>(c);
        for (size_t place = 0; place < 20; ++place) {
            std::string text(20, 'a');
            text[place] = character;
            const char* const begin = text.data();
            const char* const end = begin + text.size();
            const auto stop = [&](bool stops) { return stops ? begin + place : end; };
            EXPECT_EQ(Find<Outside<kKeywordCharacter>>(begin, end), stop(!IsA(character, kKeywordCharacter)))
                << c;
            EXPECT_EQ(Find<Outside<kOptionCharacter>>(begin, end), stop(!IsA(character, kOptionCharacter)))
                << c;
            EXPECT_EQ(Find<Outside<kTranslationCharacter>>(begin, end),
                      stop(!IsA(character, kTranslationCharacter)))
                << c;
            EXPECT_EQ(Find<LineEnd>(begin, end), stop(IsA(character, kLineEnd))) << c;
            EXPECT_EQ(Find<BareValueEnd>(begin, end), stop(IsA(character, kLineEnd) || c == '/')) << c;
            EXPECT_EQ(Find<Blank>(begin, end), stop(IsA(character, kBlank))) << c;
        }
    }
}

TEST(Tokenizer, DropsTheStatementInWhichTheTextEnds)
{
    const std::string whole = "*Page A4/Name: \"x\" \n";
    for (size_t length = 1; length < whole.size(); ++length)
        EXPECT_EQ(Cut("*A: 1\n" + whole.substr(0, length)), "A|||bare<1>; unfinished") << length;
    EXPECT_EQ(Cut("*A: 1"), "unfinished");
}

TEST(Number, IsReadAsFarAsItGoes)
{
    // Texts as an integer and as a real, -1 when they are none.
    std::istringstream rows(
        "0 0 0  42x9 42 10752  -7 0 0  1.5 1 384  .5 -1 128  5. 5 1280  -.5 -1 0  1.01 1 259 "
        "1.00 1 256  0.00195 0 0  0.00196 0 1  0.999999 0 256  1.123456789 1 288  1e5 1 256 "
        "16777215.99 16777215 4294967293  16777215.999 16777215 -1  16777216 16777216 -1 "
        "4294967295 4294967295 -1  4294967296 -1 -1  99999999999999999999999999 -1 -1 "
        "-99999999999999999999999999 0 0  - -1 -1  . -1 -1  +1 -1 -1  --1 -1 -1  x -1 -1");
    uint32_t value = 0;
    int64_t integer, real;
    for (std::string text; rows >> text >> integer >> real;) {
        EXPECT_EQ(ReadInteger(text, value) ? int64_t{value} : -1, integer) << text;
        EXPECT_EQ(ReadReal(text, value) ? int64_t{value} : -1, real) << text;
    }
    for (const char* none : {"", " 1"})
        EXPECT_FALSE(ReadInteger(none, value) || ReadReal(none, value)) << none;
}

TEST(Crc, IsTheBitwiseOneForEveryLength)
{
    EXPECT_EQ(CrcOf("123456789"), 0x31C3);
    std::string text;
    unsigned expected = 0;
    for (unsigned i = 0; i < 300; ++i) {
        ASSERT_EQ(CrcOf(text), expected) << i;
        text += static_cast<char>(i * 89 + 7);
        expected ^= static_cast<uint8_t>(text.back()) << 8;
        for (int bit = 0; bit < 8; ++bit)
            expected = (expected << 1 ^ (expected & 0x8000 ? 0x1021 : 0)) & 0xFFFF;
    }
}

TEST(List, YieldsWordsOfAtMost39Characters)
{
    const std::string list = " \ta  b\nc " + std::string(45, 'w') + " ";
    WordReader words(list);
    EXPECT_EQ(words.Next(), "a");
    EXPECT_EQ(words.Next(), "b\nc");
    EXPECT_EQ(words.Next(), std::string(39, 'w'));
    EXPECT_EQ(words.Next(), "");
    EXPECT_EQ(words.Next(), "");
}

} // namespace psui::compiler
