#pragma once
#include <windows.h>

namespace host {

/// The platform's error code for an errno value of a file operation.
DWORD ErrorFromErrno(int code);

/// Sets the thread's last-error code and returns FALSE.
BOOL FailWith(DWORD error);

} // namespace host
