#pragma once
// The settings as text: label and value a line, in sections.
#include "psui/base/label.h"
#include "psui/entry/context.h"

namespace psui {

/// Longest summary, in units with the terminator; a longer one is cut.
constexpr int kSummaryUnits = 4096;

/// Appends the summary of the context's working record.
void BuildSettingsSummary(PrinterUiContext* context, TextCursor& cursor);

} // namespace psui
