#include "psui/events/items.h"

#include <string_view>

#include "psui/base/format.h"
#include "psui/events/numbers.h"

namespace psui {

namespace {

using WideView = std::basic_string_view<WCHAR>;

constexpr size_t kLongestItem = 16; // units that are read of one item

struct ItemRow
{
    int number;
    uint32_t bit;
};
/// In the order of a list.
constexpr ItemRow kItems[] = {{10, kItemPagesPerSheet}, {11, 0x200}, {12, 0x400}, {1, 0x1}, {2, 0x2},
                              {3, kItemColour}};

uint32_t BitOfItem(WideView item)
{
    const uint64_t number = LeadingNumber(item.substr(0, kLongestItem));
    for (const ItemRow& row : kItems)
        if (static_cast<uint64_t>(row.number) == number)
            return row.bit;
    return 0;
}

} // namespace

uint32_t MaskOfItems(const WCHAR* list)
{
    uint32_t mask = 0;
    WideView rest(list);
    while (!rest.empty()) {
        const size_t comma = rest.find(',');
        mask |= BitOfItem(rest.substr(0, comma));
        rest.remove_prefix(comma == WideView::npos ? rest.size() : comma + 1);
    }
    return mask;
}

void ItemsOfMask(uint32_t mask, ItemList& list)
{
    list[0] = 0;
    if ((mask & kExchangedItems) == 0)
        return;
    for (const ItemRow& row : kItems)
        if ((mask & row.bit) != 0)
            AppendText(list, {list[0] ? TEXT(",") : TEXT(""), DecimalText(row.number).text});
}

} // namespace psui
