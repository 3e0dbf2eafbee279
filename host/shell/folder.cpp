// The known folders of the user and of the machine.
#include <algorithm>
#include <atomic>
#include <filesystem>

#include <windows.h>

#include <shlobj.h>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/shell/shell.h"

namespace host {
namespace {

struct KnownFolder
{
    int id;
    bool ofUser; ///< below the user's own folder
    const char16_t* path;
};

constexpr KnownFolder kKnownFolders[] = {
    {CSIDL_PERSONAL, true, u"\\Documents"},           {CSIDL_APPDATA, true, u"\\AppData\\Roaming"},
    {CSIDL_LOCAL_APPDATA, true, u"\\AppData\\Local"}, {CSIDL_COMMON_APPDATA, false, u"C:\\ProgramData"},
    {CSIDL_WINDOWS, false, u"C:\\windows"},           {CSIDL_SYSTEM, false, u"C:\\windows\\system32"},
};

constexpr int kIdMask = 0xFF;

std::atomic<bool> applicationDataKnown{true};

std::u16string PathOf(const KnownFolder& folder)
{
    return folder.ofUser ? UserFolder() + folder.path : std::u16string(folder.path);
}

bool MakeFolder(const std::u16string& path)
{
    std::error_code error;
    std::filesystem::create_directories(NativePath(path), error);
    return !error;
}

bool FolderExists(const std::u16string& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Finds a folder's path, and makes the folder when the id asks for it. `missing` is what a folder that is
/// not there returns.
HRESULT FindFolder(int id, DWORD flags, HRESULT missing, std::u16string& path)
{
    const auto* const known =
        std::find_if(std::begin(kKnownFolders), std::end(kKnownFolders),
                     [=](const KnownFolder& each) { return each.id == (id & kIdMask); });
    if (known == std::end(kKnownFolders) || flags > SHGFP_TYPE_DEFAULT)
        return E_INVALIDARG;
    if (known->id == CSIDL_APPDATA && !applicationDataKnown)
        return E_FAIL;
    const std::u16string found = PathOf(*known);
    if (!FolderExists(found) && ((id & CSIDL_FLAG_CREATE) == 0 || !MakeFolder(found)))
        return missing;
    if (found.size() >= MAX_PATH)
        return E_FAIL;
    path = found;
    return S_OK;
}

} // namespace

void MakeUserFolders()
{
    for (const KnownFolder& folder : kKnownFolders)
        MakeFolder(PathOf(folder));
}

void SetApplicationDataKnown(bool known)
{
    applicationDataKnown = known;
}

void ResetFolders()
{
    applicationDataKnown = true;
}

} // namespace host

using namespace host;

HRESULT WINAPI SHGetFolderPathW(HWND, int folder, HANDLE, DWORD flags, LPWSTR path)
{
    HOST_CALL_VOID(SHGetFolderPathW);
    if (path == nullptr)
        return E_INVALIDARG;
    *path = 0;
    if (hostCall_.InjectedFailure())
        return E_FAIL;
    std::u16string found;
    const HRESULT result = FindFolder(folder, flags, E_FAIL, found);
    std::copy_n(found.c_str(), found.size() + 1, path);
    return result;
}

HRESULT WINAPI SHGetFolderPathA(HWND, int folder, HANDLE, DWORD flags, LPSTR path)
{
    HOST_CALL_VOID(SHGetFolderPathA);
    if (path == nullptr)
        return E_INVALIDARG;
    *path = 0;
    if (hostCall_.InjectedFailure())
        return E_FAIL;
    std::u16string found;
    const HRESULT result = FindFolder(folder, flags, S_FALSE, found);
    if (WideCharToMultiByte(CP_ACP, 0, found.c_str(), -1, path, MAX_PATH, nullptr, nullptr) != 0)
        return result;
    *path = 0;
    return E_FAIL;
}
