#pragma once
// Merging a caller's or a stored record into a complete record of our own.
#include <windows.h>

#include "psui/model/model.h"
#include "psui/settings/devmode.h"

namespace psui {

/// Takes over into the complete record `target` what `source` says, field by field, repairing every value
/// that is out of range and the rules between paper, media, quality and tray. The private extension is taken
/// only from this driver's own records. `source` may be any caller's record (see copy.h); null leaves the
/// target as it is.
/// Returns 1, or 0 with the target unchanged when the source has neither an accepted size nor a version.
int MergeDevMode(DriverDevMode* target, const DEVMODEW* source, const ModelDescription* model);

} // namespace psui
