// The two functions that a spooler gives the drivers it loads: step out of the client's identity and back.
// They are found by name in spoolss.dll only, so no header declares them.
#include "host/spooler/impersonation.h"

#include <mutex>
#include <windows.h>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"

namespace host {
namespace {

constexpr uintptr_t kFirstToken = 0x70000004;
constexpr uintptr_t kTokenStep = 4;

struct Spooler
{
    std::mutex lock;
    std::u16string user;     // empty outside a spooler
    uint64_t run = 0;        // counts RunInSpooler calls: tokens of an earlier run are void
    uintptr_t tokens = 0;    // given out in all runs
    int64_t outstanding = 0; // given out in this run and not yet back
    Impersonations calls;
};

Spooler spooler;

/// The token that the thread got when it stepped out; 0 while it plays the client.
struct ThreadToken
{
    uintptr_t token = 0;
    uint64_t run = 0;
};

thread_local ThreadToken threadToken;

/// Hold the lock.
bool ThreadIsItself()
{
    return !spooler.user.empty() && threadToken.token != 0 && threadToken.run == spooler.run;
}

HANDLE GiveToken()
{
    threadToken = {kFirstToken + kTokenStep * spooler.tokens++, spooler.run};
    ++spooler.outstanding;
    ++spooler.calls.reverted;
    CountOpen(&Ledger::tokens, 1);
    return reinterpret_cast<HANDLE>(threadToken.token);
}

} // namespace

void RunInSpooler(std::u16string_view serviceUser)
{
    std::lock_guard lock(spooler.lock);
    spooler.user = serviceUser;
    ++spooler.run;
    CountOpen(&Ledger::tokens, -spooler.outstanding);
    spooler.outstanding = 0;
    spooler.calls = {};
}

Impersonations SpoolerImpersonations()
{
    std::lock_guard lock(spooler.lock);
    return spooler.calls;
}

std::u16string SpoolerUserOfThread()
{
    std::lock_guard lock(spooler.lock);
    return ThreadIsItself() ? spooler.user : std::u16string();
}

} // namespace host

using namespace host;

extern "C" {

/// Returns a token for ImpersonatePrinterClient; null outside a spooler and when the thread has done it
/// already.
HOSTAPI HANDLE WINAPI RevertToPrinterSelf(void)
{
    HOST_CALL(RevertToPrinterSelf, nullptr, ERROR_NO_TOKEN);
    std::lock_guard lock(spooler.lock);
    if (spooler.user.empty() || ThreadIsItself()) {
        SetLastError(ERROR_NO_TOKEN);
        return nullptr;
    }
    return GiveToken();
}

/// Takes the token back that the thread got from RevertToPrinterSelf.
HOSTAPI BOOL WINAPI ImpersonatePrinterClient(HANDLE token)
{
    HOST_CALL_VOID(ImpersonatePrinterClient);
    std::lock_guard lock(spooler.lock);
    if (!ThreadIsItself() || token != reinterpret_cast<HANDLE>(threadToken.token)) {
        ++spooler.calls.refused;
        return FailWith(ERROR_INVALID_HANDLE);
    }
    threadToken.token = 0;
    --spooler.outstanding;
    ++spooler.calls.resumed;
    CountOpen(&Ledger::tokens, -1);
    return TRUE;
}
}
