#include "psui/entry/document_properties.h"

#include "psui/entry/document_sheet.h"
#include "psui/entry/exports.h"
#include "psui/entry/property_sheet.h"
#include "psui/settings/devmode.h"

namespace psui {

namespace {

/// What DrvDocumentProperties returns when the sheet was confirmed or cancelled.
constexpr LONG kConfirmed = 1;
constexpr LONG kCancelled = 2;

/// Runs the document sheet when the mode asks for it, else merges without one. Positive for success, 0 when
/// the user cancelled, negative for failure.
LONG DocumentPropertiesCore(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* output, DEVMODEW* input,
                            DWORD mode)
{
    if ((mode & DM_PROMPT) == 0)
        return MergeWithoutSheet(printer, input, output, mode);
    DocumentPropertyHeader header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = printer;
    header.pszPrinterName = deviceName;
    header.pdmIn = input;
    header.pdmOut = output;
    header.fMode = mode;
    DWORD result = 0;
    const LONG status = CallCommonPropertySheet(window, DrvDocumentPropertySheets,
                                                reinterpret_cast<LPARAM>(&header), &result);
    return status < 0 ? status : static_cast<LONG>(result);
}

} // namespace

LONG DocumentProperties(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* output, DEVMODEW* input,
                        DWORD mode)
{
    if (mode == 0 || !output)
        return kRecordSize;
    const LONG result = DocumentPropertiesCore(window, printer, deviceName, output, input, mode);
    if (result < 0)
        return result;
    return result == 0 ? kCancelled : kConfirmed;
}

LONG AdvancedDocumentProperties(HWND window, HANDLE printer, WCHAR* deviceName, DEVMODEW* output,
                                DEVMODEW* input)
{
    if (!output)
        return kRecordSize;
    const DWORD mode = DM_PROMPT | DM_COPY | kModeAdvanced;
    return DocumentPropertiesCore(window, printer, deviceName, output, input, mode) > 0 ? kConfirmed : 0;
}

} // namespace psui
