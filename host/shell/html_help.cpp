// Help requests. No help opens: each request is recorded, and the window that would show it is pretended.
#include <string>
#include <vector>

#include <htmlhelp.h>
#include <objbase.h>
#include <windows.h>

#include "host/host.h"
#include "host/kernel/call.h"
#include "host/shell/shell.h"

namespace host {
namespace {

constexpr char16_t kWindowClass[] = u"HH Parent";

std::vector<void*> helpWindows;
HH_WINTYPE windowType = {};
thread_local int comSessions;

std::u16string_view OrEmpty(LPCWSTR text)
{
    return text != nullptr ? std::u16string_view(text) : std::u16string_view();
}

HWND OpenHelpWindow(LPCWSTR file)
{
    // One window shows whatever is asked for.
    if (helpWindows.empty())
        helpWindows.push_back(AddWindow(kWindowClass, OrEmpty(file)));
    return static_cast<HWND>(helpWindows.back());
}

void CloseHelpWindows()
{
    for (void* const window : helpWindows)
        RemoveWindow(window);
    helpWindows.clear();
}

} // namespace

void ResetHelp()
{
    CloseHelpWindows();
    windowType.rcWindowPos = {};
}

} // namespace host

using namespace host;

HWND WINAPI HtmlHelpW(HWND, LPCWSTR file, UINT command, DWORD_PTR data)
{
    HOST_CALL(HtmlHelpW, nullptr, ERROR_FILE_NOT_FOUND);
    switch (command) {
    case HH_DISPLAY_TOPIC:
    case HH_DISPLAY_TOC:
        RecordEvent("help", OrEmpty(file), OrEmpty(reinterpret_cast<LPCWSTR>(data)));
        return OpenHelpWindow(file);
    case HH_GET_WIN_TYPE:
        windowType.cbStruct = sizeof windowType;
        windowType.fUniCodeStrings = TRUE;
        *reinterpret_cast<PHH_WINTYPE*>(data) = &windowType;
        return helpWindows.empty() ? nullptr : static_cast<HWND>(helpWindows.back());
    case HH_CLOSE_ALL:
        RecordEvent("help closed", {}, {});
        CloseHelpWindows();
        return nullptr;
    default:
        return nullptr;
    }
}

HRESULT WINAPI CoInitialize(LPVOID)
{
    HOST_CALL_VOID(CoInitialize);
    if (hostCall_.InjectedFailure())
        return E_FAIL;
    return comSessions++ == 0 ? S_OK : S_FALSE;
}

void WINAPI CoUninitialize(void)
{
    HOST_CALL_VOID(CoUninitialize);
    if (comSessions > 0)
        --comSessions;
}
