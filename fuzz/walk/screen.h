#pragma once
// Looking at the windows of the calling thread.
#include <string>
#include <vector>

#include <windows.h>

namespace walk {

bool IsOfClass(HWND window, const WCHAR* name);

/// UTF-8.
std::string TextOf(HWND window);

/// Id and class, for people.
std::string NameOf(HWND window);

/// An open menu or dropped list, which gets the mouse before every dialog; null when there is none.
HWND OpenPopup();

/// The dialog that can be used now: the active one, or the topmost that is visible and enabled. Null when
/// there is none.
HWND FrontDialog();

/// Everything visible inside a window, at every depth.
std::vector<HWND> VisibleInside(HWND window);

/// A dialog that the program did not make from a template of its own.
bool IsMessageBox(HWND dialog);

/// Its text.
std::string MessageOf(HWND messageBox);

/// All visible dialogs with a caption.
std::vector<HWND> OpenDialogs();

/// All controls of a dialog at every depth but some, a line each: what a user sees of them.
std::vector<std::string> Picture(HWND dialog, const std::vector<HWND>& without = {});

/// The lines in which two pictures differ, in words; empty when they are the same.
std::string PictureChanges(const std::vector<std::string>& before, const std::vector<std::string>& after);

} // namespace walk
