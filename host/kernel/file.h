#pragma once
// Open files and who may share them.
#include <sys/stat.h>

#include "host/kernel/handle.h"

namespace host {

/// What CreateFileW asks for. `access` holds GENERIC_READ, GENERIC_WRITE and DELETE alone.
struct OpenRequest
{
    DWORD access;
    DWORD share;
    DWORD disposition;
    DWORD attributes;
};

struct File final : Object
{
    static constexpr HandleKind kHandleKind = HandleKind::File;

    File(int descriptor, const struct stat& status, const OpenRequest& request)
        : Object(kHandleKind), fd(descriptor), device(status.st_dev), inode(status.st_ino),
          access(request.access), share(request.share)
    {
    }
    ~File() override;
    void HandleClosed() override;

    const int fd;
    const dev_t device;
    const ino_t inode;
    const DWORD access;
    const DWORD share;

    // Guarded by the lock of the sharing table.
    bool listed = false;
    bool handleOpen = true;
    int mappings = 0; // mapping objects and views
    File* next = nullptr;
};

/// Enters a file into the sharing table, unless another opener forbids it or is forbidden by it. Across
/// processes only openers that share neither reading nor writing are told apart (by a lock on the file).
/// Returns 0, ERROR_SHARING_VIOLATION, or ERROR_USER_MAPPED_FILE when `truncates` and the file is mapped.
DWORD AdmitFile(File& file, bool truncates);

void LeaveSharingTable(File& file);
void EndSharing(File& file);
void CountMapping(File& file, int amount);
bool IsMapped(const File& file);

/// Whether a file may be deleted or moved away. Returns 0, ERROR_SHARING_VIOLATION or ERROR_ACCESS_DENIED.
DWORD MayDelete(const struct stat& status);

} // namespace host
