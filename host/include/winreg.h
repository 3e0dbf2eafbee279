#pragma once
// Registry.
#include <winnt.h>

#define HKEY_CLASSES_ROOT  ((HKEY)(ULONG_PTR)((LONG)0x80000000))
#define HKEY_CURRENT_USER  ((HKEY)(ULONG_PTR)((LONG)0x80000001))
#define HKEY_LOCAL_MACHINE ((HKEY)(ULONG_PTR)((LONG)0x80000002))
#define HKEY_USERS         ((HKEY)(ULONG_PTR)((LONG)0x80000003))

extern "C" {
HOSTAPI LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD options, REGSAM access, PHKEY result);
HOSTAPI LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR keyClass,
                                       DWORD options, REGSAM access, const LPSECURITY_ATTRIBUTES security,
                                       PHKEY result, LPDWORD disposition);
HOSTAPI LSTATUS WINAPI RegCloseKey(HKEY key);
HOSTAPI LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                        LPDWORD size);
HOSTAPI LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                                      DWORD size);
HOSTAPI LSTATUS WINAPI RegDeleteValueW(HKEY key, LPCWSTR name);
HOSTAPI LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR subKey);
HOSTAPI LSTATUS WINAPI RegDeleteTreeW(HKEY key, LPCWSTR subKey);
HOSTAPI LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved,
                                     LPWSTR keyClass, LPDWORD classSize, PFILETIME lastWrite);
HOSTAPI LSTATUS WINAPI RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved,
                                     LPDWORD type, LPBYTE data, LPDWORD size);
HOSTAPI LSTATUS WINAPI RegQueryInfoKeyW(HKEY key, LPWSTR keyClass, LPDWORD classSize, LPDWORD reserved,
                                        LPDWORD subKeys, LPDWORD maxSubKeySize, LPDWORD maxClassSize,
                                        LPDWORD values, LPDWORD maxValueNameSize, LPDWORD maxValueSize,
                                        LPDWORD securitySize, PFILETIME lastWrite);
}
