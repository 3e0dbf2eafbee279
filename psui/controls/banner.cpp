#include "psui/controls/banner.h"

#include <algorithm>
#include <string_view>

#include "psui/base/gdi.h"
#include "psui/base/module.h"
#include "psui/controls/owner_draw.h"
#include "psui/controls/transparent.h"
#include "psui/res/pictures.h"

namespace psui {

namespace {

using Text = std::basic_string_view<WCHAR>;

constexpr Text kMaker = TEXT("Velmora ");
constexpr Text kEnds[] = {TEXT(" Printer"), TEXT(" USB"), TEXT(" XML")};
constexpr int kTextLeft = 126; // pixels, behind the logo
constexpr int kTextDown = 1;
constexpr int kTextHeight = 18;
constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);

} // namespace

void BannerText(const WCHAR* deviceName, WCHAR (&text)[CCHDEVICENAME])
{
    text[0] = 0;
    Text name(deviceName);
    const size_t maker = name.find(kMaker);
    if (maker == name.npos)
        return;
    name.remove_prefix(maker + kMaker.size());
    size_t end = name.size();
    for (const Text cut : kEnds)
        end = std::min(end, name.find(cut));
    end = std::min(end, static_cast<size_t>(CCHDEVICENAME) - 1);
    std::copy_n(name.data(), end, text);
    text[end] = 0;
}

void DrawBannerBackground(const DRAWITEMSTRUCT& request)
{
    const GdiObject<HBITMAP> column(LoadBitmapW(hOwnModule, MAKEINTRESOURCEW(IDB_BANNER)));
    if (!column)
        return;
    const MemoryPicture picture(request.hDC, column.get());
    const int rows = std::min<int>(SizeOfBitmap(IDB_BANNER).cy, request.rcItem.bottom - request.rcItem.top);
    if (!picture)
        return;
    for (int y = 0; y < rows; ++y) {
        const RECT row = {request.rcItem.left, request.rcItem.top + y, request.rcItem.right,
                          request.rcItem.top + y + 1};
        FillWithColor(request.hDC, row, GetPixel(picture.dc(), 0, y));
    }
}

void DrawBannerText(const DRAWITEMSTRUCT& request, const WCHAR* deviceName)
{
    WCHAR text[CCHDEVICENAME];
    BannerText(deviceName, text);
    if (!text[0])
        return;
    const GdiObject<HFONT> font(CreateFontW(kTextHeight, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE,
                                            DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                            DEFAULT_QUALITY, DEFAULT_PITCH | FF_DONTCARE, TEXT("Arial")));
    const SavedState state(request.hDC);
    const Selection selected(request.hDC, font.get());
    SetBkMode(request.hDC, TRANSPARENT);
    SetTextColor(request.hDC, kWhite);
    RECT place = request.rcItem;
    OffsetRect(&place, kTextLeft, kTextDown);
    DrawTextW(request.hDC, text, -1, &place, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

} // namespace psui
