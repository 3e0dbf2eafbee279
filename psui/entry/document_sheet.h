#pragma once
// The document property sheet, and the same work without a sheet.
#include <windows.h>

#include "psui/entry/ddi.h"

namespace psui {

/// A sheet function's refusal, and the failure of a settings call.
constexpr LONG kSheetFailure = -1;

/// The work of DrvDocumentPropertySheets (exports.h); arguments and result are the same.
LONG RunDocumentPropertySheets(PropSheetUiInfo* info, LPARAM param);

/// Merges the printer's defaults and `input` (may be null) into a record and, when `mode` has DM_UPDATE or
/// DM_COPY, hands it out in the shape of CopyDevModeOut. Returns 1; the size of a settings record, with
/// nothing done, when the mode is 0 or there is no output; or kSheetFailure, with the output unchanged.
LONG MergeWithoutSheet(HANDLE printer, const DEVMODEW* input, DEVMODEW* output, DWORD mode);

} // namespace psui
