#pragma once
// Record of the printer-interface contract for job queries, by its published layout and field names.
#include <cstddef>

#include <windows.h>

namespace psui {

/// What DevQueryPrintEx is asked.
struct DevQueryPrintInfo
{
    WORD cbSize;
    WORD Level;
    HANDLE hPrinter;
    DEVMODEW* pDevMode; ///< the job's settings, or null
    LPWSTR pszErrorStr; ///< receives the reason for a refusal; may be null
    DWORD cchErrorStr;  ///< units that pszErrorStr has room for
    DWORD cchNeeded;    ///< receives the units of the whole reason, with its terminator
};
static_assert(sizeof(DevQueryPrintInfo) == 40 && offsetof(DevQueryPrintInfo, cchErrorStr) == 32);

} // namespace psui
