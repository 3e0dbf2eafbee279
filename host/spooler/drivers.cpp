// Printer drivers: one key each below the environment's driver version, whose values are the platform's own.
// Only file names are kept; where the files lie is the spooler's business.
#include <algorithm>
#include <cstring>
#include <optional>

#include "host/kernel/call.h"
#include "host/registry/database.h"
#include "host/spooler/answer.h"
#include "host/spooler/driver_files.h"
#include "host/spooler/spooler.h"

namespace host::spooler {
namespace {

using FileNames = std::vector<std::u16string>;

struct Driver
{
    std::u16string name;
    std::u16string driverFile;
    std::u16string dataFile;
    std::u16string configFile;
    std::u16string helpFile;
    std::u16string monitor;
    std::u16string datatype;
    FileNames dependentFiles;
};

struct TextRow
{
    const char16_t* value;
    std::u16string Driver::*field;
};

constexpr TextRow kTextRows[] = {
    {u"Driver", &Driver::driverFile},  {u"Data File", &Driver::dataFile},
    {u"Help File", &Driver::helpFile}, {u"Configuration File", &Driver::configFile},
    {u"Monitor", &Driver::monitor},    {u"Datatype", &Driver::datatype},
};

constexpr char16_t kDependentFilesValue[] = u"Dependent Files";

// A list of texts, each closed by a zero, one more zero after the last.
std::u16string JoinList(const FileNames& names)
{
    std::u16string list;
    for (const std::u16string& name : names) {
        list += name;
        list += u'\0';
    }
    return list;
}

FileNames SplitList(LPCWSTR list)
{
    FileNames names;
    for (; list && *list; list += names.back().size() + 1)
        names.emplace_back(list);
    return names;
}

FileNames DependentFilesOf(const registry::Value& value)
{
    // Two more zeros end any list, however the stored bytes end.
    std::u16string list(value.data.size() / sizeof(char16_t) + 2, u'\0');
    memcpy(list.data(), value.data.data(), value.data.size() / sizeof(char16_t) * sizeof(char16_t));
    return SplitList(list.data());
}

void ReadInto(const registry::Value& value, Driver* driver)
{
    for (const TextRow& row : kTextRows) {
        if (EqualNoCase(value.name, row.value))
            driver->*row.field = TextOf(value);
    }
    if (EqualNoCase(value.name, kDependentFilesValue) && value.type == REG_MULTI_SZ)
        driver->dependentFiles = DependentFilesOf(value);
}

KeyId FindDriverKey(std::u16string_view name)
{
    if (name.empty() || name.find(u'\\') != name.npos)
        return 0;
    auto path = registry::JoinPath(kDriversPath, name);
    return path ? registry::FindKey(*path) : 0;
}

std::optional<Driver> ReadDriver(std::u16string_view name)
{
    KeyId key = FindDriverKey(name);
    if (!key)
        return std::nullopt;
    Driver driver;
    driver.name = registry::KeyName(key);
    for (const registry::Value& value : registry::Values(key))
        ReadInto(value, &driver);
    return driver;
}

std::vector<Driver> AllDrivers()
{
    Transaction transaction(Transaction::kRead);
    std::vector<Driver> drivers;
    for (const std::u16string& name : registry::SubKeyNames(registry::FindKey(kDriversPath))) {
        if (auto driver = ReadDriver(name))
            drivers.push_back(std::move(*driver));
    }
    return drivers;
}

LSTATUS WriteDriver(KeyId key, const Driver& driver)
{
    for (const TextRow& row : kTextRows) {
        if (LSTATUS error = WriteText(key, row.value, driver.*row.field))
            return error;
    }
    if (LSTATUS error = WriteNumber(key, u"Version", kDriverVersion))
        return error;
    return registry::WriteValue(key, kDependentFilesValue, REG_MULTI_SZ,
                                registry::TextBytes(JoinList(driver.dependentFiles)));
}

// --- Installing ---

DWORD TakeBase(DWORD version, LPCWSTR name, LPCWSTR environment, LPCWSTR driverFile, LPCWSTR dataFile,
               LPCWSTR configFile, Driver* driver)
{
    if (!IsThisEnvironment(environment))
        return ERROR_INVALID_ENVIRONMENT;
    *driver = {std::u16string(View(name)),
               std::u16string(View(driverFile)),
               std::u16string(View(dataFile)),
               std::u16string(View(configFile)),
               {},
               {},
               {},
               {}};
    bool complete = !driver->driverFile.empty() && !driver->dataFile.empty() && !driver->configFile.empty();
    bool named = !driver->name.empty() && driver->name.size() <= registry::kKeyNameLimit &&
                 driver->name.find(u'\\') == driver->name.npos;
    return version == kDriverVersion && complete && named ? ERROR_SUCCESS : ERROR_INVALID_PARAMETER;
}

// The caller's record, still with the paths the files come from.
DWORD TakeInfo(DWORD level, const BYTE* bytes, Driver* driver)
{
    auto info = reinterpret_cast<const DRIVER_INFO_3W*>(bytes);
    static_assert(offsetof(DRIVER_INFO_3W, pHelpFile) == sizeof(DRIVER_INFO_2W));
    if (DWORD error = TakeBase(info->cVersion, info->pName, info->pEnvironment, info->pDriverPath,
                               info->pDataFile, info->pConfigFile, driver))
        return error;
    if (level == 2)
        return ERROR_SUCCESS;
    driver->helpFile = View(info->pHelpFile);
    driver->dependentFiles = SplitList(info->pDependentFiles);
    driver->monitor = View(info->pMonitorName);
    driver->datatype = View(info->pDefaultDataType);
    return ERROR_SUCCESS;
}

FileNames FilesOf(const Driver& driver)
{
    FileNames files = {driver.driverFile, driver.dataFile, driver.configFile};
    if (!driver.helpFile.empty())
        files.push_back(driver.helpFile);
    files.insert(files.end(), driver.dependentFiles.begin(), driver.dependentFiles.end());
    return files;
}

void KeepFileNamesOnly(Driver* driver)
{
    for (std::u16string Driver::*field :
         {&Driver::driverFile, &Driver::dataFile, &Driver::configFile, &Driver::helpFile})
        driver->*field = FileNamePart(driver->*field);
    for (std::u16string& file : driver->dependentFiles)
        file = FileNamePart(file);
}

DWORD InstallDriver(Driver driver, DWORD flags)
{
    if (DWORD error = InstallFiles(FilesOf(driver), flags & APD_COPY_NEW_FILES))
        return error;
    KeepFileNamesOnly(&driver);
    Transaction transaction(Transaction::kWrite);
    KeyId key = registry::CreateKey(kDriversPath, driver.name);
    if (!key)
        return DatabaseError();
    if (LSTATUS error = WriteDriver(key, driver))
        return error;
    return transaction.Commit() ? ERROR_SUCCESS : DatabaseError();
}

// --- Removing ---

bool Contains(const FileNames& names, std::u16string_view name)
{
    return std::ranges::any_of(names, [&](const std::u16string& n) { return EqualNoCase(n, name); });
}

// The files of a driver that no other driver uses.
FileNames UnsharedFiles(const Driver& driver)
{
    FileNames files = FilesOf(driver);
    for (const Driver& other : AllDrivers()) {
        FileNames used = FilesOf(other);
        if (!EqualNoCase(other.name, driver.name))
            std::erase_if(files, [&](const std::u16string& file) { return Contains(used, file); });
    }
    return files;
}

DWORD DeleteDriver(const Driver& driver, DWORD flags)
{
    Transaction transaction(Transaction::kWrite);
    if (DriverInUse(driver.name))
        return ERROR_PRINTER_DRIVER_IN_USE;
    FileNames files = UnsharedFiles(driver);
    if (flags & DPD_DELETE_ALL_FILES && files.size() != FilesOf(driver).size())
        return ERROR_PRINTER_DRIVER_IN_USE;
    std::string path = registry::JoinPath(kDriversPath, driver.name).value();
    if (LSTATUS error = registry::DeleteTree(registry::FindKey(path), path, false))
        return error;
    if (!transaction.Commit())
        return DatabaseError();
    if (!(flags & (DPD_DELETE_UNUSED_FILES | DPD_DELETE_ALL_FILES)))
        return ERROR_SUCCESS;
    DWORD error = ERROR_SUCCESS;
    for (const std::u16string& file : files)
        error = std::max(error, RemoveInstalledFile(file));
    return error;
}

// --- Telling ---

LPWSTR PackPath(Packer& packer, const std::u16string& fileName)
{
    return fileName.empty() ? nullptr : packer.Text(InstalledPath(fileName));
}

template <class Info>
Info PackBase(Packer& packer, const Driver& driver)
{
    Info info = {};
    info.cVersion = kDriverVersion;
    info.pName = packer.Text(driver.name);
    info.pEnvironment = packer.Text(kEnvironment);
    info.pDriverPath = PackPath(packer, driver.driverFile);
    info.pDataFile = PackPath(packer, driver.dataFile);
    info.pConfigFile = PackPath(packer, driver.configFile);
    return info;
}

void PackLevel2(Packer& packer, const Driver& driver)
{
    packer.Add(PackBase<DRIVER_INFO_2W>(packer, driver));
}

void PackLevel3(Packer& packer, const Driver& driver)
{
    auto info = PackBase<DRIVER_INFO_3W>(packer, driver);
    FileNames dependent;
    for (const std::u16string& file : driver.dependentFiles)
        dependent.push_back(InstalledPath(file));
    info.pHelpFile = PackPath(packer, driver.helpFile);
    info.pDependentFiles = packer.OptionalText(JoinList(dependent));
    info.pMonitorName = packer.OptionalText(driver.monitor);
    info.pDefaultDataType = packer.OptionalText(driver.datatype);
    packer.Add(info);
}

using PackFunction = void (*)(Packer&, const Driver&);

PackFunction PackerOfLevel(DWORD level)
{
    switch (level) {
    case 2:
        return PackLevel2;
    case 3:
        return PackLevel3;
    default:
        return nullptr;
    }
}

DWORD ReadInfo(HANDLE handle, PackFunction pack, const Request& request)
{
    Transaction transaction(Transaction::kRead);
    const OpenPrinter* open;
    if (DWORD error = UseHandle(handle, Target::kPrinter, 0, &open))
        return error;
    auto driver = ReadDriver(DriverOfPrinter(open->key));
    if (!driver)
        return ERROR_UNKNOWN_PRINTER_DRIVER;
    return request.Answer([&](Packer& packer) { pack(packer, *driver); });
}

DWORD ReadAll(PackFunction pack, const Request& request, LPDWORD count)
{
    std::vector<Driver> drivers = AllDrivers();
    DWORD error = request.Answer([&](Packer& packer) {
        for (const Driver& driver : drivers)
            pack(packer, driver);
    });
    *count = error ? 0 : static_cast<DWORD>(drivers.size());
    return error;
}

} // namespace

bool DriverExists(std::u16string_view name)
{
    return FindDriverKey(name) != 0;
}

} // namespace host::spooler

