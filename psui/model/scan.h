#pragma once
// Walks over characters eight at a time. Cutting statements is mostly this, and where a run ends cannot be
// foretold: a test for every character would be mispredicted once a run.
#include <bit>
#include <cstddef>
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

    // Each result has the top bit of the bytes that are meant. Bytes above the first one of them may have it
    // too, and so may bytes beyond ASCII; results may be united, and about the latter the end decides.
    uint64_t Below(char limit) const { return bytes_ - InAllBytes(static_cast<uint8_t>(limit)); }
    uint64_t EqualTo(char c) const { return (bytes_ ^ InAllBytes(static_cast<uint8_t>(c))) - InAllBytes(1); }

    uint64_t WithNonAscii(uint64_t result) const { return (result | bytes_) & kTops; }
    uint64_t WithoutNonAscii(uint64_t result) const { return result & ~bytes_ & kTops; }

    static constexpr size_t kCount = sizeof(uint64_t);
    /// Position of the first byte of a result that is not 0.
    static size_t First(uint64_t result) { return static_cast<size_t>(std::countr_zero(result)) / 8; }

private:
    static constexpr uint64_t kTops = InAllBytes(0x80);

    uint64_t bytes_;
};
static_assert(std::endian::native == std::endian::little);

/// What a run of characters may end with. `Marked` has the top bit of at least the first such character, but
/// perhaps of others too, about which `Is` decides.
template <CharacterClass Class>
struct Outside
{
    static_assert(Class == kKeywordCharacter || Class == kOptionCharacter || Class == kTranslationCharacter);

    static bool Is(char c) { return !IsA(c, Class); }
    static uint64_t Marked(EightCharacters text)
    {
        constexpr char kFirst = Class == kTranslationCharacter ? ' ' : ' ' + 1;
        constexpr char kBehindLast = '~' + 1;
        const uint64_t marked = text.Below(kFirst) | text.EqualTo(':') | text.EqualTo(kBehindLast);
        return text.WithNonAscii(Class == kOptionCharacter ? marked | text.EqualTo('/') : marked);
    }
};

struct LineEnd
{
    static bool Is(char c) { return IsA(c, kLineEnd); }
    static uint64_t Marked(EightCharacters text) { return text.WithoutNonAscii(text.Below('\r' + 1)); }
};

struct BareValueEnd
{
    static bool Is(char c) { return IsA(c, kLineEnd) || c == '/'; }
    static uint64_t Marked(EightCharacters text)
    {
        return text.WithoutNonAscii(text.Below('\r' + 1) | text.EqualTo('/'));
    }
};

struct Blank
{
    static bool Is(char c) { return IsA(c, kBlank); }
    static uint64_t Marked(EightCharacters text) { return text.WithoutNonAscii(text.Below(' ' + 1)); }
};

/// The first of those characters from `at` on, or `end`.
template <typename End>
const char* Find(const char* at, const char* end)
{
    while (static_cast<size_t>(end - at) >= EightCharacters::kCount) {
        const uint64_t marked = End::Marked(EightCharacters(at));
        if (!marked) {
            at += EightCharacters::kCount;
            continue;
        }
        at += EightCharacters::First(marked);
        if (End::Is(*at))
            return at;
        ++at;
    }
    while (at != end && !End::Is(*at))
        ++at;
    return at;
}

} // namespace psui::compiler
