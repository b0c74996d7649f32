#include "cli/OptionValues.h"

#include <algorithm>
#include <cmath>

namespace fovix_host {

void refuse(std::string_view option, std::string_view value, std::string_view expected) {
    throw UsageError(std::string(option) + ": expected " + std::string(expected) + ", got '" +
                     std::string(value) + "'");
}

SurfaceSize parseSize(const std::string& text) {
    constexpr int kMaxSide = 65535;  // a sanity limit; GL reports its own
    const auto size = numbersIn<int>(text, 'x');
    if (!size || size->size() != 2 || *std::min_element(size->begin(), size->end()) < 1 ||
        *std::max_element(size->begin(), size->end()) > kMaxSide)
        refuse("--size", text,
               "WIDTHxHEIGHT in pixels, each from 1 to " + std::to_string(kMaxSide) + " (such as 1280x720)");
    return {size->front(), size->back()};
}

unsigned int parseBackground(const std::string& text) {
    const auto colour = numberIn<unsigned int>(text, 16);
    if (!colour || text.size() != 6)
        refuse("--background", text, "six hexadecimal digits RRGGBB (such as 202830)");
    return *colour;
}

double parseTime(std::string_view option, const std::string& text) {
    constexpr const char* kExpected = "a time in seconds or as [H:]M:S (such as 90, 1:30 or 0:01:30.5)";
    constexpr double kMaxSeconds = 1e7;  // four months; larger values are typing errors
    const auto parts = numbersIn<double>(text, ':');
    if (!parts || parts->size() > 3) refuse(option, text, kExpected);
    double seconds = 0;
    for (std::size_t i = 0; i < parts->size(); ++i) {
        const double part = (*parts)[i];
        const bool isWhole = part == std::floor(part) || i + 1 == parts->size();
        if (!isWhole || std::signbit(part) || (i > 0 && part >= 60)) refuse(option, text, kExpected);
        seconds = seconds * 60 + part;
    }
    if (seconds > kMaxSeconds) refuse(option, text, kExpected);
    return seconds;
}

}  // namespace fovix_host