using namespace host;
using namespace host::spooler;

BOOL WINAPI GetPrinterDriverW(HANDLE printer, LPWSTR environment, DWORD level, LPBYTE buffer, DWORD size,
                              LPDWORD needed)
{
    HOST_CALL(GetPrinterDriverW, FALSE, ERROR_ACCESS_DENIED);
    HOST_READ(FALSE, ERROR_ACCESS_DENIED, &size, needed, nullptr);
    Request request = {buffer, size, needed};
    PackFunction pack = PackerOfLevel(level);
    if (!pack)
        return Report(ERROR_INVALID_LEVEL);
    if (DWORD error = request.Check())
        return Report(error);
    if (!IsThisEnvironment(environment))
        return Report(ERROR_INVALID_ENVIRONMENT);
    Lock lock(DatabaseLock());
    return Report(ReadInfo(printer, pack, request));
}

BOOL WINAPI EnumPrinterDriversW(LPWSTR server, LPWSTR environment, DWORD level, LPBYTE buffer, DWORD size,
                                LPDWORD needed, LPDWORD count)
{
    HOST_CALL(EnumPrinterDriversW, FALSE, ERROR_ACCESS_DENIED);
    HOST_READ(FALSE, ERROR_ACCESS_DENIED, &size, needed, nullptr);
    Request request = {buffer, size, needed};
    PackFunction pack = PackerOfLevel(level);
    if (!pack)
        return Report(ERROR_INVALID_LEVEL);
    if (DWORD error = request.Check())
        return Report(error);
    if (!count)
        return Report(RPC_X_NULL_REF_POINTER);
    if (!IsThisServer(server))
        return Report(RPC_S_SERVER_UNAVAILABLE);
    if (!IsThisEnvironment(environment) && !EqualNoCase(View(environment), u"all"))
        return Report(ERROR_INVALID_ENVIRONMENT);
    Lock lock(DatabaseLock());
    return Report(ReadAll(pack, request, count));
}

