// The views of the 360-degree panorama, as arithmetic alone: the default view of each mount and shape, the
// limits of a view, and the matrix of one screen.
#pragma once

#include <array>
#include <optional>

#include "base/Angles.h"
#include "base/Mat4.h"

namespace fovix {

inline constexpr int kPanoramaScreens = 6;

/// The overview strip under the two screens of FOVIX_SHAPE_TWO_AND_STRIP.
inline constexpr int kStripScreen = 2;

/// The pan of an unrolled strip is in hundredths of a radian.
inline constexpr double kPansPerRadian = 100.0;

/// One turn of an unrolled strip in this unit: as it is drawn, and as whole pans count it. A pan that wraps
/// moves the view by the difference, a third of a hundredth.
inline constexpr double kStripTurn = 2.0 * kPi * kPansPerRadian;
inline constexpr int kWholeStripTurn = 628;

/// How much a screen of this size (pixels, height above 0) shows of a strip, in the same unit. A wide screen
/// shows two units of height, and width in its own proportions.
constexpr double stripWidthSeen(int width, int height) {
    return static_cast<double>(width) / height * 2.0 * kPansPerRadian;
}

/// Zooms of a view, degrees: the two ends, and where the eye has come inside the hemisphere. The screens of a
/// layout with several start from there, so that the hemisphere's rim is out of their sight.
inline constexpr double kNearestZoom = 5.0;
inline constexpr double kInsideZoom = 40.0;
inline constexpr double kWidestZoom = 90.0;

/// Degrees; in the strip shapes the pan is in hundredths of a radian.
struct View360VR {
    double mPan = 0.0;
    double mRoll = 0.0;
    double mTilt = 0.0;
    double mPtzFifth = 0.0;  ///< tilts a wall camera's axis; no gesture changes it
    double mZoom = 180.0;    ///< field of view
};

/// Clamps a view to the limits of its mount and shape. Unknown mounts have those of a ceiling camera's single
/// screen.
View360VR limitedView(const View360VR& view, int mount, int shape);

/// A screen's default view. Only the strip of a ceiling camera keeps the tilt of the previous view.
View360VR defaultView(const View360VR& previous, int mount, int shape);

/// Everything that the matrix of a screen depends on.
struct Scene360VR {
    int mount, shape;
    int width, height;  ///< surface in pixels, both above 0
    std::array<View360VR, kPanoramaScreens> views;
    std::optional<View360VR> blendView;  ///< replaces the screens' views during a blend of two shapes
};

/// Model-view-projection matrix of one screen (0..5). extraPan is added to its pan, in the pan's unit.
Mat4 screenMatrix360VR(const Scene360VR& scene, int screen, double extraPan);

}  // namespace fovix
