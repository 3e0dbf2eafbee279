#include <cstring>
#include <string_view>

#include "psui/model/queries.h"
#include "psui/settings/record.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr uint8_t kNoSelection = 255;

uint8_t SelectionOf(uint32_t index)
{
    return index < kNoSelection ? static_cast<uint8_t>(index) : kNoSelection;
}

uint8_t OptionNamed(const ModelFeature* feature, std::string_view name)
{
    return SelectionOf(FindByNameIndexed(FirstOption(feature), name).index);
}

uint8_t CollateOption(const DEVMODEW& pub, const ModelFeature* feature)
{
    return OptionNamed(feature, pub.dmCollate == DMCOLLATE_TRUE ? "True" : "False");
}

uint8_t DuplexOption(const DEVMODEW& pub, const ModelFeature* feature)
{
    switch (pub.dmDuplex) {
    case DMDUP_HORIZONTAL:
        return OptionNamed(feature, "DuplexTumble");
    case DMDUP_VERTICAL:
        return OptionNamed(feature, "DuplexNoTumble");
    default:
        return OptionNamed(feature, "None");
    }
}

/// Position among the options whose names are numbers.
uint8_t ResolutionOptionFor(const DEVMODEW& pub, const ModelFeature* feature)
{
    uint32_t position = 0;
    for (const ModelOption* option = FirstOption(feature); option; option = option->next.get()) {
        const int32_t dpi = DecimalOf(option->name.get());
        if (dpi <= 0)
            continue;
        if (dpi == pub.dmPrintQuality)
            return SelectionOf(position);
        ++position;
    }
    return kNoSelection;
}

uint8_t PageSizeOptionFor(const DEVMODEW& pub, const ModelFeature* feature)
{
    WCHAR form[CCHFORMNAME + 1];
    std::memcpy(form, pub.dmFormName, sizeof(pub.dmFormName));
    form[CCHFORMNAME] = 0;
    char name[2 * CCHFORMNAME + 1];
    NarrowFromWide(name, form, std::size(name));
    return SelectionOf(FindByTranslationOrName(FirstOption(feature), name).index);
}

uint8_t InputSlotOptionFor(const DEVMODEW& pub, const ModelFeature*)
{
    return pub.dmDefaultSource < DMBIN_USER ? kNoSelection : LOBYTE(pub.dmDefaultSource);
}

struct PublicSelection
{
    DWORD field;
    FeatureIndex feature;
    uint8_t (*optionFor)(const DEVMODEW& pub, const ModelFeature* feature);
};

constexpr PublicSelection kPublicSelections[] = {
    {DM_COLLATE, kFeatureCollate, CollateOption},
    {DM_DUPLEX, kFeatureDuplex, DuplexOption},
    {DM_PRINTQUALITY, kFeatureResolution, ResolutionOptionFor},
    {DM_FORMNAME, kFeaturePageSize, PageSizeOptionFor},
    {DM_DEFAULTSOURCE, kFeatureInputSlot, InputSlotOptionFor},
};

} // namespace

void SyncSelectionsFromPublic(DriverDevMode* record, DWORD fieldMask, const ModelDescription* model)
{
    for (const PublicSelection& row : kPublicSelections) {
        const ModelFeature* feature = BuiltinFeature(model, row.feature);
        if ((fieldMask & row.field) != 0 && feature && feature->ordinal < kMaxSelections)
            record->dmPrivate.abFeatureSel[feature->ordinal] = row.optionFor(record->dmPublic, feature);
    }
}

} // namespace psui
