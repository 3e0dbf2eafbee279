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

using Block = std::vector<std::max_align_t>;

/// The block that a two-call reader `ask(buffer, size, needed)` fills.
template <typename Ask>
Block ReadBlock(const std::string& what, Ask ask)
{
    Block block;
    DWORD needed = 0;
    for (int round = 0; round < kMaxRounds; ++round) {
        const DWORD size = static_cast<DWORD>(block.size() * sizeof(block[0]));
        if (ask(reinterpret_cast<LPBYTE>(block.data()), size, &needed))
            return block;
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER)
            break;
        block.resize(needed / sizeof(block[0]) + 1);
    }
    throw Failure("the " + what + " of this host cannot be read: " + ErrorWords(GetLastError()) +
                  "; check the host's folder");
}

/// Runs a two-call enumeration `ask(buffer, size, needed, count)` and hands every record to `use`.
template <typename Record, typename Ask, typename Use>
void ForEachRecord(const char* what, Ask ask, Use use)
{
    DWORD count = 0;
    const Block block = ReadBlock(
        what, [&](LPBYTE buffer, DWORD size, LPDWORD needed) { return ask(buffer, size, needed, &count); });
    const auto* records = reinterpret_cast<const Record*>(block.data());
    for (DWORD i = 0; i < count; ++i)
        use(records[i]);
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

std::vector<FormRow> ListForms(const PrinterHandle& printer)
{
    std::vector<FormRow> rows;
    ForEachRecord<FORM_INFO_1W>(
        "forms",
        [&](LPBYTE buffer, DWORD size, LPDWORD needed, LPDWORD count) {
            return EnumFormsW(printer.get(), 1, buffer, size, needed, count);
        },
        [&](const FORM_INFO_1W& info) {
            rows.push_back({TextOf(info.pName), info.Flags, info.Size.cx, info.Size.cy});
        });
    return rows;
}

void StoreDefaultRecord(const PrinterHandle& printer, PDEVMODEW record)
{
    Block block = ReadBlock("printers", [&](LPBYTE buffer, DWORD size, LPDWORD needed) {
        return GetPrinterW(printer.get(), 2, buffer, size, needed);
    });
    auto* info = reinterpret_cast<PRINTER_INFO_2W*>(block.data());
    info->pDevMode = record;
    info->pSecurityDescriptor = nullptr; // stays as it is
    if (!SetPrinterW(printer.get(), 2, reinterpret_cast<LPBYTE>(info), 0))
        throw Failure("the record cannot be stored: " + ErrorWords(GetLastError()) +
                      "; check that it belongs to the printer's driver");
}

bool SameName(const WideString& first, const WideString& second)
{
    return CompareStringOrdinal(first.c_str(), static_cast<int>(first.size()), second.c_str(),
                                static_cast<int>(second.size()), TRUE) == CSTR_EQUAL;
}

} // namespace psuictl
