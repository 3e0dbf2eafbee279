#include "psui/maindlg/basic_show.h"

#include <commctrl.h>

#include "lang/ids/basic_tab.h"
#include "lang/ids/main_dialog.h"
#include "psui/controls/pictures.h"
#include "psui/maindlg/basic_rules.h"
#include "psui/maindlg/combo_list.h"
#include "psui/maindlg/drawing.h"
#include "psui/maindlg/mnemonics.h"
#include "psui/maindlg/option_lists.h"
#include "psui/maindlg/qualities.h"
#include "psui/maindlg/rules.h"
#include "psui/maindlg/side_panel.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr int kCopyDigits = 3;
constexpr uint8_t kModeVivid = 1; // bDocType
constexpr uint8_t kModeNatural = 2;

void Check(HWND tab, int control, bool on)
{
    CheckDlgButton(tab, control, on ? BST_CHECKED : BST_UNCHECKED);
}

bool HasDuplex(const PrinterUiContext* context)
{
    return (context->dmWork.dmPublic.dmFields & DM_DUPLEX) != 0;
}

bool HasTrays(const PrinterUiContext* context)
{
    return context->dmWork.dmPrivate.dwTrayChoice == 1;
}

bool PlaceOf(HWND tab, int control, RECT& place)
{
    if (!GetWindowRect(GetDlgItem(tab, control), &place))
        return false;
    MapWindowPoints(nullptr, tab, reinterpret_cast<POINT*>(&place), 2);
    return true;
}

