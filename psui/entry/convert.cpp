#include "psui/entry/convert.h"

#include <cstring>

#include "psui/base/module.h"
#include "psui/entry/exports.h"
#include "psui/model/image.h"
#include "psui/settings/copy.h"
#include "psui/settings/environment.h"
#include "psui/settings/record.h"
#include "psui/settings/spooler.h"

namespace psui {

namespace {

/// The record of the driver before this one.
constexpr RecordShape kOldShape = {0x0320, 848, 188, 112};
constexpr LONG kOldRecordSize = 188 + 112;

BOOL Fail(DWORD error)
{
    SetLastError(error);
    return FALSE;
}

BOOL ConvertRecord(const DEVMODEW* input, DEVMODEW* output, LONG* size)
{
    const LONG room = *size;
    if (!output || room < static_cast<LONG>(kHeaderSize))
        return Fail(ERROR_INVALID_PARAMETER);
    const LONG total = static_cast<LONG>(ShapeOf(output).TotalSize());
    if (total > room || CopyDevMode(input, output) < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    *size = total;
    return TRUE;
}

BOOL ConvertToOldFormat(const DEVMODEW* input, DEVMODEW* output, LONG* size)
{
    const bool fits = output && *size >= kOldRecordSize;
    if (!fits) {
        *size = kOldRecordSize;
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    }
    BYTE converted[kOldRecordSize] = {};
    if (CopyDevModeAs(input, kOldShape, converted) < 0)
        return Fail(ERROR_INVALID_PARAMETER);
    std::memcpy(static_cast<void*>(output), converted, sizeof(converted));
    *size = kOldRecordSize;
    return TRUE;
}

/// Loads past the cache: the caller wants the default of the description as it is now.
bool BuildDriverDefault(HANDLE printer, DriverDevMode* record)
{
    const SpoolerBlock<DRIVER_INFO_2W> driver = GetDriverInfo(printer);
    if (!driver || !driver->pDataFile)
        return false;
    const ModelDescription* model = nullptr;
    {
        const DriverLock lock;
        model = LoadModelDescription(driver->pDataFile);
    }
    if (!model)
        return false;
    BuildDefaultDevMode(record, driver->pName, model, IsMetricCountry());
    FreeModelDescription(model);
    return true;
}

BOOL WriteDriverDefault(WCHAR* printerName, DEVMODEW* output, LONG* size)
{
    const bool fits = output && *size >= kRecordSize;
    *size = kRecordSize;
    if (!fits)
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    const PrinterHandle printer(printerName);
    alignas(DEVMODEW) DriverDevMode built;
    if (!printer || !BuildDriverDefault(printer.get(), &built))
        return FALSE;
    std::memcpy(static_cast<void*>(output), &built, sizeof(built));
    return TRUE;
}

} // namespace

BOOL ConvertDevMode(WCHAR* printerName, const DEVMODEW* input, DEVMODEW* output, LONG* size, DWORD mode)
{
    if (!size)
        return Fail(ERROR_INVALID_PARAMETER);
    switch (mode) {
    case kConvertRecord:
        return ConvertRecord(input, output, size);
    case kConvertToOldFormat:
        return ConvertToOldFormat(input, output, size);
    case kDriverDefault:
        return WriteDriverDefault(printerName, output, size);
    default:
        return FALSE;
    }
}

} // namespace psui
