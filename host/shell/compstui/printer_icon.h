#pragma once
#include <windows.h>

namespace compstui {

/// The number by which sheet functions ask for the UI's own icon of a printer.
constexpr ULONG_PTR kPrinterIcon = 64062;

/// That icon, 16 pixels square. The caller destroys it; null without memory.
HICON MakePrinterIcon();

} // namespace compstui
