#include "tools/psuictl/platform.h"

#include <fcntl.h>
#include <io.h>
#include <stdio.h>

#include <windows.h>

#include <shellapi.h>

#include "tools/psuictl/failure.h"

namespace psuictl::platform {

std::vector<std::string> CommandLine(int, char**)
{
    SetConsoleOutputCP(CP_UTF8);
    for (FILE* stream : {stdin, stdout, stderr})
        _setmode(_fileno(stream), _O_BINARY);

    int count = 0;
    WCHAR** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words && i < count; ++i)
        arguments.push_back(Utf8(words[i]));
    LocalFree(words);
    return arguments;
}

void OpenHost(const std::optional<std::string>& root)
{
    if (root)
        throw Failure("Windows is its own host and has no other root; leave --root out", kWrongUsage);
}

void CloseHost() {}

WideString FullPath(const std::string& path)
{
    const WideString name = Wide(path);
    WideString full(GetFullPathNameW(name.c_str(), 0, nullptr, nullptr), 0);
    full.resize(GetFullPathNameW(name.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.empty())
        throw Failure("'" + path + "' is no usable path; check the name");
    return full;
}

bool IsRecording()
{
    return false;
}

std::vector<RecordedEvent> Recorded()
{
    throw Failure("Windows records no launches, pages, help requests or beeps; run this in a host of psuictl",
                  kWrongUsage);
}

} // namespace psuictl::platform
