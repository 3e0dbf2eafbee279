#pragma once
// Compiling a model description text: parse, finish, pack.
//
// A statement that breaks a rule is rejected and changes nothing; reading goes on with the next one. Only a
// keyword, option keyword or translation over 40 characters and want of memory stop a compilation, which then
// yields no model. No state is shared, so compilations may run at the same time on several threads.
#include <cstdint>
#include <memory>
#include <string_view>

#include <windows.h>

#include "psui/base/memory.h"
#include "psui/model/compile_root.h"
#include "psui/model/diagnostics.h"

namespace psui {

using compiler::CompileRoot;

/// Frees a root with everything that belongs to it.
struct CompileRootDeleter
{
    void operator()(CompileRoot* root) const;
};
using CompileRootPtr = std::unique_ptr<CompileRoot, CompileRootDeleter>;

/// The content of a description file.
struct DescriptionText
{
    HeapPtr<char> bytes; ///< null when the file could not be read
    size_t size;
};

/// Compiles the content of the text file `path`, which the root keeps. Null without memory or when the
/// compilation stopped.
CompileRootPtr CompileModelDescription(DescriptionText text, const WCHAR* path);

/// Compiles a text that stands in memory and outlives the root. `path` is recorded as its source; `sink` (may
/// be null) is told of everything that was skipped.
CompileRootPtr CompileDescriptionText(std::string_view text, const WCHAR* path, DiagnosticSink* sink);

/// The finishing steps, once, after the compilation: feature order and counts, limits of page sizes,
/// defaults, and the names in order entries and constraints. `sink` (may be null) is told of names that name
/// nothing; `text` is what was compiled.
void FinishModelDescription(CompileRoot& root, std::string_view text = {}, DiagnosticSink* sink = nullptr);

/// Packs a finished root into an image whose references are offsets, and releases the root in any case. Null
/// without memory or when the image would not fit 32 bits. Free the image with FreeModelDescription.
ModelDescription* PackModelDescription(CompileRootPtr root);

} // namespace psui
