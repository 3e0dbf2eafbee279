#pragma once
// Windows, messages, dialogs, menus and input. Drawing and the standard controls have headers of their own.
#include <windef.h>
#include <winuser_drawing.h>

DECLARE_HANDLE(HMENU);
typedef HANDLE HDWP;

typedef LRESULT(CALLBACK* WNDPROC)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
typedef INT_PTR(CALLBACK* DLGPROC)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
typedef void(CALLBACK* TIMERPROC)(HWND window, UINT message, UINT_PTR id, DWORD time);
typedef BOOL(CALLBACK* WNDENUMPROC)(HWND window, LPARAM parameter);
typedef BOOL(CALLBACK* PROPENUMPROCW)(HWND window, LPCWSTR name, HANDLE value);

#include <winuser_controls.h>

// Styles

#define WS_OVERLAPPED   0x00000000L
#define WS_POPUP        0x80000000L
#define WS_CHILD        0x40000000L
#define WS_MINIMIZE     0x20000000L
#define WS_VISIBLE      0x10000000L
#define WS_DISABLED     0x08000000L
#define WS_CLIPSIBLINGS 0x04000000L
#define WS_CLIPCHILDREN 0x02000000L
#define WS_MAXIMIZE     0x01000000L
#define WS_CAPTION      0x00C00000L
#define WS_BORDER       0x00800000L
#define WS_DLGFRAME     0x00400000L
#define WS_VSCROLL      0x00200000L
#define WS_HSCROLL      0x00100000L
#define WS_SYSMENU      0x00080000L
#define WS_THICKFRAME   0x00040000L
#define WS_GROUP        0x00020000L
#define WS_TABSTOP      0x00010000L
#define WS_MINIMIZEBOX  0x00020000L
#define WS_MAXIMIZEBOX  0x00010000L
#define WS_SIZEBOX      WS_THICKFRAME
#define WS_OVERLAPPEDWINDOW                                                                                  \
    (WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX)
#define WS_POPUPWINDOW (WS_POPUP | WS_BORDER | WS_SYSMENU)
#define WS_CHILDWINDOW (WS_CHILD)

#define WS_EX_DLGMODALFRAME  0x00000001L
#define WS_EX_NOPARENTNOTIFY 0x00000004L
#define WS_EX_TOPMOST        0x00000008L
#define WS_EX_TRANSPARENT    0x00000020L
#define WS_EX_TOOLWINDOW     0x00000080L
#define WS_EX_WINDOWEDGE     0x00000100L
#define WS_EX_CLIENTEDGE     0x00000200L
#define WS_EX_CONTEXTHELP    0x00000400L
#define WS_EX_CONTROLPARENT  0x00010000L
#define WS_EX_STATICEDGE     0x00020000L
#define WS_EX_APPWINDOW      0x00040000L
#define WS_EX_NOACTIVATE     0x08000000L

#define CS_VREDRAW     0x0001
#define CS_HREDRAW     0x0002
#define CS_DBLCLKS     0x0008
#define CS_OWNDC       0x0020
#define CS_CLASSDC     0x0040
#define CS_PARENTDC    0x0080
#define CS_NOCLOSE     0x0200
#define CS_SAVEBITS    0x0800
#define CS_GLOBALCLASS 0x4000
#define CS_DROPSHADOW  0x00020000

#define DS_ABSALIGN      0x01L
#define DS_SYSMODAL      0x02L
#define DS_3DLOOK        0x0004L
#define DS_FIXEDSYS      0x0008L
#define DS_NOFAILCREATE  0x0010L
#define DS_LOCALEDIT     0x20L
#define DS_SETFONT       0x40L
#define DS_MODALFRAME    0x80L
#define DS_NOIDLEMSG     0x100L
#define DS_SETFOREGROUND 0x200L
#define DS_CONTROL       0x0400L
#define DS_CENTER        0x0800L
#define DS_CENTERMOUSE   0x1000L
#define DS_CONTEXTHELP   0x2000L
#define DS_SHELLFONT     (DS_SETFONT | DS_FIXEDSYS)

#define CW_USEDEFAULT  ((int)0x80000000)
#define HWND_DESKTOP   ((HWND)0)
#define HWND_BROADCAST ((HWND)0xffff)
#define HWND_TOP       ((HWND)0)
#define HWND_BOTTOM    ((HWND)1)
#define HWND_TOPMOST   ((HWND)-1)
#define HWND_NOTOPMOST ((HWND)-2)
#define HWND_MESSAGE   ((HWND)-3)

#define WC_DIALOG (MAKEINTATOM(0x8002))

// Window and class longs

#define GWL_STYLE       (-16)
#define GWL_EXSTYLE     (-20)
#define GWL_ID          (-12)
#define GWLP_WNDPROC    (-4)
#define GWLP_HINSTANCE  (-6)
#define GWLP_HWNDPARENT (-8)
#define GWLP_USERDATA   (-21)
#define GWLP_ID         (-12)

#define GCL_STYLE          (-26)
#define GCL_CBWNDEXTRA     (-18)
#define GCL_CBCLSEXTRA     (-20)
#define GCW_ATOM           (-32)
#define GCLP_MENUNAME      (-8)
#define GCLP_HBRBACKGROUND (-10)
#define GCLP_HCURSOR       (-12)
#define GCLP_HICON         (-14)
#define GCLP_HMODULE       (-16)
#define GCLP_WNDPROC       (-24)
#define GCLP_HICONSM       (-34)

#define DLGWINDOWEXTRA 48
#define DWLP_MSGRESULT 0
#define DWLP_DLGPROC   ((int)sizeof(LRESULT))
#define DWLP_USER      ((int)(DWLP_DLGPROC + sizeof(DLGPROC)))

// Messages

