#include "viewer/aim/PositionMap.h"

#include <cstdlib>
#include <vector>

namespace fovix_host {
namespace {

constexpr int kMaxLevel = 255;
constexpr int kMark = 170;  // differs from the black background and from white lines

std::vector<std::uint8_t> ramp(int size) {
    std::vector<std::uint8_t> values;
    values.reserve(static_cast<std::size_t>(size));
    for (int i = 0; i < size; ++i)
        values.push_back(static_cast<std::uint8_t>((i + 0.5) / size * kMaxLevel + 0.5));
    return values;
}

}  // namespace

RgbaImage PositionMap::image() const {
    RgbaImage image(_width, _height);
    const std::vector<std::uint8_t> across = ramp(_width), down = ramp(_height);
    std::uint8_t* to = image.pixels.data();
    for (const std::uint8_t y : down)
        for (const std::uint8_t x : across) {
            *to++ = x;
            *to++ = y;
            *to++ = kMark;
            *to++ = kMaxLevel;
        }
    return image;
}

std::optional<FrameSpot> PositionMap::spot(const Colour& colour) const {
    constexpr int kTolerance = 3;  // levels lost in rendering
    if (std::abs(colour[2] - kMark) > kTolerance) return std::nullopt;
    return FrameSpot{colour[0] * static_cast<double>(_width) / kMaxLevel,
                     colour[1] * static_cast<double>(_height) / kMaxLevel};
}

}  // namespace fovix_host
