#include "psui/base/registry.h"

namespace psui {

RegistryKey RegistryKey::Open(HKEY parent, const WCHAR* path, REGSAM access)
{
    RegistryKey key;
    if (RegOpenKeyExW(parent, path, 0, access, &key.key_) != ERROR_SUCCESS)
        key.key_ = nullptr;
    return key;
}

RegistryKey RegistryKey::Create(HKEY parent, const WCHAR* path, REGSAM access)
{
    RegistryKey key;
    if (RegCreateKeyExW(parent, path, 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr, &key.key_,
                        nullptr) != ERROR_SUCCESS)
        key.key_ = nullptr;
    return key;
}

LSTATUS RegistryKey::Read(const WCHAR* name, DWORD& type, void* bytes, DWORD& size) const
{
    if (!key_)
        return ERROR_INVALID_HANDLE;
    return RegQueryValueExW(key_, name, nullptr, &type, static_cast<BYTE*>(bytes), &size);
}

bool RegistryKey::ReadText(const WCHAR* name, WCHAR* text, DWORD units) const
{
    DWORD type = 0;
    DWORD bytes = units * sizeof(WCHAR);
    const LSTATUS status = Read(name, type, text, bytes);
    const DWORD read = bytes / sizeof(WCHAR);
    // Stored texts need not be terminated, and one that fills the buffer must be.
    const bool usable = status == ERROR_SUCCESS && (type == REG_SZ || type == REG_EXPAND_SZ) &&
                        (read < units || text[units - 1] == 0);
    if (!usable)
        text[0] = 0;
    else if (read < units)
        text[read] = 0;
    return usable;
}

bool RegistryKey::Write(const WCHAR* name, DWORD type, const void* bytes, DWORD size) const
{
    return key_ &&
           RegSetValueExW(key_, name, 0, type, static_cast<const BYTE*>(bytes), size) == ERROR_SUCCESS;
}

bool RegistryKey::WriteText(const WCHAR* name, const WCHAR* text) const
{
    return Write(name, REG_SZ, text, static_cast<DWORD>((lstrlenW(text) + 1) * sizeof(WCHAR)));
}

} // namespace psui
