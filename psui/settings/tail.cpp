#include "psui/settings/tail.h"

#include <iterator>

#include "psui/settings/record.h"
#include "psui/settings/record_values.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr uint32_t kWatermarkOn = 1;
constexpr uint8_t kCalledFromFlwApp = 1;

/// Whether something in the record needs the client process. `datePrinted` tells of the tail's date print.
bool NeedsClientProcess(const DriverDevMode* record, bool datePrinted)
{
    const PrivateDevMode& priv = record->dmPrivate;
    const int pages = priv.dwPagesPerSheet;
    return record->dmPublic.dmCopies > 1 || record->dmPublic.dmCollate == DMCOLLATE_TRUE || pages >= 2 ||
           pages < 1 || (priv.dwWatermarkFlags & kWatermarkOn) != 0 || datePrinted || priv.bTailReverse != 0;
}

bool CalledFromFlwApp()
{
    WCHAR className[32];
    const HWND active = GetActiveWindow();
    const HWND top = active ? GetAncestor(active, GA_ROOT) : nullptr;
    return top && GetClassNameW(top, className, std::size(className)) > 0 &&
           EqualNoCase(className, TEXT("FLWApp"));
}

} // namespace

void RefreshTail(DriverDevMode* record)
{
    PrivateDevMode& priv = record->dmPrivate;
    const bool needsClient = NeedsClientProcess(record, (priv.dwTailDatePrint & kDatePrintOn) != 0);

    const bool fits = priv.bFitToPaper == 1;
    priv.shTailDocPaper = fits ? static_cast<int16_t>(priv.wDocumentPaper) : int16_t{-1};
    priv.shTailOutPaper = fits ? static_cast<int16_t>(priv.wOutputPaper) : int16_t{-1};

    priv.dwTailDatePrint = priv.dwDatePrint;
    priv.crTailDateText = priv.crDateText;
    priv.crTailDateBack = priv.crDateBack;
    priv.lfTailDateFont = priv.lfDateFont;

    if (CalledFromFlwApp())
        priv.bHostFlags |= kCalledFromFlwApp;
    else
        priv.bHostFlags &= ~kCalledFromFlwApp;

    if (needsClient)
        CopyWide(priv.wszClientProcess, kClientProcess, std::size(priv.wszClientProcess));
    else
        priv.wszClientProcess[0] = '_';
    priv.bTailValid = 1;
}

} // namespace psui
