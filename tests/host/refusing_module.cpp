// A module that never lets itself be attached.
#include <windows.h>

extern "C" {

int Refuses()
{
    return 1;
}

BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID)
{
    return reason != DLL_PROCESS_ATTACH;
}
}
