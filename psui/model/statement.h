#pragma once
// Cuts a model description text into statements. A statement is a line that begins with "*": a keyword, then
// optionally an option keyword (itself optionally followed by "/" and a translation), then optionally ":" and
// a value. Nothing is copied: the parts of a statement are views of the text.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "psui/model/characters.h"

namespace psui::compiler {

/// Longest keyword, option keyword and translation. A longer one stops the compilation.
constexpr size_t kMaxFieldLength = 40;

enum class ValueKind : uint8_t
{
    None,   ///< the line ends after the keyword
    Quoted, ///< between double quotes, over any number of lines
    Bare,   ///< up to the line end or a "/"; may be empty
    Symbol, ///< a bare value that begins with "^"
};

struct ModelStatement
{
    const char* star; ///< where the statement begins; null before the first
    std::string_view keyword;
    std::string_view option;      ///< empty without option keyword
    std::string_view translation; ///< as written; empty without translation
    std::string_view value;       ///< without quotes; ends before its first zero byte
    ValueKind kind;
};

enum class TokenStatus : uint8_t
{
    Statement = 0,
    EndOfText = 1, ///< with a star when the text ended inside a statement, which is dropped
    Rejected = 3,  ///< not a statement; go on with the next call
    FieldTooLong = 4,
};

class Tokenizer
{
public:
    /// The text must outlive the tokenizer and the statements that it yields.
    explicit Tokenizer(std::string_view text)
        : at_(text.data()), end_(text.data() + text.size()), hasZeros_(text.find('\0') != text.npos)
    {
    }

    /// Reads the next statement. With any status `statement.star` tells where reading began.
    TokenStatus Next(ModelStatement& statement);

private:
    const char* at_;
    const char* end_;
    bool hasZeros_; ///< somewhere in the text, so that values have to be searched for one
};

} // namespace psui::compiler
