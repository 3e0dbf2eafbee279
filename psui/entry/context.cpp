#include "psui/entry/context.h"

#include "psui/base/heap.h"
#include "psui/entry/help_file.h"
#include "psui/events/settings_file.h"
#include "psui/events/status_monitor.h"
#include "psui/model/cache.h"
#include "psui/settings/environment.h"
#include "psui/settings/merge.h"
#include "psui/settings/record.h"
#include "psui/settings/spooler.h"

namespace psui {

namespace {

constexpr SIZE_T kInitialHeapBytes = 8192;
constexpr uint32_t kWatermarkOn = 1; // of dwWatermarkFlags

/// A context that has nothing but its heap and the printer.
ContextPtr AllocateContext(HANDLE printer)
{
    PrivateHeap heap(kInitialHeapBytes);
    auto* context = heap ? AllocateFrom<PrinterUiContext>(heap.get()) : nullptr;
    if (!context)
        return nullptr;
    context->hPrinter = printer;
    context->hHeap = heap.Release();
    context->pSelf = context;
    context->pSelfCheck = context;
    return ContextPtr(context);
}

bool DescribePrinter(PrinterUiContext* context, const SpoolerBlock<PRINTER_INFO_2W>& info)
{
    if (!info || !info->pDriverName)
        return false;
    context->pDriverName = CopyToHeap(context->hHeap, info->pDriverName);
    if (!context->pDriverName)
        return false;
    context->pHelpFile = GetHelpFilePath(context->hPrinter, context->hHeap);
    context->bHubProcessor = UsesHubProcessor(info.get());
    return true;
}

void BuildWorkingRecord(PrinterUiContext* context, const SpoolerBlock<PRINTER_INFO_2W>& info,
                        const DEVMODEW* input)
{
    DriverDevMode* work = &context->dmWork;
    BuildDefaultDevMode(work, context->pDriverName, context->pModel, IsMetricCountry());
    MergeDevMode(work, StoredDevMode(info), context->pModel);
    MergeDevMode(work, input, context->pModel);
    SyncStatusMonitorIni(context->hPrinter, work, info.get());
    RefreshTail(work);
    PaperForm form;
    ResolvePaper(context->hPrinter, &work->dmPublic, &form, context->pModel);
}

bool TakePrinterWideData(PrinterUiContext* context)
{
    const HeapPtr<PrinterWideData> data = ReadPrinterWideData(context->hPrinter, context->pModel);
    if (!data)
        return false;
    context->PrinterData = *data;
    context->PrinterData.wVersion = kDriverVersion;
    context->PrinterData.wSize = sizeof(PrinterWideData);
    return true;
}

} // namespace

PrinterUiContext* CreatePrinterUiContext(HANDLE printer, const DEVMODEW* input)
{
    ContextPtr context = AllocateContext(printer);
    if (!context)
        return nullptr;
    context->pModel = AcquireModel(printer, true);
    if (!context->pModel)
        return nullptr;
    const SpoolerBlock<PRINTER_INFO_2W> info = GetPrinterInfo(printer);
    if (!DescribePrinter(context.get(), info))
        return nullptr;
    BuildWorkingRecord(context.get(), info, input);
    RegisterModelForms(printer, context->pModel);
    const PrivateDevMode& work = context->dmWork.dmPrivate;
    if (work.dwWatermarkFlags & kWatermarkOn)
        context->wCurrentWatermark = work.wWatermarkIndex;
    return TakePrinterWideData(context.get()) ? context.release() : nullptr;
}

void FreeGlobalBlock(GlobalBlock& block)
{
    if (!block.hBlock)
        return;
    GlobalUnlock(block.hBlock);
    GlobalFree(block.hBlock);
    block = {};
}

void FreeGlobalBlocks(PrinterUiContext* context)
{
    for (GlobalBlock& block : context->aGlobalBlocks)
        FreeGlobalBlock(block);
    for (const OptionRow*& table : context->apOptionTables)
        table = nullptr;
}

void ReleasePrinterUiContext(PrinterUiContext* context)
{
    if (!context)
        return;
    ReleaseModel(context->pModel);
    HeapDestroy(context->hHeap);
}

bool IsValidContext(const PrinterUiContext* context)
{
    const bool aligned = reinterpret_cast<uintptr_t>(context) % alignof(PrinterUiContext) == 0;
    return context && aligned && context->pSelf == context && context->pSelfCheck == context;
}

} // namespace psui
