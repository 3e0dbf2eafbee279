#pragma once
// The second system that the conformance tests run on knows less than the platform documents in some places.
// There the documentation holds, and the tests do not ask Wine.
#include <windows.h>

inline bool OnWine()
{
    HMODULE module = GetModuleHandleW(TEXT("ntdll.dll"));
    return module && GetProcAddress(module, "wine_get_version");
}
