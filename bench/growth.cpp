// Cost for each statement, constraint and option as a description grows, end to end: reading, compiling,
// packing and writing the image.
#include <cstdio>
#include <fstream>

#include "bench/bench.h"
#include "host/host.h"
#include "psui/model/image.h"

namespace bench {

namespace {

struct Kind
{
    const char* what;
    std::string (*generate)(int count);
    int largest; ///< the format holds no more of them
};

const std::string kHead = "*FileVersion: \"1.0\"\r\n*NickName: \"Generated\"\r\n";

// Statements of many kinds: features with four options and a default each.
std::string Statements(int count)
{
    std::string text = kHead;
    for (int i = 0; i < count; i += 8) {
        const std::string f = "Feature" + std::to_string(i / 8);
        text +=
            "*OpenUI *" + f + "/Feature " + std::to_string(i / 8) + ": PickOne\r\n*Default" + f + ": B\r\n";
        for (const char* option : {"A", "B", "C", "D"})
            text += "*" + f + " " + option + "/Choice " + option + ": \"(" + option + ") setfeature\"\r\n";
        text += "*CloseUI: *" + f + "\r\n*SomeUnknownKeyword: \"ignored value\"\r\n";
    }
    return text;
}

std::string Options(int count)
{
    std::string text = kHead + "*OpenUI *Finish/Finishing: PickOne\r\n*DefaultFinish: Choice7\r\n";
    for (int i = 0; i < count; ++i)
        text += "*Finish Choice" + std::to_string(i) + "/Choice " + std::to_string(i) +
                ": \"(choice) setfinish\"\r\n";
    return text + "*CloseUI: *Finish\r\n";
}

// Constraints among a fixed set of features, so that only their number grows.
std::string Constraints(int count)
{
    constexpr int kFeatures = 100;
    std::string text = kHead;
    for (int f = 0; f < kFeatures; ++f) {
        const std::string name = "Feature" + std::to_string(f);
        text += "*OpenUI *" + name + ": PickOne\r\n";
        for (int o = 0; o < 8; ++o)
            text += "*" + name + " O" + std::to_string(o) + ": \"code\"\r\n";
        text += "*CloseUI: *" + name + "\r\n";
    }
    for (int i = 0; i < count; ++i)
        text += "*UIConstraints: *Feature" + std::to_string(i % kFeatures) + " O" + std::to_string(i % 8) +
                " *Feature" + std::to_string((i / kFeatures) % kFeatures) + " O" + std::to_string(i / 3 % 8) +
                "\r\n";
    return text;
}

constexpr Kind kKinds[] = {
    {"statements", Statements, 1'000'000},
    {"options of one feature", Options, 1'000'000},
    {"constraints", Constraints, 60'000},
};

double MicrosecondsEach(const Settings& settings, const Kind& kind, int count)
{
    const std::filesystem::path text = settings.scratch / "growth.ppd";
    const std::filesystem::path image = settings.scratch / "growth.BDD";
    std::ofstream(text, std::ios::binary) << kind.generate(count);
    const std::u16string path = host::WindowsPath(text);
    bool loaded = true;
    const int repetitions = std::clamp(2'000'000 / count, settings.quick ? 3 : 5, 201);
    const double all = MedianMicroseconds(
        repetitions, [&] { std::filesystem::remove(image); },
        [&] {
            psui::ModelDescription* model = psui::LoadModelDescription(path.c_str());
            loaded = loaded && model;
            psui::FreeModelDescription(model);
        });
    if (!loaded)
        std::printf("  %d %s do not compile\n", count, kind.what);
    std::filesystem::remove(image);
    std::filesystem::remove(text);
    return all / count;
}

} // namespace

void BenchGrowth(const Settings& settings)
{
    std::printf("Growth: microseconds for each item, end to end\n");
    for (const Kind& kind : kKinds) {
        const double first = MicrosecondsEach(settings, kind, 1000);
        std::printf("  %-24s %9d: %.3f", kind.what, 1000, first);
        double worst = first;
        for (int count = 10'000; count <= kind.largest; count *= 10) {
            const double each = MicrosecondsEach(settings, kind, count);
            std::printf("   %d: %.3f", count, each);
            worst = std::max(worst, each);
        }
        if (kind.largest % 1000'000) {
            const double each = MicrosecondsEach(settings, kind, kind.largest);
            std::printf("   %d: %.3f", kind.largest, each);
            worst = std::max(worst, each);
        }
        std::printf("\n");
        PrintFigure(std::string(kind.what) + ": largest against 1000", worst / first, "x", 1.3, false);
    }
}

} // namespace bench
