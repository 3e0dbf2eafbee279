#include "host/profile/profile_file.h"

#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <unistd.h>

#include "host/host.h"
#include "host/kernel/error.h"
#include "host/kernel/path.h"

namespace host::profile {
namespace {

constexpr char16_t kWindowsFolder[] = u"C:\\windows\\";
constexpr char16_t kSystemFile[] = u"win.ini";
constexpr char kTemporarySuffix[] = ".new~";
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr LONGLONG kLargestFile = 256 << 20; // bytes

class OpenFile
{
public:
    OpenFile(const std::u16string& name, DWORD access, DWORD disposition)
        : handle_(CreateFileW(name.c_str(), access, kShareAll, nullptr, disposition, FILE_ATTRIBUTE_NORMAL,
                              nullptr))
    {
    }
    ~OpenFile()
    {
        if (handle_ != INVALID_HANDLE_VALUE)
            CloseHandle(handle_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

/// The lock on a folder that the writers of its profile files take.
class FolderLock
{
public:
    explicit FolderLock(const std::string& folder)
        : fd_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        while (fd_ >= 0 && flock(fd_, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    ~FolderLock()
    {
        if (fd_ >= 0)
            close(fd_);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    explicit operator bool() const { return fd_ >= 0; }

private:
    int fd_;
};

/// Reads what an open file holds. Returns 0 or the error code.
DWORD ReadAll(const OpenFile& file, std::string& bytes)
{
    LARGE_INTEGER size;
    if (!file || !GetFileSizeEx(file.get(), &size))
        return GetLastError();
    if (size.QuadPart > kLargestFile)
        return ERROR_NOT_ENOUGH_MEMORY;
    bytes.resize(static_cast<size_t>(size.QuadPart));
    DWORD read = 0;
    if (!ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        return GetLastError();
    bytes.resize(read);
    return ERROR_SUCCESS;
}

DWORD WriteAll(const OpenFile& file, const std::string& bytes)
{
    DWORD written = 0;
    const bool done =
        file && WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    return done ? static_cast<DWORD>(ERROR_SUCCESS) : GetLastError();
}

/// Gives a file the name of another, which is gone then or never was.
bool TakeName(const char* file, const char* name)
{
    // Renaming over a file makes some file systems write it to the disk first, which costs milliseconds;
    // exchanging two files does not.
    if (renameat2(AT_FDCWD, file, AT_FDCWD, name, RENAME_EXCHANGE) == 0)
        return unlink(file) == 0;
    return rename(file, name) == 0;
}

/// Puts new content into the place of a file, which may be missing.
DWORD ReplaceFile(const char* nativeName, const std::string& bytes)
{
    const std::string temporary = std::string(nativeName) + kTemporarySuffix;
    struct stat old;
    const bool existed = stat(nativeName, &old) == 0;
    DWORD error = WriteAll(OpenFile(WindowsPath(temporary), GENERIC_WRITE, CREATE_ALWAYS), bytes);
    if (error == ERROR_SUCCESS && existed && chmod(temporary.c_str(), old.st_mode & ALLPERMS) != 0)
        error = ErrorFromErrno(errno);
    if (error == ERROR_SUCCESS && !TakeName(temporary.c_str(), nativeName))
        error = ErrorFromErrno(errno);
    if (error != ERROR_SUCCESS)
        unlink(temporary.c_str());
    return error;
}

/// The machine's name of a file that need not exist, in a folder that must. Returns 0 or the error code.
DWORD FindFile(const std::u16string& fileName, NativeName& native, bool& exists)
{
    struct stat status;
    const DWORD error = FindExisting(fileName.c_str(), native, status);
    exists = error == ERROR_SUCCESS;
    if (native.asFolder && (exists || error == ERROR_FILE_NOT_FOUND))
        return ERROR_INVALID_NAME;
    return error == ERROR_FILE_NOT_FOUND ? ERROR_SUCCESS : error;
}

} // namespace

std::u16string FullFileName(LPCWSTR fileName)
{
    const std::u16string name = fileName != nullptr ? fileName : kSystemFile;
    const bool bare = !name.empty() && name.find_first_of(u"\\/:") == std::u16string::npos;
    return bare ? kWindowsFolder + name : name;
}

DWORD ReadBytes(const std::u16string& fileName, std::string& bytes)
{
    return ReadAll(OpenFile(fileName, GENERIC_READ, OPEN_EXISTING), bytes);
}

DWORD Edit(const std::u16string& fileName, const std::function<void(ProfileText&)>& change)
{
    NativeName native;
    bool exists = false;
    DWORD error = FindFile(fileName, native, exists);
    if (error != ERROR_SUCCESS)
        return error;
    const std::string_view path(native.text, native.size);
    const FolderLock lock(std::string(path.substr(0, path.rfind('/') + 1)));
    if (!lock)
        return ErrorFromErrno(errno);
    // Another writer may have made the file before the lock was ours.
    error = FindFile(fileName, native, exists);
    if (error != ERROR_SUCCESS)
        return error;
    std::string bytes;
    std::optional<OpenFile> old; // stays open, so that nobody shuts us out meanwhile
    if (exists)
        error = ReadAll(old.emplace(fileName, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING), bytes);
    if (error != ERROR_SUCCESS)
        return error;
    ProfileText text(bytes);
    change(text);
    const std::string changed = text.Bytes();
    return changed != bytes ? ReplaceFile(native.text, changed) : static_cast<DWORD>(ERROR_SUCCESS);
}

} // namespace host::profile
