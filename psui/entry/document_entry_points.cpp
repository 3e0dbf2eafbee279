#include "psui/entry/document_properties.h"
#include "psui/entry/document_sheet.h"
#include "psui/entry/exports.h"
#include "psui/entry/float_environment.h"
#include "psui/events/document_event.h"

LONG WINAPI DrvDocumentPropertySheets(psui::PropSheetUiInfo* info, LPARAM param)
{
    const psui::FloatEnvironment floats;
    return psui::RunDocumentPropertySheets(info, param);
}

LONG WINAPI DrvDocumentProperties(HWND window, HANDLE printer, LPWSTR deviceName, PDEVMODEW output,
                                  PDEVMODEW input, DWORD mode)
{
    const psui::FloatEnvironment floats;
    return psui::DocumentProperties(window, printer, deviceName, output, input, mode);
}

LONG WINAPI DrvAdvancedDocumentProperties(HWND window, HANDLE printer, LPWSTR deviceName, PDEVMODEW output,
                                          PDEVMODEW input)
{
    const psui::FloatEnvironment floats;
    return psui::AdvancedDocumentProperties(window, printer, deviceName, output, input);
}

int WINAPI DrvDocumentEvent(HANDLE printer, HDC dc, int event, ULONG, PVOID, ULONG, PVOID)
{
    psui::HandleDocumentEvent(printer, dc, event);
    return psui::kDocumentEventSuccess;
}
