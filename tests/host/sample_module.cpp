// A module that counts its attaches and, as modules may, loads itself once more from inside DllMain. It frees
// itself once too often while it detaches, which must do no harm.
#include <windows.h>

namespace {
int attachCount = 0;
HMODULE innerHandle = nullptr;
} // namespace

extern "C" {

int AttachCount()
{
    return attachCount;
}

// The handle that loading itself while attaching gave, or null.
HMODULE InnerHandle()
{
    return innerHandle;
}

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID)
{
    if (reason == DLL_PROCESS_ATTACH) {
        ++attachCount;
        WCHAR path[MAX_PATH];
        if (GetModuleFileNameW(module, path, MAX_PATH) != 0)
            innerHandle = LoadLibraryW(path);
        if (innerHandle != nullptr)
            FreeLibrary(innerHandle);
    }
    if (reason == DLL_PROCESS_DETACH)
        FreeLibrary(module);
    return TRUE;
}
}
