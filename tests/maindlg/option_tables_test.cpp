#include "psui/maindlg/option_tables.h"

#include "tests/entry/fail_each.h"
#include "tests/maindlg/dialog_context.h"

namespace {

using namespace psui;
using namespace test;

/// Text ids and values of a table.
std::string Rows(const PrinterUiContext* context, int index)
{
    std::string rows;
    for (const OptionRow& row : OptionTable(context, static_cast<OptionTableIndex>(index)))
        rows += std::to_string(row.wStringId) + ":" + std::to_string(row.dwValue) + " ";
    return rows;
}

constexpr const char* kBuiltin[] = {
    "1240:1 1241:261 1243:263 1244:264 ",
    "9130:9 9131:1 9132:5 9133:7 9134:13 9135:11 9136:70 9137:265 9138:266 9139:272 9140:273 9141:43 9142:82 "
    "9143:28 9144:20 9145:27 9146:37 9147:91 1215:256 ",
    "0:2 0:1 0:4 ",
    "0:1 0:0 0:2 ",
    "0:64 0:0 ",
    "0:2 0:1 ",
    "0:0 0:1 0:2 0:3 ",
    "1280:0 1281:1 1282:2 1283:3 1284:4 ",
};

TEST(OptionTables, HoldTheNumbersOfTheModelsOptions)
{
    const World world;
    const DialogContext context;
    const std::pair<OptionTableIndex, const char*> cases[] = {
        {kPaperTable, "0:9 0:1 0:256 0:274 0:0 "},
        {kSourceTable, "0:7 0:1 0:0 0:4 "},
        {kColorTable, "0:1 0:2 "},
        {kThicknessTable, "0:4 "},
        {kIcmTable, ""},
    };
    for (const auto& [index, rows] : cases) {
        EXPECT_EQ(Rows(context, index), "") << "before it is built";
        BuildOptionTable(context, index);
        EXPECT_EQ(Rows(context, index), rows);
        EXPECT_FALSE(IsBuiltinTable(context, index));
    }
    EXPECT_EQ(OptionValueAt(context, kColorTable, 1, 77), 2u);
    EXPECT_EQ(OptionValueAt(context, kColorTable, 2, 77), 77u);
}

TEST(OptionTables, AreBuiltInWithoutMemory)
{
    const World world;
    for (int index = 0; index < kOptionTables; ++index) {
        const DialogContext context;
        const auto build = [&] { BuildOptionTable(context, static_cast<OptionTableIndex>(index)); };
        build();
        const std::string whole = Rows(context, index);
        FailEach(kAllocations, build, build, [&](bool failed) {
            EXPECT_EQ(Rows(context, index), failed ? kBuiltin[index] : whole);
            build();
        });
    }
}

} // namespace
