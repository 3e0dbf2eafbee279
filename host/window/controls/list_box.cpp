#include "host/window/controls/list_box.h"

#include <utility>

namespace host {

HWND KnownControl(const ListBox& list)
{
    return list.combo != nullptr ? list.combo : list.window;
}

UINT ControlType(const ListBox& list)
{
    return list.combo != nullptr ? ODT_COMBOBOX : ODT_LISTBOX;
}

void NotifyList(const ListBox& list, UINT code)
{
    if (list.combo != nullptr)
        SendMessageW(list.combo, WM_COMMAND, MAKEWPARAM(ControlId(list.window), code),
                     reinterpret_cast<LPARAM>(list.window));
    else if (HasStyle(list, LBS_NOTIFY))
        NotifyParent(list.window, code);
}

bool IsSelected(const ListBox& list, int index)
{
    return SelectsSeveral(list) ? list.items[index].selected : index == list.selected;
}

void SetSelected(ListBox& list, int index, bool selected)
{
    if (list.items[index].selected == selected)
        return;
    list.items[index].selected = selected;
    PaintItem(list, index, ODA_SELECT);
}

void SelectOnly(ListBox& list, int index)
{
    if (SelectsSeveral(list)) {
        for (int each = 0; each < CountOf(list.items); ++each)
            SetSelected(list, each, each == index);
        return;
    }
    const int previous = std::exchange(list.selected, index);
    if (previous == index)
        return;
    PaintItem(list, previous, ODA_SELECT);
    PaintItem(list, index, ODA_SELECT);
}

namespace {

void HideFocus(ListBox& list)
{
    if (std::exchange(list.focusShown, false))
        PaintItem(list, list.caret, ODA_FOCUS);
}

void ShowFocus(ListBox& list)
{
    list.focusShown = list.focused && HasItem(list.items, list.caret);
    if (list.focusShown)
        PaintItem(list, list.caret, ODA_FOCUS);
}

void PutCaret(ListBox& list, int index)
{
    list.caret = index;
    BringIntoView(list, index);
    ShowFocus(list);
}

} // namespace

void MoveCaret(ListBox& list, int index)
{
    HideFocus(list);
    PutCaret(list, index);
}

void ChooseItem(ListBox& list, int index)
{
    HideFocus(list);
    SelectOnly(list, index);
    PutCaret(list, index);
}

namespace {

// --- Owner ---

LRESULT AskOwner(const ListBox& list, UINT message, UINT id, LPARAM record)
{
    return SendMessageW(GetParent(KnownControl(list)), message, id, record);
}

/// The height that the program wants for an entry, or for all of them with kNoItem.
int MeasuredHeight(const ListBox& list, int index, ULONG_PTR data)
{
    const HWND control = KnownControl(list);
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = ControlType(list);
    measure.CtlID = ControlId(control);
    // A combo box asks about its own field with no item; for its list it names the first.
    measure.itemID = static_cast<UINT>(index == kNoItem && list.combo != nullptr ? 0 : index);
    measure.itemWidth = static_cast<UINT>(ClientRectOf(control).right);
    measure.itemHeight = static_cast<UINT>(LineHeight(list.window, list.font));
    measure.itemData = data;
    AskOwner(list, WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
    return std::clamp(static_cast<int>(measure.itemHeight), 1, kMaxItemHeight);
}

/// Negative, zero or positive as the entry comes before, equals or comes after a new one.
int CompareWithNew(const ListBox& list, int index, const ListItem& fresh)
{
    if (!HasItem(list.items, index))
        return 1; // the program emptied the list while it was asked
    if (HasStrings(list))
        return lstrcmpiW(list.items[index].text.c_str(), fresh.text.c_str());
    const HWND control = KnownControl(list);
    COMPAREITEMSTRUCT compare = {};
    compare.CtlType = ControlType(list);
    compare.CtlID = ControlId(control);
    compare.hwndItem = control;
    compare.itemID1 = static_cast<UINT>(index);
    compare.itemData1 = list.items[index].data;
    compare.itemID2 = static_cast<UINT>(kNoItem);
    compare.itemData2 = fresh.data;
    compare.dwLocaleId = GetUserDefaultLCID();
    return static_cast<int>(
        AskOwner(list, WM_COMPAREITEM, compare.CtlID, reinterpret_cast<LPARAM>(&compare)));
}

/// Programs keep blocks behind their entries; they hear of every entry that goes.
void TellDeleted(const ListBox& list, int index, const ListItem& item)
{
    if (!IsOwnerDrawn(list) && item.data == 0)
        return;
    const HWND control = KnownControl(list);
    DELETEITEMSTRUCT deleted = {};
    deleted.CtlType = ControlType(list);
    deleted.CtlID = ControlId(control);
    deleted.itemID = static_cast<UINT>(index);
    deleted.hwndItem = control;
    deleted.itemData = item.data;
    AskOwner(list, WM_DELETEITEM, deleted.CtlID, reinterpret_cast<LPARAM>(&deleted));
}

// --- Entries ---

/// The entry that a message names, or null.
ListItem* ItemOf(ListBox& list, WPARAM index)
{
    const int place = static_cast<int>(index);
    return HasItem(list.items, place) ? &list.items[place] : nullptr;
}

ListItem MakeItem(const ListBox& list, LPARAM entry)
{
    ListItem item;
    if (!HasStrings(list))
        item.data = static_cast<ULONG_PTR>(entry);
    else if (entry != 0)
        item.text = reinterpret_cast<LPCWSTR>(entry);
    return item;
}

/// An index behind an entry that was inserted (+1) or deleted (-1) at `place`.
void ShiftBehind(int& index, int place, int step)
{
    if (index != kNoItem && index >= place)
        index = std::max(index + step, 0);
}

int InsertItem(ListBox& list, int index, ListItem item)
{
    const ULONG_PTR data = item.data;
    index = std::min(index, CountOf(list.items));
    list.items.insert(list.items.begin() + index, std::move(item));
    if (CountOf(list.items) > 1) {
        ShiftBehind(list.selected, index, 1);
        ShiftBehind(list.caret, index, 1);
        ShiftBehind(list.anchor, index, 1);
    }
    if (HasStyle(list, LBS_OWNERDRAWVARIABLE)) {
        const int height = MeasuredHeight(list, index, data);
        if (HasItem(list.items, index))
            list.items[index].height = height;
    }
    RefreshView(list);
    return index;
}

LRESULT OnAddString(ListBox& list, WPARAM, LPARAM entry)
{
    ListItem item = MakeItem(list, entry);
    const int index =
        HasStyle(list, LBS_SORT)
            ? SortedPosition(list.items, [&](int each) { return CompareWithNew(list, each, item); })
            : CountOf(list.items);
    return InsertItem(list, index, std::move(item));
}

LRESULT OnInsertString(ListBox& list, WPARAM index, LPARAM entry)
{
    const int count = CountOf(list.items);
    const int place = static_cast<int>(index) == kNoItem ? count : static_cast<int>(index);
    if (place < 0 || place > count)
        return LB_ERR;
    return InsertItem(list, place, MakeItem(list, entry));
}

LRESULT OnDeleteString(ListBox& list, WPARAM wParam, LPARAM)
{
    const int index = static_cast<int>(wParam);
    if (!HasItem(list.items, index))
        return LB_ERR;
    const ListItem item = std::move(list.items[index]);
    list.items.erase(list.items.begin() + index);
    if (list.selected == index)
        list.selected = kNoItem;
    ShiftBehind(list.selected, index + 1, -1);
    ShiftBehind(list.caret, index + 1, -1);
    ShiftBehind(list.anchor, index + 1, -1);
    list.caret = std::clamp(list.caret, 0, std::max(CountOf(list.items) - 1, 0));
    RefreshView(list);
    TellDeleted(list, index, item);
    return CountOf(list.items);
}

/// The last entry goes first, as it does on the platform.
void DeleteAll(ListBox& list)
{
    const ListItems items = std::move(list.items);
    list.items.clear();
    list.selected = kNoItem;
    list.caret = list.anchor = list.top = list.left = 0;
    for (int index = CountOf(items) - 1; index >= 0; --index)
        TellDeleted(list, index, items[index]);
}

LRESULT OnResetContent(ListBox& list, WPARAM, LPARAM)
{
    DeleteAll(list);
    RefreshView(list);
    return LB_OKAY;
}

LRESULT OnGetCount(ListBox& list, WPARAM, LPARAM)
{
    return CountOf(list.items);
}

LRESULT OnGetText(ListBox& list, WPARAM index, LPARAM buffer)
{
    const ListItem* const item = ItemOf(list, index);
    if (item == nullptr || buffer == 0)
        return LB_ERR;
    if (!HasStrings(list)) {
        *reinterpret_cast<ULONG_PTR*>(buffer) = item->data;
        return sizeof(ULONG_PTR);
    }
    std::copy_n(item->text.c_str(), item->text.size() + 1, reinterpret_cast<LPWSTR>(buffer));
    return static_cast<LRESULT>(item->text.size());
}

LRESULT OnGetTextLength(ListBox& list, WPARAM index, LPARAM)
{
    const ListItem* const item = ItemOf(list, index);
    if (item == nullptr)
        return LB_ERR;
    return HasStrings(list) ? static_cast<LRESULT>(item->text.size()) : sizeof(ULONG_PTR);
}

LRESULT OnGetItemData(ListBox& list, WPARAM index, LPARAM)
{
    const ListItem* const item = ItemOf(list, index);
    return item != nullptr ? static_cast<LRESULT>(item->data) : LB_ERR;
}

LRESULT OnSetItemData(ListBox& list, WPARAM index, LPARAM data)
{
    ListItem* const item = ItemOf(list, index);
    if (item == nullptr)
        return LB_ERR;
    item->data = static_cast<ULONG_PTR>(data);
    return LB_OKAY;
}

LRESULT OnInitStorage(ListBox& list, WPARAM count, LPARAM)
{
    constexpr WPARAM kMostPrepared = 0x10000; // entries; more grow as they come
    list.items.reserve(list.items.size() + std::min(count, kMostPrepared));
    return static_cast<LRESULT>(list.items.capacity());
}

// --- Looking for entries ---

int FindEntry(const ListBox& list, int after, LPARAM entry, int (*find)(const ListItems&, int, const Text&))
{
    if (!HasStrings(list))
        return FindData(list.items, after, static_cast<ULONG_PTR>(entry));
    return entry != 0 ? find(list.items, after, reinterpret_cast<LPCWSTR>(entry)) : kNoItem;
}

LRESULT OnFindString(ListBox& list, WPARAM after, LPARAM entry)
{
    return FindEntry(list, static_cast<int>(after), entry, FindPrefix);
}

LRESULT OnFindStringExact(ListBox& list, WPARAM after, LPARAM entry)
{
    return FindEntry(list, static_cast<int>(after), entry, FindExact);
}

LRESULT OnSelectString(ListBox& list, WPARAM after, LPARAM entry)
{
    const int index = FindEntry(list, static_cast<int>(after), entry, FindPrefix);
    if (index != kNoItem)
        ChooseItem(list, index);
    return index;
}

// --- Selection ---

LRESULT OnSetCurSel(ListBox& list, WPARAM wParam, LPARAM)
{
    const int index = static_cast<int>(wParam);
    if (SelectsSeveral(list) || (index != kNoItem && !HasItem(list.items, index)))
        return LB_ERR;
    if (index != kNoItem)
        ChooseItem(list, index);
    else
        SelectOnly(list, kNoItem);
    return index;
}

LRESULT OnGetCurSel(ListBox& list, WPARAM, LPARAM)
{
    if (list.items.empty())
        return LB_ERR;
    return SelectsSeveral(list) ? list.caret : list.selected;
}

LRESULT OnGetSel(ListBox& list, WPARAM index, LPARAM)
{
    return ItemOf(list, index) != nullptr ? IsSelected(list, static_cast<int>(index)) : LB_ERR;
}

void SelectRange(ListBox& list, int first, int last, bool select)
{
    for (int index = std::max(first, 0); index <= last && index < CountOf(list.items); ++index)
        SetSelected(list, index, select);
}

LRESULT OnSetSel(ListBox& list, WPARAM select, LPARAM lParam)
{
    const int index = static_cast<int>(lParam);
    if (!SelectsSeveral(list) || (index != kNoItem && !HasItem(list.items, index)))
        return LB_ERR;
    if (index == kNoItem) {
        SelectRange(list, 0, CountOf(list.items) - 1, select != 0);
        return LB_OKAY;
    }
    SetSelected(list, index, select != 0);
    if (select != 0) {
        list.anchor = index;
        MoveCaret(list, index);
    }
    return LB_OKAY;
}

LRESULT OnSelectItemRange(ListBox& list, WPARAM select, LPARAM range)
{
    if (!SelectsSeveral(list))
        return LB_ERR;
    SelectRange(list, LOWORD(range), HIWORD(range), select != 0);
    return LB_OKAY;
}

LRESULT OnSelectItemRangeEx(ListBox& list, WPARAM first, LPARAM last)
{
    if (!SelectsSeveral(list))
        return LB_ERR;
    // A first entry behind the last deselects.
    const int from = static_cast<int>(first);
    const int to = static_cast<int>(last);
    SelectRange(list, std::min(from, to), std::max(from, to), from <= to);
    return LB_OKAY;
}

LRESULT OnGetSelCount(ListBox& list, WPARAM, LPARAM)
{
    if (!SelectsSeveral(list))
        return LB_ERR;
    return std::count_if(list.items.begin(), list.items.end(),
                         [](const ListItem& item) { return item.selected; });
}

LRESULT OnGetSelItems(ListBox& list, WPARAM capacity, LPARAM buffer)
{
    if (!SelectsSeveral(list) || buffer == 0)
        return LB_ERR;
    INT* const indices = reinterpret_cast<INT*>(buffer);
    WPARAM count = 0;
    for (int index = 0; index < CountOf(list.items) && count < capacity; ++index) {
        if (list.items[index].selected)
            indices[count++] = index;
    }
    return static_cast<LRESULT>(count);
}

LRESULT OnGetCaretIndex(ListBox& list, WPARAM, LPARAM)
{
    return list.caret;
}

LRESULT OnSetCaretIndex(ListBox& list, WPARAM index, LPARAM)
{
    if (ItemOf(list, index) == nullptr)
        return LB_ERR;
    MoveCaret(list, static_cast<int>(index));
    return LB_OKAY;
}

LRESULT OnGetAnchorIndex(ListBox& list, WPARAM, LPARAM)
{
    return list.anchor;
}

LRESULT OnSetAnchorIndex(ListBox& list, WPARAM index, LPARAM)
{
    if (ItemOf(list, index) == nullptr)
        return LB_ERR;
    list.anchor = static_cast<int>(index);
    return LB_OKAY;
}

// --- Geometry ---

LRESULT OnGetTopIndex(ListBox& list, WPARAM, LPARAM)
{
    return list.top;
}

LRESULT OnSetTopIndex(ListBox& list, WPARAM index, LPARAM)
{
    if (!list.items.empty() && !HasItem(list.items, static_cast<int>(index)))
        return LB_ERR;
    SetTop(list, static_cast<int>(index));
    return LB_OKAY;
}

LRESULT OnGetItemRect(ListBox& list, WPARAM wParam, LPARAM rect)
{
    const int index = static_cast<int>(wParam);
    if (rect == 0 || !HasItem(list.items, index))
        return LB_ERR;
    *reinterpret_cast<RECT*>(rect) = RectOf(list, index);
    return LB_OKAY;
}

LRESULT OnItemFromPoint(ListBox& list, WPARAM, LPARAM lParam)
{
    const POINT point = PointOf(lParam);
    const RECT client = ClientRectOf(list.window);
    const bool outside = !PtInRect(&client, point);
    if (list.items.empty())
        return MAKELONG(LB_ERR, 1);
    int index = ItemAt(list, std::clamp<int>(point.y, 0, std::max<int>(client.bottom - 1, 0)));
    const bool below = index == kNoItem;
    if (below)
        index = CountOf(list.items) - 1;
    return MAKELONG(index, outside || below);
}

LRESULT OnGetItemHeight(ListBox& list, WPARAM index, LPARAM)
{
    if (!HasStyle(list, LBS_OWNERDRAWVARIABLE) || list.items.empty())
        return list.itemHeight;
    return ItemOf(list, index) != nullptr ? HeightOf(list, static_cast<int>(index)) : LB_ERR;
}

LRESULT OnSetItemHeight(ListBox& list, WPARAM index, LPARAM height)
{
    if (height <= 0 || height > kMaxItemHeight)
        return LB_ERR;
    if (!HasStyle(list, LBS_OWNERDRAWVARIABLE))
        list.itemHeight = static_cast<int>(height);
    else if (ListItem* const item = ItemOf(list, index); item != nullptr)
        item->height = static_cast<int>(height);
    else
        return LB_ERR;
    FitHeight(list);
    RefreshView(list);
    return LB_OKAY;
}

LRESULT OnGetHorizontalExtent(ListBox& list, WPARAM, LPARAM)
{
    return list.extent;
}

LRESULT OnSetHorizontalExtent(ListBox& list, WPARAM extent, LPARAM)
{
    list.extent = std::clamp(static_cast<int>(extent), 0, 0x7FFF);
    RefreshView(list);
    return LB_OKAY;
}

/// Tab stops come in quarters of an average letter.
LRESULT OnSetTabStops(ListBox& list, WPARAM count, LPARAM stops)
{
    constexpr WPARAM kMostStops = 1024;
    if (!HasStyle(list, LBS_USETABSTOPS) || count > kMostStops || (count != 0 && stops == 0))
        return FALSE;
    constexpr int kUnitsPerLetter = 4;
    constexpr INT kFarthest = 0x7FFF;
    TEXTMETRICW metrics = {};
    GetTextMetricsW(ControlDc(list.window, list.font), &metrics);
    const INT* const first = reinterpret_cast<const INT*>(stops);
    list.tabStops.assign(first, first + count);
    for (INT& stop : list.tabStops)
        stop = std::clamp(stop, 0, kFarthest) * metrics.tmAveCharWidth / kUnitsPerLetter;
    InvalidateRect(list.window, nullptr, TRUE);
    return TRUE;
}

// --- Window ---

LRESULT OnNcCreate(ListBox& list, WPARAM wParam, LPARAM lParam)
{
    const CREATESTRUCTW& creation = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
    if (HasStyle(list, LBS_COMBOBOX))
        list.combo = static_cast<HWND>(creation.lpCreateParams);
    if (HasStyle(list, LBS_EXTENDEDSEL))
        list.style &= ~static_cast<DWORD>(LBS_MULTIPLESEL);
    return DefWindowProcW(list.window, WM_NCCREATE, wParam, lParam);
}

LRESULT OnCreate(ListBox& list, WPARAM, LPARAM)
{
    list.redraw = !HasStyle(list, LBS_NOREDRAW);
    list.itemHeight = std::max(LineHeight(list.window, nullptr), 1);
    if (HasStyle(list, LBS_OWNERDRAWFIXED))
        list.itemHeight = MeasuredHeight(list, kNoItem, 0);
    FitHeight(list);
    RefreshView(list);
    return 0;
}

LRESULT OnDestroy(ListBox& list, WPARAM, LPARAM)
{
    DeleteAll(list);
    return 0;
}

LRESULT OnSetFocus(ListBox& list, WPARAM, LPARAM)
{
    list.focused = true;
    ShowFocus(list);
    NotifyList(list, LBN_SETFOCUS);
    return 0;
}

LRESULT OnKillFocus(ListBox& list, WPARAM, LPARAM)
{
    list.focused = false;
    HideFocus(list);
    NotifyList(list, LBN_KILLFOCUS);
    return 0;
}

LRESULT OnEnable(ListBox& list, WPARAM, LPARAM)
{
    InvalidateRect(list.window, nullptr, TRUE);
    return 0;
}

LRESULT OnGetDlgCode(ListBox&, WPARAM, LPARAM)
{
    return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

LRESULT OnGetFont(ListBox& list, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(list.font);
}

/// Clicking into a drop list leaves the focus with its combo box.
LRESULT OnMouseActivate(ListBox& list, WPARAM wParam, LPARAM lParam)
{
    if (list.combo != nullptr)
        return MA_NOACTIVATE;
    return DefWindowProcW(list.window, WM_MOUSEACTIVATE, wParam, lParam);
}

constexpr MessageRow<ListBox> kMessages[] = {
    {WM_CREATE, OnCreate},
    {WM_DESTROY, OnDestroy},
    {WM_SIZE, OnListSize},
    {WM_SETFOCUS, OnSetFocus},
    {WM_KILLFOCUS, OnKillFocus},
    {WM_ENABLE, OnEnable},
    {WM_SETREDRAW, OnListSetRedraw},
    {WM_PAINT, OnListPaint},
    {WM_ERASEBKGND, OnListErase},
    {WM_MOUSEACTIVATE, OnMouseActivate},
    {WM_SETFONT, OnListSetFont},
    {WM_GETFONT, OnGetFont},
    {WM_NCCREATE, OnNcCreate},
    {WM_GETDLGCODE, OnGetDlgCode},
    {WM_KEYDOWN, OnListKeyDown},
    {WM_CHAR, OnListChar},
    {WM_TIMER, OnListTimer},
    {WM_HSCROLL, OnListHScroll},
    {WM_VSCROLL, OnListVScroll},
    {LB_ADDSTRING, OnAddString},
    {LB_INSERTSTRING, OnInsertString},
    {LB_DELETESTRING, OnDeleteString},
    {LB_SELITEMRANGEEX, OnSelectItemRangeEx},
    {LB_RESETCONTENT, OnResetContent},
    {LB_SETSEL, OnSetSel},
    {LB_SETCURSEL, OnSetCurSel},
    {LB_GETSEL, OnGetSel},
    {LB_GETCURSEL, OnGetCurSel},
    {LB_GETTEXT, OnGetText},
    {LB_GETTEXTLEN, OnGetTextLength},
    {LB_GETCOUNT, OnGetCount},
    {LB_SELECTSTRING, OnSelectString},
    {LB_GETTOPINDEX, OnGetTopIndex},
    {LB_FINDSTRING, OnFindString},
    {LB_GETSELCOUNT, OnGetSelCount},
    {LB_GETSELITEMS, OnGetSelItems},
    {LB_SETTABSTOPS, OnSetTabStops},
    {LB_GETHORIZONTALEXTENT, OnGetHorizontalExtent},
    {LB_SETHORIZONTALEXTENT, OnSetHorizontalExtent},
    {LB_SETTOPINDEX, OnSetTopIndex},
    {LB_GETITEMRECT, OnGetItemRect},
    {LB_GETITEMDATA, OnGetItemData},
    {LB_SETITEMDATA, OnSetItemData},
    {LB_SELITEMRANGE, OnSelectItemRange},
    {LB_SETANCHORINDEX, OnSetAnchorIndex},
    {LB_GETANCHORINDEX, OnGetAnchorIndex},
    {LB_SETCARETINDEX, OnSetCaretIndex},
    {LB_GETCARETINDEX, OnGetCaretIndex},
    {LB_SETITEMHEIGHT, OnSetItemHeight},
    {LB_GETITEMHEIGHT, OnGetItemHeight},
    {LB_FINDSTRINGEXACT, OnFindStringExact},
    {LB_INITSTORAGE, OnInitStorage},
    {LB_ITEMFROMPOINT, OnItemFromPoint},
    {WM_MOUSEMOVE, OnListMouseMove},
    {WM_LBUTTONDOWN, OnListButtonDown},
    {WM_LBUTTONUP, OnListButtonUp},
    {WM_LBUTTONDBLCLK, OnListDoubleClick},
    {WM_MOUSEWHEEL, OnListMouseWheel},
    {WM_CAPTURECHANGED, OnListCaptureChanged},
};
static_assert(InOrder<ListBox>(kMessages));

} // namespace

LRESULT CALLBACK ListBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunRows<ListBox>(kMessages, window, message, wParam, lParam);
}

} // namespace host
