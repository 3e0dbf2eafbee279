// The print spooler's client functions, on any system that has them. The printers of these tests use a driver
// made for them, because a spooler may load it.
#include <gtest/gtest.h>
#include <windows.h>
#include <winreg.h>
#include <winspool.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include "tests/host/last_error.h"
#include "tests/host/scratch.h"
#include "tests/host/wine.h"

namespace {

using Buffer = std::vector<BYTE>;

constexpr const WCHAR* kDriver = TEXT("Psui Probe Driver");
constexpr const WCHAR* kPrinter = TEXT("Psui Probe");
constexpr const WCHAR* kEnvironment = TEXT("Windows x64");
constexpr DWORD kCopy = APD_COPY_ALL_FILES | APD_COPY_FROM_DIRECTORY;

// Parameters that the platform only reads are not const in its headers.
WCHAR* Name(const WCHAR* text)
{
    return const_cast<WCHAR*>(text);
}

template <class Record>
BYTE* Bytes(Record& record)
{
    return reinterpret_cast<BYTE*>(&record);
}

Wide TemporaryPath(const WCHAR* fileName)
{
    WCHAR folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    return Wide(folder) + fileName;
}

// The two calls of every function that fills a buffer: the first must ask for more, and a buffer that is too
// small must stay as it is.
template <class Call>
Buffer Ask(Call call)
{
    DWORD needed = 0;
    EXPECT_TRUE(Fails(ERROR_INSUFFICIENT_BUFFER, call(nullptr, 0, &needed)));
    EXPECT_NE(0u, needed);
    Buffer buffer(needed, 0xAA);
    const Buffer untouched = buffer;
    EXPECT_TRUE(Fails(ERROR_INSUFFICIENT_BUFFER, call(buffer.data(), needed - 1, &needed)));
    EXPECT_EQ(buffer.size(), needed);
    EXPECT_TRUE(OnWine() || buffer == untouched);
    EXPECT_TRUE(call(buffer.data(), needed, &needed)) << GetLastError();
    return buffer;
}

bool Inside(const Buffer& buffer, const WCHAR* text)
{
    auto begin = reinterpret_cast<const WCHAR*>(buffer.data());
    auto end = begin + buffer.size() / sizeof(WCHAR);
    return text >= begin && text < end && std::char_traits<WCHAR>::find(text, end - text, WCHAR{0});
}

class Spooler : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        Write(TemporaryPath(TEXT("PROBE.DLL")), Read(BesideThisProgram(TEXT("spooler_probe_driver.dll"))));
        Write(TemporaryPath(TEXT("PROBE.DAT")), "data");
        Write(TemporaryPath(TEXT("PROBE.HLP")), "help");
        ASSERT_TRUE(AddDriver()) << GetLastError();
    }

    static void TearDownTestSuite()
    {
        EXPECT_TRUE(DeletePrinterDriverExW(nullptr, Name(kEnvironment), Name(kDriver),
                                           OnWine() ? 0 : DPD_DELETE_UNUSED_FILES, 0))
            << GetLastError();
        for (const WCHAR* file : {TEXT("PROBE.DLL"), TEXT("PROBE.DAT"), TEXT("PROBE.HLP")})
            DeleteFileW(TemporaryPath(file).c_str());
    }

    void SetUp() override
    {
        PRINTER_INFO_2W info = Info();
        printer = AddPrinterW(nullptr, 2, Bytes(info));
        ASSERT_TRUE(printer) << GetLastError();
    }

    void TearDown() override
    {
        EXPECT_TRUE(DeletePrinter(printer)) << GetLastError();
        EXPECT_TRUE(ClosePrinter(printer));
    }

    static bool AddDriver()
    {
        Wide module = TemporaryPath(TEXT("PROBE.DLL"));
        Wide data = TemporaryPath(TEXT("PROBE.DAT"));
        Wide help = TemporaryPath(TEXT("PROBE.HLP"));
        Wide dependent = data + WCHAR{0} + help + WCHAR{0};
        DRIVER_INFO_3W info = {3,           Name(kDriver), Name(kEnvironment), module.data(),
                               data.data(), module.data(), help.data(),        dependent.data(),
                               nullptr,     nullptr};
        return AddPrinterDriverExW(nullptr, 3, Bytes(info), kCopy);
    }

    static PRINTER_INFO_2W Info()
    {
        PRINTER_INFO_2W info = {};
        info.pPrinterName = Name(kPrinter);
        info.pPortName = Name(TEXT("FILE:"));
        info.pDriverName = Name(kDriver);
        info.pPrintProcessor = Name(TEXT("winprint"));
        info.pDatatype = Name(TEXT("RAW"));
        info.pComment = Name(TEXT("A comment"));
        info.pLocation = Name(TEXT("A place"));
        return info;
    }

    static HANDLE Open(const WCHAR* name, ACCESS_MASK access)
    {
        PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
        HANDLE handle = nullptr;
        return OpenPrinterW(Name(name), &handle, access ? &defaults : nullptr) ? handle : nullptr;
    }

    DWORD SetData(const WCHAR* name, const std::string& bytes, DWORD type = REG_BINARY)
    {
        return SetPrinterDataW(printer, Name(name), type,
                               reinterpret_cast<BYTE*>(const_cast<char*>(bytes.data())),
                               static_cast<DWORD>(bytes.size()));
    }

    Buffer GetLevel2()
    {
        return Ask([&](BYTE* buffer, DWORD size, DWORD* needed) {
            return GetPrinterW(printer, 2, buffer, size, needed);
        });
    }

    HANDLE printer = nullptr;
};

