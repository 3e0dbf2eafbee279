#pragma once
// Every public function of the layer starts with HOST_CALL or HOST_CALL_VOID. That one line counts the call,
// times it while a profile runs, and lets the failure injector answer in its place.
//
// Calls that the layer makes of itself are not counted: only the outermost call of a thread is. Where the
// layer calls out into a program (DllMain, a callback), a CallbackScope makes the program's calls count
// again.
//
// Functions that give something back (close, free, unlock) use HOST_CALL_VOID: a program cannot mend their
// failure, so playing it would only look like a leak.
#include <atomic>
#include <cstdint>

#include <windows.h>

#include "host/host.h"

namespace host {

/// One per function, in constant memory.
struct CallSite
{
    const char* name;
};

/// Profiles that run, plus one while requests are counted for the injector. Zero costs a call one load.
extern std::atomic<int> callWatchers;

class CallScope
{
public:
    explicit CallScope(const CallSite& site)
    {
        if (callWatchers.load(std::memory_order_relaxed) != 0) [[unlikely]]
            Enter(site);
    }
    ~CallScope()
    {
        if (entered_) [[unlikely]]
            Leave();
    }
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;

    /// True when the injector picks this call. Asked at most once a call, and only by calls that can fail.
    bool InjectedFailure() { return outermost_ && PickedCall(); }
    /// The same for memory requests.
    bool InjectedAllocationFailure() { return outermost_ && PickedAllocation(); }
    /// The same for reads; `how` tells what goes wrong.
    bool InjectedMisread(Misread& how) { return outermost_ && PickedRead(how); }

private:
    void Enter(const CallSite& site);
    void Leave();
    static bool PickedCall();
    static bool PickedAllocation();
    static bool PickedRead(Misread& how);

    bool entered_ = false;
    bool outermost_ = false;
};

/// Stands in a call that reads and lets the injector spoil its answer. `size` is what the buffer holds;
/// `needed` and `type` are the caller's outputs, changed on the way out; any of the three may be null.
class ReadScope
{
public:
    ReadScope(CallScope& call, DWORD* size, DWORD* needed, DWORD* type)
    {
        if (call.InjectedMisread(how_)) [[unlikely]]
            Spoil(size, needed, type);
    }
    ~ReadScope()
    {
        if (picked_) [[unlikely]]
            SpoilAnswer();
    }
    ReadScope(const ReadScope&) = delete;
    ReadScope& operator=(const ReadScope&) = delete;

    bool Fails() const { return picked_ && how_ == Misread::Fail; }
    /// A size that the call returns as its result.
    DWORD Answer(DWORD size) const { return picked_ ? SpoiledSize(size) : size; }

private:
    void Spoil(DWORD* size, DWORD* needed, DWORD* type);
    void SpoilAnswer();
    DWORD SpoiledSize(DWORD size) const;

    Misread how_ = Misread::Fail;
    bool picked_ = false;
    DWORD* needed_ = nullptr;
    DWORD* type_ = nullptr;
};

/// Stands around a call from the layer into a program.
class CallbackScope
{
public:
    CallbackScope();
    ~CallbackScope();
    CallbackScope(const CallbackScope&) = delete;
    CallbackScope& operator=(const CallbackScope&) = delete;

private:
    int depth_;
};

/// Tells the calling thread's profile, if one runs, that blocks grew by `bytes`.
void NoteBlockBytes(int64_t bytes);

/// Ends all injection and all counting for it.
void CloseInjector();

} // namespace host

/// For functions that cannot fail, or whose failure the injector does not play.
#define HOST_CALL_VOID(name)                                                                                 \
    static constexpr ::host::CallSite hostCallSite_{#name};                                                  \
    [[maybe_unused]] ::host::CallScope hostCall_(hostCallSite_)

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

/// For calls that read into a sized buffer, behind HOST_CALL or HOST_CALL_CODE: see ReadScope.
#define HOST_READ(failResult, errorCode, size, needed, type)                                                 \
    ::host::ReadScope hostRead_(hostCall_, size, needed, type);                                              \
    if (hostRead_.Fails()) {                                                                                 \
        SetLastError(errorCode);                                                                             \
        return failResult;                                                                                   \
    }
