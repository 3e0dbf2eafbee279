#pragma once
// Questions to a loaded model. Every one accepts a missing feature or list and answers with its neutral
// value.
#include <cstdint>
#include <string_view>

#include "psui/model/model.h"

namespace psui {

constexpr uint16_t kNotFound = 65535;

/// h = (h << 1) ^ byte, in 32 bits: the hash that every named record stores.
constexpr uint32_t NameHash(std::string_view name)
{
    uint32_t hash = 0;
    for (char c : name)
        hash = (hash << 1) ^ static_cast<uint8_t>(c);
    return hash;
}

/// Leading blanks skipped, optional sign, digits up to the first other character; 0 without digits or for
/// null. A number beyond 32 bits saturates.
int32_t DecimalOf(const char* text);
int32_t DecimalOf(std::string_view text);

/// The feature in slot `index`, or null.
const ModelFeature* BuiltinFeature(const ModelDescription* model, FeatureIndex index);

/// First option of `feature`; null for no feature.
const ModelOption* FirstOption(const ModelFeature* feature);

/// Number of options; 0 for no feature.
uint32_t OptionCount(const ModelFeature* feature);

/// The n-th record (0-based) of a list, or null. Node is any record whose first field is `next`.
template <typename Node>
const Node* NthNode(const Node* head, uint32_t n)
{
    while (head && n-- > 0)
        head = head->next.get();
    return head;
}

template <typename Node>
uint32_t ListLength(const Node* head)
{
    uint32_t count = 0;
    for (; head; head = head->next.get())
        ++count;
    return count;
}

/// The option whose name equals `name` (hash first, then text), or null.
const ModelOption* FindByName(const ModelOption* head, std::string_view name);
/// The feature whose keyword equals `name`, or null.
const ModelFeature* FindByName(const ModelFeature* head, std::string_view name);

template <typename Node>
struct FoundNode
{
    const Node* node; ///< null when absent
    uint16_t index;   ///< kNotFound when absent or beyond 65534
};

FoundNode<ModelOption> FindByNameIndexed(const ModelOption* head, std::string_view name);
FoundNode<ModelFeature> FindByNameIndexed(const ModelFeature* head, std::string_view name);

/// The first option whose translation equals `text`, or whose name does. An empty text matches an option
/// without a translation only by its name.
FoundNode<ModelOption> FindByTranslationOrName(const ModelOption* head, std::string_view text);

/// The first record for which `predicate(record)` returns 0, or null.
template <typename Node, typename Predicate>
const Node* FindFirstMatching(const Node* head, Predicate predicate)
{
    while (head && predicate(head) != 0)
        head = head->next.get();
    return head;
}

/// Default resolution in dots per inch; 300 without a Resolution feature.
uint32_t DefaultResolutionDpi(const ModelDescription* model);

/// The first Resolution option whose name, read as a decimal integer, equals `dpi`; or null.
const ResolutionOption* FindResolutionOption(const ModelDescription* model, int32_t dpi);

/// The number in the default option's invocation. Without the feature its fallback value (MultiplePage 0,
/// MediaType 0, HRC 0, Tray 7, Thickness 0, CM 1, CAPT 1, DOCTYPE 2, TTMODE 0, CMPMODE 9, GMODE 0, DIRMODE 1,
/// CHALFTONE 3, COLOR 2, PageProtect 1, KCDraft 0, SFQuality 0, PrtArea 0, any other 0); 0 when it has no
/// options or the default lies past the end.
uint16_t FeatureDefaultValue(const ModelDescription* model, FeatureIndex index);

/// The n-th number (0-based) of the model's list; 1 when the list is missing, longer than 29 characters or
/// without a separator; the last number when it has fewer.
uint16_t SleepModeListItem(const ModelDescription* model, uint32_t n);
uint16_t MemorySizeListItem(const ModelDescription* model, uint32_t n);

/// Whether the Tray feature exists and has at least two options.
bool TrayHasChoice(const ModelDescription* model);

/// Whether the Duplex feature exists and has options.
bool DuplexAvailable(const ModelDescription* model);

/// Most features of one group that a selection array holds.
constexpr uint16_t kMaxSelections = 64;

/// Writes each document feature's default option index (255 for Resolution, and for an index above 254) to
/// `selections` in feature order, at most kMaxSelections of them; the rest is left alone. Returns
/// documentFeatureCount.
uint16_t DocumentFeatureDefaults(const ModelDescription* model, uint8_t (&selections)[kMaxSelections]);

/// Whether that option of feature number `feature` is named exactly "None" or "False".
bool OptionIsOff(const ModelDescription* model, uint16_t feature, uint16_t option);

/// Whether a constraint forbids option b of feature number B while option a of feature number A is chosen.
bool IsConstrained(const ModelDescription* model, uint16_t featureA, uint16_t optionA, uint16_t featureB,
                   uint16_t optionB);

/// Finds a choice that forbids `option` of `feature`. Both arrays hold one option index per feature, in group
/// order, kMaxSelections entries. With a document selection, `feature` is a feature number; without (null),
/// it is a position in the installable group. Returns 0 when there is none, else 0x20000 (document) or
/// 0x10000 (installable) plus feature number * 256 plus option of the choice that forbids it.
uint32_t FindConflict(const ModelDescription* model, const uint8_t* installableSelections,
                      const uint8_t* documentSelections, uint16_t feature, uint16_t option);

/// Fills `selections` with the installable features' defaults and moves choices that exclude each other to
/// free options. At most kMaxSelections features take part. Returns installableFeatureCount.
uint16_t ResolveInstallableConflicts(const ModelDescription* model, uint8_t (&selections)[kMaxSelections]);

/// Thousandths of a millimetre to 24.8 points and back; single precision, truncated toward zero.
int32_t MicronsToPoints256(int32_t microns);
int32_t Points256ToMicrons(int32_t points256);

} // namespace psui
