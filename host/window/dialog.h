#pragma once
// Parts of dialogs that their files share.
#include "host/window/dialog_template.h"
#include "host/window/room.h"

namespace host {

/// Runs a dialog as DialogBoxIndirectParamW does.
INT_PTR RunDialog(const DialogTemplate& from, HINSTANCE instance, HWND owner, DLGPROC procedure,
                  LPARAM parameter);

/// Makes another button the one that Enter presses, and shows it.
void SetDefaultId(HWND dialog, int id);

/// Whether that is a mnemonic ("&x") in a text; letters without regard to case.
bool HasMnemonic(std::u16string_view text, char16_t character);

/// The dialog procedure of message boxes.
INT_PTR CALLBACK MessageBoxProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
