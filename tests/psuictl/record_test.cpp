#include <tuple>

#include "tests/psuictl/psuictl_run.h"

namespace {

class RecordCommands : public PsuictlTest
{
protected:
    RecordCommands()
    {
        AddPrinter();
        Output("--country 49 convert P --mode 4 -o own.dm");
    }
};

TEST_F(RecordCommands, SetAndShowTheSameValue)
{
    const std::tuple<std::string, const char*, nlohmann::json> rows[] = {
        {"dmCopies=5", "dmCopies", 5},
        {"dmPrintQuality=-4", "dmPrintQuality", -4},
        {"dmPrintQuality=draft", "dmPrintQuality", -1},
        {"dmOrientation=landscape", "dmOrientation", 2},
        {"dmFields=orientation+copies", "dmFields", 0x101},
        {"dmFields=0xFFFFFFFF", "dmFields", 0xFFFFFFFF},
        {"dmFormName=はがき", "dmFormName", "はがき"},
        {"dmFormName=", "dmFormName", ""},
        {"dmFormName=12345678901234567890123456789012", "dmFormName", "12345678901234567890123456789012"},
        {"szWatermarkText=Café", "szWatermarkText", "Café"},
        {"lfDateFont.lfHeight=-2147483648", "lfDateFont.lfHeight", -2147483648},
        {"lfDateFont.lfFaceName=Times", "lfDateFont.lfFaceName", "Times"},
        {"unnamed332=0.25", "unnamed332", 0.25},
        {"unnamed262=7", "unnamed262", 7},
        {"reserved425=0A0b0c", "reserved425", "0A0B0C"},
        {"@482/2=0x10", "unnamed262", 16},
        {"@482=0102", "unnamed262", 0x0201},
    };
    for (const auto& [assignment, field, value] : rows) {
        Output("record set own.dm " + assignment + " -o new.dm");
        EXPECT_EQ(JsonOutput("record show new.dm")[field], value) << assignment;
        const nlohmann::json own = JsonOutput("record show own.dm");
        const Outcome diff = Run("record diff own.dm new.dm --json");
        EXPECT_LE(diff.Json().size(), 1u) << diff;
        EXPECT_EQ(diff.code, own[field] == value ? 0 : 1) << diff;
    }
}

TEST_F(RecordCommands, RefuseValuesThatTheFieldCannotHold)
{
    for (const std::string assignment :
         {"dmCopies=32768", "dmCopies=-32769", "dmCopies=two", "dmCopies=", "dmNup=-1", "dmNup=4294967296",
          "bDocType=256", "dmOrientation=portrait+landscape", "dmFields=orientation+",
          "dmFormName=123456789012345678901234567890123", "szWatermarkText=はがき", "unnamed332=half",
          "unnamed332=inf", "reserved425=0A0B", "reserved425=0A0B0G", "dmColour=1", "@1852/1=0",
          "@1850=000000"})
        Refuse(1, {"record set own.dm " + assignment + " -o new.dm"});
    for (const std::string assignment : {"@0/3=0", "@-1/1=0", "@10=", "dmCopies", "=1"})
        Refuse(2, {"record set own.dm " + assignment + " -o new.dm"});
    EXPECT_FALSE(std::filesystem::exists(Path("new.dm")));
}

TEST_F(RecordCommands, ShowWordsBesideCodes)
{
    Output("record set own.dm dmOrientation=2 dwDeviceOptions=3 -o new.dm");
    const std::string text = Output("record show new.dm");
    EXPECT_TRUE(text.starts_with("1852 bytes, a whole record of this driver\n")) << text;
    EXPECT_NE(text.find("2 (landscape)\n"), std::string::npos) << text;
    EXPECT_NE(text.find("0x00000003 (mirror+reverse)\n"), std::string::npos) << text;
}

TEST_F(RecordCommands, NamePapersAndMediaInTheChosenLanguage)
{
    Output("record set own.dm dmPaperSize=274 dmMediaType=261 -o new.dm");
    const std::tuple<std::string, const char*, const char*> rows[] = {
        {"eng", "274 (A4 (borderless))", "261 (Inkjet paper)"},
        {"jpn", "274 (A4 (フチなし))", "261 (インクジェット紙)"},
    };
    for (const auto& [language, paper, media] : rows)
        for (const char* command : {" record show new.dm", " record diff own.dm new.dm"}) {
            const Outcome shown = Run("--language " + language + command);
            EXPECT_NE(shown.out.find(paper), std::string::npos) << shown;
            EXPECT_NE(shown.out.find(media), std::string::npos) << shown;
        }
    EXPECT_EQ(JsonOutput("record show new.dm")["dmPaperSize"], 274);
}

TEST_F(RecordCommands, ShowShortAndForeignRecordsAsFarAsTheyGo)
{
    const std::string own = ReadText(Path("own.dm"));
    // Its length, the last field that is there and the first one that is not.
    const std::tuple<size_t, const char*, const char*> rows[] = {
        {0, nullptr, "dmDeviceName"},
        {66, "dmSpecVersion", "dmDriverVersion"},
        {71, "dmSize", "dmDriverExtra"},
        {72, "dmDriverExtra", "dmFields"},
        {219, "dmPanningWidth", "dmPanningHeight"},
        {1851, "reserved1625", "endMark"},
    };
    for (const auto& [length, last, missing] : rows) {
        WriteText(Path("cut.dm"), own.substr(0, length));
        const Outcome outcome = Run("record show cut.dm --json");
        EXPECT_EQ(outcome.code, 0) << length << outcome;
        EXPECT_NE(outcome.err.find("note: "), std::string::npos) << length << outcome;
        const nlohmann::json json = outcome.Json();
        EXPECT_TRUE(!last || json.contains(last)) << length << outcome;
        EXPECT_FALSE(json.contains(missing)) << length << outcome;
    }
    Output("record set own.dm dwSignature=ELSE -o foreign.dm");
    const nlohmann::json foreign = JsonOutput("record show foreign.dm");
    EXPECT_TRUE(foreign.contains("dmPanningHeight"));
    EXPECT_FALSE(foreign.contains("dwSignature"));
}

TEST_F(RecordCommands, FindThePrivatePartBehindAShorterPublicOne)
{
    Output("convert P --mode 2 own.dm -o old.dm");
    const nlohmann::json old = JsonOutput("record show old.dm");
    EXPECT_EQ(old["dmDriverVersion"], 848);
    EXPECT_EQ(old["dwSignature"], "PRIV");
    EXPECT_FALSE(old.contains("dmICMMethod"));
    Output("record set old.dm dwOptionFlags=0x200 -o new.dm");
    EXPECT_EQ(JsonOutput("record diff old.dm old.dm"), nlohmann::json::object());
    EXPECT_EQ(Run("record diff old.dm new.dm --json").Json(),
              nlohmann::json::parse(R"({"dwOptionFlags": {"a": 8192, "b": 512}})"));
    EXPECT_EQ(Run("record set old.dm dmICMMethod=1 -o new.dm").code, 1);
}

TEST_F(RecordCommands, CompareEveryByte)
{
    std::string bytes = ReadText(Path("own.dm"));
    EXPECT_EQ(Output("record diff own.dm own.dm"), "");

    Output("record set own.dm @60=4100 -o behind.dm"); // after the end of dmDeviceName
    const nlohmann::json behind = Run("record diff own.dm behind.dm --json").Json();
    EXPECT_EQ(behind.size(), 1u) << behind;
    EXPECT_NE(behind["dmDeviceName"]["a"], behind["dmDeviceName"]["b"]);

    WriteText(Path("longer.dm"), bytes + "x");
    const Outcome longer = Run("record diff own.dm longer.dm");
    EXPECT_EQ(longer.code, 1);
    EXPECT_NE(longer.out.find("@1852"), std::string::npos) << longer;

    EXPECT_EQ(Run("record diff own.dm missing.dm").code, 2);
}

} // namespace
