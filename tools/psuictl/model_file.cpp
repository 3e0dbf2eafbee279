#include "tools/psuictl/model_file.h"

#include <cstring>
#include <iterator>

#include "tools/psuictl/failure.h"

namespace psuictl {
namespace {

using psui::DiagnosticKind;

struct KindText
{
    DiagnosticKind kind;
    const char* word;
    const char* message; ///< {keyword} and {detail} stand for the finding's texts
};

constexpr KindText kKinds[] = {
    {DiagnosticKind::BadShape, "bad-shape",
     "this is no statement; write *Keyword, an option keyword where one is needed, a colon and the value"},
    {DiagnosticKind::FieldTooLong, "field-too-long",
     "a keyword, option keyword or translation is longer than 40 characters and stops the compilation; "
     "shorten it"},
    {DiagnosticKind::UnknownKeyword, "unknown-keyword",
     "the driver knows no keyword {keyword} and ignores it; check the spelling or open a UI block for it"},
    {DiagnosticKind::WrongValueKind, "wrong-value-kind",
     "{keyword} does not take this kind of value; add or remove the double quotes, or write the missing "
     "value"},
    {DiagnosticKind::OptionNotAllowed, "option-not-allowed",
     "{keyword} takes no option keyword; remove {detail}"},
    {DiagnosticKind::OptionMissing, "option-missing",
     "{keyword} needs an option keyword; write one between the keyword and the colon"},
    {DiagnosticKind::RepeatedKeyword, "repeated-keyword",
     "{keyword} was given before and only the first statement counts; remove one of them"},
    {DiagnosticKind::BadNumber, "bad-number",
     "{detail} is no number that {keyword} can take; write digits without blanks before them, within 32 "
     "bits"},
    {DiagnosticKind::BadHexText, "bad-hex-text",
     "between < and > only pairs of hex digits are allowed; correct {detail} or leave out the brackets"},
    {DiagnosticKind::UnknownWord, "unknown-word",
     "{keyword} does not know the word {detail}; use one of its own words"},
    {DiagnosticKind::TooFewValues, "too-few-values",
     "the list {detail} of {keyword} is too short; add what is missing"},
    {DiagnosticKind::BadBlock, "bad-block",
     "a group or UI block is opened twice, left open or closed without being open ({keyword} {detail}); "
     "pair the statements"},
    {DiagnosticKind::EmptyName, "empty-name",
     "{keyword} names no feature; write the feature's name after the star"},
    {DiagnosticKind::UnfinishedStatement, "unfinished-statement",
     "the text ends inside this statement, which is dropped; close its quote and end the last line with a "
     "line break"},
    {DiagnosticKind::DefaultNamesNothing, "default-names-nothing",
     "the default {detail} of {keyword} is none of its options; correct the name"},
    {DiagnosticKind::ConstraintNamesNothing, "constraint-names-nothing",
     "a constraint on {detail} names a feature or option that does not exist, and never applies; correct "
     "the names"},
    {DiagnosticKind::OrderNamesNothing, "order-names-nothing",
     "an order dependency of {detail} names a feature or option that does not exist, and is void; correct "
     "the names"},
    {DiagnosticKind::PageSizeWithoutGeometry, "page-size-without-geometry",
     "page size {detail} has no dimensions; add a PaperDimension statement unless users define this size"},
    {DiagnosticKind::PaperListsOutOfStep, "paper-lists-out-of-step",
     "Paper and PageSize must list the same options in the same order, and part at {detail}; papers get "
     "wrong sizes from there on"},
    {DiagnosticKind::OutOfMemory, "out-of-memory", "memory ran out; close other programs and try again"},
    {DiagnosticKind::TooMany, "too-many",
     "{keyword} {detail} is beyond the limit of 65535 and is dropped; remove some statements"},
};

constexpr bool KindsAreInOrder()
{
    for (size_t i = 0; i < std::size(kKinds); ++i) {
        if (kKinds[i].kind != static_cast<DiagnosticKind>(i))
            return false;
    }
    return std::size(kKinds) == static_cast<size_t>(DiagnosticKind::TooMany) + 1;
}
static_assert(KindsAreInOrder());

class FindingList final : public psui::DiagnosticSink
{
public:
    explicit FindingList(std::vector<Finding>& findings) : findings_(findings) {}

