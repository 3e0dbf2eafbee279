#pragma once
// The spooler as commands need it: printers and drivers as plain records, handles with owners.
#include <vector>

#include "tools/psuictl/text.h"

#include <winspool.h>

namespace psuictl {

/// The only environment that drivers are installed for.
inline constexpr WCHAR kEnvironment[] = TEXT("Windows x64");
inline constexpr DWORD kDriverVersion = 3;

/// The spooler's functions take their texts as modifiable, and modify none.
inline LPWSTR SpoolerText(const WideString& text)
{
    return const_cast<LPWSTR>(text.c_str());
}

/// Owner of an open printer.
class PrinterHandle
{
public:
    explicit PrinterHandle(HANDLE printer) : printer_(printer) {}
    ~PrinterHandle()
    {
        if (printer_)
            ClosePrinter(printer_);
    }
    PrinterHandle(PrinterHandle&& other) noexcept : printer_(other.printer_) { other.printer_ = nullptr; }
    PrinterHandle(const PrinterHandle&) = delete;
    PrinterHandle& operator=(const PrinterHandle&) = delete;

    HANDLE get() const { return printer_; }

private:
    HANDLE printer_;
};

struct PrinterRow
{
    WideString name;
    WideString driver;
    WideString processor;
    WideString port;
};

struct DriverRow
{
    WideString name;
    WideString dataFile;
};

/// Lengths in microns.
struct FormRow
{
    WideString name;
    DWORD flags; ///< FORM_ numbers
    LONG width;
    LONG length;
};

/// All printers, and all drivers, of this host. Throws Failure.
std::vector<PrinterRow> ListPrinters();
std::vector<DriverRow> ListDrivers();

/// Opens a printer by name. Throws Failure.
PrinterHandle OpenPrinter(const WideString& name, ACCESS_MASK access = PRINTER_ACCESS_USE);

/// The forms that the printer knows. Throws Failure.
std::vector<FormRow> ListForms(const PrinterHandle& printer);

/// Makes the record, which is as long as it states, the printer's default. The printer is open for all
/// access. Throws Failure.
void StoreDefaultRecord(const PrinterHandle& printer, PDEVMODEW record);

/// Spooler names are compared without regard to case.
bool SameName(const WideString& first, const WideString& second);

/// The row of that name, or null.
template <typename Row>
const Row* FindRow(const std::vector<Row>& rows, const WideString& name)
{
    for (const Row& row : rows) {
        if (SameName(row.name, name))
            return &row;
    }
    return nullptr;
}

} // namespace psuictl
