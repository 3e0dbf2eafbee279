#include "psui/settings/printer_data.h"

#include <algorithm>

#include <winspool.h>

#include "psui/settings/devmode.h"
#include "psui/settings/environment.h"

namespace psui {

namespace {

constexpr UINT kWesternCodePage = 1252;
constexpr uint64_t kBytesPerFreeMemUnit = 1024;
constexpr uint64_t kLeastFreeMem = 102400; // bytes

// No table or record comes near it. A size is only somebody's number until the data are seen.
constexpr DWORD kMostBlockBytes = 1 << 20;

struct PairNames
{
    const WCHAR* size;
    const WCHAR* data;
};

PairNames NamesOf(PrinterDataPair pair)
{
    if (pair == PrinterDataPair::TrayForms)
        return {TEXT("TrayFormSize"), TEXT("TrayFormTable")};
    return {TEXT("PrinterDataSize"), TEXT("PrinterData")};
}

/// Reads a value of exactly that type and size.
bool ReadValue(HANDLE printer, const WCHAR* name, DWORD type, void* bytes, DWORD size)
{
    DWORD storedType = 0, needed = 0;
    return GetPrinterDataW(printer, const_cast<WCHAR*>(name), &storedType, static_cast<BYTE*>(bytes), size,
                           &needed) == ERROR_SUCCESS &&
           storedType == type && needed == size;
}

bool WriteValue(HANDLE printer, const WCHAR* name, DWORD type, const void* bytes, DWORD size)
{
    auto* data = static_cast<BYTE*>(const_cast<void*>(bytes));
    return SetPrinterDataW(printer, const_cast<WCHAR*>(name), type, data, size) == ERROR_SUCCESS;
}

/// Makes the selections of the installable features for that model.
void SelectInstallables(PrinterWideData* data, const ModelDescription* model)
{
    data->wModelCrc = model->sourceCrc;
    data->wInstallableCount = ResolveInstallableConflicts(model, data->abInstallableSel);
}

uint32_t MemoryOfModel(const ModelDescription* model)
{
    const ModelOption* option = FirstOption(BuiltinFeature(model, kFeatureVmOption));
    return option ? reinterpret_cast<const MemoryOption*>(option)->memoryValue : 0;
}

uint32_t FreeMemory(HANDLE printer, const ModelDescription* model)
{
    DWORD kilobytes = 0;
    if (!ReadPrinterNumber(printer, TEXT("FreeMem"), kilobytes))
        return MemoryOfModel(model);
    const uint64_t bytes = kilobytes * kBytesPerFreeMemUnit;
    return static_cast<uint32_t>(std::clamp<uint64_t>(bytes, kLeastFreeMem, UINT32_MAX));
}

uint32_t DefaultFlags(HANDLE printer)
{
    uint32_t flags = 0, halftone = 0;
    if (ReadValue(printer, TEXT("PrinterHT"), REG_BINARY, &halftone, sizeof(halftone)) && halftone != 0)
        flags |= kPrinterHalftone;
    if (IsMetricCountry())
        flags |= kPrinterMetric;
    if (GetACP() != kWesternCodePage)
        flags |= kPrinterOtherCodePage;
    return flags;
}

} // namespace

bool ReadPrinterNumber(HANDLE printer, const WCHAR* name, DWORD& number)
{
    DWORD stored = 0;
    if (!ReadValue(printer, name, REG_DWORD, &stored, sizeof(stored)))
        return false;
    number = stored;
    return true;
}

bool WritePrinterNumber(HANDLE printer, const WCHAR* name, DWORD number)
{
    return WriteValue(printer, name, REG_DWORD, &number, sizeof(number));
}

bool WritePrinterBytes(HANDLE printer, const WCHAR* name, const void* bytes, DWORD size)
{
    return WriteValue(printer, name, REG_BINARY, bytes, size);
}

HeapPtr<BYTE> ReadPrinterDataBlock(HANDLE printer, DWORD* size, PrinterDataPair pair)
{
    if (size)
        *size = 0;
    const PairNames names = NamesOf(pair);
    DWORD stated = 0;
    if (!ReadPrinterNumber(printer, names.size, stated) || stated == 0 || stated > kMostBlockBytes)
        return nullptr;
    HeapPtr<BYTE> bytes = AllocateZeroed<BYTE>(stated);
    if (!bytes || !ReadValue(printer, names.data, REG_BINARY, bytes.get(), stated))
        return nullptr;
    if (size)
        *size = stated;
    return bytes;
}

bool WritePrinterDataBlock(HANDLE printer, const void* bytes, DWORD size, PrinterDataPair pair)
{
    const PairNames names = NamesOf(pair);
    return WritePrinterNumber(printer, names.size, size) &&
           WritePrinterBytes(printer, names.data, bytes, size);
}

HeapPtr<PrinterWideData> ReadPrinterWideData(HANDLE printer, const ModelDescription* model)
{
    DWORD size = 0;
    HeapPtr<BYTE> block = ReadPrinterDataBlock(printer, &size, PrinterDataPair::PrinterWide);
    if (!block || size != sizeof(PrinterWideData))
        return BuildDefaultPrinterData(printer, model);
    HeapPtr<PrinterWideData> data(reinterpret_cast<PrinterWideData*>(block.release()));
    if (data->wModelCrc != model->sourceCrc)
        SelectInstallables(data.get(), model);
    return data;
}

HeapPtr<PrinterWideData> BuildDefaultPrinterData(HANDLE printer, const ModelDescription* model)
{
    HeapPtr<PrinterWideData> data = AllocateZeroed<PrinterWideData>();
    if (!data)
        return nullptr;
    data->wVersion = kDriverVersion;
    data->wSize = sizeof(PrinterWideData);
    data->dwFlags = DefaultFlags(printer);
    data->dwFreeMem = FreeMemory(printer, model);
    data->dwJobTimeout = model->jobTimeout;
    data->dwWaitTimeout = model->waitTimeout;
    SelectInstallables(data.get(), model);
    return data;
}

} // namespace psui
