#include "psui/controls/color_sample.h"

#include <algorithm>

#include "psui/base/gdi.h"
#include "psui/controls/dib.h"
#include "psui/res/pictures.h"

namespace psui {

namespace {

// Lets a palette change all but the system's own colours while it lives.
class StaticSystemColors
{
public:
    explicit StaticSystemColors(HDC dc) : dc_(dc), previous_(SetSystemPaletteUse(dc, SYSPAL_STATIC)) {}
    ~StaticSystemColors()
    {
        if (previous_ != SYSPAL_ERROR) // a display that has no palette
            SetSystemPaletteUse(dc_, previous_);
    }
    StaticSystemColors(const StaticSystemColors&) = delete;
    StaticSystemColors& operator=(const StaticSystemColors&) = delete;

private:
    HDC dc_;
    UINT previous_;
};

uint8_t GreyOf(const RGBQUAD& color)
{
    return static_cast<uint8_t>((5 * color.rgbRed + 9 * color.rgbGreen + 2 * color.rgbBlue) / 16);
}

RGBQUAD FromGrey(uint8_t grey)
{
    return {grey, grey, grey, 0};
}

// A display may refuse a picture while it changes its colours; once more is enough.
void DrawDib(HDC dc, const POINT& place, const BITMAPINFO& info, const void* pixels)
{
    constexpr int kAttempts = 2;
    const auto width = static_cast<DWORD>(info.bmiHeader.biWidth);
    const auto height = static_cast<DWORD>(info.bmiHeader.biHeight);
    for (int i = 0; i < kAttempts; ++i)
        if (SetDIBitsToDevice(dc, place.x, place.y, width, height, 0, 0, 0, height, pixels, &info,
                              DIB_RGB_COLORS) >= info.bmiHeader.biHeight)
            return;
}

} // namespace

void ApplyColorSettings(std::span<RGBQUAD> colors, const DriverDevMode& record,
                        const ColorAdjustment& adjustment)
{
    const PrivateDevMode& settings = record.dmPrivate;
    const bool adjusted = settings.dwColorAdjust == 1;
    if (adjusted)
        adjustment.adjust(colors, record);
    if (record.dmPublic.dmColor != DMCOLOR_MONOCHROME)
        return;
    const int brightness = settings.ashColorAdjust0[2];
    const int contrast = settings.ashColorAdjust0[3];
    for (RGBQUAD& color : colors) {
        const uint8_t grey = GreyOf(color);
        color = FromGrey(adjusted ? grey : adjustment.adjustGrey(grey, contrast, brightness));
    }
}

void DrawColorSample(const DRAWITEMSTRUCT& request, const DriverDevMode& record)
{
    const DibView dib = FindDib(IDB_COLOR_SAMPLE);
    if (!dib.info || dib.colorCount == 0)
        return;
    struct
    {
        BITMAPINFOHEADER header;
        RGBQUAD colors[kMaxDibColors];
    } copy = {dib.info->bmiHeader, {}};
    std::copy_n(dib.colors, dib.colorCount, copy.colors);
    const std::span<RGBQUAD> colors(copy.colors, dib.colorCount);
    ApplyColorSettings(colors, record, kColorAdjustment);

    const GdiObject<HPALETTE> palette(PaletteOf(colors.data(), dib.colorCount));
    const StaticSystemColors systemColors(request.hDC);
    const PaletteSelection selected(request.hDC, palette.get());
    DrawDib(request.hDC, {request.rcItem.left, request.rcItem.top},
            *reinterpret_cast<const BITMAPINFO*>(&copy), dib.pixels);
}

} // namespace psui
