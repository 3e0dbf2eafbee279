#pragma once
#include <windef.h>

#define GENERIC_READ    0x80000000u
#define GENERIC_WRITE   0x40000000u
#define GENERIC_EXECUTE 0x20000000u
#define GENERIC_ALL     0x10000000u
#define DELETE          0x00010000u
#define READ_CONTROL    0x00020000u
#define SYNCHRONIZE     0x00100000u
#define MAXIMUM_ALLOWED 0x02000000u

#define STANDARD_RIGHTS_REQUIRED 0x000F0000u
#define STANDARD_RIGHTS_READ     READ_CONTROL
#define STANDARD_RIGHTS_WRITE    READ_CONTROL
#define STANDARD_RIGHTS_EXECUTE  READ_CONTROL
#define STANDARD_RIGHTS_ALL      0x001F0000u

#define FILE_SHARE_READ   0x00000001
#define FILE_SHARE_WRITE  0x00000002
#define FILE_SHARE_DELETE 0x00000004

#define FILE_ATTRIBUTE_READONLY  0x00000001
#define FILE_ATTRIBUTE_HIDDEN    0x00000002
#define FILE_ATTRIBUTE_SYSTEM    0x00000004
#define FILE_ATTRIBUTE_DIRECTORY 0x00000010
#define FILE_ATTRIBUTE_ARCHIVE   0x00000020
#define FILE_ATTRIBUTE_NORMAL    0x00000080

#define PAGE_READONLY     0x02
#define PAGE_READWRITE    0x04
#define SECTION_MAP_WRITE 0x0002
#define SECTION_MAP_READ  0x0004

#define HEAP_NO_SERIALIZE          0x00000001
#define HEAP_GENERATE_EXCEPTIONS   0x00000004
#define HEAP_ZERO_MEMORY           0x00000008
#define HEAP_REALLOC_IN_PLACE_ONLY 0x00000010

#define KEY_QUERY_VALUE        0x0001u
#define KEY_SET_VALUE          0x0002u
#define KEY_CREATE_SUB_KEY     0x0004u
#define KEY_ENUMERATE_SUB_KEYS 0x0008u
#define KEY_NOTIFY             0x0010u
#define KEY_CREATE_LINK        0x0020u
#define KEY_WOW64_64KEY        0x0100u
#define KEY_READ                                                                                             \
    ((STANDARD_RIGHTS_READ | KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS | KEY_NOTIFY) & ~SYNCHRONIZE)
#define KEY_WRITE ((STANDARD_RIGHTS_WRITE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY) & ~SYNCHRONIZE)
#define KEY_ALL_ACCESS                                                                                       \
    ((STANDARD_RIGHTS_ALL | KEY_QUERY_VALUE | KEY_SET_VALUE | KEY_CREATE_SUB_KEY | KEY_ENUMERATE_SUB_KEYS |  \
      KEY_NOTIFY | KEY_CREATE_LINK) &                                                                        \
     ~SYNCHRONIZE)

#define REG_NONE      0u
#define REG_SZ        1u
#define REG_EXPAND_SZ 2u
#define REG_BINARY    3u
#define REG_DWORD     4u
#define REG_MULTI_SZ  7u
#define REG_QWORD     11u

#define REG_OPTION_NON_VOLATILE 0u
#define REG_CREATED_NEW_KEY     1u
#define REG_OPENED_EXISTING_KEY 2u

#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH  2
#define DLL_THREAD_DETACH  3

#define LANG_NEUTRAL          0x00
#define LANG_ENGLISH          0x09
#define LANG_JAPANESE         0x11
#define SUBLANG_NEUTRAL       0x00
#define SUBLANG_DEFAULT       0x01
#define MAKELANGID(p, s)      ((((WORD)(s)) << 10) | (WORD)(p))
#define PRIMARYLANGID(lgid)   ((WORD)(lgid)&0x3ff)
#define MAKELCID(lgid, srtid) ((DWORD)((((DWORD)((WORD)(srtid))) << 16) | ((DWORD)((WORD)(lgid)))))
#define SORT_DEFAULT          0x0
#define LOCALE_USER_DEFAULT   0x0400u
#define LOCALE_SYSTEM_DEFAULT 0x0800u

typedef void* PSECURITY_DESCRIPTOR;
