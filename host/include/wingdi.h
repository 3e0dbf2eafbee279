#pragma once
// Drawing: device contexts, the objects that are selected into them, bitmaps and text. Below, the device-mode
// record with its capability and field numbers.
#include <windef.h>

#define CCHDEVICENAME 32
#define CCHFORMNAME   32
#define LF_FACESIZE   32

typedef struct _devicemodeW
{
    WCHAR dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;
    union {
        struct
        {
            short dmOrientation;
            short dmPaperSize;
            short dmPaperLength;
            short dmPaperWidth;
            short dmScale;
            short dmCopies;
            short dmDefaultSource;
            short dmPrintQuality;
        };
        struct
        {
            POINTL dmPosition;
            DWORD dmDisplayOrientation;
            DWORD dmDisplayFixedOutput;
        };
    };
    short dmColor;
    short dmDuplex;
    short dmYResolution;
    short dmTTOption;
    short dmCollate;
    WCHAR dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    union {
        DWORD dmDisplayFlags;
        DWORD dmNup;
    };
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
} DEVMODEW, *PDEVMODEW, *LPDEVMODEW;
static_assert(sizeof(DEVMODEW) == 220);

typedef struct tagLOGFONTW
{
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
} LOGFONTW, *PLOGFONTW, *LPLOGFONTW;
static_assert(sizeof(LOGFONTW) == 92);

#define ANSI_CHARSET     0
#define DEFAULT_CHARSET  1
#define SYMBOL_CHARSET   2
#define SHIFTJIS_CHARSET 128
#define OEM_CHARSET      255

#define FW_DONTCARE 0
#define FW_NORMAL   400
#define FW_BOLD     700

#define OUT_DEFAULT_PRECIS     0
#define OUT_TT_PRECIS          4
#define CLIP_DEFAULT_PRECIS    0
#define DEFAULT_QUALITY        0
#define PROOF_QUALITY          2
#define NONANTIALIASED_QUALITY 3
#define ANTIALIASED_QUALITY    4
#define CLEARTYPE_QUALITY      5

#define DEFAULT_PITCH  0
#define FIXED_PITCH    1
#define VARIABLE_PITCH 2
#define FF_DONTCARE    (0 << 4)
#define FF_ROMAN       (1 << 4)
#define FF_SWISS       (2 << 4)
#define FF_MODERN      (3 << 4)

#define LF_FULLFACESIZE 64

#define TMPF_FIXED_PITCH 0x01
#define TMPF_VECTOR      0x02
#define TMPF_TRUETYPE    0x04
#define TMPF_DEVICE      0x08

#define RASTER_FONTTYPE   0x0001
#define DEVICE_FONTTYPE   0x0002
#define TRUETYPE_FONTTYPE 0x0004

#define NTM_REGULAR 0x00000040L
#define NTM_BOLD    0x00000020L
#define NTM_ITALIC  0x00000001L

typedef struct tagTEXTMETRICW
{
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
} TEXTMETRICW, *PTEXTMETRICW, *LPTEXTMETRICW;

typedef struct tagNEWTEXTMETRICW
{
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
    DWORD ntmFlags;
    UINT ntmSizeEM;
    UINT ntmCellHeight;
    UINT ntmAvgWidth;
} NEWTEXTMETRICW, *PNEWTEXTMETRICW, *LPNEWTEXTMETRICW;

typedef struct tagFONTSIGNATURE
{
    DWORD fsUsb[4];
    DWORD fsCsb[2];
} FONTSIGNATURE, *PFONTSIGNATURE, *LPFONTSIGNATURE;

typedef struct tagNEWTEXTMETRICEXW
{
    NEWTEXTMETRICW ntmTm;
    FONTSIGNATURE ntmFontSig;
} NEWTEXTMETRICEXW;

typedef struct tagENUMLOGFONTW
{
    LOGFONTW elfLogFont;
    WCHAR elfFullName[LF_FULLFACESIZE];
    WCHAR elfStyle[LF_FACESIZE];
} ENUMLOGFONTW, *LPENUMLOGFONTW;

typedef struct tagENUMLOGFONTEXW
{
    LOGFONTW elfLogFont;
    WCHAR elfFullName[LF_FULLFACESIZE];
    WCHAR elfStyle[LF_FACESIZE];
    WCHAR elfScript[LF_FACESIZE];
} ENUMLOGFONTEXW, *LPENUMLOGFONTEXW;

