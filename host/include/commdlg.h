#pragma once
// Common dialogs: opening a file, choosing a colour, choosing a font.
#include <windows.h>

typedef UINT_PTR(CALLBACK* LPOFNHOOKPROC)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
typedef UINT_PTR(CALLBACK* LPCCHOOKPROC)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
typedef UINT_PTR(CALLBACK* LPCFHOOKPROC)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

#define OFN_HIDEREADONLY  0x00000004
#define OFN_PATHMUSTEXIST 0x00000800
#define OFN_FILEMUSTEXIST 0x00001000
#define OFN_EXPLORER      0x00080000

typedef struct tagOFNW
{
    DWORD lStructSize;
    HWND hwndOwner;
    HINSTANCE hInstance;
    LPCWSTR lpstrFilter;
    LPWSTR lpstrCustomFilter;
    DWORD nMaxCustFilter;
    DWORD nFilterIndex;
    LPWSTR lpstrFile;
    DWORD nMaxFile; // units
    LPWSTR lpstrFileTitle;
    DWORD nMaxFileTitle;
    LPCWSTR lpstrInitialDir;
    LPCWSTR lpstrTitle;
    DWORD Flags;
    WORD nFileOffset;
    WORD nFileExtension;
    LPCWSTR lpstrDefExt;
    LPARAM lCustData;
    LPOFNHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    void* pvReserved;
    DWORD dwReserved;
    DWORD FlagsEx;
} OPENFILENAMEW, *LPOPENFILENAMEW;
static_assert(sizeof(OPENFILENAMEW) == 152);

#define CC_RGBINIT  0x00000001
#define CC_FULLOPEN 0x00000002

typedef struct tagCHOOSECOLORW
{
    DWORD lStructSize;
    HWND hwndOwner;
    HWND hInstance;
    COLORREF rgbResult;
    COLORREF* lpCustColors;
    DWORD Flags;
    LPARAM lCustData;
    LPCCHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
} CHOOSECOLORW, *LPCHOOSECOLORW;
static_assert(sizeof(CHOOSECOLORW) == 72);

#define CF_SCREENFONTS         0x00000001
#define CF_INITTOLOGFONTSTRUCT 0x00000040L
#define CF_EFFECTS             0x00000100L
#define CF_LIMITSIZE           0x00002000L

#define SCREEN_FONTTYPE 0x2000

typedef struct tagCHOOSEFONTW
{
    DWORD lStructSize;
    HWND hwndOwner;
    HDC hDC;
    LOGFONTW* lpLogFont;
    INT iPointSize; // tenths of a point
    DWORD Flags;
    COLORREF rgbColors;
    LPARAM lCustData;
    LPCFHOOKPROC lpfnHook;
    LPCWSTR lpTemplateName;
    HINSTANCE hInstance;
    LPWSTR lpszStyle;
    WORD nFontType;
    WORD ___MISSING_ALIGNMENT__;
    INT nSizeMin; // points
    INT nSizeMax;
} CHOOSEFONTW, *LPCHOOSEFONTW;
static_assert(sizeof(CHOOSEFONTW) == 104);

extern "C" {
HOSTAPI BOOL WINAPI GetOpenFileNameW(LPOPENFILENAMEW request);
HOSTAPI BOOL WINAPI ChooseColorW(LPCHOOSECOLORW request);
HOSTAPI BOOL WINAPI ChooseFontW(LPCHOOSEFONTW request);
}
