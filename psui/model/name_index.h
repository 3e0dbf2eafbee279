#pragma once
// Finds features and options by name while a description is compiled.
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace psui::compiler {

struct NamedRecord;

/// An open-addressed hash table over (owner, name). Names that differ in their last character only lie side
/// by side, because descriptions number things and go through them in order. An index is empty after zero
/// initialisation. One thread at a time.
class NameIndex
{
public:
    /// The record of `owner` named `name`, or null.
    NamedRecord* Find(uint16_t owner, std::string_view name) const;

    /// Adds a record whose name its owner does not have yet. False without memory; then nothing changed.
    bool Add(NamedRecord* record);

    /// Frees the table; the records stay.
    void Clear();

private:
    bool Grow();
    void Insert(uint32_t hash, NamedRecord* record);

    NamedRecord** records_; ///< capacity_ records, then the capacity_ hashes
    uint32_t* hashes_;      ///< 0 for a free slot; apart from the records so that a probe stays in one line
    size_t capacity_;       ///< a power of two, or 0
    size_t used_;
};

} // namespace psui::compiler
