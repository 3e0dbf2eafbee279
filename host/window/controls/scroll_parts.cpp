#include "host/window/controls/scroll_parts.h"

#include <algorithm>
#include <cstdint>

namespace host {
namespace {

constexpr int kSmallestThumb = 8;
constexpr int kFarthestDrag = 150; // pixels beside the bar

int64_t RangeSize(const ScrollRange& range)
{
    return static_cast<int64_t>(range.maximum) - range.minimum + 1;
}

bool Differ(const ScrollRange& one, const ScrollRange& other)
{
    return one.minimum != other.minimum || one.maximum != other.maximum || one.page != other.page ||
           one.position != other.position;
}

} // namespace

int ScrollRange::LastPosition() const
{
    const int64_t hidden = page > 1 ? static_cast<int64_t>(page) - 1 : 0;
    return static_cast<int>(std::max<int64_t>(minimum, maximum - hidden));
}

bool ChangeScrollRange(ScrollRange& range, const SCROLLINFO& info)
{
    const ScrollRange before = range;
    if (info.fMask & SIF_RANGE) {
        range.minimum = info.nMin;
        range.maximum = std::max(info.nMin, info.nMax);
        if (info.nMax < info.nMin)
            range.minimum = range.maximum = 0;
    }
    if (info.fMask & SIF_PAGE)
        range.page = info.nPage;
    if (info.fMask & SIF_POS)
        range.position = info.nPos;
    range.page = static_cast<UINT>(std::min<int64_t>(range.page, RangeSize(range)));
    range.position = std::clamp(range.position, range.minimum, range.LastPosition());
    return Differ(before, range);
}

ScrollLayout LayOutScrollBar(const ScrollRange& range, int length, int thickness)
{
    ScrollLayout layout = {std::max(length, 0), std::clamp(thickness, 0, std::max(length, 0) / 2), 0, 0};
    const int track = layout.length - 2 * layout.arrow;
    layout.thumb = layout.arrow;
    if (!range.CanScroll() || track < kSmallestThumb)
        return layout;
    const int64_t wanted =
        range.page > 0 ? track * static_cast<int64_t>(range.page) / RangeSize(range) : thickness;
    layout.thumbLength = static_cast<int>(std::clamp<int64_t>(wanted, kSmallestThumb, track));
    const int64_t travelled = static_cast<int64_t>(range.position) - range.minimum;
    const int64_t travel = static_cast<int64_t>(range.LastPosition()) - range.minimum;
    layout.thumb += static_cast<int>((track - layout.thumbLength) * travelled / travel);
    return layout;
}

ScrollPart ScrollPartAt(const ScrollLayout& layout, int place)
{
    if (place < 0 || place >= layout.length)
        return ScrollPart::none;
    if (place < layout.arrow)
        return ScrollPart::lineUp;
    if (place >= layout.length - layout.arrow)
        return ScrollPart::lineDown;
    if (layout.thumbLength == 0)
        return ScrollPart::none;
    if (place < layout.thumb)
        return ScrollPart::pageUp;
    return place < layout.thumb + layout.thumbLength ? ScrollPart::thumb : ScrollPart::pageDown;
}

int ScrollPositionOfThumb(const ScrollRange& range, const ScrollLayout& layout, int thumb)
{
    const int travel = layout.length - 2 * layout.arrow - layout.thumbLength;
    if (layout.thumbLength == 0 || travel <= 0)
        return range.position;
    const int64_t moved = std::clamp(thumb - layout.arrow, 0, travel);
    const int64_t positions = static_cast<int64_t>(range.LastPosition()) - range.minimum;
    return static_cast<int>(range.minimum + (positions * moved + travel / 2) / travel);
}

WORD CodeOfScrollPart(ScrollPart part)
{
    constexpr WORD kCodes[] = {SB_ENDSCROLL, SB_LINEUP, SB_PAGEUP, SB_THUMBTRACK, SB_PAGEDOWN, SB_LINEDOWN};
    return kCodes[static_cast<size_t>(part)];
}

bool ReadScrollRange(const ScrollRange& range, const ScrollPress& press, SCROLLINFO& info)
{
    if (info.fMask & SIF_RANGE) {
        info.nMin = range.minimum;
        info.nMax = range.maximum;
    }
    if (info.fMask & SIF_PAGE)
        info.nPage = range.page;
    if (info.fMask & SIF_POS)
        info.nPos = range.position;
    if (info.fMask & SIF_TRACKPOS)
        info.nTrackPos = ShownRange(range, press).position;
    return (info.fMask & SIF_ALL) != 0;
}

ScrollRange ShownRange(const ScrollRange& range, const ScrollPress& press)
{
    ScrollRange shown = range;
    if (press.part == ScrollPart::thumb)
        shown.position = press.trackPosition;
    return shown;
}

bool IsBlockedPart(ScrollPart part, UINT arrows)
{
    return (part == ScrollPart::lineUp && (arrows & ESB_DISABLE_LTUP)) ||
           (part == ScrollPart::lineDown && (arrows & ESB_DISABLE_RTDN));
}

int PixelsBeside(int across, int thickness)
{
    return std::max({0, -across, across - thickness + 1});
}

int PressScrollBar(ScrollPress& press, const ScrollRange& range, const ScrollLayout& layout, int place)
{
    press = {ScrollPartAt(layout, place), true, place - layout.thumb, range.position};
    return press.part == ScrollPart::none ? kNoScrollCode : CodeOfScrollPart(press.part);
}

int MoveOnScrollBar(ScrollPress& press, const ScrollRange& range, const ScrollLayout& layout, int place,
                    int beside)
{
    if (press.part != ScrollPart::thumb) {
        press.inside = beside == 0 && ScrollPartAt(layout, place) == press.part;
        return kNoScrollCode;
    }
    const int position =
        beside > kFarthestDrag ? range.position : ScrollPositionOfThumb(range, layout, place - press.grab);
    if (position == press.trackPosition)
        return kNoScrollCode;
    press.trackPosition = position;
    return SB_THUMBTRACK;
}

int RepeatOnScrollBar(const ScrollPress& press, const ScrollLayout& layout, int place)
{
    const bool steps = press.part != ScrollPart::none && press.part != ScrollPart::thumb;
    const bool repeats = steps && press.inside && ScrollPartAt(layout, place) == press.part;
    return repeats ? CodeOfScrollPart(press.part) : kNoScrollCode;
}

} // namespace host