// --- Opening ---

TEST_F(Spooler, OpensPrintersInAnyCaseAndTheServer)
{
    for (const WCHAR* name : {kPrinter, TEXT("PSUI PROBE"), static_cast<const WCHAR*>(nullptr)})
        EXPECT_TRUE(ClosePrinter(Open(name, 0)));
}

TEST_F(Spooler, RefusesNamesOfNoPrinter)
{
    const std::tuple<const char*, const WCHAR*, bool> cases[] = {
        {"nothing there", TEXT("No such printer"), true},
        {"another server", TEXT("\\\\elsewhere\\Psui Probe"), true},
        {"an empty name", TEXT(""), false},
        {"a closing backslash", TEXT("Psui Probe\\"), false},
    };
    for (const auto& [what, name, onWine] : cases) {
        if (OnWine() && !onWine)
            continue;
        EXPECT_TRUE(Fails(ERROR_INVALID_PRINTER_NAME, Open(name, 0))) << what;
    }
}

TEST_F(Spooler, AllowsWhatAHandleWasOpenedFor)
{
    if (OnWine())
        GTEST_SKIP() << "allows everything";
    const std::tuple<ACCESS_MASK, DWORD> cases[] = {
        {0, ERROR_ACCESS_DENIED},
        {PRINTER_ACCESS_USE, ERROR_ACCESS_DENIED},
        {GENERIC_READ, ERROR_ACCESS_DENIED},
        {PRINTER_ACCESS_ADMINISTER, ERROR_SUCCESS},
        {PRINTER_ALL_ACCESS, ERROR_SUCCESS},
        {GENERIC_ALL, ERROR_SUCCESS},
    };
    for (const auto& [access, status] : cases) {
        HANDLE handle = Open(kPrinter, access);
        ASSERT_TRUE(handle) << access;
        BYTE byte = 1;
        EXPECT_EQ(status, SetPrinterDataW(handle, Name(TEXT("V")), REG_BINARY, &byte, 1)) << access;
        EXPECT_EQ(status, DeletePrinterDataW(handle, Name(TEXT("V")))) << access;
        Buffer info = GetLevel2();
        EXPECT_EQ(status == ERROR_SUCCESS, SetPrinterW(handle, 2, info.data(), 0) != FALSE) << access;
        if (status != ERROR_SUCCESS) {
            EXPECT_FALSE(DeletePrinter(handle)) << access;
        }
        EXPECT_TRUE(ClosePrinter(handle));
    }
    EXPECT_TRUE(Fails(ERROR_ACCESS_DENIED, Open(kPrinter, SERVER_ACCESS_ADMINISTER)));
}

TEST_F(Spooler, RefusesHandlesThatAreNotOpen)
{
    HANDLE closed = Open(kPrinter, 0);
    ASSERT_TRUE(ClosePrinter(closed));
    for (HANDLE bad :
         {HANDLE(nullptr), closed, INVALID_HANDLE_VALUE, reinterpret_cast<HANDLE>(UINT_PTR{0xDEADBEE0})}) {
        BYTE bytes[8];
        DWORD needed = 0, count = 0;
        BOOL results[] = {
            GetPrinterW(bad, 2, bytes, 0, &needed),
            GetPrinterDriverW(bad, nullptr, 3, bytes, 0, &needed),
            EnumFormsW(bad, 1, bytes, 0, &needed, &count),
            DeleteFormW(bad, Name(TEXT("F"))),
            DeletePrinter(bad),
            ClosePrinter(bad),
        };
        for (BOOL result : results)
            EXPECT_TRUE(Fails(ERROR_INVALID_HANDLE, result));
        EXPECT_EQ(DWORD{ERROR_INVALID_HANDLE},
                  GetPrinterDataW(bad, Name(TEXT("V")), nullptr, bytes, 8, &needed));
        EXPECT_EQ(DWORD{ERROR_INVALID_HANDLE}, SetPrinterDataW(bad, Name(TEXT("V")), REG_BINARY, bytes, 8));
    }
}

