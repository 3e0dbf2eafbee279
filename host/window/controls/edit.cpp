#include "host/window/controls/edit.h"

#include <algorithm>

#include "host/kernel/world.h"
#include "host/window/controls/control.h"

namespace host {
namespace {

constexpr WCHAR kUsualPassword = u'*';
constexpr int kCaretWidth = 1;
constexpr int kWheelLines = 3; // a notch of the mouse wheel
constexpr size_t kNoLimit = 0x7FFFFFFE;

using View = std::u16string_view;

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

LRESULT OnSetFocus(Edit& edit, WPARAM, LPARAM)
{
    CreateCaret(edit.window, nullptr, kCaretWidth, edit.lineHeight);
    PlaceCaret(edit);
    ShowCaret(edit.window);
    RepaintField(edit.window);
    NotifyParent(edit.window, EN_SETFOCUS);
    return 0;
}

LRESULT OnKillFocus(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    EditMouseUp(edit, wParam, lParam);
    DestroyCaret();
    RepaintField(edit.window);
    NotifyParent(edit.window, EN_KILLFOCUS);
    return 0;
}

// Scrolling

/// Lines down (up when negative) that a SB_ code asks for.
int LinesOfCode(const Edit& edit, WORD code)
{
    switch (code) {
    case SB_LINEUP:
        return -1;
    case SB_LINEDOWN:
        return 1;
    case SB_PAGEUP:
        return -LinesOfPage(edit);
    case SB_PAGEDOWN:
        return LinesOfPage(edit);
    }
    return 0;
}

/// Returns the lines that the view really moved by.
int ScrollLines(Edit& edit, int64_t lines)
{
    const size_t before = edit.firstLine;
    const int64_t first = std::max<int64_t>(0, static_cast<int64_t>(before) + lines);
    ScrollEdit(edit, static_cast<size_t>(first), edit.scrolledX);
    return static_cast<int>(edit.firstLine) - static_cast<int>(before);
}

int TrackPosition(HWND window, int bar)
{
    SCROLLINFO info = {sizeof(info), SIF_TRACKPOS, 0, 0, 0, 0, 0};
    GetScrollInfo(window, bar, &info);
    return info.nTrackPos;
}

LRESULT OnVScroll(Edit& edit, WPARAM wParam, LPARAM)
{
    const WORD code = LOWORD(wParam);
    const bool tracking = code == SB_THUMBTRACK || code == SB_THUMBPOSITION;
    const int before = static_cast<int>(edit.firstLine);
    const int lines = tracking            ? TrackPosition(edit.window, SB_VERT) - before
                      : code == SB_TOP    ? -before
                      : code == SB_BOTTOM ? static_cast<int>(edit.lines.size())
                                          : LinesOfCode(edit, code);
    if (ScrollLines(edit, lines) != 0 && !tracking)
        NotifyParent(edit.window, EN_VSCROLL);
    return 0;
}

LRESULT OnHScroll(Edit& edit, WPARAM wParam, LPARAM)
{
    const WORD code = LOWORD(wParam);
    const RECT rect = FormatRect(edit);
    const bool tracking = code == SB_THUMBTRACK || code == SB_THUMBPOSITION;
    const bool paging = code == SB_PAGEUP || code == SB_PAGEDOWN;
    const int step = paging ? rect.right - rect.left : edit.averageWidth;
    const int direction =
        code == SB_LINEUP || code == SB_PAGEUP ? -1 : code == SB_LINEDOWN || code == SB_PAGEDOWN;
    int target = tracking ? TrackPosition(edit.window, SB_HORZ) : edit.scrolledX + direction * step;
    if (HasStyle(edit.window, WS_HSCROLL)) {
        SCROLLINFO info = {sizeof(info), SIF_RANGE | SIF_PAGE, 0, 0, 0, 0, 0};
        GetScrollInfo(edit.window, SB_HORZ, &info);
        target = std::min(target, std::max(0, info.nMax - static_cast<int>(info.nPage) + 1));
    }
    if (ScrollEdit(edit, edit.firstLine, target) && !tracking)
        NotifyParent(edit.window, EN_HSCROLL);
    return 0;
}

LRESULT OnWheel(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (!IsMultiLine(edit.window))
        return DefWindowProcW(edit.window, WM_MOUSEWHEEL, wParam, lParam);
    const int notches = static_cast<SHORT>(HIWORD(wParam)) / WHEEL_DELTA;
    if (ScrollLines(edit, -notches * kWheelLines) != 0)
        NotifyParent(edit.window, EN_VSCROLL);
    return 0;
}

LRESULT OnScroll(Edit& edit, WPARAM wParam, LPARAM)
{
    if (!IsMultiLine(edit.window) || wParam > SB_PAGEDOWN)
        return FALSE;
    const int moved = ScrollLines(edit, LinesOfCode(edit, LOWORD(wParam)));
    if (moved != 0)
        NotifyParent(edit.window, EN_VSCROLL);
    return MAKELONG(moved, TRUE);
}

LRESULT OnLineScroll(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (!IsMultiLine(edit.window))
        return FALSE;
    ScrollLines(edit, static_cast<int>(lParam));
    ScrollEdit(edit, edit.firstLine, edit.scrolledX + static_cast<int>(wParam) * edit.averageWidth);
    return TRUE;
}

LRESULT OnScrollCaret(Edit& edit, WPARAM, LPARAM)
{
    ScrollToCaret(edit);
    return TRUE;
}

LRESULT OnGetFirstVisibleLine(Edit& edit, WPARAM, LPARAM)
{
    if (IsMultiLine(edit.window))
        return static_cast<LRESULT>(edit.firstLine);
    return static_cast<LRESULT>(PositionOnLine(edit, 0, FormatRect(edit).left));
}

// Text and selection by message

LRESULT OnSetText(Edit& edit, WPARAM, LPARAM lParam)
{
    const auto text = reinterpret_cast<LPCWSTR>(lParam);
    edit.text.Set(text != nullptr ? View(text) : View());
    edit.firstLine = 0;
    edit.scrolledX = 0;
    ShowEditChange(edit);
    if (!IsMultiLine(edit.window))
        TellEditChange(edit);
    return TRUE;
}

LRESULT OnGetText(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (wParam == 0)
        return 0;
    const auto buffer = reinterpret_cast<LPWSTR>(lParam);
    const size_t count = edit.text.Text().copy(buffer, wParam - 1);
    buffer[count] = 0;
    return static_cast<LRESULT>(count);
}

LRESULT OnGetTextLength(Edit& edit, WPARAM, LPARAM)
{
    return static_cast<LRESULT>(edit.text.Length());
}

LRESULT OnGetSel(Edit& edit, WPARAM wParam, LPARAM lParam)
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
LRESULT OnSetSel(Edit& edit, WPARAM wParam, LPARAM lParam)
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
    if (!IsMultiLine(edit.window))
        ScrollToCaret(edit);
    PlaceCaret(edit);
    Repaint(edit.window);
    return TRUE;
}

LRESULT OnReplaceSel(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    const auto text = reinterpret_cast<LPCWSTR>(lParam);
    InsertIntoEdit(edit, text != nullptr ? View(text) : View(), wParam != FALSE);
    return TRUE;
}

LRESULT OnGetModify(Edit& edit, WPARAM, LPARAM)
{
    return edit.text.modified;
}

LRESULT OnSetModify(Edit& edit, WPARAM wParam, LPARAM)
{
    edit.text.modified = wParam != FALSE;
    return 0;
}

LRESULT OnLimitText(Edit& edit, WPARAM wParam, LPARAM)
{
    edit.text.SetLimit(wParam != 0 && wParam < kNoLimit ? wParam : kNoLimit);
    return 0;
}

LRESULT OnGetLimitText(Edit& edit, WPARAM, LPARAM)
{
    return static_cast<LRESULT>(edit.text.Limit());
}

LRESULT OnCanUndo(Edit& edit, WPARAM, LPARAM)
{
    return edit.text.CanUndo();
}

LRESULT OnUndo(Edit& edit, WPARAM, LPARAM)
{
    const bool always = !IsMultiLine(edit.window);
    return (!IsReadOnly(edit.window) && UndoEdit(edit)) || always;
}

LRESULT OnEmptyUndo(Edit& edit, WPARAM, LPARAM)
{
    edit.text.ForgetUndo();
    return 0;
}

// Lines

LRESULT OnGetLineCount(Edit& edit, WPARAM, LPARAM)
{
    return static_cast<LRESULT>(edit.lines.size());
}

LRESULT OnLineIndex(Edit& edit, WPARAM wParam, LPARAM)
{
    const size_t line = static_cast<int>(wParam) == -1 ? CaretLine(edit) : wParam;
    return line < edit.lines.size() ? static_cast<LRESULT>(edit.lines[line].start) : -1;
}

LRESULT OnLineFromChar(Edit& edit, WPARAM wParam, LPARAM)
{
    const size_t position = static_cast<int>(wParam) == -1 ? edit.text.Start() : wParam;
    return static_cast<LRESULT>(LineOfPosition(edit.lines, position));
}

/// With -1: what is not selected of the lines that the selection touches.
LRESULT OnLineLength(Edit& edit, WPARAM wParam, LPARAM)
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
LRESULT OnGetLine(Edit& edit, WPARAM wParam, LPARAM lParam)
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

LRESULT OnPosFromChar(Edit& edit, WPARAM wParam, LPARAM)
{
    if (wParam >= edit.text.Length())
        return -1;
    const POINT point = PointOfPosition(edit, wParam);
    return MAKELONG(point.x, point.y);
}

LRESULT OnCharFromPos(Edit& edit, WPARAM, LPARAM lParam)
{
    const POINT point = PointOf(lParam);
    const RECT client = ClientRectOf(edit.window);
    if (!PtInRect(&client, point))
        return -1;
    const size_t position = PositionOfPoint(edit, point);
    return MAKELONG(position, LineOfPosition(edit.lines, position));
}

// Looks

LRESULT OnSetTabStops(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (!IsMultiLine(edit.window))
        return FALSE;
    const auto* const stops = reinterpret_cast<const UINT*>(lParam);
    edit.tabStops.assign(stops, stops + (stops != nullptr ? wParam : 0));
    RefreshLines(edit);
    return TRUE;
}

LRESULT OnSetPasswordChar(Edit& edit, WPARAM wParam, LPARAM)
{
    if (IsMultiLine(edit.window))
        return 0;
    const DWORD style = StyleOf(edit.window);
    edit.password = static_cast<WCHAR>(wParam);
    SetWindowLongPtrW(edit.window, GWL_STYLE,
                      static_cast<LONG_PTR>(wParam != 0 ? style | ES_PASSWORD : style & ~ES_PASSWORD));
    RefreshLines(edit);
    return 0;
}

LRESULT OnGetPasswordChar(Edit& edit, WPARAM, LPARAM)
{
    return edit.password;
}

LRESULT OnSetReadOnly(Edit& edit, WPARAM wParam, LPARAM)
{
    const DWORD style = StyleOf(edit.window);
    SetWindowLongPtrW(edit.window, GWL_STYLE,
                      static_cast<LONG_PTR>(wParam ? style | ES_READONLY : style & ~ES_READONLY));
    Repaint(edit.window);
    return TRUE;
}

LRESULT OnSetMargins(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    const bool fromFont = wParam == EC_USEFONTINFO;
    if (fromFont || (wParam & EC_LEFTMARGIN))
        edit.leftMargin = fromFont || LOWORD(lParam) == EC_USEFONTINFO ? 0 : LOWORD(lParam);
    if (fromFont || (wParam & EC_RIGHTMARGIN))
        edit.rightMargin = fromFont || HIWORD(lParam) == EC_USEFONTINFO ? 0 : HIWORD(lParam);
    RefreshLines(edit);
    return 0;
}

LRESULT OnGetMargins(Edit& edit, WPARAM, LPARAM)
{
    return MAKELONG(edit.leftMargin, edit.rightMargin);
}

LRESULT OnGetRect(Edit& edit, WPARAM, LPARAM lParam)
{
    *reinterpret_cast<RECT*>(lParam) = FormatRect(edit);
    return 0;
}

LRESULT OnSetRect(Edit& edit, WPARAM, LPARAM lParam)
{
    if (!IsMultiLine(edit.window))
        return 0;
    edit.setRect = lParam != 0 ? *reinterpret_cast<const RECT*>(lParam) : RECT{};
    RefreshLines(edit);
    return 0;
}

LRESULT OnSetFont(Edit& edit, WPARAM wParam, LPARAM)
{
    edit.font = reinterpret_cast<HFONT>(wParam);
    RefreshFont(edit);
    return 0;
}

LRESULT OnGetFont(Edit& edit, WPARAM, LPARAM)
{
    return reinterpret_cast<LRESULT>(edit.font);
}

LRESULT OnPaint(Edit& edit, WPARAM wParam, LPARAM)
{
    const ControlPaint paint(edit.window, wParam, edit.font);
    PaintEdit(edit, paint.Dc());
    return 0;
}

LRESULT OnPaintFrame(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    return PaintFieldFrame(edit.window, wParam, lParam);
}

LRESULT OnEraseBackground(Edit&, WPARAM, LPARAM)
{
    return TRUE;
}

LRESULT OnEnable(Edit& edit, WPARAM, LPARAM)
{
    RepaintField(edit.window);
    return 0;
}

LRESULT OnSize(Edit& edit, WPARAM, LPARAM)
{
    edit.setRect = {};
    RefreshLines(edit);
    return 0;
}

LRESULT OnSetCursor(Edit& edit, WPARAM wParam, LPARAM lParam)
{
    if (LOWORD(lParam) != HTCLIENT)
        return DefWindowProcW(edit.window, WM_SETCURSOR, wParam, lParam);
    SetCursor(LoadCursorW(nullptr, IDC_IBEAM));
    return TRUE;
}

LRESULT OnGetDlgCode(Edit& edit, WPARAM, LPARAM)
{
    return DLGC_HASSETSEL | DLGC_WANTCHARS | DLGC_WANTARROWS |
           (IsMultiLine(edit.window) ? DLGC_WANTALLKEYS : 0);
}

LRESULT OnCreate(Edit& edit, WPARAM, LPARAM lParam)
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
    RefreshFont(edit);
    return 0;
}

