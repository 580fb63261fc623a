#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

namespace tarvex::bench {

/// How often both sides of a comparison are measured, in turn; the median of each side counts.
inline constexpr int kRounds = 9;

inline double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

/// Milliseconds that the work takes.
template <class Work> double Time(Work&& work)
{
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

/// Milliseconds that the processor spends on the work in this process, however busy the machine is.
template <class Work> double ProcessorTime(Work&& work)
{
    const std::clock_t begin = std::clock();
    work();
    return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

/// Prints one promise with what was measured; whether it is kept.
inline bool Report(const char* what, double measured, double limit, const char* unit)
{
    const bool kept = measured <= limit;
    std::printf("%-66s %8.2f <= %g %s%s\n", what, measured, limit, unit, kept ? "" : "   NOT KEPT");
    std::fflush(stdout);
    return kept;
}

}
