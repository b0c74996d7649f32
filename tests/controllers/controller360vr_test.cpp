// Touch on the 360-degree panorama. Views are pan, tilt, roll and zoom.
#include "touch/TouchController360VR.h"

#include <algorithm>
#include <optional>
#include <random>
#include <tuple>

#include "steered_view.h"

using namespace fovix;

TEST(PanoramaTouch, ViewsStartAndStayWithinTheLimitsOfMountAndShape) {
    struct Case {
        const char* place;
        int screen;
        View start, low, high;
    };
    const Case cases[] = {
        {"", 0, {90, 0, 0, 90}, {-999, 0, 0, 5}, {999, 90, 720, 90}},
        {"shape 5", 0, {0, 0, 0, 90}, {-999, 0, 0, 90}, {999, 0, 720, 90}},
        {"shape 6", 0, {90, 0, 0, 90}, {-999, 0, 0, 90}, {999, 0, 720, 90}},
        {"shape 7", 3, {270, 50, 0, 40}, {-999, 0, 0, 5}, {999, 90, 720, 40}},
        {"shape 8", 0, {90, 0, 0, 40}, {-999, 0, 0, 5}, {999, 90, 720, 40}},
        {"shape 8", 1, {0, 50, 0, 40}, {-999, 0, 0, 5}, {999, 90, 720, 40}},
        {"shape 8", 5, {288, 50, 0, 40}, {-999, 0, 0, 5}, {999, 90, 720, 40}},
        {"shape 9", 1, {180, 50, 0, 40}, {-999, 0, 0, 5}, {999, 90, 720, 40}},
        {"shape 9", 2, {90, 0, 0, 40}, {-999, 0, 0, 5}, {999, 90, 720, 40}},
        {"shape 8 mount 1", 0, {90, 90, 0, 90}, {15, 15, 0, 5}, {165, 165, 720, 90}},
        {"mount 1 shape 6", 0, {90, 0, 0, 90}, {-999, 0, 0, 90}, {999, 0, 720, 90}},
        {"mount 1 shape 8 mount 1", 0, {90, 0, 0, 40}, {-999, 0, 0, 5}, {999, 90, 720, 40}},
        {"mount 3", 0, {90, 0, 0, 90}, {0, 0, 0, 5}, {180, 180, 720, 90}},
    };
    for (const auto& [place, screen, start, low, high] : cases) {
        SteeredView view(FOVIX_TYPE_360VR, place);
        TouchController& controller = *view.controller(screen);
        for (const int unknown : {-1, 11, kMost, kLeast}) {
            Fovix_SetShape(view, unknown), Fovix_SetCameraMount(view, unknown);
        }
        view.frames(1, screen);
        expectView(start, view.view(screen), 0, place);
        for (const auto& [far, roll, end] : {std::tuple{-999, 0, low}, {999, 720, high}}) {
            controller.operations.setPTZ(controller, far, far, far, roll);
            view.frames(1, screen);
            expectView(end, view.view(screen), 0, place);
        }
    }
}

