#pragma once
// Everything the library exports (exports.def lists the names), with a function type for callers that look
// the entry points up by name. Entry points may be called on any thread and leave nothing of the caller's
// process changed but the thread's last-error code. The exported procedures of controls are declared in
// psui/controls/classes.h.
#include <windows.h>

#include "psui/entry/ddi.h"
#include "psui/queries/ddi.h"

namespace psui {

/// What DrvDocumentEvent always returns.
constexpr int kDocumentEventSuccess = 1;

/// Modes of DrvConvertDevMode.
enum ConvertMode : DWORD
{
    kConvertRecord = 1,
    kConvertToOldFormat = 2,
    kDriverDefault = 4,
};

} // namespace psui

extern "C" {

/// Converts a settings record.
///
/// `mode` kConvertRecord: copies `input` into `output`, whose dmSize and dmDriverExtra give the shape.
/// kConvertToOldFormat: writes the 300-byte record of the old driver from `input`. kDriverDefault:
/// writes the 1852-byte default record of the printer `printerName`; `input` is not used.
///
/// `size` holds the bytes at `output` and receives the bytes written or needed. Both records are readable
/// for the dmSize + dmDriverExtra bytes that they state, and at least up to dmDriverExtra itself.
/// Returns TRUE, or FALSE with the last error 122 when `output` is null or too small, 87 for another bad
/// argument, and unchanged for an unknown mode or a printer that cannot be opened or has no model.
BOOL WINAPI DrvConvertDevMode(LPWSTR printerName, PDEVMODEW input, PDEVMODEW output, PLONG size, DWORD mode);

/// Answers what the printer can do, for one of the platform's DC_ indices.
///
/// `output` may be null; else it has room for the whole answer: 2 bytes a paper or bin id, 8 a paper size,
/// 128 a paper or media name, 48 a bin name, 4 a media id. Names are zero-padded and always terminated.
/// `record` may be null, and is then the printer's stored default.
/// Returns a count or a value, or (DWORD)-1 for failure and for an index that is not supported.
DWORD WINAPI DrvDeviceCapabilities(HANDLE printer, LPWSTR deviceName, WORD capability, PVOID output,
                                   PDEVMODEW record);

/// Whether the job of `query` can be printed as the printer is set up now. `query` is whole, whatever its
/// cbSize and Level; its record as above. The form name of a job whose paper is known is settled in its
/// record. Returns TRUE, also without a job; or FALSE, with the reason in pszErrorStr, cut to cchErrorStr
/// units with the terminator, and its whole size in cchNeeded. The last error has no meaning.
BOOL WINAPI DevQueryPrintEx(psui::DevQueryPrintInfo* query);

/// The sheet function that shows and changes a document's settings.
///
/// Without `info`, `param` is a DocumentPropertyHeader (ddi.h), of which cbSize bytes are used, and nothing
/// is shown: cbOut receives the size of a settings record, and when fMode has DM_UPDATE or DM_COPY, pdmOut
/// receives the printer's defaults merged with pdmIn, whole without pdmIn, else no larger than pdmIn states.
/// Returns 1; 1852 when the mode is 0 or there is no pdmOut; -1 for a missing header and a printer that
/// cannot be used.
///
/// With `info`, the common property-sheet UI calls it for each reason of a sheet, on the sheet's thread.
/// lParamInit is the header as above and stays readable until the sheet is destroyed; `param` is the reason's
/// own record (ddi.h). Initialise inserts one page and keeps the context in UserData. A confirmed result
/// hands the record out as above when fMode has DM_UPDATE or DM_COPY.
/// Returns 1; 1852, with cbOut set and nothing handed out, for any other result; -1 for a missing header,
/// printer, page or context, and for a reason it does not know.
LONG WINAPI DrvDocumentPropertySheets(psui::PropSheetUiInfo* info, LPARAM param);

/// Shows (DM_PROMPT) or merges a document's settings. `output` and `input` as pdmOut and pdmIn above; the
/// input may be null.
/// Returns 1, 2 when the user cancelled, 1852 when `mode` is 0 or `output` null, or a negative number.
LONG WINAPI DrvDocumentProperties(HWND window, HANDLE printer, LPWSTR deviceName, PDEVMODEW output,
                                  PDEVMODEW input, DWORD mode);

/// Shows a document's settings and copies them to `output`.
/// Returns 1, 0 when the user cancelled or nothing could be shown, 1852 when `output` is null.
LONG WINAPI DrvAdvancedDocumentProperties(HWND window, HANDLE printer, LPWSTR deviceName, PDEVMODEW output,
                                          PDEVMODEW input);

/// Takes notice of what happens to a printing device context. Input and output are not used.
int WINAPI DrvDocumentEvent(HANDLE printer, HDC dc, int event, ULONG inputSize, PVOID input, ULONG outputSize,
                            PVOID output);
}

namespace psui {

using DrvConvertDevModeFn = decltype(&DrvConvertDevMode);
using DrvDeviceCapabilitiesFn = decltype(&DrvDeviceCapabilities);
using DevQueryPrintExFn = decltype(&DevQueryPrintEx);
using DrvDocumentPropertySheetsFn = decltype(&DrvDocumentPropertySheets);
using DrvDocumentPropertiesFn = decltype(&DrvDocumentProperties);
using DrvAdvancedDocumentPropertiesFn = decltype(&DrvAdvancedDocumentProperties);
using DrvDocumentEventFn = decltype(&DrvDocumentEvent);

} // namespace psui
