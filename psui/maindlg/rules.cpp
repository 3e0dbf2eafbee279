#include "psui/maindlg/rules.h"

#include "psui/settings/language.h"
#include "psui/settings/paper_groups.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr short kPlainA4 = DMPAPER_A4;
constexpr short kBorderlessA4 = 274;

/// Borderless papers that the merge of records knows and the dialogs do not offer.
constexpr short kNotOffered[] = {286, 294};

/// Papers on which bi-directional printing is never offered although its mode may follow the choice.
constexpr short kNoBidiChoice[] = {30};

/// Papers too large, too small or too oddly shaped for duplex printing.
constexpr short kSimplexPapers[] = {256, 3, 8, 12, 283, 284, 285, 287, 288, 289, 290, 291, 292};

/// The user-defined size counts as thick when its own thickness says so.
bool IsThickUserSize(const DriverDevMode& record)
{
    const uint16_t thickness = record.dmPrivate.wThickness;
    return PaperInForce(record) == DMPAPER_USER && (thickness == 2 || thickness == 4);
}

bool IsPrintedInOneDirection(const DriverDevMode& record)
{
    return IsEnvelopeOrPostcard(PaperInForce(record)) || IsThickUserSize(record);
}

} // namespace

bool IsBorderlessSize(int paper)
{
    return IsBorderlessPaper(paper) && !IsOneOf(kNotOffered, paper);
}

bool AllowsBorderless(int paper)
{
    if (IsBorderlessSize(paper))
        return true;
    for (const BorderlessPair& pair : kBorderlessPairs)
        if (pair.bordered == paper)
            return IsBorderlessSize(pair.borderless);
    return false;
}

short BorderlessForm(short paper)
{
    for (const BorderlessPair& pair : kBorderlessPairs)
        if (pair.bordered == paper && IsBorderlessSize(pair.borderless))
            return pair.borderless;
    return kBorderlessA4;
}

short BorderedForm(short paper)
{
    return IsBorderlessSize(paper) ? BorderedPaper(paper) : kPlainA4;
}

bool MediaAndQualityAllowBorderless(const DriverDevMode& record)
{
    const PrivateDevMode& priv = record.dmPrivate;
    if (priv.bQualityLevel == kQualityDraft || IsTransparency(record.dmPublic.dmMediaType))
        return false;
    return priv.bQualityLevel != kQualityPhotoFine || (priv.wModelType & kModelBordersBestQuality) == 0;
}

bool PrintsBorderless(const DriverDevMode& record)
{
    return record.dmPrivate.bBorderless == 1 && AllowsBorderless(record.dmPublic.dmPaperSize);
}

bool IsTwoSidedMedia(DWORD media)
{
    return media == kMediaPlain || media == kMediaHagakiAddress;
}

bool IsPlainMedia(DWORD media)
{
    return IsTwoSidedMedia(media) || media == kMediaInkjetHagaki;
}

bool IsTransparency(DWORD media)
{
    return media == kMediaTransparency || media == kMediaTransparencyMirror;
}

bool IsGlossyClass(DWORD media)
{
    switch (media) {
    case kMediaGlossy:
    case kMediaGlossyC:
    case kMediaGlossyCB:
    case kMediaGlossyR:
    case kMediaGlossyRB:
    case kMediaHagakiPicture:
        return true;
    default:
        return false;
    }
}

bool ExcludesDuplex(int paper)
{
    return IsOneOf(kSimplexPapers, paper);
}

int PaperInForce(const DriverDevMode& record)
{
    return record.dmPrivate.bFitToPaper == kFitToOutputPaper ? record.dmPrivate.wOutputPaper
                                                             : record.dmPublic.dmPaperSize;
}

bool FailsTray2(const DriverDevMode& record)
{
    return !IsPlainMedia(record.dmPublic.dmMediaType) || !FitsSecondTray(PaperInForce(record));
}

bool FailsPrintOrderCombination(const DriverDevMode& record)
{
    const DEVMODEW& pub = record.dmPublic;
    const PrivateDevMode& priv = record.dmPrivate;
    const bool paper = pub.dmPaperSize == DMPAPER_A4 || pub.dmPaperSize == DMPAPER_LETTER;
    const bool source =
        priv.dwTrayChoice != 1 || pub.dmDefaultSource == kSourceAuto || pub.dmDefaultSource == kSourceTray1;
    const bool plain = IsTwoSidedMedia(pub.dmMediaType) && priv.bQualityLevel == kQualityNormal;
    const bool onePage = priv.bBorderless == 0 && priv.dwPagesPerSheet == 1 && priv.bFitToPaper == kFitOff;
    return !(paper && source && plain && onePage);
}

bool NoticeEnabled(const DriverDevMode& record)
{
    const uint16_t model = record.dmPrivate.wModelType;
    return (model & kModelNotice) != 0 && ((model & kModelNoticeInJapan) == 0 || IsJapaneseLanguage());
}

bool BidiApplicable(const DriverDevMode& record)
{
    if (IsPrintedInOneDirection(record) || IsOneOf(kNoBidiChoice, PaperInForce(record)))
        return false;
    const uint8_t quality = record.dmPrivate.bQualityLevel;
    return quality != kQualityPhoto && quality != kQualityPhotoFine;
}

bool BidiChosen(const DriverDevMode& record)
{
    const PrivateDevMode& priv = record.dmPrivate;
    return (IsPlainMedia(record.dmPublic.dmMediaType) ? priv.dwDirChoicePlain : priv.dwDirChoiceOther) != 0;
}

uint16_t ThicknessOf(const DriverDevMode& record)
{
    const int paper = PaperInForce(record);
    if (IsEnvelope(paper))
        return kThicknessEnvelope;
    return paper == DMPAPER_USER ? record.dmPrivate.wCustomThickness : kThicknessRegular;
}

void UpdateBidiMode(DriverDevMode& record)
{
    PrivateDevMode& priv = record.dmPrivate;
    const bool oneDirection = IsPrintedInOneDirection(record);
    if (IsPlainMedia(record.dmPublic.dmMediaType))
        priv.dwDirModePlain = !oneDirection && priv.dwDirChoicePlain != 0;
    else
        priv.dwDirModeOther = !oneDirection && priv.dwDirChoiceOther != 0;
}

bool TwoPagesRunBackwards(uint8_t pageOrder)
{
    return pageOrder != 0 && pageOrder != 1 && pageOrder != 4 && pageOrder != 5;
}

void ClearExcludedPrintOrder(DriverDevMode& record)
{
    if (FailsPrintOrderCombination(record))
        record.dmPrivate.bPrintOrderOpt = 0;
}

} // namespace psui
