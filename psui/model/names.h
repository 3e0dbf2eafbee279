#pragma once
// Comparing names and finding them in tables. Names are short, so a call for each would cost more than the
// work itself; and most names that are looked up in a table are not there, so a miss has to be quick.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <type_traits>

namespace psui::compiler {

/// The characters at `at` as a number, the first one lowest.
template <typename Word>
constexpr uint64_t LoadWord(const char* at)
{
    Word word = 0;
    if (std::is_constant_evaluated()) {
        for (size_t i = 0; i < sizeof(Word); ++i)
            word |= static_cast<Word>(static_cast<Word>(static_cast<uint8_t>(at[i])) << 8 * i);
    } else {
        std::memcpy(&word, at, sizeof(word));
    }
    return word;
}

/// The last eight characters of a name, or all that it has, with the last one on top. Characters may occur
/// twice.
constexpr uint64_t LoadEnd(std::string_view name)
{
    const char* end = name.data() + name.size();
    if (name.size() >= sizeof(uint64_t))
        return LoadWord<uint64_t>(end - sizeof(uint64_t));
    if (name.size() >= sizeof(uint32_t))
        return LoadWord<uint32_t>(end - sizeof(uint32_t)) << 32 | LoadWord<uint32_t>(name.data());
    if (name.empty())
        return 0;
    return LoadWord<uint8_t>(end - 1) << 56 | LoadWord<uint8_t>(name.data() + name.size() / 2) << 8 |
           LoadWord<uint8_t>(name.data());
}

constexpr bool IsSameName(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (size_t at = 0; at + sizeof(uint64_t) < a.size(); at += sizeof(uint64_t))
        if (LoadWord<uint64_t>(a.data() + at) != LoadWord<uint64_t>(b.data() + at))
            return false;
    return LoadEnd(a) == LoadEnd(b);
}

/// Where a product with this number has its upper bits, they depend on all bits of the other factor.
constexpr uint64_t kHashMultiplier = 0x9E3779B97F4A7C15;

constexpr uint64_t MixHash(uint64_t hash, uint64_t word)
{
    hash = (hash ^ word) * kHashMultiplier;
    return hash ^ (hash >> 32);
}

/// Mixes all of a name but its last eight characters into `hash`.
constexpr uint64_t MixFront(uint64_t hash, std::string_view name)
{
    for (size_t at = 0; at + sizeof(uint64_t) < name.size(); at += sizeof(uint64_t))
        hash = MixHash(hash, LoadWord<uint64_t>(name.data() + at));
    return hash;
}

/// Finds the row of a fixed table by its name.
template <typename Row, size_t kRows>
class NameTable
{
public:
    constexpr NameTable(const Row (&rows)[kRows], std::string_view Row::*name) : rows_(rows), name_(name)
    {
        buckets_.fill(kEmpty);
        for (uint8_t row = 0; row < kRows; ++row) {
            size_t at = BucketOf(rows[row].*name);
            while (buckets_[at] != kEmpty)
                at = (at + 1) % kBuckets;
            buckets_[at] = row;
        }
    }

    /// Null when there is none.
    constexpr const Row* Find(std::string_view name) const
    {
        for (size_t at = BucketOf(name); buckets_[at] != kEmpty; at = (at + 1) % kBuckets)
            if (IsSameName(rows_[buckets_[at]].*name_, name))
                return &rows_[buckets_[at]];
        return nullptr;
    }

private:
    static constexpr unsigned kBucketBits = 10;
    static constexpr size_t kBuckets = 1u << kBucketBits; // mostly empty
    static constexpr uint8_t kEmpty = 255;
    static_assert(kRows < kEmpty);

    static constexpr size_t BucketOf(std::string_view name)
    {
        const uint64_t hash = MixFront(name.size(), name) ^ LoadEnd(name);
        return static_cast<size_t>(hash * kHashMultiplier >> (64 - kBucketBits));
    }

    const Row (&rows_)[kRows];
    std::string_view Row::*name_;
    std::array<uint8_t, kBuckets> buckets_{};
};

} // namespace psui::compiler
