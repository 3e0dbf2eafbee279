#pragma once
// Strings of a module, and the few window look-ups that need no window of one's own.
#include <windef.h>

#define GA_PARENT    1
#define GA_ROOT      2
#define GA_ROOTOWNER 3

#define SW_HIDE       0
#define SW_SHOWNORMAL 1
#define SW_SHOW       5

#define RT_CURSOR       MAKEINTRESOURCEW(1)
#define RT_BITMAP       MAKEINTRESOURCEW(2)
#define RT_ICON         MAKEINTRESOURCEW(3)
#define RT_MENU         MAKEINTRESOURCEW(4)
#define RT_DIALOG       MAKEINTRESOURCEW(5)
#define RT_STRING       MAKEINTRESOURCEW(6)
#define RT_RCDATA       MAKEINTRESOURCEW(10)
#define RT_GROUP_CURSOR MAKEINTRESOURCEW(12)
#define RT_GROUP_ICON   MAKEINTRESOURCEW(14)
#define RT_VERSION      MAKEINTRESOURCEW(16)

extern "C" {
HOSTAPI int WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size);
HOSTAPI HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title);
HOSTAPI BOOL WINAPI IsWindow(HWND window);
HOSTAPI BOOL WINAPI MessageBeep(UINT kind);
HOSTAPI HWND WINAPI GetActiveWindow(void);
HOSTAPI HWND WINAPI GetAncestor(HWND window, UINT flags);
HOSTAPI int WINAPI GetClassNameW(HWND window, LPWSTR name, int size);
}
