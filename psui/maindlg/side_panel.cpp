#include "psui/maindlg/side_panel.h"

#include <algorithm>
#include <iterator>

#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"
#include "psui/base/format.h"
#include "psui/base/label.h"
#include "psui/maindlg/control_centre.h"
#include "psui/maindlg/fit_text.h"
#include "psui/maindlg/media.h"
#include "psui/maindlg/mnemonics.h"
#include "psui/maindlg/qualities.h"
#include "psui/maindlg/rules.h"
#include "psui/maindlg/value_texts.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr int kLineUnits = 256;
constexpr int kLongestPiece = 64; // units with the terminator

/// A line being written.
struct Line
{
    TextCursor cursor;
    HMODULE strings;
    const DEVMODEW& pub;
    const PrivateDevMode& priv;
    const DriverDevMode& record;

    void Text(UINT id) { AppendLabel(cursor, strings, id, kLongestPiece); }
    void Literal(const WCHAR* text) { Append(cursor, text); }
    void Pair(UINT label, UINT value)
    {
        Text(label);
        Literal(TEXT(" : "));
        Text(value);
    }
    void Switch(UINT label, bool on)
    {
        Text(label);
        Literal(TEXT(" "));
        Text(SwitchText(on));
    }
};

void WriteMedia(Line& line)
{
    line.Text(MediaNameText(line.pub.dmMediaType));
}

void WriteQuality(Line& line)
{
    line.Pair(IDS_LABEL_QUALITY, QualityNameText(line.priv.bQualityLevel));
}

void WriteColor(Line& line)
{
    line.Text(ColorText(line.pub.dmColor));
}

void WriteCopies(Line& line)
{
    line.Text(IDS_LABEL_COPIES);
    line.Literal(TEXT(" "));
    line.Literal(DecimalText(line.pub.dmCopies).text);
}

void WriteLayout(Line& line)
{
    line.Pair(IDS_LABEL_LAYOUT, LayoutText(line.priv.dwPagesPerSheet));
}

void WriteColorMode(Line& line)
{
    constexpr UINT kModes[] = {IDS_VALUE_MODE_NONE, IDS_VALUE_MODE_VIVID, IDS_VALUE_MODE_NATURAL,
                               IDS_VALUE_MODE_CUSTOM};
    const uint8_t mode = line.priv.bDocType;
    const UINT value = mode < std::size(kModes) ? kModes[mode] : kModes[0];
    line.Pair(IDS_LABEL_COLOR_MODE, line.priv.dwColorModeOn != 0 ? value : SwitchText(false));
}

void WriteBorderless(Line& line)
{
    line.Switch(IDS_LABEL_BORDERLESS, PrintsBorderless(line.record));
}

void WriteDuplex(Line& line)
{
    line.Switch(IDS_LABEL_DUPLEX, (line.priv.wDuplexFlags & kDuplexOn) != 0);
    if ((line.priv.bBookletFlags & kBookletOn) == 0)
        return;
    line.Literal(TEXT(" : "));
    line.Text(IDS_LABEL_BOOKLET);
}

void WriteScaling(Line& line)
{
    line.Switch(IDS_LABEL_SCALING, line.priv.bFitToPaper != kFitOff);
}

void WriteMirror(Line& line)
{
    line.Switch(IDS_LABEL_MIRROR, (line.priv.dwDeviceOptions & kMirrorPrinting) != 0);
}

void WriteReverse(Line& line)
{
    line.Switch(IDS_LABEL_REVERSE, (line.priv.dwDeviceOptions & kReversePrinting) != 0);
}

void WriteWatermark(Line& line)
{
    line.Switch(IDS_LINE_WATERMARK, line.priv.dwWatermarkFlags != 0);
}

struct LineWriter
{
    int control;
    void (*write)(Line& line);
};
constexpr LineWriter kWriters[] = {
    {IDC_LINE_MEDIA, WriteMedia},           {IDC_LINE_QUALITY, WriteQuality},
    {IDC_LINE_COLOR, WriteColor},           {IDC_LINE_COPIES, WriteCopies},
    {IDC_LINE_LAYOUT, WriteLayout},         {IDC_LINE_COLOR_MODE, WriteColorMode},
    {IDC_LINE_BORDERLESS, WriteBorderless}, {IDC_LINE_DUPLEX, WriteDuplex},
    {IDC_LINE_SCALING, WriteScaling},       {IDC_LINE_MIRROR, WriteMirror},
    {IDC_LINE_REVERSE, WriteReverse},       {IDC_LINE_WATERMARK, WriteWatermark},
};

void WriteLine(const PrinterUiContext* context, const LineWriter& writer, WCHAR* text, int size)
{
    const DriverDevMode& work = context->dmWork;
    Line line = {{text, size}, context->hPageRes, work.dmPublic, work.dmPrivate, work};
    writer.write(line);
}

void ShowLine(HWND dialog, const PrinterUiContext* context, const LineWriter& writer)
{
    WCHAR text[kLineUnits] = {};
    WriteLine(context, writer, text, kLineUnits);
    FitTextToLine(dialog, writer.control, text);
    SetDlgItemTextW(dialog, writer.control, text);
}

const LineWriter* FindWriter(int line)
{
    const auto* found = std::find_if(std::begin(kWriters), std::end(kWriters),
                                     [=](const LineWriter& writer) { return writer.control == line; });
    return found == std::end(kWriters) ? nullptr : found;
}

