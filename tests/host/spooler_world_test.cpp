// What only a machine's owner can see of the spooler: its files, damaged registry values, the ledger.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <windows.h>
#include <winreg.h>
#include <winspool.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "host/host.h"
#include "tests/host/last_error.h"
#include "tests/host/memory_world.h"

namespace {

namespace fs = std::filesystem;

constexpr const WCHAR* kDriver = TEXT("Test Driver");
constexpr const WCHAR* kPrinter = TEXT("Test Printer");
constexpr const WCHAR* kPrinterKey =
    TEXT("SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\Test Printer");

WCHAR* Name(const WCHAR* text)
{
    return const_cast<WCHAR*>(text);
}

class SpoolerWorld : public MemoryWorld
{
protected:
    void SetUp() override
    {
        MemoryWorld::SetUp();
        WriteSource("one");
    }

    static void WriteSource(const std::string& bytes)
    {
        std::ofstream(host::NativePath(u"C:\\windows\\temp\\T.DLL")) << bytes;
    }

    static fs::path Installed()
    {
        return host::NativePath(u"C:\\windows\\system32\\spool\\drivers\\x64\\3\\T.DLL");
    }

    static bool AddDriver()
    {
        WCHAR* file = Name(TEXT("C:\\windows\\temp\\T.DLL"));
        DRIVER_INFO_2W info = {3, Name(kDriver), nullptr, file, file, file};
        return AddPrinterDriverExW(nullptr, 2, reinterpret_cast<BYTE*>(&info),
                                   APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY);
    }

