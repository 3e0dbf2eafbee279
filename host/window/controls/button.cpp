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
void ShowChange(const Button& button, UINT action)
{
    if (ButtonKind(button.window) != BS_OWNERDRAW)
        return Repaint(button.window);
    if (IsWindowVisible(button.window))
        PaintButton(button, ControlDc(button.window, button.font), action);
}

bool IsNotifying(HWND window)
{
    return (StyleOf(window) & BS_NOTIFY) != 0;
}

void SetPushed(Button& button, bool pushed)
{
    if (button.pushed == pushed)
        return;
    button.pushed = pushed;
    ShowChange(button, ODA_SELECT);
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

void Click(const Button& button)
{
    const KindFacts& facts = FactsOf(button.window);
    if (facts.automatic && IsRadioButton(ButtonKind(button.window))) {
        SendMessageW(button.window, BM_SETCHECK, BST_CHECKED, 0);
        ClearOthersInGroup(button.window);
    } else if (facts.automatic) {
        SendMessageW(button.window, BM_SETCHECK, (button.check + 1) % facts.states, 0);
    }
    NotifyParent(button.window, BN_CLICKED);
}

LRESULT OnGetDlgCode(Button& button, WPARAM, LPARAM)
{
    return FactsOf(button.window).dialogCode;
}

LRESULT OnPaint(Button& button, WPARAM wParam, LPARAM)
{
    const ControlPaint paint(button.window, wParam, button.font);
    PaintButton(button, paint.Dc(), ODA_DRAWENTIRE);
    return 0;
}

/// The painting covers all but the group box, which lets its parent show through, and what an owner draws.
LRESULT OnEraseBackground(Button& button, WPARAM wParam, LPARAM)
{
    if (ButtonKind(button.window) == BS_OWNERDRAW) {
        const auto dc = reinterpret_cast<HDC>(wParam);
        const RECT client = ClientRectOf(button.window);
        FillRect(dc, &client, AskParentForColours(button.window, dc, WM_CTLCOLORBTN));
    }
    return TRUE;
}

LRESULT OnHitTest(Button& button, WPARAM, LPARAM lParam)
{
    if (ButtonKind(button.window) == BS_GROUPBOX)
        return HTTRANSPARENT;
    return DefWindowProcW(button.window, WM_NCHITTEST, 0, lParam);
}

LRESULT OnMouseDown(Button& button, WPARAM, LPARAM)
{
    SetCapture(button.window);
    SetFocus(button.window);
    // Losing the focus elsewhere runs the program, which may have taken the window or the capture away.
    if (!button.gone && GetCapture() == button.window) {
        button.mouseDown = true;
        SendMessageW(button.window, BM_SETSTATE, TRUE, 0);
    }
    return 0;
}

LRESULT OnDoubleClick(Button& button, WPARAM wParam, LPARAM lParam)
{
    const DWORD kind = ButtonKind(button.window);
    if (!IsNotifying(button.window) && !IsRadioButton(kind) && kind != BS_USERBUTTON && kind != BS_OWNERDRAW)
        return OnMouseDown(button, wParam, lParam);
    NotifyParent(button.window, BN_DOUBLECLICKED);
    return 0;
}

LRESULT OnMouseMove(Button& button, WPARAM wParam, LPARAM lParam)
{
    if (!button.mouseDown || !(wParam & MK_LBUTTON) || GetCapture() != button.window)
        return 0;
    const RECT client = ClientRectOf(button.window);
    SendMessageW(button.window, BM_SETSTATE, PtInRect(&client, PointOf(lParam)), 0);
    return 0;
}

LRESULT OnMouseUp(Button& button, WPARAM, LPARAM lParam)
{
    if (!button.mouseDown)
        return 0;
    const RECT client = ClientRectOf(button.window);
    const bool clicked = button.pushed && PtInRect(&client, PointOf(lParam));
    button.mouseDown = false;
    SendMessageW(button.window, BM_SETSTATE, FALSE, 0);
    if (GetCapture() == button.window)
        ReleaseCapture();
    if (clicked && !button.gone)
        Click(button);
    return 0;
}

LRESULT OnCaptureChanged(Button& button, WPARAM, LPARAM lParam)
{
    if (reinterpret_cast<HWND>(lParam) == button.window)
        return 0;
    if (button.mouseDown) {
        button.mouseDown = false;
        SendMessageW(button.window, BM_SETSTATE, FALSE, 0);
    }
    return 0;
}

LRESULT OnCancelMode(Button& button, WPARAM, LPARAM)
{
    SendMessageW(button.window, BM_SETSTATE, FALSE, 0);
    if (GetCapture() == button.window)
        ReleaseCapture();
    return 0;
}

LRESULT OnKeyDown(Button& button, WPARAM wParam, LPARAM)
{
    if (wParam == VK_SPACE)
        SendMessageW(button.window, BM_SETSTATE, TRUE, 0);
    return 0;
}

LRESULT OnKeyUp(Button& button, WPARAM wParam, LPARAM)
{
    if (wParam != VK_SPACE || !button.pushed || button.mouseDown)
        return 0;
    SendMessageW(button.window, BM_SETSTATE, FALSE, 0);
    if (!button.gone)
        Click(button);
    return 0;
}

LRESULT OnSetFocus(Button& button, WPARAM, LPARAM)
{
    ShowChange(button, ODA_FOCUS);
    if (IsNotifying(button.window))
        NotifyParent(button.window, BN_SETFOCUS);
    return 0;
}

LRESULT OnKillFocus(Button& button, WPARAM, LPARAM)
{
    if (button.mouseDown || button.pushed)
        OnCancelMode(button, 0, 0);
    ShowChange(button, ODA_FOCUS);
    if (IsNotifying(button.window))
        NotifyParent(button.window, BN_KILLFOCUS);
    return 0;
}

LRESULT OnEnable(Button& button, WPARAM wParam, LPARAM)
{
    if (!wParam && button.pushed)
        OnCancelMode(button, 0, 0);
    Repaint(button.window);
    return 0;
}

LRESULT OnSetText(Button& button, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = DefWindowProcW(button.window, WM_SETTEXT, wParam, lParam);
    Repaint(button.window);
    if (ButtonKind(button.window) == BS_GROUPBOX) // the old text is not covered by the new one
        RedrawWindow(button.window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
    return result;
}

LRESULT OnSetFont(Button& button, WPARAM wParam, LPARAM lParam)
{
    button.font = reinterpret_cast<HFONT>(wParam);
    if (lParam & 0xFFFF)
        Repaint(button.window);
    return 0;
}

LRESULT OnGetFont(Button& button, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(button.font);
}

LRESULT OnGetCheck(Button& button, WPARAM, LPARAM)
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

LRESULT OnSetCheck(Button& button, WPARAM wParam, LPARAM)
{
    const UINT states = FactsOf(button.window).states;
    if (states == 0)
        return 0;
    const UINT check = wParam < states ? static_cast<UINT>(wParam) : states - 1;
    if (IsRadioButton(ButtonKind(button.window)))
        MoveTabStop(button.window, check != BST_UNCHECKED);
    if (check != button.check) {
        button.check = check;
        Repaint(button.window);
    }
    return 0;
}

LRESULT OnGetState(Button& button, WPARAM, LPARAM)
{
    return button.check | (button.pushed ? BST_PUSHED : 0u) | (GetFocus() == button.window ? BST_FOCUS : 0u);
}

LRESULT OnSetState(Button& button, WPARAM wParam, LPARAM)
{
    SetPushed(button, wParam != 0);
    return 0;
}

LRESULT OnSetStyle(Button& button, WPARAM wParam, LPARAM lParam)
{
    const DWORD style = (StyleOf(button.window) & ~BS_TYPEMASK) | (wParam & BS_TYPEMASK);
    SetWindowLongPtrW(button.window, GWL_STYLE, static_cast<LONG_PTR>(style));
    if (lParam & 0xFFFF)
        Repaint(button.window);
    return 0;
}

LRESULT OnClickMessage(Button& button, WPARAM, LPARAM)
{
    SendMessageW(button.window, WM_LBUTTONDOWN, 0, 0);
    SendMessageW(button.window, WM_LBUTTONUP, 0, 0);
    return 0;
}

LRESULT OnGetImage(Button& button, WPARAM wParam, LPARAM)
{
    return wParam == button.imageKind ? reinterpret_cast<LRESULT>(button.image) : 0;
}

LRESULT OnSetImage(Button& button, WPARAM wParam, LPARAM lParam)
{
    if (wParam != IMAGE_BITMAP && wParam != IMAGE_ICON)
        return 0;
    const HANDLE before = button.image;
    button.image = reinterpret_cast<HANDLE>(lParam);
    button.imageKind = static_cast<UINT>(wParam);
    Repaint(button.window);
    return reinterpret_cast<LRESULT>(before);
}

constexpr MessageRow<Button> kMessages[] = {
    {WM_SETFOCUS, OnSetFocus},
    {WM_KILLFOCUS, OnKillFocus},
    {WM_ENABLE, OnEnable},
    {WM_SETTEXT, OnSetText},
    {WM_PAINT, OnPaint},
    {WM_ERASEBKGND, OnEraseBackground},
    {WM_CANCELMODE, OnCancelMode},
    {WM_SETFONT, OnSetFont},
    {WM_GETFONT, OnGetFont},
    {WM_NCHITTEST, OnHitTest},
    {WM_GETDLGCODE, OnGetDlgCode},
    {BM_GETCHECK, OnGetCheck},
    {BM_SETCHECK, OnSetCheck},
    {BM_GETSTATE, OnGetState},
    {BM_SETSTATE, OnSetState},
    {BM_SETSTYLE, OnSetStyle},
    {BM_CLICK, OnClickMessage},
    {BM_GETIMAGE, OnGetImage},
    {BM_SETIMAGE, OnSetImage},
    {WM_KEYDOWN, OnKeyDown},
    {WM_KEYUP, OnKeyUp},
    {WM_MOUSEMOVE, OnMouseMove},
    {WM_LBUTTONDOWN, OnMouseDown},
    {WM_LBUTTONUP, OnMouseUp},
    {WM_LBUTTONDBLCLK, OnDoubleClick},
    {WM_CAPTURECHANGED, OnCaptureChanged},
    {WM_PRINTCLIENT, OnPaint},
};
static_assert(InOrder<Button>(kMessages));

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
    return RunRows<Button>(kMessages, window, message, wParam, lParam);
}

} // namespace host
