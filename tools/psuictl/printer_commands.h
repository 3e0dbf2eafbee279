#pragma once
// The commands of the printer family that read and change an installed printer; printer.cpp lists them.
#include "tools/psuictl/command.h"

namespace psuictl {

ExitCode RunPrinterData(const Session& session, const Arguments& arguments);
ExitCode RunPrinterDefault(const Session& session, const Arguments& arguments);
ExitCode RunPrinterForms(const Session& session, const Arguments& arguments);

} // namespace psuictl
