#pragma once
// Memory that ends where an unreadable page begins, so that one byte too far is a fault.
#include <cstddef>
#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

#include <windows.h>

namespace test {

class GuardedMemory
{
public:
    explicit GuardedMemory(size_t most)
    {
        const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
        size_ = (most + page - 1) / page * page;
        void* memory =
            mmap(nullptr, size_ + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED || mprotect(static_cast<BYTE*>(memory) + size_, page, PROT_NONE) != 0)
            std::abort();
        start_ = static_cast<BYTE*>(memory);
    }
    ~GuardedMemory() { munmap(start_, size_ + static_cast<size_t>(sysconf(_SC_PAGESIZE))); }
    GuardedMemory(const GuardedMemory&) = delete;
    GuardedMemory& operator=(const GuardedMemory&) = delete;

    /// The last `bytes` bytes.
    BYTE* Last(size_t bytes) { return start_ + size_ - bytes; }

private:
    BYTE* start_;
    size_t size_;
};

} // namespace test