bool Always(const DriverDevMode&)
{
    return true;
}

bool LayoutIsFree(const DriverDevMode& record)
{
    return record.dmPrivate.bBorderless != 1 && (record.dmPrivate.bBookletFlags & kBookletOn) == 0;
}

bool ColorModeApplies(const DriverDevMode& record)
{
    return record.dmPrivate.dwColorModeOn != 0 && record.dmPublic.dmColor != DMCOLOR_MONOCHROME;
}

bool IsBorderless(const DriverDevMode& record)
{
    return record.dmPrivate.bBorderless != 0 && AllowsBorderless(record.dmPublic.dmPaperSize);
}

bool IsDuplex(const DriverDevMode& record)
{
    return (record.dmPrivate.wDuplexFlags & kDuplexOn) != 0;
}

bool IsScaled(const DriverDevMode& record)
{
    return record.dmPrivate.bFitToPaper != kFitOff;
}

bool IsMirrored(const DriverDevMode& record)
{
    return (record.dmPrivate.dwDeviceOptions & kMirrorPrinting) != 0;
}

bool IsReversed(const DriverDevMode& record)
{
    return (record.dmPrivate.dwDeviceOptions & kReversePrinting) != 0;
}

bool HasWatermark(const DriverDevMode& record)
{
    return record.dmPrivate.dwWatermarkFlags != 0;
}

/// Controls that are enabled while the user may change settings and a fact of the record holds.
struct EnableRule
{
    int control;
    bool (*holds)(const DriverDevMode& record);
};
constexpr EnableRule kEnableRules[] = {
    {IDC_LINE_MEDIA, Always},
    {IDC_LINE_QUALITY, Always},
    {IDC_LINE_COLOR, Always},
    {IDC_LINE_PAPER, Always},
    {IDC_LINE_PAPER_SIZE, Always},
    {IDC_LINE_COPIES, Always},
    {IDC_LINE_LAYOUT, LayoutIsFree},
    {IDC_LINE_COLOR_MODE, ColorModeApplies},
    {IDC_LINE_BORDERLESS, IsBorderless},
    {IDC_LINE_DUPLEX, IsDuplex},
    {IDC_LINE_SCALING, IsScaled},
    {IDC_LINE_MIRROR, IsMirrored},
    {IDC_LINE_REVERSE, IsReversed},
    {IDC_LINE_WATERMARK, HasWatermark},
    {IDC_CONTROL_CENTRE, ControlCentreKnowsModel},
    {IDC_SUPPORT, Always},
    {IDC_TABS, Always},
    {IDOK, Always},
    {IDCANCEL, Always},
    {IDHELP, Always},
};

bool IsEnabled(const PrinterUiContext* context, const EnableRule& rule)
{
    return context->bPermission == 1 && rule.holds(context->dmWork);
}

bool IsWebLinkShown(const PrinterUiContext* context)
{
    const bool off = (context->bWebFlags & kWebLinkOff) != 0 && (context->bWebFlags & kVscOn) == 0;
    return context->dmWork.dmPrivate.bNoWebLink != 1 && !off;
}

/// Gives the banner the room of a link that is hidden.
void WidenBanner(HWND dialog)
{
    const HWND banner = GetDlgItem(dialog, IDC_BANNER);
    RECT client = {}, box = {};
    if (GetClientRect(dialog, &client) && GetWindowRect(banner, &box))
        SetWindowPos(banner, nullptr, 0, 0, client.right - client.left, box.bottom - box.top,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ShowWebLink(HWND dialog, const PrinterUiContext* context)
{
    const HWND link = GetDlgItem(dialog, IDC_WEB_LINK);
    const bool shown = IsWebLinkShown(context);
    EnableWindow(link, shown && context->bPermission == 1);
    ShowWindow(link, shown ? SW_SHOW : SW_HIDE);
    if (shown) {
        RestoreMnemonic(dialog, IDC_WEB_LINK);
        return;
    }
    DisableMnemonic(dialog, IDC_WEB_LINK);
    WidenBanner(dialog);
}

} // namespace

void SidePanelText(const PrinterUiContext* context, int line, WCHAR* text, int size)
{
    if (size > 0)
        text[0] = 0;
    if (const LineWriter* writer = FindWriter(line))
        WriteLine(context, *writer, text, size);
}

bool IsSidePanelEnabled(const PrinterUiContext* context, int control)
{
    for (const EnableRule& rule : kEnableRules)
        if (rule.control == control)
            return IsEnabled(context, rule);
    return true;
}

void RefreshSidePanelLine(HWND dialog, PrinterUiContext* context, int line)
{
    if (const LineWriter* writer = FindWriter(line))
        ShowLine(dialog, context, *writer);
    RefreshSidePanel(dialog, context);
}

void RefreshSidePanelTexts(HWND dialog, PrinterUiContext* context)
{
    for (const LineWriter& writer : kWriters)
        ShowLine(dialog, context, writer);
    RefreshSidePanel(dialog, context);
}

void RefreshSidePanel(HWND dialog, PrinterUiContext* context)
{
    ShowWebLink(dialog, context);
    for (const EnableRule& rule : kEnableRules)
        EnableWindow(GetDlgItem(dialog, rule.control), IsEnabled(context, rule));
}

} // namespace psui
