#include "psui/model/statement.h"

#include <cstring>

#include "psui/model/scan.h"

namespace psui::compiler {

namespace {

constexpr char kStar = '*';
constexpr char kCommentMark = '%';
constexpr char kQuote = '"';
constexpr char kColon = ':';
constexpr char kSlash = '/';
constexpr char kSymbolMark = '^';

// Reading changes a copy of the tokenizer's place, which the processor keeps at hand.
struct Place
{
    const char* at;
    const char* end;

    bool IsAtEnd() const { return at == end; }
};

// Moves behind the next line end; false when the text ends first.
bool SkipLine(Place& text)
{
    if (!text.IsAtEnd() && !LineEnd::Is(*text.at)) // values mostly end with their line
        text.at = Find<LineEnd>(text.at, text.end);
    if (text.IsAtEnd())
        return false;
    if (*text.at++ == '\r' && !text.IsAtEnd() && *text.at == '\n')
        ++text.at;
    return true;
}

// Moves to the next line that begins a statement; false when there is none.
bool FindStar(Place& text)
{
    while (!text.IsAtEnd()) {
        if (*text.at == kStar && (text.at + 1 == text.end || text.at[1] != kCommentMark))
            return true;
        if (!SkipLine(text))
            return false;
    }
    return false;
}

void SkipBlanks(Place& text)
{
    while (!text.IsAtEnd() && IsA(*text.at, kBlank))
        ++text.at;
}

// Reading resumes behind the character that does not fit, as if a line began there.
TokenStatus Reject(Place& text)
{
    ++text.at;
    return TokenStatus::Rejected;
}

template <CharacterClass Class>
TokenStatus ReadField(Place& text, std::string_view& field)
{
    const char* begin = text.at;
    text.at = Find<Outside<Class>>(begin, text.end);
    const size_t length = static_cast<size_t>(text.at - begin);
    if (length > kMaxFieldLength)
        return TokenStatus::FieldTooLong;
    if (text.IsAtEnd())
        return TokenStatus::EndOfText;
    if (length == 0)
        return Reject(text);
    field = {begin, length};
    return TokenStatus::Statement;
}

// Reads the option keyword and its translation and stops at the colon.
TokenStatus ReadOption(Place& text, ModelStatement& statement)
{
    TokenStatus status = ReadField<kOptionCharacter>(text, statement.option);
    if (status != TokenStatus::Statement)
        return status;
    SkipBlanks(text);
    if (!text.IsAtEnd() && *text.at == kSlash) {
        ++text.at;
        status = ReadField<kTranslationCharacter>(text, statement.translation);
        if (status != TokenStatus::Statement)
            return status;
    }
    if (text.IsAtEnd())
        return TokenStatus::EndOfText;
    return *text.at == kColon ? TokenStatus::Statement : Reject(text);
}

TokenStatus ReadValue(Place& text, ModelStatement& statement)
{
    if (text.IsAtEnd())
        return TokenStatus::EndOfText;
    const char* begin = text.at;
    if (*begin == kQuote) {
        ++begin;
        const auto* close =
            static_cast<const char*>(std::memchr(begin, kQuote, static_cast<size_t>(text.end - begin)));
        text.at = close ? close : text.end;
        if (!close)
            return TokenStatus::EndOfText;
        statement.kind = ValueKind::Quoted;
    } else {
        text.at = Find<BareValueEnd>(begin, text.end);
        statement.kind = *begin == kSymbolMark ? ValueKind::Symbol : ValueKind::Bare;
    }
    statement.value = {begin, static_cast<size_t>(text.at - begin)};
    if (statement.kind == ValueKind::Quoted)
        ++text.at;
    return SkipLine(text) ? TokenStatus::Statement : TokenStatus::EndOfText;
}

TokenStatus ReadStatement(Place& text, ModelStatement& statement)
{
    statement = {};
    if (!FindStar(text))
        return TokenStatus::EndOfText;
    statement.star = text.at++;
    TokenStatus status = ReadField<kKeywordCharacter>(text, statement.keyword);
    if (status != TokenStatus::Statement)
        return status;
    SkipBlanks(text);
    if (text.IsAtEnd())
        return TokenStatus::EndOfText;
    if (IsA(*text.at, kLineEnd)) {
        ++text.at;
        return TokenStatus::Statement;
    }
    if (*text.at != kColon) {
        status = ReadOption(text, statement);
        if (status != TokenStatus::Statement)
            return status;
    }
    ++text.at;
    SkipBlanks(text);
    return ReadValue(text, statement);
}

} // namespace

TokenStatus Tokenizer::Next(ModelStatement& statement)
{
    Place text{at_, end_};
    const TokenStatus status = ReadStatement(text, statement);
    at_ = text.at;
    if (hasZeros_)
        statement.value = statement.value.substr(0, statement.value.find('\0'));
    return status;
}

} // namespace psui::compiler
