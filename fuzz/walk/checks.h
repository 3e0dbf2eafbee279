#pragma once
// What must hold whenever the main dialog waits for its user.
#include <string>

#include <windows.h>

#include "psui/entry/context.h"

namespace walk {

/// Whether the record would come back as it would go out: what is wrong, or nothing.
std::string CheckRecord(const psui::PrinterUiContext& context);

/// Whether the record keeps its quality when it comes back: the dialog has qualities for media of which the
/// merge knows fewer, or none.
bool KeepsQuality(const psui::PrinterUiContext& context);

/// Whether lists, boxes and texts show the record and what can be used follows its rules: what is wrong, or
/// nothing. `applied` is the context as it was last applied, or null when that is not known.
std::string CheckControls(const psui::PrinterUiContext& context, const psui::PrinterUiContext* applied);

/// Whether the Basic tab, told to read the record again, shows the same and leaves the record alone. A number
/// may be typed with zeros before it.
std::string CheckRefresh(psui::PrinterUiContext& context);

/// Whether every dialog that is open has a title, and every message box a text.
std::string CheckTitles();

} // namespace walk
