#include "psui/entry/summary_page.h"

#include <commctrl.h>

#include "lang/ids/summary.h"
#include "psui/entry/ddi.h"
#include "psui/entry/main_dialog.h"
#include "psui/settings/language.h"

namespace psui {

namespace {

/// The page's own message: give the button the focus.
constexpr UINT kFocusButton = WM_USER;

// Where the values stand beside their labels, in quarters of a character's width.
constexpr DWORD kValueColumn = 150;
constexpr DWORD kValueColumnCjk = 120;

PrinterUiContext* ContextOf(HWND page)
{
    return reinterpret_cast<PrinterUiContext*>(GetWindowLongPtrW(page, GWLP_USERDATA));
}

HWND TabControlOf(HWND sheet)
{
    return reinterpret_cast<HWND>(SendMessageW(sheet, kSheetGetTabControl, 0, 0));
}

void ShowSummary(HWND page, PrinterUiContext* context)
{
    SendDlgItemMessageW(page, IDC_SUMMARY, EM_LIMITTEXT, 0, 0);
    DWORD tabStop = IsCjkLanguage() ? kValueColumnCjk : kValueColumn;
    SendDlgItemMessageW(page, IDC_SUMMARY, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tabStop));
    if (!FillSettingsSummary(page, context))
        PostMessageW(page, WM_COMMAND, IDCANCEL, 0);
}

/// Stands in for a sheet that has nothing to show but this page.
void ShowMainDialogAlone(HWND page, PrinterUiContext* context)
{
    const HWND sheet = GetParent(page);
    MoveWindow(sheet, 0, 0, 0, 0, FALSE);
    const bool confirmed =
        IsWindow(context->hMainDialog) || RunMainDialog(page, context) == kMainDialogConfirmed;
    PostMessageW(sheet, WM_COMMAND, confirmed ? IDOK : IDCANCEL, 0);
}

BOOL OnInit(HWND page, const PropSheetPage* description)
{
    auto* context = reinterpret_cast<PrinterUiContext*>(description->lParam);
    SetWindowLongPtrW(page, GWLP_USERDATA, description->lParam);
    context->hSummaryPage = page;
    if (TabCtrl_GetItemCount(TabControlOf(GetParent(page))) == 1)
        ShowMainDialogAlone(page, context);
    else
        ShowSummary(page, context);
    EnableWindow(GetDlgItem(page, IDC_SETTINGS), context->bPermission == 1);
    return TRUE;
}

/// The public record has a size of its own only for the user-defined paper.
void StorePublicSize(DriverDevMode& work)
{
    constexpr DWORD kSizeFields = DM_PAPERWIDTH | DM_PAPERLENGTH;
    DEVMODEW& pub = work.dmPublic;
    if (pub.dmPaperSize != DMPAPER_USER) {
        pub.dmFields &= ~kSizeFields;
        return;
    }
    pub.dmPaperWidth = static_cast<short>(work.dmPrivate.wCustomWidth);
    pub.dmPaperLength = static_cast<short>(work.dmPrivate.wCustomLength);
    pub.dmFields |= kSizeFields;
}

BOOL OnApply(PrinterUiContext* context)
{
    ApplySummaryPage(context);
    return TRUE;
}

BOOL OnNotify(HWND page, const NMHDR* notification)
{
    switch (notification->code) {
    case kPageSetActive:
        // The sheet moves the focus itself after this.
        PostMessageW(page, kFocusButton, 0, 0);
        return FALSE;
    case kPageApply:
        return OnApply(ContextOf(page));
    default:
        return FALSE;
    }
}

BOOL OnFocusButton(HWND page)
{
    if (GetFocus() != TabControlOf(GetParent(page)))
        SetFocus(GetDlgItem(page, IDC_SETTINGS));
    return FALSE;
}

BOOL OnSettingsButton(HWND page)
{
    PrinterUiContext* context = ContextOf(page);
    if (RunMainDialog(page, context) == kMainDialogConfirmed)
        FillSettingsSummary(page, context);
    return FALSE;
}

} // namespace

void ApplySummaryPage(PrinterUiContext* context)
{
    context->bPageApplied = 1;
    StorePublicSize(context->dmWork);
    context->pfnComPropSheet(context->hComPropSheet, kServiceSetResult,
                             reinterpret_cast<LPARAM>(context->ahPages[0]), kSheetConfirmed);
}

INT_PTR CALLBACK SummaryPageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        return OnInit(page, reinterpret_cast<const PropSheetPage*>(lParam));
    if (!ContextOf(page))
        return FALSE;
    switch (message) {
    case WM_NOTIFY:
        return OnNotify(page, reinterpret_cast<const NMHDR*>(lParam));
    case WM_COMMAND:
        return LOWORD(wParam) == IDC_SETTINGS && HIWORD(wParam) == BN_CLICKED && OnSettingsButton(page);
    case kFocusButton:
        return OnFocusButton(page);
    default:
        return FALSE;
    }
}

} // namespace psui
