#include "tests/psuictl/psuictl_run.h"

using PrinterCommands = PsuictlTest;

TEST_F(PrinterCommands, AddsListsAndRemovesAPrinterWithItsDriver)
{
    AddPrinter();
    const nlohmann::json list = JsonOutput("printer list");
    ASSERT_EQ(list.size(), 1u) << list;
    EXPECT_EQ(list[0]["name"], "P");
    EXPECT_EQ(list[0]["driver"], "Velmora Palette 310");
    EXPECT_EQ(list[0]["processor"], "winprint");
    EXPECT_EQ(list[0]["port"], "FILE:");
    EXPECT_TRUE(list[0]["dataFile"].get<std::string>().ends_with("\\palette310.ppd")) << list;
    for (const char* file : {"psui.dll", "VMLANG.DLL", "palette310.ppd"})
        EXPECT_TRUE(std::filesystem::exists(DriverFolder() / file)) << file;

    JsonOutput("caps P"); // leaves an image in the driver's folder
    EXPECT_EQ(JsonOutput("printer remove p"),
              nlohmann::json({{"printer", "P"}, {"driver", "Velmora Palette 310"}, {"driverRemoved", true}}));
    EXPECT_EQ(Output("printer list"), "");
    EXPECT_TRUE(std::filesystem::is_empty(DriverFolder()));
}

TEST_F(PrinterCommands, KeepADriverThatAnotherPrinterUses)
{
    AddPrinter();
    Output("printer add Q --model palette310.ppd --port LPT1:");
    EXPECT_FALSE(JsonOutput("printer remove P")["driverRemoved"]);
    EXPECT_EQ(JsonOutput("printer list")[0]["name"], "Q");
    EXPECT_GT(JsonOutput("caps Q --index 2")["2"]["result"], 0);
    EXPECT_TRUE(JsonOutput("printer remove Q")["driverRemoved"]);
}

TEST_F(PrinterCommands, NameTheDriverAfterTheFileWhenTheModelHasNoNickName)
{
    WriteText(Path("Büro.v2.ppd"), "*FileVersion: \"1.0\"\n");
    EXPECT_EQ(JsonOutput("printer add P --model Büro.v2.ppd")["driver"], "Büro.v2");
    EXPECT_EQ(JsonOutput("printer add Q --model Büro.v2.ppd --driver D")["driver"], "D");
}

TEST_F(PrinterCommands, LeaveNothingBehindWhenAPrinterCannotBeAdded)
{
    const std::string longName(41, 'x');
    WriteText(Path("long.ppd"), "*FileVersion: \"1.0\"\n*Media" + longName + ": 1\n");
    Sample("palette310.ppd");
    const std::pair<Words, const char*> rows[] = {
        {"printer add P --model missing.ppd", "missing.ppd"},
        {"printer add P --model long.ppd", "line 2"},
        {{"printer", "add", "P", "--model", "palette310.ppd", "--processor", ""}, "print processor"},
        {{"printer", "add", "P", "--model", "palette310.ppd", "--port", ""}, "port"},
        {"printer add a\\b,c --model palette310.ppd", "name"},
    };
    for (const auto& [line, reason] : rows) {
        Refuse(1, {line}, reason);
        EXPECT_EQ(JsonOutput("printer list").size(), 0u);
        EXPECT_TRUE(!std::filesystem::exists(DriverFolder()) || std::filesystem::is_empty(DriverFolder()))
            << reason;
    }
}

TEST_F(PrinterCommands, RefuseANameThatIsTakenAndOneThatIsNot)
{
    AddPrinter();
    Refuse(1, {"printer add p --model palette310.ppd"}, "exists");
    Refuse(1, {"printer remove Q"}, "'Q'");
    EXPECT_EQ(JsonOutput("printer list").size(), 1u);
}

TEST_F(PrinterCommands, UseTheNewTextWhenAModelIsInstalledAgainWithTheSameVersion)
{
    const auto install = [&](const std::string& printer, const std::string& rate) {
        WriteText(Path("m.ppd"), "*FileVersion: \"1.0\"\n*PrintRatePPM: " + rate + "\n");
        Output("printer add " + printer + " --model m.ppd");
        return JsonOutput("caps " + printer + " --index 26")["26"]["result"];
    };
    EXPECT_EQ(install("P", "10"), 10);
    EXPECT_EQ(install("Q", "20"), 20);
    Output("printer remove P");
    Output("printer remove Q");
    EXPECT_EQ(install("P", "30"), 30);
}

TEST_F(PrinterCommands, RefuseAModelWhoseFileNameAnotherDriverHas)
{
    WriteText(Path("m.ppd"), "*PrintRatePPM: 1\n");
    Output("printer add P --model m.ppd --driver first");
    Output("printer add Q --model m.ppd --driver second");
    WriteText(Path("m.ppd"), "*PrintRatePPM: 2\n");
    Refuse(1, {"printer add R --model m.ppd --driver third"}, "rename");
    EXPECT_EQ(ReadText(DriverFolder() / "m.ppd"), "*PrintRatePPM: 1\n");
}
