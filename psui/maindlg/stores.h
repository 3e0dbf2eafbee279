#pragma once
// Names that the stores of favourites and watermarks keep; they define these.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

constexpr int kWatermarkNameUnits = 128; // with the terminator
constexpr int kFavouriteNameUnits = 50;  // with the terminator
constexpr int kFavouriteSlots = 12;

/// The name of the printer's current watermark. When the list has none at the current index, entry 0 becomes
/// the current one, in the context and in the working file; the name is empty when the list is.
void CurrentWatermarkName(PrinterUiContext* context, WCHAR (&name)[kWatermarkNameUnits]);

/// The name of favourite slot `slot`, 0 to kFavouriteSlots - 1; empty for any other.
void FavouriteName(const PrinterUiContext* context, uint32_t slot, WCHAR (&name)[kFavouriteNameUnits]);

} // namespace psui
