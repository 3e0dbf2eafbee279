#include "psui/controls/list_items.h"

#include "lang/ids/strings.h"
#include "psui/base/gdi.h"
#include "psui/base/memory.h"
#include "psui/base/module.h"
#include "psui/controls/transparent.h"
#include "psui/res/pictures.h"

namespace psui {

namespace {

constexpr int kTextUnits = 256; // of a list's own text or a language string
constexpr int kLineInset = 3;   // of sample and separating lines, from either side
constexpr int kDash = 4;
constexpr int kIconSide = 24;
constexpr int kIconDown = 6; // from the item's top, where lists have separating lines
constexpr int kNameLeft = 28;
constexpr int kListTextLeft = 10;
constexpr int kSymbolLeft = 1;
constexpr int kModeTextLeft = 18;
constexpr int kModeTextRight = 2;
constexpr uint32_t kMonochromeMode = 1;
constexpr uint32_t kColorMode = 2;

struct ItemColors
{
    COLORREF background;
    COLORREF text;
};

ItemColors ColorsOf(const DRAWITEMSTRUCT& request)
{
    if (request.itemState & ODS_SELECTED)
        return {GetSysColor(COLOR_HIGHLIGHT), GetSysColor(COLOR_HIGHLIGHTTEXT)};
    if (request.itemState & ODS_DISABLED)
        return {GetSysColor(COLOR_BTNFACE), GetSysColor(COLOR_BTNSHADOW)};
    return {GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT)};
}

// In the lists of favourites and of texts a disabled item keeps the window's background.
ItemColors ListColorsOf(const DRAWITEMSTRUCT& request)
{
    ItemColors colors = ColorsOf(request);
    if ((request.itemState & (ODS_SELECTED | ODS_DISABLED)) == ODS_DISABLED)
        colors.background = GetSysColor(COLOR_WINDOW);
    return colors;
}

// The frame of every item: background, content, focus. `draw` gets the device context with the text colour
// set.
template <typename Draw>
void DrawItem(const DRAWITEMSTRUCT& request, const ItemColors& colors, const Draw& draw)
{
    const SavedState state(request.hDC);
    // A lost focus is drawn anew too: nothing else takes the old rectangle away.
    if ((request.itemAction & (ODA_DRAWENTIRE | ODA_SELECT)) || !(request.itemState & ODS_FOCUS))
        FillWithColor(request.hDC, request.rcItem, colors.background);
    SetBkMode(request.hDC, TRANSPARENT);
    SetTextColor(request.hDC, colors.text);
    draw(request.hDC);
    if ((request.itemAction & ODA_FOCUS) && (request.itemState & ODS_FOCUS))
        DrawFocusRect(request.hDC, &request.rcItem);
}

void DrawLineOfText(HDC dc, RECT place, const WCHAR* text, UINT more = 0)
{
    DrawTextW(dc, text, -1, &place, DT_SINGLELINE | DT_VCENTER | more);
}

void DrawLanguageText(HDC dc, const RECT& place, const OwnerDrawSource& source, UINT id, UINT more = 0)
{
    WCHAR text[kTextUnits];
    if (LoadModuleString(source.language, id, text, kTextUnits) > 0)
        DrawLineOfText(dc, place, text, more);
}

RECT From(const RECT& item, int left)
{
    return {item.left + left, item.top, item.right, item.bottom};
}

// Dashes of one pixel's height that leave the inset on either side.
void DrawDashes(HDC dc, const RECT& item, LONG y, COLORREF color)
{
    const GdiObject<HBRUSH> brush(CreateSolidBrush(color));
    const int count = (item.right - item.left - 2 * kLineInset) / (2 * kDash) + 1;
    for (int i = 0; i < count; ++i) {
        const LONG left = item.left + kLineInset + i * 2 * kDash;
        const RECT dash = {left, y, left + kDash, y + 1};
        FillRect(dc, &dash, brush.get());
    }
}

void DrawFavouriteIcon(HDC dc, int x, int y, uint32_t icon)
{
    if (icon >= FAVOURITE_ICONS)
        return;
    const auto handle = static_cast<HICON>(LoadImageW(hOwnModule, MAKEINTRESOURCEW(IDI_FAVOURITE + icon),
                                                      IMAGE_ICON, kIconSide, kIconSide, LR_DEFAULTCOLOR));
    if (!handle)
        return;
    DrawIconEx(dc, x, y, handle, kIconSide, kIconSide, 0, nullptr, DI_NORMAL);
    DestroyIcon(handle);
}

const FavouriteItem* SlotOf(const OwnerDrawSource& source, ULONG_PTR slot)
{
    return slot < source.favourites.size() ? &source.favourites[slot] : nullptr;
}

void DrawSlot(HDC dc, const RECT& item, const FavouriteItem* slot, int iconDown)
{
    if (!slot)
        return;
    DrawFavouriteIcon(dc, item.left, item.top + iconDown, slot->icon);
    DrawLineOfText(dc, From(item, kNameLeft), slot->name, DT_NOPREFIX);
}

// The text that the list box itself keeps for the item.
void DrawOwnText(const DRAWITEMSTRUCT& request, int left)
{
    const LRESULT length = SendMessageW(request.hwndItem, LB_GETTEXTLEN, request.itemID, 0);
    if (length <= 0)
        return;
    const HeapPtr<WCHAR> text(static_cast<WCHAR*>(
        HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, (static_cast<size_t>(length) + 1) * sizeof(WCHAR))));
    if (text &&
        SendMessageW(request.hwndItem, LB_GETTEXT, request.itemID, reinterpret_cast<LPARAM>(text.get())) > 0)
        DrawLineOfText(request.hDC, From(request.rcItem, left), text.get(), DT_NOPREFIX);
}

