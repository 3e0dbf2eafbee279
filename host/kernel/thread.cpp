// Locks, threads and time.
#include <ctime>
#include <pthread.h>
#include <unistd.h>

#include "host/kernel/call.h"
#include "host/kernel/world.h"

namespace {

constexpr uint64_t kMillisecondsPerSecond = 1000;
constexpr uint64_t kNanosecondsPerMillisecond = 1000000;

pthread_mutex_t* MutexOf(LPCRITICAL_SECTION section)
{
    return static_cast<pthread_mutex_t*>(section->LockSemaphore);
}

} // namespace

void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION section)
{
    HOST_CALL_VOID(InitializeCriticalSection);
    pthread_mutexattr_t recursive;
    pthread_mutexattr_init(&recursive);
    pthread_mutexattr_settype(&recursive, PTHREAD_MUTEX_RECURSIVE);
    auto* const mutex = new pthread_mutex_t;
    pthread_mutex_init(mutex, &recursive);
    pthread_mutexattr_destroy(&recursive);
    *section = {};
    section->LockSemaphore = mutex;
    host::CountOpen(&host::Ledger::criticalSections, 1);
}

void WINAPI EnterCriticalSection(LPCRITICAL_SECTION section)
{
    HOST_CALL_VOID(EnterCriticalSection);
    pthread_mutex_lock(MutexOf(section));
}

BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION section)
{
    HOST_CALL_VOID(TryEnterCriticalSection);
    return pthread_mutex_trylock(MutexOf(section)) == 0;
}

void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION section)
{
    HOST_CALL_VOID(LeaveCriticalSection);
    pthread_mutex_unlock(MutexOf(section));
}

void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION section)
{
    HOST_CALL_VOID(DeleteCriticalSection);
    pthread_mutex_t* const mutex = MutexOf(section);
    pthread_mutex_destroy(mutex);
    delete mutex;
    *section = {};
    host::CountOpen(&host::Ledger::criticalSections, -1);
}

DWORD WINAPI GetCurrentThreadId(void)
{
    HOST_CALL_VOID(GetCurrentThreadId);
    thread_local const auto id = static_cast<DWORD>(gettid());
    return id;
}

DWORD WINAPI GetCurrentProcessId(void)
{
    HOST_CALL_VOID(GetCurrentProcessId);
    return static_cast<DWORD>(getpid());
}

ULONGLONG WINAPI GetTickCount64(void)
{
    HOST_CALL_VOID(GetTickCount64);
    timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<ULONGLONG>(time.tv_sec) * kMillisecondsPerSecond +
           static_cast<ULONGLONG>(time.tv_nsec) / kNanosecondsPerMillisecond;
}

void WINAPI Sleep(DWORD milliseconds)
{
    HOST_CALL_VOID(Sleep);
    const auto rest = static_cast<long>(milliseconds % kMillisecondsPerSecond * kNanosecondsPerMillisecond);
    timespec left = {static_cast<time_t>(milliseconds / kMillisecondsPerSecond), rest};
    while (nanosleep(&left, &left) != 0) {
    }
}
