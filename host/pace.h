#pragma once
// What makes a run with mouse and keyboard the same every time, and fast. Beside host.h, which see.
#include "host/host.h"

namespace host {

/// Stops the clock of timers, double clicks and message times until the world is closed, so that only
/// AdvanceTime moves it and the same input always meets the same timers.
HOST_EXPORT void HoldTime();

/// Lets windows that are marked for painting wait, but for those that are painted at once, until painting is
/// no longer held or the world is closed.
HOST_EXPORT void HoldPainting(bool held);

} // namespace host
