#pragma once
// The system's own icons and cursors.
#include <memory>

#include "host/gdi/icon.h"

namespace host {

/// Whether LoadIconW or LoadCursorW of no module knows a number.
bool IsSystemIcon(ULONG_PTR number);
bool IsSystemCursor(ULONG_PTR number);

/// The pictures of message boxes; cursors are told apart by their handles and show nothing. Null when memory
/// is missing.
std::shared_ptr<Icon> MakeSystemIcon(ULONG_PTR number, bool cursor);

} // namespace host
