#pragma once
// A world with a printer, a status monitor of a chosen version and its settings files.
#include <filesystem>
#include <map>
#include <string>

#include <gtest/gtest.h>
#include <windows.h>

#include "host/host.h"
#include "psui/base/module.h"
#include "psui/events/status_monitor.h"
#include "psui/settings/record.h"
#include "tests/entry/printer.h"
#include "tests/settings/support.h"

namespace test {

/// Keys and values of one section, also from a text such as u"Set=10,3 Bits=0x104".
struct Section : std::map<std::u16string, std::u16string>
{
    using map::map;
    Section(const char16_t* text)
    {
        for (std::u16string_view rest = text; !rest.empty();) {
            const std::u16string_view entry = rest.substr(0, rest.find(u' '));
            const size_t equals = entry.find(u'=');
            (*this)[std::u16string(entry.substr(0, equals))] = entry.substr(equals + 1);
            rest.remove_prefix(std::min(rest.size(), entry.size() + 1));
        }
    }
};

/// A settings file of any program.
class Profile
{
public:
    explicit Profile(std::u16string path) : path_(std::move(path)) {}

    Section Read(const std::u16string& section) const
    {
        Section values;
        std::u16string lines(8192, u'\0');
        lines.resize(GetPrivateProfileSectionW(section.c_str(), lines.data(), 8192, path_.c_str()));
        for (size_t at = 0; at < lines.size(); at = lines.find(u'\0', at) + 1) {
            const std::u16string line = lines.c_str() + at;
            values[line.substr(0, line.find(u'='))] = line.substr(line.find(u'=') + 1);
        }
        return values;
    }

    void Write(const std::u16string& section, const Section& values) const
    {
        for (const auto& [key, value] : values)
            ASSERT_TRUE(
                WritePrivateProfileStringW(section.c_str(), key.c_str(), value.c_str(), path_.c_str()));
    }

    void Replace(std::string_view bytes) const { WriteNative(host::NativePath(path_), bytes); }

    std::string Bytes() const
    {
        std::ifstream file(host::NativePath(path_), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

private:
    std::u16string path_;
};

constexpr char16_t kMonitorKey[] = u"Software\\Velmora\\PrtDrv";
const std::u16string kWindowsFolder = u"C:\\windows";
const std::u16string kSystemFolder = kWindowsFolder + u"\\system32";
const std::u16string kDriverFolder = kSystemFolder + u"\\spool\\drivers\\x64";

class MonitorWorld
{
public:
    explicit MonitorWorld(const std::u16string& monitorVersion = u"3.10") : printer_(u"P1", kEmptyModel)
    {
        namespace fs = std::filesystem;
        const std::string folder = host::RootFolder() + "/drive_c/driver";
        fs::create_directory(folder);
        fs::copy_file(std::string(PSUI_PRODUCT_DIR) + "/eng/VMLANG.DLL", folder + "/psui.dll");
        WriteNative(host::NativePath(kDriverFolder + u"\\3\\LODESTAT.EXE"), "the program that is started");
        psui::hOwnModule = LoadLibraryW(TEXT("C:\\driver\\psui.dll"));
        EXPECT_NE(psui::hOwnModule, nullptr);
        if (!monitorVersion.empty())
            SetRegistryText(HKEY_CURRENT_USER, kMonitorKey, u"Lodestat", monitorVersion);
        fs::create_directories(host::NativePath(DataFolder()));
        psui::BuildDefaultDevMode(&record, u"P1", Model(kEmptyModel), true);
        record.dmPrivate.bStatusMonitor = 1;
        DWORD needed = 0;
        EXPECT_TRUE(GetPrinterW(handle(), 2, info_, sizeof(info_), &needed));
        host::ClearRecorded();
    }
    ~MonitorWorld()
    {
        FreeLibrary(psui::hOwnModule);
        psui::hOwnModule = nullptr;
    }
    MonitorWorld(const MonitorWorld&) = delete;
    MonitorWorld& operator=(const MonitorWorld&) = delete;

    /// Puts the monitor's program beside the library.
    static void InstallProgram(const std::string& version)
    {
        std::filesystem::copy_file(std::string(PSUI_LODESTAT_DIR) + "/lodestat_" + version + "/LODESTAT.EXE",
                                   host::RootFolder() + "/drive_c/driver/LODESTAT.EXE");
    }

    static std::u16string DataFolder() { return u"C:\\users\\user\\AppData\\Roaming\\Velmora\\PrtDrv"; }

    Profile Shared() const { return Profile(DataFolder() + u"\\lodestat.ini"); }

    /// The model's own settings file, beside the data file.
    static Profile OfModel() { return Profile(kDriverFolder + u"\\3\\P1.INI"); }

    void SetProcessor(const WCHAR* processor) { Info()->pPrintProcessor = const_cast<WCHAR*>(processor); }

    /// What the spooler said of the printer, level 2.
    PRINTER_INFO_2W* Info() { return reinterpret_cast<PRINTER_INFO_2W*>(info_); }

    void Sync() { psui::SyncStatusMonitorIni(handle(), &record, Info()); }

    void Update() { psui::UpdateStatusMonitorIni(handle(), &record); }

    HANDLE handle() const { return printer_.handle(); }

    psui::DriverDevMode record;

private:
    World world_;
    Printer printer_;
    alignas(8) BYTE info_[8192];
};

/// Command lines of the programs that were started.
inline std::vector<std::u16string> Launches()
{
    std::vector<std::u16string> commands;
    for (const host::Event& event : host::Recorded())
        if (event.kind == "launch")
            commands.push_back(event.text);
    return commands;
}

} // namespace test
