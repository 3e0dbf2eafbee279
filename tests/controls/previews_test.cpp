// Which picture shows the settings, over the whole space of the fields that decide it.
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <map>

#include "psui/controls/owner_draw.h"
#include "psui/controls/previews.h"
#include "tests/controls/drawing.h"

namespace psui {
namespace {

using test::Record;

bool IsDrawn(UINT bitmap)
{
    return std::filesystem::exists(std::string(PSUI_PICTURES) + "/" + std::to_string(bitmap) + ".bmp");
}

constexpr int kPages[] = {-100, -9, -4, -1, 0, 1, 2, 3, 4, 5, 8, 9, 10, 15, 16, 17, 1000};
constexpr short kOrientations[] = {-1, 0, 1, 2, 3};
constexpr short kColors[] = {-1, 0, 1, 2, 3};

// Quality level; then portrait in colour and monochrome, landscape in colour and monochrome.
constexpr UINT kOnePage[][4] = {
    {13100, 13105, 13110, 13115}, {13120, 13125, 13130, 13135}, {13140, 13145, 13150, 13155},
    {13160, 13165, 13170, 13175}, {13180, 13185, 13190, 13195}, {13200, 13205, 13210, 13215},
};

// Pages on a sheet; then the page orders 0 to 3 in portrait, and in landscape.
const std::map<int, std::array<std::array<UINT, 4>, 2>> kSeveralPages = {
    {2, {{{13301, 13301, 13302, 13302}, {13316, 13316, 13316, 13316}}}},
    {4, {{{13303, 13304, 13305, 13306}, {13318, 13319, 13320, 13321}}}},
    {9, {{{13307, 13308, 13309, 13310}, {13322, 13323, 13324, 13325}}}},
    {16, {{{13311, 13312, 13313, 13314}, {13326, 13327, 13328, 13329}}}},
};

UINT ExpectedLayout(bool landscape, bool monochrome, int pages, unsigned quality, unsigned order)
{
    const auto several = kSeveralPages.find(pages);
    if (several != kSeveralPages.end())
        return several->second[landscape][order < 4 ? order : 0];
    const UINT whole = kOnePage[quality < 6 ? quality : 0][2 * landscape + monochrome];
    return pages == -4 ? whole + 1 : pages == -9 ? whole + 2 : whole;
}

TEST(LayoutPreview, FollowsQualityColourOrientationPagesAndOrder)
{
    for (const short orientation : kOrientations)
        for (const short color : kColors)
            for (const int pages : kPages)
                for (const unsigned quality : {0, 1, 2, 3, 4, 5, 6, 7, 128, 255})
                    for (const unsigned order : {0, 1, 2, 3, 4, 5, 128, 255}) {
                        DriverDevMode record = Record(orientation, pages);
                        record.dmPublic.dmColor = color;
                        record.dmPrivate.bQualityLevel = static_cast<uint8_t>(quality);
                        record.dmPrivate.bPageOrder = static_cast<uint8_t>(order);
                        const UINT bitmap = LayoutPreviewBitmap(record);
                        ASSERT_EQ(bitmap, ExpectedLayout(orientation == 2, color == 1, pages, quality, order))
                            << orientation << ' ' << color << ' ' << pages << ' ' << quality << ' ' << order;
                        ASSERT_TRUE(IsDrawn(bitmap)) << bitmap;
                    }
}

TEST(CollatePreview, FollowsCopiesCollationAndReverseOrder)
{
    constexpr UINT kBitmaps[2][2][2] = {{{13251, 13252}, {13251, 13252}}, {{13255, 13256}, {13253, 13254}}};
    for (const short copies : {-1, 0, 1, 2, 3, 999, 32767})
        for (const int collate : {0, 1, 255})
            for (const int reverse : {0, 1, 255}) {
                DriverDevMode record = Record(1, 1);
                record.dmPublic.dmCopies = copies;
                record.dmPrivate.bTailCollate = static_cast<uint8_t>(collate);
                record.dmPrivate.bTailReverse = static_cast<uint8_t>(reverse);
                const UINT bitmap = CollatePreviewBitmap(record);
                EXPECT_EQ(bitmap, kBitmaps[copies > 1][collate != 0][reverse != 0]);
                EXPECT_TRUE(IsDrawn(bitmap));
            }
}

UINT ExpectedDuplex(short orientation, int pages, bool booklet, unsigned type)
{
    constexpr UINT kUpright[] = {13371, 13372, 13373, 13374, 13375, 13376};
    constexpr UINT kLying[] = {13378, 13379, 13380, 13381, 13382, 13383};
    constexpr UINT kBooklets[2][2] = {{13384, 13385}, {13386, 13387}};
    if (type > 5 || (orientation != 1 && orientation != 2))
        return 0;
    if (booklet && pages == 2 && type < 2)
        return kBooklets[orientation - 1][type];
    return (orientation == 2) == (pages == 2) ? kUpright[type] : kLying[type];
}

TEST(DuplexPreview, FollowsTypeOrientationPagesAndBooklet)
{
    for (unsigned type = 0; type < 256; ++type)
        for (const short orientation : kOrientations)
            for (const int pages : kPages)
                for (const int booklet : {0, 1, 2, 3}) {
                    DriverDevMode record = Record(orientation, pages);
                    record.dmPrivate.bBookletFlags = static_cast<uint8_t>(booklet);
                    record.dmPrivate.wDuplexFlags = static_cast<uint16_t>(0xFE00 | type);
                    ASSERT_EQ(DuplexPreviewBitmap(record), 0u) << "duplex is off";
                    record.dmPrivate.wDuplexFlags = static_cast<uint16_t>(0x100 | type);
                    const UINT expected = ExpectedDuplex(orientation, pages, booklet & 1, type);
                    ASSERT_EQ(DuplexPreviewBitmap(record), expected)
                        << type << ' ' << orientation << ' ' << pages << ' ' << booklet;
                    ASSERT_TRUE(expected == 0 || IsDrawn(expected)) << expected;
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
