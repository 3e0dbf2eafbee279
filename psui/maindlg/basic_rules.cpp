#include "psui/maindlg/basic_rules.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "lang/ids/basic_tab.h"
#include "lang/ids/dialogs.h"
#include "psui/maindlg/qualities.h"
#include "psui/maindlg/rules.h"
#include "psui/model/queries.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr uint16_t kPaperChanged = 3; // of unnamed262
constexpr uint16_t kNoScaling = 100;  // percent
constexpr short kPhotoSizes[] = {265, 272, 278, 280};
constexpr unsigned kLastDuplexType = 5;
constexpr uint8_t kModeNatural = 2; // bDocType
constexpr short kSourceManual = 4;

bool IsPhotoSize(short paper)
{
    return std::find(std::begin(kPhotoSizes), std::end(kPhotoSizes), paper) != std::end(kPhotoSizes);
}

bool IsDuplexOn(const DriverDevMode& record)
{
    return (record.dmPrivate.wDuplexFlags & kDuplexOn) != 0;
}

bool IsBookletOn(const DriverDevMode& record)
{
    return (record.dmPrivate.bBookletFlags & kBookletOn) != 0;
}

// Qualities that are never printed to the edges.
bool IsBorderedQuality(const PrivateDevMode& settings)
{
    return settings.bQualityLevel == kQualityDraft ||
           (settings.bQualityLevel == kQualityPhotoFine && (settings.wModelType & kModelBordersBestQuality));
}

bool IsPortraitSheet(const DriverDevMode& record)
{
    const bool portrait = record.dmPublic.dmOrientation == DMORIENT_PORTRAIT;
    return portrait == (record.dmPrivate.dwPagesPerSheet != 2);
}

void SetOtherBidi(PrivateDevMode& settings, uint32_t on)
{
    settings.dwDirModeOther = settings.dwDirChoiceOther = on;
}

void SetMedia(DriverDevMode& record, DWORD media)
{
    record.dmPublic.dmMediaType = media;
    record.dmPrivate.wMediaClass = MediaClassOf(media);
}

struct Layout
{
    int32_t pages;
    uint16_t poster;
};
constexpr Layout kLayouts[] = {
    {1, 1}, {2, 1}, {4, 1}, {9, 1}, {16, 1}, {kPosterTwoByTwo, 2}, {kPosterThreeByThree, 3}};

// The level and codes that a newly chosen media starts with.
void TakeMediaQuality(DriverDevMode& record)
{
    if (HasSingleQuality(record)) {
        TakeSingleQuality(record);
        return;
    }
    TakeDefaultQualityLevel(record);
    TakeQualityCode(record);
}

void EndBooklet(DriverDevMode& record)
{
    PrivateDevMode& settings = record.dmPrivate;
    if (IsBookletOn(record))
        settings.dwPagesPerSheet = static_cast<int32_t>(settings.dwSavedNup);
    settings.bBookletFlags &= static_cast<uint8_t>(~kBookletOn);
}

// Enable rules

bool Always(const DriverDevMode&)
{
    return true;
}

bool TakesSlowDrying(const DriverDevMode& record)
{
    return IsTwoSidedMedia(record.dmPublic.dmMediaType);
}

bool HasColorModes(const DriverDevMode& record)
{
    return record.dmPublic.dmColor != DMCOLOR_MONOCHROME && record.dmPrivate.dwColorModeOn != 0;
}

bool CanBeBorderless(const DriverDevMode& record)
{
    return AllowsBorderless(record.dmPublic.dmPaperSize) && !IsBorderedQuality(record.dmPrivate) &&
           !IsTransparency(record.dmPublic.dmMediaType) && !IsBookletOn(record);
}

bool CanBeReversed(const DriverDevMode& record)
{
    return record.dmPublic.dmDefaultSource != kSourceManual;
}

bool CanBeCollated(const DriverDevMode& record)
{
    return record.dmPublic.dmCopies >= 2 && CanBeReversed(record);
}

bool HasLayouts(const DriverDevMode& record)
{
    return !IsBookletOn(record) && !IsBorderlessSize(record.dmPublic.dmPaperSize);
}

bool HasSeveralPages(const DriverDevMode& record)
{
    const int32_t pages = record.dmPrivate.dwPagesPerSheet;
    return !IsBookletOn(record) && (pages == 2 || pages == 4 || pages == 9 || pages == 16);
}

