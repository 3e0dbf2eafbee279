#include "psui/maindlg/apply_state.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"
#include "psui/base/module.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

PrinterUiContext appliedContext;

constexpr uint32_t kDateFormatBits = 0xE000;
constexpr uint32_t kTimeFormatBits = 0x1F00;
constexpr uint32_t kDatePlaceBits = 0x000F;

bool LanguageHas(const PrinterUiContext& context, UINT id)
{
    WCHAR text[2];
    return LoadModuleString(context.hLangRes, id, text, static_cast<int>(std::size(text))) > 0;
}

// Languages that bring formats of their own keep them in the tail's copy.
int64_t DateFormat(const PrinterUiContext& c)
{
    const PrivateDevMode& settings = c.dmWork.dmPrivate;
    return (LanguageHas(c, IDS_OWN_DATE1) ? settings.dwTailDatePrint : settings.dwDatePrint) &
           kDateFormatBits;
}

int64_t TimeFormat(const PrinterUiContext& c)
{
    const PrivateDevMode& settings = c.dmWork.dmPrivate;
    return (LanguageHas(c, IDS_OWN_TIME1) ? settings.dwTailDatePrint : settings.dwDatePrint) &
           kTimeFormatBits;
}

int64_t Source(const PrinterUiContext& c)
{
    return c.dmWork.dmPrivate.dwTrayChoice == 1 ? c.dmWork.dmPublic.dmDefaultSource : 0;
}

using Setting = int64_t (*)(const PrinterUiContext&);

#define PUBLIC(field)  [](const PrinterUiContext& c) -> int64_t { return c.dmWork.dmPublic.field; }
#define PRIVATE(field) [](const PrinterUiContext& c) -> int64_t { return c.dmWork.dmPrivate.field; }
#define PRIVATE_BITS(f, bits)                                                                                \
    [](const PrinterUiContext& c) -> int64_t { return c.dmWork.dmPrivate.f & (bits); }
#define CONTEXT(field) [](const PrinterUiContext& c) -> int64_t { return c.field; }

constexpr Setting kSettings[] = {
    PRIVATE(dwSdPaper),
    PUBLIC(dmMediaType),
    PRIVATE(bQualityLevel),
    PRIVATE(bBorderless),
    PUBLIC(dmPaperSize),
    PRIVATE(bDocType),
    PUBLIC(dmOrientation),
    PUBLIC(dmCopies),
    PUBLIC(dmCollate),
    PRIVATE(bTailCollate),
    PRIVATE(bTailReverse),
    PRIVATE(dwPagesPerSheet),
    PRIVATE(bPageOrder),
    PRIVATE(bBorderLine),
    PRIVATE(wDuplexFlags),
    PRIVATE_BITS(bBindingFlags, kBindingInInches | kBindingOffsetOn),
    PRIVATE(wBindingOffset),
    Source,
    PUBLIC(dmColor),
    PRIVATE(dwColorAdjust),
    PRIVATE(dwDirChoicePlain),
    PRIVATE(dwDirChoiceOther),
    PRIVATE(wTonerSave),
    PRIVATE(bFitToPaper),
    PRIVATE(wOutputPaper),
    PUBLIC(dmScale),
    PRIVATE_BITS(dwDeviceOptions, kMirrorPrinting | kReversePrinting),
    PRIVATE(dwWatermarkFlags),
    CONTEXT(wCurrentWatermark),
    PRIVATE(dwWatermarkRop),
    PRIVATE(bWatermarkOutline),
    PRIVATE(wWatermarkScale),
    PRIVATE_BITS(dwDatePrint, kDatePrintOn),
    DateFormat,
    TimeFormat,
    PRIVATE_BITS(dwDatePrint, kDatePlaceBits),
    PRIVATE(crDateBack),
    PRIVATE(bStatusMonitor),
    PRIVATE(dwPhotoNotice),
    PRIVATE(bJpegPrint),
    PRIVATE(bColorHalftone),
    PRIVATE(dwColorModeOn),
    PRIVATE(bPrintOrderOpt),
};

#undef PUBLIC
#undef PRIVATE
#undef PRIVATE_BITS
#undef CONTEXT

bool SameColorAdjustment(const PrivateDevMode& a, const PrivateDevMode& b)
{
    return std::equal(std::begin(a.ashColorAdjust0), std::end(a.ashColorAdjust0), b.ashColorAdjust0) &&
           std::equal(std::begin(a.ashColorAdjust4), std::end(a.ashColorAdjust4), b.ashColorAdjust4) &&
           a.ashColorAdjust6 == b.ashColorAdjust6;
}

std::basic_string_view<WCHAR> FaceOf(const LOGFONTW& font)
{
    const WCHAR* const end = std::find(std::begin(font.lfFaceName), std::end(font.lfFaceName), 0);
    return {font.lfFaceName, static_cast<size_t>(end - font.lfFaceName)};
}

bool SameFont(const LOGFONTW& a, const LOGFONTW& b)
{
    return a.lfHeight == b.lfHeight && a.lfWidth == b.lfWidth && a.lfEscapement == b.lfEscapement &&
           a.lfOrientation == b.lfOrientation && a.lfWeight == b.lfWeight && a.lfItalic == b.lfItalic &&
           a.lfUnderline == b.lfUnderline && a.lfStrikeOut == b.lfStrikeOut && a.lfCharSet == b.lfCharSet &&
           a.lfOutPrecision == b.lfOutPrecision && a.lfClipPrecision == b.lfClipPrecision &&
           a.lfQuality == b.lfQuality && a.lfPitchAndFamily == b.lfPitchAndFamily && FaceOf(a) == FaceOf(b);
}

} // namespace

bool SettingsDiffer(const PrinterUiContext& context, const PrinterUiContext& other)
{
    const PrivateDevMode& settings = context.dmWork.dmPrivate;
    const PrivateDevMode& others = other.dmWork.dmPrivate;
    return std::any_of(std::begin(kSettings), std::end(kSettings),
                       [&](Setting value) { return value(context) != value(other); }) ||
           !SameColorAdjustment(settings, others) || !SameFont(settings.lfDateFont, others.lfDateFont);
}

void TakeApplySnapshot(const PrinterUiContext& context)
{
    appliedContext = context;
}

void UpdateApplyButton(HWND dialog, const PrinterUiContext* context)
{
    EnableWindow(GetDlgItem(dialog, IDC_APPLY),
                 context->bUserDefault && SettingsDiffer(*context, appliedContext));
}

} // namespace psui
