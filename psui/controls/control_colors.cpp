#include "psui/controls/control_colors.h"

#include <algorithm>
#include <iterator>

namespace psui {

void ControlColors::Reset()
{
    std::fill(std::begin(slots), std::end(slots), kSystemDefault);
}

COLORREF ControlColors::operator[](ColorSlot slot) const
{
    constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);
    if (slots[slot] != kSystemDefault)
        return slots[slot];
    switch (slot) {
    case kFaceColor:
        return GetSysColor(COLOR_BTNFACE);
    case kArrowColor:
        return GetSysColor(COLOR_BTNTEXT);
    case kShadowColor:
        return GetSysColor(COLOR_BTNSHADOW);
    case kFrameColor:
        return GetSysColor(COLOR_WINDOWFRAME);
    default:
        return kWhite;
    }
}

bool ReadThreeFields(const WCHAR* text, uint16_t (&fields)[3])
{
    for (int i = 0; i < 3; ++i) {
        uint32_t number = 0;
        for (; *text >= '0' && *text <= '9'; ++text)
            number = number * 10 + static_cast<uint32_t>(*text - '0');
        fields[i] = static_cast<uint16_t>(number);
        while (*text && *text != ',')
            ++text;
        if (i < 2 && *text++ != ',')
            return false;
    }
    return true;
}

} // namespace psui