bool CanBeDuplex(const DriverDevMode& record)
{
    return IsTwoSidedMedia(record.dmPublic.dmMediaType) && !ExcludesDuplex(record.dmPublic.dmPaperSize);
}

bool IsDuplexSet(const DriverDevMode& record)
{
    return CanBeDuplex(record) && IsDuplexOn(record);
}

using Rule = bool (*)(const DriverDevMode& record);

struct EnableRule
{
    int control;
    Rule holds;
};

constexpr int kSpareButton = 12; // of templates that have it

constexpr EnableRule kEnableRules[] = {
    {IDC_SLOW_DRYING, TakesSlowDrying},
    {IDC_MEDIA_LABEL, Always},
    {IDC_MEDIA, Always},
    {IDC_QUALITY_LABEL, Always},
    {IDC_QUALITY, Always},
    {IDC_PAPER_LABEL, Always},
    {IDC_PAPER, Always},
    {IDC_ORIENTATION_LABEL, Always},
    {IDC_PORTRAIT, Always},
    {IDC_LANDSCAPE, Always},
    {IDC_COPIES_LABEL, Always},
    {IDC_COPIES, Always},
    {IDC_COPIES_SPIN, Always},
    {IDC_SOURCE_LABEL, Always},
    {IDC_SOURCE, Always},
    {IDC_DEFAULT, Always},
    {kSpareButton, Always},
    {IDC_COLOR_MODE_LABEL, HasColorModes},
    {IDC_NATURAL, HasColorModes},
    {IDC_VIVID, HasColorModes},
    {IDC_BORDERLESS, CanBeBorderless},
    {IDC_COLLATE, CanBeCollated},
    {IDC_REVERSE_ORDER, CanBeReversed},
    {IDC_LAYOUT_LABEL, HasLayouts},
    {IDC_LAYOUT, HasLayouts},
    {IDC_PAGE_ORDER_LABEL, HasSeveralPages},
    {IDC_PAGE_ORDER, HasSeveralPages},
    {IDC_BORDER_LINE_LABEL, HasSeveralPages},
    {IDC_BORDER_LINE, HasSeveralPages},
    {IDC_DUPLEX, CanBeDuplex},
    {IDC_DUPLEX_SETTINGS, IsDuplexSet},
};

constexpr auto kEnableControls = [] {
    std::array<int, std::size(kEnableRules)> controls{};
    for (size_t i = 0; i < controls.size(); ++i)
        controls[i] = kEnableRules[i].control;
    return controls;
}();

} // namespace

BasicMessage MediaRefusal(const DriverDevMode& record, DWORD media)
{
    if (IsBorderlessSize(record.dmPublic.dmPaperSize) && IsTransparency(media))
        return BasicMessage::BorderlessExcluded;
    if (IsDuplexOn(record) && !IsTwoSidedMedia(media))
        return BasicMessage::DuplexExcludes;
    return BasicMessage::None;
}

BasicMessage PaperRefusal(const DriverDevMode& record, short paper)
{
    const bool borderless = IsBorderlessSize(paper);
    if (IsBorderedQuality(record.dmPrivate) || IsTransparency(record.dmPublic.dmMediaType))
        return borderless ? BasicMessage::BorderlessExcluded : BasicMessage::None;
    if (borderless && IsBookletOn(record))
        return BasicMessage::BookletNeedsBorders;
    return IsDuplexOn(record) && ExcludesDuplex(paper) ? BasicMessage::DuplexExcludes : BasicMessage::None;
}

BasicMessage SourceRefusal(const DriverDevMode& record)
{
    if (record.dmPublic.dmDefaultSource != kSourceTray2)
        return BasicMessage::None;
    if (record.dmPrivate.bBorderless == 1 || IsDuplexOn(record))
        return BasicMessage::Tray2PrintsSimply;
    return FailsTray2(record) ? BasicMessage::Tray2Excluded : BasicMessage::None;
}

void TakeMedia(DriverDevMode& record, DWORD media)
{
    PrivateDevMode& settings = record.dmPrivate;
    SetMedia(record, media);
    TakeMediaQuality(record);
    if (media == kMediaInkjet || IsTransparency(media)) {
        SetOtherBidi(settings, 0);
        settings.dwSdPaper = 0;
    } else if (IsGlossyClass(media)) {
        SetOtherBidi(settings, settings.bQualityLevel == kQualityFine);
        settings.dwSdPaper = 0;
    } else if (media == kMediaHagakiAddress) {
        settings.dwSdPaper = 1;
    } else if (settings.dwSdPaper == 1) {
        settings.dwSdPaper = 0;
    }
    UpdateBidiMode(record);
    if (IsTransparency(media))
        settings.dwDeviceOptions &= ~(kMirrorPrinting | kReversePrinting);
}

