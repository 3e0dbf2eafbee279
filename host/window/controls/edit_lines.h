#pragma once
// How the text of an edit control falls into lines.
#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace host {

/// One shown line: `length` units from `start`, then a line break of `breakLength` units (0 where the line
/// was wrapped, and at the end of the text). Positions count UTF-16 units from the start of the text.
struct EditLine
{
    size_t start;
    size_t length;
    size_t breakLength;
};

/// The width of a piece of one line in pixels; tab stops count from the piece's start.
using MeasureText = std::function<int(std::u16string_view)>;

/// Lines end at CR LF and, where `width` is positive, before the word that would go beyond `width` pixels
/// (inside a word that alone is wider). There is always a line, and the last one has no break.
std::vector<EditLine> BreakLines(std::u16string_view text, int width, const MeasureText& measure);

/// The line that holds `position`; the end of a wrapped line belongs to the line that follows.
size_t LineOfPosition(const std::vector<EditLine>& lines, size_t position);

} // namespace host
