#include <iterator>

#include "psui/base/format.h"
#include "psui/events/impersonation.h"
#include "psui/events/installed.h"
#include "psui/events/status_monitor.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr WCHAR kMonitorWindowClass[] = TEXT("LODESTAT");
constexpr WCHAR kSystemUser[] = TEXT("SYSTEM");
constexpr UINT kShowNormal = 5;
constexpr DWORD kUserNameUnits = 257;

using NarrowText = char[MAX_PATH];
using CommandLine = char[2 * MAX_PATH + 32];

bool Narrow(const WCHAR* text, NarrowText& narrow)
{
    return WideCharToMultiByte(CP_ACP, 0, text, -1, narrow, sizeof(narrow), nullptr, nullptr) > 0;
}

/// The program and whether it is to show itself, then the settings file where the program takes one.
bool MakeCommand(bool show, CommandLine& command)
{
    PathText path;
    NarrowText text;
    if (!PrinterDriverDirectory(path) || !Narrow(path, text) ||
        !JoinText(command, {text, "\\3\\LODESTAT.EXE", show ? " 1" : " 0"}))
        return false;
    if (!StatusMonitorIsNew(kMonitorVersionValue, kNewLayoutVersion) || !StatusMonitorIniPath(path, true))
        return true;
    return Narrow(path, text) && AppendText(command, {" ", text});
}

bool RunsAsSystem()
{
    WCHAR user[kUserNameUnits];
    DWORD size = std::size(user);
    return !GetUserNameW(user, &size) || EqualNoCase(user, kSystemUser);
}

} // namespace

UINT LaunchStatusMonitor(const PrivateDevMode* settings)
{
    const bool running = FindWindowW(kMonitorWindowClass, nullptr) != nullptr;
    const bool wanted = settings->bStatusMonitor != 0;
    CommandLine command;
    if ((!running && !wanted) || !MakeCommand(wanted, command))
        return 0;
    // A program started for a client must not run with the rights of the system.
    const ProcessIdentity identity;
    if (identity.WasImpersonating() && RunsAsSystem())
        return 0;
    return WinExec(command, kShowNormal);
}

} // namespace psui
