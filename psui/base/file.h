#pragma once
// Files as the library uses them: opened for shared reading, read whole.
#include <cstddef>
#include <cstdint>

#include <windows.h>

namespace psui {

/// Owner of an open file.
class FileHandle
{
public:
    explicit FileHandle(HANDLE file) : file_(file) {}
    FileHandle(FileHandle&& other) noexcept : file_(other.file_) { other.file_ = INVALID_HANDLE_VALUE; }
    ~FileHandle()
    {
        if (*this)
            CloseHandle(file_);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;

    HANDLE get() const { return file_; }
    explicit operator bool() const { return file_ != INVALID_HANDLE_VALUE; }

private:
    HANDLE file_;
};

/// Opens an existing file; others may read it meanwhile.
inline FileHandle OpenForReading(const WCHAR* path)
{
    return FileHandle(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// The size in bytes; false, with `size` untouched, when it cannot be had.
bool FileSize(const FileHandle& file, uint64_t& size);

/// Reads `size` bytes from where the file stands; false when it has fewer.
bool ReadExactly(const FileHandle& file, void* bytes, size_t size);

/// Writes `size` bytes where the file stands; false when not all of them could be written.
bool WriteExactly(const FileHandle& file, const void* bytes, size_t size);

} // namespace psui
