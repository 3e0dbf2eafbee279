#include "host/gdi/dc.h"

#include <atomic>
#include <utility>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr int kScreenWidth = 1280; // pixels, of what GetDeviceCaps calls the device
constexpr int kScreenHeight = 1024;
constexpr int kUsualDotsPerInch = 96;

std::atomic<int> dotsPerInch = kUsualDotsPerInch;

/// What a memory device context has selected until the program selects a bitmap of its own.
const std::shared_ptr<Bitmap>& DefaultBitmap()
{
    static const std::shared_ptr<Bitmap> bitmap = [] {
        auto made = std::make_shared<Bitmap>();
        if (MakeImage(made->image, 1, 1, 1, 2, false)) {
            made->image.monochrome = true;
            made->image.table = {kBlackPixel, kWhitePixel};
        }
        NewPermanentHandle(made);
        return made;
    }();
    return bitmap;
}

void SelectStockObjects(DcState& state)
{
    state.pen = Selection(Stock<Pen>(BLACK_PEN));
    state.brush = Selection(Stock<Brush>(WHITE_BRUSH));
    state.font = Selection(Stock<Font>(SYSTEM_FONT));
    state.palette = Selection(Stock<Palette>(DEFAULT_PALETTE));
}

/// Null, with the last error set, when the table of objects is full.
HDC NewDcHandle(std::shared_ptr<DeviceContext> dc)
{
    return static_cast<HDC>(NewGdiHandle(std::move(dc)));
}

/// Replaces one of the selected objects; returns the handle of the former one.
template <class T>
HGDIOBJ Exchange(Selection<T>& selected, const std::shared_ptr<GdiObject>& object)
{
    const HGDIOBJ previous = selected->handle;
    selected = Selection(std::static_pointer_cast<T>(object));
    return previous;
}

HGDIOBJ SelectBitmap(DeviceContext& dc, const std::shared_ptr<GdiObject>& object)
{
    const bool elsewhere = object->selections != 0 && dc.state.bitmap.Get() != object.get();
    if (!dc.memory || (elsewhere && !object->permanent)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    dc.ForgetReach();
    return Exchange(dc.state.bitmap, object);
}

HGDIOBJ Select(HDC handle, DeviceContext& dc, const std::shared_ptr<GdiObject>& object)
{
    switch (object->kind) {
    case GdiKind::Bitmap:
        return SelectBitmap(dc, object);
    case GdiKind::Brush:
        return Exchange(dc.state.brush, object);
    case GdiKind::Font:
        return Exchange(dc.state.font, object);
    case GdiKind::Pen:
        return Exchange(dc.state.pen, object);
    case GdiKind::Region: {
        const int complexity = SelectClipRgn(handle, static_cast<HRGN>(object->handle));
        return reinterpret_cast<HGDIOBJ>(static_cast<intptr_t>(complexity));
    }
    default:
        SetLastError(ERROR_INVALID_FUNCTION);
        return nullptr;
    }
}

/// Sets one value of a device context and returns the former one; 0 without a device context or when the
/// value is refused.
template <class T>
T ExchangeValue(HDC handle, T DcState::*field, T value, bool accepted = true, T failure = 0)
{
    const LockedDc dc(handle);
    if (!dc)
        return failure;
    if (!accepted) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return failure;
    }
    return std::exchange(dc->state.*field, value);
}

template <class T>
T ValueOf(HDC handle, T DcState::*field, T failure = 0)
{
    const LockedDc dc(handle);
    return dc ? (*dc).state.*field : failure;
}

BOOL ExchangePoint(HDC handle, POINT DcState::*field, POINT value, bool relative, LPPOINT previous)
{
    const LockedDc dc(handle);
    if (!dc)
        return FALSE;
    POINT& point = dc->state.*field;
    if (previous != nullptr)
        *previous = point;
    point = relative ? POINT{point.x + value.x, point.y + value.y} : value;
    return TRUE;
}

BOOL CopyPoint(HDC handle, POINT DcState::*field, LPPOINT point)
{
    const LockedDc dc(handle);
    if (!dc || point == nullptr)
        return FALSE;
    *point = (*dc).state.*field;
    return TRUE;
}

/// Moves points by the two origins; `direction` is 1 to device coordinates and -1 to logical ones.
BOOL MovePoints(HDC handle, LPPOINT points, int count, LONG direction)
{
    const LockedDc dc(handle);
    if (!dc || points == nullptr)
        return FALSE;
    const DcState& state = dc->state;
    for (int i = 0; i < count; ++i) {
        points[i].x += direction * (state.viewportOrigin.x - state.windowOrigin.x);
        points[i].y += direction * (state.viewportOrigin.y - state.windowOrigin.y);
    }
    return TRUE;
}

