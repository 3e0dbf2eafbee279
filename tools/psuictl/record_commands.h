#pragma once
// The commands of the record family that ask the library; record.cpp lists them.
#include "tools/psuictl/command.h"

namespace psuictl {

ExitCode RunRecordDefault(const Session& session, const Arguments& arguments);
ExitCode RunRecordMerge(const Session& session, const Arguments& arguments);

} // namespace psuictl
