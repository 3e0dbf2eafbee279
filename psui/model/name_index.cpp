#include "psui/model/name_index.h"

#include "psui/base/memory.h"
#include "psui/model/compile_root.h"
#include "psui/model/names.h"

namespace psui::compiler {

namespace {

constexpr size_t kFirstCapacity = 512;     // what common descriptions need
constexpr size_t kSlotsPerName = 2;        // at least
constexpr uint32_t kNeighbours = 15;       // names that differ in these bits of their end share a line
constexpr uint32_t kUsedSlot = 0x80000000; // keeps the hash of a used slot from being 0

uint32_t HashOf(uint16_t owner, std::string_view name)
{
    constexpr unsigned kLastByte = 56;
    const uint64_t front = MixFront(uint64_t{owner} << 8 | name.size(), name);
    const uint64_t end = LoadEnd(name);
    const uint64_t neighbour = end & (uint64_t{kNeighbours} << kLastByte);
    const uint64_t hash = MixHash(front, end ^ neighbour) * kHashMultiplier >> 32;
    return (static_cast<uint32_t>(hash) & ~kNeighbours) | static_cast<uint32_t>(neighbour >> kLastByte) |
           kUsedSlot;
}

} // namespace

NamedRecord* NameIndex::Find(uint16_t owner, std::string_view name) const
{
    if (capacity_ == 0)
        return nullptr;
    const uint32_t hash = HashOf(owner, name);
    for (size_t slot = hash & (capacity_ - 1); hashes_[slot] != 0; slot = (slot + 1) & (capacity_ - 1)) {
        NamedRecord* record = records_[slot];
        if (hashes_[slot] == hash && record->owner == owner && IsSameName(record->Name(), name))
            return record;
    }
    return nullptr;
}

bool NameIndex::Add(NamedRecord* record)
{
    if (used_ >= capacity_ / kSlotsPerName && !Grow())
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
