#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "lang/ids/strings.h"
#include "lang/ids/summary.h"
#include "tools/psuictl/scenario.h"

namespace {

using namespace psuictl;

std::vector<Step> Parsed(const std::string& text)
{
    std::vector<Step> steps;
    ScenarioError error;
    EXPECT_TRUE(ParseScenario(text, steps, error)) << text << ": " << error.reason;
    return steps;
}

/// A step's values in brackets: texts in quotes, text ids with a hash, numbers as they are.
std::string Values(const Step& step)
{
    std::string all;
    for (const StepValue& value : step.values)
        all += "[" +
               (value.isTextId ? "#" + std::to_string(value.number)
                               : value.text + "," + std::to_string(value.number)) +
               "]";
    return all;
}

TEST(ScenarioParser, ReadsEveryKindOfValue)
{
    const std::tuple<const char*, StepKind, std::string> rows[] = {
        {"click 3032", StepKind::Click, "[3032,3032]"},
        {"click 0xBD8", StepKind::Click, "[0xBD8,3032]"},
        {"  click\tIDC_SETTINGS  # opens the main dialog\r", StepKind::Click, "[IDC_SETTINGS,3032]"},
        {"check IDOK off", StepKind::Check, "[IDOK,1][off,0]"},
        {"expect enabled 7 on", StepKind::ExpectEnabled, "[7,7][on,1]"},
        {"type \"a \\\"b\\\" # \\\\ \\n\\t\"", StepKind::Type, "[a \"b\" # \\ \n\t,0]"},
        {"type 7 \"\"", StepKind::TypeInto, "[7,7][,0]"},
        {"expect text IDC_SUMMARY IDS_LANGUAGE_CODE", StepKind::ExpectText, "[IDC_SUMMARY,4344][#8120]"},
        {"expect items 7 \"A4\" IDS_LANGUAGE_CODE \"B5\"", StepKind::ExpectItems, "[7,7][A4,0][#8120][B5,0]"},
        {"select 7 data -1", StepKind::SelectData, "[7,7][-1,-1]"},
        {"select 7 text \"data\"", StepKind::SelectText, "[7,7][data,0]"},
        {"expect record dmCopies 3", StepKind::ExpectRecord, "[dmCopies,0][3,0]"},
        {"expect recorded \"failed launch\" \"x\"", StepKind::ExpectRecorded, "[failed launch,0][x,0]"},
        {"expect recorded help \"x\" \"y\"", StepKind::ExpectRecorded, "[help,0][x,0][y,0]"},
        {"expect message \"x\" IDS_LANGUAGE_CODE", StepKind::ExpectMessage, "[x,0][#8120]"},
        {"tab", StepKind::Tab, ""},
        {"tab -2", StepKind::Tab, "[-2,-2]"},
        {"ok", StepKind::Answer, "[ok,0]"},
        {"answer yes", StepKind::Answer, "[yes,0]"},
        {"mouse move 7 10 -3", StepKind::MouseMove, "[7,7][10,10][-3,-3]"},
    };
    for (const auto& [line, kind, values] : rows) {
        const std::vector<Step> steps = Parsed(line);
        ASSERT_EQ(steps.size(), 1u) << line;
        EXPECT_EQ(steps[0].kind, kind) << line;
        EXPECT_EQ(Values(steps[0]), values) << line;
    }
}

TEST(ScenarioParser, CountsEveryLineAndKeepsItsText)
{
    const std::vector<Step> steps = Parsed("# head\n\n  ok # yes\r\n\t\ncancel");
    ASSERT_EQ(steps.size(), 2u);
    EXPECT_EQ(steps[0].line, 3);
    EXPECT_EQ(steps[0].source, "ok");
    EXPECT_EQ(steps[1].line, 5);
    EXPECT_TRUE(Parsed("").empty());
}

TEST(ScenarioParser, SaysWhatIsWrongWithLine)
{
    const std::pair<const char*, const char*> rows[] = {
        {"clack 3032", "'clack' is no step"},
        {"\"click\" 3032", "'click' is no step"},
        {"click", "the form is 'click CONTROL'"},
        {"click 1 2", "the form is 'click CONTROL'"},
        {"click IDC_NOBODY", "'IDC_NOBODY' is no CONTROL"},
        {"click \"3032\"", "'3032' is no CONTROL"},
        {"click 99999999999999999999", "is no CONTROL"},
        {"check 7 yes", "'yes' is no SWITCH"},
        {"select 7",
         "'select CONTROL text TEXT' or 'select CONTROL index NUMBER' or 'select CONTROL data NUMBER'"},
        {"select 7 index first", "'first' is no NUMBER"},
        {"expect items 7", "the form is 'expect items CONTROL TEXT...'"},
        {"expect items 7 \"A4\" A5", "'A5' is no TEXT"},
        {"expect", "'expect checked CONTROL SWITCH' or"},
        {"type \"open", "a quotation has no end"},
        {"type \"a\\", "a backslash"},
        {"type \"\\x\"", "a backslash"},
    };
    for (const auto& [line, reason] : rows) {
        std::vector<Step> steps;
        ScenarioError error;
        EXPECT_FALSE(ParseScenario(std::string("ok\n") + line + "\nok", steps, error)) << line;
        EXPECT_EQ(error.line, 2) << line;
        EXPECT_NE(error.reason.find(reason), std::string::npos) << line << ": " << error.reason;
        EXPECT_TRUE(steps.empty()) << line;
    }
}

TEST(ScenarioParser, NamesControlsBothWays)
{
    EXPECT_EQ(FindResourceName("IDC_SUMMARY"), IDC_SUMMARY);
    EXPECT_EQ(FindResourceName("IDS_LANGUAGE_CODE"), IDS_LANGUAGE_CODE);
    EXPECT_EQ(FindResourceName("IDC_"), -1);
    EXPECT_EQ(ControlName(IDC_SUMMARY), "IDC_SUMMARY (4344)");
    EXPECT_EQ(ControlName(54321), "54321");
}

} // namespace