BOOL WINAPI AddPrinterDriverExW(LPWSTR server, DWORD level, LPBYTE info, DWORD flags)
{
    HOST_CALL(AddPrinterDriverExW, FALSE, ERROR_ACCESS_DENIED);
    constexpr DWORD kWays = APD_COPY_ALL_FILES | APD_COPY_NEW_FILES;
    if (level != 2 && level != 3)
        return Report(ERROR_INVALID_LEVEL);
    DWORD way = flags & kWays;
    if (!info || (way != APD_COPY_ALL_FILES && way != APD_COPY_NEW_FILES) ||
        flags & ~(kWays | APD_COPY_FROM_DIRECTORY))
        return Report(ERROR_INVALID_PARAMETER);
    if (!IsThisServer(server))
        return Report(RPC_S_SERVER_UNAVAILABLE);
    Driver driver;
    if (DWORD error = TakeInfo(level, info, &driver))
        return Report(error);
    Lock lock(DatabaseLock());
    return Report(InstallDriver(std::move(driver), flags));
}

BOOL WINAPI DeletePrinterDriverExW(LPWSTR server, LPWSTR environment, LPWSTR driver, DWORD flags,
                                   DWORD version)
{
    HOST_CALL(DeletePrinterDriverExW, FALSE, ERROR_ACCESS_DENIED);
    if (!IsThisServer(server))
        return Report(RPC_S_SERVER_UNAVAILABLE);
    if (!IsThisEnvironment(environment))
        return Report(ERROR_INVALID_ENVIRONMENT);
    Lock lock(DatabaseLock());
    auto found = ReadDriver(View(driver));
    if (!found || (flags & DPD_DELETE_SPECIFIC_VERSION && version != kDriverVersion))
        return Report(ERROR_UNKNOWN_PRINTER_DRIVER);
    return Report(DeleteDriver(*found, flags));
}

BOOL WINAPI GetPrinterDriverDirectoryW(LPWSTR server, LPWSTR environment, DWORD level, LPBYTE buffer,
                                       DWORD size, LPDWORD needed)
{
    HOST_CALL(GetPrinterDriverDirectoryW, FALSE, ERROR_ACCESS_DENIED);
    HOST_READ(FALSE, ERROR_ACCESS_DENIED, &size, needed, nullptr);
    Request request = {buffer, size, needed};
    if (level != 1)
        return Report(ERROR_INVALID_LEVEL);
    if (DWORD error = request.Check())
        return Report(error);
    if (!IsThisServer(server))
        return Report(RPC_S_SERVER_UNAVAILABLE);
    if (!IsThisEnvironment(environment))
        return Report(ERROR_INVALID_ENVIRONMENT);
    *needed = sizeof kDriverDirectory;
    if (size < sizeof kDriverDirectory)
        return Report(ERROR_INSUFFICIENT_BUFFER);
    memcpy(buffer, kDriverDirectory, sizeof kDriverDirectory);
    return TRUE;
}
