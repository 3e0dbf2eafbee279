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
