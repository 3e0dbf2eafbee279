#include "host/window/controls/tab.h"

#include <commctrl.h>

namespace host {
namespace {

constexpr int kNoTab = -1;

int CountOf(const TabControl& tabs)
{
    return static_cast<int>(tabs.items.size());
}

/// Sends the parent a WM_NOTIFY that says nothing but its code.
LRESULT Notify(const TabControl& tabs, UINT code)
{
    NMHDR header = {tabs.window, ControlId(tabs.window), code};
    return SendMessageW(GetParent(tabs.window), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

// --- Tabs ---

void Assign(TabItem& item, const TCITEMW& from)
{
    if ((from.mask & TCIF_TEXT) != 0)
        item.text = from.pszText != nullptr ? Text(from.pszText) : Text();
    if ((from.mask & TCIF_PARAM) != 0)
        item.data = from.lParam;
    if ((from.mask & TCIF_IMAGE) != 0)
        item.image = from.iImage;
    if ((from.mask & TCIF_STATE) != 0)
        item.state = (item.state & ~from.dwStateMask) | (from.dwState & from.dwStateMask);
}

LRESULT OnInsertItem(TabControl& tabs, WPARAM place, LPARAM record)
{
    if (record == 0)
        return kNoTab;
    TabItem item;
    Assign(item, *reinterpret_cast<const TCITEMW*>(record));
    const int count = CountOf(tabs);
    const int wanted = static_cast<int>(place);
    const int index = wanted < 0 || wanted > count ? count : wanted;
    tabs.items.insert(tabs.items.begin() + index, std::move(item));
    if (count == 0)
        tabs.selected = tabs.focus = 0;
    else if (index <= tabs.selected)
        ++tabs.selected;
    RepaintTabs(tabs);
    return index;
}

LRESULT OnGetItem(TabControl& tabs, WPARAM index, LPARAM record)
{
    auto* const to = reinterpret_cast<TCITEMW*>(record);
    if (to == nullptr || !HasTab(tabs, static_cast<int>(index)))
        return FALSE;
    const TabItem& item = tabs.items[static_cast<int>(index)];
    if ((to->mask & TCIF_TEXT) != 0 && to->pszText != nullptr && to->cchTextMax > 0) {
        const size_t copied = item.text.copy(to->pszText, static_cast<size_t>(to->cchTextMax) - 1);
        to->pszText[copied] = 0;
    }
    if ((to->mask & TCIF_PARAM) != 0)
        to->lParam = item.data;
    if ((to->mask & TCIF_IMAGE) != 0)
        to->iImage = item.image;
    if ((to->mask & TCIF_STATE) != 0)
        to->dwState = item.state & to->dwStateMask;
    return TRUE;
}

LRESULT OnSetItem(TabControl& tabs, WPARAM index, LPARAM record)
{
    if (record == 0 || !HasTab(tabs, static_cast<int>(index)))
        return FALSE;
    Assign(tabs.items[static_cast<int>(index)], *reinterpret_cast<const TCITEMW*>(record));
    RepaintTabs(tabs);
    return TRUE;
}

LRESULT OnDeleteItem(TabControl& tabs, WPARAM wParam, LPARAM)
{
    const int index = static_cast<int>(wParam);
    if (!HasTab(tabs, index))
        return FALSE;
    tabs.items.erase(tabs.items.begin() + index);
    if (index == tabs.selected)
        tabs.selected = kNoTab;
    else if (index < tabs.selected)
        --tabs.selected;
    tabs.focus = std::min(tabs.focus, CountOf(tabs) - 1);
    RepaintTabs(tabs);
    return TRUE;
}

LRESULT OnDeleteAllItems(TabControl& tabs, WPARAM, LPARAM)
{
    tabs.items.clear();
    tabs.selected = tabs.focus = kNoTab;
    RepaintTabs(tabs);
    return TRUE;
}

LRESULT OnGetItemCount(TabControl& tabs, WPARAM, LPARAM)
{
    return CountOf(tabs);
}

LRESULT OnHighlightItem(TabControl& tabs, WPARAM index, LPARAM highlight)
{
    if (!HasTab(tabs, static_cast<int>(index)))
        return FALSE;
    DWORD& state = tabs.items[static_cast<int>(index)].state;
    state = LOWORD(highlight) != 0 ? state | TCIS_HIGHLIGHTED : state & ~static_cast<DWORD>(TCIS_HIGHLIGHTED);
    RepaintTabs(tabs);
    return TRUE;
}

// --- Selection ---

/// The user, or TCM_SETCURFOCUS, goes to a tab: the parent may refuse, and is told.
void SelectByUser(TabControl& tabs, int index)
{
    if (!HasTab(tabs, index) || index == tabs.selected)
        return;
    if (Notify(tabs, TCN_SELCHANGING) != 0 || tabs.gone || !HasTab(tabs, index))
        return;
    tabs.selected = tabs.focus = index;
    RepaintTabs(tabs);
    Notify(tabs, TCN_SELCHANGE);
}

/// A program that selects a tab knows it, so nobody is told.
LRESULT OnSetCurSel(TabControl& tabs, WPARAM wParam, LPARAM)
{
    const int index = static_cast<int>(wParam);
    if (index < kNoTab || index >= CountOf(tabs))
        return kNoTab;
    const int previous = tabs.selected;
    tabs.selected = tabs.focus = index;
    RepaintTabs(tabs);
    return previous;
}

LRESULT OnGetCurSel(TabControl& tabs, WPARAM, LPARAM)
{
    return tabs.selected;
}

LRESULT OnGetCurFocus(TabControl& tabs, WPARAM, LPARAM)
{
    return tabs.focus;
}

LRESULT OnSetCurFocus(TabControl& tabs, WPARAM index, LPARAM)
{
    SelectByUser(tabs, static_cast<int>(index));
    return 0;
}

// --- Geometry ---

LRESULT OnGetItemRect(TabControl& tabs, WPARAM index, LPARAM rect)
{
    if (rect == 0 || !HasTab(tabs, static_cast<int>(index)))
        return FALSE;
    *reinterpret_cast<RECT*>(rect) = TabRect(tabs, static_cast<int>(index));
    return TRUE;
}

LRESULT OnHitTest(TabControl& tabs, WPARAM, LPARAM lParam)
{
    auto* const test = reinterpret_cast<TCHITTESTINFO*>(lParam);
    if (test == nullptr)
        return kNoTab;
    const int index = TabAt(tabs, test->pt);
    test->flags = index != kNoTab ? TCHT_ONITEM : TCHT_NOWHERE;
    return index;
}

LRESULT OnAdjustRect(TabControl& tabs, WPARAM larger, LPARAM rect)
{
    if (rect == 0)
        return kNoTab;
    AdjustTabRect(tabs, larger != 0, *reinterpret_cast<RECT*>(rect));
    return 0;
}

SIZE SizeOf(LPARAM lParam)
{
    return {LOWORD(lParam), HIWORD(lParam)};
}

LRESULT OnSetItemSize(TabControl& tabs, WPARAM, LPARAM size)
{
    const SIZE previous = tabs.fixed;
    tabs.fixed = SizeOf(size);
    RepaintTabs(tabs);
    return MAKELONG(previous.cx, previous.cy);
}

LRESULT OnSetPadding(TabControl& tabs, WPARAM, LPARAM padding)
{
    tabs.padding = SizeOf(padding);
    RepaintTabs(tabs);
    return 0;
}

LRESULT OnSetMinTabWidth(TabControl& tabs, WPARAM, LPARAM width)
{
    constexpr int kDefaultWidth = 42;
    constexpr LPARAM kWidest = 0x7FFF;
    const int previous = tabs.minimumWidth;
    tabs.minimumWidth = width < 0 ? kDefaultWidth : static_cast<int>(std::min(width, kWidest));
    RepaintTabs(tabs);
    return previous;
}

LRESULT OnGetRowCount(TabControl& tabs, WPARAM, LPARAM)
{
    return tabs.items.empty() ? 0 : 1;
}

// --- Input ---

LRESULT OnButtonDown(TabControl& tabs, WPARAM, LPARAM lParam)
{
    const int index = TabAt(tabs, PointOf(lParam));
    if (index == kNoTab)
        return 0;
    const bool takesFocus = (tabs.style & TCS_FOCUSNEVER) == 0 &&
                            ((tabs.style & TCS_FOCUSONBUTTONDOWN) != 0 || index == tabs.selected);
    if (takesFocus)
        SetFocus(tabs.window);
    if (!tabs.gone)
        SelectByUser(tabs, index);
    return 0;
}

LRESULT OnButtonUp(TabControl& tabs, WPARAM, LPARAM)
{
    Notify(tabs, NM_CLICK);
    return 0;
}

LRESULT OnKeyDown(TabControl& tabs, WPARAM key, LPARAM flags)
{
    NMTCKEYDOWN pressed = {};
    pressed.hdr = {tabs.window, ControlId(tabs.window), TCN_KEYDOWN};
    pressed.wVKey = static_cast<WORD>(key);
    pressed.flags = static_cast<UINT>(flags);
    SendMessageW(GetParent(tabs.window), WM_NOTIFY, pressed.hdr.idFrom, reinterpret_cast<LPARAM>(&pressed));
    if (tabs.gone)
        return 0;
    if (key == VK_LEFT)
        SelectByUser(tabs, tabs.focus - 1);
    else if (key == VK_RIGHT)
        SelectByUser(tabs, tabs.focus + 1);
    return 0;
}

LRESULT OnGetDlgCode(TabControl&, WPARAM, LPARAM)
{
    return DLGC_WANTARROWS | DLGC_WANTCHARS;
}

/// The pages' area lets the mouse through to what lies under it.
LRESULT OnHitTestWindow(TabControl& tabs, WPARAM, LPARAM lParam)
{
    POINT point = PointOf(lParam);
    ScreenToClient(tabs.window, &point);
    return TabAt(tabs, point) != kNoTab ? HTCLIENT : HTTRANSPARENT;
}

// --- Window ---

LRESULT OnSize(TabControl& tabs, WPARAM, LPARAM)
{
    Repaint(tabs.window);
    return 0;
}

LRESULT OnFocusChange(TabControl& tabs, WPARAM, LPARAM)
{
    RepaintTabs(tabs);
    return 0;
}

LRESULT OnSetFont(TabControl& tabs, WPARAM font, LPARAM)
{
    tabs.font = reinterpret_cast<HFONT>(font);
    RepaintTabs(tabs);
    return 0;
}

LRESULT OnGetFont(TabControl& tabs, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(tabs.font);
}

LRESULT OnSetRedraw(TabControl& tabs, WPARAM redraw, LPARAM)
{
    tabs.redraw = redraw != 0;
    RepaintTabs(tabs);
    return 0;
}

LRESULT OnErase(TabControl&, WPARAM, LPARAM)
{
    return TRUE; // painting leaves nothing out
}

constexpr MessageRow<TabControl> kMessages[] = {
    {WM_SIZE, OnSize},
    {WM_SETFOCUS, OnFocusChange},
    {WM_KILLFOCUS, OnFocusChange},
    {WM_ENABLE, OnFocusChange},
    {WM_SETREDRAW, OnSetRedraw},
    {WM_PAINT, OnTabPaint},
    {WM_ERASEBKGND, OnErase},
    {WM_SETFONT, OnSetFont},
    {WM_GETFONT, OnGetFont},
    {WM_NCHITTEST, OnHitTestWindow},
    {WM_GETDLGCODE, OnGetDlgCode},
    {WM_KEYDOWN, OnKeyDown},
    {WM_LBUTTONDOWN, OnButtonDown},
    {WM_LBUTTONUP, OnButtonUp},
    {WM_LBUTTONDBLCLK, OnButtonDown},
    {TCM_GETITEMCOUNT, OnGetItemCount},
    {TCM_DELETEITEM, OnDeleteItem},
    {TCM_DELETEALLITEMS, OnDeleteAllItems},
    {TCM_GETITEMRECT, OnGetItemRect},
    {TCM_GETCURSEL, OnGetCurSel},
    {TCM_SETCURSEL, OnSetCurSel},
    {TCM_HITTEST, OnHitTest},
    {TCM_ADJUSTRECT, OnAdjustRect},
    {TCM_SETITEMSIZE, OnSetItemSize},
    {TCM_SETPADDING, OnSetPadding},
    {TCM_GETROWCOUNT, OnGetRowCount},
    {TCM_GETCURFOCUS, OnGetCurFocus},
    {TCM_SETCURFOCUS, OnSetCurFocus},
    {TCM_SETMINTABWIDTH, OnSetMinTabWidth},
    {TCM_HIGHLIGHTITEM, OnHighlightItem},
    {TCM_GETITEMW, OnGetItem},
    {TCM_SETITEMW, OnSetItem},
    {TCM_INSERTITEMW, OnInsertItem},
};
static_assert(InOrder<TabControl>(kMessages));

} // namespace

LRESULT CALLBACK TabProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunRows<TabControl>(kMessages, window, message, wParam, lParam);
}

} // namespace host
