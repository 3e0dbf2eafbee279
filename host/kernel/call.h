#pragma once
// Every public function of the layer starts with HOST_CALL or HOST_CALL_VOID. That one line counts the call,
// times it while a profile runs, and lets the failure injector answer in its place.
//
// Calls that the layer makes of itself are not counted: only the outermost call of a thread is.
#include <cstdint>

#include <windows.h>

namespace host {

/// One per function, made on its first call and kept in a process-wide list.
struct CallSite
{
    const char* name;
    CallSite* next;

    explicit CallSite(const char* functionName);
};

class CallScope
{
public:
    explicit CallScope(CallSite& site);
    ~CallScope();
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

    /// True when the injector picks this call. Asked at most once a call, and only by calls that can fail.
    bool InjectedFailure();
    /// The same for memory requests.
    bool InjectedAllocationFailure();

private:
    bool outermost_;
    uint64_t start_;
};

} // namespace host

/// For functions that cannot fail, or whose failure the injector does not play.
#define HOST_CALL_VOID(name)                                                                                 \
    static ::host::CallSite hostCallSite_{#name};                                                            \
    ::host::CallScope hostCall_(hostCallSite_)

/// For functions that report failure by `failResult` and the thread's last-error code.
#define HOST_CALL(name, failResult, errorCode)                                                               \
    HOST_CALL_VOID(name);                                                                                    \
    if (hostCall_.InjectedFailure()) {                                                                       \
        SetLastError(errorCode);                                                                             \
        return failResult;                                                                                   \
    }

/// For functions that return their error code.
#define HOST_CALL_CODE(name, errorCode)                                                                      \
    HOST_CALL_VOID(name);                                                                                    \
    if (hostCall_.InjectedFailure())                                                                         \
        return errorCode;

/// For memory requests: they return null and set ERROR_NOT_ENOUGH_MEMORY.
#define HOST_ALLOCATION(name)                                                                                \
    HOST_CALL_VOID(name);                                                                                    \
    if (hostCall_.InjectedAllocationFailure()) {                                                             \
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);                                                               \
        return nullptr;                                                                                      \
    }
