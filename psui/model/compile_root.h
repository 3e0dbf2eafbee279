#pragma once
// The model while it is compiled. Records and texts come from the compilation's pool; a text that stands in
// the description as it is needed is not copied but viewed there, so the description lives as long as the
// root. A view without data means that there is no text; an empty text has data.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "psui/model/model.h"
#include "psui/model/name_index.h"
#include "psui/model/parse_pool.h"

namespace psui::compiler {

/// Most features, order entries and constraints of a model: their numbers are 16 bits wide, and 65535 means
/// none. What a text has beyond that is rejected, the first ones stay.
constexpr uint32_t kMaxEntries = 65535;

template <typename Node>
struct List
{
    Node* first;
    Node* last;
    uint32_t count;

    void Append(Node* node)
    {
        (first ? last->next : first) = node;
        last = node;
        ++count;
    }
};

/// A feature or an option.
struct NamedRecord
{
    const char* name;
    const char* translation; ///< decoded; null without one
    const char* text;        ///< an option's invocation, a feature's default option keyword; null without one
    uint32_t index;          ///< position in its list
    uint32_t textLength;
    uint16_t owner; ///< of an option: 1 + creation number of its feature; of a feature: 0
    uint8_t nameLength;
    uint8_t translationLength;

    std::string_view Name() const { return {name, nameLength}; }
    std::string_view Translation() const { return {translation, translationLength}; }
    std::string_view Text() const { return {text, textLength}; }
};

struct Option : NamedRecord
{
    Option* next;
};

struct InputSlot : Option
{
    uint32_t requiresPageRegion;
};

struct Memory : Option
{
    uint32_t memoryValue;
};

struct Resolution : Option
{
    std::string_view jclInvocation;
    std::string_view setResolutionInvocation;
    uint32_t screenAngle;
    uint32_t screenFreq;
};

struct PageSize : Option
{
    std::string_view pageSizeLInvocation;
    std::string_view pageRegionInvocation;
    uint32_t width;
    uint32_t height;
    ImageableArea imageableArea;
    ImageableArea imageableAreaL;
};

struct Feature : NamedRecord
{
    Feature* next;
    List<Option> options;
    Option* lastFound;      ///< where the next look-up begins: texts go through the options in order
    uint64_t defaultOption; ///< set when finished
    uint32_t number;        ///< position in the model's feature list, set when finished
    uint16_t featureIndex;
    uint16_t optionRecordSize;
    uint16_t uiType;
    uint16_t flags;
    uint16_t ordinal;
    uint16_t installable;
};

struct Font
{
    Font* next;
    std::string_view name;
    std::string_view value;
    uint16_t number;
};

struct PendingOrder
{
    PendingOrder* next;
    std::string_view feature;
    std::string_view option; ///< no data without option keyword
    OrderEntry entry;        ///< numbers are set when finished
};

/// One side of a constraint.
struct PendingChoice
{
    const char* feature;
    const char* option; ///< null stands for any option
    uint8_t featureLength;
    uint8_t optionLength;

    std::string_view Feature() const { return {feature, featureLength}; }
    std::string_view Option() const { return {option, optionLength}; }
};

struct PendingConstraint
{
    PendingConstraint* next;
    PendingChoice sides[2];
    ConstraintEntry entry; ///< set when finished
};

/// The texts of the header, in the order in which the image stores them.
enum HeaderText : uint8_t
{
    kTextNickName,
    kTextPassword,
    kTextExitServer,
    kTextCustomPageSizeCode,
    kTextJclBegin,
    kTextJclToPsInterpreter,
    kTextJclEnd,
    kTextSleepModeList,
    kTextMemorySizeList,
    kHeaderTextCount,
};

/// Root of a compilation; it lives in its own pool.
struct CompileRoot
{
    ModelDescription header; ///< numbers only; references are set in the packed copy
    const WCHAR* sourcePath;
    size_t sourcePathLength; ///< units without the terminator
    std::string_view texts[kHeaderTextCount];
    List<Feature> features;
    Feature* featureByIndex[kBuiltinFeatureCount];
    List<Font> fonts;
    List<PendingOrder> orders;
    List<PendingConstraint> constraints;

    ParsePool* pool;
    Feature* openBlock; ///< feature of the open UI block, or null
    uint32_t inInstallableGroup;
    NameIndex names;   ///< features and options; emptied when finished
    char* description; ///< the text, when the root owns it; else null
};

} // namespace psui::compiler
