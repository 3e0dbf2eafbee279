#pragma once
// The arithmetic of scroll bars, for the control and for the bars in a window's frame. Everything is measured
// along the bar in pixels from its first end (top or left).
#include <windows.h>

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

/// The code (SB_LINEUP ...) that a press on a part tells: SB_THUMBTRACK for the thumb, SB_ENDSCROLL for no
/// part.
WORD CodeOfScrollPart(ScrollPart part);

/// The pointer's hold on a bar, from press to release.
struct ScrollPress
{
    ScrollPart part = ScrollPart::none;
    bool inside = false;   // the pointer is on the pressed part, or drags the thumb
    int grab = 0;          // of the thumb: from its start to the pointer
    int trackPosition = 0; // of the thumb: the position that it stands for now
};

/// What SBM_GETSCROLLINFO and GetScrollInfo do: fills what `fMask` selects, and returns whether it selects
/// anything.
bool ReadScrollRange(const ScrollRange& range, const ScrollPress& press, SCROLLINFO& info);
/// The range with the position at which the bar shows itself: the one that a dragged thumb stands for.
ScrollRange ShownRange(const ScrollRange& range, const ScrollPress& press);
/// Whether `arrows` (ESB_DISABLE_ bits) make a press on this part do nothing.
bool IsBlockedPart(ScrollPart part, UINT arrows);
/// How far a place is off a bar's sides, which is `thickness` across; 0 on the bar.
int PixelsBeside(int across, int thickness);

/// These three follow the pointer, which is at `place` along the bar. They return the code to tell the
/// program (SB_LINEUP ...; with SB_THUMBTRACK goes `trackPosition`), or kNoScrollCode.
inline constexpr int kNoScrollCode = -1;
int PressScrollBar(ScrollPress& press, const ScrollRange& range, const ScrollLayout& layout, int place);
/// `beside` is how many pixels the pointer is off the bar's side: a thumb that is dragged too far off returns
/// to where it was.
int MoveOnScrollBar(ScrollPress& press, const ScrollRange& range, const ScrollLayout& layout, int place,
                    int beside);
/// For the repeat timer of the parts that are no thumb. Paging ends when the thumb has come to the pointer.
int RepeatOnScrollBar(const ScrollPress& press, const ScrollLayout& layout, int place);

} // namespace host
