#include "psui/maindlg/control_centre.h"

#include <string_view>

#include "psui/base/registry.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr WCHAR kDriverListKey[] = TEXT("SOFTWARE\\Wow6432Node\\Velmora\\VmHubWnd\\Driver List");

void CutAtFirst(WCHAR* text, std::basic_string_view<WCHAR> word)
{
    const size_t at = std::basic_string_view<WCHAR>(text).find(word);
    if (at != std::basic_string_view<WCHAR>::npos)
        text[at] = 0;
}

} // namespace

void ControlCentreModelName(const DEVMODEW& record, WCHAR (&name)[CCHDEVICENAME])
{
    CopyWide(name, record.dmDeviceName, CCHDEVICENAME);
    CutAtFirst(name, TEXT(" Printer"));
    CutAtFirst(name, TEXT(" USB"));
}

bool ControlCentreKnowsModel(const DriverDevMode& record)
{
    WCHAR name[CCHDEVICENAME];
    ControlCentreModelName(record.dmPublic, name);
    if (!name[0])
        return false;
    const RegistryKey list = RegistryKey::Open(HKEY_LOCAL_MACHINE, kDriverListKey, KEY_QUERY_VALUE);
    DWORD type = 0, size = 0;
    return list.Read(name, type, nullptr, size) == ERROR_SUCCESS;
}

} // namespace psui
