#include <iterator>
#include <span>

#include "psui/model/queries.h"
#include "tools/psuictl/model_file.h"

namespace psuictl {
namespace {

using namespace psui;

struct CodeWord
{
    uint32_t code;
    const char* word;
};

constexpr CodeWord kProtocols[] = {{1, "PJL"}, {2, "BCP"}, {4, "TBCP"}, {8, "SIC"}};
constexpr CodeWord kExtensions[] = {{1, "DPS"}, {2, "CMYK"}, {4, "Composite"}, {8, "FileSystem"}};
constexpr CodeWord kEncodings[] = {
    {0, "None"}, {1, "ISOLatin1"}, {2, "JIS83-RKSJ"}, {3, "MaxStandard"}, {4, "WindowsANSI"}};
constexpr CodeWord kRasterizers[] = {{0, "None"}, {1, "Accept68k"}, {2, "Type42"}, {3, "TrueImage"}};
constexpr CodeWord kLandscapes[] = {{0, "Any"}, {1, "Plus90"}, {2, "Minus90"}};
constexpr CodeWord kResolutionKeywords[] = {{0, "Resolution"}, {1, "JCLResolution"}, {2, "SetResolution"}};
constexpr CodeWord kUiTypes[] = {{kUiBoolean, "Boolean"}, {kUiPickOne, "PickOne"}, {kUiPickMany, "PickMany"}};
constexpr CodeWord kFeatureFlags[] = {{kFlagAllSlotsRequirePageRegion, "AllSlotsRequirePageRegion"},
                                      {kFlagNoSlotRequiresPageRegion, "NoSlotRequiresPageRegion"},
                                      {kFlagJobControl, "JobControl"}};
constexpr CodeWord kSections[] = {{1, "ExitServer"}, {2, "Prolog"},    {4, "DocumentSetup"},
                                  {8, "PageSetup"},  {16, "JCLSetup"}, {32, "AnySetup"}};
constexpr CodeWord kValueTypes[] = {{0, "int"}, {1, "real"}, {2, "points"}};
constexpr const char* kCustomParams[kCustomPageParamCount] = {"Width", "Height", "WidthOffset",
                                                              "HeightOffset", "Orientation"};

/// The code's word, or the bare code when it has none.
Json Word(std::span<const CodeWord> words, uint32_t code)
{
    for (const CodeWord& word : words) {
        if (word.code == code)
            return word.word;
    }
    return code;
}

/// The words of the bits that are set; bits without a word as one number.
Json BitWords(std::span<const CodeWord> words, uint32_t bits)
{
    Json list = Json::array();
    for (const CodeWord& word : words) {
        if (bits & word.code)
            list.push_back(word.word);
        bits &= ~word.code;
    }
    if (bits)
        list.push_back(bits);
    return list;
}

double Real(uint32_t fixed)
{
    return fixed / 256.0;
}

Json Text(const TextRef& text)
{
    return text ? Json(ReadableBytes(text.get())) : Json(nullptr);
}

Json WideText(const Ref<WCHAR>& text)
{
    return text ? Json(Utf8(text.get())) : Json(nullptr);
}

Json Reals(std::span<const uint32_t> values)
{
    Json list = Json::array();
    for (const uint32_t value : values)
        list.push_back(Real(value));
    return list;
}

Json Area(const ImageableArea& area)
{
    return Reals({{area.left, area.bottom, area.right, area.top, area.further[0], area.further[1]}});
}

Json CustomParams(const ModelDescription& model)
{
    Json object = Json::object();
    for (size_t i = 0; i < kCustomPageParamCount; ++i) {
        const CustomPageParam& param = model.customPageParams[i];
        object[kCustomParams[i]] = {{"order", param.order},
                                    {"valueType", Word(kValueTypes, param.valueType)},
                                    {"minimum", Real(param.minimum)},
                                    {"maximum", Real(param.maximum)}};
    }
    return object;
}

// One function an option kind: what its record has beyond the name, translation and invocation.

void AddPageSize(Json& json, const ModelOption& base)
{
    const auto& option = reinterpret_cast<const PageSizeOption&>(base);
    json["pageSizeLInvocation"] = Text(option.pageSizeLInvocation);
    json["pageRegionInvocation"] = Text(option.pageRegionInvocation);
    json["width"] = Real(option.width);
    json["height"] = Real(option.height);
    json["imageableArea"] = Area(option.imageableArea);
    json["imageableAreaL"] = Area(option.imageableAreaL);
}

void AddInputSlot(Json& json, const ModelOption& base)
{
    json["requiresPageRegion"] = reinterpret_cast<const InputSlotOption&>(base).requiresPageRegion != 0;
}

void AddResolution(Json& json, const ModelOption& base)
{
    const auto& option = reinterpret_cast<const ResolutionOption&>(base);
    json["jclInvocation"] = Text(option.jclInvocation);
    json["setResolutionInvocation"] = Text(option.setResolutionInvocation);
    json["screenAngle"] = Real(option.screenAngle);
    json["screenFreq"] = Real(option.screenFreq);
}

void AddMemory(Json& json, const ModelOption& base)
{
    json["memoryValue"] = reinterpret_cast<const MemoryOption&>(base).memoryValue;
}

struct OptionKind
{
    uint16_t featureIndex;
    void (*add)(Json& json, const ModelOption& option);
};

constexpr OptionKind kOptionKinds[] = {{kFeaturePageSize, AddPageSize},
                                       {kFeatureInputSlot, AddInputSlot},
                                       {kFeatureResolution, AddResolution},
                                       {kFeatureVmOption, AddMemory}};

Json Option(const ModelFeature& feature, const ModelOption& option, size_t index)
{
    Json json = {{"index", index},
                 {"name", Text(option.name)},
                 {"translation", Text(option.translation)},
                 {"invocation", Text(option.invocation)}};
    for (const OptionKind& kind : kOptionKinds) {
        if (kind.featureIndex == feature.featureIndex)
            kind.add(json, option);
    }
    return json;
}

Json Feature(const ModelFeature& feature, size_t number)
{
    const bool isResolution = feature.featureIndex == kFeatureResolution;
    const uint64_t defaultOption = feature.defaultOption; // a copy: records are aligned to 4 bytes only
    const ModelOption* chosen =
        isResolution ? nullptr : NthNode(feature.options.get(), static_cast<uint32_t>(defaultOption));
    Json json = {{"number", number},
                 {"keyword", Text(feature.keyword)},
                 {"translation", Text(feature.translation)},
                 {"index", feature.featureIndex},
                 {"uiType", Word(kUiTypes, feature.uiType)},
                 {"installable", feature.installable != 0},
                 {"ordinal", feature.ordinal},
                 {"flags", BitWords(kFeatureFlags, feature.flags)},
                 {isResolution ? "defaultDpi" : "defaultIndex", defaultOption},
                 {"default", chosen ? Text(chosen->name) : Json(nullptr)},
                 {"options", Json::array()}};
    Json& options = json["options"];
    for (const ModelOption* option = feature.options.get(); option; option = option->next.get())
        options.push_back(Option(feature, *option, options.size()));
    return json;
}

/// Feature and option of a constraint or order entry by name; an option that stands for any is null.
class Names
{
public:
    explicit Names(const ModelDescription& model)
    {
        for (const ModelFeature* feature = model.features.get(); feature; feature = feature->next.get())
            features_.push_back(feature);
    }

