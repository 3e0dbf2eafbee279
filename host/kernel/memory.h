#pragma once
// Memory blocks of heaps and of global and local memory. Each block is one request to the C library, so the
// sanitizers see its bounds; the header in front of it keeps its exact size.
#include <cstddef>

namespace host {

struct Heap;

/// Where global and local memory live.
Heap& GlobalHeap();

/// New block of `bytes`, filled with zeros on demand, or null.
void* NewBlock(Heap& heap, size_t bytes, bool zero);

/// Changes a block's size and may move it; null leaves it as it was. `inPlace` forbids to move it, so it can
/// only shrink.
void* ResizeBlock(Heap& heap, void* block, size_t bytes, bool zero, bool inPlace);

/// False when the block belongs to another heap.
bool FreeBlock(Heap& heap, void* block);

size_t BlockSize(const void* block);

} // namespace host
