#pragma once
// Device contexts: where drawing goes, with which objects and colours, and what it is kept inside of.
#include <memory>
#include <optional>
#include <vector>

#include "host/gdi/image.h"
#include "host/gdi/object.h"
#include "host/gdi/region.h"
#include "host/gdi/surface.h"

namespace host {

/// What SaveDC saves.
struct DcState
{
    Selection<Pen> pen;
    Selection<Brush> brush;
    Selection<Font> font;
    Selection<Palette> palette;
    Selection<Bitmap> bitmap;   // of memory device contexts only
    std::optional<Region> clip; // the program's own, in device coordinates; none is no limit
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backColor = RGB(255, 255, 255);
    int backMode = OPAQUE;
    int rop2 = R2_COPYPEN;
    int stretchMode = BLACKONWHITE;
    int polyFillMode = ALTERNATE;
    UINT textAlign = TA_LEFT;
    POINT position{};       // logical
    POINT windowOrigin{};   // logical
    POINT viewportOrigin{}; // device
    POINT brushOrigin{};    // device
};

struct DeviceContext : GdiObject
{
    static constexpr GdiKind kKind = GdiKind::DeviceContext;
    DeviceContext() : GdiObject(kKind) {}

    /// What the device context draws on; null for none. `image` below changes with the selected bitmap.
    const Image& Target() const { return memory ? state.bitmap->image : surfaceImage; }

    POINT ToSurface(POINT logical) const;
    RECT ToSurface(const RECT& logical) const;
    POINT ToLogical(POINT device) const;
    /// The pixel 0x00RRGGBB of a colour, which may name an entry of the selected palette.
    uint32_t PixelOf(COLORREF color) const;
    /// What drawing can reach, in surface coordinates.
    const Region& Reach();
    /// To be called when the clip, the bitmap or a saved state has changed.
    void ForgetReach() { reach_.reset(); }

    bool memory = false;
    std::shared_ptr<Surface> surface; // of other than memory device contexts
    Image surfaceImage;               // the same memory
    POINT origin{};                   // of device coordinates on the surface
    Region visible;                   // on the surface, set from outside
    DcState state;
    std::vector<DcState> saved;

private:
    std::optional<Region> reach_;
};

/// A device context found by its handle, with the room locked. False, with ERROR_INVALID_HANDLE set, when
/// there is none.
class LockedDc
{
public:
    explicit LockedDc(HDC handle) : dc_(Gdi<DeviceContext>(handle)) {}
    explicit operator bool() const { return dc_ != nullptr; }
    DeviceContext* operator->() const { return dc_.get(); }
    DeviceContext& operator*() const { return *dc_; }

private:
    GdiLock lock_;
    std::shared_ptr<DeviceContext> dc_;
};

} // namespace host
