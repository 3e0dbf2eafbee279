#pragma once
// The commands of the model family; model.cpp lists them.
#include "tools/psuictl/command.h"

namespace psuictl {

ExitCode RunModelCompile(const Session& session, const Arguments& arguments);
ExitCode RunModelLint(const Session& session, const Arguments& arguments);
ExitCode RunModelShow(const Session& session, const Arguments& arguments);

} // namespace psuictl