bool TakeQuality(DriverDevMode& record, int listPosition)
{
    const QualityRow* const row = QualityAtPosition(record, listPosition);
    if (!row)
        return false;
    record.dmPrivate.bQualityLevel = row->level;
    record.dmPrivate.shQuality = row->code;
    record.dmPublic.dmPrintQuality = row->code;
    if (IsGlossyClass(record.dmPublic.dmMediaType))
        SetOtherBidi(record.dmPrivate, row->level == kQualityFine);
    UpdateBidiMode(record);
    return true;
}

bool QualityNeedsBorders(const DriverDevMode& record)
{
    return IsBorderlessSize(record.dmPublic.dmPaperSize) && IsBorderedQuality(record.dmPrivate);
}

void TakeOfferedPaper(DriverDevMode& record, short paper)
{
    record.dmPublic.dmPaperSize = paper;
    record.dmPrivate.wDocumentPaper = static_cast<uint16_t>(paper);
}

void TakePaper(DriverDevMode& record, short paper)
{
    record.dmPrivate.bBorderless = IsBorderlessSize(paper);
    if (paper != record.dmPublic.dmPaperSize)
        record.dmPrivate.unnamed262 = kPaperChanged;
    TakeOfferedPaper(record, paper);
}

void TakeOtherPaper(DriverDevMode& record, short paper)
{
    record.dmPrivate.bBorderless = IsBorderlessSize(paper);
    TakeOfferedPaper(record, paper);
    UpdateThicknessAndBidi(record);
}

PaperNotice NoticeAfterPaper(const DriverDevMode& record, short former, short paper, bool tray2Failed)
{
    const bool nowBorderless = !IsBorderlessSize(former) && IsBorderlessSize(paper);
    const BasicMessage message = nowBorderless ? BasicMessage::BorderlessOn : BasicMessage::None;
    if (tray2Failed)
        return {false, BasicMessage::None};
    const bool hasNotice = record.dmPrivate.dwPhotoNotice == 1 && NoticeEnabled(record);
    if (hasNotice && IsPhotoSize(paper) && !IsPhotoSize(former))
        return {true, BasicMessage::None};
    return {false, message};
}

void TakeBorderless(DriverDevMode& record, bool on)
{
    record.dmPrivate.bBorderless = on;
    const short paper = record.dmPublic.dmPaperSize;
    TakeOfferedPaper(record, on ? BorderlessForm(paper) : BorderedForm(paper));
}

void UpdateThicknessAndBidi(DriverDevMode& record)
{
    record.dmPrivate.wThickness = ThicknessOf(record);
    UpdateBidiMode(record);
}

void TakeOnePage(DriverDevMode& record)
{
    record.dmPrivate.dwPagesPerSheet = 1;
    record.dmPrivate.dwSavedNup = 1;
    record.dmPrivate.wPoster = 1;
}

void TakeLayout(DriverDevMode& record, int position, bool byUser)
{
    const int last = static_cast<int>(std::size(kLayouts)) - 1;
    const Layout& layout = kLayouts[position < 0 || position > last ? 0 : position];
    record.dmPrivate.dwPagesPerSheet = layout.pages;
    record.dmPrivate.dwSavedNup = static_cast<uint32_t>(layout.pages);
    record.dmPrivate.wPoster = layout.poster;
    if (position > 0 || byUser)
        record.dmPublic.dmScale = static_cast<short>(record.dmPrivate.wScale = kNoScaling);
}

bool LayoutEndsScaling(const DriverDevMode& record, int position)
{
    return record.dmPrivate.bFitToPaper != kFitOff && position != 0;
}

void EndScaling(DriverDevMode& record)
{
    record.dmPrivate.bFitToPaper = kFitOff;
    record.dmPublic.dmScale = static_cast<short>(record.dmPrivate.wScale = kNoScaling);
}

