#pragma once
// How a command ends.
#include <stdexcept>
#include <string>

namespace psuictl {

enum ExitCode
{
    kDone = 0,
    kFailed = 1,
    kWrongUsage = 2,
    kRefused = 3, ///< the job that was asked about cannot print
};

/// Ends the running command with a sentence for the user: what went wrong, and after a semicolon what to do.
class Failure : public std::runtime_error
{
public:
    explicit Failure(const std::string& sentence, ExitCode code = kFailed)
        : std::runtime_error(sentence), code_(code)
    {
    }

    ExitCode code() const { return code_; }

private:
    ExitCode code_;
};

} // namespace psuictl
