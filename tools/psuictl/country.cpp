#include "tools/psuictl/country.h"

#include "tools/psuictl/failure.h"

namespace psuictl {
namespace {

constexpr WCHAR kKey[] = TEXT("Control Panel\\International");
constexpr WCHAR kValue[] = TEXT("iCountry");
constexpr DWORD kMaxUnits = 64;

std::optional<WideString> ReadCountry(HKEY key)
{
    WCHAR text[kMaxUnits] = {};
    DWORD type = REG_NONE;
    DWORD size = sizeof text - sizeof(WCHAR);
    if (RegQueryValueExW(key, kValue, nullptr, &type, reinterpret_cast<LPBYTE>(text), &size) !=
            ERROR_SUCCESS ||
        type != REG_SZ)
        return std::nullopt;
    return WideString(text);
}

LSTATUS WriteCountry(HKEY key, const WideString& text)
{
    const DWORD size = static_cast<DWORD>((text.size() + 1) * sizeof(WCHAR));
    return RegSetValueExW(key, kValue, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), size);
}

} // namespace

CountrySetting::CountrySetting(std::optional<int64_t> country)
{
    if (!country)
        return;
    LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                     KEY_READ | KEY_WRITE, nullptr, &key_, nullptr);
    if (status == ERROR_SUCCESS) {
        former_ = ReadCountry(key_);
        status = WriteCountry(key_, Wide(std::to_string(*country)));
        if (status != ERROR_SUCCESS)
            RegCloseKey(key_);
    }
    if (status != ERROR_SUCCESS)
        throw Failure("the country cannot be set: " + ErrorWords(static_cast<DWORD>(status)) +
                      "; leave --country out to use the host's own");
}

CountrySetting::~CountrySetting()
{
    if (!key_)
        return;
    if (former_)
        WriteCountry(key_, *former_);
    else
        RegDeleteValueW(key_, kValue);
    RegCloseKey(key_);
}

} // namespace psuictl
