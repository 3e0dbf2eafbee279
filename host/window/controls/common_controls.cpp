#include <commctrl.h>

#include "host/kernel/call.h"

// The classes of the common controls are there from the start.
void WINAPI InitCommonControls(void)
{
    HOST_CALL_VOID(InitCommonControls);
}

BOOL WINAPI InitCommonControlsEx(const INITCOMMONCONTROLSEX* which)
{
    HOST_CALL(InitCommonControlsEx, FALSE, ERROR_INVALID_PARAMETER);
    return which != nullptr && which->dwSize == sizeof *which;
}
