// psui_bench [--corpus DIR] [--quick] [loading] [growth] [capabilities] [dialogs]
#include "bench/bench.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "host/host.h"
#include "psui/base/module.h"

namespace bench {

void PrintFigure(const std::string& what, double value, const char* unit, double wanted, bool atLeast)
{
    const bool good = atLeast ? value >= wanted : value <= wanted;
    std::printf("  %-58s %9.2f %-3s  wanted %s %.4g%s\n", what.c_str(), value, unit,
                atLeast ? "at least" : "at most", wanted, good ? "" : "   MISSED");
}

} // namespace bench

namespace {

struct Benchmark
{
    const char* name;
    void (*run)(const bench::Settings&);
};

constexpr Benchmark kBenchmarks[] = {
    {"loading", bench::BenchLoading},
    {"growth", bench::BenchGrowth},
    {"capabilities", bench::BenchCapabilities},
    {"dialogs", bench::BenchDialogs},
};

int Usage()
{
    std::fputs("usage: psui_bench [--corpus DIR] [--quick] [loading] [growth] [capabilities] [dialogs]\n",
               stderr);
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    bench::Settings settings;
    settings.corpus = std::filesystem::path(PSUI_SOURCE_DIR) / ".." / "shared" / "ppd";
    std::vector<std::string> chosen;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--corpus" && i + 1 < argc)
            settings.corpus = argv[++i];
        else if (argument == "--quick")
            settings.quick = true;
        else if (std::any_of(std::begin(kBenchmarks), std::end(kBenchmarks),
                             [&](const Benchmark& benchmark) { return argument == benchmark.name; }))
            chosen.push_back(argument);
        else
            return Usage();
    }

    // A file system on a disk may take ten times as long to make a file for some minutes after many were
    // deleted, which the last benchmark did.
    constexpr char kMemoryFolder[] = "/dev/shm";
    std::error_code ignored;
    if (std::filesystem::is_directory(kMemoryFolder, ignored))
        setenv("TMPDIR", kMemoryFolder, 0);
    std::string error;
    if (!host::Open({.root = ":memory:"}, &error)) {
        std::fprintf(stderr, "psui_bench: %s\n", error.c_str());
        return 1;
    }
    std::printf("Files are made in %s (TMPDIR says where)\n", host::RootFolder().c_str());
    settings.scratch = std::filesystem::path(host::RootFolder()) / "drive_c" / "bench";
    std::filesystem::create_directories(settings.scratch);
    InitializeCriticalSection(&psui::csDriver);
    for (const Benchmark& benchmark : kBenchmarks)
        if (chosen.empty() || std::find(chosen.begin(), chosen.end(), benchmark.name) != chosen.end())
            benchmark.run(settings);
    DeleteCriticalSection(&psui::csDriver);
    host::Close();
    return 0;
}
