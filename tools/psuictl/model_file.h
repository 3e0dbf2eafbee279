#pragma once
// Model descriptions as commands read them: compiled in memory, with everything the compiler had to say.
#include <memory>
#include <string>
#include <vector>

#include "psui/model/image.h"
#include "tools/psuictl/files.h"
#include "tools/psuictl/output.h"

namespace psuictl {

struct ModelDeleter
{
    void operator()(psui::ModelDescription* model) const { psui::FreeModelDescription(model); }
};
using ModelPtr = std::unique_ptr<psui::ModelDescription, ModelDeleter>;

/// One diagnostic of the compiler, with its texts kept.
struct Finding
{
    psui::DiagnosticKind kind;
    bool rejected;
    uint32_t line; ///< 1-based; 0 when it is about the whole text
    std::string keyword;
    std::string detail;
};

/// What happened and what to do, in one sentence for people.
std::string MessageOf(const Finding& finding);

/// The finding's short name: "unknown-keyword".
const char* KindWord(psui::DiagnosticKind kind);

/// "FILE:LINE: " or, for the whole text, "FILE: ".
std::string PlaceOf(const std::string& file, const Finding& finding);

struct CompiledText
{
    ModelPtr image; ///< packed, references still offsets; null when the text does not compile
    std::vector<Finding> findings;
};

/// Compiles a text whose full Windows path is `path`.
CompiledText CompileText(const Bytes& text, const WideString& path);

/// The finding that stopped a compilation, as "LINE: message" without the file's name.
std::string ReasonOf(const CompiledText& compiled);

/// A model ready for questions: references are addresses. It owns its block.
class LoadedModel
{
public:
    /// From a text or an image, told apart by the image's size word and format version. Throws Failure.
    explicit LoadedModel(const std::string& file);
    /// From a compiled text, which must have compiled.
    explicit LoadedModel(const CompiledText& compiled);

    const psui::ModelDescription& operator*() const
    {
        return *reinterpret_cast<const psui::ModelDescription*>(block_.data());
    }
    const psui::ModelDescription* operator->() const { return &**this; }

private:
    void Resolve(const void* image, size_t size, const std::string& file);

    std::vector<uint64_t> block_;
};

/// The whole model as JSON. Lengths are PostScript points with all their digits.
Json DescribeModel(const psui::ModelDescription& model);

/// Prints what DescribeModel gave, for people.
void PrintModel(std::ostream& out, const Json& model);

} // namespace psuictl
