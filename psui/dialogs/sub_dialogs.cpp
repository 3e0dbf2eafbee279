// Dialogs that this version does not have: they answer as if they had been closed at once.
#include "psui/maindlg/sub_dialogs.h"

namespace psui {

INT_PTR RunUserPaperDialog(HWND, PrinterUiContext*)
{
    return IDCANCEL;
}

INT_PTR RunDuplexDialog(HWND, PrinterUiContext*)
{
    return IDCANCEL;
}

} // namespace psui
