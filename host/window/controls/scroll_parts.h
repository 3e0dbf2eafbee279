#pragma once
// The arithmetic of scroll bars, for the control and for the bars in a window's frame. Everything is measured
// along the bar in pixels from its first end (top or left).
#include <windows.h>
#include <winuser_controls.h>

namespace host {

/// Range, page and position as SCROLLINFO has them; `page` 0 means that the bar has no page.
struct ScrollRange
{
    int minimum;
    int maximum;
    UINT page;
    int position;

    /// The largest position, at least `minimum`.
    int LastPosition() const;
    /// False when the whole range shows at once: the bar has no thumb then.
    bool CanScroll() const { return LastPosition() > minimum; }
};

/// Takes over what `fMask` of `info` selects, then brings page and position into their bounds. A range that
/// ends before it starts becomes empty. Returns whether anything changed.
bool ChangeScrollRange(ScrollRange& range, const SCROLLINFO& info);

enum class ScrollPart
{
    none,
    lineUp,
    pageUp,
    thumb,
    pageDown,
    lineDown
};

struct ScrollLayout
{
    int length;      // of the whole bar
    int arrow;       // length of each arrow button
    int thumb;       // where the thumb starts
    int thumbLength; // 0: there is none
};

/// `thickness` is the length that arrow buttons like to have. A bar that is too short has shorter ones and no
/// thumb.
ScrollLayout LayOutScrollBar(const ScrollRange& range, int length, int thickness);

/// The part at `place`; without a thumb the middle of the bar is no part.
ScrollPart ScrollPartAt(const ScrollLayout& layout, int place);

/// The position that a thumb moved to start at `thumb` stands for.
int ScrollPositionOfThumb(const ScrollRange& range, const ScrollLayout& layout, int thumb);

/// The code (SB_LINEUP ...) that a press on a part sends; for the thumb SB_THUMBTRACK.
WORD ScrollCodeOf(ScrollPart part);

} // namespace host
