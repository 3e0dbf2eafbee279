// How a list box looks: where entries are, scroll bars, painting.
#include "host/window/controls/list_box.h"

#include <utility>

namespace host {

int HeightOf(const ListBox& list, int index)
{
    const bool own = HasStyle(list, LBS_OWNERDRAWVARIABLE) && HasItem(list.items, index);
    return own && list.items[index].height > 0 ? list.items[index].height : list.itemHeight;
}

namespace {

/// Pixels from the top of the client area to the top of an entry; negative for one that is scrolled off.
int TopOf(const ListBox& list, int index)
{
    if (!HasStyle(list, LBS_OWNERDRAWVARIABLE))
        return (index - list.top) * list.itemHeight;
    int y = 0;
    for (int each = list.top; each < index; ++each)
        y += HeightOf(list, each);
    for (int each = index; each < list.top; ++each)
        y -= HeightOf(list, each);
    return y;
}

/// The first entry of those that are seen when `last` is the lowest that fits as a whole.
int TopWithLast(const ListBox& list, int last)
{
    int left = ClientRectOf(list.window).bottom - HeightOf(list, last);
    int first = last;
    while (first > 0 && left >= HeightOf(list, first - 1))
        left -= HeightOf(list, --first);
    return first;
}

int LastTop(const ListBox& list)
{
    return list.items.empty() ? 0 : TopWithLast(list, CountOf(list.items) - 1);
}

void SetBar(const ListBox& list, int bar, int contents, int page, int position)
{
    SCROLLINFO info = {};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    if (HasStyle(list, LBS_DISABLENOSCROLL))
        info.fMask |= SIF_DISABLENOSCROLL;
    info.nMax = std::max(contents - 1, 0);
    info.nPage = static_cast<UINT>(page);
    info.nPos = position;
    SetScrollInfo(list.window, bar, &info, TRUE);
}

void SetBars(ListBox& list)
{
    if (HasStyle(list, WS_VSCROLL))
        SetBar(list, SB_VERT, CountOf(list.items), FittingItems(list, LastTop(list)), list.top);
    if (HasStyle(list, WS_HSCROLL))
        SetBar(list, SB_HORZ, list.extent, ClientRectOf(list.window).right, list.left);
}

} // namespace

RECT RectOf(const ListBox& list, int index)
{
    RECT rect = ClientRectOf(list.window);
    rect.left = -list.left;
    rect.right = std::max<LONG>(rect.right, list.extent - list.left);
    const bool known = HasItem(list.items, index);
    rect.top = TopOf(list, known ? index : CountOf(list.items));
    rect.bottom = rect.top + (known ? HeightOf(list, index) : 0);
    return rect;
}

int FittingItems(const ListBox& list, int first)
{
    int left = ClientRectOf(list.window).bottom;
    if (!HasStyle(list, LBS_OWNERDRAWVARIABLE))
        return std::max(left / list.itemHeight, 1);
    int count = 0;
    for (int index = first; index < CountOf(list.items) && left >= HeightOf(list, index); ++index, ++count)
        left -= HeightOf(list, index);
    return std::max(count, 1);
}

int ItemAt(const ListBox& list, int y)
{
    int index = list.top;
    if (y < 0) {
        while (index > 0 && y < 0)
            y += HeightOf(list, --index);
        return index;
    }
    while (index < CountOf(list.items) && y >= HeightOf(list, index))
        y -= HeightOf(list, index++);
    return index < CountOf(list.items) ? index : kNoItem;
}

void SetTop(ListBox& list, int index)
{
    const int top = std::clamp(index, 0, LastTop(list));
    if (top == list.top)
        return;
    list.top = top;
    if (!list.redraw)
        return;
    SetBars(list);
    InvalidateRect(list.window, nullptr, TRUE);
}

void BringIntoView(ListBox& list, int index)
{
    if (index < list.top)
        SetTop(list, index);
    else if (HasItem(list.items, index) && RectOf(list, index).bottom > ClientRectOf(list.window).bottom)
        SetTop(list, TopWithLast(list, index));
}

void RefreshView(ListBox& list)
{
    list.top = std::clamp(list.top, 0, LastTop(list));
    list.left =
        std::clamp<int>(list.left, 0, std::max<LONG>(list.extent - ClientRectOf(list.window).right, 0));
    if (!list.redraw)
        return;
    SetBars(list);
    InvalidateRect(list.window, nullptr, TRUE);
}

void FitHeight(ListBox& list)
{
    // A drop list is sized by its combo box.
    if (HasStyle(list, LBS_NOINTEGRALHEIGHT | LBS_OWNERDRAWVARIABLE) || IsDropList(list))
        return;
    const int height = ClientRectOf(list.window).bottom;
    const int rest = height % list.itemHeight;
    if (height <= list.itemHeight || rest == 0)
        return;
    RECT window = {};
    GetWindowRect(list.window, &window);
    SetWindowPos(list.window, nullptr, 0, 0, window.right - window.left, window.bottom - window.top - rest,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

namespace {

// --- Painting ---

HBRUSH AskColors(const ListBox& list, HDC dc)
{
    const LRESULT brush = SendMessageW(GetParent(KnownControl(list)), WM_CTLCOLORLISTBOX,
                                       reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(list.window));
    return brush != 0 ? reinterpret_cast<HBRUSH>(brush) : GetSysColorBrush(COLOR_WINDOW);
}

bool ShowsDisabled(const ListBox& list)
{
    return !IsWindowEnabled(KnownControl(list));
}

bool HasFocusRect(const ListBox& list, int index)
{
    return list.focusShown && index == list.caret;
}

void DrawByOwner(const ListBox& list, HDC dc, int index, const RECT& rect, UINT action)
{
    const HWND control = KnownControl(list);
    DRAWITEMSTRUCT draw = {};
    draw.CtlType = ControlType(list);
    draw.CtlID = ControlId(control);
    draw.itemID = static_cast<UINT>(index);
    draw.itemAction = action;
    draw.itemState = (IsSelected(list, index) ? ODS_SELECTED : 0) | (ShowsDisabled(list) ? ODS_DISABLED : 0) |
                     (HasFocusRect(list, index) ? ODS_FOCUS : 0);
    draw.hwndItem = control;
    draw.hDC = dc;
    draw.rcItem = rect;
    draw.itemData = list.items[index].data;
    SendMessageW(GetParent(control), WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
}

void DrawItemText(const ListBox& list, HDC dc, const Text& text, const RECT& rect)
{
    constexpr int kTextMargin = 2; // pixels
    const int x = rect.left + kTextMargin;
    const int length = static_cast<int>(text.size());
    if (HasStyle(list, LBS_USETABSTOPS)) {
        const int count = static_cast<int>(list.tabStops.size());
        TabbedTextOutW(dc, x, rect.top, text.c_str(), length, count, list.tabStops.data(), x);
    } else {
        TextOutW(dc, x, rect.top, text.c_str(), length);
    }
}

void DrawPlain(const ListBox& list, HDC dc, int index, const RECT& rect, HBRUSH background)
{
    const bool selected = IsSelected(list, index);
    const bool disabled = ShowsDisabled(list);
    if (!selected)
        FillRect(dc, &rect, background);
    else
        theme::Fill(dc, rect, disabled ? theme::kDisabledBorder : GetSysColor(COLOR_HIGHLIGHT));
    if (disabled)
        SetTextColor(dc, theme::kDisabledText);
    else if (selected)
        SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    SetBkMode(dc, TRANSPARENT);
    DrawItemText(list, dc, list.items[index].text, rect);
    if (HasFocusRect(list, index))
        DrawFocusRect(dc, &rect);
}

/// Leaves the device context as it was, whatever the program does with it.
void DrawItem(const ListBox& list, HDC dc, int index, UINT action)
{
    const int saved = SaveDC(dc);
    const HBRUSH background = AskColors(list, dc);
    const RECT rect = RectOf(list, index);
    IntersectClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
    if (IsOwnerDrawn(list))
        DrawByOwner(list, dc, index, rect, action);
    else
        DrawPlain(list, dc, index, rect, background);
    RestoreDC(dc, saved);
}

} // namespace

void PaintItem(ListBox& list, int index, UINT action)
{
    if (!list.redraw || !HasItem(list.items, index) || !IsWindowVisible(list.window))
        return;
    const RECT rect = RectOf(list, index);
    const RECT client = ClientRectOf(list.window);
    RECT seen = {};
    if (IntersectRect(&seen, &rect, &client))
        DrawItem(list, ControlDc(list.window, list.font), index, action);
}

LRESULT OnListPaint(ListBox& list, WPARAM, LPARAM)
{
    PAINTSTRUCT paint = {};
    const HDC dc = BeginPaint(list.window, &paint);
    if (list.redraw) {
        if (list.font != nullptr)
            SelectObject(dc, list.font);
        const LONG bottom = ClientRectOf(list.window).bottom;
        const bool focusShown = std::exchange(list.focusShown, false);
        for (int index = list.top; index < CountOf(list.items) && RectOf(list, index).top < bottom; ++index) {
            const RECT rect = RectOf(list, index);
            RECT dirty = {};
            if (IntersectRect(&dirty, &rect, &paint.rcPaint))
                DrawItem(list, dc, index, ODA_DRAWENTIRE);
        }
        list.focusShown = focusShown;
        if (focusShown && HasItem(list.items, list.caret))
            DrawItem(list, dc, list.caret, ODA_FOCUS);
    }
    EndPaint(list.window, &paint);
    return 0;
}

LRESULT OnListErase(ListBox& list, WPARAM wParam, LPARAM)
{
    const HDC dc = reinterpret_cast<HDC>(wParam);
    const RECT client = ClientRectOf(list.window);
    FillRect(dc, &client, AskColors(list, dc));
    return TRUE;
}

LRESULT OnListSize(ListBox& list, WPARAM, LPARAM)
{
    FitHeight(list);
    RefreshView(list);
    return 0;
}

LRESULT OnListSetRedraw(ListBox& list, WPARAM redraw, LPARAM)
{
    list.redraw = redraw != 0;
    RefreshView(list);
    return 0;
}

LRESULT OnListSetFont(ListBox& list, WPARAM font, LPARAM redraw)
{
    list.font = reinterpret_cast<HFONT>(font);
    // An owner has said how high its entries are.
    if (!IsOwnerDrawn(list)) {
        list.itemHeight = std::clamp(LineHeight(list.window, list.font), 1, kMaxItemHeight);
        FitHeight(list);
    }
    RefreshView(list);
    if (LOWORD(redraw) != 0)
        InvalidateRect(list.window, nullptr, TRUE);
    return 0;
}

namespace {

/// Where a scroll bar goes; `line` and `page` are its steps, `last` its last position.
int ScrolledTo(HWND window, int bar, UINT code, int position, int line, int page, int last)
{
    switch (code) {
    case SB_LINEUP:
        return position - line;
    case SB_LINEDOWN:
        return position + line;
    case SB_PAGEUP:
        return position - page;
    case SB_PAGEDOWN:
        return position + page;
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return last;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK: {
        // The message holds 16 bits of the position only.
        SCROLLINFO info = {};
        info.cbSize = sizeof info;
        info.fMask = SIF_TRACKPOS;
        GetScrollInfo(window, bar, &info);
        return info.nTrackPos;
    }
    }
    return position;
}

} // namespace

LRESULT OnListVScroll(ListBox& list, WPARAM wParam, LPARAM)
{
    const UINT code = LOWORD(wParam);
    SetTop(list,
           ScrolledTo(list.window, SB_VERT, code, list.top, 1, FittingItems(list, list.top), LastTop(list)));
    // The scroll bar took the mouse away from an open drop list.
    if (code == SB_ENDSCROLL && IsDropList(list) && IsWindowVisible(list.window))
        FollowMouse(list.window);
    return 0;
}

LRESULT OnListHScroll(ListBox& list, WPARAM wParam, LPARAM)
{
    constexpr int kLine = 12; // pixels, about two letters
    const int page = ClientRectOf(list.window).right;
    const int last = std::max(list.extent - page, 0);
    const int left = ScrolledTo(list.window, SB_HORZ, LOWORD(wParam), list.left, kLine, page, last);
    if (left != list.left) {
        list.left = left;
        RefreshView(list);
    }
    return 0;
}

} // namespace host
