#include "psui/model/queries.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace psui {

namespace {

constexpr uint32_t kFallbackDpi = 300;
constexpr size_t kMaxListLength = 29;
constexpr uint16_t kNoListItem = 1;

bool IsBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string_view View(TextRef text)
{
    return text ? std::string_view(text.get()) : std::string_view();
}

std::string_view NameOf(const ModelOption& option)
{
    return View(option.name);
}

std::string_view NameOf(const ModelFeature& feature)
{
    return View(feature.keyword);
}

template <typename Node>
FoundNode<Node> Find(const Node* head, std::string_view name)
{
    const uint32_t hash = NameHash(name);
    uint32_t index = 0;
    for (; head; head = head->next.get(), ++index)
        if (head->nameHash == hash && NameOf(*head) == name)
            return {head, static_cast<uint16_t>(std::min<uint32_t>(index, kNotFound))};
    return {nullptr, kNotFound};
}

uint16_t ListItem(TextRef list, uint32_t n)
{
    const std::string_view text = View(list);
    constexpr std::string_view kSeparators = ", \t";
    if (text.size() > kMaxListLength || text.find_first_of(kSeparators) == text.npos)
        return kNoListItem;
    size_t begin = 0;
    for (size_t end = text.find_first_of(kSeparators); n > 0 && end != text.npos; --n) {
        begin = end + 1;
        end = text.find_first_of(kSeparators, begin);
    }
    const std::string_view item = text.substr(begin);
    return static_cast<uint16_t>(DecimalOf(item.substr(0, item.find_first_of(kSeparators))));
}

bool IsOff(const ModelOption& option)
{
    const std::string_view name = NameOf(option);
    return name == "None" || name == "False";
}

uint8_t SelectionOf(uint64_t option)
{
    return static_cast<uint8_t>(std::min<uint64_t>(option, kAnyOption));
}

struct FallbackValue
{
    FeatureIndex index;
    uint16_t value;
};

// What stands for a missing feature; any other counts as 0.
constexpr FallbackValue kFallbackValues[] = {
    {kFeatureTray, 7},      {kFeatureCm, 1},      {kFeatureCapt, 1},
    {kFeatureDocType, 2},   {kFeatureCmpMode, 9}, {kFeatureDirMode, 1},
    {kFeatureCHalftone, 3}, {kFeatureColor, 2},   {kFeaturePageProtect, 1},
};

uint16_t FallbackOf(FeatureIndex index)
{
    for (const FallbackValue& fallback : kFallbackValues)
        if (fallback.index == index)
            return fallback.value;
    return 0;
}

uint32_t ConflictCode(uint32_t group, uint32_t feature, uint32_t option)
{
    return group + (feature & 0xFF) * 0x100 + option;
}

constexpr uint32_t kDocumentConflict = 0x20000;
constexpr uint32_t kInstallableConflict = 0x10000;

uint16_t DocumentSelections(const ModelDescription& model)
{
    return std::min(model.documentFeatureCount, kMaxSelections);
}

uint16_t InstallableSelections(const ModelDescription& model)
{
    return std::min(model.installableFeatureCount, kMaxSelections);
}

// The first installable choice that forbids `option` of feature number `feature`, as a code; `except` is a
// position that is passed over, or kNotFound.
uint32_t FindInstallableConflict(const ModelDescription* model, const uint8_t* selections, uint16_t feature,
                                 uint16_t option, uint16_t except)
{
    for (uint16_t i = 0; i < InstallableSelections(*model); ++i) {
        const auto number = static_cast<uint16_t>(model->documentFeatureCount + i);
        if (i != except && IsConstrained(model, number, selections[i], feature, option))
            return ConflictCode(kInstallableConflict, number, selections[i]);
    }
    return 0;
}

// Installable features with their present choices, for the repair of choices that exclude each other. Each
// question costs one pass over the constraints, however many options are asked about.
class InstallableChoices
{
public:
    InstallableChoices(const ModelDescription& model, uint8_t (&selections)[kMaxSelections])
        : model_(model), selections_(selections), count_(InstallableSelections(model))
    {
        const ModelFeature* feature = NthNode(model.features.get(), model.documentFeatureCount);
        for (uint16_t i = 0; i < count_ && feature; ++i, feature = feature->next.get()) {
            features_[i] = feature;
            selections_[i] = SelectionOf(feature->defaultOption);
            off_[i] = IsChoiceOff(i);
        }
    }

    /// Moves feature j, or else the first feature that forbids its choice, to a free option.
    void Repair(uint16_t j)
    {
        ForbiddenOptions forbidden{};
        const uint16_t k = CollectForbidden(j, forbidden);
        if (k == kNotFound)
            return;
        if (!ChooseFirst(j, forbidden))
            RepairOther(k, j);
    }

private:
    struct ForbiddenOptions
    {
        bool byIndex[kAnyOption];
        bool allThatAreOn;
    };

    bool IsChoiceOff(uint16_t i) const
    {
        const ModelOption* option =
            selections_[i] == kAnyOption ? nullptr : NthNode(FirstOption(features_[i]), selections_[i]);
        return option && IsOff(*option);
    }