typedef int(CALLBACK* FONTENUMPROCW)(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD fontType,
                                     LPARAM parameter);

#define CLR_INVALID         0xFFFFFFFF
#define CLR_NONE            0xFFFFFFFF
#define RGB(r, g, b)        ((COLORREF)(((BYTE)(r) | ((WORD)((BYTE)(g)) << 8)) | (((DWORD)(BYTE)(b)) << 16)))
#define PALETTERGB(r, g, b) (0x02000000 | RGB(r, g, b))
#define PALETTEINDEX(i)     ((COLORREF)(0x01000000 | (DWORD)(WORD)(i)))
#define GetRValue(rgb)      (LOBYTE(rgb))
#define GetGValue(rgb)      (LOBYTE(((WORD)(rgb)) >> 8))
#define GetBValue(rgb)      (LOBYTE((rgb) >> 16))

#define GDI_ERROR     (0xFFFFFFFFL)
#define HGDI_ERROR    ((HANDLE)(LONG_PTR)-1)
#define ERROR         0
#define NULLREGION    1
#define SIMPLEREGION  2
#define COMPLEXREGION 3
#define RGN_ERROR     ERROR

#define RGN_AND  1
#define RGN_OR   2
#define RGN_XOR  3
#define RGN_DIFF 4
#define RGN_COPY 5

#define OBJ_PEN    1
#define OBJ_BRUSH  2
#define OBJ_DC     3
#define OBJ_PAL    5
#define OBJ_FONT   6
#define OBJ_BITMAP 7
#define OBJ_REGION 8
#define OBJ_MEMDC  10

#define WHITE_BRUSH         0
#define LTGRAY_BRUSH        1
#define GRAY_BRUSH          2
#define DKGRAY_BRUSH        3
#define BLACK_BRUSH         4
#define NULL_BRUSH          5
#define HOLLOW_BRUSH        NULL_BRUSH
#define WHITE_PEN           6
#define BLACK_PEN           7
#define NULL_PEN            8
#define OEM_FIXED_FONT      10
#define ANSI_FIXED_FONT     11
#define ANSI_VAR_FONT       12
#define SYSTEM_FONT         13
#define DEVICE_DEFAULT_FONT 14
#define DEFAULT_PALETTE     15
#define SYSTEM_FIXED_FONT   16
#define DEFAULT_GUI_FONT    17

#define PS_SOLID       0
#define PS_DASH        1
#define PS_DOT         2
#define PS_DASHDOT     3
#define PS_DASHDOTDOT  4
#define PS_NULL        5
#define PS_INSIDEFRAME 6

#define BS_SOLID   0
#define BS_NULL    1
#define BS_HOLLOW  BS_NULL
#define BS_HATCHED 2
#define BS_PATTERN 3

#define HS_HORIZONTAL 0
#define HS_VERTICAL   1
#define HS_FDIAGONAL  2
#define HS_BDIAGONAL  3
#define HS_CROSS      4
#define HS_DIAGCROSS  5

#define R2_BLACK       1
#define R2_NOTMERGEPEN 2
#define R2_MASKNOTPEN  3
#define R2_NOTCOPYPEN  4
#define R2_MASKPENNOT  5
#define R2_NOT         6
#define R2_XORPEN      7
#define R2_NOTMASKPEN  8
#define R2_MASKPEN     9
#define R2_NOTXORPEN   10
#define R2_NOP         11
#define R2_MERGENOTPEN 12
#define R2_COPYPEN     13
#define R2_MERGEPENNOT 14
#define R2_MERGEPEN    15
#define R2_WHITE       16

#define SRCCOPY     (DWORD)0x00CC0020
#define SRCPAINT    (DWORD)0x00EE0086
#define SRCAND      (DWORD)0x008800C6
#define SRCINVERT   (DWORD)0x00660046
#define SRCERASE    (DWORD)0x00440328
#define NOTSRCCOPY  (DWORD)0x00330008
#define NOTSRCERASE (DWORD)0x001100A6
#define MERGECOPY   (DWORD)0x00C000CA
#define MERGEPAINT  (DWORD)0x00BB0226
#define PATCOPY     (DWORD)0x00F00021
#define PATPAINT    (DWORD)0x00FB0A09
#define PATINVERT   (DWORD)0x005A0049
#define DSTINVERT   (DWORD)0x00550009
#define BLACKNESS   (DWORD)0x00000042
#define WHITENESS   (DWORD)0x00FF0062