// --- Printers ---

TEST_F(Spooler, DescribesAPrinterInsideTheCallersBuffer)
{
    Buffer buffer = GetLevel2();
    auto info = reinterpret_cast<const PRINTER_INFO_2W*>(buffer.data());
    PRINTER_INFO_2W given = Info();
    const std::tuple<const WCHAR*, const WCHAR*> cases[] = {
        {given.pPrinterName, info->pPrinterName}, {given.pPortName, info->pPortName},
        {given.pDriverName, info->pDriverName},   {given.pPrintProcessor, info->pPrintProcessor},
        {given.pDatatype, info->pDatatype},       {given.pComment, info->pComment},
        {given.pLocation, info->pLocation},
    };
    for (const auto& [expected, actual] : cases) {
        ASSERT_TRUE(Inside(buffer, actual));
        EXPECT_EQ(Wide(expected), Wide(actual));
    }
    EXPECT_TRUE(OnWine() || info->Attributes & PRINTER_ATTRIBUTE_LOCAL);
    EXPECT_EQ(nullptr, info->pServerName);
}

TEST_F(Spooler, KeepsBothPartsOfTheSettingsRecord)
{
    constexpr WORD kExtra = 16;
    Buffer record(sizeof(DEVMODEW) + kExtra, 0x5A);
    auto devMode = reinterpret_cast<DEVMODEW*>(record.data());
    memset(devMode, 0, sizeof *devMode);
    devMode->dmSpecVersion = DM_SPECVERSION;
    devMode->dmSize = sizeof(DEVMODEW);
    devMode->dmDriverExtra = kExtra;
    devMode->dmFields = DM_COPIES;
    devMode->dmCopies = 7;

    Buffer buffer = GetLevel2();
    auto info = reinterpret_cast<PRINTER_INFO_2W*>(buffer.data());
    info->pDevMode = devMode;
    info->pPortName = Name(TEXT("LPT1:"));
    ASSERT_TRUE(SetPrinterW(printer, 2, buffer.data(), 0)) << GetLastError();

    Buffer changed = GetLevel2();
    info = reinterpret_cast<PRINTER_INFO_2W*>(changed.data());
    EXPECT_EQ(Wide(TEXT("LPT1:")), Wide(info->pPortName));
    auto kept = reinterpret_cast<const BYTE*>(info->pDevMode);
    ASSERT_GE(kept, changed.data());
    ASSERT_LE(kept + record.size(), changed.data() + changed.size());
    EXPECT_EQ(7, info->pDevMode->dmCopies);
    EXPECT_EQ(0, memcmp(kept + sizeof(DEVMODEW), record.data() + sizeof(DEVMODEW), kExtra));
}

TEST_F(Spooler, RefusesPrintersItCannotMake)
{
    const std::tuple<LPWSTR PRINTER_INFO_2W::*, const WCHAR*, DWORD> cases[] = {
        {&PRINTER_INFO_2W::pDriverName, TEXT("None"),
         ERROR_UNKNOWN_PRINTER_DRIVER}, // the one that Wine refuses
        {&PRINTER_INFO_2W::pPrinterName, kPrinter, ERROR_PRINTER_ALREADY_EXISTS},
        {&PRINTER_INFO_2W::pPrinterName, TEXT(""), ERROR_INVALID_PRINTER_NAME},
        {&PRINTER_INFO_2W::pPrinterName, TEXT("a\\b"), ERROR_INVALID_PRINTER_NAME},
        {&PRINTER_INFO_2W::pDriverName, nullptr, ERROR_UNKNOWN_PRINTER_DRIVER},
        {&PRINTER_INFO_2W::pPortName, TEXT("FILE:,X"), ERROR_UNKNOWN_PORT},
        {&PRINTER_INFO_2W::pPrintProcessor, TEXT(""), ERROR_UNKNOWN_PRINTPROCESSOR},
    };
    for (const auto& [field, value, error] : cases) {
        PRINTER_INFO_2W info = Info();
        info.pPrinterName = Name(TEXT("Psui Probe 2"));
        info.*field = Name(value);
        EXPECT_TRUE(Fails(error, AddPrinterW(nullptr, 2, Bytes(info)))) << testing::PrintToString(value);
        if (OnWine())
            break;
    }
}

