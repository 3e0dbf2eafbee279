#pragma once
// A printer of the world whose driver's data file is a model text of the test's own.
#include <cctype>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <windows.h>
#include <winspool.h>

#include "host/host.h"

namespace test {

inline void WriteNative(const std::string& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary | std::ios::trunc).write(bytes.data(), bytes.size());
}

class Printer
{
public:
    Printer(std::u16string name, std::string_view modelText, DEVMODEW* stored = nullptr)
        : name_(std::move(name))
    {
        const std::string source = host::RootFolder() + "/drive_c/" + FileStem() + ".ppd";
        WriteNative(source, modelText);
        Install(host::WindowsPath(source), stored);
        EXPECT_TRUE(OpenPrinterW(name_.data(), &handle_, nullptr));
    }
    ~Printer()
    {
        if (handle_)
            ClosePrinter(handle_);
    }
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;

    HANDLE handle() const { return handle_; }
    WCHAR* name() { return name_.data(); }

    /// The machine's name of the data file that the spooler keeps for the driver.
    std::string DataFile() const
    {
        alignas(8) BYTE info[4096];
        DWORD needed = 0;
        if (!GetPrinterDriverW(handle_, nullptr, 2, info, sizeof(info), &needed))
            return {};
        return host::NativePath(reinterpret_cast<DRIVER_INFO_2W*>(info)->pDataFile);
    }

    /// Replaces the text; its time moves on, so that an image of the old one is stale.
    void ReplaceModel(std::string_view text) const
    {
        namespace fs = std::filesystem;
        const std::string next = DataFile() + ".new";
        const auto time = fs::last_write_time(DataFile());
        WriteNative(next, text);
        fs::last_write_time(next, time + std::chrono::seconds(10));
        fs::rename(next, DataFile());
    }

private:
    /// What file names may have of the printer's name.
    std::string FileStem() const
    {
        std::string stem;
        for (const WCHAR c : name_.substr(0, 40))
            if (c < 0x80 && std::isalnum(static_cast<int>(c)))
                stem += static_cast<char>(c);
        return stem;
    }

    void Install(std::u16string dataFile, DEVMODEW* stored)
    {
        std::u16string environment = TEXT("Windows x64"), port = TEXT("FILE:"), processor = TEXT("raw");
        std::u16string library = host::WindowsPath(std::string(PSUI_PRODUCT_DIR) + "/eng/psui.dll");
        DRIVER_INFO_3W driver = {};
        driver.cVersion = 3;
        driver.pName = name_.data();
        driver.pEnvironment = environment.data();
        driver.pDriverPath = driver.pConfigFile = library.data();
        driver.pDataFile = dataFile.data();
        ASSERT_TRUE(AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&driver),
                                        APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY))
            << GetLastError();
        PRINTER_INFO_2W printer = {};
        printer.pPrinterName = printer.pDriverName = name_.data();
        printer.pPortName = port.data();
        printer.pPrintProcessor = processor.data();
        printer.pDevMode = stored;
        HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&printer));
        ASSERT_NE(added, nullptr) << GetLastError();
        ClosePrinter(added);
    }

    std::u16string name_;
    HANDLE handle_ = nullptr;
};

} // namespace test
