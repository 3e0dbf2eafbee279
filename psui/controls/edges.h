#pragma once
// Edges and separators of owner-drawn controls, in the system's colours.
#include <windows.h>

namespace psui {

enum class EdgeStyle
{
    ShadowLine = 1, ///< a shadow line along the top row
    Etched = 2,     ///< shadow along the top row, highlight below it
    Ridge = 3,      ///< shadow, dark shadow and highlight on the top three rows
    Sunken = 4,     ///< shadow on top and left, highlight on right and bottom
    Raised = 5,     ///< a push button
    Focused = 6,    ///< a push button with the focus
    Pressed = 7,    ///< a push button with the focus, pressed
    SunkenDark = 8, ///< dark shadow on top and left, highlight on right and bottom
};

/// Draws the edge on the item rectangle; lines are one pixel wide.
void DrawItemEdge(const DRAWITEMSTRUCT& request, EdgeStyle style);

} // namespace psui
