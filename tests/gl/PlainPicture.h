// What a flat picture must look like on a surface, worked out with rectangles in pixels and in double
// precision: letterboxed, zoomed and moved, sampled between its pixels.
#pragma once

#include <array>
#include <functional>

#include "Image.h"

namespace fovix_test {

/// Red, green, blue, 0 to 255, at u and v from 0 to 1 across the picture.
using Sampler = std::function<std::array<double, 3>(double u, double v)>;

/// One value per pixel, packed rows.
struct Plane {
    int width, height;
    std::vector<std::uint8_t> bytes;

    /// Bilinear between the centres of the pixels, the edge pixels going on outwards.
    double at(double u, double v) const;
};

/// A picture in planes; chroma planes have half the size, rounded down.
struct YuvPicture {
    Plane y, u, v;

    /// Smooth chroma and lively luma, so that each plane's place in memory shows.
    static YuvPicture sample(int width, int height);
    /// The bytes in one of the library's layouts (codes 3, 9, 10); each chroma plane takes W * H / 4 bytes.
    std::vector<std::uint8_t> packed(int pixelFmt) const;
};

Sampler sampled(const Image& picture);
Sampler sampled(const YuvPicture& picture);  ///< BT.601, limited range

struct FlatSight {
    double heightOverWidth;     ///< proportions in which the picture is to be shown
    double fieldOfView = 90.0;  ///< degrees; 90 shows the whole picture
    double rotateX = 0.0, rotateY = 0.0;
};

/// The picture on a surface of width by height pixels, its border left open where it meets the centre of a
/// pixel.
Image flatPicture(const Sampler& picture, const FlatSight& sight, int width, int height, Rgba background);

/// Four quadrants (red, green / blue, yellow) on a dark frame, a white marker in the top left one.
Image quadrants(int width, int height);

}  // namespace fovix_test
