#pragma once
// The status monitor is a program of its own, installed beside the driver. Driver and monitor meet in the
// user's registry and in a settings file with one section a printer; the driver also starts the monitor.
//
// Every function is best effort: a missing folder, key, value or file leaves its step out, and nobody is
// told. Other processes read and write the settings file at the same time, key by key.
#include <cstdint>

#include <windows.h>
#include <winspool.h>

#include "psui/base/paths.h"
#include "psui/settings/devmode.h"

namespace psui {

/// Registry value with the monitor's product version, and the version that keeps its settings file in the
/// user's application data and takes the file's path as an argument.
constexpr WCHAR kMonitorVersionValue[] = TEXT("Lodestat");
constexpr WCHAR kNewLayoutVersion[] = TEXT("3.1");

/// Tells the monitor, in the user's registry, where its data lies and which version of it is installed.
void RegisterStatusMonitorPath();

/// The settings file in the user's application data, in double quotes when `quoted`. False, with an empty
/// path, when the folder is not known or the path too long.
bool StatusMonitorIniPath(PathText& path, bool quoted);

/// Whether the version in the registry value, or without the registry key that of the monitor's program
/// beside the library, is at least `required`.
bool StatusMonitorIsNew(const WCHAR* valueName, const WCHAR* required);

/// Compares two versions "major.minor...", at most 15 characters of each. Without a dot the minor number
/// is 0.
bool VersionAtLeast(const WCHAR* required, const WCHAR* actual);

/// Takes the choices made in the monitor over into `record`, and tells the monitor about the printer.
/// `info` is the printer's level-2 information.
void SyncStatusMonitorIni(HANDLE printer, DriverDevMode* record, const PRINTER_INFO_2W* info);

/// Tells the monitor the record's choices, and starts it where the record asks for it.
void UpdateStatusMonitorIni(HANDLE printer, const DriverDevMode* record);

/// Which of the exchanged items (items.h) the monitor offers for the printer; all of them when nothing says.
uint32_t ReadStatusMonitorItems(HANDLE printer, const DriverDevMode* record);

/// Stores the items of `mask` as those that the monitor offers for the printer.
void WriteStatusMonitorItems(HANDLE printer, const DriverDevMode* record, uint32_t mask);

/// Starts the monitor, or passes the settings on to a running one. Returns what the start returned (above 31
/// for success); 0 when nothing was started: neither is a monitor running nor does the record ask for one,
/// the command is too long, or the spooler runs as the system itself.
UINT LaunchStatusMonitor(const PrivateDevMode* settings);

} // namespace psui
