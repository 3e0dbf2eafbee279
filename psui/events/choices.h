#pragma once
// What a choice made in the status monitor means in a settings record, and the other way round. The numbers
// are those of the monitor's keys.
#include <cstdint>

#include "psui/settings/devmode.h"

namespace psui {

/// Takes the monitor's layout over: 1, 2, 4, 9 or 16 pages per sheet, -4 and -9 for posters of 2 x 2 and
/// 3 x 3 sheets. Of any other value only the saved layout is kept.
void TakeLayout(DriverDevMode* record, int32_t layout);

/// Takes the monitor's colour mode over where the monitor has set one.
void TakeColour(DriverDevMode* record, int32_t colour);

/// Puts the record's colour mode into a value that the monitor has set; any other value stays as it is.
int32_t ColourWithRecords(int32_t colour, const DriverDevMode* record);

} // namespace psui
