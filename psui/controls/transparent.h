#pragma once
// Pictures with a key colour whose pixels let the ground through.
#include <windows.h>

namespace psui {

constexpr COLORREF kKeyMagenta = RGB(0xFF, 0x00, 0xFF);
constexpr COLORREF kKeyOlive = RGB(0x80, 0x80, 0x00);

/// How the opaque pixels of a picture are drawn.
constexpr int kOwnColors = 1;
constexpr int kShadow = 2; ///< this, and any mode but kOwnColors: every opaque pixel in dark grey

/// Draws `bitmap` with its top-left corner at (x, y) of `dc`; pixels of colour `key` stay as they are there.
/// The picture is composed off-screen and copied at once. Draws nothing when the bitmap is null, selected
/// into another device context, or memory fails.
void DrawTransparentBitmap(HDC dc, HBITMAP bitmap, int x, int y, COLORREF key, int mode);

/// The same for bitmap resource `id` of this library, read as a device-independent image: its colour table
/// becomes a palette that is selected and realised for the final copy, so that displays of 256 colours show
/// it right. Draws nothing when there is no such resource or it is not sound.
void DrawTransparentDib(HDC dc, UINT id, int x, int y, COLORREF key, int mode);

/// Width and height of bitmap resource `id` of this library; {0, 0} when there is none.
SIZE SizeOfBitmap(UINT id);

} // namespace psui
