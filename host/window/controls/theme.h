#pragma once
// The look that all controls share: flat, light grey borders of one pixel, white fields and one blue accent.
// Colours and the few shapes that several controls draw. Rectangles are in the device context's own
// coordinates, right and bottom excluded; nothing is drawn outside of them. Every function leaves the device
// context as it was.
#include <windows.h>

namespace host::theme {

inline constexpr COLORREF kBorder = RGB(0xC4, 0xC7, 0xCC);     // of fields, buttons and groups
inline constexpr COLORREF kMarkBorder = RGB(0x80, 0x86, 0x8F); // of check boxes and radio buttons
inline constexpr COLORREF kField = RGB(0xFF, 0xFF, 0xFF);
inline constexpr COLORREF kFace = RGB(0xFC, 0xFC, 0xFD); // of buttons
inline constexpr COLORREF kPressed = RGB(0xCF, 0xE1, 0xF7);
inline constexpr COLORREF kAccent = RGB(0x1A, 0x6F, 0xD4);
inline constexpr COLORREF kAccentDark = RGB(0x12, 0x52, 0x9F);
inline constexpr COLORREF kGlyph = RGB(0x50, 0x56, 0x5F); // arrows
inline constexpr COLORREF kTrack = RGB(0xEC, 0xED, 0xEF); // of scroll and track bars
inline constexpr COLORREF kThumb = RGB(0xC1, 0xC5, 0xCB);
inline constexpr COLORREF kThumbPressed = RGB(0x80, 0x86, 0x8F);
inline constexpr COLORREF kDisabledBorder = RGB(0xDD, 0xDF, 0xE2);
inline constexpr COLORREF kDisabledFace = RGB(0xF3, 0xF4, 0xF5);
inline constexpr COLORREF kDisabledText = RGB(0x9B, 0xA0, 0xA7);

inline constexpr int kMarkSize = 13;    // of check boxes and radio buttons, in pixels
inline constexpr int kArrowLength = 17; // of the arrow buttons of scroll bars and of a drop-down button

/// What a control is at the moment it is drawn.
struct Look
{
    bool enabled = true;
    bool pressed = false;
    bool focused = false;
    bool isDefault = false; // the button that Enter presses
};

enum class Mark
{
    none,
    check,
    mixed
};
enum class Arrow
{
    left,
    up,
    right,
    down
};

void Fill(HDC dc, const RECT& rect, COLORREF colour);
/// A border of one pixel along the inside of `rect`.
void Frame(HDC dc, const RECT& rect, COLORREF colour);

/// The border of an edit control, a list or a combo box: one pixel, in the accent while it has the focus.
void DrawFieldBorder(HDC dc, const RECT& rect, const Look& look);
/// A button's border and face; `isDefault` and `focused` give it the accent's border.
void DrawButtonFace(HDC dc, const RECT& rect, const Look& look);
/// The ring within a control that has the focus.
void DrawFocusRing(HDC dc, const RECT& rect);

/// A box or a circle of kMarkSize, centred in `rect`.
void DrawCheckMark(HDC dc, const RECT& rect, Mark mark, const Look& look);
void DrawRadioMark(HDC dc, const RECT& rect, bool checked, const Look& look);
/// An arrow head in the middle of `rect`: 7 by 4 pixels, or less where `rect` has no room.
void DrawArrow(HDC dc, const RECT& rect, Arrow direction, COLORREF colour);

/// The text colour of a control: the colour that `dc` has, or the one of disabled controls.
COLORREF TextColourOf(HDC dc, const Look& look);

} // namespace host::theme
