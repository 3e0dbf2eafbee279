#include <algorithm>

#include "tests/psuictl/psuictl_run.h"

namespace {

class PrinterSettings : public PsuictlTest
{
protected:
    PrinterSettings() { AddPrinter(); }
};

TEST_F(PrinterSettings, StoreDataByItsLooksOrByTheTypeThatIsAskedFor)
{
    const std::pair<Words, nlohmann::json> rows[] = {
        {"4096", {{"type", "REG_DWORD"}, {"size", 4}, {"value", 4096}}},
        {"0x10", {{"type", "REG_DWORD"}, {"size", 4}, {"value", 16}}},
        {"4294967295", {{"type", "REG_DWORD"}, {"size", 4}, {"value", 4294967295}}},
        {"4294967296", {{"type", "REG_BINARY"}, {"size", 5}, {"value", "4294967296"}}},
        {"0A0B0C", {{"type", "REG_BINARY"}, {"size", 3}, {"value", "0A0B0C"}}},
        {"レター", {{"type", "REG_SZ"}, {"size", 8}, {"value", "レター"}}},
        {{std::string()}, {{"type", "REG_SZ"}, {"size", 2}, {"value", ""}}},
        {"12 --type text", {{"type", "REG_SZ"}, {"size", 6}, {"value", "12"}}},
        {"12 --type bytes", {{"type", "REG_BINARY"}, {"size", 1}, {"value", "12"}}},
    };
    for (const auto& [data, shown] : rows) {
        Words line = "printer data P Value";
        line.insert(line.end(), data.begin(), data.end());
        EXPECT_EQ(JsonOutput(line), shown) << testing::PrintToString(line);
        EXPECT_EQ(JsonOutput("printer data p value"), shown) << testing::PrintToString(line);
    }
    Output("printer data P Other 7");
    const nlohmann::json list = JsonOutput("printer data P");
    ASSERT_EQ(list.size(), 2u) << list;
    EXPECT_EQ(list["Other"]["value"], 7);
    EXPECT_EQ(list["Value"], std::rbegin(rows)->second);
    EXPECT_NE(Output("printer data P").find("REG_BINARY"), std::string::npos);
}

TEST_F(PrinterSettings, LeaveStoredDataAloneWhenTheNewIsRefused)
{
    Output("printer data P Value 1");
    Refuse(2, {"printer data P Value x --type number", "printer data P Value -1 --type number",
               "printer data P Value 4294967296 --type number", "printer data P Value 123 --type bytes"});
    Refuse(1, {{"printer", "data", "P", "", "1"}, "printer data P Missing", "printer data Q"});
    const nlohmann::json list = JsonOutput("printer data P");
    EXPECT_EQ(list.size(), 1u) << list;
    EXPECT_EQ(list["Value"]["value"], 1);
}

TEST_F(PrinterSettings, ListFormsInMillimetres)
{
    const nlohmann::json forms = JsonOutput("printer forms P");
    const nlohmann::json a4 = {{"name", "A4"}, {"width", 210.0}, {"length", 297.0}, {"kind", "builtin"}};
    EXPECT_NE(std::find(forms.begin(), forms.end(), a4), forms.end()) << forms;
    Refuse(1, {"printer forms Q"});
}

TEST_F(PrinterSettings, KeepTheDefaultRecordWhenTheNewOneIsCut)
{
    Output("record default P -o own.dm");
    Output("record set own.dm dmOrientation=landscape -o wide.dm");
    const auto orientation = [&] {
        Output("record merge P -o current.dm");
        return JsonOutput("record show current.dm")["dmOrientation"];
    };
    EXPECT_EQ(orientation(), 1);
    EXPECT_EQ(JsonOutput("printer default P wide.dm")["size"], 1852);
    EXPECT_EQ(orientation(), 2);
    EXPECT_EQ(JsonOutput("printer list")[0]["driver"], "Velmora Palette 310");

    WriteText(Path("cut.dm"), ReadText(Path("own.dm")).substr(0, 1851));
    Refuse(1, {"printer default P cut.dm"});
    EXPECT_EQ(orientation(), 2);
    Refuse(1, {"printer default Q own.dm"});
}

} // namespace
