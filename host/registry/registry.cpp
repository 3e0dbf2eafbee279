// The registry functions. Key classes and security descriptors are accepted and not kept: the one user of
// this world may do everything, so what a handle may do is decided by the rights it was opened with.
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <mutex>

#include "host/kernel/call.h"
#include "host/kernel/world.h"
#include "host/registry/database.h"
#include "host/registry/handles.h"
#include "host/registry/store.h"

namespace host {
namespace {

using registry::KeyId;
using registry::View;

struct Key
{
    KeyId id = 0;
    std::string path;
    REGSAM access = 0;
    bool predefined = false;
};

struct PredefinedKey
{
    HKEY handle;
    const char* path;
    KeyId id = 0; // in the open world
};

PredefinedKey predefinedKeys[] = {
    {HKEY_CLASSES_ROOT, registry::kClasses},
    {HKEY_CURRENT_USER, registry::kCurrentUser},
    {HKEY_LOCAL_MACHINE, registry::kMachine},
    {HKEY_USERS, registry::kUsers},
};

HandleTable<Key> openKeys(0x10000);

using Lock = std::lock_guard<std::recursive_mutex>;

const PredefinedKey* FindPredefined(HKEY handle)
{
    auto found = std::ranges::find(predefinedKeys, handle, &PredefinedKey::handle);
    return found == std::end(predefinedKeys) ? nullptr : found;
}

// The key behind a handle, when the handle carries all the rights asked for.
LSTATUS ResolveKey(HKEY handle, REGSAM needed, Key* key)
{
    if (const PredefinedKey* predefined = FindPredefined(handle)) {
        *key = {predefined->id, predefined->path, KEY_ALL_ACCESS, true};
        return ERROR_SUCCESS;
    }
    const Key* open = openKeys.Find(handle);
    if (!open)
        return ERROR_INVALID_HANDLE;
    if ((open->access & needed) != needed)
        return ERROR_ACCESS_DENIED;
    *key = *open;
    return ERROR_SUCCESS;
}

// The same for functions that go on from the key: it must still exist.
LSTATUS ResolveLiveKey(HKEY handle, REGSAM needed, Key* key)
{
    LSTATUS status = ResolveKey(handle, needed, key);
    if (status == ERROR_SUCCESS && !registry::KeyExists(key->id))
        return ERROR_KEY_DELETED;
    return status;
}

struct GenericRight
{
    REGSAM generic;
    REGSAM specific;
};

constexpr GenericRight kGenericRights[] = {
    {GENERIC_READ, KEY_READ},      {GENERIC_WRITE, KEY_WRITE},        {GENERIC_EXECUTE, KEY_READ},
    {GENERIC_ALL, KEY_ALL_ACCESS}, {MAXIMUM_ALLOWED, KEY_ALL_ACCESS},
};

REGSAM SpecificRights(REGSAM access)
{
    for (const GenericRight& right : kGenericRights) {
        if (access & right.generic)
            access |= right.specific;
    }
    return access;
}

HKEY AddHandle(KeyId id, std::string path, REGSAM access)
{
    CountOpen(&Ledger::keys, 1);
    return static_cast<HKEY>(openKeys.Add({id, std::move(path), SpecificRights(access), false}));
}

std::string_view Bytes(const BYTE* data, DWORD size)
{
    return {reinterpret_cast<const char*>(data), size};
}

// The two-call rule for data: `*size` is the room on entry and the need on exit.
LSTATUS GiveData(std::string_view bytes, LPBYTE data, LPDWORD size)
{
    if (!size)
        return ERROR_SUCCESS;
    DWORD room = *size;
    *size = static_cast<DWORD>(bytes.size());
    if (!data)
        return ERROR_SUCCESS;
    if (room < bytes.size())
        return ERROR_MORE_DATA;
    memcpy(data, bytes.data(), bytes.size());
    return ERROR_SUCCESS;
}

// The rule for names: `*size` counts units, with the closing zero on entry and without it on exit.
LSTATUS GiveName(std::u16string_view name, LPWSTR buffer, LPDWORD size)
{
    if (*size <= name.size())
        return ERROR_MORE_DATA;
    *std::copy(name.begin(), name.end(), buffer) = u'\0';
    *size = static_cast<DWORD>(name.size());
    return ERROR_SUCCESS;
}

void Give(DWORD value, LPDWORD result)
{
    if (result)
        *result = value;
}

void GiveTime(int64_t time, PFILETIME result)
{
    if (result)
        *result = {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
}

// Nobody may hang keys of his own directly below the two roots.
bool IsBelowRoot(const Key& base, std::u16string_view subKey)
{
    if (base.path != registry::kMachine && base.path != registry::kUsers)
        return false;
    auto first = registry::JoinPath(base.path, subKey.substr(0, subKey.find(u'\\')));
    return first && !registry::FindKey(*first);
}

LSTATUS CreateAndOpen(const Key& base, std::u16string_view subKey, REGSAM access, PHKEY result,
                      LPDWORD disposition)
{
    auto path = registry::JoinPath(base.path, subKey);
    if (!path)
        return ERROR_BAD_PATHNAME;
    bool created = false;
    KeyId key = registry::FindKey(*path);
    if (!key && IsBelowRoot(base, subKey))
        return ERROR_INVALID_PARAMETER;
    if (!key)
        key = registry::CreateKey(base.path, subKey, &created);
    if (!key)
        return registry::KeyExists(base.id) ? DatabaseError() : ERROR_KEY_DELETED;
    *result = AddHandle(key, std::move(*path), access);
    Give(created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY, disposition);
    return ERROR_SUCCESS;
}

// A key below another one, for deletion.
LSTATUS FindSubKey(const Key& base, LPCWSTR subKey, Key* found)
{
    auto path = registry::JoinPath(base.path, View(subKey));
    if (!path)
        return ERROR_BAD_PATHNAME;
    found->id = registry::FindKey(*path);
    found->path = std::move(*path);
    return found->id ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}

struct KeyFacts
{
    DWORD subKeys = 0;
    DWORD longestSubKey = 0;
    DWORD values = 0;
    DWORD longestValueName = 0;
    DWORD largestValue = 0;
};

void Raise(DWORD* maximum, size_t size)
{
    *maximum = std::max(*maximum, static_cast<DWORD>(size));
}

KeyFacts CollectFacts(KeyId key)
{
    KeyFacts facts;
    for (const std::u16string& name : registry::SubKeyNames(key)) {
        ++facts.subKeys;
        Raise(&facts.longestSubKey, name.size());
    }
    for (const registry::Value& value : registry::Values(key)) {
        ++facts.values;
        Raise(&facts.longestValueName, value.name.size());
        Raise(&facts.largestValue, value.data.size());
    }
    return facts;
}

} // namespace

bool OpenRegistryRoom(std::string* error)
{
    Lock lock(DatabaseLock());
    if (!registry::OpenStore(error)) {
        CloseStatements();
        return false;
    }
    for (PredefinedKey& predefined : predefinedKeys)
        predefined.id = registry::FindKey(predefined.path);
    return true;
}

void CloseRegistryRoom()
{
    Lock lock(DatabaseLock());
    CountOpen(&Ledger::keys, -static_cast<int64_t>(openKeys.Clear()));
    for (PredefinedKey& predefined : predefinedKeys)
        predefined.id = 0;
    CloseStatements();
}

} // namespace host

using namespace host;

LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR subKey, DWORD, REGSAM access, PHKEY result)
{
    HOST_CALL_CODE(RegOpenKeyExW, ERROR_ACCESS_DENIED);
    if (!result)
        return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    Lock lock(DatabaseLock());
    Transaction transaction(Transaction::kRead);
    Key base;
    if (LSTATUS status = ResolveLiveKey(key, 0, &base))
        return status;
    if (base.predefined && View(subKey).empty()) {
        *result = key;
        return ERROR_SUCCESS;
    }
    Key found;
    if (LSTATUS status = FindSubKey(base, subKey, &found))
        return status;
    *result = AddHandle(found.id, std::move(found.path), access);
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR subKey, DWORD reserved, LPWSTR, DWORD, REGSAM access,
                               const LPSECURITY_ATTRIBUTES, PHKEY result, LPDWORD disposition)
{
    HOST_CALL_CODE(RegCreateKeyExW, ERROR_ACCESS_DENIED);
    if (reserved || !result)
        return ERROR_INVALID_PARAMETER;
    if (!subKey)
        return ERROR_BADKEY;
    *result = nullptr;
    Lock lock(DatabaseLock());
    Key base;
    if (LSTATUS status = ResolveLiveKey(key, 0, &base))
        return status;
    return CreateAndOpen(base, subKey, access, result, disposition);
}

