#pragma once
// Names of the record's own paper size.
#include <windows.h>

#include "psui/entry/context.h"
#include "psui/maindlg/combo_list.h"

namespace psui {

/// Makes `text` the user-defined size's name with what it is, "Name (User defined)", and `end` behind it.
/// False, with an empty text, when the record has no name for it.
bool UserPaperWithName(const PrinterUiContext* context, const WCHAR* end, WCHAR (&text)[kEntryUnits]);

} // namespace psui
