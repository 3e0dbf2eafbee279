#pragma once
// The papers that the dialogs know: the Paper options of model descriptions by their names, and their texts.
#include <cstdint>
#include <string_view>

#include <windows.h>

#include "psui/entry/context.h"

namespace psui {

/// One paper of the vocabulary.
struct PaperWord
{
    std::string_view name; ///< of the Paper option, matched exactly
    short paper;           ///< dmPaperSize
    UINT displayText;      ///< string id of the name on the main dialog
};

/// The paper list that is offered when there is no memory for the model's; ended like every option table.
const OptionRow* BuiltinPaperTable();

/// The vocabulary's row for an option name, or for a paper id; null when there is none.
const PaperWord* FindPaperWord(std::string_view name);
const PaperWord* FindPaperWord(int paper);

/// String id of a paper's entry in the paper list; 0 for an id that is not in the vocabulary.
UINT PaperListText(int paper);

enum class PaperTextKind : int
{
    Name = 0, ///< on the main dialog's paper line
    Size = 1, ///< on the line below, in the units of the user's country
    Full = 2, ///< short name and size together
};

/// String id of that text in the user's country; 0 for an id that is not in the vocabulary.
UINT PaperDisplayText(int paper, PaperTextKind kind);

/// String id of the paper's short name in the user's country; 0 as above.
UINT PaperShortName(int paper);

/// The same in a country that uses A4 (`metric`) or Letter: for callers that ask for several texts.
UINT PaperShortName(int paper, bool metric);

} // namespace psui
