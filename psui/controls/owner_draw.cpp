#include "psui/controls/owner_draw.h"

#include <algorithm>
#include <iterator>

#include "lang/ids/advanced_tab.h"
#include "lang/ids/basic_tab.h"
#include "lang/ids/color_settings.h"
#include "lang/ids/device_options.h"
#include "lang/ids/duplex.h"
#include "lang/ids/favourites.h"
#include "lang/ids/main_dialog.h"
#include "lang/ids/notice.h"
#include "lang/ids/support.h"
#include "lang/ids/watermark.h"
#include "psui/base/gdi.h"
#include "psui/controls/banner.h"
#include "psui/controls/edges.h"
#include "psui/controls/list_items.h"
#include "psui/controls/pictures.h"
#include "psui/controls/previews.h"
#include "psui/controls/transparent.h"

namespace psui {

namespace {

constexpr COLORREF kWhite = RGB(0xFF, 0xFF, 0xFF);

// Controls that templates may hold though ours do not.
constexpr UINT kColorModeList = 3044;
constexpr UINT kSlotChoice = 6021;
constexpr UINT kServicePicture = 10800;

struct Drawing
{
    HWND dialog;
    const DRAWITEMSTRUCT& request;
    const OwnerDrawSource& source;
    const DriverDevMode& record;

