#pragma once
// The sample picture of the colour settings, in the colours that the settings give it.
#include <cstdint>
#include <span>

#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

/// The mathematics of the adjustments.
struct ColorAdjustment
{
    /// Puts `colors` through the record's adjustments.
    void (*adjust)(std::span<RGBQUAD> colors, const DriverDevMode& record);
    /// A grey, 0 to 255, after the contrast and the brightness of a monochrome document.
    uint8_t (*adjustGrey)(uint8_t grey, int contrast, int brightness);
};

/// The one that the sample is drawn with.
extern const ColorAdjustment kColorAdjustment;

/// Changes a picture's colour table as the settings would its print. With colour adjustment on, every colour
/// is adjusted, and turned into a grey when the document is monochrome. With it off, the colours of a
/// monochrome document become greys, which take contrast and brightness; others stay.
void ApplyColorSettings(std::span<RGBQUAD> colors, const DriverDevMode& record,
                        const ColorAdjustment& adjustment);

/// Draws the sample at the item's top-left corner, in its own size and with a palette of its changed colours.
void DrawColorSample(const DRAWITEMSTRUCT& request, const DriverDevMode& record);

} // namespace psui
