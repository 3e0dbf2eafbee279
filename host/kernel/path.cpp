#include "host/kernel/path.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <unistd.h>

#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"

namespace host {
namespace {

constexpr size_t kDriveSize = 2;      // "C:"
constexpr size_t kListingSize = 8192; // bytes of a folder's entries that are read at once
constexpr std::u16string_view kVerbatimPrefix = u"\\\\?\\";
constexpr std::u16string_view kReservedUnits = u"*?<>|\":";
constexpr std::u16string_view kSystemDirectory = u"C:\\windows\\system32";
constexpr std::u16string_view kWindowsDirectory = u"C:\\windows";
constexpr std::u16string_view kTempDirectory = u"C:\\windows\\temp\\";

// Names of devices, whatever the extension; COM and LPT are followed by a digit from 1.
constexpr std::u16string_view kDevices[] = {u"NUL", u"CON", u"PRN", u"AUX"};
constexpr std::u16string_view kNumberedDevices[] = {u"COM", u"LPT"};

std::string driveC; // fixed while a world is open
std::shared_mutex currentDirectoryLock;
std::u16string currentDirectory = u"Z:\\"; // without a separator at its end, but for a drive's root

bool IsSeparator(char16_t unit)
{
    return unit == u'\\' || unit == u'/';
}

bool HasDrive(std::u16string_view name)
{
    return name.size() >= kDriveSize && name[1] == u':' && UpperCase(name[0]) >= u'A' &&
           UpperCase(name[0]) <= u'Z';
}

bool Append(FullName& full, std::u16string_view text)
{
    if (text.size() >= kMaxPathUnits - full.size)
        return false;
    std::memcpy(full.text + full.size, text.data(), text.size() * sizeof(char16_t));
    full.size += text.size();
    full.text[full.size] = 0;
    return true;
}

void DropLastComponent(FullName& full)
{
    while (full.size > kDriveSize && full.text[--full.size] != u'\\') {
    }
    full.text[full.size] = 0;
}

/// Adds one component; "." and ".." act. The platform ignores dots and blanks at the end of the last one.
bool AppendComponent(FullName& full, std::u16string_view component, bool last)
{
    if (component == u"..") {
        DropLastComponent(full);
        return true;
    }
    while (last && !component.empty() && (component.back() == u'.' || component.back() == u' '))
        component.remove_suffix(1);
    return component.empty() || component == u"." || (Append(full, u"\\") && Append(full, component));
}

bool AppendComponents(FullName& full, std::u16string_view rest)
{
    const bool separatorAtEnd = !rest.empty() && IsSeparator(rest.back());
    while (!rest.empty()) {
        size_t size = 0;
        while (size < rest.size() && !IsSeparator(rest[size]))
            ++size;
        if (!AppendComponent(full, rest.substr(0, size), size == rest.size()))
            return false;
        rest.remove_prefix(size < rest.size() ? size + 1 : size);
    }
    return (full.size > kDriveSize && !separatorAtEnd) || Append(full, u"\\");
}

/// What a name that is not absolute continues: the current directory, or the root of the drive it names.
std::u16string_view BaseOf(std::u16string_view& name, const std::u16string& current, char16_t (&drive)[2])
{
    std::u16string_view base = current;
    if (HasDrive(name)) {
        drive[0] = UpperCase(name[0]);
        drive[1] = u':';
        name.remove_prefix(kDriveSize);
        if (drive[0] != current[0])
            base = {drive, kDriveSize};
    }
    if (!name.empty() && IsSeparator(name[0]))
        return base.substr(0, kDriveSize);
    return base.back() == u'\\' ? base.substr(0, base.size() - 1) : base;
}

bool IsDeviceName(std::u16string_view component)
{
    const std::u16string_view stem = component.substr(0, component.find(u'.'));
    for (std::u16string_view device : kDevices) {
        if (EqualNoCase(stem, device))
            return true;
    }
    if (stem.size() != 4 || stem[3] < u'1' || stem[3] > u'9')
        return false;
    for (std::u16string_view device : kNumberedDevices) {
        if (EqualNoCase(stem.substr(0, 3), device))
            return true;
    }
    return false;
}

bool IsValidName(const FullName& full)
{
    const std::u16string_view name(full.text + kDriveSize, full.size - kDriveSize);
    for (char16_t unit : name) {
        if (unit < 0x20 || (unit < 0x80 && kReservedUnits.find(unit) != std::u16string_view::npos))
            return false;
    }
    return !IsDeviceName(name.substr(name.rfind(u'\\') + 1));
}

bool AppendNative(NativeName& native, std::string_view text)
{
    if (text.size() >= sizeof native.text - native.size)
        return false;
    std::memcpy(native.text + native.size, text.data(), text.size());
    native.size += text.size();
    native.text[native.size] = 0;
    return true;
}

template <typename Text>
bool IsAscii(Text text)
{
    for (const auto unit : text) {
        if (static_cast<unsigned>(unit) >= 0x80)
            return false;
    }
    return true;
}

/// The path below the drive, with the machine's separators.
bool AppendBelowDrive(NativeName& native, std::u16string_view path)
{
    const size_t start = native.size;
    if (IsAscii(path)) {
        if (path.size() >= sizeof native.text - native.size)
            return false;
        for (char16_t unit : path)
            native.text[native.size++] = static_cast<char>(unit);
        native.text[native.size] = 0;
    } else if (!AppendNative(native, Utf8(path))) {
        return false;
    }
    for (size_t i = start; i < native.size; ++i) {
        if (native.text[i] == '\\')
            native.text[i] = '/';
    }
    return true;
}

bool IsAsciiLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool EqualEntries(std::string_view a, std::string_view b)
{
    constexpr auto kEqual = [](char x, char y) { return x == y || (IsAsciiLetter(x) && (x ^ y) == 0x20); };
    if (IsAscii(a) && IsAscii(b))
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), kEqual);
    return EqualNoCase(Utf16(a), Utf16(b));
}

