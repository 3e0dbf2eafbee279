#pragma once
// Tables of a model's options, kept in the context for the lists that show them. A table lives until it is
// built again or the sheet is destroyed.
#include <span>
#include <string_view>

#include <windows.h>

#include "psui/entry/context.h"
#include "psui/model/queries.h"

namespace psui {

/// The rows of a table, without its end; none before it was built.
std::span<const OptionRow> OptionTable(const PrinterUiContext* context, OptionTableIndex index);

/// The value of row `row`; `otherwise` when the table is shorter.
uint32_t OptionValueAt(const PrinterUiContext* context, OptionTableIndex index, size_t row,
                       uint32_t otherwise);

/// Builds the table anew from the model, one row an option with a name. Without memory it becomes the
/// built-in table, which has texts of its own. A feature that the model lacks gives an empty table.
void BuildOptionTable(PrinterUiContext* context, OptionTableIndex index);

/// Whether the table is the built-in one.
bool IsBuiltinTable(const PrinterUiContext* context, OptionTableIndex index);

/// The model's feature behind a table, or null.
const ModelFeature* FeatureOfTable(const PrinterUiContext* context, OptionTableIndex index);

/// Whether an option with that value is offered in the language at hand.
bool IsOffered(OptionTableIndex index, uint32_t value);

/// Calls visit(name, value) for each option that BuildOptionTable makes a row of, in the order of the rows.
template <typename Visit>
void ForEachOffered(const PrinterUiContext* context, OptionTableIndex index, Visit visit)
{
    for (const ModelOption* option = FirstOption(FeatureOfTable(context, index)); option;
         option = option->next.get()) {
        const char* name = option->name.get();
        const auto value = static_cast<uint32_t>(DecimalOf(option->invocation.get()));
        if (name && *name && IsOffered(index, value))
            visit(std::string_view(name), value);
    }
}

} // namespace psui
