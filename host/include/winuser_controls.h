#pragma once
// Messages, styles and notification codes of the standard controls, and the records of owner drawing.
#include <wingdi.h>

// Owner drawing

#define ODT_MENU     1
#define ODT_LISTBOX  2
#define ODT_COMBOBOX 3
#define ODT_BUTTON   4
#define ODT_STATIC   5

#define ODA_DRAWENTIRE 0x0001
#define ODA_SELECT     0x0002
#define ODA_FOCUS      0x0004

#define ODS_SELECTED     0x0001
#define ODS_GRAYED       0x0002
#define ODS_DISABLED     0x0004
#define ODS_CHECKED      0x0008
#define ODS_FOCUS        0x0010
#define ODS_DEFAULT      0x0020
#define ODS_HOTLIGHT     0x0040
#define ODS_INACTIVE     0x0080
#define ODS_NOACCEL      0x0100
#define ODS_NOFOCUSRECT  0x0200
#define ODS_COMBOBOXEDIT 0x1000

typedef struct tagDRAWITEMSTRUCT
{
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
} DRAWITEMSTRUCT, *PDRAWITEMSTRUCT, *LPDRAWITEMSTRUCT;

typedef struct tagMEASUREITEMSTRUCT
{
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight;
    ULONG_PTR itemData;
} MEASUREITEMSTRUCT, *PMEASUREITEMSTRUCT, *LPMEASUREITEMSTRUCT;

typedef struct tagDELETEITEMSTRUCT
{
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    HWND hwndItem;
    ULONG_PTR itemData;
} DELETEITEMSTRUCT, *PDELETEITEMSTRUCT, *LPDELETEITEMSTRUCT;

typedef struct tagCOMPAREITEMSTRUCT
{
    UINT CtlType;
    UINT CtlID;
    HWND hwndItem;
    UINT itemID1;
    ULONG_PTR itemData1;
    UINT itemID2;
    ULONG_PTR itemData2;
    DWORD dwLocaleId;
} COMPAREITEMSTRUCT, *PCOMPAREITEMSTRUCT, *LPCOMPAREITEMSTRUCT;

// Button

#define BS_PUSHBUTTON      0x00000000L
#define BS_DEFPUSHBUTTON   0x00000001L
#define BS_CHECKBOX        0x00000002L
#define BS_AUTOCHECKBOX    0x00000003L
#define BS_RADIOBUTTON     0x00000004L
#define BS_3STATE          0x00000005L
#define BS_AUTO3STATE      0x00000006L
#define BS_GROUPBOX        0x00000007L
#define BS_USERBUTTON      0x00000008L
#define BS_AUTORADIOBUTTON 0x00000009L
#define BS_PUSHBOX         0x0000000AL
#define BS_OWNERDRAW       0x0000000BL
#define BS_TYPEMASK        0x0000000FL
#define BS_LEFTTEXT        0x00000020L
#define BS_RIGHTBUTTON     BS_LEFTTEXT
#define BS_TEXT            0x00000000L
#define BS_ICON            0x00000040L
#define BS_BITMAP          0x00000080L
#define BS_LEFT            0x00000100L
#define BS_RIGHT           0x00000200L
#define BS_CENTER          0x00000300L
#define BS_TOP             0x00000400L
#define BS_BOTTOM          0x00000800L
#define BS_VCENTER         0x00000C00L
#define BS_PUSHLIKE        0x00001000L
#define BS_MULTILINE       0x00002000L
#define BS_NOTIFY          0x00004000L
#define BS_FLAT            0x00008000L

#define BN_CLICKED       0
#define BN_PAINT         1
#define BN_HILITE        2
#define BN_PUSHED        BN_HILITE
#define BN_UNHILITE      3
#define BN_UNPUSHED      BN_UNHILITE
#define BN_DISABLE       4
#define BN_DOUBLECLICKED 5
#define BN_DBLCLK        BN_DOUBLECLICKED
#define BN_SETFOCUS      6
#define BN_KILLFOCUS     7

#define BM_GETCHECK     0x00F0
#define BM_SETCHECK     0x00F1
#define BM_GETSTATE     0x00F2
#define BM_SETSTATE     0x00F3
#define BM_SETSTYLE     0x00F4
#define BM_CLICK        0x00F5
#define BM_GETIMAGE     0x00F6
#define BM_SETIMAGE     0x00F7
#define BM_SETDONTCLICK 0x00F8

