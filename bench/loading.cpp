// Compiling and loading against opening the same file with the PPD library of CUPS, and against merely
// reading the files.
#include <cstdio>
#include <fstream>
#include <memory>

#include <cups/ppd.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "bench/bench.h"
#include "host/host.h"
#include "psui/model/image.h"

namespace bench {

namespace {

namespace fs = std::filesystem;

struct Sums
{
    int files = 0;
    double cups = 0;
    double compile = 0;
    double load = 0;
    double read = 0;
    double worstPeak = 0;
};

void ReadWhole(const fs::path& path)
{
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat info;
    fstat(file, &info);
    const std::unique_ptr<char[]> bytes(new char[static_cast<size_t>(info.st_size)]);
    if (read(file, bytes.get(), static_cast<size_t>(info.st_size)) != info.st_size)
        std::fprintf(stderr, "psui_bench: cannot read %s\n", path.c_str());
    close(file);
}

psui::ModelSource Load(const std::u16string& path)
{
    psui::ModelSource source;
    psui::FreeModelDescription(psui::LoadModelDescription(path.c_str(), &source));
    return source;
}

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
bool OpenWithCups(const fs::path& path)
{
    ppd_file_t* ppd = ppdOpenFile(path.c_str());
    ppdClose(ppd);
    return ppd != nullptr;
}
#pragma GCC diagnostic pop

// Copies of a text that have no image yet. Compiling needs a fresh one each time: where images were removed
// just before, the file system is slow to make new files.
std::vector<fs::path> FreshCopies(const fs::path& text, int count)
{
    static int folders = 0;
    const fs::path folder = text.parent_path() / ("copies" + std::to_string(folders++));
    fs::create_directory(folder);
    std::vector<fs::path> copies;
    for (int i = 0; i < count; ++i) {
        const fs::path copy = folder / std::to_string(i) / text.filename();
        fs::create_directory(copy.parent_path());
        fs::copy_file(text, copy);
        copies.push_back(copy);
    }
    return copies;
}

double PeakOfCompilation(const std::u16string& path)
{
    host::StartProfile();
    Load(path);
    return static_cast<double>(host::StopProfile().peakBytes);
}

// Times one file. Returns false when either side cannot take it.
bool MeasureFile(const fs::path& text, int repetitions, Sums& sums)
{
    const std::u16string path = host::WindowsPath(text);
    const fs::path image = fs::path(text).replace_extension("BDD");
    fs::remove(image);
    if (Load(path) != psui::ModelSource::Compiled || !OpenWithCups(text))
        return false;
    if (Load(path) != psui::ModelSource::Image) {
        std::printf("  %s has no usable FileVersion\n", text.filename().c_str());
        return false;
    }

    ++sums.files;
    sums.load += MedianMicroseconds(repetitions, [&] { Load(path); });
    sums.read += MedianMicroseconds(repetitions, [&] {
        ReadWhole(text);
        ReadWhole(image);
    });
    // Neither side finds a text in the processor's caches that it has just read.
    const std::vector<fs::path> copies = FreshCopies(text, 2 * repetitions + 1);
    auto copy = copies.begin();
    sums.compile += MedianMicroseconds(repetitions, [&] { Load(host::WindowsPath(*copy++)); });
    sums.cups += MedianMicroseconds(repetitions, [&] { OpenWithCups(*copy++); });
    sums.worstPeak = std::max(sums.worstPeak, PeakOfCompilation(host::WindowsPath(*copy)) /
                                                  static_cast<double>(fs::file_size(text)));
    return true;
}

// A description with every common kind of statement, `groups` times.
std::string GeneratedModel(int groups)
{
    std::string text =
        "*PPD-Adobe: \"4.3\"\r\n*FileVersion: \"1.0\"\r\n*FormatVersion: \"4.3\"\r\n"
        "*LanguageVersion: English\r\n*LanguageEncoding: ISOLatin1\r\n*PCFileName: \"G.PPD\"\r\n"
        "*Manufacturer: \"Velmora\"\r\n*Product: \"(Generated)\"\r\n*PSVersion: \"(3010) 1\"\r\n"
        "*ModelName: \"Generated\"\r\n*ShortNickName: \"Generated\"\r\n*NickName: \"Generated\"\r\n"
        "*DefaultPageSize: P0\r\n*DefaultPageRegion: P0\r\n*DefaultImageableArea: P0\r\n"
        "*DefaultPaperDimension: P0\r\n";
    text += "*OpenUI *PageSize/Paper size: PickOne\r\n";
    for (int i = 0; i < groups; ++i)
        text += "*PageSize P" + std::to_string(i) + "/Paper " + std::to_string(i) +
                ": \"<</PageSize [595 842]>> setpagedevice\"\r\n";
    text += "*CloseUI: *PageSize\r\n";
    for (int i = 0; i < groups; ++i) {
        const std::string n = std::to_string(i);
        text += "*PageRegion P" + n + "/Paper " + n + ": \"<</PageSize [595 842]>> setpagedevice\"\r\n";
        text += "*ImageableArea P" + n + "/Paper " + n + ": \"8.5 8.5 586.5 833.5\"\r\n";
        text += "*PaperDimension P" + n + "/Paper " + n + ": \"595 842\"\r\n";
    }
    for (int i = 0; i < groups; ++i) {
        const std::string f = "Feature" + std::to_string(i);
        text += "*OpenUI *" + f + "/Feature number " + std::to_string(i) + ": PickOne\r\n*Default" + f +
                ": A\r\n";
        for (const char* option : {"A", "B", "C", "D"})
            text += "*" + f + " " + option + "/Choice " + option + ": \"(" + option + ") setfeature\"\r\n";
        text += "*CloseUI: *" + f + "\r\n";
        text += "*UIConstraints: *" + f + " A *PageSize P" + std::to_string(i) + "\r\n";
        text += "*UIConstraints: *PageSize P" + std::to_string(i) + " *" + f + " A\r\n";
    }
    return text;
}

void PrintSums(const Sums& sums)
{
    PrintFigure("CUPS open / compile, pack and write", sums.cups / sums.compile, "x", 5, true);
    PrintFigure("CUPS open / load through a fresh image", sums.cups / sums.load, "x", 12, true);
    PrintFigure("load through a fresh image / reading both files", sums.load / sums.read, "x", 2.5, false);
    PrintFigure("peak memory of a compilation / text, worst file", sums.worstPeak, "x", 4, false);
    std::printf("  (sums over %d files: CUPS %.0f us, compile %.0f us, load %.0f us, read %.0f us)\n",
                sums.files, sums.cups, sums.compile, sums.load, sums.read);
}

void BenchCorpus(const Settings& settings, int repetitions)
{
    std::error_code error;
    if (!fs::is_directory(settings.corpus, error)) {
        std::printf("Loading: no files in %s (use --corpus DIR)\n", settings.corpus.c_str());
        return;
    }
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(settings.corpus))
        if (entry.path().extension() == ".ppd")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());

