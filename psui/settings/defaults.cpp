#include <cstring>

#include "lang/ids/strings.h"
#include "psui/base/module.h"
#include "psui/model/queries.h"
#include "psui/res/ids.h"
#include "psui/settings/environment.h"
#include "psui/settings/language.h"
#include "psui/settings/record.h"
#include "psui/settings/tail.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr uint16_t kModelTypeBits = 0x031F; // bits 0-4, 8 and 9
constexpr uint32_t kMostStringSets = 9;
constexpr uint32_t kStringSetStep = 1000;
constexpr uint32_t kListItemForDefaults = 2; // third item of the SleepMode and MemorySize lists

/// What a country's usual paper brings with it. Lengths in tenths of a millimetre.
struct HomePaper
{
    short paper;
    const WCHAR* form;
    uint16_t unit;
    uint16_t width;
    uint16_t length;
    uint8_t bindingFlags;
};
constexpr HomePaper kMetricPaper = {DMPAPER_A4, TEXT("A4"), 0, 2100, 2970, 0};
constexpr HomePaper kLetterPaper = {DMPAPER_LETTER, TEXT("Letter"), 1, 2159, 2794, 1};

uint16_t RegionOfLanguage()
{
    WCHAR region[256];
    if (LoadLanguageString(IDS_REGION, region, std::size(region)) == 0 || EqualNoCase(region, TEXT("USA")))
        return 0;
    return EqualNoCase(region, TEXT("JPN")) ? 1 : 2;
}

uint32_t FindStringSets()
{
    uint32_t mask = 0;
    for (uint32_t set = 0; set < kMostStringSets; ++set) {
        WCHAR text[2];
        if (LoadStringW(hOwnModule, IDS_STRING_SET + set * kStringSetStep, text, std::size(text)) > 0)
            mask |= 1u << set;
    }
    return mask;
}

uint32_t StringSetMask()
{
    static const uint32_t mask = FindStringSets(); // the library's own strings do not change
    return mask;
}

void FillIdentity(DriverDevMode* record, const ModelDescription* model)
{
    DEVMODEW& pub = record->dmPublic;
    pub.dmSpecVersion = kSpecVersion;
    pub.dmDriverVersion = kDriverVersion;
    pub.dmSize = kPublicSize;
    pub.dmDriverExtra = kPrivateSize;

    PrivateDevMode& priv = record->dmPrivate;
    priv.wTailOffset = kTailOffset;
    std::memcpy(priv.dwSignature, kPrivateSignature, sizeof(priv.dwSignature));
    priv.wModelType = static_cast<uint16_t>(model->modelType & kModelTypeBits);
    priv.wRegion = RegionOfLanguage();
    priv.wMinCustomLength = 1270;
    priv.wMinCustomWidth = 889;
}

void FillPublic(DEVMODEW& pub, const ModelDescription* model, const HomePaper& home)
{
    pub.dmFields = DM_ORIENTATION | DM_PAPERSIZE | DM_DEFAULTSOURCE | DM_COLOR | DM_FORMNAME | DM_MEDIATYPE;
    if (DuplexAvailable(model))
        pub.dmFields |= DM_DUPLEX;
    if (IsHubPrintProcessor(pub.dmDeviceName) || IsWinPrintProcessor(pub.dmDeviceName)) {
        pub.dmFields |= DM_COPIES | DM_COLLATE;
        pub.dmNup = DMNUP_ONEUP;
    }
    pub.dmOrientation = DMORIENT_PORTRAIT;
    pub.dmPaperSize = home.paper;
    pub.dmPaperLength = static_cast<short>(home.length);
    pub.dmPaperWidth = static_cast<short>(home.width);
    CopyWide(pub.dmFormName, home.form, CCHFORMNAME);
    pub.dmScale = 100;
    pub.dmCopies = 1;
    pub.dmDefaultSource = static_cast<short>(FeatureDefaultValue(model, kFeatureTray));
    pub.dmPrintQuality = DMRES_MEDIUM;
    pub.dmColor = static_cast<short>(FeatureDefaultValue(model, kFeatureColor));
    pub.dmDuplex = DMDUP_SIMPLEX;
    pub.dmTTOption = DMTT_SUBDEV;
    pub.dmCollate = DMCOLLATE_FALSE;
    pub.dmICMMethod = DMICMMETHOD_NONE;
    pub.dmICMIntent = DMICM_COLORIMETRIC;
    pub.dmMediaType = FeatureDefaultValue(model, kFeatureMediaType);
    pub.dmDitherType = DMDITHER_NONE;
}

