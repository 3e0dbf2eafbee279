#include "tools/langcheck/checks.h"

#include <algorithm>
#include <cstdlib>
#include <map>

#include "tools/langcheck/controls.h"

namespace langcheck {
namespace {

constexpr unsigned kNoId = 0xFFFF;

/// Buttons this close to each other, in dialog units, make a row.
constexpr int kRowGap = 6;
constexpr int kRowSlip = 3;

std::string PlaceOf(const Language& language, const Dialog& dialog)
{
    return language.name + ", dialog " + std::to_string(dialog.id);
}

/// The conversions of a format, separated by blanks. A doubled percent sign is none.
std::string PlacesOf(WideView text)
{
    std::string places;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%')
            continue;
        if (++i < text.size() && text[i] == '%')
            continue;
        if (!places.empty())
            places += ' ';
        places += '%';
        if (i < text.size())
            places += Narrow(text.substr(i, 1));
    }
    return places;
}

bool SeenTogether(const Facts& facts, const Dialog& dialog, const Control& one, const Control& other)
{
    const int page = PageOf(facts, dialog.id, one.id), otherPage = PageOf(facts, dialog.id, other.id);
    return page == 0 || otherPage == 0 || page == otherPage;
}

/// Calls visit(one, other) for every two controls of the dialog that are seen together.
template <typename Visit>
void ForPairs(const Facts& facts, const Dialog& dialog, Visit visit)
{
    for (auto one = dialog.controls.begin(); one != dialog.controls.end(); ++one) {
        for (auto other = one + 1; other != dialog.controls.end(); ++other) {
            if (SeenTogether(facts, dialog, *one, *other))
                visit(*one, *other);
        }
    }
}

void AddCollision(const Language& language, const Dialog& dialog, const Control& one, const Control& other,
                  Findings& findings)
{
    const WCHAR letter = MnemonicOf(one);
    if (letter && letter == MnemonicOf(other))
        findings.push_back(PlaceOf(language, dialog, one) + "letter " + Narrow({&letter, 1}) +
                           " also reaches control " + std::to_string(other.id) + " (" + Narrow(one.text) +
                           ", " + Narrow(other.text) + ")");
}

bool MayOverlap(const Control& one, const Control& other)
{
    return (IsGround(one) && one.box.Holds(other.box)) || (IsGround(other) && other.box.Holds(one.box));
}

/// An up-down lies in the edit before it.
bool IsSpinOf(const Control& edit, const Control& spin)
{
    return KindOf(edit) == Kind::edit && KindOf(spin) == Kind::other && edit.box.Holds(spin.box);
}

/// Lists give the height of the dropped list; what shows is one line.
Control AsShown(Control control)
{
    constexpr int fieldHeight = 14;
    if (KindOf(control) == Kind::comboBox)
        control.box.height = std::min(control.box.height, fieldHeight);
    return control;
}

bool NeedsTabStop(const Control& control)
{
    switch (KindOf(control)) {
    case Kind::pushButton:
    case Kind::checkBox:
    case Kind::comboBox:
    case Kind::listBox:
    case Kind::tabs:
    case Kind::slider:
        return true;
    case Kind::edit: // one line that cannot be changed only shows a value
        return !(control.style & ES_READONLY) || control.style & ES_MULTILINE;
    case Kind::picture:
        return !(control.style & WS_DISABLED);
    default:
        return false;
    }
}

void CheckRadioGroups(const Language& language, const Dialog& dialog, Findings& findings)
{
    bool radioBefore = false, stopInGroup = false;
    for (const Control& control : dialog.controls) {
        const bool radio = KindOf(control) == Kind::radioButton;
        const bool starts = control.style & WS_GROUP;
        if (radio && !radioBefore && !starts)
            findings.push_back(PlaceOf(language, dialog, control) + "first radio button without a group");
        if (!radio && radioBefore && !starts && NeedsTabStop(control))
            findings.push_back(PlaceOf(language, dialog, control) + "belongs to the radio buttons before it");
        if (starts)
            stopInGroup = false;
        stopInGroup = stopInGroup || control.style & WS_TABSTOP;
        if (radio && !stopInGroup)
            findings.push_back(PlaceOf(language, dialog, control) + "no tab stop");
        radioBefore = radio;
    }
}

} // namespace

