// Opening and closing, and what every function asks of a handle.
#include "host/spooler/spooler.h"

#include <cstring>
#include <filesystem>

#include "host/kernel/call.h"
#include "host/registry/database.h"
#include "host/registry/handles.h"

namespace host {
namespace spooler {
namespace {

HandleTable<OpenPrinter> openPrinters(0x40000000);

constexpr ACCESS_MASK kPrinterRights = PRINTER_ALL_ACCESS;
constexpr ACCESS_MASK kServerRights =
    STANDARD_RIGHTS_REQUIRED | SERVER_ACCESS_ADMINISTER | SERVER_ACCESS_ENUMERATE;
constexpr ACCESS_MASK kAnyGeneric = GENERIC_READ | GENERIC_WRITE | GENERIC_EXECUTE | GENERIC_ALL;

// Rights to give for those asked for; 0 when the object has no such rights.
ACCESS_MASK GrantedRights(ACCESS_MASK wanted, ACCESS_MASK all, ACCESS_MASK use)
{
    if (wanted & (GENERIC_ALL | MAXIMUM_ALLOWED))
        return all;
    if (wanted == 0 || wanted & kAnyGeneric)
        wanted |= use;
    wanted &= ~kAnyGeneric;
    return wanted & ~all ? 0 : wanted;
}

// Splits "\\SERVER\NAME" and "\\SERVER". A name without server stays whole.
void SplitName(std::u16string_view full, std::u16string_view* server, std::u16string_view* name)
{
    *server = {};
    *name = full;
    if (!full.starts_with(u"\\\\"))
        return;
    size_t end = full.find(u'\\', 2);
    *server = full.substr(0, end);
    *name = end == full.npos ? std::u16string_view() : full.substr(end + 1);
}

DWORD FindServer(OpenPrinter* printer)
{
    printer->isServer = true;
    printer->path = kPrintersPath;
    printer->key = printer->data = registry::FindKey(kPrintersPath);
    return printer->key ? ERROR_SUCCESS : DatabaseError();
}

DWORD FindPrinter(std::u16string_view name, OpenPrinter* printer)
{
    if (name.empty() || name.find(u'\\') != name.npos)
        return ERROR_INVALID_PRINTER_NAME;
    auto path = registry::JoinPath(kPrintersPath, name);
    printer->key = path ? registry::FindKey(*path) : 0;
    if (!printer->key)
        return ERROR_INVALID_PRINTER_NAME;
    printer->name = registry::KeyName(printer->key);
    printer->path = *path;
    printer->data = registry::FindKey(registry::JoinPath(*path, kPrinterDataKey).value());
    return ERROR_SUCCESS;
}

DWORD Find(LPCWSTR fullName, OpenPrinter* printer)
{
    Transaction transaction(Transaction::kRead);
    if (!fullName)
        return FindServer(printer);
    std::u16string_view server, name;
    SplitName(fullName, &server, &name);
    if (!server.empty() && !EqualNoCase(server, kServerName))
        return ERROR_INVALID_PRINTER_NAME;
    printer->server = server;
    return name.empty() && !server.empty() ? FindServer(printer) : FindPrinter(name, printer);
}

DWORD Open(LPCWSTR name, ACCESS_MASK wanted, HANDLE* handle)
{
    OpenPrinter printer;
    if (DWORD error = Find(name, &printer))
        return error;
    printer.access = printer.isServer ? GrantedRights(wanted, kServerRights, SERVER_ACCESS_ENUMERATE)
                                      : GrantedRights(wanted, kPrinterRights, PRINTER_ACCESS_USE);
    if (!printer.access)
        return ERROR_ACCESS_DENIED;
    // Somebody may have cleaned up too much in the registry.
    if (!printer.data)
        printer.data = registry::CreateKey(printer.path, kPrinterDataKey);
    if (!printer.data)
        return DatabaseError();
    *handle = AddHandle(std::move(printer));
    return ERROR_SUCCESS;
}

bool MakeFolder(std::u16string_view windowsPath)
{
    std::error_code code;
    std::filesystem::create_directories(NativePath(windowsPath), code);
    return !code;
}

} // namespace

HANDLE AddHandle(OpenPrinter printer)
{
    CountOpen(&Ledger::printers, 1);
    return openPrinters.Add(std::move(printer));
}

const OpenPrinter* FindHandle(HANDLE handle)
{
    return openPrinters.Find(handle);
}

DWORD UseHandle(HANDLE handle, Target target, ACCESS_MASK printerRights, const OpenPrinter** printer)
{
    *printer = FindHandle(handle);
    if (!*printer || (target == Target::kPrinter && (*printer)->isServer))
        return ERROR_INVALID_HANDLE;
    if (!registry::KeyExists((*printer)->key))
        return ERROR_PRINTER_DELETED;
    return ((*printer)->access & printerRights) == printerRights ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

bool IsThisServer(LPCWSTR server)
{
    return View(server).empty() || EqualNoCase(server, kServerName);
}

bool IsThisEnvironment(LPCWSTR environment)
{
    return View(environment).empty() || EqualNoCase(environment, kEnvironment);
}

BOOL Report(DWORD code)
{
    if (code != ERROR_SUCCESS)
        SetLastError(code);
    return code == ERROR_SUCCESS;
}

std::u16string TextOf(const registry::Value& value)
{
    return registry::AsText(value).value_or(u"");
}

DWORD NumberOf(const registry::Value& value)
{
    DWORD number = 0;
    if (value.type == REG_DWORD && value.data.size() == sizeof number)
        memcpy(&number, value.data.data(), sizeof number);
    return number;
}

LSTATUS WriteText(KeyId key, std::u16string_view name, std::u16string_view text)
{
    return registry::WriteValue(key, name, REG_SZ, registry::TextBytes(text));
}

LSTATUS WriteNumber(KeyId key, std::u16string_view name, DWORD number)
{
    return registry::WriteValue(key, name, REG_DWORD,
                                {reinterpret_cast<const char*>(&number), sizeof number});
}

} // namespace spooler

using namespace spooler;

bool OpenSpoolerRoom(std::string* error)
{
    Lock lock(DatabaseLock());
    bool ready =
        registry::CreateKey(registry::kMachine, u"SYSTEM\\CurrentControlSet\\Control\\Print\\Forms") &&
        registry::CreateKey(registry::kMachine, u"SYSTEM\\CurrentControlSet\\Control\\Print\\Environments"
                                                u"\\Windows x64\\Drivers\\Version-3") &&
        MakeFolder(kDriverFiles) && MakeFolder(u"C:\\windows\\system32\\spool\\PRINTERS");
    if (!ready && error)
        *error = "The spooler's keys and folders cannot be made.";
    return ready;
}

void CloseSpoolerRoom()
{
    Lock lock(DatabaseLock());
    CountOpen(&Ledger::printers, -static_cast<int64_t>(openPrinters.Clear()));
}

} // namespace host

using namespace host;
using namespace host::spooler;

BOOL WINAPI OpenPrinterW(LPWSTR name, LPHANDLE printer, LPPRINTER_DEFAULTSW defaults)
{
    HOST_CALL(OpenPrinterW, FALSE, ERROR_ACCESS_DENIED);
    if (!printer)
        return Report(ERROR_INVALID_PARAMETER);
    *printer = nullptr;
    Lock lock(DatabaseLock());
    return Report(Open(name, defaults ? defaults->DesiredAccess : 0, printer));
}

BOOL WINAPI ClosePrinter(HANDLE printer)
{
    HOST_CALL_VOID(ClosePrinter);
    Lock lock(DatabaseLock());
    if (!openPrinters.Remove(printer))
        return Report(ERROR_INVALID_HANDLE);
    CountOpen(&Ledger::printers, -1);
    return TRUE;
}
