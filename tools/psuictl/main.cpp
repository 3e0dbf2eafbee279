// psuictl: plays the spooler and the application from a shell.
#include <iostream>

#include "tools/psuictl/command_line.h"
#include "tools/psuictl/country.h"
#include "tools/psuictl/platform.h"

namespace {

using namespace psuictl;

class Host
{
public:
    explicit Host(const std::optional<std::string>& root) { platform::OpenHost(root); }
    ~Host() { platform::CloseHost(); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
};

ExitCode RunInHost(const Command& command, const Session& session, const Arguments& arguments)
{
    const Host host(session.root);
    const CountrySetting country(session.country);
    return command.run(session, arguments);
}

ExitCode Run(const std::vector<std::string>& words)
{
    Session session{.out = std::cout, .complaints = std::cerr};
    Arguments arguments;
    const ParsedLine line = ParseCommandLine(words, session, arguments);
    return line.command ? RunInHost(*line.command, session, arguments) : line.exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        const ExitCode code = Run(platform::CommandLine(argc, argv));
        std::cout.flush();
        if (!std::cout)
            throw Failure("standard output cannot be written; check where it goes");
        return code;
    } catch (const Failure& failure) {
        std::cerr << "psuictl: " << failure.what() << "\n";
        return failure.code();
    } catch (const std::exception& error) {
        std::cerr << "psuictl: " << error.what() << "; this is a fault of psuictl itself\n";
        return kFailed;
    }
}
