#include "psui/events/items.h"

#include <string>
#include <tuple>

#include <gtest/gtest.h>

namespace {

TEST(Items, TurnAListIntoAMask)
{
    const std::tuple<std::u16string, uint32_t> cases[] = {
        {u"", 0},
        {u"10", 0x100},
        {u"1,2,3,10,11,12", 0x707},
        {u"10, 11,12 ", 0x700},
        {u"3,3,3", 4},
        {u"0010,4,5,100,-1,x,3x", 0x104},
        {u",,1,", 1},
        {u"1.5;2", 1},
        {u"00000000000000010", 1}, // 16 characters are read of an item
        {u"18446744073709551618,4294967297,1e1", 1},
        {std::u16string(32000, u'9'), 0},
        {std::u16string(32000, u','), 0},
    };
    for (const auto& [list, mask] : cases)
        EXPECT_EQ(psui::MaskOfItems(list.c_str()), mask)
            << std::string(list.begin(), list.begin() + std::min<size_t>(list.size(), 40));
}

} // namespace
