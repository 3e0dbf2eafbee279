#pragma once
// Lists of what a choice accepts, which follow the text of some messages.
#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// Longest tail, in units with the terminator; a longer one is cut.
constexpr int kTailUnits = 1024;
using MessageTail = WCHAR[kTailUnits];

/// Papers and media that tray 2 takes.
void BuildTray2Tail(const PrinterUiContext* context, MessageTail& text);

/// Papers, media and qualities that can be printed without borders.
void BuildBorderlessTail(const PrinterUiContext* context, MessageTail& text);

} // namespace psui
