#include <cstdint>
#include <cstring>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/last_error.h"

namespace {

bool AllZero(const void* block, size_t size)
{
    for (size_t i = 0; i < size; ++i) {
        if (static_cast<const char*>(block)[i] != 0)
            return false;
    }
    return true;
}

TEST(Heap, BlocksKeepTheirExactSizeAndContentWhenResized)
{
    const HANDLE heaps[] = {GetProcessHeap(), HeapCreate(0, 0, 0)};
    for (HANDLE heap : heaps) {
        char* block = static_cast<char*>(HeapAlloc(heap, HEAP_ZERO_MEMORY, 13));
        ASSERT_NE(block, nullptr);
        EXPECT_TRUE(AllZero(block, 13));
        EXPECT_EQ(HeapSize(heap, 0, block), 13u);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(block) % 16, 0u);
        std::memcpy(block, "twelve bytes", 13);
        block = static_cast<char*>(HeapReAlloc(heap, HEAP_ZERO_MEMORY, block, 100000));
        ASSERT_NE(block, nullptr);
        EXPECT_STREQ(block, "twelve bytes");
        EXPECT_TRUE(AllZero(block + 13, 100000 - 13));
        EXPECT_EQ(HeapReAlloc(heap, HEAP_REALLOC_IN_PLACE_ONLY, block, 7), block);
        EXPECT_EQ(HeapSize(heap, 0, block), 7u);
        EXPECT_TRUE(HeapFree(heap, 0, block));
    }
    EXPECT_TRUE(HeapDestroy(heaps[1]));
}

TEST(Heap, RequestsThatCannotBeMetGiveNull)
{
    const HANDLE heap = GetProcessHeap();
    EXPECT_EQ(HeapAlloc(heap, 0, SIZE_MAX - 8), nullptr);
    void* const block = HeapAlloc(heap, 0, 8);
    EXPECT_EQ(HeapReAlloc(heap, 0, block, SIZE_MAX - 8), nullptr);
    EXPECT_EQ(HeapSize(heap, 0, block), 8u);
    EXPECT_TRUE(HeapFree(heap, 0, block));
    EXPECT_TRUE(HeapFree(heap, 0, nullptr));
}

TEST(Heap, LimitedHeapStopsAtItsLimit)
{
    const HANDLE heap = HeapCreate(0, 0, 0x10000);
    int blocks = 0;
    while (blocks < 100 && HeapAlloc(heap, 0, 0x1000) != nullptr)
        ++blocks;
    EXPECT_GT(blocks, 8);
    EXPECT_LE(blocks, 16);
    EXPECT_TRUE(HeapDestroy(heap)) << "with all its blocks";
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

TEST(GlobalMemory, ResizedMoveableBlockKeepsItsHandleAndContent)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 4);
    std::memcpy(GlobalLock(memory), "abc", 4);
    GlobalUnlock(memory);
    ASSERT_EQ(GlobalReAlloc(memory, 50000, GMEM_MOVEABLE | GMEM_ZEROINIT), memory);
    const char* const block = static_cast<const char*>(GlobalLock(memory));
    EXPECT_STREQ(block, "abc");
    EXPECT_TRUE(AllZero(block + 4, 50000 - 4));
    GlobalUnlock(memory);
    EXPECT_EQ(GlobalSize(memory), 50000u);
    EXPECT_EQ(GlobalFree(memory), nullptr);
}

TEST(GlobalMemory, EmptyMoveableBlockCannotBeLockedUntilItIsGiven)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 0);
    ASSERT_NE(memory, nullptr);
    EXPECT_EQ(GlobalLock(memory), nullptr);
    EXPECT_EQ(GlobalSize(memory), 0u);
    ASSERT_EQ(GlobalReAlloc(memory, 8, GMEM_MOVEABLE), memory);
    EXPECT_NE(GlobalLock(memory), nullptr);
    GlobalUnlock(memory);
    EXPECT_EQ(GlobalFree(memory), nullptr);
}

TEST(GlobalMemory, FixedBlockIsItsOwnAddress)
{
    const HGLOBAL memory = GlobalAlloc(GPTR, 10);
    ASSERT_NE(memory, nullptr);
    EXPECT_TRUE(AllZero(memory, 10));
    EXPECT_EQ(GlobalLock(memory), memory);
    GlobalUnlock(memory);
    EXPECT_GE(GlobalSize(memory), 10u);
    EXPECT_EQ(GlobalFree(memory), nullptr);
    EXPECT_EQ(GlobalFree(nullptr), nullptr);
    EXPECT_EQ(GlobalAlloc(GMEM_FIXED, SIZE_MAX / 2), nullptr);
    void* const local = LocalAlloc(LPTR, 10);
    ASSERT_NE(local, nullptr);
    EXPECT_TRUE(AllZero(local, 10));
    EXPECT_EQ(LocalFree(local), nullptr);
}

} // namespace
