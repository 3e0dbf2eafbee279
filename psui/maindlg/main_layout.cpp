#include "psui/maindlg/main_layout.h"

#include "lang/ids/main_dialog.h"
#include "psui/controls/pictures.h"
#include "psui/controls/transparent.h"

namespace psui {

namespace {

constexpr int kButtonGap = 7; // pixels
constexpr int kButtons = 4;
constexpr int kPreviewDown = 8;

// A control's rectangle in the dialog's coordinates.
bool PlaceOf(HWND dialog, int control, RECT& place)
{
    if (!GetWindowRect(GetDlgItem(dialog, control), &place))
        return false;
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
    return true;
}

void Move(HWND dialog, int control, int left, int top, int width, int height)
{
    SetWindowPos(GetDlgItem(dialog, control), nullptr, left, top, width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void MoveButton(HWND dialog, int control, int left, int width)
{
    RECT place;
    if (PlaceOf(dialog, control, place))
        Move(dialog, control, left, place.top, width, place.bottom - place.top);
}

void MoveDown(HWND dialog, int control, int by)
{
    RECT place;
    if (PlaceOf(dialog, control, place))
        Move(dialog, control, place.left, place.top + by, place.right - place.left, place.bottom - place.top);
}

void LayOutBanner(HWND dialog)
{
    const SIZE size = SizeOfBitmap(IDB_LINK);
    RECT client, link, banner;
    if (!size.cx || !GetClientRect(dialog, &client) || !PlaceOf(dialog, IDC_WEB_LINK, link) ||
        !PlaceOf(dialog, IDC_BANNER, banner))
        return;
    Move(dialog, IDC_WEB_LINK, client.right - size.cx, link.top, size.cx, size.cy);
    Move(dialog, IDC_BANNER, banner.left, banner.top, client.right - size.cx, size.cy);
}

void LayOutPreview(HWND dialog)
{
    const SIZE size = SizeOfBitmap(IDB_PAGE_SIZE_FROM);
    RECT frame, preview;
    if (!size.cx || !PlaceOf(dialog, IDC_PREVIEW_FRAME, frame) || !PlaceOf(dialog, IDC_PREVIEW, preview))
        return;
    Move(dialog, IDC_PREVIEW, frame.left + (frame.right - frame.left - size.cx) / 2,
         preview.top + kPreviewDown, size.cx, size.cy);
}

} // namespace

void LayOutPictures(HWND dialog)
{
    LayOutBanner(dialog);
    LayOutPreview(dialog);
    FitControlToBitmap(dialog, IDC_COLOR_PICTURE, IDB_COLOR);
    FitControlToBitmap(dialog, IDC_FIT_PICTURE, IDB_FIT_TO_PAPER);
}

void LayOutDuplexLine(HWND dialog, const PrinterUiContext* context)
{
    const bool duplex = (context->dmWork.dmPublic.dmFields & DM_DUPLEX) != 0;
    ShowWindow(GetDlgItem(dialog, IDC_LINE_DUPLEX), duplex ? SW_SHOW : SW_HIDE);
    RECT first, second;
    if (!duplex || !PlaceOf(dialog, IDC_LINE_MEDIA, first) || !PlaceOf(dialog, IDC_LINE_QUALITY, second))
        return;
    for (const int control : {IDC_LINE_COLOR, IDC_COLOR_PICTURE, IDC_LINE_SCALING, IDC_LINE_MIRROR,
                              IDC_LINE_REVERSE, IDC_LINE_WATERMARK})
        MoveDown(dialog, control, second.top - first.top);
}

void LayOutButtons(HWND dialog, const PrinterUiContext* context)
{
    RECT tabs;
    if (!PlaceOf(dialog, IDC_TABS, tabs))
        return;
    const int width = (tabs.right - tabs.left - (kButtons - 1) * kButtonGap) / kButtons;
    int left = tabs.right - width;
    const auto place = [&](int control) {
        MoveButton(dialog, control, left, width);
        left -= width + kButtonGap;
    };
    place(IDHELP);
    if (context->bUserDefault)
        place(IDC_APPLY);
    place(IDCANCEL);
    place(IDOK);
}

void ToggleApplyButton(HWND dialog)
{
    RECT apply, cancel, ok;
    if (!PlaceOf(dialog, IDC_APPLY, apply) || !PlaceOf(dialog, IDCANCEL, cancel) ||
        !PlaceOf(dialog, IDOK, ok))
        return;
    const int width = cancel.right - cancel.left;
    const HWND button = GetDlgItem(dialog, IDC_APPLY);
    if (GetWindowLongPtrW(button, GWL_STYLE) & WS_VISIBLE) {
        ShowWindow(button, SW_HIDE);
        MoveButton(dialog, IDOK, cancel.left, width);
        MoveButton(dialog, IDCANCEL, apply.left, width);
    } else {
        MoveButton(dialog, IDC_APPLY, cancel.left, width);
        MoveButton(dialog, IDCANCEL, ok.left, width);
        MoveButton(dialog, IDOK, ok.left - width - kButtonGap, width);
        ShowWindow(button, SW_SHOW);
    }
}

} // namespace psui
