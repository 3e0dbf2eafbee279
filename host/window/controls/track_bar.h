#pragma once
// The track bar: a thumb on a channel that chooses a number of a range.
//
// track_bar.cpp keeps the numbers, track_bar_view.cpp measures and paints, track_bar_input.cpp is for keys
// and mouse. A vertical bar is measured and drawn like a horizontal one with x and y exchanged.
#include <vector>

#include "host/window/controls/control.h"

namespace host {

struct TrackBar : ControlState
{
    int minimum = 0;
    int maximum = 100;
    int position = 0;
    int lineSize = 1;
    int pageSize = 20;
    bool ownPageSize = false; ///< set by the program; otherwise a fifth of the range
    int tickStep = 1;         ///< of TBS_AUTOTICKS
    std::vector<int> ticks;   ///< set by the program, besides the two ends
    int thumbLength = 21;     ///< pixels across the channel
    bool redraw = true;
    bool dragging = false; ///< the thumb follows the mouse
    int grab = 0;          ///< pixels between the mouse and the thumb's middle
    int pageCode = -1;     ///< of TB_*, while a press beside the thumb repeats
};

bool IsVertical(const TrackBar& bar);

/// The positions of all ticks between the ends, in no order.
std::vector<int> InnerTicks(const TrackBar& bar);
/// Moves the thumb within the range and paints; tells nobody.
void SetPosition(TrackBar& bar, long long position);

// --- View ---

RECT ChannelRect(const TrackBar& bar);
RECT ThumbRect(const TrackBar& bar);
/// A pixel along the channel, and the position that is nearest to one.
int PixelOf(const TrackBar& bar, int position);
int PositionAt(const TrackBar& bar, int pixel);
/// Of a point, the coordinate along the channel.
int AlongOf(const TrackBar& bar, POINT point);
void RepaintBar(const TrackBar& bar);
LRESULT OnTrackPaint(TrackBar& bar, WPARAM wParam, LPARAM lParam);

// --- Input ---

LRESULT OnTrackKeyDown(TrackBar& bar, WPARAM wParam, LPARAM lParam);
LRESULT OnTrackKeyUp(TrackBar& bar, WPARAM wParam, LPARAM lParam);
LRESULT OnTrackButtonDown(TrackBar& bar, WPARAM wParam, LPARAM lParam);
LRESULT OnTrackButtonUp(TrackBar& bar, WPARAM wParam, LPARAM lParam);
LRESULT OnTrackMouseMove(TrackBar& bar, WPARAM wParam, LPARAM lParam);
LRESULT OnTrackTimer(TrackBar& bar, WPARAM wParam, LPARAM lParam);
LRESULT OnTrackCaptureChanged(TrackBar& bar, WPARAM wParam, LPARAM lParam);

LRESULT CALLBACK TrackBarProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
