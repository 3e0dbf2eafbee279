#pragma once
// The field table of the settings record: one row a field, in record order, covering every byte exactly once.
// Whoever shows, sets, compares or tests fields by name works from these rows. The header needs nothing of
// the library but the record itself.
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>

#include "psui/settings/devmode.h"

namespace psui {

enum class FieldKind : uint8_t
{
    U8,
    U16,
    I16,
    U32,
    I32,
    F32,
    WideText,   ///< UTF-16; ends at a zero or at the end of the field
    NarrowText, ///< 8-bit, system code page; ends at a zero or at the end of the field
    Bytes,
    LogFont, ///< one LOGFONTW
};

/// How people read the number.
enum class FieldStyle : uint8_t
{
    Decimal,
    Hex, ///< bit masks, colours, check sums
};

/// A word for a value, or for one bit of a field of bits. Values of signed fields are sign-extended.
struct FieldWord
{
    uint32_t value;
    const char* word;
};

struct DevModeField
{
    const char* name;
    uint16_t offset; ///< bytes from the start of the whole record
    uint16_t width;  ///< bytes
    FieldKind kind;
    FieldStyle style;
    bool bits; ///< `words` name bits that are combined, not whole values
    std::span<const FieldWord> words;
};

namespace field_words {

inline constexpr FieldWord kFields[] = {
    {DM_ORIENTATION, "orientation"},
    {DM_PAPERSIZE, "papersize"},
    {DM_PAPERLENGTH, "paperlength"},
    {DM_PAPERWIDTH, "paperwidth"},
    {DM_SCALE, "scale"},
    {DM_NUP, "nup"},
    {DM_COPIES, "copies"},
    {DM_DEFAULTSOURCE, "defaultsource"},
    {DM_PRINTQUALITY, "printquality"},
    {DM_COLOR, "color"},
    {DM_DUPLEX, "duplex"},
    {DM_YRESOLUTION, "yresolution"},
    {DM_TTOPTION, "ttoption"},
    {DM_COLLATE, "collate"},
    {DM_FORMNAME, "formname"},
    {DM_ICMMETHOD, "icmmethod"},
    {DM_ICMINTENT, "icmintent"},
    {DM_MEDIATYPE, "mediatype"},
    {DM_DITHERTYPE, "dithertype"},
};
inline constexpr FieldWord kOrientation[] = {{DMORIENT_PORTRAIT, "portrait"},
                                             {DMORIENT_LANDSCAPE, "landscape"}};
inline constexpr FieldWord kSource[] = {
    {DMBIN_UPPER, "tray1"}, {DMBIN_LOWER, "tray2"}, {DMBIN_MANUAL, "manual"}, {DMBIN_AUTO, "automatic"}};
inline constexpr FieldWord kQuality[] = {{static_cast<uint32_t>(DMRES_DRAFT), "draft"},
                                         {static_cast<uint32_t>(DMRES_LOW), "low"},
                                         {static_cast<uint32_t>(DMRES_MEDIUM), "medium"},
                                         {static_cast<uint32_t>(DMRES_HIGH), "high"}};
inline constexpr FieldWord kColor[] = {{DMCOLOR_MONOCHROME, "monochrome"}, {DMCOLOR_COLOR, "colour"}};
inline constexpr FieldWord kDuplex[] = {
    {DMDUP_SIMPLEX, "simplex"}, {DMDUP_VERTICAL, "vertical"}, {DMDUP_HORIZONTAL, "horizontal"}};
inline constexpr FieldWord kOffOn[] = {{0, "off"}, {1, "on"}};
inline constexpr FieldWord kNup[] = {{DMNUP_SYSTEM, "system"}, {DMNUP_ONEUP, "one-up"}};
inline constexpr FieldWord kDeviceOptions[] = {{1, "mirror"}, {2, "reverse"}};
inline constexpr FieldWord kPoster[] = {{1, "none"}, {2, "2x2"}, {3, "3x3"}};
inline constexpr FieldWord kUnit[] = {{0, "millimetres"}, {1, "inches"}};
inline constexpr FieldWord kRegion[] = {{0, "usa"}, {1, "japan"}, {2, "elsewhere"}};
inline constexpr FieldWord kFit[] = {{0, "none"}, {1, "fit"}, {2, "free"}};
inline constexpr FieldWord kDuplexFlags[] = {{0x100, "duplex"}};
inline constexpr FieldWord kBindingFlags[] = {{1, "inches"}, {2, "offset"}};
inline constexpr FieldWord kBooklet[] = {{1, "booklet"}};
inline constexpr FieldWord kWatermark[] = {{1, "printed"}};
inline constexpr FieldWord kRop[] = {{0x008800C6, "and"}, {0x00CC0020, "copy"}};
inline constexpr FieldWord kHost[] = {{1, "flwapp"}};

} // namespace field_words

// Offsets and widths come from the record; the row adds the kind. A row without further arguments is decimal
// and has no words.
#define PSUI_PUBLIC(field, kind, style, bits, ...)                                                           \
    DevModeField                                                                                             \
    {                                                                                                        \
#field, offsetof(DEVMODEW, field), sizeof(DEVMODEW::field), FieldKind::kind, FieldStyle::style,      \
            bits, std::span < const FieldWord>(__VA_ARGS__)                                                  \
    }
#define PSUI_PRIVATE(field, kind, style, bits, ...)                                                          \
    DevModeField                                                                                             \
    {                                                                                                        \
#field, kPublicSize + offsetof(PrivateDevMode, field), sizeof(PrivateDevMode::field),                \
            FieldKind::kind, FieldStyle::style, bits, std::span < const FieldWord>(__VA_ARGS__)              \
    }
#define PSUI_NUMBER(field, kind)              PSUI_PRIVATE(field, kind, Decimal, false)
#define PSUI_HEX(field, kind)                 PSUI_PRIVATE(field, kind, Hex, false)
#define PSUI_WORDS(field, kind, words)        PSUI_PRIVATE(field, kind, Decimal, false, field_words::words)
#define PSUI_BITS(field, kind, words)         PSUI_PRIVATE(field, kind, Hex, true, field_words::words)
#define PSUI_RESERVED(field)                  PSUI_PRIVATE(field, Bytes, Hex, false)
#define PSUI_PUBLIC_NUMBER(field, kind)       PSUI_PUBLIC(field, kind, Decimal, false)
#define PSUI_PUBLIC_WORDS(field, kind, words) PSUI_PUBLIC(field, kind, Decimal, false, field_words::words)
#define PSUI_ADJUST(number, first, index)                                                                    \
    DevModeField                                                                                             \
    {                                                                                                        \
        "ashColorAdjust" #number, kPublicSize + offsetof(PrivateDevMode, first) + 2 * (index), 2,            \
            FieldKind::I16, FieldStyle::Decimal, false, std::span<const FieldWord>()                         \
    }

inline constexpr DevModeField kDevModeFields[] = {
    PSUI_PUBLIC_NUMBER(dmDeviceName, WideText),
    PSUI_PUBLIC(dmSpecVersion, U16, Hex, false),
    PSUI_PUBLIC_NUMBER(dmDriverVersion, U16),
    PSUI_PUBLIC_NUMBER(dmSize, U16),
    PSUI_PUBLIC_NUMBER(dmDriverExtra, U16),
    PSUI_PUBLIC(dmFields, U32, Hex, true, field_words::kFields),
    PSUI_PUBLIC_WORDS(dmOrientation, I16, kOrientation),
    PSUI_PUBLIC_NUMBER(dmPaperSize, I16),
    PSUI_PUBLIC_NUMBER(dmPaperLength, I16),
    PSUI_PUBLIC_NUMBER(dmPaperWidth, I16),
    PSUI_PUBLIC_NUMBER(dmScale, I16),
    PSUI_PUBLIC_NUMBER(dmCopies, I16),
    PSUI_PUBLIC_WORDS(dmDefaultSource, I16, kSource),
    PSUI_PUBLIC_WORDS(dmPrintQuality, I16, kQuality),
    PSUI_PUBLIC_WORDS(dmColor, I16, kColor),
    PSUI_PUBLIC_WORDS(dmDuplex, I16, kDuplex),
    PSUI_PUBLIC_NUMBER(dmYResolution, I16),
    PSUI_PUBLIC_NUMBER(dmTTOption, I16),
    PSUI_PUBLIC_WORDS(dmCollate, I16, kOffOn),
    PSUI_PUBLIC_NUMBER(dmFormName, WideText),
    PSUI_PUBLIC_NUMBER(dmLogPixels, U16),
    PSUI_PUBLIC_NUMBER(dmBitsPerPel, U32),
    PSUI_PUBLIC_NUMBER(dmPelsWidth, U32),
    PSUI_PUBLIC_NUMBER(dmPelsHeight, U32),
    PSUI_PUBLIC_WORDS(dmNup, U32, kNup),
    PSUI_PUBLIC_NUMBER(dmDisplayFrequency, U32),
    PSUI_PUBLIC_NUMBER(dmICMMethod, U32),
    PSUI_PUBLIC_NUMBER(dmICMIntent, U32),
    PSUI_PUBLIC_NUMBER(dmMediaType, U32),
    PSUI_PUBLIC_NUMBER(dmDitherType, U32),
    PSUI_PUBLIC_NUMBER(dmReserved1, U32),
    PSUI_PUBLIC_NUMBER(dmReserved2, U32),
    PSUI_PUBLIC_NUMBER(dmPanningWidth, U32),
    PSUI_PUBLIC_NUMBER(dmPanningHeight, U32),

    PSUI_NUMBER(wTailOffset, U16),
    PSUI_RESERVED(reserved2),
    PSUI_NUMBER(dwSignature, NarrowText),
    PSUI_HEX(dwOptionFlags, U32),
    PSUI_RESERVED(reserved12),
    PSUI_HEX(wModelCrc, U16),
    PSUI_NUMBER(wFeatureCount, U16),
    PSUI_HEX(abFeatureSel, Bytes),
    PSUI_WORDS(shQuality, I16, kQuality),
    PSUI_NUMBER(wMultiPageMode, U16),
    PSUI_HEX(wTonerSave, U16),
    PSUI_NUMBER(wMediaValue, U16),
    PSUI_NUMBER(wHrcValue, U16),
    PSUI_NUMBER(wPageProtectValue, U16),
    PSUI_NUMBER(wCaptValue, U16),
    PSUI_RESERVED(reserved198),
    PSUI_HEX(dwStringMask, U32),
    PSUI_NUMBER(wThickness, U16),
    PSUI_NUMBER(wMediaClass, U16),
    PSUI_WORDS(dwColorAdjust, U32, kOffOn),
    PSUI_NUMBER(dwCustomColor, U32),
    PSUI_NUMBER(shDetailLevel, I16),
    PSUI_ADJUST(0, ashColorAdjust0, 0),
    PSUI_ADJUST(1, ashColorAdjust0, 1),
    PSUI_ADJUST(2, ashColorAdjust0, 2),
    PSUI_ADJUST(3, ashColorAdjust0, 3),
    PSUI_RESERVED(reserved234),
    PSUI_ADJUST(4, ashColorAdjust4, 0),
    PSUI_ADJUST(5, ashColorAdjust4, 1),
    PSUI_NUMBER(ashColorAdjust6, I16),
    PSUI_RESERVED(reserved242),
    PSUI_BITS(dwDeviceOptions, U32, kDeviceOptions),
    PSUI_NUMBER(bDocType, U8),
    PSUI_NUMBER(bColorHalftone, U8),
    PSUI_NUMBER(bColorMatching, U8),
    PSUI_RESERVED(reserved251),
    PSUI_WORDS(wPoster, U16, kPoster),
    PSUI_NUMBER(unnamed262, U16),
    PSUI_WORDS(wCustomUnit, U16, kUnit),
    PSUI_NUMBER(wCustomWidth, U16),
    PSUI_NUMBER(wCustomLength, U16),
    PSUI_NUMBER(unnamed270, U8),
    PSUI_NUMBER(bCmpMode, U8),
    PSUI_NUMBER(unnamed272, U32),
    PSUI_NUMBER(dwDirModePlain, U32),
    PSUI_NUMBER(dwDirModeOther, U32),
    PSUI_NUMBER(unnamed284, U16),
    PSUI_NUMBER(unnamed286, U16),
    PSUI_NUMBER(unnamed288, U8),
    PSUI_RESERVED(reserved289),
    PSUI_NUMBER(unnamed292, U32),
    PSUI_NUMBER(unnamed296, U8),
    PSUI_RESERVED(reserved297),
    PSUI_NUMBER(bQualityLevel, U8),
    PSUI_RESERVED(reserved305),
    PSUI_NUMBER(dwDirChoicePlain, U32),
    PSUI_NUMBER(dwDirChoiceOther, U32),
    PSUI_WORDS(dwTrayChoice, U32, kOffOn),
    PSUI_WORDS(dwColorModeOn, U32, kOffOn),
    PSUI_NUMBER(dwMatchingChoice, U32),
    PSUI_NUMBER(bJpegPrint, U8),
    PSUI_RESERVED(reserved329),
    PSUI_NUMBER(unnamed332, F32),
    PSUI_RESERVED(reserved336),
    PSUI_NUMBER(unnamed348, U16),
    PSUI_RESERVED(reserved350),
    PSUI_NUMBER(unnamed354, U16),
    PSUI_RESERVED(reserved356),
    PSUI_NUMBER(unnamed360, U32),
    PSUI_NUMBER(wGMode, U16),
    PSUI_RESERVED(reserved366),
    PSUI_WORDS(dwPhotoNotice, U32, kOffOn),
    PSUI_NUMBER(wMemorySize, U16),
    PSUI_NUMBER(bTtMode, U8),
    PSUI_NUMBER(unnamed375, U8),
    PSUI_NUMBER(wszCustomName, WideText),
    PSUI_NUMBER(unnamed410, U16),
    PSUI_RESERVED(reserved412),
    PSUI_HEX(wModelType, U16),
    PSUI_WORDS(wRegion, U16, kRegion),
    PSUI_NUMBER(wMinCustomLength, U16),
    PSUI_NUMBER(wMinCustomWidth, U16),
    PSUI_NUMBER(bKcDraft, U8),
    PSUI_WORDS(bBorderless, U8, kOffOn),
    PSUI_NUMBER(bSfQuality, U8),
    PSUI_RESERVED(reserved425),
    PSUI_HEX(dwDatePrint, U32),
    PSUI_NUMBER(lfDateFont, LogFont),
    PSUI_HEX(crDateText, U32),
    PSUI_HEX(crDateBack, U32),
    PSUI_NUMBER(wScale, U16),
    PSUI_RESERVED(reserved534),
    PSUI_WORDS(bFitToPaper, U8, kFit),
    PSUI_RESERVED(reserved541),
    PSUI_NUMBER(wDocumentPaper, U16),
    PSUI_NUMBER(wOutputPaper, U16),
    PSUI_WORDS(bStatusMonitor, U8, kOffOn),
    PSUI_RESERVED(reserved547),
    PSUI_WORDS(dwCollate, U32, kOffOn),
    PSUI_WORDS(dwReverseOrder, U32, kOffOn),
    PSUI_NUMBER(wCustomThickness, U16),
    PSUI_HEX(bHiddenPage, U8),
    PSUI_WORDS(bNoWebLink, U8, kOffOn),
    PSUI_WORDS(bCollateFromTail, U8, kOffOn),
    PSUI_RESERVED(reserved561),
    PSUI_NUMBER(dwFavouriteIndex, U32),
    PSUI_WORDS(dwNoFavourites, U32, kOffOn),
    PSUI_WORDS(bUsePublicScale, U8, kOffOn),
    PSUI_NUMBER(bPrintOrderOpt, U8),
    PSUI_RESERVED(reserved574),
    PSUI_NUMBER(unnamed576, U32),
    PSUI_NUMBER(wSleepMode, U16),
    PSUI_NUMBER(wWatermarkIndex, U16),
    PSUI_WORDS(dwSdPaper, U32, kOffOn),
    PSUI_BITS(wDuplexFlags, U16, kDuplexFlags),
    PSUI_BITS(bBindingFlags, U8, kBindingFlags),
    PSUI_RESERVED(reserved591),
    PSUI_NUMBER(wBindingOffset, U16),
    PSUI_BITS(bBookletFlags, U8, kBooklet),
    PSUI_RESERVED(reserved595),
    PSUI_NUMBER(dwSavedNup, U32),

    PSUI_NUMBER(wszClientProcess, WideText),
    PSUI_NUMBER(unnamed664, U16),
    PSUI_NUMBER(wTailSize, U16),
    PSUI_RESERVED(reserved668),
    PSUI_NUMBER(dwPagesPerSheet, I32),
    PSUI_RESERVED(reserved676),
    PSUI_NUMBER(bPageOrder, U8),
    PSUI_WORDS(bTailCollate, U8, kOffOn),
    PSUI_NUMBER(unnamed679, U8),
    PSUI_NUMBER(unnamed680, U16),
    PSUI_NUMBER(unnamed682, I16),
    PSUI_RESERVED(reserved684),
    PSUI_NUMBER(bTailReverse, U8),
    PSUI_NUMBER(unnamed688, U16),
    PSUI_RESERVED(reserved690),
    PSUI_BITS(dwWatermarkFlags, U32, kWatermark),
    PSUI_NUMBER(szWatermarkText, NarrowText),
    PSUI_RESERVED(reserved728),
    PSUI_NUMBER(lfWatermarkFont, LogFont),
    PSUI_HEX(crWatermark, U32),
    PSUI_NUMBER(lWatermarkX, I32),
    PSUI_NUMBER(lWatermarkY, I32),
    PSUI_PRIVATE(dwWatermarkRop, U32, Hex, false, field_words::kRop),
    PSUI_RESERVED(reserved848),
    PSUI_WORDS(bWatermarkOutline, U8, kOffOn),
    PSUI_NUMBER(wWatermarkScale, U16),
    PSUI_NUMBER(dwWatermarkPageMode, U32),
    PSUI_NUMBER(bBorderLine, U8),
    PSUI_RESERVED(reserved857),
    PSUI_HEX(dwTailDatePrint, U32),
    PSUI_NUMBER(lfTailDateFont, LogFont),
    PSUI_HEX(crTailDateText, U32),
    PSUI_HEX(crTailDateBack, U32),
    PSUI_RESERVED(reserved1028),
    PSUI_NUMBER(shTailDocPaper, I16),
    PSUI_NUMBER(shTailOutPaper, I16),
    PSUI_NUMBER(unnamed1188, U32),
    PSUI_RESERVED(reserved1192),
    PSUI_BITS(bHostFlags, U8, kHost),
    PSUI_RESERVED(reserved1589),
    PSUI_NUMBER(unnamed1600, U32),
    PSUI_NUMBER(szLangModule, NarrowText),
    PSUI_RESERVED(reserved1616),
    PSUI_NUMBER(bTailValid, U8),
    PSUI_RESERVED(reserved1625),
    PSUI_NUMBER(endMark, NarrowText),
};

#undef PSUI_ADJUST
#undef PSUI_PUBLIC_WORDS
#undef PSUI_PUBLIC_NUMBER
#undef PSUI_RESERVED
#undef PSUI_BITS
#undef PSUI_WORDS
#undef PSUI_HEX
#undef PSUI_NUMBER
#undef PSUI_PRIVATE
#undef PSUI_PUBLIC

/// Bytes of a number or font of that kind; 0 for texts and bytes, whose width is the field's own.
constexpr size_t FixedWidthOf(FieldKind kind)
{
    switch (kind) {
    case FieldKind::U8:
        return 1;
    case FieldKind::U16:
    case FieldKind::I16:
        return 2;
    case FieldKind::U32:
    case FieldKind::I32:
    case FieldKind::F32:
        return 4;
    case FieldKind::LogFont:
        return sizeof(LOGFONTW);
    default:
        return 0;
    }
}

constexpr bool FieldTableIsSound()
{
    size_t end = 0;
    for (const DevModeField& field : kDevModeFields) {
        const size_t fixed = FixedWidthOf(field.kind);
        if (field.offset != end || (fixed != 0 && field.width != fixed))
            return false;
        end += field.width;
    }
    return end == kRecordSize;
}
static_assert(FieldTableIsSound(), "every byte of the record belongs to exactly one row");

} // namespace psui