LSTATUS WINAPI RegCloseKey(HKEY key)
{
    HOST_CALL_VOID(RegCloseKey);
    if (FindPredefined(key))
        return ERROR_SUCCESS;
    Lock lock(DatabaseLock());
    if (!openKeys.Remove(key))
        return ERROR_INVALID_HANDLE;
    CountOpen(&Ledger::keys, -1);
    return ERROR_SUCCESS;
}

LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type, LPBYTE data,
                                LPDWORD size)
{
    HOST_CALL_CODE(RegQueryValueExW, ERROR_ACCESS_DENIED);
    HOST_READ(ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED, size, size, type);
    if (reserved || (data && !size))
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    Key open;
    if (LSTATUS status = ResolveKey(key, KEY_QUERY_VALUE, &open))
        return status;
    auto value = registry::ReadValue(open.id, View(name));
    if (!value)
        return registry::KeyExists(open.id) ? ERROR_FILE_NOT_FOUND : ERROR_KEY_DELETED;
    Give(value->type, type);
    return GiveData(value->data, data, size);
}

LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* data,
                              DWORD size)
{
    HOST_CALL_CODE(RegSetValueExW, ERROR_ACCESS_DENIED);
    if (reserved || (!data && size) || View(name).size() > registry::kValueNameLimit)
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    Key open;
    if (LSTATUS status = ResolveKey(key, KEY_SET_VALUE, &open))
        return status;
    return registry::WriteValue(open.id, View(name), type, Bytes(data, size));
}

