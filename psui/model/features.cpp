#include "psui/model/features.h"

#include <iterator>

#include "psui/model/names.h"

namespace psui::compiler {

namespace {

constexpr BuiltinFeature Row(std::string_view name, uint16_t index,
                             size_t optionRecordSize = sizeof(ModelOption), uint16_t uiType = kUiPickOne)
{
    return {name, static_cast<uint16_t>(optionRecordSize), uiType, index};
}

constexpr BuiltinFeature kBuiltinFeatures[] = {
    Row("PageSize", kFeaturePageSize, sizeof(PageSizeOption)),
    Row("InputSlot", kFeatureInputSlot, sizeof(InputSlotOption)),
    Row("ManualFeed", kFeatureManualFeed, sizeof(ModelOption), kUiBoolean),
    Row("Duplex", kFeatureDuplex),
    Row("Collate", kFeatureCollate, sizeof(ModelOption), kUiBoolean),
    Row("Resolution", kFeatureResolution, sizeof(ResolutionOption)),
    Row("VMOption", kFeatureVmOption, sizeof(MemoryOption)),
    Row("MediaType", kFeatureMediaType),
    Row("MultiplePage", kFeatureMultiplePage),
    Row("TonerSaveMode", kFeatureTonerSaveMode),
    Row("PageProtect", kFeaturePageProtect),
    Row("HRC", kFeatureHrc),
    Row("Paper", kFeaturePaper),
    Row("Tray", kFeatureTray),
    Row("Quality", kFeatureQuality),
    Row("CM", kFeatureCm),
    Row("ICM", kFeatureIcm),
    Row("CAPT", kFeatureCapt),
    Row("COLOR", kFeatureColor),
    Row("CHALFTONE", kFeatureCHalftone),
    Row("MHALFTONE", kFeatureMHalftone),
    Row("DOCTYPE", kFeatureDocType),
    Row("USEDF", kFeatureUseDf),
    Row("TTMODE", kFeatureTtMode),
    Row("CMPMODE", kFeatureCmpMode),
    Row("GMODE", kFeatureGMode),
    Row("DIRMODE", kFeatureDirMode),
    Row("Thickness", kFeatureThickness),
    Row("INTERLACE", kFeatureInterlace),
    Row("KCDraft", kFeatureKcDraft),
    Row("SFQuality", kFeatureSfQuality),
    Row("PrtArea", kFeaturePrtArea),
};

constexpr bool RowsStandAtTheirIndex()
{
    for (size_t i = 0; i < std::size(kBuiltinFeatures); ++i)
        if (kBuiltinFeatures[i].index != i)
            return false;
    return std::size(kBuiltinFeatures) == kBuiltinFeatureCount;
}
static_assert(RowsStandAtTheirIndex());

constexpr NameTable kBuiltinNames(kBuiltinFeatures, &BuiltinFeature::name);

Option* NewOption(ParsePool& pool, uint16_t featureIndex)
{
    switch (featureIndex) {
    case kFeaturePageSize:
        return pool.New<PageSize>();
    case kFeatureInputSlot:
        return pool.New<InputSlot>();
    case kFeatureResolution:
        return pool.New<Resolution>();
    case kFeatureVmOption:
        return pool.New<Memory>();
    default:
        return pool.New<Option>();
    }
}

bool Name(CompileRoot& root, NamedRecord& record, uint16_t owner, std::string_view name)
{
    record.name = name.data();
    record.nameLength = static_cast<uint8_t>(name.size());
    record.owner = owner;
    return root.names.Add(&record);
}

uint16_t OwnerNumber(const Feature& feature)
{
    return static_cast<uint16_t>(feature.index + 1);
}

} // namespace

const BuiltinFeature& BuiltinRow(uint16_t index)
{
    return kBuiltinFeatures[index];
}

BuiltinFeature DescribeFeature(std::string_view name)
{
    const BuiltinFeature* row = kBuiltinNames.Find(name);
    return row ? *row : Row(name, kFeatureGeneric);
}

Feature* FindFeature(const CompileRoot& root, const BuiltinFeature& description)
{
    if (description.index < kBuiltinFeatureCount)
        return root.featureByIndex[description.index];
    return static_cast<Feature*>(root.names.Find(0, description.name));
}

Feature* CreateFeature(CompileRoot& root, const BuiltinFeature& description)
{
    auto* feature = root.pool->New<Feature>();
    if (!feature || !Name(root, *feature, 0, description.name))
        return nullptr;
    const bool generic = description.index == kFeatureGeneric;
    feature->index = root.features.count;
    feature->featureIndex = description.index;
    feature->optionRecordSize = description.optionRecordSize;
    feature->uiType = description.uiType;
    feature->installable = description.index == kFeatureVmOption || (generic && root.inInstallableGroup);
    if (!generic)
        root.featureByIndex[description.index] = feature;
    root.features.Append(feature);
    return feature;
}

Option* FindOption(const CompileRoot& root, Feature& feature, std::string_view name)
{
    Option* guess = feature.lastFound ? feature.lastFound->next : feature.options.first;
    if (!guess || !IsSameName(guess->Name(), name))
        guess = feature.lastFound;
    if (!guess || !IsSameName(guess->Name(), name))
        guess = static_cast<Option*>(root.names.Find(OwnerNumber(feature), name));
    if (guess)
        feature.lastFound = guess;
    return guess;
}

Option* CreateOption(CompileRoot& root, Feature& feature, std::string_view name)
{
    Option* option = NewOption(*root.pool, feature.featureIndex);
    if (!option || !Name(root, *option, OwnerNumber(feature), name))
        return nullptr;
    option->index = feature.options.count;
    feature.options.Append(option);
    feature.lastFound = option;
    return option;
}

} // namespace psui::compiler
