// The descriptions in models/ as the driver understands them.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "host/host.h"
#include "lang/ids/papers.h"
#include "psui/model/keywords.h"
#include "psui/model/statement.h"
#include "tests/model/model_fixture.h"

namespace {

using namespace psui;
using psui::test::Collector;

std::string ReadText(const std::string& name)
{
    std::ifstream file(std::string(PSUI_SOURCE_DIR "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<const ModelOption*> Options(const ModelDescription& model, FeatureIndex index)
{
    std::vector<const ModelOption*> options;
    for (const ModelOption* o = FirstOption(BuiltinFeature(&model, index)); o; o = o->next.get())
        options.push_back(o);
    return options;
}

std::map<std::string, int> Codes(const ModelDescription& model, FeatureIndex index)
{
    std::map<std::string, int> codes;
    for (const ModelOption* option : Options(model, index))
        codes[option->name.get()] = DecimalOf(option->invocation.get());
    return codes;
}

const char* const kSamples[] = {"palette310", "palette520", "palette940"};

std::string SampleText(const std::string& name)
{
    return ReadText("models/" + name + ".ppd");
}

class Models : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override { ASSERT_TRUE(compiled_); }

    const ModelDescription& model() const { return *compiled_; }

    const std::string text_ = SampleText(GetParam());
    Collector findings_;
    const psui::test::ModelPtr compiled_ = psui::test::CompileModel(text_, &findings_);
};

INSTANTIATE_TEST_SUITE_P(Sample, Models, testing::ValuesIn(kSamples),
                         [](const auto& tested) { return std::string(tested.param); });

// The user-defined size has no dimensions of its own.
TEST_P(Models, RaiseOneFindingOnly)
{
    for (const psui::test::Skipped& finding : findings_.all)
        EXPECT_TRUE(finding.kind == DiagnosticKind::PageSizeWithoutGeometry && finding.detail == "User")
            << "line " << finding.line << ": " << finding.keyword << ' ' << finding.detail;
    EXPECT_EQ(findings_.all.size(), 1u);
}

// Without a version that the freshness check finds, every load would compile the text again.
TEST_P(Models, LoadFromTheirImageTheSecondTime)
{
    ASSERT_TRUE(host::Open({":memory:"}, nullptr));
    const WCHAR* const path = TEXT("C:\\model.ppd");
    std::ofstream(host::NativePath(path), std::ios::binary) << text_;
    for (const ModelSource expected : {ModelSource::Compiled, ModelSource::Image}) {
        ModelSource source = ModelSource::None;
        FreeModelDescription(LoadModelDescription(path, &source));
        EXPECT_EQ(source, expected);
    }
    host::Close();
}

TEST_P(Models, LeaveAMarginExceptOnBorderlessPapers)
{
    for (const ModelOption* option : Options(model(), kFeaturePageSize)) {
        const auto& size = reinterpret_cast<const PageSizeOption&>(*option);
        if (!size.width)
            continue;
        const ImageableArea& area = size.imageableArea;
        const bool full = !area.left && !area.bottom && area.right == size.width && area.top == size.height;
        const bool inside = area.left && area.bottom && area.left < area.right && area.bottom < area.top &&
                            area.right < size.width && area.top < size.height;
        const bool borderless = std::string_view(option->name.get()).find("_BL") != std::string_view::npos;
        EXPECT_TRUE(borderless ? full : inside) << option->name.get();
    }
}

TEST_P(Models, ResolveTheQualitiesThatJobsCarry)
{
    for (int quality = -4; quality <= -1; ++quality)
        EXPECT_TRUE(FindResolutionOption(&model(), quality)) << quality;
    EXPECT_EQ(DefaultResolutionDpi(&model()), 600u);
}

TEST_P(Models, ForbidEveryPairInBothDirections)
{
    const auto& entries = *model().constraints.get();
    EXPECT_GT(entries.count, 0);
    for (const ConstraintEntry& entry : entries) {
        const bool mirrored = std::any_of(entries.begin(), entries.end(), [&](const ConstraintEntry& other) {
            return other.feature1 == entry.feature2 && other.option1 == entry.option2 &&
                   other.feature2 == entry.feature1 && other.option2 == entry.option1;
        });
        EXPECT_TRUE(mirrored) << entry.feature1 << ' ' << entry.option1 << ' ' << entry.feature2 << ' '
                              << entry.option2;
    }
}

TEST_P(Models, StartWithChoicesThatGoTogether)
{
    uint8_t installed[kMaxSelections] = {};
    uint8_t chosen[kMaxSelections] = {};
    const uint16_t installable = ResolveInstallableConflicts(&model(), installed);
    const uint16_t features = DocumentFeatureDefaults(&model(), chosen);
    ASSERT_LE(features, kMaxSelections);
    for (uint16_t i = 0; i < installable; ++i)
        EXPECT_EQ(installed[i], uint64_t{NthNode(model().features.get(), features + i)->defaultOption}) << i;
    for (uint16_t i = 0; i < features; ++i)
        EXPECT_EQ(FindConflict(&model(), installed, chosen, i, chosen[i]), 0u)
            << NthNode(model().features.get(), i)->keyword.get();
}

/// Widths and lengths of papers in tenths of a millimetre, those in inches as their whole points give them:
/// 8.5 in are 215.9 mm.
constexpr char kSizes[] =
    "A4 2100 2970  Letter 2159 2794  Legal 2159 3556  Executive 1841 2667  B5JIS 1820 2570 "
    "A5 1480 2100  A6 1050 1480  Post_Card 1016 1524  HAGAKI 1000 1480 "
    "W_HAGAKI 2000 1480  Index_Card 1270 2032  Photo_L 890 1270  C5 1620 2290 "
    "Photo_2L 1270 1780  Com10 1047 2413  DL 1100 2200  JE4 1050 2350 "
    "Monarch 984 1905  User 0 0  A3 2970 4200  Ledger 2794 4318  B4JIS 2570 3640";

struct KnownSize
{
    int width = -1, length = -1;
};

/// The size of a paper, which is also that of its borderless and its single-sheet kind.
KnownSize SizeOf(std::string paper)
{
    for (const char* kind : {"_SG", "_BL"})
        if (paper.ends_with(kind))
            paper.resize(paper.size() - 3);
    std::istringstream words(kSizes);
    std::string name;
    for (KnownSize size; words >> name >> size.width >> size.length;)
        if (name == paper)
            return size;
    return {};
}

TEST_P(Models, GiveEveryPaperItsIdAndSize)
{
    const auto papers = Codes(model(), kFeaturePaper);
    EXPECT_TRUE(papers.contains("A4") && papers.contains("Letter")) << "new settings start with one of them";
    for (const auto& [name, id] : papers) {
        const auto named = std::find_if(std::begin(lang::kNamedPapers), std::end(lang::kNamedPapers),
                                        [&](const lang::NamedPaper& paper) { return name == paper.keyword; });
        ASSERT_NE(named, std::end(lang::kNamedPapers)) << name;
        EXPECT_EQ(id, named->id) << name;
        const KnownSize known = SizeOf(name);
        const auto* size = reinterpret_cast<const PageSizeOption*>(
            FindByName(FirstOption(BuiltinFeature(&model(), kFeaturePageSize)), name));
        EXPECT_EQ(Points256ToMicrons(static_cast<int32_t>(size->width)) / 100, known.width) << name;
        EXPECT_EQ(Points256ToMicrons(static_cast<int32_t>(size->height)) / 100, known.length) << name;
    }
}

const std::map<std::string, int> kMedia = {
    {"Plain_Paper", 1}, {"Inkjet_Paper", 261}, {"Glossy_RB", 271},       {"Glossy_CB", 269},
    {"Glossy_C", 263},  {"Transparency", 264}, {"GlossyHagakiATN", 272}, {"GlossyHagakiURA", 273},
};

TEST_P(Models, GiveEveryMediumItsCode)
{
    for (const auto& [name, code] : Codes(model(), kFeatureMediaType)) {
        ASSERT_TRUE(kMedia.contains(name)) << name;
        EXPECT_EQ(code, kMedia.at(name)) << name;
    }
}

// A list that is cut to six entries outside Japanese must not lose one of the others.
TEST_P(Models, ListJapaneseMediaAfterTheOthers)
{
    bool japanese = false;
    for (const ModelOption* option : Options(model(), kFeatureMediaType)) {
        const bool hagaki = std::string_view(option->name.get()).starts_with("GlossyHagaki");
        EXPECT_TRUE(hagaki || !japanese) << option->name.get();
        japanese |= hagaki;
    }
}

TEST(ModelLine, OffersEveryPaperAndMedium)
{
    std::set<std::string> papers, media;
    for (const char* sample : kSamples) {
        const auto model = psui::test::CompileModel(SampleText(sample));
        for (const auto& [name, code] : Codes(*model, kFeaturePaper))
            papers.insert(name);
        for (const auto& [name, code] : Codes(*model, kFeatureMediaType))
            media.insert(name);
    }
    EXPECT_EQ(papers.size(), std::size(lang::kNamedPapers));
    EXPECT_EQ(media.size(), kMedia.size());
}

// The samples are the compiler's reference material: a keyword that none of them uses is tried by nobody.
TEST(ModelLine, UsesEveryKeyword)
{
    std::set<std::string, std::less<>> used;
    for (const char* sample : kSamples) {
        const std::string text = SampleText(sample);
        compiler::Tokenizer tokenizer(text);
        compiler::ModelStatement statement{};
        while (tokenizer.Next(statement) == compiler::TokenStatus::Statement)
            used.emplace(statement.keyword);
    }
    for (const compiler::KeywordEntry& entry : compiler::AllKeywords())
        EXPECT_TRUE(used.contains(entry.keyword)) << entry.keyword;
}

TEST(ModelGuide, ShowsAnExampleThatCompilesWithoutFindings)
{
    const std::string guide = ReadText("docs/model-description.md");
    const std::string fence = "```ppd\n";
    const size_t begin = guide.find(fence);
    ASSERT_NE(begin, std::string::npos);
    const size_t end = guide.find("```", begin + fence.size());
    Collector findings;
    const auto model =
        psui::test::CompileModel(guide.substr(begin + fence.size(), end - begin - fence.size()), &findings);
    ASSERT_TRUE(model);
    EXPECT_TRUE(findings.all.empty());
    EXPECT_EQ(model->installableFeatureCount, 1);
    EXPECT_EQ(model->constraints->count, 2);
}

} // namespace
