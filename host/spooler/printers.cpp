// Printers: one key each, whose values are the platform's own. The same rows read a printer from its key,
// write it there, take it from a caller's record and put it into one.
#include <algorithm>
#include <cstring>

#include "host/kernel/call.h"
#include "host/registry/database.h"
#include "host/spooler/answer.h"
#include "host/spooler/spooler.h"

namespace host::spooler {
namespace {

struct Printer
{
    std::u16string name;
    std::u16string share;
    std::u16string port;
    std::u16string driver;
    std::u16string comment;
    std::u16string location;
    std::u16string separator;
    std::u16string processor;
    std::u16string datatype;
    std::u16string parameters;
    std::string devMode; ///< public and private part, or empty
    DWORD attributes = 0;
    DWORD priority = 0;
    DWORD defaultPriority = 0;
    DWORD startTime = 0;
    DWORD untilTime = 0;
    DWORD status = 0;
};

struct TextRow
{
    const char16_t* value;
    std::u16string Printer::*field;
    LPWSTR PRINTER_INFO_2W::*info;
};

struct NumberRow
{
    const char16_t* value;
    DWORD Printer::*field;
    DWORD PRINTER_INFO_2W::*info;
};

constexpr TextRow kTextRows[] = {
    {u"Name", &Printer::name, &PRINTER_INFO_2W::pPrinterName},
    {u"Share Name", &Printer::share, &PRINTER_INFO_2W::pShareName},
    {u"Port", &Printer::port, &PRINTER_INFO_2W::pPortName},
    {u"Printer Driver", &Printer::driver, &PRINTER_INFO_2W::pDriverName},
    {u"Description", &Printer::comment, &PRINTER_INFO_2W::pComment},
    {u"Location", &Printer::location, &PRINTER_INFO_2W::pLocation},
    {u"Separator File", &Printer::separator, &PRINTER_INFO_2W::pSepFile},
    {u"Print Processor", &Printer::processor, &PRINTER_INFO_2W::pPrintProcessor},
    {u"Datatype", &Printer::datatype, &PRINTER_INFO_2W::pDatatype},
    {u"Parameters", &Printer::parameters, &PRINTER_INFO_2W::pParameters},
};

constexpr NumberRow kNumberRows[] = {
    {u"Attributes", &Printer::attributes, &PRINTER_INFO_2W::Attributes},
    {u"Priority", &Printer::priority, &PRINTER_INFO_2W::Priority},
    {u"Default Priority", &Printer::defaultPriority, &PRINTER_INFO_2W::DefaultPriority},
    {u"StartTime", &Printer::startTime, &PRINTER_INFO_2W::StartTime},
    {u"UntilTime", &Printer::untilTime, &PRINTER_INFO_2W::UntilTime},
    {u"Status", &Printer::status, &PRINTER_INFO_2W::Status},
};

constexpr char16_t kDevModeValue[] = u"Default DevMode";
constexpr size_t kNameLimit = 220; // UTF-16 units, as the platform documents
constexpr size_t kDevModeHead = offsetof(DEVMODEW, dmFields);

// A record's bytes when its own sizes fit into `limit`.
std::string DevModeBytes(const void* record, size_t limit)
{
    WORD size, extra;
    if (limit < kDevModeHead)
        return {};
    memcpy(&size, static_cast<const char*>(record) + offsetof(DEVMODEW, dmSize), sizeof size);
    memcpy(&extra, static_cast<const char*>(record) + offsetof(DEVMODEW, dmDriverExtra), sizeof extra);
    size_t whole = size_t{size} + extra;
    if (size < kDevModeHead || whole > limit)
        return {};
    return {static_cast<const char*>(record), whole};
}

void ReadInto(const registry::Value& value, Printer* printer)
{
    for (const TextRow& row : kTextRows) {
        if (EqualNoCase(value.name, row.value))
            printer->*row.field = TextOf(value);
    }
    for (const NumberRow& row : kNumberRows) {
        if (EqualNoCase(value.name, row.value))
            printer->*row.field = NumberOf(value);
    }
    if (EqualNoCase(value.name, kDevModeValue))
        printer->devMode = DevModeBytes(value.data.data(), value.data.size());
}

Printer ReadPrinter(KeyId key, const std::u16string& name)
{
    Printer printer;
    for (const registry::Value& value : registry::Values(key))
        ReadInto(value, &printer);
    // The key's name is the printer's, whatever somebody wrote into the value.
    printer.name = name;
    return printer;
}

LSTATUS WritePrinter(KeyId key, const Printer& printer)
{
    for (const TextRow& row : kTextRows) {
        if (LSTATUS error = WriteText(key, row.value, printer.*row.field))
            return error;
    }
    for (const NumberRow& row : kNumberRows) {
        if (LSTATUS error = WriteNumber(key, row.value, printer.*row.field))
            return error;
    }
    if (printer.devMode.empty())
        return ERROR_SUCCESS;
    return registry::WriteValue(key, kDevModeValue, REG_BINARY, printer.devMode);
}

// Takes over a caller's record; without a settings record the printer keeps its own.
DWORD TakeInfo(const PRINTER_INFO_2W& info, Printer* printer)
{
    for (const TextRow& row : kTextRows)
        printer->*row.field = View(info.*row.info);
    for (const NumberRow& row : kNumberRows)
        printer->*row.field = info.*row.info;
    printer->attributes |= PRINTER_ATTRIBUTE_LOCAL;
    if (!info.pDevMode)
        return ERROR_SUCCESS;
    printer->devMode = DevModeBytes(info.pDevMode, SIZE_MAX);
    return printer->devMode.empty() ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
}

bool IsPrinterName(std::u16string_view name)
{
    return !name.empty() && name.size() <= kNameLimit && name.find_first_of(u"\\,") == name.npos;
}

// "LPT1:" and its like: a stem, digits and a colon; USB ports have three digits and no colon.
bool IsNumbered(std::u16string_view port, std::u16string_view stem, std::u16string_view end)
{
    if (port.size() <= stem.size() + end.size() || !EqualNoCase(port.substr(0, stem.size()), stem) ||
        !port.ends_with(end))
        return false;
    std::u16string_view digits = port.substr(stem.size(), port.size() - stem.size() - end.size());
    return digits.find_first_not_of(u"0123456789") == digits.npos;
}

bool IsPort(std::u16string_view port)
{
    return EqualNoCase(port, u"FILE:") || EqualNoCase(port, u"NUL:") || EqualNoCase(port, u"PORTPROMPT:") ||
           IsNumbered(port, u"LPT", u":") || IsNumbered(port, u"COM", u":") || IsNumbered(port, u"USB", u"");
}

// A pool of printers lists its ports with commas.
bool ArePorts(std::u16string_view ports)
{
    for (;;) {
        size_t comma = ports.find(u',');
        if (!IsPort(ports.substr(0, comma)))
            return false;
        if (comma == ports.npos)
            return true;
        ports.remove_prefix(comma + 1);
    }
}

DWORD CheckPrinter(const Printer& printer)
{
    if (!IsPrinterName(printer.name))
        return ERROR_INVALID_PRINTER_NAME;
    if (!ArePorts(printer.port))
        return ERROR_UNKNOWN_PORT;
    if (!DriverExists(printer.driver))
        return ERROR_UNKNOWN_PRINTER_DRIVER;
    // Makers bring their own print processors, which this machine never runs: any name will do.
    return printer.processor.empty() ? ERROR_UNKNOWN_PRINTPROCESSOR : ERROR_SUCCESS;
}

DWORD Store(KeyId key, const Printer& printer, Transaction* transaction)
{
    if (LSTATUS error = WritePrinter(key, printer))
        return error;
    return transaction->Commit() ? ERROR_SUCCESS : DatabaseError();
}

DWORD AddNewPrinter(const PRINTER_INFO_2W& info, HANDLE* handle)
{
    Printer printer;
    if (DWORD error = TakeInfo(info, &printer))
        return error;
    if (DWORD error = CheckPrinter(printer))
        return error;
    Transaction transaction(Transaction::kWrite);
    std::string path = registry::JoinPath(kPrintersPath, printer.name).value();
    if (registry::FindKey(path))
        return ERROR_PRINTER_ALREADY_EXISTS;
    KeyId key = registry::CreateKey(kPrintersPath, printer.name);
    KeyId data = key ? registry::CreateKey(path, kPrinterDataKey) : 0;
    if (!data)
        return DatabaseError();
    if (DWORD error = Store(key, printer, &transaction))
        return error;
    *handle = AddHandle({key, data, false, printer.name, u"", path, PRINTER_ALL_ACCESS});
    return ERROR_SUCCESS;
}

DWORD ChangePrinter(const OpenPrinter& open, const PRINTER_INFO_2W& info)
{
    Transaction transaction(Transaction::kWrite);
    Printer printer = ReadPrinter(open.key, open.name);
    if (DWORD error = TakeInfo(info, &printer))
        return error;
    if (!open.server.empty() && printer.name.starts_with(open.server + u"\\"))
        printer.name.erase(0, open.server.size() + 1);
    if (!EqualNoCase(printer.name, open.name))
        return ERROR_NOT_SUPPORTED;
    printer.name = open.name;
    if (DWORD error = CheckPrinter(printer))
        return error;
    return Store(open.key, printer, &transaction);
}

std::u16string FullName(const Printer& printer, const std::u16string& server)
{
    return server.empty() ? printer.name : server + u"\\" + printer.name;
}

void PackLevel1(Packer& packer, const Printer& printer, const std::u16string& server)
{
    const std::u16string name = FullName(printer, server);
    PRINTER_INFO_1W info = {};
    info.Flags = PRINTER_ENUM_ICON8;
    info.pDescription = packer.Text(name + u"," + printer.driver + u"," + printer.location);
    info.pName = packer.Text(name);
    info.pComment = packer.Text(printer.comment);
    packer.Add(info);
}

void PackLevel2(Packer& packer, const Printer& printer, const std::u16string& server)
{
    PRINTER_INFO_2W info = {};
    for (const TextRow& row : kTextRows)
        info.*row.info =
            packer.Text(row.field == &Printer::name ? FullName(printer, server) : printer.*row.field);
    for (const NumberRow& row : kNumberRows)
        info.*row.info = printer.*row.field;
    info.pServerName = packer.OptionalText(server);
    info.pDevMode = static_cast<PDEVMODEW>(packer.Block(printer.devMode));
    packer.Add(info);
}

void PackLevel4(Packer& packer, const Printer& printer, const std::u16string& server)
{
    PRINTER_INFO_4W info = {};
    info.pPrinterName = packer.Text(FullName(printer, server));
    info.pServerName = packer.OptionalText(server);
    info.Attributes = printer.attributes;
    packer.Add(info);
}

using PackFunction = void (*)(Packer&, const Printer&, const std::u16string& server);

PackFunction PackerOfLevel(DWORD level)
{
    switch (level) {
    case 1:
        return PackLevel1;
    case 2:
        return PackLevel2;
    case 4:
        return PackLevel4;
    default:
        return nullptr;
    }
}

DWORD ReadInfo(HANDLE handle, PackFunction pack, const Request& request)
{
    Transaction transaction(Transaction::kRead);
    const OpenPrinter* open;
    if (DWORD error = UseHandle(handle, Target::kPrinter, 0, &open))
        return error;
    Printer printer = ReadPrinter(open->key, open->name);
    return request.Answer([&](Packer& packer) { pack(packer, printer, open->server); });
}

std::vector<Printer> AllPrinters()
{
    Transaction transaction(Transaction::kRead);
    std::vector<Printer> printers;
    for (const std::u16string& name : registry::SubKeyNames(registry::FindKey(kPrintersPath))) {
        auto path = registry::JoinPath(kPrintersPath, name);
        printers.push_back(ReadPrinter(path ? registry::FindKey(*path) : 0, name));
    }
    return printers;
}

DWORD ReadAll(PackFunction pack, const Request& request, LPDWORD count)
{
    std::vector<Printer> printers = AllPrinters();
    DWORD error = request.Answer([&](Packer& packer) {
        for (const Printer& printer : printers)
            pack(packer, printer, u"");
    });
    *count = error ? 0 : static_cast<DWORD>(printers.size());
    return error;
}

} // namespace

bool DriverInUse(std::u16string_view name)
{
    std::vector<Printer> printers = AllPrinters();
    return std::ranges::any_of(printers, [&](const Printer& p) { return EqualNoCase(p.driver, name); });
}

std::u16string DriverOfPrinter(KeyId printer)
{
    auto value = registry::ReadValue(printer, u"Printer Driver");
    return value ? TextOf(*value) : u"";
}

} // namespace host::spooler

