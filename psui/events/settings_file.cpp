#include "psui/events/settings_file.h"

#include <string_view>

#include "psui/base/format.h"
#include "psui/base/paths.h"
#include "psui/events/installed.h"
#include "psui/events/status_monitor.h"
#include "psui/settings/spooler.h"
#include "psui/settings/text.h"

namespace psui {

bool ChooseSettingsFile(PathText& file)
{
    const bool inUserData = StatusMonitorIsNew(kMonitorVersionValue, kNewLayoutVersion);
    if (inUserData && StatusMonitorIniPath(file, false))
        return true;
    JoinText(file, {kSettingsFileName});
    return !inUserData;
}

bool LocatePrinter(const PRINTER_INFO_2W* info, MonitorPlace& place)
{
    if (!info || !info->pPrinterName || !IsSectionName(info->pPrinterName) ||
        !FileHoldsName(place.file, info->pPrinterName))
        return false;
    place.hubProcessor = UsesHubProcessor(info);
    return JoinText(place.printer, {info->pPrinterName});
}

bool UsesHubProcessor(const PRINTER_INFO_2W* info)
{
    return info->pPrintProcessor && EqualNoCase(info->pPrintProcessor, TEXT("VMHUB PRINT"));
}

bool SettingsFileOf(const WCHAR* dataFile, PathText& path)
{
    const std::basic_string_view<WCHAR> whole(dataFile);
    const size_t dot = whole.find('.', static_cast<size_t>(FileNamePart(dataFile) - dataFile));
    path[0] = 0;
    return dot != whole.npos && JoinText(path, {whole.substr(0, dot), TEXT(".INI")});
}

bool ModelSettingsFile(HANDLE printer, PathText& path)
{
    const SpoolerBlock<DRIVER_INFO_2W> driver = GetDriverInfo(printer);
    return driver && driver->pDataFile && SettingsFileOf(driver->pDataFile, path);
}

} // namespace psui