#define TRANSPARENT 1
#define OPAQUE      2

#define ALTERNATE 1
#define WINDING   2

#define BLACKONWHITE        1
#define WHITEONBLACK        2
#define COLORONCOLOR        3
#define HALFTONE            4
#define STRETCH_ANDSCANS    BLACKONWHITE
#define STRETCH_ORSCANS     WHITEONBLACK
#define STRETCH_DELETESCANS COLORONCOLOR
#define STRETCH_HALFTONE    HALFTONE

#define TA_NOUPDATECP 0
#define TA_UPDATECP   1
#define TA_LEFT       0
#define TA_RIGHT      2
#define TA_CENTER     6
#define TA_TOP        0
#define TA_BOTTOM     8
#define TA_BASELINE   24

#define ETO_OPAQUE  0x0002
#define ETO_CLIPPED 0x0004

#define MM_TEXT 1

#define DRIVERVERSION   0
#define TECHNOLOGY      2
#define HORZSIZE        4
#define VERTSIZE        6
#define HORZRES         8
#define VERTRES         10
#define BITSPIXEL       12
#define PLANES          14
#define NUMBRUSHES      16
#define NUMPENS         18
#define NUMFONTS        22
#define NUMCOLORS       24
#define RASTERCAPS      38
#define ASPECTX         40
#define ASPECTY         42
#define ASPECTXY        44
#define LOGPIXELSX      88
#define LOGPIXELSY      90
#define SIZEPALETTE     104
#define NUMRESERVED     106
#define COLORRES        108
#define PHYSICALWIDTH   110
#define PHYSICALHEIGHT  111
#define PHYSICALOFFSETX 112
#define PHYSICALOFFSETY 113
#define VREFRESH        116
#define DESKTOPVERTRES  117
#define DESKTOPHORZRES  118

#define DT_RASDISPLAY 1

#define RC_BITBLT     0x0001
#define RC_BITMAP64   0x0008
#define RC_DI_BITMAP  0x0080
#define RC_PALETTE    0x0100
#define RC_DIBTODEV   0x0200
#define RC_STRETCHBLT 0x0800
#define RC_STRETCHDIB 0x2000

#define BI_RGB       0
#define BI_RLE8      1
#define BI_RLE4      2
#define BI_BITFIELDS 3

#define DIB_RGB_COLORS 0
#define DIB_PAL_COLORS 1
#define CBM_INIT       4

#define SYSPAL_ERROR    0
#define SYSPAL_STATIC   1
#define SYSPAL_NOSTATIC 2

#define PC_RESERVED   1
#define PC_EXPLICIT   2
#define PC_NOCOLLAPSE 4

typedef struct tagBITMAP
{
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
} BITMAP, *PBITMAP, *LPBITMAP;

typedef struct tagRGBQUAD
{
    BYTE rgbBlue;
    BYTE rgbGreen;
    BYTE rgbRed;
    BYTE rgbReserved;
} RGBQUAD, *LPRGBQUAD;

typedef struct tagBITMAPCOREHEADER
{
    DWORD bcSize;
    WORD bcWidth;
    WORD bcHeight;
    WORD bcPlanes;
    WORD bcBitCount;
} BITMAPCOREHEADER, *PBITMAPCOREHEADER, *LPBITMAPCOREHEADER;

typedef struct tagBITMAPINFOHEADER
{
    DWORD biSize;
    LONG biWidth;
    LONG biHeight;
    WORD biPlanes;
    WORD biBitCount;
    DWORD biCompression;
    DWORD biSizeImage;
    LONG biXPelsPerMeter;
    LONG biYPelsPerMeter;
    DWORD biClrUsed;
    DWORD biClrImportant;
} BITMAPINFOHEADER, *PBITMAPINFOHEADER, *LPBITMAPINFOHEADER;
static_assert(sizeof(BITMAPINFOHEADER) == 40);

typedef struct tagBITMAPINFO
{
    BITMAPINFOHEADER bmiHeader;
    RGBQUAD bmiColors[1];
} BITMAPINFO, *PBITMAPINFO, *LPBITMAPINFO;

