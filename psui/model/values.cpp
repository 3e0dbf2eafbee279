#include "psui/model/values.h"

#include <algorithm>

#include "psui/model/scan.h"

namespace psui::compiler {

namespace {

constexpr uint64_t kMaxNumber = UINT32_MAX;
constexpr unsigned kFixedPointOne = 256;
constexpr unsigned kMaxFractionDigits = 5;

// Reads the sign and the digits of a whole number; `at` stops behind them. The value sticks at one more than
// 32 bits hold. Returns the number of digits.
size_t ReadDigits(std::string_view text, size_t& at, uint64_t& value)
{
    const size_t begin = at;
    for (; at < text.size() && IsA(text[at], kDecimalDigit); ++at) {
        value = value * 10 + static_cast<unsigned>(text[at] - '0');
        if (value > kMaxNumber)
            value = kMaxNumber + 1;
    }
    return at - begin;
}

// Reads the digits behind the decimal point as 1/256, rounded. Returns the number of digits.
size_t ReadFraction(std::string_view text, size_t at, uint64_t& fraction)
{
    const size_t begin = at;
    uint64_t digits = 0;
    uint64_t scale = 1;
    for (; at < text.size() && IsA(text[at], kDecimalDigit); ++at) {
        if (at - begin < kMaxFractionDigits) {
            digits = digits * 10 + static_cast<unsigned>(text[at] - '0');
            scale *= 10;
        }
    }
    fraction = (scale / 2 + digits * kFixedPointOne) / scale;
    return at - begin;
}

bool Deliver(bool negative, uint64_t read, uint32_t& value)
{
    if (!negative && read > kMaxNumber)
        return false;
    value = negative ? 0 : static_cast<uint32_t>(read);
    return true;
}

} // namespace

bool ReadInteger(std::string_view text, uint32_t& value)
{
    const bool negative = text.starts_with('-');
    size_t at = negative ? 1 : 0;
    uint64_t whole = 0;
    return ReadDigits(text, at, whole) > 0 && Deliver(negative, whole, value);
}

bool ReadReal(std::string_view text, uint32_t& value)
{
    const bool negative = text.starts_with('-');
    size_t at = negative ? 1 : 0;
    uint64_t whole = 0;
    uint64_t fraction = 0;
    size_t digits = ReadDigits(text, at, whole);
    if (at < text.size() && text[at] == '.')
        digits += ReadFraction(text, at + 1, fraction);
    return digits > 0 && Deliver(negative, whole * kFixedPointOne + fraction, value);
}

std::string_view WordReader::Next()
{
    while (at_ != end_ && IsA(*at_, kBlank))
        ++at_;
    const char* begin = at_;
    at_ = Find<Blank>(begin, end_);
    return {begin, std::min(static_cast<size_t>(at_ - begin), kMaxWordLength)};
}

bool IsWord(std::string_view text, std::string_view word)
{
    return text.starts_with(word) && (text.size() == word.size() || IsA(text[word.size()], kBlank));
}

bool LookUp(Vocabulary vocabulary, std::string_view text, uint32_t& value)
{
    for (const VocabularyWord& entry : vocabulary) {
        if (IsWord(text, entry.word)) {
            value = entry.value;
            return true;
        }
    }
    return false;
}

} // namespace psui::compiler
