#include "psui/base/module.h"

namespace psui {

HMODULE hOwnModule = nullptr;
HMODULE hLangModule = nullptr;
CRITICAL_SECTION csDriver;

int LoadLanguageString(UINT id, WCHAR* buffer, int size)
{
    if (size <= 0)
        return 0;
    buffer[0] = 0;
    if (reinterpret_cast<uintptr_t>(hLangModule) < 32)
        return 0;
    return LoadStringW(hLangModule, id, buffer, size);
}

} // namespace psui
