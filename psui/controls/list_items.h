#pragma once
// Items of owner-drawn lists and combo boxes.
#include <windows.h>

#include "psui/controls/owner_draw.h"

namespace psui {

/// The lists' painters; each draws what the request's action asks for: the whole item, a changed selection,
/// or the focus rectangle.
void DrawBorderLineItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source);
void DrawColorModeItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source);
void DrawFavouriteSlotItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source);
void DrawFavouriteIconItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source);
void DrawFavouriteListItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source);
void DrawSlotListItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source);
void DrawTextListItem(const DRAWITEMSTRUCT& request, const OwnerDrawSource& source);

} // namespace psui
