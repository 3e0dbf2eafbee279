#pragma once
#include <cfenv>

namespace psui {

/// Gives an entry point the default floating-point environment, whatever its caller computes with, and gives
/// the caller's back: neither its rounding nor its traps reach our unit conversions, nor our flags it.
class FloatEnvironment
{
public:
    FloatEnvironment()
    {
        std::feholdexcept(&callers_);
        std::fesetround(FE_TONEAREST);
    }
    ~FloatEnvironment() { std::fesetenv(&callers_); }
    FloatEnvironment(const FloatEnvironment&) = delete;
    FloatEnvironment& operator=(const FloatEnvironment&) = delete;

private:
    std::fenv_t callers_;
};

} // namespace psui
