#include "psui/model/name_index.h"

#include <cstring>

#include "psui/base/memory.h"
#include "psui/model/compile_root.h"

namespace psui::compiler {

namespace {

constexpr size_t kFirstCapacity = 128;
constexpr uint64_t kMultiplier = 0x9E3779B97F4A7C15;
constexpr uint32_t kNeighbours = 15;       ///< names that differ in these bits of their end share a line
constexpr uint32_t kUsedSlot = 0x80000000; ///< keeps the hash of a used slot from being 0

uint64_t Mix(uint64_t hash, uint64_t word)
{
    hash = (hash ^ word) * kMultiplier;
    return hash ^ (hash >> 32);
}

uint32_t HashOf(uint16_t owner, std::string_view name)
{
    uint64_t hash = Mix(owner, name.size());
    const char* at = name.data();
    size_t left = name.size();
    for (; left > sizeof(uint64_t); at += sizeof(uint64_t), left -= sizeof(uint64_t)) {
        uint64_t word;
        std::memcpy(&word, at, sizeof(word));
        hash = Mix(hash, word);
    }
    uint64_t word = 0;
    uint32_t end = 0;
    if (left > 0) {
        std::memcpy(&word, at, left);
        end = static_cast<uint8_t>(at[left - 1]) & kNeighbours;
        word ^= static_cast<uint64_t>(end) << (8 * (left - 1));
    }
    return (static_cast<uint32_t>(Mix(hash, word)) & ~kNeighbours) | end | kUsedSlot;
}

} // namespace

NamedRecord* NameIndex::Find(uint16_t owner, std::string_view name) const
{
    if (capacity_ == 0)
        return nullptr;
    const uint32_t hash = HashOf(owner, name);
    for (size_t slot = hash & (capacity_ - 1); hashes_[slot] != 0; slot = (slot + 1) & (capacity_ - 1)) {
        NamedRecord* record = records_[slot];
        if (hashes_[slot] == hash && record->owner == owner && record->Name() == name)
            return record;
    }
    return nullptr;
}

bool NameIndex::Add(NamedRecord* record)
{
    if (used_ >= capacity_ / 4 * 3 && !Grow())
        return false;
    Insert(HashOf(record->owner, record->Name()), record);
    ++used_;
    return true;
}

void NameIndex::Clear()
{
    if (records_)
        HeapFree(GetProcessHeap(), 0, records_);
    *this = {};
}

bool NameIndex::Grow()
{
    const NameIndex old = *this;
    const size_t capacity = old.capacity_ ? old.capacity_ * 2 : kFirstCapacity;
    constexpr size_t kSlotBytes = sizeof(NamedRecord*) + sizeof(uint32_t);
    void* table = HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, capacity * kSlotBytes);
    if (!table)
        return false;
    records_ = static_cast<NamedRecord**>(table);
    hashes_ = reinterpret_cast<uint32_t*>(records_ + capacity);
    capacity_ = capacity;
    for (size_t slot = 0; slot < old.capacity_; ++slot)
        if (old.hashes_[slot] != 0)
            Insert(old.hashes_[slot], old.records_[slot]);
    if (old.records_)
        HeapFree(GetProcessHeap(), 0, old.records_);
    return true;
}

void NameIndex::Insert(uint32_t hash, NamedRecord* record)
{
    size_t slot = hash & (capacity_ - 1);
    while (hashes_[slot] != 0)
        slot = (slot + 1) & (capacity_ - 1);
    hashes_[slot] = hash;
    records_[slot] = record;
}

} // namespace psui::compiler