LSTATUS WINAPI RegDeleteValueW(HKEY key, LPCWSTR name)
{
    HOST_CALL_CODE(RegDeleteValueW, ERROR_ACCESS_DENIED);
    Lock lock(DatabaseLock());
    Key open;
    if (LSTATUS status = ResolveKey(key, KEY_SET_VALUE, &open))
        return status;
    return registry::DeleteValue(open.id, View(name));
}

LSTATUS WINAPI RegDeleteKeyW(HKEY key, LPCWSTR subKey)
{
    HOST_CALL_CODE(RegDeleteKeyW, ERROR_ACCESS_DENIED);
    if (!subKey)
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    Transaction transaction(Transaction::kWrite);
    if (!transaction)
        return DatabaseError();
    Key base;
    Key doomed;
    if (LSTATUS status = ResolveLiveKey(key, 0, &base))
        return status;
    if (LSTATUS status = FindSubKey(base, subKey, &doomed))
        return status;
    int64_t written;
    bool isRoot = base.predefined && doomed.id == base.id;
    if (isRoot || registry::SubKeyName(doomed.id, 0, &written))
        return ERROR_ACCESS_DENIED;
    if (LSTATUS status = registry::DeleteTree(doomed.id, doomed.path, false))
        return status;
    return transaction.Commit() ? ERROR_SUCCESS : DatabaseError();
}

