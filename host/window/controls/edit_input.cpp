#include <algorithm>

#include "host/window/controls/control.h"
#include "host/window/controls/edit.h"

namespace host {
namespace {

constexpr WCHAR kDialogClass[] = TEXT("#32770");

bool IsInDialog(HWND window)
{
    WCHAR name[std::size(kDialogClass) + 1] = {};
    GetClassNameW(GetParent(window), name, static_cast<int>(std::size(name)));
    return std::u16string_view(name) == kDialogClass;
}

void MoveCaret(Edit& edit, size_t to, bool extend)
{
    if (edit.text.Select(extend ? edit.text.Anchor() : to, to))
        Repaint(edit.window);
    ScrollToCaret(edit);
    PlaceCaret(edit);
}

bool IsDown(int key)
{
    return (GetKeyState(key) & 0x8000) != 0;
}

size_t LineEnd(const Edit& edit, const EditLine& line)
{
    const size_t end = line.start + line.length;
    const bool wrapped = line.breakLength == 0 && end < edit.text.Length();
    return wrapped && line.length > 0 ? edit.text.Previous(end) : end;
}

size_t Leftwards(const Edit& edit, bool word)
{
    const size_t caret = edit.text.Caret();
    return word ? edit.text.PreviousWord(caret) : edit.text.Previous(caret);
}

size_t Rightwards(const Edit& edit, bool word)
{
    const size_t caret = edit.text.Caret();
    return word ? edit.text.NextWord(caret) : edit.text.Next(caret);
}

/// Up and Down by lines; the caret keeps the column that it came from.
size_t Vertically(Edit& edit, int lines)
{
    const size_t caret = edit.text.Caret();
    if (edit.wishedX < 0)
        edit.wishedX = PointOfPosition(edit, caret).x + edit.scrolledX;
    const int line = static_cast<int>(CaretLine(edit)) + lines;
    const int target = std::clamp(line, 0, static_cast<int>(edit.lines.size()) - 1);
    return PositionOnLine(edit, static_cast<size_t>(target), edit.wishedX - edit.scrolledX);
}

void MoveVertically(Edit& edit, int lines, bool extend)
{
    const size_t target = Vertically(edit, lines);
    MoveCaret(edit, target, extend);
}

/// Keys that move the caret. False for all others.
bool MoveByKey(Edit& edit, WPARAM key, bool shift, bool control)
{
    const EditLine& line = edit.lines[CaretLine(edit)];
    const bool multi = IsMultiLine(edit.window);
    if (key != VK_UP && key != VK_DOWN && key != VK_PRIOR && key != VK_NEXT)
        edit.wishedX = -1;
    switch (key) {
    case VK_LEFT:
        MoveCaret(edit, Leftwards(edit, control), shift);
        return true;
    case VK_RIGHT:
        MoveCaret(edit, Rightwards(edit, control), shift);
        return true;
    case VK_HOME:
        MoveCaret(edit, control ? 0 : line.start, shift);
        return true;
    case VK_END:
        MoveCaret(edit, control ? edit.text.Length() : LineEnd(edit, line), shift);
        return true;
    case VK_UP:
        multi ? MoveVertically(edit, -1, shift) : MoveCaret(edit, Leftwards(edit, false), shift);
        return true;
    case VK_DOWN:
        multi ? MoveVertically(edit, 1, shift) : MoveCaret(edit, Rightwards(edit, false), shift);
        return true;
    case VK_PRIOR:
        MoveVertically(edit, -LinesOfPage(edit), shift);
        return true;
    case VK_NEXT:
        MoveVertically(edit, LinesOfPage(edit), shift);
        return true;
    }
    return false;
}

void DeleteByKey(Edit& edit, bool shift, bool control)
{
    if (IsReadOnly(edit.window))
        return;
    if (shift && edit.text.HasSelection())
        SendMessageW(edit.window, WM_CUT, 0, 0);
    else if (shift)
        EraseFromEdit(edit, edit.text.Previous(edit.text.Caret()));
    else
        EraseFromEdit(edit, control ? LineEnd(edit, edit.lines[CaretLine(edit)])
                                    : edit.text.Next(edit.text.Caret()));
}

/// What Enter does in a dialog when the control does not want it: it presses the default button.
void PressDefaultButton(HWND dialog)
{
    const LRESULT answer = SendMessageW(dialog, DM_GETDEFID, 0, 0);
    const int id = HIWORD(answer) == DC_HASDEFID ? LOWORD(answer) : IDOK;
    const HWND button = GetDlgItem(dialog, id);
    if (button == nullptr || IsWindowEnabled(button))
        PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

/// A control of several lines gets all keys from its dialog and gives back those that it has no use for.
bool ReturnKeyToDialog(HWND window, WPARAM key, bool control)
{
    if (!IsMultiLine(window) || !IsInDialog(window))
        return false;
    const HWND dialog = GetParent(window);
    if (key == VK_TAB && !control)
        SendMessageW(dialog, WM_NEXTDLGCTL, IsDown(VK_SHIFT), 0);
    else if (key == VK_ESCAPE)
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    else if (key == VK_RETURN && !control && !HasStyle(window, ES_WANTRETURN))
        PressDefaultButton(dialog);
    else
        return false;
    return true;
}

void TypeUnit(Edit& edit, WCHAR unit)
{
    if (IsReadOnly(edit.window))
        return;
    if (HasStyle(edit.window, ES_NUMBER) && !IsDigit(unit)) {
        MessageBeep(MB_OK);
        return;
    }
    InsertIntoEdit(edit, {&unit, 1});
}

void TypeReturn(Edit& edit)
{
    const bool forDialog =
        !HasStyle(edit.window, ES_WANTRETURN) && !IsDown(VK_CONTROL) && IsInDialog(edit.window);
    if (IsMultiLine(edit.window) && !forDialog && !IsReadOnly(edit.window))
        InsertIntoEdit(edit, u"\r\n");
}

void TypeTab(Edit& edit)
{
    const bool forDialog = !IsDown(VK_CONTROL) && IsInDialog(edit.window);
    if (IsMultiLine(edit.window) && !forDialog && !IsReadOnly(edit.window))
        InsertIntoEdit(edit, u"\t");
}

} // namespace

LRESULT EditKeyDown(Edit& edit, WPARAM wParam, LPARAM)
{
    const bool shift = IsDown(VK_SHIFT);
    const bool control = IsDown(VK_CONTROL);
    if (MoveByKey(edit, wParam, shift, control) || ReturnKeyToDialog(edit.window, wParam, control))
        return 0;
    if (wParam == VK_DELETE)
        DeleteByKey(edit, shift, control);
    else if (wParam == VK_INSERT && shift)
        SendMessageW(edit.window, WM_PASTE, 0, 0);
    else if (wParam == VK_INSERT && control)
        SendMessageW(edit.window, WM_COPY, 0, 0);
    return 0;
}

LRESULT EditChar(Edit& edit, WPARAM wParam, LPARAM)
{
    constexpr struct
    {
        WCHAR unit; // Ctrl and a letter
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
    } kCommands[] = {
        {1, EM_SETSEL, 0, -1}, {3, WM_COPY, 0, 0},  {22, WM_PASTE, 0, 0},
        {24, WM_CUT, 0, 0},    {26, WM_UNDO, 0, 0},
    };
    constexpr WCHAR kControlBackspace = 0x7F;
    const auto unit = static_cast<WCHAR>(wParam);
    for (const auto& each : kCommands) {
        if (each.unit == unit) {
            SendMessageW(edit.window, each.message, each.wParam, each.lParam);
            return 0;
        }
    }
    if (unit == VK_RETURN || unit == u'\n')
        TypeReturn(edit);
    else if (unit == VK_TAB)
        TypeTab(edit);
    else if (unit == VK_BACK && !IsReadOnly(edit.window))
        EraseFromEdit(edit, edit.text.Previous(edit.text.Caret()));
    else if (unit >= u' ' && unit != kControlBackspace)
        TypeUnit(edit, unit);
    return 1;
}

LRESULT EditMouseDown(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    const size_t position = PositionOfPoint(edit, PointOf(lParam));
    edit.wishedX = -1;
    edit.selecting = true;
    SetCapture(edit.window);
    MoveCaret(edit, position, (wParam & MK_SHIFT) != 0);
    if (GetFocus() != edit.window)
        SetFocus(edit.window);
    return 0;
}

LRESULT EditMouseMove(Edit& edit, WPARAM, LPARAM lParam)
{
    if (edit.selecting)
        MoveCaret(edit, PositionOfPoint(edit, PointOf(lParam)), true);
    return 0;
}

LRESULT EditMouseUp(Edit& edit, WPARAM, LPARAM)
{
    if (edit.selecting && GetCapture() == edit.window)
        ReleaseCapture();
    edit.selecting = false;
    return 0;
}

LRESULT EditDoubleClick(Edit& edit, WPARAM, LPARAM lParam)
{
    const size_t position = PositionOfPoint(edit, PointOf(lParam));
    const size_t start = edit.text.PreviousWord(edit.text.Next(position));
    edit.text.Select(start, start);
    MoveCaret(edit, edit.text.NextWord(start), true);
    return 0;
}

LRESULT EditCaptureChanged(Edit& edit, WPARAM, LPARAM)
{
    edit.selecting = false;
    return 0;
}

} // namespace host
