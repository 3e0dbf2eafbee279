#include "psui/model/queries.h"

#include <array>
#include <sstream>
#include <tuple>

#include "model_fixture.h"
#include "psui/model/features.h"

namespace psui::test {

namespace {

struct DefaultCase
{
    std::string keyword;
    FeatureIndex index;
    uint16_t fallback;
};

/// What features default to in a model that lacks them.
std::vector<DefaultCase> Defaults()
{
    std::istringstream words(
        "MultiplePage 0 MediaType 0 HRC 0 Tray 7 Thickness 0 CM 1 CAPT 1 DOCTYPE 2 TTMODE 0 "
        "CMPMODE 9 GMODE 0 DIRMODE 1 CHALFTONE 3 COLOR 2 PageProtect 1 KCDraft 0 "
        "SFQuality 0 PrtArea 0");
    std::vector<DefaultCase> cases;
    uint16_t fallback;
    for (std::string keyword; words >> keyword >> fallback;)
        cases.push_back({keyword, FeatureIndex{compiler::DescribeFeature(keyword).index}, fallback});
    return cases;
}

// Two document features and three installable ones that exclude each other in a circle.
constexpr char kCircle[] =
    "*CM a: \"0\"\n*CM b: \"1\"\n*CM None: \"2\"\n"
    "*ICM c: \"0\"\n*ICM d: \"1\"\n*ICM False: \"2\"\n*DefaultICM: d\n"
    "*OpenGroup: InstallableOptions\n"
    "*OpenUI *P: PickOne\n*P p0: \"\"\n*P p1: \"\"\n*CloseUI: *P\n"
    "*OpenUI *Q: PickOne\n*DefaultQ: True\n*Q False: \"\"\n*Q True: \"\"\n*CloseUI: *Q\n"
    "*OpenUI *R: PickOne\n*R r0: \"\"\n*R r1: \"\"\n*R r2: \"\"\n*CloseUI: *R\n"
    "*CloseGroup: InstallableOptions\n";

ModelPtr CircleWith(const std::string& constraints)
{
    return CompileModel(kCircle + constraints);
}

} // namespace

TEST(Query, AnswersNeutrallyWithoutFeatureOrModel)
{
    const ModelPtr empty = CompileModel("");
    for (const ModelDescription* model :
         {static_cast<const ModelDescription*>(nullptr), static_cast<const ModelDescription*>(empty.get())}) {
        EXPECT_EQ(BuiltinFeature(model, kFeatureTray), nullptr);
        EXPECT_EQ(DefaultResolutionDpi(model), 300u);
        EXPECT_EQ(FindResolutionOption(model, 300), nullptr);
        EXPECT_FALSE(TrayHasChoice(model));
        EXPECT_FALSE(DuplexAvailable(model));
        EXPECT_EQ(SleepModeListItem(model, 2), 1);
        EXPECT_EQ(MemorySizeListItem(model, 2), 1);
        EXPECT_FALSE(OptionIsOff(model, 0, 0));
        EXPECT_FALSE(IsConstrained(model, 0, 0, 1, 0));
        uint8_t selections[kMaxSelections];
        std::memset(selections, 0x5A, sizeof(selections));
        EXPECT_EQ(FindConflict(model, selections, selections, 0, 0), 0u);
        EXPECT_EQ(DocumentFeatureDefaults(model, selections), 0);
        EXPECT_EQ(ResolveInstallableConflicts(model, selections), 0);
        for (uint8_t selection : selections)
            EXPECT_EQ(selection, 0x5A);
        for (const DefaultCase& c : Defaults())
            EXPECT_EQ(FeatureDefaultValue(model, c.index), c.fallback) << c.keyword;
    }
    EXPECT_EQ(FirstOption(nullptr), nullptr);
    EXPECT_EQ(OptionCount(nullptr), 0u);
    EXPECT_EQ(FindByNameIndexed(static_cast<const ModelOption*>(nullptr), "x").index, kNotFound);
    EXPECT_EQ(FindByTranslationOrName(nullptr, "x").index, kNotFound);
}

TEST(Query, ReadsTheDefaultOptionsCode)
{
    for (const DefaultCase& c : Defaults()) {
        const std::string& k = c.keyword;
        const ModelPtr model =
            CompileModel("*Default" + k + ": b\n*" + k + " a: \"4\"\n*" + k + " b: \" 65541x\"\n");
        EXPECT_EQ(FeatureDefaultValue(model.get(), c.index), 5) << k;
        EXPECT_EQ(FeatureDefaultValue(CompileModel("*Default" + k + ": b\n").get(), c.index), 0) << k;
    }
    ModelPtr model = CompileModel("*CM a: \"3\"\n*Tray x: \"\"\n*Duplex N: \"\"\n");
    const_cast<ModelFeature*>(BuiltinFeature(model.get(), kFeatureCm))->defaultOption = uint64_t{1} << 32;
    EXPECT_EQ(FeatureDefaultValue(model.get(), kFeatureCm), 0);
    EXPECT_FALSE(TrayHasChoice(model.get()));
    EXPECT_TRUE(DuplexAvailable(model.get()));
    EXPECT_TRUE(TrayHasChoice(CompileModel("*Tray x: \"\"\n*Tray y: \"\"\n").get()));
}

TEST(Query, ReadsDecimalsAsFarAsTheyGo)
{
    std::istringstream rows(
        "x 0  600dpi 600  -5 -5  +5 5  --5 0  2147483647 2147483647  2147483648 2147483647 "
        "-2147483648 -2147483648  -99999999999999999999 -2147483648");
    int32_t expected;
    for (std::string text; rows >> text >> expected;)
        EXPECT_EQ(DecimalOf(text.c_str()), expected) << text;
    EXPECT_EQ(DecimalOf(" \t12"), 12);
    for (const char* none : {static_cast<const char*>(nullptr), "", "- 5", "\n5"})
        EXPECT_EQ(DecimalOf(none), 0) << (none ? none : "null");
}

TEST(ListItem, IsTheNthNumberOrTheLast)
{
    // Lists with blanks for underscores, a number of an item and the item.
    std::istringstream rows(
        "10,20,30 0 10  10,20,30 2 30  10,20,30 9 30  10,20 2 20  10_20_30 2 30  10,,30 1 0 "
        "10,_30 2 30  10, 2 0  10 0 1  10 2 1  1,65537 1 1  10,20,30,40,50,60,70,80,90,10 2 30 "
        "10,20,30,40,50,60,70,80,90,100 2 1");
    int n, expected;
    for (std::string list; rows >> list >> n >> expected;) {
        std::replace(list.begin(), list.end(), '_', ' ');
        const ModelPtr model =
            CompileModel("*SleepMode x: \"" + list + "\"\n*MemorySize x: \"" + list + "\"\n");
        EXPECT_EQ(SleepModeListItem(model.get(), n), expected) << list << " item " << n;
        EXPECT_EQ(MemorySizeListItem(model.get(), n), expected) << list << " item " << n;
    }
    EXPECT_EQ(SleepModeListItem(CompileModel("*SleepMode x: \"10 20\t30\"\n").get(), 2), 30);
}

TEST(Selections, AreNeverWrittenPastTheirEnd)
{
    std::string text = "*Resolution 300: \"\"\n";
    for (int i = 0; i < 600; ++i) {
        const std::string name = "F" + std::to_string(i);
        text += (i == 300 ? "*OpenGroup: InstallableOptions\n" : "") + ("*OpenUI *" + name) +
                ": PickOne\n*Default" + name + ": b\n*" + name + " a: \"\"\n*" + name + " b: \"\"\n";
    }
    const ModelPtr model = CompileModel(text + "*UIConstraints: *F300 b *F7 a\n");
    uint8_t memory[kMaxSelections + 256];
    std::memset(memory, 0x77, sizeof(memory));
    auto& selections = reinterpret_cast<uint8_t(&)[kMaxSelections]>(memory);
    EXPECT_EQ(DocumentFeatureDefaults(model.get(), selections), 301);
    EXPECT_EQ(selections[0], 255);
    EXPECT_EQ(selections[kMaxSelections - 1], 1);
    EXPECT_EQ(ResolveInstallableConflicts(model.get(), selections), 300);
    EXPECT_EQ(selections[0], 1);
    EXPECT_EQ(std::count(memory + kMaxSelections, std::end(memory), 0x77), 256);
    EXPECT_EQ(FindConflict(model.get(), selections, selections, 8, 0), 0x10000u + (301 & 255) * 256 + 1)
        << "the code holds the low byte of the feature's number";
}

TEST(Constraint, ForbidsWhatItsEntriesSay)
{
    // CM is 0 (a b None), ICM is 1 (c d False).
    constexpr std::tuple<const char*, uint16_t, uint16_t, bool> kCases[] = {
        {"*CM a *ICM c", 0, 0, true},     {"*CM a *ICM c", 0, 1, false},   {"*CM a *ICM c", 1, 0, false},
        {"*CM a *ICM c", 255, 0, false},  {"*CM *ICM c", 0, 0, true},      {"*CM *ICM c", 2, 0, false},
        {"*CM *ICM c", 255, 0, true},     {"*CM *ICM c", 77, 0, true},     {"*CM None *ICM c", 2, 0, true},
        {"*CM a *ICM", 0, 1, true},       {"*CM a *ICM", 0, 2, false},     {"*CM a *ICM", 0, 255, true},
        {"*CM a *ICM False", 0, 2, true}, {"*CM a *ICM", 0, 77, true},     {"*ICM c *CM a", 0, 0, false},
        {"*CM zz *ICM", 0, 0, false},     {"*CM a *ICM c", 0, 255, false},
    };
    for (const auto& [entry, a, b, expected] : kCases) {
        const ModelPtr model = CircleWith(std::string("*UIConstraints: ") + entry + "\n");
        EXPECT_EQ(IsConstrained(model.get(), 0, a, 1, b), expected) << entry << " " << a << " " << b;
        EXPECT_FALSE(IsConstrained(model.get(), kUnresolved, a, 1, b)) << entry;
    }
}

TEST(Conflict, NamesTheChoiceThatForbids)
{
    // Features: 0 CM, 1 ICM, then installable 2 P, 3 Q, 4 R.
    const ModelPtr model = CircleWith("*UIConstraints: *CM b *ICM d\n*UIConstraints: *Q True *ICM d\n"
                                      "*UIConstraints: *R r1 *P p1\n*UIConstraints: *ICM *ICM d\n");
    const uint8_t off[kMaxSelections] = {0, 0, 0};
    const uint8_t on[kMaxSelections] = {0, 1, 1};
    const uint8_t b[kMaxSelections] = {1, 0};
    const uint8_t none[kMaxSelections] = {255, 1};
    EXPECT_EQ(FindConflict(model.get(), off, b, 1, 1), 0x20001u);
    EXPECT_EQ(FindConflict(model.get(), on, b, 1, 1), 0x20001u);
    EXPECT_EQ(FindConflict(model.get(), on, none, 1, 1), 0x10301u);
    EXPECT_EQ(FindConflict(model.get(), off, none, 1, 1), 0u);
    EXPECT_EQ(FindConflict(model.get(), on, b, 1, 255), 0u);
    EXPECT_EQ(FindConflict(model.get(), on, b, 1, 0), 0u);
    EXPECT_EQ(FindConflict(model.get(), on, nullptr, 0, 1), 0x10401u);
    EXPECT_EQ(FindConflict(model.get(), off, nullptr, 0, 1), 0u);
}

TEST(InstallableConflicts, AreRepaired)
{
    const struct
    {
        const char* why;
        const char* constraints;
        std::array<uint8_t, 3> expected;
    } cases[] = {
        {"nothing to do: P p0, Q True, R r0", "", {0, 1, 0}},
        {"the forbidden one moves", "*UIConstraints: *Q True *P p0\n", {1, 1, 0}},
        {"to its first free option",
         "*UIConstraints: *P p0 *R r0\n*UIConstraints: *Q True *R r1\n",
         {0, 1, 2}},
        {"else the one that forbids moves", "*UIConstraints: *Q True *P\n", {0, 0, 0}},
        {"to its first option that does not",
         "*UIConstraints: *R r0 *P\n*UIConstraints: *R r1 *P p0\n",
         {0, 1, 2}},
        {"which may forbid another", "*UIConstraints: *R r0 *P\n*UIConstraints: *R r1 *P p1\n", {0, 1, 1}},
        {"any option leaves False free", "*UIConstraints: *P p0 *Q\n", {0, 0, 0}},
        {"an option that is off forbids nothing",
         "*UIConstraints: *P *Q\n*UIConstraints: *Q *R r0\n",
         {0, 0, 0}},
        {"no way out leaves both alone", "*UIConstraints: *P *R\n", {0, 1, 0}},
        {"document features take no part", "*UIConstraints: *CM *P\n*UIConstraints: *P *CM\n", {0, 1, 0}},
        {"a feature does not exclude itself", "*UIConstraints: *P p0 *P p0\n", {0, 1, 0}},
    };
    for (const auto& c : cases) {
        const ModelPtr model = CircleWith(c.constraints);
        uint8_t selections[kMaxSelections] = {};
        EXPECT_EQ(ResolveInstallableConflicts(model.get(), selections), 3);
        EXPECT_TRUE(std::equal(c.expected.begin(), c.expected.end(), selections)) << c.why;
    }
}

TEST(Units, ConvertInSinglePrecisionAndTruncate)
{
    EXPECT_EQ(MicronsToPoints256(210000), 152390);
    EXPECT_EQ(MicronsToPoints256(297000), 215523);
    EXPECT_EQ(MicronsToPoints256(-25400), -18432);
    EXPECT_EQ(Points256ToMicrons(18432), 25400);
    EXPECT_EQ(Points256ToMicrons(595 * 256), 209902);
    EXPECT_EQ(Points256ToMicrons(-1), -1);
    EXPECT_EQ(Points256ToMicrons(INT32_MAX), INT32_MAX);
    EXPECT_EQ(Points256ToMicrons(INT32_MIN), INT32_MIN);
}

} // namespace psui::test
