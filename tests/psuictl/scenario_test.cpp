#include <algorithm>
#include <set>
#include <sstream>
#include <tuple>

#include "tests/psuictl/psuictl_run.h"

namespace {

const std::filesystem::path kScenarios = PSUI_SOURCE_DIR "/tests/psuictl/scenarios";

class Scenario : public PsuictlTest
{
protected:
    Scenario()
    {
        AddPrinter("palette940.ppd");
        Output("record default P -o default.dm");
        Output("record set default.dm dmCopies=3 dmFields=0x02011B03 -o in.dm");
    }

    static Words Line(const std::string& file, const Words& options, const std::string& printer = "P")
    {
        Words line = "preferences " + printer + " --scenario " + file + " --shots new/shots";
        line.insert(line.end(), options.begin(), options.end());
        return line;
    }

    /// The printer that a scenario is for: "P", or one of its own for another model.
    std::string PrinterFor(const Words& model)
    {
        if (model.empty())
            return "P";
        const auto sample = std::filesystem::path(PSUI_SOURCE_DIR "/models") / model[0];
        const bool isSample = std::filesystem::exists(sample);
        if (printers_.insert(model[0]).second)
            Output({"printer", "add", model[0], "--model", isSample ? sample : kScenarios / model[0]});
        return model[0];
    }

private:
    std::set<std::string> printers_;
};

/// The words behind "# NAME:" at the head of a scenario (docs/scenarios.md); none when there is no such line.
Words HeadOf(const std::filesystem::path& file, const std::string& name)
{
    const std::string head = "# " + name + ":";
    std::istringstream lines(ReadText(file));
    for (std::string line; std::getline(lines, line) && line.starts_with('#');) {
        if (!line.starts_with(head))
            continue;
        return line.substr(head.size());
    }
    return {};
}

TEST_F(Scenario, PlaysEveryFile)
{
    size_t played = 0;
    for (const auto& entry : std::filesystem::directory_iterator(kScenarios)) {
        if (entry.path().extension() != ".txt")
            continue;
        const std::string printer = PrinterFor(HeadOf(entry.path(), "model"));
        Words options = HeadOf(entry.path(), "options");
        if (const Words fields = HeadOf(entry.path(), "record"); !fields.empty()) {
            Output("record default " + printer + " -o start.dm");
            Words set = "record set start.dm -o start.dm";
            set.insert(set.end(), fields.begin(), fields.end());
            Output(set);
            options.insert(options.end(), {"--record", "start.dm"});
        }
        const Outcome outcome = Run(Line(entry.path(), options, printer));
        EXPECT_EQ(outcome.code, 0) << outcome;
        ++played;
    }
    EXPECT_GE(played, 8u);
    EXPECT_EQ(ReadText(Path("new/shots/summary.png")).substr(1, 3), "PNG");
}

TEST_F(Scenario, WritesConfirmedRecordOnly)
{
    WriteText(Path("ok.txt"), "wait IDC_SUMMARY\nok\n");
    WriteText(Path("cancel.txt"), "wait IDC_SUMMARY\ncancel\n");
    const nlohmann::json cancelled =
        JsonOutput(Line("cancel.txt", "--pages 2 --record in.dm -o cancelled.dm"));
    EXPECT_EQ(cancelled["confirmed"], false);
    EXPECT_FALSE(std::filesystem::exists(Path("cancelled.dm")));
    const nlohmann::json confirmed = JsonOutput(Line("ok.txt", "--pages 2 --record in.dm -o confirmed.dm"));
    EXPECT_EQ(confirmed["confirmed"], true);
    EXPECT_EQ(confirmed["steps"], 2);
    EXPECT_EQ(JsonOutput("record show confirmed.dm")["dmCopies"], 3);
}

TEST_F(Scenario, NamesLineAndWhatWasFoundWhenStepFails)
{
    const std::tuple<const char*, int, const char*> rows[] = {
        {"wait IDC_SUMMARY\nexpect enabled IDC_SETTINGS off\n", 1,
         "s.txt:2: expect enabled IDC_SETTINGS off: expected off, found on"},
        {"wait IDC_SUMMARY\nexpect record dmCopies 2\n", 1,
         "s.txt:2: expect record dmCopies 2: expected 2, found 1"},
        {"wait IDC_SUMMARY\nok\nexpect result cancel\n", 1,
         "s.txt:3: expect result cancel: expected cancel, found ok"},
        {"wait IDC_SUMMARY\nok\nclick IDC_SETTINGS\n", 1, "s.txt:3: click IDC_SETTINGS: no dialog is open"},
        {"wait IDC_SUMMARY\nexpect record nobody 1\n", 1, "'nobody' is no field of the record"},
        {"wait IDC_SUMMARY\nexpect text IDC_SETTINGS \"a\" \"b\"\n", 1, "expected \"ab\", found \"&Change"},
        {"wait IDC_SUMMARY\nexpect icon none\nexpect icon error\n", 1,
         "s.txt:3: expect icon error: expected error, found none"},
        {"wait IDC_SUMMARY\nexpect recorded help \"x\" \"y\"\n", 1, "expected \"x (y)\", found no entries"},
        {"wait IDC_SUMMARY\n", 1, "the scenario ends while the dialog \"P Properties\" is still open"},
        {"wait IDC_SUMMARY\nclack\n", 2, "s.txt:2: 'clack' is no step"},
    };
    for (const auto& [steps, code, complaint] : rows) {
        WriteText(Path("s.txt"), steps);
        const Outcome outcome = Run(Line("s.txt", "--pages 2"));
        EXPECT_EQ(outcome.code, code) << steps << outcome;
        EXPECT_NE(outcome.err.find(complaint), std::string::npos) << steps << outcome;
    }
}

TEST_F(Scenario, LeavesNothingOpenAfterThousandTimes)
{
    WriteText(Path("both.txt"),
              "wait IDC_SUMMARY\nclick IDC_SETTINGS\nwait IDC_SUPPORT\ncancel\nwait IDC_SUMMARY\nok\n");
    const nlohmann::json json = JsonOutput(Line("both.txt", "--pages 2 --repeat 1000"));
    EXPECT_EQ(json["growth"], nlohmann::json::object());
    EXPECT_EQ(json["confirmed"], true);
}

TEST_F(Scenario, NeedsSomebodyToAnswer)
{
    Refuse(2, {"preferences P"});
    Refuse(1, {"preferences P --scenario nowhere.txt"});
}

TEST_F(Scenario, SummaryPrintsSettingsInBothLanguages)
{
    const std::tuple<std::string, const char*, const char*> rows[] = {{"eng", "Copies", "3"},
                                                                      {"jpn", "部数", "3部"}};
    for (const auto& [language, label, value] : rows) {
        const nlohmann::json lines = JsonOutput("--language " + language + " summary P --record in.dm");
        EXPECT_GT(lines.size(), 20u) << lines.dump(1);
        EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                                [&](const nlohmann::json& line) {
                                    return line["label"] == label && line["value"] == value;
                                }),
                  1)
            << lines.dump(1);
    }
}

} // namespace
