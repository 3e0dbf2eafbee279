#pragma once
// Paths, and the folders that the library's files lie in. A path that is longer than its buffer counts as not
// known.
#include <windows.h>

namespace psui {

using PathText = WCHAR[MAX_PATH];

/// The part of `path` after its last backslash; the whole path without one.
constexpr const WCHAR* FileNamePart(const WCHAR* path)
{
    const WCHAR* name = path;
    for (; *path; ++path)
        if (*path == '\\')
            name = path + 1;
    return name;
}

/// The local machine's folder of printer drivers for the current environment, without a final backslash.
bool PrinterDriverDirectory(PathText& path);

/// The path of file `name` in the folder that the library was loaded from; the bare name when the library's
/// own path has no folder.
bool PathBesideLibrary(const WCHAR* name, PathText& path);

} // namespace psui