    bool IsPressed() const
    {
        constexpr UINT kPressed = ODS_SELECTED | ODS_FOCUS;
        return (request.itemState & kPressed) == kPressed;
    }
    HDC dc() const { return request.hDC; }
};

void DrawBitmap(const Drawing& d, UINT bitmap)
{
    DRAWITEMSTRUCT request = d.request;
    request.CtlID = bitmap;
    DrawBitmapById(request);
}

void DrawDib(const Drawing& d, UINT bitmap, COLORREF key)
{
    DrawTransparentDib(d.dc(), bitmap, d.request.rcItem.left, d.request.rcItem.top, key, kOwnColors);
}

template <UINT bitmap>
void Picture(const Drawing& d)
{
    DrawBitmap(d, bitmap);
}

template <UINT bitmap, COLORREF key>
void Dib(const Drawing& d)
{
    DrawDib(d, bitmap, key);
}

template <void (*draw)(const DRAWITEMSTRUCT&, const OwnerDrawSource&)>
void Item(const Drawing& d)
{
    draw(d.request, d.source);
}

template <EdgeStyle style>
void Edge(const Drawing& d)
{
    DrawItemEdge(d.request, style);
}

void Banner(const Drawing& d)
{
    DrawBannerBackground(d.request);
    DrawTransparentDib(d.dc(), IDB_BANNER_LOGO, 0, 0, kKeyMagenta, kOwnColors);
    if (!d.source.bannerDiagnostics)
        DrawBannerText(d.request, d.source.deviceName);
}

void WebLink(const Drawing& d)
{
    constexpr int kFocusLeft = 4;
    constexpr int kFocusOther = 3;
    DrawBitmap(d, d.IsPressed() ? IDB_LINK_PRESSED : d.source.linkHover ? IDB_LINK_HOVER : IDB_LINK);
    if (!(d.request.itemState & ODS_FOCUS))
        return;
    const RECT& item = d.request.rcItem;
    const RECT focus = {item.left + kFocusLeft, item.top + kFocusOther, item.right - kFocusOther,
                        item.bottom - kFocusOther};
    DrawFocusRect(d.dc(), &focus);
}

void FitToPaper(const Drawing& d)
{
    FillControlColor(d.request, kWhite);
    if (d.record.dmPrivate.bFitToPaper)
        DrawBitmap(d, IDB_FIT_TO_PAPER);
}

void ColorSymbol(const Drawing& d)
{
    FillControlColor(d.request, kWhite);
    DrawDib(d, d.record.dmPublic.dmColor == DMCOLOR_COLOR ? IDB_COLOR : IDB_MONOCHROME, kKeyOlive);
}

void PagePreview(const Drawing& d)
{
    FillControlColor(d.request, kWhite);
    DrawLayoutPreview(d.request, d.record);
}

void CollatePreview(const Drawing& d)
{
    FillControlColor(d.request, GetSysColor(COLOR_BTNFACE));
    DrawBitmap(d, CollatePreviewBitmap(d.record));
}

void DuplexPreview(const Drawing& d)
{
    FillControlColor(d.request, GetSysColor(COLOR_BTNFACE));
    if (const UINT bitmap = DuplexPreviewBitmap(d.record))
        DrawBitmap(d, bitmap);
}

template <UINT bitmap>
void ModePicture(const Drawing& d)
{
    DrawBitmap(d, HasColorMode(d.record) ? bitmap : IDB_MODE_OFF);
}

void ButtonEdge(const Drawing& d)
{
    const bool selects = d.request.itemAction & ODA_SELECT;
    const bool focused = d.request.itemState & ODS_FOCUS;
    const EdgeStyle style = selects ? (d.IsPressed() ? EdgeStyle::Pressed : EdgeStyle::Focused)
                                    : (focused ? EdgeStyle::Focused : EdgeStyle::Raised);
    DrawItemEdge(d.request, style);
}

template <UINT bitmap>
void LinkButton(const Drawing& d)
{
    DRAWITEMSTRUCT request = d.request;
    request.CtlID = bitmap;
    DrawButtonBitmap(request, d.IsPressed());
    ButtonEdge(d);
}

void WatermarkColor(const Drawing& d)
{
    FillControlColor(d.request, GetSysColor(COLOR_BTNFACE));
    ButtonEdge(d);
    if (const HWND swatch = GetDlgItem(d.dialog, IDC_WM_COLOR_SWATCH))
        InvalidateRect(swatch, nullptr, TRUE);
}

struct Painter
{
    UINT type; // ODT_…
    UINT id;
    void (*draw)(const Drawing&);
};

constexpr Painter kPainters[] = {
    {ODT_COMBOBOX, IDC_BORDER_LINE, Item<DrawBorderLineItem>},
    {ODT_COMBOBOX, kColorModeList, Item<DrawColorModeItem>},
    {ODT_COMBOBOX, kSlotChoice, Item<DrawFavouriteSlotItem>},
    {ODT_COMBOBOX, IDC_SLOT_ICON, Item<DrawFavouriteIconItem>},
    {ODT_LISTBOX, IDC_FAVOURITES, Item<DrawFavouriteListItem>},
    {ODT_LISTBOX, IDC_SLOT_LIST, Item<DrawSlotListItem>},
    {ODT_LISTBOX, IDC_OPTION_LIST, Item<DrawTextListItem>},
    {ODT_BUTTON, IDC_BANNER, Banner},
    {ODT_BUTTON, IDC_WEB_LINK, WebLink},
    {ODT_BUTTON, IDC_FIT_PICTURE, FitToPaper},
    {ODT_BUTTON, IDC_COLOR_PICTURE, ColorSymbol},
    {ODT_BUTTON, IDC_COLOR_SYMBOL, Dib<IDB_COLOR, kKeyOlive>},
    {ODT_BUTTON, IDC_MONOCHROME_SYMBOL, Dib<IDB_MONOCHROME, kKeyOlive>},
    {ODT_BUTTON, IDC_PREVIEW, PagePreview},
    {ODT_BUTTON, IDC_COLLATE_PICTURE, CollatePreview},
    {ODT_BUTTON, IDC_DUPLEX_PICTURE, DuplexPreview},
    {ODT_BUTTON, IDC_SLOW_DRYING_HELP, Picture<IDB_HELP>},
    {ODT_BUTTON, IDC_BORDERLESS_HELP, Picture<IDB_HELP>},
    {ODT_BUTTON, IDC_COLOR_MODE_HELP, Picture<IDB_HELP>},
    {ODT_BUTTON, IDC_BIDIRECTIONAL_HELP, Picture<IDB_HELP>},
    {ODT_BUTTON, IDC_IMPROVE_PATTERN_HELP, Picture<IDB_HELP>},
    {ODT_BUTTON, IDC_MATCH_MONITOR_HELP, Picture<IDB_HELP>},
    {ODT_BUTTON, IDC_FAVOURITE_HELP, Picture<IDB_HELP>},
    {ODT_BUTTON, IDC_NATURAL_PICTURE, ModePicture<IDB_MODE_NATURAL>},
    {ODT_BUTTON, IDC_VIVID_PICTURE, ModePicture<IDB_MODE_VIVID>},
    {ODT_BUTTON, IDC_NOTICE_PICTURE1, Picture<IDB_NOTICE_TRAY>},
    {ODT_BUTTON, IDC_NOTICE_PICTURE2, Picture<IDB_NOTICE_LOADING>},
    {ODT_BUTTON, IDC_WM_OUTLINE_PICTURE, Dib<IDB_OUTLINED_LETTER, kKeyMagenta>},
    {ODT_BUTTON, IDC_SUPPORT_PICTURE, Dib<IDB_PRINTER, kKeyMagenta>},
    {ODT_BUTTON, IDC_SUPPORT_LINK, LinkButton<IDB_SUPPORT_LINK>},
    {ODT_BUTTON, IDC_UPDATE_LINK, LinkButton<IDB_UPDATE_LINK>},
    {ODT_BUTTON, IDC_WM_COLOR, WatermarkColor},
    {ODT_BUTTON, IDC_DATE_LINE, Edge<EdgeStyle::ShadowLine>},
    {ODT_BUTTON, IDC_FAVOURITE_PICTURE1, Picture<IDB_FAVOURITE_SAVE>},
    {ODT_BUTTON, IDC_FAVOURITE_PICTURE2, Picture<IDB_FAVOURITE_RESTORE>},
    {ODT_BUTTON, kServicePicture, Picture<IDB_SERVICE>},
};

// Buttons that are nothing but a separator, of all dialogs.
constexpr UINT kSeparators[] = {3030, 3050, 3066, 3105, 3106, 3108, 3109, 3167, 3168, 3169, 4078,
                                4079, 4080, 4102, 4117, 4125, 4126, 4155, 4178, 4181, 4240, 6015};

} // namespace

void DrawOwnerItem(HWND dialog, const DRAWITEMSTRUCT& request, const OwnerDrawSource& source,
                   const DriverDevMode& record)
{
    const auto painter = std::find_if(std::begin(kPainters), std::end(kPainters), [&](const Painter& each) {
        return each.type == request.CtlType && each.id == request.CtlID;
    });
    if (painter != std::end(kPainters))
        painter->draw({dialog, request, source, record});
    else if (request.CtlType == ODT_BUTTON && std::find(std::begin(kSeparators), std::end(kSeparators),
                                                        request.CtlID) != std::end(kSeparators))
        DrawItemEdge(request, EdgeStyle::Etched);
}

} // namespace psui
