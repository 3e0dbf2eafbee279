#pragma once
// State of the loaded library that every folder may use. Set by DllMain (entry/module.cpp) and by nobody
// else.
#include <cstdint>

#include <windows.h>

namespace psui {

/// This library.
extern HMODULE hOwnModule;

/// Handles below this are error codes of old loaders, not modules.
constexpr uintptr_t kFirstModuleHandle = 32;

/// The language resource module VMLANG.DLL; not loaded when IsModule denies it.
extern HMODULE hLangModule;

inline bool IsModule(HMODULE module)
{
    return reinterpret_cast<uintptr_t>(module) >= kFirstModuleHandle;
}

/// Guards the model cache and every load of a model description. Recursive.
extern CRITICAL_SECTION csDriver;

/// Loads string `id` of `module`, at most `size` units with the terminator. Returns its length without the
/// terminator; 0, with an empty text in `buffer`, when the string or the module is missing.
int LoadModuleString(HMODULE module, UINT id, WCHAR* buffer, int size);

/// The same from the language module.
int LoadLanguageString(UINT id, WCHAR* buffer, int size);

/// Holds csDriver for the life of the object.
class DriverLock
{
public:
    DriverLock() { EnterCriticalSection(&csDriver); }
    ~DriverLock() { LeaveCriticalSection(&csDriver); }
    DriverLock(const DriverLock&) = delete;
    DriverLock& operator=(const DriverLock&) = delete;
};

} // namespace psui
