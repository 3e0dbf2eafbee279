#pragma once
// Runs a sheet function of the library in the common property-sheet UI, as the spooler's own windows do.
#include <cstddef>

#include "psui/entry/ddi.h"
#include "tools/psuictl/text.h"

namespace psuictl {

/// How a sheet went.
struct SheetRun
{
    LONG answer;      ///< of the common UI, negative for a failure
    DWORD result;     ///< what the sheet ended with: 0 cancelled, 1 confirmed
    bool initialised; ///< the library's sheet function accepted the sheet
};

class CommonSheet
{
public:
    /// `header` is the sheet function's initial parameter. Of the sheet's `pages` the library's comes first
    /// and the others are empty.
    CommonSheet(psui::PropSheetUiFn function, LPARAM header, size_t pages);
    ~CommonSheet();
    CommonSheet(const CommonSheet&) = delete;
    CommonSheet& operator=(const CommonSheet&) = delete;

    /// Shows the sheet until it is closed. Throws Failure when there is no common UI.
    SheetRun Run();

    /// The user data that the sheet function keeps, while the sheet is open; else 0.
    ULONG_PTR userData() const { return userData_; }

private:
    static LONG WINAPI Forward(psui::PropSheetUiInfo* info, LPARAM param);
    LONG Note(psui::PropSheetUiInfo& info, LPARAM param);
    bool AddPages(const psui::PropSheetUiInfo& info) const;

    static CommonSheet* current_; // the common UI hands the sheet function nothing of ours

    psui::PropSheetUiFn function_;
    LPARAM header_;
    size_t pages_;
    ULONG_PTR userData_ = 0;
    bool initialised_ = false;
};

} // namespace psuictl
