#include <algorithm>
#include <iterator>

#include <windows.h>

#include <commctrl.h>

#include "lang/ids/advanced_tab.h"
#include "lang/ids/basic_tab.h"
#include "lang/ids/dialogs.h"
#include "lang/ids/main_dialog.h"
#include "psui/base/module.h"
#include "psui/controls/hooks.h"
#include "psui/maindlg/apply_state.h"
#include "psui/maindlg/basic_messages.h"
#include "psui/maindlg/basic_rules.h"
#include "psui/maindlg/basic_show.h"
#include "psui/maindlg/combo_list.h"
#include "psui/maindlg/drawing.h"
#include "psui/maindlg/help.h"
#include "psui/maindlg/notice.h"
#include "psui/maindlg/option_lists.h"
#include "psui/maindlg/option_tables.h"
#include "psui/maindlg/papers.h"
#include "psui/maindlg/qualities.h"
#include "psui/maindlg/rules.h"
#include "psui/maindlg/side_panel.h"
#include "psui/maindlg/sub_dialogs.h"
#include "psui/maindlg/tab_procedures.h"
#include "psui/maindlg/tabs.h"
#include "psui/res/pictures.h"
#include "psui/settings/environment.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

PrinterUiContext* ContextOf(HWND tab)
{
    return reinterpret_cast<PrinterUiContext*>(GetWindowLongPtrW(tab, GWLP_USERDATA));
}

// What a handler works on.
struct Tab
{
    HWND window;
    PrinterUiContext* context;

    DriverDevMode& record() const { return context->dmWork; }
    PrivateDevMode& settings() const { return context->dmWork.dmPrivate; }

    int Selected(int list) const
    {
        return static_cast<int>(SendDlgItemMessageW(window, list, CB_GETCURSEL, 0, 0));
    }
    /// Item data of the selected entry; `otherwise` when none is selected.
    LRESULT SelectedValue(int list, LRESULT otherwise) const
    {
        const int position = Selected(list);
        if (position < 0)
            return otherwise;
        return SendDlgItemMessageW(window, list, CB_GETITEMDATA, static_cast<WPARAM>(position), 0);
    }
    bool IsChecked(int control) const { return IsDlgButtonChecked(window, control) == BST_CHECKED; }
    void Check(int control, bool on) const
    {
        CheckDlgButton(window, control, on ? BST_CHECKED : BST_UNCHECKED);
    }
    int Show(BasicMessage message) const { return ShowBasicMessage(window, context, message); }
    void ShowLine(int line) const { RefreshSidePanelLine(context->hMainDialog, context, line); }
};

void FinishChange(const Tab& tab)
{
    ClearExcludedPrintOrder(tab.record());
    UpdateDuplex(tab.record());
    UpdateBasicEnables(tab.window, tab.context);
    UpdateApplyButton(tab.context->hMainDialog, tab.context);
}

// Gives tray 2 up, after telling why.
bool LeaveTray2(const Tab& tab, BasicMessage why)
{
    if (why == BasicMessage::None)
        return false;
    tab.Show(why);
    tab.record().dmPublic.dmDefaultSource = kSourceTray1;
    BuildSourceList(tab.window, tab.context, kSourceTray1);
    return true;
}

void ShowLayouts(const Tab& tab)
{
    BuildMultiplePageList(tab.window, tab.context);
    BuildPageOrderList(tab.window, tab.context);
    RepaintPreview(tab.context);
    tab.ShowLine(IDC_LINE_LAYOUT);
}

