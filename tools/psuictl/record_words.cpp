#include "tools/psuictl/record_words.h"

#include <algorithm>

#include "lang/ids/strings.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/record_value.h"

namespace psuictl {
namespace {

struct NameRow
{
    int code;
    unsigned stringId;
};

constexpr NameRow kPapers[] = {
    {1, IDS_PAPER_LETTER},
    {3, IDS_PAPER_LEDGER},
    {5, IDS_PAPER_LEGAL},
    {7, IDS_PAPER_EXECUTIVE},
    {8, IDS_PAPER_A3},
    {9, IDS_PAPER_A4},
    {11, IDS_PAPER_A5},
    {12, IDS_PAPER_B4JIS},
    {13, IDS_PAPER_B5JIS},
    {20, IDS_PAPER_COM10},
    {27, IDS_PAPER_DL},
    {28, IDS_PAPER_C5},
    {37, IDS_PAPER_MONARCH},
    {43, IDS_PAPER_HAGAKI},
    {70, IDS_PAPER_A6},
    {82, IDS_PAPER_W_HAGAKI},
    {91, IDS_PAPER_JE4},
    {256, IDS_PAPER_USER},
    {265, IDS_PAPER_POST_CARD},
    {266, IDS_PAPER_INDEX_CARD},
    {272, IDS_PAPER_PHOTO_L},
    {273, IDS_PAPER_PHOTO_2L},
    {274, IDS_PAPER_A4_BL},
    {275, IDS_PAPER_LETTER_BL},
    {276, IDS_PAPER_A6_BL},
    {277, IDS_PAPER_HAGAKI_BL},
    {278, IDS_PAPER_PHOTO_L_BL},
    {279, IDS_PAPER_PHOTO_2L_BL},
    {280, IDS_PAPER_POST_CARD_BL},
    {281, IDS_PAPER_INDEX_CARD_BL},
    {283, IDS_PAPER_A3_BL},
    {284, IDS_PAPER_B4JIS_BL},
    {285, IDS_PAPER_LEDGER_BL},
    {287, IDS_PAPER_A3_SG},
    {288, IDS_PAPER_B4JIS_SG},
    {289, IDS_PAPER_LEDGER_SG},
    {290, IDS_PAPER_A3_BL_SG},
    {291, IDS_PAPER_B4JIS_BL_SG},
    {292, IDS_PAPER_LEDGER_BL_SG},
};

constexpr NameRow kMedia[] = {
    {1, IDS_MEDIA_PLAIN_PAPER},       {261, IDS_MEDIA_INKJET_PAPER},    {263, IDS_MEDIA_GLOSSY_C},
    {264, IDS_MEDIA_TRANSPARENCY},    {269, IDS_MEDIA_GLOSSY_CB},       {271, IDS_MEDIA_GLOSSY_RB},
    {272, IDS_MEDIA_GLOSSYHAGAKIATN}, {273, IDS_MEDIA_GLOSSYHAGAKIURA},
};

constexpr struct
{
    const char* field;
    std::span<const NameRow> names;
} kNamedFields[] = {
    {"dmPaperSize", kPapers},    {"wDocumentPaper", kPapers}, {"wOutputPaper", kPapers},
    {"shTailDocPaper", kPapers}, {"shTailOutPaper", kPapers}, {"dmMediaType", kMedia},
    {"wMediaValue", kMedia},
};

/// The string that names the value; 0 for none.
unsigned StringIdOf(const RecordField& field, const uint8_t* bytes)
{
    const auto* named = std::find_if(std::begin(kNamedFields), std::end(kNamedFields),
                                     [&](const auto& row) { return field.name == row.field; });
    if (named == std::end(kNamedFields))
        return 0;
    const int64_t value = JsonValue(field, bytes).get<int64_t>();
    const auto row = std::find_if(named->names.begin(), named->names.end(),
                                  [&](const NameRow& candidate) { return candidate.code == value; });
    return row == named->names.end() ? 0 : row->stringId;
}

} // namespace

RecordNames::RecordNames(const std::string& language)
    : module_(LoadLibraryExW((ProductFolder(language) + TEXT("VMLANG.DLL")).c_str(), nullptr,
                             LOAD_LIBRARY_AS_DATAFILE))
{
}

RecordNames::~RecordNames()
{
    if (module_)
        FreeLibrary(module_);
}

std::string RecordNames::NameOf(unsigned stringId) const
{
    constexpr int kMaxUnits = 128;
    WCHAR name[kMaxUnits];
    const int length = module_ && stringId ? LoadStringW(module_, stringId, name, kMaxUnits) : 0;
    return Utf8({name, static_cast<size_t>(length)});
}

std::string RecordNames::Show(const RecordField& field, const uint8_t* bytes) const
{
    const std::string name = NameOf(StringIdOf(field, bytes));
    return ShowValue(field, bytes) + (name.empty() ? "" : " (" + name + ")");
}

} // namespace psuictl
