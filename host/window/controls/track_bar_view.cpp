#include "host/window/controls/track_bar.h"

#include <commctrl.h>

namespace host {
namespace {

constexpr int kChannelMargin = 8; // pixels from the control's ends, so that the thumb stays inside
constexpr int kChannelWidth = 4;
constexpr int kThumbWidth = 11; // along the channel
constexpr int kThumbTop = 2;    // from the control's edge
constexpr int kTickLength = 4;
constexpr int kTickGap = 2; // between thumb and ticks

RECT Turned(const RECT& rect)
{
    return {rect.top, rect.left, rect.bottom, rect.right};
}

/// In the control's coordinates, of a rectangle that is laid out lying down.
RECT Placed(const TrackBar& bar, const RECT& rect)
{
    return IsVertical(bar) ? Turned(rect) : rect;
}

RECT LyingClient(const TrackBar& bar)
{
    return Placed(bar, ClientRectOf(bar.window));
}

bool TicksOnTop(const TrackBar& bar)
{
    return (bar.style & (TBS_TOP | TBS_BOTH)) != 0;
}

bool TicksBelow(const TrackBar& bar)
{
    return (bar.style & TBS_BOTH) != 0 || (bar.style & TBS_TOP) == 0;
}

/// Top of the thumb, lying down.
int ThumbTop(const TrackBar& bar)
{
    const bool room = TicksOnTop(bar) && (bar.style & TBS_NOTICKS) == 0;
    return kThumbTop + (room ? kTickLength + kTickGap : 0);
}

int ThumbLength(const TrackBar& bar)
{
    const int room = LyingClient(bar).bottom - ThumbTop(bar) - kThumbTop;
    return (bar.style & TBS_FIXEDLENGTH) != 0 ? bar.thumbLength : std::clamp(room, 0, bar.thumbLength);
}

RECT LyingChannel(const TrackBar& bar)
{
    const RECT client = LyingClient(bar);
    const int top = ThumbTop(bar) + (ThumbLength(bar) - kChannelWidth) / 2;
    return {kChannelMargin, top, std::max<LONG>(client.right - kChannelMargin, kChannelMargin),
            top + kChannelWidth};
}

/// The span that the thumb's middle can be at.
struct Span
{
    int first;
    int last;
};

Span ThumbSpan(const TrackBar& bar)
{
    const RECT channel = LyingChannel(bar);
    const int half = kThumbWidth / 2;
    return {static_cast<int>(channel.left) + half,
            std::max<int>(channel.right - half - 1, channel.left + half)};
}

// --- Painting ---

COLORREF ThumbColor(const TrackBar& bar)
{
    if (!IsWindowEnabled(bar.window))
        return theme::kThumb;
    return bar.dragging ? theme::kAccentDark : theme::kAccent;
}

/// From the beginning to the thumb the channel has the accent's colour.
void DrawChannel(const TrackBar& bar, HDC dc)
{
    const RECT channel = LyingChannel(bar);
    RECT done = channel;
    done.right = PixelOf(bar, bar.position);
    theme::Fill(dc, Placed(bar, channel), theme::kTrack);
    theme::Frame(dc, Placed(bar, channel), theme::kBorder);
    theme::Fill(dc, Placed(bar, done), ThumbColor(bar));
}

void DrawTick(const TrackBar& bar, HDC dc, int position)
{
    const int x = PixelOf(bar, position);
    const int top = ThumbTop(bar) - kTickGap - kTickLength;
    const int below = ThumbTop(bar) + ThumbLength(bar) + kTickGap;
    if (TicksOnTop(bar))
        theme::Fill(dc, Placed(bar, {x, top, x + 1, top + kTickLength}), theme::kMarkBorder);
    if (TicksBelow(bar))
        theme::Fill(dc, Placed(bar, {x, below, x + 1, below + kTickLength}), theme::kMarkBorder);
}

void DrawTicks(const TrackBar& bar, HDC dc)
{
    if ((bar.style & TBS_NOTICKS) != 0)
        return;
    DrawTick(bar, dc, bar.minimum);
    DrawTick(bar, dc, bar.maximum);
    for (const int tick : InnerTicks(bar))
        DrawTick(bar, dc, tick);
}

void DrawThumb(const TrackBar& bar, HDC dc)
{
    if ((bar.style & TBS_NOTHUMB) != 0)
        return;
    const RECT thumb = ThumbRect(bar);
    theme::Fill(dc, thumb, ThumbColor(bar));
    theme::Frame(dc, thumb, IsWindowEnabled(bar.window) ? theme::kAccentDark : theme::kDisabledBorder);
}

void DrawBar(const TrackBar& bar, HDC dc)
{
    const RECT client = ClientRectOf(bar.window);
    FillRect(dc, &client, AskParentForColours(bar.window, dc, WM_CTLCOLORSTATIC));
    DrawTicks(bar, dc);
    DrawChannel(bar, dc);
    DrawThumb(bar, dc);
    if (LookOf(bar.window).focused)
        theme::DrawFocusRing(dc, client);
}

} // namespace

RECT ChannelRect(const TrackBar& bar)
{
    return Placed(bar, LyingChannel(bar));
}

RECT ThumbRect(const TrackBar& bar)
{
    const int left = PixelOf(bar, bar.position) - kThumbWidth / 2;
    const int top = ThumbTop(bar);
    return Placed(bar, {left, top, left + kThumbWidth, top + ThumbLength(bar)});
}

int PixelOf(const TrackBar& bar, int position)
{
    const Span span = ThumbSpan(bar);
    const long long range = static_cast<long long>(bar.maximum) - bar.minimum;
    if (range <= 0)
        return span.first;
    const long long offset = static_cast<long long>(position) - bar.minimum;
    return span.first + static_cast<int>((offset * (span.last - span.first) + range / 2) / range);
}

int PositionAt(const TrackBar& bar, int pixel)
{
    const Span span = ThumbSpan(bar);
    const long long range = static_cast<long long>(bar.maximum) - bar.minimum;
    const int length = span.last - span.first;
    if (range <= 0 || length <= 0)
        return bar.minimum;
    const long long offset = std::clamp(pixel, span.first, span.last) - span.first;
    return bar.minimum + static_cast<int>((offset * range + length / 2) / length);
}

int AlongOf(const TrackBar& bar, POINT point)
{
    return IsVertical(bar) ? point.y : point.x;
}

void RepaintBar(const TrackBar& bar)
{
    if (bar.redraw)
        Repaint(bar.window);
}

LRESULT OnTrackPaint(TrackBar& bar, WPARAM dc, LPARAM)
{
    const ControlPaint paint(bar.window, dc, nullptr);
    if (bar.redraw)
        DrawBar(bar, paint.Dc());
    return 0;
}

} // namespace host
