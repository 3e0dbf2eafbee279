#pragma once
// What a compiled language module holds: its texts and its dialog templates.
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

namespace langcheck {

using Bytes = std::vector<uint8_t>;
using WideString = std::basic_string<WCHAR>;
using WideView = std::basic_string_view<WCHAR>;

/// A rectangle in dialog units, relative to its dialog.
struct Box
{
    int x, y, width, height;

    int Right() const { return x + width; }
    int Bottom() const { return y + height; }
    bool Holds(const Box& inner) const
    {
        return inner.x >= x && inner.y >= y && inner.Right() <= Right() && inner.Bottom() <= Bottom();
    }
    bool Meets(const Box& other) const
    {
        return x < other.Right() && other.x < Right() && y < other.Bottom() && other.y < Bottom();
    }
};

struct Control
{
    unsigned id; ///< 0xFFFF for texts that the code never touches
    WideString className;
    DWORD style;
    Box box;
    WideString text;
};

struct Dialog
{
    unsigned id;
    DWORD style;
    Box box;
    WideString caption;
    WideString face; ///< empty when the template names no font
    int points;
    std::vector<Control> controls; ///< in tab order
};

struct Language
{
    std::string name;
    std::map<unsigned, WideString> strings;
    std::vector<Dialog> dialogs;

    /// The dialog of that id, or null.
    const Dialog* Find(unsigned id) const;
};

/// Reads a compiled resource file (.res): string tables and extended dialog templates.
/// Returns false and says why in `complaint` when the file or a template is cut short or malformed; then
/// `language` is of no use.
bool ReadLanguage(const Bytes& file, Language& language, std::string& complaint);

/// For messages.
std::string Narrow(WideView text);

} // namespace langcheck
