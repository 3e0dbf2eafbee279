#pragma once
// The items that the status monitor offers for a printer: a list of numbers in its files, a mask in code.
#include <cstdint>

#include <windows.h>

namespace psui {

/// Bits of the items that the driver exchanges with the monitor.
enum MonitorItem : uint32_t
{
    kItemColour = 0x4,          ///< item 3
    kItemPagesPerSheet = 0x100, ///< item 10
};
constexpr uint32_t kExchangedItems = kItemColour | kItemPagesPerSheet;

/// Room for an item list that a file holds, with its terminator.
constexpr int kItemListUnits = 260;
using ItemList = WCHAR[kItemListUnits];

/// The mask of a list of decimal numbers separated by commas; numbers that are no items are ignored.
uint32_t MaskOfItems(const WCHAR* list);

/// The list of the mask's items in the order 10, 11, 12, 1, 2, 3; empty unless one of kExchangedItems is
/// among them.
void ItemsOfMask(uint32_t mask, ItemList& list);

} // namespace psui
