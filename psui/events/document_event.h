#pragma once
#include <windows.h>

namespace psui {

/// The work of DrvDocumentEvent (entry/exports.h): marks the printing device context for the status monitor
/// and asks the monitor to pop up. Best effort: what cannot be done is left out. Any handle and any event
/// number may be given.
void HandleDocumentEvent(HANDLE printer, HDC dc, int event);

} // namespace psui
