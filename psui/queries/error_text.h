#pragma once
// Messages to the users of a printer queue.
#include <windows.h>

namespace psui {

/// Writes the text that `format` and the arguments behind it make to `buffer`, cut to `size` units with the
/// terminator. Without a buffer or with size 0 nothing is written.
///
/// %! inserts the string of `module` whose id (UINT) is the next argument, at most 255 units of it; %s a text
/// (const WCHAR*; null for one blank, which `needed` does not count); %c one unit (passed as int); %d, %u, %x
/// and %X a 32-bit number. Any other character behind a % stands for itself. What is inserted is never itself
/// a format.
///
/// `needed` (may be null) receives the units of the whole text and its terminator, whether or not it fitted.
/// Returns the units written, without the terminator. Needs no memory.
DWORD FormatErrorText(HMODULE module, WCHAR* buffer, DWORD size, DWORD* needed, const WCHAR* format, ...);

} // namespace psui
