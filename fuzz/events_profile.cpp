// The status monitor's settings file and the model's, as any program may have left them.
//
// Input: flags (below), a 16-bit length, that many bytes of the model's file, then the shared file.
#include <fstream>
#include <iterator>

#include "fuzz/settings_input.h"
#include "psui/events/status_monitor.h"
#include "tests/entry/printer.h"
#include "tests/settings/merge_checks.h"
#include "tests/settings/support.h"

namespace {

enum Flags : uint8_t
{
    kHubProcessor = 1,
    kOldLayout = 2,
};

test::Printer* printer;
const psui::ModelDescription* model;
std::string sharedFiles[2]; ///< of the new and of the old layout
std::string modelFile;

/// Lines of the file, 8-bit or UTF-16, that begin a section.
size_t CountSections(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    size_t sections = 0;
    bool lineBegins = true;
    for (std::istreambuf_iterator<char> byte(file), end; byte != end; ++byte) {
        sections += lineBegins && *byte == '[';
        if (*byte != 0 && *byte != ' ' && *byte != '\t')
            lineBegins = *byte == '\n' || *byte == '\r';
    }
    return sections;
}

void ChooseLayout(bool old)
{
    static int chosen = -1;
    if (chosen != old)
        test::SetRegistryText(HKEY_CURRENT_USER, u"Software\\Velmora\\PrtDrv", u"Lodestat",
                              old ? u"3.0" : u"3.1");
    chosen = old;
}

void CheckRecord(const psui::DriverDevMode& record)
{
    const int64_t poster = test::Get(record, "wPoster");
    fuzz::Require(poster >= 1 && poster <= 3, "poster");
    fuzz::Require(test::FieldOutOfRange(record).empty(), test::FieldOutOfRange(record));
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    fuzz::OpenWorld();
    printer = new test::Printer(u"P1", test::kFullModel);
    model = fuzz::CompileModel(test::kEmptyModel);
    psui::RegisterStatusMonitorPath();
    psui::PathText path;
    fuzz::Require(psui::StatusMonitorIniPath(path, false), "path of the settings file");
    sharedFiles[0] = host::NativePath(path);
    sharedFiles[1] = host::NativePath(u"C:\\windows\\lodestat.ini");
    modelFile = host::NativePath(u"C:\\windows\\system32\\spool\\drivers\\x64\\3\\P1.INI");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t length)
{
    fuzz::Input input(data, length);
    const uint8_t flags = input.Take<uint8_t>();
    const uint16_t modelBytes = input.Take<uint16_t>();
    const bool old = (flags & kOldLayout) != 0;
    ChooseLayout(old);
    test::WriteNative(modelFile, input.TakeBytes(modelBytes));
    test::WriteNative(sharedFiles[old], input.TakeRest());
    const size_t sections = CountSections(sharedFiles[old]);

    std::u16string name = u"P1", processor = (flags & kHubProcessor) ? u"VMHUB PRINT" : u"raw";
    PRINTER_INFO_2W info = {};
    info.pPrinterName = name.data();
    info.pPrintProcessor = processor.data();
    alignas(8) psui::DriverDevMode record = {};
    psui::BuildDefaultDevMode(&record, name.c_str(), model, true);
    test::SetAll(record, {{"bStatusMonitor", 1}, {"dmNup", 2}});
    psui::SyncStatusMonitorIni(printer->handle(), &record, &info);
    CheckRecord(record);
    psui::UpdateStatusMonitorIni(printer->handle(), &record);
    const uint32_t items = psui::ReadStatusMonitorItems(printer->handle(), &record);
    fuzz::Require((items & ~0x104u) == 0, "items");
    psui::WriteStatusMonitorItems(printer->handle(), &record, items ^ 4);
    fuzz::Require(CountSections(sharedFiles[old]) <= sections + 2, "a section came out of nowhere");
    return 0;
}
