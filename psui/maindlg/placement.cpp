#include "psui/maindlg/placement.h"

#include <algorithm>

#include "lang/ids/main_dialog.h"

namespace psui {

namespace {

constexpr int kMaxAncestors = 31;

SIZE SizeOf(const RECT& rect)
{
    return {rect.right - rect.left, rect.bottom - rect.top};
}

HWND WidestAncestor(HWND window)
{
    HWND widest = GetParent(window);
    LONG width = 0;
    HWND ancestor = widest;
    for (int i = 0; ancestor && i < kMaxAncestors; ++i, ancestor = GetParent(ancestor)) {
        RECT rect;
        if (GetWindowRect(ancestor, &rect) && SizeOf(rect).cx > width) {
            width = SizeOf(rect).cx;
            widest = ancestor;
        }
    }
    return widest;
}

LONG Kept(LONG place, LONG room)
{
    return std::max<LONG>(0, std::min(place, room));
}

LONG Beyond(LONG place, LONG limit)
{
    return std::max<LONG>(0, place - limit);
}

void MoveTo(HWND window, POINT place)
{
    SetWindowPos(window, nullptr, place.x, place.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace

POINT CentredPlace(const RECT& ownerClient, SIZE window, SIZE screen)
{
    const SIZE owner = SizeOf(ownerClient);
    const LONG left = ownerClient.left + (owner.cx - window.cx) / 2;
    const LONG top = ownerClient.top + 2 * (owner.cy - window.cy) / 5;
    return {Kept(left, screen.cx - window.cx), Kept(top, screen.cy - window.cy)};
}

POINT SubDialogPlace(const RECT& tabs, SIZE window, const RECT& workArea)
{
    return {(tabs.left < workArea.left ? 0 : tabs.left) - Beyond(tabs.left + window.cx, workArea.right),
            (tabs.top < workArea.top ? 0 : tabs.top) - Beyond(tabs.top + window.cy, workArea.bottom)};
}

void CentreOverOwner(HWND window)
{
    const HWND owner = WidestAncestor(window);
    RECT client, rect;
    if (!owner || !GetClientRect(owner, &client) || !GetWindowRect(window, &rect))
        return;
    MapWindowPoints(owner, nullptr, reinterpret_cast<POINT*>(&client), 2);
    const SIZE screen = {GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    MoveTo(window, CentredPlace(client, SizeOf(rect), screen));
}

void PlaceSubDialog(HWND window, const PrinterUiContext* context)
{
    RECT tabs, rect, workArea;
    if (!GetWindowRect(GetDlgItem(context->hMainDialog, IDC_TABS), &tabs) || !GetWindowRect(window, &rect) ||
        !SystemParametersInfoW(SPI_GETWORKAREA, 0, &workArea, 0))
        return;
    MoveTo(window, SubDialogPlace(tabs, SizeOf(rect), workArea));
}

} // namespace psui
