#include "psui/maindlg/settings_summary.h"

#include <iterator>

#include "lang/ids/strings.h"
#include "lang/ids/summary.h"
#include "psui/base/format.h"
#include "psui/base/memory.h"
#include "psui/entry/main_dialog.h"
#include "psui/maindlg/media.h"
#include "psui/maindlg/papers.h"
#include "psui/maindlg/qualities.h"
#include "psui/maindlg/rules.h"
#include "psui/maindlg/stores.h"
#include "psui/maindlg/summary_items.h"
#include "psui/maindlg/value_texts.h"
#include "psui/settings/environment.h"
#include "psui/settings/language.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

using enum SummaryEnd;

/// A summary being built.
struct Summary
{
    PrinterUiContext* context;
    TextCursor& cursor;
    const DEVMODEW& pub;
    const PrivateDevMode& priv;
    bool metric; ///< the user's country uses A4

    const DriverDevMode& Record() const { return context->dmWork; }
    bool InColor() const { return pub.dmColor == DMCOLOR_COLOR; }
    bool CanDuplex() const { return (pub.dmFields & DM_DUPLEX) != 0; }
    bool Booklet() const { return (priv.bBookletFlags & kBookletOn) != 0; }

    void Text(UINT id, SummaryEnd end) { AppendSummaryItem(cursor, SummaryKind::Plain, id, 0, end); }
    void Section(UINT id) { AppendSummaryItem(cursor, SummaryKind::Section, id, 0, Line); }
    void Group(UINT id) { AppendSummaryItem(cursor, SummaryKind::GroupHeading, id, 0, Indent); }
    void EmptyLine() { Text(0, Line); }

    void Pair(UINT label, UINT value, SummaryEnd end = Line)
    {
        Text(label, Tab);
        Text(value, end);
    }
    void Switch(UINT label, bool on, SummaryEnd end = Line) { Pair(label, SwitchText(on), end); }
    void Number(UINT label, UINT format, int number, SummaryEnd end = Line)
    {
        Text(label, Tab);
        AppendSummaryItem(cursor, SummaryKind::Number, format, number, end);
    }
    /// A value that is no string of the language module.
    void Name(UINT label, const WCHAR* name)
    {
        Text(label, Tab);
        Append(cursor, name);
        AppendSummaryEnd(cursor, Line);
    }
};

void AddMedia(Summary& out)
{
    const DWORD media = out.pub.dmMediaType;
    if (IsTwoSidedMedia(media))
        out.Switch(IDS_LABEL_SLOW_DRYING, out.priv.dwSdPaper != 0);
    out.Pair(IDS_LABEL_MEDIA, MediaNameText(media));
    out.Pair(IDS_LABEL_QUALITY, QualityNameText(out.priv.bQualityLevel));
}

void AddPaper(Summary& out)
{
    if (AllowsBorderless(out.pub.dmPaperSize) && MediaAndQualityAllowBorderless(out.Record()) &&
        !out.Booklet())
        out.Switch(IDS_LABEL_BORDERLESS, PrintsBorderless(out.Record()));
    out.Pair(IDS_LABEL_PAPER, PaperShortName(out.priv.wDocumentPaper, out.metric));
}

/// The colour mode that is offered for documents in colour: vivid or natural.
UINT ColorModeText(uint8_t docType)
{
    constexpr UINT kModes[] = {0, IDS_VALUE_MODE_VIVID, IDS_VALUE_MODE_NATURAL};
    return docType < std::size(kModes) ? kModes[docType] : 0;
}

void AddPrinting(Summary& out)
{
    if (out.pub.dmColor != DMCOLOR_MONOCHROME && out.priv.dwColorModeOn != 0)
        out.Pair(IDS_LABEL_COLOR_MODE, ColorModeText(out.priv.bDocType));
    out.Pair(IDS_LABEL_ORIENTATION, OrientationText(out.pub.dmOrientation));
    out.Number(IDS_LABEL_COPIES, IDS_VALUE_COPIES, out.pub.dmCopies);
    if (out.pub.dmCopies > 1)
        out.Switch(IDS_LABEL_COLLATE, out.priv.dwCollate != 0);
    out.Switch(IDS_LABEL_REVERSE_ORDER, out.priv.dwReverseOrder != 0);
}

void AddLayout(Summary& out)
{
    if (IsBorderlessSize(out.pub.dmPaperSize) || out.Booklet())
        return;
    const int32_t pages = out.priv.dwPagesPerSheet;
    const bool scaled = out.priv.bFitToPaper == kFitToOutputPaper || out.priv.bFitToPaper == kFitByPercentage;
    if (scaled) {
        out.Number(IDS_LABEL_LAYOUT, IDS_LAYOUT_NORMAL, 0);
    } else if (!HasSeveralPages(pages)) {
        out.Pair(IDS_LABEL_LAYOUT, LayoutText(pages));
    } else {
        out.Pair(IDS_LABEL_LAYOUT, LayoutText(pages), Indent);
        out.Pair(IDS_LABEL_PAGE_ORDER, PageOrderText(out.Record()), Indent);
        out.Pair(IDS_LABEL_BORDER_LINE, BorderLineText(out.priv.bBorderLine));
    }
}

