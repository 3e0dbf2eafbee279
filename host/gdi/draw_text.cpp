// Text laid out in a rectangle. The text is cut into lines first (mnemonics taken out, tabs measured, words
// wrapped, ends shortened); then every line is placed and drawn.
#include <algorithm>
#include <optional>
#include <string>

#include "host/gdi/paint.h"
#include "host/gdi/text.h"
#include "host/kernel/call.h"

namespace host {
namespace {

constexpr size_t kNone = std::u16string::npos;
constexpr int kDefaultTabLength = 8; // average characters
constexpr std::u16string_view kEllipsis = u"...";

struct Line
{
    std::u16string text;
    size_t mnemonic = kNone; // the character that is underlined
    int width = 0;
};

struct Layout
{
    SizedFont& font;
    UINT format;
    int tabWidth; // pixels
    int maxWidth; // pixels
    std::vector<Line> lines;
    bool shortened = false;

    bool Has(UINT flag) const { return (format & flag) != 0; }
};

/// The width of a tab that starts `along` pixels into its line.
int TabAdvance(const Layout& layout, int along)
{
    return layout.tabWidth - along % layout.tabWidth;
}

/// Width of a line, with one width for every unit where they are wanted.
int MeasureLine(const Layout& layout, std::u16string_view text, std::vector<int>* advances = nullptr)
{
    if (!layout.Has(DT_EXPANDTABS) || text.find(u'\t') == kNone)
        return MeasureText(layout.font, text, advances);
    std::vector<int> widths;
    MeasureText(layout.font, text, &widths);
    int along = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'\t')
            widths[i] = TabAdvance(layout, along);
        along += widths[i];
    }
    if (advances != nullptr)
        *advances = std::move(widths);
    return along;
}

bool IsLineBreak(char16_t unit)
{
    return unit == u'\r' || unit == u'\n';
}

/// Takes one paragraph off the front of `text`, with its mnemonic marks resolved.
Line TakeParagraph(const Layout& layout, std::u16string_view& text)
{
    Line line;
    const bool single = layout.Has(DT_SINGLELINE);
    while (!text.empty() && (single || !IsLineBreak(text.front()))) {
        char16_t unit = text.front();
        text.remove_prefix(1);
        if (unit == u'&' && !layout.Has(DT_NOPREFIX)) {
            if (text.empty())
                break;
            unit = text.front();
            text.remove_prefix(1);
            if (unit != u'&')
                line.mnemonic = line.text.size();
        }
        line.text.push_back(unit);
    }
    const bool pair = text.size() > 1 && text[0] == u'\r' && text[1] == u'\n';
    text.remove_prefix(pair ? 2 : std::min<size_t>(text.size(), 1));
    return line;
}

/// Characters between which lines may break without a blank: kana, ideographs and full-width forms.
bool IsWide(char16_t unit)
{
    return (unit >= 0x2E80 && unit < 0xD800) || (unit >= 0xF900 && unit < 0xFFE0);
}

/// Whether a line may not start with it.
bool ClosesPhrase(char16_t unit)
{
    constexpr std::u16string_view kClosing =
        u"、。，．・：；？！）」』】〕〉》］｝ー々ぁぃぅぇぉっゃゅょァィゥェォッャュョ";
    return kClosing.find(unit) != kNone;
}

bool OpensPhrase(char16_t unit)
{
    return std::u16string_view(u"（「『【〔〈《［｛").find(unit) != kNone;
}

bool MayBreakBefore(const Layout& layout, std::u16string_view text, size_t index)
{
    if (text[index] == u' ' || text[index - 1] == u' ' || text[index - 1] == u'\t')
        return text[index] != u' ';
    if (layout.Has(DT_NOFULLWIDTHCHARBREAK))
        return false;
    const bool wide = IsWide(text[index - 1]) || IsWide(text[index]);
    return wide && !ClosesPhrase(text[index]) && !OpensPhrase(text[index - 1]);
}

