#pragma once
// Finding and creating the features and options that statements name.
#include <cstdint>
#include <string_view>

#include "psui/model/compile_root.h"

namespace psui::compiler {

/// What the system knows of a feature before any statement names it.
struct BuiltinFeature
{
    std::string_view name;
    uint16_t optionRecordSize;
    uint16_t uiType;
    uint16_t index; ///< slot, or kFeatureGeneric
};

/// The feature in slot `index` (below 32).
const BuiltinFeature& BuiltinRow(uint16_t index);

/// The built-in feature of that name, else a generic one.
BuiltinFeature DescribeFeature(std::string_view name);

/// The feature of that description, or null when no statement has named it yet.
Feature* FindFeature(const CompileRoot& root, const BuiltinFeature& description);

/// Appends a feature. Null without memory; there must be fewer than kMaxEntries.
Feature* CreateFeature(CompileRoot& root, const BuiltinFeature& description);

/// The option of that name, or null.
Option* FindOption(const CompileRoot& root, Feature& feature, std::string_view name);

/// Appends an option of the feature's kind, all zero but for its name. Null without memory.
Option* CreateOption(CompileRoot& root, Feature& feature, std::string_view name);

} // namespace psui::compiler