#define BST_UNCHECKED     0x0000
#define BST_CHECKED       0x0001
#define BST_INDETERMINATE 0x0002
#define BST_PUSHED        0x0004
#define BST_FOCUS         0x0008

// Static

#define SS_LEFT            0x00000000L
#define SS_CENTER          0x00000001L
#define SS_RIGHT           0x00000002L
#define SS_ICON            0x00000003L
#define SS_BLACKRECT       0x00000004L
#define SS_GRAYRECT        0x00000005L
#define SS_WHITERECT       0x00000006L
#define SS_BLACKFRAME      0x00000007L
#define SS_GRAYFRAME       0x00000008L
#define SS_WHITEFRAME      0x00000009L
#define SS_USERITEM        0x0000000AL
#define SS_SIMPLE          0x0000000BL
#define SS_LEFTNOWORDWRAP  0x0000000CL
#define SS_OWNERDRAW       0x0000000DL
#define SS_BITMAP          0x0000000EL
#define SS_ENHMETAFILE     0x0000000FL
#define SS_ETCHEDHORZ      0x00000010L
#define SS_ETCHEDVERT      0x00000011L
#define SS_ETCHEDFRAME     0x00000012L
#define SS_TYPEMASK        0x0000001FL
#define SS_REALSIZECONTROL 0x00000040L
#define SS_NOPREFIX        0x00000080L
#define SS_NOTIFY          0x00000100L
#define SS_CENTERIMAGE     0x00000200L
#define SS_RIGHTJUST       0x00000400L
#define SS_REALSIZEIMAGE   0x00000800L
#define SS_SUNKEN          0x00001000L
#define SS_EDITCONTROL     0x00002000L
#define SS_ENDELLIPSIS     0x00004000L
#define SS_PATHELLIPSIS    0x00008000L
#define SS_WORDELLIPSIS    0x0000C000L
#define SS_ELLIPSISMASK    0x0000C000L

#define STN_CLICKED 0
#define STN_DBLCLK  1
#define STN_ENABLE  2
#define STN_DISABLE 3

#define STM_SETICON  0x0170
#define STM_GETICON  0x0171
#define STM_SETIMAGE 0x0172
#define STM_GETIMAGE 0x0173

// Edit

#define ES_LEFT        0x0000L
#define ES_CENTER      0x0001L
#define ES_RIGHT       0x0002L
#define ES_MULTILINE   0x0004L
#define ES_UPPERCASE   0x0008L
#define ES_LOWERCASE   0x0010L
#define ES_PASSWORD    0x0020L
#define ES_AUTOVSCROLL 0x0040L
#define ES_AUTOHSCROLL 0x0080L
#define ES_NOHIDESEL   0x0100L
#define ES_OEMCONVERT  0x0400L
#define ES_READONLY    0x0800L
#define ES_WANTRETURN  0x1000L
#define ES_NUMBER      0x2000L

#define EN_SETFOCUS  0x0100
#define EN_KILLFOCUS 0x0200
#define EN_CHANGE    0x0300
#define EN_UPDATE    0x0400
#define EN_ERRSPACE  0x0500
#define EN_MAXTEXT   0x0501
#define EN_HSCROLL   0x0601
#define EN_VSCROLL   0x0602

#define EM_GETSEL              0x00B0
#define EM_SETSEL              0x00B1
#define EM_GETRECT             0x00B2
#define EM_SETRECT             0x00B3
#define EM_SETRECTNP           0x00B4
#define EM_SCROLL              0x00B5
#define EM_LINESCROLL          0x00B6
#define EM_SCROLLCARET         0x00B7
#define EM_GETMODIFY           0x00B8
#define EM_SETMODIFY           0x00B9
#define EM_GETLINECOUNT        0x00BA
#define EM_LINEINDEX           0x00BB
#define EM_LINELENGTH          0x00C1
#define EM_REPLACESEL          0x00C2
#define EM_GETLINE             0x00C4
#define EM_LIMITTEXT           0x00C5
#define EM_SETLIMITTEXT        EM_LIMITTEXT
#define EM_CANUNDO             0x00C6
#define EM_UNDO                0x00C7
#define EM_LINEFROMCHAR        0x00C9
#define EM_SETTABSTOPS         0x00CB
#define EM_SETPASSWORDCHAR     0x00CC
#define EM_EMPTYUNDOBUFFER     0x00CD
#define EM_GETFIRSTVISIBLELINE 0x00CE
#define EM_SETREADONLY         0x00CF
#define EM_GETPASSWORDCHAR     0x00D2
#define EM_SETMARGINS          0x00D3
#define EM_GETMARGINS          0x00D4
#define EM_GETLIMITTEXT        0x00D5
#define EM_POSFROMCHAR         0x00D6
#define EM_CHARFROMPOS         0x00D7

