#pragma once
// What the statement handlers work with, and the rules that they share: how a statement is rejected, how a
// text is decoded, and how a statement finds or makes the feature and option that it feeds. A rejected
// statement changes nothing, so a handler reads and decodes everything before it creates a record.
#include <cstdint>
#include <string_view>

#include "psui/model/compile_root.h"
#include "psui/model/diagnostics.h"
#include "psui/model/features.h"
#include "psui/model/statement.h"

namespace psui::compiler {

/// Numbers the lines of a text. Counting starts where the last question ended, so asking in text order costs
/// one pass over the text in all. CR LF, LF and CR each end one line.
class LineCounter
{
public:
    explicit LineCounter(std::string_view text) : text_(text), at_(0), line_(1) {}

    /// The 1-based line of `place`; 0 when it lies outside the text.
    uint32_t LineOf(const char* place);

private:
    std::string_view text_;
    size_t at_;
    uint32_t line_;
};

/// What became of a statement.
enum class Outcome : uint8_t
{
    Done = 0,
    Rejected = 3,
    OutOfMemory = 4,
};

struct Compilation
{
    CompileRoot& root;
    DiagnosticSink* sink; ///< null when nobody wants to know
    LineCounter lines;
    ModelStatement statement; ///< the one being handled
};

/// Rejects the current statement.
Outcome Reject(Compilation& c, DiagnosticKind kind, std::string_view detail = {});

/// Tells the sink about something in the current statement that was passed over.
void Note(Compilation& c, DiagnosticKind kind, std::string_view detail = {});

/// Replaces every stretch of hex digit pairs between "<" and ">" by the bytes it stands for. A text without
/// such a stretch is returned as it is; the result ends before its first zero byte.
Outcome DecodeHex(Compilation& c, std::string_view text, std::string_view& decoded);

/// Keeps `text` unless one is there already.
void KeepFirst(std::string_view& kept, std::string_view text);
/// The same for a record's invocation or default.
void KeepFirstText(NamedRecord& record, std::string_view text);

/// Finds or creates the feature of that description.
Outcome TakeFeature(Compilation& c, const BuiltinFeature& description, Feature*& feature);

/// The same, and gives it the current statement's translation if it has none.
Outcome TakeTranslatedFeature(Compilation& c, const BuiltinFeature& description, Feature*& feature);

/// Finds or creates the option that the current statement names and gives it the statement's translation if
/// it has none.
Outcome TakeOption(Compilation& c, const BuiltinFeature& description, Option*& option);

/// The same for the feature of the open UI block.
Outcome TakeOpenBlockOption(Compilation& c, Option*& option);

/// TakeOption for the feature in slot `index`, as its own kind of option.
template <typename Kind = Option>
Outcome TakeBuiltinOption(Compilation& c, uint16_t index, Kind*& option)
{
    Option* base = nullptr;
    const Outcome outcome = TakeOption(c, BuiltinRow(index), base);
    option = static_cast<Kind*>(base);
    return outcome;
}

/// The statement's value as an invocation: decoded while a job-control block is open, else as written.
Outcome ReadInvocation(Compilation& c, std::string_view& invocation);

} // namespace psui::compiler
