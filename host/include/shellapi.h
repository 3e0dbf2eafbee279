#pragma once
// Opening files and pages.
#include <windef.h>

#define SE_ERR_FNF          2
#define SE_ERR_PNF          3
#define SE_ERR_ACCESSDENIED 5
#define SE_ERR_OOM          8
#define SE_ERR_NOASSOC      31

extern "C" {
HOSTAPI HINSTANCE WINAPI ShellExecuteW(HWND window, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters,
                                       LPCWSTR directory, INT showCommand);
}
