// What a flat picture must look like on a surface, worked out with rectangles in pixels and in double
// precision: letterboxed, zoomed and moved, sampled between its pixels.
#pragma once

#include <array>
#include <functional>

#include "Image.h"

namespace fovix_test {

using Bytes = std::vector<std::uint8_t>;

/// Red, green, blue, 0 to 255, at u and v from 0 to 1 across the picture.
using Sampler = std::function<std::array<double, 3>(double u, double v)>;
Sampler sampled(const Image& picture);

struct FlatSight {
    double heightOverWidth;     ///< proportions in which the picture is to be shown
    double fieldOfView = 90.0;  ///< degrees; 90 shows the whole picture
    double rotateX = 0.0, rotateY = 0.0;
};

/// The picture on a surface of width by height pixels, its border left open where it meets the centre of a
/// pixel.
Image flatPicture(const Sampler& picture, const FlatSight& sight, int width, int height,
                  Rgba background = rgb(0));

/// The whole picture in its own proportions.
Image letterboxed(const Image& picture, int width, int height, Rgba background = rgb(0));

/// Four quadrants (red, green / blue, yellow) on a dark frame, a white marker in the top left one.
Image quadrants(int width, int height);

/// A picture of lively luma in four fields of chroma in one of the library's layouts (codes 3, 9, 10); each
/// chroma plane takes width * height / 4 bytes.
Bytes yuvBytes(int pixelFmt, int width, int height);
/// What it looks like pixel by pixel, BT.601 in limited range; open where the fields meet.
Image yuvColours(int width, int height);

}  // namespace fovix_test