int Millimetres(int pixels)
{
    return pixels * 254 / (10 * dotsPerInch);
}

} // namespace

void SetDotsPerInch(int wanted)
{
    dotsPerInch = wanted;
}

int DotsPerInch()
{
    return dotsPerInch;
}

void ResetDotsPerInch()
{
    dotsPerInch = kUsualDotsPerInch;
}

POINT DeviceContext::ToSurface(POINT logical) const
{
    const POINT base = memory ? POINT{} : origin;
    return {logical.x - state.windowOrigin.x + state.viewportOrigin.x + base.x,
            logical.y - state.windowOrigin.y + state.viewportOrigin.y + base.y};
}

RECT DeviceContext::ToSurface(const RECT& logical) const
{
    return Moved(logical, ToSurface(POINT{}));
}

POINT DeviceContext::ToLogical(POINT device) const
{
    return {device.x + state.windowOrigin.x - state.viewportOrigin.x,
            device.y + state.windowOrigin.y - state.viewportOrigin.y};
}

uint32_t DeviceContext::PixelOf(COLORREF color) const
{
    constexpr COLORREF kIndexMark = 0x01000000;
    constexpr COLORREF kIndexBits = 0x0000FFFF;
    if ((color & ~kColorBits) != kIndexMark)
        return ExchangeRedBlue(color & kColorBits);
    const std::vector<PALETTEENTRY>& entries = state.palette->entries;
    const size_t index = color & kIndexBits;
    if (entries.empty())
        return kBlackPixel;
    const PALETTEENTRY& entry = entries[index < entries.size() ? index : 0];
    return ExchangeRedBlue(RGB(entry.peRed, entry.peGreen, entry.peBlue));
}

const Region& DeviceContext::Reach()
{
    if (!reach_) {
        const Image& image = Target();
        reach_ = Region(RECT{0, 0, image.width, image.height});
        if (!memory)
            reach_ = Region::Combined(*reach_, visible, RGN_AND);
        if (state.clip) {
            Region clip = *state.clip;
            clip.Move(memory ? POINT{} : origin);
            reach_ = Region::Combined(*reach_, clip, RGN_AND);
        }
    }
    return *reach_;
}

HDC OpenSurfaceDC(std::shared_ptr<Surface> surface, POINT origin, const RECT* clip, size_t clipCount)
{
    const GdiLock lock;
    const auto dc = std::make_shared<DeviceContext>();
    SelectStockObjects(dc->state);
    dc->surface = std::move(surface);
    dc->surfaceImage.width = dc->surface->Width();
    dc->surfaceImage.height = dc->surface->Height();
    dc->surfaceImage.stride = ptrdiff_t{dc->surface->Width()} * 4;
    dc->surfaceImage.top = reinterpret_cast<std::byte*>(dc->surface->Row(0));
    dc->origin = origin;
    for (size_t i = 0; i < clipCount; ++i)
        dc->visible = Region::Combined(dc->visible, Region(clip[i]), RGN_OR);
    return NewDcHandle(dc);
}

void CloseSurfaceDC(HDC handle)
{
    const GdiLock lock;
    const std::shared_ptr<GdiObject> object = GdiObjectOf(handle);
    if (object && object->kind == GdiKind::DeviceContext && !static_cast<DeviceContext&>(*object).memory)
        DropGdiHandle(handle);
}

} // namespace host

using namespace host;

