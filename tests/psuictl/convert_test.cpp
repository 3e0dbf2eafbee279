#include "tests/psuictl/psuictl_run.h"

namespace {

constexpr int kTooSmall = 122;
constexpr int kBadArgument = 87;

class ConvertCommand : public PsuictlTest
{
protected:
    ConvertCommand()
    {
        AddPrinter();
        Output({"convert", "P", "--mode", "4", "-o", "own.dm"});
    }
};

TEST_F(ConvertCommand, TellsResultSizeAndErrorOfEveryMode)
{
    const struct
    {
        std::vector<std::string> options;
        bool result;
        int size;
        int error; ///< of failures only
    } rows[] = {
        {{"--mode", "4"}, true, 1852, 0},
        {{"--mode", "4", "--size", "4000"}, true, 1852, 0},
        {{"--mode", "4", "--size", "1851"}, false, 1852, kTooSmall},
        {{"--mode", "2", "own.dm"}, true, 300, 0},
        {{"--mode", "2", "own.dm", "--size", "200"}, false, 300, kTooSmall},
        {{"--mode", "1", "own.dm"}, true, 1852, 0},
        {{"--mode", "1", "own.dm", "--shape", "188+112"}, true, 300, 0},
        {{"--mode", "1", "own.dm", "--shape", "188+112", "--size", "299"}, false, 299, kBadArgument},
    };
    for (const auto& row : rows) {
        std::filesystem::remove(Path("out.dm"));
        std::vector<std::string> line = {"convert", "P", "--json", "-o", "out.dm"};
        line.insert(line.end(), row.options.begin(), row.options.end());
        const Outcome outcome = Run(line);
        const nlohmann::json json = outcome.Json();
        ASSERT_TRUE(json.is_object()) << testing::PrintToString(line) << outcome;
        EXPECT_EQ(outcome.code, row.result ? 0 : 1) << testing::PrintToString(line);
        EXPECT_EQ(json["result"], row.result) << testing::PrintToString(line);
        EXPECT_EQ(json["size"], row.size) << testing::PrintToString(line);
        EXPECT_TRUE(row.result || json["error"] == row.error) << testing::PrintToString(line);
        EXPECT_EQ(std::filesystem::exists(Path("out.dm")), row.result) << testing::PrintToString(line);
        EXPECT_EQ(ReadText(Path("out.dm")).size(), static_cast<size_t>(row.result ? row.size : 0));
    }
}

TEST_F(ConvertCommand, PassesRecordsThroughPipes)
{
    const std::string own = ReadText(Path("own.dm"));
    const Outcome outcome = Run({"convert", "P", "--mode", "1", "-", "-o", "-"}, own);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out == own);
    EXPECT_EQ(outcome.err, "TRUE, size 1852\n");
}

TEST_F(ConvertCommand, ComplainsWhenTheCallerItselfIsWrong)
{
    const std::string own = ReadText(Path("own.dm"));
    WriteText(Path("cut.dm"), own.substr(0, own.size() - 1));
    EXPECT_EQ(Run({"convert", "P", "--mode", "1", "cut.dm"}).code, 1);
    EXPECT_EQ(Run({"convert", "P", "--mode", "1", "missing.dm"}).code, 1);
    EXPECT_EQ(Run({"convert", "Q", "--mode", "4"}).code, 1);
    EXPECT_EQ(Run({"convert", "P", "--mode", "1"}).code, 2);
    EXPECT_EQ(Run({"convert", "P", "--mode", "1", "own.dm", "--shape", "188"}).code, 2);
    EXPECT_EQ(Run({"convert", "P", "--mode", "1", "own.dm", "--shape", "65536+0"}).code, 2);
}

TEST_F(ConvertCommand, MakesTheDefaultsOfTheCountryAndRestoresIt)
{
    const auto paper = [&](std::vector<std::string> options) {
        options.insert(options.end(), {"convert", "P", "--mode", "4", "-o", "new.dm"});
        Output(options);
        return JsonOutput({"record", "show", "new.dm"})["dmPaperSize"].get<int>();
    };
    const int before = paper({});
    EXPECT_EQ(paper({"--country", "1"}), 1);
    EXPECT_EQ(paper({}), before);
    EXPECT_EQ(paper({"--country", "49"}), 9);
    EXPECT_EQ(paper({}), before);
}

} // namespace