int64_t Nanoseconds(const timespec& time)
{
    constexpr int64_t kNanosecondsPerSecond = 1000000000;
    return time.tv_sec * kNanosecondsPerSecond + time.tv_nsec;
}

/// A folder at one moment. Whatever changes its entries sets its change time to the clock's present tick.
struct FolderState
{
    dev_t device = 0;
    ino_t inode = 0;
    int64_t changed = 0; // ns

    bool operator==(const FolderState&) const = default;
};

FolderState StateOf(const struct stat& status)
{
    return {status.st_dev, status.st_ino, Nanoseconds(status.st_ctim)};
}

/// The last name that this thread searched for in vain. A file is often asked for, found missing and made: it
/// need not be searched for again while its folder is as it was.
struct Missing
{
    std::string path;
    FolderState folder;
};
thread_local Missing missing;

/// The state of a folder that is about to be searched; nothing when it changed in this very tick, because one
/// more change would not show then.
std::optional<FolderState> SettledState(int folder)
{
    timespec now;
    struct stat status;
    if (clock_gettime(CLOCK_REALTIME_COARSE, &now) != 0 || fstat(folder, &status) != 0)
        return {};
    const FolderState state = StateOf(status);
    return state.changed < Nanoseconds(now) ? std::optional(state) : std::nullopt;
}

