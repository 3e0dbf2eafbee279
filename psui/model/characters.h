#pragma once
// Character classes of the model description language. Code tests classes, never ranges.
#include <array>
#include <cstdint>

namespace psui::compiler {

enum CharacterClass : uint8_t
{
    kKeywordCharacter = 1,
    kOptionCharacter = 2,
    kTranslationCharacter = 4,
    kBlank = 8,
    kLineEnd = 16,
    kHexLetter = 32,
    kDecimalDigit = 64,
};

constexpr std::array<uint8_t, 256> MakeCharacterClasses()
{
    std::array<uint8_t, 256> classes{};
    for (unsigned c = 0x21; c <= 0x7E; ++c) {
        if (c != ':')
            classes[c] |= kKeywordCharacter | kTranslationCharacter;
        if (c != ':' && c != '/')
            classes[c] |= kOptionCharacter;
    }
    classes['\t'] |= kBlank | kTranslationCharacter;
    classes[' '] |= kBlank | kTranslationCharacter;
    classes['\n'] |= kLineEnd;
    classes['\r'] |= kLineEnd;
    for (unsigned i = 0; i < 6; ++i) {
        classes['A' + i] |= kHexLetter;
        classes['a' + i] |= kHexLetter;
    }
    for (unsigned c = '0'; c <= '9'; ++c)
        classes[c] |= kDecimalDigit;
    return classes;
}

inline constexpr std::array<uint8_t, 256> kCharacterClasses = MakeCharacterClasses();

/// Whether `c` belongs to any of `classes` (CharacterClass bits).
constexpr bool IsA(char c, unsigned classes)
{
    return (kCharacterClasses[static_cast<uint8_t>(c)] & classes) != 0;
}

} // namespace psui::compiler
