// Parses the values of options and rejects invalid ones with a message.
#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/UsageError.h"

namespace fovix_host {

// Throws UsageError: "OPTION: expected EXPECTED, got 'VALUE'".
[[noreturn]] void refuse(std::string_view option, std::string_view value, std::string_view expected);

// The whole text as a finite number, or nullopt.
template <typename Number, typename... Base>
std::optional<Number> numberIn(std::string_view text, Base... base) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base...);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    if constexpr (std::is_floating_point_v<Number>)
        if (!std::isfinite(number)) return std::nullopt;
    return number;
}

// Numbers with separators between them, or nullopt if any part is not a number.
template <typename Number>
std::optional<std::vector<Number>> numbersIn(std::string_view text, char separator = ',') {
    std::vector<Number> numbers;
    for (;;) {
        const std::size_t end = text.find(separator);
        const auto number = numberIn<Number>(text.substr(0, end));
        if (!number) return std::nullopt;
        numbers.push_back(*number);
        if (end == text.npos) return numbers;
        text.remove_prefix(end + 1);
    }
}

struct SurfaceSize {
    int width, height;
};

// The values of --size and --background (0xRRGGBB).
SurfaceSize parseSize(const std::string& text);
unsigned int parseBackground(const std::string& text);
// Seconds: "90", "1:30" or "0:01:30.5".
double parseTime(std::string_view option, const std::string& text);

}  // namespace fovix_host