LSTATUS WINAPI RegDeleteTreeW(HKEY key, LPCWSTR subKey)
{
    HOST_CALL_CODE(RegDeleteTreeW, ERROR_ACCESS_DENIED);
    bool keepKey = View(subKey).empty();
    REGSAM needed = DELETE | KEY_ENUMERATE_SUB_KEYS | KEY_QUERY_VALUE | (keepKey ? KEY_SET_VALUE : 0);
    Lock lock(DatabaseLock());
    Transaction transaction(Transaction::kWrite);
    if (!transaction)
        return DatabaseError();
    Key base;
    Key doomed;
    if (LSTATUS status = ResolveLiveKey(key, needed, &base))
        return status;
    if (LSTATUS status = FindSubKey(base, subKey, &doomed))
        return status;
    if (LSTATUS status = registry::DeleteTree(doomed.id, doomed.path, keepKey))
        return status;
    return transaction.Commit() ? ERROR_SUCCESS : DatabaseError();
}

LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved,
                             LPWSTR keyClass, LPDWORD classSize, PFILETIME lastWrite)
{
    HOST_CALL_CODE(RegEnumKeyExW, ERROR_ACCESS_DENIED);
    if (reserved || !name || !nameSize || (keyClass && !classSize))
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    Key open;
    if (LSTATUS status = ResolveLiveKey(key, KEY_ENUMERATE_SUB_KEYS, &open))
        return status;
    int64_t written;
    auto found = registry::SubKeyName(open.id, index, &written);
    if (!found)
        return ERROR_NO_MORE_ITEMS;
    if (LSTATUS status = GiveName(*found, name, nameSize))
        return status;
    GiveTime(written, lastWrite);
    return keyClass ? GiveName(u"", keyClass, classSize) : ERROR_SUCCESS;
}

LSTATUS WINAPI RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD nameSize, LPDWORD reserved,
                             LPDWORD type, LPBYTE data, LPDWORD size)
{
    HOST_CALL_CODE(RegEnumValueW, ERROR_ACCESS_DENIED);
    HOST_READ(ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED, size, size, type);
    if (reserved || !name || !nameSize || (data && !size))
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    Key open;
    if (LSTATUS status = ResolveLiveKey(key, KEY_QUERY_VALUE, &open))
        return status;
    auto value = registry::ReadValueAt(open.id, index);
    if (!value)
        return ERROR_NO_MORE_ITEMS;
    if (LSTATUS status = GiveName(value->name, name, nameSize))
        return status;
    Give(value->type, type);
    return GiveData(value->data, data, size);
}

LSTATUS WINAPI RegQueryInfoKeyW(HKEY key, LPWSTR keyClass, LPDWORD classSize, LPDWORD reserved,
                                LPDWORD subKeys, LPDWORD maxSubKeySize, LPDWORD maxClassSize, LPDWORD values,
                                LPDWORD maxValueNameSize, LPDWORD maxValueSize, LPDWORD securitySize,
                                PFILETIME lastWrite)
{
    HOST_CALL_CODE(RegQueryInfoKeyW, ERROR_ACCESS_DENIED);
    if (reserved || (keyClass && !classSize))
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    Transaction transaction(Transaction::kRead);
    Key open;
    if (LSTATUS status = ResolveLiveKey(key, KEY_QUERY_VALUE, &open))
        return status;
    KeyFacts facts = CollectFacts(open.id);
    Give(facts.subKeys, subKeys);
    Give(facts.longestSubKey, maxSubKeySize);
    Give(0, maxClassSize);
    Give(facts.values, values);
    Give(facts.longestValueName, maxValueNameSize);
    Give(facts.largestValue, maxValueSize);
    Give(0, securitySize);
    GiveTime(registry::LastWritten(open.id), lastWrite);
    return keyClass ? GiveName(u"", keyClass, classSize) : ERROR_SUCCESS;
}
