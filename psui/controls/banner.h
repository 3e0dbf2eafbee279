#pragma once
// The banner along the top of the main dialog.
#include <windows.h>

namespace psui {

/// Fills the item with the colours of the banner's column, a row each.
void DrawBannerBackground(const DRAWITEMSTRUCT& request);

/// Draws the model's name, white and bold, behind the logo. Nothing when the device name holds none.
void DrawBannerText(const DRAWITEMSTRUCT& request, const WCHAR* deviceName);

} // namespace psui
