#include "tests/psuictl/psuictl_run.h"

using CommandLine = PsuictlTest;

TEST_F(CommandLine, EndsWithTwoAndPrintsNoResultWhenItIsWrong)
{
    const std::vector<std::vector<std::string>> lines = {
        {},
        {"fly"},
        {"printer"},
        {"printer", "add"},
        {"printer", "add", "P"},
        {"printer", "list", "extra"},
        {"printer", "list", "--colour"},
        {"printer", "list", "--country", "Japan"},
        {"printer", "list", "--country", "-1"},
        {"printer", "list", "--language", "fra"},
        {"caps"},
        {"caps", "P", "--index", "x"},
        {"caps", "P", "--index", "65536"},
        {"convert", "P", "--mode", "3"},
        {"convert", "P"},
        {"record", "show"},
        {"record", "show", ""},
        {"record", "set", "a.dm", "dmCopies=2"},
        {"model", "compile"},
        {"model", "lint"},
        {"record", "default", "P"},
        {"record", "merge", "P"},
        {"printer", "data"},
        {"printer", "data", "P", "V", "1", "--type", "real"},
        {"check", "P"},
        {"host"},
    };
    for (const auto& line : lines) {
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.code, 2) << testing::PrintToString(line) << outcome;
        EXPECT_EQ(outcome.out, "") << testing::PrintToString(line);
        EXPECT_TRUE(outcome.err.starts_with("psuictl: ")) << testing::PrintToString(line) << outcome;
    }
}

TEST_F(CommandLine, ExplainsEveryCommandWithExamples)
{
    const std::vector<std::string> commands[] = {
        {"printer", "add"},
        {"printer", "list"},
        {"printer", "remove"},
        {"caps"},
        {"convert"},
        {"record", "show"},
        {"record", "diff"},
        {"record", "set"},
        {"model", "compile"},
        {"model", "show"},
        {"model", "lint"},
        {"record", "default"},
        {"record", "merge"},
        {"printer", "data"},
        {"printer", "default"},
        {"printer", "forms"},
        {"check"},
        {"event", "document"},
        {"monitor"},
        {"host", "show"},
    };
    for (std::vector<std::string> command : commands) {
        std::string example = "psuictl";
        for (const std::string& word : command)
            example += " " + word;
        command.push_back("--help");
        const std::string help = Output(command);
        const size_t examples = help.find("Examples:");
        ASSERT_NE(examples, std::string::npos) << help;
        EXPECT_NE(help.find(example, examples), std::string::npos) << help;
        EXPECT_NE(help.find("--json"), std::string::npos) << help;
    }
}

TEST_F(CommandLine, TakesCommonOptionsBeforeAndAfterTheCommand)
{
    EXPECT_EQ(Output({"--json", "printer", "list"}), "[]\n");
    EXPECT_EQ(Output({"printer", "list", "--json"}), "[]\n");
}

TEST_F(CommandLine, KeepsItsDefaultRootInTheUsersDataFolder)
{
    const std::string command = "XDG_DATA_HOME='" + Path("data").string() +
                                "' " PSUI_PRODUCT_DIR "/psuictl printer list --json >'" +
                                Path("list").string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(ReadText(Path("list")), "[]\n");
    EXPECT_TRUE(std::filesystem::exists(Path("data/psui/host.db")));
}

TEST_F(CommandLine, FailsWhenTheRootCannotBeMade)
{
    WriteText(Path("occupied"), "");
    const Outcome outcome = Run({"--root", Path("occupied/root"), "printer", "list"});
    EXPECT_EQ(outcome.code, 1) << outcome;
    EXPECT_NE(outcome.err.find("--root"), std::string::npos) << outcome;
}
