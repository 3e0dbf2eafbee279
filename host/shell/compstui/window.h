#pragma once
#include "host/shell/compstui/sheet.h"

namespace compstui {

/// Shows the sheet, whose groups are initialised, and returns when it is closed; `owner` (may be null) is
/// disabled meanwhile. Returns false when there is no window.
bool ShowSheet(Sheet& sheet, HWND owner);

/// What follows a caller's title that asks for it, in the user's language.
const WCHAR* PropertiesSuffix();

} // namespace compstui
