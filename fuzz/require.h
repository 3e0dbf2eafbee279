#pragma once
// How a fuzz target says that something which must hold does not.
#include <cstdio>
#include <cstdlib>

namespace fuzz {

inline void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

} // namespace fuzz
