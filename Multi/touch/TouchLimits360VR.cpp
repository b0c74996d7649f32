#include "touch/TouchLimits360VR.h"

#include <algorithm>
#include <cmath>

#include "Fovix.h"
#include "touch/Gestures.h"

namespace fovix {

namespace {

/// Strips that a finger only scrolls.
bool onlyScrolls(int mount, int shape) {
    if (mount == FOVIX_MOUNT_WALL) return shape == FOVIX_SHAPE_TWO_STRIPS;
    return mount == FOVIX_MOUNT_CEILING && (shape == FOVIX_SHAPE_STRIP || shape == FOVIX_SHAPE_TWO_STRIPS);
}

}  // namespace

View360VR touchStartView(const View360VR& before, int mount, int shape) {
    View360VR view = defaultView(before, mount, shape);
    if (mount == FOVIX_MOUNT_WALL && shape == FOVIX_SHAPE_OVERVIEW_FIVE) view.mTilt = 0.0;
    return touchLimitedView(view, mount, shape);
}

std::optional<View360VR> touchScreenView(int shape, int screen) {
    const auto close = [](double pan) {
        return View360VR{.mPan = pan, .mTilt = kCloseTilt, .mZoom = kCloseZoom};
    };
    if (shape == FOVIX_SHAPE_FOUR_SCREENS) return close(90.0 * screen);
    if (shape == FOVIX_SHAPE_OVERVIEW_FIVE && screen >= 1) return close(72.0 * screen - 72.0);
    if (shape == FOVIX_SHAPE_TWO_AND_STRIP && screen < 2) return close(180.0 * screen);
    return std::nullopt;
}

View360VR touchLimitedView(const View360VR& view, int mount, int shape) {
    View360VR limited = limitedView(view, mount, shape);
    if (std::abs(limited.mPan) > kMostTurn) limited.mPan = withoutTurns(limited.mPan);
    limited.mRoll = view.mRoll;
    if (onlyScrolls(mount, shape)) {
        limited.mTilt = 0.0;
        limited.mZoom = kWideZoom;
    }
    return limited;
}

double touchMaxTilt(int mount, double zoom) {
    const bool wholeFront = mount == FOVIX_MOUNT_WALL_INVERTED || mount == FOVIX_MOUNT_FLOOR;
    return std::clamp(90.0 - zoom, 0.0, wholeFront ? 180.0 : 90.0);
}

}  // namespace fovix