// An item of a list whose items have a dotted line below them.
template <typename Draw>
void DrawListItem(const DRAWITEMSTRUCT& request, const Draw& draw)
{
    const ItemColors colors = ListColorsOf(request);
    DrawItem(request, colors, [&](HDC dc) {
        draw(dc);
        DrawDashes(dc, request.rcItem, request.rcItem.bottom - 1, colors.text);
    });
}

} // namespace

void DrawBorderLineItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source)
{
    constexpr ULONG_PTR kSolid = 1;
    constexpr ULONG_PTR kDashed = 2;
    const RECT& item = request.rcItem;
    const LONG middle = (item.top + item.bottom) / 2;
    const ItemColors colors = ColorsOf(request);
    DrawItem(request, colors, [&](HDC dc) {
        if (request.itemData == kSolid) {
            const RECT line = {item.left + kLineInset, middle, item.right - kLineInset, middle + 1};
            FillWithColor(dc, line, colors.text);
        } else if (request.itemData == kDashed) {
            DrawDashes(dc, item, middle, colors.text);
        } else if (request.itemData == 0) {
            DrawLanguageText(dc, From(item, kLineInset), source, IDS_BORDER_NONE);
        }
    });
}

void DrawColorModeItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source)
{
    if (request.itemData >= source.colorModes.size())
        return;
    const uint32_t kind = source.colorModes[request.itemData];
    DrawItem(request, ColorsOf(request), [&](HDC dc) {
        if (kind != kMonochromeMode && kind != kColorMode)
            return;
        const UINT bitmap = kind == kColorMode ? IDB_COLOR : IDB_MONOCHROME;
        const RECT& item = request.rcItem;
        const LONG down = (item.bottom - item.top - SizeOfBitmap(bitmap).cy) / 2;
        DrawTransparentDib(dc, bitmap, item.left + kSymbolLeft, item.top + down, kKeyOlive, kOwnColors);
        RECT place = From(item, kModeTextLeft);
        place.right -= kModeTextRight;
        DrawLanguageText(dc, place, source, kind == kColorMode ? IDS_COLOR_ITEM : IDS_MONOCHROME_ITEM,
                         DT_NOPREFIX);
    });
}

void DrawFavouriteSlotItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source)
{
    DrawItem(request, ColorsOf(request),
             [&](HDC dc) { DrawSlot(dc, request.rcItem, SlotOf(source, request.itemData), 0); });
}

void DrawFavouriteIconItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource&)
{
    DrawItem(request, ColorsOf(request), [&](HDC dc) {
        DrawFavouriteIcon(dc, request.rcItem.left, request.rcItem.top,
                          static_cast<uint32_t>(request.itemData));
    });
}

void DrawFavouriteListItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source)
{
    constexpr auto kNothing = static_cast<ULONG_PTR>(-1);
    if (request.itemData == kNothing)
        return;
    DrawListItem(request, [&](HDC dc) {
        if (request.itemData == 0)
            DrawOwnText(request, kNameLeft);
        else
            DrawSlot(dc, request.rcItem, SlotOf(source, request.itemData - 1), kIconDown);
    });
}

void DrawSlotListItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source)
{
    DrawListItem(request,
                 [&](HDC dc) { DrawSlot(dc, request.rcItem, SlotOf(source, request.itemData), kIconDown); });
}

void DrawTextListItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource&)
{
    DrawListItem(request, [&](HDC) { DrawOwnText(request, kListTextLeft); });
}

} // namespace psui