TEST_F(Spooler, ShowsAPrintersProcessorInTheRegistry)
{
    HKEY key = nullptr;
    Wide path = Wide(TEXT("SYSTEM\\CurrentControlSet\\Control\\Print\\Printers\\")) + kPrinter;
    ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, &key));
    WCHAR text[64] = {};
    DWORD size = sizeof text, type = 0;
    EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, TEXT("Print Processor"), nullptr, &type,
                                              reinterpret_cast<BYTE*>(text), &size));
    EXPECT_EQ(REG_SZ, type);
    EXPECT_EQ(Wide(TEXT("winprint")), text);
    RegCloseKey(key);
}

TEST_F(Spooler, ForgetsDeletedPrinters)
{
    PRINTER_INFO_2W info = Info();
    info.pPrinterName = Name(TEXT("Psui Probe 2"));
    HANDLE second = AddPrinterW(nullptr, 2, Bytes(info));
    ASSERT_TRUE(second);
    ASSERT_TRUE(DeletePrinter(second));
    DWORD needed = 0;
    EXPECT_FALSE(GetPrinterW(second, 2, nullptr, 0, &needed));
    EXPECT_NE(DWORD{ERROR_INSUFFICIENT_BUFFER}, GetLastError());
    EXPECT_TRUE(ClosePrinter(second));
    EXPECT_FALSE(Open(info.pPrinterName, 0));
}

// --- Printer data ---

TEST_F(Spooler, KeepsPrinterDataWithTheirType)
{
    const std::tuple<const WCHAR*, DWORD, std::string> cases[] = {
        {TEXT("Number"), REG_DWORD, std::string("\1\0\0\0", 4)},
        {TEXT("Block"), REG_BINARY, std::string(1908, 'b')},
        {TEXT("Text"), REG_SZ, std::string("A\0\0\0", 4)},
    };
    for (const auto& [name, type, bytes] : cases) {
        ASSERT_EQ(DWORD{ERROR_SUCCESS}, SetData(name, bytes, type));
        std::string found(bytes.size(), '?');
        DWORD foundType = 0, needed = 0;
        const auto get = [&](DWORD room) {
            return GetPrinterDataW(printer, Name(name), &foundType, room ? Bytes(found[0]) : nullptr, room,
                                   &needed);
        };
        const auto size = static_cast<DWORD>(bytes.size());
        for (const DWORD room : {DWORD{0}, size - 1, size}) {
            EXPECT_EQ(DWORD(room < size ? ERROR_MORE_DATA : ERROR_SUCCESS), get(room));
            EXPECT_EQ(size, needed);
        }
        EXPECT_EQ(type, foundType);
        EXPECT_EQ(bytes, found);
        if (OnWine())
            continue;
        EXPECT_EQ(DWORD{ERROR_SUCCESS}, DeletePrinterDataW(printer, Name(name)));
        EXPECT_EQ(DWORD{ERROR_FILE_NOT_FOUND}, get(size));
    }
    if (!OnWine()) {
        EXPECT_EQ(DWORD{ERROR_INVALID_PARAMETER}, SetData(nullptr, "x"));
    }
}

TEST_F(Spooler, EnumeratesPrinterDataWithBothSizes)
{
    if (OnWine())
        GTEST_SKIP() << "not implemented there";
    ASSERT_EQ(DWORD{ERROR_SUCCESS}, SetData(TEXT("First"), "1"));
    ASSERT_EQ(DWORD{ERROR_SUCCESS}, SetData(TEXT("2nd"), "22"));
    DWORD nameNeeded = 0, dataNeeded = 0, type = 0;
    EXPECT_EQ(DWORD{ERROR_SUCCESS},
              EnumPrinterDataW(printer, 0, nullptr, 0, &nameNeeded, nullptr, nullptr, 0, &dataNeeded));
    EXPECT_EQ(6 * sizeof(WCHAR), nameNeeded);
    EXPECT_EQ(2u, dataNeeded);

    WCHAR name[8];
    BYTE data[8];
    EXPECT_EQ(DWORD{ERROR_SUCCESS}, EnumPrinterDataW(printer, 1, name, sizeof name, &nameNeeded, &type, data,
                                                     sizeof data, &dataNeeded));
    EXPECT_EQ(Wide(TEXT("2nd")), Wide(name));
    EXPECT_EQ(4 * sizeof(WCHAR), nameNeeded);
    EXPECT_EQ(2u, dataNeeded);
    EXPECT_EQ(REG_BINARY, type);
    EXPECT_EQ(DWORD{ERROR_MORE_DATA},
              EnumPrinterDataW(printer, 1, name, 6, &nameNeeded, &type, data, 1, &dataNeeded));
    EXPECT_EQ(DWORD{ERROR_NO_MORE_ITEMS}, EnumPrinterDataW(printer, 2, name, sizeof name, &nameNeeded, &type,
                                                           data, sizeof data, &dataNeeded));
}