#define WM_NULL              0x0000
#define WM_CREATE            0x0001
#define WM_DESTROY           0x0002
#define WM_MOVE              0x0003
#define WM_SIZE              0x0005
#define WM_ACTIVATE          0x0006
#define WM_SETFOCUS          0x0007
#define WM_KILLFOCUS         0x0008
#define WM_ENABLE            0x000A
#define WM_SETREDRAW         0x000B
#define WM_SETTEXT           0x000C
#define WM_GETTEXT           0x000D
#define WM_GETTEXTLENGTH     0x000E
#define WM_PAINT             0x000F
#define WM_CLOSE             0x0010
#define WM_QUERYENDSESSION   0x0011
#define WM_QUIT              0x0012
#define WM_ERASEBKGND        0x0014
#define WM_SYSCOLORCHANGE    0x0015
#define WM_SHOWWINDOW        0x0018
#define WM_WININICHANGE      0x001A
#define WM_SETTINGCHANGE     WM_WININICHANGE
#define WM_ACTIVATEAPP       0x001C
#define WM_FONTCHANGE        0x001D
#define WM_CANCELMODE        0x001F
#define WM_SETCURSOR         0x0020
#define WM_MOUSEACTIVATE     0x0021
#define WM_CHILDACTIVATE     0x0022
#define WM_GETMINMAXINFO     0x0024
#define WM_NEXTDLGCTL        0x0028
#define WM_DRAWITEM          0x002B
#define WM_MEASUREITEM       0x002C
#define WM_DELETEITEM        0x002D
#define WM_VKEYTOITEM        0x002E
#define WM_CHARTOITEM        0x002F
#define WM_SETFONT           0x0030
#define WM_GETFONT           0x0031
#define WM_COMPAREITEM       0x0039
#define WM_WINDOWPOSCHANGING 0x0046
#define WM_WINDOWPOSCHANGED  0x0047
#define WM_COPYDATA          0x004A
#define WM_NOTIFY            0x004E
#define WM_HELP              0x0053
#define WM_NOTIFYFORMAT      0x0055
#define WM_CONTEXTMENU       0x007B
#define WM_STYLECHANGING     0x007C
#define WM_STYLECHANGED      0x007D
#define WM_GETICON           0x007F
#define WM_SETICON           0x0080
#define WM_NCCREATE          0x0081
#define WM_NCDESTROY         0x0082
#define WM_NCCALCSIZE        0x0083
#define WM_NCHITTEST         0x0084
#define WM_NCPAINT           0x0085
#define WM_NCACTIVATE        0x0086
#define WM_GETDLGCODE        0x0087
#define WM_NCMOUSEMOVE       0x00A0
#define WM_NCLBUTTONDOWN     0x00A1
#define WM_NCLBUTTONUP       0x00A2
#define WM_NCLBUTTONDBLCLK   0x00A3
#define WM_NCRBUTTONDOWN     0x00A4
#define WM_NCRBUTTONUP       0x00A5
#define WM_NCRBUTTONDBLCLK   0x00A6
#define WM_NCMBUTTONDOWN     0x00A7
#define WM_NCMBUTTONUP       0x00A8
#define WM_NCMBUTTONDBLCLK   0x00A9
#define WM_KEYFIRST          0x0100
#define WM_KEYDOWN           0x0100
#define WM_KEYUP             0x0101
#define WM_CHAR              0x0102
#define WM_DEADCHAR          0x0103
#define WM_SYSKEYDOWN        0x0104
#define WM_SYSKEYUP          0x0105
#define WM_SYSCHAR           0x0106
#define WM_SYSDEADCHAR       0x0107
#define WM_UNICHAR           0x0109
#define WM_KEYLAST           0x0109
#define WM_INITDIALOG        0x0110
#define WM_COMMAND           0x0111
#define WM_SYSCOMMAND        0x0112
#define WM_TIMER             0x0113
#define WM_HSCROLL           0x0114
#define WM_VSCROLL           0x0115
#define WM_INITMENU          0x0116
#define WM_INITMENUPOPUP     0x0117
#define WM_MENUSELECT        0x011F
#define WM_MENUCHAR          0x0120
#define WM_ENTERIDLE         0x0121
#define WM_UNINITMENUPOPUP   0x0125
#define WM_CHANGEUISTATE     0x0127
#define WM_UPDATEUISTATE     0x0128
#define WM_QUERYUISTATE      0x0129
#define WM_CTLCOLORMSGBOX    0x0132
#define WM_CTLCOLOREDIT      0x0133
#define WM_CTLCOLORLISTBOX   0x0134
#define WM_CTLCOLORBTN       0x0135
#define WM_CTLCOLORDLG       0x0136
#define WM_CTLCOLORSCROLLBAR 0x0137
#define WM_CTLCOLORSTATIC    0x0138
#define WM_MOUSEFIRST        0x0200
#define WM_MOUSEMOVE         0x0200
#define WM_LBUTTONDOWN       0x0201
#define WM_LBUTTONUP         0x0202
#define WM_LBUTTONDBLCLK     0x0203
#define WM_RBUTTONDOWN       0x0204
#define WM_RBUTTONUP         0x0205
#define WM_RBUTTONDBLCLK     0x0206
#define WM_MBUTTONDOWN       0x0207
#define WM_MBUTTONUP         0x0208
#define WM_MBUTTONDBLCLK     0x0209
#define WM_MOUSEWHEEL        0x020A
#define WM_MOUSELAST         0x020E
#define WM_PARENTNOTIFY      0x0210
#define WM_ENTERMENULOOP     0x0211
#define WM_EXITMENULOOP      0x0212
#define WM_CAPTURECHANGED    0x0215
#define WM_ENTERSIZEMOVE     0x0231
#define WM_EXITSIZEMOVE      0x0232
#define WM_MOUSEHOVER        0x02A1
#define WM_MOUSELEAVE        0x02A3
#define WM_CUT               0x0300
#define WM_COPY              0x0301
#define WM_PASTE             0x0302
#define WM_CLEAR             0x0303
#define WM_UNDO              0x0304
#define WM_QUERYNEWPALETTE   0x030F
#define WM_PALETTECHANGED    0x0311
#define WM_PRINT             0x0317
#define WM_PRINTCLIENT       0x0318
#define WM_USER              0x0400
#define WM_APP               0x8000

