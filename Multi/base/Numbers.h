// Integer arithmetic on numbers that come from a host: never undefined, whatever the values are.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace fovix {

inline int saturateToInt(std::int64_t value) {
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

/// Truncates toward zero; what an int cannot hold becomes the nearest int, NaN becomes 0.
inline int truncateToInt(double value) {
    if (std::isnan(value)) return 0;
    return static_cast<int>(
        std::clamp<double>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

/// Counts on, from the largest int to the smallest.
inline int countUp(int value) {
    return static_cast<int>(static_cast<std::uint32_t>(value) + 1u);
}

template <class... Doubles>
bool allFinite(Doubles... values) {
    return (std::isfinite(values) && ...);
}

}  // namespace fovix
