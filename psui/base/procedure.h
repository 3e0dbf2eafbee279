#pragma once
#include <windows.h>

namespace psui {

/// The function that a module exports under that name, or null.
template <typename Function>
Function FindProcedure(HMODULE module, const char* name)
{
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

} // namespace psui
