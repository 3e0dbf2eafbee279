#include <atomic>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/host/scratch.h"

namespace {

TEST(CriticalSection, IsRecursiveAndKeepsOthersOut)
{
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    EnterCriticalSection(&section);
    EXPECT_TRUE(TryEnterCriticalSection(&section));
    LeaveCriticalSection(&section);
    BOOL entered = TRUE;
    std::thread([&] { entered = TryEnterCriticalSection(&section); }).join();
    EXPECT_FALSE(entered);
    LeaveCriticalSection(&section);
    DeleteCriticalSection(&section);
}

TEST(Threads, HaveTheirOwnIdAndLastError)
{
    // The library's own thread functions may set the last error, so both sides only spin in between.
    std::atomic<int> stage{0};
    DWORD id = 0;
    DWORD error = 0;
    std::thread other([&] {
        id = GetCurrentThreadId();
        SetLastError(ERROR_DISK_FULL);
        stage = 1;
        while (stage != 2) {
        }
        error = GetLastError();
    });
    while (stage != 1) {
    }
    SetLastError(ERROR_INVALID_DATA);
    stage = 2;
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_DATA));
    other.join();
    EXPECT_NE(id, GetCurrentThreadId());
    EXPECT_EQ(error, static_cast<DWORD>(ERROR_DISK_FULL));
}

class Together : public Scratch
{
protected:
    /// One round of everything that threads share inside the layer.
    void Round(const Wide& path)
    {
        const std::string text = "written by one thread";
        Write(path, text);
        EXPECT_EQ(Read(path), text);
        const HMODULE module = LoadLibraryW(TEXT("sample_module"));
        WCHAR buffer[16];
        EXPECT_EQ(LoadStringW(module, 1, buffer, 16), 3);
        FreeLibrary(module);
        const HGLOBAL memory = GlobalAlloc(GHND, 64);
        EXPECT_NE(GlobalLock(memory), nullptr);
        GlobalUnlock(memory);
        GlobalFree(memory);
        EXPECT_EQ(MultiByteToWideChar(932, 0, "\x93\xFA", 2, buffer, 16), 1);
        EXPECT_TRUE(DeleteFileW(path.c_str()));
    }
};

TEST_F(Together, ThreadsDoNotDisturbEachOther)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([this, i] {
            for (int turn = 0; turn < 20; ++turn)
                Round(Path(TEXT("file")) + static_cast<WCHAR>('0' + i));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
