// The window of a sheet: a tab control, one child dialog a page, and a row of buttons. Pages are made when
// they are first shown and live as long as the sheet.
#include "host/shell/compstui/window.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <commctrl.h>

#include "host/shell/compstui/page_template.h"

namespace compstui {
namespace {

constexpr int kTabControl = 0x3020;
constexpr int kApplyButton = 0x3021;

// Dialog units
constexpr int kMargin = 4;
constexpr int kGap = 4;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;
constexpr SIZE kSmallestPage = {212, 114};

/// A dialog template without controls, in the platform's layout.
struct EmptyTemplate
{
    DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_3DLOOK | DS_SETFONT | DS_CENTER;
    DWORD extendedStyle = WS_EX_CONTROLPARENT;
    WORD itemCount = 0;
    SHORT left = 0, top = 0, width = 0, height = 0;
    WORD menu = 0, windowClass = 0, title = 0;
    WORD pointSize = 8;
    WCHAR face[std::size(TEXT("MS Shell Dlg"))] = TEXT("MS Shell Dlg");
};
static_assert(offsetof(EmptyTemplate, menu) == sizeof(DLGTEMPLATE));

constexpr WORD kJapanese = 0x11; // primary language

/// The sheet's own texts.
struct Words
{
    const WCHAR* ok;
    const WCHAR* cancel;
    const WCHAR* close;
    const WCHAR* apply;
    const WCHAR* help;
    const WCHAR* properties; ///< what follows the caller's title
};

constexpr Words kEnglishWords = {TEXT("OK"),     TEXT("Cancel"), TEXT("Close"),
                                 TEXT("&Apply"), TEXT("Help"),   TEXT(" Properties")};
constexpr Words kJapaneseWords = {TEXT("OK"),       TEXT("キャンセル"), TEXT("閉じる"),
                                  TEXT("適用(&A)"), TEXT("ヘルプ"),     TEXT("のプロパティ")};

const Words& SystemWords()
{
    return (GetUserDefaultUILanguage() & 0x3FF) == kJapanese ? kJapaneseWords : kEnglishWords;
}

Sheet* SheetOf(HWND window)
{
    return reinterpret_cast<Sheet*>(GetWindowLongPtrW(window, DWLP_USER));
}

HWND TabControl(const Sheet& sheet)
{
    return GetDlgItem(sheet.window, kTabControl);
}

Node& ActivePage(const Sheet& sheet)
{
    return *sheet.pages[sheet.active];
}

// Notifications

/// Sends a page a notification; what its dialog procedure left as the result.
LONG_PTR Notify(const Sheet& sheet, const Node& page, UINT code, LPARAM param = FALSE)
{
    if (page.window == nullptr)
        return 0;
    PSHNOTIFY notification = {{sheet.window, 0, code}, param};
    return SendMessageW(page.window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification));
}

/// Whether the page that is shown lets the user leave it.
bool MayLeavePage(const Sheet& sheet)
{
    return Notify(sheet, ActivePage(sheet), PSN_KILLACTIVE) == 0;
}

// Layout

SIZE UnitsToPixels(HWND dialog, SIZE units)
{
    RECT rectangle = {0, 0, units.cx, units.cy};
    MapDialogRect(dialog, &rectangle);
    return {rectangle.right, rectangle.bottom};
}

SIZE LargestPage(const Sheet& sheet)
{
    SIZE largest = kSmallestPage;
    for (const Node* const page : sheet.pages) {
        const SIZE units = TemplateUnits(page->dialog);
        largest = {std::max(largest.cx, units.cx), std::max(largest.cy, units.cy)};
    }
    return UnitsToPixels(sheet.window, largest);
}

void Place(HWND window, const RECT& rectangle)
{
    SetWindowPos(window, nullptr, rectangle.left, rectangle.top, rectangle.right - rectangle.left,
                 rectangle.bottom - rectangle.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The page's place inside the sheet.
RECT PageRectangle(const Sheet& sheet)
{
    RECT rectangle;
    GetWindowRect(TabControl(sheet), &rectangle);
    MapWindowPoints(nullptr, sheet.window, reinterpret_cast<POINT*>(&rectangle), 2);
    TabCtrl_AdjustRect(TabControl(sheet), FALSE, &rectangle);
    return rectangle;
}

/// Buttons from the right edge leftwards, as far as they are there.
void PlaceButtons(const Sheet& sheet, int right, int top)
{
    const SIZE button = UnitsToPixels(sheet.window, {kButtonWidth, kButtonHeight});
    const int gap = UnitsToPixels(sheet.window, {kGap, kGap}).cx;
    for (const int id : {IDHELP, kApplyButton, IDCANCEL, IDOK}) {
        const HWND window = GetDlgItem(sheet.window, id);
        if (window == nullptr)
            continue;
        Place(window, {right - button.cx, top, right, top + button.cy});
        right -= button.cx + gap;
    }
}

void LayOut(const Sheet& sheet)
{
    const SIZE margin = UnitsToPixels(sheet.window, {kMargin, kMargin});
    const SIZE page = LargestPage(sheet);
    RECT tab = {0, 0, page.cx, page.cy};
    TabCtrl_AdjustRect(TabControl(sheet), TRUE, &tab);
    tab = {margin.cx, margin.cy, margin.cx + tab.right - tab.left, margin.cy + tab.bottom - tab.top};
    Place(TabControl(sheet), tab);
    PlaceButtons(sheet, tab.right, tab.bottom + margin.cy);
    const SIZE button = UnitsToPixels(sheet.window, {kButtonWidth, kButtonHeight});
    RECT frame = {0, 0, tab.right + margin.cx, tab.bottom + 2 * margin.cy + button.cy};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtrW(sheet.window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrW(sheet.window, GWL_EXSTYLE)));
    SetWindowPos(sheet.window, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
}

void Centre(HWND window, HWND owner)
{
    RECT area = {}, own;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    GetWindowRect(window, &own);
    RECT over = area;
    if (owner != nullptr)
        GetWindowRect(owner, &over);
    const LONG width = own.right - own.left, height = own.bottom - own.top;
    const LONG left = (over.left + over.right - width) / 2, top = (over.top + over.bottom - height) / 2;
    SetWindowPos(window, nullptr, std::max(area.left, std::min(left, area.right - width)),
                 std::max(area.top, std::min(top, area.bottom - height)), 0, 0,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOSIZE);
}

// Pages

/// Makes a page's window. Its dialog procedure may run dialogs of its own meanwhile.
bool CreatePage(const Sheet& sheet, Node& page)
{
    if (page.window != nullptr)
        return true;
    page.window = CreateDialogIndirectParamW(
        page.page().hInstance, reinterpret_cast<LPCDLGTEMPLATEW>(page.dialog.data()), sheet.window,
        page.page().pfnDlgProc, reinterpret_cast<LPARAM>(page.record.data()));
    return page.window != nullptr;
}

void ShowPage(Sheet& sheet, size_t index)
{
    const size_t before = sheet.active;
    sheet.active = index;
    TabCtrl_SetCurSel(TabControl(sheet), static_cast<int>(index));
    Node& page = ActivePage(sheet);
    if (!CreatePage(sheet, page))
        return;
    Place(page.window, PageRectangle(sheet));
    if (before != index && sheet.pages[before]->window != nullptr)
        ShowWindow(sheet.pages[before]->window, SW_HIDE);
    Notify(sheet, page, PSN_SETACTIVE);
    SetWindowPos(page.window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
    EnableWindow(GetDlgItem(sheet.window, IDHELP), (page.page().dwFlags & PSP_HASHELP) != 0);
}

void FocusPage(const Sheet& sheet)
{
    const HWND first = GetNextDlgTabItem(ActivePage(sheet).window, nullptr, FALSE);
    SetFocus(first != nullptr ? first : TabControl(sheet));
}

/// Leaves the page that is shown for another one, if it lets.
bool TurnTo(Sheet& sheet, size_t index)
{
    if (index >= sheet.pages.size() || !MayLeavePage(sheet))
        return false;
    ShowPage(sheet, index);
    return true;
}

// Buttons

/// Lets every page that was shown take over what the user set. False when one of them refuses.
bool Apply(Sheet& sheet, bool closing)
{
    if (!MayLeavePage(sheet))
        return false;
    for (size_t index = 0; index < sheet.pages.size(); ++index) {
        const LONG_PTR answer = Notify(sheet, *sheet.pages[index], PSN_APPLY, closing);
        if (answer == PSNRET_INVALID && index != sheet.active)
            ShowPage(sheet, index);
        if (answer == PSNRET_INVALID || answer == PSNRET_INVALID_NOCHANGEPAGE)
            return false;
    }
    return true;
}

void OnOk(Sheet& sheet)
{
    if (Apply(sheet, true))
        sheet.ended = true;
}

void OnCancel(Sheet& sheet)
{
    if (Notify(sheet, ActivePage(sheet), PSN_QUERYCANCEL) != 0)
        return;
    for (const Node* const page : sheet.pages)
        Notify(sheet, *page, PSN_RESET, TRUE);
    sheet.ended = true;
}

void OnApply(Sheet& sheet)
{
    if (!Apply(sheet, false))
        return;
    EnableWindow(GetDlgItem(sheet.window, kApplyButton), FALSE);
    Notify(sheet, ActivePage(sheet), PSN_SETACTIVE);
}

void OnHelp(Sheet& sheet)
{
    Notify(sheet, ActivePage(sheet), PSN_HELP);
}

struct ButtonRow
{
    int id;
    int press; ///< PSBTN_ number
    void (*click)(Sheet& sheet);
    const WCHAR* Words::*text;
};

constexpr ButtonRow kButtons[] = {
    {IDOK, PSBTN_OK, OnOk, &Words::ok},
    {IDCANCEL, PSBTN_CANCEL, OnCancel, &Words::cancel},
    {kApplyButton, PSBTN_APPLYNOW, OnApply, &Words::apply},
    {IDHELP, PSBTN_HELP, OnHelp, &Words::help},
};

void Click(Sheet& sheet, int ButtonRow::*key, int value)
{
    const auto row = std::find_if(std::begin(kButtons), std::end(kButtons),
                                  [=](const ButtonRow& each) { return each.*key == value; });
    if (row != std::end(kButtons))
        row->click(sheet);
}

// Messages to the sheet

struct MessageRow
{
    UINT message;
    LRESULT (*answer)(Sheet& sheet, WPARAM wParam, LPARAM lParam);
};

constexpr MessageRow kMessages[] = {
    {PSM_SETCURSEL, [](Sheet& sheet, WPARAM index, LPARAM) -> LRESULT { return TurnTo(sheet, index); }},
    {PSM_CHANGED,
     [](Sheet& sheet, WPARAM, LPARAM) -> LRESULT {
         EnableWindow(GetDlgItem(sheet.window, kApplyButton), TRUE);
         return 0;
     }},
    {PSM_UNCHANGED,
     [](Sheet& sheet, WPARAM, LPARAM) -> LRESULT {
         EnableWindow(GetDlgItem(sheet.window, kApplyButton), FALSE);
         return 0;
     }},
    {PSM_CANCELTOCLOSE,
     [](Sheet& sheet, WPARAM, LPARAM) -> LRESULT {
         EnableWindow(GetDlgItem(sheet.window, IDCANCEL), FALSE);
         SetDlgItemTextW(sheet.window, IDOK, SystemWords().close);
         return 0;
     }},
    {PSM_QUERYSIBLINGS,
     [](Sheet& sheet, WPARAM wParam, LPARAM lParam) -> LRESULT {
         for (const Node* const page : sheet.pages) {
             if (page->window == nullptr)
                 continue;
             if (const LRESULT answer = SendMessageW(page->window, PSM_QUERYSIBLINGS, wParam, lParam))
                 return answer;
         }
         return 0;
     }},
    {PSM_APPLY,
     [](Sheet& sheet, WPARAM, LPARAM) -> LRESULT {
         const bool applied = Apply(sheet, false);
         if (applied)
             EnableWindow(GetDlgItem(sheet.window, kApplyButton), FALSE);
         return applied;
     }},
    {PSM_PRESSBUTTON,
     [](Sheet& sheet, WPARAM button, LPARAM) -> LRESULT {
         Click(sheet, &ButtonRow::press, static_cast<int>(button));
         return 0;
     }},
    {PSM_GETTABCONTROL,
     [](Sheet& sheet, WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(TabControl(sheet)); }},
    {PSM_GETCURRENTPAGEHWND,
     [](Sheet& sheet, WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(ActivePage(sheet).window); }},
    {PSM_INDEXTOHWND,
     [](Sheet& sheet, WPARAM index, LPARAM) {
         return reinterpret_cast<LRESULT>(index < sheet.pages.size() ? sheet.pages[index]->window : nullptr);
     }},
};

void CreateControls(const Sheet& sheet)
{
    const auto create = [&](const WCHAR* windowClass, const WCHAR* text, DWORD style, int id) {
        const HWND window = CreateWindowExW(
            0, windowClass, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0, sheet.window,
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
        SendMessageW(window, WM_SETFONT, static_cast<WPARAM>(SendMessageW(sheet.window, WM_GETFONT, 0, 0)),
                     FALSE);
    };
    create(WC_TABCONTROLW, TEXT(""), WS_CLIPSIBLINGS, kTabControl);
    const bool hasHelp = std::any_of(sheet.pages.begin(), sheet.pages.end(),
                                     [](const Node* page) { return page->page().dwFlags & PSP_HASHELP; });
    for (const ButtonRow& button : kButtons) {
        if ((button.id != kApplyButton || sheet.canApply) && (button.id != IDHELP || hasHelp))
            create(TEXT("Button"), SystemWords().*button.text,
                   button.id == IDOK ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, button.id);
    }
    EnableWindow(GetDlgItem(sheet.window, kApplyButton), FALSE);
}

void InsertTabs(const Sheet& sheet)
{
    for (size_t index = 0; index < sheet.pages.size(); ++index) {
        TCITEMW item = {};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<WCHAR*>(sheet.pages[index]->title.c_str());
        TabCtrl_InsertItem(TabControl(sheet), static_cast<int>(index), &item);
    }
}

INT_PTR OnInitialise(HWND window, LPARAM param)
{
    Sheet& sheet = *reinterpret_cast<Sheet*>(param);
    sheet.window = window;
    SetWindowLongPtrW(window, DWLP_USER, param);
    SetWindowTextW(window, sheet.title.c_str());
    if (sheet.icon != nullptr)
        SendMessageW(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(sheet.icon));
    CreateControls(sheet);
    InsertTabs(sheet);
    LayOut(sheet);
    Centre(window, GetWindow(window, GW_OWNER));
    return FALSE;
}

INT_PTR OnNotify(Sheet& sheet, const NMHDR& notification)
{
    if (notification.hwndFrom != TabControl(sheet))
        return FALSE;
    if (notification.code == TCN_SELCHANGING) {
        SetWindowLongPtrW(sheet.window, DWLP_MSGRESULT, !MayLeavePage(sheet));
        return TRUE;
    }
    if (notification.code == TCN_SELCHANGE)
        ShowPage(sheet, static_cast<size_t>(TabCtrl_GetCurSel(TabControl(sheet))));
    return FALSE;
}

INT_PTR Answer(Sheet& sheet, UINT message, WPARAM wParam, LPARAM lParam)
{
    for (const MessageRow& row : kMessages) {
        if (row.message != message)
            continue;
        SetWindowLongPtrW(sheet.window, DWLP_MSGRESULT, row.answer(sheet, wParam, lParam));
        return TRUE;
    }
    return FALSE;
}

INT_PTR CALLBACK SheetDlgProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_INITDIALOG)
        return OnInitialise(window, lParam);
    Sheet* const sheet = SheetOf(window);
    if (sheet == nullptr)
        return FALSE;
    switch (message) {
    case WM_COMMAND:
        Click(*sheet, &ButtonRow::id, LOWORD(wParam));
        return TRUE;
    case WM_NOTIFY:
        return OnNotify(*sheet, *reinterpret_cast<const NMHDR*>(lParam));
    }
    return Answer(*sheet, message, wParam, lParam);
}

/// Ctrl+Tab and Ctrl+Page keys turn to the next page wherever the focus is.
bool TurnByKey(Sheet& sheet, const MSG& message)
{
    if (message.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0 || !IsChild(sheet.window, message.hwnd))
        return false;
    const bool back = message.wParam == VK_PRIOR || (message.wParam == VK_TAB && GetKeyState(VK_SHIFT) < 0);
    if (!back && message.wParam != VK_NEXT && message.wParam != VK_TAB)
        return false;
    const size_t count = sheet.pages.size();
    if (TurnTo(sheet, (sheet.active + (back ? count - 1 : 1)) % count))
        FocusPage(sheet);
    return true;
}

void RunLoop(Sheet& sheet)
{
    MSG message;
    while (!sheet.ended) {
        const int got = static_cast<int>(GetMessageW(&message, nullptr, 0, 0));
        if (got == 0)
            PostQuitMessage(static_cast<int>(message.wParam)); // the loop that asked for us ends, too
        if (got <= 0)
            return;
        if (TurnByKey(sheet, message) || IsDialogMessageW(sheet.window, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void Close(Sheet& sheet, HWND owner, bool ownerWasEnabled)
{
    if (ownerWasEnabled)
        EnableWindow(owner,
                     TRUE); // before the sheet goes, or another program's window would come to the front
    DestroyWindow(sheet.window);
    if (owner != nullptr)
        SetActiveWindow(owner);
    sheet.window = nullptr;
    for (Node* const page : sheet.pages)
        page->window = nullptr;
}

} // namespace

const WCHAR* PropertiesSuffix()
{
    return SystemWords().properties;
}

bool ShowSheet(Sheet& sheet, HWND owner)
{
    const INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_TAB_CLASSES};
    InitCommonControlsEx(&controls);
    owner = owner != nullptr ? GetAncestor(owner, GA_ROOT) : nullptr;
    const EmptyTemplate dialog;
    if (CreateDialogIndirectParamW(nullptr, reinterpret_cast<LPCDLGTEMPLATEW>(&dialog), owner, SheetDlgProc,
                                   reinterpret_cast<LPARAM>(&sheet)) == nullptr)
        return false;
    const bool ownerWasEnabled = owner != nullptr && !EnableWindow(owner, FALSE);
    const auto start = std::find(sheet.pages.begin(), sheet.pages.end(), sheet.startPage);
    sheet.active = start != sheet.pages.end() ? static_cast<size_t>(start - sheet.pages.begin()) : 0;
    ShowPage(sheet, sheet.active);
    const bool shown = ActivePage(sheet).window != nullptr;
    if (shown) {
        ShowWindow(sheet.window, SW_SHOW);
        FocusPage(sheet);
        RunLoop(sheet);
    }
    Close(sheet, owner, ownerWasEnabled);
    return shown;
}

} // namespace compstui
