#include <tuple>

#include "tests/psuictl/psuictl_run.h"

using ModelCompile = PsuictlTest;
using ModelShow = PsuictlTest;
using ModelLint = PsuictlTest;

TEST_F(ModelCompile, WritesTheImageOnceAndReusesItUntilTheVersionChanges)
{
    const auto source = [&] { return JsonOutput("model compile m.ppd")[0]["source"]; };
    WriteText(Path("m.ppd"), "*FileVersion: \"1.0\"\n");
    EXPECT_EQ(source(), "text");
    EXPECT_EQ(source(), "image");
    WriteText(Path("m.ppd"), "*FileVersion: \"1.1\"\n");
    EXPECT_EQ(source(), "text");
    EXPECT_EQ(source(), "image");
}

TEST_F(ModelCompile, TellsSizesAndFeaturesAndCopiesTheImage)
{
    const std::string model = Sample("palette310.ppd");
    for (const std::string target : {"compiled.BDD", "reused.BDD"}) {
        const nlohmann::json row = JsonOutput("model compile " + model + " -o " + target)[0];
        const std::string image = ReadText(Path("palette310.BDD"));
        EXPECT_EQ(row["textBytes"], ReadText(Path(model)).size());
        EXPECT_EQ(row["imageBytes"], image.size());
        EXPECT_GT(row["documentFeatures"], 0);
        EXPECT_EQ(ReadText(Path(target)), image) << target;
    }
}

TEST_F(ModelCompile, GoesOnWithTheOtherTextsWhenOneDoesNotCompile)
{
    WriteText(Path("bad.ppd"), "*FileVersion: \"1.0\"\n*MediaType " + std::string(41, 'x') + ": \"1\"\n");
    WriteText(Path("good.ppd"), "*FileVersion: \"1.0\"\n");
    const Outcome outcome = Run("model compile bad.ppd missing.ppd good.ppd --json");
    EXPECT_EQ(outcome.code, 1) << outcome;
    EXPECT_EQ(outcome.Json().size(), 1u) << outcome;
    EXPECT_NE(outcome.err.find("'bad.ppd' does not compile: line 2"), std::string::npos) << outcome;
    EXPECT_NE(outcome.err.find("missing.ppd"), std::string::npos) << outcome;
    EXPECT_FALSE(std::filesystem::exists(Path("bad.BDD")));
    EXPECT_EQ(Run("model compile good.ppd good.ppd -o x").code, 2);
}

TEST_F(ModelShow, ExplainsATextAndItsImageAlike)
{
    for (const std::string name : {"palette310.ppd", "palette520.ppd", "palette940.ppd"}) {
        const std::string model = Sample(name);
        Output("model compile " + model + " -o image");
        const nlohmann::json text = JsonOutput("model show " + model);
        EXPECT_EQ(text, JsonOutput("model show image")) << name;
        EXPECT_EQ(text["features"].size(),
                  text["documentFeatureCount"].get<size_t>() + text["installableFeatureCount"].get<size_t>());
    }
}

