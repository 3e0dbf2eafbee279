#include "psui/model/parse_pool.h"

#include <algorithm>

#include <windows.h>

namespace psui::compiler {

namespace {

constexpr uint64_t kGrowthDivisor = 4;
constexpr uint64_t kMaxBlockBytes = UINT32_MAX & ~(ParsePool::kAlignment - 1);

} // namespace

ParsePool* ParsePool::Create()
{
    Block* block = NewBlock(kFirstBlockBytes);
    if (!block)
        return nullptr;
    auto* pool = new (Take(*block, sizeof(ParsePool))) ParsePool{};
    pool->front_ = block;
    pool->total_ = kFirstBlockBytes;
    return pool;
}

void ParsePool::Release(ParsePool* pool)
{
    Block* block = pool ? pool->front_ : nullptr;
    while (block) {
        Block* next = block->next;
        HeapFree(GetProcessHeap(), 0, block);
        block = next;
    }
}

void* ParsePool::Allocate(size_t bytes)
{
    if (bytes > kMaxBlockBytes)
        return nullptr;
    const uint64_t rounded = (static_cast<uint64_t>(bytes) + kAlignment - 1) & ~uint64_t{kAlignment - 1};
    if (front_->left < rounded) {
        const uint64_t grown =
            std::min(std::max<uint64_t>(kFirstBlockBytes, total_ / kGrowthDivisor), kMaxBlockBytes);
        Block* block = NewBlock(static_cast<uint32_t>(std::max(grown & ~uint64_t{kAlignment - 1}, rounded)));
        if (!block)
            return nullptr;
        block->next = front_;
        front_ = block;
        total_ += block->capacity;
    }
    return Take(*front_, static_cast<size_t>(rounded));
}

ParsePool::Block* ParsePool::NewBlock(uint32_t capacity)
{
    auto* block = static_cast<Block*>(HeapAlloc(GetProcessHeap(), 0, sizeof(Block) + capacity));
    if (block)
        *block = {capacity, capacity, reinterpret_cast<char*>(block + 1), nullptr};
    return block;
}

void* ParsePool::Take(Block& block, size_t bytes)
{
    void* memory = block.free;
    block.free += bytes;
    block.left -= static_cast<uint32_t>(bytes);
    return memory;
}

} // namespace psui::compiler
