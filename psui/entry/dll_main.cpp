#include <iterator>

#include <windows.h>

#include "psui/base/module.h"
#include "psui/base/paths.h"
#include "psui/controls/classes.h"
#include "psui/model/cache.h"

namespace psui {

namespace {

constexpr WCHAR kLanguageModule[] = TEXT("VMLANG.DLL");

/// Loads the language module that lies beside the library, and the library itself once more: dialogs and
/// window classes point into it, so it must outlive every FreeLibrary of its host.
void PinAndLoadLanguage()
{
    PathText path;
    const DWORD length = GetModuleFileNameW(hOwnModule, path, std::size(path));
    if (length == 0 || length >= std::size(path))
        return;
    LoadLibraryW(path);
    if (PathBesideLibrary(kLanguageModule, path))
        hLangModule = LoadLibraryW(path);
}

void Attach(HMODULE module)
{
    hOwnModule = module;
    PinAndLoadLanguage();
    InitializeCriticalSection(&csDriver);
    RegisterControlClasses();
}

void Detach()
{
    UnregisterControlClasses();
    if (IsModule(hLangModule))
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
