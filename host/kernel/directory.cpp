// What is done to files and folders by name.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

#include "host/kernel/attributes.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/file.h"
#include "host/kernel/path.h"

namespace host {
namespace {

constexpr mode_t kFolderMode = 0777;
constexpr mode_t kAllWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr DWORD kCopyChunk = 0x10000; // bytes

struct Named
{
    NativeName name;
    struct stat status;
};

bool SameFile(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

DWORD RemoveFile(const Named& file)
{
    if (S_ISDIR(file.status.st_mode) || IsReadOnly(file.status))
        return ERROR_ACCESS_DENIED;
    if (const DWORD error = MayDelete(file.status))
        return error;
    return unlink(file.name.text) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
}

/// Makes room for a file that moves to the place of `target`, which exists.
DWORD CheckReplace(const Named& target, DWORD flags)
{
    if ((flags & MOVEFILE_REPLACE_EXISTING) == 0)
        return ERROR_ALREADY_EXISTS;
    if (S_ISDIR(target.status.st_mode) || IsReadOnly(target.status))
        return ERROR_ACCESS_DENIED;
    return MayDelete(target.status) == ERROR_SUCCESS ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

/// Renames; a folder or file may change just the case of its name.
DWORD Rename(const Named& source, LPCWSTR replacement, DWORD flags)
{
    const auto target = std::make_unique<Named>();
    DWORD error = FindExisting(replacement, target->name, target->status);
    if (error == ERROR_SUCCESS && SameFile(source.status, target->status)) {
        TranslateName(replacement, target->name);
        const std::string_view found(source.name.text);
        const std::string folder(found.substr(0, found.rfind('/') + 1));
        const std::string_view wanted(target->name.text);
        const std::string renamed = folder + std::string(wanted.substr(wanted.rfind('/') + 1));
        return rename(source.name.text, renamed.c_str()) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
    }
    if (error == ERROR_SUCCESS)
        error = CheckReplace(*target, flags);
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND)
        return error;
    return rename(source.name.text, target->name.text) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
}

bool OnSameDrive(LPCWSTR first, LPCWSTR second)
{
    FullName a;
    FullName b;
    return ExpandName(first, a) == ERROR_SUCCESS && ExpandName(second, b) == ERROR_SUCCESS &&
           a.text[0] == b.text[0];
}

/// Copies the rest of one open file to another. False with the last error set.
bool CopyBytes(HANDLE source, HANDLE target)
{
    const auto buffer = std::make_unique<char[]>(kCopyChunk);
    DWORD count = 0;
    do {
        DWORD written;
        if (!ReadFile(source, buffer.get(), kCopyChunk, &count, nullptr) ||
            !WriteFile(target, buffer.get(), count, &written, nullptr))
            return false;
    } while (count == kCopyChunk);
    FILETIME time;
    return GetFileTime(source, nullptr, nullptr, &time) && SetFileTime(target, nullptr, nullptr, &time);
}

} // namespace

DWORD AttributesOf(const struct stat& status)
{
    if (S_ISDIR(status.st_mode))
        return FILE_ATTRIBUTE_DIRECTORY;
    return FILE_ATTRIBUTE_ARCHIVE | (IsReadOnly(status) ? FILE_ATTRIBUTE_READONLY : 0);
}

} // namespace host

using namespace host;

BOOL WINAPI DeleteFileW(LPCWSTR fileName)
{
    HOST_CALL(DeleteFileW, FALSE, ERROR_ACCESS_DENIED);
    Named file;
    DWORD error = FindExisting(fileName, file.name, file.status);
    if (error == ERROR_SUCCESS)
        error = RemoveFile(file);
    return error == ERROR_SUCCESS || FailWith(error);
}

BOOL WINAPI MoveFileExW(LPCWSTR existing, LPCWSTR replacement, DWORD flags)
{
    HOST_CALL(MoveFileExW, FALSE, ERROR_ACCESS_DENIED);
    Named source;
    DWORD error = FindExisting(existing, source.name, source.status);
    if (error == ERROR_SUCCESS && !S_ISDIR(source.status.st_mode) &&
        MayDelete(source.status) != ERROR_SUCCESS)
        error = ERROR_SHARING_VIOLATION;
    if (error == ERROR_SUCCESS)
        error = OnSameDrive(existing, replacement) ? Rename(source, replacement, flags)
                                                   : static_cast<DWORD>(ERROR_NOT_SAME_DEVICE);
    if (error != ERROR_NOT_SAME_DEVICE || (flags & MOVEFILE_COPY_ALLOWED) == 0 ||
        S_ISDIR(source.status.st_mode))
        return error == ERROR_SUCCESS || FailWith(error);
    return CopyFileW(existing, replacement, (flags & MOVEFILE_REPLACE_EXISTING) == 0) &&
           DeleteFileW(existing);
}

BOOL WINAPI CopyFileW(LPCWSTR existing, LPCWSTR copy, BOOL failIfExists)
{
    HOST_CALL(CopyFileW, FALSE, ERROR_ACCESS_DENIED);
    const HANDLE source = CreateFileW(existing, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    if (source == INVALID_HANDLE_VALUE)
        return FALSE;
    const HANDLE target =
        CreateFileW(copy, GENERIC_WRITE, 0, nullptr, failIfExists ? CREATE_NEW : CREATE_ALWAYS, 0, nullptr);
    DWORD error = ERROR_SUCCESS;
    if (target == INVALID_HANDLE_VALUE || !CopyBytes(source, target))
        error = GetLastError();
    CloseHandle(source);
    if (target != INVALID_HANDLE_VALUE)
        CloseHandle(target);
    if (error != ERROR_SUCCESS && target != INVALID_HANDLE_VALUE)
        DeleteFileW(copy);
    if (error == ERROR_SUCCESS && (GetFileAttributesW(existing) & FILE_ATTRIBUTE_READONLY) != 0)
        SetFileAttributesW(copy, FILE_ATTRIBUTE_READONLY);
    return error == ERROR_SUCCESS || FailWith(error);
}

BOOL WINAPI CreateDirectoryW(LPCWSTR path, LPSECURITY_ATTRIBUTES)
{
    HOST_CALL(CreateDirectoryW, FALSE, ERROR_ACCESS_DENIED);
    Named folder;
    DWORD error = FindExisting(path, folder.name, folder.status);
    if (error == ERROR_SUCCESS)
        return FailWith(ERROR_ALREADY_EXISTS);
    if (error == ERROR_FILE_NOT_FOUND)
        error = mkdir(folder.name.text, kFolderMode) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
    return error == ERROR_SUCCESS || FailWith(error);
}

BOOL WINAPI CreateDirectoryExW(LPCWSTR model, LPCWSTR path, LPSECURITY_ATTRIBUTES security)
{
    HOST_CALL(CreateDirectoryExW, FALSE, ERROR_ACCESS_DENIED);
    Named folder;
    DWORD error = FindExisting(model, folder.name, folder.status);
    if (error == ERROR_SUCCESS && !S_ISDIR(folder.status.st_mode))
        error = ERROR_DIRECTORY;
    // Folders have no attributes of their own here, so there is nothing more to take from the model.
    return error == ERROR_SUCCESS ? CreateDirectoryW(path, security) : FailWith(error);
}

BOOL WINAPI RemoveDirectoryW(LPCWSTR path)
{
    HOST_CALL(RemoveDirectoryW, FALSE, ERROR_ACCESS_DENIED);
    Named folder;
    DWORD error = FindExisting(path, folder.name, folder.status);
    if (error == ERROR_SUCCESS && !S_ISDIR(folder.status.st_mode))
        error = ERROR_DIRECTORY;
    if (error == ERROR_SUCCESS && rmdir(folder.name.text) != 0)
        error = ErrorFromErrno(errno);
    return error == ERROR_SUCCESS || FailWith(error);
}

DWORD WINAPI GetFileAttributesW(LPCWSTR fileName)
{
    HOST_CALL(GetFileAttributesW, INVALID_FILE_ATTRIBUTES, ERROR_ACCESS_DENIED);
    Named file;
    if (const DWORD error = FindExisting(fileName, file.name, file.status)) {
        SetLastError(error);
        return INVALID_FILE_ATTRIBUTES;
    }
    return AttributesOf(file.status);
}

BOOL WINAPI SetFileAttributesW(LPCWSTR fileName, DWORD attributes)
{
    HOST_CALL(SetFileAttributesW, FALSE, ERROR_ACCESS_DENIED);
    Named file;
    if (const DWORD error = FindExisting(fileName, file.name, file.status))
        return FailWith(error);
    const bool readOnly = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    // On a folder the attribute means nothing, and taking its write permission away would.
    if (S_ISDIR(file.status.st_mode) || readOnly == IsReadOnly(file.status))
        return TRUE;
    const mode_t mode = readOnly ? file.status.st_mode & ~kAllWrite : file.status.st_mode | S_IWUSR;
    return chmod(file.name.text, mode & 07777) == 0 || FailWith(ErrorFromErrno(errno));
}