std::string PlaceOf(const Language& language, const Dialog& dialog, const Control& control)
{
    const std::string name =
        control.id == kNoId ? "'" + Narrow(control.text) + "'" : std::to_string(control.id);
    return PlaceOf(language, dialog) + ", control " + name + ": ";
}

void CheckPresence(const Language& language, const Ids& ids, Findings& findings)
{
    for (const StringId& row : ids.strings) {
        if (!row.optional && !language.strings.contains(row.id))
            findings.push_back(language.name + ": no text " + row.name);
    }
    for (const auto& [name, id] : ids.templates) {
        if (!language.Find(id))
            findings.push_back(language.name + ": no dialog " + name);
    }
    for (const auto& [name, id] : ids.controls) {
        const bool found =
            std::any_of(language.dialogs.begin(), language.dialogs.end(), [&](const Dialog& dialog) {
                return std::any_of(dialog.controls.begin(), dialog.controls.end(),
                                   [&](const Control& control) { return control.id == id; });
            });
        if (!found)
            findings.push_back(language.name + ": no dialog has the control " + name);
    }
}

void CheckPlaces(const Language& language, const Ids& ids, Findings& findings)
{
    for (const StringId& row : ids.strings) {
        const auto text = language.strings.find(row.id);
        if (text == language.strings.end())
            continue;
        const std::string places = PlacesOf(text->second);
        if (places != row.places)
            findings.push_back(language.name + ", " + row.name + ": has the places '" + places +
                               "' instead of '" + row.places + "'");
    }
}

void CheckMnemonics(const Language& language, const Facts& facts, Findings& findings)
{
    for (const Dialog& dialog : language.dialogs) {
        ForPairs(facts, dialog, [&](const Control& one, const Control& other) {
            AddCollision(language, dialog, one, other, findings);
        });
    }
    for (const TabHost& row : facts.tabs) {
        const Dialog *host = language.Find(row.host), *tab = language.Find(row.tab);
        if (!host || !tab)
            continue;
        for (const Control& outer : host->controls) {
            for (const Control& inner : tab->controls)
                AddCollision(language, *tab, inner, outer, findings);
        }
    }
}

void CheckPlacement(const Language& language, const Facts& facts, Findings& findings)
{
    for (const Dialog& dialog : language.dialogs) {
        const Box inside = {0, 0, dialog.box.width, dialog.box.height};
        for (const Control& control : dialog.controls) {
            if (IsVisible(control) && !inside.Holds(AsShown(control).box))
                findings.push_back(PlaceOf(language, dialog, control) + "outside its dialog");
        }
        ForPairs(facts, dialog, [&](const Control& first, const Control& second) {
            const Control one = AsShown(first), other = AsShown(second);
            if (IsVisible(one) && IsVisible(other) && one.box.Meets(other.box) && !MayOverlap(one, other) &&
                !IsSpinOf(one, other))
                findings.push_back(PlaceOf(language, dialog, one) + "lies on control " +
                                   std::to_string(other.id));
        });
    }
}

void CheckButtonRows(const Language& language, const Facts& facts, Findings& findings)
{
    for (const Dialog& dialog : language.dialogs) {
        ForPairs(facts, dialog, [&](const Control& one, const Control& other) {
            if (KindOf(one) != Kind::pushButton || KindOf(other) != Kind::pushButton ||
                std::abs(one.box.y - other.box.y) > kRowSlip)
                return;
            const int gap = std::max(one.box.x, other.box.x) - std::min(one.box.Right(), other.box.Right());
            if (gap > kRowGap)
                return;
            if (one.box.y != other.box.y)
                findings.push_back(PlaceOf(language, dialog, one) + "not in line with button " +
                                   std::to_string(other.id));
            else if (one.box.width != other.box.width || one.box.height != other.box.height)
                findings.push_back(PlaceOf(language, dialog, one) + "not as large as button " +
                                   std::to_string(other.id) + " beside it");
        });
    }
}

void CheckTabStops(const Language& language, Findings& findings)
{
    for (const Dialog& dialog : language.dialogs) {
        for (const Control& control : dialog.controls) {
            if (NeedsTabStop(control) && !(control.style & WS_TABSTOP))
                findings.push_back(PlaceOf(language, dialog, control) + "no tab stop");
        }
        CheckRadioGroups(language, dialog, findings);
    }
}

} // namespace langcheck
