#pragma once
// Spooler information in blocks of the right size.
#include <windows.h>
#include <winspool.h>

#include "psui/base/memory.h"

namespace psui {

/// A block that the spooler filled: records of type Info first, their texts behind them.
template <typename Info>
struct SpoolerBlock
{
    HeapPtr<BYTE> bytes; ///< null when the spooler gave nothing
    DWORD size = 0;

    const Info* get() const { return reinterpret_cast<const Info*>(bytes.get()); }
    const Info* operator->() const { return get(); }
    explicit operator bool() const { return bytes != nullptr; }
};

/// The printer's information of `level`, or nothing. Info is that level's record, PRINTER_INFO_2W for 2.
template <typename Info = PRINTER_INFO_2W>
SpoolerBlock<Info> GetPrinterInfo(HANDLE printer, DWORD level = 2);

/// The information of the printer's driver for the current environment, or nothing.
template <typename Info = DRIVER_INFO_2W>
SpoolerBlock<Info> GetDriverInfo(HANDLE printer, DWORD level = 2);

/// The printer's forms (level 1) and their number, or nothing and 0. Names are null or end inside the block;
/// where the spooler gave another one, the forms end.
SpoolerBlock<FORM_INFO_1W> EnumPrinterForms(HANDLE printer, DWORD& count);

/// The stored default record of the printer, or null when there is none or the record states more bytes than
/// its block holds.
const DEVMODEW* StoredDevMode(const SpoolerBlock<PRINTER_INFO_2W>& info);

/// Owner of an open printer.
class PrinterHandle
{
public:
    explicit PrinterHandle(LPWSTR name)
    {
        if (!OpenPrinterW(name, &handle_, nullptr))
            handle_ = nullptr;
    }
    ~PrinterHandle()
    {
        if (handle_)
            ClosePrinter(handle_);
    }
    PrinterHandle(const PrinterHandle&) = delete;
    PrinterHandle& operator=(const PrinterHandle&) = delete;

    HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

private:
    HANDLE handle_ = nullptr;
};

} // namespace psui
