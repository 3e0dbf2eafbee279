#pragma once
// What can be wrong with a language module apart from the room its texts need. Each check adds a line a
// fault: the language, the place, and what is wrong there.
#include <string>
#include <vector>

#include "tools/langcheck/facts.h"
#include "tools/langcheck/ids.h"
#include "tools/langcheck/language.h"

namespace langcheck {

using Findings = std::vector<std::string>;

/// A named text or template that the language lacks, and a named control that no template has.
void CheckPresence(const Language& language, const Ids& ids, Findings& findings);

/// Texts whose places differ from those that their id declares.
void CheckPlaces(const Language& language, const Ids& ids, Findings& findings);

/// Letters that reach two controls which are seen together.
void CheckMnemonics(const Language& language, const Facts& facts, Findings& findings);

/// Controls that reach out of their dialog or lie on one another.
void CheckPlacement(const Language& language, const Facts& facts, Findings& findings);

/// Neighbouring push buttons of different size, and neighbours that miss each other's line by a hair.
void CheckButtonRows(const Language& language, const Facts& facts, Findings& findings);

/// Controls that the Tab key cannot reach, and radio buttons without a group of their own.
void CheckTabStops(const Language& language, Findings& findings);

/// "eng, dialog 300, control 3040: ".
std::string PlaceOf(const Language& language, const Dialog& dialog, const Control& control);

} // namespace langcheck
