// Texts of papers, media, labels and the lines beside the preview, without any window.
#include <tuple>

#include "psui/base/label.h"
#include "psui/maindlg/control_centre.h"
#include "psui/maindlg/fit_text.h"
#include "psui/maindlg/media.h"
#include "psui/maindlg/mnemonics.h"
#include "psui/maindlg/papers.h"
#include "tests/settings/support.h"

namespace {

using namespace psui;
using namespace test;

TEST(FittedText, IsCutLineByLineAndEndsInDotsWhenLongEnough)
{
    const std::tuple<int, const WCHAR*, const WCHAR*> cases[] = {
        {121, u"", u""},
        {121, u"twelve units", u"twelve units"},
        {121, u"thirteen unit", u"thirteen ..."},
        {121, u"A4\n210.0 x 297 mm", u"A4\n210.0 x 2..."},
        {121, u"Japanese postcard\r\n100 x 148 mm", u"Japanese ...\n100 x 148 mm"},
        {121, u"one\ntwo\nthree and more", u"one\ntwo\nthree..."},
        {121, u" \n", u" \n"},
        {0, u"abcdefghijkl", u""},
        {10, u"abcdefghijkl", u""},
        {11, u"abcdefghijkl", u"a"},
        {81, u"abcdefghijkl", u"abcdefgh"},
        {91, u"abcdefghijkl", u"abcdef..."},
        {100, u"abcdefghijkl", u"abcdef..."},
        {31, u"ab\U0001F600cd", u"ab"}, // no half of a pair is left
    };
    for (const auto& [limit, whole, fitted] : cases) {
        WCHAR text[64];
        lstrcpynW(text, whole, 64);
        // Every unit is ten wide, and a line has to be narrower than the limit.
        FitTextToWidth(
            text, limit, [](void*, const WCHAR*, int length) { return 10 * length; }, nullptr);
        EXPECT_EQ(std::u16string(text), fitted) << limit;
    }
}

TEST(Mnemonics, AreSwitchedOffAndOnAgain)
{
    const std::pair<const WCHAR*, const WCHAR*> cases[] = {{u"&Duplex", u"&&&~Duplex"},
                                                           {u"用紙(&P)", u"用紙(&&&~P)"},
                                                           {u"Plain", u"Plain"},
                                                           {u"", u""},
                                                           {u"A && B", u"A &&&~& B"}};
    for (const auto& [label, disabled] : cases) {
        WCHAR text[kMnemonicTextUnits];
        lstrcpynW(text, label, kMnemonicTextUnits);
        for (int repeated = 0; repeated < 2; ++repeated) {
            InsertMnemonicMark(text);
            EXPECT_EQ(std::u16string(text), disabled);
        }
        RemoveMnemonicMark(text);
        EXPECT_EQ(std::u16string(text), label);
        EXPECT_FALSE(RemoveMnemonicMark(text));
    }
    WCHAR full[kMnemonicTextUnits];
    std::fill(std::begin(full), std::end(full), u'x');
    full[0] = u'&';
    full[kMnemonicTextUnits - 3] = 0;
    EXPECT_FALSE(InsertMnemonicMark(full)) << "no room";
}

TEST(ControlCentre, KnowsTheModelsOfItsList)
{
    const World world;
    const std::tuple<const WCHAR*, const WCHAR*, bool> cases[] = {
        {u"Palette 940 Printer", u"Palette 940", true},
        {u"Palette 940 Printer USB", u"Palette 940", true},
        {u"Palette 940 USB Printer", u"Palette 940", true},
        {u"Palette 940", u"Palette 940", true},
        {u"Palette 940U", u"Palette 940U", false},
        {u" Printer", u"", false},
        {u"A name that fills all of its field", u"A name that fills all of its fi", false},
    };
    SetRegistryText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Wow6432Node\\Velmora\\VmHubWnd\\Driver List",
                    u"Palette 940", u"1");
    for (const auto& [device, model, known] : cases) {
        DriverDevMode record = {};
        std::copy_n(device, std::min<size_t>(lstrlenW(device), 32), record.dmPublic.dmDeviceName);
        WCHAR name[32];
        ControlCentreModelName(record.dmPublic, name);
        EXPECT_EQ(std::u16string(name), model);
        EXPECT_EQ(ControlCentreKnowsModel(record), known);
    }
}

TEST(PaperTexts, AreThoseOfThePaperAndTheCountry)
{
    const World world;
    // In the list and beside the preview; then size, full and short text in Letter and in A4 countries.
    const std::tuple<const char*, int, std::vector<UINT>> cases[] = {
        {"A4", 9, {9130, 9130, 9181, 9244, 9001, 9202, 9223, 9022}},
        {"Letter_BL", 275, {9152, 9131, 9182, 9245, 9002, 9203, 9224, 9023}},
        {"HAGAKI", 43, {9141, 9141, 9192, 9255, 9012, 9213, 9234, 9033}},
        {"JE4", 91, {9147, 9147, 9198, 9261, 9018, 9219, 9240, 9039}},
        {"User", 256, {9162, 1215, 1215, 1215, 1215, 1215, 1215, 1215}},
        {"A3", 8, {9169, 9148, 9199, 9262, 9019, 9220, 9241, 9040}},
        {"B4JIS_BL_SG", 291, {9179, 9149, 9200, 9263, 9020, 9221, 9242, 9041}},
        {"Ledger_SG", 289, {9174, 9150, 9201, 9264, 9021, 9222, 9243, 9042}},
        {"", 0, std::vector<UINT>(8)},
        {"a4", 2, std::vector<UINT>(8)},
        {"A4 ", 294, std::vector<UINT>(8)},
    };
    for (const auto& [name, paper, expected] : cases) {
        const PaperWord* word = FindPaperWord(std::string_view(name));
        EXPECT_EQ(word ? word->paper : 0, expected[0] ? paper : 0) << name;
        std::vector<UINT> texts = {PaperListText(paper), PaperDisplayText(paper, PaperTextKind::Name)};
        for (const char16_t* country : {u"1", u"49"}) {
            SetCountry(country);
            for (const PaperTextKind kind : {PaperTextKind::Size, PaperTextKind::Full})
                texts.push_back(PaperDisplayText(paper, kind));
            texts.push_back(PaperShortName(paper));
        }
        EXPECT_EQ(texts, expected) << name;
    }
}

TEST(MediaTexts, MatchOptionNamesExactly)
{
    for (const auto& [name, text] : {std::pair<const char*, UINT>{"Plain_Paper", 1240},
                                     {"Glossy_Paper", 1242},
                                     {"Transparency(Mirror)", 1245},
                                     {"Envelope", 1284},
                                     {"envelope", 0},
                                     {"Glossy", 0},
                                     {"", 0}})
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