/// Length of the longest part from the front that may stand on a line of its own; blanks that end a line take
/// no room.
size_t FittingLength(const Layout& layout, std::u16string_view text)
{
    std::vector<int> advances;
    MeasureLine(layout, text, &advances);
    size_t lastBreak = 0;
    int width = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (i != 0 && MayBreakBefore(layout, text, i))
            lastBreak = i;
        width += advances[i];
        if (width <= layout.maxWidth || text[i] == u' ')
            continue;
        if (lastBreak != 0)
            return lastBreak;
        if (layout.Has(DT_EDITCONTROL))
            return std::max<size_t>(i, 1);
    }
    return text.size();
}

void AddLine(Layout& layout, Line line)
{
    line.width = MeasureLine(layout, line.text);
    layout.lines.push_back(std::move(line));
}

void WrapParagraph(Layout& layout, Line paragraph)
{
    if (!layout.Has(DT_WORDBREAK) || layout.Has(DT_SINGLELINE))
        return AddLine(layout, std::move(paragraph));
    std::u16string_view rest = paragraph.text;
    size_t start = 0;
    do {
        const size_t length = FittingLength(layout, rest);
        const bool last = length == rest.size();
        Line line;
        line.text = rest.substr(0, length);
        if (!last)
            line.text.erase(line.text.find_last_not_of(u' ') + 1);
        if (paragraph.mnemonic != kNone && paragraph.mnemonic >= start && paragraph.mnemonic < start + length)
            line.mnemonic = paragraph.mnemonic - start;
        AddLine(layout, std::move(line));
        rest.remove_prefix(length);
        start += length;
    } while (!rest.empty());
}

/// Shortens a line from its end until it fits with an ellipsis behind it.
void ShortenEnd(Layout& layout, Line& line)
{
    const int room = layout.maxWidth - MeasureText(layout.font, kEllipsis);
    // At least one character stays, so that there is something to see.
    while (line.text.size() > 1 && MeasureLine(layout, line.text) > room)
        line.text.pop_back();
    line.text += kEllipsis;
}

/// Takes characters before the last backslash away.
void ShortenPath(Layout& layout, Line& line)
{
    const size_t slash = std::min(line.text.rfind(u'\\'), line.text.size());
    const std::u16string tail = std::u16string(kEllipsis).append(line.text, slash, kNone);
    std::u16string head = line.text.substr(0, slash);
    const int room = layout.maxWidth - MeasureLine(layout, tail);
    while (!head.empty() && MeasureLine(layout, head) > room)
        head.pop_back();
    line.text = head + tail;
}

void ShortenLine(Layout& layout, Line& line, bool last)
{
    if (line.width <= layout.maxWidth)
        return;
    if (layout.Has(DT_PATH_ELLIPSIS))
        ShortenPath(layout, line);
    else if (layout.Has(DT_WORD_ELLIPSIS) || (last && layout.Has(DT_END_ELLIPSIS)))
        ShortenEnd(layout, line);
    else
        return;
    layout.shortened = true;
    if (line.mnemonic >= line.text.size())
        line.mnemonic = kNone;
    line.width = MeasureLine(layout, line.text);
}

void LayOut(Layout& layout, std::u16string_view text)
{
    do {
        WrapParagraph(layout, TakeParagraph(layout, text));
    } while (!text.empty());
    for (Line& line : layout.lines)
        ShortenLine(layout, line, &line == &layout.lines.back());
}

int LineHeight(const Layout& layout)
{
    const FontMetrics& metrics = layout.font.Metrics();
    return metrics.Height() + (layout.Has(DT_EXTERNALLEADING) ? metrics.externalLeading : 0);
}

int LayoutHeight(const Layout& layout)
{
    return LineHeight(layout) * static_cast<int>(layout.lines.size());
}

/// How far below the rectangle's top the first line starts. Only single lines are moved down.
int FirstLineOffset(const Layout& layout, const RECT& rect)
{
    const int spare = rect.bottom - rect.top - LayoutHeight(layout);
    if (!layout.Has(DT_SINGLELINE) || layout.Has(DT_CALCRECT))
        return 0;
    if (layout.Has(DT_VCENTER))
        return spare / 2;
    return layout.Has(DT_BOTTOM) ? spare : 0;
}

