// The panorama's gestures on one screen worked out a second time, from closed formulas: where a glide is
// after so many frames, what a drag or a pinch amounts to. Ceiling and wall cameras, single screen, surface
// 1024 pixels wide.
#pragma once

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

#include "Animators.h"

namespace fovix {

/// A glide as a formula of its age. In units of its step it moves 5, then 2 and a fiftieth less every frame
/// down to 0.2, until it has gone all the way.
struct GlideFormula {
    double from, to;
    double way;  ///< units: frames / 10 + 1
    int age = 0;

    double unitsAt(int frames) const {
        const int slowing = std::clamp(frames - 1, 0, 91);
        return (frames > 0 ? 5.0 : 0.0) + 2.0 * slowing - 0.01 * slowing * (slowing - 1) +
               0.2 * std::max(frames - 92, 0);
    }
    bool landed() const { return from == to || unitsAt(age) >= way; }
    double value() const { return landed() ? to : from + (to - from) / way * unitsAt(age); }
    /// What the next frame would move; a landed glide keeps its last speed.
    double speed() const {
        const int next = (landed() ? age - 1 : age) + 1;
        return (to - from) / way * (unitsAt(next) - unitsAt(next - 1));
    }
};

struct PanoramaReference {
    explicit PanoramaReference(bool ceiling) : isCeiling(ceiling) {}

    bool isCeiling;
    double pan = 90.0, tilt = isCeiling ? 0.0 : 90.0, zoom = 90.0;
    double downX = 0.0, downY = 0.0, panDown = 0.0, tiltDown = 0.0, zoomDown = 0.0, lastScale = -1.0;
    bool zooms = false, cruises = false;
    double spin = 0.0, spinShare = 1.0, cruiseStep = 0.0;
    std::optional<GlideFormula> zoomGlide, tiltGlide, panRun, tiltRun;
    std::unique_ptr<BounceAnimator> bounce;

    bool isBusy() const { return zoomGlide || tiltGlide; }
    void grab(double x, double y) { downX = x, downY = y, panDown = pan, tiltDown = tilt; }
    void glideTo(double zoomEnd, double tiltEnd) {
        zoomGlide = {zoom, zoomEnd, 201.0};
        tiltGlide = {tilt, tiltEnd, 201.0};
    }
    void bounceBack() {
        if (tilt <= 90.0 - zoom) return;
        tiltRun.reset();
        bounce = std::make_unique<BounceAnimator>(tilt, std::max(90.0 - zoom, 0.0), 800);
    }

    void down(float x, float y) {
        zoomGlide = tiltGlide = panRun = tiltRun = std::nullopt;
        bounce = nullptr;
        spin = 0.0;
        cruises = zooms = false;
        zoomDown = zoom, lastScale = -1.0;
        grab(x, y);
    }
    void up(float x, float y) { grab(std::trunc(x), std::trunc(y)); }
    void move(float x, float y) {
        if (isBusy() || zooms) return;
        const double perPixel = (isCeiling ? -zoom : zoom) / 360.0;
        pan = panDown + perPixel * (x - downX);
        tilt = tiltDown - perPixel * (y - downY);
    }
    void scale(float factor) {
        if (isBusy()) return;
        if (!zooms) zooms = true, zoomDown = zoom, lastScale = factor;
        const double wanted = zoomDown / factor, change = factor / lastScale;
        lastScale = factor;
        const bool opens = isCeiling && change > 1.2;
        if (isCeiling && ((wanted > zoomDown && wanted > 70.0) || change < 0.8)) return glideTo(90.0, 0.0);
        if (opens && wanted > 15.0) return glideTo(40.0, 50.0);
        zoom = wanted;
        if (opens) bounceBack();
    }
    void fling(float vx, float vy) {
        if (isBusy() || zooms) return;
        const int reach = static_cast<int>(std::max(std::abs(vx), std::abs(vy)) / 3.0);
        const double way = std::min(reach, 2000) / 10 + 1;
        spinShare = std::max(reach * 0.003, 1.0);
        tiltRun = {vy * zoom / 36000.0, 0.0, way};
        panRun = {-vx * zoom / 36000.0, 0.0, way};
    }
    void settle() {
        if (isBusy() || !isCeiling) return;
        if (zoom >= 85.0 && tilt > 0.0) return glideTo(40.0, 50.0);
        bounceBack();
    }
    void sense(float x, float y) {
        pan += x * 5.0f, tilt += y * 5.0f;
        if (!isCeiling) return;
        if (zoom >= 85.0 && tilt > 0.0) return glideTo(40.0, 50.0);
        tilt = std::min(tilt, std::clamp(90.0 - zoom, 0.0, 90.0));
    }
    void cruise(double speed) {
        if (!isCeiling) return;
        cruises = true, spin = 0.0, cruiseStep = speed / 5.0;
        glideTo(40.0, 50.0);
    }

    static bool follow(std::optional<GlideFormula>& glide, double& value) {
        if (!glide) return false;
        ++glide->age;
        value = glide->value();
        if (glide->landed()) glide.reset();
        return true;
    }
    void frame() {
        if (!follow(tiltGlide, tilt) && bounce) {
            bounce->step();
            tilt = bounce->mCurrent;
            if (bounce->mDone) bounce = nullptr;
        }
        follow(zoomGlide, zoom);
        double step = 0.0;
        if (follow(tiltRun, step)) tilt += step;
        if (panRun) {
            ++panRun->age;
            const double left = panRun->value(), lasting = -panRun->speed() * spinShare;
            pan += std::abs(lasting) > std::abs(left) ? lasting : left;
            if (panRun->landed()) spin = lasting, panRun.reset();
        } else if (spin != 0.0 && isCeiling) {
            pan += spin;
        } else if (cruises) {
            pan += cruiseStep;
        }
        if (!isCeiling) pan = std::clamp(pan, 15.0, 165.0);
        tilt = isCeiling ? std::clamp(tilt, 0.0, 90.0) : std::clamp(tilt, 15.0, 165.0);
        zoom = std::clamp(zoom, 5.0, 90.0);
    }
};

}  // namespace fovix
