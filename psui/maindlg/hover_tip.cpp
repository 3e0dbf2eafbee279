#include "psui/maindlg/hover_tip.h"

#include <algorithm>
#include <iterator>

#include "lang/ids/main_dialog.h"
#include "psui/base/gdi.h"
#include "psui/base/label.h"
#include "psui/controls/hooks.h"

namespace psui {

namespace {

constexpr int kTipUnits = 1024;
constexpr int kMargin = 2; // pixels from the box to its text
constexpr int kBelowLink = 5;

WCHAR tipText[kTipUnits];

SIZE MeasureTip(HDC dc)
{
    const Selection font(dc, GetStockObject(DEFAULT_GUI_FONT));
    RECT size = {};
    DrawTextW(dc, tipText, -1, &size, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    return {size.right + 2 * kMargin, size.bottom + 2 * kMargin};
}

void DrawTip(HDC dc, HWND tip)
{
    RECT box;
    GetClientRect(tip, &box);
    const SavedState state(dc);
    FillRect(dc, &box, GetSysColorBrush(COLOR_INFOBK));
    const Selection font(dc, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_INFOTEXT));
    RECT place = box;
    OffsetRect(&place, kMargin, kMargin);
    DrawTextW(dc, tipText, -1, &place, DT_SINGLELINE | DT_NOPREFIX);
    FrameRect(dc, &box, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

} // namespace

void ShowHoverTip(HWND dialog)
{
    const HWND tip = GetDlgItem(dialog, IDC_HOVER_TIP);
    const HWND link = GetDlgItem(dialog, IDC_WEB_LINK);
    RECT client, place;
    if (!tip || !GetClientRect(dialog, &client) || !GetWindowRect(link, &place))
        return;
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    GetWindowTextW(link, tipText, static_cast<int>(std::size(tipText)));
    CleanLabel(tipText);
    SIZE size;
    if (const WindowDc dc(tip); dc)
        size = MeasureTip(dc.get());
    else
        return;
    const LONG left = std::min(place.left, client.right - size.cx);
    SetWindowPos(tip, HWND_TOP, left, place.bottom + kBelowLink, size.cx, size.cy,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW);
    UpdateWindow(tip);
    // A new device context: the one before ended at the box's former size.
    if (const WindowDc dc(tip); dc)
        DrawTip(dc.get(), tip);
}

void HideHoverTip(HWND dialog)
{
    KillTimer(dialog, kHoverTimer);
    const HWND tip = GetDlgItem(dialog, IDC_HOVER_TIP);
    if (tip && IsWindowVisible(tip))
        ShowWindow(tip, SW_HIDE);
}

} // namespace psui
