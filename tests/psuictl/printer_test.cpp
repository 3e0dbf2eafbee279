#include <tuple>

#include "tests/psuictl/psuictl_run.h"

using PrinterCommands = PsuictlTest;

TEST_F(PrinterCommands, AddsListsAndRemovesAPrinterWithItsDriver)
{
    AddPrinter();
    const nlohmann::json list = JsonOutput({"printer", "list"});
    ASSERT_EQ(list.size(), 1u) << list;
    EXPECT_EQ(list[0]["name"], "P");
    EXPECT_EQ(list[0]["driver"], "Velmora Palette 310");
    EXPECT_EQ(list[0]["processor"], "winprint");
    EXPECT_EQ(list[0]["port"], "FILE:");
    EXPECT_TRUE(list[0]["dataFile"].get<std::string>().ends_with("\\palette310.ppd")) << list;
    for (const char* file : {"psui.dll", "VMLANG.DLL", "palette310.ppd"})
        EXPECT_TRUE(std::filesystem::exists(DriverFolder() / file)) << file;

    JsonOutput({"caps", "P"}); // leaves an image in the driver's folder
    EXPECT_EQ(JsonOutput({"printer", "remove", "p"}),
              nlohmann::json({{"printer", "P"}, {"driver", "Velmora Palette 310"}, {"driverRemoved", true}}));
    EXPECT_EQ(Output({"printer", "list"}), "");
    EXPECT_TRUE(std::filesystem::is_empty(DriverFolder()));
}

TEST_F(PrinterCommands, KeepADriverThatAnotherPrinterUses)
{
    AddPrinter();
    Output({"printer", "add", "Q", "--model", "palette310.ppd", "--port", "LPT1:"});
    EXPECT_FALSE(JsonOutput({"printer", "remove", "P"})["driverRemoved"]);
    EXPECT_EQ(JsonOutput({"printer", "list"})[0]["name"], "Q");
    EXPECT_GT(JsonOutput({"caps", "Q", "--index", "2"})["2"]["result"], 0);
    EXPECT_TRUE(JsonOutput({"printer", "remove", "Q"})["driverRemoved"]);
}

TEST_F(PrinterCommands, NameTheDriverAfterTheFileWhenTheModelHasNoNickName)
{
    WriteText(Path("Büro.v2.ppd"), "*FileVersion: \"1.0\"\n");
    EXPECT_EQ(JsonOutput({"printer", "add", "P", "--model", "Büro.v2.ppd"})["driver"], "Büro.v2");
    EXPECT_EQ(JsonOutput({"printer", "add", "Q", "--model", "Büro.v2.ppd", "--driver", "D"})["driver"], "D");
}

TEST_F(PrinterCommands, LeaveNothingBehindWhenAPrinterCannotBeAdded)
{
    const std::string longName(41, 'x');
    WriteText(Path("long.ppd"), "*FileVersion: \"1.0\"\n*Media" + longName + ": 1\n");
    Sample("palette310.ppd");
    const std::tuple<std::vector<std::string>, const char*> rows[] = {
        {{"P", "--model", "missing.ppd"}, "missing.ppd"},
        {{"P", "--model", "long.ppd"}, "line 2"},
        {{"P", "--model", "palette310.ppd", "--processor", ""}, "print processor"},
        {{"P", "--model", "palette310.ppd", "--port", ""}, "port"},
        {{"a\\b,c", "--model", "palette310.ppd"}, "name"},
    };
    for (const auto& [options, complaint] : rows) {
        std::vector<std::string> line = {"printer", "add"};
        line.insert(line.end(), options.begin(), options.end());
        const Outcome outcome = Run(line);
        EXPECT_EQ(outcome.code, 1) << testing::PrintToString(line) << outcome;
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find(complaint), std::string::npos) << outcome;
        EXPECT_EQ(JsonOutput({"printer", "list"}).size(), 0u);
        EXPECT_TRUE(!std::filesystem::exists(DriverFolder()) || std::filesystem::is_empty(DriverFolder()))
            << testing::PrintToString(line);
    }
}

TEST_F(PrinterCommands, RefuseANameThatIsTakenAndOneThatIsNot)
{
    AddPrinter();
    const Outcome again = Run({"printer", "add", "p", "--model", "palette310.ppd"});
    EXPECT_EQ(again.code, 1);
    EXPECT_NE(again.err.find("exists"), std::string::npos) << again;
    const Outcome other = Run({"printer", "remove", "Q"});
    EXPECT_EQ(other.code, 1);
    EXPECT_NE(other.err.find("'Q'"), std::string::npos) << other;
    EXPECT_EQ(JsonOutput({"printer", "list"}).size(), 1u);
}

TEST_F(PrinterCommands, UseTheNewTextWhenAModelIsInstalledAgainWithTheSameVersion)
{
    const auto install = [&](const char* printer, const char* rate) {
        WriteText(Path("m.ppd"), "*FileVersion: \"1.0\"\n*PrintRatePPM: " + std::string(rate) + "\n");
        Output({"printer", "add", printer, "--model", "m.ppd"});
        return JsonOutput({"caps", printer, "--index", "26"})["26"]["result"];
    };
    EXPECT_EQ(install("P", "10"), 10);
    EXPECT_EQ(install("Q", "20"), 20);
    Output({"printer", "remove", "P"});
    Output({"printer", "remove", "Q"});
    EXPECT_EQ(install("P", "30"), 30);
}

TEST_F(PrinterCommands, RefuseAModelWhoseFileNameAnotherDriverHas)
{
    WriteText(Path("m.ppd"), "*PrintRatePPM: 1\n");
    Output({"printer", "add", "P", "--model", "m.ppd", "--driver", "first"});
    Output({"printer", "add", "Q", "--model", "m.ppd", "--driver", "second"});
    WriteText(Path("m.ppd"), "*PrintRatePPM: 2\n");
    const Outcome outcome = Run({"printer", "add", "R", "--model", "m.ppd", "--driver", "third"});
    EXPECT_EQ(outcome.code, 1) << outcome;
    EXPECT_NE(outcome.err.find("rename"), std::string::npos) << outcome;
    EXPECT_EQ(ReadText(DriverFolder() / "m.ppd"), "*PrintRatePPM: 1\n");
}
