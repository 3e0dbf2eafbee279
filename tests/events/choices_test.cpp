#include "psui/events/choices.h"

#include <tuple>

#include <gtest/gtest.h>

#include "psui/events/items.h"
#include "tests/settings/support.h"

namespace {

using psui::DriverDevMode;

/// A record that differs from what any layout sets.
DriverDevMode Odd()
{
    DriverDevMode record = {};
    test::SetAll(record, "wPoster=7 dmScale=50 wScale=60 bFitToPaper=2 wMultiPageMode=5 dwPagesPerSheet=77");
    return record;
}

TEST(TakeLayout, SetsPagesPostersAndScaling)
{
    for (const auto& [layout, poster] :
         {std::pair{-9, 3}, {-4, 2}, {1, 1}, {2, 1}, {4, 1}, {9, 1}, {16, 1}}) {
        SCOPED_TRACE(layout);
        DriverDevMode record = Odd();
        psui::TakeLayout(&record, layout);
        test::ExpectFields(record, {{"wPoster", poster},
                                    {"wMultiPageMode", 1},
                                    {"dwPagesPerSheet", layout},
                                    {"dwSavedNup", static_cast<uint32_t>(layout)}});
        test::ExpectFields(record, layout == 1 ? "dmScale=50 wScale=60 bFitToPaper=2"
                                               : "dmScale=100 wScale=100 bFitToPaper=0");
    }
}

TEST(TakeLayout, KeepsOfAnyOtherNumberTheSavedLayoutOnly)
{
    for (const int32_t layout : {0, 3, -1, -2, 8, 17, 256, INT32_MIN, INT32_MAX}) {
        DriverDevMode record = Odd();
        psui::TakeLayout(&record, layout);
        DriverDevMode expected = Odd();
        test::Set(expected, "dwSavedNup", layout);
        EXPECT_EQ(test::Differences(record, expected), "") << layout;
    }
}

TEST(Colour, IsTakenWhereTheMonitorSetIt)
{
    const std::pair<int32_t, int> cases[] = {
        {0, 7},      {1, 7},      {2, 7},      {0xFFF, 7},      {0x1001, 1}, // 7 is what the record had
        {0x1002, 2}, {0x1000, 2}, {0x1FFF, 2}, {0x7FFFF001, 1}, {-1, 2}};
    for (const auto& [value, expected] : cases) {
        DriverDevMode record = {};
        record.dmPublic.dmColor = 7;
        psui::TakeColour(&record, value);
        EXPECT_EQ(record.dmPublic.dmColor, expected) << value;
    }
}

TEST(Colour, IsToldWhereTheMonitorSetIt)
{
    const std::tuple<int32_t, short, int32_t> cases[] = {
        {0, 1, 0},           {2, 1, 2},
        {0x1002, 1, 0x1001}, {0x1001, 1, 0x1001},
        {0x1001, 2, 0x1002}, {0x1000, 0, 0x1001},
        {0x5FFF, 2, 0x5002}, {-1, 3, static_cast<int32_t>(0xFFFFF001)},
    };
    for (const auto& [value, color, expected] : cases) {
        DriverDevMode record = {};
        record.dmPublic.dmColor = color;
        EXPECT_EQ(psui::ColourWithRecords(value, &record), expected) << value << ' ' << color;
    }
}

TEST(Items, TurnAListIntoAMask)
{
    const std::pair<std::u16string, uint32_t> cases[] = {
        {u"", 0},
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
