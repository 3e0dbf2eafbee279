#pragma once
#include <sys/stat.h>

#include <windows.h>

namespace host {

/// The platform's attributes of a file or folder.
DWORD AttributesOf(const struct stat& status);

} // namespace host