#pragma pack(push, 2)
typedef struct tagBITMAPFILEHEADER
{
    WORD bfType;
    DWORD bfSize;
    WORD bfReserved1;
    WORD bfReserved2;
    DWORD bfOffBits;
} BITMAPFILEHEADER, *PBITMAPFILEHEADER, *LPBITMAPFILEHEADER;
#pragma pack(pop)
static_assert(sizeof(BITMAPFILEHEADER) == 14);

typedef struct tagDIBSECTION
{
    BITMAP dsBm;
    BITMAPINFOHEADER dsBmih;
    DWORD dsBitfields[3];
    HANDLE dshSection;
    DWORD dsOffset;
} DIBSECTION, *PDIBSECTION, *LPDIBSECTION;

typedef struct tagLOGPEN
{
    UINT lopnStyle;
    POINT lopnWidth;
    COLORREF lopnColor;
} LOGPEN, *PLOGPEN, *LPLOGPEN;

typedef struct tagLOGBRUSH
{
    UINT lbStyle;
    COLORREF lbColor;
    ULONG_PTR lbHatch;
} LOGBRUSH, *PLOGBRUSH, *LPLOGBRUSH;

typedef struct tagPALETTEENTRY
{
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
} PALETTEENTRY, *PPALETTEENTRY, *LPPALETTEENTRY;

typedef struct tagLOGPALETTE
{
    WORD palVersion;
    WORD palNumEntries;
    PALETTEENTRY palPalEntry[1];
} LOGPALETTE, *PLOGPALETTE, *LPLOGPALETTE;

#define DM_SPECVERSION   0x0401
#define DM_ORIENTATION   0x00000001
#define DM_PAPERSIZE     0x00000002
#define DM_PAPERLENGTH   0x00000004
#define DM_PAPERWIDTH    0x00000008
#define DM_SCALE         0x00000010
#define DM_NUP           0x00000040
#define DM_COPIES        0x00000100
#define DM_DEFAULTSOURCE 0x00000200
#define DM_PRINTQUALITY  0x00000400
#define DM_COLOR         0x00000800
#define DM_DUPLEX        0x00001000
#define DM_YRESOLUTION   0x00002000
#define DM_TTOPTION      0x00004000
#define DM_COLLATE       0x00008000
#define DM_FORMNAME      0x00010000
#define DM_ICMMETHOD     0x00800000
#define DM_ICMINTENT     0x01000000
#define DM_MEDIATYPE     0x02000000
#define DM_DITHERTYPE    0x04000000

#define DM_UPDATE     1
#define DM_COPY       2
#define DM_PROMPT     4
#define DM_MODIFY     8
#define DM_IN_BUFFER  DM_MODIFY
#define DM_IN_PROMPT  DM_PROMPT
#define DM_OUT_BUFFER DM_COPY

#define DMORIENT_PORTRAIT  1
#define DMORIENT_LANDSCAPE 2

#define DMPAPER_LETTER                1
#define DMPAPER_TABLOID               3
#define DMPAPER_LEGAL                 5
#define DMPAPER_EXECUTIVE             7
#define DMPAPER_A3                    8
#define DMPAPER_A4                    9
#define DMPAPER_A5                    11
#define DMPAPER_B4                    12
#define DMPAPER_B5                    13
#define DMPAPER_ENV_10                20
#define DMPAPER_ENV_DL                27
#define DMPAPER_ENV_C5                28
#define DMPAPER_ENV_B5                34
#define DMPAPER_ENV_MONARCH           37
#define DMPAPER_JAPANESE_POSTCARD     43
#define DMPAPER_A6                    70
#define DMPAPER_JENV_KAKU2            71
#define DMPAPER_JENV_CHOU3            73
#define DMPAPER_DBL_JAPANESE_POSTCARD 82
#define DMPAPER_JENV_YOU4             91
#define DMPAPER_USER                  256

#define DMBIN_UPPER     1
#define DMBIN_LOWER     2
#define DMBIN_MANUAL    4
#define DMBIN_ENVMANUAL 6
#define DMBIN_AUTO      7
#define DMBIN_USER      256

#define DMRES_DRAFT  (-1)
#define DMRES_LOW    (-2)
#define DMRES_MEDIUM (-3)
#define DMRES_HIGH   (-4)

