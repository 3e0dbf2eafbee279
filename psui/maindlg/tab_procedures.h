#pragma once
// Dialog procedures of the tabs. Each is created with the context as its parameter.
#include <windows.h>

namespace psui {

INT_PTR CALLBACK BasicTabDlgProc(HWND tab, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace psui
