#pragma once
// Shared by the benchmarks: timing, printing, and the temporary folder they work in.
#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include <windows.h>

#include "host/host.h"

namespace bench {

struct Settings
{
    std::filesystem::path corpus;  ///< folder of description files; may be missing
    std::filesystem::path scratch; ///< folder to write in
    bool quick = false;            ///< fewer repetitions, smaller models
};

/// Microseconds that `work` takes: the median of `repetitions` runs, each after `prepare`, whose time does
/// not count.
template <typename Work, typename Prepare>
double MedianMicroseconds(int repetitions, Prepare prepare, Work work)
{
    using Clock = std::chrono::steady_clock;
    std::vector<double> samples;
    for (int i = 0; i < repetitions; ++i) {
        prepare();
        const Clock::time_point start = Clock::now();
        work();
        samples.push_back(std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    std::nth_element(samples.begin(), samples.begin() + samples.size() / 2, samples.end());
    return samples[samples.size() / 2];
}

template <typename Work>
double MedianMicroseconds(int repetitions, Work work)
{
    return MedianMicroseconds(
        repetitions, [] {}, work);
}

/// Prints one measured figure beside the figure we want; `atLeast` says which side is good.
void PrintFigure(const std::string& what, double value, const char* unit, double wanted, bool atLeast);

/// The product's library with a printer of the largest sample model, and what a platform call costs while a
/// profile counts it.
struct Stage
{
    HMODULE library = nullptr;
    HANDLE printer = nullptr;
    double profileCost = 0; ///< microseconds a call, no work of the library's

    explicit Stage(const Settings& settings);
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
};

uint64_t CallsOf(const host::Profile& profile);

void BenchLoading(const Settings& settings);
void BenchGrowth(const Settings& settings);
void BenchCapabilities(const Settings& settings);
void BenchDialogs(const Settings& settings);

} // namespace bench
