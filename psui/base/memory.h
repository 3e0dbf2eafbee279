#pragma once
// Memory of the library. Everything comes from the platform's heaps, nothing from operator new, so a failed
// request is a null pointer at the place that asked and can be answered there.
#include <cstddef>
#include <memory>
#include <type_traits>

#include <windows.h>

namespace psui {

struct ProcessHeapDeleter
{
    void operator()(void* block) const { HeapFree(GetProcessHeap(), 0, block); }
};

/// Owner of a block of the process heap.
template <typename T>
using HeapPtr = std::unique_ptr<T, ProcessHeapDeleter>;

/// A zero-filled record or array of `count` elements, or null when there is no memory or the size overflows.
template <typename T>
requires std::is_trivially_destructible_v<T> HeapPtr<T> AllocateZeroed(size_t count = 1)
{
    if (count > static_cast<size_t>(-1) / 2 / sizeof(T))
        return nullptr;
    return HeapPtr<T>(static_cast<T*>(HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, count * sizeof(T))));
}

} // namespace psui
