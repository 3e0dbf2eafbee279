// Palettes. The screen shows every colour, so they only give numbers to colours.
#include <algorithm>

#include "host/gdi/dc.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr WORD kPaletteVersion = 0x300;
constexpr UINT kMaxEntries = 1024;

/// Copies entries from or into a palette; how many, or its size when no memory is given.
UINT ExchangeEntries(HPALETTE handle, UINT start, UINT count, PALETTEENTRY* entries, bool intoPalette)
{
    const GdiLock lock;
    const std::shared_ptr<Palette> palette = Gdi<Palette>(handle);
    if (!palette)
        return 0;
    const UINT size = static_cast<UINT>(palette->entries.size());
    if (entries == nullptr)
        return intoPalette ? 0 : size;
    if (start >= size || (intoPalette && palette->permanent))
        return 0;
    const UINT known = std::min(count, size - start);
    PALETTEENTRY* const own = palette->entries.data() + start;
    if (intoPalette)
        std::copy_n(entries, known, own);
    else
        std::copy_n(own, known, entries);
    return known;
}

int Distance(const PALETTEENTRY& entry, COLORREF color)
{
    const int red = entry.peRed - GetRValue(color);
    const int green = entry.peGreen - GetGValue(color);
    const int blue = entry.peBlue - GetBValue(color);
    return red * red + green * green + blue * blue;
}

} // namespace
} // namespace host

using namespace host;

HPALETTE WINAPI CreatePalette(const LOGPALETTE* description)
{
    HOST_CALL(CreatePalette, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    if (description == nullptr || description->palVersion != kPaletteVersion ||
        description->palNumEntries == 0 || description->palNumEntries > kMaxEntries) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const auto palette = std::make_shared<Palette>();
    const PALETTEENTRY* const entries = description->palPalEntry;
    palette->entries.assign(entries, entries + description->palNumEntries);
    return static_cast<HPALETTE>(NewGdiHandle(palette));
}

HPALETTE WINAPI SelectPalette(HDC handle, HPALETTE paletteHandle, BOOL)
{
    HOST_CALL_VOID(SelectPalette);
    const LockedDc dc(handle);
    std::shared_ptr<Palette> palette = dc ? Gdi<Palette>(paletteHandle) : nullptr;
    if (!palette)
        return nullptr;
    const HGDIOBJ previous = dc->state.palette->handle;
    dc->state.palette = Selection(std::move(palette));
    return static_cast<HPALETTE>(previous);
}

UINT WINAPI RealizePalette(HDC handle)
{
    HOST_CALL_VOID(RealizePalette);
    // No entry of the system's ever has to change.
    return LockedDc(handle) ? 0 : static_cast<UINT>(GDI_ERROR);
}

UINT WINAPI GetPaletteEntries(HPALETTE palette, UINT start, UINT count, LPPALETTEENTRY entries)
{
    HOST_CALL_VOID(GetPaletteEntries);
    return ExchangeEntries(palette, start, count, entries, false);
}

UINT WINAPI SetPaletteEntries(HPALETTE palette, UINT start, UINT count, const PALETTEENTRY* entries)
{
    HOST_CALL_VOID(SetPaletteEntries);
    return ExchangeEntries(palette, start, count, const_cast<PALETTEENTRY*>(entries), true);
}

UINT WINAPI GetNearestPaletteIndex(HPALETTE handle, COLORREF color)
{
    HOST_CALL_VOID(GetNearestPaletteIndex);
    const GdiLock lock;
    const std::shared_ptr<Palette> palette = Gdi<Palette>(handle);
    if (!palette)
        return CLR_INVALID;
    const auto nearer = [=](const PALETTEENTRY& first, const PALETTEENTRY& second) {
        return Distance(first, color) < Distance(second, color);
    };
    const auto& entries = palette->entries;
    return static_cast<UINT>(std::min_element(entries.begin(), entries.end(), nearer) - entries.begin());
}

BOOL WINAPI UnrealizeObject(HGDIOBJ handle)
{
    HOST_CALL_VOID(UnrealizeObject);
    const GdiLock lock;
    return GdiObjectOf(handle) != nullptr;
}

UINT WINAPI SetSystemPaletteUse(HDC handle, UINT use)
{
    HOST_CALL_VOID(SetSystemPaletteUse);
    // Only a device with a palette lets it be used differently.
    return LockedDc(handle) && use == SYSPAL_STATIC ? SYSPAL_STATIC : SYSPAL_ERROR;
}

UINT WINAPI GetSystemPaletteUse(HDC handle)
{
    HOST_CALL_VOID(GetSystemPaletteUse);
    return LockedDc(handle) ? SYSPAL_STATIC : SYSPAL_ERROR;
}

COLORREF WINAPI GetNearestColor(HDC handle, COLORREF color)
{
    HOST_CALL_VOID(GetNearestColor);
    const LockedDc dc(handle);
    return dc ? ExchangeRedBlue(dc->PixelOf(color)) : CLR_INVALID;
}
