// Listing of folders. A list is read and sorted at its start, so it is the same on every file system.
#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <string>
#include <vector>

#include "host/kernel/attributes.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/file_time.h"
#include "host/kernel/handle.h"
#include "host/kernel/path.h"
#include "host/kernel/world.h"

namespace host {
namespace {

struct Entry
{
    std::u16string name;
    struct stat status;
};

struct Find final : Object
{
    static constexpr HandleKind kHandleKind = HandleKind::Find;

    Find() : Object(kHandleKind) { CountOpen(&Ledger::finds, 1); }
    void HandleClosed() override { CountOpen(&Ledger::finds, -1); }

    std::vector<Entry> entries;
    size_t next = 0;
};

/// "*" stands for any run of units, "?" for one.
bool MatchesPattern(std::u16string_view name, std::u16string_view pattern)
{
    size_t n = 0;
    size_t p = 0;
    size_t starPattern = std::u16string_view::npos;
    size_t starName = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == u'*') {
            starPattern = p++;
            starName = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == u'?' || UpperCase(pattern[p]) == UpperCase(name[n]))) {
            ++p;
            ++n;
        } else if (starPattern != std::u16string_view::npos) {
            p = starPattern + 1;
            n = ++starName;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', p) == std::u16string_view::npos;
}

bool IsDots(std::u16string_view name)
{
    return name == u"." || name == u"..";
}

bool ListedBefore(const Entry& a, const Entry& b)
{
    if (IsDots(a.name) != IsDots(b.name))
        return IsDots(a.name);
    return std::lexicographical_compare(a.name.begin(), a.name.end(), b.name.begin(), b.name.end(),
                                        [](char16_t x, char16_t y) { return UpperCase(x) < UpperCase(y); });
}

void ReadEntries(DIR* folder, bool isRoot, std::u16string_view pattern, std::vector<Entry>& entries)
{
    while (const dirent* found = readdir(folder)) {
        Entry entry;
        entry.name = Utf16(found->d_name);
        if (entry.name.size() >= MAX_PATH || (isRoot && IsDots(entry.name)) ||
            !MatchesPattern(entry.name, pattern))
            continue;
        if (fstatat(dirfd(folder), found->d_name, &entry.status, 0) == 0)
            entries.push_back(std::move(entry));
    }
    std::sort(entries.begin(), entries.end(), ListedBefore);
}

/// Splits a full name into the folder and the pattern that its last component is.
DWORD ReadFolder(FullName& full, std::vector<Entry>& entries)
{
    std::u16string_view path(full.text, full.size);
    const size_t slash = path.rfind(u'\\');
    // "*.*" matches names without a dot too.
    std::u16string pattern(path.substr(slash + 1));
    if (pattern == u"*.*")
        pattern = u"*";
    full.size = slash + 1;
    full.text[full.size] = 0;
    NativeName native;
    if (const DWORD error = TranslateName(full, native))
        return error;
    if (pattern.empty())
        return ERROR_FILE_NOT_FOUND;
    if (pattern.find_first_of(u"<>|\":") != std::u16string::npos)
        return ERROR_INVALID_NAME;
    if (MatchCase(native) != ERROR_SUCCESS)
        return ERROR_PATH_NOT_FOUND;
    DIR* folder = opendir(native.text);
    if (folder == nullptr)
        return ErrorFromErrno(errno);
    ReadEntries(folder, native.size <= native.fixedSize + 1, pattern, entries);
    closedir(folder);
    return entries.empty() ? ERROR_FILE_NOT_FOUND : ERROR_SUCCESS;
}

void FillData(const Entry& entry, WIN32_FIND_DATAW& data)
{
    const FileTimes times = FileTimesOf(entry.status);
    const auto size = S_ISDIR(entry.status.st_mode) ? 0 : static_cast<uint64_t>(entry.status.st_size);
    data = {};
    data.dwFileAttributes = AttributesOf(entry.status);
    data.ftCreationTime = times.creation;
    data.ftLastAccessTime = times.access;
    data.ftLastWriteTime = times.write;
    data.nFileSizeHigh = static_cast<DWORD>(size >> 32);
    data.nFileSizeLow = static_cast<DWORD>(size);
    std::copy(entry.name.begin(), entry.name.end(), data.cFileName);
}

} // namespace
} // namespace host

using namespace host;

HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data)
{
    HOST_CALL(FindFirstFileW, INVALID_HANDLE_VALUE, ERROR_ACCESS_DENIED);
    FullName full;
    std::vector<Entry> entries;
    DWORD error = pattern == nullptr || *pattern == 0 ? static_cast<DWORD>(ERROR_PATH_NOT_FOUND)
                                                      : ExpandName(pattern, full);
    if (error == ERROR_SUCCESS)
        error = ReadFolder(full, entries);
    if (error != ERROR_SUCCESS) {
        SetLastError(error);
        return INVALID_HANDLE_VALUE;
    }
    const auto find = std::make_shared<Find>();
    find->entries = std::move(entries);
    FillData(find->entries[find->next++], *data);
    return NewHandle(find);
}

BOOL WINAPI FindNextFileW(HANDLE handle, LPWIN32_FIND_DATAW data)
{
    HOST_CALL(FindNextFileW, FALSE, ERROR_NO_MORE_FILES);
    const std::shared_ptr<Find> find = ObjectOf<Find>(handle);
    if (find == nullptr)
        return FALSE;
    if (find->next == find->entries.size())
        return FailWith(ERROR_NO_MORE_FILES);
    FillData(find->entries[find->next++], *data);
    return TRUE;
}

BOOL WINAPI FindClose(HANDLE find)
{
    HOST_CALL_VOID(FindClose);
    return CloseObject(find, true);
}
