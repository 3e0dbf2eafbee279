// The library's own work in calls with a cached model; the platform's share is counted apart.
#include <cstdio>
#include <map>

#include <winspool.h>

#include "bench/bench.h"
#include "host/host.h"
#include "psui/base/module.h"
#include "psui/entry/context.h"
#include "psui/entry/exports.h"
#include "psui/maindlg/settings_summary.h"

namespace bench {

namespace {

constexpr WORD kLastIndex = 36;
constexpr size_t kRecordSpace = 4096; // more than a settings record takes

std::u16string ProductFile(const char* name)
{
    return host::WindowsPath(std::string(PSUI_PRODUCT_DIR) + "/eng/" + name);
}

bool AddPrinter(const std::string& model)
{
    std::u16string name = TEXT("Bench"), environment = TEXT("Windows x64"), library = ProductFile("psui.dll"),
                   data = host::WindowsPath(model), port = TEXT("FILE:"), processor = TEXT("winprint"), none;
    DRIVER_INFO_3W driver = {};
    driver.cVersion = 3;
    driver.pName = name.data();
    driver.pEnvironment = environment.data();
    driver.pDriverPath = driver.pConfigFile = library.data();
    driver.pDataFile = data.data();
    PRINTER_INFO_2W printer = {};
    printer.pPrinterName = printer.pDriverName = name.data();
    printer.pPortName = port.data();
    printer.pPrintProcessor = processor.data();
    if (!AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&driver),
                             APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY))
        return false;
    HANDLE handle = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&printer));
    return handle && ClosePrinter(handle);
}

// What reading the clock around a platform call costs its caller, in microseconds: it is no work of the
// library's.
double ProfileCost()
{
    constexpr int kBatches = 101, kCalls = 1000; // most batches run without being interrupted
    std::vector<double> costs;
    for (int batch = 0; batch < kBatches; ++batch) {
        host::StartProfile();
        const auto start = std::chrono::steady_clock::now();
        for (int i = 0; i < kCalls; ++i)
            GetProcessHeap();
        const auto end = std::chrono::steady_clock::now();
        const host::Profile profile = host::StopProfile();
        costs.push_back((std::chrono::duration<double, std::micro>(end - start).count() -
                         static_cast<double>(profile.nanoseconds) / 1000) /
                        kCalls);
    }
    std::nth_element(costs.begin(), costs.begin() + kBatches / 2, costs.end());
    return costs[kBatches / 2];
}

struct CallFigure
{
    double own = 0;                        ///< median, microseconds
    std::map<std::string, uint64_t> calls; ///< platform calls of one round, by name
};

template <typename Call>
CallFigure Measure(double profileCost, const Call& call)
{
    constexpr int kRounds = 200;
    CallFigure figure;
    std::vector<double> own;
    for (int round = 0; round < kRounds; ++round) {
        host::StartProfile();
        const auto start = std::chrono::steady_clock::now();
        call();
        const auto end = std::chrono::steady_clock::now();
        const host::Profile profile = host::StopProfile();
        own.push_back(std::chrono::duration<double, std::micro>(end - start).count() -
                      static_cast<double>(profile.nanoseconds) / 1000 -
                      static_cast<double>(CallsOf(profile)) * profileCost);
        if (round == 0)
            for (const host::CallCount& counted : profile.calls)
                figure.calls[counted.name] = counted.count;
    }
    std::nth_element(own.begin(), own.begin() + kRounds / 2, own.end());
    figure.own = own[kRounds / 2];
    return figure;
}

void PrintCalls(const std::map<std::string, uint64_t>& calls)
{
    for (const auto& [name, count] : calls)
        std::printf(" %s %llu", name.c_str(), static_cast<unsigned long long>(count));
    std::printf("\n");
}

void MeasureCapabilities(HMODULE library, HANDLE printer, double profileCost)
{
    const auto capabilities = reinterpret_cast<psui::DrvDeviceCapabilitiesFn>(
        reinterpret_cast<void*>(GetProcAddress(library, "DrvDeviceCapabilities")));
    std::u16string device = TEXT("Bench");
    std::vector<BYTE> output(1 << 20);
    CallFigure worst;
    WORD worstIndex = 0;
    std::map<std::string, uint64_t> most;
    for (WORD index = 1; index <= kLastIndex; ++index) {
        CallFigure figure = Measure(
            profileCost, [&] { capabilities(printer, device.data(), index, output.data(), nullptr); });
        for (const auto& [name, count] : figure.calls)
            most[name] = std::max(most[name], count);
        if (figure.own > worst.own) {
            worst = std::move(figure);
            worstIndex = index;
        }
    }
    PrintFigure("own work of the slowest index (" + std::to_string(worstIndex) + ")", worst.own, "us", 5,
                false);
    std::printf("  platform calls, most that any index makes:");
    PrintCalls(most);
}

