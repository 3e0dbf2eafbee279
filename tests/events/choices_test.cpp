#include "psui/events/choices.h"

#include <tuple>

#include <gtest/gtest.h>

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

} // namespace
