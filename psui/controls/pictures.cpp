#include "psui/controls/pictures.h"

#include "psui/base/gdi.h"
#include "psui/base/module.h"
#include "psui/controls/transparent.h"

namespace psui {

namespace {

constexpr UINT kFirstCentred = 13041;
constexpr UINT kLastCentred = 13044;
constexpr int kCentredSide = 48;
constexpr int kLinkInset = 4;
constexpr int kPressedShift = 2;

void DrawAt(const DRAWITEMSTRUCT& request, int x, int y)
{
    const GdiObject<HBITMAP> bitmap(LoadBitmapW(hOwnModule, MAKEINTRESOURCEW(request.CtlID)));
    DrawTransparentBitmap(request.hDC, bitmap.get(), x, y, kKeyMagenta, kOwnColors);
}

} // namespace

void DrawBitmapById(const DRAWITEMSTRUCT& request)
{
    DrawAt(request, request.rcItem.left, request.rcItem.top);
}

void DrawButtonBitmap(const DRAWITEMSTRUCT& request, bool pressed)
{
    const RECT& item = request.rcItem;
    POINT at = {item.left, item.top};
    if (request.CtlID >= kFirstCentred && request.CtlID <= kLastCentred)
        at = {(item.left + item.right - kCentredSide) / 2, (item.top + item.bottom - kCentredSide) / 2};
    else if (request.CtlID == IDB_SUPPORT_LINK || request.CtlID == IDB_UPDATE_LINK)
        at = {item.left + kLinkInset, item.top + kLinkInset};
    const int shift = pressed ? kPressedShift : 0;
    DrawAt(request, at.x + shift, at.y + shift);
}

void FillControlColor(const DRAWITEMSTRUCT& request, COLORREF color)
{
    RECT client;
    if (!GetClientRect(request.hwndItem, &client))
        client = request.rcItem;
    FillWithColor(request.hDC, client, color);
    SetBkColor(request.hDC, color);
}

void FitControlToBitmap(HWND dialog, int id, UINT bitmap)
{
    const HWND control = GetDlgItem(dialog, id);
    const SIZE size = SizeOfBitmap(bitmap);
    if (control && size.cx)
        SetWindowPos(control, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace psui