// --- Forms ---

struct Forms
{
    Buffer buffer;
    DWORD count = 0;

    explicit Forms(HANDLE handle)
    {
        buffer = Ask([&](BYTE* bytes, DWORD size, DWORD* needed) {
            return EnumFormsW(handle, 1, bytes, size, needed, &count);
        });
    }

    /// Null when there is no form of that name.
    const FORM_INFO_1W* Find(const WCHAR* name) const
    {
        auto first = reinterpret_cast<const FORM_INFO_1W*>(buffer.data());
        auto found = std::find_if(first, first + count,
                                  [&](const FORM_INFO_1W& form) { return Wide(form.pName) == name; });
        return found != first + count ? found : nullptr;
    }
};

TEST_F(Spooler, HasThePlatformsForms)
{
    const Forms forms(printer);
    const std::tuple<const WCHAR*, LONG, LONG> cases[] = {
        {TEXT("Letter"), 215900, 279400},   {TEXT("A4"), 210000, 297000},
        {TEXT("B5 (JIS)"), 182000, 257000}, {TEXT("Envelope #10"), 104775, 241300},
        {TEXT("Ledger"), 431800, 279400},   {TEXT("Japanese Postcard"), 100000, 148000},
    };
    for (const auto& [name, width, height] : cases) {
        const FORM_INFO_1W* const form = forms.Find(name);
        ASSERT_TRUE(form) << width;
        EXPECT_TRUE(Inside(forms.buffer, form->pName));
        EXPECT_EQ(DWORD{FORM_BUILTIN}, form->Flags);
        EXPECT_EQ(width, form->Size.cx);
        EXPECT_EQ(height, form->Size.cy);
        EXPECT_EQ(width, form->ImageableArea.right);
    }
}

FORM_INFO_1W MakeForm(const WCHAR* name, DWORD flags = FORM_PRINTER)
{
    return {flags, Name(name), {100000, 200000}, {1000, 2000, 99000, 198000}};
}

TEST_F(Spooler, AddsFormsForAllPrinters)
{
    if (OnWine())
        GTEST_SKIP() << "adds nothing";
    FORM_INFO_1W form = MakeForm(TEXT("Psui form"));
    ASSERT_TRUE(AddFormW(printer, 1, Bytes(form))) << GetLastError();
    EXPECT_TRUE(Fails(ERROR_FILE_EXISTS, AddFormW(printer, 1, Bytes(form))));

    HANDLE server = Open(nullptr, 0);
    const Forms forms(server);
    const FORM_INFO_1W* const read = forms.Find(form.pName);
    ASSERT_TRUE(read);
    EXPECT_EQ(DWORD{FORM_PRINTER}, read->Flags);
    EXPECT_EQ(0, memcmp(&form.Size, &read->Size, sizeof form.Size));
    EXPECT_EQ(0, memcmp(&form.ImageableArea, &read->ImageableArea, sizeof form.ImageableArea));

    EXPECT_TRUE(DeleteFormW(printer, form.pName));
    EXPECT_FALSE(Forms(server).Find(form.pName));
    EXPECT_TRUE(Fails(ERROR_INVALID_FORM_NAME, DeleteFormW(printer, form.pName)));
    EXPECT_TRUE(ClosePrinter(server));
}

