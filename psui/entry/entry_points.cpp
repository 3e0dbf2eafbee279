#include "psui/entry/convert.h"
#include "psui/entry/exports.h"
#include "psui/entry/float_environment.h"
#include "psui/queries/capabilities.h"
#include "psui/queries/job_check.h"

BOOL WINAPI DrvConvertDevMode(LPWSTR printerName, PDEVMODEW input, PDEVMODEW output, PLONG size, DWORD mode)
{
    const psui::FloatEnvironment floats;
    return psui::ConvertDevMode(printerName, input, output, size, mode);
}

DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, LPWSTR deviceName, WORD capability, PVOID output,
                                   PDEVMODEW record)
{
    const psui::FloatEnvironment floats;
    return psui::AnswerCapability(printer, deviceName, capability, output, record);
}

BOOL WINAPI DevQueryPrintEx(psui::DevQueryPrintInfo* query)
{
    const psui::FloatEnvironment floats;
    return psui::CheckJob(query);
}
