#pragma once
// A fresh world in memory for every test, which must give back everything.
#include <array>
#include <bit>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "host/host.h"

namespace host {

/// Tells the counts in the order of the fields.
inline void PrintTo(const Ledger& ledger, std::ostream* out)
{
    for (int64_t count : std::bit_cast<std::array<int64_t, sizeof(Ledger) / sizeof(int64_t)>>(ledger))
        *out << count << ' ';
}

} // namespace host

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
