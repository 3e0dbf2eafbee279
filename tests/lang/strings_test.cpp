// The texts of the language modules, loaded as the library loads them, against the ids of lang/ids/strings.h.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include <windows.h>

#include "host/host.h"
#include "lang/ids/strings.h"

namespace {

struct StringId
{
    std::string name;
    unsigned id;
    bool optional;
};

const StringId kIds[] = {
#include "string_ids.inc"
};

/// Room in the records that take the texts, without the terminator. The first prefix that fits counts.
constexpr char kLimits[] = "IDS_PAPER_ 63  IDS_BIN_ 23  IDS_MEDIA_ 31  IDS_DATE_FONT 31  IDS_LABEL_ 63 "
                           "IDS_VALUE_ 63  IDS_TAB_ 49  IDS_SUMMARY_PAGE 49  IDS_HEADING_ 123 "
                           "IDS_FAVOURITE_RESET_ 49  IDS_SPOOLER_LANGUAGE 15  IDS_ 255";

size_t LimitOf(const std::string& name)
{
    std::istringstream rows(kLimits);
    std::string prefix;
    size_t units = 0;
    while (rows >> prefix >> units && !name.starts_with(prefix))
        continue;
    return units;
}

constexpr unsigned kHighestId = 65535;

class Language : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(host::Open({":memory:"}, nullptr));
        const std::string file = std::string(PSUI_PRODUCT_DIR "/") + GetParam() + "/VMLANG.DLL";
        module_ = LoadLibraryExW(host::WindowsPath(file).c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
        ASSERT_TRUE(module_) << file;
    }

    void TearDown() override
    {
        if (module_)
            FreeLibrary(module_);
        host::Close();
    }

    std::u16string Load(unsigned id) const
    {
        char16_t buffer[1024];
        const int length = LoadStringW(module_, id, buffer, std::size(buffer));
        return {buffer, static_cast<size_t>(length)};
    }

    static bool IsJapanese() { return GetParam() == std::string("jpn"); }

    HMODULE module_ = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Of, Language, testing::Values("eng", "jpn"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_P(Language, HasATextThatFitsForEveryId)
{
    for (const StringId& row : kIds) {
        const std::u16string text = Load(row.id);
        EXPECT_TRUE(row.optional || !text.empty()) << row.name;
        EXPECT_LE(text.size(), LimitOf(row.name)) << row.name;
    }
}

TEST_P(Language, HasNoTextWithoutAnId)
{
    for (unsigned id = 0; id <= kHighestId; ++id) {
        const auto named = [&](const StringId& row) { return row.id == id; };
        EXPECT_TRUE(Load(id).empty() || std::any_of(std::begin(kIds), std::end(kIds), named)) << id;
    }
}

// The resource compiler accepts an id twice and keeps one of the texts.
TEST_P(Language, WritesNoIdTwice)
{
    std::ifstream script(std::string(PSUI_SOURCE_DIR "/lang/") + GetParam() + "/strings.rc");
    std::map<std::string, int> seen;
    for (std::string line; std::getline(script, line);) {
        std::string name;
        std::istringstream(line) >> name;
        if (name.starts_with("IDS_")) {
            EXPECT_EQ(++seen[name], 1) << name;
        }
    }
    const auto optional =
        std::count_if(std::begin(kIds), std::end(kIds), [](const StringId& row) { return row.optional; });
    EXPECT_GE(seen.size() + static_cast<size_t>(optional), std::size(kIds));
}

// Applications find a paper, source or medium by its name, and messages list papers with "/" between them.
TEST_P(Language, TellsTheEntriesOfAListApart)
{
    for (const std::string list : {"IDS_PAPER_", "IDS_BIN_", "IDS_MEDIA_"}) {
        std::map<std::u16string, std::string> names;
        for (const StringId& row : kIds) {
            if (!row.name.starts_with(list))
                continue;
            const auto [same, added] = names.emplace(Load(row.id), row.name);
            EXPECT_TRUE(added) << row.name << " reads like " << same->second;
            const bool separated = same->first.find_first_of(u"/\t\r\n&") != std::u16string::npos;
            EXPECT_FALSE(separated && list == "IDS_PAPER_") << row.name;
        }
        EXPECT_GE(names.size(), 3u) << list;
    }
}

/// What stays of a text on its way through the code page, and how many bytes that takes.
std::u16string Through(UINT codePage, const std::u16string& text, int& bytes)
{
    char narrow[1024];
    char16_t wide[1024];
    bytes = WideCharToMultiByte(codePage, 0, text.data(), static_cast<int>(text.size()), narrow,
                                sizeof narrow, nullptr, nullptr);
    const int units = MultiByteToWideChar(codePage, 0, narrow, bytes, wide, std::size(wide));
    return {wide, static_cast<size_t>(units)};
}

struct ByteLimit
{
    unsigned first, last;
    int bytes;
};

/// Room in the records that keep texts in the code page, without the terminator.
constexpr ByteLimit kByteLimits[] = {
    {IDS_SUNDAY, IDS_DECEMBER, 5},
    {IDS_FAVOURITE_STANDARD, IDS_FAVOURITE_CUSTOM, 49},
};

TEST_P(Language, KeepsItsTextsInItsCodePage)
{
    for (const StringId& row : kIds) {
        const std::u16string text = Load(row.id);
        int bytes = 0;
        const bool arrow = row.id == IDS_SCALED_TO; // only ever shown
        EXPECT_TRUE(arrow || Through(IsJapanese() ? 932 : 1252, text, bytes) == text) << row.name;
        for (const ByteLimit& limit : kByteLimits)
            EXPECT_TRUE(row.id < limit.first || row.id > limit.last || bytes <= limit.bytes) << row.name;
    }
}

// Texts that the library compares, or passes to the system as they stand; empty where a language does
// without.
TEST_P(Language, AnswersWhatTheLibraryAsksOfIt)
{
    const std::tuple<unsigned, const char16_t*, const char16_t*> facts[] = {
        {IDS_SITE_LANGUAGE, u"en", u"ja"},   {IDS_SPOOLER_LANGUAGE, u"1033", u"1041"},
        {IDS_OWN_DATE1, u"", u"2009/6/26"},  {IDS_REGION, u"USA", u"JPN"},
        {IDS_LANGUAGE_CODE, u"ENG", u"JPN"}, {IDS_DATE_FONT, u"", u"ＭＳ ゴシック"}};
    for (const auto& [id, english, japanese] : facts)
        EXPECT_EQ(Load(id), IsJapanese() ? japanese : english) << id;
}

} // namespace
