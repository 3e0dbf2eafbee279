#pragma once
// The common property-sheet UI as a sheet function sees it: one sheet, called for one reason after another.
#include <vector>

#include "psui/entry/context.h"
#include "psui/entry/exports.h"
#include "psui/model/cache.h"
#include "tests/entry/printer.h"
#include "tests/settings/support.h"

namespace test {

/// Loads a printer's model into the cache, which keeps one for good: ledgers taken from now on are even.
inline void WarmModelCache(HANDLE printer)
{
    psui::ReleaseModel(psui::AcquireModel(printer, true));
}

/// What the service function was asked for.
struct ServiceCall
{
    HANDLE sheet;
    UINT function;
    LPARAM first;
    LPARAM second;
};

class SheetCaller
{
public:
    psui::DocumentPropertyHeader header = {};
    psui::PropSheetUiInfo info = {};
    psui::PropSheetPage page = {}; ///< the last one inserted
    psui::InsertPageInfo insertion = {};
    std::u16string pageTitle;
    LONG_PTR pageHandle = 0x77; ///< the answer to an insertion
    static inline std::vector<ServiceCall> calls;

    SheetCaller(Printer& printer, DWORD mode, psui::DriverDevMode* output, DEVMODEW* input = nullptr)
    {
        current_ = this;
        calls.clear();
        header.cbSize = sizeof(header);
        header.hPrinter = printer.handle();
        header.pszPrinterName = printer.name();
        header.pdmIn = input;
        header.pdmOut = output ? &output->dmPublic : nullptr;
        header.fMode = mode;
        info.cbSize = sizeof(info);
        info.hComPropSheet = this;
        info.pfnComPropSheet = Service;
        info.lParamInit = reinterpret_cast<LPARAM>(&header);
        info.Result = 99;
    }
    ~SheetCaller()
    {
        if (info.UserData) {
            EXPECT_EQ(Call(psui::kSheetDestroy), 1);
        }
        current_ = nullptr;
    }
    SheetCaller(const SheetCaller&) = delete;
    SheetCaller& operator=(const SheetCaller&) = delete;

    LONG Call(WORD reason, LPARAM param = 0)
    {
        info.Reason = reason;
        return DrvDocumentPropertySheets(&info, param);
    }

    LONG SetResult(LRESULT result)
    {
        psui::SetResultInfo given = {};
        given.cbSize = sizeof(given);
        given.Result = result;
        return Call(psui::kSheetSetResult, reinterpret_cast<LPARAM>(&given));
    }

    psui::PrinterUiContext* context() const
    {
        return reinterpret_cast<psui::PrinterUiContext*>(info.UserData);
    }

private:
    static LONG_PTR CALLBACK Service(HANDLE sheet, UINT function, LPARAM first, LPARAM second)
    {
        calls.push_back({sheet, function, first, second});
        if (function != psui::kServiceInsertPage)
            return 1;
        current_->insertion = *reinterpret_cast<const psui::InsertPageInfo*>(second);
        current_->page = *reinterpret_cast<const psui::PropSheetPage*>(current_->insertion.dwData1);
        current_->pageTitle = current_->page.pszTitle;
        return current_->pageHandle;
    }

    static inline SheetCaller* current_ = nullptr;
};

} // namespace test
