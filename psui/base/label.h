#pragma once
// Texts made of strings of a resource module, which are written for controls: they have mnemonics and line
// breaks that a message, a caption or a line of a list must not show.
#include <string_view>

#include <windows.h>

namespace psui {

/// Where the next piece of a text goes. `left` units are free there, the terminator's among them; a cursor
/// with none is full and takes nothing more.
struct TextCursor
{
    WCHAR* at;
    int left;
};

/// Appends what fits of `piece` and terminates the text.
void Append(TextCursor& cursor, std::basic_string_view<WCHAR> piece);

/// Appends string `id` of `module`, cleaned, what fits of it and at most `limit` units with the terminator. A
/// missing string is empty.
void AppendLabel(TextCursor& cursor, HMODULE module, UINT id, int limit);

/// Appends `format` with its places for a number ("%d", "%u") filled and "%%" made "%".
void AppendFormatted(TextCursor& cursor, const WCHAR* format, int number);

/// Makes a label plain text, in place: line breaks become blanks, "&&" becomes "&", a mnemonic in
/// parentheses ("(&X)") goes, and so does any other "&".
void CleanLabel(WCHAR* text);

} // namespace psui
