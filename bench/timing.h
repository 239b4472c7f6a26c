// bench/timing.h: duration of a call, and the median of several.
#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace tarvik {

/// Duration of `act` in ms.
template <typename Act>
double MsOf(Act act)
{
    const auto start = std::chrono::steady_clock::now();
    act();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

/// `values` is not empty.
inline double Median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace tarvik