/// Hundredths of an inch, rounded to the nearest, with at least one decimal.
void AppendInches(TextCursor& cursor, int tenthsOfMillimetre)
{
    const int hundredths = (tenthsOfMillimetre * 100 + 127) / 254;
    Append(cursor, DecimalText(hundredths / 100).text);
    Append(cursor, TEXT("."));
    Append(cursor, DecimalText(hundredths / 10 % 10).text);
    if (hundredths % 10 != 0)
        Append(cursor, DecimalText(hundredths % 10).text);
}

void AppendMillimetres(TextCursor& cursor, int tenths)
{
    Append(cursor, DecimalText(tenths / 10).text);
    Append(cursor, TEXT("."));
    Append(cursor, DecimalText(tenths % 10).text);
}

void AppendOffset(TextCursor& cursor, int tenthsOfMillimetre, bool inches)
{
    if (tenthsOfMillimetre < 0)
        Append(cursor, TEXT("-"));
    const int magnitude = tenthsOfMillimetre < 0 ? -tenthsOfMillimetre : tenthsOfMillimetre;
    if (inches)
        AppendInches(cursor, magnitude);
    else
        AppendMillimetres(cursor, magnitude);
}

void AddBindingOffset(Summary& out)
{
    if ((out.priv.bBindingFlags & kBindingOffsetOn) == 0) {
        out.Switch(IDS_LABEL_BINDING_OFFSET, false);
        return;
    }
    const bool inches = (out.priv.bBindingFlags & kBindingInInches) != 0;
    out.Text(IDS_LABEL_BINDING_OFFSET, Tab);
    AppendOffset(out.cursor, static_cast<int16_t>(out.priv.wBindingOffset), inches);
    Append(out.cursor, TEXT(" "));
    out.Text(inches ? IDS_UNIT_INCH : IDS_UNIT_MM, Line);
}

void AddDuplex(Summary& out)
{
    if (!out.CanDuplex() || !IsTwoSidedMedia(out.pub.dmMediaType) || ExcludesDuplex(out.pub.dmPaperSize))
        return;
    if ((out.priv.wDuplexFlags & kDuplexOn) == 0) {
        out.Switch(IDS_LABEL_DUPLEX, false);
        return;
    }
    out.Switch(IDS_LABEL_DUPLEX, true, Indent);
    out.Group(IDS_HEADING_DUPLEX_SETTINGS);
    if (out.priv.bBorderless != 1 && out.priv.bFitToPaper == kFitOff)
        out.Switch(IDS_LABEL_BOOKLET, out.Booklet(), Indent);
    out.Pair(IDS_LABEL_DUPLEX_TYPE, DuplexTypeText(out.priv.wDuplexFlags), Indent);
    AddBindingOffset(out);
}

void AddBasicSection(Summary& out)
{
    out.Section(IDS_HEADING_BASIC);
    AddMedia(out);
    AddPaper(out);
    AddPrinting(out);
    AddLayout(out);
    AddDuplex(out);
    if (out.priv.dwTrayChoice == 1)
        out.Pair(IDS_LABEL_SOURCE, SourceText(out.pub.dmDefaultSource));
    out.EmptyLine();
}

/// The stored adjustments; those of hues mean nothing in monochrome.
void AddAdjustments(Summary& out)
{
    const int16_t* first = out.priv.ashColorAdjust0;
    const int16_t* balance = out.priv.ashColorAdjust4;
    const bool color = out.InColor();
    if (color) {
        out.Number(IDS_ADJUST_SATURATION, IDS_VALUE_ADJUSTMENT, first[0], Indent2);
        out.Number(IDS_ADJUST_WHITE_BALANCE, IDS_VALUE_ADJUSTMENT, first[1], Indent2);
    }
    out.Number(IDS_ADJUST_BRIGHTNESS, IDS_VALUE_ADJUSTMENT, first[2], Indent2);
    out.Number(IDS_ADJUST_CONTRAST, IDS_VALUE_ADJUSTMENT, first[3], color ? Indent2 : Indent);
    if (color) {
        out.Number(IDS_ADJUST_RED, IDS_VALUE_ADJUSTMENT, balance[0], Indent2);
        out.Number(IDS_ADJUST_GREEN, IDS_VALUE_ADJUSTMENT, balance[1], Indent2);
        out.Number(IDS_ADJUST_BLUE, IDS_VALUE_ADJUSTMENT, out.priv.ashColorAdjust6, Indent);
    }
}

