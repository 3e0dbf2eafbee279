#include "psui/model/keywords.h"

#include <iterator>

#include "psui/model/names.h"

namespace psui::compiler {

namespace {

constexpr uint32_t kNoFixedFeature = kFeatureGeneric;
constexpr KeywordEntry kKeywords[] = {
    {"Include", Ignore, kNoFixedFeature | kQuotedOrBareValue | kRepeatable},
    {"ColorDevice", RecordTruth<&ModelDescription::colorDevice>, kNoFixedFeature | kBareValue},
    {"Protocols", RecordProtocols, kNoFixedFeature | kBareValue | kRepeatable},
    {"NickName", RecordDecodedText<kTextNickName>, kNoFixedFeature | kQuotedOrBareValue},
    {"LanguageLevel", RecordInteger<&ModelDescription::languageLevel>, kNoFixedFeature | kQuotedOrBareValue},
    {"LanguageEncoding", RecordLanguageEncoding, kNoFixedFeature | kBareValue},
    {"LanguageVersion", RecordLanguageVersion, kNoFixedFeature | kBareValue},
    {"TTRasterizer", RecordRasterizer, kNoFixedFeature | kBareValue},
    {"ExitServer", RecordText<kTextExitServer>, kNoFixedFeature | kQuotedValue},
    {"Password", RecordText<kTextPassword>, kNoFixedFeature | kQuotedValue},
    {"SuggestedJobTimeout", RecordInteger<&ModelDescription::jobTimeout>,
     kNoFixedFeature | kQuotedOrBareValue},
    {"SuggestedWaitTimeout", RecordInteger<&ModelDescription::waitTimeout>,
     kNoFixedFeature | kQuotedOrBareValue},
    {"PrintPSError", RecordTruth<&ModelDescription::printPsError>, kNoFixedFeature | kBareValue},
    {"JCLBegin", RecordDecodedText<kTextJclBegin>, kNoFixedFeature | kQuotedOrBareValue},
    {"JCLToPSInterpreter", RecordDecodedText<kTextJclToPsInterpreter>, kNoFixedFeature | kQuotedOrBareValue},
    {"JCLEnd", RecordDecodedText<kTextJclEnd>, kNoFixedFeature | kQuotedOrBareValue},
    {"LandscapeOrientation", RecordLandscapeOrientation, kNoFixedFeature | kBareValue},
    {"Font", RecordFont, kNoFixedFeature | kQuotedOrBareValue | kTakesOption},
    {"CustomPageSize", RecordCustomPageSize, kNoFixedFeature | kQuotedValue | kTakesOption},
    {"ParamCustomPageSize", RecordCustomPageParam, kNoFixedFeature | kBareValue | kTakesOption},
    {"MaxMediaWidth", RecordReal<&ModelDescription::maxMediaWidth>, kNoFixedFeature | kQuotedOrBareValue},
    {"MaxMediaHeight", RecordReal<&ModelDescription::maxMediaHeight>, kNoFixedFeature | kQuotedOrBareValue},
    {"HWMargins", RecordHwMargins, kNoFixedFeature | kBareValue},
    {"PageSize", RecordOption<kFeaturePageSize>, kFeaturePageSize | kQuotedValue | kTakesOption},
    {"DefaultPageSize", RecordDefault, kNoFixedFeature | kBareValue},
    {"PageRegion", RecordPageRegion, kFeaturePageSize | kQuotedValue | kTakesOption},
    {"ImageableArea", RecordImageableArea, kFeaturePageSize | kQuotedValue | kTakesOption},
    {"PaperDimension", RecordPaperDimension, kFeaturePageSize | kQuotedValue | kTakesOption},
    {"InputSlot", RecordInputSlot, kFeatureInputSlot | kQuotedValue | kTakesOption},
    {"DefaultInputSlot", RecordDefault, kNoFixedFeature | kBareValue},
    {"RequiresPageRegion", RecordRequiresPageRegion, kFeatureInputSlot | kBareValue | kTakesOption},
    {"Collate", RecordBlockOption<kFeatureCollate>, kNoFixedFeature | kQuotedValue | kTakesOption},
    {"DefaultCollate", RecordDefault, kNoFixedFeature | kBareValue},
    {"Duplex", RecordBlockOption<kFeatureDuplex>, kNoFixedFeature | kQuotedValue | kTakesOption},
    {"DefaultDuplex", RecordDefault, kNoFixedFeature | kBareValue},
    {"ManualFeed", RecordBlockOption<kFeatureManualFeed>, kNoFixedFeature | kQuotedValue | kTakesOption},
    {"DefaultManualFeed", RecordDefault, kNoFixedFeature | kBareValue},
    {"Resolution", RecordResolution, kFeatureResolution | kQuotedValue | kTakesOption},
    {"JCLResolution", RecordJclResolution, kFeatureResolution | kQuotedOrBareValue | kTakesOption},
    {"DefaultResolution", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultJCLResolution", RecordDefaultJclResolution, kNoFixedFeature | kBareValue},
    {"SetResolution", RecordSetResolution, kFeatureResolution | kQuotedValue | kTakesOption},
    {"ScreenAngle", RecordReal<&ModelDescription::screenAngle>, kNoFixedFeature | kQuotedOrBareValue},
    {"ScreenFreq", RecordReal<&ModelDescription::screenFreq>, kNoFixedFeature | kQuotedOrBareValue},
    {"ResScreenAngle", RecordResScreenAngle, kNoFixedFeature | kQuotedOrBareValue | kTakesOption},
    {"ResScreenFreq", RecordResScreenFreq, kNoFixedFeature | kQuotedOrBareValue | kTakesOption},
    {"FreeVM", RecordInteger<&ModelDescription::freeVm>, kNoFixedFeature | kQuotedOrBareValue},
    {"InstalledMemory", RecordMemory, kFeatureVmOption | kQuotedValue | kTakesOption},
    {"DefaultInstalledMemory", RecordDefault, kNoFixedFeature | kBareValue},
    {"VMOption", RecordMemory, kFeatureVmOption | kQuotedOrBareValue | kTakesOption},
    {"OpenGroup", OpenGroup, kNoFixedFeature | kBareValue | kRepeatable},
    {"CloseGroup", CloseGroup, kNoFixedFeature | kBareValue | kRepeatable},
    {"OpenUI", OpenUi, kNoFixedFeature | kBareValue | kTakesOption},
    {"CloseUI", CloseUi, kNoFixedFeature | kBareValue | kRepeatable},
    {"JCLOpenUI", JclOpenUi, kNoFixedFeature | kBareValue | kTakesOption},
    {"JCLCloseUI", CloseUi, kNoFixedFeature | kBareValue | kRepeatable},
    {"OrderDependency", RecordOrderDependency, kNoFixedFeature | kBareValue | kRepeatable},
    {"UIConstraints", RecordConstraint, kNoFixedFeature | kBareValue | kRepeatable},
    {"Extensions", RecordExtensions, kNoFixedFeature | kBareValue | kRepeatable},
    {"End", Ignore, kNoFixedFeature | kRepeatable},
    {"JCLRes", Ignore, kNoFixedFeature | kQuotedOrBareValue | kTakesOption},
    {"PrinterCaps", RecordInteger<&ModelDescription::printerCaps>, kNoFixedFeature | kQuotedOrBareValue},
    {"SleepMode", RecordText<kTextSleepModeList>, kNoFixedFeature | kQuotedOrBareValue | kTakesOption},
    {"MediaType", RecordOption<kFeatureMediaType>, kFeatureMediaType | kQuotedValue | kTakesOption},
    {"MultiplePage", RecordOption<kFeatureMultiplePage>, kFeatureMultiplePage | kQuotedValue | kTakesOption},
    {"TonerSaveMode", RecordOption<kFeatureTonerSaveMode>,
     kFeatureTonerSaveMode | kQuotedValue | kTakesOption},
    {"PageProtect", RecordOption<kFeaturePageProtect>, kFeaturePageProtect | kQuotedValue | kTakesOption},
    {"HRC", RecordOption<kFeatureHrc>, kFeatureHrc | kQuotedValue | kTakesOption},
    {"Paper", RecordOption<kFeaturePaper>, kFeaturePaper | kQuotedValue | kTakesOption},
    {"Tray", RecordOption<kFeatureTray>, kFeatureTray | kQuotedValue | kTakesOption},
    {"Quality", RecordOption<kFeatureQuality>, kFeatureQuality | kQuotedValue | kTakesOption},
    {"CM", RecordOption<kFeatureCm>, kFeatureCm | kQuotedValue | kTakesOption},
    {"ICM", RecordOption<kFeatureIcm>, kFeatureIcm | kQuotedValue | kTakesOption},
    {"CAPT", RecordOption<kFeatureCapt>, kFeatureCapt | kQuotedValue | kTakesOption},
    {"COLOR", RecordOption<kFeatureColor>, kFeatureColor | kQuotedValue | kTakesOption},
    {"CHALFTONE", RecordOption<kFeatureCHalftone>, kFeatureCHalftone | kQuotedValue | kTakesOption},
    {"MHALFTONE", RecordOption<kFeatureMHalftone>, kFeatureMHalftone | kQuotedValue | kTakesOption},
    {"DOCTYPE", RecordOption<kFeatureDocType>, kFeatureDocType | kQuotedValue | kTakesOption},
    {"USEDF", RecordOption<kFeatureUseDf>, kFeatureUseDf | kQuotedValue | kTakesOption},
    {"TTMODE", RecordOption<kFeatureTtMode>, kFeatureTtMode | kQuotedValue | kTakesOption},
    {"CMPMODE", RecordOption<kFeatureCmpMode>, kFeatureCmpMode | kQuotedValue | kTakesOption},
    {"GMODE", RecordOption<kFeatureGMode>, kFeatureGMode | kQuotedValue | kTakesOption},
    {"DIRMODE", RecordOption<kFeatureDirMode>, kFeatureDirMode | kQuotedValue | kTakesOption},
    {"Thickness", RecordOption<kFeatureThickness>, kFeatureThickness | kQuotedValue | kTakesOption},
    {"INTERLACE", RecordOption<kFeatureInterlace>, kFeatureInterlace | kQuotedValue | kTakesOption},
    {"KCDraft", RecordOption<kFeatureKcDraft>, kFeatureKcDraft | kQuotedValue | kTakesOption},
    {"SFQuality", RecordOption<kFeatureSfQuality>, kFeatureSfQuality | kQuotedValue | kTakesOption},
    {"PrtArea", RecordOption<kFeaturePrtArea>, kFeaturePrtArea | kQuotedValue | kTakesOption},
    {"ModelType", RecordInteger<&ModelDescription::modelType>, kNoFixedFeature | kQuotedOrBareValue},
    {"MemorySize", RecordText<kTextMemorySizeList>, kNoFixedFeature | kQuotedOrBareValue | kTakesOption},
    {"PrintRatePPM", RecordInteger<&ModelDescription::printRatePpm>, kNoFixedFeature | kQuotedOrBareValue},
    {"DefaultMediaType", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultMultiplePage", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultTonerSaveMode", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultPageProtect", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultHRC", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultPaper", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultTray", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultQuality", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultCM", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultICM", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultCAPT", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultCOLOR", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultCHALFTONE", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultMHALFTONE", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultDOCTYPE", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultUSEDF", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultTTMODE", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultCMPMODE", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultGMODE", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultDIRMODE", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultThickness", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultKCDraft", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultSFQuality", RecordDefault, kNoFixedFeature | kBareValue},
    {"DefaultPrtArea", RecordDefault, kNoFixedFeature | kBareValue},
    {"PageSizeL", RecordPageSizeL, kFeaturePageSize | kQuotedValue | kTakesOption},
    {"DefaultPageSizeL", RecordDefault, kNoFixedFeature | kBareValue},
    {"ImageableAreaL", RecordImageableAreaL, kFeaturePageSize | kQuotedValue | kTakesOption},
    {"FileVersion", RecordReal<&ModelDescription::fileVersion>, kNoFixedFeature | kQuotedOrBareValue},
};
static_assert(std::size(kKeywords) == kKeywordCount);

constexpr NameTable kTable(kKeywords, &KeywordEntry::keyword);

} // namespace

const KeywordEntry* FindKeyword(std::string_view keyword)
{
    return kTable.Find(keyword);
}

uint16_t KeywordNumber(const KeywordEntry& entry)
{
    return static_cast<uint16_t>(&entry - kKeywords);
}

std::span<const KeywordEntry> AllKeywords()
{
    return kKeywords;
}

} // namespace psui::compiler
