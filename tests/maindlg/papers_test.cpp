#include "psui/maindlg/papers.h"

#include <gtest/gtest.h>

#include "psui/base/label.h"
#include "psui/maindlg/media.h"
#include "tests/settings/support.h"

namespace {

using namespace psui;
using namespace test;

TEST(PaperTexts, AreThoseOfThePaperAndTheCountry)
{
    const World world;
    struct Case
    {
        const char* name;
        int paper;
        UINT list, display, sizeLetter, sizeA4, fullLetter, fullA4, shortLetter, shortA4;
    };
    const Case cases[] = {
        {"A4", 9, 9130, 9130, 9181, 9202, 9244, 9223, 9001, 9022},
        {"Letter_BL", 275, 9152, 9131, 9182, 9203, 9245, 9224, 9002, 9023},
        {"HAGAKI", 43, 9141, 9141, 9192, 9213, 9255, 9234, 9012, 9033},
        {"JE4", 91, 9147, 9147, 9198, 9219, 9261, 9240, 9018, 9039},
        {"User", 256, 9162, 1215, 1215, 1215, 1215, 1215, 1215, 1215},
        {"A3", 8, 9169, 9148, 9199, 9220, 9262, 9241, 9019, 9040},
        {"B4JIS_BL_SG", 291, 9179, 9149, 9200, 9221, 9263, 9242, 9020, 9041},
        {"Ledger_SG", 289, 9174, 9150, 9201, 9222, 9264, 9243, 9021, 9042},
        {"", 0, 0, 0, 0, 0, 0, 0, 0, 0},
        {"a4", 2, 0, 0, 0, 0, 0, 0, 0, 0},
        {"A4 ", 294, 0, 0, 0, 0, 0, 0, 0, 0},
    };
    for (const char* country : {"1", "49"}) {
        SetCountry(std::u16string(country, country + std::strlen(country)));
        const bool a4 = std::string_view(country) == "49";
        for (const Case& c : cases) {
            SCOPED_TRACE(c.name);
            const PaperWord* word = FindPaperWord(std::string_view(c.name));
            EXPECT_EQ(word ? word->paper : 0, c.list ? c.paper : 0);
            EXPECT_EQ(PaperListText(c.paper), c.list);
            EXPECT_EQ(PaperDisplayText(c.paper, PaperTextKind::Name), c.display);
            EXPECT_EQ(PaperDisplayText(c.paper, PaperTextKind::Size), a4 ? c.sizeA4 : c.sizeLetter);
            EXPECT_EQ(PaperDisplayText(c.paper, PaperTextKind::Full), a4 ? c.fullA4 : c.fullLetter);
            EXPECT_EQ(PaperShortName(c.paper), a4 ? c.shortA4 : c.shortLetter);
        }
    }
}

TEST(MediaTexts, MatchOptionNamesExactly)
{
    const std::pair<const char*, UINT> cases[] = {{"Plain_Paper", 1240},
                                                  {"Glossy_Paper", 1242},
                                                  {"Transparency(Mirror)", 1245},
                                                  {"Envelope", 1284},
                                                  {"envelope", 0},
                                                  {"Glossy", 0},
                                                  {"", 0}};
    for (const auto& [name, text] : cases)
        EXPECT_EQ(MediaOptionText(name), text) << name;
}

TEST(Labels, LoseMnemonicsAndLineBreaks)
{
    const std::pair<const WCHAR*, const WCHAR*> cases[] = {
        {u"&Paper size", u"Paper size"},
        {u"Copy && paste", u"Copy & paste"},
        {u"用紙(&P):", u"用紙:"},
        {u"a\nb\r\nc\rd", u"a b c\rd"},
        {u"(&&)", u"(&)"},
        {u"(&", u"("},
        {u"&", u""},
        {u"&&&x", u"&x"},
        {u"(&P", u"(P"},
        {u"(&Px)", u"(Px)"},
        {u"", u""},
        {u"(&P)(&Q)", u""},
    };
    for (const auto& [label, plain] : cases) {
        WCHAR text[64];
        lstrcpynW(text, label, 64);
        CleanLabel(text);
        EXPECT_EQ(std::u16string(text), plain);
    }
}

TEST(TextCursor, CutsWhatDoesNotFit)
{
    for (int size = 0; size < 12; ++size) {
        WCHAR text[13];
        std::fill(std::begin(text), std::end(text), u'#');
        TextCursor cursor = {text, size};
        Append(cursor, u"abc");
        AppendFormatted(cursor, u"%d%%, %u%x", -12);
        const std::u16string whole = u"abc-12%, -12%x";
        EXPECT_EQ(std::u16string(text, size ? size - 1 : 0), whole.substr(0, size ? size - 1 : 0));
        EXPECT_EQ(text[size], u'#');
    }
}

} // namespace
