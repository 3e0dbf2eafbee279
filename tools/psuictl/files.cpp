#include "tools/psuictl/files.h"

#include <algorithm>
#include <cstdio>

#include "tools/psuictl/failure.h"
#include "tools/psuictl/platform.h"

namespace psuictl {
namespace {

class File
{
public:
    explicit File(HANDLE handle) : handle_(handle) {}
    ~File() { Close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

    void Close()
    {
        if (handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(handle_);
        handle_ = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE handle_;
};

[[noreturn]] void ThrowFileError(const char* what, const std::string& file, DWORD error)
{
    throw Failure("cannot " + std::string(what) + " '" + file + "': " + ErrorWords(error) +
                  "; check the name and its folder");
}

Bytes LoadStandardInput()
{
    Bytes bytes;
    uint8_t block[65536];
    while (const size_t count = std::fread(block, 1, sizeof block, stdin)) {
        bytes.insert(bytes.end(), block, block + count);
        if (bytes.size() > kMaxFileBytes)
            throw Failure("standard input is too long; 64 MB are read at most");
    }
    if (std::ferror(stdin))
        throw Failure("standard input cannot be read; name a file instead of -");
    return bytes;
}

Bytes LoadPath(const WideString& path, const std::string& shown)
{
    File file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                          FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size = {};
    if (!file || !GetFileSizeEx(file.get(), &size))
        ThrowFileError("read", shown, GetLastError());
    if (static_cast<uint64_t>(size.QuadPart) > kMaxFileBytes)
        throw Failure("'" + shown + "' is too long; 64 MB are read at most");
    Bytes bytes(static_cast<size_t>(size.QuadPart));
    DWORD read = 0;
    if (!bytes.empty() &&
        !ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        ThrowFileError("read", shown, GetLastError());
    bytes.resize(read);
    return bytes;
}

void SaveStandardOutput(const void* bytes, size_t size)
{
    if (std::fwrite(bytes, 1, size, stdout) != size || std::fflush(stdout) != 0)
        throw Failure("standard output cannot be written; name a file instead of -");
}

} // namespace

WideString HostPath(const std::string& file)
{
    const bool hasDrive = file.size() > 1 && file[1] == ':' &&
                          ((file[0] >= 'A' && file[0] <= 'Z') || (file[0] >= 'a' && file[0] <= 'z'));
    if (file.empty())
        throw Failure("a file name is empty; name a file", kWrongUsage);
    return hasDrive ? Wide(file) : platform::FullPath(file);
}

bool FileExists(const WideString& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

Bytes LoadFile(const std::string& file)
{
    return file == "-" ? LoadStandardInput() : LoadPath(HostPath(file), file);
}

Bytes LoadHostFile(const WideString& path)
{
    return LoadPath(path, Utf8(path));
}

void SaveFile(const std::string& file, const void* bytes, size_t size)
{
    if (file == "-")
        return SaveStandardOutput(bytes, size);
    const WideString path = HostPath(file);
    File target(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!target)
        ThrowFileError("write", file, GetLastError());
    DWORD written = 0;
    if (WriteFile(target.get(), bytes, static_cast<DWORD>(size), &written, nullptr) && written == size)
        return;
    const DWORD error = GetLastError();
    target.Close();
    DeleteFileW(path.c_str());
    ThrowFileError("write", file, error);
}

void MakeFolder(const std::string& folder)
{
    const WideString path = HostPath(folder);
    size_t end = 0;
    while (end < path.size()) {
        end = std::min(path.find_first_of(TEXT("\\/"), end + 1), path.size());
        CreateDirectoryW(path.substr(0, end).c_str(), nullptr);
    }
}

WideString FileName(const WideString& path)
{
    const size_t slash = path.find_last_of(TEXT("\\/"));
    return slash == WideString::npos ? path : path.substr(slash + 1);
}

WideString FileStem(const WideString& path)
{
    const WideString name = FileName(path);
    const size_t dot = name.rfind(WCHAR{'.'});
    return dot == WideString::npos || dot == 0 ? name : name.substr(0, dot);
}

} // namespace psuictl
