#pragma once
// The values of statements: numbers, lists of words, and words of a vocabulary.
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace psui::compiler {

/// Optional "-", then digits up to the first other character. A negative number is read as 0. False, with
/// `value` untouched, without a digit at the start or when 32 bits do not hold the number.
bool ReadInteger(std::string_view text, uint32_t& value);

/// The same with an optional fraction; the result is 24.8 fixed point, rounded from at most five digits.
bool ReadReal(std::string_view text, uint32_t& value);

/// Longest word that a list keeps; the rest of a longer one is dropped.
constexpr size_t kMaxWordLength = 39;

/// Yields the words of a list, which blanks separate.
class WordReader
{
public:
    explicit WordReader(std::string_view list) : at_(list.data()), end_(at_ + list.size()) {}

    /// The next word, never empty; an empty view at the end of the list.
    std::string_view Next();

private:
    const char* at_;
    const char* end_;
};

struct VocabularyWord
{
    std::string_view word;
    uint32_t value;
};
using Vocabulary = std::span<const VocabularyWord>;

/// Whether `text` begins with `word` and a blank or the end follows.
bool IsWord(std::string_view text, std::string_view word);

/// Looks `text` up; false, with `value` untouched, when the vocabulary does not have it.
bool LookUp(Vocabulary vocabulary, std::string_view text, uint32_t& value);

} // namespace psui::compiler