TEST_F(ModelShow, NamesDefaultsGeometryConstraintsAndOrders)
{
    WriteText(Path("m.ppd"), "*NickName: \"M<8341> 1\"\n"
                             "*DefaultPageSize: B\n"
                             "*PageSize A/First: \"one\r\ntwo\"\n"
                             "*PageSize B: \"\"\n"
                             "*PaperDimension B: \"72 144.5\"\n"
                             "*ImageableArea B: \"1 2 71 140\"\n"
                             "*Resolution 600dpi: \"\"\n"
                             "*OpenUI *Extra: PickMany\n"
                             "*Extra Yes: \"1\"\n"
                             "*CloseUI: *Extra\n"
                             "*UIConstraints: *Extra Yes *PageSize\n"
                             "*UIConstraints: *Extra No *PageSize\n"
                             "*OrderDependency: 10.5 PageSetup *Extra Yes\n"
                             "*Font Symbol: \"s\"\n");
    const nlohmann::json model = JsonOutput("model show m.ppd");
    EXPECT_EQ(model["nickName"], "M<83>A 1");
    const nlohmann::json& sizes = model["features"][0];
    EXPECT_EQ(sizes["keyword"], "PageSize");
    EXPECT_EQ(sizes["default"], "B");
    EXPECT_EQ(sizes["defaultIndex"], 1);
    EXPECT_EQ(sizes["options"][0]["translation"], "First");
    EXPECT_EQ(sizes["options"][0]["invocation"], "one\r\ntwo");
    EXPECT_EQ(sizes["options"][1]["height"], 144.5);
    EXPECT_EQ(sizes["options"][1]["imageableArea"], nlohmann::json({1.0, 2.0, 71.0, 140.0, 0.0, 0.0}));
    EXPECT_EQ(model["features"][1]["defaultDpi"], 600);
    EXPECT_EQ(model["features"][2]["uiType"], "PickMany");
    EXPECT_EQ(model["constraints"][0],
              nlohmann::json::parse(R"({"resolved": true, "feature1": "Extra", "option1": "Yes",
                                        "feature2": "PageSize", "option2": null})"));
    EXPECT_EQ(model["constraints"][1], nlohmann::json::parse(R"({"resolved": false})"));
    EXPECT_EQ(model["orderDependencies"][0],
              nlohmann::json::parse(R"({"resolved": true, "order": 10.5, "section": "PageSetup",
                                        "feature": "Extra", "option": "Yes"})"));
    EXPECT_EQ(model["residentFonts"][0], nlohmann::json::parse(R"({"number": 61, "name": "Symbol",
                                                                   "value": "s"})"));

    const std::string text = Output("model show m.ppd");
    for (const char* part :
         {"72.00 x 144.50 pt (25.40 x 50.98 mm)", "one<0D0A>two",
          "margins left 0.35 bottom 0.71 right 0.35 top 1.59 mm", "Extra=Yes        forbids  PageSize"})
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
}

TEST_F(ModelShow, RefusesADamagedImage)
{
    Output("model compile " + Sample("palette310.ppd") + " -o image");
    std::string image = ReadText(Path("image"));
    constexpr size_t kFeatures = 280; // the reference to the feature list
    image.replace(kFeatures, 4, std::string("\x01\x02\x00\x00", 4));
    WriteText(Path("image"), image);
    Refuse(1, {"model show image"}, "damaged");
}

TEST_F(ModelLint, TellsWhatIsSkippedAndWhere)
{
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"*ColorDevice: \"True\"", "wrong-value-kind", true},
        {"*CloseGroup: InstallableOptions", "bad-block", true},
        {"*MediaTipe A: \"1\"", "unknown-keyword", false},
        {"*UIConstraints: *Nothing *Nowhere", "constraint-names-nothing", false},
    };
    for (const auto& [statement, kind, rejected] : rows) {
        WriteText(Path("m.ppd"), "*FileVersion: \"1.0\"\n" + std::string(statement) + "\n");
        const Outcome outcome = Run("model lint m.ppd --json");
        EXPECT_EQ(outcome.code, rejected ? 1 : 0) << statement << outcome;
        const nlohmann::json list = outcome.Json();
        ASSERT_EQ(list.size(), 1u) << statement << outcome;
        EXPECT_EQ(list[0]["kind"], kind) << outcome;
        EXPECT_EQ(list[0]["line"], 2) << outcome;
        EXPECT_EQ(list[0]["rejected"], rejected) << outcome;
    }
}

TEST_F(ModelLint, WritesCompilerStyleLinesAndASummary)
{
    WriteText(Path("m.ppd"), "*FileVersion: \"1.0\"\n*Oops\n*ColorDevice: \"True\"\n");
    const Outcome outcome = Run("model lint m.ppd -", "*MediaType " + std::string(41, 'x') + ": \"1\"\n");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_NE(outcome.out.find("m.ppd:2: note: "), std::string::npos) << outcome;
    EXPECT_NE(outcome.out.find("m.ppd:3: rejected: "), std::string::npos) << outcome;
    EXPECT_NE(outcome.out.find("-:1: rejected: "), std::string::npos) << outcome;
    EXPECT_TRUE(outcome.out.ends_with("2 files, 2 statements rejected, 1 note, 1 file without a model\n"))
        << outcome;
}
