#include "host/kernel/error.h"

#include <cerrno>

namespace {
thread_local DWORD lastError = ERROR_SUCCESS;
}

// These two are not counted as calls: they are how every other call reports.
DWORD WINAPI GetLastError(void)
{
    return lastError;
}

void WINAPI SetLastError(DWORD code)
{
    lastError = code;
}

namespace host {

DWORD ErrorFromErrno(int code)
{
    switch (code) {
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
        return ERROR_PATH_NOT_FOUND;
    case EMFILE:
    case ENFILE:
        return ERROR_TOO_MANY_OPEN_FILES;
    case EACCES:
    case EPERM:
    case EISDIR:
    case ETXTBSY:
    case EBADF: // the handle is sound, so it was opened for the other direction
        return ERROR_ACCESS_DENIED;
    case ENOMEM:
        return ERROR_NOT_ENOUGH_MEMORY;
    case EXDEV:
        return ERROR_NOT_SAME_DEVICE;
    case EROFS:
        return ERROR_WRITE_PROTECT;
    case EEXIST:
        return ERROR_ALREADY_EXISTS;
    case EINVAL:
        return ERROR_INVALID_PARAMETER;
    case EFBIG:
    case ENOSPC:
    case EDQUOT:
        return ERROR_DISK_FULL;
    case ENOTEMPTY:
        return ERROR_DIR_NOT_EMPTY;
    case ENAMETOOLONG:
        return ERROR_FILENAME_EXCED_RANGE;
    default:
        return ERROR_GEN_FAILURE;
    }
}

BOOL FailWith(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

} // namespace host
