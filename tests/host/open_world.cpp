// Opens a fresh world for a conformance program, and checks that no test leaves anything open in it.
#include <gtest/gtest.h>

#include "host/host.h"

namespace {

class World : public testing::Environment
{
    void SetUp() override
    {
        std::string error;
        ASSERT_TRUE(host::Open({":memory:"}, &error)) << error;
    }
    void TearDown() override { host::Close(); }
};

class LedgerCheck : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override { before_ = host::OpenObjects(); }

    void OnTestEnd(const testing::TestInfo&) override
    {
        const host::Ledger after = host::OpenObjects();
        EXPECT_EQ(after.files, before_.files);
        EXPECT_EQ(after.finds, before_.finds);
        EXPECT_EQ(after.heaps, before_.heaps);
        EXPECT_EQ(after.blocks, before_.blocks);
        EXPECT_EQ(after.bytes, before_.bytes);
        EXPECT_EQ(after.modules, before_.modules);
        EXPECT_EQ(after.criticalSections, before_.criticalSections);
        EXPECT_EQ(after.keys, before_.keys);
        EXPECT_EQ(after.printers, before_.printers);
        EXPECT_EQ(after.windows, before_.windows);
        EXPECT_EQ(after.menus, before_.menus);
        EXPECT_EQ(after.deviceContexts, before_.deviceContexts);
        EXPECT_EQ(after.bitmaps, before_.bitmaps);
        EXPECT_EQ(after.brushes, before_.brushes);
        EXPECT_EQ(after.fonts, before_.fonts);
        EXPECT_EQ(after.icons, before_.icons);
        EXPECT_EQ(after.palettes, before_.palettes);
        EXPECT_EQ(after.pens, before_.pens);
        EXPECT_EQ(after.regions, before_.regions);
    }

    host::Ledger before_;
};

const bool registered = [] {
    testing::AddGlobalTestEnvironment(new World);
    testing::UnitTest::GetInstance()->listeners().Append(new LedgerCheck);
    return true;
}();

} // namespace
