#include "psui/queries/lists.h"

#include <algorithm>
#include <array>
#include <span>

#include "lang/ids/papers.h"
#include "psui/base/module.h"
#include "psui/model/queries.h"
#include "psui/settings/language.h"

namespace psui {

namespace {

struct KeywordString
{
    std::string_view keyword;
    UINT stringId;
    uint32_t hash; ///< as in ModelOption::nameHash

    constexpr KeywordString() : stringId(0), hash(0) {}
    constexpr KeywordString(std::string_view word, UINT id)
        : keyword(word), stringId(id), hash(NameHash(word))
    {
    }
};

constexpr auto kPaperNames = [] {
    std::array<KeywordString, std::size(lang::kNamedPapers)> names;
    std::transform(
        std::begin(lang::kNamedPapers), std::end(lang::kNamedPapers), names.begin(),
        [](const lang::NamedPaper& paper) { return KeywordString(paper.keyword, paper.stringId); });
    return names;
}();

constexpr KeywordString kBinNames[] = {
    {"Feeder", IDS_BIN_AUTO},
    {"Tray1", IDS_BIN_TRAY1},
    {"Tray2", IDS_BIN_TRAY2},
    {"Manual", IDS_BIN_AUTO},
};

constexpr KeywordString kMediaNames[] = {
    {"Plain_Paper", IDS_MEDIA_PLAIN_PAPER},
    {"Inkjet_Paper", IDS_MEDIA_INKJET_PAPER},
    {"Glossy_RB", IDS_MEDIA_GLOSSY_RB},
    {"Glossy_CB", IDS_MEDIA_GLOSSY_CB},
    {"Glossy_C", IDS_MEDIA_GLOSSY_C},
    {"Transparency", IDS_MEDIA_TRANSPARENCY},
    {"GlossyHagakiATN", IDS_MEDIA_GLOSSYHAGAKIATN},
    {"GlossyHagakiURA", IDS_MEDIA_GLOSSYHAGAKIURA},
};
/// Rows of kMediaNames, and media types reported, outside Japanese.
constexpr uint32_t kMediaOutsideJapan = 6;
constexpr int kMediaNameMost = 32; // units, although an entry has room for more

constexpr UINT kNoString = 0;
constexpr WORD kPaperIdWithoutValue = DMPAPER_LETTER;
constexpr WORD kBinIdWithoutValue = DMBIN_LOWER;
constexpr int kMicronsPerTenth = 100;

UINT StringIdFor(std::span<const KeywordString> table, std::string_view keyword, uint32_t hash,
                 UINT otherwise)
{
    for (const KeywordString& row : table)
        if (row.hash == hash && row.keyword == keyword)
            return row.stringId;
    return otherwise;
}

UINT StringIdOf(const ModelOption* option, std::span<const KeywordString> table, UINT otherwise)
{
    return StringIdFor(table, option->name.get(), option->nameHash, otherwise);
}

template <size_t N>
void LoadName(UINT stringId, int most, WCHAR (&name)[N])
{
    std::fill_n(name, N, WCHAR{0});
    if (stringId != kNoString)
        LoadLanguageString(stringId, name, most);
}

/// The number of an option; `otherwise` when its value is missing or empty.
uint32_t ValueOf(const ModelOption* option, uint32_t otherwise)
{
    const char* value = option->invocation.get();
    return value && *value ? static_cast<uint32_t>(DecimalOf(value)) : otherwise;
}

POINT SizeOf(const ModelOption* pageSize)
{
    if (!pageSize)
        return {0, 0};
    const auto* size = reinterpret_cast<const PageSizeOption*>(pageSize);
    return {Points256ToMicrons(static_cast<int32_t>(size->width)) / kMicronsPerTenth,
            Points256ToMicrons(static_cast<int32_t>(size->height)) / kMicronsPerTenth};
}

uint32_t MediaTypeCount(const ModelFeature* feature)
{
    const uint32_t count = OptionCount(feature);
    return IsJapaneseLanguage() ? count : std::min(count, kMediaOutsideJapan);
}

} // namespace

UINT PaperNameStringId(std::string_view keyword)
{
    return StringIdFor(kPaperNames, keyword, NameHash(keyword), kNoString);
}

uint32_t ListPapers(const ModelDescription* model, const FORM_INFO_1W*, DWORD, PaperName* names, WORD* ids,
                    POINT* sizes, const DriverDevMode* record)
{
    const ModelOption* pageSize = FirstOption(BuiltinFeature(model, kFeaturePageSize));
    uint32_t count = 0;
    for (const ModelOption* paper = FirstOption(BuiltinFeature(model, kFeaturePaper)); paper;
         paper = paper->next.get(), ++count) {
        const WORD id = static_cast<WORD>(ValueOf(paper, kPaperIdWithoutValue));
        if (names)
            LoadName(StringIdOf(paper, kPaperNames, kNoString), kPaperNameUnits, names[count]);
        if (ids)
            ids[count] = id;
        if (sizes && id == DMPAPER_USER)
            sizes[count] = {record->dmPrivate.wCustomWidth, record->dmPrivate.wCustomLength};
        else if (sizes)
            sizes[count] = SizeOf(pageSize);
        if (pageSize)
            pageSize = pageSize->next.get();
    }
    return count;
}

uint32_t ListBins(BinName* names, const ModelDescription* model)
{
    uint32_t count = 0;
    for (const ModelOption* bin = FirstOption(BuiltinFeature(model, kFeatureTray)); bin;
         bin = bin->next.get(), ++count)
        if (names)
            LoadName(StringIdOf(bin, kBinNames, IDS_BIN_AUTO), kBinNameUnits, names[count]);
    return count;
}

uint32_t ListBinIds(WORD* ids, const ModelDescription* model)
{
    uint32_t count = 0;
    for (const ModelOption* bin = FirstOption(BuiltinFeature(model, kFeatureTray)); bin;
         bin = bin->next.get(), ++count)
        if (ids)
            ids[count] = static_cast<WORD>(ValueOf(bin, kBinIdWithoutValue));
    return count;
}

uint32_t ListResolutions(LONG (*pairs)[2], const ModelDescription* model)
{
    uint32_t count = 0;
    const auto report = [&](LONG dpi) {
        if (pairs)
            pairs[count][0] = pairs[count][1] = dpi;
        ++count;
    };
    for (const ModelOption* option = FirstOption(BuiltinFeature(model, kFeatureResolution)); option;
         option = option->next.get()) {
        const int32_t dpi = DecimalOf(option->name.get());
        if (dpi > 0)
            report(dpi);
    }
    if (count == 0)
        report(static_cast<LONG>(DefaultResolutionDpi(model)));
    return count;
}

uint32_t ListMediaTypeNames(MediaName* names, const ModelDescription* model)
{
    const ModelFeature* feature = BuiltinFeature(model, kFeatureMediaType);
    const uint32_t count = MediaTypeCount(feature);
    if (!names)
        return count;
    const std::span<const KeywordString> table =
        IsJapaneseLanguage() ? std::span(kMediaNames) : std::span(kMediaNames).first(kMediaOutsideJapan);
    const ModelOption* media = FirstOption(feature);
    for (uint32_t i = 0; i < count; ++i, media = media->next.get())
        LoadName(StringIdOf(media, table, IDS_MEDIA_PLAIN_PAPER), kMediaNameMost, names[i]);
    return count;
}

uint32_t ListMediaTypes(DWORD* ids, const ModelDescription* model)
{
    const ModelFeature* feature = BuiltinFeature(model, kFeatureMediaType);
    const uint32_t count = MediaTypeCount(feature);
    const ModelOption* media = FirstOption(feature);
    for (uint32_t i = 0; ids && i < count; ++i, media = media->next.get())
        ids[i] = ValueOf(media, 0);
    return count;
}

} // namespace psui