HDC WINAPI CreateCompatibleDC(HDC handle)
{
    HOST_CALL(CreateCompatibleDC, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    const GdiLock lock;
    if (handle != nullptr && !Gdi<DeviceContext>(handle))
        return nullptr;
    const auto dc = std::make_shared<DeviceContext>();
    SelectStockObjects(dc->state);
    dc->memory = true;
    dc->state.bitmap = Selection(DefaultBitmap());
    return NewDcHandle(dc);
}

BOOL WINAPI DeleteDC(HDC handle)
{
    HOST_CALL_VOID(DeleteDC);
    const LockedDc dc(handle);
    if (!dc || !dc->memory)
        return FALSE;
    DropGdiHandle(handle);
    return TRUE;
}

int WINAPI SaveDC(HDC handle)
{
    HOST_CALL_VOID(SaveDC);
    const LockedDc dc(handle);
    if (!dc)
        return 0;
    dc->saved.push_back(dc->state);
    return static_cast<int>(dc->saved.size());
}

BOOL WINAPI RestoreDC(HDC handle, int saved)
{
    HOST_CALL_VOID(RestoreDC);
    const LockedDc dc(handle);
    if (!dc)
        return FALSE;
    const int count = static_cast<int>(dc->saved.size());
    const int level = saved < 0 ? count + saved + 1 : saved;
    if (level <= 0 || level > count)
        return FALSE;
    dc->state = dc->saved[static_cast<size_t>(level) - 1];
    dc->saved.resize(static_cast<size_t>(level) - 1);
    dc->ForgetReach();
    return TRUE;
}

int WINAPI GetDeviceCaps(HDC handle, int index)
{
    HOST_CALL_VOID(GetDeviceCaps);
    const struct
    {
        int index;
        int value;
    } kCaps[] = {
        {DRIVERVERSION, 0x4000},
        {TECHNOLOGY, DT_RASDISPLAY},
        {HORZSIZE, Millimetres(kScreenWidth)},
        {VERTSIZE, Millimetres(kScreenHeight)},
        {HORZRES, kScreenWidth},
        {VERTRES, kScreenHeight},
        {BITSPIXEL, 32},
        {PLANES, 1},
        {NUMBRUSHES, -1},
        {NUMPENS, -1},
        {NUMFONTS, 0},
        {NUMCOLORS, -1},
        {RASTERCAPS, RC_BITBLT | RC_BITMAP64 | RC_DI_BITMAP | RC_DIBTODEV | RC_STRETCHBLT | RC_STRETCHDIB},
        {ASPECTX, 36},
        {ASPECTY, 36},
        {ASPECTXY, 51},
        {LOGPIXELSX, dotsPerInch},
        {LOGPIXELSY, dotsPerInch},
        {VREFRESH, 60},
        {DESKTOPHORZRES, kScreenWidth},
        {DESKTOPVERTRES, kScreenHeight},
    };
    const LockedDc dc(handle);
    if (!dc)
        return 0;
    for (const auto& row : kCaps) {
        if (row.index == index)
            return row.value;
    }
    return 0;
}

HGDIOBJ WINAPI SelectObject(HDC handle, HGDIOBJ objectHandle)
{
    HOST_CALL_VOID(SelectObject);
    const LockedDc dc(handle);
    if (!dc)
        return nullptr;
    const std::shared_ptr<GdiObject> object = GdiObjectOf(objectHandle);
    if (!object) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return Select(handle, *dc, object);
}

HGDIOBJ WINAPI GetCurrentObject(HDC handle, UINT type)
{
    HOST_CALL_VOID(GetCurrentObject);
    const LockedDc dc(handle);
    if (!dc)
        return nullptr;
    switch (type) {
    case OBJ_PEN:
        return dc->state.pen->handle;
    case OBJ_BRUSH:
        return dc->state.brush->handle;
    case OBJ_PAL:
        return dc->state.palette->handle;
    case OBJ_FONT:
        return dc->state.font->handle;
    case OBJ_BITMAP:
        return dc->memory ? dc->state.bitmap->handle : nullptr;
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

BOOL WINAPI GdiFlush(void)
{
    HOST_CALL_VOID(GdiFlush);
    return TRUE;
}

BOOL WINAPI SetViewportOrgEx(HDC handle, int x, int y, LPPOINT previous)
{
    HOST_CALL_VOID(SetViewportOrgEx);
    return ExchangePoint(handle, &DcState::viewportOrigin, {x, y}, false, previous);
}

BOOL WINAPI OffsetViewportOrgEx(HDC handle, int x, int y, LPPOINT previous)
{
    HOST_CALL_VOID(OffsetViewportOrgEx);
    return ExchangePoint(handle, &DcState::viewportOrigin, {x, y}, true, previous);
}

BOOL WINAPI GetViewportOrgEx(HDC handle, LPPOINT point)
{
    HOST_CALL_VOID(GetViewportOrgEx);
    return CopyPoint(handle, &DcState::viewportOrigin, point);
}

BOOL WINAPI SetWindowOrgEx(HDC handle, int x, int y, LPPOINT previous)
{
    HOST_CALL_VOID(SetWindowOrgEx);
    return ExchangePoint(handle, &DcState::windowOrigin, {x, y}, false, previous);
}

BOOL WINAPI OffsetWindowOrgEx(HDC handle, int x, int y, LPPOINT previous)
{
    HOST_CALL_VOID(OffsetWindowOrgEx);
    return ExchangePoint(handle, &DcState::windowOrigin, {x, y}, true, previous);
}

BOOL WINAPI GetWindowOrgEx(HDC handle, LPPOINT point)
{
    HOST_CALL_VOID(GetWindowOrgEx);
    return CopyPoint(handle, &DcState::windowOrigin, point);
}

BOOL WINAPI SetBrushOrgEx(HDC handle, int x, int y, LPPOINT previous)
{
    HOST_CALL_VOID(SetBrushOrgEx);
    return ExchangePoint(handle, &DcState::brushOrigin, {x, y}, false, previous);
}

BOOL WINAPI GetBrushOrgEx(HDC handle, LPPOINT point)
{
    HOST_CALL_VOID(GetBrushOrgEx);
    return CopyPoint(handle, &DcState::brushOrigin, point);
}

BOOL WINAPI LPtoDP(HDC handle, LPPOINT points, int count)
{
    HOST_CALL_VOID(LPtoDP);
    return MovePoints(handle, points, count, 1);
}

BOOL WINAPI DPtoLP(HDC handle, LPPOINT points, int count)
{
    HOST_CALL_VOID(DPtoLP);
    return MovePoints(handle, points, count, -1);
}

int WINAPI GetMapMode(HDC handle)
{
    HOST_CALL_VOID(GetMapMode);
    return LockedDc(handle) ? MM_TEXT : 0;
}

int WINAPI SetMapMode(HDC handle, int mode)
{
    HOST_CALL_VOID(SetMapMode);
    return LockedDc(handle) && mode == MM_TEXT ? MM_TEXT : 0;
}

COLORREF WINAPI SetTextColor(HDC handle, COLORREF color)
{
    HOST_CALL_VOID(SetTextColor);
    return ExchangeValue(handle, &DcState::textColor, color, true, CLR_INVALID);
}

COLORREF WINAPI GetTextColor(HDC handle)
{
    HOST_CALL_VOID(GetTextColor);
    return ValueOf(handle, &DcState::textColor, CLR_INVALID);
}

COLORREF WINAPI SetBkColor(HDC handle, COLORREF color)
{
    HOST_CALL_VOID(SetBkColor);
    return ExchangeValue(handle, &DcState::backColor, color, true, CLR_INVALID);
}

COLORREF WINAPI GetBkColor(HDC handle)
{
    HOST_CALL_VOID(GetBkColor);
    return ValueOf(handle, &DcState::backColor, CLR_INVALID);
}

int WINAPI SetBkMode(HDC handle, int mode)
{
    HOST_CALL_VOID(SetBkMode);
    return ExchangeValue(handle, &DcState::backMode, mode, mode == TRANSPARENT || mode == OPAQUE);
}

int WINAPI GetBkMode(HDC handle)
{
    HOST_CALL_VOID(GetBkMode);
    return ValueOf(handle, &DcState::backMode);
}

UINT WINAPI SetTextAlign(HDC handle, UINT align)
{
    HOST_CALL_VOID(SetTextAlign);
    return ExchangeValue(handle, &DcState::textAlign, align, true, static_cast<UINT>(GDI_ERROR));
}

UINT WINAPI GetTextAlign(HDC handle)
{
    HOST_CALL_VOID(GetTextAlign);
    return ValueOf(handle, &DcState::textAlign, static_cast<UINT>(GDI_ERROR));
}

int WINAPI SetROP2(HDC handle, int operation)
{
    HOST_CALL_VOID(SetROP2);
    return ExchangeValue(handle, &DcState::rop2, operation, operation >= R2_BLACK && operation <= R2_WHITE);
}

int WINAPI GetROP2(HDC handle)
{
    HOST_CALL_VOID(GetROP2);
    return ValueOf(handle, &DcState::rop2);
}

int WINAPI SetStretchBltMode(HDC handle, int mode)
{
    HOST_CALL_VOID(SetStretchBltMode);
    return ExchangeValue(handle, &DcState::stretchMode, mode, mode >= BLACKONWHITE && mode <= HALFTONE);
}

int WINAPI GetStretchBltMode(HDC handle)
{
    HOST_CALL_VOID(GetStretchBltMode);
    return ValueOf(handle, &DcState::stretchMode);
}

int WINAPI SetPolyFillMode(HDC handle, int mode)
{
    HOST_CALL_VOID(SetPolyFillMode);
    return ExchangeValue(handle, &DcState::polyFillMode, mode, mode == ALTERNATE || mode == WINDING);
}

int WINAPI GetPolyFillMode(HDC handle)
{
    HOST_CALL_VOID(GetPolyFillMode);
    return ValueOf(handle, &DcState::polyFillMode);
}
