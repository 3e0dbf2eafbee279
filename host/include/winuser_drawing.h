#pragma once
// What draws with window-system names: rectangles, filled and edged areas, laid-out text, system colours,
// pictures from resources.
#include <windef.h>
#include <wingdi.h>

#define COLOR_SCROLLBAR               0
#define COLOR_BACKGROUND              1
#define COLOR_DESKTOP                 COLOR_BACKGROUND
#define COLOR_ACTIVECAPTION           2
#define COLOR_INACTIVECAPTION         3
#define COLOR_MENU                    4
#define COLOR_WINDOW                  5
#define COLOR_WINDOWFRAME             6
#define COLOR_MENUTEXT                7
#define COLOR_WINDOWTEXT              8
#define COLOR_CAPTIONTEXT             9
#define COLOR_ACTIVEBORDER            10
#define COLOR_INACTIVEBORDER          11
#define COLOR_APPWORKSPACE            12
#define COLOR_HIGHLIGHT               13
#define COLOR_HIGHLIGHTTEXT           14
#define COLOR_BTNFACE                 15
#define COLOR_3DFACE                  COLOR_BTNFACE
#define COLOR_BTNSHADOW               16
#define COLOR_3DSHADOW                COLOR_BTNSHADOW
#define COLOR_GRAYTEXT                17
#define COLOR_BTNTEXT                 18
#define COLOR_INACTIVECAPTIONTEXT     19
#define COLOR_BTNHIGHLIGHT            20
#define COLOR_3DHIGHLIGHT             COLOR_BTNHIGHLIGHT
#define COLOR_3DHILIGHT               COLOR_BTNHIGHLIGHT
#define COLOR_3DDKSHADOW              21
#define COLOR_3DLIGHT                 22
#define COLOR_INFOTEXT                23
#define COLOR_INFOBK                  24
#define COLOR_HOTLIGHT                26
#define COLOR_GRADIENTACTIVECAPTION   27
#define COLOR_GRADIENTINACTIVECAPTION 28
#define COLOR_MENUHILIGHT             29
#define COLOR_MENUBAR                 30

#define DT_TOP                  0x00000000
#define DT_LEFT                 0x00000000
#define DT_CENTER               0x00000001
#define DT_RIGHT                0x00000002
#define DT_VCENTER              0x00000004
#define DT_BOTTOM               0x00000008
#define DT_WORDBREAK            0x00000010
#define DT_SINGLELINE           0x00000020
#define DT_EXPANDTABS           0x00000040
#define DT_TABSTOP              0x00000080
#define DT_NOCLIP               0x00000100
#define DT_EXTERNALLEADING      0x00000200
#define DT_CALCRECT             0x00000400
#define DT_NOPREFIX             0x00000800
#define DT_EDITCONTROL          0x00002000
#define DT_PATH_ELLIPSIS        0x00004000
#define DT_END_ELLIPSIS         0x00008000
#define DT_MODIFYSTRING         0x00010000
#define DT_WORD_ELLIPSIS        0x00040000
#define DT_NOFULLWIDTHCHARBREAK 0x00080000
#define DT_HIDEPREFIX           0x00100000
#define DT_PREFIXONLY           0x00200000

#define BDR_RAISEDOUTER 0x0001
#define BDR_SUNKENOUTER 0x0002
#define BDR_RAISEDINNER 0x0004
#define BDR_SUNKENINNER 0x0008
#define EDGE_RAISED     (BDR_RAISEDOUTER | BDR_RAISEDINNER)
#define EDGE_SUNKEN     (BDR_SUNKENOUTER | BDR_SUNKENINNER)
#define EDGE_ETCHED     (BDR_SUNKENOUTER | BDR_RAISEDINNER)
#define EDGE_BUMP       (BDR_RAISEDOUTER | BDR_SUNKENINNER)

#define BF_LEFT        0x0001
#define BF_TOP         0x0002
#define BF_RIGHT       0x0004
#define BF_BOTTOM      0x0008
#define BF_TOPLEFT     (BF_TOP | BF_LEFT)
#define BF_TOPRIGHT    (BF_TOP | BF_RIGHT)
#define BF_BOTTOMLEFT  (BF_BOTTOM | BF_LEFT)
#define BF_BOTTOMRIGHT (BF_BOTTOM | BF_RIGHT)
#define BF_RECT        (BF_LEFT | BF_TOP | BF_RIGHT | BF_BOTTOM)
#define BF_MIDDLE      0x0800
#define BF_SOFT        0x1000
#define BF_ADJUST      0x2000
#define BF_FLAT        0x4000
#define BF_MONO        0x8000

