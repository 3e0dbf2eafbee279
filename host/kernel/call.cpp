#include "host/kernel/call.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "host/host.h"

namespace host {

std::atomic<int> callWatchers{0};

namespace {

constexpr uint64_t kNanosecondsPerSecond = 1000000000;
constexpr DWORD kGrowth = 64; // bytes that a growing answer wants more

struct Recording
{
    std::unordered_map<const CallSite*, uint64_t> counts;
    uint64_t nanoseconds = 0;
    int64_t bytes = 0;
    int64_t peakBytes = 0;
};

struct ThreadCalls
{
    int depth = 0;
    std::unique_ptr<Recording> recording;
    /// When the thread came from the program into the layer, in ns; 0 unless that is recorded.
    uint64_t cameIn = 0;
};

thread_local ThreadCalls threadCalls;

struct Injector
{
    std::atomic<uint64_t> seen{0};
    std::atomic<uint64_t> skip{0};
    std::atomic<bool> armed{false};
    std::atomic<bool> onwards{false};

    bool Picks()
    {
        const uint64_t index = seen.fetch_add(1, std::memory_order_relaxed);
        if (!armed.load(std::memory_order_acquire))
            return false;
        return index == skip || (index > skip && onwards);
    }

    void Arm(uint64_t skipCount, bool failOnwards)
    {
        armed = false;
        skip = skipCount;
        onwards = failOnwards;
        armed.store(true, std::memory_order_release);
    }
};

Injector calls;
Injector allocations;
Injector reads;
std::atomic<Misread> misread{Misread::Fail};
std::mutex injectorLock;
bool counting = false;

void StartCounting()
{
    calls.seen = 0;
    allocations.seen = 0;
    reads.seen = 0;
    if (!counting) {
        counting = true;
        ++callWatchers;
    }
}

uint64_t Now()
{
    timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<uint64_t>(time.tv_sec) * kNanosecondsPerSecond + static_cast<uint64_t>(time.tv_nsec);
}

// A call takes its time in pieces, between the ways out into the program. So a profile that ends while calls
// are under way, as all do that end in the idle hook, has the pieces that are over.
void ComeIn()
{
    if (threadCalls.recording != nullptr)
        threadCalls.cameIn = Now();
}

void GoOut()
{
    if (threadCalls.recording != nullptr && threadCalls.cameIn != 0)
        threadCalls.recording->nanoseconds += Now() - threadCalls.cameIn;
    threadCalls.cameIn = 0;
}

} // namespace

void CallScope::Enter(const CallSite& site)
{
    entered_ = true;
    outermost_ = threadCalls.depth++ == 0;
    if (!outermost_)
        return;
    ComeIn();
    if (threadCalls.recording != nullptr)
        ++threadCalls.recording->counts[&site];
}

void CallScope::Leave()
{
    if (--threadCalls.depth == 0)
        GoOut();
}

bool CallScope::PickedCall()
{
    return calls.Picks();
}

bool CallScope::PickedAllocation()
{
    return allocations.Picks();
}

bool CallScope::PickedRead(Misread& how)
{
    if (!reads.Picks())
        return false;
    how = misread.load(std::memory_order_relaxed);
    return true;
}

void ReadScope::Spoil(DWORD* size, DWORD* needed, DWORD* type)
{
    picked_ = true;
    needed_ = needed;
    type_ = type;
    if (how_ == Misread::Grow && size != nullptr)
        *size /= 2;
}

DWORD ReadScope::SpoiledSize(DWORD size) const
{
    switch (how_) {
    case Misread::Grow:
        return size + kGrowth;
    case Misread::TooSmall:
        return size / 2;
    case Misread::Huge:
        return UINT32_MAX;
    default:
        return size;
    }
}

void ReadScope::SpoilAnswer()
{
    if (needed_ != nullptr)
        *needed_ = SpoiledSize(*needed_);
    if (type_ != nullptr && how_ == Misread::WrongType)
        *type_ = *type_ == REG_SZ ? REG_DWORD : REG_SZ;
}

CallbackScope::CallbackScope() : depth_(threadCalls.depth)
{
    if (depth_ > 0)
        GoOut();
    threadCalls.depth = 0;
}

CallbackScope::~CallbackScope()
{
    threadCalls.depth = depth_;
    if (depth_ > 0)
        ComeIn();
}

void NoteBlockBytes(int64_t bytes)
{
    if (callWatchers.load(std::memory_order_relaxed) == 0)
        return;
    if (Recording* recording = threadCalls.recording.get()) {
        recording->bytes += bytes;
        recording->peakBytes = std::max(recording->peakBytes, recording->bytes);
    }
}

void FailAllocations(uint64_t skip, bool onwards)
{
    std::lock_guard lock(injectorLock);
    StartCounting();
    allocations.Arm(skip, onwards);
}

void FailCalls(uint64_t skip, bool onwards)
{
    std::lock_guard lock(injectorLock);
    StartCounting();
    calls.Arm(skip, onwards);
}

void MisreadCalls(uint64_t skip, bool onwards, Misread how)
{
    std::lock_guard lock(injectorLock);
    StartCounting();
    misread = how;
    reads.Arm(skip, onwards);
}

void StopFailing()
{
    std::lock_guard lock(injectorLock);
    calls.armed = false;
    allocations.armed = false;
    reads.armed = false;
    StartCounting();
}

void CloseInjector()
{
    std::lock_guard lock(injectorLock);
    calls.armed = false;
    allocations.armed = false;
    reads.armed = false;
    if (counting) {
        counting = false;
        --callWatchers;
    }
    calls.seen = 0;
    allocations.seen = 0;
    reads.seen = 0;
}

uint64_t AllocationsSeen()
{
    return allocations.seen;
}

uint64_t CallsSeen()
{
    return calls.seen;
}

uint64_t ReadsSeen()
{
    return reads.seen;
}

void StartProfile()
{
    if (threadCalls.recording == nullptr)
        ++callWatchers;
    threadCalls.recording = std::make_unique<Recording>();
}

Profile StopProfile()
{
    Profile profile;
    if (threadCalls.recording == nullptr)
        return profile;
    const std::unique_ptr<Recording> recording = std::move(threadCalls.recording);
    --callWatchers;
    for (const auto& [site, count] : recording->counts)
        profile.calls.push_back({site->name, count});
    std::sort(profile.calls.begin(), profile.calls.end(),
              [](const CallCount& a, const CallCount& b) { return std::strcmp(a.name, b.name) < 0; });
    profile.nanoseconds = recording->nanoseconds;
    profile.peakBytes = static_cast<size_t>(recording->peakBytes);
    return profile;
}

} // namespace host
