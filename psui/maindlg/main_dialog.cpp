#include "psui/maindlg/main_dialog.h"

#include "lang/ids/dialogs.h"
#include "psui/entry/main_dialog.h"

namespace psui {

namespace {

BOOL OnInit(HWND dialog, PrinterUiContext* context)
{
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context));
    context->hMainDialog = dialog;
    return TRUE;
}

BOOL OnCommand(HWND dialog, int control)
{
    switch (control) {
    case IDOK:
        EndDialog(dialog, kMainDialogConfirmed);
        return TRUE;
    case IDCANCEL:
        EndDialog(dialog, kMainDialogCancelled);
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace

INT_PTR CALLBACK MainSettingDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        return OnInit(dialog, reinterpret_cast<PrinterUiContext*>(lParam));
    case WM_COMMAND:
        return OnCommand(dialog, LOWORD(wParam));
    default:
        return FALSE;
    }
}

INT_PTR RunMainDialog(HWND owner, PrinterUiContext* context)
{
    const INT_PTR result = DialogBoxParamW(context->hPageRes, MAKEINTRESOURCEW(IDD_MAIN), owner,
                                           MainSettingDlgProc, reinterpret_cast<LPARAM>(context));
    context->hMainDialog = nullptr;
    return result;
}

} // namespace psui
