#pragma once
// What the writer and the reader of images share.
#include <cstddef>
#include <cstdint>

#include "psui/model/model.h"

namespace psui {

/// Texts and records start at multiples of this.
constexpr uint64_t kImageAlignment = 4;

/// Bytes of each packed array per entry, whatever its entries' size; what an entry does not fill is zero and
/// stands behind the last entry.
constexpr uint64_t kArrayBytesPerEntry = 12;
static_assert(sizeof(OrderEntry) <= kArrayBytesPerEntry && sizeof(ConstraintEntry) <= kArrayBytesPerEntry);

/// The 8-bit texts of the header, in the order in which they follow it.
inline constexpr TextRef ModelDescription::*kHeaderTexts[] = {
    &ModelDescription::nickName,       &ModelDescription::password,
    &ModelDescription::exitServer,     &ModelDescription::customPageSizeCode,
    &ModelDescription::jclBegin,       &ModelDescription::jclToPsInterpreter,
    &ModelDescription::jclEnd,         &ModelDescription::sleepModeList,
    &ModelDescription::memorySizeList,
};

/// Bytes of every option record of the feature with that index.
constexpr uint32_t OptionRecordSize(uint16_t featureIndex)
{
    switch (featureIndex) {
    case kFeaturePageSize:
        return sizeof(PageSizeOption);
    case kFeatureInputSlot:
        return sizeof(InputSlotOption);
    case kFeatureResolution:
        return sizeof(ResolutionOption);
    case kFeatureVmOption:
        return sizeof(MemoryOption);
    default:
        return sizeof(ModelOption);
    }
}

} // namespace psui
