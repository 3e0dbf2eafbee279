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
    struct Case
    {
        int32_t layout;
        int64_t poster, scale, wideScale, fit, mode, pages;
    };
    const Case cases[] = {
        {-9, 3, 100, 100, 0, 1, -9}, {-4, 2, 100, 100, 0, 1, -4}, {1, 1, 50, 60, 2, 1, 1},
        {2, 1, 100, 100, 0, 1, 2},   {4, 1, 100, 100, 0, 1, 4},   {9, 1, 100, 100, 0, 1, 9},
        {16, 1, 100, 100, 0, 1, 16},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.layout);
        DriverDevMode record = Odd();
        psui::TakeLayout(&record, c.layout);
        test::ExpectFields(record, {{"wPoster", c.poster},
                                    {"dmScale", c.scale},
                                    {"wScale", c.wideScale},
                                    {"bFitToPaper", c.fit},
                                    {"wMultiPageMode", c.mode},
                                    {"dwPagesPerSheet", c.pages},
                                    {"dwSavedNup", static_cast<uint32_t>(c.layout)}});
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
    struct Case
    {
        int32_t value;
        int64_t expected; ///< 7 is what the record had
    };
    const Case cases[] = {{0, 7},      {1, 7},      {2, 7},      {0xFFF, 7},      {0x1001, 1},
                          {0x1002, 2}, {0x1000, 2}, {0x1FFF, 2}, {0x7FFFF001, 1}, {-1, 2}};
    for (const Case& c : cases) {
        DriverDevMode record = {};
        record.dmPublic.dmColor = 7;
        psui::TakeColour(&record, c.value);
        EXPECT_EQ(record.dmPublic.dmColor, c.expected) << c.value;
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
