#pragma once
// The files of installed drivers in the driver directory.
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

namespace host::spooler {

/// The part of a Windows path after its last slash or colon.
std::u16string FileNamePart(std::u16string_view path);

/// The full Windows path of an installed driver file.
std::u16string InstalledPath(std::u16string_view fileName);

/// Puts files into the driver directory, under their own names. A bare name means a file that lies there
/// already, or one folder above. A file of the same bytes is left alone, and others are replaced whole by
/// renaming, because a loaded module may be mapped from them; with `onlyNewer` a file that was written later
/// than its replacement stays. Returns ERROR_FILE_NOT_FOUND, before anything is copied, when one is missing.
DWORD InstallFiles(const std::vector<std::u16string>& paths, bool onlyNewer);

/// Removes one installed file; a missing one is no error.
DWORD RemoveInstalledFile(std::u16string_view fileName);

} // namespace host::spooler
