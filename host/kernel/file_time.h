#pragma once
// File times: the platform counts 100 ns steps from 1601, the machine seconds and nanoseconds from 1970.
#include <ctime>
#include <sys/stat.h>

#include <windows.h>

namespace host {

struct FileTimes
{
    FILETIME creation; ///< the earliest time known: the machine has no settable birth time
    FILETIME access;
    FILETIME write;
};

FILETIME FileTimeOf(const timespec& time);
FileTimes FileTimesOf(const struct stat& status);

/// The machine's time for a file time; null becomes "leave as it is" (see futimens).
timespec UnixTime(const FILETIME* time);

} // namespace host