void DrawMnemonic(DeviceContext& dc, const Layout& layout, const Line& line, const std::vector<int>& advances,
                  POINT baseline, const RECT& clip)
{
    if (line.mnemonic == kNone || layout.Has(DT_HIDEPREFIX))
        return;
    LONG left = baseline.x;
    for (size_t i = 0; i < line.mnemonic; ++i)
        left += advances[i];
    const RECT rule = {left, baseline.y + 1, left + advances[line.mnemonic], baseline.y + 2};
    Painter(dc, SolidInk(dc.PixelOf(dc.state.textColor)), kCopyPattern).Rect(Intersection(rule, clip));
}

/// `corner` is the line's top-left corner, on the surface as `clip`.
void DrawLine(DeviceContext& dc, const Layout& layout, const Line& line, POINT corner, const RECT& clip)
{
    std::vector<int> advances;
    MeasureLine(layout, line.text, &advances);
    const POINT baseline = {corner.x, corner.y + layout.font.Metrics().ascent};
    if (!layout.Has(DT_PREFIXONLY)) {
        if (dc.state.backMode == OPAQUE) {
            const RECT cell = {corner.x, corner.y, corner.x + line.width,
                               corner.y + layout.font.Metrics().Height()};
            Painter(dc, SolidInk(dc.PixelOf(dc.state.backColor)), kCopyPattern)
                .Rect(Intersection(cell, clip));
        }
        DrawGlyphs(dc, baseline, line.text, advances, clip);
    }
    DrawMnemonic(dc, layout, line, advances, baseline, clip);
}

void DrawLines(DeviceContext& dc, const Layout& layout, const RECT& rect, int offset)
{
    const RECT area = dc.ToSurface(rect);
    const RECT clip = layout.Has(DT_NOCLIP) ? kEverywhere : area;
    LONG top = area.top + offset;
    for (const Line& line : layout.lines) {
        const int spare = area.right - area.left - line.width;
        const int along = layout.Has(DT_CENTER) ? spare / 2 : layout.Has(DT_RIGHT) ? spare : 0;
        DrawLine(dc, layout, line, {area.left + along, top}, clip);
        top += LineHeight(layout);
    }
}

/// The rectangle becomes as large as the text is.
void FitRect(const Layout& layout, RECT& rect, int height)
{
    int width = 0;
    for (const Line& line : layout.lines)
        width = std::max(width, line.width);
    rect.right = rect.left + width;
    rect.bottom = rect.top + height;
}

/// Characters in a tab stop: the program's number, or one in the format's second byte, or the usual one.
int TabLength(UINT format, const DRAWTEXTPARAMS* parameters)
{
    if ((format & DT_TABSTOP) != 0 && parameters == nullptr)
        return static_cast<int>(format >> 8 & 0xFF);
    return parameters != nullptr && parameters->iTabLength > 0 ? parameters->iTabLength : kDefaultTabLength;
}

/// With a tab stop in it, the format's second byte is no flags.
UINT FlagsOf(UINT format, const DRAWTEXTPARAMS* parameters)
{
    return (format & DT_TABSTOP) != 0 && parameters == nullptr ? format & ~0xFF00u : format;
}

int DrawTextInRect(DeviceContext& dc, std::u16string_view text, RECT& rect, UINT format,
                   const DRAWTEXTPARAMS* parameters, LPWSTR shortened)
{
    const std::shared_ptr<SizedFont> font = FontOf(dc);
    RECT inner = rect;
    if (parameters != nullptr) {
        inner.left += parameters->iLeftMargin;
        inner.right -= parameters->iRightMargin;
    }
    const int tabWidth = std::max(1, TabLength(format, parameters) * font->Metrics().averageWidth);
    Layout layout = {*font, FlagsOf(format, parameters), tabWidth, inner.right - inner.left, {}, false};
    LayOut(layout, text);
    const int offset = FirstLineOffset(layout, inner);
    if (layout.Has(DT_CALCRECT)) {
        FitRect(layout, rect, LayoutHeight(layout));
        if (parameters != nullptr)
            rect.right += parameters->iLeftMargin + parameters->iRightMargin;
    } else {
        DrawLines(dc, layout, inner, offset);
    }
    if (shortened != nullptr && layout.shortened && layout.Has(DT_MODIFYSTRING)) {
        // The program's buffer has room for an ellipsis and the end behind its text.
        const std::u16string& line = layout.lines.back().text;
        std::copy(line.begin(), line.end(), shortened);
        shortened[line.size()] = 0;
    }
    return LayoutHeight(layout) + offset;
}

