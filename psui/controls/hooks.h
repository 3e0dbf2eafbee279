#pragma once
// Procedures that stand before those of standard controls.
#include <windows.h>

namespace psui {

/// Timer of the dialog that runs while the pointer rests on a link.
constexpr UINT_PTR kHoverTimer = 77;

/// Hooks a dialog's link, so that every pointer movement over it starts the hover timer of the dialog anew,
/// and its background control, so that what it erases asks for a repaint. One dialog is hooked at a time.
void InstallHoverLink(HWND dialog, int link, int background);

/// Whether the background was erased since the last call.
bool TakeRepaintRequest();

/// Hooks a push button, so that it takes Tab and Enter itself: Tab moves to the next control (with Shift to
/// the previous one), Enter presses this button and not the dialog's default one, and without the focus it
/// does not look like the default. Calling it twice changes nothing.
void InstallKeyButton(HWND dialog, int button);

/// The hooks themselves.
LRESULT CALLBACK HoverLinkProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT CALLBACK KeyButtonProc(HWND button, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace psui
