#pragma once
// Modules, files, memory, locks and text: the kernel room of the layer.
#include <winerror.h>
#include <winnt.h>

#define INVALID_HANDLE_VALUE     ((HANDLE)(LONG_PTR)-1)
#define INVALID_FILE_ATTRIBUTES  ((DWORD)-1)
#define INVALID_FILE_SIZE        ((DWORD)0xFFFFFFFF)
#define INVALID_SET_FILE_POINTER ((DWORD)-1)

#define CREATE_NEW        1
#define CREATE_ALWAYS     2
#define OPEN_EXISTING     3
#define OPEN_ALWAYS       4
#define TRUNCATE_EXISTING 5

#define FILE_BEGIN   0
#define FILE_CURRENT 1
#define FILE_END     2

#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000
#define FILE_MAP_WRITE            SECTION_MAP_WRITE
#define FILE_MAP_READ             SECTION_MAP_READ

#define MOVEFILE_REPLACE_EXISTING 0x00000001
#define MOVEFILE_COPY_ALLOWED     0x00000002
#define MOVEFILE_WRITE_THROUGH    0x00000008

#define GMEM_FIXED    0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define GHND          (GMEM_MOVEABLE | GMEM_ZEROINIT)
#define GPTR          (GMEM_FIXED | GMEM_ZEROINIT)
#define LMEM_FIXED    0x0000
#define LMEM_ZEROINIT 0x0040
#define LPTR          (LMEM_FIXED | LMEM_ZEROINIT)

#define MAXINTATOM     0xC000
#define MAKEINTATOM(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))

#define LOAD_LIBRARY_AS_DATAFILE 0x00000002

typedef struct _SECURITY_ATTRIBUTES
{
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
} SECURITY_ATTRIBUTES, *PSECURITY_ATTRIBUTES, *LPSECURITY_ATTRIBUTES;

typedef struct _OVERLAPPED OVERLAPPED, *LPOVERLAPPED;

typedef struct _WIN32_FIND_DATAW
{
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];
} WIN32_FIND_DATAW, *PWIN32_FIND_DATAW, *LPWIN32_FIND_DATAW;

// A recursive lock. The fields are the layer's own; callers only hand the address around.
typedef struct _RTL_CRITICAL_SECTION
{
    PVOID LockSemaphore;
    LONG LockCount;
    LONG RecursionCount;
    ULONG_PTR SpinCount;
    PVOID reserved[2];
} CRITICAL_SECTION, *PCRITICAL_SECTION, *LPCRITICAL_SECTION;

extern "C" {

HOSTAPI DWORD WINAPI GetLastError(void);
HOSTAPI void WINAPI SetLastError(DWORD code);

// Modules and their resources
HOSTAPI HMODULE WINAPI LoadLibraryW(LPCWSTR fileName);
HOSTAPI HMODULE WINAPI LoadLibraryExW(LPCWSTR fileName, HANDLE file, DWORD flags);
HOSTAPI BOOL WINAPI FreeLibrary(HMODULE module);
HOSTAPI FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);
HOSTAPI HMODULE WINAPI GetModuleHandleW(LPCWSTR name);
HOSTAPI DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size);
HOSTAPI HRSRC WINAPI FindResourceW(HMODULE module, LPCWSTR name, LPCWSTR type);
HOSTAPI HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource);
HOSTAPI LPVOID WINAPI LockResource(HGLOBAL resource);
HOSTAPI DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource);

// Files
HOSTAPI HANDLE WINAPI CreateFileW(LPCWSTR fileName, DWORD access, DWORD shareMode,
                                  LPSECURITY_ATTRIBUTES security, DWORD disposition, DWORD flagsAndAttributes,
                                  HANDLE templateFile);
HOSTAPI BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD count, LPDWORD read, LPOVERLAPPED overlapped);
HOSTAPI BOOL WINAPI WriteFile(HANDLE file, LPCVOID buffer, DWORD count, LPDWORD written,
                              LPOVERLAPPED overlapped);
HOSTAPI BOOL WINAPI CloseHandle(HANDLE object);
HOSTAPI DWORD WINAPI GetFileSize(HANDLE file, LPDWORD sizeHigh);
HOSTAPI BOOL WINAPI GetFileSizeEx(HANDLE file, PLARGE_INTEGER size);
HOSTAPI DWORD WINAPI SetFilePointer(HANDLE file, LONG distance, PLONG distanceHigh, DWORD method);
HOSTAPI BOOL WINAPI SetFilePointerEx(HANDLE file, LARGE_INTEGER distance, PLARGE_INTEGER newPointer,
                                     DWORD method);
HOSTAPI BOOL WINAPI SetEndOfFile(HANDLE file);
HOSTAPI BOOL WINAPI FlushFileBuffers(HANDLE file);
HOSTAPI BOOL WINAPI GetFileTime(HANDLE file, LPFILETIME creation, LPFILETIME access, LPFILETIME write);
HOSTAPI BOOL WINAPI SetFileTime(HANDLE file, const FILETIME* creation, const FILETIME* access,
                                const FILETIME* write);
