#pragma once
// The edit control: what it remembers, and how it shows itself.
#include <string_view>
#include <vector>

#include <windows.h>

#include "host/window/controls/control.h"
#include "host/window/controls/edit_lines.h"
#include "host/window/controls/edit_text.h"

namespace host {

struct Edit : ControlState
{
    EditText text{EditText::Rules{}};
    std::vector<EditLine> lines = {{0, 0, 0}};
    std::vector<UINT>
        tabStops; // dialog units from a line's start; none: the usual ones; one: all its multiples
    HFONT font = nullptr;
    int lineHeight = 1;   // pixels
    int averageWidth = 1; // pixels of an average character, four dialog units
    WCHAR password = 0;   // shown in place of every character
    int leftMargin = 0;
    int rightMargin = 0;
    RECT setRect = {};    // by EM_SETRECT; empty: the client area
    size_t firstLine = 0; // the one at the top
    int scrolledX = 0;    // pixels hidden at the left
    int wishedX = -1;     // where Up and Down want to stay; negative: where the caret is
    bool selecting = false;
};

bool IsMultiLine(HWND window);
bool IsReadOnly(HWND window);
bool IsDigit(WCHAR unit);

/// Where text stands, in client coordinates.
RECT FormatRect(const Edit& edit);
/// Whole lines that the control shows at once, and those that Page Up and Page Down move by; at least 1.
size_t VisibleLines(const Edit& edit);
int LinesOfPage(const Edit& edit);
size_t CaretLine(const Edit& edit);

/// Call after a change of the font, of the text or the format rectangle. The view stays as far as it can.
void RefreshFont(Edit& edit);
void RefreshLines(Edit& edit);

/// Whether a text would stay within the control in the direction in which it may not scroll.
bool FitsWithoutScrolling(const Edit& edit, const EditText& text);

/// Client coordinates of the top-left corner of the unit at a position, and the position nearest to a point.
POINT PointOfPosition(const Edit& edit, size_t position);
size_t PositionOfPoint(const Edit& edit, POINT point);
/// The position at `x` on a line.
size_t PositionOnLine(const Edit& edit, size_t line, int x);

/// Scrolls as far as there is text. Returns whether the view moved.
bool ScrollEdit(Edit& edit, size_t firstLine, int scrolledX);
void ScrollToCaret(Edit& edit);
/// Moves the system's caret while the control has the focus.
void PlaceCaret(const Edit& edit);

void PaintEdit(const Edit& edit, HDC dc);

/// Makes a change of the text or the selection visible.
void ShowEditChange(Edit& edit);
/// Tells the parent of a changed text. The control may be gone afterwards, as after each of the three that
/// follow.
void TellEditChange(const Edit& edit);
/// Puts as much of `added` in place of the selection as the limit and the room allow.
void InsertIntoEdit(Edit& edit, std::u16string_view added, bool undoable = true);
/// Erases the selection, or what lies between the caret and `to`.
void EraseFromEdit(Edit& edit, size_t to);
bool UndoEdit(Edit& edit);

/// The messages of the same names.
LRESULT EditCopy(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditClear(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditCut(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditPaste(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditKeyDown(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditChar(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditMouseDown(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditMouseMove(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditMouseUp(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditDoubleClick(Edit& edit, WPARAM wParam, LPARAM lParam);
LRESULT EditCaptureChanged(Edit& edit, WPARAM wParam, LPARAM lParam);

LRESULT CALLBACK EditProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace host
