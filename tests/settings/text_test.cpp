#include "psui/settings/text.h"

#include "psui/base/paths.h"
#include "psui/settings/language.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

TEST(Text, WidensAtMostWhatFits)
{
    World world;
    struct Case
    {
        const char* source;
        int count;
        const char16_t* expected;
    };
    for (const Case& c : {Case{"abc", 4, u"abc"},
                          {"abc", 3, u"ab"},
                          {"abc", 1, u""},
                          {"abc", 0, u"abc"},
                          {"", 0, u""},
                          {"\xE9t\xE9", 8, u"\u00E9t\u00E9"}}) {
        WCHAR wide[9];
        std::fill(std::begin(wide), std::end(wide), u'#');
        psui::WideFromNarrow(wide, c.source, c.count);
        EXPECT_EQ(std::u16string(wide), c.expected) << c.source << " " << c.count;
        if (c.count > 0) {
            EXPECT_EQ(wide[c.count - 1], 0);
            EXPECT_EQ(wide[c.count], u'#');
        }
    }
}

TEST(Text, NarrowsWholeCharactersOnly)
{
    World world;
    host::SetCodePage(932);
    struct Case
    {
        const char16_t* source;
        int count;
        const char* expected;
    };
    for (const Case& c : {Case{u"\u3042\u3044", 5, "\x82\xA0\x82\xA2"},
                          {u"\u3042\u3044", 4, "\x82\xA0"},
                          {u"a\u3042", 3, "a"},
                          {u"abc", 0, "abc"},
                          {u"abc", 1, ""}}) {
        char narrow[9];
        std::fill(std::begin(narrow), std::end(narrow), '#');
        psui::NarrowFromWide(narrow, c.source, c.count);
        EXPECT_STREQ(narrow, c.expected) << c.count;
        if (c.count > 0) {
            EXPECT_EQ(narrow[c.count], '#');
        }
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

TEST(Text, FindsTheFileName)
{
    EXPECT_EQ(std::u16string(psui::FileNamePart(u"C:\\a\\b.ppd")), u"b.ppd");
    EXPECT_EQ(std::u16string(psui::FileNamePart(u"b.ppd")), u"b.ppd");
    EXPECT_EQ(std::u16string(psui::FileNamePart(u"C:\\a\\")), u"");
}

TEST(LanguageCode, IsTheModulesOwnOrEnglish)
{
    struct Case
    {
        const char* language;
        const char16_t* code;
        bool japanese, cjk;
    };
    for (const Case& c :
         {Case{"eng", u"ENG", false, false}, {"jpn", u"JPN", true, true}, {"", u"ENG", false, false}}) {
        World world(c.language);
        WCHAR code[psui::kLanguageCodeUnits];
        psui::LanguageCode(code);
        EXPECT_EQ(std::u16string(code), c.code);
        EXPECT_EQ(psui::IsJapaneseLanguage(), c.japanese);
        EXPECT_EQ(psui::IsCjkLanguage(), c.cjk);
    }
}

} // namespace
