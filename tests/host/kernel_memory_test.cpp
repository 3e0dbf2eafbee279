#include <algorithm>
#include <cstdint>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/last_error.h"

namespace {

bool AllZero(const void* block, size_t size)
{
    const char* const bytes = static_cast<const char*>(block);
    return std::all_of(bytes, bytes + size, [](char byte) { return byte == 0; });
}

TEST(Heap, GivesAlignedZeroedBlocksAndTakesThemBackWithItself)
{
    const HANDLE heaps[] = {GetProcessHeap(), HeapCreate(0, 0, 0)};
    for (HANDLE heap : heaps) {
        void* const block = HeapAlloc(heap, HEAP_ZERO_MEMORY, 13);
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(AllZero(block, 13));
        EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 16, 0u);
        EXPECT_TRUE(HeapFree(heap, 0, block));
        EXPECT_TRUE(HeapFree(heap, 0, nullptr));
        EXPECT_EQ(HeapAlloc(heap, 0, SIZE_MAX - 8), nullptr);
    }
    EXPECT_NE(HeapAlloc(heaps[1], 0, 100), nullptr);
    EXPECT_TRUE(HeapDestroy(heaps[1]));
}

TEST(GlobalMemory, MoveableBlockCountsItsLocks)
{
    const HGLOBAL memory = GlobalAlloc(GHND, 24);
    ASSERT_NE(memory, nullptr);
    EXPECT_EQ(GlobalSize(memory), 24u);
    void* const block = GlobalLock(memory);
    ASSERT_NE(block, nullptr);
    EXPECT_NE(block, memory);
    EXPECT_TRUE(AllZero(block, 24));
    EXPECT_EQ(GlobalLock(memory), block);
    EXPECT_TRUE(GlobalUnlock(memory));
    SetLastError(ERROR_INVALID_DATA);
    EXPECT_TRUE(Fails(NO_ERROR, GlobalUnlock(memory)));
    EXPECT_TRUE(Fails(ERROR_NOT_LOCKED, GlobalUnlock(memory)));
    EXPECT_EQ(GlobalFree(memory), nullptr);
}

TEST(GlobalMemory, FixedBlockIsItsOwnAddress)
{
    const HGLOBAL memory = GlobalAlloc(GPTR, 10);
    ASSERT_NE(memory, nullptr);
    EXPECT_TRUE(AllZero(memory, 10));
    EXPECT_EQ(GlobalLock(memory), memory);
    EXPECT_EQ(GlobalFree(memory), nullptr);
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
    EXPECT_EQ(GlobalAlloc(GMEM_FIXED, SIZE_MAX / 2), nullptr);
}

} // namespace
