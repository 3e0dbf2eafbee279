#include "psui/settings/text.h"

#include <tuple>

#include "psui/settings/language.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

TEST(Text, WidensAtMostWhatFits)
{
    World world;
    const std::tuple<const char*, int, const char16_t*> cases[] = {
        {"abc", 4, u"abc"}, {"abc", 3, u"ab"}, {"abc", 1, u""},
        {"abc", 0, u"abc"}, {"", 0, u""},      {"\xE9t\xE9", 8, u"\u00E9t\u00E9"}};
    for (const auto& [source, count, expected] : cases) {
        std::u16string wide(9, u'#');
        psui::WideFromNarrow(wide.data(), source, count);
        EXPECT_EQ(std::u16string(wide.c_str()), expected) << source << " " << count;
        if (count > 0) {
            EXPECT_EQ(wide.substr(count - 1, 2), (std::u16string{0, u'#'})) << source << " " << count;
        }
    }
}

TEST(Text, NarrowsWholeCharactersOnly)
{
    World world;
    host::SetCodePage(932);
    const std::tuple<const char16_t*, int, const char*> cases[] = {{u"\u3042\u3044", 5, "\x82\xA0\x82\xA2"},
                                                                   {u"\u3042\u3044", 4, "\x82\xA0"},
                                                                   {u"a\u3042", 3, "a"},
                                                                   {u"abc", 0, "abc"},
                                                                   {u"abc", 1, ""}};
    for (const auto& [source, count, expected] : cases) {
        std::string narrow(9, '#');
        psui::NarrowFromWide(narrow.data(), source, count);
        EXPECT_STREQ(narrow.c_str(), expected) << count;
        EXPECT_TRUE(count == 0 || narrow[count] == '#') << count;
    }
    host::SetCodePage(1252);
}

TEST(Text, CopiesAndFillsWithZeros)
{
    WCHAR copy[33];
    std::fill(std::begin(copy), std::end(copy), u'#');
    psui::CopyWide(copy, std::u16string(40, u'x').c_str(), 32);
    EXPECT_EQ(std::u16string(copy), std::u16string(31, u'x'));
    EXPECT_EQ(copy[32], u'#');
    psui::CopyWide(copy, u"y", 32);
    EXPECT_EQ(std::count(copy, copy + 32, u'\0'), 31);
}

TEST(LanguageCode, IsTheModulesOwnOrEnglish)
{
    for (const std::string language : {"eng", "jpn", ""}) {
        World world(language);
        const bool japanese = language == "jpn";
        WCHAR code[psui::kLanguageCodeUnits];
        psui::LanguageCode(code);
        EXPECT_EQ(std::u16string(code), japanese ? u"JPN" : u"ENG");
        EXPECT_EQ(psui::IsJapaneseLanguage(), japanese);
        EXPECT_EQ(psui::IsCjkLanguage(), japanese);
    }
}

} // namespace