#define DM_GETDEFID (WM_USER + 0)
#define DM_SETDEFID (WM_USER + 1)
#define DC_HASDEFID 0x534B

#define DLGC_WANTARROWS      0x0001
#define DLGC_WANTTAB         0x0002
#define DLGC_WANTALLKEYS     0x0004
#define DLGC_WANTMESSAGE     0x0004
#define DLGC_HASSETSEL       0x0008
#define DLGC_DEFPUSHBUTTON   0x0010
#define DLGC_UNDEFPUSHBUTTON 0x0020
#define DLGC_RADIOBUTTON     0x0040
#define DLGC_WANTCHARS       0x0080
#define DLGC_STATIC          0x0100
#define DLGC_BUTTON          0x2000

#define SIZE_RESTORED  0
#define SIZE_MINIMIZED 1
#define SIZE_MAXIMIZED 2

#define WA_INACTIVE    0
#define WA_ACTIVE      1
#define WA_CLICKACTIVE 2

#define MA_ACTIVATE         1
#define MA_ACTIVATEANDEAT   2
#define MA_NOACTIVATE       3
#define MA_NOACTIVATEANDEAT 4

#define ICON_SMALL  0
#define ICON_BIG    1
#define ICON_SMALL2 2

#define NFR_UNICODE 2
#define NF_QUERY    3
#define NF_REQUERY  4

#define MSGF_DIALOGBOX  0
#define MSGF_MESSAGEBOX 1
#define MSGF_MENU       2

#define SW_PARENTCLOSING 1
#define SW_PARENTOPENING 3

#define UIS_SET        1
#define UIS_CLEAR      2
#define UIS_INITIALIZE 3
#define UISF_HIDEFOCUS 0x1
#define UISF_HIDEACCEL 0x2
#define UISF_ACTIVE    0x4

#define PRF_CHECKVISIBLE 0x0001L
#define PRF_NONCLIENT    0x0002L
#define PRF_CLIENT       0x0004L
#define PRF_ERASEBKGND   0x0008L
#define PRF_CHILDREN     0x0010L

#define WVR_ALIGNTOP    0x0010
#define WVR_ALIGNLEFT   0x0020
#define WVR_ALIGNBOTTOM 0x0040
#define WVR_ALIGNRIGHT  0x0080
#define WVR_HREDRAW     0x0100
#define WVR_VREDRAW     0x0200
#define WVR_REDRAW      (WVR_HREDRAW | WVR_VREDRAW)
#define WVR_VALIDRECTS  0x0400

#define HTERROR       (-2)
#define HTTRANSPARENT (-1)
#define HTNOWHERE     0
#define HTCLIENT      1
#define HTCAPTION     2
#define HTSYSMENU     3
#define HTSIZE        4
#define HTMENU        5
#define HTHSCROLL     6
#define HTVSCROLL     7
#define HTMINBUTTON   8
#define HTMAXBUTTON   9
#define HTLEFT        10
#define HTRIGHT       11
#define HTTOP         12
#define HTBOTTOM      15
#define HTBORDER      18
#define HTCLOSE       20
#define HTHELP        21

#define SC_SIZE        0xF000
#define SC_MOVE        0xF010
#define SC_CLOSE       0xF060
#define SC_KEYMENU     0xF100
#define SC_MOUSEMENU   0xF090
#define SC_CONTEXTHELP 0xF180

// Showing and placing

#define SW_HIDE            0
#define SW_SHOWNORMAL      1
#define SW_NORMAL          1
#define SW_SHOWMINIMIZED   2
#define SW_SHOWMAXIMIZED   3
#define SW_SHOWNOACTIVATE  4
#define SW_SHOW            5
#define SW_MINIMIZE        6
#define SW_SHOWMINNOACTIVE 7
#define SW_SHOWNA          8
#define SW_RESTORE         9
#define SW_SHOWDEFAULT     10

#define SWP_NOSIZE         0x0001
#define SWP_NOMOVE         0x0002
#define SWP_NOZORDER       0x0004
#define SWP_NOREDRAW       0x0008
#define SWP_NOACTIVATE     0x0010
#define SWP_FRAMECHANGED   0x0020
#define SWP_DRAWFRAME      SWP_FRAMECHANGED
#define SWP_SHOWWINDOW     0x0040
#define SWP_HIDEWINDOW     0x0080
#define SWP_NOCOPYBITS     0x0100
#define SWP_NOOWNERZORDER  0x0200
#define SWP_NOREPOSITION   SWP_NOOWNERZORDER
#define SWP_NOSENDCHANGING 0x0400

#include <winuser_drawing.h>

#define GA_PARENT    1
#define GA_ROOT      2
#define GA_ROOTOWNER 3

#define GW_HWNDFIRST 0
#define GW_HWNDLAST  1
#define GW_HWNDNEXT  2
#define GW_HWNDPREV  3
#define GW_OWNER     4
#define GW_CHILD     5

#define CWP_ALL             0x0000
#define CWP_SKIPINVISIBLE   0x0001
#define CWP_SKIPDISABLED    0x0002
#define CWP_SKIPTRANSPARENT 0x0004

// Painting

#define RDW_INVALIDATE      0x0001
#define RDW_INTERNALPAINT   0x0002
#define RDW_ERASE           0x0004
#define RDW_VALIDATE        0x0008
#define RDW_NOINTERNALPAINT 0x0010
#define RDW_NOERASE         0x0020
#define RDW_NOCHILDREN      0x0040
#define RDW_ALLCHILDREN     0x0080
#define RDW_UPDATENOW       0x0100
#define RDW_ERASENOW        0x0200
#define RDW_FRAME           0x0400
#define RDW_NOFRAME         0x0800

#define DCX_WINDOW       0x00000001L
#define DCX_CACHE        0x00000002L
#define DCX_CLIPCHILDREN 0x00000008L
#define DCX_CLIPSIBLINGS 0x00000010L
#define DCX_PARENTCLIP   0x00000020L

