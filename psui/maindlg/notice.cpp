#include "psui/maindlg/notice.h"

#include "lang/ids/dialogs.h"
#include "lang/ids/notice.h"
#include "psui/controls/pictures.h"
#include "psui/maindlg/drawing.h"
#include "psui/maindlg/placement.h"

namespace psui {

namespace {

PrinterUiContext* ContextOf(HWND dialog)
{
    return reinterpret_cast<PrinterUiContext*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
}

void CentreButton(HWND dialog, int control)
{
    RECT client, place;
    const HWND button = GetDlgItem(dialog, control);
    if (!GetClientRect(dialog, &client) || !GetWindowRect(button, &place))
        return;
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    SetWindowPos(button, nullptr, (client.right - (place.right - place.left)) / 2, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void OnInit(HWND dialog, PrinterUiContext* context)
{
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context));
    FitControlToBitmap(dialog, IDC_NOTICE_PICTURE1, IDB_NOTICE_TRAY);
    FitControlToBitmap(dialog, IDC_NOTICE_PICTURE2, IDB_NOTICE_LOADING);
    CentreButton(dialog, IDOK);
    CheckDlgButton(dialog, IDC_NOTICE_OFF, context->dmWork.dmPrivate.dwPhotoNotice != 1);
    CentreOverOwner(dialog);
}

BOOL OnCommand(HWND dialog, PrinterUiContext* context, int control)
{
    switch (control) {
    case IDC_NOTICE_OFF:
        context->dmWork.dmPrivate.dwPhotoNotice = IsDlgButtonChecked(dialog, IDC_NOTICE_OFF) != BST_CHECKED;
        return TRUE;
    case IDOK:
    case IDCANCEL:
        EndDialog(dialog, control);
        return TRUE;
    default:
        return FALSE;
    }
}

INT_PTR CALLBACK NoticeDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_INITDIALOG:
        OnInit(dialog, reinterpret_cast<PrinterUiContext*>(lParam));
        return TRUE;
    case WM_COMMAND:
        return OnCommand(dialog, ContextOf(dialog), LOWORD(wParam));
    case WM_DRAWITEM:
        DrawContextItem(dialog, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), ContextOf(dialog));
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace

void RunNoticeDialog(HWND owner, PrinterUiContext* context)
{
    uint32_t& notice = context->dmWork.dmPrivate.dwPhotoNotice;
    const uint32_t former = notice;
    if (DialogBoxParamW(context->hPageRes, MAKEINTRESOURCEW(IDD_NOTICE), owner, NoticeDlgProc,
                        reinterpret_cast<LPARAM>(context)) == IDCANCEL)
        notice = former;
}

} // namespace psui
