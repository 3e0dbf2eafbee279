#include "host/kernel/file.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/file_time.h"
#include "host/kernel/path.h"

namespace host {
namespace {

constexpr DWORD kKnownAccess = GENERIC_READ | GENERIC_WRITE | DELETE;
constexpr mode_t kNewFileMode = 0666;
constexpr mode_t kNewReadOnlyMode = 0444;
constexpr size_t kLargestTransfer = 0x7FFFF000; // bytes the machine moves in one call

std::atomic<int64_t> diskSpace{-1}; // bytes that may still be written; negative without a limit

bool Truncates(const OpenRequest& request)
{
    return request.disposition == CREATE_ALWAYS || request.disposition == TRUNCATE_EXISTING;
}

bool Creates(DWORD disposition)
{
    return disposition == CREATE_NEW || disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
}

int OpenFlags(const OpenRequest& request)
{
    const bool writes = (request.access & GENERIC_WRITE) != 0 || Truncates(request);
    const bool reads = (request.access & GENERIC_READ) != 0 || !writes;
    return (writes ? reads ? O_RDWR : O_WRONLY : O_RDONLY) | O_CLOEXEC | O_NOCTTY;
}

/// Opens what is there. Returns 0 or an error code; ERROR_FILE_NOT_FOUND means that the name is free.
DWORD OpenPresent(NativeName& name, const OpenRequest& request, int& fd)
{
    fd = open(name.text, OpenFlags(request));
    if (fd < 0 && errno == ENOENT) {
        if (const DWORD missing = MatchCase(name))
            return missing;
        fd = open(name.text, OpenFlags(request));
    }
    return fd >= 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
}

DWORD CreateAbsent(const NativeName& name, const OpenRequest& request, int& fd)
{
    const bool readOnly = (request.attributes & FILE_ATTRIBUTE_READONLY) != 0;
    fd = open(name.text, OpenFlags(request) | O_CREAT | O_EXCL, readOnly ? kNewReadOnlyMode : kNewFileMode);
    return fd >= 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
}

/// Finds or makes the file. `*existed` tells which.
DWORD OpenDescriptor(NativeName& name, const OpenRequest& request, int& fd, bool& existed)
{
    if (request.disposition == CREATE_NEW) {
        existed = false;
        const DWORD missing = MatchCase(name);
        if (missing != ERROR_FILE_NOT_FOUND)
            return missing == ERROR_SUCCESS ? ERROR_FILE_EXISTS : missing;
        const DWORD error = CreateAbsent(name, request, fd);
        return error == ERROR_ALREADY_EXISTS ? ERROR_FILE_EXISTS : error;
    }
    existed = true;
    const bool creates = Creates(request.disposition);
    DWORD error = creates && IsKnownMissing(name) ? static_cast<DWORD>(ERROR_FILE_NOT_FOUND)
                                                  : OpenPresent(name, request, fd);
    if (error != ERROR_FILE_NOT_FOUND || !creates)
        return error;
    existed = false;
    error = CreateAbsent(name, request, fd);
    if (error != ERROR_ALREADY_EXISTS)
        return error;
    existed = true; // another process was faster
    return OpenPresent(name, request, fd);
}

/// Whether an existing file may be opened like this at all, other openers aside.
DWORD CheckPresent(const struct stat& status, const OpenRequest& request)
{
    if (S_ISDIR(status.st_mode))
        return ERROR_ACCESS_DENIED;
    const bool writes = (request.access & GENERIC_WRITE) != 0 || Truncates(request);
    return writes && IsReadOnly(status) ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
}

DWORD TruncatePresent(const File& file, const OpenRequest& request)
{
    if (!Truncates(request))
        return ERROR_SUCCESS;
    if (ftruncate(file.fd, 0) != 0)
        return ErrorFromErrno(errno);
    if (request.disposition == CREATE_ALWAYS && (request.attributes & FILE_ATTRIBUTE_READONLY) != 0)
        fchmod(file.fd, kNewReadOnlyMode);
    return ERROR_SUCCESS;
}

DWORD OpenFile(NativeName& name, const OpenRequest& request, std::shared_ptr<File>& file, bool& existed)
{
    int fd;
    DWORD error = OpenDescriptor(name, request, fd, existed);
    if (error != ERROR_SUCCESS)
        return error;
    struct stat status;
    error = fstat(fd, &status) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
    if (error == ERROR_SUCCESS && existed)
        error = CheckPresent(status, request);
    if (error != ERROR_SUCCESS) {
        close(fd);
        return error;
    }
    file = std::make_shared<File>(fd, status, request);
    error = AdmitFile(*file, existed && Truncates(request));
    if (error != ERROR_SUCCESS || !existed)
        return error;
    error = TruncatePresent(*file, request);
    if (error != ERROR_SUCCESS)
        EndSharing(*file);
    return error;
}

/// Takes at most `wanted` bytes from the disk space that is left.
size_t TakeDiskSpace(size_t wanted)
{
    int64_t left = diskSpace.load(std::memory_order_relaxed);
    while (left >= 0) {
        const int64_t taken = std::min(left, static_cast<int64_t>(wanted));
        if (diskSpace.compare_exchange_weak(left, left - taken))
            return static_cast<size_t>(taken);
    }
    return wanted;
}

/// Writes until everything is written or the machine refuses. Returns the bytes written.
size_t WriteAll(int fd, const char* data, size_t size, DWORD& error)
{
    size_t done = 0;
    error = ERROR_SUCCESS;
    while (done < size) {
        const ssize_t written = write(fd, data + done, std::min(size - done, kLargestTransfer));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0) {
            error = written < 0 ? ErrorFromErrno(errno) : ERROR_DISK_FULL;
            break;
        }
        done += static_cast<size_t>(written);
    }
    return done;
}

/// The position that `distance` leads to, before it is looked at; false with the last error set.
bool TargetPosition(const File& file, int64_t distance, DWORD method, int64_t& target)
{
    int64_t base = 0;
    if (method == FILE_CURRENT) {
        base = lseek(file.fd, 0, SEEK_CUR);
    } else if (method == FILE_END) {
        struct stat status;
        base = fstat(file.fd, &status) == 0 ? status.st_size : -1;
    } else if (method != FILE_BEGIN) {
        return FailWith(ERROR_INVALID_PARAMETER);
    }
    if (base < 0 || __builtin_add_overflow(base, distance, &target))
        return FailWith(ERROR_INVALID_PARAMETER);
    return target >= 0 || FailWith(ERROR_NEGATIVE_SEEK);
}

bool MoveTo(const File& file, int64_t target)
{
    return lseek(file.fd, target, SEEK_SET) >= 0 || FailWith(ErrorFromErrno(errno));
}

} // namespace

