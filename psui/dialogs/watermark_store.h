#pragma once
// The file of watermarks that everybody on the machine edits, in the Windows directory. It lists the names of
// watermarks by number, and keeps in a section of each printer the number of its current one.
#include <windows.h>

#include "psui/base/paths.h"

namespace psui {

/// The working file's path.
bool WatermarkWorkingFilePath(PathText& path);

} // namespace psui
