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
        EXPECT_EQ(after.mappings, before_.mappings);
        EXPECT_EQ(after.heaps, before_.heaps);
        EXPECT_EQ(after.blocks, before_.blocks);
        EXPECT_EQ(after.bytes, before_.bytes);
        EXPECT_EQ(after.modules, before_.modules);
        EXPECT_EQ(after.criticalSections, before_.criticalSections);
        EXPECT_EQ(after.keys, before_.keys);
        EXPECT_EQ(after.printers, before_.printers);
    }

    host::Ledger before_;
};

const bool registered = [] {
    testing::AddGlobalTestEnvironment(new World);
    testing::UnitTest::GetInstance()->listeners().Append(new LedgerCheck);
    return true;
}();

} // namespace
