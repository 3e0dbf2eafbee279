#include "host/kernel/memory.h"

#include <cstdlib>
#include <cstring>
#include <mutex>

#include <malloc.h>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size)   (static_cast<void>(0))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) (static_cast<void>(0))
#endif

namespace host {
namespace {

constexpr size_t kGuardSize = 16;
constexpr size_t kMaxBlock = SIZE_MAX / 4;

/// Stands in front of every block. The guard lets the address sanitizer see what writes before the block.
struct alignas(16) Header
{
    Heap* heap;
    size_t size; // bytes, as asked for
    Header* previous;
    Header* next;
    unsigned char guard[kGuardSize];
};

Header* HeaderOf(void* block)
{
    return static_cast<Header*>(block) - 1;
}

} // namespace

/// A private heap lists its blocks, to free them with itself.
struct Heap
{
    std::mutex lock;
    bool listsBlocks = false;
    size_t limit = 0; // bytes in all blocks; 0 without one
    size_t used = 0;
    Header* first = nullptr;
};

namespace {

Heap processHeap;
Heap globalHeap;

// The platform's heaps keep what is freed for the next request. Left alone, the C library maps and unmaps
// every large block, and each use of one pays for its pages anew.
[[maybe_unused]] const bool keepsFreedMemory =
    mallopt(M_MMAP_THRESHOLD, 32 << 20) != 0 && mallopt(M_TRIM_THRESHOLD, 256 << 20) != 0;

void CountBlock(int64_t blocks, int64_t bytes)
{
    CountOpen(&Ledger::blocks, blocks);
    CountOpen(&Ledger::bytes, bytes);
    NoteBlockBytes(bytes);
}

void Link(Heap& heap, Header* header)
{
    if (!heap.listsBlocks)
        return;
    std::lock_guard lock(heap.lock);
    header->previous = nullptr;
    header->next = heap.first;
    if (heap.first != nullptr)
        heap.first->previous = header;
    heap.first = header;
}

void Unlink(Heap& heap, Header* header)
{
    if (!heap.listsBlocks)
        return;
    std::lock_guard lock(heap.lock);
    (header->previous != nullptr ? header->previous->next : heap.first) = header->next;
    if (header->next != nullptr)
        header->next->previous = header->previous;
}

/// Books `added` bytes in place of `removed` ones, if the heap may grow so far.
bool Reserve(Heap& heap, size_t added, size_t removed)
{
    if (heap.limit == 0)
        return true;
    std::lock_guard lock(heap.lock);
    const size_t rest = heap.used - removed;
    if (added > heap.limit - rest)
        return false;
    heap.used = rest + added;
    return true;
}

void* Finish(Heap& heap, Header* header, size_t bytes)
{
    header->heap = &heap;
    header->size = bytes;
    Link(heap, header);
    ASAN_POISON_MEMORY_REGION(header->guard, kGuardSize);
    return header + 1;
}

} // namespace

Heap& GlobalHeap()
{
    return globalHeap;
}

void* NewBlock(Heap& heap, size_t bytes, bool zero)
{
    if (bytes > kMaxBlock || !Reserve(heap, bytes, 0))
        return nullptr;
    const size_t total = sizeof(Header) + bytes;
    auto* header = static_cast<Header*>(zero ? std::calloc(1, total) : std::malloc(total));
    if (header == nullptr) {
        Reserve(heap, 0, bytes);
        return nullptr;
    }
    CountBlock(1, static_cast<int64_t>(bytes));
    return Finish(heap, header, bytes);
}

void* ResizeBlock(Heap& heap, void* block, size_t bytes, bool zero, bool inPlace)
{
    Header* header = HeaderOf(block);
    const size_t before = header->size;
    if (header->heap != &heap || bytes > kMaxBlock || (inPlace && bytes > before) ||
        !Reserve(heap, bytes, before))
        return nullptr;
    if (inPlace) {
        header->size = bytes;
        CountBlock(0, static_cast<int64_t>(bytes) - static_cast<int64_t>(before));
        return block;
    }
    Unlink(heap, header);
    ASAN_UNPOISON_MEMORY_REGION(header->guard, kGuardSize);
    auto* moved = static_cast<Header*>(std::realloc(header, sizeof(Header) + bytes));
    if (moved == nullptr) {
        Reserve(heap, before, bytes);
        Finish(heap, header, before);
        return nullptr;
    }
    CountBlock(0, static_cast<int64_t>(bytes) - static_cast<int64_t>(before));
    void* const result = Finish(heap, moved, bytes);
    if (zero && bytes > before)
        std::memset(static_cast<char*>(result) + before, 0, bytes - before);
    return result;
}

bool FreeBlock(Heap& heap, void* block)
{
    Header* header = HeaderOf(block);
    if (header->heap != &heap)
        return false;
    Unlink(heap, header);
    Reserve(heap, 0, header->size);
    CountBlock(-1, -static_cast<int64_t>(header->size));
    header->heap = nullptr;
    ASAN_UNPOISON_MEMORY_REGION(header->guard, kGuardSize);
    std::free(header);
    return true;
}

size_t BlockSize(const void* block)
{
    return (static_cast<const Header*>(block) - 1)->size;
}

} // namespace host

