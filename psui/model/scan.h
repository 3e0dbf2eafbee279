#pragma once
// Walks over characters eight at a time. Cutting statements is mostly this, and where a run ends cannot be
// foretold: a test for every character would be mispredicted once a run.
#include <bit>
#include <cstdint>
#include <cstring>

#include "psui/model/characters.h"

namespace psui::compiler {

constexpr uint64_t InAllBytes(uint8_t byte)
{
    return byte * 0x0101010101010101u;
}

/// Eight characters, the first one lowest.
class EightCharacters
{
public:
    explicit EightCharacters(const char* at) { std::memcpy(&bytes_, at, sizeof(bytes_)); }

    // Each result has the top bit of the bytes that are meant. Bytes above the first one that is meant may
    // have it too, so results may be united but not negated.
    uint64_t Below(uint8_t limit) const { return (bytes_ - InAllBytes(limit)) & ~bytes_ & kTops; }
    uint64_t AboveTilde() const { return (bytes_ | (bytes_ + InAllBytes(1))) & kTops; }
    uint64_t EqualTo(char c) const
    {
        const uint64_t difference = bytes_ ^ InAllBytes(static_cast<uint8_t>(c));
        return (difference - InAllBytes(1)) & ~difference & kTops;
    }

    static constexpr size_t kCount = sizeof(uint64_t);
    /// Position of the first byte of a result that is not 0.
    static size_t First(uint64_t result) { return static_cast<size_t>(std::countr_zero(result)) / 8; }

private:
    static constexpr uint64_t kTops = InAllBytes(0x80);

    uint64_t bytes_;
};
static_assert(std::endian::native == std::endian::little);

/// Marks at least every character outside `Class`; the class decides about those that are marked.
template <CharacterClass Class>
uint64_t MayBeOutside(EightCharacters text)
{
    static_assert(Class == kKeywordCharacter || Class == kOptionCharacter || Class == kTranslationCharacter);
    constexpr uint8_t kFirst = Class == kTranslationCharacter ? ' ' : ' ' + 1;
    const uint64_t marked = text.Below(kFirst) | text.AboveTilde() | text.EqualTo(':');
    return Class == kOptionCharacter ? marked | text.EqualTo('/') : marked;
}

/// The first character from `at` on that is not in `Class`, or `end`.
template <CharacterClass Class>
const char* SkipAll(const char* at, const char* end)
{
    while (static_cast<size_t>(end - at) >= EightCharacters::kCount) {
        const uint64_t marked = MayBeOutside<Class>(EightCharacters(at));
        if (!marked) {
            at += EightCharacters::kCount;
            continue;
        }
        at += EightCharacters::First(marked);
        if (!IsA(*at, Class))
            return at;
        ++at;
    }
    while (at != end && IsA(*at, Class))
        ++at;
    return at;
}

/// The first of `Characters` from `at` on, or `end`.
template <char... Characters>
const char* FindFirst(const char* at, const char* end)
{
    while (static_cast<size_t>(end - at) >= EightCharacters::kCount) {
        const EightCharacters text(at);
        if (const uint64_t marked = (text.EqualTo(Characters) | ...))
            return at + EightCharacters::First(marked);
        at += EightCharacters::kCount;
    }
    while (at != end && ((*at != Characters) && ...))
        ++at;
    return at;
}

} // namespace psui::compiler
