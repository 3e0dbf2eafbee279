#pragma once
// Measuring and drawing one line of text.
#include <string_view>
#include <vector>

#include "host/gdi/dc.h"
#include "host/gdi/font.h"

namespace host {

/// The sized font of a device context's selected font.
std::shared_ptr<SizedFont> FontOf(DeviceContext& dc);

/// Width in pixels. `advances`, when given, gets one width for every unit; a pair's second unit has none.
int MeasureText(SizedFont& font, std::u16string_view text, std::vector<int>* advances = nullptr);

/// Draws glyphs and the font's own lines in the text colour, with the pen starting at `baseline` on the
/// surface, inside `clip` on the surface. `advances` holds one width for every unit.
void DrawGlyphs(DeviceContext& dc, POINT baseline, std::u16string_view text, const std::vector<int>& advances,
                const RECT& clip);

/// A rectangle on surfaces that holds everything.
constexpr RECT kEverywhere = {INT16_MIN, INT16_MIN, INT16_MAX, INT16_MAX};

} // namespace host
