#pragma once
// What the window procedures of all controls share: their state, their dispatch by table, and talking to the
// parent.
//
// A parent may destroy the control from within a notification, so its state outlives the window until every
// handler has returned. What a handler still does with the window then fails and harms nobody.
#include <algorithm>
#include <new>
#include <span>
#include <string>

#include <windows.h>

#include "host/window/controls/theme.h"

namespace host {

using Text = std::basic_string<WCHAR>;

/// Null before WM_NCCREATE, after WM_NCDESTROY, and for a window that does not exist.
template <class State>
State* StateOf(HWND window)
{
    return reinterpret_cast<State*>(GetWindowLongPtrW(window, 0));
}

/// Hangs on the window's extra bytes from WM_NCCREATE to WM_NCDESTROY, and lives until the last of its
/// messages has been handled. Used on the window's thread only.
struct ControlState
{
    HWND window = nullptr;
    DWORD style = 0;   ///< as created: a scroll bar that hides takes its bit out of the window's style
    int messages = 0;  ///< being handled
    bool gone = false; ///< the window is, and its handle is nobody's or another's
};

template <class State>
struct MessageRow
{
    UINT message;
    LRESULT (*handle)(State& state, WPARAM wParam, LPARAM lParam);
};

template <class State>
constexpr bool InOrder(std::span<const MessageRow<State>> rows)
{
    return std::is_sorted(rows.begin(), rows.end(),
                          [](const auto& a, const auto& b) { return a.message < b.message; });
}

template <class State>
State* AttachState(HWND window, const CREATESTRUCTW& creation)
{
    State* const state = new (std::nothrow) State;
    if (state != nullptr) {
        state->window = window;
        state->style = static_cast<DWORD>(creation.style);
        SetWindowLongPtrW(window, 0, reinterpret_cast<LONG_PTR>(state));
    }
    return state;
}

/// Runs the row of a message, or the platform's own handling when there is none. `rows` are in ascending
/// order.
template <class State>
LRESULT RunRow(std::span<const MessageRow<State>> rows, State& state, UINT message, WPARAM wParam,
               LPARAM lParam)
{
    const auto row = std::lower_bound(rows.begin(), rows.end(), message,
                                      [](const auto& each, UINT number) { return each.message < number; });
    if (row == rows.end() || row->message != message)
        return DefWindowProcW(state.window, message, wParam, lParam);
    return row->handle(state, wParam, lParam);
}

/// The window procedure of a control whose messages are `rows`.
template <class State>
LRESULT RunRows(std::span<const MessageRow<State>> rows, HWND window, UINT message, WPARAM wParam,
                LPARAM lParam)
{
    State* state = StateOf<State>(window);
    if (state == nullptr && message == WM_NCCREATE) {
        state = AttachState<State>(window, *reinterpret_cast<const CREATESTRUCTW*>(lParam));
        if (state == nullptr)
            return FALSE;
    }
    if (state == nullptr)
        return DefWindowProcW(window, message, wParam, lParam);

    ++state->messages;
    const LRESULT result = RunRow(rows, *state, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, 0, 0);
        state->gone = true;
    }
    if (--state->messages == 0 && state->gone)
        delete state;
    return result;
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
Text TextOf(HWND window);
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

inline UINT ControlId(HWND window)
{
    return static_cast<UINT>(GetDlgCtrlID(window));
}

inline bool KeyIsDown(int key)
{
    return GetKeyState(key) < 0;
}

/// The height of a line of text in pixels; a null font is the system's.
inline int LineHeight(HWND window, HFONT font)
{
    TEXTMETRICW metrics = {};
    GetTextMetricsW(ControlDc(window, font), &metrics);
    return metrics.tmHeight;
}

} // namespace host
