#pragma once
// Common controls: tab control, track bar and up-down control.
#include <windows.h>

typedef struct tagINITCOMMONCONTROLSEX
{
    DWORD dwSize;
    DWORD dwICC;
} INITCOMMONCONTROLSEX, *LPINITCOMMONCONTROLSEX;

#define ICC_BAR_CLASSES      0x00000004 // track bar, among others
#define ICC_TAB_CLASSES      0x00000008
#define ICC_UPDOWN_CLASS     0x00000010
#define ICC_WIN95_CLASSES    0x000000FF
#define ICC_STANDARD_CLASSES 0x00004000

#define ICC_LISTVIEW_CLASSES   0x00000001
#define ICC_TREEVIEW_CLASSES   0x00000002
#define ICC_PROGRESS_CLASS     0x00000020
#define ICC_HOTKEY_CLASS       0x00000040
#define ICC_ANIMATE_CLASS      0x00000080
#define ICC_DATE_CLASSES       0x00000100
#define ICC_USEREX_CLASSES     0x00000200
#define ICC_COOL_CLASSES       0x00000400
#define ICC_INTERNET_CLASSES   0x00000800
#define ICC_PAGESCROLLER_CLASS 0x00001000
#define ICC_NATIVEFNTCTL_CLASS 0x00002000
#define ICC_LINK_CLASS         0x00008000

// Codes of WM_NOTIFY that several controls send
#define NM_FIRST (0U - 0U)
#define NM_CLICK (NM_FIRST - 2)

// Tab control

#define WC_TABCONTROLW TEXT("SysTabControl32")
#define WC_TABCONTROL  WC_TABCONTROLW

#define TCS_TABS              0x0000
#define TCS_SINGLELINE        0x0000
#define TCS_RIGHTJUSTIFY      0x0000
#define TCS_FIXEDWIDTH        0x0400
#define TCS_RAGGEDRIGHT       0x0800
#define TCS_FOCUSONBUTTONDOWN 0x1000
#define TCS_FOCUSNEVER        0x8000

#define TCIF_TEXT       0x0001
#define TCIF_IMAGE      0x0002
#define TCIF_RTLREADING 0x0004
#define TCIF_PARAM      0x0008
#define TCIF_STATE      0x0010

#define TCIS_BUTTONPRESSED 0x0001
#define TCIS_HIGHLIGHTED   0x0002

typedef struct tagTCITEMW
{
    UINT mask;
    DWORD dwState;
    DWORD dwStateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
} TCITEMW, *LPTCITEMW;
typedef TCITEMW TCITEM;
typedef LPTCITEMW LPTCITEM;
#define TC_ITEMW TCITEMW
static_assert(sizeof(TCITEMW) == 40);

#define TCHT_NOWHERE     0x0001
#define TCHT_ONITEMICON  0x0002
#define TCHT_ONITEMLABEL 0x0004
#define TCHT_ONITEM      (TCHT_ONITEMICON | TCHT_ONITEMLABEL)

typedef struct tagTCHITTESTINFO
{
    POINT pt;
    UINT flags;
} TCHITTESTINFO, *LPTCHITTESTINFO;

#define TCM_FIRST          0x1300
#define TCM_GETITEMCOUNT   (TCM_FIRST + 4)
#define TCM_DELETEITEM     (TCM_FIRST + 8)
#define TCM_DELETEALLITEMS (TCM_FIRST + 9)
#define TCM_GETITEMRECT    (TCM_FIRST + 10)
#define TCM_GETCURSEL      (TCM_FIRST + 11)
#define TCM_SETCURSEL      (TCM_FIRST + 12)
#define TCM_HITTEST        (TCM_FIRST + 13)
#define TCM_ADJUSTRECT     (TCM_FIRST + 40)
#define TCM_SETITEMSIZE    (TCM_FIRST + 41)
#define TCM_SETPADDING     (TCM_FIRST + 43)
#define TCM_GETROWCOUNT    (TCM_FIRST + 44)
#define TCM_GETCURFOCUS    (TCM_FIRST + 47)
#define TCM_SETCURFOCUS    (TCM_FIRST + 48)
#define TCM_SETMINTABWIDTH (TCM_FIRST + 49)
#define TCM_HIGHLIGHTITEM  (TCM_FIRST + 51)
#define TCM_GETITEMW       (TCM_FIRST + 60)
#define TCM_SETITEMW       (TCM_FIRST + 61)
#define TCM_INSERTITEMW    (TCM_FIRST + 62)
#define TCM_GETITEM        TCM_GETITEMW
#define TCM_SETITEM        TCM_SETITEMW
#define TCM_INSERTITEM     TCM_INSERTITEMW

#define TCN_FIRST       (0U - 550U)
#define TCN_KEYDOWN     (TCN_FIRST - 0)
#define TCN_SELCHANGE   (TCN_FIRST - 1)
#define TCN_SELCHANGING (TCN_FIRST - 2)
#define TCN_FOCUSCHANGE (TCN_FIRST - 4)

#pragma pack(push, 1)
typedef struct tagTCKEYDOWN
{
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
} NMTCKEYDOWN;
#pragma pack(pop)

