#pragma once
// What the defaults depend on outside the model: the user's country and the printer's print processor.
#include <windows.h>

namespace psui {

/// Whether the user's country uses A4; false for the Letter countries and when the country is not known.
bool IsMetricCountry();

/// Whether the printer of that name is set up with the named print processor. False for null, an unknown
/// printer and a value that is not text.
bool IsHubPrintProcessor(const WCHAR* printerName);
bool IsWinPrintProcessor(const WCHAR* printerName);

} // namespace psui
