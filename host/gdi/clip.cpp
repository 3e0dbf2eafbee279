// Regions as objects, and what they keep a device context's drawing inside of.
#include "host/gdi/area.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

HRGN NewRegion(Region region)
{
    return static_cast<HRGN>(NewGdiHandle(std::make_shared<RegionObject>(std::move(region))));
}

/// The rectangle of a region made from corners in any order.
Region OrderedRegion(int left, int top, int right, int bottom)
{
    return Region(Ordered({left, top, right, bottom}));
}

/// The program's clip in device coordinates; without one, the whole target.
Region ClipOf(const DeviceContext& dc)
{
    if (dc.state.clip)
        return *dc.state.clip;
    const Image& image = dc.Target();
    const POINT base = dc.memory ? POINT{} : dc.origin;
    return Region(RECT{-base.x, -base.y, image.width - base.x, image.height - base.y});
}

RECT ToDevice(const DeviceContext& dc, const RECT& logical)
{
    const RECT area = dc.ToSurface(logical);
    return dc.memory ? area : Moved(area, {-dc.origin.x, -dc.origin.y});
}

int CombineClip(DeviceContext& dc, const Region& region, int mode)
{
    dc.state.clip = mode == RGN_COPY ? region : Region::Combined(ClipOf(dc), region, mode);
    dc.ForgetReach();
    return dc.Reach().Complexity();
}

int CombineClipRect(HDC handle, const RECT& logical, int mode)
{
    const LockedDc dc(handle);
    return dc ? CombineClip(*dc, Region(ToDevice(*dc, Ordered(logical))), mode) : ERROR;
}

} // namespace
} // namespace host

