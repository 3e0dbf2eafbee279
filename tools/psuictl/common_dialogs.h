#pragma once
// Answers to the system's common dialogs, chosen before they are asked for.
#include "host/shell/comdlg/answer.h"
#include "tools/psuictl/text.h"

namespace psuictl {

using CommonDialogKind = comdlg::AnswerKind;

struct CommonDialogAnswer
{
    CommonDialogKind kind = CommonDialogKind::Nothing;
    WideString text;  ///< file, or face of the font
    DWORD number = 0; ///< colour, or size of the font in tenths of a point
};

/// Chooses what the next common dialog answers. False where the common dialogs are the system's own.
bool ChooseDialogAnswer(const CommonDialogAnswer& answer);

} // namespace psuictl