#define SW_SCROLLCHILDREN 0x0001
#define SW_INVALIDATE     0x0002
#define SW_ERASE          0x0004

// Queues, keyboard and mouse

#define PM_NOREMOVE 0x0000
#define PM_REMOVE   0x0001
#define PM_NOYIELD  0x0002

#define SMTO_NORMAL      0x0000
#define SMTO_BLOCK       0x0001
#define SMTO_ABORTIFHUNG 0x0002

#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT   0x0004
#define MK_CONTROL 0x0008
#define MK_MBUTTON 0x0010

#define WHEEL_DELTA 120

#define KF_EXTENDED 0x0100
#define KF_ALTDOWN  0x2000
#define KF_REPEAT   0x4000
#define KF_UP       0x8000

#define VK_LBUTTON  0x01
#define VK_RBUTTON  0x02
#define VK_CANCEL   0x03
#define VK_MBUTTON  0x04
#define VK_BACK     0x08
#define VK_TAB      0x09
#define VK_CLEAR    0x0C
#define VK_RETURN   0x0D
#define VK_SHIFT    0x10
#define VK_CONTROL  0x11
#define VK_MENU     0x12
#define VK_PAUSE    0x13
#define VK_CAPITAL  0x14
#define VK_ESCAPE   0x1B
#define VK_SPACE    0x20
#define VK_PRIOR    0x21
#define VK_NEXT     0x22
#define VK_END      0x23
#define VK_HOME     0x24
#define VK_LEFT     0x25
#define VK_UP       0x26
#define VK_RIGHT    0x27
#define VK_DOWN     0x28
#define VK_EXECUTE  0x2B
#define VK_INSERT   0x2D
#define VK_DELETE   0x2E
#define VK_HELP     0x2F
#define VK_APPS     0x5D
#define VK_NUMPAD0  0x60
#define VK_NUMPAD9  0x69
#define VK_MULTIPLY 0x6A
#define VK_ADD      0x6B
#define VK_SUBTRACT 0x6D
#define VK_DECIMAL  0x6E
#define VK_DIVIDE   0x6F
#define VK_F1       0x70
#define VK_F2       0x71
#define VK_F3       0x72
#define VK_F4       0x73
#define VK_F5       0x74
#define VK_F10      0x79
#define VK_F12      0x7B
#define VK_PACKET   0xE7

#define TME_HOVER     0x00000001
#define TME_LEAVE     0x00000002
#define TME_NONCLIENT 0x00000010
#define TME_QUERY     0x40000000
#define TME_CANCEL    0x80000000
#define HOVER_DEFAULT 0xFFFFFFFF

#define USER_TIMER_MINIMUM 0x0000000A
#define USER_TIMER_MAXIMUM 0x7FFFFFFF

// Dialogs, message boxes and menus

#define IDOK       1
#define IDCANCEL   2
#define IDABORT    3
#define IDRETRY    4
#define IDIGNORE   5
#define IDYES      6
#define IDNO       7
#define IDCLOSE    8
#define IDHELP     9
#define IDTRYAGAIN 10
#define IDCONTINUE 11

#define MB_OK                0x00000000L
#define MB_OKCANCEL          0x00000001L
#define MB_ABORTRETRYIGNORE  0x00000002L
#define MB_YESNOCANCEL       0x00000003L
#define MB_YESNO             0x00000004L
#define MB_RETRYCANCEL       0x00000005L
#define MB_CANCELTRYCONTINUE 0x00000006L
#define MB_TYPEMASK          0x0000000FL
#define MB_ICONHAND          0x00000010L
#define MB_ICONQUESTION      0x00000020L
#define MB_ICONEXCLAMATION   0x00000030L
#define MB_ICONASTERISK      0x00000040L
#define MB_ICONMASK          0x000000F0L
#define MB_ICONERROR         MB_ICONHAND
#define MB_ICONSTOP          MB_ICONHAND
#define MB_ICONWARNING       MB_ICONEXCLAMATION
#define MB_ICONINFORMATION   MB_ICONASTERISK
#define MB_DEFBUTTON1        0x00000000L
#define MB_DEFBUTTON2        0x00000100L
#define MB_DEFBUTTON3        0x00000200L
#define MB_DEFBUTTON4        0x00000300L
#define MB_DEFMASK           0x00000F00L
#define MB_APPLMODAL         0x00000000L
#define MB_SYSTEMMODAL       0x00001000L
#define MB_TASKMODAL         0x00002000L
#define MB_HELP              0x00004000L
#define MB_SETFOREGROUND     0x00010000L
#define MB_TOPMOST           0x00040000L

#define MF_BYCOMMAND   0x00000000L
#define MF_BYPOSITION  0x00000400L
#define MF_ENABLED     0x00000000L
#define MF_GRAYED      0x00000001L
#define MF_DISABLED    0x00000002L
#define MF_UNCHECKED   0x00000000L
#define MF_CHECKED     0x00000008L
#define MF_STRING      0x00000000L
#define MF_POPUP       0x00000010L
#define MF_SEPARATOR   0x00000800L
#define MF_HILITE      0x00000080L
#define MF_DEFAULT     0x00001000L
#define MF_END         0x00000080L
#define MF_MOUSESELECT 0x00008000L

#define TPM_LEFTBUTTON   0x0000L
#define TPM_RIGHTBUTTON  0x0002L
#define TPM_LEFTALIGN    0x0000L
#define TPM_CENTERALIGN  0x0004L
#define TPM_RIGHTALIGN   0x0008L
#define TPM_TOPALIGN     0x0000L
#define TPM_VCENTERALIGN 0x0010L
#define TPM_BOTTOMALIGN  0x0020L
#define TPM_NONOTIFY     0x0080L
#define TPM_RETURNCMD    0x0100L

#define HELPINFO_WINDOW   0x0001
#define HELPINFO_MENUITEM 0x0002

// System facts

