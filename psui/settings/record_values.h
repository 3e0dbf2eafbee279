#pragma once
// Bits and values of the settings record's fields.
#include <cstdint>

#include <windows.h>

namespace psui {

// dmMediaType
constexpr DWORD kMediaPlain = 1;
constexpr DWORD kMediaInkjet = 261;
constexpr DWORD kMediaGlossy = 262;
constexpr DWORD kMediaGlossyC = 263;
constexpr DWORD kMediaTransparency = 264;
constexpr DWORD kMediaTransparencyMirror = 265;
constexpr DWORD kMediaPlainPaper = 266; ///< plain paper as well, by the number that models give it
constexpr DWORD kMediaInkjetHagaki = 268;
constexpr DWORD kMediaGlossyCB = 269;
constexpr DWORD kMediaGlossyR = 270;
constexpr DWORD kMediaGlossyRB = 271;
constexpr DWORD kMediaHagakiAddress = 272;
constexpr DWORD kMediaHagakiPicture = 273;

// bQualityLevel
constexpr uint8_t kQualityDraft = 0;
constexpr uint8_t kQualityNormal = 2;
constexpr uint8_t kQualityFine = 3;
constexpr uint8_t kQualityPhoto = 4;
constexpr uint8_t kQualityPhotoFine = 5;

// wModelType
constexpr uint16_t kModelA3 = 0x0001;
constexpr uint16_t kModelFavouritesFirst = 0x0002;    ///< opens on the favourites tab
constexpr uint16_t kModelBordersBestQuality = 0x0010; ///< no borderless printing in the best quality
constexpr uint16_t kModelNotice = 0x0100;             ///< has the notice on postcards and photo papers
constexpr uint16_t kModelNoticeInJapan = 0x0200;      ///< has it in Japanese only

// dmDefaultSource
constexpr short kSourceTray1 = 1;
constexpr short kSourceTray2 = 2;
constexpr short kSourceAuto = 7;

// wThickness
constexpr uint16_t kThicknessRegular = 0;
constexpr uint16_t kThicknessEnvelope = 2;

// bFitToPaper
constexpr uint8_t kFitOff = 0;
constexpr uint8_t kFitToOutputPaper = 1;
constexpr uint8_t kFitByPercentage = 2;

constexpr uint16_t kDuplexOn = 0x0100;       ///< of wDuplexFlags
constexpr uint16_t kDuplexTypeMask = 0x00FF; ///< of wDuplexFlags
constexpr uint8_t kBindingInInches = 0x01;   ///< of bBindingFlags
constexpr uint8_t kBindingOffsetOn = 0x02;   ///< of bBindingFlags
constexpr uint8_t kBookletOn = 0x01;         ///< of bBookletFlags
constexpr uint32_t kMirrorPrinting = 0x01;   ///< of dwDeviceOptions
constexpr uint32_t kReversePrinting = 0x02;  ///< of dwDeviceOptions
constexpr uint32_t kDatePrintOn = 0x80;      ///< of dwDatePrint
constexpr int32_t kPosterTwoByTwo = -4;      ///< dwPagesPerSheet
constexpr int32_t kPosterThreeByThree = -9;  ///< dwPagesPerSheet

// wMediaClass
constexpr uint16_t kPlainClass = 0;

/// wMediaClass of a media: 1 to 13 for the driver's special media, kPlainClass for plain paper and for every
/// other id.
constexpr uint16_t MediaClassOf(DWORD media)
{
    if (media < kMediaInkjet || media > kMediaHagakiPicture || media == kMediaPlainPaper)
        return kPlainClass;
    return static_cast<uint16_t>(media - kMediaInkjet + 1);
}

} // namespace psui
