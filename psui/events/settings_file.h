#pragma once
// Where the settings that driver and monitor share are kept.
#include <windows.h>
#include <winspool.h>

#include "psui/base/paths.h"
#include "psui/events/printer_name.h"
#include "psui/events/profile.h"

namespace psui {

/// A printer's place in the shared settings file.
struct MonitorPlace
{
    PathText file;
    WCHAR printer[kLongestSectionName + 1]; ///< its name, which is the section's
    bool hubProcessor;

    ProfileSection PrinterSection() const { return {file, printer}; }
    ProfileSection MonitorSection() const { return {file, TEXT("LODESTAT")}; }
};

/// Chooses between the file in the user's application data and the bare name, which means the Windows
/// directory. Returns false when the installed monitor uses the first and its path is not known; `file` is
/// then the bare name.
bool ChooseSettingsFile(PathText& file);

/// Completes a place whose file is chosen. False for a printer without a name, and for one whose name the
/// file cannot hold.
bool LocatePrinter(const PRINTER_INFO_2W* info, MonitorPlace& place);

/// Whether the printer's jobs go through the maker's own print processor.
bool UsesHubProcessor(const PRINTER_INFO_2W* info);

/// Replaces what follows the first dot of the file name by "INI". False for a file name without a dot.
bool SettingsFileOf(const WCHAR* dataFile, PathText& path);

/// The settings file of the printer's model, beside the driver's data file.
bool ModelSettingsFile(HANDLE printer, PathText& path);

} // namespace psui
