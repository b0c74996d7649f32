#include "view/Layouts360VR.h"

#include <cstdint>

#include "Fovix.h"
#include "base/Numbers.h"

namespace fovix {

namespace {

int twoThirds(int length) {
    return static_cast<int>(std::int64_t{2} * length / 3);
}

Layout360VR twoStrips(int width, int height) {
    const int half = height / 2;
    return {{{{0, half, width, half}, {0, 0, width, half}}}, 2};
}

Layout360VR fourScreens(int width, int height) {
    const int w = width / 2, h = height / 2;
    return {{{{0, h, w, h}, {w, h, w, h}, {0, 0, w, h}, {w, 0, w, h}}}, 4};
}

/// The overview in the upper left, five screens down the right side and back along the bottom.
Layout360VR overviewAndFive(int width, int height) {
    const int w = width / 3, h = height / 3;
    return {{{{0, h, twoThirds(width), twoThirds(height)},
              {2 * w, 2 * h, w, h},
              {2 * w, h, w, h},
              {2 * w, 0, w, h},
              {w, 0, w, h},
              {0, 0, w, h}}},
            6};
}

Layout360VR twoAboveStrip(int width, int height) {
    const int w = width / 2, y = height / 3, h = twoThirds(height);
    return {{{{0, y, w, h}, {w, y, w, h}}}, 2};
}

int screenOfOverviewAndFive(int width, int height, int x, int y) {
    if (y >= twoThirds(height)) {
        if (x < width / 3) return 5;
        return x < 2 * (width / 3) ? 4 : 3;
    }
    if (x < twoThirds(width)) return 0;
    return y < height / 3 ? 1 : 2;
}

}  // namespace

Layout360VR layout360VR(int shape, int width, int height) {
    switch (shape) {
        case FOVIX_SHAPE_TWO_STRIPS:
            return twoStrips(width, height);
        case FOVIX_SHAPE_FOUR_SCREENS:
            return fourScreens(width, height);
        case FOVIX_SHAPE_OVERVIEW_FIVE:
            return overviewAndFive(width, height);
        case FOVIX_SHAPE_TWO_AND_STRIP:
            return twoAboveStrip(width, height);
        default:
            return {};
    }
}

SurfaceRect overviewStripRect(int width, int height) {
    return {0, 0, width, height / 3};
}

int screenAt360VR(int mount, int shape, int width, int height, int x, int y) {
    const bool onCeiling = mount == FOVIX_MOUNT_CEILING;
    const int right = x < width / 2 ? 0 : 1;
    if (onCeiling && shape == FOVIX_SHAPE_FOUR_SCREENS) return y < height / 2 ? right : 2 + right;
    if (onCeiling && shape == FOVIX_SHAPE_TWO_AND_STRIP) return y < twoThirds(height) ? right : kStripScreen;
    if ((onCeiling || mount == FOVIX_MOUNT_WALL) && shape == FOVIX_SHAPE_OVERVIEW_FIVE) {
        return screenOfOverviewAndFive(width, height, x, y);
    }
    return 0;
}

StripScroll scrollStrip(double pan, int screen, int width, int height) {
    constexpr int kTurn = kWholeStripTurn;
    const double visible = stripWidthSeen(width, height);
    const auto remainder = static_cast<int>((std::int64_t{truncateToInt(pan)} + screen * kTurn / 2) % kTurn);
    const int position = remainder < 0 ? remainder + kTurn : remainder;
    return {truncateToInt(position - visible * 0.5), position < visible};
}

}  // namespace fovix
