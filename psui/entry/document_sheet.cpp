#include "psui/entry/document_sheet.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "lang/ids/dialogs.h"
#include "lang/ids/strings.h"
#include "psui/base/heap.h"
#include "psui/base/module.h"
#include "psui/entry/context.h"
#include "psui/entry/summary_page.h"
#include "psui/events/status_monitor.h"
#include "psui/settings/copy.h"
#include "psui/settings/printer_data.h"
#include "psui/settings/record.h"

namespace psui {

namespace {

constexpr LONG kDone = 1;
constexpr WORD kNoWatermark = 0xFFFF;
constexpr int kTitleUnits = 50;

// A caller's header may be short and may lie anywhere, so its bytes are copied and never read in place.

WORD StatedSize(const BYTE* header)
{
    WORD size;
    std::memcpy(&size, header + offsetof(DocumentPropertyHeader, cbSize), sizeof(size));
    return size;
}

/// The fields of the header that its caller has whole; a mode of 0 for one that ends before it.
DocumentPropertyHeader ReadHeader(const BYTE* header)
{
    DocumentPropertyHeader read = {};
    const size_t size = std::min<size_t>(StatedSize(header), sizeof(read));
    std::memcpy(static_cast<void*>(&read), header, size);
    if (size < sizeof(read))
        read.fMode = 0;
    return read;
}

void StoreRecordSize(BYTE* header)
{
    constexpr DWORD kSize = kRecordSize;
    if (StatedSize(header) >= offsetof(DocumentPropertyHeader, cbOut) + sizeof(kSize))
        std::memcpy(header + offsetof(DocumentPropertyHeader, cbOut), &kSize, sizeof(kSize));
}

/// One page that the sheet may have.
struct PageRow
{
    WORD dialog;
    UINT title;
    DLGPROC procedure;
};
constexpr PageRow kPages[kDocumentPages] = {{IDD_SUMMARY, IDS_SUMMARY_PAGE, SummaryPageProc}};

void UseModules(PrinterUiContext* context)
{
    const HMODULE pages = IsModule(hLangModule) ? hLangModule : hOwnModule;
    context->hLangRes = pages;
    context->hPageRes = pages;
    context->hOwnRes = hOwnModule;
}

/// A number of the printer's data that says whether a service is on; a missing one means that it is.
DWORD ReadSwitch(HANDLE printer, const WCHAR* name)
{
    DWORD number = 1;
    ReadPrinterNumber(printer, name, number);
    return number;
}

void ReadWebSwitches(PrinterUiContext* context)
{
    const DWORD vsc = ReadSwitch(context->hPrinter, TEXT("VSC"));
    const DWORD wu = ReadSwitch(context->hPrinter, TEXT("WU"));
    context->wVscSetting = static_cast<WORD>(vsc);
    context->wWuSetting = static_cast<WORD>(wu);
    context->bWebFlags = (vsc ? kVscOn : 0) | (wu ? kWuOn : 0);
    if (!vsc || !wu)
        context->bWebFlags |= kWebLinkOff;
}

bool InsertPage(PrinterUiContext* context, const PageRow& row, HANDLE& handle)
{
    WCHAR title[kTitleUnits];
    LoadModuleString(context->hPageRes, row.title, title, std::size(title));
    PropSheetPage page = {};
    page.dwSize = sizeof(page);
    page.dwFlags = kPageUseTitle | kPageHasHelp;
    page.hInstance = context->hPageRes;
    page.pszTemplate = MAKEINTRESOURCEW(row.dialog);
    page.pszTitle = CopyToHeap(context->hHeap, title);
    page.pfnDlgProc = row.procedure;
    page.lParam = reinterpret_cast<LPARAM>(context);
    if (!page.pszTitle)
        return false;
    InsertPageInfo insertion = {};
    insertion.cbSize = sizeof(insertion);
    insertion.Type = kInsertPropSheetPage;
    insertion.Mode = kInsertByIndex;
    insertion.dwData1 = reinterpret_cast<ULONG_PTR>(&page);
    const LONG_PTR inserted = context->pfnComPropSheet(context->hComPropSheet, kServiceInsertPage, 0,
                                                       reinterpret_cast<LPARAM>(&insertion));
    handle = reinterpret_cast<HANDLE>(inserted > 0 ? inserted : 0);
    return handle != nullptr;
}

bool InsertPages(PrinterUiContext* context)
{
    std::fill(std::begin(context->awPageEnabled), std::end(context->awPageEnabled), WORD{1});
    for (int i = 0; i < kDocumentPages; ++i)
        if (context->awPageEnabled[i] == 1 && !InsertPage(context, kPages[i], context->ahPages[i]))
            return false;
    return true;
}

LONG Initialise(PropSheetUiInfo* info)
{
    const auto* header = reinterpret_cast<const BYTE*>(info->lParamInit);
    if (!header || !info->pfnComPropSheet)
        return kSheetFailure;
    RegisterStatusMonitorPath();
    const DocumentPropertyHeader asked = ReadHeader(header);
    ContextPtr context(CreatePrinterUiContext(asked.hPrinter, asked.pdmIn));
    if (!IsValidContext(context.get()))
        return kSheetFailure;
    context->bUserDefault = (asked.fMode & kModeUserDefault) != 0;
    context->bPermission = (asked.fMode & kModeNoPermission) == 0;
    context->hComPropSheet = info->hComPropSheet;
    context->pfnComPropSheet = info->pfnComPropSheet;
    context->dwCurrentFavourite = kNoFavourite;
    context->dwPendingFavourite = kNoFavourite;
    UseModules(context.get());
    ReadWebSwitches(context.get());
    if (!InsertPages(context.get()))
        return kSheetFailure;
    // Without its tables the sheet opens all the same: the dialogs cope with empty ones.
    if (LoadContextTables(context.get())) {
        DriverDevMode& work = context->dmWork;
        SyncSelectionsFromPublic(&work, work.dmPublic.dmFields, context->pModel);
    }
    info->UserData = reinterpret_cast<ULONG_PTR>(context.release());
    info->Result = 0;
    return kDone;
}

LONG DescribeSheet(PropSheetUiInfo* info, PrinterUiContext*, LPARAM param)
{
    auto* answer = reinterpret_cast<PropSheetUiInfoHeader*>(param);
    const auto* header = reinterpret_cast<const BYTE*>(info->lParamInit);
    if (!answer || !header)
        return kSheetFailure;
    answer->Flags = kHeaderNoApply | kHeaderPrinterTitle;
    answer->pTitle = ReadHeader(header).pszPrinterName;
    answer->hInst = hOwnModule;
    answer->IconID = kPrinterIcon;
    return kDone;
}

LONG Destroy(PropSheetUiInfo* info, PrinterUiContext* context, LPARAM)
{
    FreeGlobalBlocks(context);
    ReleasePrinterUiContext(context);
    info->UserData = 0;
    return kDone;
}

void HandOut(PrinterUiContext* context, const DocumentPropertyHeader& asked)
{
    DriverDevMode& work = context->dmWork;
    RefreshTail(&work);
    UpdateStatusMonitorIni(context->hPrinter, &work);
    if (context->wCurrentWatermark != kNoWatermark)
        work.dmPrivate.wWatermarkIndex = context->wCurrentWatermark;
    CopyDevModeOut(&work, asked.pdmIn, asked.pdmOut);
}

LONG SetResult(PropSheetUiInfo* info, PrinterUiContext* context, LPARAM param)
{
    const auto* given = reinterpret_cast<const SetResultInfo*>(param);
    auto* header = reinterpret_cast<BYTE*>(info->lParamInit);
    if (!given || !header)
        return kSheetFailure;
    const DocumentPropertyHeader asked = ReadHeader(header);
    if (given->Result != kSheetConfirmed || (asked.fMode & (DM_UPDATE | DM_COPY)) == 0 || !asked.pdmOut) {
        StoreRecordSize(header);
        return kRecordSize;
    }
    HandOut(context, asked);
    info->Result = static_cast<ULONG_PTR>(given->Result);
    return kDone;
}

struct ReasonRow
{
    WORD reason;
    LONG (*answer)(PropSheetUiInfo* info, PrinterUiContext* context, LPARAM param);
};
constexpr ReasonRow kReasons[] = {
    {kSheetGetInfoHeader, DescribeSheet},
    {kSheetDestroy, Destroy},
    {kSheetSetResult, SetResult},
};

/// One call of the common UI for a sheet that is open or opens.
LONG AnswerSheet(PropSheetUiInfo* info, LPARAM param)
{
    if (info->Reason == kSheetInitialise)
        return Initialise(info);
    auto* context = reinterpret_cast<PrinterUiContext*>(info->UserData);
    if (!IsValidContext(context))
        return kSheetFailure;
    for (const ReasonRow& row : kReasons)
        if (row.reason == info->Reason)
            return row.answer(info, context, param);
    return kSheetFailure;
}

} // namespace

LONG MergeWithoutSheet(HANDLE printer, const DEVMODEW* input, DEVMODEW* output, DWORD mode)
{
    if (mode == 0 || !output)
        return kRecordSize;
    const ContextPtr context(CreatePrinterUiContext(printer, input));
    if (!context)
        return kSheetFailure;
    if (mode & (DM_UPDATE | DM_COPY))
        CopyDevModeOut(&context->dmWork, input, output);
    return kDone;
}

LONG RunDocumentPropertySheets(PropSheetUiInfo* info, LPARAM param)
{
    if (info)
        return AnswerSheet(info, param);
    auto* header = reinterpret_cast<BYTE*>(param);
    if (!header)
        return kSheetFailure;
    StoreRecordSize(header);
    const DocumentPropertyHeader asked = ReadHeader(header);
    return MergeWithoutSheet(asked.hPrinter, asked.pdmIn, asked.pdmOut, asked.fMode);
}

} // namespace psui