#define DFC_CAPTION 1
#define DFC_SCROLL  3
#define DFC_BUTTON  4

#define DFCS_CAPTIONCLOSE 0x0000

#define DFCS_SCROLLUP       0x0000
#define DFCS_SCROLLDOWN     0x0001
#define DFCS_SCROLLLEFT     0x0002
#define DFCS_SCROLLRIGHT    0x0003
#define DFCS_SCROLLCOMBOBOX 0x0005

#define DFCS_BUTTONCHECK  0x0000
#define DFCS_BUTTONRADIO  0x0004
#define DFCS_BUTTON3STATE 0x0008
#define DFCS_BUTTONPUSH   0x0010

#define DFCS_INACTIVE   0x0100
#define DFCS_PUSHED     0x0200
#define DFCS_CHECKED    0x0400
#define DFCS_ADJUSTRECT 0x2000
#define DFCS_FLAT       0x4000
#define DFCS_MONO       0x8000

#define IMAGE_BITMAP 0
#define IMAGE_ICON   1
#define IMAGE_CURSOR 2

#define LR_DEFAULTCOLOR     0x00000000
#define LR_MONOCHROME       0x00000001
#define LR_LOADFROMFILE     0x00000010
#define LR_LOADTRANSPARENT  0x00000020
#define LR_DEFAULTSIZE      0x00000040
#define LR_LOADMAP3DCOLORS  0x00001000
#define LR_CREATEDIBSECTION 0x00002000
#define LR_SHARED           0x00008000

#define DI_MASK        0x0001
#define DI_IMAGE       0x0002
#define DI_NORMAL      0x0003
#define DI_DEFAULTSIZE 0x0008

#define IDC_ARROW    MAKEINTRESOURCEW(32512)
#define IDC_IBEAM    MAKEINTRESOURCEW(32513)
#define IDC_WAIT     MAKEINTRESOURCEW(32514)
#define IDC_CROSS    MAKEINTRESOURCEW(32515)
#define IDC_UPARROW  MAKEINTRESOURCEW(32516)
#define IDC_SIZENWSE MAKEINTRESOURCEW(32642)
#define IDC_SIZENESW MAKEINTRESOURCEW(32643)
#define IDC_SIZEWE   MAKEINTRESOURCEW(32644)
#define IDC_SIZENS   MAKEINTRESOURCEW(32645)
#define IDC_SIZEALL  MAKEINTRESOURCEW(32646)
#define IDC_NO       MAKEINTRESOURCEW(32648)
#define IDC_HAND     MAKEINTRESOURCEW(32649)
#define IDC_HELP     MAKEINTRESOURCEW(32651)

#define IDI_APPLICATION MAKEINTRESOURCEW(32512)
#define IDI_HAND        MAKEINTRESOURCEW(32513)
#define IDI_QUESTION    MAKEINTRESOURCEW(32514)
#define IDI_EXCLAMATION MAKEINTRESOURCEW(32515)
#define IDI_ASTERISK    MAKEINTRESOURCEW(32516)
#define IDI_WARNING     IDI_EXCLAMATION
#define IDI_ERROR       IDI_HAND
#define IDI_INFORMATION IDI_ASTERISK

#define SPI_GETICONTITLELOGFONT 0x001F
#define SPI_GETNONCLIENTMETRICS 0x0029

typedef struct tagDRAWTEXTPARAMS
{
    UINT cbSize;
    int iTabLength;
    int iLeftMargin;
    int iRightMargin;
    UINT uiLengthDrawn;
} DRAWTEXTPARAMS, *LPDRAWTEXTPARAMS;

typedef struct _ICONINFO
{
    BOOL fIcon;
    DWORD xHotspot;
    DWORD yHotspot;
    HBITMAP hbmMask;
    HBITMAP hbmColor;
} ICONINFO, *PICONINFO;

