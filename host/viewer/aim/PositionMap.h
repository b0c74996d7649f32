// An image whose colours encode the position of each pixel. Rendered in place of a frame, it shows which
// point of the frame is visible at a point of the surface, whatever the projection is. The accuracy is a
// 510th of the frame's size, which is finer than the library aims.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "image/RgbaImage.h"

namespace fovix_host {

struct FrameSpot {
    double x = 0, y = 0;  // pixels of the frame
};

class PositionMap {
  public:
    using Colour = std::array<std::uint8_t, 4>;

    PositionMap(int width, int height) : _width(width), _height(height) {}

    // Red grows from left to right and green from top to bottom, so that blends of neighbours are correct,
    // too. A certain blue marks the image.
    RgbaImage image() const;

    // The spot of a rendered colour; nullopt for colours that are not from the image.
    std::optional<FrameSpot> spot(const Colour& colour) const;

  private:
    int _width, _height;
};

}  // namespace fovix_host
