#pragma once
// What the spooler keeps for a printer, beside the records of its documents: named values of the printer's
// data, and the model's papers as printer forms. Stored values may have been written by anybody: one that has
// the wrong type or size counts as missing. A failed write is reported by the result alone.
#include <cstddef>
#include <cstdint>

#include <windows.h>

#include "psui/base/memory.h"
#include "psui/model/model.h"
#include "psui/model/queries.h"

namespace psui {

/// Bits of PrinterWideData::dwFlags.
enum PrinterDataFlag : uint32_t
{
    kPrinterMetric = 1,
    kPrinterHalftone = 2,
    kPrinterOtherCodePage = 4, ///< the system's 8-bit code page is not 1252
};

/// The value "PrinterData", little-endian.
struct PrinterWideData
{
    uint16_t wVersion; ///< kDriverVersion
    uint16_t wSize;
    uint32_t dwFlags;   ///< PrinterDataFlag bits
    uint32_t dwFreeMem; ///< free printer memory in bytes
    uint32_t dwJobTimeout;
    uint32_t dwWaitTimeout;
    uint32_t dwStringSet; ///< some dialogs add 1000 times it to their string ids
    uint8_t reserved24[16];
    uint16_t wModelCrc;                       ///< sourceCrc of the model that the selections belong to
    uint16_t wInstallableCount;               ///< as stored: no bound for the array that follows
    uint8_t abInstallableSel[kMaxSelections]; ///< option index per installable feature
};
static_assert(sizeof(PrinterWideData) == 108 && offsetof(PrinterWideData, dwFreeMem) == 8 &&
              offsetof(PrinterWideData, dwStringSet) == 20 && offsetof(PrinterWideData, wModelCrc) == 40 &&
              offsetof(PrinterWideData, abInstallableSel) == 44);

/// The printer's value of that name when it is a 32-bit number. False, with `number` untouched, when not.
bool ReadPrinterNumber(HANDLE printer, const WCHAR* name, DWORD& number);

bool WritePrinterNumber(HANDLE printer, const WCHAR* name, DWORD number);
bool WritePrinterBytes(HANDLE printer, const WCHAR* name, const void* bytes, DWORD size);

/// Binary values whose size has a value of its own.
enum class PrinterDataPair
{
    TrayForms,   ///< "TrayFormSize", "TrayFormTable"
    PrinterWide, ///< "PrinterDataSize", "PrinterData"
};

/// The bytes of the pair's data, `size` (may be null) of them. Null, with the size 0, when a value of the
/// pair is missing, they disagree about the size, or it is 0.
HeapPtr<BYTE> ReadPrinterDataBlock(HANDLE printer, DWORD* size, PrinterDataPair pair);

/// Writes the pair's size and then its data; true when both are stored. When only the size is, the pair reads
/// as missing.
bool WritePrinterDataBlock(HANDLE printer, const void* bytes, DWORD size, PrinterDataPair pair);

/// The stored printer-wide data, or the defaults when there is none. Selections that were made with another
/// text of the model are made anew. Nothing is written. Null when there is no memory.
HeapPtr<PrinterWideData> ReadPrinterWideData(HANDLE printer, const ModelDescription* model);

/// The printer-wide data of a printer on which nobody has changed anything yet. Null when there is no memory.
HeapPtr<PrinterWideData> BuildDefaultPrinterData(HANDLE printer, const ModelDescription* model);

/// Adds the model's page sizes as printer forms, once in a printer's life: "Forms?" remembers it. A form that
/// cannot be added, as one of that name may exist already, is passed over.
void RegisterModelForms(HANDLE printer, const ModelDescription* model);

/// Replaces the user's forms that bear the name of one of the model's page sizes by the model's own. Does
/// nothing on a printer whose forms were never registered.
void RefreshModelForms(HANDLE printer, const ModelDescription* model);

} // namespace psui
