#pragma once
// What a finished model shows that its writer did not mean.
#include <string_view>

#include "psui/model/compile_root.h"
#include "psui/model/diagnostics.h"

namespace psui::compiler {

/// Reports open blocks and groups, defaults, constraints and orders that name nothing, page sizes without
/// dimensions, and Paper and PageSize lists that do not agree. `root` is finished, its name index still
/// filled; `text` is what was compiled.
void ReviewModel(const CompileRoot& root, std::string_view text, DiagnosticSink& sink);

} // namespace psui::compiler