using namespace host;

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom)
{
    HOST_CALL(CreateRectRgn, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return NewRegion(OrderedRegion(left, top, right, bottom));
}

HRGN WINAPI CreateRectRgnIndirect(const RECT* rect)
{
    HOST_CALL(CreateRectRgnIndirect, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    return rect != nullptr ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : nullptr;
}

BOOL WINAPI SetRectRgn(HRGN handle, int left, int top, int right, int bottom)
{
    HOST_CALL_VOID(SetRectRgn);
    const GdiLock lock;
    const std::shared_ptr<RegionObject> object = Gdi<RegionObject>(handle);
    if (!object)
        return FALSE;
    object->region = OrderedRegion(left, top, right, bottom);
    return TRUE;
}

int WINAPI CombineRgn(HRGN resultHandle, HRGN firstHandle, HRGN secondHandle, int mode)
{
    HOST_CALL_VOID(CombineRgn);
    const GdiLock lock;
    const std::shared_ptr<RegionObject> result = Gdi<RegionObject>(resultHandle);
    const std::shared_ptr<RegionObject> first = Gdi<RegionObject>(firstHandle);
    if (!result || !first || mode < RGN_AND || mode > RGN_COPY)
        return ERROR;
    if (mode == RGN_COPY) {
        result->region = first->region;
        return result->region.Complexity();
    }
    const std::shared_ptr<RegionObject> second = Gdi<RegionObject>(secondHandle);
    if (!second)
        return ERROR;
    result->region = Region::Combined(first->region, second->region, mode);
    return result->region.Complexity();
}

int WINAPI OffsetRgn(HRGN handle, int x, int y)
{
    HOST_CALL_VOID(OffsetRgn);
    const GdiLock lock;
    const std::shared_ptr<RegionObject> object = Gdi<RegionObject>(handle);
    if (!object)
        return ERROR;
    object->region.Move({x, y});
    return object->region.Complexity();
}

int WINAPI GetRgnBox(HRGN handle, LPRECT box)
{
    HOST_CALL_VOID(GetRgnBox);
    const GdiLock lock;
    const std::shared_ptr<RegionObject> object = Gdi<RegionObject>(handle);
    if (!object || box == nullptr)
        return ERROR;
    *box = object->region.Box();
    return object->region.Complexity();
}

BOOL WINAPI EqualRgn(HRGN firstHandle, HRGN secondHandle)
{
    HOST_CALL_VOID(EqualRgn);
    const GdiLock lock;
    const std::shared_ptr<RegionObject> first = Gdi<RegionObject>(firstHandle);
    const std::shared_ptr<RegionObject> second = Gdi<RegionObject>(secondHandle);
    if (!first || !second)
        return FALSE;
    return Region::Combined(first->region, second->region, RGN_XOR).Empty();
}

BOOL WINAPI PtInRegion(HRGN handle, int x, int y)
{
    HOST_CALL_VOID(PtInRegion);
    const GdiLock lock;
    const std::shared_ptr<RegionObject> object = Gdi<RegionObject>(handle);
    return object && object->region.Contains({x, y});
}

BOOL WINAPI RectInRegion(HRGN handle, const RECT* rect)
{
    HOST_CALL_VOID(RectInRegion);
    const GdiLock lock;
    const std::shared_ptr<RegionObject> object = Gdi<RegionObject>(handle);
    return object && rect != nullptr && object->region.Overlaps(Ordered(*rect));
}

BOOL WINAPI FillRgn(HDC handle, HRGN regionHandle, HBRUSH brushHandle)
{
    HOST_CALL_VOID(FillRgn);
    const LockedDc dc(handle);
    const std::shared_ptr<RegionObject> object = dc ? Gdi<RegionObject>(regionHandle) : nullptr;
    const std::shared_ptr<Brush> brush = object ? BrushOf(brushHandle) : nullptr;
    if (!brush)
        return FALSE;
    Painter painter(*dc, InkOf(*dc, *brush), kCopyPattern);
    for (const RECT& rect : object->region.Rects())
        painter.Rect(dc->ToSurface(rect));
    return TRUE;
}

int WINAPI ExtSelectClipRgn(HDC handle, HRGN regionHandle, int mode)
{
    HOST_CALL_VOID(ExtSelectClipRgn);
    const LockedDc dc(handle);
    if (!dc)
        return ERROR;
    if (regionHandle == nullptr && mode == RGN_COPY) {
        dc->state.clip.reset();
        dc->ForgetReach();
        return dc->Reach().Complexity();
    }
    const std::shared_ptr<RegionObject> object = Gdi<RegionObject>(regionHandle);
    return object && mode >= RGN_AND && mode <= RGN_COPY ? CombineClip(*dc, object->region, mode) : ERROR;
}

int WINAPI SelectClipRgn(HDC handle, HRGN region)
{
    HOST_CALL_VOID(SelectClipRgn);
    return ExtSelectClipRgn(handle, region, RGN_COPY);
}

int WINAPI GetClipRgn(HDC handle, HRGN regionHandle)
{
    HOST_CALL_VOID(GetClipRgn);
    const LockedDc dc(handle);
    const std::shared_ptr<RegionObject> object = dc ? Gdi<RegionObject>(regionHandle) : nullptr;
    if (!object)
        return -1;
    if (!dc->state.clip)
        return 0;
    object->region = *dc->state.clip;
    return 1;
}

int WINAPI GetClipBox(HDC handle, LPRECT box)
{
    HOST_CALL_VOID(GetClipBox);
    const LockedDc dc(handle);
    if (!dc || box == nullptr)
        return ERROR;
    const Region& reach = dc->Reach();
    const POINT zero = dc->ToSurface(POINT{});
    *box = reach.Empty() ? RECT{} : Moved(reach.Box(), {-zero.x, -zero.y});
    return reach.Complexity();
}

int WINAPI IntersectClipRect(HDC handle, int left, int top, int right, int bottom)
{
    HOST_CALL_VOID(IntersectClipRect);
    return CombineClipRect(handle, {left, top, right, bottom}, RGN_AND);
}

int WINAPI ExcludeClipRect(HDC handle, int left, int top, int right, int bottom)
{
    HOST_CALL_VOID(ExcludeClipRect);
    return CombineClipRect(handle, {left, top, right, bottom}, RGN_DIFF);
}

int WINAPI OffsetClipRgn(HDC handle, int x, int y)
{
    HOST_CALL_VOID(OffsetClipRgn);
    const LockedDc dc(handle);
    if (!dc)
        return ERROR;
    if (dc->state.clip)
        dc->state.clip->Move({x, y});
    dc->ForgetReach();
    return dc->Reach().Complexity();
}

BOOL WINAPI RectVisible(HDC handle, const RECT* rect)
{
    HOST_CALL_VOID(RectVisible);
    const LockedDc dc(handle);
    return dc && rect != nullptr && dc->Reach().Overlaps(dc->ToSurface(Ordered(*rect)));
}

BOOL WINAPI PtVisible(HDC handle, int x, int y)
{
    HOST_CALL_VOID(PtVisible);
    const LockedDc dc(handle);
    return dc && dc->Reach().Contains(dc->ToSurface(POINT{x, y}));
}
