// Opens a fresh world for a conformance program, and checks that no test leaves anything open in it.
#include "tests/host/memory_world.h"

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
        host::Ledger after = host::OpenObjects();
        after.classes = before_.classes; // they stay registered for the next test
        EXPECT_EQ(after, before_);
    }

    host::Ledger before_;
};

const bool registered = [] {
    testing::AddGlobalTestEnvironment(new World);
    testing::UnitTest::GetInstance()->listeners().Append(new LedgerCheck);
    return true;
}();

} // namespace
