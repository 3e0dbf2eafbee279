#pragma once
// Which picture shows the present settings. Functions of the record, and the painters that draw their answer.
#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

/// Bitmap of the page-layout preview.
UINT LayoutPreviewBitmap(const DriverDevMode& record);

/// Bitmap of the copies: one or several, collated or not, reversed or not.
UINT CollatePreviewBitmap(const DriverDevMode& record);

/// Bitmap of the duplex type or booklet; 0 when duplex printing is off, its type is none of the six, or the
/// orientation neither portrait nor landscape.
UINT DuplexPreviewBitmap(const DriverDevMode& record);

/// Whether documents are printed in a colour mode, which the pictures of the modes show.
bool HasColorMode(const DriverDevMode& record);

/// Draws the page-layout preview at the item's top-left corner.
void DrawLayoutPreview(const DRAWITEMSTRUCT& request, const DriverDevMode& record);

} // namespace psui
