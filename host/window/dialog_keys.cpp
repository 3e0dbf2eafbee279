// The keyboard in dialogs: Tab and arrows, Enter and Esc, mnemonics, and the button that Enter presses.
#include <algorithm>

#include "host/window/dialog.h"

namespace host {
namespace {

LRESULT CodeOf(HWND control)
{
    return SendMessageW(control, WM_GETDLGCODE, 0, 0);
}

bool Usable(const Window& window)
{
    return IsVisibleStyle(window) && (window.style & WS_DISABLED) == 0;
}

/// The controls in tab order. What holds controls itself stands for them.
void CollectControls(const Window& parent, std::vector<HWND>& controls)
{
    for (const HWND handle : ChildrenOf(parent)) {
        const WindowPtr child = LookUp(handle);
        if (child == nullptr)
            continue;
        if ((child->exStyle & WS_EX_CONTROLPARENT) == 0)
            controls.push_back(handle);
        else if (Usable(*child))
            CollectControls(*child, controls);
    }
}

std::vector<HWND> ControlsOf(HWND dialog)
{
    std::vector<HWND> controls;
    const WindowPtr window = LookUp(dialog);
    if (window != nullptr)
        CollectControls(*window, controls);
    return controls;
}

bool IsTabStop(HWND control)
{
    const WindowPtr window = LookUp(control);
    return window != nullptr && Usable(*window) && (window->style & WS_TABSTOP) != 0;
}

/// Where in a ring of controls one stands. Inside a combo box it is the combo box that counts.
size_t PlaceIn(const std::vector<HWND>& controls, HWND control)
{
    for (; control != nullptr; control = GetParent(control)) {
        const auto found = std::find(controls.begin(), controls.end(), control);
        if (found != controls.end())
            return static_cast<size_t>(found - controls.begin());
    }
    return controls.size();
}

/// The members of a control's group, in order: from a WS_GROUP control up to before the next one.
std::vector<HWND> GroupOf(HWND control)
{
    const WindowPtr window = LookUp(control);
    if (window == nullptr || window->parent == nullptr)
        return {};
    std::vector<HWND> group;
    bool holdsControl = false;
    for (const HWND handle : ChildrenOf(*window->parent)) {
        const WindowPtr each = LookUp(handle);
        if ((each->style & WS_GROUP) != 0) {
            if (holdsControl)
                break;
            group.clear();
        }
        group.push_back(handle);
        holdsControl = holdsControl || handle == control;
    }
    return group;
}

void Click(HWND dialog, HWND button, int id)
{
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

void ShowAsDefault(HWND button, bool on)
{
    const LRESULT code = CodeOf(button);
    if (on ? (code & DLGC_UNDEFPUSHBUTTON) != 0 : (code & DLGC_DEFPUSHBUTTON) != 0)
        SendMessageW(button, BM_SETSTYLE, on ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
}

/// The default frame follows the focus onto push buttons and returns to the dialog's own one.
void MoveDefaultFrame(HWND dialog, HWND focus)
{
    const DialogState* const state = DialogOf(dialog);
    if (state == nullptr)
        return;
    HWND chosen = state->defaultId != 0 ? GetDlgItem(dialog, state->defaultId) : nullptr;
    if (focus != nullptr && (CodeOf(focus) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0)
        chosen = focus;
    for (const HWND control : ControlsOf(dialog)) {
        if (control != chosen)
            ShowAsDefault(control, false);
    }
    if (chosen != nullptr)
        ShowAsDefault(chosen, true);
}

void PressDefault(HWND dialog)
{
    const HWND focus = GetFocus();
    if (focus != nullptr && IsChild(dialog, focus) && (CodeOf(focus) & DLGC_DEFPUSHBUTTON) != 0) {
        if (IsWindowEnabled(focus))
            Click(GetParent(focus), focus, GetDlgCtrlID(focus));
        return;
    }
    const LRESULT answer = SendMessageW(dialog, DM_GETDEFID, 0, 0);
    const int id = HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : IDOK;
    const HWND button = GetDlgItem(dialog, id);
    if (button != nullptr && !IsWindowEnabled(button)) {
        MessageBeep(0);
        return;
    }
    Click(dialog, button, id);
}

void Cancel(HWND dialog)
{
    const HWND button = GetDlgItem(dialog, IDCANCEL);
    if (button != nullptr && !IsWindowEnabled(button))
        MessageBeep(0);
    else
        Click(dialog, button, IDCANCEL);
}

void StepInGroup(HWND dialog, bool previous)
{
    const HWND focus = GetFocus();
    const HWND next = GetNextDlgGroupItem(dialog, focus, previous);
    if (next == nullptr || next == focus)
        return;
    FocusDialogControl(dialog, next);
    const bool autoRadio = (CodeOf(next) & DLGC_RADIOBUTTON) != 0 &&
                           (GetWindowLongW(next, GWL_STYLE) & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
    if (autoRadio)
        SendMessageW(next, BM_CLICK, 0, 0);
}

std::u16string TextOf(HWND control)
{
    std::u16string text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, u'\0');
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(length));
    return text;
}

bool AnswersTo(HWND control, char16_t character)
{
    const WindowPtr window = LookUp(control);
    if (window == nullptr || !IsVisibleStyle(*window))
        return false;
    const LRESULT code = CodeOf(control);
    const bool label = (code & DLGC_STATIC) != 0;
    if ((code & (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) != 0 || (!label && (window->style & WS_DISABLED) != 0) ||
        (label && (code & DLGC_BUTTON) == 0 && (window->style & SS_NOPREFIX) != 0))
        return false;
    return HasMnemonic(TextOf(control), character);
}

/// What a mnemonic does: a label passes on to the control behind it, a button is pressed when it is the only
/// one with that letter.
void FollowMnemonic(HWND dialog, HWND control, bool only)
{
    const LRESULT code = CodeOf(control);
    if ((code & DLGC_STATIC) != 0) {
        const HWND next = GetNextDlgTabItem(dialog, control, FALSE);
        if (next != nullptr)
            FocusDialogControl(dialog, next);
        return;
    }
    FocusDialogControl(dialog, control);
    if (only && (code & (DLGC_BUTTON | DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0)
        SendMessageW(control, BM_CLICK, 0, 0);
}

bool TryMnemonic(HWND dialog, char16_t character)
{
    if (character <= u' ')
        return false;
    const std::vector<HWND> controls = ControlsOf(dialog);
    const size_t count = controls.size();
    const size_t start = PlaceIn(controls, GetFocus());
    HWND found = nullptr;
    int matches = 0;
    for (size_t i = 1; i <= count; ++i) {
        const HWND control = controls[(start + i) % count];
        if (!AnswersTo(control, character))
            continue;
        found = found != nullptr ? found : control;
        ++matches;
    }
    if (found != nullptr)
        FollowMnemonic(dialog, found, matches == 1);
    return found != nullptr;
}

/// True when the key was the dialog's.
bool HandleKey(HWND dialog, const MSG& message)
{
    const LRESULT code =
        SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    if ((code & DLGC_WANTALLKEYS) != 0)
        return false;
    const bool wantsArrows = (code & DLGC_WANTARROWS) != 0;
    switch (LOWORD(message.wParam)) {
    case VK_TAB:
        if ((code & DLGC_WANTTAB) != 0)
            return false;
        SendMessageW(dialog, WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0, 0);
        return true;
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
        if (wantsArrows)
            return false;
        StepInGroup(dialog, message.wParam == VK_LEFT || message.wParam == VK_UP);
        return true;
    case VK_RETURN:
        PressDefault(dialog);
        return true;
    case VK_ESCAPE:
    case VK_CANCEL:
        Cancel(dialog);
        return true;
    }
    return false;
}

bool HandleCharacter(HWND dialog, const MSG& message)
{
    const auto character = static_cast<char16_t>(message.wParam);
    if (message.message == WM_CHAR) {
        const LRESULT code =
            SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
        if ((code & (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) != 0)
            return false;
    }
    return TryMnemonic(dialog, character);
}

} // namespace

HWND FirstTabStop(HWND dialog)
{
    const std::vector<HWND> controls = ControlsOf(dialog);
    const auto found = std::find_if(controls.begin(), controls.end(), IsTabStop);
    return found != controls.end() ? *found : nullptr;
}

void FocusDialogControl(HWND dialog, HWND control)
{
    if ((CodeOf(control) & DLGC_HASSETSEL) != 0)
        SendMessageW(control, EM_SETSEL, 0, -1);
    SetFocus(control);
    MoveDefaultFrame(dialog, GetFocus());
}

void SetDefaultId(HWND dialog, int id)
{
    DialogState* const state = DialogOf(dialog);
    if (state == nullptr)
        return;
    state->defaultId = id;
    MoveDefaultFrame(dialog, nullptr);
}

bool HasMnemonic(std::u16string_view text, char16_t character)
{
    for (size_t i = text.find(u'&'); i != text.npos && i + 1 < text.size(); i = text.find(u'&', i + 2)) {
        if (text[i + 1] != u'&')
            return UpperCase(text[i + 1]) == UpperCase(character);
    }
    return false;
}

} // namespace host

using namespace host;

BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message)
{
    HOST_CALL_VOID(IsDialogMessageW);
    if (message == nullptr || LookUp(dialog) == nullptr ||
        (message->hwnd != dialog && !IsChild(dialog, message->hwnd)))
        return FALSE;
    const bool key = message->message == WM_KEYDOWN;
    const bool character = message->message == WM_CHAR || message->message == WM_SYSCHAR;
    if ((key && HandleKey(dialog, *message)) || (character && HandleCharacter(dialog, *message)))
        return TRUE;
    const HWND before = GetFocus();
    TranslateMessage(message);
    DispatchMessageW(message);
    const HWND after = GetFocus();
    if (after != before && after != nullptr && LookUp(dialog) != nullptr && IsChild(dialog, after))
        MoveDefaultFrame(dialog, after);
    return TRUE;
}

HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous)
{
    HOST_CALL_VOID(GetNextDlgTabItem);
    if (WindowOf(dialog) == nullptr)
        return nullptr;
    const std::vector<HWND> controls = ControlsOf(dialog);
    const size_t count = controls.size();
    const size_t place = PlaceIn(controls, control);
    // Outside of the ring the search begins at its first or last control.
    const size_t start = place < count ? place : (previous ? 0 : count - 1);
    for (size_t i = 1; i <= count; ++i) {
        const HWND each = controls[(previous ? start + count - i : start + i) % count];
        if (IsTabStop(each))
            return each;
    }
    return control;
}

HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous)
{
    HOST_CALL_VOID(GetNextDlgGroupItem);
    if (WindowOf(dialog) == nullptr)
        return nullptr;
    if (control == nullptr) {
        const std::vector<HWND> controls = ControlsOf(dialog);
        if (controls.empty())
            return nullptr;
        control = previous ? controls.back() : controls.front();
    }
    const std::vector<HWND> group = GroupOf(control);
    const size_t count = group.size();
    const auto start = static_cast<size_t>(std::find(group.begin(), group.end(), control) - group.begin());
    for (size_t i = 1; i < count; ++i) {
        const HWND each = group[(previous ? start + count - i : start + i) % count];
        const WindowPtr window = LookUp(each);
        if (window != nullptr && Usable(*window) && (CodeOf(each) & DLGC_STATIC) == 0)
            return each;
    }
    return control;
}
