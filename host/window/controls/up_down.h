#pragma once
// The up-down control: two arrows that step a number, which is usually shown by a buddy window.
#include <windows.h>

namespace host {

LRESULT CALLBACK UpDownProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