#define TabCtrl_GetItemCount(window) (int)SendMessageW((window), TCM_GETITEMCOUNT, 0, 0)
#define TabCtrl_InsertItem(window, index, item)                                                              \
    (int)SendMessageW((window), TCM_INSERTITEMW, (WPARAM)(int)(index), (LPARAM)(const TCITEMW*)(item))
#define TabCtrl_GetCurSel(window)        (int)SendMessageW((window), TCM_GETCURSEL, 0, 0)
#define TabCtrl_SetCurSel(window, index) (int)SendMessageW((window), TCM_SETCURSEL, (WPARAM)(index), 0)
#define TabCtrl_AdjustRect(window, larger, rect)                                                             \
    (int)SendMessageW((window), TCM_ADJUSTRECT, (WPARAM)(BOOL)(larger), (LPARAM)(RECT*)(rect))

// Track bar

#define TRACKBAR_CLASSW TEXT("msctls_trackbar32")
#define TRACKBAR_CLASS  TRACKBAR_CLASSW

#define TBS_HORZ        0x0000
#define TBS_BOTTOM      0x0000
#define TBS_RIGHT       0x0000
#define TBS_AUTOTICKS   0x0001
#define TBS_VERT        0x0002
#define TBS_TOP         0x0004
#define TBS_LEFT        0x0004
#define TBS_BOTH        0x0008
#define TBS_NOTICKS     0x0010
#define TBS_FIXEDLENGTH 0x0040
#define TBS_NOTHUMB     0x0080

#define TBM_GETPOS         (WM_USER)
#define TBM_GETRANGEMIN    (WM_USER + 1)
#define TBM_GETRANGEMAX    (WM_USER + 2)
#define TBM_GETTIC         (WM_USER + 3)
#define TBM_SETTIC         (WM_USER + 4)
#define TBM_SETPOS         (WM_USER + 5)
#define TBM_SETRANGE       (WM_USER + 6)
#define TBM_SETRANGEMIN    (WM_USER + 7)
#define TBM_SETRANGEMAX    (WM_USER + 8)
#define TBM_CLEARTICS      (WM_USER + 9)
#define TBM_GETTICPOS      (WM_USER + 15)
#define TBM_GETNUMTICS     (WM_USER + 16)
#define TBM_SETTICFREQ     (WM_USER + 20)
#define TBM_SETPAGESIZE    (WM_USER + 21)
#define TBM_GETPAGESIZE    (WM_USER + 22)
#define TBM_SETLINESIZE    (WM_USER + 23)
#define TBM_GETLINESIZE    (WM_USER + 24)
#define TBM_GETTHUMBRECT   (WM_USER + 25)
#define TBM_GETCHANNELRECT (WM_USER + 26)
#define TBM_SETTHUMBLENGTH (WM_USER + 27)
#define TBM_GETTHUMBLENGTH (WM_USER + 28)

#define TB_LINEUP        0
#define TB_LINEDOWN      1
#define TB_PAGEUP        2
#define TB_PAGEDOWN      3
#define TB_THUMBPOSITION 4
#define TB_THUMBTRACK    5
#define TB_TOP           6
#define TB_BOTTOM        7
#define TB_ENDTRACK      8

// Up-down control

#define UPDOWN_CLASSW TEXT("msctls_updown32")
#define UPDOWN_CLASS  UPDOWN_CLASSW

#define UDS_WRAP        0x0001
#define UDS_SETBUDDYINT 0x0002
#define UDS_ALIGNRIGHT  0x0004
#define UDS_ALIGNLEFT   0x0008
#define UDS_AUTOBUDDY   0x0010
#define UDS_ARROWKEYS   0x0020
#define UDS_HORZ        0x0040
#define UDS_NOTHOUSANDS 0x0080
#define UDS_HOTTRACK    0x0100

#define UD_MAXVAL 0x7fff
#define UD_MINVAL (-UD_MAXVAL)

typedef struct _UDACCEL
{
    UINT nSec;
    UINT nInc;
} UDACCEL, *LPUDACCEL;

#define UDM_SETRANGE   (WM_USER + 101)
#define UDM_GETRANGE   (WM_USER + 102)
#define UDM_SETPOS     (WM_USER + 103)
#define UDM_GETPOS     (WM_USER + 104)
#define UDM_SETBUDDY   (WM_USER + 105)
#define UDM_GETBUDDY   (WM_USER + 106)
#define UDM_SETACCEL   (WM_USER + 107)
#define UDM_GETACCEL   (WM_USER + 108)
#define UDM_SETBASE    (WM_USER + 109)
#define UDM_GETBASE    (WM_USER + 110)
#define UDM_SETRANGE32 (WM_USER + 111)
#define UDM_GETRANGE32 (WM_USER + 112)
#define UDM_SETPOS32   (WM_USER + 113)
#define UDM_GETPOS32   (WM_USER + 114)

#define UDN_FIRST    (0U - 721U)
#define UDN_DELTAPOS (UDN_FIRST - 1)

typedef struct _NM_UPDOWN
{
    NMHDR hdr;
    int iPos;
    int iDelta;
} NMUPDOWN, *LPNMUPDOWN;

extern "C" {
HOSTAPI void WINAPI InitCommonControls(void);
HOSTAPI BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* which);
}
