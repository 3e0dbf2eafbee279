#pragma once
// Compiled dialog templates, in the extended format.
#include "tools/langcheck/language.h"
#include "tools/langcheck/reader.h"

namespace langcheck {

/// Fills everything of `dialog` but its id. Returns false when the template is cut short, or of the old
/// format.
bool ReadDialog(Reader& reader, Dialog& dialog);

} // namespace langcheck
