#include "psui/controls/previews.h"

#include "psui/controls/transparent.h"
#include "psui/res/pictures.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

constexpr UINT kPerQuality = 20;
constexpr UINT kLandscapePage = 10;
constexpr UINT kMonochromePage = 5;
constexpr UINT kTwoByTwo = 1;
constexpr UINT kThreeByThree = 2;
constexpr unsigned kLastPageOrder = 3;
constexpr unsigned kLastDuplexType = 5;

bool IsLandscape(const DEVMODEW& record)
{
    return record.dmOrientation == DMORIENT_LANDSCAPE;
}

UINT OnePage(const DriverDevMode& record)
{
    const PrivateDevMode& settings = record.dmPrivate;
    UINT bitmap = IDB_PAGE;
    if (settings.bQualityLevel <= kQualityPhotoFine)
        bitmap += kPerQuality * settings.bQualityLevel;
    if (IsLandscape(record.dmPublic))
        bitmap += kLandscapePage;
    if (record.dmPublic.dmColor == DMCOLOR_MONOCHROME)
        bitmap += kMonochromePage;
    if (settings.dwPagesPerSheet == kPosterThreeByThree)
        bitmap += kThreeByThree;
    else if (settings.dwPagesPerSheet == kPosterTwoByTwo)
        bitmap += kTwoByTwo;
    return bitmap;
}

UINT TwoPages(const DriverDevMode& record)
{
    if (IsLandscape(record.dmPublic))
        return IDB_2UP_TOP_TO_BOTTOM;
    const uint8_t order = record.dmPrivate.bPageOrder;
    return order == 2 || order == 3 ? IDB_2UP_RIGHT_TO_LEFT : IDB_2UP_LEFT_TO_RIGHT;
}

struct ManyPages
{
    int32_t pages;
    UINT portrait;
    UINT landscape;
};

constexpr ManyPages kManyPages[] = {
    {4, IDB_4UP_PORTRAIT, IDB_4UP_LANDSCAPE},
    {9, IDB_9UP_PORTRAIT, IDB_9UP_LANDSCAPE},
    {16, IDB_16UP_PORTRAIT, IDB_16UP_LANDSCAPE},
};

} // namespace

UINT LayoutPreviewBitmap(const DriverDevMode& record)
{
    const PrivateDevMode& settings = record.dmPrivate;
    if (settings.dwPagesPerSheet == 2)
        return TwoPages(record);
    for (const ManyPages& many : kManyPages)
        if (many.pages == settings.dwPagesPerSheet)
            return (IsLandscape(record.dmPublic) ? many.landscape : many.portrait) +
                   (settings.bPageOrder <= kLastPageOrder ? settings.bPageOrder : 0);
    return OnePage(record);
}

UINT CollatePreviewBitmap(const DriverDevMode& record)
{
    UINT bitmap = IDB_COPY_ONE;
    if (record.dmPublic.dmCopies >= 2)
        bitmap = record.dmPrivate.bTailCollate ? IDB_COPY_COLLATED : IDB_COPY_UNCOLLATED;
    return bitmap + (record.dmPrivate.bTailReverse ? 1 : 0);
}

UINT DuplexPreviewBitmap(const DriverDevMode& record)
{
    const PrivateDevMode& settings = record.dmPrivate;
    const unsigned type = settings.wDuplexFlags & kDuplexTypeMask;
    if (!(settings.wDuplexFlags & kDuplexOn) || type > kLastDuplexType)
        return 0;
    const bool landscape = IsLandscape(record.dmPublic);
    if (!landscape && record.dmPublic.dmOrientation != DMORIENT_PORTRAIT)
        return 0;
    const bool twoPages = settings.dwPagesPerSheet == 2;
    if (twoPages && (settings.bBookletFlags & kBookletOn) && type <= 1)
        return (landscape ? IDB_BOOKLET_LANDSCAPE : IDB_BOOKLET_PORTRAIT) + type;
    return (twoPages == landscape ? IDB_DUPLEX_PORTRAIT : IDB_DUPLEX_LANDSCAPE) + type;
}

bool HasColorMode(const DriverDevMode& record)
{
    return record.dmPublic.dmColor != DMCOLOR_MONOCHROME && record.dmPrivate.dwColorModeOn != 0;
}

void DrawLayoutPreview(const DRAWITEMSTRUCT& request, const DriverDevMode& record)
{
    DrawTransparentDib(request.hDC, LayoutPreviewBitmap(record), request.rcItem.left, request.rcItem.top,
                       kKeyMagenta, kOwnColors);
}

} // namespace psui
