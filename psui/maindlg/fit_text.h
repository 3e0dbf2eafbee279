#pragma once
// Shortening texts to the width of their controls.
#include <windows.h>

namespace psui {

/// Shortens a text of one or two lines, in place, to the width of a control: each line in the message font,
/// less a small margin. A longer line that was cut ends in three dots. Without a font it stays as it is.
void FitTextToLine(HWND dialog, int control, WCHAR* text);

/// Measures `length` units of `text`; `data` is the caller's own.
using TextWidthFn = int (*)(void* data, const WCHAR* text, int length);

/// The same for any measure: each line is cut until it is narrower than `limit`.
void FitTextToWidth(WCHAR* text, int limit, TextWidthFn width, void* data);

} // namespace psui
