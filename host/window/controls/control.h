#pragma once
// What the window procedures of all controls share: their state, their dispatch by table, and talking to the
// parent.
//
// A control's state hangs on the window's extra bytes from WM_NCCREATE to WM_NCDESTROY. A parent may destroy
// the control from within a notification, so a handler touches its state after one only when StateOf() still
// gives it.
#include <new>
#include <span>
#include <string>

#include <windows.h>

#include "host/window/controls/theme.h"

namespace host {

/// Null before WM_NCCREATE, after WM_NCDESTROY, and for a window that does not exist.
template <class State>
State* StateOf(HWND window)
{
    return reinterpret_cast<State*>(GetWindowLongPtrW(window, 0));
}

template <class State>
struct MessageHandler
{
    UINT message;
    LRESULT (*handle)(HWND window, State& state, WPARAM wParam, LPARAM lParam);
};

/// The body of a control's window procedure: makes and frees the state, finds the message in the table, and
/// leaves all others to DefWindowProcW.
template <class State>
LRESULT RunControl(std::span<const MessageHandler<State>> handlers, HWND window, UINT message, WPARAM wParam,
                   LPARAM lParam)
{
    State* state = StateOf<State>(window);
    if (message == WM_NCCREATE && state == nullptr) {
        state = new (std::nothrow) State();
        if (state == nullptr)
            return FALSE;
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(state));
    }
    if (message == WM_NCDESTROY && state != nullptr) {
        SetWindowLongPtrW(window, 0, 0);
        delete state;
        state = nullptr;
    }
    if (state != nullptr) {
        for (const MessageHandler<State>& each : handlers) {
            if (each.message == message)
                return each.handle(window, *state, wParam, lParam);
        }
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

/// Sends the parent WM_COMMAND with a notification code.
void NotifyParent(HWND control, WORD code);

/// Asks the parent for a control's colours (WM_CTLCOLORSTATIC ...). The parent sets text and background
/// colour of `dc`; the brush is the one for the background, never null, and stays the parent's.
HBRUSH AskParentForColours(HWND control, HDC dc, UINT message);

DWORD StyleOf(HWND window);
/// Whether any of these style bits is set.
bool HasStyle(HWND window, DWORD style);
RECT ClientRectOf(HWND window);
POINT PointOf(LPARAM lParam);
std::basic_string<WCHAR> TextOf(HWND window);
theme::Look LookOf(HWND window);

/// The size in pixels of an image of a control: a bitmap for IMAGE_BITMAP, an icon for all other kinds; and
/// its drawing in that size.
SIZE ImageSizeOf(HANDLE image, UINT kind);
void DrawImage(HDC dc, POINT at, HANDLE image, UINT kind);

/// Marks the whole window for painting, without erasing it first.
void Repaint(HWND window);

/// WM_NCPAINT of a field: the system's frame, with the shared border where the window has one. RepaintField()
/// marks the frame as well, whose colour follows the focus.
LRESULT PaintFieldFrame(HWND window, WPARAM wParam, LPARAM lParam);
void RepaintField(HWND window);

/// The surface for WM_PAINT and WM_PRINTCLIENT: the device context handed in with the message, or the
/// window's own from BeginPaint. The font is selected while it lives (null: the system's).
class ControlPaint
{
public:
    ControlPaint(HWND window, WPARAM dcOfMessage, HFONT font);
    ~ControlPaint();
    ControlPaint(const ControlPaint&) = delete;
    ControlPaint& operator=(const ControlPaint&) = delete;

    HDC Dc() const { return dc_; }

private:
    HWND window_;
    PAINTSTRUCT paint_ = {};
    bool began_;
    HDC dc_;
    HGDIOBJ oldFont_;
};

/// A device context to measure or draw at once in, with the control's font.
class ControlDc
{
public:
    ControlDc(HWND window, HFONT font);
    ~ControlDc();
    ControlDc(const ControlDc&) = delete;
    ControlDc& operator=(const ControlDc&) = delete;

    operator HDC() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
    HGDIOBJ oldFont_;
};

} // namespace host
