#include "circle/EdgeScan.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace fovix_host {
namespace {

constexpr std::size_t kBefore = 3, kAfter = 4;  // samples whose means are compared for a rise

float medianOf(std::vector<float>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

float meanOf(std::span<const float> values) {
    return std::accumulate(values.begin(), values.end(), 0.0f) / static_cast<float>(values.size());
}

float riseAt(std::span<const float> line, std::size_t place) {
    return meanOf(line.subspan(place, kAfter)) - meanOf(line.subspan(place - kBefore, kBefore));
}

// Where the line crosses the level half-way up the rise.
double halfWay(std::span<const float> line, std::size_t place) {
    const float level =
        (meanOf(line.subspan(place, kAfter)) + meanOf(line.subspan(place - kBefore, kBefore))) / 2.0f;
    std::size_t i = place - kBefore;
    while (i + 1 < place + kAfter && line[i + 1] < level) ++i;
    const float low = line[i], high = line[i + 1];
    const double share = high > low ? std::clamp((level - low) / (high - low), 0.0f, 1.0f) : 0.5;
    return static_cast<double>(i) + 0.5 + share;
}

}  // namespace

Surround surroundOf(const GreyImage& image) {
    const int side = std::max(4, std::min(image.width, image.height) / 25);  // of a corner
    std::vector<float> dark;
    float darkest = 256.0f;
    for (const int left : {0, image.width - side})
        for (const int top : {0, image.height - side}) {
            std::vector<float> corner;
            for (int y = top; y < top + side; ++y)
                corner.insert(corner.end(), image.row(y) + left, image.row(y) + left + side);
            const float level = medianOf(corner);
            constexpr float kSimilar = 10.0f;  // difference between corners that are equally dark
            if (level > darkest + kSimilar) continue;
            if (level < darkest - kSimilar) dark.clear();
            darkest = std::min(darkest, level);
            dark.insert(dark.end(), corner.begin(), corner.end());
        }
    const float level = medianOf(dark);
    for (float& value : dark) value = std::abs(value - level);
    constexpr float kDeviationPerMedian = 1.4826f;  // of a normal distribution
    const float noise = kDeviationPerMedian * medianOf(dark);
    constexpr float kMinStep = 5.0f, kStepPerNoise = 2.7f;
    return {level, std::max(kMinStep, kStepPerNoise * noise)};
}

bool beginsDark(std::span<const float> line, const Surround& surround) {
    return line.size() >= kBefore && surround.isDark(meanOf(line.first(kBefore)));
}

std::optional<double> firstRise(std::span<const float> line, const Surround& surround) {
    for (std::size_t place = kBefore; place + kAfter <= line.size(); ++place) {
        float rise = riseAt(line, place);
        if (rise < surround.step || meanOf(line.subspan(place, kAfter)) < surround.level + surround.step)
            continue;
        // The window responds early; the edge is at the steepest rise.
        for (; place + kAfter < line.size(); ++place) {
            const float next = riseAt(line, place + 1);
            if (next <= rise) break;
            rise = next;
        }
        return halfWay(line, place);
    }
    return std::nullopt;
}

std::vector<EdgePoint> scanFromBorder(const GreyImage& image, const Surround& surround) {
    std::vector<EdgePoint> points;
    std::vector<float> line;
    const auto scan = [&](int length, const auto& pointAt) {
        for (const bool reversed : {false, true}) {
            if (reversed) std::reverse(line.begin(), line.end());
            if (!beginsDark(line, surround)) continue;
            if (const auto place = firstRise(line, surround))
                points.push_back(pointAt(reversed ? length - *place : *place));
        }
    };
    for (int y = 0; y < image.height; ++y) {
        line.assign(image.row(y), image.row(y) + image.width);
        scan(image.width, [&](double place) { return EdgePoint{place, y + 0.5}; });
    }
    line.resize(static_cast<std::size_t>(image.height));
    for (int x = 0; x < image.width; ++x) {
        for (int y = 0; y < image.height; ++y) line[static_cast<std::size_t>(y)] = image.row(y)[x];
        scan(image.height, [&](double place) { return EdgePoint{x + 0.5, place}; });
    }
    return points;
}

std::vector<DirectionScan> scanAround(const GreyImage& image, const Surround& surround, const Circle& circle,
                                      double share) {
    constexpr int kDirections = 360;
    constexpr double kMargin = 4.0;     // room outside the circle for the rise and some surround
    constexpr double kMinReach = 12.0;  // enough samples for a rise, also around small circles
    const int reach = static_cast<int>(std::ceil(std::max(share * circle.radius, kMinReach)));
    std::vector<DirectionScan> scans;
    std::vector<float> line;
    for (int direction = 0; direction < kDirections; ++direction) {
        const double angle = direction * std::numbers::pi / 180.0;
        const double dx = std::cos(angle), dy = std::sin(angle);
        const auto on = [&](double radius) {
            return EdgePoint{circle.x + radius * dx, circle.y + radius * dy};
        };
        const auto isInside = [&](EdgePoint point) {
            return point.x >= 0 && point.y >= 0 && point.x <= image.width && point.y <= image.height;
        };
        if (!isInside(on(circle.radius + kMargin))) continue;
        line.clear();
        double first = circle.radius + reach;
        while (!isInside(on(first))) first -= 1.0;
        for (double radius = first; radius > circle.radius - reach; radius -= 1.0) {
            const EdgePoint point = on(radius - 0.5);
            line.push_back(image.at(point.x, point.y));
        }
        scans.push_back({direction, !beginsDark(line, surround), std::nullopt});
        if (scans.back().beginsLit) continue;
        if (const auto place = firstRise(line, surround)) scans.back().edge = on(first - *place);
    }
    return scans;
}

}  // namespace fovix_host
