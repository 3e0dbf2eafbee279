#pragma once
// Our window classes, and hooks that let every control of a dialog report focus and pointer.
#include <windows.h>

namespace psui {

/// Registers the classes "CL_MUS" and "CL_FRAME" and looks up the procedures that the hooks call. At the
/// library's attach; a second call changes nothing.
void RegisterControlClasses();
void UnregisterControlClasses();

/// Procedures of the library that it exports, so that dialogs elsewhere can use its controls and hooks.
extern "C" {

/// Those of the classes "CL_MUS" and "CL_FRAME".
LRESULT CALLBACK MicroScrollWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK FrameWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Callback of EnumChildWindows: hooks a child of one of eight classes. Always TRUE.
BOOL CALLBACK SubClassChildWndProc(HWND child, LPARAM);

/// The hooks, one a class.
LRESULT CALLBACK NewButton(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK NewComboBox(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK NewEdit(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK NewListBox(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK NewScrollBar(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK NewMuScroll(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK NewTrackbar(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK NewUpdown(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
}

/// The same: takes the look of the default button from every push button but the one with control id `id`.
/// TRUE.
BOOL CALLBACK SetDefaultButton(HWND child, LPARAM id);

/// Command that hooked controls send their parent on focus and hit test, with the control's window.
constexpr WORD kControlTouched = 10057;

} // namespace psui