HOSTAPI BOOL WINAPI DeleteFileW(LPCWSTR fileName);
HOSTAPI BOOL WINAPI MoveFileExW(LPCWSTR existing, LPCWSTR replacement, DWORD flags);
HOSTAPI BOOL WINAPI CopyFileW(LPCWSTR existing, LPCWSTR copy, BOOL failIfExists);
HOSTAPI BOOL WINAPI CreateDirectoryW(LPCWSTR path, LPSECURITY_ATTRIBUTES security);
HOSTAPI BOOL WINAPI CreateDirectoryExW(LPCWSTR model, LPCWSTR path, LPSECURITY_ATTRIBUTES security);
HOSTAPI BOOL WINAPI RemoveDirectoryW(LPCWSTR path);
HOSTAPI DWORD WINAPI GetFileAttributesW(LPCWSTR fileName);
HOSTAPI BOOL WINAPI SetFileAttributesW(LPCWSTR fileName, DWORD attributes);
HOSTAPI HANDLE WINAPI FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data);
HOSTAPI BOOL WINAPI FindNextFileW(HANDLE find, LPWIN32_FIND_DATAW data);
HOSTAPI BOOL WINAPI FindClose(HANDLE find);
HOSTAPI DWORD WINAPI GetFullPathNameW(LPCWSTR fileName, DWORD size, LPWSTR buffer, LPWSTR* filePart);
HOSTAPI DWORD WINAPI GetCurrentDirectoryW(DWORD size, LPWSTR buffer);
HOSTAPI BOOL WINAPI SetCurrentDirectoryW(LPCWSTR path);
HOSTAPI DWORD WINAPI GetTempPathW(DWORD size, LPWSTR buffer);
HOSTAPI UINT WINAPI GetSystemDirectoryW(LPWSTR buffer, UINT size);
HOSTAPI UINT WINAPI GetWindowsDirectoryW(LPWSTR buffer, UINT size);
HOSTAPI HANDLE WINAPI CreateFileMappingW(HANDLE file, LPSECURITY_ATTRIBUTES security, DWORD protection,
                                         DWORD sizeHigh, DWORD sizeLow, LPCWSTR name);
HOSTAPI LPVOID WINAPI MapViewOfFile(HANDLE mapping, DWORD access, DWORD offsetHigh, DWORD offsetLow,
                                    SIZE_T bytes);
HOSTAPI BOOL WINAPI UnmapViewOfFile(LPCVOID address);

// Memory
HOSTAPI HANDLE WINAPI GetProcessHeap(void);
HOSTAPI HANDLE WINAPI HeapCreate(DWORD options, SIZE_T initialSize, SIZE_T maximumSize);
HOSTAPI BOOL WINAPI HeapDestroy(HANDLE heap);
HOSTAPI LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T bytes);
HOSTAPI LPVOID WINAPI HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T bytes);
HOSTAPI BOOL WINAPI HeapFree(HANDLE heap, DWORD flags, LPVOID block);
HOSTAPI SIZE_T WINAPI HeapSize(HANDLE heap, DWORD flags, LPCVOID block);
HOSTAPI HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T bytes);
HOSTAPI HGLOBAL WINAPI GlobalReAlloc(HGLOBAL memory, SIZE_T bytes, UINT flags);
HOSTAPI LPVOID WINAPI GlobalLock(HGLOBAL memory);
HOSTAPI BOOL WINAPI GlobalUnlock(HGLOBAL memory);
HOSTAPI SIZE_T WINAPI GlobalSize(HGLOBAL memory);
HOSTAPI HGLOBAL WINAPI GlobalFree(HGLOBAL memory);
HOSTAPI HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T bytes);
HOSTAPI HLOCAL WINAPI LocalFree(HLOCAL memory);

// Locks, threads, time
HOSTAPI void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section);
HOSTAPI void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section);
HOSTAPI BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section);
HOSTAPI void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section);
HOSTAPI void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section);
HOSTAPI DWORD WINAPI GetCurrentThreadId(void);
HOSTAPI DWORD WINAPI GetCurrentProcessId(void);
HOSTAPI ULONGLONG WINAPI GetTickCount64(void);
HOSTAPI void WINAPI Sleep(DWORD milliseconds);

// Text
HOSTAPI int WINAPI lstrlenW(LPCWSTR text);
HOSTAPI int WINAPI lstrlenA(LPCSTR text);
HOSTAPI int WINAPI lstrcmpW(LPCWSTR first, LPCWSTR second);
HOSTAPI int WINAPI lstrcmpiW(LPCWSTR first, LPCWSTR second);
HOSTAPI int WINAPI MulDiv(int number, int numerator, int denominator);
HOSTAPI LPWSTR WINAPI lstrcpynW(LPWSTR destination, LPCWSTR source, int size);

// Private-profile files
HOSTAPI DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultText,
                                              LPWSTR buffer, DWORD size, LPCWSTR fileName);
HOSTAPI UINT WINAPI GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT defaultNumber, LPCWSTR fileName);
HOSTAPI DWORD WINAPI GetPrivateProfileSectionW(LPCWSTR section, LPWSTR buffer, DWORD size, LPCWSTR fileName);
HOSTAPI DWORD WINAPI GetPrivateProfileSectionNamesW(LPWSTR buffer, DWORD size, LPCWSTR fileName);
HOSTAPI BOOL WINAPI WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR text, LPCWSTR fileName);
HOSTAPI BOOL WINAPI WritePrivateProfileSectionW(LPCWSTR section, LPCWSTR lines, LPCWSTR fileName);

// Global atoms
HOSTAPI ATOM WINAPI GlobalAddAtomW(LPCWSTR name);
HOSTAPI ATOM WINAPI GlobalFindAtomW(LPCWSTR name);
HOSTAPI ATOM WINAPI GlobalDeleteAtom(ATOM atom);
HOSTAPI UINT WINAPI GlobalGetAtomNameW(ATOM atom, LPWSTR buffer, int size);

// Environment, user and programs
HOSTAPI BOOL WINAPI SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value);
HOSTAPI BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value);
HOSTAPI DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size);
HOSTAPI DWORD WINAPI GetEnvironmentVariableA(LPCSTR name, LPSTR buffer, DWORD size);
HOSTAPI BOOL WINAPI GetUserNameW(LPWSTR buffer, LPDWORD size);
HOSTAPI UINT WINAPI WinExec(LPCSTR commandLine, UINT showCommand);
}
