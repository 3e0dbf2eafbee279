#pragma once
// Colours of our own window classes: five slots, of which each follows the system until it is set.
#include <cstdint>

#include <windows.h>

namespace psui {

enum ColorSlot : unsigned
{
    kFaceColor,
    kArrowColor, ///< and text
    kShadowColor,
    kHighlightColor,
    kFrameColor,
    kColorSlots,
};

constexpr COLORREF kSystemDefault = 0xFFFFFFFF;

struct ControlColors
{
    COLORREF slots[kColorSlots];

    void Reset();
    /// The colour to draw with.
    COLORREF operator[](ColorSlot slot) const;
};

/// Three decimal numbers in a text, separated by commas; false when it has fewer. A field that is no number
/// is 0, and one beyond 16 bits keeps its lower ones.
bool ReadThreeFields(const WCHAR* text, uint16_t (&fields)[3]);

} // namespace psui
