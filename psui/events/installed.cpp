#include "psui/events/installed.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string_view>

#include <shlobj.h>
#include <winver.h>

#include "psui/base/format.h"
#include "psui/base/memory.h"
#include "psui/base/registry.h"
#include "psui/events/numbers.h"
#include "psui/events/status_monitor.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

using WideView = std::basic_string_view<WCHAR>;

/// Bytes of a version resource that are still believed.
constexpr DWORD kLargestVersionResource = 0x100000;

/// Language and code page of the texts in a version resource.
struct Translation
{
    WORD language;
    WORD codePage;
};

/// "\StringFileInfo\" with the translation as eight hexadecimal digits, then the value's name.
void NameStringValue(const Translation& translation, const WCHAR* value, WCHAR (&name)[64])
{
    constexpr char kDigits[] = "0123456789abcdef";
    WCHAR digits[9] = {};
    const DWORD number = static_cast<DWORD>(translation.language) << 16 | translation.codePage;
    for (int i = 0; i < 8; ++i)
        digits[i] = static_cast<WCHAR>(kDigits[number >> (28 - 4 * i) & 0xF]);
    JoinText(name, {TEXT("\\StringFileInfo\\"), digits, TEXT("\\"), value});
}

bool ProductVersion(void* resource, VersionText& version)
{
    void* found = nullptr;
    UINT size = 0;
    Translation first;
    if (!VerQueryValueW(resource, TEXT("\\VarFileInfo\\Translation"), &found, &size) || size < sizeof(first))
        return false;
    std::memcpy(&first, found, sizeof(first));

    WCHAR name[64];
    NameStringValue(first, TEXT("ProductVersion"), name);
    if (!VerQueryValueW(resource, name, &found, &size) || size == 0)
        return false;
    // `size` is the resource's word for the text's length; the text may end earlier.
    const int units = static_cast<int>(std::min<UINT>(size, std::size(version)));
    const auto* text = static_cast<const WCHAR*>(found);
    return JoinText(version, {WideView(text, BoundedLength(text, units))});
}

/// Most units of a version that are compared.
constexpr int kComparedUnits = 15;

struct Version
{
    uint64_t major;
    uint64_t minor;
};

Version ParseVersion(const WCHAR* text)
{
    const WideView view(text, BoundedLength(text, kComparedUnits));
    const size_t dot = view.find('.');
    return {LeadingNumber(view.substr(0, dot)), dot == view.npos ? 0 : LeadingNumber(view.substr(dot + 1))};
}

} // namespace

bool InstalledMonitorVersion(VersionText& version)
{
    PathText path;
    DWORD unused = 0;
    if (!PathBesideLibrary(kMonitorProgram, path))
        return false;
    const DWORD size = GetFileVersionInfoSizeW(path, &unused);
    if (size == 0 || size > kLargestVersionResource)
        return false;
    const HeapPtr<BYTE> resource = AllocateZeroed<BYTE>(size);
    return resource && GetFileVersionInfoW(path, 0, size, resource.get()) &&
           ProductVersion(resource.get(), version);
}

bool KnownFolder(int folder, PathText& path)
{
    if (SHGetFolderPathW(nullptr, folder, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK && path[0])
        return true;
    path[0] = 0;
    return false;
}

bool VersionAtLeast(const WCHAR* required, const WCHAR* actual)
{
    const Version least = ParseVersion(required);
    const Version present = ParseVersion(actual);
    return present.major > least.major || (present.major == least.major && present.minor >= least.minor);
}

bool StatusMonitorIsNew(const WCHAR* valueName, const WCHAR* required)
{
    VersionText version;
    const RegistryKey key = RegistryKey::Open(HKEY_CURRENT_USER, kMonitorKey, KEY_QUERY_VALUE);
    if (key)
        return key.ReadText(valueName, version, std::size(version)) && VersionAtLeast(required, version);
    return WideView(valueName) == kMonitorVersionValue && InstalledMonitorVersion(version) &&
           VersionAtLeast(required, version);
}

bool StatusMonitorIniPath(PathText& path, bool quoted)
{
    PathText folder;
    const WCHAR* quote = quoted ? TEXT("\"") : TEXT("");
    path[0] = 0;
    return KnownFolder(CSIDL_APPDATA, folder) &&
           JoinText(path, {quote, folder, TEXT("\\Velmora\\PrtDrv\\"), kSettingsFileName, quote});
}

} // namespace psui
