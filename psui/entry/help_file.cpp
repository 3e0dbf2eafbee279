#include "psui/entry/help_file.h"

#include "psui/base/format.h"
#include "psui/base/heap.h"
#include "psui/base/paths.h"
#include "psui/settings/spooler.h"

namespace psui {

WCHAR* GetHelpFilePath(HANDLE printer, HANDLE heap)
{
    const SpoolerBlock<DRIVER_INFO_3W> driver = GetDriverInfo<DRIVER_INFO_3W>(printer, 3);
    if (driver && driver->pHelpFile && driver->pHelpFile[0])
        return CopyToHeap(heap, driver->pHelpFile);
    PathText path;
    if (!PrinterDriverDirectory(path) || !AppendText(path, {TEXT("\\pscript.hlp")}))
        return nullptr;
    return CopyToHeap(heap, path);
}

} // namespace psui
