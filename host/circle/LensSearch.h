// Finds the lens circle in a greyscale image and rates the confidence.
#pragma once

#include <optional>

#include "circle/CircleFit.h"
#include "image/GreyImage.h"

namespace fovix_host {

// What the directions show in which the circle is inside the image, as counts of directions.
struct CircleEvidence {
    int visible = 0;         // all of them
    int agreeing = 0;        // the scene begins at the circle, within the tolerance
    int light = 0;           // there is light outside the circle
    int within = 0;          // the scene begins a little inside the circle
    double doubt = 1;        // uncertainty of a circle fitted to the agreeing ones, as a share of the radius
    double litSurround = 1;  // share of the image well outside the circle that is bright
};

struct SearchResult {
    Circle circle;
    CircleEvidence evidence;
    double confidence = 0;  // from 0 to 1
};

// How far from the circle an agreeing edge may be, in pixels.
double edgeTolerance(const Circle& circle);

// Best circle, or nullopt without consensus.
std::optional<SearchResult> searchCircle(const GreyImage& image);

}  // namespace fovix_host
