#include <cstring>
#include <iterator>

#include <shlobj.h>

#include "psui/base/format.h"
#include "psui/base/registry.h"
#include "psui/events/installed.h"
#include "psui/events/status_monitor.h"

namespace psui {

namespace {

constexpr WCHAR kPathValue[] = TEXT("Path");

/// Below the application data: the maker's folder, and the driver's in it.
constexpr const WCHAR* kDataFolders[] = {TEXT("\\Velmora"), TEXT("\\PrtDrv")};

/// A folder as the monitor reads it from the registry: 8-bit text with its terminator.
class NarrowPath
{
public:
    /// Holds nothing when the path is too long.
    explicit NarrowPath(const WCHAR* path)
        : size_(WideCharToMultiByte(CP_ACP, 0, path, -1, bytes_, sizeof(bytes_), nullptr, nullptr))
    {
    }

    void WriteTo(const RegistryKey& key) const
    {
        if (size_ > 0)
            key.Write(kPathValue, REG_BINARY, bytes_, static_cast<DWORD>(size_));
    }

    bool Equals(const char* bytes, DWORD size) const
    {
        return size == static_cast<DWORD>(size_) && std::memcmp(bytes, bytes_, size) == 0;
    }

private:
    char bytes_[MAX_PATH];
    int size_;
};

/// Each folder takes its attributes from the user's documents folder where there is one.
void CreateDataFolders(const WCHAR* applicationData)
{
    PathText path, documents;
    const bool hasModel = KnownFolder(CSIDL_PERSONAL, documents);
    JoinText(path, {applicationData});
    for (const WCHAR* folder : kDataFolders) {
        if (!AppendText(path, {folder}))
            return;
        if (!hasModel || !CreateDirectoryExW(documents, path, nullptr))
            CreateDirectoryW(path, nullptr);
    }
}

void RegisterWindowsDirectory()
{
    PathText folder;
    const UINT length = GetWindowsDirectoryW(folder, std::size(folder));
    if (length == 0 || length >= std::size(folder))
        return;
    NarrowPath(folder).WriteTo(RegistryKey::Create(HKEY_CURRENT_USER, kMonitorKey, KEY_ALL_ACCESS));
}

void RegisterDataFolder()
{
    PathText applicationData, dataFolder;
    if (!KnownFolder(CSIDL_APPDATA, applicationData)) {
        RegisterWindowsDirectory();
        return;
    }
    if (!JoinText(dataFolder, {applicationData, kDataFolders[0], kDataFolders[1]}))
        return;
    const NarrowPath path(dataFolder);
    const RegistryKey key =
        RegistryKey::Open(HKEY_CURRENT_USER, kMonitorKey, KEY_QUERY_VALUE | KEY_SET_VALUE);
    if (!key) {
        CreateDataFolders(applicationData);
        path.WriteTo(RegistryKey::Create(HKEY_CURRENT_USER, kMonitorKey, KEY_ALL_ACCESS));
        return;
    }
    char stored[MAX_PATH - 1];
    DWORD type = 0;
    DWORD size = sizeof(stored);
    const LSTATUS status = key.Read(kPathValue, type, stored, size);
    if (status == ERROR_SUCCESS && path.Equals(stored, size))
        return;
    if (status != ERROR_FILE_NOT_FOUND)
        CreateDataFolders(applicationData);
    path.WriteTo(key);
}

void RegisterMonitorVersion()
{
    const RegistryKey key = RegistryKey::Open(HKEY_CURRENT_USER, kMonitorKey, KEY_SET_VALUE);
    VersionText version;
    if (key && InstalledMonitorVersion(version))
        key.WriteText(kMonitorVersionValue, version);
}

} // namespace

void RegisterStatusMonitorPath()
{
    RegisterDataFolder();
    RegisterMonitorVersion();
}

} // namespace psui