TEST(PanoramaTouch, GesturesEndInTheirView) {
    const Played cases[] = {
        {"size 512 800 look 90 10 80 down 9 9 move 99 54 frames 1", {50, 30, 0, 80}},
        {"size 0 0 look 90 10 80 down 9 9 move 99 54 frames 1", {70, 20, 0, 80}},
        {"size 1024 800 mount 1 shape 2 look 90 -75 90 down 9 9 move 29 49 frames 1", {80, -80, 0, 90}},
        {"size 1024 800 mount 1 shape 6 look 90 0 90 down 9 9 move 109 59 frames 1", {65, 0, 0, 90}},
        {"look 10 85 10 down 9 9 scale 1 scale 1.6 frames 2000", {10, 83.75, 0, 6.25}},
        {"mount 1 look 90 90 60 down 9 9 scale 0 scale -3 frames 1", {90, 90, 0, 60}},
        {"shape 8 look 90 10 30 down 9 9 scale 1 scale 2 scale 0.5 frames 1", {90, 10, 0, 30}},
        {"mount 1 look 90 90 60 down 9 9 spread 300 400 frames 1", {90, 90, 0, 45}},
        {"mount 1 look 90 90 60 5 down 9 9 pinch 0 0 297 60 spread 300 300 frames 1",
         {90, 90, -6.421186, 60}},
        {"mount 1 look 90 90 60 5 down 9 9 pinch 0 0 200 0 pinch 0 0 198 40 frames 1",
         {90, 90, 5, 60 / 1.01}},
        {"mount 1 look 90 90 60 down 9 9 pinch 0 0 0 0 spread 100 200 frames 1", {90, 90, 0, 30}},
        {"mount 1 look 90 90 60 down 9 9 spread 300 0 frames 1", {90, 90, 0, 90}},
        {"look 90 10 60 down 9 9 spread 300 200 frames 2000", {90, 0, 0, 90}},
        {"look 90 10 60 down 9 9 spread 300 340 pinch 0 0 380 0 frames 1", {90, 10, 0, 60 / 3.8 * 3}},
        {"look 90 5 80 down 9 9 scale 1 scale 1.1 frames 1", {90, 5, 0, 80 / 1.1}},
        {"shape 7 look 10 80 40 adjust frames 2000", {10, 50, 0, 40}},
        {"mount 1 shape 2 look 90 -75 90 fling 900 0 frames 9", {90, -75, 0, 90}},
        {"look 10 20 60 turn 5 19 -10 frames 1", {-2, 26, 0, 60}},
        {"look 10 20 60 turn 5 21 -10 turn 5.5 21 -10.5 frames 1", {10, 20, 0, 60}},
        {"shape 3 look 10 20 90 cruise -3 frames 500", {-290, 20, 0, 90}},
        {"look 450 30 60 target 500 300 1001 601 frames 2000", {180, 0, 0, 60}},
        {"look 0 0 40 target 600 700 800 1000 frames 2000", {225, 50 * std::sqrt(8.0 / 41), 0, 40}},
        {"look 0 80 40 adjust target 500 300 1001 601 frames 1", {900 / 101.0, 80 - 400 / 101.0, 0, 40}},
        {"look 90 30 40 target 0 -5 1 -1 frames 2000", {90, 0, 0, 40}},
    };
    expectLanded(FOVIX_TYPE_360VR, cases);
}

TEST(PanoramaTouch, FlingSpinsUntilItIsEnded) {
    const double spin = -3.0 * 0.44 * 7.5 / 101.0;  // three times the 80th step of the glide from 7.5 to 0
    const std::tuple<const char*, const char*, double> cases[] = {
        {"", "", spin},     {"", "target 9 0 9 9 frames 2000", 0},
        {"shape 9", "", 0}, {"shape 3", "cruise 1 stop", 0},
        {"shape 5", "", 0}, {"mount 1 shape 5", "", 0}};
    for (const auto& [place, end, perFrame] : cases) {
        SteeredView view(FOVIX_TYPE_360VR,
                         std::string(place) + " size 1024 800 fling 3000 0 frames 80 " + end);
        const double before = view.view().x;
        view.frames(5000);
        EXPECT_NEAR(5000 * perFrame, view.view().x - before, 1e-6) << place << end;
    }
}

namespace {

/// One screen under a ceiling or on a wall, on a surface 1024 pixels wide.
struct PanoramaReference {
    explicit PanoramaReference(bool ceiling) : isCeiling(ceiling) {}

    bool isCeiling;
    double pan = 90.0, tilt = isCeiling ? 0.0 : 90.0, zoom = 90.0;
    double downX = 0.0, downY = 0.0, panDown = 0.0, tiltDown = 0.0, zoomDown = 0.0, lastScale = -1.0;
    bool zooms = false, cruises = false;
    double spin = 0.0, spinShare = 1.0, cruiseStep = 0.0;
    std::optional<GlideAnimator> zoomGlide, tiltGlide, panRun, tiltRun;
    std::optional<BounceAnimator> bounce;

