// Texts of the lines beside the preview, without any window.
#include "lang/ids/main_dialog.h"
#include "psui/maindlg/control_centre.h"
#include "psui/maindlg/fit_text.h"
#include "psui/maindlg/mnemonics.h"
#include "psui/maindlg/side_panel.h"
#include "tests/maindlg/dialog_context.h"
#include <tuple>

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

struct LineCase
{
    int line;
    const char* fields;
    const char* text;
    bool enabled;
};

const LineCase kLines[] = {
    {IDC_LINE_MEDIA, "dmMediaType=272", "{1251}", true},
    {IDC_LINE_QUALITY, "bQualityLevel=5", "{8130} : {8088}", true},
    {IDC_LINE_COLOR, "dmColor=2", "{8144}", true},
    {IDC_LINE_COLOR, "dmColor=1", "{8145}", true},
    {IDC_LINE_COPIES, "dmCopies=12", "{8139} 12", true},
    {IDC_LINE_LAYOUT, "dwPagesPerSheet=-9", "{8132} : {8097}", true},
    {IDC_LINE_LAYOUT, "dwPagesPerSheet=1 bBorderless=1", "{8132} : {8093}", false},
    {IDC_LINE_LAYOUT, "dwPagesPerSheet=2 bBookletFlags=1", "{8132} : {8094}", false},
    {IDC_LINE_COLOR_MODE, "bDocType=1 dmColor=2", "{8146} : {8149}", true},
    {IDC_LINE_COLOR_MODE, "bDocType=2 dmColor=1", "{8146} : {8148}", false},
    {IDC_LINE_COLOR_MODE, "bDocType=3 dmColor=2", "{8146} : {8150}", true},
    {IDC_LINE_COLOR_MODE, "bDocType=9 dmColor=2", "{8146} : {8147}", true},
    {IDC_LINE_COLOR_MODE, "bDocType=1 dwColorModeOn=0", "{8146} : {8155}", false},
    {IDC_LINE_BORDERLESS, "bBorderless=1 dmPaperSize=274", "{8141} {8156}", true},
    {IDC_LINE_BORDERLESS, "bBorderless=1 dmPaperSize=11", "{8141} {8155}", false},
    {IDC_LINE_DUPLEX, "wDuplexFlags=0x100", "{8169} {8156}", true},
    {IDC_LINE_DUPLEX, "wDuplexFlags=0x100 bBookletFlags=1", "{8169} {8156} : {8185}", true},
    {IDC_LINE_DUPLEX, "wDuplexFlags=5", "{8169} {8155}", false},
    {IDC_LINE_SCALING, "bFitToPaper=2", "{8133} {8156}", true},
    {IDC_LINE_SCALING, "", "{8133} {8155}", false},
    {IDC_LINE_MIRROR, "dwDeviceOptions=1", "{8152} {8156}", true},
    {IDC_LINE_MIRROR, "dwDeviceOptions=2", "{8152} {8155}", false},
    {IDC_LINE_REVERSE, "dwDeviceOptions=2", "{8153} {8156}", true},
    {IDC_LINE_WATERMARK, "dwWatermarkFlags=129", "{8010} {8156}", true},
    {IDC_LINE_WATERMARK, "", "{8010} {8155}", false},
};

TEST(SidePanelLines, SayWhatIsSetAndWhetherItCounts)
{
    for (const std::string language : {"eng", "jpn"}) {
        const World world(language);
        for (const LineCase& c : kLines) {
            const DialogContext context;
            SetAll(context.record(), "bBorderless=0 dwColorModeOn=1");
            SetAll(context.record(), c.fields);
            WCHAR text[256];
            SidePanelText(context, c.line, text, 256);
            EXPECT_EQ(std::u16string(text), Expand(c.text)) << c.fields;
            EXPECT_EQ(IsSidePanelEnabled(context, c.line), c.enabled) << c.line;
            context->bPermission = 0;
            EXPECT_FALSE(IsSidePanelEnabled(context, c.line)) << c.line;
        }
    }
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

} // namespace