    static HANDLE AddPrinter()
    {
        EXPECT_TRUE(AddDriver()) << GetLastError();
        PRINTER_INFO_2W info = {};
        info.pPrinterName = Name(kPrinter);
        info.pPortName = Name(TEXT("USB001"));
        info.pDriverName = Name(kDriver);
        info.pPrintProcessor = Name(TEXT("MAKER PRINT"));
        HANDLE printer = AddPrinterW(nullptr, 2, reinterpret_cast<BYTE*>(&info));
        EXPECT_TRUE(printer) << GetLastError();
        return printer;
    }
};

ino_t FileNumber(const fs::path& path)
{
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 ? status.st_ino : 0;
}

std::string Contents(int file)
{
    char bytes[16];
    ssize_t size = pread(file, bytes, sizeof bytes, 0);
    return {bytes, static_cast<size_t>(std::max<ssize_t>(size, 0))};
}

TEST_F(SpoolerWorld, NeverChangesTheBytesOfAnInstalledFile)
{
    ASSERT_TRUE(AddDriver());
    ino_t first = FileNumber(Installed());
    int opened = open(Installed().c_str(), O_RDONLY);
    ASSERT_TRUE(AddDriver());
    EXPECT_EQ(first, FileNumber(Installed()));

    WriteSource("two");
    ASSERT_TRUE(AddDriver());
    EXPECT_NE(first, FileNumber(Installed()));
    EXPECT_EQ("one", Contents(opened));
    close(opened);
    for (const auto& entry : fs::directory_iterator(Installed().parent_path()))
        EXPECT_EQ("T.DLL", entry.path().filename());
}

TEST_F(SpoolerWorld, DeletesOnlyFilesThatNobodyElseUses)
{
    ASSERT_TRUE(AddDriver());
    WCHAR* file = Name(TEXT("T.DLL"));
    DRIVER_INFO_2W info = {3, Name(TEXT("Second")), nullptr, file, file, file};
    ASSERT_TRUE(AddPrinterDriverExW(nullptr, 2, reinterpret_cast<BYTE*>(&info), APD_COPY_ALL_FILES));
    EXPECT_TRUE(Fails(ERROR_PRINTER_DRIVER_IN_USE,
                      DeletePrinterDriverExW(nullptr, nullptr, Name(kDriver), DPD_DELETE_ALL_FILES, 0)));
    EXPECT_TRUE(DeletePrinterDriverExW(nullptr, nullptr, Name(kDriver), DPD_DELETE_UNUSED_FILES, 0));
    EXPECT_TRUE(fs::exists(Installed()));
    EXPECT_TRUE(DeletePrinterDriverExW(nullptr, nullptr, info.pName, DPD_DELETE_UNUSED_FILES, 0));
    EXPECT_FALSE(fs::exists(Installed()));
}

// Anybody may write into the registry; what a printer's values say is checked when it is read.
TEST_F(SpoolerWorld, ReadsDamagedPrintersAsFarAsTheyMakeSense)
{
    HANDLE printer = AddPrinter();
    HKEY key = nullptr;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_LOCAL_MACHINE, kPrinterKey, 0, KEY_ALL_ACCESS, &key));
    std::string devMode(sizeof(DEVMODEW) + 4, '\0');
    auto head = reinterpret_cast<DEVMODEW*>(devMode.data());
    struct Case
    {
        const WCHAR* value;
        DWORD type;
        std::string bytes;
    };
    auto sized = [&](WORD size, WORD extra, size_t length) {
        head->dmSize = size;
        head->dmDriverExtra = extra;
        return Case{TEXT("Default DevMode"), REG_BINARY, devMode.substr(0, length)};
    };
    Case cases[] = {
        {TEXT("Name"), REG_SZ, std::string("X\0Y\0", 4)},
        {TEXT("Port"), REG_BINARY, "???"},
        {TEXT("Description"), REG_SZ, "odd"},
        {TEXT("Attributes"), REG_DWORD, "123"},
        sized(sizeof(DEVMODEW), 5, devMode.size()),
        sized(65535, 65535, devMode.size()),
        sized(10, 0, devMode.size()),
        sized(sizeof(DEVMODEW), 0, 69),
    };
    for (const Case& c : cases) {
        ASSERT_EQ(ERROR_SUCCESS,
                  RegSetValueExW(key, c.value, 0, c.type, reinterpret_cast<const BYTE*>(c.bytes.data()),
                                 static_cast<DWORD>(c.bytes.size())));
        DWORD needed = 0;
        EXPECT_FALSE(GetPrinterW(printer, 2, nullptr, 0, &needed));
        std::vector<BYTE> buffer(needed);
        ASSERT_TRUE(GetPrinterW(printer, 2, buffer.data(), needed, &needed));
        auto info = reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data());
        EXPECT_EQ(std::u16string(kPrinter), info->pPrinterName);
        EXPECT_EQ(nullptr, info->pDevMode);
    }
    RegCloseKey(key);
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerWorld, MisreadsOnRequest)
{
    HANDLE printer = AddPrinter();
    BYTE bytes[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    WCHAR* name = Name(TEXT("V"));
    ASSERT_EQ(DWORD{ERROR_SUCCESS}, SetPrinterDataW(printer, name, REG_BINARY, bytes, 8));
    struct Case
    {
        host::Misread how;
        DWORD status;
        DWORD needed;
        DWORD type;
    } cases[] = {
        {host::Misread::Fail, ERROR_ACCESS_DENIED, 0, 0},
        {host::Misread::Grow, ERROR_MORE_DATA, 8 + 64, REG_BINARY},
        {host::Misread::TooSmall, ERROR_SUCCESS, 4, REG_BINARY},
        {host::Misread::Huge, ERROR_SUCCESS, 0xFFFFFFFF, REG_BINARY},
        {host::Misread::WrongType, ERROR_SUCCESS, 8, REG_SZ},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(int(c.how));
        DWORD needed = 0, type = 0;
        const auto get = [&] {
            needed = type = 0;
            return GetPrinterDataW(printer, name, &type, bytes, 8, &needed);
        };
        host::MisreadCalls(1, false, c.how);
        EXPECT_EQ(DWORD{ERROR_SUCCESS}, get()) << "only the second is told to";
        EXPECT_EQ(c.status, get());
        EXPECT_EQ(c.needed, needed);
        EXPECT_EQ(c.type, type);
        EXPECT_EQ(DWORD{ERROR_SUCCESS}, get());
        EXPECT_EQ(3u, host::ReadsSeen());
        host::StopFailing();
    }
    EXPECT_TRUE(ClosePrinter(printer));
}

TEST_F(SpoolerWorld, ServesManyThreads)
{
    ASSERT_TRUE(ClosePrinter(AddPrinter()));
    constexpr int kThreads = 4, kRounds = 20;
    auto work = [](int thread) {
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, PRINTER_ALL_ACCESS};
        for (int i = 0; i < kRounds; ++i) {
            HANDLE printer = nullptr;
            EXPECT_TRUE(OpenPrinterW(Name(kPrinter), &printer, &defaults));
            std::string text = "F" + std::to_string(thread) + "-" + std::to_string(i);
            std::u16string name(text.begin(), text.end());
            BYTE byte = static_cast<BYTE>(i);
            EXPECT_EQ(DWORD{ERROR_SUCCESS}, SetPrinterDataW(printer, name.data(), REG_BINARY, &byte, 1));
            FORM_INFO_1W form = {FORM_PRINTER, name.data(), {10, 10}, {0, 0, 10, 10}};
            EXPECT_TRUE(AddFormW(printer, 1, reinterpret_cast<BYTE*>(&form)));
            DWORD needed = 0, count = 0;
            EXPECT_FALSE(EnumFormsW(printer, 1, nullptr, 0, &needed, &count));
            EXPECT_TRUE(DeleteFormW(printer, name.data()));
            EXPECT_TRUE(ClosePrinter(printer));
        }
    };
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back(work, i);
    for (std::thread& thread : threads)
        thread.join();

    HANDLE printer = nullptr;
    ASSERT_TRUE(OpenPrinterW(Name(kPrinter), &printer, nullptr));
    DWORD nameNeeded = 0, dataNeeded = 0, type = 0;
    WCHAR name[16];
    BYTE byte;
    DWORD found = 0;
    while (EnumPrinterDataW(printer, found, name, sizeof name, &nameNeeded, &type, &byte, 1, &dataNeeded) ==
           ERROR_SUCCESS)
        ++found;
    EXPECT_EQ(DWORD{kThreads * kRounds}, found);
    EXPECT_TRUE(ClosePrinter(printer));
}

} // namespace
