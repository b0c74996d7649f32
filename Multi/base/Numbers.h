// Arithmetic on numbers from a host: defined for every value, NaN and the largest included.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace fovix {

/// The nearest int.
inline int saturateToInt(std::int64_t value) {
    return static_cast<int>(
        std::clamp<std::int64_t>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

/// Truncates toward zero; values outside an int's range become the nearest int, NaN becomes 0.
inline int truncateToInt(double value) {
    if (std::isnan(value)) return 0;
    return static_cast<int>(
        std::clamp<double>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

inline constexpr float kLargestFloat = std::numeric_limits<float>::max();

/// Narrows; values beyond a float's range become the largest float.
inline float toFloat(double value) {
    return static_cast<float>(std::clamp<double>(value, -kLargestFloat, kLargestFloat));
}

/// Increments with wrap-around.
inline int countUp(int value) {
    return static_cast<int>(static_cast<std::uint32_t>(value) + 1u);
}

template <class... Doubles>
bool allFinite(Doubles... values) {
    return (std::isfinite(values) && ...);
}

/// Writes through a getter's pointer; a null pointer is skipped.
inline void writeIfWanted(double* out, double value) {
    if (out) *out = value;
}

}  // namespace fovix