/// Looks for the entry of `folder` that is called `name`, else for one that differs in case alone: with
/// several, the first in the order of bytes, so that the answer does not depend on the file system. `found`
/// is empty when there is none. Returns false when the folder cannot be listed.
///
/// Every file that is made is searched for like this, so the entries are read without the C library's
/// streams, which would double the number of calls.
bool FindEntry(const std::string& folder, std::string_view name, std::string& found)
{
    found.clear();
    const int fd = open(folder.empty() ? "/" : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const std::optional<FolderState> state = SettledState(fd);
    alignas(dirent64) char entries[kListingSize];
    ssize_t size = 0;
    while (found != name && (size = getdents64(fd, entries, sizeof entries)) > 0) {
        for (ssize_t at = 0; at < size && found != name;) {
            const auto* entry = reinterpret_cast<const dirent64*>(entries + at);
            at += entry->d_reclen;
            if (EqualEntries(entry->d_name, name) &&
                (found.empty() || entry->d_name == name || entry->d_name < found))
                found = entry->d_name;
        }
    }
    close(fd);
    if (size == 0 && found.empty() && state) {
        missing.path.assign(folder).append(1, '/').append(name);
        missing.folder = *state;
    }
    return size >= 0;
}

bool Exists(const std::string& path)
{
    return access(path.c_str(), F_OK) == 0;
}

/// Appends to the folder `path` the entry that answers to `name`, or the name itself when there is none.
/// Returns what MatchCase returns for a last component.
DWORD MatchEntry(std::string& path, std::string_view name)
{
    std::string found;
    const bool listed = FindEntry(path, name, found);
    const bool isFolder = listed || Exists(path + "/.");
    path += '/';
    path += found.empty() ? name : found;
    if (!found.empty() || (!listed && Exists(path)))
        return ERROR_SUCCESS;
    return isFolder ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

/// Appends `folders`, each of which a separator precedes, to the folder `path`. False when one is missing.
bool MatchFolders(std::string& path, std::string_view folders)
{
    while (!folders.empty()) {
        const std::string_view next = folders.substr(0, folders.find('/', 1));
        folders.remove_prefix(next.size());
        if (Exists(path + std::string(next))) {
            path += next;
        } else if (MatchEntry(path, next.substr(1)) != ERROR_SUCCESS) {
            path += folders;
            return false;
        }
    }
    return true;
}

} // namespace

void OpenPaths(const std::string& root)
{
    driveC = root.empty() ? root : root + "/drive_c";
    char folder[PATH_MAX];
    const bool known = getcwd(folder, sizeof folder) != nullptr;
    std::u16string start = WindowsPath(known ? folder : "/");
    std::unique_lock lock(currentDirectoryLock);
    currentDirectory = std::move(start);
}

DWORD ExpandName(LPCWSTR name, FullName& full)
{
    if (name == nullptr || *name == 0)
        return ERROR_INVALID_NAME;
    std::u16string_view rest = name;
    full.size = 0;
    if (rest.starts_with(kVerbatimPrefix))
        rest.remove_prefix(kVerbatimPrefix.size());
    else if (rest.size() >= 2 && IsSeparator(rest[0]) && IsSeparator(rest[1]))
        return ERROR_PATH_NOT_FOUND; // there is no network here
    bool fits;
    if (HasDrive(rest) && rest.size() > kDriveSize && IsSeparator(rest[kDriveSize])) {
        const char16_t drive[] = {UpperCase(rest[0]), u':'};
        fits = Append(full, {drive, kDriveSize});
        rest.remove_prefix(kDriveSize);
    } else {
        std::shared_lock lock(currentDirectoryLock);
        char16_t drive[kDriveSize];
        fits = Append(full, BaseOf(rest, currentDirectory, drive));
    }
    return fits && AppendComponents(full, rest) ? ERROR_SUCCESS : ERROR_FILENAME_EXCED_RANGE;
}

DWORD TranslateName(const FullName& full, NativeName& native)
{
    if (!IsValidName(full))
        return ERROR_INVALID_NAME;
    const bool onC = full.text[0] == u'C' && !driveC.empty();
    if (!onC && full.text[0] != u'Z')
        return ERROR_PATH_NOT_FOUND;
    std::u16string_view below(full.text + kDriveSize, full.size - kDriveSize);
    native.asFolder = below.back() == u'\\';
    if (native.asFolder && (onC || below.size() > 1))
        below.remove_suffix(1);
    native.size = 0;
    bool fits = !onC || AppendNative(native, driveC);
    native.fixedSize = native.size;
    fits = fits && AppendBelowDrive(native, below);
    return fits ? ERROR_SUCCESS : ERROR_FILENAME_EXCED_RANGE;
}

DWORD TranslateName(LPCWSTR name, NativeName& native)
{
    FullName full;
    if (name == nullptr || *name == 0)
        return ERROR_PATH_NOT_FOUND;
    const DWORD error = ExpandName(name, full);
    return error != ERROR_SUCCESS ? error : TranslateName(full, native);
}

bool IsKnownMissing(const NativeName& native)
{
    const std::string_view path(native.text, native.size);
    if (path != missing.path)
        return false;
    const std::string folder(path.substr(0, path.rfind('/')));
    struct stat status;
    return stat(folder.empty() ? "/" : folder.c_str(), &status) == 0 && StateOf(status) == missing.folder;
}

DWORD MatchCase(NativeName& native)
{
    if (IsKnownMissing(native))
        return ERROR_FILE_NOT_FOUND;
    const std::string drive(native.text, native.fixedSize);
    const std::string_view below(native.text + native.fixedSize, native.size - native.fixedSize);
    if (below.empty() || below == "/") // the drive itself
        return ERROR_SUCCESS;
    const std::string folders(below.substr(0, below.rfind('/')));
    const std::string name(below.substr(folders.size() + 1));
    // Most names that are missing, or spelled otherwise, are so in their last component only.
    std::string path = drive + folders;
    DWORD result = MatchEntry(path, name);
    if (result == ERROR_PATH_NOT_FOUND) {
        path = drive;
        if (MatchFolders(path, folders))
            result = MatchEntry(path, name);
        else
            path += '/' + name;
    }
    native.size = 0;
    return AppendNative(native, path) ? result : ERROR_FILENAME_EXCED_RANGE;
}

DWORD FindExisting(LPCWSTR name, NativeName& native, struct stat& status)
{
    DWORD error = TranslateName(name, native);
    if (error != ERROR_SUCCESS || stat(native.text, &status) == 0)
        return error;
    if (errno != ENOENT && errno != ENOTDIR)
        return ErrorFromErrno(errno);
    error = MatchCase(native);
    if (error == ERROR_SUCCESS && stat(native.text, &status) != 0)
        error = ErrorFromErrno(errno);
    return error;
}

DWORD CopyPath(std::u16string_view path, LPWSTR buffer, DWORD size)
{
    if (buffer == nullptr || size <= path.size())
        return static_cast<DWORD>(path.size()) + 1;
    std::memcpy(buffer, path.data(), path.size() * sizeof(char16_t));
    buffer[path.size()] = 0;
    return static_cast<DWORD>(path.size());
}

std::string NativePath(std::u16string_view windowsPath)
{
    NativeName native;
    if (TranslateName(std::u16string(windowsPath).c_str(), native) != ERROR_SUCCESS)
        return {};
    MatchCase(native);
    return native.text;
}

std::u16string WindowsPath(const std::string& nativePath)
{
    std::string_view below = nativePath;
    std::u16string path = u"Z:";
    if (!driveC.empty() && below.starts_with(driveC) &&
        (below.size() == driveC.size() || below[driveC.size()] == '/')) {
        path = u"C:";
        below.remove_prefix(driveC.size());
    }
    path += Utf16(below);
    for (char16_t& unit : path) {
        if (unit == u'/')
            unit = u'\\';
    }
    return path.size() > kDriveSize ? path : path + u"\\";
}

} // namespace host