File::~File()
{
    LeaveSharingTable(*this);
    close(fd);
}

void File::HandleClosed()
{
    EndSharing(*this);
}

void LimitDiskSpace(int64_t bytes)
{
    diskSpace = bytes;
}

} // namespace host

using namespace host;

HANDLE WINAPI CreateFileW(LPCWSTR fileName, DWORD access, DWORD shareMode, LPSECURITY_ATTRIBUTES,
                          DWORD disposition, DWORD flagsAndAttributes, HANDLE)
{
    HOST_CALL(CreateFileW, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED);
    if ((access & GENERIC_ALL) != 0)
        access |= kKnownAccess;
    const OpenRequest request = {access & kKnownAccess, shareMode, disposition, flagsAndAttributes};
    NativeName name;
    DWORD error = TranslateName(fileName, name);
    if (error == ERROR_SUCCESS && name.asFolder)
        error = ERROR_INVALID_NAME;
    if (disposition < CREATE_NEW || disposition > TRUNCATE_EXISTING ||
        (disposition == TRUNCATE_EXISTING && (request.access & GENERIC_WRITE) == 0))
        error = ERROR_INVALID_PARAMETER;
    std::shared_ptr<File> file;
    bool existed = false;
    if (error == ERROR_SUCCESS)
        error = OpenFile(name, request, file, existed);
    if (error != ERROR_SUCCESS) {
        SetLastError(error);
        return INVALID_HANDLE_VALUE;
    }
    const bool found = existed && (disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS);
    SetLastError(found ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return NewHandle(std::move(file));
}

BOOL WINAPI ReadFile(HANDLE handle, LPVOID buffer, DWORD count, LPDWORD read, LPOVERLAPPED overlapped)
{
    HOST_CALL(ReadFile, FALSE, ERROR_ACCESS_DENIED);
    if (read != nullptr)
        *read = 0;
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    if (file == nullptr)
        return FALSE;
    if (overlapped != nullptr)
        return FailWith(ERROR_NOT_SUPPORTED);
    if ((file->access & GENERIC_READ) == 0)
        return FailWith(ERROR_ACCESS_DENIED);
    size_t done = 0;
    while (done < count) {
        const size_t wanted = std::min(count - done, kLargestTransfer);
        const ssize_t got = ::read(file->fd, static_cast<char*>(buffer) + done, wanted);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return FailWith(ErrorFromErrno(errno));
        done += static_cast<size_t>(got);
        if (static_cast<size_t>(got) < wanted)
            break; // the end of the file
    }
    if (read != nullptr)
        *read = static_cast<DWORD>(done);
    return TRUE;
}

BOOL WINAPI WriteFile(HANDLE handle, LPCVOID buffer, DWORD count, LPDWORD written, LPOVERLAPPED overlapped)
{
    HOST_CALL(WriteFile, FALSE, ERROR_DISK_FULL);
    if (written != nullptr)
        *written = 0;
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    if (file == nullptr)
        return FALSE;
    if (overlapped != nullptr)
        return FailWith(ERROR_NOT_SUPPORTED);
    if ((file->access & GENERIC_WRITE) == 0)
        return FailWith(ERROR_ACCESS_DENIED);
    const size_t room = TakeDiskSpace(count);
    DWORD error;
    const size_t done = WriteAll(file->fd, static_cast<const char*>(buffer), room, error);
    if (error == ERROR_SUCCESS && room < count)
        error = ERROR_DISK_FULL;
    if (written != nullptr)
        *written = static_cast<DWORD>(done);
    return error == ERROR_SUCCESS || FailWith(error);
}

BOOL WINAPI GetFileSizeEx(HANDLE handle, PLARGE_INTEGER size)
{
    HOST_CALL(GetFileSizeEx, FALSE, ERROR_ACCESS_DENIED);
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    if (file == nullptr)
        return FALSE;
    struct stat status;
    if (fstat(file->fd, &status) != 0)
        return FailWith(ErrorFromErrno(errno));
    size->QuadPart = status.st_size;
    return TRUE;
}

DWORD WINAPI GetFileSize(HANDLE file, LPDWORD sizeHigh)
{
    HOST_CALL(GetFileSize, INVALID_FILE_SIZE, ERROR_ACCESS_DENIED);
    LARGE_INTEGER size;
    if (!GetFileSizeEx(file, &size))
        return INVALID_FILE_SIZE;
    if (sizeHigh != nullptr)
        *sizeHigh = static_cast<DWORD>(size.HighPart);
    if (size.LowPart == INVALID_FILE_SIZE)
        SetLastError(NO_ERROR);
    return size.LowPart;
}

BOOL WINAPI SetFilePointerEx(HANDLE handle, LARGE_INTEGER distance, PLARGE_INTEGER newPointer, DWORD method)
{
    HOST_CALL(SetFilePointerEx, FALSE, ERROR_ACCESS_DENIED);
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    int64_t target;
    if (file == nullptr || !TargetPosition(*file, distance.QuadPart, method, target) ||
        !MoveTo(*file, target))
        return FALSE;
    if (newPointer != nullptr)
        newPointer->QuadPart = target;
    return TRUE;
}

DWORD WINAPI SetFilePointer(HANDLE handle, LONG distance, PLONG distanceHigh, DWORD method)
{
    HOST_CALL(SetFilePointer, INVALID_SET_FILE_POINTER, ERROR_ACCESS_DENIED);
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    LARGE_INTEGER wide;
    wide.QuadPart = distance;
    if (distanceHigh != nullptr) {
        wide.LowPart = static_cast<DWORD>(distance);
        wide.HighPart = *distanceHigh;
    }
    LARGE_INTEGER target;
    int64_t position;
    if (file == nullptr || !TargetPosition(*file, wide.QuadPart, method, position))
        return INVALID_SET_FILE_POINTER;
    target.QuadPart = position;
    if (distanceHigh == nullptr && target.HighPart != 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return INVALID_SET_FILE_POINTER;
    }
    if (!MoveTo(*file, position))
        return INVALID_SET_FILE_POINTER;
    if (distanceHigh != nullptr)
        *distanceHigh = target.HighPart;
    if (target.LowPart == INVALID_SET_FILE_POINTER)
        SetLastError(NO_ERROR);
    return target.LowPart;
}

BOOL WINAPI SetEndOfFile(HANDLE handle)
{
    HOST_CALL(SetEndOfFile, FALSE, ERROR_DISK_FULL);
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    if (file == nullptr)
        return FALSE;
    if ((file->access & GENERIC_WRITE) == 0)
        return FailWith(ERROR_ACCESS_DENIED);
    const off_t position = lseek(file->fd, 0, SEEK_CUR);
    struct stat status;
    if (position < 0 || fstat(file->fd, &status) != 0)
        return FailWith(ErrorFromErrno(errno));
    if (position < status.st_size && IsMapped(*file))
        return FailWith(ERROR_USER_MAPPED_FILE);
    return ftruncate(file->fd, position) == 0 || FailWith(ErrorFromErrno(errno));
}

BOOL WINAPI FlushFileBuffers(HANDLE handle)
{
    HOST_CALL(FlushFileBuffers, FALSE, ERROR_DISK_FULL);
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    if (file == nullptr)
        return FALSE;
    if ((file->access & GENERIC_WRITE) == 0)
        return FailWith(ERROR_ACCESS_DENIED);
    return fsync(file->fd) == 0 || FailWith(ErrorFromErrno(errno));
}

BOOL WINAPI GetFileTime(HANDLE handle, LPFILETIME creation, LPFILETIME access, LPFILETIME write)
{
    HOST_CALL(GetFileTime, FALSE, ERROR_ACCESS_DENIED);
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    if (file == nullptr)
        return FALSE;
    struct stat status;
    if (fstat(file->fd, &status) != 0)
        return FailWith(ErrorFromErrno(errno));
    const FileTimes times = FileTimesOf(status);
    if (creation != nullptr)
        *creation = times.creation;
    if (access != nullptr)
        *access = times.access;
    if (write != nullptr)
        *write = times.write;
    return TRUE;
}

BOOL WINAPI SetFileTime(HANDLE handle, const FILETIME*, const FILETIME* access, const FILETIME* write)
{
    HOST_CALL(SetFileTime, FALSE, ERROR_ACCESS_DENIED);
    const std::shared_ptr<File> file = ObjectOf<File>(handle);
    if (file == nullptr)
        return FALSE;
    if ((file->access & GENERIC_WRITE) == 0)
        return FailWith(ERROR_ACCESS_DENIED);
    const timespec times[] = {UnixTime(access), UnixTime(write)};
    return futimens(file->fd, times) == 0 || FailWith(ErrorFromErrno(errno));
}
