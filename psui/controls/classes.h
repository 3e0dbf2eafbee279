#pragma once
// Our window classes, and hooks that let every control of a dialog report focus and pointer.
#include <windows.h>

namespace psui {

/// Registers the classes "CL_MUS" and "CL_FRAME" and looks up the procedures that the hooks call. At the
/// library's attach; a second call changes nothing.
void RegisterControlClasses();
void UnregisterControlClasses();

/// Callback of EnumChildWindows: hooks a child of one of eight classes. Always TRUE.
BOOL CALLBACK SubClassChildWndProc(HWND child, LPARAM);

/// The same: takes the look of the default button from every push button but the one with control id `id`.
/// TRUE.
BOOL CALLBACK SetDefaultButton(HWND child, LPARAM id);

/// Command that hooked controls send their parent on focus and hit test, with the control's window.
constexpr WORD kControlTouched = 10057;

} // namespace psui
