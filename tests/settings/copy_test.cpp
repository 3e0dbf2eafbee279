#include "psui/settings/copy.h"

#include <numeric>

#include "tests/settings/support.h"

namespace {

using namespace test;
using psui::RecordShape;

/// A record of that shape whose other bytes count up from `first`.
std::vector<BYTE> RecordOf(const RecordShape& shape, BYTE first)
{
    std::vector<BYTE> bytes(std::max<size_t>(shape.TotalSize(), psui::kHeaderSize));
    std::iota(bytes.begin(), bytes.end(), first);
    psui::SetShape(bytes.data(), shape);
    return bytes;
}

DEVMODEW* AsRecord(std::vector<BYTE>& bytes)
{
    return reinterpret_cast<DEVMODEW*>(bytes.data());
}

TEST(CopyDevMode, CopiesWhatBothHaveAndKeepsTheShapeOrChangesNothing)
{
    const struct
    {
        RecordShape from, to;
        int copied;
        uint16_t version; ///< of the destination afterwards
    } cases[] = {
        {{0x0401, 1301, 220, 1632}, {0x0401, 1301, 220, 1632}, 1852, 0x0401},
        {{0x0401, 1301, 220, 1632}, {0, 848, 188, 112}, 300, 0x0320},
        {{0x0320, 848, 188, 112}, {0, 7, 220, 1632}, 300, 0x0401},
        {{0, 1, 212, 0}, {0x0999, 2, 212, 5}, 212, 0x0400},
        {{0x0300, 1, 156, 9}, {0x0500, 2, 300, 4}, 160, 0x0500},
        {{0x0300, 1, 72, 9}, {0x0500, 2, 72, 20}, 81, 0x0500},
        {{0x0300, 1, 3, 0}, {0, 2, 220, 0}, 3, 0x0401},
        {{0, 1, 156, 0}, {0x0401, 1, 220, 0}, -1, 0x0401},
        {{0x0401, 1, 220, 0}, {0, 1, 156, 0}, -1, 0},
        {{0x0401, 1, 220, 0}, {0x0401, 1, 71, 0}, -1, 0x0401},
        {{0x0401, 1, 220, 8}, {0x0401, 1, 0, 2000}, -1, 0x0401},
    };
    for (const auto& [from, to, copied, version] : cases) {
        std::vector<BYTE> source = RecordOf(from, 1), destination = RecordOf(to, 101), expected = destination;
        if (copied > 0) {
            std::copy_n(source.begin(), std::min(from.publicSize, to.publicSize), expected.begin());
            std::copy_n(source.begin() + from.publicSize, std::min(from.privateSize, to.privateSize),
                        expected.begin() + to.publicSize);
        }
        psui::SetShape(expected.data(), {version, to.driverVersion, to.publicSize, to.privateSize});
        EXPECT_EQ(psui::CopyDevMode(AsRecord(source), AsRecord(destination)), copied);
        EXPECT_EQ(destination, expected) << from.publicSize << " to " << to.publicSize;
    }
    std::vector<BYTE> record = RecordOf({0x0401, 1, 220, 0}, 1);
    EXPECT_EQ(psui::CopyDevMode(nullptr, AsRecord(record)), -1);
    EXPECT_EQ(psui::CopyDevMode(AsRecord(record), nullptr), -1);
}

psui::DriverDevMode Ours()
{
    psui::DriverDevMode record;
    std::iota(reinterpret_cast<BYTE*>(&record), reinterpret_cast<BYTE*>(&record + 1), BYTE{50});
    psui::SetShape(&record, {0x0401, 1301, 220, 1632});
    return record;
}

TEST(CopyDevModeOut, ShapesTheOutputLikeASmallerInput)
{
    const std::pair<RecordShape, RecordShape> cases[] = {
        {{0x0401, 1301, 220, 1632}, {0x0401, 1301, 220, 1632}},
        {{0x0400, 5, 220, 1632}, {0x0401, 1301, 220, 1632}},
        {{0x0320, 848, 188, 112}, {0x0320, 848, 188, 112}},
        {{0x0777, 5, 300, 2000}, {0x0401, 1301, 220, 1632}},
        {{0x0400, 5, 212, 2000}, {0x0400, 1301, 212, 1632}},
        {{0x0401, 5, 220, 0}, {0x0401, 5, 220, 0}},
    };
    alignas(8) const psui::DriverDevMode ours = Ours();
    for (const auto& [from, to] : cases) {
        std::vector<BYTE> input = RecordOf(from, 1), separate(2400, 0xEE);
        ASSERT_TRUE(psui::CopyDevModeOut(&ours, AsRecord(input), AsRecord(separate)));
        const RecordShape shape = psui::ShapeOf(separate.data());
        EXPECT_EQ(std::memcmp(&shape, &to, sizeof(shape)), 0) << from.publicSize;
        EXPECT_EQ(std::memcmp(separate.data() + shape.publicSize, &ours.dmPrivate, shape.privateSize), 0);
        EXPECT_EQ(separate[shape.TotalSize()], 0xEE) << "wrote past the shape";

        ASSERT_TRUE(psui::CopyDevModeOut(&ours, AsRecord(input), AsRecord(input)));
        EXPECT_EQ(std::memcmp(input.data(), separate.data(), shape.TotalSize()), 0) << "in place";
    }
}

TEST(CopyDevModeOut, CopiesTheWholeRecordWithoutInput)
{
    alignas(8) const psui::DriverDevMode ours = Ours();
    alignas(8) psui::DriverDevMode output;
    ASSERT_TRUE(psui::CopyDevModeOut(&ours, nullptr, &output.dmPublic));
    EXPECT_EQ(Differences(ours, output), "");
}

TEST(CopyDevModeOut, LeavesTheOutputWhenTheInputHasNoUsableShape)
{
    alignas(8) const psui::DriverDevMode ours = Ours();
    for (const RecordShape& shape : {RecordShape{0, 1, 156, 0}, {0x0401, 1, 40, 10}}) {
        std::vector<BYTE> input = RecordOf(shape, 1);
        const std::vector<BYTE> before = input;
        EXPECT_FALSE(psui::CopyDevModeOut(&ours, AsRecord(input), AsRecord(input)));
        EXPECT_EQ(input, before);
    }
    EXPECT_FALSE(psui::CopyDevModeOut(&ours, nullptr, nullptr));
}

} // namespace
