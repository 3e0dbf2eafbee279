#pragma once
// A fresh world in memory for every test, which must give back everything.
#include <string>

#include <gtest/gtest.h>

#include "host/host.h"

class MemoryWorld : public testing::Test
{
protected:
    void SetUp() override
    {
        std::string error;
        ASSERT_TRUE(host::Open({":memory:"}, &error)) << error;
    }
    void TearDown() override
    {
        host::Close();
        EXPECT_EQ(host::OpenObjects(), before_);
    }

    const host::Ledger before_ = host::OpenObjects();
};
