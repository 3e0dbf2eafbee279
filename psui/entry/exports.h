#pragma once
// Everything the library exports (exports.def lists the names), with a function type for callers that look
// the entry points up by name. Entry points may be called on any thread and leave nothing of the caller's
// process changed but the thread's last-error code.
#include <windows.h>

namespace psui {

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
}

namespace psui {

using DrvConvertDevModeFn = decltype(&DrvConvertDevMode);
using DrvDeviceCapabilitiesFn = decltype(&DrvDeviceCapabilities);

} // namespace psui
