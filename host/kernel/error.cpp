#include <windows.h>

#include "host/kernel/call.h"

namespace {
thread_local DWORD lastError = ERROR_SUCCESS;
}

DWORD WINAPI GetLastError(void)
{
    return lastError;
}

void WINAPI SetLastError(DWORD code)
{
    lastError = code;
}
