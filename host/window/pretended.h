#pragma once
// Windows of other programs, which the host pretends.
#include "host/window/room.h"

namespace host {

/// The pretended active window; null when there is none.
HWND PretendedActive();
void ClosePretended();

} // namespace host
