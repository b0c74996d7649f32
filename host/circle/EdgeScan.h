// Where the dark surround of a lens circle ends: along rows and columns from the picture's border inwards,
// and along the directions of a circle that is nearly known.
#pragma once

#include <algorithm>
#include <optional>
#include <span>
#include <vector>

#include "circle/CircleFit.h"
#include "image/GreyImage.h"

namespace fovix_host {

struct Surround {
    float level = 0;  // brightness
    float step = 0;   // smallest rise that its noise does not make

    // Also in the lens's glare, which makes the surround a little brighter.
    bool isDark(float brightness) const { return brightness <= level + std::max(20.0f, 1.5f * step); }
};

// From the corners of the picture, as far as they are about as dark as the darkest.
Surround surroundOf(const GreyImage& image);

// Whether a line of samples begins in the surround.
bool beginsDark(std::span<const float> line, const Surround& surround);

// Position of the first rise from the surround in a line of samples, in samples from its start; sample n
// lies at n + 0.5.
std::optional<double> firstRise(std::span<const float> line, const Surround& surround);

// The first rise of every row and column that begins dark, from both of its ends.
std::vector<EdgePoint> scanFromBorder(const GreyImage& image, const Surround& surround);

struct DirectionScan {
    int direction;                  // degrees
    bool beginsLit = false;         // there is light outside the circle
    std::optional<EdgePoint> edge;  // nothing there, and where the scene is dark
};

// The first rise on the way to the centre from a share of the radius outside the circle to the same inside,
// in those of 360 directions where the circle lies in the picture.
std::vector<DirectionScan> scanAround(const GreyImage& image, const Surround& surround, const Circle& circle,
                                      double share);

}  // namespace fovix_host
