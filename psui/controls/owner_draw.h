#pragma once
// The one painter of all owner-drawn controls.
#include <cstdint>
#include <span>

#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

constexpr int kFavouriteTextUnits = 50; ///< of a favourite's name, with the terminator

/// What the items of favourites show; the favourites fill it.
struct FavouriteItem
{
    uint32_t icon; ///< 0 to 19
    WCHAR name[kFavouriteTextUnits];
};

/// What painters need besides the request and the record. All of it outlives the call only.
struct OwnerDrawSource
{
    HMODULE language;                     ///< module of the texts
    const WCHAR* deviceName;              ///< of the public record; not null
    std::span<const uint32_t> colorModes; ///< kinds by item data: 1 monochrome, 2 colour
    std::span<const FavouriteItem> favourites;
    bool linkHover;         ///< the pointer is over the web-support link
    bool bannerDiagnostics; ///< the banner shows no model name
};

/// Draws what the dialog's owner-drawn control asks for; a control that it does not know stays as it is.
/// Missing pictures and texts leave their place empty. Takes nothing along: every object that it makes or
/// selects is given back.
void DrawOwnerItem(HWND dialog, const DRAWITEMSTRUCT& request, const OwnerDrawSource& source,
                   const DriverDevMode& record);

/// The printer's model as the banner shows it: what follows "Velmora " in the device name, up to the first
/// " Printer", " USB" or " XML"; empty without that name.
void BannerText(const WCHAR* deviceName, WCHAR (&text)[CCHDEVICENAME]);

} // namespace psui
