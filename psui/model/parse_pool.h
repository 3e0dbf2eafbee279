#pragma once
// The memory of one compilation: requests are never freed one by one, the pool is released as a whole.
#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>

namespace psui::compiler {

/// A chain of blocks, served from the one in front. Each new block is a quarter of all blocks before it, so
/// there are a few dozen of them whatever the size of the text, and little is left over at the end. The pool
/// itself lives in its first block. One thread at a time.
class ParsePool
{
public:
    /// A new pool, or null without memory.
    static ParsePool* Create();

    /// Frees the pool and all that came from it. Null is ignored.
    static void Release(ParsePool* pool);

    /// `bytes` bytes of any content at a multiple of 8, or null without memory.
    void* Allocate(size_t bytes);

    /// A zero-filled record, or null without memory.
    template <typename T>
    T* New()
    {
        static_assert(std::is_trivially_destructible_v<T> && alignof(T) <= kAlignment);
        void* memory = Allocate(sizeof(T));
        return memory ? new (memory) T{} : nullptr;
    }

    static constexpr size_t kAlignment = 8;
    static constexpr uint32_t kFirstBlockBytes = 4072; ///< 4096 with the block's head

private:
    struct Block
    {
        uint32_t capacity;
        uint32_t left;
        char* free;
        Block* next;
    };
    static_assert(sizeof(Block) + kFirstBlockBytes == 4096);

    static Block* NewBlock(uint32_t capacity);
    static void* Take(Block& block, size_t bytes);

    Block* front_;
    uint64_t total_; ///< bytes of all blocks
};

struct ParsePoolDeleter
{
    void operator()(ParsePool* pool) const { ParsePool::Release(pool); }
};

} // namespace psui::compiler