using namespace host;

namespace {

Heap* HeapOf(HANDLE heap)
{
    if (heap == nullptr)
        SetLastError(ERROR_INVALID_HANDLE);
    return static_cast<Heap*>(heap);
}

} // namespace

HANDLE WINAPI GetProcessHeap(void)
{
    HOST_CALL_VOID(GetProcessHeap);
    return &processHeap;
}

HANDLE WINAPI HeapCreate(DWORD, SIZE_T, SIZE_T maximumSize)
{
    HOST_ALLOCATION(HeapCreate);
    Heap* const heap = new Heap;
    heap->listsBlocks = true;
    heap->limit = maximumSize;
    CountOpen(&Ledger::heaps, 1);
    return heap;
}

BOOL WINAPI HeapDestroy(HANDLE handle)
{
    HOST_CALL_VOID(HeapDestroy);
    Heap* const heap = HeapOf(handle);
    if (heap == nullptr || !heap->listsBlocks)
        return FailWith(ERROR_INVALID_HANDLE);
    while (heap->first != nullptr)
        FreeBlock(*heap, heap->first + 1);
    delete heap;
    CountOpen(&Ledger::heaps, -1);
    return TRUE;
}

LPVOID WINAPI HeapAlloc(HANDLE handle, DWORD flags, SIZE_T bytes)
{
    HOST_ALLOCATION(HeapAlloc);
    Heap* const heap = HeapOf(handle);
    if (heap == nullptr)
        return nullptr;
    void* const block = NewBlock(*heap, bytes, (flags & HEAP_ZERO_MEMORY) != 0);
    if (block == nullptr)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return block;
}

LPVOID WINAPI HeapReAlloc(HANDLE handle, DWORD flags, LPVOID block, SIZE_T bytes)
{
    HOST_ALLOCATION(HeapReAlloc);
    Heap* const heap = HeapOf(handle);
    if (heap == nullptr || block == nullptr)
        return nullptr;
    void* const moved = ResizeBlock(*heap, block, bytes, (flags & HEAP_ZERO_MEMORY) != 0,
                                    (flags & HEAP_REALLOC_IN_PLACE_ONLY) != 0);
    if (moved == nullptr)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return moved;
}

BOOL WINAPI HeapFree(HANDLE handle, DWORD, LPVOID block)
{
    HOST_CALL_VOID(HeapFree);
    Heap* const heap = HeapOf(handle);
    if (heap == nullptr)
        return FALSE;
    return block == nullptr || FreeBlock(*heap, block) || FailWith(ERROR_INVALID_PARAMETER);
}

SIZE_T WINAPI HeapSize(HANDLE handle, DWORD, LPCVOID block)
{
    HOST_CALL_VOID(HeapSize);
    if (HeapOf(handle) == nullptr || block == nullptr)
        return static_cast<SIZE_T>(-1);
    return BlockSize(block);
}
