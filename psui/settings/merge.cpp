#include "psui/settings/merge.h"

#include <cstring>

#include "psui/model/queries.h"
#include "psui/settings/copy.h"
#include "psui/settings/environment.h"
#include "psui/settings/paper_groups.h"
#include "psui/settings/record.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr DWORD kSizeFields = DM_PAPERLENGTH | DM_PAPERWIDTH;
constexpr int kLargestScale = 1000; // percent
constexpr short kMostCopies = 999;
constexpr int kLongestUserPaper = 4318; // portrait, tenths of a millimetre
constexpr int kWidestUserPaper = 2870;

/// One merge: the record that is completed, and the source spread over a copy of it.
struct Merge
{
    DriverDevMode* target; ///< whose parts `to` and `toPrivate` are
    DEVMODEW& to;
    PrivateDevMode& toPrivate;
    DEVMODEW& from;
    PrivateDevMode& fromPrivate;
    const ModelDescription* model;

    bool Has(DWORD field) const { return (from.dmFields & field) != 0; }
};

bool InRange(int value, int first, int last)
{
    return first <= value && value <= last;
}

bool IsQuality(int value)
{
    return InRange(value, DMRES_HIGH, DMRES_DRAFT);
}

bool IsPlainOrAddress(uint16_t mediaClass)
{
    return mediaClass == kPlainClass || mediaClass == MediaClassOf(kMediaHagakiAddress);
}

bool IsPlainLike(uint16_t mediaClass)
{
    return IsPlainOrAddress(mediaClass) || mediaClass == MediaClassOf(kMediaInkjetHagaki);
}

bool IsTransparency(DWORD media)
{
    return media == kMediaTransparency || media == kMediaTransparencyMirror;
}

void MergeSource(const Merge& merge)
{
    if (!merge.Has(DM_DEFAULTSOURCE))
        return;
    merge.to.dmFields |= DM_DEFAULTSOURCE;
    merge.to.dmDefaultSource = merge.from.dmDefaultSource;
}

void MergeOrientation(const Merge& merge)
{
    if (!merge.Has(DM_ORIENTATION))
        return;
    merge.to.dmFields |= DM_ORIENTATION;
    merge.to.dmOrientation =
        merge.from.dmOrientation == DMORIENT_LANDSCAPE ? short{DMORIENT_LANDSCAPE} : short{DMORIENT_PORTRAIT};
}

void MergeUserSize(const Merge& merge)
{
    if (merge.from.dmPaperSize != DMPAPER_USER) {
        merge.to.dmFields &= ~kSizeFields;
        return;
    }
    const bool hasLength = merge.Has(DM_PAPERLENGTH) && merge.from.dmPaperLength >= 1;
    const bool hasWidth = merge.Has(DM_PAPERWIDTH) && merge.from.dmPaperWidth >= 1;
    if (hasLength)
        merge.to.dmPaperLength = merge.from.dmPaperLength;
    if (hasWidth)
        merge.to.dmPaperWidth = merge.from.dmPaperWidth;
    merge.to.dmFields |= kSizeFields;
}

/// The media after the merge decides together with the source's own, so that no record comes out that the
/// next merge would change.
void MergePaper(const Merge& merge)
{
    bool bordered = IsTransparency(merge.Has(DM_MEDIATYPE) ? merge.from.dmMediaType : merge.to.dmMediaType);
    bool dateless = false;
    if (merge.Has(DM_PAPERSIZE)) {
        merge.to.dmFields |= DM_PAPERSIZE;
        merge.to.dmPaperSize = merge.from.dmPaperSize;
        bordered = bordered || IsTransparency(merge.from.dmMediaType);
        dateless = IsBorderlessPaper(merge.from.dmPaperSize) || merge.fromPrivate.bBorderless == 1;
    }
    if (bordered)
        merge.to.dmPaperSize = BorderedPaper(merge.to.dmPaperSize);
    if (dateless || IsBorderlessPaper(merge.to.dmPaperSize))
        merge.fromPrivate.dwDatePrint &= ~kDatePrintOn;
}

void MergeFormName(const Merge& merge)
{
    if (!merge.Has(DM_FORMNAME))
        return;
    merge.to.dmFields |= DM_FORMNAME;
    std::memcpy(merge.to.dmFormName, merge.from.dmFormName, sizeof(merge.to.dmFormName));
}

void SetPagesPerSheetOwner(const Merge& merge)
{
    if (IsWinPrintProcessor(merge.to.dmDeviceName)) {
        merge.to.dmFields |= DM_NUP;
        merge.to.dmNup = DMNUP_SYSTEM;
    } else {
        merge.to.dmFields &= ~DWORD{DM_NUP};
        merge.to.dmNup = DMNUP_ONEUP;
    }
    merge.to.dmFields |= DM_COPIES;
}