#define DMCOLOR_MONOCHROME 1
#define DMCOLOR_COLOR      2
#define DMDUP_SIMPLEX      1
#define DMDUP_VERTICAL     2
#define DMDUP_HORIZONTAL   3
#define DMTT_SUBDEV        3
#define DMCOLLATE_FALSE    0
#define DMCOLLATE_TRUE     1
#define DMNUP_SYSTEM       1
#define DMNUP_ONEUP        2
#define DMICMMETHOD_NONE   1
#define DMICM_COLORIMETRIC 3
#define DMDITHER_NONE      1

#define DC_FIELDS            1
#define DC_PAPERS            2
#define DC_PAPERSIZE         3
#define DC_MINEXTENT         4
#define DC_MAXEXTENT         5
#define DC_BINS              6
#define DC_DUPLEX            7
#define DC_SIZE              8
#define DC_EXTRA             9
#define DC_VERSION           10
#define DC_DRIVER            11
#define DC_BINNAMES          12
#define DC_ENUMRESOLUTIONS   13
#define DC_FILEDEPENDENCIES  14
#define DC_TRUETYPE          15
#define DC_PAPERNAMES        16
#define DC_ORIENTATION       17
#define DC_COPIES            18
#define DC_BINADJUST         19
#define DC_EMF_COMPLIANT     20
#define DC_DATATYPE_PRODUCED 21
#define DC_COLLATE           22
#define DC_MANUFACTURER      23
#define DC_MODEL             24
#define DC_PERSONALITY       25
#define DC_PRINTRATE         26
#define DC_PRINTRATEUNIT     27
#define DC_PRINTERMEM        28
#define DC_MEDIAREADY        29
#define DC_STAPLE            30
#define DC_PRINTRATEPPM      31
#define DC_COLORDEVICE       32
#define DC_NUP               33
#define DC_MEDIATYPENAMES    34
#define DC_MEDIATYPES        35
#define PRINTRATEUNIT_PPM    1
#define DCTT_BITMAP          0x0000001L
#define DCTT_DOWNLOAD        0x0000002L
#define DCTT_SUBDEV          0x0000004L

extern "C" {
HOSTAPI HDC WINAPI CreateCompatibleDC(HDC dc);
HOSTAPI BOOL WINAPI DeleteDC(HDC dc);
HOSTAPI int WINAPI SaveDC(HDC dc);
HOSTAPI BOOL WINAPI RestoreDC(HDC dc, int saved);
HOSTAPI int WINAPI GetDeviceCaps(HDC dc, int index);
HOSTAPI HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object);
HOSTAPI HGDIOBJ WINAPI GetCurrentObject(HDC dc, UINT type);
HOSTAPI BOOL WINAPI DeleteObject(HGDIOBJ object);
HOSTAPI int WINAPI GetObjectW(HANDLE object, int size, LPVOID buffer);
HOSTAPI DWORD WINAPI GetObjectType(HGDIOBJ object);
HOSTAPI HGDIOBJ WINAPI GetStockObject(int index);
HOSTAPI BOOL WINAPI GdiFlush(void);

HOSTAPI BOOL WINAPI SetViewportOrgEx(HDC dc, int x, int y, LPPOINT previous);
HOSTAPI BOOL WINAPI OffsetViewportOrgEx(HDC dc, int x, int y, LPPOINT previous);
HOSTAPI BOOL WINAPI GetViewportOrgEx(HDC dc, LPPOINT point);
HOSTAPI BOOL WINAPI SetWindowOrgEx(HDC dc, int x, int y, LPPOINT previous);
HOSTAPI BOOL WINAPI OffsetWindowOrgEx(HDC dc, int x, int y, LPPOINT previous);
HOSTAPI BOOL WINAPI GetWindowOrgEx(HDC dc, LPPOINT point);
HOSTAPI BOOL WINAPI SetBrushOrgEx(HDC dc, int x, int y, LPPOINT previous);
HOSTAPI BOOL WINAPI GetBrushOrgEx(HDC dc, LPPOINT point);
HOSTAPI BOOL WINAPI LPtoDP(HDC dc, LPPOINT points, int count);
HOSTAPI BOOL WINAPI DPtoLP(HDC dc, LPPOINT points, int count);
HOSTAPI int WINAPI GetMapMode(HDC dc);
HOSTAPI int WINAPI SetMapMode(HDC dc, int mode);

