// Keys and mouse of a combo box. The focus is the field's, open list or not.
#include "host/window/controls/combo_box.h"
#include "host/window/controls/list_box.h"

namespace host {
namespace {

bool IsClosingKey(const ComboBox& combo, WPARAM key)
{
    return combo.dropped && (key == VK_RETURN || key == VK_ESCAPE);
}

/// Keys of the field that are for the list, in an editable field, too.
bool IsListKey(WPARAM key)
{
    return key == VK_UP || key == VK_DOWN || key == VK_PRIOR || key == VK_NEXT || key == VK_F4;
}

/// A list that the user has opened follows the mouse, so that a press anywhere else closes it.
void Toggle(ComboBox& combo, bool accept)
{
    if (combo.dropped) {
        RollUp(combo, accept);
        return;
    }
    DropDown(combo);
    if (!combo.gone && combo.dropped)
        FollowMouse(combo.list);
}

bool IsArrow(WPARAM key)
{
    return key == VK_UP || key == VK_DOWN;
}

bool HandledByEdit(WPARAM key)
{
    return key == VK_LEFT || key == VK_RIGHT || key == VK_HOME || key == VK_END;
}

} // namespace

LRESULT OnComboKeyDown(ComboBox& combo, WPARAM key, LPARAM lParam)
{
    if (IsClosingKey(combo, key)) {
        RollUp(combo, key == VK_RETURN);
        return 0;
    }
    if (key == VK_F4 && !combo.extended) {
        Toggle(combo, false);
        return 0;
    }
    if (combo.extended && !combo.dropped && key == VK_DOWN) {
        Toggle(combo, false);
        return 0;
    }
    if (combo.edit == nullptr || !HandledByEdit(key))
        AskList(combo, WM_KEYDOWN, key, lParam);
    return 0;
}

LRESULT OnComboSysKeyDown(ComboBox& combo, WPARAM key, LPARAM lParam)
{
    if (!HasDropList(combo) || !IsArrow(key))
        return DefWindowProcW(combo.window, WM_SYSKEYDOWN, key, lParam);
    // Closing by Alt and an arrow takes the choice in the extended interface only.
    Toggle(combo, combo.extended);
    return 0;
}

LRESULT OnComboChar(ComboBox& combo, WPARAM letter, LPARAM lParam)
{
    return AskList(combo, WM_CHAR, letter, lParam);
}

LRESULT OnComboButtonDown(ComboBox& combo, WPARAM, LPARAM lParam)
{
    const RECT button = ButtonRect(combo);
    const POINT point = PointOf(lParam);
    SetFocus(combo.edit != nullptr ? combo.edit : combo.window);
    if (combo.gone || !HasDropList(combo) || (combo.edit != nullptr && !PtInRect(&button, point)))
        return 0;
    Toggle(combo, false);
    return 0;
}

LRESULT OnComboMouseWheel(ComboBox& combo, WPARAM wParam, LPARAM lParam)
{
    if (combo.dropped)
        return AskList(combo, WM_MOUSEWHEEL, wParam, lParam);
    const bool down = static_cast<SHORT>(HIWORD(wParam)) < 0;
    return AskList(combo, WM_KEYDOWN, down ? VK_DOWN : VK_UP);
}

LRESULT OnComboGetDlgCode(ComboBox& combo, WPARAM, LPARAM lParam)
{
    LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS;
    const MSG* const message = reinterpret_cast<const MSG*>(lParam);
    if (message != nullptr && message->message == WM_KEYDOWN && IsClosingKey(combo, message->wParam))
        code |= DLGC_WANTMESSAGE; // before the dialog's default button and Cancel
    return code;
}

LRESULT CALLBACK ComboEditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND window = GetParent(edit);
    const ComboBox* const combo = StateOf<ComboBox>(window);
    if (combo == nullptr)
        return DefWindowProcW(edit, message, wParam, lParam);
    switch (message) {
    case WM_KEYDOWN:
        if (IsListKey(wParam) || IsClosingKey(*combo, wParam))
            return SendMessageW(window, message, wParam, lParam);
        break;
    case WM_SYSKEYDOWN:
        if (HasDropList(*combo) && IsArrow(wParam))
            return SendMessageW(window, message, wParam, lParam);
        break;
    case WM_CHAR:
        // A key that has just closed the list comes as a character, too.
        if (wParam == VK_RETURN || wParam == VK_ESCAPE)
            return 0;
        break;
    case WM_MOUSEWHEEL:
        return SendMessageW(window, message, wParam, lParam);
    case WM_GETDLGCODE:
        return CallWindowProcW(combo->editProcedure, edit, message, wParam, lParam) |
               SendMessageW(window, message, wParam, lParam);
    }
    return CallWindowProcW(combo->editProcedure, edit, message, wParam, lParam);
}

} // namespace host
