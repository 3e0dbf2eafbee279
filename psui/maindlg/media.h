#pragma once
// Names of media types and thicknesses.
#include <string_view>

#include <windows.h>

namespace psui {

/// String id of a MediaType or Thickness option by its name, matched exactly; 0 for any other name.
UINT MediaOptionText(std::string_view name);

/// String id of the media's name by dmMediaType; plain paper's for any number that has none of its own.
UINT MediaNameText(DWORD media);

/// Whether the media is offered only in Japanese: the two sides of glossy postcards.
bool IsMediaOfJapan(DWORD media);

} // namespace psui
