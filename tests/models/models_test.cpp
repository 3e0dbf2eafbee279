// The descriptions in models/ as the driver understands them.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/host.h"
#include "lang/ids/papers.h"
#include "psui/model/image.h"
#include "psui/model/keywords.h"
#include "psui/model/queries.h"
#include "psui/model/statement.h"

namespace {

using namespace psui;

struct FreeModel
{
    void operator()(const ModelDescription* model) const { FreeModelDescription(model); }
};

struct Finding
{
    DiagnosticKind kind;
    std::string detail;

    bool operator==(const Finding&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Finding& finding)
{
    return out << "{kind " << static_cast<int>(finding.kind) << ", '" << finding.detail << "'}";
}

struct Findings final : DiagnosticSink
{
    std::vector<Finding> list;

    void Report(const Diagnostic& diagnostic) override
    {
        list.push_back({diagnostic.kind, std::string(diagnostic.detail)});
        EXPECT_FALSE(diagnostic.rejected) << "line " << diagnostic.line << ": " << diagnostic.keyword;
    }
};

std::string ReadText(const std::string& name)
{
    std::ifstream file(std::string(PSUI_SOURCE_DIR "/") + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Compiled
{
    std::unique_ptr<ModelDescription, FreeModel> model; ///< resolved; null when the text does not compile
    std::vector<Finding> findings;
};

Compiled Compile(const std::string& text)
{
    Findings sink;
    Compiled compiled;
    compiled.model.reset(CompileToImage(text, TEXT("C:\\model.ppd"), &sink));
    compiled.findings = sink.list;
    ModelDescription* model = compiled.model.get();
    if (model && !ResolveImage({reinterpret_cast<uint8_t*>(model), model->imageSize}))
        compiled.model.reset();
    return compiled;
}

std::vector<const ModelOption*> Options(const ModelFeature* feature)
{
    std::vector<const ModelOption*> options;
    for (const ModelOption* option = FirstOption(feature); option; option = option->next.get())
        options.push_back(option);
    return options;
}

std::vector<const ModelOption*> Options(const ModelDescription& model, FeatureIndex index)
{
    return Options(BuiltinFeature(&model, index));
}

std::map<std::string, int> Codes(const ModelDescription& model, FeatureIndex index)
{
    std::map<std::string, int> codes;
    for (const ModelOption* option : Options(model, index))
        codes[option->name.get()] = DecimalOf(option->invocation.get());
    return codes;
}

bool IsBorderless(const std::string& name)
{
    return name.find("_BL") != std::string::npos;
}

const char* const kSamples[] = {"palette310", "palette520", "palette940"};

// The user-defined size has no dimensions of its own.
const std::vector<Finding> kExpectedFindings = {{DiagnosticKind::PageSizeWithoutGeometry, "User"}};

std::string SampleText(const std::string& name)
{
    return ReadText("models/" + name + ".ppd");
}

class Models : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        text_ = SampleText(GetParam());
        compiled_ = Compile(text_);
        ASSERT_TRUE(compiled_.model);
    }

    const ModelDescription& model() const { return *compiled_.model; }

    std::string text_;
    Compiled compiled_;
};

INSTANTIATE_TEST_SUITE_P(Sample, Models, testing::ValuesIn(kSamples),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_P(Models, RaiseNoFindingsButTheExpected)
{
    EXPECT_EQ(compiled_.findings, kExpectedFindings);
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

TEST_P(Models, ListPapersAndPageSizesInStep)
{
    const auto papers = Options(model(), kFeaturePaper);
    const auto pageSizes = Options(model(), kFeaturePageSize);
    ASSERT_EQ(papers.size(), pageSizes.size());
    for (size_t i = 0; i < papers.size(); ++i)
        EXPECT_STREQ(papers[i]->name.get(), pageSizes[i]->name.get());
}

TEST_P(Models, OfferThePapersThatNewSettingsStartWith)
{
    const auto papers = Codes(model(), kFeaturePaper);
    EXPECT_TRUE(papers.contains("A4"));
    EXPECT_TRUE(papers.contains("Letter"));
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
        EXPECT_TRUE(IsBorderless(option->name.get()) ? full : inside) << option->name.get();
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
        ASSERT_NE(entry.feature1, kUnresolved);
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
    for (uint16_t i = 0; i < installable; ++i) {
        const uint64_t byDefault = NthNode(model().features.get(), features + i)->defaultOption;
        EXPECT_EQ(installed[i], byDefault) << i;
    }
    for (uint16_t i = 0; i < features; ++i)
        EXPECT_EQ(FindConflict(&model(), installed, chosen, i, chosen[i]), 0u)
            << NthNode(model().features.get(), i)->keyword.get();
}

TEST_P(Models, OrderNothingUnknown)
{
    for (const OrderEntry& entry : *model().orderDependencies.get())
        EXPECT_NE(entry.featureNumber, kUnresolved);
}

struct KnownSize
{
    const char* paper;
    int width;  ///< tenths of a millimetre
    int length; ///< tenths of a millimetre
};

// Sizes in inches are what their whole points give: 8.5 in are 215.9 mm.
constexpr KnownSize kSizes[] = {
    {"A4", 2100, 2970},
    {"Letter", 2159, 2794},
    {"Legal", 2159, 3556},
    {"Executive", 1841, 2667},
    {"B5JIS", 1820, 2570},
    {"A5", 1480, 2100},
    {"A6", 1050, 1480},
    {"Post_Card", 1016, 1524},
    {"HAGAKI", 1000, 1480},
    {"W_HAGAKI", 2000, 1480},
    {"Index_Card", 1270, 2032},
    {"Photo_L", 890, 1270},
    {"C5", 1620, 2290},
    {"Photo_2L", 1270, 1780},
    {"Com10", 1047, 2413},
    {"DL", 1100, 2200},
    {"JE4", 1050, 2350},
    {"Monarch", 984, 1905},
    {"User", 0, 0},
    {"A3", 2970, 4200},
    {"Ledger", 2794, 4318},
    {"B4JIS", 2570, 3640},
};

/// The size of a paper, which is also that of its borderless and its single-sheet kind.
const KnownSize* FindKnownSize(const std::string& name)
{
    std::string base = name;
    for (const char* kind : {"_SG", "_BL"})
        if (base.ends_with(kind))
            base.resize(base.size() - 3);
    const auto found = std::find_if(std::begin(kSizes), std::end(kSizes),
                                    [&](const KnownSize& size) { return base == size.paper; });
    return found == std::end(kSizes) ? nullptr : found;
}

TEST_P(Models, GiveEveryPaperItsIdAndSize)
{
    for (const auto& [name, id] : Codes(model(), kFeaturePaper)) {
        const auto named = std::find_if(std::begin(lang::kNamedPapers), std::end(lang::kNamedPapers),
                                        [&](const lang::NamedPaper& paper) { return name == paper.keyword; });
        ASSERT_NE(named, std::end(lang::kNamedPapers)) << name;
        EXPECT_EQ(id, named->id) << name;
        const KnownSize* known = FindKnownSize(name);
        ASSERT_TRUE(known) << name;
        const auto* size = reinterpret_cast<const PageSizeOption*>(
            FindByName(FirstOption(BuiltinFeature(&model(), kFeaturePageSize)), name));
        EXPECT_EQ(Points256ToMicrons(static_cast<int32_t>(size->width)) / 100, known->width) << name;
        EXPECT_EQ(Points256ToMicrons(static_cast<int32_t>(size->height)) / 100, known->length) << name;
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
    std::set<std::string> papers;
    std::set<std::string> media;
    for (const char* sample : kSamples) {
        const Compiled compiled = Compile(SampleText(sample));
        ASSERT_TRUE(compiled.model) << sample;
        for (const auto& [name, code] : Codes(*compiled.model, kFeaturePaper))
            papers.insert(name);
        for (const auto& [name, code] : Codes(*compiled.model, kFeatureMediaType))
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
    const Compiled compiled = Compile(guide.substr(begin + fence.size(), end - begin - fence.size()));
    ASSERT_TRUE(compiled.model);
    EXPECT_EQ(compiled.findings, std::vector<Finding>());
    EXPECT_EQ(compiled.model->installableFeatureCount, 1);
    EXPECT_EQ(compiled.model->constraints->count, 2);
}

} // namespace
