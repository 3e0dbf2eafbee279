#pragma once
// The combo box: a field, and a list that belongs to it and drops down under it. The list is a window of its
// own, of class "ComboLBox", which holds the entries; the field of an editable combo box is an ordinary
// "Edit".
//
// combo_box.cpp keeps field and list together, combo_box_drop.cpp opens and closes the list,
// combo_box_view.cpp is for sizes and painting, combo_box_input.cpp for keys and mouse.
#include "host/window/controls/control.h"

namespace host {

struct ComboBox : ControlState
{
    HWND list = nullptr;
    HWND edit = nullptr; ///< null for CBS_DROPDOWNLIST
    WNDPROC editProcedure = nullptr;
    HFONT font = nullptr;
    int fieldHeight = 0;    ///< of the entry shown in the field, pixels, without the field's border
    bool ownHeight = false; ///< the program has set it: fonts do not change it
    int listHeight = 0;     ///< of the dropped list, pixels
    int droppedWidth = 0;   ///< at least so wide; the control's own width where that is more
    int shown = -1;         ///< entry in the field, and the selection to return to when a choice is cancelled
    bool dropped = false;   ///< from CBN_DROPDOWN until the list is hidden
    bool focused = false;
    bool extended = false; ///< the extended user interface: arrow down opens, F4 does nothing
    bool redraw = true;
    bool settingText = false; ///< the edit's text is being set to an entry: not an edit by the user
};

inline bool IsOwnerDrawn(const ComboBox& combo)
{
    return (combo.style & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
}

inline bool HasStrings(const ComboBox& combo)
{
    return (combo.style & CBS_HASSTRINGS) != 0 || !IsOwnerDrawn(combo);
}

/// One of CBS_SIMPLE, CBS_DROPDOWN, CBS_DROPDOWNLIST.
inline DWORD KindOf(const ComboBox& combo)
{
    constexpr DWORD kKindMask = 3;
    return combo.style & kKindMask;
}

inline bool HasDropList(const ComboBox& combo)
{
    return KindOf(combo) != CBS_SIMPLE;
}

inline LRESULT AskList(const ComboBox& combo, UINT message, WPARAM wParam = 0, LPARAM lParam = 0)
{
    return SendMessageW(combo.list, message, wParam, lParam);
}

/// The list's selection, or -1.
inline int SelectionOf(const ComboBox& combo)
{
    return static_cast<int>(AskList(combo, LB_GETCURSEL));
}

/// The text of an entry; empty for none.
Text EntryText(const ComboBox& combo, int index);
/// Shows an entry in the field; the whole text is selected where the user has chosen it.
void ShowEntry(ComboBox& combo, int index, bool byUser);

// --- The drop list ---

/// Opens the list: CBN_DROPDOWN comes first, so that the program may still fill it.
void DropDown(ComboBox& combo);
/// Closes the list with CBN_SELENDOK or CBN_SELENDCANCEL, and CBN_CLOSEUP. A choice that was not taken is
/// undone.
void RollUp(ComboBox& combo, bool accepted);
/// The drop list of `comboWindow` says that the user has chosen with the mouse, or pressed elsewhere.
void CloseDropList(HWND comboWindow, bool accepted);
/// The user has moved the selection by a key or the wheel.
void SelectionMoved(ComboBox& combo);

// --- View ---

/// The height of the control without its list.
int FieldWindowHeight(const ComboBox& combo);
RECT ButtonRect(const ComboBox& combo);
/// Where the entry is shown, inside border and button.
RECT EntryRect(const ComboBox& combo);
/// Where the list is when it is open, in screen coordinates.
RECT DropRect(const ComboBox& combo);
/// Sizes the control, its edit and the list of CBS_SIMPLE.
void LayOut(ComboBox& combo);
void RepaintField(const ComboBox& combo);

LRESULT OnComboPaint(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboErase(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboPosChanging(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboSize(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboSetFont(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboSetRedraw(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboGetItemHeight(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboSetItemHeight(ComboBox& combo, WPARAM wParam, LPARAM lParam);
/// The height of the field before the program has said anything.
void MeasureField(ComboBox& combo);

// --- Input ---

LRESULT OnComboKeyDown(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboSysKeyDown(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboChar(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboButtonDown(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboMouseWheel(ComboBox& combo, WPARAM wParam, LPARAM lParam);
LRESULT OnComboGetDlgCode(ComboBox& combo, WPARAM wParam, LPARAM lParam);
/// In front of the edit's own procedure: keys for the list go there.
LRESULT CALLBACK ComboEditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);

LRESULT CALLBACK ComboBoxProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
