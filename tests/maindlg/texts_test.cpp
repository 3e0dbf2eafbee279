// Texts of messages and of the lines beside the preview, without any window.
#include "lang/ids/main_dialog.h"
#include "psui/maindlg/control_centre.h"
#include "psui/maindlg/fit_text.h"
#include "psui/maindlg/message_tails.h"
#include "psui/maindlg/mnemonics.h"
#include "psui/maindlg/side_panel.h"
#include "tests/maindlg/dialog_context.h"

namespace {

using test::DialogContext;
using test::FieldValue;
using test::LanguageText;
using test::World;

/// "{8139}" in `sketch` is that string.
std::u16string Expand(std::u16string sketch)
{
    for (size_t at = 0; (at = sketch.find(u'{', at)) != sketch.npos;) {
        UINT id = 0;
        size_t end = at + 1;
        for (; sketch[end] != u'}'; ++end)
            id = id * 10 + (sketch[end] - u'0');
        const std::u16string text = LanguageText(id);
        EXPECT_FALSE(text.empty()) << id;
        sketch.replace(at, end + 1 - at, text);
        at += text.size();
    }
    return sketch;
}

TEST(FittedText, IsCutLineByLine)
{
    const struct
    {
        const WCHAR *text, *fitted;
    } cases[] = {
        {u"", u""},
        {u"twelve units", u"twelve units"},
        {u"thirteen unit", u"thirteen ..."},
        {u"A4\n210.0 x 297 mm", u"A4\n210.0 x 2..."},
        {u"Japanese postcard\r\n100 x 148 mm", u"Japanese ...\n100 x 148 mm"},
        {u"one\ntwo\nthree and more", u"one\ntwo\nthree..."},
        {u" \n", u" \n"},
    };
    for (const auto& c : cases) {
        WCHAR text[64];
        lstrcpynW(text, c.text, 64);
        // Every unit is ten pixels wide, and a line has to be narrower than the limit.
        psui::FitTextToWidth(
            text, 121, [](void*, const WCHAR*, int length) { return 10 * length; }, nullptr);
        EXPECT_EQ(std::u16string(text), c.fitted);
    }
}

TEST(FittedText, EndsInDotsOnlyWhenLongEnough)
{
    const struct
    {
        int limit;
        const WCHAR* fitted;
    } cases[] = {{0, u""},
                 {10, u""},
                 {11, u"a"},
                 {81, u"abcdefgh"},
                 {91, u"abcdef..."},
                 {100, u"abcdef..."},
                 {121, u"abcdefghijkl"}};
    for (const auto& c : cases) {
        WCHAR text[] = u"abcdefghijkl";
        psui::FitTextToWidth(
            text, c.limit, [](void*, const WCHAR*, int length) { return 10 * length; }, nullptr);
        EXPECT_EQ(std::u16string(text), c.fitted) << c.limit;
    }
}

TEST(FittedText, KeepsSurrogatesTogether)
{
    WCHAR text[] = u"ab\xD83D\xDE00"
                   u"cd";
    psui::FitTextToWidth(
        text, 31, [](void*, const WCHAR*, int length) { return 10 * length; }, nullptr);
    EXPECT_EQ(std::u16string(text), u"ab");
}

TEST(Mnemonics, AreSwitchedOffAndOnAgain)
{
    const struct
    {
        const WCHAR *text, *disabled;
    } cases[] = {{u"&Duplex", u"&&&~Duplex"},
                 {u"用紙(&P)", u"用紙(&&&~P)"},
                 {u"Plain", u"Plain"},
                 {u"", u""},
                 {u"A && B", u"A &&&~& B"}};
    for (const auto& c : cases) {
        WCHAR text[psui::kMnemonicTextUnits];
        lstrcpynW(text, c.text, psui::kMnemonicTextUnits);
        for (int repeated = 0; repeated < 2; ++repeated) {
            psui::InsertMnemonicMark(text);
            EXPECT_EQ(std::u16string(text), c.disabled);
        }
        psui::RemoveMnemonicMark(text);
        EXPECT_EQ(std::u16string(text), c.text);
        EXPECT_FALSE(psui::RemoveMnemonicMark(text));
    }
    WCHAR full[psui::kMnemonicTextUnits];
    std::fill(std::begin(full), std::end(full), u'x');
    full[0] = u'&';
    full[psui::kMnemonicTextUnits - 3] = 0;
    EXPECT_FALSE(psui::InsertMnemonicMark(full)) << "no room";
}

TEST(MessageTails, ListWhatIsAccepted)
{
    const std::u16string large = u"{9169}/{9170}/{9171}/{9172}/{9173}/{9174}/";
    for (const std::string language : {"eng", "jpn"})
        for (const bool a3 : {false, true}) {
            const World world(language);
            const DialogContext context;
            test::Set(context.record(), "wModelType", a3);
            const bool japanese = language == "jpn";
            psui::MessageTail tail;
            psui::BuildTray2Tail(context, tail);
            EXPECT_EQ(std::u16string(tail), Expand(u"{8131}:\n  " + (a3 ? large : u"") +
                                                   u"{9130}/{9131}/{9132}/{9133}/{9134}\n\n"
                                                   u"{8129}:\n  {1240}" +
                                                   (japanese ? u"/{1251}" : u"")));
            psui::BuildBorderlessTail(context, tail);
            EXPECT_EQ(std::u16string(tail),
                      Expand(u"\n\n{8131}:\n  " + (a3 ? large : u"") +
                             u"{9130}/{9131}/{9136}/{9137}/{9138}/{9139}/{9140}/{9141}\n\n"
                             u"{8129}:\n  {1240}/{1241}/{1250}/{1248}/{1247}" +
                             (japanese ? u"/\n  {1251}/{1252}" : u"") +
                             u"\n\n{8130}:\n  {8084}/{8085}/{8086}/{8087}"));
        }
}

struct LineCase
{
    int line;
    std::vector<FieldValue> fields;
    const WCHAR* text;
    bool enabled;
};

const LineCase kLines[] = {
    {IDC_LINE_MEDIA, {{"dmMediaType", 272}}, u"{1251}", true},
    {IDC_LINE_QUALITY, {{"bQualityLevel", 5}}, u"{8130} : {8088}", true},
    {IDC_LINE_COLOR, {{"dmColor", 2}}, u"{8144}", true},
    {IDC_LINE_COLOR, {{"dmColor", 1}}, u"{8145}", true},
    {IDC_LINE_COPIES, {{"dmCopies", 12}}, u"{8139} 12", true},
    {IDC_LINE_LAYOUT, {{"dwPagesPerSheet", -9}}, u"{8132} : {8097}", true},
    {IDC_LINE_LAYOUT, {{"dwPagesPerSheet", 1}, {"bBorderless", 1}}, u"{8132} : {8093}", false},
    {IDC_LINE_LAYOUT, {{"dwPagesPerSheet", 2}, {"bBookletFlags", 1}}, u"{8132} : {8094}", false},
    {IDC_LINE_COLOR_MODE, {{"bDocType", 1}, {"dmColor", 2}}, u"{8146} : {8149}", true},
    {IDC_LINE_COLOR_MODE, {{"bDocType", 2}, {"dmColor", 1}}, u"{8146} : {8148}", false},
    {IDC_LINE_COLOR_MODE, {{"bDocType", 3}, {"dmColor", 2}}, u"{8146} : {8150}", true},
    {IDC_LINE_COLOR_MODE, {{"bDocType", 9}, {"dmColor", 2}}, u"{8146} : {8147}", true},
    {IDC_LINE_COLOR_MODE, {{"bDocType", 1}, {"dwColorModeOn", 0}}, u"{8146} : {8155}", false},
    {IDC_LINE_BORDERLESS, {{"bBorderless", 1}, {"dmPaperSize", 274}}, u"{8141} {8156}", true},
    {IDC_LINE_BORDERLESS, {{"bBorderless", 1}, {"dmPaperSize", 11}}, u"{8141} {8155}", false},
    {IDC_LINE_DUPLEX, {{"wDuplexFlags", 0x100}}, u"{8169} {8156}", true},
    {IDC_LINE_DUPLEX, {{"wDuplexFlags", 0x100}, {"bBookletFlags", 1}}, u"{8169} {8156} : {8185}", true},
    {IDC_LINE_DUPLEX, {{"wDuplexFlags", 5}}, u"{8169} {8155}", false},
    {IDC_LINE_SCALING, {{"bFitToPaper", 2}}, u"{8133} {8156}", true},
    {IDC_LINE_SCALING, {}, u"{8133} {8155}", false},
    {IDC_LINE_MIRROR, {{"dwDeviceOptions", 1}}, u"{8152} {8156}", true},
    {IDC_LINE_MIRROR, {{"dwDeviceOptions", 2}}, u"{8152} {8155}", false},
    {IDC_LINE_REVERSE, {{"dwDeviceOptions", 2}}, u"{8153} {8156}", true},
    {IDC_LINE_WATERMARK, {{"dwWatermarkFlags", 129}}, u"{8010} {8156}", true},
    {IDC_LINE_WATERMARK, {}, u"{8010} {8155}", false},
};

TEST(SidePanelLines, SayWhatIsSetAndWhetherItCounts)
{
    for (const std::string language : {"eng", "jpn"}) {
        const World world(language);
        for (const LineCase& c : kLines) {
            const DialogContext context;
            test::SetAll(context.record(), {{"bBorderless", 0}, {"dwColorModeOn", 1}});
            test::SetAll(context.record(), c.fields);
            WCHAR text[256];
            psui::SidePanelText(context, c.line, text, 256);
            EXPECT_EQ(std::u16string(text), Expand(c.text));
            EXPECT_EQ(psui::IsSidePanelEnabled(context, c.line), c.enabled) << c.line;
            context->bPermission = 0;
            EXPECT_FALSE(psui::IsSidePanelEnabled(context, c.line)) << c.line;
        }
    }
}

TEST(ControlCentre, KnowsTheModelsOfItsList)
{
    const World world;
    const struct
    {
        const WCHAR *device, *model;
        bool known;
    } cases[] = {
        {u"Palette 940 Printer", u"Palette 940", true},
        {u"Palette 940 Printer USB", u"Palette 940", true},
        {u"Palette 940 USB Printer", u"Palette 940", true},
        {u"Palette 940", u"Palette 940", true},
        {u"Palette 940U", u"Palette 940U", false},
        {u" Printer", u"", false},
        {u"A name that fills all of its field", u"A name that fills all of its fi", false},
    };
    test::SetRegistryText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Wow6432Node\\Velmora\\VmHubWnd\\Driver List",
                          u"Palette 940", u"1");
    for (const auto& c : cases) {
        psui::DriverDevMode record = {};
        std::copy_n(c.device, std::min<size_t>(lstrlenW(c.device), 32), record.dmPublic.dmDeviceName);
        WCHAR name[32];
        psui::ControlCentreModelName(record.dmPublic, name);
        EXPECT_EQ(std::u16string(name), c.model);
        EXPECT_EQ(psui::ControlCentreKnowsModel(record), c.known);
    }
}

} // namespace
