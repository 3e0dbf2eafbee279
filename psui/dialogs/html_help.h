#pragma once
// The system's HTML help control, loaded at the first request.
#include <windows.h>

namespace psui {

/// COM for the time of a help request.
class ComSession
{
public:
    ComSession();
    ~ComSession();
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

    explicit operator bool() const { return open_; }

private:
    bool open_;
};

/// Hands a request to the control: `command` and `data` are its own (htmlhelp.h). The control is found
/// through its class registration, then by name, and stays loaded; when it cannot be had, every request from
/// then on returns null. Callers hold a ComSession.
HWND CallHtmlHelp(HWND owner, const WCHAR* file, UINT command, DWORD_PTR data);

} // namespace psui
