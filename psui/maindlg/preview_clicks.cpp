#include "psui/maindlg/preview_clicks.h"

#include "lang/ids/basic_tab.h"
#include "lang/ids/main_dialog.h"
#include "psui/base/module.h"
#include "psui/controls/pictures.h"
#include "psui/maindlg/combo_list.h"
#include "psui/maindlg/rules.h"
#include "psui/maindlg/side_panel.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr RECT kLandscapePage = {0, 16, 120, 106};
constexpr RECT kPortraitPage = {17, 0, 107, 120};
constexpr uint16_t kPosterOfTwo = 2; // wPoster
constexpr uint16_t kPosterOfThree = 3;

bool ShowsLandscape(const DriverDevMode& record)
{
    const bool twoPages = record.dmPrivate.dwPagesPerSheet == 2;
    return record.dmPublic.dmOrientation == (twoPages ? DMORIENT_PORTRAIT : DMORIENT_LANDSCAPE);
}

int CurrentLayout(const PrivateDevMode& settings)
{
    switch (settings.dwPagesPerSheet) {
    case 2:
    case 4:
    case 9:
    case 16:
        return settings.dwPagesPerSheet;
    default:
        return settings.wPoster == kPosterOfTwo     ? kPosterTwoByTwo
               : settings.wPoster == kPosterOfThree ? kPosterThreeByThree
                                                    : 1;
    }
}

struct Step
{
    int layout;       ///< item data of the entry that comes next
    WPARAM otherwise; ///< position of the entry to take when there is none
};

Step StepFrom(int layout)
{
    switch (layout) {
    case 1:
        return {2, 0};
    case 2:
        return {4, 1};
    default:
        return {1, 1};
    }
}

bool IsOnPage(HWND dialog, const PrinterUiContext* context, POINT place)
{
    const HWND preview = GetDlgItem(dialog, IDC_PREVIEW);
    RECT box;
    if (!preview || !GetWindowRect(preview, &box))
        return false;
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&box), 2);
    return PtInRect(&box, place) && IsOnPreviewPage(context->dmWork, {place.x - box.left, place.y - box.top});
}

} // namespace

bool IsOnPreviewPage(const DriverDevMode& record, POINT point)
{
    return PtInRect(ShowsLandscape(record) ? &kLandscapePage : &kPortraitPage, point);
}

bool PreviewAnswersClicks(const PrinterUiContext* context)
{
    const PrivateDevMode& settings = context->dmWork.dmPrivate;
    return context->bPermission == 1 && settings.bBorderless == 0 && !(settings.bBookletFlags & kBookletOn);
}

void OnPreviewClick(HWND dialog, PrinterUiContext* context, POINT place)
{
    if (!PreviewAnswersClicks(context) || !IsOnPage(dialog, context, place))
        return;
    const Step step = StepFrom(CurrentLayout(context->dmWork.dmPrivate));
    const HWND tab = context->hBasicTab;
    if (!SelectByItemData(tab, IDC_LAYOUT, step.layout))
        SendDlgItemMessageW(tab, IDC_LAYOUT, CB_SETCURSEL, step.otherwise, 0);
    PostMessageW(tab, WM_COMMAND, MAKEWPARAM(IDC_LAYOUT, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(tab, IDC_LAYOUT)));
    ClearExcludedPrintOrder(context->dmWork);
    InvalidateRect(GetDlgItem(dialog, IDC_PREVIEW), nullptr, TRUE);
    RefreshSidePanel(dialog, context);
}

void OnPreviewMove(HWND dialog, const PrinterUiContext* context, POINT place)
{
    if (PreviewAnswersClicks(context) && IsOnPage(dialog, context, place)) {
        SetCursor(LoadCursorW(hOwnModule, MAKEINTRESOURCEW(IDC_HAND_CURSOR)));
        SetCapture(dialog);
    } else if (!context->bContextHelpMode) {
        ReleaseCapture();
    }
}

} // namespace psui
