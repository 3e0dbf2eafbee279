#include "host/window/controls/combo_box.h"

#include <utility>

#include "host/window/controls/list_items.h"

namespace host {

Text EntryText(const ComboBox& combo, int index)
{
    if (index < 0 || !HasStrings(combo))
        return {};
    const LRESULT length = AskList(combo, LB_GETTEXTLEN, static_cast<WPARAM>(index));
    if (length == LB_ERR)
        return {};
    Text text(static_cast<size_t>(length), 0);
    AskList(combo, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    return text;
}

void ShowEntry(ComboBox& combo, int index, bool byUser)
{
    combo.shown = index;
    if (combo.edit == nullptr) {
        RepaintField(combo);
        return;
    }
    combo.settingText = true;
    SetWindowTextW(combo.edit, EntryText(combo, index).c_str());
    combo.settingText = false;
    if (byUser)
        SendMessageW(combo.edit, EM_SETSEL, 0, -1);
}

namespace {

constexpr int kListId = 1000;
constexpr int kEditId = 1001;

// --- Creation ---

DWORD ListStyle(const ComboBox& combo)
{
    struct Pair
    {
        DWORD combo;
        DWORD list;
    };
    static constexpr Pair kPairs[] = {
        {CBS_SORT, LBS_SORT},
        {CBS_HASSTRINGS, LBS_HASSTRINGS},
        {CBS_OWNERDRAWFIXED, LBS_OWNERDRAWFIXED},
        {CBS_OWNERDRAWVARIABLE, LBS_OWNERDRAWVARIABLE},
        {CBS_NOINTEGRALHEIGHT, LBS_NOINTEGRALHEIGHT},
        {CBS_DISABLENOSCROLL, LBS_DISABLENOSCROLL},
        {WS_VSCROLL, WS_VSCROLL},
        {WS_HSCROLL, WS_HSCROLL},
    };
    DWORD style = LBS_NOTIFY | LBS_COMBOBOX | WS_BORDER | WS_CLIPSIBLINGS;
    for (const Pair& pair : kPairs)
        style |= (combo.style & pair.combo) != 0 ? pair.list : 0;
    return style | (HasDropList(combo) ? WS_POPUP : WS_CHILD | WS_VISIBLE);
}

bool CreateList(ComboBox& combo, HINSTANCE instance)
{
    const bool drops = HasDropList(combo);
    // A popup has no id, and an owner instead of a parent.
    combo.list = CreateWindowExW(drops ? WS_EX_TOOLWINDOW | WS_EX_TOPMOST : 0, TEXT("ComboLBox"), nullptr,
                                 ListStyle(combo), 0, 0, ClientRectOf(combo.window).right, combo.listHeight,
                                 combo.window, drops ? nullptr : reinterpret_cast<HMENU>(INT_PTR{kListId}),
                                 instance, combo.window);
    return combo.list != nullptr;
}

bool CreateEdit(ComboBox& combo, HINSTANCE instance)
{
    if (KindOf(combo) == CBS_DROPDOWNLIST)
        return true;
    DWORD style = WS_CHILD | WS_VISIBLE | ES_LEFT | ES_NOHIDESEL;
    style |= (combo.style & CBS_AUTOHSCROLL) != 0 ? ES_AUTOHSCROLL : 0;
    style |= (combo.style & CBS_UPPERCASE) != 0 ? ES_UPPERCASE : 0;
    style |= (combo.style & CBS_LOWERCASE) != 0 ? ES_LOWERCASE : 0;
    style |= (combo.style & WS_DISABLED) != 0 ? WS_DISABLED : 0;
    const RECT rect = EntryRect(combo);
    combo.edit = CreateWindowExW(0, TEXT("Edit"), nullptr, style, rect.left, rect.top, rect.right - rect.left,
                                 rect.bottom - rect.top, combo.window,
                                 reinterpret_cast<HMENU>(INT_PTR{kEditId}), instance, nullptr);
    if (combo.edit == nullptr)
        return false;
    combo.editProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(combo.edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ComboEditProcedure)));
    return true;
}

/// Scroll bars are for the list, and the field draws its own border.
LRESULT OnNcCreate(ComboBox& combo, WPARAM wParam, LPARAM lParam)
{
    constexpr DWORD kListsOwn = WS_BORDER | WS_HSCROLL | WS_VSCROLL;
    SetWindowLongPtrW(combo.window, GWL_STYLE, static_cast<LONG_PTR>(combo.style & ~kListsOwn));
    const LONG_PTR extended = GetWindowLongPtrW(combo.window, GWL_EXSTYLE);
    SetWindowLongPtrW(combo.window, GWL_EXSTYLE, extended & ~static_cast<LONG_PTR>(WS_EX_CLIENTEDGE));
    return DefWindowProcW(combo.window, WM_NCCREATE, wParam, lParam);
}

LRESULT OnCreate(ComboBox& combo, WPARAM, LPARAM lParam)
{
    const CREATESTRUCTW& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
    MeasureField(combo);
    combo.listHeight = std::max(creation.cy - FieldWindowHeight(combo), 0);
    if (!CreateList(combo, creation.hInstance) || !CreateEdit(combo, creation.hInstance))
        return -1;
    LayOut(combo);
    return 0;
}

LRESULT OnDestroy(ComboBox& combo, WPARAM, LPARAM)
{
    if (HasDropList(combo) && combo.list != nullptr)
        DestroyWindow(std::exchange(combo.list, nullptr));
    return 0;
}

// --- Entries: the list has them ---

struct Forward
{
    UINT combo;
    UINT list;
};

constexpr Forward kForwards[] = {
    {CB_GETCOUNT, LB_GETCOUNT},
    {CB_GETCURSEL, LB_GETCURSEL},
    {CB_GETLBTEXT, LB_GETTEXT},
    {CB_GETLBTEXTLEN, LB_GETTEXTLEN},
    {CB_FINDSTRING, LB_FINDSTRING},
    {CB_GETITEMDATA, LB_GETITEMDATA},
    {CB_SETITEMDATA, LB_SETITEMDATA},
    {CB_FINDSTRINGEXACT, LB_FINDSTRINGEXACT},
    {CB_GETTOPINDEX, LB_GETTOPINDEX},
    {CB_SETTOPINDEX, LB_SETTOPINDEX},
    {CB_GETHORIZONTALEXTENT, LB_GETHORIZONTALEXTENT},
    {CB_SETHORIZONTALEXTENT, LB_SETHORIZONTALEXTENT},
    {CB_INITSTORAGE, LB_INITSTORAGE},
};

const Forward* FindForward(UINT message)
{
    const auto found = std::find_if(std::begin(kForwards), std::end(kForwards),
                                    [=](const Forward& each) { return each.combo == message; });
    return found != std::end(kForwards) ? found : nullptr;
}

/// After entries came or went, the one in the field may have another index. A field whose entry is gone
/// becomes empty, except that what stands in an edit stays.
void FollowSelection(ComboBox& combo)
{
    const int selection = SelectionOf(combo);
    if (combo.shown != selection) {
        combo.shown = selection;
        if (combo.edit == nullptr)
            RepaintField(combo);
    }
}

LRESULT OnDeleteString(ComboBox& combo, WPARAM index, LPARAM)
{
    const LRESULT left = AskList(combo, LB_DELETESTRING, index);
    FollowSelection(combo);
    return left;
}

LRESULT OnInsertString(ComboBox& combo, WPARAM index, LPARAM entry)
{
    const LRESULT place = AskList(combo, LB_INSERTSTRING, index, entry);
    FollowSelection(combo);
    return place;
}

LRESULT OnAddString(ComboBox& combo, WPARAM, LPARAM entry)
{
    const LRESULT place = AskList(combo, LB_ADDSTRING, 0, entry);
    FollowSelection(combo);
    return place;
}

LRESULT OnResetContent(ComboBox& combo, WPARAM, LPARAM)
{
    AskList(combo, LB_RESETCONTENT);
    ShowEntry(combo, kNoItem, false);
    return CB_OKAY;
}

// --- Selection and text ---

LRESULT OnSetCurSel(ComboBox& combo, WPARAM index, LPARAM)
{
    const LRESULT result = AskList(combo, LB_SETCURSEL, index);
    if (result != LB_ERR || static_cast<int>(index) == kNoItem)
        ShowEntry(combo, SelectionOf(combo), false);
    return result;
}

LRESULT OnSelectString(ComboBox& combo, WPARAM after, LPARAM entry)
{
    const LRESULT index = AskList(combo, LB_SELECTSTRING, after, entry);
    if (index != LB_ERR)
        ShowEntry(combo, static_cast<int>(index), false);
    return index;
}

LRESULT OnLimitText(ComboBox& combo, WPARAM limit, LPARAM)
{
    if (combo.edit != nullptr)
        SendMessageW(combo.edit, EM_LIMITTEXT, limit, 0);
    return TRUE;
}

LRESULT OnGetEditSel(ComboBox& combo, WPARAM start, LPARAM end)
{
    return combo.edit != nullptr ? SendMessageW(combo.edit, EM_GETSEL, start, end) : CB_ERR;
}

LRESULT OnSetEditSel(ComboBox& combo, WPARAM, LPARAM range)
{
    if (combo.edit == nullptr)
        return CB_ERR;
    SendMessageW(combo.edit, EM_SETSEL, static_cast<WPARAM>(static_cast<SHORT>(LOWORD(range))),
                 static_cast<SHORT>(HIWORD(range)));
    return TRUE;
}

LRESULT OnSetText(ComboBox& combo, WPARAM, LPARAM text)
{
    if (combo.edit == nullptr)
        return CB_ERR;
    combo.settingText = true;
    const BOOL set = SetWindowTextW(combo.edit, reinterpret_cast<LPCWSTR>(text));
    combo.settingText = false;
    return set;
}

LRESULT OnGetText(ComboBox& combo, WPARAM size, LPARAM buffer)
{
    if (combo.edit != nullptr)
        return SendMessageW(combo.edit, WM_GETTEXT, size, buffer);
    if (size == 0 || buffer == 0)
        return 0;
    const Text text = EntryText(combo, combo.shown);
    const size_t copied = text.copy(reinterpret_cast<LPWSTR>(buffer), size - 1);
    reinterpret_cast<LPWSTR>(buffer)[copied] = 0;
    return static_cast<LRESULT>(copied);
}

LRESULT OnGetTextLength(ComboBox& combo, WPARAM, LPARAM)
{
    if (combo.edit != nullptr)
        return SendMessageW(combo.edit, WM_GETTEXTLENGTH, 0, 0);
    return static_cast<LRESULT>(EntryText(combo, combo.shown).size());
}

// --- The drop list ---

LRESULT OnShowDropDown(ComboBox& combo, WPARAM show, LPARAM)
{
    if (show != 0 && !combo.dropped)
        DropDown(combo);
    else if (show == 0 && combo.dropped)
        RollUp(combo, false);
    return TRUE;
}

LRESULT OnGetDroppedState(ComboBox& combo, WPARAM, LPARAM)
{
    return !HasDropList(combo) || combo.dropped;
}

LRESULT OnGetDroppedControlRect(ComboBox& combo, WPARAM, LPARAM rect)
{
    if (rect == 0)
        return CB_ERR;
    RECT whole = {};
    GetWindowRect(combo.window, &whole);
    if (HasDropList(combo)) {
        whole.right = whole.left + std::max<LONG>(whole.right - whole.left, combo.droppedWidth);
        whole.bottom += combo.listHeight;
    }
    *reinterpret_cast<RECT*>(rect) = whole;
    return TRUE;
}

LRESULT OnGetDroppedWidth(ComboBox& combo, WPARAM, LPARAM)
{
    RECT window = {};
    GetWindowRect(combo.window, &window);
    return std::max<LONG>(window.right - window.left, combo.droppedWidth);
}

LRESULT OnSetDroppedWidth(ComboBox& combo, WPARAM width, LPARAM)
{
    constexpr WPARAM kWidest = 0x7FFF;
    if (!HasDropList(combo) || width > kWidest)
        return CB_ERR;
    combo.droppedWidth = static_cast<int>(width);
    return OnGetDroppedWidth(combo, 0, 0);
}

LRESULT OnGetExtendedUi(ComboBox& combo, WPARAM, LPARAM)
{
    return combo.extended;
}

LRESULT OnSetExtendedUi(ComboBox& combo, WPARAM extended, LPARAM)
{
    if (!HasDropList(combo))
        return CB_ERR;
    combo.extended = extended != 0;
    return CB_OKAY;
}

LRESULT OnGetInfo(ComboBox& combo, WPARAM, LPARAM lParam)
{
    auto* const info = reinterpret_cast<COMBOBOXINFO*>(lParam);
    if (info == nullptr || info->cbSize < sizeof *info)
        return FALSE;
    info->rcItem = EntryRect(combo);
    info->rcButton = ButtonRect(combo);
    info->stateButton =
        HasDropList(combo) ? (combo.dropped ? STATE_SYSTEM_PRESSED : 0) : STATE_SYSTEM_INVISIBLE;
    info->hwndCombo = combo.window;
    info->hwndItem = combo.edit;
    info->hwndList = combo.list;
    return TRUE;
}

// --- What field and list tell ---

void OnFocusGained(ComboBox& combo)
{
    if (std::exchange(combo.focused, true))
        return;
    RepaintField(combo);
    if (combo.edit != nullptr)
        SendMessageW(combo.edit, EM_SETSEL, 0, -1);
    NotifyParent(combo.window, CBN_SETFOCUS);
}

void OnFocusLost(ComboBox& combo)
{
    if (!std::exchange(combo.focused, false))
        return;
    if (combo.dropped)
        RollUp(combo, false);
    else
        NotifyParent(combo.window, CBN_SELENDCANCEL);
    RepaintField(combo);
    NotifyParent(combo.window, CBN_KILLFOCUS);
}

void OnEditCommand(ComboBox& combo, UINT code)
{
    switch (code) {
    case EN_SETFOCUS:
        OnFocusGained(combo);
        break;
    case EN_KILLFOCUS:
        OnFocusLost(combo);
        break;
    case EN_UPDATE:
        if (!combo.settingText)
            NotifyParent(combo.window, CBN_EDITUPDATE);
        break;
    case EN_CHANGE:
        if (combo.settingText)
            break;
        // What the user types is no entry of the list any more.
        AskList(combo, LB_SETCURSEL, static_cast<WPARAM>(kNoItem));
        combo.shown = kNoItem;
        NotifyParent(combo.window, CBN_EDITCHANGE);
        break;
    }
}

void OnListCommand(ComboBox& combo, UINT code)
{
    if (code == LBN_SELCHANGE)
        SelectionMoved(combo);
    else if (code == LBN_DBLCLK)
        NotifyParent(combo.window, CBN_DBLCLK);
    else if (code == LBN_SETFOCUS && combo.edit != nullptr)
        SetFocus(combo.edit);
}

LRESULT OnCommand(ComboBox& combo, WPARAM wParam, LPARAM sender)
{
    const HWND window = reinterpret_cast<HWND>(sender);
    if (window != nullptr && window == combo.edit)
        OnEditCommand(combo, HIWORD(wParam));
    else if (window != nullptr && window == combo.list)
        OnListCommand(combo, HIWORD(wParam));
    return 0;
}

LRESULT OnSetFocus(ComboBox& combo, WPARAM, LPARAM)
{
    if (combo.edit != nullptr)
        SetFocus(combo.edit);
    else
        OnFocusGained(combo);
    return 0;
}

LRESULT OnKillFocus(ComboBox& combo, WPARAM, LPARAM)
{
    if (combo.edit == nullptr)
        OnFocusLost(combo);
    return 0;
}

LRESULT OnEnable(ComboBox& combo, WPARAM enable, LPARAM)
{
    if (combo.edit != nullptr)
        EnableWindow(combo.edit, enable != 0);
    if (combo.list != nullptr && !HasDropList(combo))
        EnableWindow(combo.list, enable != 0);
    RepaintField(combo);
    return 0;
}

LRESULT OnGetFont(ComboBox& combo, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(combo.font);
}

/// Clipboard messages are for the edit.
template <UINT Message>
LRESULT OnEditOperation(ComboBox& combo, WPARAM wParam, LPARAM lParam)
{
    return combo.edit != nullptr ? SendMessageW(combo.edit, Message, wParam, lParam) : 0;
}

/// The edit's and a visible list's colours are the parent's to choose.
template <UINT Message>
LRESULT OnColors(ComboBox& combo, WPARAM dc, LPARAM control)
{
    return SendMessageW(GetParent(combo.window), Message, dc, control);
}

constexpr MessageRow<ComboBox> kMessages[] = {
    {WM_CREATE, OnCreate},
    {WM_DESTROY, OnDestroy},
    {WM_SIZE, OnComboSize},
    {WM_SETFOCUS, OnSetFocus},
    {WM_KILLFOCUS, OnKillFocus},
    {WM_ENABLE, OnEnable},
    {WM_SETREDRAW, OnComboSetRedraw},
    {WM_SETTEXT, OnSetText},
    {WM_GETTEXT, OnGetText},
    {WM_GETTEXTLENGTH, OnGetTextLength},
    {WM_PAINT, OnComboPaint},
    {WM_ERASEBKGND, OnComboErase},
    {WM_SETFONT, OnComboSetFont},
    {WM_GETFONT, OnGetFont},
    {WM_WINDOWPOSCHANGING, OnComboPosChanging},
    {WM_NCCREATE, OnNcCreate},
    {WM_GETDLGCODE, OnComboGetDlgCode},
    {WM_KEYDOWN, OnComboKeyDown},
    {WM_CHAR, OnComboChar},
    {WM_SYSKEYDOWN, OnComboSysKeyDown},
    {WM_COMMAND, OnCommand},
    {WM_CTLCOLOREDIT, OnColors<WM_CTLCOLOREDIT>},
    {WM_CTLCOLORLISTBOX, OnColors<WM_CTLCOLORLISTBOX>},
    {WM_CTLCOLORSTATIC, OnColors<WM_CTLCOLORSTATIC>},
    {CB_GETEDITSEL, OnGetEditSel},
    {CB_LIMITTEXT, OnLimitText},
    {CB_SETEDITSEL, OnSetEditSel},
    {CB_ADDSTRING, OnAddString},
    {CB_DELETESTRING, OnDeleteString},
    {CB_INSERTSTRING, OnInsertString},
    {CB_RESETCONTENT, OnResetContent},
    {CB_SELECTSTRING, OnSelectString},
    {CB_SETCURSEL, OnSetCurSel},
    {CB_SHOWDROPDOWN, OnShowDropDown},
    {CB_GETDROPPEDCONTROLRECT, OnGetDroppedControlRect},
    {CB_SETITEMHEIGHT, OnComboSetItemHeight},
    {CB_GETITEMHEIGHT, OnComboGetItemHeight},
    {CB_SETEXTENDEDUI, OnSetExtendedUi},
    {CB_GETEXTENDEDUI, OnGetExtendedUi},
    {CB_GETDROPPEDSTATE, OnGetDroppedState},
    {CB_GETDROPPEDWIDTH, OnGetDroppedWidth},
    {CB_SETDROPPEDWIDTH, OnSetDroppedWidth},
    {CB_GETCOMBOBOXINFO, OnGetInfo},
    {WM_LBUTTONDOWN, OnComboButtonDown},
    {WM_LBUTTONDBLCLK, OnComboButtonDown},
    {WM_MOUSEWHEEL, OnComboMouseWheel},
    {WM_CUT, OnEditOperation<WM_CUT>},
    {WM_COPY, OnEditOperation<WM_COPY>},
    {WM_PASTE, OnEditOperation<WM_PASTE>},
    {WM_CLEAR, OnEditOperation<WM_CLEAR>},
};
static_assert(InOrder<ComboBox>(kMessages));

} // namespace

LRESULT CALLBACK ComboBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const ComboBox* const combo = StateOf<ComboBox>(window);
    const Forward* const forward = combo != nullptr ? FindForward(message) : nullptr;
    if (forward != nullptr)
        return AskList(*combo, forward->list, wParam, lParam);
    return RunRows<ComboBox>(kMessages, window, message, wParam, lParam);
}

} // namespace host
