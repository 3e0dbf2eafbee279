#include "psui/model/statement.h"

#include <algorithm>
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

} // namespace

TokenStatus Tokenizer::Next(ModelStatement& statement)
{
    statement = {};
    if (!FindStar())
        return TokenStatus::EndOfText;
    statement.star = at_++;
    TokenStatus status = ReadField<kKeywordCharacter>(statement.keyword);
    if (status != TokenStatus::Statement)
        return status;
    SkipBlanks();
    if (at_ == end_)
        return TokenStatus::EndOfText;
    if (IsA(*at_, kLineEnd)) {
        ++at_;
        return TokenStatus::Statement;
    }
    if (*at_ != kColon) {
        status = ReadOption(statement);
        if (status != TokenStatus::Statement)
            return status;
    }
    ++at_;
    SkipBlanks();
    return ReadValue(statement);
}

// Moves to the next line that begins a statement; false when there is none.
bool Tokenizer::FindStar()
{
    while (at_ != end_) {
        if (*at_ == kStar && (at_ + 1 == end_ || at_[1] != kCommentMark))
            return true;
        if (!SkipLine())
            return false;
    }
    return false;
}

// Moves behind the next line end; false when the text ends first.
bool Tokenizer::SkipLine()
{
    at_ = FindFirst<'\n', '\r'>(at_, end_);
    if (at_ == end_)
        return false;
    if (*at_++ == '\r' && at_ != end_ && *at_ == '\n')
        ++at_;
    return true;
}

void Tokenizer::SkipBlanks()
{
    while (at_ != end_ && IsA(*at_, kBlank))
        ++at_;
}

// Reading resumes behind the character that does not fit, as if a line began there.
TokenStatus Tokenizer::Reject()
{
    ++at_;
    return TokenStatus::Rejected;
}

template <CharacterClass Class>
TokenStatus Tokenizer::ReadField(std::string_view& field)
{
    const char* begin = at_;
    const size_t limit = std::min(static_cast<size_t>(end_ - begin), kMaxFieldLength + 1);
    at_ = SkipAll<Class>(begin, begin + limit);
    if (static_cast<size_t>(at_ - begin) > kMaxFieldLength)
        return TokenStatus::FieldTooLong;
    if (at_ == end_)
        return TokenStatus::EndOfText;
    if (at_ == begin)
        return Reject();
    field = {begin, static_cast<size_t>(at_ - begin)};
    return TokenStatus::Statement;
}

// Reads the option keyword and its translation and stops at the colon.
TokenStatus Tokenizer::ReadOption(ModelStatement& statement)
{
    TokenStatus status = ReadField<kOptionCharacter>(statement.option);
    if (status != TokenStatus::Statement)
        return status;
    SkipBlanks();
    if (at_ != end_ && *at_ == kSlash) {
        ++at_;
        status = ReadField<kTranslationCharacter>(statement.translation);
        if (status != TokenStatus::Statement)
            return status;
    }
    if (at_ == end_)
        return TokenStatus::EndOfText;
    return *at_ == kColon ? TokenStatus::Statement : Reject();
}

TokenStatus Tokenizer::ReadValue(ModelStatement& statement)
{
    if (at_ == end_)
        return TokenStatus::EndOfText;
    const char* begin = at_;
    if (*begin == kQuote) {
        ++begin;
        at_ = static_cast<const char*>(std::memchr(begin, kQuote, static_cast<size_t>(end_ - begin)));
        if (!at_) {
            at_ = end_;
            return TokenStatus::EndOfText;
        }
        statement.kind = ValueKind::Quoted;
    } else {
        at_ = FindFirst<kSlash, '\n', '\r'>(begin, end_);
        statement.kind = *begin == kSymbolMark ? ValueKind::Symbol : ValueKind::Bare;
    }
    statement.value = {begin, static_cast<size_t>(at_ - begin)};
    if (hasZeros_)
        statement.value = statement.value.substr(0, statement.value.find('\0'));
    return SkipLine() ? TokenStatus::Statement : TokenStatus::EndOfText;
}

} // namespace psui::compiler
