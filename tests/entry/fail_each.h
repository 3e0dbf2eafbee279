#pragma once
// One operation, run again and again with another of its requests failing each time.
#include <cstdint>

#include <gtest/gtest.h>

#include "host/host.h"

namespace test {

/// Requests of the platform that can be made to fail.
struct Requests
{
    const char* name;
    void (*failOne)(uint64_t skip);
    uint64_t (*seen)();
};

inline constexpr Requests kAllocations = {
    "allocation", [](uint64_t skip) { host::FailAllocations(skip, false); }, host::AllocationsSeen};
inline constexpr Requests kAllocationsOnwards = {
    "allocation onwards", [](uint64_t skip) { host::FailAllocations(skip, true); }, host::AllocationsSeen};
inline constexpr Requests kCalls = {"call", [](uint64_t skip) { host::FailCalls(skip, false); },
                                    host::CallsSeen};
inline constexpr Requests kCallsOnwards = {"call onwards", [](uint64_t skip) { host::FailCalls(skip, true); },
                                           host::CallsSeen};
template <host::Misread how>
inline constexpr Requests kReads = {"read", [](uint64_t skip) { host::MisreadCalls(skip, false, how); },
                                    host::ReadsSeen};

/// Runs `operation` with its first request failing, then its second and so on, and once with none failing,
/// each time between `prepare()` and `check(failed)`. The ledger must come out even every time.
template <typename Prepare, typename Operation, typename Check>
void FailEach(const Requests& requests, Prepare prepare, Operation operation, Check check)
{
    bool failed = true;
    uint64_t skip = 0;
    for (; failed && !testing::Test::HasFailure(); ++skip) {
        SCOPED_TRACE(testing::Message() << requests.name << ' ' << skip);
        prepare();
        const host::Ledger before = host::OpenObjects();
        requests.failOne(skip);
        operation();
        failed = requests.seen() > skip;
        host::StopFailing();
        check(failed);
        EXPECT_EQ(host::OpenObjects(), before);
    }
    EXPECT_GT(skip, 1u) << "no " << requests.name << " was asked for";
}

} // namespace test
