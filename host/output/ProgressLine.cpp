#include "output/ProgressLine.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace fovix_host {
namespace {

std::string clockText(double seconds) {
    const long whole = std::lround(seconds);
    char text[40];
    if (whole < 3600)
        std::snprintf(text, sizeof text, "%ld:%02ld", whole / 60, whole % 60);
    else
        std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
    return text;
}

}  // namespace

std::string progressLine(int frames, int totalFrames, double secondsSoFar, int columns) {
    const auto width = static_cast<std::size_t>(std::max(columns, 0));
    if (totalFrames <= 0)
        return ("frame " + std::to_string(frames) + ", " + clockText(secondsSoFar)).substr(0, width);
    const double done = std::min(1.0, static_cast<double>(frames) / totalFrames);
    const double left = done > 0 ? secondsSoFar * (1 - done) / done : 0;
    const std::string text = " " + std::to_string(static_cast<int>(done * 100)) + " %, frame " +
                             std::to_string(frames) + " of " + std::to_string(totalFrames) + ", " +
                             clockText(left) + " left";
    constexpr std::size_t kMinCells = 10, kMaxCells = 40, kBrackets = 2;
    if (width < text.size() + kBrackets + kMinCells) return text.substr(1, width);
    const std::size_t cells = std::min(kMaxCells, width - text.size() - kBrackets);
    const auto filled = static_cast<std::size_t>(done * static_cast<double>(cells));
    return "[" + std::string(filled, '#') + std::string(cells - filled, '-') + "]" + text;
}

}  // namespace fovix_host
