#pragma once
// Private-profile files on disk. A reader sees the file before or after a change, never between. A writer
// holds a lock on the file's folder while it reads, changes and replaces the file, so that writers of any
// thread and process lose nothing of each other; a writer that is killed leaves the old file.
#include <functional>
#include <string>

#include <windows.h>

#include "host/profile/profile_text.h"

namespace host::profile {

/// The file that a program means: a name without a folder lies in the Windows folder; null is the system's
/// own.
std::u16string FullFileName(LPCWSTR fileName);

/// Reads a whole file. Returns 0 or the error code.
DWORD ReadBytes(const std::u16string& fileName, std::string& bytes);

/// Reads a file (a missing one as empty), lets `change` work on it and stores it when that made a difference;
/// a missing file is made then. Returns 0 or the error code; after an error the file is as it was.
DWORD Edit(const std::u16string& fileName, const std::function<void(ProfileText&)>& change);

} // namespace host::profile
