// The clipboard of this world's programs. It owns the memory handles put there.
#include <map>

#include "host/window/clipboard.h"
#include "host/window/room.h"

namespace host {
namespace {

std::mutex clipboardLock;
std::map<UINT, HANDLE> contents;
DWORD openedBy; // thread; 0 while nobody has it open

void Empty()
{
    for (const auto& [format, data] : contents)
        GlobalFree(data);
    contents.clear();
}

bool OpenHere()
{
    return openedBy == GetCurrentThreadId() || FailWith(ERROR_CLIPBOARD_NOT_OPEN) != FALSE;
}

} // namespace

void CloseClipboardRoom()
{
    std::lock_guard lock(clipboardLock);
    Empty();
    openedBy = 0;
}

} // namespace host

using namespace host;

BOOL WINAPI OpenClipboard(HWND)
{
    HOST_CALL(OpenClipboard, FALSE, ERROR_ACCESS_DENIED);
    std::lock_guard lock(clipboardLock);
    if (openedBy != 0)
        return FailWith(ERROR_ACCESS_DENIED);
    openedBy = GetCurrentThreadId();
    return TRUE;
}

BOOL WINAPI CloseClipboard(void)
{
    HOST_CALL_VOID(CloseClipboard);
    std::lock_guard lock(clipboardLock);
    if (!OpenHere())
        return FALSE;
    openedBy = 0;
    return TRUE;
}

BOOL WINAPI EmptyClipboard(void)
{
    HOST_CALL_VOID(EmptyClipboard);
    std::lock_guard lock(clipboardLock);
    if (!OpenHere())
        return FALSE;
    Empty();
    return TRUE;
}

HANDLE WINAPI SetClipboardData(UINT format, HANDLE data)
{
    HOST_CALL(SetClipboardData, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    std::lock_guard lock(clipboardLock);
    if (!OpenHere() || data == nullptr)
        return nullptr;
    HANDLE& place = contents[format];
    if (place != nullptr)
        GlobalFree(place);
    return place = data;
}

HANDLE WINAPI GetClipboardData(UINT format)
{
    HOST_CALL(GetClipboardData, nullptr, ERROR_NOT_ENOUGH_MEMORY);
    std::lock_guard lock(clipboardLock);
    const auto found = contents.find(format);
    return OpenHere() && found != contents.end() ? found->second : nullptr;
}

BOOL WINAPI IsClipboardFormatAvailable(UINT format)
{
    HOST_CALL_VOID(IsClipboardFormatAvailable);
    std::lock_guard lock(clipboardLock);
    return contents.contains(format);
}
