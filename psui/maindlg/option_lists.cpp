#include "psui/maindlg/option_lists.h"

#include <iterator>

#include "lang/ids/basic_tab.h"
#include "lang/ids/strings.h"
#include "lang/ids/user_paper.h"
#include "psui/maindlg/combo_list.h"
#include "psui/maindlg/media.h"
#include "psui/maindlg/mnemonics.h"
#include "psui/maindlg/option_tables.h"
#include "psui/maindlg/paper_names.h"
#include "psui/maindlg/papers.h"
#include "psui/maindlg/rules.h"

namespace psui {

namespace {

/// Builds the table and fills the list with an entry a row. `textOf` gives the string of an option's name.
void BuildNamedList(HWND dialog, int control, PrinterUiContext* context, OptionTableIndex index,
                    UINT (*textOf)(std::string_view name))
{
    BuildOptionTable(context, index);
    ComboFiller filler(dialog, control);
    if (IsBuiltinTable(context, index)) {
        for (const OptionRow& row : OptionTable(context, index))
            filler.AddStringIfAny(context->hPageRes, row.wStringId, row.dwValue);
        return;
    }
    ForEachOffered(context, index, [&](std::string_view name, uint32_t value) {
        filler.AddString(context->hPageRes, textOf(name), value);
    });
}

UINT PaperOptionText(std::string_view name)
{
    const PaperWord* word = FindPaperWord(name);
    return word ? PaperListText(word->paper) : 0;
}

/// The user-defined size as an entry that opens a dialog: its name, or what it is.
void AddUserPaper(ComboFiller& filler, const PrinterUiContext* context, uint32_t value)
{
    WCHAR text[kEntryUnits];
    if (UserPaperWithName(context, TEXT("..."), text))
        filler.Add(text, value);
    else
        filler.AddString(context->hPageRes, IDS_PAPER_USER, value);
}

void FillPaperList(HWND tab, PrinterUiContext* context)
{
    ComboFiller filler(tab, IDC_PAPER);
    uint32_t position = 0;
    ForEachOffered(context, kPaperTable, [&](std::string_view name, uint32_t value) {
        const UINT text = PaperOptionText(name);
        if (text == IDS_PAPER_USER) {
            context->dwUserPaperPosition = position;
            AddUserPaper(filler, context, value);
        } else {
            filler.AddString(context->hPageRes, text, value);
        }
        ++position;
    });
}

void FillBuiltinPaperList(HWND tab, PrinterUiContext* context)
{
    ComboFiller filler(tab, IDC_PAPER);
    const std::span<const OptionRow> table = OptionTable(context, kPaperTable);
    for (const OptionRow& row : table)
        filler.AddStringIfAny(context->hPageRes, row.wStringId, row.dwValue);
    context->dwUserPaperPosition = static_cast<uint32_t>(table.size() - 1);
}

} // namespace

void BuildMediaList(HWND tab, PrinterUiContext* context, DWORD media)
{
    BuildNamedList(tab, IDC_MEDIA, context, kMediaTable, MediaOptionText);
    SelectByItemData(tab, IDC_MEDIA, media);
}

void BuildThicknessList(HWND dialog, PrinterUiContext* context, uint16_t thickness)
{
    BuildNamedList(dialog, IDC_THICKNESS, context, kThicknessTable, MediaOptionText);
    SelectByItemData(dialog, IDC_THICKNESS, thickness);
}

void BuildPaperList(HWND tab, PrinterUiContext* context)
{
    BuildOptionTable(context, kPaperTable);
    context->dwUserPaperPosition = kNoUserPaper;
    if (IsBuiltinTable(context, kPaperTable))
        FillBuiltinPaperList(tab, context);
    else
        FillPaperList(tab, context);
    SendDlgItemMessageW(tab, IDC_PAPER, CB_SETCURSEL, 0, 0);
}

void BuildSourceList(HWND tab, PrinterUiContext* context, short source)
{
    BuildOptionTable(context, kSourceTable);
    const std::span<const OptionRow> table = OptionTable(context, kSourceTable);
    const bool choice = table.size() > 1;
    {
        ComboFiller filler(tab, IDC_SOURCE);
        // Sources are called by their place in the printer, whatever number the model gives them.
        UINT text = choice ? IDS_BIN_AUTO : IDS_BIN_SINGLE;
        for (const OptionRow& row : table)
            filler.AddString(context->hPageRes, text++, row.dwValue);
    }
    SelectByItemData(tab, IDC_SOURCE, static_cast<uint32_t>(source));
    if (!choice)
        HideSource(tab);
}

void HideSource(HWND tab)
{
    for (const int control : {IDC_SOURCE_LABEL, IDC_SOURCE}) {
        const HWND window = GetDlgItem(tab, control);
        ShowWindow(window, SW_HIDE);
        EnableWindow(window, FALSE);
        DisableMnemonic(tab, control);
    }
}

void BuildColorTables(HWND, PrinterUiContext* context)
{
    BuildOptionTable(context, kCmTable);
    BuildOptionTable(context, kIcmTable);
}

void BuildDocTypeTable(HWND, PrinterUiContext* context)
{
    BuildOptionTable(context, kDocTypeTable);
}

void BuildColorTable(HWND, PrinterUiContext* context)
{
    BuildOptionTable(context, kColorTable);
}

void BuildFitPaperList(HWND dialog, PrinterUiContext* context, int control)
{
    if (!context->apOptionTables[kPaperTable])
        BuildOptionTable(context, kPaperTable);
    {
        ComboFiller filler(dialog, control);
        for (const OptionRow& row : OptionTable(context, kPaperTable)) {
            const int paper = static_cast<int>(row.dwValue);
            WCHAR name[kEntryUnits];
            if (paper == DMPAPER_USER && UserPaperWithName(context, TEXT(""), name))
                filler.Add(name, paper);
            else if (paper == DMPAPER_USER)
                filler.AddStringIfAny(context->hPageRes, IDS_CUSTOM_SIZE, paper);
            else if (!IsBorderlessSize(paper))
                filler.AddStringIfAny(context->hPageRes, PaperListText(paper), paper);
        }
    }
    SendDlgItemMessageW(dialog, control, CB_SETCURSEL, 0, 0);
}

} // namespace psui
