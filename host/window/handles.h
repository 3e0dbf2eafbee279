#pragma once
// The table of window handles.
#include "host/window/room.h"

namespace host {

constexpr int kScreenWidth = 1280; // pixels
constexpr int kScreenHeight = 1024;

/// Gives a window its handle; false when there are too many windows.
bool AddHandle(const WindowPtr& window);
void DropHandle(HWND handle);
void CloseHandles();

/// WM_GETTEXT as the default procedure answers it.
LRESULT CopyWindowText(const Window& window, WPARAM size, LPARAM buffer);

} // namespace host
