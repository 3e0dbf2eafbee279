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

struct Named
{
    NativeName name;
    struct stat status;
};

DWORD RemoveFile(const Named& file)
{
    if (S_ISDIR(file.status.st_mode) || IsReadOnly(file.status))
        return ERROR_ACCESS_DENIED;
    if (const DWORD error = MayDelete(file.status))
        return error;
    return unlink(file.name.text) == 0 ? ERROR_SUCCESS : ErrorFromErrno(errno);
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