using namespace host;

DWORD WINAPI GetFullPathNameW(LPCWSTR fileName, DWORD size, LPWSTR buffer, LPWSTR* filePart)
{
    HOST_CALL(GetFullPathNameW, 0, ERROR_NOT_ENOUGH_MEMORY);
    FullName full;
    if (const DWORD error = ExpandName(fileName, full)) {
        SetLastError(error);
        return 0;
    }
    const std::u16string_view path(full.text, full.size);
    const DWORD result = CopyPath(path, buffer, size);
    if (filePart != nullptr && result == path.size()) {
        const size_t name = path.rfind(u'\\') + 1;
        *filePart = name < path.size() ? buffer + name : nullptr;
    }
    return result;
}

DWORD WINAPI GetCurrentDirectoryW(DWORD size, LPWSTR buffer)
{
    HOST_CALL(GetCurrentDirectoryW, 0, ERROR_NOT_ENOUGH_MEMORY);
    std::shared_lock lock(currentDirectoryLock);
    return CopyPath(currentDirectory, buffer, size);
}

BOOL WINAPI SetCurrentDirectoryW(LPCWSTR path)
{
    HOST_CALL(SetCurrentDirectoryW, FALSE, ERROR_ACCESS_DENIED);
    NativeName native;
    struct stat status;
    FullName full;
    if (const DWORD error = FindExisting(path, native, status))
        return FailWith(error);
    if (!S_ISDIR(status.st_mode))
        return FailWith(ERROR_DIRECTORY);
    ExpandName(path, full);
    if (full.size > kDriveSize + 1 && full.text[full.size - 1] == u'\\')
        --full.size;
    std::unique_lock lock(currentDirectoryLock);
    currentDirectory.assign(full.text, full.size);
    return TRUE;
}

DWORD WINAPI GetTempPathW(DWORD size, LPWSTR buffer)
{
    HOST_CALL(GetTempPathW, 0, ERROR_NOT_ENOUGH_MEMORY);
    return CopyPath(kTempDirectory, buffer, size);
}

UINT WINAPI GetSystemDirectoryW(LPWSTR buffer, UINT size)
{
    HOST_CALL(GetSystemDirectoryW, 0, ERROR_NOT_ENOUGH_MEMORY);
    return CopyPath(kSystemDirectory, buffer, size);
}

UINT WINAPI GetWindowsDirectoryW(LPWSTR buffer, UINT size)
{
    HOST_CALL(GetWindowsDirectoryW, 0, ERROR_NOT_ENOUGH_MEMORY);
    return CopyPath(kWindowsDirectory, buffer, size);
}
