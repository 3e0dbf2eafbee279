#pragma once
// The HTML help control, which programs load by its own name.
#include <windef.h>

#define HH_DISPLAY_TOPIC 0x0000
#define HH_DISPLAY_TOC   0x0001
#define HH_GET_WIN_TYPE  0x0005
#define HH_CLOSE_ALL     0x0012

typedef struct tagHH_WINTYPE
{
    int cbStruct;
    BOOL fUniCodeStrings;
    LPCWSTR pszType;
    DWORD fsValidMembers;
    DWORD fsWinProperties;
    LPCWSTR pszCaption;
    DWORD dwStyles;
    DWORD dwExStyles;
    RECT rcWindowPos;
    int nShowState;
} HH_WINTYPE, *PHH_WINTYPE;

extern "C" {
HOSTAPI HWND WINAPI HtmlHelpW(HWND caller, LPCWSTR file, UINT command, DWORD_PTR data);
}