typedef struct tagNONCLIENTMETRICSW
{
    UINT cbSize;
    int iBorderWidth;
    int iScrollWidth;
    int iScrollHeight;
    int iCaptionWidth;
    int iCaptionHeight;
    LOGFONTW lfCaptionFont;
    int iSmCaptionWidth;
    int iSmCaptionHeight;
    LOGFONTW lfSmCaptionFont;
    int iMenuWidth;
    int iMenuHeight;
    LOGFONTW lfMenuFont;
    LOGFONTW lfStatusFont;
    LOGFONTW lfMessageFont;
    int iPaddedBorderWidth;
} NONCLIENTMETRICSW, *PNONCLIENTMETRICSW, *LPNONCLIENTMETRICSW;

extern "C" {
HOSTAPI BOOL WINAPI SetRect(LPRECT rect, int left, int top, int right, int bottom);
HOSTAPI BOOL WINAPI SetRectEmpty(LPRECT rect);
HOSTAPI BOOL WINAPI CopyRect(LPRECT destination, const RECT* source);
HOSTAPI BOOL WINAPI InflateRect(LPRECT rect, int x, int y);
HOSTAPI BOOL WINAPI OffsetRect(LPRECT rect, int x, int y);
HOSTAPI BOOL WINAPI IntersectRect(LPRECT result, const RECT* first, const RECT* second);
HOSTAPI BOOL WINAPI UnionRect(LPRECT result, const RECT* first, const RECT* second);
HOSTAPI BOOL WINAPI SubtractRect(LPRECT result, const RECT* first, const RECT* second);
HOSTAPI BOOL WINAPI IsRectEmpty(const RECT* rect);
HOSTAPI BOOL WINAPI EqualRect(const RECT* first, const RECT* second);
HOSTAPI BOOL WINAPI PtInRect(const RECT* rect, POINT point);

HOSTAPI DWORD WINAPI GetSysColor(int index);
HOSTAPI HBRUSH WINAPI GetSysColorBrush(int index);
HOSTAPI BOOL WINAPI SystemParametersInfoW(UINT action, UINT parameter, PVOID data, UINT update);

HOSTAPI int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH brush);
HOSTAPI int WINAPI FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
HOSTAPI BOOL WINAPI InvertRect(HDC dc, const RECT* rect);
HOSTAPI BOOL WINAPI DrawFocusRect(HDC dc, const RECT* rect);
HOSTAPI BOOL WINAPI DrawEdge(HDC dc, LPRECT rect, UINT edge, UINT flags);
HOSTAPI BOOL WINAPI DrawFrameControl(HDC dc, LPRECT rect, UINT type, UINT state);

HOSTAPI int WINAPI DrawTextW(HDC dc, LPCWSTR text, int length, LPRECT rect, UINT format);
HOSTAPI int WINAPI DrawTextExW(HDC dc, LPWSTR text, int length, LPRECT rect, UINT format,
                               LPDRAWTEXTPARAMS parameters);
HOSTAPI LONG WINAPI TabbedTextOutW(HDC dc, int x, int y, LPCWSTR text, int length, int stopCount,
                                   const INT* stops, int origin);
HOSTAPI DWORD WINAPI GetTabbedTextExtentW(HDC dc, LPCWSTR text, int length, int stopCount, const INT* stops);

HOSTAPI HBITMAP WINAPI LoadBitmapW(HINSTANCE module, LPCWSTR name);
HOSTAPI HICON WINAPI LoadIconW(HINSTANCE module, LPCWSTR name);
HOSTAPI HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name);
HOSTAPI HANDLE WINAPI LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, int width, int height,
                                 UINT flags);
HOSTAPI HICON WINAPI CreateIconIndirect(PICONINFO description);
HOSTAPI HICON WINAPI CopyIcon(HICON icon);
HOSTAPI BOOL WINAPI GetIconInfo(HICON icon, PICONINFO description);
HOSTAPI BOOL WINAPI DestroyIcon(HICON icon);
HOSTAPI BOOL WINAPI DestroyCursor(HCURSOR cursor);
HOSTAPI BOOL WINAPI DrawIcon(HDC dc, int x, int y, HICON icon);
HOSTAPI BOOL WINAPI DrawIconEx(HDC dc, int x, int y, HICON icon, int width, int height, UINT step,
                               HBRUSH background, UINT flags);
}