#define SM_CXSCREEN        0
#define SM_CYSCREEN        1
#define SM_CXVSCROLL       2
#define SM_CYHSCROLL       3
#define SM_CYCAPTION       4
#define SM_CXBORDER        5
#define SM_CYBORDER        6
#define SM_CXFIXEDFRAME    7
#define SM_CYFIXEDFRAME    8
#define SM_CXDLGFRAME      SM_CXFIXEDFRAME
#define SM_CYDLGFRAME      SM_CYFIXEDFRAME
#define SM_CYVTHUMB        9
#define SM_CXHTHUMB        10
#define SM_CXICON          11
#define SM_CYICON          12
#define SM_CXCURSOR        13
#define SM_CYCURSOR        14
#define SM_CYMENU          15
#define SM_CXFULLSCREEN    16
#define SM_CYFULLSCREEN    17
#define SM_MOUSEPRESENT    19
#define SM_CYVSCROLL       20
#define SM_CXHSCROLL       21
#define SM_SWAPBUTTON      23
#define SM_CXMIN           28
#define SM_CYMIN           29
#define SM_CXSIZE          30
#define SM_CYSIZE          31
#define SM_CXFRAME         32
#define SM_CYFRAME         33
#define SM_CXSIZEFRAME     SM_CXFRAME
#define SM_CYSIZEFRAME     SM_CYFRAME
#define SM_CXDOUBLECLK     36
#define SM_CYDOUBLECLK     37
#define SM_CMOUSEBUTTONS   43
#define SM_CXEDGE          45
#define SM_CYEDGE          46
#define SM_CXSMICON        49
#define SM_CYSMICON        50
#define SM_CYSMCAPTION     51
#define SM_CXMENUCHECK     71
#define SM_CYMENUCHECK     72
#define SM_CXDRAG          68
#define SM_CYDRAG          69
#define SM_XVIRTUALSCREEN  76
#define SM_YVIRTUALSCREEN  77
#define SM_CXVIRTUALSCREEN 78
#define SM_CYVIRTUALSCREEN 79
#define SM_REMOTESESSION   0x1000

#define SPI_GETBEEP              0x0001
#define SPI_GETKEYBOARDDELAY     0x0016
#define SPI_GETWORKAREA          0x0030
#define SPI_GETWHEELSCROLLLINES  0x0068
#define SPI_GETMENUDROPALIGNMENT 0x001B

#define CF_TEXT        1
#define CF_BITMAP      2
#define CF_DIB         8
#define CF_UNICODETEXT 13

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

// Records

typedef struct tagWNDCLASSW
{
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
} WNDCLASSW, *PWNDCLASSW, *LPWNDCLASSW;

typedef struct tagWNDCLASSEXW
{
    UINT cbSize;
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCWSTR lpszMenuName;
    LPCWSTR lpszClassName;
    HICON hIconSm;
} WNDCLASSEXW, *PWNDCLASSEXW, *LPWNDCLASSEXW;

typedef struct tagMSG
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
} MSG, *PMSG, *LPMSG;

typedef struct tagCREATESTRUCTW
{
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCWSTR lpszName;
    LPCWSTR lpszClass;
    DWORD dwExStyle;
} CREATESTRUCTW, *LPCREATESTRUCTW;

typedef struct tagSTYLESTRUCT
{
    DWORD styleOld;
    DWORD styleNew;
} STYLESTRUCT, *LPSTYLESTRUCT;

typedef struct tagWINDOWPOS
{
    HWND hwnd;
    HWND hwndInsertAfter;
    int x;
    int y;
    int cx;
    int cy;
    UINT flags;
} WINDOWPOS, *LPWINDOWPOS, *PWINDOWPOS;

typedef struct tagNCCALCSIZE_PARAMS
{
    RECT rgrc[3];
    PWINDOWPOS lppos;
} NCCALCSIZE_PARAMS, *LPNCCALCSIZE_PARAMS;

typedef struct tagMINMAXINFO
{
    POINT ptReserved;
    POINT ptMaxSize;
    POINT ptMaxPosition;
    POINT ptMinTrackSize;
    POINT ptMaxTrackSize;
} MINMAXINFO, *PMINMAXINFO, *LPMINMAXINFO;

typedef struct tagPAINTSTRUCT
{
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
} PAINTSTRUCT, *PPAINTSTRUCT, *LPPAINTSTRUCT;

typedef struct tagNMHDR
{
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
} NMHDR, *LPNMHDR;

typedef struct tagHELPINFO
{
    UINT cbSize;
    int iContextType;
    int iCtrlId;
    HANDLE hItemHandle;
    DWORD_PTR dwContextId;
    POINT MousePos;
} HELPINFO, *LPHELPINFO;

typedef struct tagTRACKMOUSEEVENT
{
    DWORD cbSize;
    DWORD dwFlags;
    HWND hwndTrack;
    DWORD dwHoverTime;
} TRACKMOUSEEVENT, *LPTRACKMOUSEEVENT;

typedef struct tagTPMPARAMS
{
    UINT cbSize;
    RECT rcExclude;
} TPMPARAMS, *LPTPMPARAMS;

typedef struct tagCOPYDATASTRUCT
{
    ULONG_PTR dwData;
    DWORD cbData;
    PVOID lpData;
} COPYDATASTRUCT, *PCOPYDATASTRUCT;

#pragma pack(push, 2)
typedef struct
{
    DWORD style;
    DWORD dwExtendedStyle;
    WORD cdit;
    short x;
    short y;
    short cx;
    short cy;
} DLGTEMPLATE;
typedef DLGTEMPLATE* LPDLGTEMPLATEW;
typedef const DLGTEMPLATE* LPCDLGTEMPLATEW;

typedef struct
{
    DWORD style;
    DWORD dwExtendedStyle;
    short x;
    short y;
    short cx;
    short cy;
    WORD id;
} DLGITEMTEMPLATE;
#pragma pack(pop)
static_assert(sizeof(DLGTEMPLATE) == 18 && sizeof(DLGITEMTEMPLATE) == 18);

