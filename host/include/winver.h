#pragma once
// Version resources of module files.
#include <windef.h>

#define VS_FILE_INFO    RT_VERSION
#define VS_VERSION_INFO 1

#define VS_FFI_SIGNATURE    0xFEEF04BDL
#define VS_FFI_STRUCVERSION 0x00010000L

typedef struct tagVS_FIXEDFILEINFO
{
    DWORD dwSignature;
    DWORD dwStrucVersion;
    DWORD dwFileVersionMS;
    DWORD dwFileVersionLS;
    DWORD dwProductVersionMS;
    DWORD dwProductVersionLS;
    DWORD dwFileFlagsMask;
    DWORD dwFileFlags;
    DWORD dwFileOS;
    DWORD dwFileType;
    DWORD dwFileSubtype;
    DWORD dwFileDateMS;
    DWORD dwFileDateLS;
} VS_FIXEDFILEINFO;

extern "C" {
HOSTAPI DWORD WINAPI GetFileVersionInfoSizeW(LPCWSTR fileName, LPDWORD handle);
HOSTAPI BOOL WINAPI GetFileVersionInfoW(LPCWSTR fileName, DWORD handle, DWORD size, LPVOID data);
HOSTAPI BOOL WINAPI VerQueryValueW(LPCVOID block, LPCWSTR subBlock, LPVOID* buffer, unsigned* size);
}
