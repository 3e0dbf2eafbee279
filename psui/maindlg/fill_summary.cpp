#include "lang/ids/summary.h"
#include "psui/base/memory.h"
#include "psui/entry/main_dialog.h"
#include "psui/maindlg/settings_summary.h"

namespace psui {

int FillSettingsSummary(HWND page, PrinterUiContext* context)
{
    const HeapPtr<WCHAR> text = AllocateZeroed<WCHAR>(kSummaryUnits);
    if (!text)
        return 0;
    TextCursor cursor = {text.get(), kSummaryUnits};
    BuildSettingsSummary(context, cursor);
    SetDlgItemTextW(page, IDC_SUMMARY, text.get());
    return 1;
}

} // namespace psui
