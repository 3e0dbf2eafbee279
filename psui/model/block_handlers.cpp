#include "psui/model/characters.h"
#include "psui/model/handlers.h"
#include "psui/model/keywords.h"

namespace psui::compiler {

namespace {

constexpr VocabularyWord kUiTypes[] = {
    {"PickOne", kUiPickOne}, {"PickMany", kUiPickMany}, {"Boolean", kUiBoolean}};

constexpr uint32_t kAnySetup = 32;
constexpr VocabularyWord kSections[] = {{"ExitServer", 1}, {"Prolog", 2},    {"DocumentSetup", 4},
                                        {"PageSetup", 8},  {"JCLSetup", 16}, {"AnySetup", kAnySetup}};

constexpr std::string_view kInstallableGroup = "InstallableOptions";
constexpr char kStar = '*';

// Feature names are written with a star in front.
std::string_view WithoutStar(std::string_view word)
{
    return word.starts_with(kStar) ? word.substr(1) : word;
}

std::string_view WithoutTrailingBlanks(std::string_view text)
{
    while (!text.empty() && IsA(text.back(), kBlank))
        text.remove_suffix(1);
    return text;
}

// Moves from a group's outside to its inside (1) or back (0).
Outcome SetInGroup(Compilation& c, uint32_t inside)
{
    if (!IsWord(c.statement.value, kInstallableGroup)) {
        Note(c, DiagnosticKind::UnknownWord, c.statement.value);
        return Outcome::Done;
    }
    if (c.root.inInstallableGroup == inside)
        return Reject(c, DiagnosticKind::BadBlock, c.statement.value);
    c.root.inInstallableGroup = inside;
    return Outcome::Done;
}

uint16_t ReadUiType(Compilation& c)
{
    uint32_t type = kUiPickOne;
    if (!LookUp(kUiTypes, c.statement.value, type))
        Note(c, DiagnosticKind::UnknownWord, c.statement.value);
    return static_cast<uint16_t>(type);
}

Outcome OpenBlock(Compilation& c, uint16_t flags)
{
    if (c.root.openBlock)
        Note(c, DiagnosticKind::BadBlock, c.root.openBlock->Name());
    c.root.openBlock = nullptr;
    const std::string_view name = WithoutStar(c.statement.option);
    if (name.empty())
        return Reject(c, DiagnosticKind::EmptyName, c.statement.option);
    const KeywordEntry* keyword = FindKeyword(name);
    if (keyword && keyword->FeatureIndex() == kFeatureGeneric)
        return Outcome::Done;
    Feature* feature;
    const Outcome outcome = TakeTranslatedFeature(
        c, keyword ? BuiltinRow(keyword->FeatureIndex()) : DescribeFeature(name), feature);
    if (outcome != Outcome::Done)
        return outcome;
    feature->uiType = ReadUiType(c);
    if (!keyword) {
        feature->flags |= flags;
        c.root.openBlock = feature;
    }
    return Outcome::Done;
}

PendingChoice MakeChoice(std::string_view feature, std::string_view option)
{
    return {feature.data(), option.empty() ? nullptr : option.data(), static_cast<uint8_t>(feature.size()),
            static_cast<uint8_t>(option.size())};
}

} // namespace

Outcome OpenGroup(Compilation& c)
{
    return SetInGroup(c, 1);
}

Outcome CloseGroup(Compilation& c)
{
    return SetInGroup(c, 0);
}

Outcome OpenUi(Compilation& c)
{
    return OpenBlock(c, 0);
}

Outcome JclOpenUi(Compilation& c)
{
    return OpenBlock(c, kFlagJobControl);
}

Outcome CloseUi(Compilation& c)
{
    const std::string_view name = WithoutStar(WithoutTrailingBlanks(c.statement.value));
    if (name.empty())
        return Reject(c, DiagnosticKind::EmptyName, c.statement.value);
    if (c.root.openBlock && c.root.openBlock->Name() == name)
        c.root.openBlock = nullptr;
    else if (!FindKeyword(name))
        return Reject(c, DiagnosticKind::BadBlock, name);
    return Outcome::Done;
}

Outcome RecordOpenBlockOption(Compilation& c)
{
    std::string_view invocation;
    Option* option;
    Outcome outcome = ReadInvocation(c, invocation);
    if (outcome == Outcome::Done)
        outcome = TakeOpenBlockOption(c, option);
    if (outcome == Outcome::Done)
        KeepFirstText(*option, invocation);
    return outcome;
}

Outcome RecordOpenBlockDefault(Compilation& c)
{
    KeepFirstText(*c.root.openBlock, c.statement.value);
    return Outcome::Done;
}

Outcome RecordOrderDependency(Compilation& c)
{
    WordReader words(c.statement.value);
    const std::string_view order = words.Next();
    const std::string_view section = words.Next();
    const std::string_view feature = words.Next();
    const std::string_view option = words.Next();
    uint32_t place;
    uint32_t sections = kAnySetup;
    if (feature.empty())
        return Reject(c, DiagnosticKind::TooFewValues, c.statement.value);
    if (!ReadReal(order, place))
        return Reject(c, DiagnosticKind::BadNumber, order);
    if (WithoutStar(feature).empty())
        return Reject(c, DiagnosticKind::EmptyName, feature);
    if (c.root.orders.count == kMaxEntries)
        return Reject(c, DiagnosticKind::TooMany, feature);
    if (!LookUp(kSections, section, sections))
        Note(c, DiagnosticKind::UnknownWord, section);
    auto* pending = c.root.pool->New<PendingOrder>();
    if (!pending)
        return Outcome::OutOfMemory;
    pending->feature = WithoutStar(feature);
    pending->option = option.empty() ? std::string_view() : option;
    pending->entry.order = place;
    pending->entry.section = static_cast<uint16_t>(sections);
    c.root.orders.Append(pending);
    return Outcome::Done;
}

Outcome RecordConstraint(Compilation& c)
{
    WordReader words(c.statement.value);
    const std::string_view feature1 = words.Next();
    std::string_view option1;
    std::string_view feature2 = words.Next();
    if (!feature2.starts_with(kStar)) {
        option1 = feature2;
        feature2 = words.Next();
    }
    const std::string_view option2 = words.Next();
    if (feature2.empty())
        return Reject(c, DiagnosticKind::TooFewValues, c.statement.value);
    if (WithoutStar(feature1).empty() || WithoutStar(feature2).empty())
        return Reject(c, DiagnosticKind::EmptyName, c.statement.value);
    if (c.root.constraints.count == kMaxEntries)
        return Reject(c, DiagnosticKind::TooMany, c.statement.value);
    auto* pending = c.root.pool->New<PendingConstraint>();
    if (!pending)
        return Outcome::OutOfMemory;
    pending->sides[0] = MakeChoice(WithoutStar(feature1), option1);
    pending->sides[1] = MakeChoice(WithoutStar(feature2), option2);
    c.root.constraints.Append(pending);
    return Outcome::Done;
}

} // namespace psui::compiler
