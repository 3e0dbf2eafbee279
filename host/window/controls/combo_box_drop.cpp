// Opening and closing the list of a combo box.
#include "host/window/controls/combo_box.h"
#include "host/window/controls/list_box.h"

namespace host {
namespace {

/// What the user has typed selects the entry that begins with it.
void SelectTyped(ComboBox& combo)
{
    if (combo.edit == nullptr)
        return;
    const Text typed = TextOf(combo.edit);
    combo.shown = static_cast<int>(
        AskList(combo, LB_FINDSTRING, static_cast<WPARAM>(kNoItem), reinterpret_cast<LPARAM>(typed.c_str())));
    AskList(combo, LB_SETCURSEL, static_cast<WPARAM>(combo.shown));
}

void ShowList(const ComboBox& combo)
{
    const RECT rect = DropRect(combo);
    SetWindowPos(combo.list, HWND_TOPMOST, rect.left, rect.top, rect.right - rect.left,
                 rect.bottom - rect.top, SWP_NOACTIVATE);
    // The selection stands on top as far as there are entries behind it.
    AskList(combo, LB_SETTOPINDEX, static_cast<WPARAM>(std::max(SelectionOf(combo), 0)));
    SetWindowPos(combo.list, HWND_TOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

} // namespace

void DropDown(ComboBox& combo)
{
    if (!HasDropList(combo) || combo.dropped)
        return;
    combo.dropped = true;
    NotifyParent(combo.window, CBN_DROPDOWN);
    if (combo.gone || !combo.dropped)
        return;
    SelectTyped(combo);
    combo.shown = SelectionOf(combo);
    ShowList(combo);
    RepaintField(combo);
    UpdateWindow(combo.window);
    UpdateWindow(combo.list);
}

void RollUp(ComboBox& combo, bool accepted)
{
    if (!combo.dropped)
        return;
    NotifyParent(combo.window, accepted ? CBN_SELENDOK : CBN_SELENDCANCEL);
    if (combo.gone || !combo.dropped)
        return;
    if (!accepted && SelectionOf(combo) != combo.shown)
        AskList(combo, LB_SETCURSEL, static_cast<WPARAM>(combo.shown));
    combo.dropped = false;
    if (GetCapture() == combo.list)
        ReleaseCapture();
    ShowWindow(combo.list, SW_HIDE);
    RepaintField(combo);
    NotifyParent(combo.window, CBN_CLOSEUP);
}

void CloseDropList(HWND comboWindow, bool accepted)
{
    ComboBox* const combo = StateOf<ComboBox>(comboWindow);
    if (combo == nullptr)
        return;
    ++combo->messages; // the state must last until the selection is told, too
    const int selection = SelectionOf(*combo);
    RollUp(*combo, accepted);
    if (accepted && !combo->gone) {
        ShowEntry(*combo, selection, true);
        NotifyParent(combo->window, CBN_SELCHANGE);
    }
    if (--combo->messages == 0 && combo->gone)
        delete combo;
}

void SelectionMoved(ComboBox& combo)
{
    ShowEntry(combo, SelectionOf(combo), true);
    if (HasDropList(combo) && !combo.dropped)
        NotifyParent(combo.window, CBN_SELENDOK);
    if (!combo.gone)
        NotifyParent(combo.window, CBN_SELCHANGE);
}

} // namespace host
