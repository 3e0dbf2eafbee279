#include <algorithm>
#include <iterator>

#include <windows.h>

#include "psui/base/module.h"
#include "psui/model/cache.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr WCHAR kLanguageModule[] = TEXT("VMLANG.DLL");

/// Handles below this are error codes of old loaders.
constexpr uintptr_t kFirstModuleHandle = 32;

/// Loads the language module that lies beside the library, and the library itself once more: dialogs and
/// window classes point into it, so it must outlive every FreeLibrary of its host.
void PinAndLoadLanguage()
{
    WCHAR path[MAX_PATH + std::size(kLanguageModule)];
    const DWORD length = GetModuleFileNameW(hOwnModule, path, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
        return;
    LoadLibraryW(path);
    WCHAR* name = path + (FileNamePart(path) - path);
    std::copy(std::begin(kLanguageModule), std::end(kLanguageModule), name);
    hLangModule = LoadLibraryW(path);
}

void Attach(HMODULE module)
{
    hOwnModule = module;
    PinAndLoadLanguage();
    InitializeCriticalSection(&csDriver);
}

void Detach()
{
    if (reinterpret_cast<uintptr_t>(hLangModule) >= kFirstModuleHandle)
        FreeLibrary(hLangModule);
    hLangModule = nullptr;
    FlushModelCache();
    DeleteCriticalSection(&csDriver);
}

} // namespace

} // namespace psui

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH)
        psui::Attach(module);
    else if (reason == DLL_PROCESS_DETACH)
        psui::Detach();
    return TRUE;
}
