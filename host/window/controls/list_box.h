#pragma once
// The list box: class "ListBox", and "ComboLBox", the list of a combo box.
//
// list_box.cpp keeps the entries, list_box_view.cpp shows them, list_box_input.cpp is for keys and mouse.
#include "host/window/controls/list_items.h"

namespace host {

struct ListBox : ControlState
{
    ListItems items;
    HWND combo = nullptr; ///< whose list it is; null for a list of its own
    HFONT font = nullptr;
    int itemHeight = 1; ///< pixels, of every entry unless they have heights of their own
    int top = 0;        ///< first visible entry
    int selected = kNoItem;
    int caret = 0;             ///< entry with the focus rectangle
    int anchor = 0;            ///< where a selection of several entries starts
    int extent = 0;            ///< width of the contents in pixels, for the horizontal scroll bar
    int left = 0;              ///< pixels scrolled off on the left
    std::vector<INT> tabStops; ///< pixels
    bool redraw = true;
    bool focused = false;
    bool focusShown = false; ///< the caret's entry is drawn with the focus
    bool tracking = false;   ///< the mouse is down, or a drop list follows it
    bool entered = false;    ///< since then the mouse has been over the entries
    int wheel = 0;           ///< turned and not yet scrolled, in wheel units
};

inline bool HasStyle(const ListBox& list, DWORD style)
{
    return (list.style & style) != 0;
}

inline bool SelectsSeveral(const ListBox& list)
{
    return HasStyle(list, LBS_MULTIPLESEL | LBS_EXTENDEDSEL);
}

inline bool IsOwnerDrawn(const ListBox& list)
{
    return HasStyle(list, LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE);
}

/// The list of a combo box that opens and closes, as opposed to one that is always there.
inline bool IsDropList(const ListBox& list)
{
    return list.combo != nullptr && !HasStyle(list, WS_CHILD);
}

/// Pixels; the platform keeps heights in a byte.
constexpr int kMaxItemHeight = 255;

/// The entries are texts, not just numbers of the program.
inline bool HasStrings(const ListBox& list)
{
    return HasStyle(list, LBS_HASSTRINGS) || !IsOwnerDrawn(list);
}

// --- Entries and selection ---

/// The control that the program knows: the combo box of a drop list, else the list box itself. Its parent
/// gets the messages about owner drawing.
HWND KnownControl(const ListBox& list);
UINT ControlType(const ListBox& list);

bool IsSelected(const ListBox& list, int index);
/// Selects one entry and no other, or none for kNoItem, and paints what changed.
void SelectOnly(ListBox& list, int index);
/// Selects or deselects an entry of a list with several selections.
void SetSelected(ListBox& list, int index, bool selected);
/// Moves the focus rectangle and brings its entry into view.
void MoveCaret(ListBox& list, int index);
/// Selects one entry and no other, with the focus rectangle on it.
void ChooseItem(ListBox& list, int index);
/// Tells the list's owner; the code is one of LBN_*.
void NotifyList(const ListBox& list, UINT code);

// --- View ---

int HeightOf(const ListBox& list, int index);
/// An entry's rectangle in client coordinates, wherever it is scrolled to. Empty and below the last entry for
/// anything else.
RECT RectOf(const ListBox& list, int index);
/// How many entries fit under `first` as a whole, at least 1.
int FittingItems(const ListBox& list, int first);
/// The entry at `y`, counted on beyond the edges of the list; kNoItem in the empty space below the last.
int ItemAt(const ListBox& list, int y);
/// Scrolls so that `index` is on top, as far as the entries go.
void SetTop(ListBox& list, int index);
void BringIntoView(ListBox& list, int index);
/// After entries or sizes changed: scroll bars and the first visible entry become right again, and all of it
/// is painted anew.
void RefreshView(ListBox& list);
/// Paints an entry at once, for one of ODA_*. An entry that is not there or cannot be seen is left alone.
void PaintItem(ListBox& list, int index, UINT action);
/// Makes the height a whole number of entries where the style asks for it.
void FitHeight(ListBox& list);

LRESULT OnListPaint(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListErase(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListSize(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListVScroll(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListHScroll(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListSetRedraw(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListSetFont(ListBox& list, WPARAM wParam, LPARAM lParam);

// --- Input ---

LRESULT OnListKeyDown(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListChar(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListButtonDown(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListButtonUp(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListDoubleClick(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListMouseMove(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListMouseWheel(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListTimer(ListBox& list, WPARAM wParam, LPARAM lParam);
LRESULT OnListCaptureChanged(ListBox& list, WPARAM wParam, LPARAM lParam);
/// Lets a drop list that has just opened follow the mouse until it closes.
void FollowMouse(HWND dropList);

LRESULT CALLBACK ListBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
