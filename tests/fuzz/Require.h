#pragma once

#include <cstdio>
#include <cstdlib>

namespace tarvex {

/// Ends the run as a finding when something that must hold does not.
inline void Require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

}
