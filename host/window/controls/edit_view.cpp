#include <algorithm>

#include "host/window/controls/control.h"
#include "host/window/controls/edit.h"

namespace host {
namespace {

constexpr int kInset = 2;                   // between the client area's edge and text
constexpr UINT kUsualTab = 32;              // dialog units
constexpr int kDialogUnitsPerCharacter = 4; // across
constexpr int kScrollStep = 4;              // a caret that leaves the view pulls in 1/4 of its width

using View = std::u16string_view;

View LineText(const Edit& edit, const EditLine& line)
{
    return View(edit.text.Text()).substr(line.start, line.length);
}

/// The next tab stop behind `x`; both in pixels from the line's start.
int NextTabStop(const Edit& edit, int x)
{
    const auto pixels = [&](UINT units) {
        return static_cast<int>(static_cast<int64_t>(units) * edit.averageWidth / kDialogUnitsPerCharacter);
    };
    if (edit.tabStops.size() > 1) {
        for (const UINT stop : edit.tabStops) {
            if (pixels(stop) > x)
                return pixels(stop);
        }
    }
    const int every = std::max(1, pixels(edit.tabStops.size() == 1 ? edit.tabStops[0] : kUsualTab));
    return (x / every + 1) * every;
}

int PlainWidth(HDC dc, const Edit& edit, View piece)
{
    if (piece.empty())
        return 0;
    SIZE size = {};
    const std::u16string shown =
        edit.password != 0 ? std::u16string(piece.size(), edit.password) : std::u16string(piece);
    GetTextExtentPoint32W(dc, shown.data(), static_cast<int>(shown.size()), &size);
    return size.cx;
}

/// The width of the start of a line.
int WidthOf(HDC dc, const Edit& edit, View start)
{
    int x = 0;
    for (size_t tab = start.find(u'\t'); tab != View::npos; tab = start.find(u'\t')) {
        x = NextTabStop(edit, x + PlainWidth(dc, edit, start.substr(0, tab)));
        start.remove_prefix(tab + 1);
    }
    return x + PlainWidth(dc, edit, start);
}

/// Where a line's text starts: by the alignment styles, moved by what is scrolled away.
int LineLeft(HDC dc, const Edit& edit, const EditLine& line)
{
    const RECT rect = FormatRect(edit);
    const DWORD alignment = StyleOf(edit.window) & (ES_CENTER | ES_RIGHT);
    int spare = 0;
    if (alignment != 0)
        spare =
            std::max(0, static_cast<int>(rect.right - rect.left) - WidthOf(dc, edit, LineText(edit, line)));
    return rect.left - edit.scrolledX + (alignment == ES_CENTER ? spare / 2 : spare);
}

/// Lines are wrapped unless the control scrolls sideways.
int WrapWidth(const Edit& edit)
{
    if (!IsMultiLine(edit.window) || (StyleOf(edit.window) & (ES_AUTOHSCROLL | WS_HSCROLL)))
        return 0;
    const RECT rect = FormatRect(edit);
    return std::max(1, static_cast<int>(rect.right - rect.left));
}

std::vector<EditLine> BreakText(const Edit& edit, View text)
{
    if (!IsMultiLine(edit.window))
        return {{0, text.size(), 0}};
    const ControlDc dc(edit.window, edit.font);
    return BreakLines(text, WrapWidth(edit), [&](View piece) { return WidthOf(dc, edit, piece); });
}

int WidestLine(const Edit& edit)
{
    const ControlDc dc(edit.window, edit.font);
    int widest = 0;
    for (const EditLine& line : edit.lines)
        widest = std::max(widest, WidthOf(dc, edit, LineText(edit, line)));
    return widest;
}

size_t LastFirstLine(const Edit& edit)
{
    const size_t visible = VisibleLines(edit);
    return edit.lines.size() > visible ? edit.lines.size() - visible : 0;
}

void ShowScrollBars(const Edit& edit)
{
    const DWORD style = StyleOf(edit.window);
    if (!IsMultiLine(edit.window))
        return;
    SCROLLINFO info = {sizeof(info), SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL, 0, 0, 0, 0, 0};
    if (style & WS_VSCROLL) {
        info.nMax = static_cast<int>(edit.lines.size()) - 1;
        info.nPage = static_cast<UINT>(VisibleLines(edit));
        info.nPos = static_cast<int>(edit.firstLine);
        SetScrollInfo(edit.window, SB_VERT, &info, TRUE);
    }
    if (style & WS_HSCROLL) {
        const RECT rect = FormatRect(edit);
        info.nMax = WidestLine(edit);
        info.nPage = static_cast<UINT>(std::max<LONG>(0, rect.right - rect.left));
        info.nPos = edit.scrolledX;
        SetScrollInfo(edit.window, SB_HORZ, &info, TRUE);
    }
}

/// The shown part of a piece of a line, in one colour.
void DrawPiece(HDC dc, const Edit& edit, View line, size_t from, size_t to, int left, int top, bool selected)
{
    const int x = left + WidthOf(dc, edit, line.substr(0, from));
    const RECT behind = {x, top, left + WidthOf(dc, edit, line.substr(0, to)), top + edit.lineHeight};
    if (selected)
        FillRect(dc, &behind, GetSysColorBrush(COLOR_HIGHLIGHT));
    for (size_t at = from; at < to;) {
        const size_t end = std::min(line.find(u'\t', at), to);
        const View run = line.substr(at, end - at);
        const std::u16string shown =
            edit.password != 0 ? std::u16string(run.size(), edit.password) : std::u16string(run);
        TextOutW(dc, left + WidthOf(dc, edit, line.substr(0, at)), top, shown.data(),
                 static_cast<int>(shown.size()));
        at = end + 1;
    }
}

void DrawLine(const Edit& edit, HDC dc, const EditLine& line, int top, bool showsSelection, COLORREF colour)
{
    const View text = LineText(edit, line);
    const int left = LineLeft(dc, edit, line);
    const auto inLine = [&](size_t position) {
        return std::clamp(position, line.start, line.start + line.length) - line.start;
    };
    const size_t from = showsSelection ? inLine(edit.text.Start()) : 0;
    const size_t to = showsSelection ? inLine(edit.text.End()) : 0;
    SetTextColor(dc, colour);
    DrawPiece(dc, edit, text, 0, from, left, top, false);
    DrawPiece(dc, edit, text, to, text.size(), left, top, false);
    SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    DrawPiece(dc, edit, text, from, to, left, top, true);
}

} // namespace

bool IsMultiLine(HWND window)
{
    return (StyleOf(window) & ES_MULTILINE) != 0;
}

bool IsReadOnly(HWND window)
{
    return (StyleOf(window) & ES_READONLY) != 0;
}

RECT FormatRect(const Edit& edit)
{
    if (!IsRectEmpty(&edit.setRect))
        return edit.setRect;
    RECT rect = ClientRectOf(edit.window);
    rect.left += kInset + edit.leftMargin;
    rect.right = std::max(rect.left, rect.right - kInset - edit.rightMargin);
    if (IsMultiLine(edit.window)) {
        rect.top += kInset;
    } else {
        rect.top += std::max(0, static_cast<int>(rect.bottom - rect.top) - edit.lineHeight) / 2;
        rect.bottom = rect.top + edit.lineHeight;
    }
    return rect;
}

size_t VisibleLines(const Edit& edit)
{
    const RECT rect = FormatRect(edit);
    return static_cast<size_t>(std::max(1, static_cast<int>(rect.bottom - rect.top) / edit.lineHeight));
}

int LinesOfPage(const Edit& edit)
{
    return static_cast<int>(std::max<size_t>(1, VisibleLines(edit) - 1));
}

size_t CaretLine(const Edit& edit)
{
    return LineOfPosition(edit.lines, edit.text.Caret());
}

void RefreshFont(Edit& edit)
{
    {
        const ControlDc dc(edit.window, edit.font);
        TEXTMETRICW metrics = {};
        GetTextMetricsW(dc, &metrics);
        edit.lineHeight = std::max<int>(1, metrics.tmHeight);
        edit.averageWidth = std::max<int>(1, metrics.tmAveCharWidth);
    }
    RefreshLines(edit);
}

void RefreshLines(Edit& edit)
{
    edit.lines = BreakText(edit, edit.text.Text());
    edit.firstLine = std::min(edit.firstLine, LastFirstLine(edit));
    ShowScrollBars(edit);
    PlaceCaret(edit);
    Repaint(edit.window);
}

bool FitsWithoutScrolling(const Edit& edit, const EditText& text)
{
    const DWORD style = StyleOf(edit.window);
    if (IsMultiLine(edit.window)) {
        const bool scrolls = (style & (ES_AUTOVSCROLL | WS_VSCROLL)) != 0;
        return scrolls || BreakText(edit, text.Text()).size() <= VisibleLines(edit);
    }
    const RECT rect = FormatRect(edit);
    return (style & ES_AUTOHSCROLL) ||
           WidthOf(ControlDc(edit.window, edit.font), edit, text.Text()) <= rect.right - rect.left;
}

POINT PointOfPosition(const Edit& edit, size_t position)
{
    const ControlDc dc(edit.window, edit.font);
    const size_t index = LineOfPosition(edit.lines, position);
    const EditLine& line = edit.lines[index];
    const RECT rect = FormatRect(edit);
    const int down = (static_cast<int>(index) - static_cast<int>(edit.firstLine)) * edit.lineHeight;
    const View before = LineText(edit, line).substr(0, position - line.start);
    return {LineLeft(dc, edit, line) + WidthOf(dc, edit, before), rect.top + down};
}

size_t PositionOnLine(const Edit& edit, size_t lineIndex, int x)
{
    const ControlDc dc(edit.window, edit.font);
    const EditLine& line = edit.lines[std::min(lineIndex, edit.lines.size() - 1)];
    const View text = LineText(edit, line);
    const int target = x - LineLeft(dc, edit, line);
    size_t before = 0; // the last place left of the target
    size_t after = text.size() + 1;
    while (before + 1 < after) {
        const size_t middle = before + (after - before) / 2;
        (WidthOf(dc, edit, text.substr(0, middle)) <= target ? before : after) = middle;
    }
    const size_t here = line.start + before;
    const size_t next = std::min(edit.text.Next(here), line.start + line.length);
    const int left = WidthOf(dc, edit, text.substr(0, before));
    const int right = WidthOf(dc, edit, text.substr(0, next - line.start));
    return target - left > right - target && target > left ? next : here;
}

size_t PositionOfPoint(const Edit& edit, POINT point)
{
    const RECT rect = FormatRect(edit);
    const int offset = point.y - rect.top;
    const int down = offset >= 0 ? offset / edit.lineHeight : -1;
    const int line =
        std::clamp(static_cast<int>(edit.firstLine) + down, 0, static_cast<int>(edit.lines.size()) - 1);
    return PositionOnLine(edit, static_cast<size_t>(line), point.x);
}

bool ScrollEdit(Edit& edit, size_t firstLine, int scrolledX)
{
    firstLine = std::min(firstLine, LastFirstLine(edit));
    scrolledX = std::max(0, scrolledX);
    if (firstLine == edit.firstLine && scrolledX == edit.scrolledX)
        return false;
    edit.firstLine = firstLine;
    edit.scrolledX = scrolledX;
    ShowScrollBars(edit);
    PlaceCaret(edit);
    Repaint(edit.window);
    return true;
}

void ScrollToCaret(Edit& edit)
{
    const size_t line = CaretLine(edit);
    const size_t visible = VisibleLines(edit);
    size_t first = std::min(edit.firstLine, line);
    if (line >= first + visible)
        first = line - visible + 1;
    int scrolled = edit.scrolledX;
    if (WrapWidth(edit) == 0) {
        const RECT rect = FormatRect(edit);
        const int x = PointOfPosition(edit, edit.text.Caret()).x;
        const int pulled = (rect.right - rect.left) / kScrollStep;
        if (x < rect.left)
            scrolled -= rect.left - x + pulled;
        else if (x >= rect.right)
            scrolled += x - rect.right + 1 + (IsMultiLine(edit.window) ? pulled : 0);
    }
    ScrollEdit(edit, first, scrolled);
}

void PlaceCaret(const Edit& edit)
{
    if (GetFocus() != edit.window)
        return;
    const POINT place = PointOfPosition(edit, edit.text.Caret());
    SetCaretPos(place.x, place.y);
}

void PaintEdit(const Edit& edit, HDC dc)
{
    const theme::Look look = LookOf(edit.window);
    const bool inert = !look.enabled || IsReadOnly(edit.window);
    const HBRUSH behind = AskParentForColours(edit.window, dc, inert ? WM_CTLCOLORSTATIC : WM_CTLCOLOREDIT);
    const RECT client = ClientRectOf(edit.window);
    FillRect(dc, &client, behind);
    const bool showsSelection =
        edit.text.HasSelection() && (look.focused || (StyleOf(edit.window) & ES_NOHIDESEL));
    const COLORREF colour = theme::TextColourOf(dc, look);
    const RECT rect = FormatRect(edit);
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, rect.left, rect.top, rect.right + 1,
                      IsMultiLine(edit.window) ? client.bottom : rect.bottom);
    SetBkMode(dc, TRANSPARENT);
    int top = rect.top;
    for (size_t i = edit.firstLine; i < edit.lines.size() && top < client.bottom; ++i) {
        DrawLine(edit, dc, edit.lines[i], top, showsSelection, colour);
        top += edit.lineHeight;
    }
    RestoreDC(dc, saved);
}

} // namespace host