void AddColor(Summary& out)
{
    out.Pair(IDS_LABEL_COLOR, ColorText(out.pub.dmColor), Indent);
    out.Group(IDS_HEADING_COLOR_SETTINGS);
    const bool adjusted = out.priv.dwColorAdjust != 0;
    out.Switch(IDS_LABEL_ENHANCEMENT, adjusted, adjusted ? Indent2 : Indent);
    if (adjusted)
        AddAdjustments(out);
    if (BidiApplicable(out.Record()))
        out.Switch(IDS_LABEL_BIDIRECTIONAL, BidiChosen(out.Record()), Indent);
    out.Switch(IDS_LABEL_IMPROVE_PATTERN, out.priv.wTonerSave != 0);
}

void AddScaling(Summary& out)
{
    if (out.priv.bFitToPaper == kFitOff) {
        out.Switch(IDS_LABEL_SCALING, false);
        return;
    }
    out.Switch(IDS_LABEL_SCALING, true, Indent);
    if (out.priv.bFitToPaper == kFitByPercentage)
        out.Number(IDS_LABEL_FREE_SCALE, IDS_VALUE_SCALE, out.pub.dmScale);
    else if (out.priv.bFitToPaper == kFitToOutputPaper)
        out.Pair(IDS_LABEL_FIT_PAPER, PaperShortName(out.priv.wOutputPaper, out.metric));
}

void AddWatermark(Summary& out)
{
    if (out.priv.dwWatermarkFlags == 0) {
        out.Switch(IDS_LABEL_WATERMARK, false);
        return;
    }
    WCHAR name[kWatermarkNameUnits];
    CurrentWatermarkName(out.context, name);
    out.Name(IDS_LABEL_WATERMARK, name);
}

void AddAdvancedSection(Summary& out)
{
    out.Section(IDS_HEADING_ADVANCED);
    AddColor(out);
    AddScaling(out);
    if (!IsTransparency(out.pub.dmMediaType)) {
        out.Switch(IDS_LABEL_MIRROR, (out.priv.dwDeviceOptions & kMirrorPrinting) != 0);
        out.Switch(IDS_LABEL_REVERSE, (out.priv.dwDeviceOptions & kReversePrinting) != 0);
    }
    AddWatermark(out);
    out.EmptyLine();
}

/// The advanced colour settings of the device options, and the print order, which duplex printers lack.
void AddColorOptions(Summary& out)
{
    const SummaryEnd last = out.CanDuplex() ? Line : Indent;
    out.Text(IDS_OPTION_COLOR, Indent2);
    out.Pair(IDS_LABEL_HALFTONE, HalftoneText(out.priv.bColorHalftone), out.InColor() ? Indent2 : last);
    if (out.InColor())
        out.Switch(IDS_LABEL_MATCH_MONITOR, out.priv.dwColorModeOn != 0, last);
    if (!out.CanDuplex())
        out.Pair(IDS_OPTION_PRINT_ORDER, PrintOrderText(out.priv.bPrintOrderOpt));
}

void AddDeviceOptions(Summary& out)
{
    out.Group(IDS_HEADING_DEVICE_OPTIONS);
    if (!PrintsBorderless(out.Record()))
        out.Switch(IDS_LABEL_DATE_PRINT, (out.priv.dwDatePrint & kDatePrintOn) != 0, Indent);
    out.Switch(IDS_LABEL_QUICK_SETUP, out.priv.bStatusMonitor != 0, Indent);
    if (NoticeEnabled(out.Record()))
        out.Switch(IDS_LABEL_TRAY_NOTICE, out.priv.dwPhotoNotice != 0, Indent);
    out.Pair(IDS_LABEL_JPEG, JpegText(out.priv.bJpegPrint), Indent);
    AddColorOptions(out);
    out.EmptyLine();
}

void AddFavourite(Summary& out)
{
    out.Section(IDS_HEADING_FAVOURITES);
    const uint32_t favourite = out.priv.dwFavouriteIndex;
    if (favourite == 0) {
        out.Text(IDS_FAVOURITE_NONE, Line);
        return;
    }
    WCHAR name[kFavouriteNameUnits];
    FavouriteName(out.context, favourite - 1, name);
    Append(out.cursor, name);
    AppendSummaryEnd(out.cursor, Line);
}

} // namespace

void BuildSettingsSummary(PrinterUiContext* context, TextCursor& cursor)
{
    Summary out = {context, cursor, context->dmWork.dmPublic, context->dmWork.dmPrivate, IsMetricCountry()};
    AddBasicSection(out);
    AddAdvancedSection(out);
    AddDeviceOptions(out);
    if (IsJapaneseLanguage())
        AddFavourite(out);
}

int FillSettingsSummary(HWND page, PrinterUiContext* context)
{
    const HeapPtr<WCHAR> text = AllocateZeroed<WCHAR>(kSummaryUnits);
    if (!text)
        return 0;
    TextCursor cursor = {text.get(), kSummaryUnits};
    BuildSettingsSummary(context, cursor);
    SetDlgItemTextW(page, IDC_SUMMARY, text.get());
    return 1;
}

} // namespace psui
