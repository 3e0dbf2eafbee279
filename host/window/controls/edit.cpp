#include "host/window/controls/edit.h"

#include <algorithm>
#include <cstring>

#include "host/kernel/world.h"
#include "host/window/controls/control.h"

namespace host {
namespace {

constexpr WCHAR kUsualPassword = u'*';
constexpr int kCaretWidth = 1;
constexpr int kWheelLines = 3; // a notch of the mouse wheel
constexpr WCHAR kDialogClass[] = TEXT("#32770");
constexpr size_t kNoLimit = 0x7FFFFFFE;

using View = std::u16string_view;

bool Has(HWND window, DWORD style)
{
    return (StyleOf(window) & style) != 0;
}

char16_t LowerCase(char16_t unit)
{
    // The lower-case letters stand within this distance behind their capitals, or right before them.
    constexpr char16_t kDistance = 0x50;
    if (UpperCase(unit) != unit)
        return unit;
    for (char16_t i = 1; i <= kDistance && unit + i > unit; ++i) {
        if (UpperCase(static_cast<char16_t>(unit + i)) == unit)
            return static_cast<char16_t>(unit + i);
    }
    return unit;
}

bool IsInDialog(HWND window)
{
    WCHAR name[std::size(kDialogClass) + 1] = {};
    GetClassNameW(GetParent(window), name, static_cast<int>(std::size(name)));
    return View(name) == kDialogClass;
}

// Changing the text

/// Tells the parent of a change: before it is shown and afterwards.
void TellChange(HWND window)
{
    NotifyParent(window, EN_UPDATE);
    if (IsWindow(window))
        NotifyParent(window, EN_CHANGE);
}

void ShowChange(HWND window, Edit& edit)
{
    edit.wishedX = -1;
    RefreshLines(window, edit);
    ScrollToCaret(window, edit);
}

/// As much of `added` in place of the selection as the limit and the room allow.
EditText::Outcome InsertWhatFits(HWND window, const Edit& edit, EditText& text, View added, bool undoable)
{
    const EditText before = text;
    EditText::Outcome outcome = text.Insert(added, undoable);
    if (added.empty() || FitsWithoutScrolling(window, edit, text))
        return outcome;
    size_t fits = 0;
    size_t tooMany = added.size();
    while (fits + 1 < tooMany) {
        const size_t middle = fits + (tooMany - fits) / 2;
        EditText trial = before;
        trial.Insert(added.substr(0, middle), undoable);
        (FitsWithoutScrolling(window, edit, trial) ? fits : tooMany) = middle;
    }
    text = before;
    if (fits == 0)
        return {false, true};
    outcome = text.Insert(added.substr(0, fits), undoable);
    return {outcome.changed, true};
}

void Insert(HWND window, Edit& edit, View added, bool undoable = true)
{
    EditText changed = edit.text;
    const EditText::Outcome outcome = InsertWhatFits(window, edit, changed, added, undoable);
    if (outcome.changed) {
        edit.text = std::move(changed);
        ShowChange(window, edit);
    }
    if (outcome.cut)
        NotifyParent(window, EN_MAXTEXT);
    if (outcome.changed && IsWindow(window))
        TellChange(window);
}

/// The selection, or what lies between the caret and `to`.
void Erase(HWND window, Edit& edit, size_t to)
{
    if (!edit.text.Erase(to).changed)
        return;
    ShowChange(window, edit);
    TellChange(window);
}

bool Undo(HWND window, Edit& edit)
{
    if (!edit.text.Undo())
        return false;
    ShowChange(window, edit);
    TellChange(window);
    return true;
}

// Clipboard

void CopySelection(HWND window, const Edit& edit)
{
    if (!edit.text.HasSelection() || Has(window, ES_PASSWORD) || !OpenClipboard(window))
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

bool IsDigit(WCHAR unit)
{
    return unit >= u'0' && unit <= u'9';
}

LRESULT OnCopy(HWND window, Edit& edit, WPARAM, LPARAM)
{
    CopySelection(window, edit);
    return 0;
}

LRESULT OnClear(HWND window, Edit& edit, WPARAM, LPARAM)
{
    if (!IsReadOnly(window) && edit.text.HasSelection())
        Insert(window, edit, {});
    return 0;
}

LRESULT OnCut(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (Has(window, ES_PASSWORD))
        return 0;
    CopySelection(window, edit);
    return OnClear(window, edit, wParam, lParam);
}

LRESULT OnPaste(HWND window, Edit& edit, WPARAM, LPARAM)
{
    if (IsReadOnly(window))
        return 0;
    const std::u16string text = ClipboardText(window);
    if (Has(window, ES_NUMBER) && !std::all_of(text.begin(), text.end(), IsDigit)) {
        MessageBeep(MB_OK);
        return 0;
    }
    if (!text.empty())
        Insert(window, edit, text);
    return 0;
}

// Moving and selecting

void MoveCaret(HWND window, Edit& edit, size_t to, bool extend)
{
    if (edit.text.Select(extend ? edit.text.Anchor() : to, to))
        Repaint(window);
    ScrollToCaret(window, edit);
    PlaceCaret(window, edit);
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
size_t Vertically(HWND window, Edit& edit, int lines)
{
    const size_t caret = edit.text.Caret();
    if (edit.wishedX < 0)
        edit.wishedX = PointOfPosition(window, edit, caret).x + edit.scrolledX;
    const int line = static_cast<int>(CaretLine(edit)) + lines;
    const int target = std::clamp(line, 0, static_cast<int>(edit.lines.size()) - 1);
    return PositionOnLine(window, edit, static_cast<size_t>(target), edit.wishedX - edit.scrolledX);
}

void MoveVertically(HWND window, Edit& edit, int lines, bool extend)
{
    const size_t target = Vertically(window, edit, lines);
    MoveCaret(window, edit, target, extend);
}

int PageLines(HWND window, const Edit& edit)
{
    return static_cast<int>(std::max<size_t>(1, VisibleLines(window, edit) - 1));
}

/// Keys that move the caret. False for all others.
bool MoveByKey(HWND window, Edit& edit, WPARAM key, bool shift, bool control)
{
    const EditLine& line = edit.lines[CaretLine(edit)];
    const bool multi = IsMultiLine(window);
    if (key != VK_UP && key != VK_DOWN && key != VK_PRIOR && key != VK_NEXT)
        edit.wishedX = -1;
    switch (key) {
    case VK_LEFT:
        MoveCaret(window, edit, Leftwards(edit, control), shift);
        return true;
    case VK_RIGHT:
        MoveCaret(window, edit, Rightwards(edit, control), shift);
        return true;
    case VK_HOME:
        MoveCaret(window, edit, control ? 0 : line.start, shift);
        return true;
    case VK_END:
        MoveCaret(window, edit, control ? edit.text.Length() : LineEnd(edit, line), shift);
        return true;
    case VK_UP:
        multi ? MoveVertically(window, edit, -1, shift)
              : MoveCaret(window, edit, Leftwards(edit, false), shift);
        return true;
    case VK_DOWN:
        multi ? MoveVertically(window, edit, 1, shift)
              : MoveCaret(window, edit, Rightwards(edit, false), shift);
        return true;
    case VK_PRIOR:
        MoveVertically(window, edit, -PageLines(window, edit), shift);
        return true;
    case VK_NEXT:
        MoveVertically(window, edit, PageLines(window, edit), shift);
        return true;
    }
    return false;
}

void DeleteByKey(HWND window, Edit& edit, bool shift, bool control)
{
    if (IsReadOnly(window))
        return;
    if (shift && edit.text.HasSelection())
        SendMessageW(window, WM_CUT, 0, 0);
    else if (shift)
        Erase(window, edit, edit.text.Previous(edit.text.Caret()));
    else
        Erase(window, edit,
              control ? LineEnd(edit, edit.lines[CaretLine(edit)]) : edit.text.Next(edit.text.Caret()));
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
    else if (key == VK_RETURN && !control && !Has(window, ES_WANTRETURN))
        PressDefaultButton(dialog);
    else
        return false;
    return true;
}

LRESULT OnKeyDown(HWND window, Edit& edit, WPARAM wParam, LPARAM)
{
    const bool shift = IsDown(VK_SHIFT);
    const bool control = IsDown(VK_CONTROL);
    if (MoveByKey(window, edit, wParam, shift, control) || ReturnKeyToDialog(window, wParam, control))
        return 0;
    if (wParam == VK_DELETE)
        DeleteByKey(window, edit, shift, control);
    else if (wParam == VK_INSERT && shift)
        SendMessageW(window, WM_PASTE, 0, 0);
    else if (wParam == VK_INSERT && control)
        SendMessageW(window, WM_COPY, 0, 0);
    return 0;
}

void TypeUnit(HWND window, Edit& edit, WCHAR unit)
{
    if (IsReadOnly(window))
        return;
    if (Has(window, ES_NUMBER) && !IsDigit(unit)) {
        MessageBeep(MB_OK);
        return;
    }
    Insert(window, edit, {&unit, 1});
}

void TypeReturn(HWND window, Edit& edit)
{
    const bool forDialog = !Has(window, ES_WANTRETURN) && !IsDown(VK_CONTROL) && IsInDialog(window);
    if (IsMultiLine(window) && !forDialog && !IsReadOnly(window))
        Insert(window, edit, u"\r\n");
}

void TypeTab(HWND window, Edit& edit)
{
    const bool forDialog = !IsDown(VK_CONTROL) && IsInDialog(window);
    if (IsMultiLine(window) && !forDialog && !IsReadOnly(window))
        Insert(window, edit, u"\t");
}

LRESULT OnChar(HWND window, Edit& edit, WPARAM wParam, LPARAM)
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
            SendMessageW(window, each.message, each.wParam, each.lParam);
            return 0;
        }
    }
    if (unit == VK_RETURN || unit == u'\n')
        TypeReturn(window, edit);
    else if (unit == VK_TAB)
        TypeTab(window, edit);
    else if (unit == VK_BACK && !IsReadOnly(window))
        Erase(window, edit, edit.text.Previous(edit.text.Caret()));
    else if (unit >= u' ' && unit != kControlBackspace)
        TypeUnit(window, edit, unit);
    return 1;
}

LRESULT OnMouseDown(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    const size_t position = PositionOfPoint(window, edit, PointOf(lParam));
    edit.wishedX = -1;
    edit.selecting = true;
    SetCapture(window);
    MoveCaret(window, edit, position, (wParam & MK_SHIFT) != 0);
    if (GetFocus() != window)
        SetFocus(window);
    return 0;
}

LRESULT OnMouseMove(HWND window, Edit& edit, WPARAM, LPARAM lParam)
{
    if (edit.selecting)
        MoveCaret(window, edit, PositionOfPoint(window, edit, PointOf(lParam)), true);
    return 0;
}

LRESULT OnMouseUp(HWND window, Edit& edit, WPARAM, LPARAM)
{
    if (edit.selecting && GetCapture() == window)
        ReleaseCapture();
    edit.selecting = false;
    return 0;
}

LRESULT OnDoubleClick(HWND window, Edit& edit, WPARAM, LPARAM lParam)
{
    const size_t position = PositionOfPoint(window, edit, PointOf(lParam));
    const size_t start = edit.text.PreviousWord(edit.text.Next(position));
    edit.text.Select(start, start);
    MoveCaret(window, edit, edit.text.NextWord(start), true);
    return 0;
}

LRESULT OnCaptureChanged(HWND, Edit& edit, WPARAM, LPARAM)
{
    edit.selecting = false;
    return 0;
}

LRESULT OnSetFocus(HWND window, Edit& edit, WPARAM, LPARAM)
{
    CreateCaret(window, nullptr, kCaretWidth, edit.lineHeight);
    PlaceCaret(window, edit);
    ShowCaret(window);
    Repaint(window);
    NotifyParent(window, EN_SETFOCUS);
    return 0;
}

LRESULT OnKillFocus(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    OnMouseUp(window, edit, wParam, lParam);
    DestroyCaret();
    Repaint(window);
    NotifyParent(window, EN_KILLFOCUS);
    return 0;
}

// Scrolling

/// Lines down (up when negative) that a SB_ code asks for.
int LinesOfCode(HWND window, const Edit& edit, WORD code)
{
    switch (code) {
    case SB_LINEUP:
        return -1;
    case SB_LINEDOWN:
        return 1;
    case SB_PAGEUP:
        return -PageLines(window, edit);
    case SB_PAGEDOWN:
        return PageLines(window, edit);
    }
    return 0;
}

/// Returns the lines that the view really moved by.
int ScrollLines(HWND window, Edit& edit, int64_t lines)
{
    const size_t before = edit.firstLine;
    const int64_t first = std::max<int64_t>(0, static_cast<int64_t>(before) + lines);
    ScrollEdit(window, edit, static_cast<size_t>(first), edit.scrolledX);
    return static_cast<int>(edit.firstLine) - static_cast<int>(before);
}

int TrackPosition(HWND window, int bar)
{
    SCROLLINFO info = {sizeof(info), SIF_TRACKPOS, 0, 0, 0, 0, 0};
    GetScrollInfo(window, bar, &info);
    return info.nTrackPos;
}

LRESULT OnVScroll(HWND window, Edit& edit, WPARAM wParam, LPARAM)
{
    const WORD code = LOWORD(wParam);
    const bool tracking = code == SB_THUMBTRACK || code == SB_THUMBPOSITION;
    const int before = static_cast<int>(edit.firstLine);
    const int lines = tracking            ? TrackPosition(window, SB_VERT) - before
                      : code == SB_TOP    ? -before
                      : code == SB_BOTTOM ? static_cast<int>(edit.lines.size())
                                          : LinesOfCode(window, edit, code);
    if (ScrollLines(window, edit, lines) != 0 && !tracking)
        NotifyParent(window, EN_VSCROLL);
    return 0;
}

LRESULT OnHScroll(HWND window, Edit& edit, WPARAM wParam, LPARAM)
{
    const WORD code = LOWORD(wParam);
    const RECT rect = FormatRect(window, edit);
    const bool tracking = code == SB_THUMBTRACK || code == SB_THUMBPOSITION;
    const bool paging = code == SB_PAGEUP || code == SB_PAGEDOWN;
    const int step = paging ? rect.right - rect.left : edit.averageWidth;
    const int direction =
        code == SB_LINEUP || code == SB_PAGEUP ? -1 : code == SB_LINEDOWN || code == SB_PAGEDOWN;
    int target = tracking ? TrackPosition(window, SB_HORZ) : edit.scrolledX + direction * step;
    if (Has(window, WS_HSCROLL)) {
        SCROLLINFO info = {sizeof(info), SIF_RANGE | SIF_PAGE, 0, 0, 0, 0, 0};
        GetScrollInfo(window, SB_HORZ, &info);
        target = std::min(target, std::max(0, info.nMax - static_cast<int>(info.nPage) + 1));
    }
    if (ScrollEdit(window, edit, edit.firstLine, target) && !tracking)
        NotifyParent(window, EN_HSCROLL);
    return 0;
}

LRESULT OnWheel(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (!IsMultiLine(window))
        return DefWindowProcW(window, WM_MOUSEWHEEL, wParam, lParam);
    const int notches = static_cast<SHORT>(HIWORD(wParam)) / WHEEL_DELTA;
    if (ScrollLines(window, edit, -notches * kWheelLines) != 0)
        NotifyParent(window, EN_VSCROLL);
    return 0;
}

LRESULT OnScroll(HWND window, Edit& edit, WPARAM wParam, LPARAM)
{
    if (!IsMultiLine(window) || wParam > SB_PAGEDOWN)
        return FALSE;
    const int moved = ScrollLines(window, edit, LinesOfCode(window, edit, LOWORD(wParam)));
    if (moved != 0)
        NotifyParent(window, EN_VSCROLL);
    return MAKELONG(moved, TRUE);
}

LRESULT OnLineScroll(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (!IsMultiLine(window))
        return FALSE;
    ScrollLines(window, edit, static_cast<int>(lParam));
    ScrollEdit(window, edit, edit.firstLine, edit.scrolledX + static_cast<int>(wParam) * edit.averageWidth);
    return TRUE;
}

LRESULT OnScrollCaret(HWND window, Edit& edit, WPARAM, LPARAM)
{
    ScrollToCaret(window, edit);
    return TRUE;
}

LRESULT OnGetFirstVisibleLine(HWND window, Edit& edit, WPARAM, LPARAM)
{
    if (IsMultiLine(window))
        return static_cast<LRESULT>(edit.firstLine);
    return static_cast<LRESULT>(PositionOnLine(window, edit, 0, FormatRect(window, edit).left));
}

// Text and selection by message

LRESULT OnSetText(HWND window, Edit& edit, WPARAM, LPARAM lParam)
{
    const auto text = reinterpret_cast<LPCWSTR>(lParam);
    edit.text.Set(text != nullptr ? View(text) : View());
    edit.firstLine = 0;
    edit.scrolledX = 0;
    ShowChange(window, edit);
    if (!IsMultiLine(window))
        TellChange(window);
    return TRUE;
}

LRESULT OnGetText(HWND, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (wParam == 0)
        return 0;
    const auto buffer = reinterpret_cast<LPWSTR>(lParam);
    const size_t count = edit.text.Text().copy(buffer, wParam - 1);
    buffer[count] = 0;
    return static_cast<LRESULT>(count);
}

LRESULT OnGetTextLength(HWND, Edit& edit, WPARAM, LPARAM)
{
    return static_cast<LRESULT>(edit.text.Length());
}

LRESULT OnGetSel(HWND, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    const size_t start = edit.text.Start();
    const size_t end = edit.text.End();
    if (wParam != 0)
        *reinterpret_cast<DWORD*>(wParam) = static_cast<DWORD>(start);
    if (lParam != 0)
        *reinterpret_cast<DWORD*>(lParam) = static_cast<DWORD>(end);
    return start > 0xFFFF || end > 0xFFFF ? -1 : MAKELONG(start, end);
}

/// A negative start takes the selection away, a negative end means the end of the text.
LRESULT OnSetSel(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    const auto start = static_cast<int>(wParam);
    const auto end = static_cast<int>(lParam);
    const size_t last = edit.text.Length();
    if (start < 0)
        edit.text.Select(edit.text.End(), edit.text.End());
    else if (end < 0)
        edit.text.Select(static_cast<size_t>(start), last);
    else
        edit.text.Select(static_cast<size_t>(std::min(start, end)),
                         static_cast<size_t>(std::max(start, end)));
    edit.wishedX = -1;
    if (!IsMultiLine(window))
        ScrollToCaret(window, edit);
    PlaceCaret(window, edit);
    Repaint(window);
    return TRUE;
}

LRESULT OnReplaceSel(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    const auto text = reinterpret_cast<LPCWSTR>(lParam);
    Insert(window, edit, text != nullptr ? View(text) : View(), wParam != FALSE);
    return TRUE;
}

LRESULT OnGetModify(HWND, Edit& edit, WPARAM, LPARAM)
{
    return edit.text.modified;
}

LRESULT OnSetModify(HWND, Edit& edit, WPARAM wParam, LPARAM)
{
    edit.text.modified = wParam != FALSE;
    return 0;
}

LRESULT OnLimitText(HWND, Edit& edit, WPARAM wParam, LPARAM)
{
    edit.text.SetLimit(wParam != 0 && wParam < kNoLimit ? wParam : kNoLimit);
    return 0;
}

LRESULT OnGetLimitText(HWND, Edit& edit, WPARAM, LPARAM)
{
    return static_cast<LRESULT>(edit.text.Limit());
}

LRESULT OnCanUndo(HWND, Edit& edit, WPARAM, LPARAM)
{
    return edit.text.CanUndo();
}

LRESULT OnUndo(HWND window, Edit& edit, WPARAM, LPARAM)
{
    const bool always = !IsMultiLine(window);
    return (!IsReadOnly(window) && Undo(window, edit)) || always;
}

LRESULT OnEmptyUndo(HWND, Edit& edit, WPARAM, LPARAM)
{
    edit.text.ForgetUndo();
    return 0;
}

// Lines

LRESULT OnGetLineCount(HWND, Edit& edit, WPARAM, LPARAM)
{
    return static_cast<LRESULT>(edit.lines.size());
}

LRESULT OnLineIndex(HWND, Edit& edit, WPARAM wParam, LPARAM)
{
    const size_t line = static_cast<int>(wParam) == -1 ? CaretLine(edit) : wParam;
    return line < edit.lines.size() ? static_cast<LRESULT>(edit.lines[line].start) : -1;
}

LRESULT OnLineFromChar(HWND, Edit& edit, WPARAM wParam, LPARAM)
{
    const size_t position = static_cast<int>(wParam) == -1 ? edit.text.Start() : wParam;
    return static_cast<LRESULT>(LineOfPosition(edit.lines, position));
}

/// With -1: what is not selected of the lines that the selection touches.
LRESULT OnLineLength(HWND, Edit& edit, WPARAM wParam, LPARAM)
{
    if (static_cast<int>(wParam) != -1) {
        if (wParam > edit.text.Length())
            return 0;
        return static_cast<LRESULT>(edit.lines[LineOfPosition(edit.lines, wParam)].length);
    }
    const EditLine& first = edit.lines[LineOfPosition(edit.lines, edit.text.Start())];
    const EditLine& last = edit.lines[LineOfPosition(edit.lines, edit.text.End())];
    return static_cast<LRESULT>(edit.text.Start() - first.start + last.start + last.length - edit.text.End());
}

/// The buffer's first unit tells its size; no terminator is written unless there is room.
LRESULT OnGetLine(HWND, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (wParam >= edit.lines.size())
        return 0;
    const auto buffer = reinterpret_cast<LPWSTR>(lParam);
    const size_t size = static_cast<WORD>(buffer[0]);
    const EditLine& line = edit.lines[wParam];
    const size_t count = View(edit.text.Text()).substr(line.start, line.length).copy(buffer, size);
    if (count < size)
        buffer[count] = 0;
    return static_cast<LRESULT>(count);
}

LRESULT OnPosFromChar(HWND window, Edit& edit, WPARAM wParam, LPARAM)
{
    if (wParam >= edit.text.Length())
        return -1;
    const POINT point = PointOfPosition(window, edit, wParam);
    return MAKELONG(point.x, point.y);
}

LRESULT OnCharFromPos(HWND window, Edit& edit, WPARAM, LPARAM lParam)
{
    const POINT point = PointOf(lParam);
    const RECT client = ClientRectOf(window);
    if (!PtInRect(&client, point))
        return -1;
    const size_t position = PositionOfPoint(window, edit, point);
    return MAKELONG(position, LineOfPosition(edit.lines, position));
}

// Looks

LRESULT OnSetTabStops(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (!IsMultiLine(window))
        return FALSE;
    const auto* const stops = reinterpret_cast<const UINT*>(lParam);
    edit.tabStops.assign(stops, stops + (stops != nullptr ? wParam : 0));
    RefreshLines(window, edit);
    return TRUE;
}

LRESULT OnSetPasswordChar(HWND window, Edit& edit, WPARAM wParam, LPARAM)
{
    if (IsMultiLine(window))
        return 0;
    const DWORD style = StyleOf(window);
    edit.password = static_cast<WCHAR>(wParam);
    SetWindowLongPtrW(window, GWL_STYLE,
                      static_cast<LONG_PTR>(wParam != 0 ? style | ES_PASSWORD : style & ~ES_PASSWORD));
    RefreshLines(window, edit);
    return 0;
}

LRESULT OnGetPasswordChar(HWND, Edit& edit, WPARAM, LPARAM)
{
    return edit.password;
}

LRESULT OnSetReadOnly(HWND window, Edit&, WPARAM wParam, LPARAM)
{
    const DWORD style = StyleOf(window);
    SetWindowLongPtrW(window, GWL_STYLE,
                      static_cast<LONG_PTR>(wParam ? style | ES_READONLY : style & ~ES_READONLY));
    Repaint(window);
    return TRUE;
}

LRESULT OnSetMargins(HWND window, Edit& edit, WPARAM wParam, LPARAM lParam)
{
    const bool fromFont = wParam == EC_USEFONTINFO;
    if (fromFont || (wParam & EC_LEFTMARGIN))
        edit.leftMargin = fromFont || LOWORD(lParam) == EC_USEFONTINFO ? 0 : LOWORD(lParam);
    if (fromFont || (wParam & EC_RIGHTMARGIN))
        edit.rightMargin = fromFont || HIWORD(lParam) == EC_USEFONTINFO ? 0 : HIWORD(lParam);
    RefreshLines(window, edit);
    return 0;
}

LRESULT OnGetMargins(HWND, Edit& edit, WPARAM, LPARAM)
{
    return MAKELONG(edit.leftMargin, edit.rightMargin);
}

LRESULT OnGetRect(HWND window, Edit& edit, WPARAM, LPARAM lParam)
{
    *reinterpret_cast<RECT*>(lParam) = FormatRect(window, edit);
    return 0;
}

LRESULT OnSetRect(HWND window, Edit& edit, WPARAM, LPARAM lParam)
{
    if (!IsMultiLine(window))
        return 0;
    edit.setRect = lParam != 0 ? *reinterpret_cast<const RECT*>(lParam) : RECT{};
    RefreshLines(window, edit);
    return 0;
}

LRESULT OnSetFont(HWND window, Edit& edit, WPARAM wParam, LPARAM)
{
    edit.font = reinterpret_cast<HFONT>(wParam);
    RefreshFont(window, edit);
    return 0;
}

LRESULT OnGetFont(HWND, Edit& edit, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(edit.font);
}

LRESULT OnPaint(HWND window, Edit& edit, WPARAM wParam, LPARAM)
{
    const ControlPaint paint(window, wParam, edit.font);
    PaintEdit(window, edit, paint.Dc());
    return 0;
}

LRESULT OnEraseBackground(HWND, Edit&, WPARAM, LPARAM)
{
    return TRUE;
}

LRESULT OnEnable(HWND window, Edit&, WPARAM, LPARAM)
{
    Repaint(window);
    return 0;
}

LRESULT OnSize(HWND window, Edit& edit, WPARAM, LPARAM)
{
    edit.setRect = {};
    RefreshLines(window, edit);
    return 0;
}

LRESULT OnSetCursor(HWND window, Edit&, WPARAM wParam, LPARAM lParam)
{
    if (LOWORD(lParam) != HTCLIENT)
        return DefWindowProcW(window, WM_SETCURSOR, wParam, lParam);
    SetCursor(LoadCursorW(nullptr, IDC_IBEAM));
    return TRUE;
}

LRESULT OnGetDlgCode(HWND window, Edit&, WPARAM, LPARAM)
{
    return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS | (IsMultiLine(window) ? DLGC_WANTALLKEYS : 0);
}

LRESULT OnCreate(HWND window, Edit& edit, WPARAM, LPARAM lParam)
{
    const CREATESTRUCTW& create = *reinterpret_cast<const CREATESTRUCTW*>(lParam);
    EditText::Rules rules;
    rules.multiLine = (create.style & ES_MULTILINE) != 0;
    if (create.style & ES_UPPERCASE)
        rules.fold = UpperCase;
    else if (create.style & ES_LOWERCASE)
        rules.fold = LowerCase;
    edit.text = EditText(rules);
    if ((create.style & ES_PASSWORD) && !rules.multiLine)
        edit.password = kUsualPassword;
    if (create.lpszName != nullptr && !IS_INTRESOURCE(create.lpszName))
        edit.text.Set(create.lpszName);
    RefreshFont(window, edit);
    return 0;
}

constexpr MessageHandler<Edit> kHandlers[] = {
    {WM_CREATE, OnCreate},
    {WM_PAINT, OnPaint},
    {WM_PRINTCLIENT, OnPaint},
    {WM_ERASEBKGND, OnEraseBackground},
    {WM_SETTEXT, OnSetText},
    {WM_GETTEXT, OnGetText},
    {WM_GETTEXTLENGTH, OnGetTextLength},
    {WM_SETFONT, OnSetFont},
    {WM_GETFONT, OnGetFont},
    {WM_SIZE, OnSize},
    {WM_ENABLE, OnEnable},
    {WM_SETCURSOR, OnSetCursor},
    {WM_GETDLGCODE, OnGetDlgCode},
    {WM_SETFOCUS, OnSetFocus},
    {WM_KILLFOCUS, OnKillFocus},
    {WM_KEYDOWN, OnKeyDown},
    {WM_CHAR, OnChar},
    {WM_LBUTTONDOWN, OnMouseDown},
    {WM_LBUTTONDBLCLK, OnDoubleClick},
    {WM_MOUSEMOVE, OnMouseMove},
    {WM_LBUTTONUP, OnMouseUp},
    {WM_CAPTURECHANGED, OnCaptureChanged},
    {WM_MOUSEWHEEL, OnWheel},
    {WM_VSCROLL, OnVScroll},
    {WM_HSCROLL, OnHScroll},
    {WM_CUT, OnCut},
    {WM_COPY, OnCopy},
    {WM_PASTE, OnPaste},
    {WM_CLEAR, OnClear},
    {WM_UNDO, OnUndo},
    {EM_UNDO, OnUndo},
    {EM_CANUNDO, OnCanUndo},
    {EM_EMPTYUNDOBUFFER, OnEmptyUndo},
    {EM_GETSEL, OnGetSel},
    {EM_SETSEL, OnSetSel},
    {EM_REPLACESEL, OnReplaceSel},
    {EM_GETMODIFY, OnGetModify},
    {EM_SETMODIFY, OnSetModify},
    {EM_LIMITTEXT, OnLimitText},
    {EM_GETLIMITTEXT, OnGetLimitText},
    {EM_GETLINECOUNT, OnGetLineCount},
    {EM_LINEINDEX, OnLineIndex},
    {EM_LINEFROMCHAR, OnLineFromChar},
    {EM_LINELENGTH, OnLineLength},
    {EM_GETLINE, OnGetLine},
    {EM_POSFROMCHAR, OnPosFromChar},
    {EM_CHARFROMPOS, OnCharFromPos},
    {EM_SCROLL, OnScroll},
    {EM_LINESCROLL, OnLineScroll},
    {EM_SCROLLCARET, OnScrollCaret},
    {EM_GETFIRSTVISIBLELINE, OnGetFirstVisibleLine},
    {EM_SETTABSTOPS, OnSetTabStops},
    {EM_SETPASSWORDCHAR, OnSetPasswordChar},
    {EM_GETPASSWORDCHAR, OnGetPasswordChar},
    {EM_SETREADONLY, OnSetReadOnly},
    {EM_SETMARGINS, OnSetMargins},
    {EM_GETMARGINS, OnGetMargins},
    {EM_GETRECT, OnGetRect},
    {EM_SETRECT, OnSetRect},
    {EM_SETRECTNP, OnSetRect},
};

} // namespace

LRESULT CALLBACK EditProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunControl<Edit>(kHandlers, window, message, wParam, lParam);
}

} // namespace host
