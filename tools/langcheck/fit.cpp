#include "tools/langcheck/fit.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

#include "tools/langcheck/controls.h"

namespace langcheck {
namespace {

/// What a control keeps from its text, in pixels of a 96 dpi display: both sides together.
int Margin(const Control& control)
{
    switch (KindOf(control)) {
    case Kind::pushButton:
        return 10;
    case Kind::checkBox:
    case Kind::radioButton:
        return 13 + 4; // box, gap
    case Kind::groupBox:
        return 2 * 9;
    case Kind::comboBox:
        return 17 + 2 * 4; // arrow, borders
    case Kind::listBox:
        return 17 + 2 * 2; // scroll bar, borders
    default:
        return 0;
    }
}

bool Wraps(const Control& control)
{
    const Kind kind = KindOf(control);
    const DWORD type = control.style & SS_TYPEMASK;
    return (kind == Kind::text && type <= SS_RIGHT && !(control.style & SS_CENTERIMAGE)) ||
           (kind != Kind::text && control.style & BS_MULTILINE);
}

int Scale(int value, int factor, int divisor)
{
    return (value * factor + divisor / 2) / divisor;
}

struct Room
{
    int width, height;
};

Room RoomOf(const Control& control, const Meter& meter, int indent)
{
    const int margin = Scale(Margin(control) + indent, meter.dpi, 96);
    return {Scale(control.box.width, meter.base.width, 4) - margin,
            Scale(control.box.height, meter.base.height, 8)};
}

/// Pixels that the text needs beyond its control; nothing when it fits.
Extent Excess(const Control& control, WideView text, const Meter& meter, int indent)
{
    const Room room = RoomOf(control, meter, indent);
    const Extent need = meter.size(text, Wraps(control) ? std::max(room.width, 1) : 0);
    const bool heightCounts = KindOf(control) == Kind::text && !(control.style & SS_CENTERIMAGE);
    return {std::max(need.width - room.width, 0), heightCounts ? std::max(need.height - room.height, 0) : 0};
}

void CheckText(const Language& language, const Dialog& dialog, const Control& control, WideView text,
               const Meter& meter, int indent, Findings& findings)
{
    if (text.empty())
        return;
    const Extent excess = Excess(control, text, meter, indent);
    if (excess.width || excess.height)
        findings.push_back(PlaceOf(language, dialog, control) + "no room for '" + Narrow(text) + "' at " +
                           std::to_string(meter.dpi) + " dpi, " + std::to_string(excess.width) + " x " +
                           std::to_string(excess.height) + " pixels missing");
}

WideString TextOf(const Language& language, unsigned id)
{
    const auto found = language.strings.find(id);
    return found == language.strings.end() ? WideString() : found->second;
}

const Control* FindControl(const Dialog& dialog, unsigned id)
{
    const auto found = std::find_if(dialog.controls.begin(), dialog.controls.end(),
                                    [&](const Control& control) { return control.id == id; });
    return found == dialog.controls.end() ? nullptr : &*found;
}

void CheckFilling(const Language& language, const Filling& row, const Meter& meter, Findings& findings)
{
    const Dialog* dialog = language.Find(row.dialog);
    const Control* control = dialog ? FindControl(*dialog, row.control) : nullptr;
    if (!control)
        return;
    const WideString start = row.label ? TextOf(language, row.label) + row.separator : WideString();
    for (unsigned id = row.first; id <= row.last; ++id) {
        const WideString text = TextOf(language, id);
        if (text.empty() && row.first)
            continue;
        Control filled = *control;
        filled.text = start + text;
        CheckText(language, *dialog, filled, ShownText(filled), meter, row.indent, findings);
    }
}

} // namespace

void CheckFit(const Language& language, const Facts& facts, const Meter& meter, Findings& findings)
{
    for (const Dialog& dialog : language.dialogs) {
        for (const Control& control : dialog.controls) {
            const Kind kind = KindOf(control);
            if (kind != Kind::picture && kind != Kind::frame && kind != Kind::other)
                CheckText(language, dialog, control, ShownText(control), meter, 0, findings);
        }
    }
    for (const Filling& row : facts.fillings)
        CheckFilling(language, row, meter, findings);
}

PictureSizes ReadPictureSizes(const std::filesystem::path& folder)
{
    PictureSizes sizes;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        BITMAPFILEHEADER start;
        BITMAPINFOHEADER header;
        std::ifstream file(entry.path(), std::ios::binary);
        if (entry.path().extension() == ".bmp" && file.read(reinterpret_cast<char*>(&start), sizeof start) &&
            file.read(reinterpret_cast<char*>(&header), sizeof header))
            sizes[static_cast<unsigned>(std::atoi(entry.path().stem().c_str()))] = {header.biWidth,
                                                                                    header.biHeight};
    }
    return sizes;
}

void CheckPictures(const Language& language, const Facts& facts, const PictureSizes& sizes,
                   const Meter& meter, Findings& findings)
{
    for (const Picture& row : facts.pictures) {
        const Dialog* dialog = language.Find(row.dialog);
        const Control* control = dialog ? FindControl(*dialog, row.control) : nullptr;
        if (!control)
            continue;
        const auto size = sizes.find(row.bitmap);
        const Room room = RoomOf(*control, meter, 0);
        if (size == sizes.end())
            findings.push_back(PlaceOf(language, *dialog, *control) + "no picture " +
                               std::to_string(row.bitmap));
        else if (room.width < row.inset + size->second.width || room.height < row.inset + size->second.height)
            findings.push_back(PlaceOf(language, *dialog, *control) + std::to_string(room.width) + " x " +
                               std::to_string(room.height) + " pixels for a picture of " +
                               std::to_string(size->second.width) + " x " +
                               std::to_string(size->second.height));
    }
}

} // namespace langcheck
