// Finds the circle that a fisheye lens draws in its picture, and says how sure that is.
#pragma once

#include <optional>
#include <string>

#include "circle/CircleFit.h"
#include "image/GreyImage.h"

namespace fovix_host {

// What is seen in the directions in which the circle lies in the picture.
struct CircleEvidence {
    int visible = 0;         // such directions
    int agreeing = 0;        // the scene begins at the circle, within the tolerance
    int light = 0;           // there is light outside of it
    int within = 0;          // the scene begins a little within it
    double doubt = 1;        // how far off the agreeing directions may leave the circle, of its radius
    double litSurround = 1;  // share of the picture well outside the circle that is bright
};

struct SearchResult {
    Circle circle;
    CircleEvidence evidence;
    double confidence = 0;  // from 0 to 1
};

// How far from the circle the scene may begin in a direction that agrees.
double edgeTolerance(const Circle& circle);

// The best circle there is, or nothing where no edges agree on one.
std::optional<SearchResult> searchCircle(const GreyImage& image);

}  // namespace fovix_host
