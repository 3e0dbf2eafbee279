#include "tests/psuictl/psuictl_run.h"
#include <tuple>

namespace {

constexpr int kTooSmall = 122;
constexpr int kBadArgument = 87;

class ConvertCommand : public PsuictlTest
{
protected:
    ConvertCommand()
    {
        AddPrinter();
        Output("convert P --mode 4 -o own.dm");
    }
};

TEST_F(ConvertCommand, TellsResultSizeAndErrorOfEveryMode)
{
    const std::tuple<std::string, bool, int, int> rows[] = {
        {"--mode 4", true, 1852, 0},
        {"--mode 4 --size 4000", true, 1852, 0},
        {"--mode 4 --size 1851", false, 1852, kTooSmall},
        {"--mode 2 own.dm", true, 300, 0},
        {"--mode 2 own.dm --size 200", false, 300, kTooSmall},
        {"--mode 1 own.dm", true, 1852, 0},
        {"--mode 1 own.dm --shape 188+112", true, 300, 0},
        {"--mode 1 own.dm --shape 188+112 --size 299", false, 299, kBadArgument},
    };
    for (const auto& [options, result, size, error] : rows) {
        std::filesystem::remove(Path("out.dm"));
        const Outcome outcome = Run("convert P --json -o out.dm " + options);
        const nlohmann::json json = outcome.Json();
        ASSERT_TRUE(json.is_object()) << outcome;
        EXPECT_EQ(outcome.code, result ? 0 : 1) << outcome;
        EXPECT_EQ(json["result"], result) << outcome;
        EXPECT_EQ(json["size"], size) << outcome;
        EXPECT_TRUE(result || json["error"] == error) << outcome;
        EXPECT_EQ(std::filesystem::exists(Path("out.dm")), result) << outcome;
        EXPECT_EQ(ReadText(Path("out.dm")).size(), static_cast<size_t>(result ? size : 0));
    }
}

TEST_F(ConvertCommand, PassesRecordsThroughPipes)
{
    const std::string own = ReadText(Path("own.dm"));
    const Outcome outcome = Run("convert P --mode 1 - -o -", own);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_TRUE(outcome.out == own);
    EXPECT_EQ(outcome.err, "TRUE, size 1852\n");
}

TEST_F(ConvertCommand, ComplainsWhenTheCallerItselfIsWrong)
{
    const std::string own = ReadText(Path("own.dm"));
    WriteText(Path("cut.dm"), own.substr(0, own.size() - 1));
    Refuse(1, {"convert P --mode 1 cut.dm", "convert P --mode 1 missing.dm", "convert Q --mode 4"});
    Refuse(2, {"convert P --mode 1", "convert P --mode 1 own.dm --shape 188",
               "convert P --mode 1 own.dm --shape 65536+0"});
}

TEST_F(ConvertCommand, MakesTheDefaultsOfTheCountryAndRestoresIt)
{
    const auto paper = [&](const std::string& options) {
        Output(options + " convert P --mode 4 -o new.dm");
        return JsonOutput("record show new.dm")["dmPaperSize"].get<int>();
    };
    const int before = paper("");
    EXPECT_EQ(paper("--country 1"), 1);
    EXPECT_EQ(paper(""), before);
    EXPECT_EQ(paper("--country 49"), 9);
    EXPECT_EQ(paper(""), before);
}

} // namespace
