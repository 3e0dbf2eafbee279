// The library among its neighbours: loading, the caller's process, failing memory, many threads.
#include <atomic>
#include <cfenv>
#include <thread>
#include <vector>

#include "tests/entry/fail_each.h"
#include "tests/entry/library.h"
#include "tests/settings/support.h"

namespace {

using namespace psui;
using namespace test;

TEST(Library, StaysLoadedAndKeepsItsLanguageUntilTheProcessEnds)
{
    OpenWorld world;
    const std::u16string path = ProductFile("jpn/psui.dll");
    EXPECT_EQ(GetModuleHandleW(path.c_str()), nullptr);
    {
        const Library library("jpn");
        EXPECT_TRUE(FreeLibrary(library.module));
    }
    EXPECT_NE(GetModuleHandleW(path.c_str()), nullptr);
    EXPECT_NE(GetModuleHandleW(ProductFile("jpn/VMLANG.DLL").c_str()), nullptr);
    const Library again("jpn");
    Printer printer(u"Alpha", kFullModel);
    EXPECT_EQ(again.Ask(printer, DC_MEDIATYPENAMES), 8u);
}

TEST(Library, WorksWithoutItsLanguageModule)
{
    OpenWorld world;
    const std::string copy = host::RootFolder() + "/drive_c/alone.dll";
    std::filesystem::copy_file(std::string(PSUI_PRODUCT_DIR) + "/eng/psui.dll", copy);
    const Library library(host::WindowsPath(copy));
    Printer printer(u"Alpha", kFullModel);
    WCHAR names[5][64];
    EXPECT_EQ(library.Ask(printer, DC_PAPERNAMES, names), 5u);
    EXPECT_EQ(names[0][0], 0);
}

TEST(Library, GivesBackEverythingItTookWhenTheWorldCloses)
{
    std::string error;
    ASSERT_TRUE(host::Open({.root = ":memory:"}, &error)) << error;
    const Library library;
    {
        Printer printer(u"Alpha", kFullModel);
        EXPECT_EQ(library.Ask(printer, DC_COPIES), 999u);
        const host::Ledger before = host::OpenObjects();
        for (WORD capability = 0; capability < 40; ++capability)
            library.Ask(printer, capability);
        library.DefaultRecord(printer.name());
        EXPECT_EQ(host::OpenObjects(), before);
    }
    host::Close();
    EXPECT_EQ(host::OpenObjects().criticalSections, 0);
    EXPECT_EQ(host::OpenObjects().blocks, 0);
}

/// Rounding mode and exception flags.
std::pair<int, int> FloatState()
{
    return {std::fegetround(), std::fetestexcept(FE_ALL_EXCEPT)};
}

TEST(Library, LeavesTheCallersFloatingPointAsItWas)
{
    OpenWorld world;
    const Library library;
    Printer printer(u"Alpha", kFullModel);
    std::vector<BYTE> output(1 << 16), reference(1 << 16);
    ASSERT_EQ(library.Ask(printer, DC_PAPERSIZE, reference.data()), 5u);
    std::fesetround(FE_UPWARD);
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(FE_DIVBYZERO);
    const auto before = FloatState();
    for (WORD capability = 0; capability < 40; ++capability) {
        library.Ask(printer, capability, output.data());
        EXPECT_EQ(before, FloatState()) << capability;
        if (capability == DC_PAPERSIZE) {
            EXPECT_EQ(output, reference) << "the caller's rounding changes the sizes";
            std::fill(output.begin(), output.end(), BYTE{0});
        }
    }
    alignas(8) DriverDevMode record, source = {};
    SetAll(source, "dmSpecVersion=0x0401 dmSize=220 dmDriverExtra=1632");
    for (DWORD mode : {4, 1, 2, 0}) {
        LONG size = sizeof(record);
        library.convert(printer.name(), &source.dmPublic, &record.dmPublic, &size, mode);
        EXPECT_EQ(before, FloatState()) << "mode " << mode;
    }
    std::fesetround(FE_TONEAREST);
}

TEST(Library, AnswersOrFailsCleanlyWhenMemoryFails)
{
    OpenWorld world;
    const Library library;
    Printer printer(u"Alpha", kFullModel);
    library.Ask(printer, DC_COPIES);
    DWORD answer = 0;
    for (const WORD capability : {DC_COPIES, DC_PAPERNAMES, DC_MEDIATYPENAMES}) {
        const auto ask = [&] { answer = library.Ask(printer, capability); };
        ask();
        const DWORD right = answer;
        for (const Requests& requests : {kAllocations, kAllocationsOnwards})
            FailEach(
                requests, [] {}, ask,
                [&](bool failed) { EXPECT_TRUE(answer == right || (failed && answer == kFailed)); });
    }

    alignas(8) DriverDevMode record;
    const DriverDevMode reference = library.DefaultRecord(printer.name());
    BOOL converted = FALSE;
    const auto convert = [&] {
        LONG size = sizeof(record);
        converted = library.convert(printer.name(), nullptr, &record.dmPublic, &size, kDriverDefault);
    };
    const std::string image = printer.DataFile().substr(0, printer.DataFile().size() - 3) + "BDD";
    const auto removeImage = [&] { std::filesystem::remove(image); }; // so that every call compiles the text
    for (const Requests& requests : {kAllocations, kAllocationsOnwards})
        FailEach(requests, removeImage, convert, [&](bool failed) {
            EXPECT_TRUE(converted ? std::memcmp(&record, &reference, sizeof(record)) == 0 : failed);
        });
}

TEST(LibraryThreads, ServeTwoPrintersWhoseModelsAreReplaced)
{
    constexpr int kThreads = 16;
    constexpr int kRounds = 30;
    OpenWorld world;
    const Library library;
    const std::string texts[2][2] = {{"*PrintRatePPM: \"10\"\n", "*PrintRatePPM: \"11\"\n"},
                                     {"*PrintRatePPM: \"20\"\n", "*PrintRatePPM: \"21\"\n"}};
    Printer first(u"Alpha", texts[0][0]), second(u"Beta", texts[1][0]);
    Printer* printers[2] = {&first, &second};
    std::atomic<int> wrong = 0;

    const auto work = [&](int thread) {
        const int which = thread % 2;
        Printer& printer = *printers[which];
        for (int round = 0; round < kRounds; ++round) {
            if (thread < 2)
                printer.ReplaceModel(texts[which][round % 2]);
            const DWORD rate = library.Ask(printer, DC_PRINTRATE);
            wrong += rate / 10 != static_cast<DWORD>(which + 1);
            alignas(8) DriverDevMode record;
            LONG size = sizeof(record);
            wrong += !library.convert(printer.name(), nullptr, &record.dmPublic, &size, kDriverDefault);
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back(work, i);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace
