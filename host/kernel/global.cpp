// Global and local memory. A fixed block's handle is its address; a moveable one's is an address that no
// block can have, eight bytes into a record of its own.
#include <cstdint>
#include <mutex>
#include <new>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/memory.h"

namespace host {
namespace {

constexpr uint32_t kMoveableMark = 0x4D4F5645;
constexpr uintptr_t kBlockAlignment = 16;
constexpr uintptr_t kHandleOffset = 8;

struct alignas(16) Moveable
{
    uint32_t mark = kMoveableMark;
    uint32_t locks = 0;
    void* block = nullptr; // null while the size is 0
};

std::mutex moveableLock;

/// The record behind a moveable handle; null for a fixed block. An invalid one sets the last error too.
Moveable* MoveableOf(HGLOBAL memory)
{
    const auto value = reinterpret_cast<uintptr_t>(memory);
    if (value % kBlockAlignment != kHandleOffset)
        return nullptr;
    auto* const record = reinterpret_cast<Moveable*>(value - kHandleOffset);
    return record->mark == kMoveableMark ? record : nullptr;
}

HGLOBAL HandleOf(Moveable* record)
{
    return reinterpret_cast<char*>(record) + kHandleOffset;
}

bool IsFixed(HGLOBAL memory)
{
    return memory != nullptr && reinterpret_cast<uintptr_t>(memory) % kBlockAlignment == 0;
}

HGLOBAL AllocateMoveable(SIZE_T bytes, bool zero)
{
    void* const block = bytes != 0 ? NewBlock(GlobalHeap(), bytes, zero) : nullptr;
    if (bytes != 0 && block == nullptr)
        return nullptr;
    auto* const record = new Moveable;
    record->block = block;
    return HandleOf(record);
}

HGLOBAL AllocateGlobal(UINT flags, SIZE_T bytes)
{
    const bool zero = (flags & GMEM_ZEROINIT) != 0;
    const HGLOBAL memory =
        (flags & GMEM_MOVEABLE) != 0 ? AllocateMoveable(bytes, zero) : NewBlock(GlobalHeap(), bytes, zero);
    if (memory == nullptr)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return memory;
}

HGLOBAL ResizeMoveable(Moveable& record, SIZE_T bytes, UINT flags)
{
    const bool zero = (flags & GMEM_ZEROINIT) != 0;
    const bool inPlace = record.locks != 0 && (flags & GMEM_MOVEABLE) == 0;
    void* const block = record.block == nullptr
                            ? NewBlock(GlobalHeap(), bytes, zero)
                            : ResizeBlock(GlobalHeap(), record.block, bytes, zero, inPlace);
    if (block == nullptr)
        return nullptr;
    record.block = block;
    return HandleOf(&record);
}

HGLOBAL FreeGlobal(HGLOBAL memory)
{
    if (memory == nullptr)
        return nullptr;
    if (IsFixed(memory) && FreeBlock(GlobalHeap(), memory))
        return nullptr;
    std::lock_guard lock(moveableLock);
    Moveable* const record = MoveableOf(memory);
    if (record == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return memory;
    }
    if (record->block != nullptr)
        FreeBlock(GlobalHeap(), record->block);
    record->mark = 0;
    delete record;
    return nullptr;
}

} // namespace
} // namespace host

using namespace host;

HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T bytes)
{
    HOST_ALLOCATION(GlobalAlloc);
    return AllocateGlobal(flags, bytes);
}

HGLOBAL WINAPI GlobalReAlloc(HGLOBAL memory, SIZE_T bytes, UINT flags)
{
    HOST_ALLOCATION(GlobalReAlloc);
    HGLOBAL resized = nullptr;
    if (IsFixed(memory)) {
        resized = ResizeBlock(GlobalHeap(), memory, bytes, (flags & GMEM_ZEROINIT) != 0,
                              (flags & GMEM_MOVEABLE) == 0);
    } else {
        std::lock_guard lock(moveableLock);
        Moveable* const record = MoveableOf(memory);
        if (record == nullptr) {
            SetLastError(ERROR_INVALID_HANDLE);
            return nullptr;
        }
        resized = ResizeMoveable(*record, bytes, flags);
    }
    if (resized == nullptr)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return resized;
}

LPVOID WINAPI GlobalLock(HGLOBAL memory)
{
    HOST_CALL(GlobalLock, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (IsFixed(memory))
        return memory;
    std::lock_guard lock(moveableLock);
    Moveable* const record = MoveableOf(memory);
    if (record == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    if (record->block != nullptr)
        ++record->locks;
    return record->block;
}

BOOL WINAPI GlobalUnlock(HGLOBAL memory)
{
    HOST_CALL_VOID(GlobalUnlock);
    if (IsFixed(memory))
        return TRUE;
    std::lock_guard lock(moveableLock);
    Moveable* const record = MoveableOf(memory);
    if (record == nullptr)
        return FailWith(ERROR_INVALID_HANDLE);
    if (record->locks == 0)
        return FailWith(ERROR_NOT_LOCKED);
    return --record->locks != 0 || FailWith(NO_ERROR);
}

SIZE_T WINAPI GlobalSize(HGLOBAL memory)
{
    HOST_CALL_VOID(GlobalSize);
    if (IsFixed(memory))
        return BlockSize(memory);
    std::lock_guard lock(moveableLock);
    const Moveable* const record = MoveableOf(memory);
    if (record == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
    return record->block != nullptr ? BlockSize(record->block) : 0;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL memory)
{
    HOST_CALL_VOID(GlobalFree);
    return FreeGlobal(memory);
}

HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T bytes)
{
    HOST_ALLOCATION(LocalAlloc);
    return AllocateGlobal(flags, bytes);
}

HLOCAL WINAPI LocalFree(HLOCAL memory)
{
    HOST_CALL_VOID(LocalFree);
    return FreeGlobal(memory);
}