extern "C" {

// Classes
HOSTAPI ATOM WINAPI RegisterClassW(const WNDCLASSW* description);
HOSTAPI ATOM WINAPI RegisterClassExW(const WNDCLASSEXW* description);
HOSTAPI BOOL WINAPI UnregisterClassW(LPCWSTR className, HINSTANCE instance);
HOSTAPI BOOL WINAPI GetClassInfoW(HINSTANCE instance, LPCWSTR className, LPWNDCLASSW description);
HOSTAPI BOOL WINAPI GetClassInfoExW(HINSTANCE instance, LPCWSTR className, LPWNDCLASSEXW description);
HOSTAPI int WINAPI GetClassNameW(HWND window, LPWSTR name, int size);
HOSTAPI ULONG_PTR WINAPI GetClassLongPtrW(HWND window, int index);
HOSTAPI ULONG_PTR WINAPI SetClassLongPtrW(HWND window, int index, LONG_PTR value);
HOSTAPI DWORD WINAPI GetClassLongW(HWND window, int index);
HOSTAPI DWORD WINAPI SetClassLongW(HWND window, int index, LONG value);

// Windows
HOSTAPI HWND WINAPI CreateWindowExW(DWORD exStyle, LPCWSTR className, LPCWSTR title, DWORD style, int x,
                                    int y, int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                                    LPVOID parameter);
HOSTAPI BOOL WINAPI DestroyWindow(HWND window);
HOSTAPI BOOL WINAPI IsWindow(HWND window);
HOSTAPI BOOL WINAPI IsWindowUnicode(HWND window);
HOSTAPI LONG_PTR WINAPI GetWindowLongPtrW(HWND window, int index);
HOSTAPI LONG_PTR WINAPI SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
HOSTAPI LONG WINAPI GetWindowLongW(HWND window, int index);
HOSTAPI LONG WINAPI SetWindowLongW(HWND window, int index, LONG value);
HOSTAPI LRESULT WINAPI CallWindowProcW(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam);
HOSTAPI LRESULT WINAPI DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
HOSTAPI BOOL WINAPI SetWindowTextW(HWND window, LPCWSTR text);
HOSTAPI int WINAPI GetWindowTextW(HWND window, LPWSTR text, int size);
HOSTAPI int WINAPI GetWindowTextLengthW(HWND window);
HOSTAPI BOOL WINAPI SetPropW(HWND window, LPCWSTR name, HANDLE value);
HOSTAPI HANDLE WINAPI GetPropW(HWND window, LPCWSTR name);
HOSTAPI HANDLE WINAPI RemovePropW(HWND window, LPCWSTR name);
HOSTAPI int WINAPI EnumPropsW(HWND window, PROPENUMPROCW callback);
HOSTAPI DWORD WINAPI GetWindowThreadProcessId(HWND window, LPDWORD process);

// Tree
HOSTAPI HWND WINAPI GetDesktopWindow(void);
HOSTAPI HWND WINAPI SetParent(HWND window, HWND parent);
HOSTAPI HWND WINAPI GetParent(HWND window);
HOSTAPI HWND WINAPI GetWindow(HWND window, UINT which);
HOSTAPI HWND WINAPI GetAncestor(HWND window, UINT flags);
HOSTAPI HWND WINAPI GetTopWindow(HWND window);
HOSTAPI HWND WINAPI GetLastActivePopup(HWND window);
HOSTAPI BOOL WINAPI EnumChildWindows(HWND parent, WNDENUMPROC callback, LPARAM parameter);
HOSTAPI BOOL WINAPI EnumWindows(WNDENUMPROC callback, LPARAM parameter);
HOSTAPI BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC callback, LPARAM parameter);
HOSTAPI HWND WINAPI FindWindowW(LPCWSTR className, LPCWSTR title);
HOSTAPI HWND WINAPI FindWindowExW(HWND parent, HWND after, LPCWSTR className, LPCWSTR title);
HOSTAPI BOOL WINAPI IsChild(HWND parent, HWND window);
HOSTAPI BOOL WINAPI IsWindowVisible(HWND window);
HOSTAPI BOOL WINAPI IsWindowEnabled(HWND window);

// Place, size and order
HOSTAPI BOOL WINAPI ShowWindow(HWND window, int command);
HOSTAPI BOOL WINAPI IsIconic(HWND window);
HOSTAPI BOOL WINAPI IsZoomed(HWND window);
HOSTAPI BOOL WINAPI SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
HOSTAPI BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
HOSTAPI BOOL WINAPI BringWindowToTop(HWND window);
HOSTAPI HDWP WINAPI BeginDeferWindowPos(int count);
HOSTAPI HDWP WINAPI DeferWindowPos(HDWP batch, HWND window, HWND after, int x, int y, int width, int height,
                                   UINT flags);
HOSTAPI BOOL WINAPI EndDeferWindowPos(HDWP batch);
HOSTAPI BOOL WINAPI GetWindowRect(HWND window, LPRECT rect);
HOSTAPI BOOL WINAPI GetClientRect(HWND window, LPRECT rect);
HOSTAPI BOOL WINAPI ClientToScreen(HWND window, LPPOINT point);
HOSTAPI BOOL WINAPI ScreenToClient(HWND window, LPPOINT point);
HOSTAPI int WINAPI MapWindowPoints(HWND from, HWND to, LPPOINT points, UINT count);
HOSTAPI HWND WINAPI WindowFromPoint(POINT point);
HOSTAPI HWND WINAPI ChildWindowFromPoint(HWND parent, POINT point);
HOSTAPI HWND WINAPI ChildWindowFromPointEx(HWND parent, POINT point, UINT flags);
HOSTAPI HWND WINAPI RealChildWindowFromPoint(HWND parent, POINT point);
HOSTAPI BOOL WINAPI AdjustWindowRect(LPRECT rect, DWORD style, BOOL menu);
HOSTAPI BOOL WINAPI AdjustWindowRectEx(LPRECT rect, DWORD style, BOOL menu, DWORD exStyle);
HOSTAPI int WINAPI GetSystemMetrics(int index);

