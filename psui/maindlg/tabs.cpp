#include "psui/maindlg/tabs.h"

#include <commctrl.h>
#include <iterator>

#include "lang/ids/basic_tab.h"
#include "lang/ids/dialogs.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"
#include "psui/base/module.h"
#include "psui/maindlg/tab_procedures.h"
#include "psui/settings/language.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr int kTitleUnits = 64;
constexpr DWORD kNoTopic = 0;

bool Always(const PrinterUiContext*)
{
    return true;
}

int BasicFocus(HWND)
{
    return IDC_SLOW_DRYING;
}

struct TabRow
{
    UINT title; ///< string id
    WORD dialog;
    DLGPROC procedure;
    HWND PrinterUiContext::*window;
    bool (*exists)(const PrinterUiContext* context);
    int (*firstControl)(HWND tab); ///< takes the focus; 0 for none
    DWORD helpTopic;
};

// A tab more is a row more, in the order of the tabs.
constexpr TabRow kTabs[] = {
    {IDS_TAB_BASIC, IDD_BASIC, BasicTabDlgProc, &PrinterUiContext::hBasicTab, Always, BasicFocus, 0x1000},
};

void InsertTitle(HWND tabs, const PrinterUiContext* context, int index, UINT title)
{
    WCHAR text[kTitleUnits] = TEXT(" ");
    const int length = LoadModuleString(context->hPageRes, title, text + 1, kTitleUnits - 2);
    text[length + 1] = ' ';
    text[length + 2] = 0;
    TCITEMW item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    SendMessageW(tabs, TCM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

// The tab control's display area, in the dialog's coordinates.
RECT DisplayArea(HWND dialog, HWND tabs)
{
    RECT area = {};
    GetClientRect(tabs, &area);
    SendMessageW(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    MapWindowPoints(tabs, dialog, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

int SelectedIndex(HWND dialog)
{
    return static_cast<int>(SendDlgItemMessageW(dialog, IDC_TABS, TCM_GETCURSEL, 0, 0));
}

void ShowTab(const PrinterUiContext* context, int index)
{
    for (int i = 0; i < static_cast<int>(std::size(kTabs)); ++i)
        if (const HWND window = context->*kTabs[i].window; window && kTabs[i].exists(context))
            ShowWindow(window, i == index ? SW_SHOW : SW_HIDE);
}

int FirstTab(const PrinterUiContext* context)
{
    if (context->dmWork.dmPrivate.wModelType & kModelFavouritesFirst)
        for (int i = 0; i < static_cast<int>(std::size(kTabs)); ++i)
            if (kTabs[i].dialog == IDD_FAVOURITES && kTabs[i].exists(context))
                return i;
    return 0;
}

const TabRow* RowAt(int index)
{
    return index >= 0 && index < static_cast<int>(std::size(kTabs)) ? &kTabs[index] : nullptr;
}

} // namespace

bool HasFavouritesTab(const PrinterUiContext* context)
{
    return IsJapaneseLanguage() && context->dmWork.dmPrivate.dwNoFavourites == 0;
}

void CreateSettingTabs(HWND dialog, PrinterUiContext* context)
{
    InitCommonControls();
    const HWND tabs = GetDlgItem(dialog, IDC_TABS);
    for (int i = 0; i < static_cast<int>(std::size(kTabs)); ++i)
        if (kTabs[i].exists(context))
            InsertTitle(tabs, context, i, kTabs[i].title);
    for (const TabRow& row : kTabs)
        context->*row.window =
            row.exists(context) ? CreateDialogParamW(context->hPageRes, MAKEINTRESOURCEW(row.dialog), dialog,
                                                     row.procedure, reinterpret_cast<LPARAM>(context))
                                : nullptr;
    const RECT area = DisplayArea(dialog, tabs);
    for (const TabRow& row : kTabs)
        if (const HWND window = context->*row.window)
            MoveWindow(window, area.left, area.top, area.right - area.left, area.bottom - area.top, TRUE);

    const int first = FirstTab(context);
    SendMessageW(tabs, TCM_SETCURSEL, static_cast<WPARAM>(first), 0);
    if (first != 0)
        SendMessageW(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(first), 0);
    ShowTab(context, first);
}

HWND SelectedTab(HWND dialog, const PrinterUiContext* context)
{
    const TabRow* const row = RowAt(SelectedIndex(dialog));
    return row && row->exists(context) ? context->*row->window : nullptr;
}

void OnTabSelected(HWND dialog, const PrinterUiContext* context)
{
    const HWND focus = GetFocus();
    const int index = SelectedIndex(dialog);
    const TabRow* const row = RowAt(index);
    if (!row)
        return;
    ShowTab(context, index);
    const HWND tab = context->*row->window;
    if (!tab || focus == GetDlgItem(dialog, IDC_TABS))
        return;
    if (const int control = row->firstControl(tab))
        SetFocus(GetDlgItem(tab, control));
}

DWORD HelpTopicOfTab(HWND dialog)
{
    const TabRow* const row = RowAt(SelectedIndex(dialog));
    return row ? row->helpTopic : kNoTopic;
}

} // namespace psui
