// The colours and fonts of the desktop.
#include <algorithm>
#include <array>
#include <cstring>

#include "host/gdi/object.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr COLORREF kSystemColors[] = {
    RGB(200, 200, 200), // COLOR_SCROLLBAR
    RGB(58, 110, 165),  // COLOR_BACKGROUND
    RGB(153, 180, 209), // COLOR_ACTIVECAPTION
    RGB(191, 205, 219), // COLOR_INACTIVECAPTION
    RGB(240, 240, 240), // COLOR_MENU
    RGB(255, 255, 255), // COLOR_WINDOW
    RGB(100, 100, 100), // COLOR_WINDOWFRAME
    RGB(0, 0, 0),       // COLOR_MENUTEXT
    RGB(0, 0, 0),       // COLOR_WINDOWTEXT
    RGB(0, 0, 0),       // COLOR_CAPTIONTEXT
    RGB(180, 180, 180), // COLOR_ACTIVEBORDER
    RGB(244, 247, 252), // COLOR_INACTIVEBORDER
    RGB(171, 171, 171), // COLOR_APPWORKSPACE
    RGB(0, 120, 215),   // COLOR_HIGHLIGHT
    RGB(255, 255, 255), // COLOR_HIGHLIGHTTEXT
    RGB(240, 240, 240), // COLOR_BTNFACE
    RGB(160, 160, 160), // COLOR_BTNSHADOW
    RGB(109, 109, 109), // COLOR_GRAYTEXT
    RGB(0, 0, 0),       // COLOR_BTNTEXT
    RGB(0, 0, 0),       // COLOR_INACTIVECAPTIONTEXT
    RGB(255, 255, 255), // COLOR_BTNHIGHLIGHT
    RGB(105, 105, 105), // COLOR_3DDKSHADOW
    RGB(227, 227, 227), // COLOR_3DLIGHT
    RGB(0, 0, 0),       // COLOR_INFOTEXT
    RGB(255, 255, 225), // COLOR_INFOBK
    RGB(0, 0, 0),       // 25 has no name
    RGB(0, 102, 204),   // COLOR_HOTLIGHT
    RGB(185, 209, 234), // COLOR_GRADIENTACTIVECAPTION
    RGB(215, 228, 242), // COLOR_GRADIENTINACTIVECAPTION
    RGB(0, 120, 215),   // COLOR_MENUHILIGHT
    RGB(240, 240, 240), // COLOR_MENUBAR
};
constexpr int kSystemColorCount = static_cast<int>(std::size(kSystemColors));
static_assert(kSystemColorCount == COLOR_MENUBAR + 1);

constexpr LONG kDesktopFontHeight = -11; // 8 points

LOGFONTW DesktopFont(LONG weight)
{
    constexpr WCHAR kFace[] = TEXT("Tahoma");
    LOGFONTW font = {};
    font.lfHeight = kDesktopFontHeight;
    font.lfWeight = weight;
    font.lfCharSet = DEFAULT_CHARSET;
    std::copy(std::begin(kFace), std::end(kFace), font.lfFaceName);
    return font;
}

void FillMetrics(NONCLIENTMETRICSW& metrics)
{
    metrics.iBorderWidth = 1;
    metrics.iScrollWidth = metrics.iScrollHeight = 17;
    metrics.iCaptionWidth = metrics.iCaptionHeight = 22;
    metrics.iSmCaptionWidth = metrics.iSmCaptionHeight = 22;
    metrics.iMenuWidth = metrics.iMenuHeight = 19;
    metrics.lfCaptionFont = metrics.lfSmCaptionFont = DesktopFont(FW_BOLD);
    metrics.lfMenuFont = metrics.lfStatusFont = metrics.lfMessageFont = DesktopFont(FW_NORMAL);
}

BOOL CopyMetrics(PVOID data)
{
    NONCLIENTMETRICSW metrics = {};
    auto* const size = static_cast<UINT*>(data);
    // The last field came later; callers may leave it out.
    if (*size != sizeof metrics && *size != offsetof(NONCLIENTMETRICSW, iPaddedBorderWidth))
        return FailWith(ERROR_INVALID_PARAMETER);
    metrics.cbSize = *size;
    FillMetrics(metrics);
    std::memcpy(data, &metrics, metrics.cbSize);
    return TRUE;
}

} // namespace
} // namespace host

using namespace host;

DWORD WINAPI GetSysColor(int index)
{
    HOST_CALL_VOID(GetSysColor);
    return index >= 0 && index < kSystemColorCount ? kSystemColors[index] : 0;
}

HBRUSH WINAPI GetSysColorBrush(int index)
{
    HOST_CALL_VOID(GetSysColorBrush);
    static std::array<HBRUSH, kSystemColorCount> brushes;
    if (index < 0 || index >= kSystemColorCount)
        return nullptr;
    const GdiLock lock;
    HBRUSH& brush = brushes[static_cast<size_t>(index)];
    if (brush == nullptr) {
        const LOGBRUSH description = {BS_SOLID, kSystemColors[index], 0};
        brush = static_cast<HBRUSH>(NewPermanentHandle(std::make_shared<Brush>(description)));
    }
    return brush;
}

BOOL WINAPI SystemParametersInfoW(UINT action, UINT parameter, PVOID data, UINT)
{
    HOST_CALL(SystemParametersInfoW, FALSE, ERROR_ACCESS_DENIED);
    if (data == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    if (action == SPI_GETNONCLIENTMETRICS)
        return CopyMetrics(data);
    if (action == SPI_GETWORKAREA) {
        *static_cast<RECT*>(data) = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
        return TRUE;
    }
    if (action != SPI_GETICONTITLELOGFONT || parameter != sizeof(LOGFONTW))
        return FailWith(ERROR_INVALID_PARAMETER);
    const LOGFONTW font = DesktopFont(FW_NORMAL);
    std::memcpy(data, &font, sizeof font);
    return TRUE;
}
