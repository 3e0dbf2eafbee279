#pragma once
#include <gtest/gtest.h>
#include <windows.h>

/// Whether a call gave its failure value and left that error: EXPECT_TRUE(Fails(ERROR_…, Call(…))).
template <class Result>
testing::AssertionResult Fails(DWORD error, Result result, Result failure = {})
{
    const DWORD found = GetLastError();
    if (result != failure)
        return testing::AssertionFailure() << "the call succeeded";
    return (found == error ? testing::AssertionSuccess() : testing::AssertionFailure()) << "error " << found;
}