using namespace host;
using namespace host::spooler;

BOOL WINAPI GetPrinterW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed)
{
    HOST_CALL(GetPrinterW, FALSE, ERROR_ACCESS_DENIED);
    HOST_READ(FALSE, ERROR_ACCESS_DENIED, &size, needed, nullptr);
    Request request = {buffer, size, needed};
    PackFunction pack = PackerOfLevel(level);
    if (!pack)
        return Report(ERROR_INVALID_LEVEL);
    if (DWORD error = request.Check())
        return Report(error);
    Lock lock(DatabaseLock());
    return Report(ReadInfo(printer, pack, request));
}

BOOL WINAPI SetPrinterW(HANDLE printer, DWORD level, LPBYTE info, DWORD command)
{
    HOST_CALL(SetPrinterW, FALSE, ERROR_ACCESS_DENIED);
    if (command != 0)
        return Report(ERROR_INVALID_PRINTER_COMMAND);
    if (level != 2)
        return Report(ERROR_INVALID_LEVEL);
    if (!info)
        return Report(ERROR_INVALID_PARAMETER);
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    if (DWORD error = UseHandle(printer, Target::kPrinter, PRINTER_ACCESS_ADMINISTER, &open))
        return Report(error);
    return Report(ChangePrinter(*open, *reinterpret_cast<const PRINTER_INFO_2W*>(info)));
}