#define EC_LEFTMARGIN  0x0001
#define EC_RIGHTMARGIN 0x0002
#define EC_USEFONTINFO 0xffff

// Scroll bar

#define SB_HORZ 0
#define SB_VERT 1
#define SB_CTL  2
#define SB_BOTH 3

#define SB_LINEUP        0
#define SB_LINELEFT      0
#define SB_LINEDOWN      1
#define SB_LINERIGHT     1
#define SB_PAGEUP        2
#define SB_PAGELEFT      2
#define SB_PAGEDOWN      3
#define SB_PAGERIGHT     3
#define SB_THUMBPOSITION 4
#define SB_THUMBTRACK    5
#define SB_TOP           6
#define SB_LEFT          6
#define SB_BOTTOM        7
#define SB_RIGHT         7
#define SB_ENDSCROLL     8

#define SBS_HORZ        0x0000L
#define SBS_VERT        0x0001L
#define SBS_TOPALIGN    0x0002L
#define SBS_LEFTALIGN   0x0002L
#define SBS_BOTTOMALIGN 0x0004L
#define SBS_RIGHTALIGN  0x0004L

#define SBM_SETPOS         0x00E0
#define SBM_GETPOS         0x00E1
#define SBM_SETRANGE       0x00E2
#define SBM_GETRANGE       0x00E3
#define SBM_ENABLE_ARROWS  0x00E4
#define SBM_SETRANGEREDRAW 0x00E6
#define SBM_SETSCROLLINFO  0x00E9
#define SBM_GETSCROLLINFO  0x00EA

#define ESB_ENABLE_BOTH   0x0000
#define ESB_DISABLE_LTUP  0x0001
#define ESB_DISABLE_RTDN  0x0002
#define ESB_DISABLE_BOTH  0x0003
#define ESB_DISABLE_LEFT  ESB_DISABLE_LTUP
#define ESB_DISABLE_RIGHT ESB_DISABLE_RTDN
#define ESB_DISABLE_UP    ESB_DISABLE_LTUP
#define ESB_DISABLE_DOWN  ESB_DISABLE_RTDN

#define SIF_RANGE           0x0001
#define SIF_PAGE            0x0002
#define SIF_POS             0x0004
#define SIF_DISABLENOSCROLL 0x0008
#define SIF_TRACKPOS        0x0010
#define SIF_ALL             (SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS)

typedef struct tagSCROLLINFO
{
    UINT cbSize;
    UINT fMask;
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
} SCROLLINFO, *LPSCROLLINFO;
typedef const SCROLLINFO* LPCSCROLLINFO;

// List box

#define LBS_NOTIFY            0x0001L
#define LBS_SORT              0x0002L
#define LBS_NOREDRAW          0x0004L
#define LBS_MULTIPLESEL       0x0008L
#define LBS_OWNERDRAWFIXED    0x0010L
#define LBS_OWNERDRAWVARIABLE 0x0020L
#define LBS_HASSTRINGS        0x0040L
#define LBS_USETABSTOPS       0x0080L
#define LBS_NOINTEGRALHEIGHT  0x0100L
#define LBS_EXTENDEDSEL       0x0800L
#define LBS_DISABLENOSCROLL   0x1000L
#define LBS_COMBOBOX          0x8000L
#define LBS_STANDARD          (LBS_NOTIFY | LBS_SORT | WS_VSCROLL | WS_BORDER)

#define LB_OKAY     0
#define LB_ERR      (-1)
#define LB_ERRSPACE (-2)

#define LBN_SELCHANGE 1
#define LBN_DBLCLK    2
#define LBN_SETFOCUS  4
#define LBN_KILLFOCUS 5

