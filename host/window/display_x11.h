#pragma once
// Between the display and the room; no platform header, because Xlib has types of the same names.
#include <cstdint>
#include <vector>

#include "host/host.h"

namespace host {

/// Rows from the top, 0x00RRGGBB. Empty when memory is missing.
struct DesktopPicture
{
    int width = 0;
    int height = 0;
    std::vector<uint32_t> pixels;
};

DesktopPicture PictureOfDesktop();

bool HasDisplay();
/// Shows the desktop and takes in what the user did. Waits at most that long (ms). Closing the display's
/// window ends it: what waits for input fails then as it does without a display.
void PumpDisplay(int timeout);
void CloseDisplay();

} // namespace host
