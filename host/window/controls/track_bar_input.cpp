#include "host/window/controls/track_bar.h"

#include <commctrl.h>

namespace host {
namespace {

constexpr UINT_PTR kRepeatTimer = 1;
constexpr UINT kRepeatInterval = 200; // ms between pages while a press beside the thumb lasts
constexpr int kNoCode = -1;

/// `position` goes along with the thumb's own codes only.
void Tell(const TrackBar& bar, int code, int position = 0)
{
    SendMessageW(GetParent(bar.window), IsVertical(bar) ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(code, position),
                 reinterpret_cast<LPARAM>(bar.window));
}

long long StepTo(const TrackBar& bar, int code)
{
    const long long position = bar.position;
    switch (code) {
    case TB_LINEUP:
        return position - bar.lineSize;
    case TB_LINEDOWN:
        return position + bar.lineSize;
    case TB_PAGEUP:
        return position - bar.pageSize;
    case TB_PAGEDOWN:
        return position + bar.pageSize;
    case TB_TOP:
        return bar.minimum;
    case TB_BOTTOM:
        return bar.maximum;
    }
    return position;
}

/// Moves by one of TB_*, and tells when that went anywhere.
void Step(TrackBar& bar, int code)
{
    const int before = bar.position;
    SetPosition(bar, StepTo(bar, code));
    if (bar.position != before)
        Tell(bar, code);
}

struct Key
{
    WPARAM key;
    int code;
};

constexpr Key kKeys[] = {
    {VK_LEFT, TB_LINEUP},  {VK_UP, TB_LINEUP},     {VK_RIGHT, TB_LINEDOWN}, {VK_DOWN, TB_LINEDOWN},
    {VK_PRIOR, TB_PAGEUP}, {VK_NEXT, TB_PAGEDOWN}, {VK_HOME, TB_TOP},       {VK_END, TB_BOTTOM},
};

int CodeOf(WPARAM key)
{
    const auto found =
        std::find_if(std::begin(kKeys), std::end(kKeys), [=](const Key& each) { return each.key == key; });
    return found != std::end(kKeys) ? found->code : kNoCode;
}

/// The page code that brings the thumb nearer to a place along the channel, if it is not there yet.
int PageToward(const TrackBar& bar, int along)
{
    const RECT thumb = ThumbRect(bar);
    if (along < AlongOf(bar, {thumb.left, thumb.top}))
        return TB_PAGEUP;
    return along >= AlongOf(bar, {thumb.right, thumb.bottom}) ? TB_PAGEDOWN : kNoCode;
}

void DragTo(TrackBar& bar, POINT point)
{
    const int before = bar.position;
    SetPosition(bar, PositionAt(bar, AlongOf(bar, point) - bar.grab));
    if (bar.position != before)
        Tell(bar, TB_THUMBTRACK, bar.position);
}

} // namespace

LRESULT OnTrackKeyDown(TrackBar& bar, WPARAM key, LPARAM)
{
    if (const int code = CodeOf(key); code != kNoCode)
        Step(bar, code);
    return 0;
}

LRESULT OnTrackKeyUp(TrackBar& bar, WPARAM key, LPARAM)
{
    if (CodeOf(key) != kNoCode)
        Tell(bar, TB_ENDTRACK);
    return 0;
}

LRESULT OnTrackButtonDown(TrackBar& bar, WPARAM, LPARAM lParam)
{
    const POINT point = PointOf(lParam);
    SetFocus(bar.window);
    if (bar.gone)
        return 0;
    SetCapture(bar.window);
    const RECT thumb = ThumbRect(bar);
    if ((bar.style & TBS_NOTHUMB) == 0 && PtInRect(&thumb, point)) {
        bar.dragging = true;
        bar.grab = AlongOf(bar, point) - PixelOf(bar, bar.position);
        RepaintBar(bar);
        return 0;
    }
    bar.pageCode = PageToward(bar, AlongOf(bar, point));
    if (bar.pageCode == kNoCode)
        return 0;
    SetTimer(bar.window, kRepeatTimer, kRepeatInterval, nullptr);
    Step(bar, bar.pageCode);
    return 0;
}

LRESULT OnTrackMouseMove(TrackBar& bar, WPARAM, LPARAM lParam)
{
    if (bar.dragging)
        DragTo(bar, PointOf(lParam));
    return 0;
}

LRESULT OnTrackButtonUp(TrackBar& bar, WPARAM, LPARAM)
{
    if (!bar.dragging && bar.pageCode == kNoCode)
        return 0;
    const bool dragged = bar.dragging;
    ReleaseCapture();
    if (dragged)
        Tell(bar, TB_THUMBPOSITION, bar.position);
    if (!bar.gone)
        Tell(bar, TB_ENDTRACK);
    return 0;
}

LRESULT OnTrackTimer(TrackBar& bar, WPARAM, LPARAM)
{
    POINT point = {};
    GetCursorPos(&point);
    ScreenToClient(bar.window, &point);
    // The thumb stops at the mouse and never turns back.
    if (bar.pageCode != kNoCode && PageToward(bar, AlongOf(bar, point)) == bar.pageCode)
        Step(bar, bar.pageCode);
    return 0;
}

LRESULT OnTrackCaptureChanged(TrackBar& bar, WPARAM, LPARAM)
{
    bar.dragging = false;
    bar.pageCode = kNoCode;
    KillTimer(bar.window, kRepeatTimer);
    RepaintBar(bar);
    return 0;
}

} // namespace host
