// Filled, framed and inverted rectangles, and single pixels.
#include "host/gdi/area.h"

#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr uintptr_t kLastColorBrush = COLOR_MENUBAR + 1;

void PaintFrame(Painter& painter, const RECT& rect)
{
    if (IsEmpty(rect))
        return;
    painter.Span(rect.top, rect.left, rect.right);
    if (rect.bottom - rect.top > 1)
        painter.Span(rect.bottom - 1, rect.left, rect.right);
    painter.Rect({rect.left, rect.top + 1, rect.left + 1, rect.bottom - 1});
    if (rect.right - rect.left > 1)
        painter.Rect({rect.right - 1, rect.top + 1, rect.right, rect.bottom - 1});
}

bool InReach(DeviceContext& dc, POINT point)
{
    return dc.Reach().Contains(point);
}

} // namespace

std::shared_ptr<Brush> BrushOf(HBRUSH handle)
{
    const uintptr_t value = reinterpret_cast<uintptr_t>(handle);
    if (value >= 1 && value <= kLastColorBrush)
        return Gdi<Brush>(GetSysColorBrush(static_cast<int>(value) - 1));
    return Gdi<Brush>(handle);
}

void FillColor(DeviceContext& dc, const RECT& rect, COLORREF color)
{
    Painter(dc, SolidInk(dc.PixelOf(color)), kCopyPattern).Rect(dc.ToSurface(rect));
}

} // namespace host

using namespace host;

int WINAPI FillRect(HDC handle, const RECT* rect, HBRUSH brushHandle)
{
    HOST_CALL_VOID(FillRect);
    const LockedDc dc(handle);
    const std::shared_ptr<Brush> brush = dc && rect != nullptr ? BrushOf(brushHandle) : nullptr;
    if (!brush)
        return FALSE;
    Painter(*dc, InkOf(*dc, *brush), kCopyPattern).Rect(dc->ToSurface(*rect));
    return TRUE;
}

int WINAPI FrameRect(HDC handle, const RECT* rect, HBRUSH brushHandle)
{
    HOST_CALL_VOID(FrameRect);
    const LockedDc dc(handle);
    const std::shared_ptr<Brush> brush = dc && rect != nullptr ? BrushOf(brushHandle) : nullptr;
    if (!brush || IsEmpty(*rect))
        return FALSE;
    Painter painter(*dc, InkOf(*dc, *brush), kCopyPattern);
    PaintFrame(painter, dc->ToSurface(*rect));
    return TRUE;
}

BOOL WINAPI InvertRect(HDC handle, const RECT* rect)
{
    HOST_CALL_VOID(InvertRect);
    const LockedDc dc(handle);
    if (!dc || rect == nullptr)
        return FALSE;
    Painter(*dc, SolidInk(0), kInvert).Rect(dc->ToSurface(*rect));
    return TRUE;
}

BOOL WINAPI DrawFocusRect(HDC handle, const RECT* rect)
{
    HOST_CALL_VOID(DrawFocusRect);
    const LockedDc dc(handle);
    if (!dc || rect == nullptr)
        return FALSE;
    // Every second pixel is inverted, so that drawing the rectangle again takes it away.
    Ink ink;
    ink.tileWidth = ink.tileHeight = 2;
    ink.tile = {0, kColorBits, kColorBits, 0};
    const RECT area = dc->ToSurface(*rect);
    ink.origin = {area.left, area.top};
    Painter painter(*dc, ink, kPatternXor);
    PaintFrame(painter, area);
    return TRUE;
}

COLORREF WINAPI SetPixel(HDC handle, int x, int y, COLORREF color)
{
    HOST_CALL_VOID(SetPixel);
    const LockedDc dc(handle);
    if (!dc)
        return CLR_INVALID;
    const POINT point = dc->ToSurface(POINT{x, y});
    if (!InReach(*dc, point))
        return CLR_INVALID;
    Painter(*dc, SolidInk(dc->PixelOf(color)), kCopyPattern).Dot(point.x, point.y);
    return GetPixel(handle, x, y);
}

BOOL WINAPI SetPixelV(HDC handle, int x, int y, COLORREF color)
{
    HOST_CALL_VOID(SetPixelV);
    return SetPixel(handle, x, y, color) != CLR_INVALID;
}

COLORREF WINAPI GetPixel(HDC handle, int x, int y)
{
    HOST_CALL_VOID(GetPixel);
    const LockedDc dc(handle);
    if (!dc)
        return CLR_INVALID;
    const POINT point = dc->ToSurface(POINT{x, y});
    if (!InReach(*dc, point))
        return CLR_INVALID;
    const RowAccess row(dc->Target(), point.y, point.x, 1, RowUse::Read);
    return ExchangeRedBlue(row.Pixels()[0] & kColorBits);
}