void MergeScale(const Merge& merge)
{
    int scale = merge.fromPrivate.wScale;
    if (merge.fromPrivate.bUsePublicScale != 0) {
        merge.to.dmFields |= DM_SCALE;
        scale = merge.from.dmScale;
    } else {
        merge.to.dmFields &= ~DWORD{DM_SCALE};
    }
    if (scale != 100)
        merge.fromPrivate.wMultiPageMode = 0;
    merge.to.dmScale = InRange(scale, 1, kLargestScale) ? static_cast<short>(scale) : short{100};
}

void MergeCopies(const Merge& merge)
{
    const bool usable = merge.Has(DM_COPIES) && InRange(merge.from.dmCopies, 1, kMostCopies);
    merge.to.dmCopies = usable ? merge.from.dmCopies : short{1};
}

void MergeQuality(const Merge& merge)
{
    if (merge.Has(DM_PRINTQUALITY))
        merge.to.dmFields |= DM_PRINTQUALITY;
}

void MergeColor(const Merge& merge)
{
    short asked = merge.to.dmColor;
    if (merge.Has(DM_COLOR)) {
        merge.to.dmFields |= DM_COLOR;
        asked = merge.from.dmColor;
    }
    const bool color = merge.model->colorDevice != 0 && asked == DMCOLOR_COLOR;
    merge.to.dmColor = color ? short{DMCOLOR_COLOR} : short{DMCOLOR_MONOCHROME};
}

void MergeDuplex(const Merge& merge)
{
    if (!merge.Has(DM_DUPLEX))
        return;
    if (!DuplexAvailable(merge.model) || !InRange(merge.from.dmDuplex, DMDUP_SIMPLEX, DMDUP_HORIZONTAL)) {
        merge.to.dmDuplex = DMDUP_SIMPLEX;
        return;
    }
    merge.to.dmFields |= DM_DUPLEX;
    merge.to.dmDuplex = merge.from.dmDuplex;
}

void MergeCollate(const Merge& merge)
{
    if (merge.fromPrivate.bCollateFromTail != 0) {
        merge.to.dmCollate = merge.fromPrivate.bTailCollate == 1;
        return;
    }
    if (!merge.Has(DM_COLLATE))
        return;
    if (InRange(merge.from.dmCollate, DMCOLLATE_FALSE, DMCOLLATE_TRUE)) {
        merge.to.dmFields |= DM_COLLATE;
        merge.to.dmCollate = merge.from.dmCollate;
    } else {
        merge.to.dmCollate = DMCOLLATE_FALSE;
    }
}

bool FitsPortrait(int length, int width)
{
    return length <= kLongestUserPaper && width <= kWidestUserPaper;
}

/// The user-defined size becomes the private part's; one that fits only turned is turned.
void SettleUserSize(const Merge& merge)
{
    DEVMODEW& to = merge.to;
    if ((to.dmFields & kSizeFields) != kSizeFields || to.dmPaperSize != DMPAPER_USER)
        return;
    const short length = to.dmPaperLength;
    const short width = to.dmPaperWidth;
    if (length < width && !FitsPortrait(length, width) && FitsPortrait(width, length)) {
        to.dmPaperLength = width;
        to.dmPaperWidth = length;
        to.dmOrientation = DMORIENT_LANDSCAPE;
    }
    merge.toPrivate.wCustomLength = static_cast<uint16_t>(to.dmPaperLength);
    merge.toPrivate.wCustomWidth = static_cast<uint16_t>(to.dmPaperWidth);
}

void MergePrivate(const Merge& merge)
{
    PrivateDevMode& to = merge.toPrivate;
    if (std::memcmp(merge.fromPrivate.dwSignature, kPrivateSignature, sizeof(kPrivateSignature)) != 0)
        return;
    to = merge.fromPrivate;
    if (to.wModelCrc != merge.model->sourceCrc) {
        to.wModelCrc = merge.model->sourceCrc;
        to.wFeatureCount = DocumentFeatureDefaults(merge.model, to.abFeatureSel);
    }
    SettleUserSize(merge);
    to.bBorderless = IsBorderlessPaper(merge.to.dmPaperSize);
    to.bTailCollate = merge.to.dmCollate == DMCOLLATE_TRUE;
    to.dwCollate = to.bTailCollate;
    RefreshTail(merge.target);
}

void MergeMedia(const Merge& merge)
{
    if (merge.Has(DM_MEDIATYPE)) {
        merge.to.dmFields |= DM_MEDIATYPE;
        merge.to.dmMediaType = merge.from.dmMediaType;
    }
    merge.toPrivate.wMediaClass = MediaClassOf(merge.to.dmMediaType);
}

void SetQuality(const Merge& merge, uint8_t level, int16_t quality)
{
    merge.toPrivate.bQualityLevel = level;
    merge.toPrivate.shQuality = quality;
    merge.to.dmPrintQuality = quality;
}

