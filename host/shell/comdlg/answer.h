#pragma once
// How a program chooses what the next common dialog answers: by a function of the module that Windows' own
// module does not have.
#include <windows.h>

namespace comdlg {

enum class AnswerKind : int
{
    Nothing, ///< cancelled, as dialogs are that nobody chose an answer for
    File,    ///< the text is a full path
    Color,   ///< the number is the colour
    Font,    ///< the text is the face, the number the size in tenths of a point
};

/// The answer serves one dialog, of whatever kind; one of another kind is cancelled by it. The text is
/// copied.
using ChooseFn = void(WINAPI*)(AnswerKind kind, LPCWSTR text, DWORD number);

inline constexpr char kChooseFunction[] = "ChooseCommonDialogAnswer";

} // namespace comdlg

extern "C" void WINAPI ChooseCommonDialogAnswer(comdlg::AnswerKind kind, LPCWSTR text, DWORD number);
