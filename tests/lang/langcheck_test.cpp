// The checks of the language modules, each against a module with the fault that it is there to find.
#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tools/langcheck/controls.h"
#include "tools/langcheck/fit.h"

namespace {

using namespace langcheck;

Bytes FaultyModule()
{
    std::ifstream file(FAULTY_MODULE, std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(file), {});
}

const Language& Faulty()
{
    static const Language language = [] {
        Language read;
        read.name = "faulty";
        std::string complaint;
        EXPECT_TRUE(ReadLanguage(FaultyModule(), read, complaint)) << complaint;
        return read;
    }();
    return language;
}

const Facts kFacts = {
    {{3, 50, 59, 1}, {3, 60, 69, 2}},
    {{30, 31}},
    {{23, 21, 200, 201}},
    {{24, 21, 7}, {24, 22, 7}, {22, 21, 8}},
};

constexpr int kLetterWidth = 6;
constexpr int kLineHeight = 13;

/// Every letter as wide as the next; breaks anywhere.
Extent Measure(WideView text, int wrapWidth)
{
    const int width = static_cast<int>(text.size()) * kLetterWidth;
    if (wrapWidth == 0 || width <= wrapWidth)
        return {width, kLineHeight};
    return {wrapWidth, (width + wrapWidth - 1) / wrapWidth * kLineHeight};
}

Findings LayoutFindings()
{
    Findings findings;
    CheckMnemonics(Faulty(), kFacts, findings);
    CheckPlacement(Faulty(), kFacts, findings);
    CheckButtonRows(Faulty(), kFacts, findings);
    CheckTabStops(Faulty(), findings);
    const Meter meter = {96, {kLetterWidth, kLineHeight}, Measure};
    CheckFit(Faulty(), kFacts, meter, findings);
    CheckPictures(Faulty(), kFacts, {{7, {30, 26}}}, meter, findings);
    return findings;
}

struct Fault
{
    unsigned dialog;
    const char* finding; ///< what the line says after the control
};

const Fault kFaults[] = {
    {10, "letter I also reaches control 21 (F&irst:, Th&Ird)"},
    {11, "outside its dialog"},
    {12, "lies on control 22"},
    {13, "not as large as button 22 beside it"},
    {14, "not in line with button 22"},
    {15, "no tab stop"},
    {16, "first radio button without a group"},
    {17, "no tab stop"},
    {18, "belongs to the radio buttons before it"},
    {20, "no room for 'Nine chrs' at 96 dpi, 4 x 0 pixels missing"},
    {21, "no room for '8 chars.' at 96 dpi, 5 x 0 pixels missing"},
    {22, "no room for 'A text for two lines' at 96 dpi, 0 x 6 pixels missing"},
    {22, "no picture 8"},
    {23, "no room for 'A text that is too long' at 96 dpi, 43 x 0 pixels missing"},
    {24, "30 x 24 pixels for a picture of 30 x 26"},
    {31, "letter H also reaches control 20 (&House, &Help)"},
};

TEST(LangCheck, FindsTheFaultOfEachDialogAndNoOther)
{
    const Findings findings = LayoutFindings();
    for (const Fault& fault : kFaults) {
        const std::string start = "faulty, dialog " + std::to_string(fault.dialog) + ", control ";
        const std::string end = std::string(": ") + fault.finding;
        EXPECT_EQ(std::count_if(findings.begin(), findings.end(),
                                [&](const std::string& line) {
                                    return line.starts_with(start) && line.ends_with(end);
                                }),
                  1)
            << start << end;
    }
    EXPECT_EQ(findings.size(), std::size(kFaults)) << testing::PrintToString(findings);
}

TEST(LangCheck, FindsMissingNamesAndWrongPlaces)
{
    Ids ids;
    ReadIds("#pragma once\n"
            "#define IDS_SOUND 100\n"
            "#define IDS_MISSING   101\n"
            "#define IDS_OPTIONAL 110 /* optional */\n"
            "#define IDS_RIGHT 102 /* places: %d %s */\n"
            "#define IDS_SWAPPED 103 /* places: %d %s */\n"
            "#define IDS_PERCENT 104\n"
            "#define IDS_DOUBLED 105 /* a note */\n"
            "#define IDD_SOUND 1\n"
            "#define IDD_MISSING 99 /* page */\n"
            "#define IDC_SOUND 11\n"
            "#define IDC_MISSING 12345\n",
            ids);
    Findings findings;
    CheckPresence(Faulty(), ids, findings);
    CheckPlaces(Faulty(), ids, findings);
    EXPECT_EQ(findings, (Findings{"faulty: no text IDS_MISSING", "faulty: no dialog IDD_MISSING",
                                  "faulty: no dialog has the control IDC_MISSING",
                                  "faulty, IDS_SWAPPED: has the places '%s %d' instead of '%d %s'",
                                  "faulty, IDS_PERCENT: has the places '%' instead of ''"}));
}

TEST(LangCheck, RefusesAModuleCutWithinAResource)
{
    const Bytes whole = FaultyModule();
    size_t refused = 0;
    for (size_t size = 1; size < whole.size(); ++size) {
        Language language;
        std::string complaint;
        const bool read =
            ReadLanguage(Bytes(whole.begin(), whole.begin() + static_cast<long>(size)), language, complaint);
        EXPECT_EQ(read, complaint.empty()) << size;
        refused += !read;
    }
    // What is left is cut between two resources, or in the padding after one.
    EXPECT_GT(refused, whole.size() * 9 / 10);
}

// A template that promises more than its bytes hold must not be read past them.
TEST(LangCheck, RefusesADialogOfMoreControlsThanItHoldsAndOneOfTheOldFormat)
{
    const Bytes sound = FaultyModule();
    constexpr uint8_t count[] = {13, 0, 0, 0, 0, 0, 200, 0, 120, 0}; // controls, place and size of dialog 1
    const auto found = std::search(sound.begin(), sound.end(), std::begin(count), std::end(count));
    ASSERT_NE(found, sound.end());
    const auto place = static_cast<size_t>(found - sound.begin());
    constexpr size_t kMarkBeforeCount = 14; // what tells the extended format
    for (const auto& [changed, value] : {std::pair{place, 14}, {place - kMarkBeforeCount, 0}}) {
        Bytes module = sound;
        module[changed] = static_cast<uint8_t>(value);
        Language language;
        std::string complaint;
        EXPECT_FALSE(ReadLanguage(module, language, complaint)) << value;
        EXPECT_EQ(complaint, "malformed dialog 1");
    }
}

} // namespace
