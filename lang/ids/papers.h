#pragma once
// The papers that have a name in every language.
#include <string_view>

#include "lang/ids/strings.h"

namespace lang {

struct NamedPaper
{
    std::string_view keyword; ///< of a Paper option in model descriptions
    int id;                   ///< as in dmPaperSize
    unsigned stringId;
};

inline constexpr NamedPaper kNamedPapers[] = {
    {"A4", 9, IDS_PAPER_A4},
    {"Letter", 1, IDS_PAPER_LETTER},
    {"Legal", 5, IDS_PAPER_LEGAL},
    {"Executive", 7, IDS_PAPER_EXECUTIVE},
    {"B5JIS", 13, IDS_PAPER_B5JIS},
    {"A5", 11, IDS_PAPER_A5},
    {"A6", 70, IDS_PAPER_A6},
    {"Post_Card", 265, IDS_PAPER_POST_CARD},
    {"Index_Card", 266, IDS_PAPER_INDEX_CARD},
    {"Photo_L", 272, IDS_PAPER_PHOTO_L},
    {"Photo_2L", 273, IDS_PAPER_PHOTO_2L},
    {"HAGAKI", 43, IDS_PAPER_HAGAKI},
    {"W_HAGAKI", 82, IDS_PAPER_W_HAGAKI},
    {"C5", 28, IDS_PAPER_C5},
    {"Com10", 20, IDS_PAPER_COM10},
    {"DL", 27, IDS_PAPER_DL},
    {"Monarch", 37, IDS_PAPER_MONARCH},
    {"JE4", 91, IDS_PAPER_JE4},
    {"User", 256, IDS_PAPER_USER},
    {"A3", 8, IDS_PAPER_A3},
    {"Ledger", 3, IDS_PAPER_LEDGER},
    {"B4JIS", 12, IDS_PAPER_B4JIS},
    {"A3_SG", 287, IDS_PAPER_A3_SG},
    {"Ledger_SG", 289, IDS_PAPER_LEDGER_SG},
    {"B4JIS_SG", 288, IDS_PAPER_B4JIS_SG},
    {"A4_BL", 274, IDS_PAPER_A4_BL},
    {"Letter_BL", 275, IDS_PAPER_LETTER_BL},
    {"A6_BL", 276, IDS_PAPER_A6_BL},
    {"Post_Card_BL", 280, IDS_PAPER_POST_CARD_BL},
    {"Index_Card_BL", 281, IDS_PAPER_INDEX_CARD_BL},
    {"Photo_L_BL", 278, IDS_PAPER_PHOTO_L_BL},
    {"Photo_2L_BL", 279, IDS_PAPER_PHOTO_2L_BL},
    {"HAGAKI_BL", 277, IDS_PAPER_HAGAKI_BL},
    {"A3_BL", 283, IDS_PAPER_A3_BL},
    {"Ledger_BL", 285, IDS_PAPER_LEDGER_BL},
    {"B4JIS_BL", 284, IDS_PAPER_B4JIS_BL},
    {"A3_BL_SG", 290, IDS_PAPER_A3_BL_SG},
    {"Ledger_BL_SG", 292, IDS_PAPER_LEDGER_BL_SG},
    {"B4JIS_BL_SG", 291, IDS_PAPER_B4JIS_BL_SG},
};

} // namespace lang
