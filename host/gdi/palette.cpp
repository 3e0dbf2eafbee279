// Palettes. The screen shows every colour, so they only give numbers to colours.
#include <algorithm>

#include "host/gdi/dc.h"
#include "host/kernel/call.h"
#include "host/kernel/error.h"

namespace host {
namespace {

constexpr WORD kPaletteVersion = 0x300;
constexpr UINT kMaxEntries = 1024;

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

UINT WINAPI SetSystemPaletteUse(HDC handle, UINT use)
{
    HOST_CALL_VOID(SetSystemPaletteUse);
    // Only a device with a palette lets it be used differently.
    return LockedDc(handle) && use == SYSPAL_STATIC ? SYSPAL_STATIC : SYSPAL_ERROR;
}