    bool isBusy() const { return zoomGlide || tiltGlide; }
    void grab(double x, double y) { downX = x, downY = y, panDown = pan, tiltDown = tilt; }
    void glideTo(double zoomEnd, double tiltEnd) {
        zoomGlide.emplace(zoom, zoomEnd, 2000), tiltGlide.emplace(tilt, tiltEnd, 2000);
    }
    void closeUpOr(const std::function<void()>& other) {
        zoom >= 85.0 && tilt > 0.0 ? glideTo(40.0, 50.0) : other();
    }
    void bounceBack() {
        if (tilt <= 90.0 - zoom) return;
        tiltRun.reset(), bounce.emplace(tilt, std::max(90.0 - zoom, 0.0), 800);
    }
    void down(float x, float y) {
        zoomGlide = tiltGlide = panRun = tiltRun = std::nullopt;
        bounce = std::nullopt;
        zooms = cruises = false;
        spin = 0.0, zoomDown = zoom;
        grab(x, y);
    }
    void move(float x, float y) {
        if (isBusy() || zooms) return;
        const double perPixel = (isCeiling ? -zoom : zoom) / 360.0;
        pan = panDown + perPixel * (x - downX), tilt = tiltDown - perPixel * (y - downY);
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
        spinShare = std::max(reach * 0.003, 1.0);
        tiltRun.emplace(vy * zoom / 36000.0, 0.0, std::min(reach, 2000));
        panRun.emplace(-vx * zoom / 36000.0, 0.0, std::min(reach, 2000));
    }
    void settle() {
        if (!isBusy() && isCeiling) closeUpOr([this] { bounceBack(); });
    }
    void sense(float x, float y) {
        pan += x * 5.0f, tilt += y * 5.0f;
        if (isCeiling) closeUpOr([this] { tilt = std::min(tilt, std::clamp(90.0 - zoom, 0.0, 90.0)); });
    }
    void cruise(double speed) {
        if (isCeiling) cruises = true, spin = 0.0, cruiseStep = speed / 5.0, glideTo(40.0, 50.0);
    }
    template <class Animator>
    static bool follow(std::optional<Animator>& animator, double& value) {
        if (!animator) return false;
        animator->step();
        value = animator->mCurrent;
        if (animator->mDone) animator.reset();
        return true;
    }
    void frame() {
        if (!follow(tiltGlide, tilt)) follow(bounce, tilt);
        follow(zoomGlide, zoom);
        double tiltStep = 0.0;
        if (follow(tiltRun, tiltStep)) tilt += tiltStep;
        if (panRun) {
            panRun->step();
            const double left = panRun->mCurrent, lasting = -panRun->mSpeed * spinShare;
            pan += std::abs(lasting) > std::abs(left) ? lasting : left;
            if (panRun->mDone) spin = lasting, panRun.reset();
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

}  // namespace

TEST(PanoramaTouch, StormsFollowTheFormulas) {
    for (const unsigned seed : {1u, 2u, 3u, 4u}) {
        PanoramaReference r(seed % 2 == 0);
        SteeredView v(FOVIX_TYPE_360VR, r.isCeiling ? "size 1024 800" : "size 1024 800 mount 1");
        std::mt19937 random(seed);
        const auto eighths = [&random](unsigned most) { return static_cast<float>(random() % most) / 8; };
        for (int event = 0; event < 1500 && !testing::Test::HasFailure(); ++event) {
            const float x = eighths(8000), y = eighths(8000), factor = 0.125f + eighths(32);
            const float vx = (x - 500) * 10 * factor, vy = (y - 500) * factor, a = 2 - factor;
            const std::function<void()> gestures[] = {
                [&] { Fovix_OnTouchDown(v, x, y), r.down(x, y); },
                [&] { Fovix_OnTouchUp(v, x, y), r.grab(std::trunc(x), std::trunc(y)); },
                [&] { Fovix_OnTouchMove(v, x, y), r.move(x, y); },
                [&] { Fovix_OnTouchMove(v, y, x), r.move(y, x); },
                [&] { Fovix_OnTouchPinchScale(v, factor), r.scale(factor); },
                [&] { Fovix_OnTouchFling(v, vx, vy), r.fling(vx, vy); },
                [&] { Fovix_AutoAdjust(v), r.settle(); },
                [&] { Fovix_OnAccelerometer(v, a, -a), r.sense(a, -a); },
                [&] { Fovix_StartAutoCruise(v, a), r.cruise(a); },
            };
            gestures[random() % (event % 4 == 0 ? 9 : 8)]();
            for (auto frames = 1 + random() % (event % 10 == 0 ? 900 : 20); frames > 0; --frames) {
                v.frames(1), r.frame();
            }
            expectView({r.pan, r.tilt, 0, r.zoom}, v.view(), 1e-6, std::to_string(event));
        }
    }
}
