// The views of the 360-degree panorama, as arithmetic alone: where each mount and shape begins to look, how
// far a view may go, and the matrix that draws one screen.
#pragma once

#include <array>
#include <optional>

#include "base/Angles.h"
#include "base/Mat4.h"

namespace fovix {

inline constexpr int kPanoramaScreens = 6;

/// One turn of an unrolled strip in hundredths of a radian: as it is drawn, and as whole pans are counted. A
/// pan that wraps moves the picture by the difference, a third of a hundredth.
inline constexpr double kStripTurn = 200.0 * kPi;
inline constexpr int kWholeStripTurn = 628;

/// Hundredths of a radian that a screen of this size (pixels, height above 0) shows of a strip. A wide screen
/// shows two units of height, and width in its own proportions.
constexpr double stripWidthSeen(int width, int height) {
    return static_cast<double>(width) / height * 2.0 * 100.0;
}

/// Degrees throughout; in the strip shapes the pan counts hundredths of a radian.
struct View360VR {
    double mPan = 0.0;
    double mRoll = 0.0;
    double mTilt = 0.0;
    double mPtzFifth = 0.0;  ///< leans a wall camera's axis; no gesture moves it
    double mZoom = 180.0;    ///< field of view
};

/// The view within what its mount and shape allow.
View360VR limitedView(const View360VR& view, int mount, int shape);

/// Where a screen begins to look. Only a ceiling camera's strip keeps the tilt of the view before.
View360VR defaultView(const View360VR& before, int mount, int shape);

/// All that the picture of a screen depends on.
struct Scene360VR {
    int mount, shape;
    int width, height;  ///< surface in pixels, both above 0
    std::array<View360VR, kPanoramaScreens> views;
    std::optional<View360VR> blendView;  ///< the gliding view while one shape is blended into another
};

/// Model-view-projection matrix of one screen; extraPan turns it away from its view.
Mat4 screenMatrix360VR(const Scene360VR& scene, int screen, double extraPan);

}  // namespace fovix