/// The quality levels that media allows, and what replaces any other.
struct MediaQuality
{
    DWORD media;
    uint8_t firstLevel, lastLevel;
    uint8_t level;
    int16_t quality;
};
constexpr MediaQuality kMediaQualities[] = {
    {kMediaInkjet, kQualityFine, kQualityPhoto, kQualityPhoto, DMRES_HIGH},
    {kMediaGlossyC, kQualityFine, kQualityPhotoFine, kQualityPhoto, DMRES_MEDIUM},
    {kMediaGlossyCB, kQualityFine, kQualityPhotoFine, kQualityPhoto, DMRES_MEDIUM},
    {kMediaGlossyRB, kQualityFine, kQualityPhotoFine, kQualityPhoto, DMRES_MEDIUM},
    {kMediaHagakiPicture, kQualityFine, kQualityPhotoFine, kQualityPhoto, DMRES_MEDIUM},
    {kMediaTransparency, kQualityNormal, kQualityFine, kQualityNormal, DMRES_MEDIUM},
};
constexpr MediaQuality kOtherMediaQuality = {0, kQualityDraft, kQualityFine, kQualityNormal, DMRES_MEDIUM};

const MediaQuality& QualityRuleFor(DWORD media)
{
    for (const MediaQuality& rule : kMediaQualities)
        if (rule.media == media)
            return rule;
    return kOtherMediaQuality;
}

void SettleQuality(const Merge& merge)
{
    const int16_t quality = merge.toPrivate.shQuality;
    merge.to.dmPrintQuality = IsQuality(quality) ? quality : short{DMRES_MEDIUM};
    const MediaQuality& rule = QualityRuleFor(merge.to.dmMediaType);
    if (!InRange(merge.toPrivate.bQualityLevel, rule.firstLevel, rule.lastLevel))
        SetQuality(merge, rule.level, rule.quality);
}

void SettleDirection(const Merge& merge)
{
    PrivateDevMode& to = merge.toPrivate;
    const short paper = merge.to.dmPaperSize;
    const bool thickUserPaper = paper == DMPAPER_USER && (to.wThickness == 2 || to.wThickness == 4);
    const bool excluded = IsEnvelopeOrPostcard(paper) || thickUserPaper;
    if (IsPlainLike(to.wMediaClass))
        to.dwDirModePlain = !excluded && to.dwDirChoicePlain != 0;
    else
        to.dwDirModeOther = !excluded && to.dwDirChoiceOther != 0;
}

void SettleLargeBorderless(const Merge& merge)
{
    const short paper = merge.to.dmPaperSize;
    const uint16_t mediaClass = merge.toPrivate.wMediaClass;
    if ((paper == 283 || paper == 290) && IsPlainOrAddress(mediaClass))
        SetQuality(merge, kQualityFine, DMRES_HIGH);
}

/// The paper that is printed on.
int PrintedPaper(const Merge& merge)
{
    return merge.toPrivate.bFitToPaper == kFitToOutputPaper ? merge.toPrivate.wOutputPaper
                                                            : merge.to.dmPaperSize;
}

void SettleThickness(const Merge& merge)
{
    const int paper = PrintedPaper(merge);
    if (IsEnvelope(paper))
        merge.toPrivate.wThickness = kThicknessEnvelope;
    else
        merge.toPrivate.wThickness = paper == DMPAPER_USER ? merge.fromPrivate.wCustomThickness : uint16_t{0};
}

void SettleTray(const Merge& merge)
{
    const bool takesSecondTray =
        IsPlainLike(merge.toPrivate.wMediaClass) && FitsSecondTray(PrintedPaper(merge));
    if (merge.to.dmDefaultSource == DMBIN_LOWER && !takesSecondTray)
        merge.to.dmDefaultSource = DMBIN_UPPER;
}

void SettleDeviceOptions(const Merge& merge)
{
    const bool refused = IsTransparency(merge.to.dmMediaType);
    merge.toPrivate.dwDeviceOptions = refused ? 0 : merge.fromPrivate.dwDeviceOptions;
}

// clang-format off
/// The order matters: later steps read what earlier ones settled.
constexpr void (*kMergeSteps[])(const Merge&) = {
    MergeSource,
    MergeOrientation,
    MergeUserSize,
    MergePaper,
    MergeFormName,
    SetPagesPerSheetOwner,
    MergeScale,
    MergeCopies,
    MergeQuality,
    MergeColor,
    MergeDuplex,
    MergeCollate,
    MergePrivate,
    MergeMedia,
    SettleQuality,
    SettleDeviceOptions,
    SettleDirection,
    SettleLargeBorderless,
    SettleThickness,
    SettleTray,
};
// clang-format on

} // namespace

int MergeDevMode(DriverDevMode* target, const DEVMODEW* source, const ModelDescription* model)
{
    if (!source)
        return 1;
    alignas(DEVMODEW) DriverDevMode spread = *target;
    if (!IsOwnRecord(source))
        spread.dmPublic.dmDriverExtra = 0;
    if (CopyDevMode(source, &spread.dmPublic) < 0)
        return 0;
    spread.dmPublic.dmDriverExtra = target->dmPublic.dmDriverExtra;

    const Merge merge = {target,          target->dmPublic, target->dmPrivate,
                         spread.dmPublic, spread.dmPrivate, model};
    for (const auto step : kMergeSteps)
        step(merge);
    return 1;
}

} // namespace psui
