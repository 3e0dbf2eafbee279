#include <algorithm>
#include <cstring>

#include "host/window/controls/control.h"
#include "host/window/controls/edit.h"

namespace host {
namespace {

using View = std::u16string_view;

/// As much of `added` in place of the selection as the limit and the room allow.
EditText::Outcome InsertWhatFits(const Edit& edit, EditText& text, View added, bool undoable)
{
    const EditText before = text;
    EditText::Outcome outcome = text.Insert(added, undoable);
    if (added.empty() || FitsWithoutScrolling(edit, text))
        return outcome;
    size_t fits = 0;
    size_t tooMany = added.size();
    while (fits + 1 < tooMany) {
        const size_t middle = fits + (tooMany - fits) / 2;
        EditText trial = before;
        trial.Insert(added.substr(0, middle), undoable);
        (FitsWithoutScrolling(edit, trial) ? fits : tooMany) = middle;
    }
    text = before;
    fits = EditText::WholeCharacters(added, fits);
    if (fits == 0)
        return {false, true};
    outcome = text.Insert(added.substr(0, fits), undoable);
    return {outcome.changed, true};
}

void CopySelection(const Edit& edit)
{
    if (!edit.text.HasSelection() || HasStyle(edit.window, ES_PASSWORD) || !OpenClipboard(edit.window))
        return;
    const View selected = edit.text.Selected();
    EmptyClipboard();
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (selected.size() + 1) * sizeof(WCHAR));
    if (void* const bytes = block != nullptr ? GlobalLock(block) : nullptr) {
        std::memcpy(bytes, selected.data(), selected.size() * sizeof(WCHAR));
        GlobalUnlock(block);
        if (SetClipboardData(CF_UNICODETEXT, block) == nullptr)
            GlobalFree(block);
    }
    CloseClipboard();
}

std::u16string ClipboardText(HWND window)
{
    std::u16string text;
    if (!OpenClipboard(window))
        return text;
    const HANDLE block = GetClipboardData(CF_UNICODETEXT);
    if (const void* const bytes = block != nullptr ? GlobalLock(block) : nullptr) {
        const View all(static_cast<const WCHAR*>(bytes), GlobalSize(block) / sizeof(WCHAR));
        text = all.substr(0, all.find(u'\0'));
        GlobalUnlock(block);
    }
    CloseClipboard();
    return text;
}

} // namespace

void TellEditChange(const Edit& edit)
{
    NotifyParent(edit.window, EN_UPDATE);
    if (!edit.gone)
        NotifyParent(edit.window, EN_CHANGE);
}

void ShowEditChange(Edit& edit)
{
    edit.wishedX = -1;
    RefreshLines(edit);
    ScrollToCaret(edit);
}

void InsertIntoEdit(Edit& edit, View added, bool undoable)
{
    EditText changed = edit.text;
    const EditText::Outcome outcome = InsertWhatFits(edit, changed, added, undoable);
    if (outcome.changed) {
        edit.text = std::move(changed);
        ShowEditChange(edit);
    }
    if (outcome.cut)
        NotifyParent(edit.window, EN_MAXTEXT);
    if (outcome.changed && !edit.gone)
        TellEditChange(edit);
}

void EraseFromEdit(Edit& edit, size_t to)
{
    if (!edit.text.Erase(to).changed)
        return;
    ShowEditChange(edit);
    TellEditChange(edit);
}

bool UndoEdit(Edit& edit)
{
    if (!edit.text.Undo())
        return false;
    ShowEditChange(edit);
    TellEditChange(edit);
    return true;
}

bool IsDigit(WCHAR unit)
{
    return unit >= u'0' && unit <= u'9';
}

LRESULT EditCopy(Edit& edit, WPARAM, LPARAM)
{
    CopySelection(edit);
    return 0;
}

LRESULT EditClear(Edit& edit, WPARAM, LPARAM)
{
    if (!IsReadOnly(edit.window) && edit.text.HasSelection())
        InsertIntoEdit(edit, {});
    return 0;
}

LRESULT EditCut(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (HasStyle(edit.window, ES_PASSWORD))
        return 0;
    CopySelection(edit);
    return EditClear(edit, wParam, lParam);
}

LRESULT EditPaste(Edit& edit, WPARAM, LPARAM)
{
    if (IsReadOnly(edit.window))
        return 0;
    const std::u16string text = ClipboardText(edit.window);
    if (HasStyle(edit.window, ES_NUMBER) && !std::all_of(text.begin(), text.end(), IsDigit)) {
        MessageBeep(MB_OK);
        return 0;
    }
    if (!text.empty())
        InsertIntoEdit(edit, text);
    return 0;
}

} // namespace host
