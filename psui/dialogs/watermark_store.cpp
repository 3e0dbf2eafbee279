#include "psui/dialogs/watermark_store.h"

#include <iterator>

#include "psui/base/format.h"
#include "psui/events/printer_name.h"
#include "psui/events/profile.h"
#include "psui/maindlg/stores.h"
#include "psui/settings/spooler.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr WCHAR kWorkingFile[] = TEXT("VMMARK.INI");
constexpr WCHAR kListSection[] = TEXT(":vmwatermark:");
constexpr WCHAR kCurrentKey[] = TEXT("Current");

/// The name of a printer's section: the printer's, or the record's device name when the spooler does not
/// tell. A name that no section can bear is empty.
class WatermarkSectionName
{
public:
    explicit WatermarkSectionName(const PrinterUiContext* context) : info_(GetPrinterInfo(context->hPrinter))
    {
        CopyWide(device_, context->dmWork.dmPublic.dmDeviceName, std::size(device_));
    }

    const WCHAR* get() const
    {
        const WCHAR* name = info_ && info_->pPrinterName ? info_->pPrinterName : device_;
        return IsSectionName(name) ? name : TEXT("");
    }

private:
    SpoolerBlock<PRINTER_INFO_2W> info_;
    WCHAR device_[CCHDEVICENAME + 1];
};

void MakeFirstCurrent(PrinterUiContext* context, const WCHAR* file)
{
    context->wCurrentWatermark = 0;
    const WatermarkSectionName section(context);
    if (*section.get())
        ProfileSection(file, section.get()).Write(kCurrentKey, TEXT("0"));
}

} // namespace

bool WatermarkWorkingFilePath(PathText& path)
{
    PathText directory;
    const UINT length = GetWindowsDirectoryW(directory, std::size(directory));
    path[0] = 0;
    return length > 0 && length < std::size(directory) &&
           JoinText(path, {directory, TEXT("\\"), kWorkingFile});
}

void CurrentWatermarkName(PrinterUiContext* context, WCHAR (&name)[kWatermarkNameUnits])
{
    name[0] = 0;
    PathText file;
    if (!WatermarkWorkingFilePath(file))
        return;
    const ProfileSection list(file, kListSection);
    list.Read(DecimalText(context->wCurrentWatermark).text, name);
    if (name[0])
        return;
    MakeFirstCurrent(context, file);
    list.Read(TEXT("0"), name);
}

} // namespace psui
