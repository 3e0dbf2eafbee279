#pragma once
// The folders of the user and of the machine. Not part of windows.h.
#include <winerror.h>
#include <winnt.h>

#define CSIDL_PERSONAL       0x0005
#define CSIDL_APPDATA        0x001A
#define CSIDL_LOCAL_APPDATA  0x001C
#define CSIDL_COMMON_APPDATA 0x0023
#define CSIDL_WINDOWS        0x0024
#define CSIDL_SYSTEM         0x0025
#define CSIDL_FLAG_CREATE    0x8000

#define SHGFP_TYPE_CURRENT 0
#define SHGFP_TYPE_DEFAULT 1

extern "C" {
HOSTAPI HRESULT WINAPI SHGetFolderPathW(HWND window, int folder, HANDLE token, DWORD flags, LPWSTR path);
HOSTAPI HRESULT WINAPI SHGetFolderPathA(HWND window, int folder, HANDLE token, DWORD flags, LPSTR path);
}