void OnMedia(const Tab& tab)
{
    DriverDevMode& record = tab.record();
    const DWORD current = record.dmPublic.dmMediaType;
    const auto media = static_cast<DWORD>(tab.SelectedValue(IDC_MEDIA, static_cast<LRESULT>(current)));
    if (const BasicMessage refusal = MediaRefusal(record, media); refusal != BasicMessage::None) {
        tab.Show(refusal);
        BuildMediaList(tab.window, tab.context, current);
        return;
    }
    TakeMedia(record, media);
    ShowQualities(tab.window, tab.context);
    tab.Check(IDC_SLOW_DRYING, IsTwoSidedMedia(media) && tab.settings().dwSdPaper == 1);
    if (media == kMediaInkjetHagaki)
        tab.Show(BasicMessage::InkjetHagaki);
    if (IsTransparency(media)) {
        for (const int box : {IDC_MIRROR, IDC_REVERSE})
            CheckDlgButton(tab.context->hAdvancedTab, box, BST_UNCHECKED);
        tab.ShowLine(IDC_LINE_MIRROR);
        tab.ShowLine(IDC_LINE_REVERSE);
    }
    if (!IsPlainMedia(media) && record.dmPublic.dmDefaultSource == kSourceTray2)
        LeaveTray2(tab, BasicMessage::Tray2Excluded);
    tab.ShowLine(IDC_LINE_MEDIA);
    tab.ShowLine(IDC_LINE_QUALITY);
    RepaintPreview(tab.context);
    FinishChange(tab);
}

void OnQuality(const Tab& tab)
{
    if (!TakeQuality(tab.record(), tab.Selected(IDC_QUALITY)))
        return;
    bool refused = false;
    if (QualityNeedsBorders(tab.record())) {
        tab.Show(BasicMessage::BorderlessExcluded);
        refused = true;
    } else if (tab.settings().bQualityLevel == kQualityPhotoFine) {
        refused = tab.Show(BasicMessage::BestQuality) == IDNO;
    }
    if (refused)
        BuildDefaultQualityList(tab.window, tab.context);
    UpdateBidiMode(tab.record());
    tab.ShowLine(IDC_LINE_QUALITY);
    RepaintPreview(tab.context);
    FinishChange(tab);
}

// A row of one of the model's tables, and the value where the model does not say so much.
struct OptionPlace
{
    OptionTableIndex table;
    size_t row;
    uint8_t otherwise;

    uint8_t ValueIn(const PrinterUiContext* context) const
    {
        return static_cast<uint8_t>(OptionValueAt(context, table, row, otherwise));
    }
};

void OnColorMode(const Tab& tab, int control)
{
    constexpr OptionPlace kNatural[] = {{kDocTypeTable, 2, 2}, {kCmTable, 1, 0}};
    constexpr OptionPlace kVivid[] = {{kDocTypeTable, 1, 1}, {kCmTable, 0, 1}};
    const OptionPlace(&mode)[2] = control == IDC_NATURAL ? kNatural : kVivid;
    tab.settings().bDocType = mode[0].ValueIn(tab.context);
    tab.settings().bColorMatching = mode[1].ValueIn(tab.context);
    ShowColorMode(tab.window, tab.context);
    tab.ShowLine(IDC_LINE_COLOR_MODE);
    FinishChange(tab);
}

// The user's own size: named in its dialog, listed anew.
void EditUserPaper(const Tab& tab)
{
    RunUserPaperDialog(tab.window, tab.context);
    BuildPaperList(tab.window, tab.context);
    if (const HWND advanced = tab.context->hAdvancedTab) {
        BuildFitPaperList(advanced, tab.context, IDC_FIT_PAPER);
        SelectByItemData(advanced, IDC_FIT_PAPER, tab.settings().wOutputPaper);
    }
    ShowPaper(tab.window, tab.context);
}

void ShowPaperNotice(const Tab& tab, const PaperNotice& notice)
{
    if (notice.photoDialog)
        RunNoticeDialog(tab.window, tab.context);
    else
        tab.Show(notice.message);
}

void OnPaper(const Tab& tab)
{
    DriverDevMode& record = tab.record();
    const short former = record.dmPublic.dmPaperSize;
    const auto paper = static_cast<short>(tab.SelectedValue(IDC_PAPER, former));
    if (const BasicMessage refusal = PaperRefusal(record, paper); refusal != BasicMessage::None) {
        tab.Show(refusal);
        SelectByItemData(tab.window, IDC_PAPER, former);
        return;
    }
    TakePaper(record, paper);
    tab.Check(IDC_BORDERLESS, record.dmPrivate.bBorderless == 1);
    ShowPaper(tab.window, tab.context);
    if (paper == DMPAPER_USER)
        EditUserPaper(tab);
    UpdateThicknessAndBidi(record);
    RepaintPreview(tab.context);
    ShowQualities(tab.window, tab.context);
    tab.ShowLine(IDC_LINE_QUALITY);
    const bool tray2Failed = record.dmPublic.dmDefaultSource == kSourceTray2 && FailsTray2(record);
    LeaveTray2(tab, SourceRefusal(record));
    ShowPaperNotice(tab, NoticeAfterPaper(record, former, paper, tray2Failed));
    tab.ShowLine(IDC_LINE_BORDERLESS);
    FinishChange(tab);
}

