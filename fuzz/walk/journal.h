#pragma once
// What a walk did last, for whoever has to find out why it ended.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace walk {

/// How to take a walk again.
struct Itinerary
{
    uint64_t seed = 0;
    size_t steps = 0;
    std::string model;
    std::string language;
};

class Journal
{
public:
    /// Makes the journal speak up when the program dies: by a signal, a sanitizer's finding, or because a
    /// step takes longer than a minute. One journal a program.
    explicit Journal(bool verbose);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    void Begin(const Itinerary& itinerary);
    void BeginSheet(const std::string& description);
    void BeginStep();
    void Note(const std::string& action);

    size_t step() const { return step_; }
    size_t sheets() const { return sheets_; }

    /// Says what does not hold and what led to it, and ends the program.
    [[noreturn]] void Fail(const std::string& what) const;

    void Print() const;

private:
    static constexpr size_t kKept = 20;

    bool verbose_;
    Itinerary itinerary_;
    std::string sheet_;
    size_t sheets_ = 0;
    size_t step_ = 0;
    size_t notes_ = 0;
    std::array<std::string, kKept> last_; ///< in a ring
};

} // namespace walk
