#pragma once
// What the compiler skipped and why. The compiler itself stays silent: only a caller that hands in a sink
// hears of it, and without one nothing is spent on it.
#include <cstdint>
#include <string_view>

namespace psui {

enum class DiagnosticKind : uint8_t
{
    BadShape,            ///< the line is not a statement (empty keyword, missing colon, empty option …)
    FieldTooLong,        ///< keyword, option or translation over 40 characters; the compilation stops
    UnknownKeyword,      ///< accepted and ignored
    WrongValueKind,      ///< quoted value expected, bare value expected, value missing
    OptionNotAllowed,    ///< option keyword where the keyword takes none
    OptionMissing,       ///< no option keyword where the keyword needs one
    RepeatedKeyword,     ///< a later statement of a single-valued keyword
    BadNumber,           ///< no digit, or more than 32 bits hold
    BadHexText,          ///< something other than pairs of hex digits between < and >
    UnknownWord,         ///< a word that the keyword's vocabulary does not have
    TooFewValues,        ///< a list value with fewer words than it needs
    BadBlock,            ///< group or UI block opened or closed at the wrong place
    EmptyName,           ///< a feature name that is empty after its star
    UnfinishedStatement, ///< the text ends inside a statement
    DefaultNamesNothing, ///< a default that no option has
    ConstraintNamesNothing,
    OrderNamesNothing,
    PageSizeWithoutGeometry,
    PaperListsOutOfStep, ///< Paper and PageSize do not list the same options in the same order
    OutOfMemory,
    TooMany, ///< more than 65535 features, order entries or constraints; the first ones stay
};

struct Diagnostic
{
    DiagnosticKind kind;
    bool rejected;            ///< the statement changed nothing although it looks as if it should
    uint32_t line;            ///< 1-based line of the statement's star; 0 when it is about the whole text
    std::string_view keyword; ///< as written; may be empty
    std::string_view detail;  ///< the offending word or name; may be empty
};

/// Receives diagnostics in text order, those about the finished model last. The texts of a diagnostic are
/// valid during the call only.
class DiagnosticSink
{
public:
    virtual void Report(const Diagnostic& diagnostic) = 0;

protected:
    ~DiagnosticSink() = default;
};

} // namespace psui
