#include "psui/queries/lists.h"

#include <algorithm>
#include <array>

#include "psui/settings/record.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

/// The name behind which nothing but zeros may follow.
template <size_t units>
std::u16string NameIn(const WCHAR (&field)[units])
{
    const std::u16string name = Text(field, units);
    EXPECT_EQ(std::count(field, field + units, u'\0'), static_cast<long>(units - name.size()));
    return name;
}

std::vector<std::u16string> MediaNames(const psui::ModelDescription* model)
{
    std::vector<psui::MediaName> names(psui::ListMediaTypeNames(nullptr, model));
    EXPECT_EQ(psui::ListMediaTypeNames(names.data(), model), names.size());
    std::vector<std::u16string> texts;
    for (const psui::MediaName& name : names)
        texts.push_back(NameIn(name));
    return texts;
}

std::u16string LanguageText(UINT id)
{
    WCHAR text[64];
    psui::LoadLanguageString(id, text, 64);
    return text;
}

TEST(ListPapers, ListsIdsSizesAndNamesInStep)
{
    const struct
    {
        WORD id;
        LONG width, length;
        UINT stringId;
    } expected[] = {{9, 2099, 2970, 9130},
                    {1, 2159, 2794, 9131},
                    {256, 2159, 2794, 9162},
                    {274, 2099, 2970, 9151},
                    {1, 0, 0, 0}}; // neither value, nor name, nor a page size in step
    World world;
    const Model model(kFullModel);
    alignas(8) psui::DriverDevMode record;
    psui::BuildDefaultDevMode(&record, nullptr, model, false);
    ASSERT_EQ(psui::ListPapers(model, nullptr, 0, nullptr, nullptr, nullptr, &record), 5u);
    psui::PaperName names[5];
    std::memset(names, 0xEE, sizeof(names));
    WORD ids[5];
    POINT sizes[5];
    EXPECT_EQ(psui::ListPapers(model, nullptr, 0, names, ids, sizes, &record), 5u);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(ids[i], expected[i].id) << i;
        EXPECT_EQ(sizes[i].x, expected[i].width) << i;
        EXPECT_EQ(sizes[i].y, expected[i].length) << i;
        EXPECT_EQ(NameIn(names[i]), expected[i].stringId ? LanguageText(expected[i].stringId) : u"") << i;
    }
    EXPECT_FALSE(LanguageText(9130).empty());
}

TEST(ListBins, NamesBinsAndCallsUnknownOnesAutomatic)
{
    World world;
    const Model model(kFullModel);
    psui::BinName names[4];
    WORD ids[4];
    ASSERT_EQ(psui::ListBins(names, model), 4u);
    ASSERT_EQ(psui::ListBinIds(ids, model), 4u);
    const std::pair<WORD, UINT> expected[] = {{7, 1271}, {1, 1272}, {2, 1273}, {4, 1271}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(ids[i], expected[i].first);
        EXPECT_EQ(NameIn(names[i]), LanguageText(expected[i].second));
    }
}

TEST(ListResolutions, ListsNumberedOptionsElseTheDefault)
{
    const auto resolutions = [](const psui::ModelDescription* model) {
        std::vector<std::array<LONG, 2>> pairs(psui::ListResolutions(nullptr, model));
        EXPECT_EQ(psui::ListResolutions(reinterpret_cast<LONG(*)[2]>(pairs.data()), model), pairs.size());
        return pairs;
    };
    using Pairs = std::vector<std::array<LONG, 2>>;
    EXPECT_EQ(resolutions(Model(kFullModel)), (Pairs{{300, 300}, {600, 600}, {1200, 1200}}));
    for (const char* text :
         {"*Resolution Draft: \"r\"\n", "*NickName: \"x\"\n", "*Resolution -600dpi: \"r\"\n"})
        EXPECT_EQ(resolutions(Model(text)), (Pairs{{300, 300}})) << text;
}

TEST(ListMediaTypes, ListsSixAtMostOutsideJapanese)
{
    const UINT strings[] = {1240, 1241, 1250, 1248, 1247, 1244, 1251, 1252};
    const DWORD codes[] = {266, 261, 263, 269, 271, 264, 270, 0};
    for (const std::string language : {"eng", "jpn"}) {
        World world(language);
        const Model model(kFullModel);
        const size_t count = language == "jpn" ? 8 : 6;
        const std::vector<std::u16string> names = MediaNames(model);
        ASSERT_EQ(names.size(), count);
        DWORD ids[8];
        ASSERT_EQ(psui::ListMediaTypes(ids, model), count);
        for (size_t i = 0; i < count; ++i) {
            EXPECT_EQ(names[i], LanguageText(strings[i])) << language << i;
            EXPECT_EQ(ids[i], codes[i]) << language << i;
        }
    }
}

TEST(ListMediaTypes, ListsFewerThanSixWhenTheModelHasFewer)
{
    World world;
    const Model model("*MediaType GlossyHagakiATN: \"270\"\n*MediaType Strange: \"5\"\n");
    // The card is not known by name outside Japanese.
    const std::u16string plain = LanguageText(1240);
    EXPECT_EQ(MediaNames(model), (std::vector{plain, plain}));
}

TEST(Lists, GiveEmptyNamesWithoutALanguageModule)
{
    World world("");
    const Model model(kFullModel);
    psui::PaperName names[5];
    std::memset(names, 0xEE, sizeof(names));
    ASSERT_EQ(psui::ListPapers(model, nullptr, 0, names, nullptr, nullptr, nullptr), 5u);
    for (const psui::PaperName& name : names)
        EXPECT_EQ(NameIn(name), u"");
    EXPECT_EQ(MediaNames(model), std::vector<std::u16string>(6));
}

TEST(PaperNameStringId, ComparesWholeKeywordsWithCase)
{
    EXPECT_EQ(psui::PaperNameStringId("Ledger_BL_SG"), 9180u);
    for (const char* keyword : {"a4", "A4 ", "A", "", "A4_BLX"})
        EXPECT_EQ(psui::PaperNameStringId(keyword), 0u) << keyword;
}

} // namespace