    // Position of an installable feature's number, or kNotFound.
    uint16_t PositionOf(uint16_t number) const
    {
        const uint32_t position = static_cast<uint32_t>(number) - model_.documentFeatureCount;
        return position < count_ ? static_cast<uint16_t>(position) : kNotFound;
    }

    bool Covers(uint16_t entryOption, uint16_t i) const
    {
        return entryOption == selections_[i] || (entryOption == kAnyOption && !off_[i]);
    }

    static void Add(ForbiddenOptions& forbidden, uint16_t option)
    {
        if (option == kAnyOption)
            forbidden.allThatAreOn = true;
        else if (option < kAnyOption)
            forbidden.byIndex[option] = true;
    }

    // Collects the options of feature j that the other choices forbid. Returns the first feature that forbids
    // its present choice, or kNotFound.
    uint16_t CollectForbidden(uint16_t j, ForbiddenOptions& forbidden) const
    {
        uint16_t first = kNotFound;
        const auto* constraints = model_.constraints.get();
        if (!constraints)
            return first;
        for (const ConstraintEntry& entry : *constraints) {
            const uint16_t k = PositionOf(entry.feature1);
            if (entry.feature1 == kUnresolved || PositionOf(entry.feature2) != j || k == kNotFound ||
                k == j || !Covers(entry.option1, k))
                continue;
            Add(forbidden, entry.option2);
            if (Covers(entry.option2, j))
                first = std::min(first, k);
        }
        return first;
    }

    // Chooses the first option of feature i that is not forbidden; false when there is none.
    bool ChooseFirst(uint16_t i, const ForbiddenOptions& forbidden)
    {
        const ModelOption* option = FirstOption(features_[i]);
        for (uint16_t o = 0; option && o < kAnyOption; ++o, option = option->next.get()) {
            const bool off = IsOff(*option);
            if (forbidden.byIndex[o] || (forbidden.allThatAreOn && !off))
                continue;
            selections_[i] = static_cast<uint8_t>(o);
            off_[i] = off;
            return true;
        }
        return false;
    }

    // Moves feature k to its first option that does not forbid the choice of feature j.
    void RepairOther(uint16_t k, uint16_t j)
    {
        ForbiddenOptions forbidding{};
        for (const ConstraintEntry& entry : *model_.constraints.get())
            if (entry.feature1 != kUnresolved && PositionOf(entry.feature1) == k &&
                PositionOf(entry.feature2) == j && Covers(entry.option2, j))
                Add(forbidding, entry.option1);
        ChooseFirst(k, forbidding);
    }

    const ModelDescription& model_;
    uint8_t (&selections_)[kMaxSelections];
    uint16_t count_;
    const ModelFeature* features_[kMaxSelections] = {};
    bool off_[kMaxSelections] = {};
};

int32_t Truncate(float value)
{
    constexpr float kBound = 2147483648.0f;
    if (value >= kBound)
        return std::numeric_limits<int32_t>::max();
    return value < -kBound ? std::numeric_limits<int32_t>::min() : static_cast<int32_t>(value);
}

constexpr float kPoints256PerInch = 72 * 256;
constexpr float kMicronsPerInch = 25400;

} // namespace

int32_t DecimalOf(std::string_view text)
{
    size_t at = 0;
    while (at < text.size() && IsBlank(text[at]))
        ++at;
    const bool negative = at < text.size() && text[at] == '-';
    if (at < text.size() && (text[at] == '-' || text[at] == '+'))
        ++at;
    constexpr int64_t kMax = std::numeric_limits<int32_t>::max();
    int64_t value = 0;
    for (; at < text.size() && IsDigit(text[at]); ++at)
        value = std::min(value * 10 + (text[at] - '0'), kMax + 1);
    return static_cast<int32_t>(negative ? -value : std::min(value, kMax));
}

int32_t DecimalOf(const char* text)
{
    return text ? DecimalOf(std::string_view(text)) : 0;
}

const ModelFeature* BuiltinFeature(const ModelDescription* model, FeatureIndex index)
{
    return model && index < kBuiltinFeatureCount ? model->featureByIndex[index].get() : nullptr;
}

const ModelOption* FirstOption(const ModelFeature* feature)
{
    return feature ? feature->options.get() : nullptr;
}

uint32_t OptionCount(const ModelFeature* feature)
{
    return ListLength(FirstOption(feature));
}

const ModelOption* FindByName(const ModelOption* head, std::string_view name)
{
    return Find(head, name).node;
}

const ModelFeature* FindByName(const ModelFeature* head, std::string_view name)
{
    return Find(head, name).node;
}

FoundNode<ModelOption> FindByNameIndexed(const ModelOption* head, std::string_view name)
{
    return Find(head, name);
}

FoundNode<ModelFeature> FindByNameIndexed(const ModelFeature* head, std::string_view name)
{
    return Find(head, name);
}

FoundNode<ModelOption> FindByTranslationOrName(const ModelOption* head, std::string_view text)
{
    uint32_t index = 0;
    for (; head; head = head->next.get(), ++index)
        if ((head->translation && View(head->translation) == text) || NameOf(*head) == text)
            return {head, static_cast<uint16_t>(std::min<uint32_t>(index, kNotFound))};
    return {nullptr, kNotFound};
}

