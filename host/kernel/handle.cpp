#include "host/kernel/handle.h"

#include <cstdint>
#include <mutex>
#include <vector>

#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

// Handle values are multiples of four that start above null, as on the platform.
constexpr uintptr_t kHandleStep = 4;

std::mutex tableLock;
std::vector<std::shared_ptr<Object>> table;
std::vector<size_t> freePlaces;

/// The table's entry for a handle, or null. Hold tableLock.
std::shared_ptr<Object>* EntryOf(HANDLE handle)
{
    const auto value = reinterpret_cast<uintptr_t>(handle);
    const uintptr_t place = value / kHandleStep - 1;
    if (value % kHandleStep != 0 || place >= table.size() || table[place] == nullptr)
        return nullptr;
    return &table[place];
}

} // namespace

HANDLE NewHandle(std::shared_ptr<Object> object)
{
    std::lock_guard lock(tableLock);
    size_t place = table.size();
    if (freePlaces.empty()) {
        table.push_back(std::move(object));
    } else {
        place = freePlaces.back();
        freePlaces.pop_back();
        table[place] = std::move(object);
    }
    return reinterpret_cast<HANDLE>((place + 1) * kHandleStep);
}

std::shared_ptr<Object> ObjectOf(HANDLE handle, HandleKind kind)
{
    std::lock_guard lock(tableLock);
    const std::shared_ptr<Object>* entry = EntryOf(handle);
    if (entry != nullptr && (*entry)->kind == kind)
        return *entry;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

BOOL CloseObject(HANDLE handle, bool find)
{
    std::shared_ptr<Object> object;
    {
        std::lock_guard lock(tableLock);
        std::shared_ptr<Object>* entry = EntryOf(handle);
        if (entry == nullptr || ((*entry)->kind == HandleKind::Find) != find)
            return FailWith(ERROR_INVALID_HANDLE);
        object = std::move(*entry);
        entry->reset();
        freePlaces.push_back(static_cast<size_t>(entry - table.data()));
    }
    object->HandleClosed();
    return TRUE;
}

void CloseAllHandles()
{
    std::vector<std::shared_ptr<Object>> open;
    {
        std::lock_guard lock(tableLock);
        open.swap(table);
        freePlaces.clear();
    }
    for (const std::shared_ptr<Object>& object : open) {
        if (object != nullptr)
            object->HandleClosed();
    }
}

} // namespace host

BOOL WINAPI CloseHandle(HANDLE object)
{
    HOST_CALL_VOID(CloseHandle);
    return host::CloseObject(object, false);
}