void MoveTop(HWND tab, int control, const RECT& place, LONG top)
{
    SetWindowPos(GetDlgItem(tab, control), nullptr, place.left, top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Without the duplex button the paper source moves up behind the border line.
void CloseDuplexGap(HWND tab, const PrinterUiContext* context)
{
    if (HasDuplex(context) || !HasTrays(context))
        return;
    RECT borderLabel, layoutLabel, layout, orderLabel, sourceLabel, source;
    if (!PlaceOf(tab, IDC_BORDER_LINE_LABEL, borderLabel) || !PlaceOf(tab, IDC_LAYOUT_LABEL, layoutLabel) ||
        !PlaceOf(tab, IDC_LAYOUT, layout) || !PlaceOf(tab, IDC_PAGE_ORDER_LABEL, orderLabel) ||
        !PlaceOf(tab, IDC_SOURCE_LABEL, sourceLabel) || !PlaceOf(tab, IDC_SOURCE, source))
        return;
    const LONG top = borderLabel.bottom + orderLabel.top - layoutLabel.bottom;
    MoveTop(tab, IDC_SOURCE_LABEL, sourceLabel, top);
    MoveTop(tab, IDC_SOURCE, source, top + layout.top - layoutLabel.top);
}

void FitPictures(HWND tab)
{
    FitControlToBitmap(tab, IDC_NATURAL_PICTURE, IDB_MODE_NATURAL);
    FitControlToBitmap(tab, IDC_VIVID_PICTURE, IDB_MODE_VIVID);
    FitControlToBitmap(tab, IDC_COLLATE_PICTURE, IDB_COPY_ONE);
    for (const int help : {IDC_SLOW_DRYING_HELP, IDC_BORDERLESS_HELP, IDC_COLOR_MODE_HELP})
        FitControlToBitmap(tab, help, IDB_HELP);
}

void ShowSlowDrying(HWND tab, const PrinterUiContext* context)
{
    const DriverDevMode& record = context->dmWork;
    Check(tab, IDC_SLOW_DRYING,
          IsTwoSidedMedia(record.dmPublic.dmMediaType) && record.dmPrivate.dwSdPaper == 1);
    ShowWindow(GetDlgItem(tab, IDC_SLOW_DRYING_HELP), SW_SHOW);
}

void ShowDuplex(HWND tab, PrinterUiContext* context)
{
    DriverDevMode& record = context->dmWork;
    if (HasDuplex(context)) {
        Check(tab, IDC_DUPLEX, (record.dmPrivate.wDuplexFlags & kDuplexOn) != 0);
        UpdateDuplex(record);
        return;
    }
    for (const int control : {IDC_DUPLEX, IDC_DUPLEX_SETTINGS}) {
        ShowWindow(GetDlgItem(tab, control), SW_HIDE);
        DisableMnemonic(tab, control);
    }
}

void ShowSource(HWND tab, PrinterUiContext* context)
{
    if (HasTrays(context))
        BuildSourceList(tab, context, context->dmWork.dmPublic.dmDefaultSource);
    else
        HideSource(tab);
}

void PrepareCopies(HWND tab, const PrinterUiContext* context)
{
    SendDlgItemMessageW(tab, IDC_COPIES, EM_SETLIMITTEXT, kCopyDigits, 0);
    // A buddy makes room for the arrows whenever it is set.
    const auto edit = reinterpret_cast<LRESULT>(GetDlgItem(tab, IDC_COPIES));
    if (SendDlgItemMessageW(tab, IDC_COPIES_SPIN, UDM_GETBUDDY, 0, 0) != edit)
        SendDlgItemMessageW(tab, IDC_COPIES_SPIN, UDM_SETBUDDY, static_cast<WPARAM>(edit), 0);
    SendDlgItemMessageW(tab, IDC_COPIES_SPIN, UDM_SETRANGE32, kFewestCopies, kMostCopies);
    ShowCopies(tab, context);
}

int SelectedPosition(HWND tab, int list)
{
    return static_cast<int>(SendDlgItemMessageW(tab, list, CB_GETCURSEL, 0, 0));
}

} // namespace

void ShowQualities(HWND tab, PrinterUiContext* context)
{
    if (HasSingleQuality(context->dmWork))
        BuildSingleQualityList(tab, context);
    else
        BuildQualityList(tab, context);
}

void ShowPaper(HWND tab, PrinterUiContext* context)
{
    DriverDevMode& record = context->dmWork;
    if (!SelectByItemData(tab, IDC_PAPER, record.dmPublic.dmPaperSize)) {
        const LRESULT first = SendDlgItemMessageW(tab, IDC_PAPER, CB_GETITEMDATA, 0, 0);
        if (first != CB_ERR) {
            TakeOtherPaper(record, static_cast<short>(first));
            ShowQualities(tab, context);
        }
    }
    TakeOfferedPaper(record, record.dmPublic.dmPaperSize);
    const int position = SelectedPosition(tab, IDC_PAPER);
    if (position >= 0)
        ShowPaperOnMainDialog(context->hMainDialog, context, static_cast<size_t>(position));
    RepaintFitPicture(context);
}

void ShowColorMode(HWND tab, const PrinterUiContext* context)
{
    const uint8_t mode = context->dmWork.dmPrivate.bDocType;
    Check(tab, IDC_NATURAL, mode == kModeNatural);
    Check(tab, IDC_VIVID, mode == kModeVivid);
}

void ShowOrientation(HWND tab, const PrinterUiContext* context)
{
    const bool portrait = context->dmWork.dmPublic.dmOrientation == DMORIENT_PORTRAIT;
    CheckRadioButton(tab, IDC_PORTRAIT, IDC_LANDSCAPE, portrait ? IDC_PORTRAIT : IDC_LANDSCAPE);
}

void ShowCopies(HWND tab, const PrinterUiContext* context)
{
    const short copies = context->dmWork.dmPublic.dmCopies;
    SetDlgItemInt(tab, IDC_COPIES, static_cast<UINT>(copies), FALSE);
    SendDlgItemMessageW(tab, IDC_COPIES_SPIN, UDM_SETPOS32, 0, copies);
}

void ShowBasicSettings(HWND tab, PrinterUiContext* context)
{
    DriverDevMode& record = context->dmWork;
    CloseDuplexGap(tab, context);
    SetBorderLineItemHeight(tab);
    FitPictures(tab);
    ShowSlowDrying(tab, context);
    BuildMediaList(tab, context, record.dmPublic.dmMediaType);
    ShowQualities(tab, context);
    BuildColorTables(tab, context);
    BuildDocTypeTable(tab, context);
    ShowColorMode(tab, context);
    BuildPaperList(tab, context);
    ShowPaper(tab, context);
    UpdateThicknessAndBidi(record);
    BuildMultiplePageList(tab, context);
    ShowOrientation(tab, context);
    if (record.dmPublic.dmCopies == 0)
        record.dmPublic.dmCopies = kFewestCopies;
    PrepareCopies(tab, context);
    Check(tab, IDC_COLLATE, record.dmPrivate.dwCollate == 1);
    Check(tab, IDC_REVERSE_ORDER, record.dmPrivate.dwReverseOrder == 1);
    BuildPageOrderList(tab, context);
    BuildBorderLineList(tab, context);
    Check(tab, IDC_BORDERLESS, record.dmPrivate.bBorderless != 0);
    ShowWindow(GetDlgItem(tab, IDC_BORDERLESS_HELP), SW_SHOW);
    ShowDuplex(tab, context);
    ShowSource(tab, context);
    RefreshSidePanelTexts(context->hMainDialog, context);
    RepaintPreview(context);
    RepaintControl(tab, IDC_COLLATE_PICTURE);
    BuildThicknessList(tab, context, record.dmPrivate.wThickness);
    ClearExcludedPrintOrder(record);
    UpdateBasicEnables(tab, context);
}

void UpdateBasicEnables(HWND tab, PrinterUiContext* context)
{
    if (MakeLayoutSingle(context)) {
        BuildMultiplePageList(tab, context);
        BuildPageOrderList(tab, context);
        RepaintPreview(context);
        RefreshSidePanelLine(context->hMainDialog, context, IDC_LINE_LAYOUT);
    }
    for (const int control : BasicEnableControls())
        if (const HWND window = GetDlgItem(tab, control))
            EnableWindow(window,
                         IsBasicEnabled(context, control) &&
                             (HasTrays(context) || (control != IDC_SOURCE && control != IDC_SOURCE_LABEL)));
    for (const int picture : {IDC_NATURAL_PICTURE, IDC_VIVID_PICTURE})
        RepaintControl(tab, picture);
}

} // namespace psui
