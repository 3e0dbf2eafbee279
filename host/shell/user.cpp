// Who runs the programs, and the shell room itself.
#include <algorithm>
#include <mutex>

#include <windows.h>

#include "host/host.h"
#include "host/kernel/atom.h"
#include "host/kernel/call.h"
#include "host/kernel/environment.h"
#include "host/kernel/error.h"
#include "host/kernel/world.h"
#include "host/shell/shell.h"
#include "host/spooler/impersonation.h"

namespace host {
namespace {

constexpr char16_t kInitialUser[] = u"user";
constexpr char16_t kUsersFolder[] = u"C:\\users\\";

/// The system is no user: its profile lies in the system directory.
constexpr char16_t kSystemUser[] = u"SYSTEM";
constexpr char16_t kSystemProfile[] = u"C:\\windows\\system32\\config\\systemprofile";

std::mutex userLock;
std::u16string userName = kInitialUser;

std::u16string LoggedOnUser()
{
    std::lock_guard lock(userLock);
    return userName;
}

} // namespace

std::u16string UserFolder()
{
    const std::u16string user = LoggedOnUser();
    return EqualNoCase(user, kSystemUser) ? kSystemProfile : kUsersFolder + user;
}

void SetUserName(std::u16string_view name)
{
    {
        std::lock_guard lock(userLock);
        userName = name;
    }
    if (!RootFolder().empty())
        MakeUserFolders();
}

void ResetUser()
{
    std::lock_guard lock(userLock);
    userName = kInitialUser;
}

bool OpenShellRoom(std::string* error)
{
    MakeUserFolders();
    return OpenAtoms(error) && OpenEvents(error);
}

void CloseShellRoom()
{
    RunInSpooler({});
    ResetUser();
    ResetFolders();
    ResetHelp();
    ResetLaunches();
    ResetEnvironment();
}

} // namespace host

using namespace host;

BOOL WINAPI GetUserNameW(LPWSTR buffer, LPDWORD size)
{
    HOST_CALL(GetUserNameW, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    if (size == nullptr)
        return FailWith(ERROR_INVALID_PARAMETER);
    std::u16string name = SpoolerUserOfThread();
    if (name.empty())
        name = LoggedOnUser();
    const DWORD room = buffer != nullptr ? *size : 0;
    *size = static_cast<DWORD>(name.size()) + 1;
    if (room < *size)
        return FailWith(ERROR_INSUFFICIENT_BUFFER);
    std::copy_n(name.c_str(), *size, buffer);
    return TRUE;
}