    Sums sums;
    int refused = 0;
    for (const fs::path& file : files) {
        const fs::path text = settings.scratch / file.filename();
        fs::copy_file(file, text, fs::copy_options::overwrite_existing);
        fs::permissions(text, fs::perms::owner_write, fs::perm_options::add);
        refused += MeasureFile(text, repetitions, sums) ? 0 : 1;
    }
    std::printf("Loading: %d files of %s, %d left out because one side refuses them\n", sums.files,
                fs::weakly_canonical(settings.corpus).c_str(), refused);
    if (sums.files)
        PrintSums(sums);
}

void BenchGenerated(const Settings& settings, int groups, int repetitions)
{
    const fs::path text = settings.scratch / "generated.ppd";
    std::ofstream(text, std::ios::binary) << GeneratedModel(groups);
    Sums sums;
    const bool taken = MeasureFile(text, repetitions, sums);
    std::printf("Loading: generated model of %d papers and features, %.0f KB%s\n", groups,
                static_cast<double>(fs::file_size(text)) / 1024, taken ? "" : ", refused");
    if (taken)
        PrintSums(sums);
}

} // namespace

void BenchLoading(const Settings& settings)
{
    const int repetitions = settings.quick ? 11 : 51;
    BenchCorpus(settings, repetitions);
    BenchGenerated(settings, 40, repetitions);
    BenchGenerated(settings, 400, settings.quick ? 3 : 11);
}

} // namespace bench
