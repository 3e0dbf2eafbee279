#pragma once
// Lists of fonts.
#include <windows.h>

namespace psui {

/// Callback of the enumeration of font families: adds the face name of a TrueType font to the font list
/// (IDC_WM_FONT) of `dialog`, a window handle; fonts of other kinds are left out. Always 1, so that the
/// enumeration goes on.
int CALLBACK AddTrueTypeFaceName(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType,
                                 LPARAM dialog);

} // namespace psui
