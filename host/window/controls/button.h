#pragma once
// Buttons of every kind, and their painting.
#include <windows.h>

#include "host/window/controls/control.h"

namespace host {

struct Button : ControlState
{
    HFONT font = nullptr;
    HANDLE image = nullptr; // a bitmap or an icon; the program's
    UINT imageKind = IMAGE_BITMAP;
    UINT check = BST_UNCHECKED;
    bool pushed = false;
    bool mouseDown = false; // between press and release of the mouse button
};

/// BS_PUSHBUTTON ... BS_OWNERDRAW.
DWORD ButtonKind(HWND window);
bool IsRadioButton(DWORD kind);

/// Draws the button; an owner-drawn one asks its parent (WM_DRAWITEM) with `action` (ODA_DRAWENTIRE ...).
void PaintButton(const Button& button, HDC dc, UINT action);

LRESULT CALLBACK ButtonProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
