#pragma once
// Small text functions that every folder above shares.
#include <windows.h>

namespace psui {

/// Converts 8-bit text of the system's code page. `destination` holds `count` units: at most count - 1 bytes
/// of `source` are taken, the rest of the destination is zero. With a count of 0 or less the whole source is
/// taken and the destination must have room for its length + 1.
void WideFromNarrow(WCHAR* destination, const char* source, int count);

/// Converts to 8-bit text of the system's code page. `destination` holds `count` bytes: what fits whole into
/// count - 1 of them is taken, the rest is zero. With a count of 0 or less the whole source is taken and the
/// destination must have room for two bytes a unit, and a terminator.
void NarrowFromWide(char* destination, const WCHAR* source, int count);

/// Copies at most count - 1 units of `source` and fills the rest of `count` units with zeros.
void CopyWide(WCHAR* destination, const WCHAR* source, int count);

/// Length of a text that may fill its field to the end without a terminator.
int BoundedLength(const WCHAR* text, int size);

/// Whether two terminated texts are equal but for the case of their letters, in any locale.
bool EqualNoCase(const WCHAR* first, const WCHAR* second);

} // namespace psui
