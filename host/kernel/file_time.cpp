#include "host/kernel/file_time.h"

#include <cstdint>

namespace host {
namespace {
constexpr int64_t kStepsPerSecond = 10000000; // 100 ns
constexpr int64_t kNanosecondsPerStep = 100;
constexpr int64_t kSecondsTo1970 = 11644473600; // from 1601
} // namespace

FILETIME FileTimeOf(const timespec& time)
{
    const auto steps = static_cast<uint64_t>((time.tv_sec + kSecondsTo1970) * kStepsPerSecond +
                                             time.tv_nsec / kNanosecondsPerStep);
    return {static_cast<DWORD>(steps), static_cast<DWORD>(steps >> 32)};
}

FileTimes FileTimesOf(const struct stat& status)
{
    const timespec& write = status.st_mtim;
    const timespec& change = status.st_ctim;
    const bool writtenFirst =
        write.tv_sec != change.tv_sec ? write.tv_sec < change.tv_sec : write.tv_nsec < change.tv_nsec;
    return {FileTimeOf(writtenFirst ? write : change), FileTimeOf(status.st_atim), FileTimeOf(write)};
}

timespec UnixTime(const FILETIME* time)
{
    if (time == nullptr)
        return {0, UTIME_OMIT};
    const auto steps =
        static_cast<int64_t>(static_cast<uint64_t>(time->dwHighDateTime) << 32 | time->dwLowDateTime);
    const int64_t second = steps / kStepsPerSecond - kSecondsTo1970;
    return {second, steps % kStepsPerSecond * kNanosecondsPerStep};
}

} // namespace host
