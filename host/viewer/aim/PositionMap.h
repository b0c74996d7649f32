// A picture whose colours say where a pixel lies in it. Drawn by a view in place of the camera's picture, it
// tells which point of the picture is shown at a point of the surface, whatever the view does with it: to a
// 510th of the picture's size, which is finer than the library aims.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "image/RgbaImage.h"

namespace fovix_host {

struct FrameSpot {
    double x = 0, y = 0;  // picture pixels
};

class PositionMap {
  public:
    using Colour = std::array<std::uint8_t, 4>;

    PositionMap(int width, int height) : _width(width), _height(height) {}

    // Red grows from left to right, green from top to bottom, so that blends of neighbours are right too;
    // a certain blue marks the picture.
    RgbaImage picture() const;

    // From the colour that is drawn at a point; nothing where that is none of the picture.
    std::optional<FrameSpot> spot(const Colour& colour) const;

  private:
    int _width, _height;
};

}  // namespace fovix_host
