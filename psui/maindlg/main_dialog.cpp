#include "psui/maindlg/main_dialog.h"

#include <commctrl.h>
#include <prsht.h>

#include "lang/ids/dialogs.h"
#include "lang/ids/main_dialog.h"
#include "psui/controls/hooks.h"
#include "psui/entry/main_dialog.h"
#include "psui/entry/summary_page.h"
#include "psui/maindlg/apply_state.h"
#include "psui/maindlg/drawing.h"
#include "psui/maindlg/help.h"
#include "psui/maindlg/hover_tip.h"
#include "psui/maindlg/launches.h"
#include "psui/maindlg/main_layout.h"
#include "psui/maindlg/placement.h"
#include "psui/maindlg/preview_clicks.h"
#include "psui/maindlg/side_panel.h"
#include "psui/maindlg/tabs.h"

namespace psui {

namespace {

constexpr int kTitleUnits = 256;
constexpr COLORREF kPanelBlue = RGB(0, 0, 255);
constexpr COLORREF kPanelBlack = RGB(0, 0, 0);
constexpr COLORREF kPanelGround = RGB(255, 255, 255);

PrinterUiContext* ContextOf(HWND dialog)
{
    return reinterpret_cast<PrinterUiContext*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
}

HWND SheetOf(const PrinterUiContext* context)
{
    return context->hSummaryPage ? GetParent(context->hSummaryPage) : nullptr;
}

// Opening

void TakeOverContext(HWND dialog, PrinterUiContext* context)
{
    SetWindowLongPtrW(dialog, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context));
    context->hMainDialog = dialog;
    context->bLinkHover = 0;
    context->bContextHelpMode = 0;
    context->bBannerDiagnostics = 0;
    TakeApplySnapshot(*context);
}

// The dialog stands for its sheet, which may be hidden: it takes over the sheet's icon and title.
void TakeOverSheet(HWND dialog, HWND sheet)
{
    if (!sheet)
        return;
    if (const LRESULT icon = SendMessageW(sheet, WM_GETICON, ICON_SMALL, 0))
        SendMessageW(dialog, WM_SETICON, ICON_SMALL, icon);
    WCHAR title[kTitleUnits];
    if (GetWindowTextW(sheet, title, kTitleUnits) > 0)
        SetWindowTextW(dialog, title);
}

void CentreOnScreen(HWND dialog)
{
    RECT rect;
    if (!GetWindowRect(dialog, &rect))
        return;
    SetWindowPos(dialog, nullptr, (GetSystemMetrics(SM_CXSCREEN) - (rect.right - rect.left)) / 2,
                 (GetSystemMetrics(SM_CYSCREEN) - (rect.bottom - rect.top)) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

bool IsHidden(HWND sheet)
{
    RECT rect;
    return sheet && GetWindowRect(sheet, &rect) && rect.right == rect.left && rect.bottom == rect.top;
}

void Place(HWND dialog, const PrinterUiContext* context)
{
    if (context->bUserDefault && IsHidden(SheetOf(context)))
        CentreOnScreen(dialog);
    else
        CentreOverOwner(dialog);
    if (!context->bUserDefault)
        ShowWindow(GetDlgItem(dialog, IDC_APPLY), SW_HIDE);
}

// Returns FALSE: the focus is set here.
BOOL OnInit(HWND dialog, PrinterUiContext* context)
{
    TakeOverContext(dialog, context);
    TakeOverSheet(dialog, SheetOf(context));
    LayOutPictures(dialog);
    LayOutDuplexLine(dialog, context);
    InstallHoverLink(dialog, IDC_WEB_LINK, IDC_BACKGROUND);
    Place(dialog, context);
    CreateSettingTabs(dialog, context);
    LayOutButtons(dialog, context);
    UpdateApplyButton(dialog, context);
    RefreshSidePanel(dialog, context);
    SetFocus(GetDlgItem(dialog, IDC_TABS));
    for (const int picture : {IDC_PREVIEW, IDC_COLOR_PICTURE, IDC_FIT_PICTURE})
        RepaintControl(dialog, picture);
    return FALSE;
}

// Commands

void Finish(HWND dialog, PrinterUiContext* context, INT_PTR result)
{
    CloseHelp(context);
    EndDialog(dialog, result);
}

void OnApply(HWND dialog, PrinterUiContext* context)
{
    TakeApplySnapshot(*context);
    EnableWindow(GetDlgItem(dialog, IDC_APPLY), FALSE);
    const HWND sheet = SheetOf(context);
    if (!sheet)
        return;
    context->bPageApplied = 0;
    SendMessageW(sheet, PSM_APPLY, 0, 0);
    const auto tabs = reinterpret_cast<HWND>(SendMessageW(sheet, PSM_GETTABCONTROL, 0, 0));
    const LRESULT pages = tabs ? SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0) : 0;
    if (pages >= 2) {
        FillSettingsSummary(context->hSummaryPage, context);
    } else if (pages == 1 && !context->bPageApplied) {
        // The only page of a sheet is still being made while this dialog stands for it, so the sheet tells
        // nobody.
        ApplySummaryPage(context);
    }
}

BOOL OnCommand(HWND dialog, PrinterUiContext* context, int control)
{
    switch (control) {
    case IDOK:
        Finish(dialog, context, kMainDialogConfirmed);
        return TRUE;
    case IDCANCEL:
        Finish(dialog, context, kMainDialogCancelled);
        return TRUE;
    case IDC_APPLY:
        OnApply(dialog, context);
        return TRUE;
    case IDHELP:
        context->hHelpWindow = ShowHelpTopic(context, HelpTopicOfTab(dialog));
        return TRUE;
    case IDC_WEB_LINK:
        OpenWebSupport(dialog, context);
        return TRUE;
    case IDC_CONTROL_CENTRE:
        StartControlCentre(dialog, context);
        return TRUE;
    default:
        return FALSE;
    }
}

void OnNotify(HWND dialog, const PrinterUiContext* context, const NMHDR* header)
{
    if (header->idFrom == IDC_TABS && header->code == TCN_SELCHANGE)
        OnTabSelected(dialog, context);
}

// Pointer

POINT PlaceOf(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

void OnSetCursor(HWND dialog, PrinterUiContext* context, HWND under)
{
    const HWND link = GetDlgItem(dialog, IDC_WEB_LINK);
    const DWORD hover = link && under == link ? 1 : 0;
    if (hover == context->bLinkHover)
        return;
    context->bLinkHover = hover;
    RepaintControl(dialog, IDC_WEB_LINK);
}

bool IsDown(int key)
{
    return GetKeyState(key) < 0;
}

// Hidden helpers for support: with both keys held, D takes the model's name off the banner, R tries the other
// row of buttons.
void OnDoubleClick(HWND dialog, PrinterUiContext* context, POINT place)
{
    RECT banner;
    if (!IsDown(VK_SHIFT) || !IsDown(VK_CONTROL) || !GetWindowRect(GetDlgItem(dialog, IDC_BANNER), &banner))
        return;
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&banner), 2);
    if (!PtInRect(&banner, place))
        return;
    if (IsDown('D')) {
        context->bBannerDiagnostics = !context->bBannerDiagnostics;
        RepaintControl(dialog, IDC_BANNER);
    }
    if (IsDown('R'))
        ToggleApplyButton(dialog);
}

void OnEraseBackground(HWND dialog, const PrinterUiContext* context)
{
    if (!TakeRepaintRequest())
        return;
    if (const HWND tab = SelectedTab(dialog, context))
        RedrawWindow(tab, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// Colours

bool IsPanelLine(int control)
{
    return (control >= IDC_LINE_MEDIA && control <= IDC_LINE_WATERMARK) ||
           (control >= IDC_LINE_PAPER_SIZE && control <= IDC_LINE_FIT_PAPER) || control == IDC_LINE_FIGURE ||
           control == IDC_LINE_SCALED_TO;
}

// The brush of a side-panel line; 0 leaves a control to the system.
INT_PTR PanelBrush(HDC dc, HWND control)
{
    const int id = GetDlgCtrlID(control);
    if (!IsPanelLine(id))
        return 0;
    const bool plainFact = id == IDC_LINE_SCALED_TO || id == IDC_LINE_FIT_PAPER;
    SetBkColor(dc, kPanelGround);
    SetTextColor(dc, plainFact ? kPanelBlack : kPanelBlue);
    return reinterpret_cast<INT_PTR>(GetStockObject(WHITE_BRUSH));
}

// Help

void OnHelp(HWND dialog, PrinterUiContext* context, const HELPINFO* info)
{
    context->bContextHelpMode = 0;
    context->hContextHelpWindow = ShowContextHelp(dialog, context, info->iCtrlId);
}

void OnContextMenu(HWND dialog, PrinterUiContext* context)
{
    if (const HWND help = ShowContextHelp(dialog, context, 0))
        context->hContextHelpWindow = help;
}

} // namespace

INT_PTR CALLBACK MainSettingDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        return OnInit(dialog, reinterpret_cast<PrinterUiContext*>(lParam));
    PrinterUiContext* const context = ContextOf(dialog);
    if (!context)
        return FALSE;
    switch (message) {
    case WM_COMMAND:
        return OnCommand(dialog, context, LOWORD(wParam));
    case WM_NOTIFY:
        OnNotify(dialog, context, reinterpret_cast<const NMHDR*>(lParam));
        return TRUE;
    case WM_DRAWITEM:
        DrawContextItem(dialog, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), context);
        return TRUE;
    case WM_CTLCOLORSTATIC:
        return PanelBrush(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_ERASEBKGND:
        OnEraseBackground(dialog, context);
        return FALSE;
    case WM_TIMER:
        if (wParam == kHoverTimer)
            ShowHoverTip(dialog);
        return wParam == kHoverTimer;
    case WM_SETCURSOR:
        OnSetCursor(dialog, context, reinterpret_cast<HWND>(wParam));
        return FALSE;
    case WM_MOUSEMOVE:
        HideHoverTip(dialog);
        OnPreviewMove(dialog, context, PlaceOf(lParam));
        return FALSE;
    case WM_LBUTTONDOWN:
        context->bContextHelpMode = 0;
        OnPreviewClick(dialog, context, PlaceOf(lParam));
        return FALSE;
    case WM_LBUTTONDBLCLK:
        OnDoubleClick(dialog, context, PlaceOf(lParam));
        return FALSE;
    case WM_SYSCOMMAND:
        if ((wParam & 0xFFF0) == SC_CONTEXTHELP)
            context->bContextHelpMode = 1;
        return FALSE;
    case WM_HELP:
        OnHelp(dialog, context, reinterpret_cast<const HELPINFO*>(lParam));
        return TRUE;
    case WM_CLOSE: // also while Cancel is disabled
        Finish(dialog, context, kMainDialogCancelled);
        return TRUE;
    case WM_CONTEXTMENU:
        OnContextMenu(dialog, context);
        return TRUE;
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
