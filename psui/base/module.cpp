#include "psui/base/module.h"

namespace psui {

HMODULE hOwnModule = nullptr;
HMODULE hLangModule = nullptr;
CRITICAL_SECTION csDriver;

int LoadModuleString(HMODULE module, UINT id, WCHAR* buffer, int size)
{
    if (size <= 0)
        return 0;
    buffer[0] = 0;
    return IsModule(module) ? LoadStringW(module, id, buffer, size) : 0;
}

int LoadLanguageString(UINT id, WCHAR* buffer, int size)
{
    return LoadModuleString(hLangModule, id, buffer, size);
}

} // namespace psui
