// The flat picture's gestures worked out a second time, from what a user of the view would measure, and a
// storm of gestures and frames that drives the library and this reference side by side.
#pragma once

#include <algorithm>
#include <cmath>
#include <random>

#include "steered_view.h"

namespace fovix {

struct FlatReference {
    double pitchPerZoom, pitchBase, yawPerZoom, yawBase;  ///< limit = perZoom × zoom target + base
    double zoomPerFrame, largestZoom;
    double lensAt;  ///< zoom of the second lens; 0: there is one only

    double pitch = 0.0, yaw = 0.0, pitchTarget = 0.0, yawTarget = 0.0;
    double zoomTarget = 1.0, zoom = 1.0, zoomAtDown = 1.0, spreadAtStart = -1.0;
    float lastX = 0.0f, lastY = 0.0f;
    bool slow = false, pinching = false;

    void down(float x, float y) {
        zoomAtDown = zoomTarget, spreadAtStart = -1.0, pinching = false;
        lastX = x, lastY = y;
    }
    void turn(double right, double downwards) {
        if (zoomTarget <= 1.0) return;
        const double perDegree = zoom > 2.0 ? 2.0 / zoom : 1.0;
        const double pitchMost = pitchPerZoom * zoomTarget + pitchBase,
                     yawMost = yawPerZoom * zoomTarget + yawBase;
        pitchTarget = std::max(-pitchMost, std::min(pitchMost, pitchTarget - downwards * perDegree));
        yawTarget = std::max(-yawMost, std::min(yawMost, yawTarget - right * perDegree));
        slow = false;
    }
    void move(float x, float y) {
        if (pinching) return;
        turn((x - lastX) * 0.4444444477558136, (y - lastY) * 0.4444444477558136);
        lastX = x, lastY = y;
    }
    void zoomTo(double wanted) {
        zoomTarget = std::max(0.25, std::min(largestZoom, wanted));
        if (zoomTarget <= 1.0) pitchTarget = yawTarget = 0.0;
    }
    void pinch(float x1, float y1, float x2, float y2) {
        const double spread = std::hypot<double, double>(x2 - x1, y2 - y1);
        if (spreadAtStart < 0.0) spreadAtStart = spread, pinching = true;
        const double ratio = spread / spreadAtStart;
        zoomTo(zoomAtDown * (ratio > 1.0 ? std::min(20.0, 4.0 * ratio) : ratio));
        lastX = x2, lastY = y2;
    }
    void scale(float factor) {
        pinching = true;
        if (factor != 0.0f) zoomTo(zoomAtDown * factor);
    }
    void adjust() {
        if (zoomTarget > 3.0) return;
        zoomTo(1.0);
        if (lensAt > 0.0) pitch = yaw = 0.0;
    }
    static void step(double& value, double goal, double size) {
        value = std::abs(goal - value) <= size ? goal : value + std::copysign(size, goal - value);
    }
    void approach(double& angle, double goal) const {
        const double way = std::abs(goal - angle);
        step(angle, goal,
             std::max<double>(slow ? std::min(way, 50.0) / 15.0 : std::min(0.4 * way, 10.0), 0.1f));
    }
    void frame() {
        const double before = zoom;
        step(zoom, zoomTarget, zoomTarget < 1.0 ? 0.0375 : zoomPerFrame);
        approach(pitch, pitchTarget);
        approach(yaw, yawTarget);
        if (lensAt == 0.0) return;
        const bool entersLens = before <= lensAt - 0.5 && zoom > lensAt - 0.5,
                   leavesLens = before > lensAt && zoom <= lensAt;
        if (entersLens || leavesLens) pitch = yaw = pitchTarget = yawTarget = 0.0;
    }
};

/// One gesture, done to both.
inline void randomGesture(std::mt19937& random, VRHANDLE view, FlatReference& reference) {
    const auto pixel = [&random] { return static_cast<float>(random() % 8000) / 8.0f - 100.0f; };
    const float x = pixel(), y = pixel(), x2 = pixel(), y2 = pixel(),
                factor = static_cast<float>(random() % 40) / 8.0f;
    switch (random() % 9) {
        case 0:
            return Fovix_OnTouchDown(view, x, y), reference.down(x, y);
        case 1:
            return Fovix_OnTouchPinch(view, x, y, x2, y2), reference.pinch(x, y, x2, y2);
        case 2:
            return Fovix_OnTouchPinchScale(view, factor), reference.scale(factor);
        case 3:
            Fovix_OnTouchFling(view, 20.0f * x, 10.0f * y);
            reference.turn(20.0f * x / 100.0f * 0.4444444477558136, 10.0f * y / 20.0f * 0.4444444477558136);
            reference.slow = true;
            return;
        case 4:
            return Fovix_AutoAdjust(view), reference.adjust();
        default:
            return Fovix_OnTouchMove(view, x, y), reference.move(x, y);
    }
}

inline void runStorm(unsigned seed, SteeredView& view, FlatReference& reference) {
    std::mt19937 random(seed);
    for (int event = 0; event < 1500 && !testing::Test::HasFailure(); ++event) {
        randomGesture(random, view, reference);
        for (auto frame = random() % 6; frame > 0; --frame) {
            view.frames(1);
            reference.frame();
            const View expected = {reference.pitch, reference.yaw, 0.0, reference.zoom};
            expectView(expected, view.view(), 1e-9,
                       "seed " + std::to_string(seed) + " event " + std::to_string(event));
        }
    }
}

}  // namespace fovix
