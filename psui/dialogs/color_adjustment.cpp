// This version has no dialog that adjusts colours, so nothing changes them: the sample shows colours as they
// are, and greys as colours turn into them.
#include "psui/controls/color_sample.h"

namespace psui {

namespace {

void KeepColors(std::span<RGBQUAD>, const DriverDevMode&) {}

uint8_t KeepGrey(uint8_t grey, int, int)
{
    return grey;
}

} // namespace

const ColorAdjustment kColorAdjustment = {KeepColors, KeepGrey};

} // namespace psui
