#pragma once
// Which printer names a private-profile file can hold. A printer's section bears its name as it is; a name
// that would read back as another one, or as no section at all, has none.
#include <windows.h>

namespace psui {

/// Longest name of a printer's section, in units.
constexpr int kLongestSectionName = 255;

bool HasControlCharacters(const WCHAR* text);

/// Whether the name can be a section and a value of any private-profile file that holds its characters.
bool IsSectionName(const WCHAR* name);

/// Whether the characters of `name`, a section name, survive in that file: a file that does not begin with
/// a UTF-16 mark keeps 8-bit text of the system's code page. A bare file name is one of the Windows
/// directory.
bool FileHoldsName(const WCHAR* file, const WCHAR* name);

} // namespace psui
