#pragma once
// State of the loaded library that every folder may use. Set by DllMain (entry/module.cpp) and by nobody
// else.
#include <windows.h>

namespace psui {

/// This library.
extern HMODULE hOwnModule;

/// The language resource module VMLANG.DLL. A value below 32 means that it is not loaded.
extern HMODULE hLangModule;

/// Guards the model cache and every load of a model description. Recursive.
extern CRITICAL_SECTION csDriver;

/// Loads string `id` of the language module, at most `size` units with the terminator. Returns its length
/// without the terminator; 0, with an empty text in `buffer`, when the string or the module is missing.
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