// Messages
HOSTAPI BOOL WINAPI PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
HOSTAPI BOOL WINAPI PostThreadMessageW(DWORD thread, UINT message, WPARAM wParam, LPARAM lParam);
HOSTAPI void WINAPI PostQuitMessage(int exitCode);
HOSTAPI LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
HOSTAPI LRESULT WINAPI SendMessageTimeoutW(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT flags, UINT timeout, DWORD_PTR* result);
HOSTAPI BOOL WINAPI SendNotifyMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
HOSTAPI BOOL WINAPI InSendMessage(void);
HOSTAPI BOOL WINAPI ReplyMessage(LRESULT result);
HOSTAPI BOOL WINAPI GetMessageW(LPMSG message, HWND window, UINT first, UINT last);
HOSTAPI BOOL WINAPI PeekMessageW(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
HOSTAPI BOOL WINAPI WaitMessage(void);
HOSTAPI BOOL WINAPI TranslateMessage(const MSG* message);
HOSTAPI LRESULT WINAPI DispatchMessageW(const MSG* message);
HOSTAPI UINT WINAPI RegisterWindowMessageW(LPCWSTR name);
HOSTAPI DWORD WINAPI GetMessagePos(void);
HOSTAPI LONG WINAPI GetMessageTime(void);
HOSTAPI UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT period, TIMERPROC procedure);
HOSTAPI BOOL WINAPI KillTimer(HWND window, UINT_PTR id);

// Focus, activation and input
HOSTAPI HWND WINAPI SetFocus(HWND window);
HOSTAPI HWND WINAPI GetFocus(void);
HOSTAPI HWND WINAPI SetActiveWindow(HWND window);
HOSTAPI HWND WINAPI GetActiveWindow(void);
HOSTAPI BOOL WINAPI SetForegroundWindow(HWND window);
HOSTAPI HWND WINAPI GetForegroundWindow(void);
HOSTAPI BOOL WINAPI EnableWindow(HWND window, BOOL enable);
HOSTAPI HWND WINAPI SetCapture(HWND window);
HOSTAPI HWND WINAPI GetCapture(void);
HOSTAPI BOOL WINAPI ReleaseCapture(void);
HOSTAPI BOOL WINAPI TrackMouseEvent(LPTRACKMOUSEEVENT request);
HOSTAPI HCURSOR WINAPI SetCursor(HCURSOR cursor);
HOSTAPI HCURSOR WINAPI GetCursor(void);
HOSTAPI int WINAPI ShowCursor(BOOL show);
HOSTAPI BOOL WINAPI GetCursorPos(LPPOINT point);
HOSTAPI BOOL WINAPI SetCursorPos(int x, int y);
HOSTAPI BOOL WINAPI ClipCursor(const RECT* rect);
HOSTAPI UINT WINAPI GetDoubleClickTime(void);
HOSTAPI SHORT WINAPI GetKeyState(int key);
HOSTAPI SHORT WINAPI GetAsyncKeyState(int key);
HOSTAPI BOOL WINAPI MessageBeep(UINT kind);

// Caret
HOSTAPI BOOL WINAPI CreateCaret(HWND window, HBITMAP bitmap, int width, int height);
HOSTAPI BOOL WINAPI DestroyCaret(void);
HOSTAPI BOOL WINAPI ShowCaret(HWND window);
HOSTAPI BOOL WINAPI HideCaret(HWND window);
HOSTAPI BOOL WINAPI SetCaretPos(int x, int y);
HOSTAPI BOOL WINAPI GetCaretPos(LPPOINT point);
HOSTAPI UINT WINAPI GetCaretBlinkTime(void);

// Clipboard
HOSTAPI BOOL WINAPI OpenClipboard(HWND owner);
HOSTAPI BOOL WINAPI CloseClipboard(void);
HOSTAPI BOOL WINAPI EmptyClipboard(void);
HOSTAPI HANDLE WINAPI SetClipboardData(UINT format, HANDLE data);
HOSTAPI HANDLE WINAPI GetClipboardData(UINT format);
HOSTAPI BOOL WINAPI IsClipboardFormatAvailable(UINT format);

// Painting
HOSTAPI HDC WINAPI BeginPaint(HWND window, LPPAINTSTRUCT paint);
HOSTAPI BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
HOSTAPI HDC WINAPI GetDC(HWND window);
HOSTAPI HDC WINAPI GetDCEx(HWND window, HRGN clip, DWORD flags);
HOSTAPI HDC WINAPI GetWindowDC(HWND window);
HOSTAPI int WINAPI ReleaseDC(HWND window, HDC dc);
HOSTAPI HWND WINAPI WindowFromDC(HDC dc);
HOSTAPI BOOL WINAPI InvalidateRect(HWND window, const RECT* rect, BOOL erase);
HOSTAPI BOOL WINAPI InvalidateRgn(HWND window, HRGN region, BOOL erase);
HOSTAPI BOOL WINAPI ValidateRect(HWND window, const RECT* rect);
HOSTAPI BOOL WINAPI ValidateRgn(HWND window, HRGN region);
HOSTAPI BOOL WINAPI UpdateWindow(HWND window);
HOSTAPI BOOL WINAPI RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);
HOSTAPI BOOL WINAPI GetUpdateRect(HWND window, LPRECT rect, BOOL erase);
HOSTAPI int WINAPI GetUpdateRgn(HWND window, HRGN region, BOOL erase);
HOSTAPI int WINAPI ExcludeUpdateRgn(HDC dc, HWND window);
HOSTAPI BOOL WINAPI LockWindowUpdate(HWND window);
HOSTAPI BOOL WINAPI ScrollWindow(HWND window, int x, int y, const RECT* scroll, const RECT* clip);
HOSTAPI int WINAPI ScrollWindowEx(HWND window, int x, int y, const RECT* scroll, const RECT* clip,
                                  HRGN update, LPRECT updateRect, UINT flags);