std::u16string_view TextOf(LPCWSTR text, int length)
{
    if (text == nullptr)
        return {};
    return length < 0 ? std::u16string_view(text) : std::u16string_view(text, static_cast<size_t>(length));
}

/// The next tab stop behind `along`; both in pixels from where stops are counted.
int NextStop(int along, int stopCount, const INT* stops, int averageWidth)
{
    const int every = stopCount == 1 ? stops[0] : kDefaultTabLength * averageWidth;
    for (int i = 0; i < stopCount && stopCount > 1; ++i) {
        if (stops[i] > along)
            return stops[i];
    }
    return every > 0 ? (along / every + 1) * every : along;
}

/// Lays text with tabs out, and draws it unless `draws` is false; its width.
int TabbedText(DeviceContext& dc, POINT point, std::u16string_view text, int stopCount, const INT* stops,
               int origin, bool draws)
{
    const std::shared_ptr<SizedFont> font = FontOf(dc);
    const POINT start = dc.ToSurface(point);
    const Layout layout = {*font, DT_NOPREFIX, 1, 0, {}, false};
    int x = point.x;
    while (!text.empty()) {
        if (text.front() == u'\t') {
            x = origin + NextStop(x - origin, stopCount, stops, font->Metrics().averageWidth);
            text.remove_prefix(1);
            continue;
        }
        Line line;
        line.text = text.substr(0, text.find(u'\t'));
        line.width = MeasureLine(layout, line.text);
        if (draws)
            DrawLine(dc, layout, line, {start.x + x - point.x, start.y}, kEverywhere);
        text.remove_prefix(line.text.size());
        x += line.width;
    }
    return x - point.x;
}

} // namespace
} // namespace host

using namespace host;

int WINAPI DrawTextExW(HDC handle, LPWSTR text, int length, LPRECT rect, UINT format,
                       LPDRAWTEXTPARAMS parameters)
{
    HOST_CALL_VOID(DrawTextExW);
    const LockedDc dc(handle);
    if (!dc || text == nullptr || rect == nullptr)
        return 0;
    const std::u16string_view view = TextOf(text, length);
    if (parameters != nullptr)
        parameters->uiLengthDrawn = static_cast<UINT>(view.size());
    return DrawTextInRect(*dc, view, *rect, format, parameters, text);
}

int WINAPI DrawTextW(HDC handle, LPCWSTR text, int length, LPRECT rect, UINT format)
{
    HOST_CALL_VOID(DrawTextW);
    const LockedDc dc(handle);
    if (!dc || text == nullptr || rect == nullptr)
        return 0;
    return DrawTextInRect(*dc, TextOf(text, length), *rect, format, nullptr, const_cast<LPWSTR>(text));
}

LONG WINAPI TabbedTextOutW(HDC handle, int x, int y, LPCWSTR text, int length, int stopCount,
                           const INT* stops, int origin)
{
    HOST_CALL_VOID(TabbedTextOutW);
    const LockedDc dc(handle);
    if (!dc || text == nullptr)
        return 0;
    const int count = stops != nullptr ? stopCount : 0;
    const int width = TabbedText(*dc, {x, y}, TextOf(text, length), count, stops, origin, true);
    return MAKELONG(width, FontOf(*dc)->Metrics().Height());
}

DWORD WINAPI GetTabbedTextExtentW(HDC handle, LPCWSTR text, int length, int stopCount, const INT* stops)
{
    HOST_CALL_VOID(GetTabbedTextExtentW);
    const LockedDc dc(handle);
    if (!dc || text == nullptr)
        return 0;
    const int count = stops != nullptr ? stopCount : 0;
    const int width = TabbedText(*dc, {}, TextOf(text, length), count, stops, 0, false);
    return static_cast<DWORD>(MAKELONG(width, FontOf(*dc)->Metrics().Height()));
}