constexpr MessageRow<Edit> kMessages[] = {
    {WM_CREATE, OnCreate},
    {WM_SIZE, OnSize},
    {WM_SETFOCUS, OnSetFocus},
    {WM_KILLFOCUS, OnKillFocus},
    {WM_ENABLE, OnEnable},
    {WM_SETTEXT, OnSetText},
    {WM_GETTEXT, OnGetText},
    {WM_GETTEXTLENGTH, OnGetTextLength},
    {WM_PAINT, OnPaint},
    {WM_ERASEBKGND, OnEraseBackground},
    {WM_SETCURSOR, OnSetCursor},
    {WM_SETFONT, OnSetFont},
    {WM_GETFONT, OnGetFont},
    {WM_NCPAINT, OnPaintFrame},
    {WM_GETDLGCODE, OnGetDlgCode},
    {EM_GETSEL, OnGetSel},
    {EM_SETSEL, OnSetSel},
    {EM_GETRECT, OnGetRect},
    {EM_SETRECT, OnSetRect},
    {EM_SETRECTNP, OnSetRect},
    {EM_SCROLL, OnScroll},
    {EM_LINESCROLL, OnLineScroll},
    {EM_SCROLLCARET, OnScrollCaret},
    {EM_GETMODIFY, OnGetModify},
    {EM_SETMODIFY, OnSetModify},
    {EM_GETLINECOUNT, OnGetLineCount},
    {EM_LINEINDEX, OnLineIndex},
    {EM_LINELENGTH, OnLineLength},
    {EM_REPLACESEL, OnReplaceSel},
    {EM_GETLINE, OnGetLine},
    {EM_LIMITTEXT, OnLimitText},
    {EM_CANUNDO, OnCanUndo},
    {EM_UNDO, OnUndo},
    {EM_LINEFROMCHAR, OnLineFromChar},
    {EM_SETTABSTOPS, OnSetTabStops},
    {EM_SETPASSWORDCHAR, OnSetPasswordChar},
    {EM_EMPTYUNDOBUFFER, OnEmptyUndo},
    {EM_GETFIRSTVISIBLELINE, OnGetFirstVisibleLine},
    {EM_SETREADONLY, OnSetReadOnly},
    {EM_GETPASSWORDCHAR, OnGetPasswordChar},
    {EM_SETMARGINS, OnSetMargins},
    {EM_GETMARGINS, OnGetMargins},
    {EM_GETLIMITTEXT, OnGetLimitText},
    {EM_POSFROMCHAR, OnPosFromChar},
    {EM_CHARFROMPOS, OnCharFromPos},
    {WM_KEYDOWN, EditKeyDown},
    {WM_CHAR, EditChar},
    {WM_HSCROLL, OnHScroll},
    {WM_VSCROLL, OnVScroll},
    {WM_MOUSEMOVE, EditMouseMove},
    {WM_LBUTTONDOWN, EditMouseDown},
    {WM_LBUTTONUP, EditMouseUp},
    {WM_LBUTTONDBLCLK, EditDoubleClick},
    {WM_MOUSEWHEEL, OnWheel},
    {WM_CAPTURECHANGED, EditCaptureChanged},
    {WM_CUT, EditCut},
    {WM_COPY, EditCopy},
    {WM_PASTE, EditPaste},
    {WM_CLEAR, EditClear},
    {WM_UNDO, OnUndo},
    {WM_PRINTCLIENT, OnPaint},
};
static_assert(InOrder<Edit>(kMessages));

} // namespace

LRESULT CALLBACK EditProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return RunRows<Edit>(kMessages, window, message, wParam, lParam);
}

} // namespace host
