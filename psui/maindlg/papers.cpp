#include "psui/maindlg/papers.h"

#include <algorithm>
#include <iterator>

#include "lang/ids/strings.h"
#include "psui/queries/lists.h"
#include "psui/settings/environment.h"

namespace psui {

namespace {

constexpr PaperWord kPapers[] = {
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
    {"User", 256, IDS_CUSTOM_SIZE},
    {"A3", 8, IDS_DISPLAY_A3},
    {"Ledger", 3, IDS_DISPLAY_LEDGER},
    {"B4JIS", 12, IDS_DISPLAY_B4JIS},
    {"A3_SG", 287, IDS_DISPLAY_A3},
    {"Ledger_SG", 289, IDS_DISPLAY_LEDGER},
    {"B4JIS_SG", 288, IDS_DISPLAY_B4JIS},
    {"A4_BL", 274, IDS_PAPER_A4},
    {"Letter_BL", 275, IDS_PAPER_LETTER},
    {"A6_BL", 276, IDS_PAPER_A6},
    {"Post_Card_BL", 280, IDS_PAPER_POST_CARD},
    {"Index_Card_BL", 281, IDS_PAPER_INDEX_CARD},
    {"Photo_L_BL", 278, IDS_PAPER_PHOTO_L},
    {"Photo_2L_BL", 279, IDS_PAPER_PHOTO_2L},
    {"HAGAKI_BL", 277, IDS_PAPER_HAGAKI},
    {"A3_BL", 283, IDS_DISPLAY_A3},
    {"Ledger_BL", 285, IDS_DISPLAY_LEDGER},
    {"B4JIS_BL", 284, IDS_DISPLAY_B4JIS},
    {"A3_BL_SG", 290, IDS_DISPLAY_A3},
    {"Ledger_BL_SG", 292, IDS_DISPLAY_LEDGER},
    {"B4JIS_BL_SG", 291, IDS_DISPLAY_B4JIS},
};

/// A4 to JE4 and the user-defined size, which open the vocabulary.
struct BuiltinTable
{
    static constexpr int kPaperCount = 19;
    OptionRow rows[kPaperCount + 1];
};

constexpr BuiltinTable kBuiltinTable = [] {
    BuiltinTable table = {};
    for (int i = 0; i < BuiltinTable::kPaperCount; ++i)
        table.rows[i] = {static_cast<uint16_t>(kPapers[i].displayText),
                         static_cast<uint32_t>(kPapers[i].paper)};
    table.rows[BuiltinTable::kPaperCount] = {kOptionTableEnd, 0};
    return table;
}();
static_assert(kBuiltinTable.rows[BuiltinTable::kPaperCount - 1].dwValue == DMPAPER_USER);

/// A paper has the same place in each group of texts as its name has among the display texts, from A4 on.
struct TextGroup
{
    UINT letterA4; ///< A4's text in countries that use Letter
    UINT metricA4; ///< and in those that use A4

    constexpr UINT TextOf(const PaperWord& word, bool metric) const
    {
        // The user-defined size is called the same everywhere.
        if (word.paper == DMPAPER_USER)
            return word.displayText;
        return (metric ? metricA4 : letterA4) + (word.displayText - IDS_PAPER_A4);
    }
};
constexpr TextGroup kSizeTexts = {IDS_SIZE_A4_IN, IDS_SIZE_A4_MM};
constexpr TextGroup kFullTexts = {IDS_FULL_A4_IN, IDS_FULL_A4_MM};
constexpr TextGroup kShortNames = {IDS_SHORT_A4_IN, IDS_SHORT_A4_MM};

template <typename Predicate>
const PaperWord* FindWord(Predicate predicate)
{
    const auto* found = std::find_if(std::begin(kPapers), std::end(kPapers), predicate);
    return found == std::end(kPapers) ? nullptr : found;
}

} // namespace

const OptionRow* BuiltinPaperTable()
{
    return kBuiltinTable.rows;
}

const PaperWord* FindPaperWord(std::string_view name)
{
    return FindWord([=](const PaperWord& word) { return word.name == name; });
}

const PaperWord* FindPaperWord(int paper)
{
    return FindWord([=](const PaperWord& word) { return word.paper == paper; });
}

UINT PaperListText(int paper)
{
    const PaperWord* word = FindPaperWord(paper);
    return word ? PaperNameStringId(word->name) : 0;
}

UINT PaperDisplayText(int paper, PaperTextKind kind)
{
    const PaperWord* word = FindPaperWord(paper);
    if (!word)
        return 0;
    switch (kind) {
    case PaperTextKind::Name:
        return word->displayText;
    case PaperTextKind::Size:
        return kSizeTexts.TextOf(*word, IsMetricCountry());
    case PaperTextKind::Full:
        return kFullTexts.TextOf(*word, IsMetricCountry());
    }
    return 0;
}

UINT PaperShortName(int paper, bool metric)
{
    const PaperWord* word = FindPaperWord(paper);
    return word ? kShortNames.TextOf(*word, metric) : 0;
}

UINT PaperShortName(int paper)
{
    return PaperShortName(paper, IsMetricCountry());
}

} // namespace psui