void OnBorderless(const Tab& tab)
{
    DriverDevMode& record = tab.record();
    TakeBorderless(record, tab.IsChecked(IDC_BORDERLESS));
    ShowPaper(tab.window, tab.context);
    // The model may not offer the paper's form; the one that stands in for it decides.
    const bool on = record.dmPrivate.bBorderless != 0;
    tab.Check(IDC_BORDERLESS, on);
    ShowQualities(tab.window, tab.context);
    UpdateThicknessAndBidi(record);
    if (on && record.dmPublic.dmDefaultSource == kSourceTray2)
        LeaveTray2(tab, BasicMessage::Tray2PrintsSimply);
    else if (on)
        tab.Show(BasicMessage::BorderlessOn);
    tab.ShowLine(IDC_LINE_BORDERLESS);
    tab.ShowLine(IDC_LINE_QUALITY);
    RepaintPreview(tab.context);
    FinishChange(tab);
}

void OnOrientation(const Tab& tab, int control)
{
    TakeOrientation(tab.record(), control == IDC_PORTRAIT ? DMORIENT_PORTRAIT : DMORIENT_LANDSCAPE);
    CheckRadioButton(tab.window, IDC_PORTRAIT, IDC_LANDSCAPE, control);
    RepaintPreview(tab.context);
    BuildPageOrderList(tab.window, tab.context);
    FinishChange(tab);
}

// The number in the edit box; 0 for nothing or no number.
int CopiesShown(const Tab& tab)
{
    BOOL isNumber = FALSE;
    const UINT copies = GetDlgItemInt(tab.window, IDC_COPIES, &isNumber, FALSE);
    return isNumber && copies <= kMostCopies ? static_cast<int>(copies) : 0;
}

void UndoCopies(const Tab& tab)
{
    if (SendDlgItemMessageW(tab.window, IDC_COPIES, EM_CANUNDO, 0, 0)) {
        SendDlgItemMessageW(tab.window, IDC_COPIES, EM_UNDO, 0, 0);
        SendDlgItemMessageW(tab.window, IDC_COPIES, EM_EMPTYUNDOBUFFER, 0, 0);
    }
    // What was typed in several steps has no single undo; the record has the last number that held.
    if (!AreCopies(CopiesShown(tab)))
        ShowCopies(tab.window, tab.context);
}

void AfterCopies(const Tab& tab)
{
    RepaintControl(tab.window, IDC_COLLATE_PICTURE);
    tab.ShowLine(IDC_LINE_COPIES);
    FinishChange(tab);
}

void OnCopiesChanged(const Tab& tab)
{
    const int copies = CopiesShown(tab);
    if (!AreCopies(copies)) {
        if (GetWindowTextLengthW(GetDlgItem(tab.window, IDC_COPIES)) > 0) {
            MessageBeep(MB_ICONEXCLAMATION);
            UndoCopies(tab);
        }
        return;
    }
    if (copies == tab.record().dmPublic.dmCopies)
        return;
    TakeCopies(tab.record(), copies);
    SendDlgItemMessageW(tab.window, IDC_COPIES_SPIN, UDM_SETPOS32, 0, copies);
    AfterCopies(tab);
}

void OnCopiesLeft(const Tab& tab)
{
    if (!AreCopies(CopiesShown(tab)))
        UndoCopies(tab);
    AfterCopies(tab);
}

void OnCollate(const Tab& tab)
{
    TakeCollate(tab.record(), tab.IsChecked(IDC_COLLATE));
    RepaintControl(tab.window, IDC_COLLATE_PICTURE);
    FinishChange(tab);
}

void OnReverseOrder(const Tab& tab)
{
    TakeReverseOrder(tab.record(), tab.IsChecked(IDC_REVERSE_ORDER));
    RepaintControl(tab.window, IDC_COLLATE_PICTURE);
    FinishChange(tab);
}

