#pragma once
// What the spooler's functions share. The spooler keeps nothing of its own: printers, drivers, forms and
// printer data are keys and values of the registry, below Control\Print, where programs may read them too.
// Everything here is called with DatabaseLock() held.
#include <mutex>
#include <string>
#include <string_view>

#include <windows.h>
#include <winspool.h>

#include "host/kernel/world.h"
#include "host/registry/store.h"

namespace host::spooler {

using Lock = std::lock_guard<std::recursive_mutex>;
using registry::KeyId;
using registry::View;

constexpr char kPrintersPath[] = "MACHINE\\SYSTEM\\CURRENTCONTROLSET\\CONTROL\\PRINT\\PRINTERS";
constexpr char kFormsPath[] = "MACHINE\\SYSTEM\\CURRENTCONTROLSET\\CONTROL\\PRINT\\FORMS";
constexpr char kDriversPath[] = "MACHINE\\SYSTEM\\CURRENTCONTROLSET\\CONTROL\\PRINT\\ENVIRONMENTS"
                                "\\WINDOWS X64\\DRIVERS\\VERSION-3";
constexpr char16_t kPrinterDataKey[] = u"PrinterDriverData";

constexpr char16_t kEnvironment[] = u"Windows x64";
constexpr char16_t kDriverDirectory[] = u"C:\\windows\\system32\\spool\\drivers\\x64";
/// Files of installed drivers; the folder is named after the driver version.
constexpr char16_t kDriverFiles[] = u"C:\\windows\\system32\\spool\\drivers\\x64\\3";
constexpr DWORD kDriverVersion = 3;

/// The name that this machine answers to when it is asked for as a server.
constexpr char16_t kServerName[] = u"\\\\WORKSTATION";

struct OpenPrinter
{
    KeyId key = 0;  ///< the printer's key, or the key of all printers for the server itself
    KeyId data = 0; ///< key of the printer data
    bool isServer = false;
    std::u16string name;   ///< as it was created; empty for the server
    std::u16string server; ///< kServerName when the printer was opened with it, else empty
    std::string path;      ///< of `key`
    ACCESS_MASK access = 0;
};

/// Keeps an open printer and gives its handle.
HANDLE AddHandle(OpenPrinter printer);
/// The server or printer behind a handle, or null. The address holds until the handle is closed.
const OpenPrinter* FindHandle(HANDLE handle);

/// Which objects a function can work on.
enum class Target
{
    kAny,
    kPrinter
};

/// Checks a handle: ERROR_INVALID_HANDLE for none or the wrong kind, ERROR_PRINTER_DELETED,
/// ERROR_ACCESS_DENIED without all the rights in `printerRights`.
DWORD UseHandle(HANDLE handle, Target target, ACCESS_MASK printerRights, const OpenPrinter** printer);

/// Whether a server name means this machine: null, empty, or its own name.
bool IsThisServer(LPCWSTR server);
/// Whether an environment is the one this machine has: null or its name.
bool IsThisEnvironment(LPCWSTR environment);

/// Sets the last error of a failed call and returns whether it succeeded.
BOOL Report(DWORD code);

/// A value that must be a text or a number of the right size; empty or 0 otherwise.
std::u16string TextOf(const registry::Value& value);
DWORD NumberOf(const registry::Value& value);
LSTATUS WriteText(KeyId key, std::u16string_view name, std::u16string_view text);
LSTATUS WriteNumber(KeyId key, std::u16string_view name, DWORD number);

/// Whether a driver is installed, and whether a printer uses one.
bool DriverExists(std::u16string_view name);
bool DriverInUse(std::u16string_view name);
/// The name of a printer's driver; empty when there is none.
std::u16string DriverOfPrinter(KeyId printer);

} // namespace host::spooler
