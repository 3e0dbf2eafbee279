#pragma once
// Private heaps: what is allocated from one lives until the heap is destroyed.
#include <cstddef>
#include <cstring>
#include <type_traits>
#include <utility>

#include <windows.h>

namespace psui {

/// Owner of a private heap.
class PrivateHeap
{
public:
    /// Growable; false when there is no memory.
    explicit PrivateHeap(SIZE_T initialBytes) : heap_(HeapCreate(0, initialBytes, 0)) {}
    ~PrivateHeap()
    {
        if (heap_)
            HeapDestroy(heap_);
    }
    PrivateHeap(const PrivateHeap&) = delete;
    PrivateHeap& operator=(const PrivateHeap&) = delete;

    HANDLE get() const { return heap_; }
    explicit operator bool() const { return heap_ != nullptr; }

    /// Gives the ownership away.
    HANDLE Release() { return std::exchange(heap_, nullptr); }

private:
    HANDLE heap_;
};

/// A zero-filled record or array of `count` elements of `heap`; null when there is no memory or the size
/// overflows.
template <typename T>
requires std::is_trivially_destructible_v<T> T* AllocateFrom(HANDLE heap, size_t count = 1)
{
    if (count > static_cast<size_t>(-1) / 2 / sizeof(T))
        return nullptr;
    return static_cast<T*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, count * sizeof(T)));
}

/// A copy of a text in `heap`, or null.
inline WCHAR* CopyToHeap(HANDLE heap, const WCHAR* text)
{
    const size_t units = static_cast<size_t>(lstrlenW(text)) + 1;
    WCHAR* copy = AllocateFrom<WCHAR>(heap, units);
    if (copy)
        std::memcpy(copy, text, units * sizeof(WCHAR));
    return copy;
}

} // namespace psui
