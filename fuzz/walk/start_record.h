#pragma once
// Records that a walk starts from.
#include <string>

#include "fuzz/walk/random.h"
#include "psui/settings/devmode.h"

namespace walk {

enum class Origin
{
    Defaults, ///< the printer's own
    Legal,    ///< values that the driver knows, in any combination
    Hostile,  ///< any bytes where the driver keeps its settings
};

std::string NameOf(Origin origin);

/// Changes a default record, which keeps its shape, into one of that origin.
void Spoil(psui::DriverDevMode& record, Origin origin, Random& random);

} // namespace walk
