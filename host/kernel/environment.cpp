// The process's environment as the platform's programs see it; the machine's own is another one.
#include "host/kernel/environment.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include <windows.h>

#include "host/kernel/call.h"
#include "host/kernel/convert.h"
#include "host/kernel/error.h"
#include "host/kernel/path.h"
#include "host/kernel/world.h"

namespace host {
namespace {

constexpr struct
{
    const char16_t* name;
    const char16_t* value;
} kInitial[] = {
    {u"PATH", u"C:\\windows\\system32;C:\\windows"},
    {u"SystemDrive", u"C:"},
    {u"SystemRoot", u"C:\\windows"},
    {u"TEMP", u"C:\\windows\\temp"},
    {u"TMP", u"C:\\windows\\temp"},
    {u"windir", u"C:\\windows"},
};

struct NoCaseOrder
{
    bool operator()(const std::u16string& a, const std::u16string& b) const
    {
        return std::lexicographical_compare(
            a.begin(), a.end(), b.begin(), b.end(),
            [](char16_t x, char16_t y) { return UpperCase(x) < UpperCase(y); });
    }
};

using Variables = std::map<std::u16string, std::u16string, NoCaseOrder>;

Variables InitialVariables()
{
    Variables variables;
    for (const auto& [name, value] : kInitial)
        variables.emplace(name, value);
    return variables;
}

std::mutex environmentLock;

/// Hold the lock.
Variables& Environment()
{
    static Variables variables = InitialVariables();
    return variables;
}

std::optional<std::u16string> Find(const std::u16string& name)
{
    std::lock_guard lock(environmentLock);
    const auto found = Environment().find(name);
    return found != Environment().end() ? std::optional(found->second) : std::nullopt;
}

/// Returns 0 or the error code. Without a value the variable goes.
DWORD Set(const std::u16string& name, std::optional<std::u16string> value)
{
    // A first '=' belongs to the name: that is how current folders of drives are kept.
    if (name.empty() || name.find(u'=', 1) != std::u16string::npos)
        return ERROR_INVALID_PARAMETER;
    std::lock_guard lock(environmentLock);
    if (value)
        Environment()[name] = std::move(*value);
    else
        Environment().erase(name);
    return ERROR_SUCCESS;
}

BOOL Report(DWORD error)
{
    return error == ERROR_SUCCESS ? TRUE : FailWith(error);
}

} // namespace

void ResetEnvironment()
{
    std::lock_guard lock(environmentLock);
    Environment() = InitialVariables();
}

} // namespace host

using namespace host;

BOOL WINAPI SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value)
{
    HOST_CALL(SetEnvironmentVariableW, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    if (name == nullptr)
        return FailWith(ERROR_ENVVAR_NOT_FOUND);
    return Report(Set(name, value != nullptr ? std::optional<std::u16string>(value) : std::nullopt));
}

BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value)
{
    HOST_CALL(SetEnvironmentVariableA, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    if (name == nullptr)
        return FailWith(ERROR_ENVVAR_NOT_FOUND);
    return Report(
        Set(FromCodePage(name), value != nullptr ? std::optional(FromCodePage(value)) : std::nullopt));
}

DWORD WINAPI GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size)
{
    HOST_CALL(GetEnvironmentVariableW, 0, ERROR_ENVVAR_NOT_FOUND);
    const std::optional<std::u16string> value = name != nullptr ? Find(name) : std::nullopt;
    if (!value)
        return static_cast<DWORD>(FailWith(ERROR_ENVVAR_NOT_FOUND));
    return CopyPath(*value, buffer, size);
}

DWORD WINAPI GetEnvironmentVariableA(LPCSTR name, LPSTR buffer, DWORD size)
{
    HOST_CALL(GetEnvironmentVariableA, 0, ERROR_ENVVAR_NOT_FOUND);
    const std::optional<std::u16string> value = name != nullptr ? Find(FromCodePage(name)) : std::nullopt;
    if (!value)
        return static_cast<DWORD>(FailWith(ERROR_ENVVAR_NOT_FOUND));
    const std::string bytes = ToCodePage(*value);
    if (buffer == nullptr || size <= bytes.size())
        return static_cast<DWORD>(bytes.size()) + 1;
    std::memcpy(buffer, bytes.c_str(), bytes.size() + 1);
    return static_cast<DWORD>(bytes.size());
}
