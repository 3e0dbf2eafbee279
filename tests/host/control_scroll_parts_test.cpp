#include <climits>

#include <gtest/gtest.h>

#include "host/window/controls/scroll_parts.h"

namespace {

using namespace host;

TEST(ScrollParts, PageAndPositionAreBroughtIntoTheirBounds)
{
    struct
    {
        SCROLLINFO info;
        ScrollRange expected;
    } const kCases[] = {
        {{0, SIF_ALL, 0, 100, 0, 50, 0}, {0, 100, 0, 50}},
        {{0, SIF_ALL, 0, 100, 10, 100, 0}, {0, 100, 10, 91}},
        {{0, SIF_ALL, -20, 20, 500, 0, 0}, {-20, 20, 41, -20}},
        {{0, SIF_ALL, 5, 4, 3, 9, 0}, {0, 0, 1, 0}},
        {{0, SIF_POS, 7, 7, 7, -5, 0}, {0, 9, 0, 0}},
        {{0, SIF_PAGE, 7, 7, 4, 1, 0}, {0, 9, 4, 3}},
        {{0, SIF_ALL, INT_MIN, INT_MAX, UINT_MAX, INT_MAX, 0}, {INT_MIN, INT_MAX, UINT_MAX, INT_MIN + 1}},
    };
    for (const auto& each : kCases) {
        ScrollRange range = {0, 9, 0, 3};
        ChangeScrollRange(range, each.info);
        EXPECT_EQ(range.minimum, each.expected.minimum);
        EXPECT_EQ(range.maximum, each.expected.maximum);
        EXPECT_EQ(range.page, each.expected.page);
        EXPECT_EQ(range.position, each.expected.position);
    }
    ScrollRange range = {0, 9, 0, 3};
    EXPECT_FALSE(ChangeScrollRange(range, {0, SIF_POS, 0, 0, 0, 3, 0}));
    EXPECT_TRUE(ChangeScrollRange(range, {0, SIF_POS, 0, 0, 0, 4, 0}));
}

TEST(ScrollParts, ThumbReachesBothEndsAndEveryPositionInBetween)
{
    for (const UINT page : {0u, 1u, 11u}) {
        for (int position = -20; position <= 20 - (page > 1 ? 10 : 0); ++position) {
            const ScrollRange range = {-20, 20, page, position};
            const ScrollLayout layout = LayOutScrollBar(range, 200, 17);
            EXPECT_EQ(ScrollPositionOfThumb(range, layout, layout.thumb), position) << page;
            EXPECT_GE(layout.thumb, 17);
            EXPECT_LE(layout.thumb + layout.thumbLength, 183);
            EXPECT_EQ(ScrollPositionOfThumb(range, layout, -500), -20);
            EXPECT_EQ(ScrollPositionOfThumb(range, layout, 500), range.LastPosition());
        }
    }
}

TEST(ScrollParts, BarWithoutRangeOrRoomHasNoThumb)
{
    constexpr struct
    {
        ScrollRange range;
        int length;
    } kCases[] = {{{0, 0, 0, 0}, 100}, {{0, 9, 10, 0}, 100}, {{0, 9, 0, 0}, 41}, {{0, 9, 0, 0}, 0}};
    for (const auto& each : kCases) {
        const ScrollLayout layout = LayOutScrollBar(each.range, each.length, 17);
        EXPECT_EQ(layout.thumbLength, 0) << each.length;
        EXPECT_EQ(ScrollPositionOfThumb(each.range, layout, 50), 0) << each.length;
        for (int place = layout.arrow; place < layout.length - layout.arrow; ++place)
            EXPECT_EQ(ScrollPartAt(layout, place), ScrollPart::none) << place;
    }
}

} // namespace
