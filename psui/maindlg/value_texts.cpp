#include "psui/maindlg/value_texts.h"

#include <iterator>

#include "lang/ids/strings.h"
#include "psui/maindlg/rules.h"
#include "psui/settings/record_values.h"

namespace psui {

namespace {

template <size_t N>
UINT TextAt(const UINT (&texts)[N], size_t index)
{
    return index < N ? texts[index] : 0;
}

} // namespace

UINT SwitchText(bool on)
{
    return on ? IDS_ON : IDS_OFF;
}

UINT LayoutText(int32_t pagesPerSheet)
{
    switch (pagesPerSheet) {
    case kPosterThreeByThree:
        return IDS_LAYOUT_POSTER9;
    case kPosterTwoByTwo:
        return IDS_LAYOUT_POSTER4;
    case 2:
        return IDS_LAYOUT_2IN1;
    case 4:
        return IDS_LAYOUT_4IN1;
    case 9:
        return IDS_LAYOUT_9IN1;
    case 16:
        return IDS_LAYOUT_16IN1;
    default:
        return IDS_LAYOUT_NORMAL;
    }
}

bool HasSeveralPages(int32_t pagesPerSheet)
{
    return pagesPerSheet == 2 || pagesPerSheet == 4 || pagesPerSheet == 9 || pagesPerSheet == 16;
}

UINT PageOrderText(const DriverDevMode& record)
{
    constexpr UINT kOrders[] = {IDS_ORDER_RIGHT_DOWN, IDS_ORDER_DOWN_RIGHT, IDS_ORDER_LEFT_DOWN,
                                IDS_ORDER_DOWN_LEFT};
    const uint8_t order = record.dmPrivate.bPageOrder;
    if (record.dmPrivate.dwPagesPerSheet != 2)
        return TextAt(kOrders, order);
    if (record.dmPublic.dmOrientation == DMORIENT_LANDSCAPE)
        return IDS_ORDER_TOP_BOTTOM;
    return TwoPagesRunBackwards(order) ? IDS_ORDER_RIGHT_LEFT : IDS_ORDER_LEFT_RIGHT;
}

UINT BorderLineText(uint8_t borderLine)
{
    constexpr UINT kLines[] = {IDS_BORDER_NONE, IDS_BORDER_SOLID, IDS_BORDER_DASHED};
    return TextAt(kLines, borderLine);
}

UINT DuplexTypeText(uint16_t duplexFlags)
{
    constexpr UINT kTypes[] = {IDS_DUPLEX_LONG1,  IDS_DUPLEX_LONG2,  IDS_DUPLEX_SHORT1,
                               IDS_DUPLEX_SHORT2, IDS_DUPLEX_MIXED1, IDS_DUPLEX_MIXED2};
    return TextAt(kTypes, duplexFlags & kDuplexTypeMask);
}

UINT OrientationText(short orientation)
{
    return orientation == DMORIENT_LANDSCAPE ? IDS_VALUE_LANDSCAPE : IDS_VALUE_PORTRAIT;
}

UINT ColorText(short color)
{
    return color == DMCOLOR_COLOR ? IDS_VALUE_COLOR : IDS_VALUE_MONOCHROME;
}

UINT SourceText(short source)
{
    switch (source) {
    case kSourceTray1:
        return IDS_BIN_TRAY1;
    case kSourceTray2:
        return IDS_BIN_TRAY2;
    default:
        return IDS_BIN_AUTO;
    }
}

UINT JpegText(uint8_t jpegPrint)
{
    constexpr UINT kTexts[] = {IDS_JPEG_QUALITY, 0, IDS_JPEG_AUTO, IDS_JPEG_SPEED};
    return TextAt(kTexts, jpegPrint);
}

UINT HalftoneText(uint8_t halftone)
{
    constexpr UINT kTexts[] = {0, IDS_HALFTONE_DITHER, IDS_HALFTONE_DIFFUSION};
    return TextAt(kTexts, halftone);
}

UINT PrintOrderText(uint8_t printOrder)
{
    constexpr UINT kTexts[] = {IDS_PRINT_ORDER_STANDARD, IDS_PRINT_ORDER_FAST, IDS_PRINT_ORDER_FASTEST};
    return TextAt(kTexts, printOrder);
}

} // namespace psui