// Scroll bars that are parts of windows, and scroll bar controls by SB_CTL
HOSTAPI int WINAPI SetScrollInfo(HWND window, int bar, LPCSCROLLINFO info, BOOL redraw);
HOSTAPI BOOL WINAPI GetScrollInfo(HWND window, int bar, LPSCROLLINFO info);
HOSTAPI int WINAPI SetScrollPos(HWND window, int bar, int position, BOOL redraw);
HOSTAPI int WINAPI GetScrollPos(HWND window, int bar);
HOSTAPI BOOL WINAPI SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw);
HOSTAPI BOOL WINAPI GetScrollRange(HWND window, int bar, int* minimum, int* maximum);
HOSTAPI BOOL WINAPI ShowScrollBar(HWND window, int bar, BOOL show);
HOSTAPI BOOL WINAPI EnableScrollBar(HWND window, UINT bar, UINT arrows);

// Dialogs
HOSTAPI INT_PTR WINAPI DialogBoxParamW(HINSTANCE instance, LPCWSTR name, HWND owner, DLGPROC procedure,
                                       LPARAM parameter);
HOSTAPI INT_PTR WINAPI DialogBoxIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                               DLGPROC procedure, LPARAM parameter);
HOSTAPI HWND WINAPI CreateDialogParamW(HINSTANCE instance, LPCWSTR name, HWND owner, DLGPROC procedure,
                                       LPARAM parameter);
HOSTAPI HWND WINAPI CreateDialogIndirectParamW(HINSTANCE instance, LPCDLGTEMPLATEW dialogTemplate, HWND owner,
                                               DLGPROC procedure, LPARAM parameter);
HOSTAPI BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);
HOSTAPI LRESULT WINAPI DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
HOSTAPI BOOL WINAPI IsDialogMessageW(HWND dialog, LPMSG message);
HOSTAPI HWND WINAPI GetDlgItem(HWND dialog, int id);
HOSTAPI int WINAPI GetDlgCtrlID(HWND window);
HOSTAPI LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int id, UINT message, WPARAM wParam, LPARAM lParam);
HOSTAPI BOOL WINAPI SetDlgItemTextW(HWND dialog, int id, LPCWSTR text);
HOSTAPI UINT WINAPI GetDlgItemTextW(HWND dialog, int id, LPWSTR text, int size);
HOSTAPI BOOL WINAPI SetDlgItemInt(HWND dialog, int id, UINT value, BOOL isSigned);
HOSTAPI UINT WINAPI GetDlgItemInt(HWND dialog, int id, BOOL* translated, BOOL isSigned);
HOSTAPI BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check);
HOSTAPI BOOL WINAPI CheckRadioButton(HWND dialog, int first, int last, int check);
HOSTAPI UINT WINAPI IsDlgButtonChecked(HWND dialog, int id);
HOSTAPI HWND WINAPI GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous);
HOSTAPI HWND WINAPI GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous);
HOSTAPI BOOL WINAPI MapDialogRect(HWND dialog, LPRECT rect);
HOSTAPI LONG WINAPI GetDialogBaseUnits(void);
HOSTAPI int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

// Menus
HOSTAPI HMENU WINAPI LoadMenuW(HINSTANCE instance, LPCWSTR name);
HOSTAPI HMENU WINAPI CreateMenu(void);
HOSTAPI HMENU WINAPI CreatePopupMenu(void);
HOSTAPI BOOL WINAPI DestroyMenu(HMENU menu);
HOSTAPI BOOL WINAPI IsMenu(HMENU menu);
HOSTAPI HMENU WINAPI GetSubMenu(HMENU menu, int position);
HOSTAPI int WINAPI GetMenuItemCount(HMENU menu);
HOSTAPI UINT WINAPI GetMenuItemID(HMENU menu, int position);
HOSTAPI UINT WINAPI GetMenuState(HMENU menu, UINT item, UINT flags);
HOSTAPI int WINAPI GetMenuStringW(HMENU menu, UINT item, LPWSTR text, int size, UINT flags);
HOSTAPI BOOL WINAPI AppendMenuW(HMENU menu, UINT flags, UINT_PTR item, LPCWSTR text);
HOSTAPI BOOL WINAPI InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR item, LPCWSTR text);
HOSTAPI BOOL WINAPI ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR item, LPCWSTR text);
HOSTAPI BOOL WINAPI RemoveMenu(HMENU menu, UINT position, UINT flags);
HOSTAPI BOOL WINAPI DeleteMenu(HMENU menu, UINT position, UINT flags);
HOSTAPI DWORD WINAPI CheckMenuItem(HMENU menu, UINT item, UINT check);
HOSTAPI BOOL WINAPI EnableMenuItem(HMENU menu, UINT item, UINT enable);
HOSTAPI HMENU WINAPI GetSystemMenu(HWND window, BOOL revert);
HOSTAPI BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                                   const RECT* rect);
HOSTAPI BOOL WINAPI TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner,
                                     LPTPMPARAMS parameters);

// Strings of a module
HOSTAPI int WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR buffer, int size);
}

#define MAKEWPARAM(low, high)          ((WPARAM)(DWORD)MAKELONG(low, high))
#define MAKELPARAM(low, high)          ((LPARAM)(DWORD)MAKELONG(low, high))
#define MAKELRESULT(low, high)         ((LRESULT)(DWORD)MAKELONG(low, high))
#define GET_WHEEL_DELTA_WPARAM(wParam) ((short)HIWORD(wParam))
#define CreateWindowW(className, title, style, x, y, width, height, parent, menu, instance, parameter)       \
    CreateWindowExW(0L, className, title, style, x, y, width, height, parent, menu, instance, parameter)
#define DialogBoxW(instance, name, owner, procedure) DialogBoxParamW(instance, name, owner, procedure, 0L)
#define CreateDialogW(instance, name, owner, procedure)                                                      \
    CreateDialogParamW(instance, name, owner, procedure, 0L)
