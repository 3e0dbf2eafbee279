// Programs, files and pages that programs start. Nothing starts: that it would have is recorded.
#include <atomic>
#include <sqlite3.h>

#include <windows.h>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/kernel/convert.h"
#include "host/kernel/path.h"
#include "host/kernel/world.h"
#include "host/registry/database.h"
#include "host/shell/shell.h"

namespace host {
namespace {

constexpr UINT kStarted = 33; // results up to 32 are errors
constexpr char16_t kProgramExtension[] = u".exe";
constexpr char16_t kDefaultVerb[] = u"open";
constexpr char16_t kDetailSeparator[] = u"|";

constexpr char kTable[] = R"(
    CREATE TABLE IF NOT EXISTS events(
        id INTEGER PRIMARY KEY AUTOINCREMENT,
        kind TEXT NOT NULL,
        text TEXT NOT NULL,
        detail TEXT NOT NULL);
)";

std::atomic<unsigned> launchFailure{0};

/// Records what a launch came to: `error` is 0 or below 32. Returns the result for the caller.
UINT RecordLaunch(std::string kind, UINT error, std::u16string_view text, std::u16string_view detail)
{
    if (error == 0)
        error = launchFailure;
    RecordEvent(error == 0 ? kind : "failed " + kind, text, detail);
    if (error != 0)
        SetLastError(error);
    return error == 0 ? kStarted : error;
}

std::u16string Decimal(int64_t number)
{
    return Utf16(std::to_string(number));
}

std::u16string_view OrEmpty(LPCWSTR text)
{
    return text != nullptr ? std::u16string_view(text) : std::u16string_view();
}

bool FileExists(const std::u16string& path)
{
    NativeName native;
    struct stat status;
    return FindExisting(path.c_str(), native, status) == ERROR_SUCCESS && !S_ISDIR(status.st_mode);
}

bool HasFolder(std::u16string_view name)
{
    return name.find_first_of(u"\\/:") != std::u16string_view::npos;
}

/// Whether a command's program is there: by its path, or in the program's, the current or a system folder.
bool ProgramExists(std::u16string name)
{
    if (name.find(u'.', name.find_last_of(u"\\/") + 1) == std::u16string::npos)
        name += kProgramExtension;
    if (HasFolder(name))
        return FileExists(name);
    WCHAR program[MAX_PATH];
    const DWORD size = GetModuleFileNameW(nullptr, program, MAX_PATH);
    const std::u16string_view path(program, size);
    const std::u16string own(path.substr(0, path.rfind(u'\\') + 1));
    for (const std::u16string& folder :
         {own, std::u16string(u".\\"), std::u16string(u"C:\\windows\\system32\\"),
          std::u16string(u"C:\\windows\\")}) {
        if (FileExists(folder + name))
            return true;
    }
    return false;
}

/// Whether a command line begins with a program that is there. Without quotes any blank may end its name.
bool CommandExists(std::u16string_view command)
{
    if (command.starts_with(u'"'))
        return ProgramExists(std::u16string(command.substr(1, command.find(u'"', 1) - 1)));
    for (size_t end = command.find(u' ');; end = command.find(u' ', end + 1)) {
        if (ProgramExists(std::u16string(command.substr(0, end))))
            return true;
        if (end == std::u16string_view::npos)
            return false;
    }
}

/// "http:" and the like; a single letter is a drive.
bool IsPageAddress(std::u16string_view name)
{
    const size_t colon = name.find(u':');
    return colon != std::u16string_view::npos && colon > 1 && name.find_first_of(u"\\/ ") > colon;
}

/// Whether the shell finds what it is to open.
bool CanOpen(std::u16string_view file, std::u16string_view folder)
{
    if (IsPageAddress(file))
        return true;
    std::u16string path(file.empty() ? folder : file);
    if (!file.empty() && !folder.empty() && FileExists(std::u16string(folder) + u"\\" + path))
        return true;
    return ProgramExists(path) || GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

} // namespace

void RecordEvent(const std::string& kind, std::u16string_view text, std::u16string_view detail)
{
    const std::string storedText = Utf8(text);
    const std::string storedDetail = Utf8(detail);
    std::lock_guard lock(DatabaseLock());
    Statement insert("INSERT INTO events(kind, text, detail) VALUES(?, ?, ?)");
    insert.Text(kind).Text(storedText).Text(storedDetail).Run();
}

bool OpenEvents(std::string* error)
{
    std::lock_guard lock(DatabaseLock());
    if (sqlite3_exec(Database(), kTable, nullptr, nullptr, nullptr) == SQLITE_OK)
        return true;
    if (error != nullptr)
        *error = std::string("The record of launches cannot be made: ") + sqlite3_errmsg(Database()) + ".";
    return false;
}

std::vector<Event> Recorded()
{
    std::vector<Event> events;
    std::lock_guard lock(DatabaseLock());
    Statement select("SELECT kind, text, detail FROM events ORDER BY id");
    while (select.Step())
        events.push_back(
            {std::string(select.BytesAt(0)), Utf16(select.BytesAt(1)), Utf16(select.BytesAt(2))});
    return events;
}

void ClearRecorded()
{
    std::lock_guard lock(DatabaseLock());
    Statement("DELETE FROM events").Run();
}

void FailLaunches(unsigned code)
{
    launchFailure = code;
}

void ResetLaunches()
{
    FailLaunches(0);
}

} // namespace host

using namespace host;

UINT WINAPI WinExec(LPCSTR commandLine, UINT showCommand)
{
    HOST_CALL(WinExec, ERROR_NOT_ENOUGH_MEMORY, ERROR_NOT_ENOUGH_MEMORY);
    const std::u16string command = commandLine != nullptr ? FromCodePage(commandLine) : std::u16string();
    const UINT error = CommandExists(command) ? 0 : ERROR_FILE_NOT_FOUND;
    return RecordLaunch("launch", error, command, Decimal(showCommand));
}

HINSTANCE WINAPI ShellExecuteW(HWND, LPCWSTR verb, LPCWSTR file, LPCWSTR parameters, LPCWSTR directory,
                               INT showCommand)
{
    HOST_CALL(ShellExecuteW, reinterpret_cast<HINSTANCE>(SE_ERR_OOM), ERROR_NOT_ENOUGH_MEMORY);
    std::u16string detail(verb != nullptr ? verb : kDefaultVerb);
    detail.append(kDetailSeparator).append(OrEmpty(parameters));
    detail.append(kDetailSeparator).append(OrEmpty(directory));
    detail.append(kDetailSeparator).append(Decimal(showCommand));
    const UINT error = CanOpen(OrEmpty(file), OrEmpty(directory)) ? 0 : SE_ERR_FNF;
    return reinterpret_cast<HINSTANCE>(
        static_cast<uintptr_t>(RecordLaunch("open", error, OrEmpty(file), detail)));
}

BOOL WINAPI MessageBeep(UINT kind)
{
    HOST_CALL(MessageBeep, FALSE, ERROR_NOT_ENOUGH_MEMORY);
    RecordEvent("beep", {}, Decimal(kind));
    return TRUE;
}
