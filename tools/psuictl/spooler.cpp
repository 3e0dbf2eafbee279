#include "tools/psuictl/spooler.h"

#include <cstddef>

#include "tools/psuictl/failure.h"

namespace psuictl {
namespace {

/// Printers come and go between the two calls of an enumeration; after this many rounds something is wrong.
constexpr int kMaxRounds = 8;

WideString TextOf(LPCWSTR text)
{
    return text ? WideString(text) : WideString();
}

/// Runs a two-call enumeration `ask(buffer, size, needed, count)` and hands every record to `use`.
template <typename Record, typename Ask, typename Use>
void ForEachRecord(const char* what, Ask ask, Use use)
{
    std::vector<std::max_align_t> buffer;
    DWORD needed = 0;
    DWORD count = 0;
    for (int round = 0; round < kMaxRounds; ++round) {
        const DWORD size = static_cast<DWORD>(buffer.size() * sizeof(buffer[0]));
        if (ask(reinterpret_cast<LPBYTE>(buffer.data()), size, &needed, &count)) {
            const auto* records = reinterpret_cast<const Record*>(buffer.data());
            for (DWORD i = 0; i < count; ++i)
                use(records[i]);
            return;
        }
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER)
            break;
        buffer.resize(needed / sizeof(buffer[0]) + 1);
    }
    throw Failure(std::string("the ") + what + " of this host cannot be listed: " +
                  ErrorWords(GetLastError()) + "; check the host's folder");
}

} // namespace

std::vector<PrinterRow> ListPrinters()
{
    std::vector<PrinterRow> rows;
    ForEachRecord<PRINTER_INFO_2W>(
        "printers",
        [](LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD count) {
            return EnumPrintersW(PRINTER_ENUM_LOCAL, nullptr, 2, buffer, size, needed, count);
        },
        [&](const PRINTER_INFO_2W& info) {
            rows.push_back({TextOf(info.pPrinterName), TextOf(info.pDriverName), TextOf(info.pPrintProcessor),
                            TextOf(info.pPortName)});
        });
    return rows;
}

std::vector<DriverRow> ListDrivers()
{
    std::vector<DriverRow> rows;
    WideString environment = kEnvironment;
    ForEachRecord<DRIVER_INFO_2W>(
        "drivers",
        [&](LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD count) {
            return EnumPrinterDriversW(nullptr, environment.data(), 2, buffer, size, needed, count);
        },
        [&](const DRIVER_INFO_2W& info) {
            rows.push_back({TextOf(info.pName), TextOf(info.pDataFile)});
        });
    return rows;
}

PrinterHandle OpenPrinter(const WideString& name, ACCESS_MASK access)
{
    PRINTER_DEFAULTSW defaults = {nullptr, nullptr, access};
    HANDLE printer = nullptr;
    if (!OpenPrinterW(SpoolerText(name), &printer, &defaults))
        throw Failure("printer '" + Utf8(name) + "' cannot be opened: " + ErrorWords(GetLastError()) +
                      "; 'psuictl printer list' shows the printers there are");
    return PrinterHandle(printer);
}

bool SameName(const WideString& first, const WideString& second)
{
    return CompareStringOrdinal(first.c_str(), static_cast<int>(first.size()), second.c_str(),
                                static_cast<int>(second.size()), TRUE) == CSTR_EQUAL;
}

} // namespace psuictl
