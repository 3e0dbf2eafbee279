#pragma once
// Device-mode record, font description, and the capability and field numbers that go with them.
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

#define DEFAULT_CHARSET 1

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
