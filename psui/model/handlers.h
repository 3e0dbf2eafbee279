#pragma once
// What statements do: one handler a construct. The keyword table names them; those of an open UI block are
// called by the compiler itself. Every handler finds its statement in the compilation and the value rule of
// its keyword already checked.
#include <string_view>

#include "psui/model/compilation.h"
#include "psui/model/values.h"

namespace psui::compiler {

using Handler = Outcome (*)(Compilation& c);

// Header fields (field_handlers.cpp)

Outcome Ignore(Compilation& c);
Outcome RecordProtocols(Compilation& c);
Outcome RecordExtensions(Compilation& c);
Outcome RecordLanguageEncoding(Compilation& c);
Outcome RecordLanguageVersion(Compilation& c);
Outcome RecordRasterizer(Compilation& c);
Outcome RecordLandscapeOrientation(Compilation& c);
Outcome RecordHwMargins(Compilation& c);
Outcome RecordCustomPageSize(Compilation& c);
Outcome RecordCustomPageParam(Compilation& c);
Outcome RecordFont(Compilation& c);

Outcome StoreInteger(Compilation& c, uint32_t ModelDescription::*field);
Outcome StoreReal(Compilation& c, uint32_t ModelDescription::*field);
Outcome StoreTruth(Compilation& c, uint32_t ModelDescription::*field);
Outcome StoreText(Compilation& c, HeaderText text);
Outcome StoreDecodedText(Compilation& c, HeaderText text);

template <uint32_t ModelDescription::*kField>
Outcome RecordInteger(Compilation& c)
{
    return StoreInteger(c, kField);
}

template <uint32_t ModelDescription::*kField>
Outcome RecordReal(Compilation& c)
{
    return StoreReal(c, kField);
}

template <uint32_t ModelDescription::*kField>
Outcome RecordTruth(Compilation& c)
{
    return StoreTruth(c, kField);
}

template <HeaderText kText>
Outcome RecordText(Compilation& c)
{
    return StoreText(c, kText);
}

template <HeaderText kText>
Outcome RecordDecodedText(Compilation& c)
{
    return StoreDecodedText(c, kText);
}

// Options and defaults (option_handlers.cpp)

Outcome RecordPageRegion(Compilation& c);
Outcome RecordPageSizeL(Compilation& c);
Outcome RecordPaperDimension(Compilation& c);
Outcome RecordImageableArea(Compilation& c);
Outcome RecordImageableAreaL(Compilation& c);
Outcome RecordInputSlot(Compilation& c);
Outcome RecordRequiresPageRegion(Compilation& c);
Outcome RecordResolution(Compilation& c);
Outcome RecordJclResolution(Compilation& c);
Outcome RecordSetResolution(Compilation& c);
Outcome RecordResScreenAngle(Compilation& c);
Outcome RecordResScreenFreq(Compilation& c);
Outcome RecordMemory(Compilation& c);
Outcome RecordDefault(Compilation& c); ///< of the feature that the rest of the keyword names
Outcome RecordDefaultJclResolution(Compilation& c);

Outcome StoreOption(Compilation& c, uint16_t featureIndex);
Outcome StoreBlockOption(Compilation& c, uint16_t featureIndex);

/// An option of a built-in feature; its value is the invocation as written.
template <uint16_t kFeature>
Outcome RecordOption(Compilation& c)
{
    return StoreOption(c, kFeature);
}

/// The same for the features that may stand in a job-control block.
template <uint16_t kFeature>
Outcome RecordBlockOption(Compilation& c)
{
    return StoreBlockOption(c, kFeature);
}

// Groups, UI blocks and the rules between features (block_handlers.cpp)

Outcome OpenGroup(Compilation& c);
Outcome CloseGroup(Compilation& c);
Outcome OpenUi(Compilation& c);
Outcome JclOpenUi(Compilation& c);
Outcome CloseUi(Compilation& c);
Outcome RecordOpenBlockOption(Compilation& c);
Outcome RecordOpenBlockDefault(Compilation& c);
Outcome RecordOrderDependency(Compilation& c);
Outcome RecordConstraint(Compilation& c);

/// What the keyword of a default begins with.
constexpr std::string_view kDefaultPrefix = "Default";

} // namespace psui::compiler