HOSTAPI COLORREF WINAPI SetTextColor(HDC dc, COLORREF color);
HOSTAPI COLORREF WINAPI GetTextColor(HDC dc);
HOSTAPI COLORREF WINAPI SetBkColor(HDC dc, COLORREF color);
HOSTAPI COLORREF WINAPI GetBkColor(HDC dc);
HOSTAPI int WINAPI SetBkMode(HDC dc, int mode);
HOSTAPI int WINAPI GetBkMode(HDC dc);
HOSTAPI UINT WINAPI SetTextAlign(HDC dc, UINT align);
HOSTAPI UINT WINAPI GetTextAlign(HDC dc);
HOSTAPI int WINAPI SetROP2(HDC dc, int operation);
HOSTAPI int WINAPI GetROP2(HDC dc);
HOSTAPI int WINAPI SetStretchBltMode(HDC dc, int mode);
HOSTAPI int WINAPI GetStretchBltMode(HDC dc);
HOSTAPI int WINAPI SetPolyFillMode(HDC dc, int mode);
HOSTAPI int WINAPI GetPolyFillMode(HDC dc);
HOSTAPI COLORREF WINAPI GetNearestColor(HDC dc, COLORREF color);

HOSTAPI HPEN WINAPI CreatePen(int style, int width, COLORREF color);
HOSTAPI HPEN WINAPI CreatePenIndirect(const LOGPEN* description);
HOSTAPI HBRUSH WINAPI CreateSolidBrush(COLORREF color);
HOSTAPI HBRUSH WINAPI CreateHatchBrush(int hatch, COLORREF color);
HOSTAPI HBRUSH WINAPI CreatePatternBrush(HBITMAP bitmap);
HOSTAPI HBRUSH WINAPI CreateBrushIndirect(const LOGBRUSH* description);

HOSTAPI HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom);
HOSTAPI HRGN WINAPI CreateRectRgnIndirect(const RECT* rect);
HOSTAPI BOOL WINAPI SetRectRgn(HRGN region, int left, int top, int right, int bottom);
HOSTAPI int WINAPI CombineRgn(HRGN result, HRGN first, HRGN second, int mode);
HOSTAPI int WINAPI OffsetRgn(HRGN region, int x, int y);
HOSTAPI int WINAPI GetRgnBox(HRGN region, LPRECT box);
HOSTAPI BOOL WINAPI EqualRgn(HRGN first, HRGN second);
HOSTAPI BOOL WINAPI PtInRegion(HRGN region, int x, int y);
HOSTAPI BOOL WINAPI RectInRegion(HRGN region, const RECT* rect);
HOSTAPI BOOL WINAPI FillRgn(HDC dc, HRGN region, HBRUSH brush);
HOSTAPI int WINAPI SelectClipRgn(HDC dc, HRGN region);
HOSTAPI int WINAPI ExtSelectClipRgn(HDC dc, HRGN region, int mode);
HOSTAPI int WINAPI GetClipRgn(HDC dc, HRGN region);
HOSTAPI int WINAPI GetClipBox(HDC dc, LPRECT box);
HOSTAPI int WINAPI IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
HOSTAPI int WINAPI ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);
HOSTAPI int WINAPI OffsetClipRgn(HDC dc, int x, int y);
HOSTAPI BOOL WINAPI RectVisible(HDC dc, const RECT* rect);
HOSTAPI BOOL WINAPI PtVisible(HDC dc, int x, int y);

HOSTAPI BOOL WINAPI MoveToEx(HDC dc, int x, int y, LPPOINT previous);
HOSTAPI BOOL WINAPI GetCurrentPositionEx(HDC dc, LPPOINT point);
HOSTAPI BOOL WINAPI LineTo(HDC dc, int x, int y);
HOSTAPI BOOL WINAPI Polyline(HDC dc, const POINT* points, int count);
HOSTAPI BOOL WINAPI Polygon(HDC dc, const POINT* points, int count);
HOSTAPI BOOL WINAPI Rectangle(HDC dc, int left, int top, int right, int bottom);
HOSTAPI BOOL WINAPI RoundRect(HDC dc, int left, int top, int right, int bottom, int width, int height);
HOSTAPI BOOL WINAPI Ellipse(HDC dc, int left, int top, int right, int bottom);
HOSTAPI COLORREF WINAPI SetPixel(HDC dc, int x, int y, COLORREF color);
HOSTAPI BOOL WINAPI SetPixelV(HDC dc, int x, int y, COLORREF color);
HOSTAPI COLORREF WINAPI GetPixel(HDC dc, int x, int y);