#define LB_ADDSTRING           0x0180
#define LB_INSERTSTRING        0x0181
#define LB_DELETESTRING        0x0182
#define LB_SELITEMRANGEEX      0x0183
#define LB_RESETCONTENT        0x0184
#define LB_SETSEL              0x0185
#define LB_SETCURSEL           0x0186
#define LB_GETSEL              0x0187
#define LB_GETCURSEL           0x0188
#define LB_GETTEXT             0x0189
#define LB_GETTEXTLEN          0x018A
#define LB_GETCOUNT            0x018B
#define LB_SELECTSTRING        0x018C
#define LB_GETTOPINDEX         0x018E
#define LB_FINDSTRING          0x018F
#define LB_GETSELCOUNT         0x0190
#define LB_GETSELITEMS         0x0191
#define LB_SETTABSTOPS         0x0192
#define LB_GETHORIZONTALEXTENT 0x0193
#define LB_SETHORIZONTALEXTENT 0x0194
#define LB_SETTOPINDEX         0x0197
#define LB_GETITEMRECT         0x0198
#define LB_GETITEMDATA         0x0199
#define LB_SETITEMDATA         0x019A
#define LB_SELITEMRANGE        0x019B
#define LB_SETANCHORINDEX      0x019C
#define LB_GETANCHORINDEX      0x019D
#define LB_SETCARETINDEX       0x019E
#define LB_GETCARETINDEX       0x019F
#define LB_SETITEMHEIGHT       0x01A0
#define LB_GETITEMHEIGHT       0x01A1
#define LB_FINDSTRINGEXACT     0x01A2
#define LB_INITSTORAGE         0x01A8
#define LB_ITEMFROMPOINT       0x01A9

// Combo box

#define CBS_SIMPLE            0x0001L
#define CBS_DROPDOWN          0x0002L
#define CBS_DROPDOWNLIST      0x0003L
#define CBS_OWNERDRAWFIXED    0x0010L
#define CBS_OWNERDRAWVARIABLE 0x0020L
#define CBS_AUTOHSCROLL       0x0040L
#define CBS_SORT              0x0100L
#define CBS_HASSTRINGS        0x0200L
#define CBS_NOINTEGRALHEIGHT  0x0400L
#define CBS_DISABLENOSCROLL   0x0800L
#define CBS_UPPERCASE         0x2000L
#define CBS_LOWERCASE         0x4000L

#define CB_OKAY     0
#define CB_ERR      (-1)
#define CB_ERRSPACE (-2)

#define CBN_SELCHANGE    1
#define CBN_DBLCLK       2
#define CBN_SETFOCUS     3
#define CBN_KILLFOCUS    4
#define CBN_EDITCHANGE   5
#define CBN_EDITUPDATE   6
#define CBN_DROPDOWN     7
#define CBN_CLOSEUP      8
#define CBN_SELENDOK     9
#define CBN_SELENDCANCEL 10

#define CB_GETEDITSEL            0x0140
#define CB_LIMITTEXT             0x0141
#define CB_SETEDITSEL            0x0142
#define CB_ADDSTRING             0x0143
#define CB_DELETESTRING          0x0144
#define CB_GETCOUNT              0x0146
#define CB_GETCURSEL             0x0147
#define CB_GETLBTEXT             0x0148
#define CB_GETLBTEXTLEN          0x0149
#define CB_INSERTSTRING          0x014A
#define CB_RESETCONTENT          0x014B
#define CB_FINDSTRING            0x014C
#define CB_SELECTSTRING          0x014D
#define CB_SETCURSEL             0x014E
#define CB_SHOWDROPDOWN          0x014F
#define CB_GETITEMDATA           0x0150
#define CB_SETITEMDATA           0x0151
#define CB_GETDROPPEDCONTROLRECT 0x0152
#define CB_SETITEMHEIGHT         0x0153
#define CB_GETITEMHEIGHT         0x0154
#define CB_SETEXTENDEDUI         0x0155
#define CB_GETEXTENDEDUI         0x0156
#define CB_GETDROPPEDSTATE       0x0157
#define CB_FINDSTRINGEXACT       0x0158
#define CB_GETTOPINDEX           0x015B
#define CB_SETTOPINDEX           0x015C
#define CB_GETHORIZONTALEXTENT   0x015D
#define CB_SETHORIZONTALEXTENT   0x015E
#define CB_GETDROPPEDWIDTH       0x015F
#define CB_SETDROPPEDWIDTH       0x0160
#define CB_INITSTORAGE           0x0161
#define CB_GETCOMBOBOXINFO       0x0164

// Of the button in COMBOBOXINFO
#define STATE_SYSTEM_PRESSED   0x00000008
#define STATE_SYSTEM_INVISIBLE 0x00008000

typedef struct tagCOMBOBOXINFO
{
    DWORD cbSize;
    RECT rcItem;
    RECT rcButton;
    DWORD stateButton;
    HWND hwndCombo;
    HWND hwndItem;
    HWND hwndList;
} COMBOBOXINFO, *PCOMBOBOXINFO, *LPCOMBOBOXINFO;