    void Report(const psui::Diagnostic& diagnostic) override
    {
        findings_.push_back({diagnostic.kind, diagnostic.rejected, diagnostic.line,
                             ReadableLine(diagnostic.keyword), ReadableLine(diagnostic.detail)});
    }

private:
    std::vector<Finding>& findings_;
};

void Replace(std::string& text, std::string_view place, const std::string& with)
{
    if (const size_t found = text.find(place); found != std::string::npos)
        text.replace(found, place.size(), with);
}

std::string Named(const std::string& name, const char* otherwise)
{
    return name.empty() ? otherwise : "'" + name + "'";
}

/// The first bytes of every image.
struct ImageHead
{
    uint32_t size;
    uint8_t between[20];
    uint16_t formatVersion;
};
static_assert(offsetof(ImageHead, formatVersion) == offsetof(psui::ModelDescription, formatVersion));

bool IsImage(const Bytes& bytes)
{
    ImageHead head;
    if (bytes.size() < psui::kSmallestUsableImage)
        return false;
    std::memcpy(&head, bytes.data(), sizeof head);
    return head.size == bytes.size() && head.formatVersion == psui::kImageFormatVersion;
}

} // namespace

std::string MessageOf(const Finding& finding)
{
    std::string message = kKinds[static_cast<size_t>(finding.kind)].message;
    Replace(message, "{keyword}", Named(finding.keyword, "the statement"));
    Replace(message, "{detail}", Named(Shortened(finding.detail), "what is there"));
    return message;
}

const char* KindWord(DiagnosticKind kind)
{
    return kKinds[static_cast<size_t>(kind)].word;
}

std::string PlaceOf(const std::string& file, const Finding& finding)
{
    return file + (finding.line ? ":" + std::to_string(finding.line) : "") + ": ";
}

CompiledText CompileText(const Bytes& text, const WideString& path)
{
    CompiledText compiled;
    FindingList sink(compiled.findings);
    const std::span<const char> characters(reinterpret_cast<const char*>(text.data()), text.size());
    compiled.image.reset(psui::CompileToImage(characters, path.c_str(), &sink));
    return compiled;
}

std::string ReasonOf(const CompiledText& compiled)
{
    if (compiled.findings.empty())
        return "there is not enough memory";
    const Finding& last = compiled.findings.back();
    return (last.line ? "line " + std::to_string(last.line) + ": " : "") + MessageOf(last);
}

LoadedModel::LoadedModel(const std::string& file)
{
    const Bytes bytes = LoadFile(file);
    if (IsImage(bytes)) {
        Resolve(bytes.data(), bytes.size(), file);
        return;
    }
    const CompiledText compiled = CompileText(bytes, file == "-" ? Wide(file) : HostPath(file));
    if (!compiled.image)
        throw Failure("'" + file + "' does not compile: " + ReasonOf(compiled));
    Resolve(compiled.image.get(), compiled.image->imageSize, file);
}

LoadedModel::LoadedModel(const CompiledText& compiled)
{
    Resolve(compiled.image.get(), compiled.image->imageSize, "");
}

void LoadedModel::Resolve(const void* image, size_t size, const std::string& file)
{
    block_.resize((size + sizeof(uint64_t) - 1) / sizeof(uint64_t));
    std::memcpy(block_.data(), image, size);
    if (!psui::ResolveImage({reinterpret_cast<uint8_t*>(block_.data()), size}))
        throw Failure("'" + file + "' is a damaged model image; delete it and compile its text again");
}

} // namespace psuictl