uint32_t DefaultResolutionDpi(const ModelDescription* model)
{
    const ModelFeature* resolutions = BuiltinFeature(model, kFeatureResolution);
    return resolutions ? static_cast<uint32_t>(resolutions->defaultOption) : kFallbackDpi;
}

const ResolutionOption* FindResolutionOption(const ModelDescription* model, int32_t dpi)
{
    const ModelOption* found =
        FindFirstMatching(FirstOption(BuiltinFeature(model, kFeatureResolution)),
                          [dpi](const ModelOption* option) { return DecimalOf(option->name.get()) != dpi; });
    return reinterpret_cast<const ResolutionOption*>(found);
}

uint16_t FeatureDefaultValue(const ModelDescription* model, FeatureIndex index)
{
    const ModelFeature* feature = BuiltinFeature(model, index);
    if (!feature)
        return FallbackOf(index);
    if (feature->defaultOption > std::numeric_limits<uint32_t>::max())
        return 0;
    const ModelOption* option = NthNode(FirstOption(feature), static_cast<uint32_t>(feature->defaultOption));
    return option ? static_cast<uint16_t>(DecimalOf(option->invocation.get())) : 0;
}

uint16_t SleepModeListItem(const ModelDescription* model, uint32_t n)
{
    return model ? ListItem(model->sleepModeList, n) : kNoListItem;
}

uint16_t MemorySizeListItem(const ModelDescription* model, uint32_t n)
{
    return model ? ListItem(model->memorySizeList, n) : kNoListItem;
}

bool TrayHasChoice(const ModelDescription* model)
{
    return NthNode(FirstOption(BuiltinFeature(model, kFeatureTray)), 1) != nullptr;
}

bool DuplexAvailable(const ModelDescription* model)
{
    return FirstOption(BuiltinFeature(model, kFeatureDuplex)) != nullptr;
}

uint16_t DocumentFeatureDefaults(const ModelDescription* model, uint8_t (&selections)[kMaxSelections])
{
    if (!model)
        return 0;
    const ModelFeature* feature = model->features.get();
    for (uint16_t d = 0; d < DocumentSelections(*model) && feature; ++d, feature = feature->next.get())
        selections[d] = feature->featureIndex == kFeatureResolution ? static_cast<uint8_t>(kAnyOption)
                                                                    : SelectionOf(feature->defaultOption);
    return model->documentFeatureCount;
}

bool OptionIsOff(const ModelDescription* model, uint16_t feature, uint16_t option)
{
    if (!model || feature == kUnresolved || option == kAnyOption)
        return false;
    const ModelOption* found = NthNode(FirstOption(NthNode(model->features.get(), feature)), option);
    return found && IsOff(*found);
}

bool IsConstrained(const ModelDescription* model, uint16_t featureA, uint16_t optionA, uint16_t featureB,
                   uint16_t optionB)
{
    const auto* constraints = model ? model->constraints.get() : nullptr;
    if (!constraints || featureA == kUnresolved)
        return false;
    for (const ConstraintEntry& entry : *constraints) {
        if (entry.feature1 != featureA || entry.feature2 != featureB)
            continue;
        const bool applies = entry.option1 == optionA ||
                             (entry.option1 == kAnyOption && !OptionIsOff(model, featureA, optionA));
        if (applies && (entry.option2 == optionB ||
                        (entry.option2 == kAnyOption && !OptionIsOff(model, featureB, optionB))))
            return true;
    }
    return false;
}

uint32_t FindConflict(const ModelDescription* model, const uint8_t* installableSelections,
                      const uint8_t* documentSelections, uint16_t feature, uint16_t option)
{
    if (!model)
        return 0;
    if (!documentSelections)
        return FindInstallableConflict(model, installableSelections,
                                       static_cast<uint16_t>(model->documentFeatureCount + feature), option,
                                       feature);
    if (option == kAnyOption)
        return 0;
    for (uint16_t d = 0; d < DocumentSelections(*model); ++d)
        if (d != feature && documentSelections[d] < kAnyOption &&
            IsConstrained(model, d, documentSelections[d], feature, option))
            return ConflictCode(kDocumentConflict, d, documentSelections[d]);
    return FindInstallableConflict(model, installableSelections, feature, option, kNotFound);
}

uint16_t ResolveInstallableConflicts(const ModelDescription* model, uint8_t (&selections)[kMaxSelections])
{
    if (!model)
        return 0;
    InstallableChoices choices(*model, selections);
    for (uint16_t j = 0; j < InstallableSelections(*model); ++j)
        choices.Repair(j);
    return model->installableFeatureCount;
}

int32_t MicronsToPoints256(int32_t microns)
{
    return Truncate(static_cast<float>(microns) * kPoints256PerInch / kMicronsPerInch);
}

int32_t Points256ToMicrons(int32_t points256)
{
    return Truncate(static_cast<float>(points256) * kMicronsPerInch / kPoints256PerInch);
}

} // namespace psui