TEST_F(Spooler, RefusesFormsThatCannotBe)
{
    if (OnWine())
        GTEST_SKIP() << "takes anything";
    const Wide longName(32, TEXT('f'));
    FORM_INFO_1W flat = MakeForm(TEXT("Psui flat"));
    flat.Size.cy = 0;
    FORM_INFO_1W outside = MakeForm(TEXT("Psui outside"));
    outside.ImageableArea.right = outside.Size.cx + 1;
    std::tuple<const char*, FORM_INFO_1W, DWORD> cases[] = {
        {"an empty name", MakeForm(TEXT("")), ERROR_INVALID_FORM_NAME},
        {"a long name", MakeForm(longName.c_str()), ERROR_INVALID_FORM_NAME},
        {"a built-in name", MakeForm(TEXT("a4")), ERROR_FILE_EXISTS},
        {"a built-in flag", MakeForm(TEXT("Psui form"), FORM_BUILTIN), ERROR_INVALID_PARAMETER},
        {"no height", flat, ERROR_INVALID_FORM_SIZE},
        {"an area outside", outside, ERROR_INVALID_FORM_SIZE},
    };
    for (auto& [what, form, error] : cases)
        EXPECT_TRUE(Fails(error, AddFormW(printer, 1, Bytes(form)))) << what;
    EXPECT_TRUE(Fails(ERROR_INVALID_PARAMETER, DeleteFormW(printer, Name(TEXT("A4")))));
}

// --- Drivers ---

TEST_F(Spooler, CopiesTheDriversFilesAndTellsWhere)
{
    DWORD needed = 0;
    WCHAR folder[MAX_PATH];
    ASSERT_TRUE(GetPrinterDriverDirectoryW(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(folder),
                                           sizeof folder, &needed));
    EXPECT_EQ((Wide(folder).size() + 1) * sizeof(WCHAR), needed);

    Buffer buffer = Ask([&](BYTE* bytes, DWORD size, DWORD* room) {
        return GetPrinterDriverW(printer, Name(kEnvironment), 3, bytes, size, room);
    });
    auto info = reinterpret_cast<const DRIVER_INFO_3W*>(buffer.data());
    EXPECT_EQ(3u, info->cVersion);
    EXPECT_EQ(Wide(kDriver), Wide(info->pName));
    EXPECT_EQ(Wide(kEnvironment), Wide(info->pEnvironment));
    const std::tuple<const WCHAR*, const WCHAR*> cases[] = {
        {info->pDriverPath, TEXT("PROBE.DLL")},
        {info->pConfigFile, TEXT("PROBE.DLL")},
        {info->pDataFile, TEXT("PROBE.DAT")},
        {info->pHelpFile, TEXT("PROBE.HLP")},
    };
    for (const auto& [path, name] : cases) {
        ASSERT_TRUE(Inside(buffer, path));
        EXPECT_EQ(0, lstrcmpiW((Wide(folder) + TEXT("\\3\\") + name).c_str(), path));
        EXPECT_NE(INVALID_FILE_ATTRIBUTES, GetFileAttributesW(path));
    }
    EXPECT_EQ("data", Read(info->pDataFile));

    const WCHAR* second = info->pDependentFiles + lstrlenW(info->pDependentFiles) + 1;
    EXPECT_EQ(0, lstrcmpiW(info->pDataFile, info->pDependentFiles));
    EXPECT_EQ(0, lstrcmpiW(info->pHelpFile, second));
    EXPECT_EQ(0, second[lstrlenW(second) + 1]);
}

TEST_F(Spooler, RefusesDriversItCannotInstall)
{
    if (OnWine())
        GTEST_SKIP() << "installs without files and ends on a driver without name";
    Wide module = TemporaryPath(TEXT("PROBE.DLL"));
    Wide missing = TemporaryPath(TEXT("PROBE.NOT"));
    const std::tuple<LPWSTR DRIVER_INFO_2W::*, WCHAR*, DWORD> cases[] = {
        {&DRIVER_INFO_2W::pDataFile, missing.data(), ERROR_FILE_NOT_FOUND},
        {&DRIVER_INFO_2W::pDataFile, nullptr, ERROR_INVALID_PARAMETER},
        {&DRIVER_INFO_2W::pName, nullptr, ERROR_INVALID_PARAMETER},
        {&DRIVER_INFO_2W::pEnvironment, Name(TEXT("Windows 95")), ERROR_INVALID_ENVIRONMENT},
    };
    for (const auto& [field, value, error] : cases) {
        DRIVER_INFO_2W info = {3,
                               Name(TEXT("Psui Probe Driver 2")),
                               Name(kEnvironment),
                               module.data(),
                               module.data(),
                               module.data()};
        info.*field = value;
        EXPECT_TRUE(Fails(error, AddPrinterDriverExW(nullptr, 2, Bytes(info), kCopy))) << error;
    }
}

} // namespace
