#pragma once

#include <algorithm>
#include <cstdio>
#include <vector>

namespace tarvex::bench {

inline double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// Prints one promise with what was measured; whether it is kept.
inline bool Report(const char* what, double measured, double limit, const char* unit)
{
    const bool kept = measured <= limit;
    std::printf("%-62s %8.2f <= %-6.2f %s%s\n", what, measured, limit, unit, kept ? "" : "   NOT KEPT");
    std::fflush(stdout);
    return kept;
}

}
