#pragma once
// The body of list boxes, combo boxes, tab controls and track bars. These notify the parent in the middle of
// what they do, so their state outlives a window that the program destroys meanwhile.
#include <algorithm>

#include "host/window/controls/control.h"

namespace host {

using Text = std::basic_string<WCHAR>;

/// Hangs on the window like every control's state, but lives until the last of its messages has been handled.
/// Used on the window's thread only.
struct ControlState
{
    HWND window = nullptr;
    DWORD style = 0;  ///< as created: a scroll bar that hides takes its bit out of the window's style
    int messages = 0; ///< being handled
    bool gone = false;
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
