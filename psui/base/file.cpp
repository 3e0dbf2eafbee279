#include "psui/base/file.h"

#include <algorithm>

namespace psui {

namespace {

// One request's length is 32 bits wide.
constexpr size_t kMaxRequest = 0x40000000;

} // namespace

bool FileSize(const FileHandle& file, uint64_t& size)
{
    LARGE_INTEGER value;
    if (!GetFileSizeEx(file.get(), &value))
        return false;
    size = static_cast<uint64_t>(value.QuadPart);
    return true;
}

bool ReadExactly(const FileHandle& file, void* bytes, size_t size)
{
    auto* at = static_cast<uint8_t*>(bytes);
    while (size > 0) {
        DWORD got = 0;
        if (!ReadFile(file.get(), at, static_cast<DWORD>(std::min(size, kMaxRequest)), &got, nullptr) ||
            got == 0)
            return false;
        at += got;
        size -= got;
    }
    return true;
}

bool WriteExactly(const FileHandle& file, const void* bytes, size_t size)
{
    auto* at = static_cast<const uint8_t*>(bytes);
    while (size > 0) {
        DWORD put = 0;
        if (!WriteFile(file.get(), at, static_cast<DWORD>(std::min(size, kMaxRequest)), &put, nullptr) ||
            put == 0)
            return false;
        at += put;
        size -= put;
    }
    return true;
}

} // namespace psui
