#include "host/window/controls/track_bar.h"

#include <utility>

#include <commctrl.h>

namespace host {

bool IsVertical(const TrackBar& bar)
{
    return (bar.style & TBS_VERT) != 0;
}

std::vector<int> InnerTicks(const TrackBar& bar)
{
    constexpr size_t kMostTicks = 4096; // more could not be told apart
    std::vector<int> ticks = bar.ticks;
    if ((bar.style & TBS_AUTOTICKS) == 0)
        return ticks;
    for (long long tick = static_cast<long long>(bar.minimum) + bar.tickStep;
         tick < bar.maximum && ticks.size() < kMostTicks; tick += bar.tickStep)
        ticks.push_back(static_cast<int>(tick));
    return ticks;
}

void SetPosition(TrackBar& bar, long long position)
{
    // A minimum above the maximum wins.
    const long long highest = std::min<long long>(position, bar.maximum);
    const int inside = static_cast<int>(std::max<long long>(highest, bar.minimum));
    if (inside == bar.position)
        return;
    bar.position = inside;
    RepaintBar(bar);
}

namespace {

// --- Numbers ---

LRESULT OnGetPos(TrackBar& bar, WPARAM, LPARAM)
{
    return bar.position;
}

LRESULT OnSetPos(TrackBar& bar, WPARAM, LPARAM position)
{
    SetPosition(bar, static_cast<int>(position));
    return 0;
}

void SetRange(TrackBar& bar, int minimum, int maximum)
{
    constexpr int kPagesInRange = 5;
    bar.minimum = minimum;
    bar.maximum = maximum;
    if (!bar.ownPageSize) {
        const long long range = static_cast<long long>(maximum) - minimum;
        bar.pageSize = static_cast<int>(std::clamp<long long>(range / kPagesInRange, 1, 0x7FFFFFFF));
    }
    SetPosition(bar, bar.position);
    RepaintBar(bar);
}

LRESULT OnGetRangeMin(TrackBar& bar, WPARAM, LPARAM)
{
    return bar.minimum;
}

LRESULT OnGetRangeMax(TrackBar& bar, WPARAM, LPARAM)
{
    return bar.maximum;
}

LRESULT OnSetRange(TrackBar& bar, WPARAM, LPARAM range)
{
    SetRange(bar, static_cast<SHORT>(LOWORD(range)), static_cast<SHORT>(HIWORD(range)));
    return 0;
}

LRESULT OnSetRangeMin(TrackBar& bar, WPARAM, LPARAM minimum)
{
    SetRange(bar, static_cast<int>(minimum), bar.maximum);
    return 0;
}

LRESULT OnSetRangeMax(TrackBar& bar, WPARAM, LPARAM maximum)
{
    SetRange(bar, bar.minimum, static_cast<int>(maximum));
    return 0;
}

LRESULT OnGetPageSize(TrackBar& bar, WPARAM, LPARAM)
{
    return bar.pageSize;
}

/// A size of -1 goes back to the default.
LRESULT OnSetPageSize(TrackBar& bar, WPARAM, LPARAM size)
{
    const int previous = bar.pageSize;
    bar.ownPageSize = size != -1;
    if (bar.ownPageSize)
        bar.pageSize = static_cast<int>(size);
    else
        SetRange(bar, bar.minimum, bar.maximum);
    return previous;
}

LRESULT OnGetLineSize(TrackBar& bar, WPARAM, LPARAM)
{
    return bar.lineSize;
}

LRESULT OnSetLineSize(TrackBar& bar, WPARAM, LPARAM size)
{
    return std::exchange(bar.lineSize, static_cast<int>(size));
}

// --- Ticks ---

LRESULT OnSetTic(TrackBar& bar, WPARAM, LPARAM tick)
{
    if (tick < bar.minimum || tick > bar.maximum)
        return FALSE;
    if (tick > bar.minimum && tick < bar.maximum) // the ends have theirs always
        bar.ticks.push_back(static_cast<int>(tick));
    RepaintBar(bar);
    return TRUE;
}

LRESULT OnGetTic(TrackBar& bar, WPARAM index, LPARAM)
{
    const std::vector<int> ticks = InnerTicks(bar);
    return index < ticks.size() ? ticks[index] : -1;
}

LRESULT OnGetTicPos(TrackBar& bar, WPARAM index, LPARAM)
{
    const std::vector<int> ticks = InnerTicks(bar);
    return index < ticks.size() ? PixelOf(bar, ticks[index]) : -1;
}

LRESULT OnGetNumTics(TrackBar& bar, WPARAM, LPARAM)
{
    constexpr int kEnds = 2;
    return (bar.style & TBS_NOTICKS) != 0 ? 0 : kEnds + static_cast<LRESULT>(InnerTicks(bar).size());
}

LRESULT OnClearTics(TrackBar& bar, WPARAM, LPARAM)
{
    bar.ticks.clear();
    RepaintBar(bar);
    return 0;
}

LRESULT OnSetTicFreq(TrackBar& bar, WPARAM step, LPARAM)
{
    bar.tickStep = std::max(static_cast<int>(step), 1);
    RepaintBar(bar);
    return 0;
}

// --- Geometry ---

LRESULT OnGetThumbRect(TrackBar& bar, WPARAM, LPARAM rect)
{
    if (rect != 0)
        *reinterpret_cast<RECT*>(rect) = ThumbRect(bar);
    return 0;
}

/// The channel of a vertical bar is given lying down, too.
LRESULT OnGetChannelRect(TrackBar& bar, WPARAM, LPARAM rect)
{
    if (rect != 0)
        *reinterpret_cast<RECT*>(rect) = ChannelRect(bar);
    return 0;
}

LRESULT OnGetThumbLength(TrackBar& bar, WPARAM, LPARAM)
{
    return bar.thumbLength;
}

LRESULT OnSetThumbLength(TrackBar& bar, WPARAM length, LPARAM)
{
    constexpr WPARAM kLongest = 0x7FFF;
    if ((bar.style & TBS_FIXEDLENGTH) != 0)
        bar.thumbLength = static_cast<int>(std::min(length, kLongest));
    RepaintBar(bar);
    return 0;
}

// --- Window ---

LRESULT OnChange(TrackBar& bar, WPARAM, LPARAM)
{
    RepaintBar(bar);
    return 0;
}

LRESULT OnSetRedraw(TrackBar& bar, WPARAM redraw, LPARAM)
{
    bar.redraw = redraw != 0;
    RepaintBar(bar);
    return 0;
}

LRESULT OnErase(TrackBar&, WPARAM, LPARAM)
{
    return TRUE; // painting leaves nothing out
}

LRESULT OnGetDlgCode(TrackBar&, WPARAM, LPARAM)
{
    return DLGC_WANTARROWS;
}

constexpr MessageRow<TrackBar> kMessages[] = {
    {WM_SIZE, OnChange},
    {WM_SETFOCUS, OnChange},
    {WM_KILLFOCUS, OnChange},
    {WM_ENABLE, OnChange},
    {WM_SETREDRAW, OnSetRedraw},
    {WM_PAINT, OnTrackPaint},
    {WM_ERASEBKGND, OnErase},
    {WM_GETDLGCODE, OnGetDlgCode},
    {WM_KEYDOWN, OnTrackKeyDown},
    {WM_KEYUP, OnTrackKeyUp},
    {WM_TIMER, OnTrackTimer},
    {WM_MOUSEMOVE, OnTrackMouseMove},
    {WM_LBUTTONDOWN, OnTrackButtonDown},
    {WM_LBUTTONUP, OnTrackButtonUp},
    {WM_LBUTTONDBLCLK, OnTrackButtonDown},
    {WM_CAPTURECHANGED, OnTrackCaptureChanged},
    {TBM_GETPOS, OnGetPos},
    {TBM_GETRANGEMIN, OnGetRangeMin},
    {TBM_GETRANGEMAX, OnGetRangeMax},
    {TBM_GETTIC, OnGetTic},
    {TBM_SETTIC, OnSetTic},
    {TBM_SETPOS, OnSetPos},
    {TBM_SETRANGE, OnSetRange},
    {TBM_SETRANGEMIN, OnSetRangeMin},
    {TBM_SETRANGEMAX, OnSetRangeMax},
    {TBM_CLEARTICS, OnClearTics},
    {TBM_GETTICPOS, OnGetTicPos},
    {TBM_GETNUMTICS, OnGetNumTics},
    {TBM_SETTICFREQ, OnSetTicFreq},
    {TBM_SETPAGESIZE, OnSetPageSize},
    {TBM_GETPAGESIZE, OnGetPageSize},
    {TBM_SETLINESIZE, OnSetLineSize},
    {TBM_GETLINESIZE, OnGetLineSize},
    {TBM_GETTHUMBRECT, OnGetThumbRect},
    {TBM_GETCHANNELRECT, OnGetChannelRect},
    {TBM_SETTHUMBLENGTH, OnSetThumbLength},
    {TBM_GETTHUMBLENGTH, OnGetThumbLength},
};
static_assert(InOrder<TrackBar>(kMessages));

} // namespace

LRESULT CALLBACK TrackBarProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunRows<TrackBar>(kMessages, window, message, wParam, lParam);
}

} // namespace host
