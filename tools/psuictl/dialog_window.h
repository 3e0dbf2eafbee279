#pragma once
// Looking into dialogs through the platform's own messages: which one is on top, what its controls hold.
#include <optional>
#include <string>
#include <vector>

#include "tools/psuictl/text.h"

namespace psuictl {

/// The dialog that the user can use now: the calling thread's active window, or its topmost one that is
/// visible and enabled. Null when none is open.
HWND TopDialog();

/// The control with that id inside the dialog, in pages and tabs too; a visible one is preferred. Null when
/// there is none.
HWND FindControl(HWND dialog, int64_t id);

/// A window's text, with line breaks as single line feeds, in UTF-8.
std::string WindowText(HWND window);

/// The text of a message box: that of its static control. Empty for other dialogs without one.
std::string MessageText(HWND dialog);

/// The icon of a message box; null for none. The system's icons are shared, so equal handles are equal icons.
HICON MessageIcon(HWND dialog);

/// The entries of a list box, combo box or tab control. Texts of an owner-drawn one without strings are
/// empty.
struct ListContents
{
    std::vector<std::string> texts;
    std::vector<int64_t> data;
    int selected = -1;
};

/// Nothing for a window that is no list.
std::optional<ListContents> ReadList(HWND window);

/// Selects an entry as a user does: its parent is told. False when there is no such entry.
bool SelectEntry(HWND window, int index);

/// Posts what a click on the window at `place` (client coordinates) sends.
void PostClick(HWND window, POINT place, bool twice);
POINT CentreOf(HWND window);

/// Posts one mouse message, with the pointer at that place of the window.
void PostMouse(HWND window, UINT message, WPARAM buttons, POINT place);

/// The distance in dialog units from the start of its line to what follows the first tab in a multi-line edit
/// control. Nothing when there is no tab.
std::optional<int> FirstTabStop(HWND edit);

} // namespace psuictl