// Scaling ends, here, on the main dialog and on the Advanced tab.
void ShowScalingEnded(const Tab& tab)
{
    ShowPaper(tab.window, tab.context);
    tab.ShowLine(IDC_LINE_SCALING);
    SetDlgItemTextW(tab.context->hMainDialog, IDC_LINE_FIGURE, TEXT(""));
    const HWND advanced = tab.context->hAdvancedTab;
    if (!advanced)
        return;
    WCHAR name[kEntryUnits];
    LoadModuleString(tab.context->hPageRes, PaperShortName(tab.record().dmPublic.dmPaperSize), name,
                     kEntryUnits);
    SetDlgItemTextW(advanced, IDC_SCALING_PAPER, name);
    CheckRadioButton(advanced, IDC_SCALING_OFF, IDC_SCALING_FREE, IDC_SCALING_OFF);
    PostMessageW(advanced, WM_COMMAND, MAKEWPARAM(IDC_SCALING_OFF, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(advanced, IDC_SCALING_OFF)));
}

void OnLayout(const Tab& tab)
{
    DriverDevMode& record = tab.record();
    const int position = tab.Selected(IDC_LAYOUT);
    if (LayoutEndsScaling(record, position)) {
        if (tab.Show(BasicMessage::LayoutEndsScaling) == IDCANCEL) {
            BuildMultiplePageList(tab.window, tab.context);
            return;
        }
        EndScaling(record);
        ShowScalingEnded(tab);
        // Now the document's own paper has to come from the tray.
        if (record.dmPublic.dmDefaultSource == kSourceTray2 && FailsTray2(record))
            LeaveTray2(tab, BasicMessage::Tray2Excluded);
    }
    TakeLayout(record, position, true);
    ShowPaper(tab.window, tab.context); // with its scale
    BuildPageOrderList(tab.window, tab.context);
    BuildBorderLineList(tab.window, tab.context);
    UpdateThicknessAndBidi(record);
    tab.ShowLine(IDC_LINE_LAYOUT);
    RepaintPreview(tab.context);
    FinishChange(tab);
}

void OnPageOrder(const Tab& tab)
{
    if (tab.Selected(IDC_PAGE_ORDER) < 0)
        return;
    TakePageOrder(tab.record(), static_cast<int>(tab.SelectedValue(IDC_PAGE_ORDER, 0)));
    BuildPageOrderList(tab.window, tab.context);
    RepaintPreview(tab.context);
    FinishChange(tab);
}

void OnBorderLine(const Tab& tab)
{
    if (tab.Selected(IDC_BORDER_LINE) < 0)
        SendDlgItemMessageW(tab.window, IDC_BORDER_LINE, CB_SETCURSEL, 0, 0);
    tab.settings().bBorderLine = static_cast<uint8_t>(tab.SelectedValue(IDC_BORDER_LINE, 1));
    FinishChange(tab);
}

void OnDuplex(const Tab& tab)
{
    const bool on = tab.IsChecked(IDC_DUPLEX);
    if (on && tab.record().dmPublic.dmDefaultSource == kSourceTray2)
        LeaveTray2(tab, BasicMessage::Tray2PrintsSimply);
    TakeDuplex(tab.record(), on);
    if (!on)
        ShowLayouts(tab);
    tab.ShowLine(IDC_LINE_DUPLEX);
    FinishChange(tab);
}

void OnDuplexSettings(const Tab& tab)
{
    PrivateDevMode& settings = tab.settings();
    const PrivateDevMode former = settings;
    if (RunDuplexDialog(tab.window, tab.context) == IDCANCEL) {
        settings.wDuplexFlags = former.wDuplexFlags;
        settings.bBindingFlags = former.bBindingFlags;
        settings.bBookletFlags = former.bBookletFlags;
        settings.dwSavedNup = former.dwSavedNup;
        if (!(settings.bBookletFlags & kBookletOn))
            settings.dwPagesPerSheet = static_cast<int32_t>(settings.dwSavedNup);
        ShowLayouts(tab);
    }
    tab.ShowLine(IDC_LINE_DUPLEX);
    FinishChange(tab);
}