void TakePageOrder(DriverDevMode& record, int order)
{
    uint8_t& current = record.dmPrivate.bPageOrder;
    if (record.dmPrivate.dwPagesPerSheet != 2) {
        current = static_cast<uint8_t>(order);
    } else if (record.dmPublic.dmOrientation == DMORIENT_LANDSCAPE) {
        if (current <= 3 && order > 3)
            current = 4;
        else if (current >= 4 && current <= 7 && order == 0)
            current = 0;
    } else if (TwoPagesRunBackwards(current)) {
        if (order == 0)
            current = 0;
    } else if (order == 2) {
        current = 2;
    }
}

void TakeDuplex(DriverDevMode& record, bool on)
{
    if (on) {
        record.dmPrivate.wDuplexFlags |= kDuplexOn;
    } else {
        record.dmPrivate.wDuplexFlags &= static_cast<uint16_t>(~kDuplexOn);
        EndBooklet(record);
    }
    record.dmPublic.dmDuplex = DuplexOf(record);
}

short DuplexOf(const DriverDevMode& record)
{
    const unsigned type = record.dmPrivate.wDuplexFlags & kDuplexTypeMask;
    if (!IsDuplexOn(record) || type > kLastDuplexType)
        return DMDUP_SIMPLEX;
    if (type >= 4)
        return IsPortraitSheet(record) ? DMDUP_VERTICAL : DMDUP_HORIZONTAL;
    return type <= 1 ? DMDUP_VERTICAL : DMDUP_HORIZONTAL;
}

void UpdateDuplex(DriverDevMode& record)
{
    if (record.dmPublic.dmFields & DM_DUPLEX)
        record.dmPublic.dmDuplex = DuplexOf(record);
}

void TakeCopies(DriverDevMode& record, int copies)
{
    record.dmPublic.dmFields |= DM_COPIES;
    record.dmPublic.dmCopies = static_cast<short>(copies);
}

void TakeCollate(DriverDevMode& record, bool on)
{
    record.dmPublic.dmFields |= DM_COLLATE;
    record.dmPrivate.dwCollate = on;
    record.dmPrivate.bTailCollate = on;
    record.dmPublic.dmCollate = on ? DMCOLLATE_TRUE : DMCOLLATE_FALSE;
}

void TakeReverseOrder(DriverDevMode& record, bool on)
{
    record.dmPrivate.dwReverseOrder = on;
    record.dmPrivate.bTailReverse = on;
}

void TakeSlowDrying(DriverDevMode& record, bool on)
{
    record.dmPrivate.dwSdPaper = on;
}

void TakeOrientation(DriverDevMode& record, short orientation)
{
    record.dmPublic.dmOrientation = orientation;
}

void TakeBasicDefaults(DriverDevMode& record, const ModelDescription* model, DWORD media, bool metric)
{
    PrivateDevMode& settings = record.dmPrivate;
    TakeSlowDrying(record, false);
    SetMedia(record, media);
    settings.bDocType = kModeNatural;
    TakeOfferedPaper(record, metric ? DMPAPER_A4 : DMPAPER_LETTER);
    TakeMediaQuality(record);
    UpdateThicknessAndBidi(record);
    TakeOnePage(record);
    settings.bPageOrder = 0;
    settings.bBorderLine = 0;
    TakeCopies(record, kFewestCopies);
    TakeCollate(record, false);
    TakeReverseOrder(record, false);
    TakeOrientation(record, DMORIENT_PORTRAIT);
    settings.bBorderless = static_cast<uint8_t>(FeatureDefaultValue(model, kFeaturePrtArea));
    TakeDuplex(record, false);
    record.dmPublic.dmDuplex = DMDUP_SIMPLEX;
    const uint16_t source = FeatureDefaultValue(model, kFeatureTray);
    record.dmPublic.dmDefaultSource = source ? static_cast<short>(source) : kSourceAuto;
}

bool IsBasicEnabled(const PrinterUiContext* context, int control)
{
    for (const EnableRule& rule : kEnableRules)
        if (rule.control == control)
            return context->bPermission == 1 && rule.holds(context->dmWork);
    return true;
}

std::span<const int> BasicEnableControls()
{
    return kEnableControls;
}

bool MakeLayoutSingle(PrinterUiContext* context)
{
    DriverDevMode& record = context->dmWork;
    const bool single = record.dmPrivate.dwPagesPerSheet == 1 && record.dmPrivate.dwSavedNup == 1;
    if (single || context->bPermission != 1 || IsBookletOn(record) ||
        !IsBorderlessSize(record.dmPublic.dmPaperSize))
        return false;
    TakeOnePage(record);
    UpdateDuplex(record);
    return true;
}

} // namespace psui
