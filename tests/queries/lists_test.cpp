#include "psui/queries/lists.h"

#include "psui/settings/record.h"
#include "tests/settings/support.h"

namespace {

using namespace test;

std::vector<std::u16string> MediaNames(const psui::ModelDescription* model)
{
    std::vector<psui::MediaName> names(psui::ListMediaTypeNames(nullptr, model));
    EXPECT_EQ(psui::ListMediaTypeNames(names.data(), model), names.size());
    std::vector<std::u16string> texts;
    for (const psui::MediaName& name : names)
        texts.push_back(Text(name, 64));
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
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(ids[i], expected[i].id) << i;
        EXPECT_EQ(sizes[i].x, expected[i].width) << i;
        EXPECT_EQ(sizes[i].y, expected[i].length) << i;
        const std::u16string name = expected[i].stringId ? LanguageText(expected[i].stringId) : u"";
        EXPECT_EQ(Text(names[i], 64), name) << i;
        EXPECT_EQ(std::count(names[i], names[i] + 64, u'\0'), 64 - static_cast<long>(name.size())) << i;
    }
    EXPECT_FALSE(LanguageText(9130).empty());
}

TEST(ListPapers, ListsNothingForAModelWithoutPapers)
{
    World world;
    const Model model("*PageSize A4: \"a\"\n");
    EXPECT_EQ(psui::ListPapers(model, nullptr, 0, nullptr, nullptr, nullptr, nullptr), 0u);
    EXPECT_EQ(psui::ListBins(nullptr, model), 0u);
    EXPECT_EQ(psui::ListBinIds(nullptr, model), 0u);
    EXPECT_EQ(psui::ListMediaTypes(nullptr, model), 0u);
    EXPECT_EQ(psui::ListMediaTypeNames(nullptr, model), 0u);
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
        EXPECT_EQ(Text(names[i], 24), LanguageText(expected[i].second));
    }
}

TEST(ListResolutions, ListsNumberedOptionsElseTheDefault)
{
    World world;
    LONG pairs[3][2];
    const Model model(kFullModel);
    ASSERT_EQ(psui::ListResolutions(nullptr, model), 3u);
    ASSERT_EQ(psui::ListResolutions(pairs, model), 3u);
    const LONG expected[3][2] = {{300, 300}, {600, 600}, {1200, 1200}};
    EXPECT_EQ(std::memcmp(pairs, expected, sizeof(pairs)), 0);
    for (const char* text :
         {"*Resolution Draft: \"r\"\n", "*NickName: \"x\"\n", "*Resolution -600dpi: \"r\"\n"}) {
        const Model other(text);
        ASSERT_EQ(psui::ListResolutions(pairs, other), 1u) << text;
        EXPECT_EQ(pairs[0][0], 300);
    }
}

TEST(ListMediaTypes, ListsSixAtMostOutsideJapanese)
{
    const std::vector<UINT> strings = {1240, 1241, 1250, 1248, 1247, 1244, 1251, 1252};
    for (const char* language : {"eng", "jpn"}) {
        World world(language);
        const Model model(kFullModel);
        const size_t count = std::string(language) == "jpn" ? 8 : 6;
        const std::vector<std::u16string> names = MediaNames(model);
        ASSERT_EQ(names.size(), count);
        for (size_t i = 0; i < count; ++i)
            EXPECT_EQ(names[i], LanguageText(strings[i])) << language << i;

        DWORD ids[8];
        ASSERT_EQ(psui::ListMediaTypes(ids, model), count);
        const DWORD expected[] = {266, 261, 263, 269, 271, 264, 270, 0};
        EXPECT_TRUE(std::equal(ids, ids + count, expected)) << language;
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
        EXPECT_EQ(std::count(name, name + 64, u'\0'), 64);
    EXPECT_EQ(MediaNames(model), std::vector<std::u16string>(6));
}

TEST(PaperNameStringId, ComparesWholeKeywordsWithCase)
{
    EXPECT_EQ(psui::PaperNameStringId("Ledger_BL_SG"), 9180u);
    for (const char* keyword : {"a4", "A4 ", "A", "", "A4_BLX"})
        EXPECT_EQ(psui::PaperNameStringId(keyword), 0u) << keyword;
}

} // namespace
