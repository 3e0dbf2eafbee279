#pragma once
// Pages of property sheets, and what sheets and pages tell each other.
#include <windows.h>

#define PSP_DLGINDIRECT 0x00000001
#define PSP_USETITLE    0x00000008
#define PSP_HASHELP     0x00000020

// Records of callers differ in length; everything up to pcRefParent is in all of them.
typedef struct _PROPSHEETPAGEW
{
    DWORD dwSize;
    DWORD dwFlags;
    HINSTANCE hInstance;
    union {
        LPCWSTR pszTemplate;
        LPCDLGTEMPLATEW pResource;
    };
    union {
        HICON hIcon;
        LPCWSTR pszIcon;
    };
    LPCWSTR pszTitle;
    DLGPROC pfnDlgProc;
    LPARAM lParam;
    PVOID pfnCallback;
    UINT* pcRefParent;
    LPCWSTR pszHeaderTitle;
    LPCWSTR pszHeaderSubTitle;
    HANDLE hActCtx;
} PROPSHEETPAGEW, *LPPROPSHEETPAGEW;
typedef const PROPSHEETPAGEW* LPCPROPSHEETPAGEW;
static_assert(sizeof(PROPSHEETPAGEW) == 96);

#define PROPSHEETPAGEW_V1_SIZE 72

typedef struct _PSHNOTIFY
{
    NMHDR hdr;
    LPARAM lParam;
} PSHNOTIFY, *LPPSHNOTIFY;

#define PSN_FIRST       (0U - 200U)
#define PSN_SETACTIVE   (PSN_FIRST - 0)
#define PSN_KILLACTIVE  (PSN_FIRST - 1)
#define PSN_APPLY       (PSN_FIRST - 2)
#define PSN_RESET       (PSN_FIRST - 3)
#define PSN_HELP        (PSN_FIRST - 5)
#define PSN_QUERYCANCEL (PSN_FIRST - 9)

#define PSNRET_NOERROR              0
#define PSNRET_INVALID              1
#define PSNRET_INVALID_NOCHANGEPAGE 2

#define PSM_SETCURSEL          (WM_USER + 101)
#define PSM_CHANGED            (WM_USER + 104)
#define PSM_CANCELTOCLOSE      (WM_USER + 107)
#define PSM_QUERYSIBLINGS      (WM_USER + 108)
#define PSM_UNCHANGED          (WM_USER + 109)
#define PSM_APPLY              (WM_USER + 110)
#define PSM_PRESSBUTTON        (WM_USER + 113)
#define PSM_GETTABCONTROL      (WM_USER + 116)
#define PSM_ISDIALOGMESSAGE    (WM_USER + 117)
#define PSM_GETCURRENTPAGEHWND (WM_USER + 118)
#define PSM_INDEXTOHWND        (WM_USER + 130)

#define PSBTN_OK       3
#define PSBTN_APPLYNOW 4
#define PSBTN_CANCEL   5
#define PSBTN_HELP     6