BOOL WINAPI EnumPrintersW(DWORD flags, LPWSTR name, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed,
                          LPDWORD count)
{
    HOST_CALL(EnumPrintersW, FALSE, ERROR_ACCESS_DENIED);
    HOST_READ(FALSE, ERROR_ACCESS_DENIED, &size, needed, nullptr);
    Request request = {buffer, size, needed};
    PackFunction pack = PackerOfLevel(level);
    if (!pack)
        return Report(ERROR_INVALID_LEVEL);
    if (DWORD error = request.Check())
        return Report(error);
    if (!count)
        return Report(RPC_X_NULL_REF_POINTER);
    *needed = *count = 0;
    if (!(flags & (PRINTER_ENUM_LOCAL | PRINTER_ENUM_NAME)))
        return TRUE;
    if (flags & PRINTER_ENUM_NAME && !IsThisServer(name))
        return Report(ERROR_INVALID_NAME);
    Lock lock(DatabaseLock());
    return Report(ReadAll(pack, request, count));
}

HANDLE WINAPI AddPrinterW(LPWSTR server, DWORD level, LPBYTE info)
{
    HOST_CALL(AddPrinterW, nullptr, ERROR_ACCESS_DENIED);
    HANDLE handle = nullptr;
    if (level != 2)
        Report(ERROR_INVALID_LEVEL);
    else if (!info)
        Report(ERROR_INVALID_PARAMETER);
    else if (!IsThisServer(server))
        Report(RPC_S_SERVER_UNAVAILABLE);
    else {
        Lock lock(DatabaseLock());
        Report(AddNewPrinter(*reinterpret_cast<const PRINTER_INFO_2W*>(info), &handle));
    }
    return handle;
}

BOOL WINAPI DeletePrinter(HANDLE printer)
{
    HOST_CALL(DeletePrinter, FALSE, ERROR_ACCESS_DENIED);
    Lock lock(DatabaseLock());
    const OpenPrinter* open;
    if (DWORD error = UseHandle(printer, Target::kPrinter, PRINTER_ACCESS_ADMINISTER, &open))
        return Report(error);
    return Report(registry::DeleteTree(open->key, open->path, false));
}
