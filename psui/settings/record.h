#pragma once
// Building a settings record and keeping its parts in step.
#include <cstdint>

#include <windows.h>

#include "psui/model/model.h"
#include "psui/settings/devmode.h"

namespace psui {

/// Fills all of `record` with the defaults for a printer of that model. `driverName` (may be null) becomes
/// the device name, at most 31 units of it. `metric` chooses A4 and millimetres, else Letter and inches.
/// Returns 1: a missing feature or string takes its fallback.
int BuildDefaultDevMode(DriverDevMode* record, const WCHAR* driverName, const ModelDescription* model,
                        bool metric);

/// Recomputes the tail block from the rest of the record. The client process text follows the tail's copy of
/// dwDatePrint as it stood before.
void RefreshTail(DriverDevMode* record);

/// Stores in abFeatureSel the options that the public fields named by `fieldMask` (DM_ bits) ask for; 255
/// where the model has no such option. Features that the model lacks are skipped.
void SyncSelectionsFromPublic(DriverDevMode* record, DWORD fieldMask, const ModelDescription* model);

/// A paper as a printer form.
struct PaperForm
{
    WCHAR name[CCHFORMNAME]; ///< keyword of the Paper option; empty when there is none
    uint32_t width;          ///< 24.8 points
    uint32_t height;         ///< 24.8 points
};

enum class ResolvedPaper : int
{
    Listed = 0,  ///< one of the Paper options
    User = 1,    ///< the user-defined size
    Unknown = 2, ///< no DM_PAPERSIZE, or no such Paper option
};

/// Settles the form name, and in this driver's own records bBorderless, from dmPaperSize; without
/// DM_PAPERSIZE nothing changes. `record` may be any caller's record: nothing past the bytes it states is
/// read or written, and a public part too short for a form name keeps none. `form` receives the paper (empty
/// for Unknown). The printer is not asked.
ResolvedPaper ResolvePaper(HANDLE printer, DEVMODEW* record, PaperForm* form, const ModelDescription* model);

} // namespace psui
