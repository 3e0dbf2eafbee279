#pragma once
// Reads everything that a resolved model refers to and asks every query of it, so that a sanitizer sees any
// reference that leads outside its block. Used by tests and fuzzers.
#include <cstdint>
#include <cstring>
#include <string_view>

#include "psui/model/image_layout.h"
#include "psui/model/queries.h"

namespace psui::test {

inline uint64_t Walk(TextRef text)
{
    return text ? std::strlen(text.get()) : 0;
}

inline uint64_t WalkHeader(const ModelDescription& model)
{
    uint64_t sum = 0;
    for (const WCHAR* c = model.sourcePath.get(); *c; ++c)
        sum += *c;
    for (TextRef ModelDescription::*text : kHeaderTexts)
        sum += Walk(model.*text);
    if (model.orderDependencies)
        for (const OrderEntry& entry : *model.orderDependencies.get())
            sum += entry.featureNumber + entry.optionIndex + entry.order + entry.section;
    if (model.constraints)
        for (const ConstraintEntry& entry : *model.constraints.get())
            sum += entry.feature1 + entry.option1 + entry.feature2 + entry.option2;
    for (const ResidentFont* font = model.residentFonts.get(); font; font = font->next.get())
        sum += Walk(font->name) + Walk(font->value) + font->fontNumber;
    return sum;
}

inline uint64_t WalkOption(const ModelOption& option, uint16_t featureIndex)
{
    uint64_t sum = Walk(option.name) + Walk(option.translation) + Walk(option.invocation);
    if (featureIndex == kFeaturePageSize) {
        const auto& size = reinterpret_cast<const PageSizeOption&>(option);
        sum += Walk(size.pageSizeLInvocation) + Walk(size.pageRegionInvocation) + size.width + size.height +
               size.imageableArea.left + size.imageableAreaL.further[1];
    } else if (featureIndex == kFeatureResolution) {
        const auto& resolution = reinterpret_cast<const ResolutionOption&>(option);
        sum +=
            Walk(resolution.jclInvocation) + Walk(resolution.setResolutionInvocation) + resolution.screenFreq;
    } else if (featureIndex == kFeatureInputSlot) {
        sum += reinterpret_cast<const InputSlotOption&>(option).requiresPageRegion;
    } else if (featureIndex == kFeatureVmOption) {
        sum += reinterpret_cast<const MemoryOption&>(option).memoryValue;
    }
    return sum;
}

inline uint64_t WalkFeatures(const ModelDescription& model)
{
    uint64_t sum = 0;
    for (const ModelFeature* feature = model.features.get(); feature; feature = feature->next.get()) {
        const std::string_view keyword = feature->keyword.get();
        sum += keyword.size() + Walk(feature->translation) + OptionCount(feature);
        sum += FindByNameIndexed(model.features.get(), keyword).index +
               OptionCount(FindByName(model.features.get(), keyword));
        const ModelOption* options = FirstOption(feature);
        for (const ModelOption* option = options; option; option = option->next.get())
            sum += WalkOption(*option, feature->featureIndex);
        if (options)
            sum += FindByNameIndexed(options, options->name.get()).index +
                   FindByTranslationOrName(options, keyword).index + (FindByName(options, keyword) ? 1 : 0);
    }
    return sum;
}

inline uint64_t WalkQueries(const ModelDescription& model)
{
    uint64_t sum = DefaultResolutionDpi(&model) + SleepModeListItem(&model, 2) +
                   MemorySizeListItem(&model, 0) + TrayHasChoice(&model) + DuplexAvailable(&model) +
                   (FindResolutionOption(&model, 600) ? 1 : 0);
    for (uint16_t index = 0; index < kBuiltinFeatureCount; ++index)
        sum += FeatureDefaultValue(&model, static_cast<FeatureIndex>(index));
    uint8_t document[kMaxSelections] = {};
    uint8_t installed[kMaxSelections] = {};
    sum += DocumentFeatureDefaults(&model, document) + ResolveInstallableConflicts(&model, installed);
    for (uint16_t feature = 0; feature < 4; ++feature)
        for (uint16_t option : {uint16_t{0}, uint16_t{1}, kAnyOption})
            sum += FindConflict(&model, installed, document, feature, option) +
                   FindConflict(&model, installed, nullptr, feature, option) +
                   OptionIsOff(&model, feature, option);
    return sum;
}

/// Returns a number that depends on all that was read.
inline uint64_t WalkEverything(const ModelDescription& model)
{
    return WalkHeader(model) + WalkFeatures(model) + WalkQueries(model);
}

} // namespace psui::test
