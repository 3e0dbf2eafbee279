// Printer data: the values of a printer's PrinterDriverData key. The server's data are the values of the key
// that all printers lie in.
#include <algorithm>
#include <cstring>

#include "host/kernel/call.h"
#include "host/spooler/spooler.h"

namespace host::spooler {
namespace {

DWORD GiveBytes(std::string_view bytes, LPBYTE data, DWORD size, LPDWORD needed)
{
    *needed = static_cast<DWORD>(bytes.size());
    if (size < bytes.size())
        return ERROR_MORE_DATA;
    if (!bytes.empty())
        memcpy(data, bytes.data(), bytes.size());
    return ERROR_SUCCESS;
}

DWORD ReadData(HANDLE handle, LPCWSTR name, LPDWORD type, LPBYTE data, DWORD size, LPDWORD needed)
{
    const OpenPrinter* printer = FindHandle(handle);
    if (!printer)
        return ERROR_INVALID_HANDLE;
    auto value = registry::ReadValue(printer->data, name);
    if (!value)
        return registry::KeyExists(printer->key) ? ERROR_FILE_NOT_FOUND : ERROR_PRINTER_DELETED;
    if (type)
        *type = value->type;
    return GiveBytes(value->data, data, size, needed);
}

// The handle of a caller who may change the printer's data.
DWORD UseForChange(HANDLE handle, const OpenPrinter** printer)
{
    const OpenPrinter* found = FindHandle(handle);
    bool isServer = found && found->isServer;
    return UseHandle(handle, Target::kAny, isServer ? SERVER_ACCESS_ADMINISTER : PRINTER_ACCESS_ADMINISTER,
                     printer);
}

// Both sizes 0 ask for the room that the largest name and the largest data take.
DWORD MeasureData(KeyId key, LPDWORD nameNeeded, LPDWORD dataNeeded)
{
    size_t name = 0, data = 0;
    for (const registry::Value& value : registry::Values(key)) {
        name = std::max(name, registry::TextBytes(value.name).size());
        data = std::max(data, value.data.size());
    }
    *nameNeeded = static_cast<DWORD>(name);
    *dataNeeded = static_cast<DWORD>(data);
    return ERROR_SUCCESS;
}

struct EnumeratedData
{
    LPWSTR name;
    DWORD nameSize; ///< bytes
    LPDWORD nameNeeded;
    LPDWORD type;
    LPBYTE data;
    DWORD dataSize;
    LPDWORD dataNeeded;
};

DWORD ReadDataAt(KeyId key, DWORD index, const EnumeratedData& out)
{
    auto value = registry::ReadValueAt(key, index);
    if (!value)
        return ERROR_NO_MORE_ITEMS;
    if (out.type)
        *out.type = value->type;
    // Both needs are told even when the first buffer is already too small.
    DWORD first = GiveBytes(registry::TextBytes(value->name), reinterpret_cast<LPBYTE>(out.name),
                            out.nameSize, out.nameNeeded);
    DWORD second = GiveBytes(value->data, out.data, out.dataSize, out.dataNeeded);
    return first ? first : second;
}

} // namespace
} // namespace host::spooler

using namespace host;
using namespace host::spooler;

DWORD WINAPI GetPrinterDataW(HANDLE printer, LPWSTR value, LPDWORD type, LPBYTE data, DWORD size,
                             LPDWORD needed)
{
    HOST_CALL_CODE(GetPrinterDataW, ERROR_ACCESS_DENIED);
    HOST_READ(ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED, &size, needed, type);
    if (!needed)
        return RPC_X_NULL_REF_POINTER;
    if (!value || (size && !data))
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    return ReadData(printer, value, type, data, size, needed);
}

DWORD WINAPI SetPrinterDataW(HANDLE printer, LPWSTR value, DWORD type, LPBYTE data, DWORD size)
{
    HOST_CALL_CODE(SetPrinterDataW, ERROR_ACCESS_DENIED);
    if (View(value).empty() || View(value).size() > registry::kValueNameLimit || (size && !data))
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    if (DWORD error = UseForChange(printer, &open))
        return error;
    return registry::WriteValue(open->data, value, type, {reinterpret_cast<const char*>(data), size});
}

DWORD WINAPI DeletePrinterDataW(HANDLE printer, LPWSTR value)
{
    HOST_CALL_CODE(DeletePrinterDataW, ERROR_ACCESS_DENIED);
    if (View(value).empty())
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    if (DWORD error = UseForChange(printer, &open))
        return error;
    return registry::DeleteValue(open->data, value);
}

DWORD WINAPI EnumPrinterDataW(HANDLE printer, DWORD index, LPWSTR value, DWORD valueSize, LPDWORD valueNeeded,
                              LPDWORD type, LPBYTE data, DWORD dataSize, LPDWORD dataNeeded)
{
    HOST_CALL_CODE(EnumPrinterDataW, ERROR_ACCESS_DENIED);
    HOST_READ(ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED, &dataSize, dataNeeded, type);
    if (!valueNeeded || !dataNeeded)
        return RPC_X_NULL_REF_POINTER;
    if ((valueSize && !value) || (dataSize && !data))
        return ERROR_INVALID_PARAMETER;
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    if (DWORD error = UseHandle(printer, Target::kAny, 0, &open))
        return error;
    if (!valueSize && !dataSize)
        return MeasureData(open->data, valueNeeded, dataNeeded);
    return ReadDataAt(open->data, index, {value, valueSize, valueNeeded, type, data, dataSize, dataNeeded});
}
