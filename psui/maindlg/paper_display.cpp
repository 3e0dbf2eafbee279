// The paper on the main dialog: its name and size, and what the document is scaled to.
#include <iterator>

#include "lang/ids/main_dialog.h"
#include "lang/ids/strings.h"
#include "psui/base/format.h"
#include "psui/base/label.h"
#include "psui/base/module.h"
#include "psui/maindlg/fit_text.h"
#include "psui/maindlg/option_tables.h"
#include "psui/maindlg/papers.h"
#include "psui/maindlg/side_panel.h"
#include "psui/settings/record_values.h"
#include "psui/settings/text.h"

namespace psui {

namespace {

constexpr int kTextUnits = 256;
using PaperText = WCHAR[kTextUnits];

void ShowText(HWND dialog, int control, const WCHAR* text)
{
    PaperText fitted;
    CopyWide(fitted, text, kTextUnits);
    FitTextToLine(dialog, control, fitted);
    SetDlgItemTextW(dialog, control, fitted);
}

void ShowString(HWND dialog, int control, const PrinterUiContext* context, UINT id)
{
    PaperText text;
    LoadModuleString(context->hPageRes, id, text, kTextUnits);
    ShowText(dialog, control, text);
}

/// The name that the record gives the paper, which only the user-defined size has, or else string `id`.
void NameOf(const PrinterUiContext* context, int paper, UINT id, PaperText& text)
{
    const auto& name = context->dmWork.dmPrivate.wszCustomName;
    if (paper == DMPAPER_USER && name[0])
        CopyWide(text, name, BoundedLength(name, std::size(name)) + 1);
    else
        LoadModuleString(context->hPageRes, id, text, kTextUnits);
}

void ShowPercentage(HWND dialog, const PrinterUiContext* context)
{
    PaperText text = {};
    TextCursor cursor = {text, kTextUnits};
    AppendLabel(cursor, context->hPageRes, IDS_LABEL_SCALING, kTextUnits);
    AppendFormatted(cursor, TEXT(" %d %%"), context->dmWork.dmPublic.dmScale);
    ShowText(dialog, IDC_LINE_FIGURE, text);
}

void ShowOutputPaper(HWND dialog, const PrinterUiContext* context)
{
    const int paper = context->dmWork.dmPrivate.wOutputPaper;
    PaperText text;
    NameOf(context, paper, PaperShortName(paper), text);
    ShowText(dialog, IDC_LINE_FIGURE, text);
}

void ShowScaling(HWND dialog, const PrinterUiContext* context, int paper)
{
    const uint8_t fit = context->dmWork.dmPrivate.bFitToPaper;
    if (fit != kFitToOutputPaper && fit != kFitByPercentage) {
        for (const int control : {IDC_LINE_FIT_PAPER, IDC_LINE_SCALED_TO, IDC_LINE_FIGURE})
            ShowText(dialog, control, TEXT(""));
        return;
    }
    PaperText from;
    NameOf(context, paper, PaperShortName(paper), from);
    ShowText(dialog, IDC_LINE_FIT_PAPER, from);
    ShowString(dialog, IDC_LINE_SCALED_TO, context, IDS_SCALED_TO);
    if (fit == kFitToOutputPaper)
        ShowOutputPaper(dialog, context);
    else
        ShowPercentage(dialog, context);
}

} // namespace

void ShowPaperOnMainDialog(HWND dialog, const PrinterUiContext* context, size_t position)
{
    const std::span<const OptionRow> table = OptionTable(context, kPaperTable);
    if (position >= table.size())
        return;
    const int paper = static_cast<int>(table[position].dwValue);
    PaperText name;
    NameOf(context, paper, PaperDisplayText(paper, PaperTextKind::Name), name);
    ShowText(dialog, IDC_LINE_PAPER, name);
    if (paper == DMPAPER_USER)
        ShowText(dialog, IDC_LINE_PAPER_SIZE, TEXT(" \n"));
    else
        ShowString(dialog, IDC_LINE_PAPER_SIZE, context, PaperDisplayText(paper, PaperTextKind::Size));
    ShowScaling(dialog, context, paper);
}

} // namespace psui
