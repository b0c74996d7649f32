#include "viewer/aim/PositionMap.h"

#include <cstdlib>
#include <vector>

namespace fovix_host {
namespace {

constexpr int kMost = 255;
constexpr int kMark = 170;  // neither that of black surroundings nor of white lines

std::vector<std::uint8_t> ramp(int size) {
    std::vector<std::uint8_t> values;
    values.reserve(static_cast<std::size_t>(size));
    for (int i = 0; i < size; ++i)
        values.push_back(static_cast<std::uint8_t>((i + 0.5) / size * kMost + 0.5));
    return values;
}

}  // namespace

RgbaImage PositionMap::picture() const {
    RgbaImage image(_width, _height);
    const std::vector<std::uint8_t> across = ramp(_width), down = ramp(_height);
    std::uint8_t* to = image.pixels.data();
    for (const std::uint8_t y : down)
        for (const std::uint8_t x : across) {
            *to++ = x;
            *to++ = y;
            *to++ = kMark;
            *to++ = kMost;
        }
    return image;
}

std::optional<FrameSpot> PositionMap::spot(const Colour& colour) const {
    constexpr int kTolerance = 3;
    if (std::abs(colour[2] - kMark) > kTolerance) return std::nullopt;
    return FrameSpot{colour[0] * static_cast<double>(_width) / kMost,
                     colour[1] * static_cast<double>(_height) / kMost};
}

}  // namespace fovix_host
