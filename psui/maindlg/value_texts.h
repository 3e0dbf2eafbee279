#pragma once
// String ids of the words for the settings' values, shared by the summary and the lines beside the preview.
// An id of 0 stands for no text.
#include <cstdint>

#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

/// On or off.
UINT SwitchText(bool on);

/// Name of a number of pages per sheet, or of a poster.
UINT LayoutText(int32_t pagesPerSheet);

/// Whether several pages stand on a sheet, so that they have an order and lines between them.
bool HasSeveralPages(int32_t pagesPerSheet);

/// Order of the pages on a sheet, and lines between them.
UINT PageOrderText(const DriverDevMode& record);
UINT BorderLineText(uint8_t borderLine);

/// Binding edge and sheet sense, by the low byte of wDuplexFlags.
UINT DuplexTypeText(uint16_t duplexFlags);

UINT OrientationText(short orientation);
UINT ColorText(short color);
UINT SourceText(short source);
UINT JpegText(uint8_t jpegPrint);
UINT HalftoneText(uint8_t halftone);
UINT PrintOrderText(uint8_t printOrder);

} // namespace psui
