#include "tests/psuictl/psuictl_run.h"

using CommandLine = PsuictlTest;

TEST_F(CommandLine, EndsWithTwoAndPrintsNoResultWhenItIsWrong)
{
    Refuse(2, {{"record", "show", ""}});
    for (const char* line : {"",
                             "fly",
                             "printer",
                             "printer add",
                             "printer add P",
                             "printer list extra",
                             "printer list --colour",
                             "printer list --country Japan",
                             "printer list --country -1",
                             "printer list --language fra",
                             "caps",
                             "caps P --index x",
                             "caps P --index 65536",
                             "convert P --mode 3",
                             "convert P",
                             "record show",
                             "record set a.dm dmCopies=2",
                             "model compile",
                             "model lint",
                             "record default P",
                             "record merge P",
                             "printer data",
                             "printer data P V 1 --type real",
                             "check P",
                             "host"})
        Refuse(2, {line});
}

TEST_F(CommandLine, ExplainsEveryCommandWithExamples)
{
    for (const std::string command :
         {"printer add",  "printer list", "printer remove",  "caps",          "convert",    "record show",
          "record diff",  "record set",   "model compile",   "model show",    "model lint", "record default",
          "record merge", "printer data", "printer default", "printer forms", "check",      "event document",
          "monitor",      "host show",    "preferences",     "properties",    "summary"}) {
        const std::string help = Output(command + " --help");
        const size_t examples = help.find("Examples:");
        ASSERT_NE(examples, std::string::npos) << help;
        EXPECT_NE(help.find("psuictl " + command, examples), std::string::npos) << help;
        EXPECT_NE(help.find("--json"), std::string::npos) << help;
    }
}

TEST_F(CommandLine, TakesCommonOptionsBeforeAndAfterTheCommand)
{
    EXPECT_EQ(Output("--json printer list"), "[]\n");
    EXPECT_EQ(Output("printer list --json"), "[]\n");
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
    Refuse(1, {"--root " + Path("occupied/root").string() + " printer list"}, "--root");
}
