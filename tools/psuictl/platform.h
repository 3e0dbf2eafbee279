#pragma once
// What differs between Windows and our platform layer, and is not part of the platform's interface.
#include <optional>
#include <string>
#include <vector>

#include "tools/psuictl/text.h"

namespace psuictl::platform {

/// The command line without the program's name, in UTF-8. Also makes the standard streams carry UTF-8 bytes
/// as they are.
std::vector<std::string> CommandLine(int argc, char** argv);

/// Opens the host in the folder `root` (its default place when not given). Throws Failure when that cannot be
/// done.
void OpenHost(const std::optional<std::string>& root);
void CloseHost();

/// The full Windows path of an ordinary path of this machine. The file need not exist.
WideString FullPath(const std::string& path);

/// What programs started and opened (launches, pages, help requests, beeps), in UTF-8.
struct RecordedEvent
{
    std::string kind;
    std::string text;
    std::string detail;
};

/// Whether this host records such events; Windows does not.
bool IsRecording();

/// Everything recorded since the host was made, oldest first. Throws Failure where nothing is recorded.
std::vector<RecordedEvent> Recorded();

} // namespace psuictl::platform
