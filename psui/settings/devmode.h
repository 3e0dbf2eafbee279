#pragma once
// The settings record: the platform's public device-mode record followed by the driver's private extension.
// Applications and the spooler store it and pass it between processes, so every offset is fixed. Offsets in
// the comments and assertions are from the start of the private extension.
//
// Fields called unnamedNNN have a fixed place and default; their meaning belongs to the dialogs that edit
// them. Bytes called reservedNNN are zero in a default record and are carried along unread.
#include <cstddef>
#include <cstdint>

#include <windows.h>

namespace psui {

constexpr uint16_t kSpecVersion = 0x0401;
constexpr uint16_t kDriverVersion = 1301;
constexpr uint16_t kPublicSize = 220;
constexpr uint16_t kPrivateSize = 1632;
constexpr uint16_t kRecordSize = kPublicSize + kPrivateSize;
constexpr uint16_t kTailSize = 1032;
constexpr char kPrivateSignature[4] = {'P', 'R', 'I', 'V'};
constexpr char kPrivateEndMark[4] = {'E', 'O', 'S', 'C'};

#pragma pack(push, 1)

struct PrivateDevMode
{
    uint16_t wTailOffset; ///< offset of the tail block from the start of the whole record
    uint16_t reserved2;
    char dwSignature[4]; ///< kPrivateSignature
    uint32_t dwOptionFlags;
    uint8_t reserved12[104];
    uint16_t wModelCrc; ///< sourceCrc of the model that the selections belong to
    uint16_t wFeatureCount;
    uint8_t abFeatureSel[64]; ///< option index per document feature; 255 none
    int16_t shQuality;        ///< -1 to -4
    uint16_t wMultiPageMode;
    uint16_t wTonerSave; ///< bit 0: improve pattern
    uint16_t wMediaValue;
    uint16_t wHrcValue;
    uint16_t wPageProtectValue;
    uint16_t wCaptValue;
    uint8_t reserved198[10];
    uint32_t dwStringMask; ///< bit i: the library has string 1060 + 1000 x i
    uint16_t wThickness;
    uint16_t wMediaClass; ///< 0 to 13, from dmMediaType
    uint32_t dwColorAdjust;
    uint32_t dwCustomColor;
    int16_t shDetailLevel; ///< -2 to 2
    int16_t ashColorAdjust0[4];
    uint16_t reserved234;
    int16_t ashColorAdjust4[2];
    int16_t ashColorAdjust6;
    uint16_t reserved242;
    uint32_t dwDeviceOptions; ///< bit 0 mirror printing, bit 1 reverse printing
    uint8_t bDocType;
    uint8_t bColorHalftone;
    uint8_t bColorMatching;
    uint8_t reserved251[9];
    uint16_t wPoster; ///< 1 none, 2 two by two, 3 three by three
    uint16_t unnamed262;
    uint16_t wCustomUnit;   ///< 0 millimetres, 1 inches
    uint16_t wCustomWidth;  ///< tenths of a millimetre
    uint16_t wCustomLength; ///< tenths of a millimetre
    uint8_t unnamed270;
    uint8_t bCmpMode;
    uint32_t unnamed272;
    uint32_t dwDirModePlain;
    uint32_t dwDirModeOther;
    uint16_t unnamed284;
    uint16_t unnamed286;
    uint8_t unnamed288;
    uint8_t reserved289[3];
    uint32_t unnamed292;
    uint8_t unnamed296;
    uint8_t reserved297[7];
    uint8_t bQualityLevel; ///< 0 to 5
    uint8_t reserved305[3];
    uint32_t dwDirChoicePlain;
    uint32_t dwDirChoiceOther;
    uint32_t dwTrayChoice;
    uint32_t dwColorModeOn;
    uint32_t dwMatchingChoice;
    uint8_t bJpegPrint; ///< 2, 0 or 3
    uint8_t reserved329[3];
    float unnamed332;
    uint8_t reserved336[12];
    uint16_t unnamed348;
    uint8_t reserved350[4];
    uint16_t unnamed354;
    uint8_t reserved356[4];
    uint32_t unnamed360;
    uint16_t wGMode;
    uint8_t reserved366[2];
    uint32_t dwPhotoNotice;
    uint16_t wMemorySize;
    uint8_t bTtMode;
    uint8_t unnamed375;
    WCHAR wszCustomName[17]; ///< name of the user-defined paper size
    uint16_t unnamed410;
    uint8_t reserved412[2];
    uint16_t wModelType;
    uint16_t wRegion;          ///< 0 USA, 1 Japan, 2 elsewhere
    uint16_t wMinCustomLength; ///< tenths of a millimetre
    uint16_t wMinCustomWidth;  ///< tenths of a millimetre
    uint8_t bKcDraft;
    uint8_t bBorderless;
    uint8_t bSfQuality;
    uint8_t reserved425[3];
    uint32_t dwDatePrint;
    LOGFONTW lfDateFont;
    uint32_t crDateText;
    uint32_t crDateBack;
    uint16_t wScale; ///< percent; used when bUsePublicScale is 0
    uint8_t reserved534[6];
    uint8_t bFitToPaper; ///< 0 none, 1 fit to wOutputPaper, 2 free scaling by dmScale
    uint8_t reserved541;
    uint16_t wDocumentPaper;
    uint16_t wOutputPaper;
    uint8_t bStatusMonitor;
    uint8_t reserved547;
    uint32_t dwCollate;
    uint32_t dwReverseOrder;
    uint16_t wCustomThickness;
    uint8_t bHiddenPage;
    uint8_t bNoWebLink;
    uint8_t bCollateFromTail;
    uint8_t reserved561[3];
    uint32_t dwFavouriteIndex;
    uint32_t dwNoFavourites;
    uint8_t bUsePublicScale;
    uint8_t bPrintOrderOpt;
    uint8_t reserved574[2];
    uint32_t unnamed576;
    uint16_t wSleepMode;
    uint16_t wWatermarkIndex;
    uint32_t dwSdPaper;
    uint16_t wDuplexFlags; ///< bit 8: duplex printing on
    uint8_t bBindingFlags; ///< bit 0: offset in inches; bit 1: offset on
    uint8_t reserved591;
    uint16_t wBindingOffset; ///< tenths of a millimetre
    uint8_t bBookletFlags;   ///< bit 0: booklet printing
    uint8_t reserved595;
    uint32_t dwSavedNup;

