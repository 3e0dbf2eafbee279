#include "psui/controls/hooks.h"

#include <utility>

namespace psui {

namespace {

constexpr UINT kHoverDelay = 500; // milliseconds
constexpr WCHAR kPreviousProcedure[] = TEXT("psui.KeyButton");

struct Hook
{
    HWND control;
    WNDPROC previous;
};

Hook linkHook;
Hook backgroundHook;
bool repaintRequested;

WNDPROC Subclass(HWND control, WNDPROC procedure)
{
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

Hook InstallHook(HWND control, WNDPROC procedure)
{
    return {control, control ? Subclass(control, procedure) : nullptr};
}

void PostNextControl(HWND button)
{
    const bool backwards = GetKeyState(VK_SHIFT) < 0;
    PostMessageW(GetParent(button), WM_NEXTDLGCTL, backwards, FALSE);
}

void PostPress(HWND button)
{
    PostMessageW(GetParent(button), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(button), BN_CLICKED),
                 reinterpret_cast<LPARAM>(button));
}

} // namespace

void InstallHoverLink(HWND dialog, int link, int background)
{
    repaintRequested = false;
    linkHook = InstallHook(GetDlgItem(dialog, link), HoverLinkProc);
    backgroundHook = InstallHook(GetDlgItem(dialog, background), HoverLinkProc);
}

bool TakeRepaintRequest()
{
    return std::exchange(repaintRequested, false);
}

LRESULT CALLBACK HoverLinkProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam)
{
    const Hook& hook = control == linkHook.control ? linkHook : backgroundHook;
    if (message == WM_MOUSEMOVE && control == linkHook.control)
        SetTimer(GetParent(control), kHoverTimer, kHoverDelay, nullptr);
    else if (message == WM_ERASEBKGND && control == backgroundHook.control)
        repaintRequested = true;
    return hook.previous ? CallWindowProcW(hook.previous, control, message, wParam, lParam)
                         : DefWindowProcW(control, message, wParam, lParam);
}

void InstallKeyButton(HWND dialog, int button)
{
    const HWND control = GetDlgItem(dialog, button);
    if (!control || GetPropW(control, kPreviousProcedure))
        return;
    const WNDPROC previous = Subclass(control, KeyButtonProc);
    SetPropW(control, kPreviousProcedure, reinterpret_cast<HANDLE>(previous));
}

LRESULT CALLBACK KeyButtonProc(HWND button, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto previous = reinterpret_cast<WNDPROC>(GetPropW(button, kPreviousProcedure));
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON | DLGC_WANTALLKEYS;
    case WM_KILLFOCUS:
        SendMessageW(button, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
        break;
    case WM_KEYDOWN:
        if (GetFocus() == button && wParam == VK_TAB) {
            PostNextControl(button);
            return 0;
        }
        if (GetFocus() == button && wParam == VK_RETURN) {
            PostPress(button);
            return 0;
        }
        break;
    case WM_NCDESTROY:
        RemovePropW(button, kPreviousProcedure);
        break;
    default:
        break;
    }
    return previous ? CallWindowProcW(previous, button, message, wParam, lParam)
                    : DefWindowProcW(button, message, wParam, lParam);
}

} // namespace psui
