#include "tools/psuictl/record_words.h"

#include <algorithm>
#include <array>

#include "lang/ids/papers.h"
#include "tools/psuictl/library.h"
#include "tools/psuictl/record_value.h"

namespace psuictl {
namespace {

struct NameRow
{
    int code = 0;
    unsigned stringId = 0;
};

constexpr auto kPapers = [] {
    std::array<NameRow, std::size(lang::kNamedPapers)> rows;
    std::transform(std::begin(lang::kNamedPapers), std::end(lang::kNamedPapers), rows.begin(),
                   [](const lang::NamedPaper& paper) {
                       return NameRow{paper.id, paper.stringId};
                   });
    return rows;
}();

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
