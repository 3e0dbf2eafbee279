#include "psui/maindlg/fit_text.h"

#include <algorithm>
#include <string_view>

#include "psui/base/gdi.h"

namespace psui {

namespace {

constexpr int kMargin = 5; // pixels
constexpr int kDots = 3;
constexpr int kLeastForDots = 9; // units of a cut line that ends in dots

bool IsHalfOfPair(WCHAR unit)
{
    return unit >= 0xD800 && unit <= 0xDBFF;
}

/// Units of the longest beginning of a line that is narrower than `limit`.
int UnitsThatFit(std::basic_string_view<WCHAR> line, int limit, TextWidthFn width, void* data)
{
    int fits = 0, tooLong = static_cast<int>(line.size()) + 1;
    while (tooLong - fits > 1) {
        const int middle = (fits + tooLong) / 2;
        (width(data, line.data(), middle) < limit ? fits : tooLong) = middle;
    }
    return fits > 0 && IsHalfOfPair(line[fits - 1]) ? fits - 1 : fits;
}

/// Copies the fitting part of a line, which may overlap its destination, and returns the place behind it.
WCHAR* PutFitted(WCHAR* to, std::basic_string_view<WCHAR> line, int limit, TextWidthFn width, void* data)
{
    const int units = UnitsThatFit(line, limit, width, data);
    WCHAR* end = std::copy_n(line.data(), units, to);
    if (units < static_cast<int>(line.size()) && units >= kLeastForDots)
        std::fill(end - kDots, end, WCHAR{'.'});
    return end;
}

int WidthInDc(void* dc, const WCHAR* text, int length)
{
    SIZE size = {};
    GetTextExtentPoint32W(static_cast<HDC>(dc), text, length, &size);
    return size.cx;
}

} // namespace

void FitTextToWidth(WCHAR* text, int limit, TextWidthFn width, void* data)
{
    constexpr WCHAR kBreaks[] = TEXT("\r\n");
    const std::basic_string_view<WCHAR> whole(text);
    const size_t firstEnd = std::min(whole.find_first_of(kBreaks), whole.size());
    const size_t secondStart = std::min(whole.find_first_not_of(kBreaks, firstEnd), whole.size());
    WCHAR* end = PutFitted(text, whole.substr(0, firstEnd), limit, width, data);
    if (firstEnd < whole.size()) {
        *end++ = '\n';
        end = PutFitted(end, whole.substr(secondStart), limit, width, data);
    }
    *end = 0;
}

void FitTextToLine(HWND dialog, int control, WCHAR* text)
{
    const HWND window = GetDlgItem(dialog, control);
    RECT area = {};
    NONCLIENTMETRICSW metrics = {};
    metrics.cbSize = sizeof(metrics);
    if (!window || !GetClientRect(window, &area) ||
        !SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0))
        return;
    const WindowDc dc(window);
    const GdiObject<HFONT> font(CreateFontIndirectW(&metrics.lfMessageFont));
    if (!dc.get() || !font.get())
        return;
    const Selection selected(dc.get(), font.get());
    FitTextToWidth(text, area.right - area.left - kMargin, WidthInDc, dc.get());
}

} // namespace psui
