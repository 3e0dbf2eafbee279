#pragma once
// What is installed of the status monitor, and where its data lies.
#include <windows.h>

#include "psui/base/paths.h"

namespace psui {

constexpr WCHAR kMonitorProgram[] = TEXT("LODESTAT.EXE");
constexpr WCHAR kMonitorKey[] = TEXT("Software\\Velmora\\PrtDrv");
constexpr WCHAR kSettingsFileName[] = TEXT("lodestat.ini");

using VersionText = WCHAR[64];

/// The product version of the monitor's program beside the library. False when there is no such program or
/// it has no version of that length.
bool InstalledMonitorVersion(VersionText& version);

/// A folder of the user or the machine (CSIDL_ number). False, with an empty path, when it is not known.
bool KnownFolder(int folder, PathText& path);

} // namespace psui
