#include "tests/psuictl/psuictl_run.h"

using CapsCommand = PsuictlTest;

TEST_F(CapsCommand, AnswersEveryIndexWithListsOfThePromisedLength)
{
    AddPrinter("palette940.ppd");
    const nlohmann::json caps = JsonOutput("caps P --country 49");
    ASSERT_EQ(caps.size(), 41u);
    for (int index = 0; index <= 40; ++index)
        ASSERT_TRUE(caps.contains(std::to_string(index))) << index;
    for (const char* list : {"2", "3", "6", "12", "16", "29", "34", "35"}) {
        EXPECT_GT(caps[list]["result"], 0) << list;
        EXPECT_EQ(caps[list]["values"].size(), caps[list]["result"]) << list;
    }
    EXPECT_EQ(caps["2"]["result"], caps["16"]["result"]);
    EXPECT_EQ(caps["2"]["values"][0], 9);
    EXPECT_EQ(caps["3"]["values"][0], nlohmann::json({2100, 2970}));
    EXPECT_EQ(caps["4"],
              nlohmann::json(
                  {{"name", "DC_MINEXTENT"}, {"result", 0x04F60379}, {"values", nlohmann::json::array()}}));
    EXPECT_EQ(caps["13"]["result"], -1);
    EXPECT_EQ(caps["40"]["name"], nullptr);
}

TEST_F(CapsCommand, JoinsPapersWithNamesAndSizesInTextForm)
{
    AddPrinter();
    const std::string text = Output("caps P");
    const size_t papers = text.find("\nPapers\n");
    ASSERT_NE(papers, std::string::npos) << text;
    const std::string row = text.substr(papers + 8, text.find('\n', papers + 8) - papers - 8);
    EXPECT_TRUE(row.starts_with("  9 ")) << row;
    EXPECT_NE(row.find(" A4 "), std::string::npos) << row;
    EXPECT_TRUE(row.ends_with("210.0 x 297.0 mm")) << row;
}

TEST_F(CapsCommand, AsksForTheRecordThatIsGivenInTheLanguageThatIsGiven)
{
    AddPrinter();
    Output("convert P --mode 4 -o plain.dm");
    Output("record set plain.dm dmScale=50 bUsePublicScale=1 dwOptionFlags=0x2200 -o small.dm");
    const nlohmann::json plain = JsonOutput("caps P --index 16 --index 17 --index 19");
    EXPECT_EQ(plain["17"]["result"], 270);
    EXPECT_EQ(plain["19"]["result"], 1);
    const nlohmann::json small =
        JsonOutput("caps P --index 16 --index 17 --index 19 --record small.dm --language jpn");
    EXPECT_EQ(small["17"]["result"], 90);
    EXPECT_EQ(small["19"]["result"], 2);
    EXPECT_EQ(small["16"]["result"], plain["16"]["result"]);
    EXPECT_NE(small["16"]["values"], plain["16"]["values"]);
}

TEST_F(CapsCommand, RefusesRecordsThatAreNotWholeAndPrintersThatAreNotThere)
{
    AddPrinter();
    Output("convert P --mode 4 -o whole.dm");
    const std::string whole = ReadText(Path("whole.dm"));
    for (const size_t length : {size_t{0}, size_t{71}, size_t{72}, size_t{220}, whole.size() - 1}) {
        WriteText(Path("cut.dm"), whole.substr(0, length));
        Refuse(1, {"caps P --record cut.dm"});
    }
    Refuse(1, {"caps Q"});
}
