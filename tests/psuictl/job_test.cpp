// What applications and the spooler ask about a job.
#include <thread>

#include "tests/psuictl/psuictl_run.h"

namespace {

class JobCommands : public PsuictlTest
{
protected:
    JobCommands()
    {
        AddPrinter();
        Output("record default P -o own.dm");
    }

    void Set(const std::string& assignment, const std::string& file) const
    {
        Output("record set own.dm " + assignment + " -o " + file);
    }

    nlohmann::json Merged(const std::string& file) const
    {
        Output("record merge P " + file + " -o merged.dm");
        return JsonOutput("record show merged.dm");
    }

    std::filesystem::path SettingsFile() const { return Path("root/drive_c/windows/lodestat.ini"); }
};

TEST_F(JobCommands, MakeTheSameDefaultAsTheSpoolersConversion)
{
    Output("convert P --mode 4 -o converted.dm");
    EXPECT_EQ(ReadText(Path("own.dm")), ReadText(Path("converted.dm")));
    EXPECT_EQ(JsonOutput("record default P -o again.dm")["size"], 1852);

    const Outcome streamed = Run("record default P -o -");
    EXPECT_EQ(streamed.out, ReadText(Path("own.dm")));
    EXPECT_EQ(streamed.err, "1852 bytes\n");
    Refuse(1, {"record default Q -o q.dm"});
    EXPECT_FALSE(std::filesystem::exists(Path("q.dm")));
}

TEST_F(JobCommands, MergeWhatTheApplicationWantsAndRepairWhatCannotBe)
{
    Set("dmPaperSize=5", "legal.dm");
    EXPECT_EQ(Merged("legal.dm")["dmPaperSize"], 5);
    Set("dmPrintQuality=7", "quality.dm");
    EXPECT_EQ(Merged("quality.dm")["dmPrintQuality"], -3);
    Refuse(1, {"record merge P missing.dm -o m.dm", "record merge Q own.dm -o m.dm"});
    EXPECT_FALSE(std::filesystem::exists(Path("m.dm")));
}

TEST_F(JobCommands, EndWithThreeAndTheReasonWhenAJobCannotPrint)
{
    Set("dmPaperSize=999", "paper.dm");
    EXPECT_EQ(JsonOutput("check P own.dm"), nlohmann::json({{"canPrint", true}, {"message", ""}}));
    EXPECT_EQ(Output("check P own.dm"), "can print\n");

    const Outcome refused = Run("check P paper.dm");
    EXPECT_EQ(refused.code, 3) << refused;
    EXPECT_TRUE(refused.out.starts_with("cannot print: ")) << refused;
    const Outcome json = Run("check P paper.dm --json");
    EXPECT_EQ(json.code, 3) << json;
    const std::string message = json.Json()["message"];
    EXPECT_NE(message, "");
    EXPECT_EQ("cannot print: " + message + "\n", refused.out);
    Refuse(1, {"check P missing.dm", "check Q own.dm"});
}

TEST_F(JobCommands, ShowWhatDocumentEventsLeaveForTheMonitor)
{
    const nlohmann::json events = JsonOutput("event document P 2 startdoc deletedc");
    ASSERT_EQ(events.size(), 3u) << events;
    EXPECT_TRUE(events[0]["atom"].is_null()) << events;
    EXPECT_FALSE(events[0]["variable"].is_null()) << events;
    EXPECT_FALSE(events[0]["value"].is_null()) << events;
    EXPECT_EQ(events[1]["event"], 5);
    EXPECT_EQ(events[1]["atom"], "VMSTSWIN-POPUPONPRINT P");
    EXPECT_TRUE(events[2]["variable"].is_null()) << events;
    EXPECT_EQ(events[2]["result"], 1);
    // The atom waits for the monitor, also in the next process.
    EXPECT_EQ(JsonOutput("event document P 0")[0]["atom"], "VMSTSWIN-POPUPONPRINT P");
    Refuse(2, {"event document P end", "event document P"});
}

TEST_F(JobCommands, ShowWhatTheMonitorIsTold)
{
    const nlohmann::json before = JsonOutput("monitor P");
    EXPECT_EQ(before["settingsFile"], "C:\\windows\\lodestat.ini");
    EXPECT_EQ(before["exists"], false);
    EXPECT_TRUE(before["mask"].is_null()) << before;
    EXPECT_EQ(JsonOutput("host show"), nlohmann::json::array());

    WriteText(SettingsFile(), "[LODESTAT]\r\nPrinter=Another\r\n[P]\r\nBits=0x104\r\n10=-4\r\n");
    WriteText(DriverFolder() / "LODESTAT.EXE", "");
    Set("bStatusMonitor=1", "monitored.dm");
    EXPECT_EQ(Merged("monitored.dm")["wPoster"], 2); // the monitor's choice: two by two sheets
    const nlohmann::json after = JsonOutput("monitor P");
    EXPECT_EQ(after["exists"], true);
    EXPECT_EQ(after["shownPrinter"], "P");
    EXPECT_EQ(after["section"]["10"], "-4");
    EXPECT_EQ(after["section"]["Lang"], "ENG");
    EXPECT_EQ(after["mask"], 0x104);
    EXPECT_EQ(after["items"], nlohmann::json({3, 10}));
    ASSERT_EQ(after["launches"].size(), 1u) << after;
    EXPECT_TRUE(after["launches"][0].get<std::string>().ends_with("\\3\\LODESTAT.EXE 1")) << after;

    const nlohmann::json recorded = JsonOutput("host show");
    ASSERT_EQ(recorded.size(), 1u) << recorded;
    EXPECT_EQ(recorded[0],
              nlohmann::json({{"kind", "launch"}, {"text", after["launches"][0]}, {"detail", "5"}}));
    EXPECT_NE(Output("host show").find("LODESTAT.EXE 1"), std::string::npos);
    EXPECT_NE(Output("monitor P").find("0x104: 3 10"), std::string::npos);
    Refuse(1, {"monitor Q"});
}

// The settings file is one for all printers, and every process writes it key by key.
TEST_F(JobCommands, LoseNothingWhenManyProcessesTellTheMonitorAtOnce)
{
    constexpr int kPrinters = 6, kRounds = 4;
    Set("bStatusMonitor=1", "monitored.dm");
    std::string file = "[LODESTAT]\r\nPrinter=Another\r\n";
    for (int i = 0; i < kPrinters; ++i) {
        const std::string name = "P" + std::to_string(i);
        Output("printer add " + name + " --model palette310.ppd");
        file += "[" + name + "]\r\nOwn=" + name + "\r\n";
    }
    for (int round = 0; round < kRounds; ++round) {
        WriteText(SettingsFile(), file);
        std::vector<std::thread> threads;
        for (int i = 0; i < kPrinters; ++i)
            threads.emplace_back([this, i] {
                const std::string name = "P" + std::to_string(i);
                EXPECT_EQ(Run("record merge " + name + " monitored.dm -o " + name + ".dm").code, 0);
            });
        for (std::thread& thread : threads)
            thread.join();
        for (int i = 0; i < kPrinters; ++i) {
            nlohmann::json section = JsonOutput("monitor P" + std::to_string(i))["section"];
            section.erase("Model"); // only of printers that the monitor did not show before
            EXPECT_EQ(section,
                      nlohmann::json(
                          {{"Own", "P" + std::to_string(i)}, {"Lang", "ENG"}, {"New", "1"}, {"Proc", "1"}}))
                << "round " << round;
        }
    }
}

} // namespace
