// The table of files that this process has open, for the share modes.
#include <array>
#include <cerrno>
#include <mutex>
#include <sys/file.h>
#include <unistd.h>

#include "host/kernel/file.h"
#include "host/kernel/world.h"

namespace host {
namespace {

constexpr size_t kBuckets = 64;

std::mutex sharingLock;
std::array<File*, kBuckets> buckets;

File*& BucketOf(ino_t inode)
{
    return buckets[inode % kBuckets];
}

/// Whether somebody who grants `share` lets another have `access`.
bool Grants(DWORD share, DWORD access)
{
    return ((access & GENERIC_READ) == 0 || (share & FILE_SHARE_READ) != 0) &&
           ((access & GENERIC_WRITE) == 0 || (share & FILE_SHARE_WRITE) != 0) &&
           ((access & DELETE) == 0 || (share & FILE_SHARE_DELETE) != 0);
}

/// Those who only ask for attributes conflict with nobody.
bool Conflicts(const File& opened, const File& file)
{
    return opened.handleOpen && opened.access != 0 && file.access != 0 &&
           (!Grants(opened.share, file.access) || !Grants(file.share, opened.access));
}

bool ForbiddenByOtherProcess(const File& file)
{
    if (file.access == 0)
        return false;
    const bool alone = (file.share & (FILE_SHARE_READ | FILE_SHARE_WRITE)) == 0;
    return flock(file.fd, (alone ? LOCK_EX : LOCK_SH) | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

} // namespace

DWORD AdmitFile(File& file, bool truncates)
{
    std::lock_guard lock(sharingLock);
    File*& bucket = BucketOf(file.inode);
    for (const File* opened = bucket; opened != nullptr; opened = opened->next) {
        if (opened->inode != file.inode || opened->device != file.device)
            continue;
        if (Conflicts(*opened, file))
            return ERROR_SHARING_VIOLATION;
        if (truncates && opened->mappings > 0)
            return ERROR_USER_MAPPED_FILE;
    }
    if (ForbiddenByOtherProcess(file))
        return ERROR_SHARING_VIOLATION;
    file.next = bucket;
    file.listed = true;
    bucket = &file;
    CountOpen(&Ledger::files, 1);
    return ERROR_SUCCESS;
}

void LeaveSharingTable(File& file)
{
    std::lock_guard lock(sharingLock);
    if (!file.listed)
        return;
    File** link = &BucketOf(file.inode);
    while (*link != &file)
        link = &(*link)->next;
    *link = file.next;
}

void EndSharing(File& file)
{
    std::lock_guard lock(sharingLock);
    file.handleOpen = false;
    // The descriptor may live on for a mapping; without one it is closed at once and the lock goes with it.
    if (file.mappings > 0)
        flock(file.fd, LOCK_UN);
    CountOpen(&Ledger::files, -1);
}

void CountMapping(File& file, int amount)
{
    std::lock_guard lock(sharingLock);
    file.mappings += amount;
}

bool IsMapped(const File& file)
{
    std::lock_guard lock(sharingLock);
    for (const File* opened = BucketOf(file.inode); opened != nullptr; opened = opened->next) {
        if (opened->inode == file.inode && opened->device == file.device && opened->mappings > 0)
            return true;
    }
    return false;
}

DWORD MayDelete(const struct stat& status)
{
    std::lock_guard lock(sharingLock);
    for (const File* opened = BucketOf(status.st_ino); opened != nullptr; opened = opened->next) {
        if (opened->inode != status.st_ino || opened->device != status.st_dev)
            continue;
        if (opened->handleOpen && opened->access != 0 && (opened->share & FILE_SHARE_DELETE) == 0)
            return ERROR_SHARING_VIOLATION;
        if (opened->mappings > 0)
            return ERROR_ACCESS_DENIED;
    }
    return ERROR_SUCCESS;
}

} // namespace host