void OnSource(const Tab& tab)
{
    short& source = tab.record().dmPublic.dmDefaultSource;
    source = static_cast<short>(tab.SelectedValue(IDC_SOURCE, source));
    RepaintControl(tab.window, IDC_COLLATE_PICTURE);
    LeaveTray2(tab, SourceRefusal(tab.record()));
    FinishChange(tab);
}

void OnSlowDrying(const Tab& tab)
{
    TakeSlowDrying(tab.record(), tab.IsChecked(IDC_SLOW_DRYING));
    FinishChange(tab);
}

void OnDefault(const Tab& tab)
{
    const DWORD media = OptionValueAt(tab.context, kMediaTable, 0, kMediaPlain);
    TakeBasicDefaults(tab.record(), tab.context->pModel, media, IsMetricCountry());
    ShowBasicSettings(tab.window, tab.context);
    SetFocus(GetDlgItem(tab.window, IDC_DEFAULT));
    UpdateApplyButton(tab.context->hMainDialog, tab.context);
    if (tab.context->hAdvancedTab)
        SendMessageW(tab.context->hAdvancedTab, kRefreshTab, 0, 0);
}

// Commands: which notification of which control leads where.

struct CommandRow
{
    int control;
    UINT code;
    void (*handle)(const Tab& tab);
};

template <void (*handle)(const Tab&, int), int control>
void With(const Tab& tab)
{
    handle(tab, control);
}

constexpr CommandRow kCommands[] = {
    {IDC_MEDIA, CBN_SELCHANGE, OnMedia},
    {IDC_QUALITY, CBN_SELCHANGE, OnQuality},
    {IDC_NATURAL, BN_CLICKED, With<OnColorMode, IDC_NATURAL>},
    {IDC_VIVID, BN_CLICKED, With<OnColorMode, IDC_VIVID>},
    {IDC_PAPER, CBN_SELCHANGE, OnPaper},
    {IDC_BORDERLESS, BN_CLICKED, OnBorderless},
    {IDC_PORTRAIT, BN_CLICKED, With<OnOrientation, IDC_PORTRAIT>},
    {IDC_LANDSCAPE, BN_CLICKED, With<OnOrientation, IDC_LANDSCAPE>},
    {IDC_COPIES, EN_CHANGE, OnCopiesChanged},
    {IDC_COPIES, EN_KILLFOCUS, OnCopiesLeft},
    {IDC_COLLATE, BN_CLICKED, OnCollate},
    {IDC_REVERSE_ORDER, BN_CLICKED, OnReverseOrder},
    {IDC_LAYOUT, CBN_SELCHANGE, OnLayout},
    {IDC_PAGE_ORDER, CBN_SELCHANGE, OnPageOrder},
    {IDC_BORDER_LINE, CBN_SELCHANGE, OnBorderLine},
    {IDC_DUPLEX, BN_CLICKED, OnDuplex},
    {IDC_DUPLEX_SETTINGS, BN_CLICKED, OnDuplexSettings},
    {IDC_SOURCE, CBN_SELCHANGE, OnSource},
    {IDC_SLOW_DRYING, BN_CLICKED, OnSlowDrying},
    {IDC_DEFAULT, BN_CLICKED, OnDefault},
};

const CommandRow* FindCommand(int control, UINT code)
{
    const auto* found = std::find_if(std::begin(kCommands), std::end(kCommands), [=](const CommandRow& row) {
        return row.control == control && row.code == code;
    });
    return found == std::end(kCommands) ? nullptr : found;
}

// An open list selects what the pointer passes over, without a word, and may be closed on it. So what was
// selected when it was last looked at is kept with the list, and looked at again once it is closed and has
// told whatever it tells.

constexpr UINT kListSettled = 0x7001; // notification code of our own

void NoteSelection(const Tab& tab, int list)
{
    SetWindowLongPtrW(GetDlgItem(tab.window, list), GWLP_USERDATA, tab.Selected(list));
}

bool IsSelectionNoted(const Tab& tab, int list)
{
    return GetWindowLongPtrW(GetDlgItem(tab.window, list), GWLP_USERDATA) == tab.Selected(list);
}

void OnListChanged(const Tab& tab, const CommandRow& change)
{
    NoteSelection(tab, change.control); // a message may come while the handler shows one
    change.handle(tab);
    NoteSelection(tab, change.control);
}

