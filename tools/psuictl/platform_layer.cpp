#include "tools/psuictl/platform.h"

#include <cstdlib>
#include <filesystem>

#include "host/host.h"
#include "tools/psuictl/failure.h"

namespace psuictl::platform {
namespace {

std::string DefaultRoot()
{
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data)
        return std::string(data) + "/psui";
    if (const char* home = std::getenv("HOME"); home && *home)
        return std::string(home) + "/.local/share/psui";
    throw Failure("there is no home folder to keep printers in; name a folder with --root");
}

} // namespace

std::vector<std::string> CommandLine(int argc, char** argv)
{
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void OpenHost(const std::optional<std::string>& root)
{
    const std::string folder = root ? *root : DefaultRoot();
    if (folder.empty())
        throw Failure("--root names no folder; give a folder or :memory:", kWrongUsage);
    std::string error;
    if (!host::Open({.root = folder}, &error))
        throw Failure(error + "; name another folder with --root");
}

void CloseHost()
{
    host::Close();
}

WideString FullPath(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    if (error)
        throw Failure("'" + path + "' is no usable path; check the name");
    return host::WindowsPath(absolute.lexically_normal().string());
}

bool IsRecording()
{
    return true;
}

std::vector<RecordedEvent> Recorded()
{
    std::vector<RecordedEvent> events;
    for (const host::Event& event : host::Recorded())
        events.push_back({event.kind, Utf8(event.text), Utf8(event.detail)});
    return events;
}

} // namespace psuictl::platform
