// Which picture shows the settings, over the whole space of the fields that decide it.
#include <gtest/gtest.h>

#include <filesystem>

#include "psui/controls/owner_draw.h"
#include "psui/controls/previews.h"

namespace psui {
namespace {

bool IsDrawn(UINT bitmap)
{
    return std::filesystem::exists(std::string(PSUI_PICTURES) + "/" + std::to_string(bitmap) + ".bmp");
}

DriverDevMode Record(short orientation, int pages)
{
    DriverDevMode record = {};
    record.dmPublic.dmOrientation = orientation;
    record.dmPublic.dmColor = DMCOLOR_COLOR;
    record.dmPublic.dmCopies = 1;
    record.dmPrivate.dwPagesPerSheet = pages;
    return record;
}

// Every field value that a record can bring must lead to a picture that exists.
TEST(LayoutPreview, HasAPictureForEveryRecord)
{
    for (const short orientation : {0, 1, 2, 3})
        for (const short color : {0, 1, 2})
            for (const int pages : {-9, -4, -1, 0, 1, 2, 3, 4, 9, 16, 1000})
                for (int quality = 0; quality < 8; ++quality)
                    for (int order = 0; order < 9; ++order) {
                        DriverDevMode record = Record(orientation, pages);
                        record.dmPublic.dmColor = color;
                        record.dmPrivate.bQualityLevel = static_cast<uint8_t>(quality);
                        record.dmPrivate.bPageOrder = static_cast<uint8_t>(order);
                        const UINT bitmap = LayoutPreviewBitmap(record);
                        ASSERT_TRUE(IsDrawn(bitmap)) << bitmap << " for " << orientation << ' ' << color
                                                     << ' ' << pages << ' ' << quality << ' ' << order;
                    }
}

TEST(LayoutPreview, FollowsQualityColourOrientationPagesAndOrder)
{
    struct Case
    {
        short orientation, color;
        int pages, quality, order;
        UINT bitmap;
    };
    constexpr Case kCases[] = {
        {1, 2, 1, 0, 0, 13100}, {2, 1, 1, 2, 0, 13155},  {1, 2, -9, 0, 0, 13102}, {2, 1, -4, 5, 0, 13216},
        {1, 2, 1, 6, 0, 13100}, {1, 2, 2, 0, 1, 13301},  {1, 2, 2, 0, 2, 13302},  {1, 2, 2, 0, 3, 13302},
        {2, 2, 2, 0, 2, 13316}, {1, 2, 4, 0, 0, 13303},  {1, 2, 4, 0, 3, 13306},  {1, 2, 9, 3, 1, 13308},
        {2, 2, 9, 0, 2, 13324}, {1, 1, 16, 0, 4, 13311}, {2, 2, 16, 0, 3, 13329}, {2, 2, 4, 0, 0, 13318},
        {1, 2, 3, 1, 0, 13120}, {2, 2, -4, 4, 0, 13191},
    };
    for (const Case& each : kCases) {
        DriverDevMode record = Record(each.orientation, each.pages);
        record.dmPublic.dmColor = each.color;
        record.dmPrivate.bQualityLevel = static_cast<uint8_t>(each.quality);
        record.dmPrivate.bPageOrder = static_cast<uint8_t>(each.order);
        EXPECT_EQ(LayoutPreviewBitmap(record), each.bitmap);
    }
}

TEST(CollatePreview, FollowsCopiesCollationAndReverseOrder)
{
    constexpr UINT kBitmaps[2][2][2] = {{{13251, 13252}, {13251, 13252}}, {{13255, 13256}, {13253, 13254}}};
    for (const int copies : {1, 3})
        for (const int collate : {0, 1})
            for (const int reverse : {0, 1}) {
                DriverDevMode record = Record(1, 1);
                record.dmPublic.dmCopies = static_cast<short>(copies);
                record.dmPrivate.bTailCollate = static_cast<uint8_t>(collate);
                record.dmPrivate.bTailReverse = static_cast<uint8_t>(reverse);
                const UINT bitmap = CollatePreviewBitmap(record);
                EXPECT_EQ(bitmap, kBitmaps[copies > 1][collate][reverse]);
                EXPECT_TRUE(IsDrawn(bitmap));
            }
}

TEST(DuplexPreview, FollowsTypeOrientationPagesAndBooklet)
{
    for (int type = 0; type < 8; ++type)
        for (const bool landscape : {false, true})
            for (const int pages : {1, 2, 4})
                for (const bool booklet : {false, true}) {
                    DriverDevMode record = Record(landscape ? 2 : 1, pages);
                    record.dmPrivate.bBookletFlags = booklet ? 1 : 0;
                    record.dmPrivate.wDuplexFlags = static_cast<uint16_t>(type);
                    EXPECT_EQ(DuplexPreviewBitmap(record), 0u) << "duplex is off";
                    record.dmPrivate.wDuplexFlags |= 0x100;
                    UINT expected = 0;
                    if (type <= 5) {
                        const bool upright = landscape == (pages == 2);
                        expected = (upright ? 13371u : 13378u) + static_cast<UINT>(type);
                        if (booklet && pages == 2 && type <= 1)
                            expected = (landscape ? 13386u : 13384u) + static_cast<UINT>(type);
                        EXPECT_TRUE(IsDrawn(expected));
                    }
                    EXPECT_EQ(DuplexPreviewBitmap(record), expected) << type << landscape << pages << booklet;
                }
}

TEST(Banner, ShowsTheModelOfTheDeviceName)
{
    constexpr std::pair<const WCHAR*, const WCHAR*> kNames[] = {
        {TEXT("Velmora Palette 940 Printer"), TEXT("Palette 940")},
        {TEXT("Velmora Palette 940 USB Printer"), TEXT("Palette 940")},
        {TEXT("My Velmora Palette 310 XML"), TEXT("Palette 310")},
        {TEXT("Velmora Palette 520"), TEXT("Palette 520")},
        {TEXT("Velmora  Printer"), TEXT("")},
        {TEXT("Palette 940 Printer"), TEXT("")},
        {TEXT(""), TEXT("")},
    };
    for (const auto& [name, model] : kNames) {
        WCHAR text[CCHDEVICENAME];
        BannerText(name, text);
        EXPECT_EQ(lstrcmpW(text, model), 0);
    }
}

} // namespace
} // namespace psui