HOSTAPI BOOL WINAPI PatBlt(HDC dc, int x, int y, int width, int height, DWORD operation);
HOSTAPI BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
                           DWORD operation);
HOSTAPI BOOL WINAPI StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                               int sourceY, int sourceWidth, int sourceHeight, DWORD operation);
HOSTAPI int WINAPI StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                                 int sourceWidth, int sourceHeight, const VOID* bits, const BITMAPINFO* info,
                                 UINT usage, DWORD operation);
HOSTAPI int WINAPI SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int sourceX,
                                     int sourceY, UINT startScan, UINT scanCount, const VOID* bits,
                                     const BITMAPINFO* info, UINT usage);

HOSTAPI HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitCount, const VOID* bits);
HOSTAPI HBITMAP WINAPI CreateBitmapIndirect(const BITMAP* description);
HOSTAPI HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height);
HOSTAPI HBITMAP WINAPI CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, VOID** bits,
                                        HANDLE section, DWORD offset);
HOSTAPI HBITMAP WINAPI CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD flags, const VOID* bits,
                                      const BITMAPINFO* info, UINT usage);
HOSTAPI int WINAPI SetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT count, const VOID* bits,
                             const BITMAPINFO* info, UINT usage);
HOSTAPI int WINAPI GetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT count, LPVOID bits, BITMAPINFO* info,
                             UINT usage);
HOSTAPI UINT WINAPI SetDIBColorTable(HDC dc, UINT start, UINT count, const RGBQUAD* colors);
HOSTAPI UINT WINAPI GetDIBColorTable(HDC dc, UINT start, UINT count, RGBQUAD* colors);

HOSTAPI HPALETTE WINAPI CreatePalette(const LOGPALETTE* description);
HOSTAPI HPALETTE WINAPI SelectPalette(HDC dc, HPALETTE palette, BOOL forceBackground);
HOSTAPI UINT WINAPI RealizePalette(HDC dc);
HOSTAPI UINT WINAPI GetPaletteEntries(HPALETTE palette, UINT start, UINT count, LPPALETTEENTRY entries);
HOSTAPI UINT WINAPI SetPaletteEntries(HPALETTE palette, UINT start, UINT count, const PALETTEENTRY* entries);
HOSTAPI UINT WINAPI GetNearestPaletteIndex(HPALETTE palette, COLORREF color);
HOSTAPI BOOL WINAPI UnrealizeObject(HGDIOBJ object);
HOSTAPI UINT WINAPI SetSystemPaletteUse(HDC dc, UINT use);
HOSTAPI UINT WINAPI GetSystemPaletteUse(HDC dc);

HOSTAPI HFONT WINAPI CreateFontIndirectW(const LOGFONTW* description);
HOSTAPI HFONT WINAPI CreateFontW(int height, int width, int escapement, int orientation, int weight,
                                 DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet,
                                 DWORD outPrecision, DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily,
                                 LPCWSTR face);
HOSTAPI int WINAPI EnumFontFamiliesW(HDC dc, LPCWSTR family, FONTENUMPROCW callback, LPARAM parameter);
HOSTAPI int WINAPI EnumFontFamiliesExW(HDC dc, LPLOGFONTW font, FONTENUMPROCW callback, LPARAM parameter,
                                       DWORD flags);
HOSTAPI BOOL WINAPI GetTextMetricsW(HDC dc, LPTEXTMETRICW metrics);
HOSTAPI int WINAPI GetTextFaceW(HDC dc, int size, LPWSTR name);
HOSTAPI BOOL WINAPI GetTextExtentPoint32W(HDC dc, LPCWSTR text, int length, LPSIZE size);
HOSTAPI BOOL WINAPI GetTextExtentExPointW(HDC dc, LPCWSTR text, int length, int maxExtent, int* fit,
                                          int* extents, LPSIZE size);
HOSTAPI BOOL WINAPI GetCharWidth32W(HDC dc, UINT first, UINT last, int* widths);
HOSTAPI BOOL WINAPI TextOutW(HDC dc, int x, int y, LPCWSTR text, int length);
HOSTAPI BOOL WINAPI ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                                UINT length, const int* advances);
}
