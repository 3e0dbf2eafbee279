#pragma once
// Windows paths and the machine's paths. Drive C: is the root's drive_c, drive Z: is the machine's "/".
#include <climits>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include <windows.h>

namespace host {

constexpr size_t kMaxPathUnits = 4096; // with the terminator; the machine takes no more either

/// An absolute Windows path: "X:\" and components without "." and "..", only backslashes. A separator at the
/// end of the source is kept.
struct FullName
{
    size_t size = 0; // units, without the terminator
    char16_t text[kMaxPathUnits];
};

/// A path of the machine. `fixedSize` bytes at its front are the drive's own folder and known to exist.
struct NativeName
{
    size_t fixedSize = 0;
    size_t size = 0;
    bool asFolder = false; // the source ended with a separator
    char text[PATH_MAX];
};

/// Where file names start. `root` is the world's folder; an empty one leaves no drive C:.
void OpenPaths(const std::string& root);

/// Makes a name absolute; nothing needs to exist. Returns 0 or the error code.
DWORD ExpandName(LPCWSTR name, FullName& full);

/// The machine's name for an absolute path, letter case unchanged. Returns 0 or the error code.
DWORD TranslateName(const FullName& full, NativeName& native);

/// Both steps.
DWORD TranslateName(LPCWSTR name, NativeName& native);

/// Whether a search of this thread found that neither this name nor one that differs in case alone exists,
/// and its folder has not changed since. False says nothing.
bool IsKnownMissing(const NativeName& native);

/// Replaces each component that is missing in this spelling by an existing one that differs in case alone.
/// Returns 0 when the whole path exists then, ERROR_FILE_NOT_FOUND when just its last component is missing,
/// else ERROR_PATH_NOT_FOUND.
DWORD MatchCase(NativeName& native);

/// Translates a name and finds what it names, in its spelling if that exists, else in another case.
DWORD FindExisting(LPCWSTR name, NativeName& native, struct stat& status);

/// Copies a text to a caller's buffer the way path queries do: the units without terminator when it fits,
/// else the size that is needed with the terminator.
DWORD CopyPath(std::u16string_view path, LPWSTR buffer, DWORD size);

/// Whether the file system forbids writing for everybody, which is how the read-only attribute is kept.
inline bool IsReadOnly(const struct stat& status)
{
    return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

} // namespace host