    // Tail block
    WCHAR wszClientProcess[32];
    uint16_t unnamed664;
    uint16_t wTailSize; ///< kTailSize
    uint8_t reserved668[4];
    int32_t dwPagesPerSheet; ///< 1, 2, 4, 9 or 16; -4 and -9 for posters
    uint8_t reserved676;
    uint8_t bPageOrder;
    uint8_t bTailCollate;
    uint8_t unnamed679;
    uint16_t unnamed680;
    int16_t unnamed682;
    uint8_t reserved684[3];
    uint8_t bTailReverse;
    uint16_t unnamed688;
    uint8_t reserved690[2];
    uint32_t dwWatermarkFlags; ///< bit 0: a watermark is printed
    char szWatermarkText[32];  ///< system code page
    uint8_t reserved728[12];
    LOGFONTW lfWatermarkFont;
    uint32_t crWatermark;
    int32_t lWatermarkX; ///< -100 to 100
    int32_t lWatermarkY; ///< -100 to 100
    uint32_t dwWatermarkRop;
    uint8_t reserved848;
    uint8_t bWatermarkOutline;
    uint16_t wWatermarkScale; ///< 25 to 999 percent
    uint32_t dwWatermarkPageMode;
    uint8_t bBorderLine; ///< 0 to 2
    uint8_t reserved857[67];
    uint32_t dwTailDatePrint; ///< copy of dwDatePrint
    LOGFONTW lfTailDateFont;  ///< copy of lfDateFont
    uint32_t crTailDateText;  ///< copy of crDateText
    uint32_t crTailDateBack;  ///< copy of crDateBack
    uint8_t reserved1028[156];
    int16_t shTailDocPaper;
    int16_t shTailOutPaper;
    uint32_t unnamed1188;
    uint8_t reserved1192[396];
    uint8_t bHostFlags; ///< bit 0: the calling application's window class is "FLWApp"
    uint8_t reserved1589[11];
    uint32_t unnamed1600;
    char szLangModule[12]; ///< "VMLANG.DLL"
    uint8_t reserved1616[8];
    uint8_t bTailValid;
    uint8_t reserved1625[3];
    char endMark[4]; ///< kPrivateEndMark
};

struct DriverDevMode
{
    DEVMODEW dmPublic;
    PrivateDevMode dmPrivate;
};

#pragma pack(pop)

static_assert(sizeof(PrivateDevMode) == kPrivateSize && sizeof(DriverDevMode) == kRecordSize);
#define PSUI_AT(field, offset) static_assert(offsetof(PrivateDevMode, field) == (offset))
PSUI_AT(dwSignature, 4);
PSUI_AT(dwOptionFlags, 8);
PSUI_AT(wModelCrc, 116);
PSUI_AT(abFeatureSel, 120);
PSUI_AT(shQuality, 184);
PSUI_AT(wCaptValue, 196);
PSUI_AT(dwStringMask, 208);
PSUI_AT(wMediaClass, 214);
PSUI_AT(shDetailLevel, 224);
PSUI_AT(ashColorAdjust0, 226);
PSUI_AT(ashColorAdjust4, 236);
PSUI_AT(ashColorAdjust6, 240);
PSUI_AT(dwDeviceOptions, 244);
PSUI_AT(bColorMatching, 250);
PSUI_AT(wPoster, 260);
PSUI_AT(wCustomUnit, 264);
PSUI_AT(bCmpMode, 271);
PSUI_AT(dwDirModePlain, 276);
PSUI_AT(unnamed292, 292);
PSUI_AT(bQualityLevel, 304);
PSUI_AT(dwTrayChoice, 316);
PSUI_AT(bJpegPrint, 328);
PSUI_AT(unnamed348, 348);
PSUI_AT(unnamed354, 354);
PSUI_AT(wGMode, 364);
PSUI_AT(wMemorySize, 372);
PSUI_AT(wszCustomName, 376);
PSUI_AT(unnamed410, 410);
PSUI_AT(wModelType, 414);
PSUI_AT(bKcDraft, 422);
PSUI_AT(dwDatePrint, 428);
PSUI_AT(lfDateFont, 432);
PSUI_AT(crDateText, 524);
PSUI_AT(wScale, 532);
PSUI_AT(bFitToPaper, 540);
PSUI_AT(bStatusMonitor, 546);
PSUI_AT(wCustomThickness, 556);
PSUI_AT(dwFavouriteIndex, 564);
PSUI_AT(bUsePublicScale, 572);
PSUI_AT(wSleepMode, 580);
PSUI_AT(wDuplexFlags, 588);
PSUI_AT(bBookletFlags, 594);
PSUI_AT(wszClientProcess, 600);
PSUI_AT(wTailSize, 666);
PSUI_AT(dwPagesPerSheet, 672);
PSUI_AT(bTailCollate, 678);
PSUI_AT(bTailReverse, 687);
PSUI_AT(dwWatermarkFlags, 692);
PSUI_AT(lfWatermarkFont, 740);
PSUI_AT(crWatermark, 832);
PSUI_AT(dwWatermarkRop, 844);
PSUI_AT(wWatermarkScale, 850);
PSUI_AT(bBorderLine, 856);
PSUI_AT(dwTailDatePrint, 924);
PSUI_AT(lfTailDateFont, 928);
PSUI_AT(crTailDateBack, 1024);
PSUI_AT(shTailDocPaper, 1184);
PSUI_AT(unnamed1188, 1188);
PSUI_AT(bHostFlags, 1588);
PSUI_AT(unnamed1600, 1600);
PSUI_AT(szLangModule, 1604);
PSUI_AT(bTailValid, 1624);
PSUI_AT(endMark, 1628);
#undef PSUI_AT

/// wTailOffset of every record: the tail block is its last kTailSize bytes.
constexpr uint16_t kTailOffset = kRecordSize - kTailSize;
static_assert(kTailOffset == kPublicSize + offsetof(PrivateDevMode, wszClientProcess));

} // namespace psui
