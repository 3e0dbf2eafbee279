#include "psui/model/handlers.h"

namespace psui::compiler {

namespace {

constexpr VocabularyWord kTruth[] = {{"True", 1}, {"False", 0}};
constexpr std::string_view kAllSlots = "All";

enum ResolutionKeywordKind : uint16_t
{
    kKindResolution = 0,
    kKindJclResolution = 1,
    kKindSetResolution = 2,
};

Outcome StorePageSizeText(Compilation& c, std::string_view PageSize::*field)
{
    PageSize* option;
    const Outcome outcome = TakeBuiltinOption(c, kFeaturePageSize, option);
    if (outcome == Outcome::Done)
        KeepFirst(option->*field, c.statement.value);
    return outcome;
}

// Reads up to `count` reals and returns how many there are before the first word that is none.
size_t ReadReals(std::string_view list, uint32_t* values, size_t count)
{
    WordReader words(list);
    size_t good = 0;
    while (good < count && ReadReal(words.Next(), values[good]))
        ++good;
    return good;
}

Outcome RejectList(Compilation& c, size_t good)
{
    WordReader words(c.statement.value);
    std::string_view word = words.Next();
    for (; good > 0; --good)
        word = words.Next();
    return word.empty() ? Reject(c, DiagnosticKind::TooFewValues, c.statement.value)
                        : Reject(c, DiagnosticKind::BadNumber, word);
}

Outcome StoreArea(Compilation& c, ImageableArea PageSize::*field)
{
    constexpr size_t kCorners = 4;
    constexpr size_t kAll = 6;
    uint32_t values[kAll];
    const size_t good = ReadReals(c.statement.value, values, kAll);
    if (good < kCorners)
        return RejectList(c, good);
    PageSize* option;
    const Outcome outcome = TakeBuiltinOption(c, kFeaturePageSize, option);
    if (outcome != Outcome::Done)
        return outcome;
    option->*field = {values[0], values[1], values[2], values[3], {0, 0}};
    if (good == kAll) {
        (option->*field).further[0] = values[4];
        (option->*field).further[1] = values[5];
    }
    return Outcome::Done;
}

Outcome StoreScreen(Compilation& c, uint32_t Resolution::*field)
{
    uint32_t value;
    if (!ReadReal(c.statement.value, value))
        return Reject(c, DiagnosticKind::BadNumber, c.statement.value);
    Resolution* option;
    const Outcome outcome = TakeBuiltinOption(c, kFeatureResolution, option);
    if (outcome == Outcome::Done)
        option->*field = value;
    return outcome;
}

Outcome RecordAllSlots(Compilation& c)
{
    uint32_t required;
    if (!LookUp(kTruth, c.statement.value, required))
        return Reject(c, DiagnosticKind::UnknownWord, c.statement.value);
    Feature* slots;
    const Outcome outcome = TakeFeature(c, BuiltinRow(kFeatureInputSlot), slots);
    if (outcome == Outcome::Done)
        slots->flags |= required ? kFlagAllSlotsRequirePageRegion : kFlagNoSlotRequiresPageRegion;
    return outcome;
}

Outcome StoreDefault(Compilation& c, const BuiltinFeature& description)
{
    Feature* feature;
    const Outcome outcome = TakeFeature(c, description, feature);
    if (outcome == Outcome::Done)
        KeepFirstText(*feature, c.statement.value);
    return outcome;
}

} // namespace

Outcome StoreOption(Compilation& c, uint16_t featureIndex)
{
    Option* option;
    const Outcome outcome = TakeBuiltinOption(c, featureIndex, option);
    if (outcome == Outcome::Done)
        KeepFirstText(*option, c.statement.value);
    return outcome;
}

Outcome StoreBlockOption(Compilation& c, uint16_t featureIndex)
{
    std::string_view invocation;
    Option* option;
    Outcome outcome = ReadInvocation(c, invocation);
    if (outcome == Outcome::Done)
        outcome = TakeBuiltinOption(c, featureIndex, option);
    if (outcome == Outcome::Done)
        KeepFirstText(*option, invocation);
    return outcome;
}

Outcome RecordPageRegion(Compilation& c)
{
    return StorePageSizeText(c, &PageSize::pageRegionInvocation);
}

Outcome RecordPageSizeL(Compilation& c)
{
    return StorePageSizeText(c, &PageSize::pageSizeLInvocation);
}

Outcome RecordPaperDimension(Compilation& c)
{
    uint32_t size[2];
    const size_t good = ReadReals(c.statement.value, size, 2);
    if (good < 2)
        return RejectList(c, good);
    PageSize* option;
    const Outcome outcome = TakeBuiltinOption(c, kFeaturePageSize, option);
    if (outcome != Outcome::Done)
        return outcome;
    option->width = size[0];
    option->height = size[1];
    return Outcome::Done;
}

Outcome RecordImageableArea(Compilation& c)
{
    return StoreArea(c, &PageSize::imageableArea);
}

Outcome RecordImageableAreaL(Compilation& c)
{
    return StoreArea(c, &PageSize::imageableAreaL);
}

Outcome RecordInputSlot(Compilation& c)
{
    InputSlot* slot;
    const Outcome outcome = TakeBuiltinOption(c, kFeatureInputSlot, slot);
    if (outcome != Outcome::Done)
        return outcome;
    KeepFirstText(*slot, c.statement.value);
    slot->requiresPageRegion = 1;
    return Outcome::Done;
}

Outcome RecordRequiresPageRegion(Compilation& c)
{
    if (c.statement.option == kAllSlots)
        return RecordAllSlots(c);
    uint32_t required = 0;
    if (!LookUp(kTruth, c.statement.value, required))
        Note(c, DiagnosticKind::UnknownWord, c.statement.value);
    InputSlot* slot;
    const Outcome outcome = TakeBuiltinOption(c, kFeatureInputSlot, slot);
    if (outcome == Outcome::Done)
        slot->requiresPageRegion = required;
    return outcome;
}

Outcome RecordResolution(Compilation& c)
{
    const Outcome outcome = StoreOption(c, kFeatureResolution);
    if (outcome == Outcome::Done)
        c.root.header.resolutionKeywordKind = kKindResolution;
    return outcome;
}

Outcome RecordJclResolution(Compilation& c)
{
    std::string_view invocation;
    Resolution* option;
    Outcome outcome = DecodeHex(c, c.statement.value, invocation);
    if (outcome == Outcome::Done)
        outcome = TakeBuiltinOption(c, kFeatureResolution, option);
    if (outcome != Outcome::Done)
        return outcome;
    KeepFirst(option->jclInvocation, invocation);
    c.root.header.resolutionKeywordKind = kKindJclResolution;
    return Outcome::Done;
}

Outcome RecordSetResolution(Compilation& c)
{
    Resolution* option;
    const Outcome outcome = TakeBuiltinOption(c, kFeatureResolution, option);
    if (outcome != Outcome::Done)
        return outcome;
    KeepFirst(option->setResolutionInvocation, c.statement.value);
    c.root.header.resolutionKeywordKind = kKindSetResolution;
    return Outcome::Done;
}

Outcome RecordResScreenAngle(Compilation& c)
{
    return StoreScreen(c, &Resolution::screenAngle);
}

Outcome RecordResScreenFreq(Compilation& c)
{
    return StoreScreen(c, &Resolution::screenFreq);
}

Outcome RecordMemory(Compilation& c)
{
    uint32_t value;
    if (!ReadInteger(c.statement.value, value))
        return Reject(c, DiagnosticKind::BadNumber, c.statement.value);
    Memory* option;
    const Outcome outcome = TakeBuiltinOption(c, kFeatureVmOption, option);
    if (outcome == Outcome::Done)
        option->memoryValue = value;
    return outcome;
}

Outcome RecordDefault(Compilation& c)
{
    return StoreDefault(c, DescribeFeature(c.statement.keyword.substr(kDefaultPrefix.size())));
}

Outcome RecordDefaultJclResolution(Compilation& c)
{
    return StoreDefault(c, BuiltinRow(kFeatureResolution));
}

} // namespace psui::compiler
