#include "host/window/controls/button.h"

namespace host {
namespace {

/// What the kinds differ in, in the order of their numbers.
struct KindFacts
{
    UINT dialogCode;
    UINT states;    // how many check states there are; 0: it cannot be checked
    bool automatic; // a click changes the check state
};
constexpr KindFacts kKinds[] = {
    {DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON, 0, false}, // BS_PUSHBUTTON
    {DLGC_BUTTON | DLGC_DEFPUSHBUTTON, 0, false},   // BS_DEFPUSHBUTTON
    {DLGC_BUTTON, 2, false},                        // BS_CHECKBOX
    {DLGC_BUTTON, 2, true},                         // BS_AUTOCHECKBOX
    {DLGC_BUTTON | DLGC_RADIOBUTTON, 2, false},     // BS_RADIOBUTTON
    {DLGC_BUTTON, 3, false},                        // BS_3STATE
    {DLGC_BUTTON, 3, true},                         // BS_AUTO3STATE
    {DLGC_STATIC, 0, false},                        // BS_GROUPBOX
    {DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON, 0, false}, // BS_USERBUTTON
    {DLGC_BUTTON | DLGC_RADIOBUTTON, 2, true},      // BS_AUTORADIOBUTTON
    {DLGC_BUTTON, 0, false},                        // BS_PUSHBOX
    {DLGC_BUTTON, 0, false},                        // BS_OWNERDRAW
};

const KindFacts& FactsOf(HWND window)
{
    const DWORD kind = ButtonKind(window);
    return kKinds[kind < std::size(kKinds) ? kind : BS_PUSHBUTTON];
}

/// Shows a new state at once where the parent draws, and with the next painting otherwise.
void ShowChange(HWND window, const Button& button, UINT action)
{
    if (ButtonKind(window) != BS_OWNERDRAW)
        return Repaint(window);
    if (IsWindowVisible(window))
        PaintButton(window, button, ControlDc(window, button.font), action);
}

bool IsNotifying(HWND window)
{
    return (StyleOf(window) & BS_NOTIFY) != 0;
}

void SetPushed(HWND window, Button& button, bool pushed)
{
    if (button.pushed == pushed)
        return;
    button.pushed = pushed;
    ShowChange(window, button, ODA_SELECT);
}

/// The radio buttons of the group that this one belongs to are cleared; they are the automatic ones only.
void ClearOthersInGroup(HWND window)
{
    const HWND parent = GetParent(window);
    const HWND first = GetNextDlgGroupItem(parent, window, FALSE);
    for (HWND each = first; each != nullptr && each != window;
         each = GetNextDlgGroupItem(parent, each, FALSE)) {
        const LRESULT code = SendMessageW(each, WM_GETDLGCODE, 0, 0);
        if (code == (DLGC_BUTTON | DLGC_RADIOBUTTON) && ButtonKind(each) == BS_AUTORADIOBUTTON)
            SendMessageW(each, BM_SETCHECK, BST_UNCHECKED, 0);
        if (GetNextDlgGroupItem(parent, each, FALSE) == first)
            break;
    }
}

void Click(HWND window, const Button& button)
{
    const KindFacts& facts = FactsOf(window);
    if (facts.automatic && IsRadioButton(ButtonKind(window))) {
        SendMessageW(window, BM_SETCHECK, BST_CHECKED, 0);
        ClearOthersInGroup(window);
    } else if (facts.automatic) {
        SendMessageW(window, BM_SETCHECK, (button.check + 1) % facts.states, 0);
    }
    NotifyParent(window, BN_CLICKED);
}

LRESULT OnGetDlgCode(HWND window, Button&, WPARAM, LPARAM)
{
    return FactsOf(window).dialogCode;
}

LRESULT OnPaint(HWND window, Button& button, WPARAM wParam, LPARAM)
{
    const ControlPaint paint(window, wParam, button.font);
    PaintButton(window, button, paint.Dc(), ODA_DRAWENTIRE);
    return 0;
}

LRESULT OnEraseBackground(HWND, Button&, WPARAM, LPARAM)
{
    return TRUE; // the painting covers all but the group box, which lets its parent show through
}

LRESULT OnHitTest(HWND window, Button&, WPARAM, LPARAM lParam)
{
    if (ButtonKind(window) == BS_GROUPBOX)
        return HTTRANSPARENT;
    return DefWindowProcW(window, WM_NCHITTEST, 0, lParam);
}

LRESULT OnMouseDown(HWND window, Button&, WPARAM, LPARAM)
{
    SetCapture(window);
    SetFocus(window);
    // Losing the focus elsewhere runs the program, which may have taken the window or the capture away.
    Button* const still = StateOf<Button>(window);
    if (still != nullptr && GetCapture() == window) {
        still->mouseDown = true;
        SendMessageW(window, BM_SETSTATE, TRUE, 0);
    }
    return 0;
}

LRESULT OnDoubleClick(HWND window, Button& button, WPARAM wParam, LPARAM lParam)
{
    const DWORD kind = ButtonKind(window);
    if (!IsNotifying(window) && !IsRadioButton(kind) && kind != BS_USERBUTTON && kind != BS_OWNERDRAW)
        return OnMouseDown(window, button, wParam, lParam);
    NotifyParent(window, BN_DOUBLECLICKED);
    return 0;
}

LRESULT OnMouseMove(HWND window, Button& button, WPARAM wParam, LPARAM lParam)
{
    if (!button.mouseDown || !(wParam & MK_LBUTTON) || GetCapture() != window)
        return 0;
    const RECT client = ClientRectOf(window);
    SendMessageW(window, BM_SETSTATE, PtInRect(&client, PointOf(lParam)), 0);
    return 0;
}

LRESULT OnMouseUp(HWND window, Button& button, WPARAM, LPARAM lParam)
{
    if (!button.mouseDown)
        return 0;
    const RECT client = ClientRectOf(window);
    const bool clicked = button.pushed && PtInRect(&client, PointOf(lParam));
    button.mouseDown = false;
    SendMessageW(window, BM_SETSTATE, FALSE, 0);
    if (GetCapture() == window)
        ReleaseCapture();
    if (clicked && StateOf<Button>(window) != nullptr)
        Click(window, button);
    return 0;
}

LRESULT OnCaptureChanged(HWND window, Button& button, WPARAM, LPARAM lParam)
{
    if (reinterpret_cast<HWND>(lParam) == window)
        return 0;
    if (button.mouseDown) {
        button.mouseDown = false;
        SendMessageW(window, BM_SETSTATE, FALSE, 0);
    }
    return 0;
}

LRESULT OnCancelMode(HWND window, Button&, WPARAM, LPARAM)
{
    SendMessageW(window, BM_SETSTATE, FALSE, 0);
    if (GetCapture() == window)
        ReleaseCapture();
    return 0;
}

LRESULT OnKeyDown(HWND window, Button&, WPARAM wParam, LPARAM)
{
    if (wParam == VK_SPACE)
        SendMessageW(window, BM_SETSTATE, TRUE, 0);
    return 0;
}

LRESULT OnKeyUp(HWND window, Button& button, WPARAM wParam, LPARAM)
{
    if (wParam != VK_SPACE || !button.pushed || button.mouseDown)
        return 0;
    SendMessageW(window, BM_SETSTATE, FALSE, 0);
    if (StateOf<Button>(window) != nullptr)
        Click(window, button);
    return 0;
}

LRESULT OnSetFocus(HWND window, Button& button, WPARAM, LPARAM)
{
    ShowChange(window, button, ODA_FOCUS);
    if (IsNotifying(window))
        NotifyParent(window, BN_SETFOCUS);
    return 0;
}

LRESULT OnKillFocus(HWND window, Button& button, WPARAM, LPARAM)
{
    if (button.mouseDown || button.pushed)
        OnCancelMode(window, button, 0, 0);
    ShowChange(window, button, ODA_FOCUS);
    if (IsNotifying(window))
        NotifyParent(window, BN_KILLFOCUS);
    return 0;
}

LRESULT OnEnable(HWND window, Button& button, WPARAM wParam, LPARAM)
{
    if (!wParam && button.pushed)
        OnCancelMode(window, button, 0, 0);
    Repaint(window);
    return 0;
}

LRESULT OnSetText(HWND window, Button&, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefWindowProcW(window, WM_SETTEXT, wParam, lParam);
    Repaint(window);
    if (ButtonKind(window) == BS_GROUPBOX) // the old text is not covered by the new one
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
    return result;
}

LRESULT OnSetFont(HWND window, Button& button, WPARAM wParam, LPARAM lParam)
{
    button.font = reinterpret_cast<HFONT>(wParam);
    if (lParam & 0xFFFF)
        Repaint(window);
    return 0;
}

LRESULT OnGetFont(HWND, Button& button, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(button.font);
}

LRESULT OnGetCheck(HWND, Button& button, WPARAM, LPARAM)
{
    return button.check;
}

/// A checked radio button, and no other of its group, is where Tab stops.
void MoveTabStop(HWND window, bool here)
{
    const DWORD style = StyleOf(window);
    SetWindowLongPtrW(window, GWL_STYLE,
                      static_cast<LONG_PTR>(here ? style | WS_TABSTOP : style & ~WS_TABSTOP));
}

LRESULT OnSetCheck(HWND window, Button& button, WPARAM wParam, LPARAM)
{
    const UINT states = FactsOf(window).states;
    if (states == 0)
        return 0;
    const UINT check = wParam < states ? static_cast<UINT>(wParam) : states - 1;
    if (IsRadioButton(ButtonKind(window)))
        MoveTabStop(window, check != BST_UNCHECKED);
    if (check != button.check) {
        button.check = check;
        Repaint(window);
    }
    return 0;
}

LRESULT OnGetState(HWND window, Button& button, WPARAM, LPARAM)
{
    return button.check | (button.pushed ? BST_PUSHED : 0u) | (GetFocus() == window ? BST_FOCUS : 0u);
}

LRESULT OnSetState(HWND window, Button& button, WPARAM wParam, LPARAM)
{
    SetPushed(window, button, wParam != 0);
    return 0;
}

LRESULT OnSetStyle(HWND window, Button&, WPARAM wParam, LPARAM lParam)
{
    const DWORD style = (StyleOf(window) & ~BS_TYPEMASK) | (wParam & BS_TYPEMASK);
    SetWindowLongPtrW(window, GWL_STYLE, static_cast<LONG_PTR>(style));
    if (lParam & 0xFFFF)
        Repaint(window);
    return 0;
}

LRESULT OnClickMessage(HWND window, Button&, WPARAM, LPARAM)
{
    SendMessageW(window, WM_LBUTTONDOWN, 0, 0);
    SendMessageW(window, WM_LBUTTONUP, 0, 0);
    return 0;
}

LRESULT OnGetImage(HWND, Button& button, WPARAM wParam, LPARAM)
{
    return wParam == button.imageKind ? reinterpret_cast<LRESULT>(button.image) : 0;
}

LRESULT OnSetImage(HWND window, Button& button, WPARAM wParam, LPARAM lParam)
{
    if (wParam != IMAGE_BITMAP && wParam != IMAGE_ICON)
        return 0;
    const HANDLE before = button.image;
    button.image = reinterpret_cast<HANDLE>(lParam);
    button.imageKind = static_cast<UINT>(wParam);
    Repaint(window);
    return reinterpret_cast<LRESULT>(before);
}

constexpr MessageHandler<Button> kHandlers[] = {
    {WM_GETDLGCODE, OnGetDlgCode},
    {WM_PAINT, OnPaint},
    {WM_PRINTCLIENT, OnPaint},
    {WM_ERASEBKGND, OnEraseBackground},
    {WM_NCHITTEST, OnHitTest},
    {WM_LBUTTONDOWN, OnMouseDown},
    {WM_LBUTTONDBLCLK, OnDoubleClick},
    {WM_MOUSEMOVE, OnMouseMove},
    {WM_LBUTTONUP, OnMouseUp},
    {WM_CAPTURECHANGED, OnCaptureChanged},
    {WM_CANCELMODE, OnCancelMode},
    {WM_KEYDOWN, OnKeyDown},
    {WM_KEYUP, OnKeyUp},
    {WM_SETFOCUS, OnSetFocus},
    {WM_KILLFOCUS, OnKillFocus},
    {WM_ENABLE, OnEnable},
    {WM_SETTEXT, OnSetText},
    {WM_SETFONT, OnSetFont},
    {WM_GETFONT, OnGetFont},
    {BM_GETCHECK, OnGetCheck},
    {BM_SETCHECK, OnSetCheck},
    {BM_GETSTATE, OnGetState},
    {BM_SETSTATE, OnSetState},
    {BM_SETSTYLE, OnSetStyle},
    {BM_CLICK, OnClickMessage},
    {BM_GETIMAGE, OnGetImage},
    {BM_SETIMAGE, OnSetImage},
};

} // namespace

DWORD ButtonKind(HWND window)
{
    return StyleOf(window) & BS_TYPEMASK;
}

bool IsRadioButton(DWORD kind)
{
    return kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
}

LRESULT CALLBACK ButtonProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunControl<Button>(kHandlers, window, message, wParam, lParam);
}

} // namespace host