BOOL OnListCommand(const Tab& tab, const CommandRow& change, UINT code)
{
    switch (code) {
    case CBN_DROPDOWN:
        NoteSelection(tab, change.control);
        return TRUE;
    case CBN_SELCHANGE:
        OnListChanged(tab, change);
        return TRUE;
    case CBN_CLOSEUP:
        PostMessageW(tab.window, WM_COMMAND, MAKEWPARAM(change.control, kListSettled), 0);
        return TRUE;
    case kListSettled:
        if (!IsSelectionNoted(tab, change.control))
            OnListChanged(tab, change);
        return TRUE;
    default:
        return FALSE;
    }
}

BOOL OnCommand(const Tab& tab, int control, UINT code)
{
    if (const CommandRow* const change = FindCommand(control, CBN_SELCHANGE))
        return OnListCommand(tab, *change, code);
    const CommandRow* const row = FindCommand(control, code);
    if (row)
        row->handle(tab);
    return row != nullptr;
}

// Help pictures: small signs beside three controls, which explain those.

struct HelpPicture
{
    int picture;
    int explained;
};
constexpr HelpPicture kHelpPictures[] = {
    {IDC_SLOW_DRYING_HELP, IDC_SLOW_DRYING},
    {IDC_BORDERLESS_HELP, IDC_BORDERLESS},
    {IDC_COLOR_MODE_HELP, IDC_COLOR_MODE_LABEL},
};

const HelpPicture* HelpPictureAt(HWND tab, LPARAM place)
{
    POINT point = {static_cast<short>(LOWORD(place)), static_cast<short>(HIWORD(place))};
    ClientToScreen(tab, &point);
    for (const HelpPicture& each : kHelpPictures) {
        const HWND window = GetDlgItem(tab, each.picture);
        RECT box;
        if (window && IsWindowVisible(window) && GetWindowRect(window, &box) && PtInRect(&box, point))
            return &each;
    }
    return nullptr;
}

void OnMouseMove(const Tab& tab, LPARAM place)
{
    if (HelpPictureAt(tab.window, place)) {
        SetCursor(LoadCursorW(hOwnModule, MAKEINTRESOURCEW(IDC_HAND_CURSOR)));
        SetCapture(tab.window);
    } else if (GetCapture() == tab.window) {
        ReleaseCapture();
    }
}

void OnClick(const Tab& tab, LPARAM place)
{
    if (const HelpPicture* picture = HelpPictureAt(tab.window, place))
        tab.context->hContextHelpWindow = ShowContextHelp(tab.window, tab.context, picture->explained);
}

BOOL EraseBackground(HDC dc)
{
    RECT box;
    GetClipBox(dc, &box);
    FillRect(dc, &box, GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
}

void OnInit(HWND window, PrinterUiContext* context)
{
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(context));
    context->hBasicTab = window;
    InstallKeyButton(window, IDC_DUPLEX_SETTINGS);
    InstallKeyButton(window, IDC_DEFAULT);
    ShowBasicSettings(window, context);
}

} // namespace

INT_PTR CALLBACK BasicTabDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG) {
        OnInit(window, reinterpret_cast<PrinterUiContext*>(lParam));
        return FALSE; // the main dialog sets the focus
    }
    const Tab tab = {window, ContextOf(window)};
    if (!tab.context)
        return FALSE;
    switch (message) {
    case kRefreshTab:
        ShowBasicSettings(window, tab.context);
        return TRUE;
    case WM_COMMAND:
        return OnCommand(tab, LOWORD(wParam), HIWORD(wParam));
    case WM_ERASEBKGND:
        return EraseBackground(reinterpret_cast<HDC>(wParam));
    case WM_DRAWITEM:
        DrawContextItem(window, reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), tab.context);
        return TRUE;
    case WM_HELP:
        tab.context->hContextHelpWindow =
            ShowContextHelp(window, tab.context, reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId);
        return TRUE;
    case WM_CONTEXTMENU:
        tab.context->hContextHelpWindow = ShowContextHelp(window, tab.context, 0);
        return TRUE;
    case WM_MOUSEMOVE:
        OnMouseMove(tab, lParam);
        return TRUE;
    case WM_LBUTTONDOWN:
        OnClick(tab, lParam);
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace psui