    Json FeatureName(uint16_t number) const
    {
        return number < features_.size() ? Text(features_[number]->keyword) : Json(number);
    }

    Json OptionName(uint16_t number, uint16_t option) const
    {
        if (option == kAnyOption)
            return nullptr;
        const ModelOption* node =
            number < features_.size() ? NthNode(features_[number]->options.get(), option) : nullptr;
        return node ? Text(node->name) : Json(option);
    }

private:
    std::vector<const ModelFeature*> features_;
};

Json Constraints(const ModelDescription& model, const Names& names)
{
    Json list = Json::array();
    if (!model.constraints)
        return list;
    for (const ConstraintEntry& entry : *model.constraints.get()) {
        if (entry.feature1 == kUnresolved)
            list.push_back({{"resolved", false}});
        else
            list.push_back({{"resolved", true},
                            {"feature1", names.FeatureName(entry.feature1)},
                            {"option1", names.OptionName(entry.feature1, entry.option1)},
                            {"feature2", names.FeatureName(entry.feature2)},
                            {"option2", names.OptionName(entry.feature2, entry.option2)}});
    }
    return list;
}

Json Orders(const ModelDescription& model, const Names& names)
{
    Json list = Json::array();
    if (!model.orderDependencies)
        return list;
    for (const OrderEntry& entry : *model.orderDependencies.get()) {
        const bool resolved = entry.featureNumber != kUnresolved;
        list.push_back({{"resolved", resolved},
                        {"order", Real(entry.order)},
                        {"section", Word(kSections, entry.section)},
                        {"feature", resolved ? names.FeatureName(entry.featureNumber) : Json(nullptr)},
                        {"option", resolved ? names.OptionName(entry.featureNumber, entry.optionIndex)
                                            : Json(nullptr)}});
    }
    return list;
}

Json Fonts(const ModelDescription& model)
{
    Json list = Json::array();
    for (const ResidentFont* font = model.residentFonts.get(); font; font = font->next.get())
        list.push_back(
            {{"number", font->fontNumber}, {"name", Text(font->name)}, {"value", Text(font->value)}});
    return list;
}

Json Header(const ModelDescription& model)
{
    return {{"sourcePath", WideText(model.sourcePath)},
            {"nickName", Text(model.nickName)},
            {"fileVersion", Real(model.fileVersion)},
            {"imageSize", model.imageSize},
            {"formatVersion", model.formatVersion},
            {"sourceCrc", model.sourceCrc},
            {"modelType", model.modelType},
            {"printRatePpm", model.printRatePpm},
            {"printerCaps", model.printerCaps},
            {"colorDevice", model.colorDevice != 0},
            {"protocols", BitWords(kProtocols, model.protocols)},
            {"extensions", BitWords(kExtensions, model.extensions)},
            {"languageLevel", model.languageLevel},
            {"languageEncoding", Word(kEncodings, model.languageEncoding)},
            {"landscapeOrientation", Word(kLandscapes, model.landscapeOrientation)},
            {"ttRasterizer", Word(kRasterizers, model.ttRasterizer)},
            {"freeVm", model.freeVm},
            {"jobTimeout", model.jobTimeout},
            {"waitTimeout", model.waitTimeout},
            {"printPsError", model.printPsError != 0},
            {"password", Text(model.password)},
            {"exitServer", Text(model.exitServer)},
            {"jclBegin", Text(model.jclBegin)},
            {"jclToPsInterpreter", Text(model.jclToPsInterpreter)},
            {"jclEnd", Text(model.jclEnd)},
            {"resolutionKeyword", Word(kResolutionKeywords, model.resolutionKeywordKind)},
            {"screenAngle", Real(model.screenAngle)},
            {"screenFreq", Real(model.screenFreq)},
            {"sleepModeList", Text(model.sleepModeList)},
            {"memorySizeList", Text(model.memorySizeList)},
            {"maxMediaWidth", Real(model.maxMediaWidth)},
            {"maxMediaHeight", Real(model.maxMediaHeight)},
            {"hwMargins", model.hwMarginsPresent ? Reals(model.hwMargins) : Json(nullptr)},
            {"customPageSize", model.customPageSize != 0},
            {"customPageSizeCode", Text(model.customPageSizeCode)},
            {"customPageParams", CustomParams(model)},
            {"documentFeatureCount", model.documentFeatureCount},
            {"installableFeatureCount", model.installableFeatureCount}};
}

} // namespace

Json DescribeModel(const ModelDescription& model)
{
    const Names names(model);
    Json json = Header(model);
    Json features = Json::array();
    for (const ModelFeature* feature = model.features.get(); feature; feature = feature->next.get())
        features.push_back(Feature(*feature, features.size()));
    json["features"] = std::move(features);
    json["constraints"] = Constraints(model, names);
    json["orderDependencies"] = Orders(model, names);
    json["residentFonts"] = Fonts(model);
    return json;
}

} // namespace psuictl
