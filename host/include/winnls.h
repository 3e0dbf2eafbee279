#pragma once
// Code pages, comparison and locale.
#include <windef.h>

#define CP_ACP               0
#define CP_OEMCP             1
#define CP_UTF8              65001
#define MB_PRECOMPOSED       0x00000001
#define MB_ERR_INVALID_CHARS 0x00000008
#define WC_NO_BEST_FIT_CHARS 0x00000400
#define WC_ERR_INVALID_CHARS 0x00000080

#define CSTR_LESS_THAN    1
#define CSTR_EQUAL        2
#define CSTR_GREATER_THAN 3

#define LOCALE_IMEASURE             0x0000000D
#define LOCALE_ICOUNTRY             0x00000005
#define LOCALE_SABBREVLANGNAME      0x00000003
#define LOCALE_IDEFAULTANSICODEPAGE 0x00001004

extern "C" {
HOSTAPI UINT WINAPI GetACP(void);
HOSTAPI int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCCH source, int sourceSize,
                                       LPWSTR destination, int destinationSize);
HOSTAPI int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWCH source, int sourceSize,
                                       LPSTR destination, int destinationSize, LPCCH defaultChar,
                                       LPBOOL usedDefaultChar);
HOSTAPI int WINAPI CompareStringOrdinal(LPCWCH first, int firstSize, LPCWCH second, int secondSize,
                                        BOOL ignoreCase);
HOSTAPI LANGID WINAPI GetUserDefaultUILanguage(void);
HOSTAPI LCID WINAPI GetUserDefaultLCID(void);
HOSTAPI int WINAPI GetLocaleInfoW(LCID locale, LCTYPE type, LPWSTR data, int size);
}
