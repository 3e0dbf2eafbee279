#pragma once
// Controls that show one of the library's bitmaps.
#include <windows.h>

#include "psui/res/pictures.h"

namespace psui {

/// Draws bitmap `request.CtlID` (the dispatcher puts the wanted id there) at the item's top-left corner,
/// magenta transparent. An id without a bitmap draws nothing.
void DrawBitmapById(const DRAWITEMSTRUCT& request);

/// The same for pictures on push buttons: 13041 to 13044 are centred as pictures of 48 x 48, the two link
/// pictures stand 4 pixels in, and a pressed button moves its picture 2 pixels right and down.
void DrawButtonBitmap(const DRAWITEMSTRUCT& request, bool pressed);

/// Fills the client area of a control with `color` and makes it the background colour.
void FillControlColor(const DRAWITEMSTRUCT& request, COLORREF color);

/// Gives control `id` of `dialog` the size of bitmap resource `bitmap`, its top-left corner staying. A
/// missing control or bitmap changes nothing.
void FitControlToBitmap(HWND dialog, int id, UINT bitmap);

} // namespace psui
