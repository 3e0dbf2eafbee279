#include "tools/langcheck/dialog_template.h"

#include <iterator>

namespace langcheck {
namespace {

constexpr uint16_t kOrdinalMark = 0xFFFF;
constexpr uint16_t kExtendedMark = 0xFFFF; ///< second word of an extended template

/// The classes that a template writes as numbers, from 0x80.
constexpr const WCHAR* kClasses[] = {TEXT("Button"),  TEXT("Edit"),      TEXT("Static"),
                                     TEXT("ListBox"), TEXT("ScrollBar"), TEXT("ComboBox")};
constexpr unsigned kFirstClass = 0x80;

/// A text, a number (then empty), or nothing.
WideString ReadName(Reader& reader)
{
    const auto first = reader.Read<WCHAR>();
    if (first == kOrdinalMark) {
        reader.Read<uint16_t>();
        return {};
    }
    return first ? first + reader.ReadText() : WideString();
}

WideString ReadClass(Reader& reader)
{
    const auto first = reader.Read<WCHAR>();
    if (first != kOrdinalMark)
        return first ? first + reader.ReadText() : WideString();
    const unsigned atom = reader.Read<uint16_t>() - kFirstClass;
    return atom < std::size(kClasses) ? kClasses[atom] : WideString();
}

Box ReadBox(Reader& reader)
{
    Box box{};
    for (int* side : {&box.x, &box.y, &box.width, &box.height})
        *side = reader.Read<int16_t>();
    return box;
}

Control ReadControl(Reader& reader)
{
    Control control{};
    reader.Align();
    reader.Skip(2 * sizeof(DWORD)); // help id, extended style
    control.style = reader.Read<DWORD>();
    control.box = ReadBox(reader);
    control.id = reader.Read<DWORD>() & 0xFFFF;
    control.className = ReadClass(reader);
    control.text = ReadName(reader);
    reader.Skip(reader.Read<uint16_t>()); // creation data
    return control;
}

void ReadFont(Reader& reader, Dialog& dialog)
{
    dialog.points = reader.Read<uint16_t>();
    reader.Skip(sizeof(uint16_t) + 2); // weight, italic, character set
    dialog.face = reader.ReadText();
}

} // namespace

bool ReadDialog(Reader& reader, Dialog& dialog)
{
    reader.Skip(sizeof(uint16_t)); // version
    if (reader.Read<uint16_t>() != kExtendedMark)
        return false;
    reader.Skip(2 * sizeof(DWORD)); // help id, extended style
    dialog.style = reader.Read<DWORD>();
    const auto count = reader.Read<uint16_t>();
    dialog.box = ReadBox(reader);
    ReadName(reader); // menu
    ReadName(reader); // class
    dialog.caption = ReadName(reader);
    if (dialog.style & DS_SETFONT)
        ReadFont(reader, dialog);
    for (unsigned i = 0; i < count && reader.Good(); ++i)
        dialog.controls.push_back(ReadControl(reader));
    return reader.Good();
}

} // namespace langcheck