void FillModelDefaults(PrivateDevMode& priv, const ModelDescription* model)
{
    const auto byteOf = [=](FeatureIndex feature) {
        return static_cast<uint8_t>(FeatureDefaultValue(model, feature));
    };
    priv.wModelCrc = model->sourceCrc;
    priv.wFeatureCount = DocumentFeatureDefaults(model, priv.abFeatureSel);
    priv.wMediaValue = FeatureDefaultValue(model, kFeatureMediaType);
    priv.wHrcValue = FeatureDefaultValue(model, kFeatureHrc);
    priv.wPageProtectValue = FeatureDefaultValue(model, kFeaturePageProtect);
    priv.wCaptValue = FeatureDefaultValue(model, kFeatureCapt);
    priv.wThickness = FeatureDefaultValue(model, kFeatureThickness);
    priv.wCustomThickness = priv.wThickness;
    priv.bDocType = byteOf(kFeatureDocType);
    priv.bColorHalftone = byteOf(kFeatureCHalftone);
    priv.bColorMatching = byteOf(kFeatureCm);
    priv.bCmpMode = byteOf(kFeatureCmpMode);
    priv.dwDirModePlain = FeatureDefaultValue(model, kFeatureDirMode);
    priv.dwTrayChoice = TrayHasChoice(model);
    priv.wGMode = FeatureDefaultValue(model, kFeatureGMode);
    priv.wMemorySize = MemorySizeListItem(model, kListItemForDefaults);
    priv.bTtMode = byteOf(kFeatureTtMode);
    priv.bKcDraft = byteOf(kFeatureKcDraft);
    priv.bBorderless = byteOf(kFeaturePrtArea);
    priv.bSfQuality = byteOf(kFeatureSfQuality);
    priv.wSleepMode = SleepModeListItem(model, kListItemForDefaults);
    const uint16_t pages = FeatureDefaultValue(model, kFeatureMultiplePage);
    priv.dwPagesPerSheet = pages == 0 ? 1 : pages;
}

void FillPrivateConstants(PrivateDevMode& priv, const HomePaper& home)
{
    priv.dwOptionFlags = 0x2000;
    priv.shQuality = DMRES_MEDIUM;
    priv.dwStringMask = StringSetMask();
    priv.wPoster = 1;
    priv.unnamed262 = 3;
    priv.wCustomUnit = home.unit;
    priv.wCustomWidth = home.width;
    priv.wCustomLength = home.length;
    priv.unnamed270 = 2;
    priv.unnamed272 = 1;
    priv.unnamed284 = 0x201;
    priv.unnamed286 = 500;
    priv.unnamed288 = 1;
    priv.unnamed292 = 1;
    priv.unnamed296 = 2;
    priv.bQualityLevel = 2;
    priv.dwDirChoicePlain = 1;
    priv.dwColorModeOn = 1;
    priv.dwMatchingChoice = 1;
    priv.bJpegPrint = 2;
    priv.unnamed332 = 0.5f;
    priv.unnamed348 = 33;
    priv.unnamed354 = 500;
    priv.unnamed360 = 1;
    priv.dwPhotoNotice = 1;
    priv.unnamed410 = 500;
    priv.dwDatePrint = 6;
    priv.crDateBack = 0xFFFFFF;
    priv.wScale = 100;
    priv.wDocumentPaper = static_cast<uint16_t>(home.paper);
    priv.wOutputPaper = static_cast<uint16_t>(home.paper);
    priv.dwNoFavourites = IsJapaneseLanguage() ? 0 : 1;
    priv.unnamed576 = 3;
    priv.bBindingFlags = home.bindingFlags;
    priv.dwSavedNup = 1;
}

void FillDateFont(LOGFONTW& font)
{
    font.lfHeight = -11;
    font.lfCharSet = DEFAULT_CHARSET;
    if (LoadLanguageString(IDS_DATE_FONT, font.lfFaceName, LF_FACESIZE) == 0)
        CopyWide(font.lfFaceName, TEXT("Arial"), LF_FACESIZE);
}

void FillTail(PrivateDevMode& priv)
{
    constexpr char kLangModuleName[] = "VMLANG.DLL";
    CopyWide(priv.wszClientProcess, kClientProcess, std::size(priv.wszClientProcess));
    priv.unnamed664 = 8;
    priv.wTailSize = kTailSize;
    priv.unnamed679 = 1;
    priv.unnamed680 = 1;
    priv.unnamed682 = -1;
    priv.unnamed688 = 90;
    priv.dwWatermarkRop = 0x008800C6;
    priv.wWatermarkScale = 100;
    priv.crTailDateBack = 0xFFFFFF;
    priv.shTailDocPaper = -1;
    priv.shTailOutPaper = -1;
    priv.unnamed1188 = 100;
    priv.unnamed1600 = 1;
    std::memcpy(priv.szLangModule, kLangModuleName, sizeof(kLangModuleName));
    priv.bTailValid = 1;
    std::memcpy(priv.endMark, kPrivateEndMark, sizeof(priv.endMark));
}

} // namespace

int BuildDefaultDevMode(DriverDevMode* record, const WCHAR* driverName, const ModelDescription* model,
                        bool metric)
{
    const HomePaper& home = metric ? kMetricPaper : kLetterPaper;
    alignas(DEVMODEW) DriverDevMode built = {};
    if (driverName)
        CopyWide(built.dmPublic.dmDeviceName, driverName, CCHDEVICENAME);
    FillIdentity(&built, model);
    FillPublic(built.dmPublic, model, home);
    FillModelDefaults(built.dmPrivate, model);
    FillPrivateConstants(built.dmPrivate, home);
    FillDateFont(built.dmPrivate.lfDateFont);
    FillTail(built.dmPrivate);
    std::memcpy(record, &built, sizeof(built));
    return 1;
}

} // namespace psui
