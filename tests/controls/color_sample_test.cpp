// The sample of the colour settings, and the bitmap resources that pictures are read from.
#include <algorithm>
#include <functional>
#include <tuple>

#include "psui/controls/color_sample.h"
#include "psui/controls/dib.h"
#include "psui/res/pictures.h"
#include "tests/controls/drawing.h"

namespace psui {
namespace {

using namespace test;

// Adjustments whose traces can be told apart.
constexpr ColorAdjustment kTraced = {
    [](std::span<RGBQUAD> colors, const DriverDevMode&) {
        for (RGBQUAD& color : colors)
            color.rgbRed = static_cast<BYTE>(color.rgbRed + 16);
    },
    [](uint8_t grey, int contrast, int brightness) {
        return static_cast<uint8_t>(grey + 100 * contrast + brightness);
    },
};

TEST(ColorSample, AdjustsAndGreysColoursAsTheSettingsSay)
{
    const std::tuple<uint32_t, short, std::array<BYTE, 3>> kCases[] = {
        {0, DMCOLOR_COLOR, {32, 48, 64}},
        {1, DMCOLOR_COLOR, {32, 48, 80}},
        {2, DMCOLOR_COLOR, {32, 48, 64}},
        {0, DMCOLOR_MONOCHROME, {152, 152, 152}}, // (5 * 64 + 9 * 48 + 2 * 32) / 16 = 51, + 100 + 1
        {1, DMCOLOR_MONOCHROME, {56, 56, 56}},
        {0, 0, {32, 48, 64}},
    };
    for (const auto& [adjust, color, blueGreenRed] : kCases) {
        DriverDevMode record = Record(1, 1);
        record.dmPublic.dmColor = color;
        record.dmPrivate.dwColorAdjust = adjust;
        const int16_t adjustments[] = {7, 9, 1, 1}; // saturation, white balance, brightness, contrast
        std::copy_n(adjustments, 4, record.dmPrivate.ashColorAdjust0);
        RGBQUAD colors[] = {{32, 48, 64, 0}, {32, 48, 64, 0}};
        ApplyColorSettings(colors, record, kTraced);
        for (const RGBQUAD& shown : colors) {
            EXPECT_EQ(shown.rgbBlue, blueGreenRed[0]) << adjust << ' ' << color;
            EXPECT_EQ(shown.rgbGreen, blueGreenRed[1]);
            EXPECT_EQ(shown.rgbRed, blueGreenRed[2]);
        }
    }
}

TEST(ColorSample, ShowsThePictureInItsColoursOrInGreys)
{
    const PictureWorld world;
    for (const bool monochrome : {false, true}) {
        Canvas expected(kWidth, kHeight), drawn(kWidth, kHeight);
        expected.Clear(kMagenta);
        Lay(expected, IDB_COLOR_SAMPLE, 2, 1, kMagenta);
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) {
                const COLORREF color = expected.Color(x, y);
                const uint32_t grey =
                    (5 * GetRValue(color) + 9 * GetGValue(color) + 2 * GetBValue(color)) / 16;
                if (monochrome && color != kMagenta)
                    expected.At(x, y) = grey << 16 | grey << 8 | grey;
            }
        drawn.Clear(kMagenta);
        DriverDevMode record = Record(1, 1);
        record.dmPublic.dmColor = monochrome ? DMCOLOR_MONOCHROME : DMCOLOR_COLOR;
        const host::Ledger before = host::OpenObjects();
        DrawColorSample(Request(drawn, ODT_BUTTON, 4024, {2, 1, 9, 9}), record);
        EXPECT_EQ(host::OpenObjects(), before);
        EXPECT_EQ(GetCurrentObject(drawn.Dc(), OBJ_PAL), GetStockObject(DEFAULT_PALETTE));
        EXPECT_TRUE(Same(drawn, expected)) << monochrome;
    }
}

// An image of 3 x 2 pixels with `colors` entries behind its header, and room for more behind its pixels.
struct SampleDib
{
    BITMAPINFOHEADER header = {sizeof(BITMAPINFOHEADER), 3, 2, 1, 8, BI_RGB, 0, 0, 0, 0, 0};
    uint32_t bytes[2048] = {};
};

TEST(DibResource, HasTheColoursThatItsHeaderCountsOrItsDepthAllows)
{
    const std::tuple<WORD, DWORD, uint32_t, size_t> kCases[] = {
        {1, 0, 2, 4}, {4, 0, 16, 4},  {4, 5, 5, 4},   {8, 0, 256, 4},
        {8, 7, 7, 4}, {24, 0, 0, 12}, {32, 0, 0, 12},
    };
    for (const auto& [bits, used, colors, rowBytes] : kCases) {
        SampleDib dib;
        dib.header.biBitCount = bits;
        dib.header.biClrUsed = used;
        const size_t whole = sizeof dib.header + 4 * colors + 2 * rowBytes;
        for (size_t size = 0; size < whole; ++size)
            ASSERT_EQ(ReadDib(&dib, size).info, nullptr) << bits << " bits cut to " << size;
        const DibView view = ReadDib(&dib, whole);
        ASSERT_NE(view.info, nullptr) << bits;
        EXPECT_EQ(view.colorCount, colors);
        EXPECT_EQ(static_cast<const void*>(view.colors), dib.bytes);
        EXPECT_EQ(view.pixels, dib.bytes + colors);
    }
}

TEST(DibResource, IsRefusedWhenItsHeaderIsNotSound)
{
    const std::pair<const char*, std::function<void(BITMAPINFOHEADER&)>> kFaults[] = {
        {"another header", [](auto& h) { h.biSize = sizeof(BITMAPINFOHEADER) + 4; }},
        {"compression", [](auto& h) { h.biCompression = BI_BITFIELDS; }},
        {"depth", [](auto& h) { h.biBitCount = 2; }},
        {"no depth", [](auto& h) { h.biBitCount = 0; }},
        {"no width", [](auto& h) { h.biWidth = 0; }},
        {"negative width", [](auto& h) { h.biWidth = -3; }},
        {"huge width", [](auto& h) { h.biWidth = 0x7FFFFFFF; }},
        {"top down", [](auto& h) { h.biHeight = -2; }},
        {"huge height", [](auto& h) { h.biHeight = 0x40000000; }},
        {"too many colours", [](auto& h) { h.biClrUsed = 257; }},
        {"colours beyond counting", [](auto& h) { h.biClrUsed = 0xFFFFFFFF; }},
        {"colours of a deep image", [](auto& h) { h.biBitCount = 24, h.biClrUsed = 1; }},
    };
    for (const auto& [what, spoil] : kFaults) {
        SampleDib dib;
        spoil(dib.header);
        EXPECT_EQ(ReadDib(&dib, sizeof dib).info, nullptr) << what;
    }
}

} // namespace
} // namespace psui
