// What the user does with a list box.
#include "host/window/controls/combo_box.h"
#include "host/window/controls/list_box.h"

namespace host {
namespace {

constexpr UINT_PTR kScrollTimer = 1;
constexpr UINT kScrollInterval = 50; // ms between lines while the mouse is held outside

void SelectFromAnchor(ListBox& list, int index)
{
    const int first = std::min(list.anchor, index);
    const int last = std::max(list.anchor, index);
    for (int each = 0; each < CountOf(list.items); ++each)
        SetSelected(list, each, each >= first && each <= last);
}

/// A plain, a Shift or a Ctrl choice in a list with extended selection.
void ChooseExtended(ListBox& list, int index, bool shift, bool control)
{
    if (shift) {
        SelectFromAnchor(list, index);
        MoveCaret(list, index);
        return;
    }
    list.anchor = index;
    if (!control) {
        ChooseItem(list, index);
        return;
    }
    SetSelected(list, index, !list.items[index].selected);
    MoveCaret(list, index);
}

// --- Keys ---

/// The entry that a key goes to, which may lie beyond the ends; the caret's for keys that go nowhere.
int KeyTarget(const ListBox& list, WPARAM key)
{
    const int page = FittingItems(list, list.top) - 1;
    switch (key) {
    case VK_UP:
    case VK_LEFT:
        return list.caret - 1;
    case VK_DOWN:
    case VK_RIGHT:
        // The first step into a list without a selection selects where the caret is.
        return !SelectsSeveral(list) && list.selected == kNoItem ? list.caret : list.caret + 1;
    case VK_PRIOR:
        return list.caret - std::max(page, 1);
    case VK_NEXT:
        return list.caret + std::max(page, 1);
    case VK_HOME:
        return 0;
    case VK_END:
        return CountOf(list.items) - 1;
    }
    return list.caret;
}

bool IsMovingKey(WPARAM key)
{
    return (key >= VK_PRIOR && key <= VK_DOWN); // page up, page down, end, home, left, up, right, down
}

void ChooseByKey(ListBox& list, int index)
{
    if (HasStyle(list, LBS_MULTIPLESEL))
        MoveCaret(list, index);
    else if (HasStyle(list, LBS_EXTENDEDSEL))
        ChooseExtended(list, index, KeyIsDown(VK_SHIFT), false);
    else
        ChooseItem(list, index);
    NotifyList(list, LBN_SELCHANGE);
}

void ToggleCaret(ListBox& list)
{
    if (HasStyle(list, LBS_MULTIPLESEL))
        SetSelected(list, list.caret, !list.items[list.caret].selected);
    else
        ChooseExtended(list, list.caret, KeyIsDown(VK_SHIFT), KeyIsDown(VK_CONTROL));
    NotifyList(list, LBN_SELCHANGE);
}

} // namespace

LRESULT OnListKeyDown(ListBox& list, WPARAM key, LPARAM)
{
    if (list.items.empty())
        return 0;
    if (IsMovingKey(key))
        ChooseByKey(list, std::clamp(KeyTarget(list, key), 0, CountOf(list.items) - 1));
    else if (key == VK_SPACE && SelectsSeveral(list))
        ToggleCaret(list);
    return 0;
}

LRESULT OnListChar(ListBox& list, WPARAM wParam, LPARAM)
{
    const WCHAR letter = static_cast<WCHAR>(wParam);
    if (letter <= TEXT(' ') || !HasStrings(list))
        return 0;
    // Until something is selected the search starts at the top.
    const bool fresh = !SelectsSeveral(list) && list.selected == kNoItem;
    const int index = FindPrefix(list.items, fresh ? kNoItem : list.caret, Text(1, letter));
    if (index != kNoItem)
        ChooseByKey(list, index);
    return 0;
}

// --- Mouse ---

namespace {

bool InClient(const ListBox& list, POINT point)
{
    const RECT client = ClientRectOf(list.window);
    return PtInRect(&client, point);
}

void StartTracking(ListBox& list)
{
    SetCapture(list.window);
    list.tracking = true;
    list.entered = !IsDropList(list); // the press that opens a drop list lies outside it
    SetTimer(list.window, kScrollTimer, kScrollInterval, nullptr);
}

void ChooseByMouse(ListBox& list, int index, WPARAM keys)
{
    if (HasStyle(list, LBS_MULTIPLESEL)) {
        SetSelected(list, index, !list.items[index].selected);
        MoveCaret(list, index);
    } else if (HasStyle(list, LBS_EXTENDEDSEL)) {
        ChooseExtended(list, index, (keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0);
    } else {
        ChooseItem(list, index);
    }
}

/// The mouse is at `y` with the button down, inside or outside.
void DragTo(ListBox& list, int y)
{
    int index = ItemAt(list, y);
    if (index == kNoItem)
        index = CountOf(list.items) - 1;
    // Outside, the list scrolls by one entry at a time.
    const int lowest = list.top + FittingItems(list, list.top);
    index = std::clamp(index, std::max(list.top - 1, 0), std::min(lowest, CountOf(list.items) - 1));
    if (index == list.caret)
        return;
    if (HasStyle(list, LBS_EXTENDEDSEL))
        SelectFromAnchor(list, index);
    if (SelectsSeveral(list))
        MoveCaret(list, index);
    else
        ChooseItem(list, index);
}

/// A press that the open drop list has captured, wherever it is.
void PressDropList(ListBox& list, POINT point)
{
    if (InClient(list, point)) {
        if (!list.tracking)
            StartTracking(list);
        list.entered = true;
        if (const int index = ItemAt(list, point.y); index != kNoItem)
            ChooseItem(list, index);
        return;
    }
    RECT window = {};
    GetWindowRect(list.window, &window);
    ClientToScreen(list.window, &point);
    if (!PtInRect(&window, point)) {
        CloseDropList(list.combo, false);
        return;
    }
    ReleaseCapture();
    const LPARAM place = MAKELPARAM(point.x, point.y);
    const LRESULT part = SendMessageW(list.window, WM_NCHITTEST, 0, place);
    SendMessageW(list.window, WM_NCLBUTTONDOWN, static_cast<WPARAM>(part), place);
}

} // namespace

void FollowMouse(HWND dropList)
{
    if (ListBox* const list = StateOf<ListBox>(dropList); list != nullptr)
        StartTracking(*list);
}

LRESULT OnListButtonDown(ListBox& list, WPARAM keys, LPARAM lParam)
{
    const POINT point = PointOf(lParam);
    if (IsDropList(list)) {
        PressDropList(list, point);
        return 0;
    }
    SetFocus(list.window);
    if (list.gone)
        return 0;
    StartTracking(list);
    if (const int index = ItemAt(list, point.y); index != kNoItem && InClient(list, point))
        ChooseByMouse(list, index, keys);
    return 0;
}

LRESULT OnListButtonUp(ListBox& list, WPARAM, LPARAM lParam)
{
    const POINT point = PointOf(lParam);
    if (IsDropList(list)) {
        // Letting go elsewhere, over the arrow that opened the list, say, leaves it open.
        if (InClient(list, point) && ItemAt(list, point.y) != kNoItem)
            CloseDropList(list.combo, true);
        return 0;
    }
    if (list.tracking) {
        ReleaseCapture();
        NotifyList(list, LBN_SELCHANGE);
    }
    return 0;
}

LRESULT OnListDoubleClick(ListBox& list, WPARAM keys, LPARAM lParam)
{
    if (IsDropList(list))
        return OnListButtonDown(list, keys, lParam);
    NotifyList(list, LBN_DBLCLK);
    return 0;
}

LRESULT OnListMouseMove(ListBox& list, WPARAM, LPARAM lParam)
{
    if (!list.tracking || list.items.empty())
        return 0;
    const POINT point = PointOf(lParam);
    if (IsDropList(list) && (!InClient(list, point) || ItemAt(list, point.y) == kNoItem))
        return 0;
    list.entered = true;
    DragTo(list, point.y);
    return 0;
}

LRESULT OnListTimer(ListBox& list, WPARAM, LPARAM)
{
    POINT point = {};
    GetCursorPos(&point);
    ScreenToClient(list.window, &point);
    const RECT client = ClientRectOf(list.window);
    const bool outside = point.y < client.top || point.y >= client.bottom;
    if (list.tracking && list.entered && outside && KeyIsDown(VK_LBUTTON) && !list.items.empty())
        DragTo(list, point.y);
    return 0;
}

LRESULT OnListCaptureChanged(ListBox& list, WPARAM, LPARAM)
{
    list.tracking = false;
    KillTimer(list.window, kScrollTimer);
    return 0;
}

LRESULT OnListMouseWheel(ListBox& list, WPARAM wParam, LPARAM)
{
    constexpr int kLinesPerNotch = 3;
    list.wheel += static_cast<SHORT>(HIWORD(wParam));
    const int notches = list.wheel / WHEEL_DELTA;
    list.wheel -= notches * WHEEL_DELTA;
    SetTop(list, list.top - notches * kLinesPerNotch);
    return 0;
}

} // namespace host
