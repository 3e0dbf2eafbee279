#pragma once
// From the words of a command line to a command and its arguments.
#include <string>
#include <vector>

#include "tools/psuictl/command.h"

namespace psuictl {

struct ParsedLine
{
    const Command* command = nullptr; ///< null when there is nothing (more) to run
    ExitCode exitCode = kDone;        ///< what to end with when there is no command
};

/// Reads the command line into `session` and `arguments`. Help, version and complaints about the line are
/// printed here.
ParsedLine ParseCommandLine(std::vector<std::string> words, Session& session, Arguments& arguments);

} // namespace psuictl
