#pragma once
// The one source of chance: the same seed makes the same walk on every machine.
#include <cstddef>
#include <cstdint>
#include <iterator>

namespace walk {

class Random
{
public:
    explicit Random(uint64_t seed) : state_(seed) {}

    uint64_t Next()
    {
        state_ += 0x9E3779B97F4A7C15;
        uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
        return mixed ^ (mixed >> 31);
    }

    /// 0 to `count` - 1; `count` is at least 1.
    int Below(int count) { return static_cast<int>(Next() % static_cast<uint64_t>(count)); }

    /// `first` to `last`.
    int Between(int first, int last) { return first + Below(last - first + 1); }

    bool OneIn(int count) { return Below(count) == 0; }

    template <typename List>
    auto& Pick(List& list)
    {
        return *(std::begin(list) + Below(static_cast<int>(std::size(list))));
    }

private:
    uint64_t state_;
};

} // namespace walk
