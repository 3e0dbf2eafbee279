#pragma once
// Favourites as the printer's data keeps them: saved copies of the settings record under a name and an icon.
#include <cstddef>
#include <cstdint>

#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

#pragma pack(push, 1)

/// The value "Devmode0" to "Devmode11", little-endian.
struct FavouriteRecord
{
    uint32_t dwIcon; ///< 0 to 19
    char szName[50]; ///< system code page; undefined behind the terminator
    uint8_t reserved54[2];
    DriverDevMode dmSettings;
};

#pragma pack(pop)

static_assert(sizeof(FavouriteRecord) == 1908 && offsetof(FavouriteRecord, szName) == 4 &&
              offsetof(FavouriteRecord, dmSettings) == 56);

} // namespace psui
