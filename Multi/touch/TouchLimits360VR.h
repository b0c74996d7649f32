// Start views and limits of the 360-degree views that a user steers.
//
// Pure functions on top of the model's own limits, which are wider in a few places: under a finger the
// strips, for example, only scroll sideways.
#pragma once

#include <optional>

#include "view/Views360VR.h"

namespace fovix {

/// The close view that pinches and sensors glide to, and the field of view of the wide one.
inline constexpr double kCloseZoom = kInsideZoom, kCloseTilt = 50.0;
inline constexpr double kWideZoom = kWidestZoom;

/// The view that a mount and a shape start with, within its limits.
View360VR touchStartView(const View360VR& before, int mount, int shape);

/// The close view that one screen of a layout with several starts with instead; none for overviews and
/// strips.
std::optional<View360VR> touchScreenView(int shape, int screen);

/// The nearest view within the limits; the roll is free. A pan beyond kMostTurn loses its whole turns.
View360VR touchLimitedView(const View360VR& view, int mount, int shape);

/// How far a view with this zoom may tilt once a gesture is over: to the rim of the hemisphere.
double touchMaxTilt(int mount, double zoom);

}  // namespace fovix
