#pragma once
// The pieces that the settings summary is made of.
#include <windows.h>

#include "psui/base/label.h"

namespace psui {

/// How a string becomes an item.
enum class SummaryKind : int
{
    Plain = 0,        ///< as it is
    Number = 1,       ///< a format whose places take the item's number
    Section = 3,      ///< a section's heading
    GroupHeading = 4, ///< a heading inside a section
};

/// What ends an item.
enum class SummaryEnd : int
{
    Tab = 0,     ///< the value follows
    Line = 1,    ///< the next label follows
    Indent = 2,  ///< it follows indented
    Indent2 = 3, ///< it follows indented twice
    Custom = 4,  ///< a text of the caller's
};

/// Appends string `id` of the language module as an item. A missing string is an empty piece; what does not
/// fit is cut. `custom` is used with SummaryEnd::Custom alone.
void AppendSummaryItem(TextCursor& cursor, SummaryKind kind, UINT id, int number, SummaryEnd end,
                       const WCHAR* custom = nullptr);

/// Appends what ends an item whose text is the caller's own.
void AppendSummaryEnd(TextCursor& cursor, SummaryEnd end, const WCHAR* custom = nullptr);

} // namespace psui
