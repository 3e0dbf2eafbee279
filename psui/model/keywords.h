#pragma once
// The keywords of the model description language.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "psui/model/handlers.h"

namespace psui::compiler {

// Flag word of a keyword. Bits 0 to 15 hold the index of the feature that its statements feed, or
// kFeatureGeneric; bits 16 to 18 the value rule, of which no bit means any value.
constexpr uint32_t kQuotedValue = 1u << 16;
constexpr uint32_t kQuotedOrBareValue = 2u << 16;
constexpr uint32_t kBareValue = 4u << 16; ///< and not empty
constexpr uint32_t kValueRuleMask = 7u << 16;
constexpr uint32_t kTakesOption =
    1u << 19; ///< must have an option keyword; without this bit it must have none
constexpr uint32_t kRepeatable = 1u << 20;

struct KeywordEntry
{
    std::string_view keyword;
    Handler handler;
    uint32_t flags;

    constexpr uint16_t FeatureIndex() const { return static_cast<uint16_t>(flags); }
    constexpr uint32_t ValueRule() const { return flags & kValueRuleMask; }
    constexpr bool TakesOption() const { return (flags & kTakesOption) != 0; }
    /// Whether only the first good statement of this keyword counts.
    constexpr bool IsSingleValued() const { return (flags & (kTakesOption | kRepeatable)) == 0; }
};

constexpr uint16_t kKeywordCount = 119;

/// The entry of `keyword`, or null.
const KeywordEntry* FindKeyword(std::string_view keyword);

/// The position of an entry that FindKeyword returned.
uint16_t KeywordNumber(const KeywordEntry& entry);

/// All entries in table order.
std::span<const KeywordEntry> AllKeywords();

} // namespace psui::compiler
