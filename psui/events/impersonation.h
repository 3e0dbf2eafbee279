#pragma once
// Inside the spooler the library runs as the user whose request it serves. These services exist in the
// spooler's process only.
#include <windows.h>

#include "psui/base/procedure.h"

namespace psui {

/// Puts the calling thread back to the process's own user for the life of the object.
class ProcessIdentity
{
public:
    ProcessIdentity()
    {
        const HMODULE spooler = GetModuleHandleW(TEXT("spoolss.dll"));
        if (!spooler)
            return;
        const auto revert = FindProcedure<RevertFn>(spooler, "RevertToPrinterSelf");
        impersonate_ = FindProcedure<ImpersonateFn>(spooler, "ImpersonatePrinterClient");
        if (revert && impersonate_)
            token_ = revert();
    }
    ~ProcessIdentity()
    {
        if (token_)
            impersonate_(token_);
    }
    ProcessIdentity(const ProcessIdentity&) = delete;
    ProcessIdentity& operator=(const ProcessIdentity&) = delete;

    /// Whether the thread acted for a client before.
    bool WasImpersonating() const { return token_ != nullptr; }

private:
    using RevertFn = HANDLE(WINAPI*)();
    using ImpersonateFn = BOOL(WINAPI*)(HANDLE token);

    HANDLE token_ = nullptr;
    ImpersonateFn impersonate_ = nullptr;
};

} // namespace psui
