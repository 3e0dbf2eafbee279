#pragma once
// Base types of the platform interface. Sizes are those of 64-bit Windows; WCHAR is a UTF-16 unit.
#include <cstddef>
#include <cstdint>

#define HOSTAPI __attribute__((visibility("default")))
#define WINAPI
#define APIENTRY WINAPI
#define CALLBACK

#define CONST const
#define VOID  void
#define TRUE  1
#define FALSE 0

typedef char CHAR;
typedef char16_t WCHAR;
typedef uint8_t BYTE;
typedef uint16_t WORD;
typedef uint32_t DWORD;
typedef uint64_t DWORD64;
typedef uint64_t ULONGLONG;
typedef int64_t LONGLONG;
typedef int16_t SHORT;
typedef uint16_t USHORT;
typedef int32_t INT;
typedef uint32_t UINT;
typedef int32_t LONG;
typedef uint32_t ULONG;
typedef int BOOL;
typedef float FLOAT;
typedef uint8_t UCHAR;
typedef intptr_t INT_PTR;
typedef uintptr_t UINT_PTR;
typedef intptr_t LONG_PTR;
typedef uintptr_t ULONG_PTR;
typedef uintptr_t DWORD_PTR;
typedef size_t SIZE_T;
typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;
typedef WORD ATOM;
typedef WORD LANGID;
typedef DWORD LCID;
typedef DWORD LCTYPE;
typedef DWORD COLORREF;
typedef LONG HRESULT;
typedef DWORD ACCESS_MASK;
typedef ACCESS_MASK REGSAM;
typedef LONG LSTATUS;

typedef void* PVOID;
typedef void* LPVOID;
typedef const void* LPCVOID;
typedef BYTE* PBYTE;
typedef BYTE* LPBYTE;
typedef WORD* PWORD;
typedef WORD* LPWORD;
typedef DWORD* PDWORD;
typedef DWORD* LPDWORD;
typedef LONG* PLONG;
typedef BOOL* PBOOL;
typedef BOOL* LPBOOL;
typedef CHAR* LPSTR;
typedef const CHAR* LPCSTR;
typedef const CHAR* LPCCH;
typedef WCHAR* PWSTR;
typedef WCHAR* LPWSTR;
typedef const WCHAR* PCWSTR;
typedef const WCHAR* LPCWSTR;
typedef const WCHAR* LPCWCH;

typedef void* HANDLE;
typedef HANDLE* PHANDLE;
typedef HANDLE* LPHANDLE;

#define DECLARE_HANDLE(name)                                                                                 \
    struct name##__                                                                                          \
    {                                                                                                        \
        int unused;                                                                                          \
    };                                                                                                       \
    typedef struct name##__* name

DECLARE_HANDLE(HINSTANCE);
typedef HINSTANCE HMODULE;
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HKEY);
typedef HKEY* PHKEY;
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HRSRC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HPEN);
DECLARE_HANDLE(HRGN);
typedef HICON HCURSOR;
typedef void* HGDIOBJ;
typedef HANDLE HGLOBAL;
typedef HANDLE HLOCAL;

typedef INT_PTR (*FARPROC)();

#define MAX_PATH 260

#define MAKEWORD(a, b) ((WORD)(((BYTE)((DWORD_PTR)(a)&0xff)) | ((WORD)((BYTE)((DWORD_PTR)(b)&0xff))) << 8))
#define MAKELONG(a, b)                                                                                       \
    ((LONG)(((WORD)((DWORD_PTR)(a)&0xffff)) | ((DWORD)((WORD)((DWORD_PTR)(b)&0xffff))) << 16))
#define LOWORD(l)           ((WORD)((DWORD_PTR)(l)&0xffff))
#define HIWORD(l)           ((WORD)((DWORD_PTR)(l) >> 16))
#define LOBYTE(w)           ((BYTE)((DWORD_PTR)(w)&0xff))
#define HIBYTE(w)           ((BYTE)((DWORD_PTR)(w) >> 8))
#define MAKEINTRESOURCEW(i) ((LPWSTR)((ULONG_PTR)((WORD)(i))))
#define IS_INTRESOURCE(p)   ((((ULONG_PTR)(p)) >> 16) == 0)

// Wide literals are written TEXT("...") so that they have the platform's character type.
#define TEXT_(quote) u##quote
#define TEXT(quote)  TEXT_(quote)

typedef union _LARGE_INTEGER {
    struct
    {
        DWORD LowPart;
        LONG HighPart;
    };
    struct
    {
        DWORD LowPart;
        LONG HighPart;
    } u;
    LONGLONG QuadPart;
} LARGE_INTEGER, *PLARGE_INTEGER;

typedef struct _FILETIME
{
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
} FILETIME, *PFILETIME, *LPFILETIME;

typedef struct tagPOINT
{
    LONG x;
    LONG y;
} POINT, *PPOINT, *LPPOINT;

typedef struct _POINTL
{
    LONG x;
    LONG y;
} POINTL, *PPOINTL;

typedef struct tagSIZE
{
    LONG cx;
    LONG cy;
} SIZE, SIZEL, *PSIZE, *LPSIZE;

typedef struct tagRECT
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT, *PRECT, *LPRECT;
typedef const RECT* LPCRECT;

typedef struct _RECTL
{
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECTL, *PRECTL;
