#include <gtest/gtest.h>

#include "host/host.h"

namespace {

class World : public testing::Environment
{
public:
    void SetUp() override
    {
        std::string error;
        ASSERT_TRUE(host::Open({":memory:"}, &error)) << error;
    }
    void TearDown() override { host::Close(); }
};

const testing::Environment* const kWorld = testing::AddGlobalTestEnvironment(new World);

} // namespace
