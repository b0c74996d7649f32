// Finds where the dark surround of a lens circle ends: along rows and columns from the image's border
// inwards, and along the radii of an approximate circle.
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
    float step = 0;   // smallest rise that is not noise

    // Tolerates the lens's glare, which brightens the surround a little.
    bool isDark(float brightness) const { return brightness <= level + std::max(20.0f, 1.5f * step); }
};

// Measured in the corners of the image that are about as dark as the darkest one.
Surround surroundOf(const GreyImage& image);

// Returns true if a line of samples begins in the surround.
bool beginsDark(std::span<const float> line, const Surround& surround);

// Position of the first rise from the surround, in samples from the start of the line; the centre of sample n
// is at n + 0.5.
std::optional<double> firstRise(std::span<const float> line, const Surround& surround);

// The first rises of all rows and columns that begin dark, from both ends.
std::vector<EdgePoint> scanFromBorder(const GreyImage& image, const Surround& surround);

struct DirectionScan {
    int direction;                  // degrees
    bool beginsLit = false;         // there is light outside the circle
    std::optional<EdgePoint> edge;  // nullopt if it begins lit, or if the scene is dark
};

// Scans 360 radii inwards, from a share of the radius outside the circle to the same share inside, and
// returns the first rises. Skips directions in which the circle is outside the image.
std::vector<DirectionScan> scanAround(const GreyImage& image, const Surround& surround, const Circle& circle,
                                      double share);

}  // namespace fovix_host
