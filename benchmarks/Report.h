#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <vector>

namespace tarvex::bench {

/// How often both sides of a comparison are measured, in turn.
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

/// The first of each round beside the second.
inline std::vector<double> Ratios(const std::vector<double>& ours, const std::vector<double>& yardstick)
{
    std::vector<double> ratios;
    ratios.reserve(ours.size());
    for (std::size_t i = 0; i < ours.size(); ++i)
        ratios.push_back(ours[i] / yardstick.at(i));
    return ratios;
}

/// Prints one promise: the median of what the rounds measured, its limit, and the machine's noise, from the lowest to
/// the highest round. Whether the median keeps it.
inline bool Report(const char* what, const std::vector<double>& rounds, double limit, const char* unit)
{
    const double measured = Median(rounds);
    const bool kept = measured <= limit;
    const auto [lowest, highest] = std::minmax_element(rounds.begin(), rounds.end());
    std::printf("| %-64s | %6.2f | %4g %-14s | %6.2f to %.2f, %zu rounds |%s\n", what, measured, limit, unit, *lowest,
                *highest, rounds.size(), kept ? "" : " NOT KEPT");
    std::fflush(stdout);
    return kept;
}

}
