#pragma once
// Keyboard mnemonics of controls that are hidden: their letters must not answer any more.
#include <windows.h>

namespace psui {

/// Longest text that is handled, in units with the terminator.
constexpr int kMnemonicTextUnits = 1024;

/// Switches the mnemonic of a button or static control off, and on again. Another control, one without a
/// mnemonic, and one that is in that state already stay as they are.
void DisableMnemonic(HWND dialog, int control);
void RestoreMnemonic(HWND dialog, int control);

/// Inserts the mark of a mnemonic that is switched off, or removes it, in a text in `buffer`; false when
/// there was nothing to do or no room.
bool InsertMnemonicMark(WCHAR (&buffer)[kMnemonicTextUnits]);
bool RemoveMnemonicMark(WCHAR (&buffer)[kMnemonicTextUnits]);

} // namespace psui
