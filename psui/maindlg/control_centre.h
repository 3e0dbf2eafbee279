#pragma once
// The maker's control-centre application, which is installed apart from the driver and lists the models that
// it knows.
#include <windows.h>

#include "psui/settings/devmode.h"

namespace psui {

/// The model's name in that list: the device name without what follows it, " Printer" and then " USB".
void ControlCentreModelName(const DEVMODEW& record, WCHAR (&name)[CCHDEVICENAME]);

bool ControlCentreKnowsModel(const DriverDevMode& record);

} // namespace psui