// What an application gets back for the record that it hands in.
void MeasureMerge(HMODULE library, HANDLE printer, double profileCost)
{
    const auto documentProperties = reinterpret_cast<psui::DrvDocumentPropertiesFn>(
        reinterpret_cast<void*>(GetProcAddress(library, "DrvDocumentProperties")));
    std::u16string device = TEXT("Bench");
    std::vector<BYTE> in(kRecordSpace), out(kRecordSpace);
    const auto merge = [&](std::vector<BYTE>& to, std::vector<BYTE>* from) {
        return documentProperties(nullptr, printer, device.data(), reinterpret_cast<DEVMODEW*>(to.data()),
                                  from ? reinterpret_cast<DEVMODEW*>(from->data()) : nullptr,
                                  from ? DM_OUT_BUFFER | DM_IN_BUFFER : DM_OUT_BUFFER);
    };
    if (merge(in, nullptr) < 0) {
        std::printf("  no record to merge\n");
        return;
    }
    const CallFigure figure = Measure(profileCost, [&] { merge(out, &in); });
    PrintFigure("own work of merging a record", figure.own, "us", 10, false);
    std::printf("  platform calls:");
    PrintCalls(figure.calls);
}

// A document sheet from its first call to its last, with a common UI that takes every page.
void MeasureSheet(HMODULE library, HANDLE printer, double profileCost)
{
    const auto sheet = reinterpret_cast<psui::DrvDocumentPropertySheetsFn>(
        reinterpret_cast<void*>(GetProcAddress(library, "DrvDocumentPropertySheets")));
    psui::DocumentPropertyHeader header = {};
    header.cbSize = sizeof(header);
    header.hPrinter = printer;
    psui::PropSheetUiInfo info = {};
    info.lParamInit = reinterpret_cast<LPARAM>(&header);
    info.pfnComPropSheet = [](HANDLE, UINT, LPARAM, LPARAM) -> LONG_PTR { return 1; };
    const CallFigure figure = Measure(profileCost, [&] {
        info.Reason = psui::kSheetInitialise;
        if (sheet(&info, 0) < 0)
            std::printf("  no sheet\n");
        info.Reason = psui::kSheetDestroy;
        sheet(&info, 0);
    });
    PrintFigure("own work of opening a sheet", figure.own, "us", 2000, false);
    std::printf("  platform calls:");
    PrintCalls(figure.calls);
}

// The settings summary of the printer's defaults, with the strings that the platform loads for it.
void MeasureSummary(HANDLE printer, double profileCost)
{
    psui::hLangModule = LoadLibraryW(ProductFile("VMLANG.DLL").c_str());
    const psui::ContextPtr context(psui::CreatePrinterUiContext(printer, nullptr));
    std::vector<WCHAR> text(psui::kSummaryUnits);
    const auto build = [&] {
        psui::TextCursor cursor = {text.data(), psui::kSummaryUnits};
        psui::BuildSettingsSummary(context.get(), cursor);
    };
    if (context) {
        PrintFigure("own work of the summary text", Measure(profileCost, build).own, "us", 200, false);
        PrintFigure("summary text with its strings", MedianMicroseconds(200, build), "us", 200, false);
    }
    FreeLibrary(psui::hLangModule);
    psui::hLangModule = nullptr;
}

} // namespace

uint64_t CallsOf(const host::Profile& profile)
{
    uint64_t sum = 0;
    for (const host::CallCount& call : profile.calls)
        sum += call.count;
    return sum;
}

Stage::Stage(const Settings& settings) : library(LoadLibraryW(ProductFile("psui.dll").c_str()))
{
    std::string model;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(PSUI_SOURCE_DIR) / "models"))
        if (entry.path().extension() == ".ppd" &&
            (model.empty() || entry.file_size() > std::filesystem::file_size(model)))
            model = entry.path();
    const std::filesystem::path copy = settings.scratch / std::filesystem::path(model).filename();
    std::filesystem::copy_file(model, copy, std::filesystem::copy_options::overwrite_existing);
    std::u16string name = TEXT("Bench");
    if (library == nullptr || (!OpenPrinterW(name.data(), &printer, nullptr) &&
                               (!AddPrinter(copy) || !OpenPrinterW(name.data(), &printer, nullptr))))
        std::printf("  the printer cannot be set up (error %u)\n", GetLastError());
    profileCost = ProfileCost();
}

Stage::~Stage()
{
    ClosePrinter(printer);
    FreeLibrary(library);
}

void BenchCapabilities(const Settings& settings)
{
    std::printf("Calls: one each with a cached model, through the loaded library\n");
    const Stage stage(settings);
    if (!stage.printer)
        return;
    std::printf("  (%.0f ns for each platform call are the profile's own and left out)\n",
                stage.profileCost * 1000);
    MeasureCapabilities(stage.library, stage.printer, stage.profileCost);
    MeasureMerge(stage.library, stage.printer, stage.profileCost);
    MeasureSheet(stage.library, stage.printer, stage.profileCost);
    MeasureSummary(stage.printer, stage.profileCost);
}

} // namespace bench
